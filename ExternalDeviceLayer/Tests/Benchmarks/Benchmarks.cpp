// What the library costs: time and allocations of loading, walking, computing, editing, comparing and writing.
//
//     cmake --preset benchmark && cmake --build --preset benchmark --target zor_benchmarks
//     build/benchmark/ExternalDeviceLayer/Tests/Benchmarks/zor_benchmarks
//
// The column "allocs" counts the calls of operator new in one operation. An operation that refuses is an error: what is
// measured is the work, not the way out.

#include <benchmark/benchmark.h>

#include <chrono>

#include "CEdidTestImages.h"
#include "Edid.h"
#include "EdidExtBlockCEA861.h"
#include "FailingHeap.h"
#include "VidParamCea.h"
#include "VidParamTimingFunc.h"
#include "VidParamTimingGeneric.h"
#include "ZorEdidUtils.h"

namespace
{
// ---- Images ----

constexpr SEdidImage gsc_aui8Ordinary = gsc_aui8Philips288P6;

// The same monitor with a CEA-861 block that is full to its last descriptor: 31 short video descriptors, two audio
// descriptors, speakers, an HDMI block with deep colour and two HDMI modes, three detailed timings from offset 59 on.
// clang-format off
constexpr SEdidImage gsc_aui8FullBlock =
    CEdidImageEdit(gsc_aui8Philips288P6)
        .SetZero(gsc_uiExt + 4, 123)
        .Set(gsc_uiExt + 2, { 59, 0xF3 })
        .Set(gsc_uiExt + 4, { 0x5F, 0x90,    1,    2,    3,    4,    5,   14,   15,   17,   18,   19,   20,   29,   30,   31,
                                      32,   33,   34,   35,   36,   37,   38,   39,   40,   41,   46,   47,   93,   94,   95,   97 })
        .Set(gsc_uiExt + 36, { 0x26, 0x09, 0x07, 0x07, 0x15, 0x07, 0x50 })
        .Set(gsc_uiExt + 43, { 0x83, 0x0F, 0x00, 0x00 })
        .Set(gsc_uiExt + 47, { 0x6B, 0x03, 0x0C, 0x00, 0x10, 0x00, 0x78, 0x3C, 0x20, 0x00, 0x40, 0x01 })
        .Set(gsc_uiExt + 59, { 0x02, 0x3A, 0x80, 0xD0, 0x72, 0x38, 0x2D, 0x40, 0x10, 0x2C, 0x96, 0x80, 0x6D, 0x55, 0x21, 0x00, 0x00, 0x18 })
        .Set(gsc_uiExt + 77, { 0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58, 0x2C, 0x96, 0x00, 0x6D, 0x55, 0x21, 0x00, 0x00, 0x18 })
        .Set(gsc_uiExt + 95, { 0x01, 0x1D, 0x00, 0xBC, 0x52, 0xD0, 0x1E, 0x20, 0xB8, 0x28, 0x55, 0x40, 0x6D, 0x55, 0x21, 0x00, 0x00, 0x1E })
        .FixExtChecksum()
        .Get();
// clang-format on
static_assert(HasValidChecksums(gsc_aui8FullBlock));

int Load(CEdid& oEdid, const SEdidImage& aui8Image)
{
    return oEdid.SetEdidBuffer(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()), 0);
}

CEdidExtBlockCEA861& CeaBlockOf(CEdid& oEdid) { return *static_cast<CEdidExtBlockCEA861*>(oEdid.GetExtension(0)); }

// An operation on a loaded image; gives 0 for a refusal, the number of timings when it walks them, else 1.
struct SOperation
{
    const char* m_pszName;
    int (*m_fnRun)(CEdid&);
    const SEdidImage& m_aui8Image = gsc_aui8Ordinary;
};

// ---- Operations that can be repeated on the same object ----

template <const SEdidImage& IMAGE>
int LoadImage(CEdid& /*oEdid*/)
{
    CEdid oEdid;
    return Load(oEdid, IMAGE);
}

template <class EDID>
int WalkAllTimings(EDID& oEdid)
{
    CVidParamTimingGeneric oTiming;
    const unsigned int uiEstablished = oEdid.GetEstablishedCount(0);
    for (unsigned int i = 0; i < uiEstablished; ++i)
    {
        oEdid.GetEstablished(i, &oTiming, 0);
    }
    const unsigned int uiStandard = oEdid.GetStandardCount();
    for (unsigned int i = 0; i < uiStandard; ++i)
    {
        oEdid.GetStandard(i, &oTiming, nullptr);
    }
    const unsigned int uiDetailed = oEdid.GetDetailedCount();
    for (unsigned int i = 0; i < uiDetailed; ++i)
    {
        oEdid.GetDetailed(i, &oTiming);
    }
    return static_cast<int>(uiEstablished + uiStandard + uiDetailed);
}

int LoadBaseBlockAndWalk(CEdid& /*oEdid*/)
{
    CEdidBase oBase;
    return oBase.SetEdidBuffer(gsc_aui8Ordinary.data(), gsc_uiImageBlockSize, 0) != 0 ? WalkAllTimings(oBase) : 0;
}

int SerialiseIntoCallersBuffer(CEdid& oEdid)
{
    unsigned char aui8Buffer[256];
    return oEdid.GetEdidBuffer(sizeof(aui8Buffer), aui8Buffer) == sizeof(aui8Buffer) ? 1 : 0;
}

int ExtractModes(CEdid& oEdid)
{
    CVidParamTimingGeneric oPreferred;
    CZorEdidUtils::CModeList aoLists[7];
    return CZorEdidUtils::ExtractModeList(oEdid, oPreferred, aoLists[0], aoLists[1], aoLists[2], aoLists[3], aoLists[4],
                                          aoLists[5], aoLists[6]);
}

int CompareWithItself(CEdid& oEdid) { return CZorEdidUtils::CompareTimings(oEdid, oEdid, 1, 1); }

CVidParamTiming* Output()
{
    static CVidParamTimingGeneric s_oTiming;
    return &s_oTiming;
}

const SOperation gsc_aoOperations[] = {
    { "Load_BaseBlockAndWalk", LoadBaseBlockAndWalk },
    { "Load_256Bytes", LoadImage<gsc_aui8Ordinary> },
    { "Load_FullCeaBlock", LoadImage<gsc_aui8FullBlock> },
    { "Walk_AllTimings", WalkAllTimings },
    { "Walk_AllTimingsFullCeaBlock", WalkAllTimings, gsc_aui8FullBlock },
    { "Serialise_Array", [](CEdid& o) { return o.GetEdidBuffer().GetCount() == 256 ? 1 : 0; } },
    { "Serialise_CallersBuffer", SerialiseIntoCallersBuffer },
    { "Compute_Cvt", [](CEdid&) { return CVidParamTimingFunc::ComputeCvt(1920, 1080, 60, 0, Output()); } },
    { "Compute_CvtReduced", [](CEdid&) { return CVidParamTimingFunc::ComputeCvt(1920, 1080, 60, 1, Output()); } },
    { "Compute_Gtf", [](CEdid&) { return CVidParamTimingFunc::ComputeGft(1920, 1080, 60, Output()); } },
    { "LookUp_DmtBySize", [](CEdid&) { return CVidParamTimingFunc::GetDmtTiming(0, Output(), 1920, 1080, 60); } },
    { "LookUp_CeaBySize", [](CEdid&) { return CVidParamTimingFunc::GetCeaTiming(0, Output(), 3840, 2160, 60); } },
    { "LookUp_CeaByVic", [](CEdid&) { return CVidParamCea::GetVidParamFromVic(97, Output()); } },
    { "Modes_Extract", ExtractModes },
    { "Modes_ExtractFullCeaBlock", ExtractModes, gsc_aui8FullBlock },
    { "Modes_Compare", CompareWithItself },
    { "Modes_CompareFullCeaBlock", CompareWithItself, gsc_aui8FullBlock },
};

// ---- Edits: each on a freshly loaded image ----

constexpr CEdidExtBlockCEA861::SAudioDescriptor gsc_oPcm = { CEdidExtBlockCEA861::eAudioFormat_Pcm, 2,
                                                             CEdidExtBlockCEA861::eAudioSamplingFreq_48KHz, 1 };

int SetPreferredMode(CEdid& oEdid)
{
    CVidParamTimingGeneric oTiming;
    CVidParamCea::GetVidParamFromVic(16, &oTiming);
    return oEdid.SetPreferredMode(&oTiming);
}

int SetSerialNumber(CEdid& oEdid)
{
    oEdid.SetSerialNumber(0x12345678);
    return 1;
}

const SOperation gsc_aoEdits[] = {
    { "Base_SetSerialNumber", SetSerialNumber },
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

// ---- Measuring ----

void Report(benchmark::State& oState, bool bRefused, unsigned long ulAllocations, unsigned int uiOperationsPerIteration)
{
    const double dOperations = static_cast<double>(oState.iterations()) * uiOperationsPerIteration;
    oState.counters["allocs"] = static_cast<double>(ulAllocations) / dOperations;
    if (bRefused)
    {
        oState.SkipWithError("refused");
    }
}

void Repeat(benchmark::State& oState, const SOperation& oOperation)
{
    CEdid oEdid;
    // Numbers of an image whose extension block was dropped would look good and mean nothing.
    bool bRefused = Load(oEdid, oOperation.m_aui8Image) == 0 || oEdid.GetExtensionCount() != 1;
    int iResult = 0;
    const unsigned long ulBefore = g_oFailingHeap.m_ulTaken;
    for (auto _ : oState)
    {
        iResult = oOperation.m_fnRun(oEdid);
        bRefused |= iResult == 0;
        benchmark::ClobberMemory();
    }
    Report(oState, bRefused, g_oFailingHeap.m_ulTaken - ulBefore, 1);
    if (iResult > 1)
    {
        oState.counters["timings"] = iResult;
    }
}

constexpr unsigned int gsc_uiEditsPerIteration = 64; // enough that reading the clock does not count
constexpr unsigned int gsc_uiEditIterations = 400;

// The images are loaded outside the measured time and the counted allocations. One edit is one operation.
void Edit(benchmark::State& oState, const SOperation& oEdit)
{
    using Clock = std::chrono::steady_clock;
    CEdid aoEdids[gsc_uiEditsPerIteration];
    unsigned long ulAllocations = 0;
    bool bRefused = false;
    while (oState.KeepRunning())
    {
        for (CEdid& oEdid : aoEdids)
        {
            Load(oEdid, oEdit.m_aui8Image);
        }
        const unsigned long ulBefore = g_oFailingHeap.m_ulTaken;
        const Clock::time_point oStart = Clock::now();
        for (CEdid& oEdid : aoEdids)
        {
            bRefused |= oEdit.m_fnRun(oEdid) == 0;
        }
        const std::chrono::duration<double> oElapsed = Clock::now() - oStart;
        ulAllocations += g_oFailingHeap.m_ulTaken - ulBefore;
        oState.SetIterationTime(oElapsed.count() / gsc_uiEditsPerIteration);
    }
    Report(oState, bRefused, ulAllocations, gsc_uiEditsPerIteration);
}
} // namespace

int main(int iArguments, char** apszArguments)
{
    benchmark::Initialize(&iArguments, apszArguments);
    if (benchmark::ReportUnrecognizedArguments(iArguments, apszArguments))
    {
        return 1;
    }
    for (const SOperation& oOperation : gsc_aoOperations)
    {
        benchmark::RegisterBenchmark(oOperation.m_pszName, Repeat, oOperation);
    }
    for (const SOperation& oEdit : gsc_aoEdits)
    {
        benchmark::RegisterBenchmark(oEdit.m_pszName, Edit, oEdit)->UseManualTime()->Iterations(gsc_uiEditIterations);
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
