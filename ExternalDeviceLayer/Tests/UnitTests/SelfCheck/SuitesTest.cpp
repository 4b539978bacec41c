// That each suite of the self-check can fail: its steps are run over copies of its data in which one image or one row
// is damaged, and must give 0 and one assertion line for each level from the failing check to the suite. And what the
// run prints when a suite fails.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "CapturedOutput.h"
#include "CEdidTestSuites.h"

namespace
{
// Place of a suite in the run.
enum ESuite : unsigned int
{
    eSuite_AsusHd,
    eSuite_BaseStandard,
    eSuite_BaseDetailed,
    eSuite_ExtDetailed,
    eSuite_ExtDetailed2,
    eSuite_ExtStandard,
    eSuite_ExtStandard2,
    eSuite_ColorBitDepth,
    eSuite_TimingsCompare,
    eSuite_Audio,
};

constexpr unsigned int gsc_uiHeaderByte = 0; // a damaged header is not loaded
constexpr unsigned int gsc_uiWidthByte = 56; // low byte of the preferred timing's width: no tolerance hides it

constexpr unsigned int gsc_uiAnyLines = 0;

// A suite over damaged data.
struct SDamageCase
{
    std::string m_sName;
    ESuite m_eSuite;
    std::function<int()> m_oRun;
    unsigned int m_uiLines; // assertion lines to expect; gsc_uiAnyLines: at least one
};

// Bytes of an image replaced, with the checksums right again: what fails is the step that reads them.
struct SPatch
{
    const char* m_pszName;
    unsigned int m_uiOffset;
    std::vector<unsigned char> m_aui8Bytes;
    unsigned int m_uiLines;
};

SEdidImage Flip(SEdidImage aui8Image, unsigned int uiOffset)
{
    aui8Image.at(uiOffset) = static_cast<unsigned char>(aui8Image.at(uiOffset) ^ 0x01);
    return aui8Image;
}

SEdidImage Apply(SEdidImage aui8Image, const SPatch& oPatch)
{
    std::copy(oPatch.m_aui8Bytes.begin(), oPatch.m_aui8Bytes.end(), aui8Image.begin() + oPatch.m_uiOffset);
    return CEdidImageEdit(aui8Image).FixBaseChecksum().FixExtChecksum().Get();
}

void DamageRow(STimingData& oRow)
{
    if (oRow.m_uiVic != 0)
    {
        oRow.m_uiVic ^= 2;
    }
    else
    {
        oRow.m_uiHorizontalActive += 8;
    }
}

void DamageRow(tagRVideo_VidParam& oRow) { ++oRow.uiVerticalBackPorch; }

// Collects the cases of one suite. GET gives its data record, RUN runs its steps.
template <auto GET, auto RUN>
class CDamage
{
public:
    using DATA = decltype(GET());

    CDamage(std::vector<SDamageCase>& aoCases, ESuite eSuite, const char* pszSuite)
        : m_aoCases(aoCases), m_eSuite(eSuite), m_sSuite(pszSuite)
    {
    }

    // oPick gives the image's place in a record.
    template <class PICK>
    void AddImage(const char* pszName, unsigned int uiOffset, PICK oPick, unsigned int uiLines = gsc_uiAnyLines)
    {
        Add(std::string(pszName) + "_byte" + std::to_string(uiOffset), uiLines, [=](DATA& oData) {
            SEdidImage const aui8Damaged = Flip(*oPick(oData), uiOffset);
            oPick(oData) = &aui8Damaged;
            return RUN(oData);
        });
    }

    // A case for each patch of a loaded image.
    template <class PICK>
    void AddPatches(const char* pszName, PICK oPick, const std::vector<SPatch>& aoPatches)
    {
        for (const SPatch& oPatch : aoPatches)
        {
            Add(std::string(pszName) + "_" + oPatch.m_pszName, oPatch.m_uiLines, [=](DATA& oData) {
                SEdidImage const aui8Damaged = Apply(*oPick(oData), oPatch);
                oPick(oData) = &aui8Damaged;
                return RUN(oData);
            });
        }
    }

    // oRun damages the record and runs the steps.
    void Add(const std::string& sName, unsigned int uiLines, std::function<int(DATA&)> oRun)
    {
        m_aoCases.push_back({ m_sSuite + "_" + sName, m_eSuite,
                              [oRun = std::move(oRun)] {
                                  DATA oData = GET();
                                  return oRun(oData);
                              },
                              uiLines });
    }

    // A case for each byte: the image is only compared with.
    template <class PICK>
    void AddExpectedImage(const char* pszName, PICK oPick, unsigned int uiLines)
    {
        for (unsigned int uiOffset = 0; uiOffset < 256; ++uiOffset)
        {
            AddImage(pszName, uiOffset, oPick, uiLines);
        }
    }

    // A case for each row. oPick gives the table's place in a record.
    template <class PICK>
    void AddTable(const char* pszName, PICK oPick, unsigned int uiLines)
    {
        DATA oGood = GET();
        for (size_t uiRow = 0; uiRow < oPick(oGood).size(); ++uiRow)
        {
            Add(std::string(pszName) + "_row" + std::to_string(uiRow), uiLines, [=](DATA& oData) {
                std::vector aoRows(oPick(oData).begin(), oPick(oData).end());
                DamageRow(aoRows.at(uiRow));
                oPick(oData) = aoRows;
                return RUN(oData);
            });
        }
    }

private:
    std::vector<SDamageCase>& m_aoCases;
    ESuite m_eSuite;
    std::string m_sSuite;
};

// Each byte that the identity steps read, and the descriptors that they expect or miss.
std::vector<SPatch> GetAsusHdPatches()
{
    return {
        { "Manufacturer", 8, { 0x05 }, 1 },
        { "Product", 10, { 0xF5 }, 1 },
        { "Serial", 12, { 0x7E }, 1 },
        { "Week", 16, { 35 }, 1 },
        { "Year", 17, { 21 }, 1 },
        { "Version", 18, { 2 }, 1 },
        { "Revision", 19, { 4 }, 1 },
        { "Analog", 20, { 0x00 }, 1 },
        { "DfpSignalling", 20, { 0x81 }, 1 },
        { "GtfSupport", 24, { 0x2B }, 1 },
        { "OneEstablishedLess", 35, { 0x31 }, 1 },
        { "AnotherStandard", 38, { 0x73 }, 1 },
        { "Width", gsc_uiWidthByte, { 0x81 }, 1 },
        { "OneDetailedLess", gsc_uiExt + 88, std::vector<unsigned char>(gsc_uiDescriptorSize), 1 },
        { "NameLetter", 113, { 'B' }, 1 },
        { "SerialLetter", 77, { 'B' }, 1 },
        { "MonitorString", 90, { 0, 0, 0, 0xFE, 0, 'T', '\n', ' ' }, 1 },
        { "ExtraStandardTimings",
          90,
          { 0, 0, 0, 0xFA, 0, 0x81, 0xC0, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01 },
          1 },
        { "ExtensionCount", 126, { 0 }, 1 },
    };
}

// Revision 2 without the preferred-timing bit: the first timing can go. Bytes between them as they are.
SPatch MakeUnprotectedPatch() { return { "Unprotected", 19, { 0x02, 0xB5, 0x3C, 0x22, 0x78, 0x9C }, 1 }; }
SPatch MakeOneTimingPatch() { return { "NoSecondTiming", 72, std::vector<unsigned char>(gsc_uiDescriptorSize), 2 }; }

void AddBaseCases(std::vector<SDamageCase>& aoCases)
{
    CDamage<GetAsusHdData, RunAsusHd> oAsusHd(aoCases, eSuite_AsusHd, "AsusHd");
    for (unsigned int uiOffset :
         { gsc_uiHeaderByte, 8U, 10U, 12U, 16U, 17U, 18U, 19U, 24U, 35U, 38U, gsc_uiWidthByte, 77U, 113U, 126U, 127U })
    {
        oAsusHd.AddImage(
            "image", uiOffset, [](auto& oData) -> auto& { return oData.m_paui8Image; }, 1);
    }
    // The EDID drops this block and writes a line of its own.
    oAsusHd.AddImage(
        "image", gsc_uiExt + 4, [](auto& oData) -> auto& { return oData.m_paui8Image; });
    oAsusHd.AddPatches(
        "repaired", [](auto& oData) -> auto& { return oData.m_paui8Image; }, GetAsusHdPatches());
    oAsusHd.AddTable(
        "established", [](auto& oData) -> auto& { return oData.m_aoEstablished; }, 1);
    oAsusHd.AddTable(
        "vesa", [](auto& oData) -> auto& { return oData.m_aoEstablishedVesa; }, 1);
    oAsusHd.AddTable(
        "standard", [](auto& oData) -> auto& { return oData.m_aoBaseStandard; }, 1);

    CDamage<GetBaseStandardData, RunBaseStandard> oBaseStandard(aoCases, eSuite_BaseStandard, "BaseStandard");
    oBaseStandard.AddPatches("serial", [](auto& oData) -> auto& { return oData.m_paui8SerialImage; },
                             { { "Serial", 12, { 0x7E }, 2 } });
    oBaseStandard.AddPatches("standard", [](auto& oData) -> auto& { return oData.m_paui8StandardImage; },
                             { { "OneTimingMore", 38, { 0x81, 0xC0 }, 3 },
                               { "AnotherTiming", 40, { 0x81, 0x80 }, 3 },
                               { "SameTimingsInOtherSlots", 38, { 0x81, 0xC0, 0x01, 0x00 }, 2 } });
    for (unsigned int i = 0; i < 3; ++i)
    {
        oBaseStandard.AddTable(
            ("timing" + std::to_string(i)).c_str(), [i](auto& oData) -> auto& { return oData.m_aaoTiming.at(i); }, 3);
    }
    oBaseStandard.Add("timing0_OneRowShort", 3, [](SBaseStandardData& oData) {
        oData.m_aaoTiming[0] = oData.m_aaoTiming[0].first(3);
        return RunBaseStandard(oData);
    });
    oBaseStandard.Add("timing1_OneRowShort", 2, [](SBaseStandardData& oData) {
        oData.m_aaoTiming[1] = oData.m_aaoTiming[1].first(2);
        return RunBaseStandard(oData);
    });

    CDamage<GetBaseDetailedData, RunBaseDetailed> oBaseDetailed(aoCases, eSuite_BaseDetailed, "BaseDetailed");
    oBaseDetailed.AddPatches(
        "image", [](auto& oData) -> auto& { return oData.m_paui8Image; },
        { { "Width", gsc_uiWidthByte, { 0x01 }, 2 }, MakeUnprotectedPatch(), MakeOneTimingPatch() });
    for (unsigned int i = 0; i < 2; ++i)
    {
        oBaseDetailed.AddTable(
            ("timing" + std::to_string(i)).c_str(), [i](auto& oData) -> auto& { return oData.m_aaoTiming.at(i); }, 2);
    }
    oBaseDetailed.Add("timing1_AsLoaded", 2, [](SBaseDetailedData& oData) {
        oData.m_aaoTiming[1] = oData.m_aaoTiming[0];
        return RunBaseDetailed(oData);
    });
}

template <auto GET, auto RUN>
void AddExtDetailedCases(std::vector<SDamageCase>& aoCases, ESuite eSuite, const char* pszSuite)
{
    CDamage<GET, RUN> oDamage(aoCases, eSuite, pszSuite);
    oDamage.AddPatches("image0", [](auto& oData) -> auto& { return oData.m_apaui8Image.at(0); },
                       { { "Width", gsc_uiWidthByte, { 0x01 }, 2 }, MakeOneTimingPatch() });
    for (unsigned int i = 0; i < 4; ++i)
    {
        oDamage.AddTable(
            ("timing" + std::to_string(i)).c_str(), [i](auto& oData) -> auto& { return oData.m_aaoTiming.at(i); }, 2);
        if (i > 0)
        {
            oDamage.AddExpectedImage(
                ("image" + std::to_string(i)).c_str(), [i](auto& oData) -> auto& { return oData.m_apaui8Image.at(i); },
                1);
        }
    }
    oDamage.Add("timing1_AsLoaded", 2, [](SExtDetailedData& oData) {
        oData.m_aaoTiming[1] = oData.m_aaoTiming[0];
        return RUN(oData);
    });
    oDamage.Add("image1_AsLoaded", 1, [](SExtDetailedData& oData) {
        oData.m_apaui8Image[1] = oData.m_apaui8Image[0];
        return RUN(oData);
    });
}

// The end of the two suites, which differs.
void AddPreferredTimingCases(std::vector<SDamageCase>& aoCases)
{
    CDamage<GetExtDetailedData, RunExtDetailed> oDamage(aoCases, eSuite_ExtDetailed, "ExtDetailed");
    oDamage.Add("images_Unprotected", 1, [](SExtDetailedData& oData) {
        std::array<SEdidImage, 4> aaui8Damaged{};
        for (unsigned int i = 0; i < 4; ++i)
        {
            aaui8Damaged.at(i) = Apply(*oData.m_apaui8Image.at(i), MakeUnprotectedPatch());
            oData.m_apaui8Image.at(i) = &aaui8Damaged.at(i);
        }
        return RunExtDetailed(oData);
    });
    oDamage.Add("preferred_TooWideForADescriptor", 1, [](SExtDetailedData& oData) {
        std::array<tagRVideo_VidParam, 1> aoPreferred = { oData.m_aoPreferred[0] };
        aoPreferred[0].uiHorizontalActive = 5000;
        oData.m_aoPreferred = aoPreferred;
        return RunExtDetailed(oData);
    });

    CDamage<GetExtDetailed2Data, RunExtDetailed2> oDamage2(aoCases, eSuite_ExtDetailed2, "ExtDetailed2");
    oDamage2.AddTable(
        "preferred", [](auto& oData) -> auto& { return oData.m_aoPreferred; }, 2);
}

// The first table is checked by the suite's step, the others by the shared removal, which writes a line more.
template <auto GET, auto RUN>
void AddExtStandardCases(std::vector<SDamageCase>& aoCases, ESuite eSuite, const char* pszSuite, unsigned int uiStates)
{
    CDamage<GET, RUN> oDamage(aoCases, eSuite, pszSuite);
    oDamage.AddImage(
        "image0", gsc_uiHeaderByte, [](auto& oData) -> auto& { return oData.m_apaui8Image.at(0); }, 1);
    oDamage.AddPatches("image0", [](auto& oData) -> auto& { return oData.m_apaui8Image.at(0); },
                       { { "AnotherCode", gsc_uiExt + 6, { 0x02 }, 2 }, { "NoExtension", 126, { 0 }, 1 } });
    for (unsigned int i = 0; i < uiStates; ++i)
    {
        oDamage.AddTable(
            ("timing" + std::to_string(i)).c_str(), [i](auto& oData) -> auto& { return oData.m_aaoTiming.at(i); },
            i == 0 ? 2 : 3);
        if (i > 0)
        {
            oDamage.AddExpectedImage(
                ("image" + std::to_string(i)).c_str(), [i](auto& oData) -> auto& { return oData.m_apaui8Image.at(i); },
                2);
        }
    }
}

void AddDepthAndCompareCases(std::vector<SDamageCase>& aoCases)
{
    CDamage<GetColorBitDepthData, RunColorBitDepth> oDepth(aoCases, eSuite_ColorBitDepth, "ColorBitDepth");
    oDepth.AddImage(
        "image", gsc_uiHeaderByte, [](auto& oData) -> auto& { return oData.m_paui8Image; }, 1);
    oDepth.AddImage(
        "image", 19, [](auto& oData) -> auto& { return oData.m_paui8Image; }, 1);
    oDepth.AddPatches("image", [](auto& oData) -> auto& { return oData.m_paui8Image; },
                      { { "Revision", 19, { 3 }, 1 },
                        { "BaseDepth", 20, { 0xB5 }, 1 },
                        { "NoExtension", 126, { 0 }, 1 },
                        { "NoVendorBlock", gsc_uiExt + 25, { 0x04 }, 1 },
                        { "DeepColor", gsc_uiExt + 30, { 0x10 }, 1 } });
    oDepth.AddPatches("revision3", [](auto& oData) -> auto& { return oData.m_paui8Revision3Image; },
                      { { "Revision", 19, { 4 }, 1 } });

    CDamage<GetTimingsCompareData, RunTimingsCompare> oCompare(aoCases, eSuite_TimingsCompare, "TimingsCompare");
    const std::vector<SPatch> aoPatches = { { "Header", gsc_uiHeaderByte, { 0x01 }, 1 },
                                            { "AnotherStandard", 38, { 0x73 }, 1 },
                                            { "Width", gsc_uiWidthByte, { 0x81 }, 1 } };
    oCompare.AddPatches(
        "first", [](auto& oData) -> auto& { return oData.m_paui8FirstImage; }, aoPatches);
    oCompare.AddPatches(
        "second", [](auto& oData) -> auto& { return oData.m_paui8SecondImage; }, aoPatches);
}

void AddAudioCases(std::vector<SDamageCase>& aoCases)
{
    CDamage<GetAudioData, RunAudio> oAudio(aoCases, eSuite_Audio, "Audio");
    // What the image is loaded with, and what its sub-suite reads or writes. Bytes of the data blocks behind gsc_uiExt.
    const SPatch oHeader = { "Header", gsc_uiHeaderByte, { 0x01 }, 2 };
    const SPatch oTag = { "ExtensionTag", gsc_uiExt, { 0x40 }, 3 }; // the EDID drops the block with a line of its own
    oAudio.AddPatches("oneBlock", [](auto& oData) -> auto& { return oData.m_paui8OneBlock; },
                      { oHeader,
                        oTag,
                        { "NoDescriptor", gsc_uiExt + 16, { 0x63 }, 2 }, // a vendor block
                        { "Format", gsc_uiExt + 17, { 0x11 }, 2 },
                        { "Channels", gsc_uiExt + 17, { 0x0A }, 2 },
                        { "Frequencies", gsc_uiExt + 18, { 0x03 }, 2 },
                        { "Extra", gsc_uiExt + 19, { 0x03 }, 2 } });
    oAudio.AddPatches("noBlock", [](auto& oData) -> auto& { return oData.m_paui8NoBlock; },
                      { oHeader, oTag, { "Flags", gsc_uiExt + 3, { 0x74 }, 2 } });
    oAudio.AddPatches(
        "full", [](auto& oData) -> auto& { return oData.m_paui8Full; },
        { oHeader, oTag, { "OneDetailedLess", gsc_uiExt + 107, std::vector<unsigned char>(gsc_uiDescriptorSize), 2 } });
    oAudio.Add("full_OneByteMoreFree", 2, [](SAudioData& oData) {
        SEdidImage const aui8Damaged = CEdidImageEdit(*oData.m_paui8Full)
                                           .TakeOut(gsc_uiExt + 34, 1) // the last byte of the vendor block
                                           .Set(gsc_uiExt + 21, { 0x6C })
                                           .Set(gsc_uiExt + 2, { 34 })
                                           .FixExtChecksum()
                                           .Get();
        oData.m_paui8Full = &aui8Damaged;
        return RunAudio(oData);
    });
    oAudio.AddPatches("twoDescriptors", [](auto& oData) -> auto& { return oData.m_paui8TwoDescriptors; },
                      { oHeader,
                        oTag,
                        { "Format", gsc_uiExt + 20, { 0x1D }, 2 },
                        { "Extra0", gsc_uiExt + 22, { 0x51 }, 2 },
                        { "Frequencies1", gsc_uiExt + 24, { 0x07 }, 2 },
                        { "Extra1", gsc_uiExt + 25, { 0x03 }, 2 } });
    oAudio.AddPatches("ten", [](auto& oData) -> auto& { return oData.m_paui8Ten; },
                      { oHeader, oTag, { "Frequencies", gsc_uiExt + 6, { 0x03 }, 2 } });
    oAudio.AddPatches("add2", [](auto& oData) -> auto& { return oData.m_paui8Add2; }, { oHeader });
    oAudio.AddExpectedImage(
        "filtered", [](auto& oData) -> auto& { return oData.m_paui8Filtered; }, 2);
    oAudio.AddExpectedImage(
        "added", [](auto& oData) -> auto& { return oData.m_paui8Added; }, 2);
    oAudio.AddExpectedImage(
        "fullAdded", [](auto& oData) -> auto& { return oData.m_paui8FullAdded; }, 2);
    oAudio.AddExpectedImage(
        "addBlock", [](auto& oData) -> auto& { return oData.m_paui8AddBlock; }, 2);
    oAudio.AddExpectedImage(
        "removed", [](auto& oData) -> auto& { return oData.m_paui8Removed; }, 2);
    oAudio.AddExpectedImage(
        "eleven", [](auto& oData) -> auto& { return oData.m_paui8Eleven; }, 2);
    oAudio.AddExpectedImage(
        "add2", [](auto& oData) -> auto& { return oData.m_paui8Add2; }, 2);
    oAudio.AddExpectedImage(
        "set", [](auto& oData) -> auto& { return oData.m_paui8Set; }, 2);
}

std::vector<SDamageCase> MakeDamageCases()
{
    std::vector<SDamageCase> aoCases;
    AddBaseCases(aoCases);
    AddExtDetailedCases<GetExtDetailedData, RunExtDetailed>(aoCases, eSuite_ExtDetailed, "ExtDetailed");
    AddExtDetailedCases<GetExtDetailed2Data, RunExtDetailed2>(aoCases, eSuite_ExtDetailed2, "ExtDetailed2");
    AddPreferredTimingCases(aoCases);
    AddExtStandardCases<GetExtStandardData, RunExtStandard>(aoCases, eSuite_ExtStandard, "ExtStandard", 5);
    AddExtStandardCases<GetExtStandard2Data, RunExtStandard2>(aoCases, eSuite_ExtStandard2, "ExtStandard2", 2);
    AddDepthAndCompareCases(aoCases);
    AddAudioCases(aoCases);
    return aoCases;
}

// Runs all suites, one of them by another function, and gives what the run prints.
std::function<int()> g_oReplacement;

std::string RunWithReplacement(ESuite eSuite, std::function<int()> oReplacement)
{
    std::array<SSuite, gsc_uiSuiteCount> aoSuites = GetSuites();
    aoSuites.at(eSuite).m_pfnRun = [] { return g_oReplacement(); };
    g_oReplacement = std::move(oReplacement);
    CCapturedOutput oOutput;
    RunSuites(aoSuites);
    return oOutput.Take();
}

// What the run prints for these results, without assertion lines.
std::string ExpectOutput(const std::array<int, gsc_uiSuiteCount>& aiResults, int iFailureCount)
{
    const std::array<const char*, gsc_uiSuiteCount> apszHeads = {
        "AsusHd Test           = ",  "BaseStandard Test     = ", "BaseDetailed Test     = ", "ExtDetailed Test      = ",
        "ExtDetailed2 Test      = ", "ExtStandard Test      = ", "ExtStandard2 Test     = ", "ColorBitDepth Test    = ",
        "TimingsCompare Test   = ",  "Audio Test            = "
    };
    std::string sText;
    for (unsigned int i = 0; i < gsc_uiSuiteCount; ++i)
    {
        sText += apszHeads.at(i) + std::to_string(aiResults.at(i)) + "\n";
    }
    sText += "Tests failure count   = " + std::to_string(iFailureCount) + "\n\n";
    return sText + "Press any key to close the application...";
}

// Splits the assertion lines off. uiCount receives their number, uiBefore the number of result lines that stand ahead of the first of them.
std::string TakeAssertionLines(const std::string& sText, unsigned int& uiCount, unsigned int& uiBefore)
{
    std::string sRest;
    uiCount = 0;
    uiBefore = 0;
    unsigned int uiResultLines = 0;
    size_t uiBegin = 0;
    while (uiBegin < sText.size())
    {
        const size_t uiEnd = std::min(sText.find('\n', uiBegin), sText.size() - 1);
        const std::string sLine = sText.substr(uiBegin, uiEnd + 1 - uiBegin);
        uiBegin = uiEnd + 1;
        if (sLine.find("Assertion failed\n") != std::string::npos)
        {
            uiBefore = uiCount++ == 0 ? uiResultLines : uiBefore;
            continue;
        }
        ++uiResultLines;
        sRest += sLine;
    }
    return sRest;
}

TEST(Suites, AllPass)
{
    CCapturedOutput oOutput;
    RunSuites(GetSuites());
    EXPECT_EQ(ExpectOutput({ 1, 1, 1, 1, 1, 1, 1, 1, 1, 1 }, 0), oOutput.Take());
}

// Any result that is not 0 is a success, and is printed as it is.
TEST(Suites, AnotherResultThan0Passes)
{
    EXPECT_EQ(ExpectOutput({ 1, 1, 1, 1, 1, -3, 1, 1, 1, 1 }, 0),
              RunWithReplacement(eSuite_ExtStandard, [] { return -3; }));
}

TEST(Suites, EachDamagedImageAndRowFailsItsSuite)
{
    const std::vector<SDamageCase> aoCases = MakeDamageCases();
    std::set<ESuite> oSuites;
    for (const SDamageCase& oCase : aoCases)
    {
        CCapturedOutput oOutput;
        EXPECT_EQ(0, oCase.m_oRun()) << oCase.m_sName;
        const unsigned int uiLines = oOutput.TakeAssertionCount();
        EXPECT_LE(1U, uiLines) << oCase.m_sName;
        EXPECT_TRUE(oCase.m_uiLines == gsc_uiAnyLines || oCase.m_uiLines == uiLines)
            << oCase.m_sName << ": " << uiLines << " lines, not " << oCase.m_uiLines;
        oSuites.insert(oCase.m_eSuite);
    }
    EXPECT_EQ(gsc_uiSuiteCount, oSuites.size());
}

// The failing suite leaves its trail ahead of its own line; the suites behind it run as usual.
TEST(Suites, OneFailureIsPrintedAndCounted)
{
    const std::vector<SDamageCase> aoCases = MakeDamageCases();
    std::set<ESuite> oDone;
    for (const SDamageCase& oCase : aoCases)
    {
        if (!oDone.insert(oCase.m_eSuite).second)
        {
            continue;
        }
        std::array<int, gsc_uiSuiteCount> aiResults = { 1, 1, 1, 1, 1, 1, 1, 1, 1, 1 };
        aiResults.at(oCase.m_eSuite) = 0;
        unsigned int uiAssertionCount = 0;
        unsigned int uiBefore = 0;
        const std::string sText =
            TakeAssertionLines(RunWithReplacement(oCase.m_eSuite, oCase.m_oRun), uiAssertionCount, uiBefore);
        EXPECT_EQ(ExpectOutput(aiResults, 1), sText) << oCase.m_sName;
        EXPECT_LE(1U, uiAssertionCount) << oCase.m_sName;
        EXPECT_EQ(unsigned{ oCase.m_eSuite }, uiBefore) << oCase.m_sName;
    }
    EXPECT_EQ(gsc_uiSuiteCount, oDone.size());
}

// From the inside out: the validator where there is one, the step, the suite; each line names its source.
TEST(Suites, FailureOfASubSuiteLeavesATrail)
{
    SAudioData oData = GetAudioData();
    oData.m_paui8Filtered = oData.m_paui8OneBlock;
    CCapturedOutput oAudioOutput;
    EXPECT_EQ(0, RunAudio(oData));
    EXPECT_EQ(2U, oAudioOutput.TakeAssertionCount());

    SBaseStandardData oBaseData = GetBaseStandardData();
    oBaseData.m_aaoTiming[0] = oBaseData.m_aaoTiming[1];
    CCapturedOutput oBaseOutput;
    EXPECT_EQ(0, RunBaseStandard(oBaseData));
    const std::string sText = oBaseOutput.Take();
    const size_t uiValidator = sText.find("CEdidTestHelp.cpp(");
    const size_t uiStep = sText.find("Test_BaseStandard.cpp(");
    const size_t uiSuite = sText.rfind("Test_BaseStandard.cpp(");
    ASSERT_NE(std::string::npos, uiValidator) << sText;
    ASSERT_NE(std::string::npos, uiStep) << sText;
    EXPECT_LT(uiValidator, uiStep);
    EXPECT_LT(uiStep, uiSuite);
}

TEST(Images, EachContentStandsOnceInTheList)
{
    std::set<std::string> oNames;
    std::set<SEdidImage> oContents;
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        EXPECT_TRUE(oNames.insert(oImage.m_pszName).second) << oImage.m_pszName;
        EXPECT_TRUE(oContents.insert(*oImage.m_paui8Image).second) << oImage.m_pszName;
    }
}
}
