// What the library costs: time and allocations of loading, walking, computing, comparing, reporting and editing, and
// how they grow with an image.
//
//     cmake --preset benchmark && cmake --build --preset benchmark --target zor_benchmarks
//     build/benchmark/ExternalDeviceLayer/Tests/Benchmarks/zor_benchmarks [OPTIONS] [FOLDER]
//
// FOLDER holds .bin images; without it the self-check's are taken. "Image_" rows run over all images, and their columns
// are an image's: time, calls of operator new, timings, lines or fields. A question or an edit that refuses is an
// error: what is measured is the work, not the way out.
//
//     zor_benchmarks --c-against-cpp [FOLDER]
//
// says by how much the interface for C slows the facts down, and exits with 1 where that is too much.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <numeric>
#include <span>
#include <string_view>

#include "CEdidTestImages.h"
#include "Edid.h"
#include "EdidExtBlockCEA861.h"
#include "FailingHeap.h"
#include "OsServices.h"
#include "SharedFiles.h"
#include "Standards/Makers.h"
#include "TemporaryFile.h"
#include "TestBytes.h"
#include "VidParamCea.h"
#include "VidParamTimingFunc.h"
#include "VidParamTimingGeneric.h"
#include "zoredid.h"
#include "ZorEdidFacts.h"
#include "ZorEdidMap.h"
#include "ZorEdidModes.h"
#include "ZorEdidUtils.h"

#ifdef ZOREDID_DISPLAY_INFO
extern "C"
{
#include <libdisplay-info/info.h>
}
#endif

namespace
{
// ---- Images ----

std::vector<CBytes> g_aaui8Images; // what the "Image_" rows run over
std::vector<CEdid> g_aoLoaded;     // the same, loaded once

int Load(CEdid& oEdid, const CBytes& aui8Image)
{
    return oEdid.SetEdidBuffer(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()), 0);
}

// A CTA-861 block with codes 1 to uiCodes, and audio, speakers, an HDMI block with deep colour and a detailed timing
// when bRich is set.
CBytes MakeCeaBlock(unsigned int uiCodes, bool bRich)
{
    CBytes aui8Block = ParseBytes("02 03 00 F0");
    for (unsigned int uiCode = 1; uiCode <= uiCodes; ++uiCode)
    {
        if (uiCode % 31 == 1)
        {
            aui8Block.push_back(static_cast<unsigned char>(0x40 + std::min(uiCodes - uiCode + 1, 31U)));
        }
        aui8Block.push_back(static_cast<unsigned char>(uiCode));
    }
    Append(aui8Block, ParseBytes(bRich ? "26 09 07 07 15 07 50 83 0F 00 00 6B 03 0C 00 10 00 78 3C 20 00 40 01" : ""));
    aui8Block[2] = static_cast<unsigned char>(aui8Block.size());
    Append(aui8Block, ParseBytes(bRich ? "02 3A 80 18 71 38 2D 40 58 2C 96 00 6D 55 21 00 00 1E" : ""));
    aui8Block.resize(gsc_uiBlockSize);
    return aui8Block;
}

// The base block of a real monitor and uiBlocks equal extension blocks.
CBytes MakeImage(unsigned int uiBlocks, const CBytes& aui8Block)
{
    CBytes aui8Image = ToBytes(gsc_aui8Philips288P6);
    aui8Image.resize(gsc_uiBlockSize);
    aui8Image[126] = static_cast<unsigned char>(uiBlocks);
    for (unsigned int i = 0; i < uiBlocks; ++i)
    {
        Append(aui8Image, aui8Block);
    }
    return FixChecksums(aui8Image);
}

// ---- Operations on one image; each gives 0 for a refusal, else a number of timings or lines ----

unsigned int Walk(const CEdid& oEdid)
{
    CVidParamTimingGeneric oTiming;
    const unsigned int auiCounts[] = { oEdid.GetEstablishedCount(0), oEdid.GetStandardCount(),
                                       oEdid.GetDetailedCount() };
    for (unsigned int i = 0; i < auiCounts[0]; ++i)
    {
        oEdid.GetEstablished(i, &oTiming, 0);
    }
    for (unsigned int i = 0; i < auiCounts[1]; ++i)
    {
        oEdid.GetStandard(i, &oTiming, nullptr);
    }
    for (unsigned int i = 0; i < auiCounts[2]; ++i)
    {
        oEdid.GetDetailed(i, &oTiming);
    }
    benchmark::DoNotOptimize(oTiming.GetData());
    return auiCounts[0] + auiCounts[1] + auiCounts[2];
}

unsigned int ExtractModes(const CEdid& oEdid)
{
    CVidParamTimingGeneric oPreferred;
    CZorEdidUtils::CModeList ao[7];
    CZorEdidUtils::ExtractModeList(oEdid, oPreferred, ao[0], ao[1], ao[2], ao[3], ao[4], ao[5], ao[6]);
    return std::accumulate(std::begin(ao), std::end(ao), 0U,
                           [](unsigned int uiSum, const auto& oList) { return uiSum + oList.GetCount(); });
}

template <CZorEdidUtils::EEdidFormatType FORMAT>
unsigned int Report(const CEdid& oEdid)
{
    CMArrayString oLines;
    CZorEdidUtils::GetFormatedEdid(FORMAT, oEdid, oLines, "");
    return oLines.GetCount();
}

// Loads the image and runs the operation on it.
template <unsigned int (*OPERATION)(const CEdid&)>
unsigned int LoadAnd(size_t uiImage)
{
    CEdid oEdid;
    return Load(oEdid, g_aaui8Images[uiImage]) != 0 ? OPERATION(oEdid) : 0;
}

const CEdid& LoadedImage(size_t uiImage) { return g_aoLoaded[uiImage % g_aoLoaded.size()]; }

CByteArray BytesOf(size_t uiImage) { return ToArray(g_aaui8Images[uiImage % g_aaui8Images.size()]); }

// Either answer is one.
template <class SOURCE>
unsigned int Compare(const SOURCE& oFirst, const SOURCE& oSecond)
{
    benchmark::DoNotOptimize(CZorEdidUtils::CompareTimings(oFirst, oSecond, 1, 1));
    return 1;
}

struct SMeasured
{
    const char* m_pszName;
    std::function<unsigned int(size_t uiImage)> m_fnRun; // gives 0 for a refusal
};

// The map of an image, and the text of each field where asked for; gives the number of fields.
template <int VALUES>
unsigned int ReadMap(size_t uiImage)
{
    const CBytes& aui8Image = g_aaui8Images[uiImage];
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    for (unsigned int i = 0; VALUES != 0 && i < oMap.GetFieldCount(); ++i)
    {
        benchmark::DoNotOptimize(oMap.GetValue(i).GetLength());
    }
    return oMap.GetFieldCount();
}

// What libdisplay-info's info.h asks for, and its answers' values taken: both sides give the same number of questions.
constexpr unsigned int gsc_uiFactQuestions = 8;

unsigned int ReadFacts(size_t uiImage)
{
    const CBytes& aui8Image = g_aaui8Images[uiImage];
    CZorEdidFacts oFacts;
    oFacts.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    const CZorEdidFacts::SIdentity& oIdentity = oFacts.GetIdentity();
    const CZorEdidFacts::SColour& oColour = oFacts.GetColour();
    benchmark::DoNotOptimize(ZorStandards::FindMakerName(oIdentity.m_oMaker.m_oValue.m_szLetters));
    benchmark::DoNotOptimize(oIdentity.m_oName.m_oValue);
    benchmark::DoNotOptimize(oIdentity.m_oSerialText.m_oValue);
    benchmark::DoNotOptimize(oColour.m_oContentMax.m_oValue.m_fLuminance);
    benchmark::DoNotOptimize(oColour.GetDefaultPrimaries());
    benchmark::DoNotOptimize(oColour.GetDefaultWhite());
    benchmark::DoNotOptimize(oColour.m_oColorimetry.m_oValue);
    benchmark::DoNotOptimize(oColour.GetDefaultGamma());
    return gsc_uiFactQuestions;
}

// What a compositor asks, in C++ and in C: each value is taken by its type.
unsigned int AskInCpp(size_t uiImage)
{
    const CBytes& aui8Image = g_aaui8Images[uiImage];
    CZorEdidFacts oFacts;
    oFacts.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    const CZorEdidFacts::SLink& oLink = oFacts.GetLink();
    const CZorEdidFacts::SColour& oColour = oFacts.GetColour();
    for (const char* pszText :
         { oFacts.GetIdentity().m_oMaker.m_oValue.m_szLetters, oFacts.GetIdentity().m_oName.m_oValue.m_szText,
           oFacts.GetIdentity().m_oSerialText.m_oValue.m_szText })
    {
        benchmark::DoNotOptimize(pszText);
    }
    for (unsigned int uiNumber :
         { oFacts.GetSize().m_oSize.m_oValue.m_uiWidth, oFacts.GetSize().m_oSize.m_oValue.m_uiHeight,
           oLink.m_oMaxTmds.m_oValue, static_cast<unsigned int>(oLink.m_oFrl.m_oValue.m_ui8Gbps),
           static_cast<unsigned int>(oLink.m_oAllm.m_oValue), static_cast<unsigned int>(oColour.m_oDepth.m_oValue),
           static_cast<unsigned int>(oColour.m_oEotfs.m_oValue),
           static_cast<unsigned int>(oColour.m_oColorimetry.m_oValue) })
    {
        benchmark::DoNotOptimize(uiNumber);
    }
    benchmark::DoNotOptimize(oLink.GetVariableRefresh());
    benchmark::DoNotOptimize(oColour.m_oContentMax.m_oValue.m_fLuminance);
    benchmark::DoNotOptimize(oColour.GetDefaultGamma());
    return 1;
}

unsigned int AskInC(zoredid_facts* poFacts, size_t uiImage)
{
    const CBytes& aui8Image = g_aaui8Images[uiImage];
    zoredid_facts_read(poFacts, aui8Image.data(), aui8Image.size());
    for (const zoredid_fact eFact : { ZOREDID_FACT_MAKER, ZOREDID_FACT_NAME, ZOREDID_FACT_SERIAL_TEXT })
    {
        benchmark::DoNotOptimize(zoredid_facts_get_text(poFacts, eFact, nullptr));
    }
    for (const zoredid_fact eFact :
         { ZOREDID_FACT_WIDTH, ZOREDID_FACT_HEIGHT, ZOREDID_FACT_MAX_TMDS_CLOCK, ZOREDID_FACT_FRL_LANE_RATE,
           ZOREDID_FACT_ALLM, ZOREDID_FACT_DEPTH, ZOREDID_FACT_EOTFS, ZOREDID_FACT_COLORIMETRY, ZOREDID_FACT_VRR_MIN,
           ZOREDID_FACT_CONTENT_MAX_LUMINANCE, ZOREDID_FACT_DEFAULT_GAMMA })
    {
        double dValue = 0;
        benchmark::DoNotOptimize(zoredid_facts_get_real(poFacts, eFact, &dValue));
        benchmark::DoNotOptimize(dValue);
    }
    return 1;
}

unsigned int AskInCWithItsOwn(size_t uiImage)
{
    zoredid_facts* const poFacts = zoredid_facts_create();
    const unsigned int uiAsked = AskInC(poFacts, uiImage);
    zoredid_facts_free(poFacts);
    return uiAsked;
}

unsigned int AskInCWithTheSame(size_t uiImage)
{
    static zoredid_facts* const s_poFacts = zoredid_facts_create(); // lives as long as the program
    return AskInC(s_poFacts, uiImage);
}

#ifdef ZOREDID_DISPLAY_INFO
unsigned int AskDisplayInfo(size_t uiImage)
{
    const CBytes& aui8Image = g_aaui8Images[uiImage];
    di_info* poInfo = di_info_parse_edid(aui8Image.data(), aui8Image.size());
    if (poInfo == nullptr)
    {
        return gsc_uiFactQuestions; // a refusal is its answer
    }
    for (char* pszText : { di_info_get_make(poInfo), di_info_get_model(poInfo), di_info_get_serial(poInfo) })
    {
        benchmark::DoNotOptimize(pszText);
        free(pszText);
    }
    benchmark::DoNotOptimize(di_info_get_hdr_static_metadata(poInfo));
    benchmark::DoNotOptimize(di_info_get_default_color_primaries(poInfo));
    benchmark::DoNotOptimize(di_info_get_supported_signal_colorimetry(poInfo));
    benchmark::DoNotOptimize(di_info_get_default_gamma(poInfo));
    di_info_destroy(poInfo);
    return gsc_uiFactQuestions;
}
#endif

const SMeasured gsc_aoImageRows[] = {
    { "Image_A_Load", LoadAnd<[](const CEdid&) { return 1U; }> },
    { "Image_B_LoadAndWalk", LoadAnd<Walk> },
    { "Image_b_Walk", [](size_t i) { return Walk(LoadedImage(i)); } },
    { "Image_C_LoadAndExtractModes", LoadAnd<ExtractModes> },
    { "Image_D1_LoadAndReport", LoadAnd<Report<CZorEdidUtils::eEdidFormatZorEdidExtractor>> },
    { "Image_D2_LoadAndReportModes", LoadAnd<Report<CZorEdidUtils::eEdidFormatRVideoOutRes>> },
    { "Image_D3_LoadAndReportExtended", LoadAnd<Report<CZorEdidUtils::eEdidFormatZorEdidExtractorExt>> },
    { "Image_E_CompareWithNext", [](size_t i) { return Compare(LoadedImage(i), LoadedImage(i + 1)); } },
    { "Image_F_CompareBytesWithNext", [](size_t i) { return Compare(BytesOf(i), BytesOf(i + 1)); } },
    { "Image_G_CompareWithItself", [](size_t i) { return Compare(LoadedImage(i), LoadedImage(i)); } },
    { "Image_H_Map", ReadMap<0> },
    { "Image_I_MapAndValues", ReadMap<1> },
    { "Image_J_FactsReadAndAskAll", ReadFacts },
    { "Image_j_FactsAndModes",
      [](size_t i) {
          CZorEdidModes oModes;
          oModes.Read(static_cast<unsigned int>(g_aaui8Images[i].size()), g_aaui8Images[i].data());
          return ReadFacts(i) + oModes.GetCount();
      } },
    { "Image_L_FactsInCpp", AskInCpp },
    { "Image_l1_FactsInC", AskInCWithItsOwn },
    { "Image_l2_FactsInCSameObject", AskInCWithTheSame },
#ifdef ZOREDID_DISPLAY_INFO
    { "Image_K_DisplayInfoParseAskAllDestroy", AskDisplayInfo },
#endif
    { "Image_Serialise", [](size_t i) { return LoadedImage(i).GetEdidBuffer().GetCount(); } },
};

CVidParamTiming* Output()
{
    static CVidParamTimingGeneric s_oTiming;
    return &s_oTiming;
}

const SMeasured gsc_aoQuestions[] = {
    { "Compute_Cvt", [](size_t) { return CVidParamTimingFunc::ComputeCvt(1920, 1080, 60, 0, Output()); } },
    { "LookUp_DmtBySize", [](size_t) { return CVidParamTimingFunc::GetDmtTiming(0, Output(), 1920, 1080, 60); } },
    { "LookUp_CeaByVic", [](size_t) { return CVidParamCea::GetVidParamFromVic(97, Output()); } },
};

// Runs a row over that many images. The columns are an image's; a question has one, which it does not look at.
void Run(benchmark::State& oState, const SMeasured& oRow, size_t uiImages)
{
    const double dImages = static_cast<double>(uiImages);
    const unsigned long ulBefore = g_oFailingHeap.m_ulTaken;
    unsigned long ulFound = 0;
    for (auto _ : oState)
    {
        for (size_t i = 0; i < uiImages; ++i)
        {
            ulFound += oRow.m_fnRun(i);
        }
    }
    const double dRuns = static_cast<double>(oState.iterations()) * dImages;
    oState.counters["image"] =
        benchmark::Counter(dImages, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    oState.counters["allocs"] = static_cast<double>(g_oFailingHeap.m_ulTaken - ulBefore) / dRuns;
    oState.counters["found"] = static_cast<double>(ulFound) / dRuns;
    ulFound == 0 ? oState.SkipWithError("refused") : void();
}

void Register(std::span<const SMeasured> aoRows, size_t uiImages)
{
    for (const SMeasured& oRow : aoRows)
    {
        benchmark::RegisterBenchmark(oRow.m_pszName, Run, oRow, uiImages);
    }
}

// ---- Edits: each on a freshly loaded image ----

constexpr CEdidExtBlockCEA861::SAudioDescriptor gsc_oPcm = { CEdidExtBlockCEA861::eAudioFormat_Pcm, 2,
                                                             CEdidExtBlockCEA861::eAudioSamplingFreq_48KHz, 1 };

CEdidExtBlockCEA861& CeaBlockOf(CEdid& oEdid) { return *static_cast<CEdidExtBlockCEA861*>(oEdid.GetExtension(0)); }

int SetPreferredMode(CEdid& oEdid)
{
    CVidParamTimingGeneric oTiming;
    return CVidParamCea::GetVidParamFromVic(16, &oTiming) != 0 ? oEdid.SetPreferredMode(&oTiming) : 0;
}

struct SEdit
{
    const char* m_pszName;
    int (*m_fnRun)(CEdid&);
};

const SEdit gsc_aoEdits[] = {
    { "Base_SetSerialNumber", [](CEdid& o) { return o.SetSerialNumber(0x12345678), 1; } },
    { "Base_SetColorBitDepth", [](CEdid& o) { return o.SetColorBitDepth(CEdidBase::eColorBitDepth10); } },
    { "Base_SetEstablished", [](CEdid& o) { return o.SetEstablished(0, 0, 1); } },
    { "Base_SetEstablishedFromId",
      [](CEdid& o) { return o.SetEstablishedFromId(CEdidBase::eEstablished832x624At75, 1, 1); } },
    { "Base_RemoveStandard", [](CEdid& o) { return o.RemoveStandard(0); } },
    { "Base_RemoveDetailed", [](CEdid& o) { return o.RemoveDetailed(1); } },
    { "Base_SetPreferredMode", SetPreferredMode },
    { "Ext_RemoveStandard", [](CEdid& o) { return o.RemoveStandard(o.GetBaseStandardCount()); } },
    { "Ext_RemoveDetailed", [](CEdid& o) { return o.RemoveDetailed(o.GetBaseDetailedCount()); } },
    { "Ext_SetColorBitDepthSupport", [](CEdid& o) { return CeaBlockOf(o).SetColorBitDepthSupport(3); } },
    { "Ext_SetAudioDescriptor", [](CEdid& o) { return CeaBlockOf(o).SetAudioDescriptor(0, &gsc_oPcm); } },
    { "Ext_AddAudioDescriptor", [](CEdid& o) { return CeaBlockOf(o).AddAudioDescriptor(&gsc_oPcm); } },
    { "Ext_RemoveAudioDescriptor", [](CEdid& o) { return CeaBlockOf(o).RemoveAudioDescriptor(0); } },
    { "Ext_SetSpeakerDescriptor", [](CEdid& o) { return CeaBlockOf(o).SetSpeakerDescriptor(0, 0x0F); } },
    { "Ext_AddSpeakerDescriptor", [](CEdid& o) { return CeaBlockOf(o).AddSpeakerDescriptor(0x0F); } },
    { "Ext_RemoveSpeakerDescriptor", [](CEdid& o) { return CeaBlockOf(o).RemoveSpeakerDescriptor(0); } },
    { "Ext_AddVendorSpecific", [](CEdid& o) { return CeaBlockOf(o).AddVendorSpecific(); } },
};

constexpr unsigned int gsc_uiEditsPerIteration = 64; // enough that reading the clock does not count
constexpr unsigned int gsc_uiEditIterations = 400;

// The images are loaded outside the measured time and the counted allocations. One edit is one operation.
void Edit(benchmark::State& oState, const SEdit& oEdit)
{
    const CBytes aui8Image = MakeImage(1, MakeCeaBlock(25, true));
    CEdid aoEdids[gsc_uiEditsPerIteration];
    unsigned long ulAllocations = 0;
    while (oState.KeepRunning())
    {
        for (CEdid& oEdid : aoEdids)
        {
            Load(oEdid, aui8Image);
        }
        const unsigned long ulBefore = g_oFailingHeap.m_ulTaken;
        const auto oStart = std::chrono::steady_clock::now();
        for (CEdid& oEdid : aoEdids)
        {
            oEdit.m_fnRun(oEdid) == 0 ? oState.SkipWithError("refused") : void();
        }
        const std::chrono::duration<double> oElapsed = std::chrono::steady_clock::now() - oStart;
        ulAllocations += g_oFailingHeap.m_ulTaken - ulBefore;
        oState.SetIterationTime(oElapsed.count() / gsc_uiEditsPerIteration);
    }
    oState.counters["allocs"] =
        static_cast<double>(ulAllocations) / (static_cast<double>(oState.iterations()) * gsc_uiEditsPerIteration);
}

// ---- Growth: the cost of one image against its size. The last rows of each group name the fitted exponent. ----

void GrowBlocks(benchmark::State& oState, bool bLoads)
{
    const CBytes aui8Image = MakeImage(static_cast<unsigned int>(oState.range(0)), MakeCeaBlock(20, true));
    CEdid oLoaded;
    Load(oLoaded, aui8Image);
    for (auto _ : oState)
    {
        CEdid oEdid;
        benchmark::DoNotOptimize(bLoads ? static_cast<unsigned int>(Load(oEdid, aui8Image)) : Walk(oLoaded));
    }
    oState.SetComplexityN(oState.range(0));
}

void GrowTimings(benchmark::State& oState)
{
    CEdid oEdid;
    Load(oEdid, MakeImage(1, MakeCeaBlock(static_cast<unsigned int>(oState.range(0)), false)));
    for (auto _ : oState)
    {
        benchmark::DoNotOptimize(Walk(oEdid));
    }
    oState.counters["timings"] = Walk(oEdid);
    oState.SetComplexityN(oState.range(0));
}

// ---- The interface for C against C++ ----

constexpr double gsc_dMostOfCpp = 1.1;        // of the time in C++: what docs/c.md promises
constexpr unsigned int gsc_uiTries = 5;       // the others are for a machine that does other things
constexpr unsigned int gsc_uiRounds = 1001;   // odd, for a median
constexpr unsigned int gsc_uiQuestions = 500; // of a round: some hundred microseconds, so that the clock does not count

double TimeRound(unsigned int (*pfnAsk)(size_t uiImage))
{
    const auto oStart = std::chrono::steady_clock::now();
    for (size_t i = 0; i < gsc_uiQuestions; ++i)
    {
        pfnAsk(i % g_aaui8Images.size());
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - oStart).count();
}

// The median of the ratios of rounds that follow each other, which the rest of the machine meets alike.
double MeasureCAgainstCpp()
{
    std::vector<double> adRatios(gsc_uiRounds);
    std::ranges::generate(adRatios, [] {
        const double dInCpp = TimeRound(AskInCpp);
        return TimeRound(AskInCWithItsOwn) / dInCpp;
    });
    const auto itMedian = adRatios.begin() + gsc_uiRounds / 2;
    std::ranges::nth_element(adRatios, itMedian);
    return *itMedian;
}

int CompareCWithCpp()
{
    for (unsigned int i = 0; i < gsc_uiTries; ++i)
    {
        const double dRatio = MeasureCAgainstCpp();
        printf("facts in C: %.2f of the time in C++, at most %.1f\n", dRatio, gsc_dMostOfCpp);
        if (dRatio <= gsc_dMostOfCpp)
        {
            return 0;
        }
    }
    return 1;
}
} // namespace

int main(int iArguments, char** apszArguments)
{
    benchmark::Initialize(&iArguments, apszArguments);
    const bool bCAgainstCpp = iArguments > 1 && std::string_view(apszArguments[1]) == "--c-against-cpp";
    if (bCAgainstCpp)
    {
        ++apszArguments;
        --iArguments;
    }
    OsServices::SetMsgLevel(0, 0, 0); // odd images write assertion lines
    for (const auto& [sName, aui8Image] : ReadImages(iArguments == 2 ? apszArguments[1] : ""))
    {
        g_aaui8Images.push_back(aui8Image);
    }
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        iArguments == 1 ? g_aaui8Images.push_back(ToBytes(*oImage.m_paui8Image)) : void();
    }
    if (g_aaui8Images.empty())
    {
        fprintf(stderr, "one argument: a folder of .bin images\n");
        return 1;
    }
    if (bCAgainstCpp)
    {
        return CompareCWithCpp();
    }
    g_aoLoaded = std::vector<CEdid>(g_aaui8Images.size());
    for (size_t i = 0; i < g_aoLoaded.size(); ++i)
    {
        Load(g_aoLoaded[i], g_aaui8Images[i]);
    }
    // The first image as a raw file and as a text table.
    const std::string sTable = MakeTextTable(g_aaui8Images[0]);
    const CTemporaryFile oBin(".bin", g_aaui8Images[0].data(), g_aaui8Images[0].size());
    const CTemporaryFile oDat(".dat", sTable.data(), sTable.size());
    const auto Read = [](const CTemporaryFile& oFile) {
        CByteArray oBytes;
        return CZorEdidUtils::ExtractEdidFromFile(CMString(oFile.GetPath()), oBytes);
    };
    const SMeasured aoFiles[] = { { "File_Bin", [&](size_t) { return Read(oBin); } },
                                  { "File_Dat", [&](size_t) { return Read(oDat); } } };
    Register(gsc_aoImageRows, g_aaui8Images.size());
    Register(gsc_aoQuestions, 1);
    Register(aoFiles, 1);
    for (const SEdit& oEdit : gsc_aoEdits)
    {
        benchmark::RegisterBenchmark(oEdit.m_pszName, Edit, oEdit)->UseManualTime()->Iterations(gsc_uiEditIterations);
    }
    for (const bool bLoads : { true, false })
    {
        benchmark::RegisterBenchmark(bLoads ? "Grow_LoadBlocks" : "Grow_WalkBlocks", GrowBlocks, bLoads)
            ->RangeMultiplier(2)
            ->Range(1, 255)
            ->Complexity();
    }
    benchmark::RegisterBenchmark("Grow_WalkNoTimings", GrowTimings)->Arg(0); // 0 has no place in a fit
    benchmark::RegisterBenchmark("Grow_WalkTimings", GrowTimings)->DenseRange(10, 100, 10)->Complexity();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
