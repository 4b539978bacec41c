// That each suite of the self-check can fail: its steps are run over copies of its data in which one image or one row
// is damaged, and must give 0 and one assertion line for each level from the failing check to the suite. And what the
// run prints when a suite fails.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "CapturedOutput.h"
#include "CEdidTestSuites.h"
#include "ZorAssert.h"

namespace
{
constexpr unsigned int gsc_uiWidthByte = 56; // low byte of the preferred timing's width: no tolerance hides it

// Bytes of an image replaced, with the checksums right again: what fails is the step that reads them.
struct SPatch
{
    const char* m_pszName;
    unsigned int m_uiOffset;
    std::vector<unsigned char> m_aui8Bytes;
    unsigned int m_uiLines; // assertion lines to expect
};

SEdidImage Apply(SEdidImage aui8Image, const SPatch& oPatch)
{
    std::copy(oPatch.m_aui8Bytes.begin(), oPatch.m_aui8Bytes.end(), aui8Image.begin() + oPatch.m_uiOffset);
    return CEdidImageEdit(aui8Image).FixBaseChecksum().FixExtChecksum().Get();
}

const std::vector<unsigned char> gsc_aui8NoDescriptor(gsc_uiDescriptorSize);

void DamageRow(STimingData& oRow)
{
    oRow.m_uiVic ^= oRow.m_uiVic == 0 ? 0 : 2;
    oRow.m_uiHorizontalActive += oRow.m_uiVic == 0 ? 8 : 0;
}

void DamageRow(tagRVideo_VidParam& oRow) { ++oRow.uiVerticalBackPorch; }

// The steps RUN of one suite over damaged copies of its data record GET. A place is a pointer to a member of the
// record, or At() for an element of one.
template <auto GET, auto RUN>
struct CDamage
{
    using DATA = decltype(GET());

    static void ExpectFailure(const std::string& sName, const DATA& oData, unsigned int uiLines)
    {
        CCapturedOutput oOutput;
        EXPECT_EQ(0, RUN(oData)) << sName;
        EXPECT_EQ(uiLines, oOutput.TakeAssertionCount()) << sName;
    }

    template <class PLACE>
    static void ExpectFailureOver(const std::string& sName, PLACE oPlace, const SEdidImage& aui8Damaged,
                                  unsigned int uiLines)
    {
        DATA oData = GET();
        std::invoke(oPlace, oData) = &aui8Damaged;
        ExpectFailure(sName, oData, uiLines);
    }

    template <class PLACE>
    static void Patches(PLACE oPlace, const std::vector<SPatch>& aoPatches)
    {
        DATA oGood = GET();
        for (const SPatch& oPatch : aoPatches)
        {
            ExpectFailureOver(oPatch.m_pszName, oPlace, Apply(*std::invoke(oPlace, oGood), oPatch), oPatch.m_uiLines);
        }
    }

    // One bit of the image at each of the offsets, checksums as they are.
    template <class PLACE>
    static void Bits(PLACE oPlace, const std::vector<unsigned int>& auiOffsets, unsigned int uiLines)
    {
        DATA oGood = GET();
        for (const unsigned int uiOffset : auiOffsets)
        {
            SEdidImage aui8Damaged = *std::invoke(oPlace, oGood);
            aui8Damaged.at(uiOffset) = static_cast<unsigned char>(aui8Damaged.at(uiOffset) ^ 0x01);
            ExpectFailureOver("byte " + std::to_string(uiOffset), oPlace, aui8Damaged, uiLines);
        }
    }

    // An image that is only compared with.
    template <class PLACE>
    static void ExpectedImage(PLACE oPlace, unsigned int uiLines)
    {
        Bits(oPlace, { 0, gsc_uiBaseChecksum, gsc_uiExt, gsc_uiExtChecksum }, uiLines);
    }

    // Each row of an expected table.
    template <class PLACE>
    static void Rows(PLACE oPlace, unsigned int uiLines)
    {
        DATA oGood = GET();
        for (size_t uiRow = 0; uiRow < std::invoke(oPlace, oGood).size(); ++uiRow)
        {
            DATA oData = GET();
            std::vector aoRows(std::invoke(oPlace, oData).begin(), std::invoke(oPlace, oData).end());
            DamageRow(aoRows.at(uiRow));
            std::invoke(oPlace, oData) = aoRows;
            ExpectFailure("row " + std::to_string(uiRow), oData, uiLines);
        }
    }
};

template <class MEMBER>
auto At(MEMBER pmoArray, unsigned int uiIndex)
{
    return [=](auto& oData) -> auto& { return (oData.*pmoArray).at(uiIndex); };
}

// Revision 2 without the preferred-timing bit: the first timing can go. Bytes between them as they are.
SPatch MakeUnprotectedPatch() { return { "Unprotected", 19, { 0x02, 0xB5, 0x3C, 0x22, 0x78, 0x9C }, 1 }; }

// ---- A test for each suite ----

TEST(DamagedData, FailsAsusHd)
{
    using Damage = CDamage<GetAsusHdData, RunAsusHd>;
    Damage::Bits(&SAsusHdData::m_paui8Image, { 0, gsc_uiBaseChecksum }, 1);
    Damage::Bits(&SAsusHdData::m_paui8Image, { gsc_uiExt + 4 }, 2); // the EDID drops this block with a line of its own
    Damage::Patches(&SAsusHdData::m_paui8Image,
                    { { "Manufacturer", 8, { 0x05 }, 1 },
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
                      { "OneDetailedLess", gsc_uiExt + 88, gsc_aui8NoDescriptor, 1 },
                      { "NameLetter", 113, { 'B' }, 1 },
                      { "SerialLetter", 77, { 'B' }, 1 },
                      { "MonitorString", 90, { 0, 0, 0, 0xFE, 0, 'T', '\n', ' ' }, 1 },
                      { "ExtraStandardTimings", 90, { 0, 0, 0, 0xFA, 0, 0x81, 0xC0, 1, 1, 1, 1, 1, 1, 1, 1 }, 1 },
                      { "ExtensionCount", 126, { 0 }, 1 } });
    Damage::Rows(&SAsusHdData::m_aoEstablished, 1);
    Damage::Rows(&SAsusHdData::m_aoEstablishedVesa, 1);
    Damage::Rows(&SAsusHdData::m_aoBaseStandard, 1);
}

TEST(DamagedData, FailsBaseStandard)
{
    using Damage = CDamage<GetBaseStandardData, RunBaseStandard>;
    Damage::Patches(&SBaseStandardData::m_paui8SerialImage, { { "Serial", 12, { 0x7E }, 2 } });
    Damage::Patches(&SBaseStandardData::m_paui8StandardImage,
                    { { "OneTimingMore", 38, { 0x81, 0xC0 }, 3 },
                      { "AnotherTiming", 40, { 0x81, 0x80 }, 3 },
                      { "SameTimingsInOtherSlots", 38, { 0x81, 0xC0, 0x01, 0x00 }, 2 } });
    for (unsigned int i = 0; i < 3; ++i)
    {
        Damage::Rows(At(&SBaseStandardData::m_aaoTiming, i), 3);
    }
    for (unsigned int i = 0; i < 2; ++i)
    {
        SBaseStandardData oData = GetBaseStandardData();
        oData.m_aaoTiming.at(i) = oData.m_aaoTiming.at(i).first(3 - i);
        Damage::ExpectFailure("one row short", oData, 3 - i);
    }
}

TEST(DamagedData, FailsBaseDetailed)
{
    using Damage = CDamage<GetBaseDetailedData, RunBaseDetailed>;
    Damage::Patches(&SBaseDetailedData::m_paui8Image, { { "Width", gsc_uiWidthByte, { 0x01 }, 2 },
                                                        { "NoSecondTiming", 72, gsc_aui8NoDescriptor, 2 },
                                                        MakeUnprotectedPatch() });
    Damage::Rows(At(&SBaseDetailedData::m_aaoTiming, 0), 2);
    Damage::Rows(At(&SBaseDetailedData::m_aaoTiming, 1), 2);
}

template <auto GET, auto RUN>
void ExpectExtDetailedFailures()
{
    using Damage = CDamage<GET, RUN>;
    Damage::Patches(At(&SExtDetailedData::m_apaui8Image, 0),
                    { { "Width", gsc_uiWidthByte, { 0x01 }, 2 }, { "NoSecondTiming", 72, gsc_aui8NoDescriptor, 2 } });
    for (unsigned int i = 0; i < 4; ++i)
    {
        Damage::Rows(At(&SExtDetailedData::m_aaoTiming, i), 2);
        if (i > 0)
        {
            Damage::ExpectedImage(At(&SExtDetailedData::m_apaui8Image, i), 1);
        }
    }
}

TEST(DamagedData, FailsExtDetailed)
{
    using Damage = CDamage<GetExtDetailedData, RunExtDetailed>;
    ExpectExtDetailedFailures<GetExtDetailedData, RunExtDetailed>();

    SExtDetailedData oUnprotected = GetExtDetailedData();
    std::array<SEdidImage, 4> aaui8Damaged{};
    for (unsigned int i = 0; i < 4; ++i)
    {
        aaui8Damaged.at(i) = Apply(*oUnprotected.m_apaui8Image.at(i), MakeUnprotectedPatch());
        oUnprotected.m_apaui8Image.at(i) = &aaui8Damaged.at(i);
    }
    Damage::ExpectFailure("the first timing can be removed", oUnprotected, 1);

    SExtDetailedData oTooWide = GetExtDetailedData();
    std::array<tagRVideo_VidParam, 1> aoPreferred = { oTooWide.m_aoPreferred[0] };
    aoPreferred[0].uiHorizontalActive = 5000;
    oTooWide.m_aoPreferred = aoPreferred;
    Damage::ExpectFailure("preferred timing too wide for a descriptor", oTooWide, 1);
}

TEST(DamagedData, FailsExtDetailed2)
{
    ExpectExtDetailedFailures<GetExtDetailed2Data, RunExtDetailed2>();
    CDamage<GetExtDetailed2Data, RunExtDetailed2>::Rows(&SExtDetailedData::m_aoPreferred, 2);
}

// The first table is checked by the suite's step, the others by the shared removal, which writes a line more.
template <auto GET, auto RUN>
void ExpectExtStandardFailures()
{
    using Damage = CDamage<GET, RUN>;
    using DATA = typename Damage::DATA;
    Damage::Bits(At(&DATA::m_apaui8Image, 0), { 0 }, 1);
    Damage::Patches(At(&DATA::m_apaui8Image, 0),
                    { { "AnotherCode", gsc_uiExt + 6, { 0x02 }, 2 }, { "NoExtension", 126, { 0 }, 1 } });
    Damage::Rows(At(&DATA::m_aaoTiming, 0), 2);
    for (unsigned int i = 1; i < DATA{}.m_aaoTiming.size(); ++i)
    {
        Damage::Rows(At(&DATA::m_aaoTiming, i), 3);
        Damage::ExpectedImage(At(&DATA::m_apaui8Image, i), 2);
    }
}

TEST(DamagedData, FailsExtStandard) { ExpectExtStandardFailures<GetExtStandardData, RunExtStandard>(); }

TEST(DamagedData, FailsExtStandard2) { ExpectExtStandardFailures<GetExtStandard2Data, RunExtStandard2>(); }

TEST(DamagedData, FailsColorBitDepth)
{
    using Damage = CDamage<GetColorBitDepthData, RunColorBitDepth>;
    Damage::Bits(&SColorBitDepthData::m_paui8Image, { 0 }, 1);
    Damage::Patches(&SColorBitDepthData::m_paui8Image, { { "Revision", 19, { 3 }, 1 },
                                                         { "BaseDepth", 20, { 0xB5 }, 1 },
                                                         { "NoExtension", 126, { 0 }, 1 },
                                                         { "NoVendorBlock", gsc_uiExt + 25, { 0x04 }, 1 },
                                                         { "DeepColor", gsc_uiExt + 30, { 0x10 }, 1 } });
    Damage::Patches(&SColorBitDepthData::m_paui8Revision3Image, { { "Revision", 19, { 4 }, 1 } });
}

TEST(DamagedData, FailsTimingsCompare)
{
    using Damage = CDamage<GetTimingsCompareData, RunTimingsCompare>;
    const std::vector<SPatch> aoPatches = { { "Header", 0, { 0x01 }, 1 },
                                            { "AnotherStandard", 38, { 0x73 }, 1 },
                                            { "Width", gsc_uiWidthByte, { 0x81 }, 1 } };
    Damage::Patches(&STimingsCompareData::m_paui8FirstImage, aoPatches);
    Damage::Patches(&STimingsCompareData::m_paui8SecondImage, aoPatches);
}

// The modes as a set are the same: what differs is which of them is preferred, or what the suite does not compare.
TEST(TimingsCompare, LooksAtPreferredModesAndNotAtEstablishedOnes)
{
    const STimingsCompareData oGood = GetTimingsCompareData();
    const SEdidImage aui8OneEstablishedLess = Apply(*oGood.m_paui8FirstImage, { "Established", 35, { 0xA4 }, 0 });
    EXPECT_EQ(1, RunTimingsCompare({ &aui8OneEstablishedLess, oGood.m_paui8SecondImage }));

    const std::vector<unsigned char> aui8FullHd = { 0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58,
                                                    0x2C, 0x45, 0x00, 0xDD, 0x0C, 0x11, 0x00, 0x00, 0x1E };
    const std::vector<unsigned char> aui8Hd = { 0x01, 0x1D, 0x00, 0x72, 0x51, 0xD0, 0x1E, 0x20, 0x6E,
                                                0x28, 0x55, 0x00, 0xDD, 0x0C, 0x11, 0x00, 0x00, 0x1E };
    const auto fnWithTimings = [](const SEdidImage& aui8Image, const auto& aui8First, const auto& aui8Second) {
        return Apply(Apply(aui8Image, { "", 54, aui8First, 0 }), { "", 72, aui8Second, 0 });
    };
    const SEdidImage aui8First = fnWithTimings(*oGood.m_paui8FirstImage, aui8FullHd, aui8Hd);
    const SEdidImage aui8Second = fnWithTimings(*oGood.m_paui8SecondImage, aui8Hd, aui8FullHd);
    CDamage<GetTimingsCompareData, RunTimingsCompare>::ExpectFailure("swapped", { &aui8First, &aui8Second }, 1);
}

TEST(DamagedData, FailsAudio)
{
    using Damage = CDamage<GetAudioData, RunAudio>;
    // What the image is loaded with, and what its sub-suite reads or writes. Bytes of the data blocks behind gsc_uiExt.
    const SPatch oHeader = { "Header", 0, { 0x01 }, 2 };
    const SPatch oTag = { "ExtensionTag", gsc_uiExt, { 0x40 }, 3 }; // the EDID drops the block with a line of its own
    Damage::Patches(&SAudioData::m_paui8OneBlock, { oHeader,
                                                    oTag,
                                                    { "NoDescriptor", gsc_uiExt + 16, { 0x63 }, 2 }, // a vendor block
                                                    { "Format", gsc_uiExt + 17, { 0x11 }, 2 },
                                                    { "Channels", gsc_uiExt + 17, { 0x0A }, 2 },
                                                    { "Frequencies", gsc_uiExt + 18, { 0x03 }, 2 },
                                                    { "Extra", gsc_uiExt + 19, { 0x03 }, 2 } });
    Damage::Patches(&SAudioData::m_paui8NoBlock, { oHeader, oTag, { "Flags", gsc_uiExt + 3, { 0x74 }, 2 } });
    Damage::Patches(&SAudioData::m_paui8Full,
                    { oHeader, oTag, { "OneDetailedLess", gsc_uiExt + 107, gsc_aui8NoDescriptor, 2 } });
    Damage::ExpectFailureOver("one byte more free", &SAudioData::m_paui8Full,
                              CEdidImageEdit(*GetAudioData().m_paui8Full)
                                  .TakeOut(gsc_uiExt + 34, 1) // the last byte of the vendor block
                                  .Set(gsc_uiExt + 21, { 0x6C })
                                  .Set(gsc_uiExt + 2, { 34 })
                                  .FixExtChecksum()
                                  .Get(),
                              2);
    Damage::Patches(&SAudioData::m_paui8TwoDescriptors, { oHeader,
                                                          oTag,
                                                          { "Format", gsc_uiExt + 20, { 0x1D }, 2 },
                                                          { "Extra0", gsc_uiExt + 22, { 0x51 }, 2 },
                                                          { "Frequencies1", gsc_uiExt + 24, { 0x07 }, 2 },
                                                          { "Extra1", gsc_uiExt + 25, { 0x03 }, 2 } });
    Damage::Patches(&SAudioData::m_paui8Ten, { oHeader, oTag, { "Frequencies", gsc_uiExt + 6, { 0x03 }, 2 } });
    Damage::Patches(&SAudioData::m_paui8Add2, { oHeader });
    for (const auto pmpaui8Expected :
         { &SAudioData::m_paui8Filtered, &SAudioData::m_paui8Added, &SAudioData::m_paui8FullAdded,
           &SAudioData::m_paui8AddBlock, &SAudioData::m_paui8Removed, &SAudioData::m_paui8Eleven,
           &SAudioData::m_paui8Add2, &SAudioData::m_paui8Set })
    {
        Damage::ExpectedImage(pmpaui8Expected, 2);
    }
}

// ---- The run ----

constexpr int gsc_iTrailLine = __LINE__ + 3;
int FailWithATrail()
{
    MASSERT_FAILED();
    return 0;
}

// What the run prints when suite uiReplaced gives iResult; one that gives 0 is FailWithATrail.
std::string ExpectOutput(unsigned int uiReplaced, int iResult)
{
    const std::array<const char*, gsc_uiSuiteCount> apszHeads = {
        "AsusHd Test           = ",  "BaseStandard Test     = ", "BaseDetailed Test     = ", "ExtDetailed Test      = ",
        "ExtDetailed2 Test      = ", "ExtStandard Test      = ", "ExtStandard2 Test     = ", "ColorBitDepth Test    = ",
        "TimingsCompare Test   = ",  "Audio Test            = "
    };
    std::string sText;
    for (unsigned int i = 0; i < gsc_uiSuiteCount; ++i)
    {
        const int iPrinted = i == uiReplaced ? iResult : 1;
        if (iPrinted == 0)
        {
            sText += "nr4[0]: (Error) SuitesTest.cpp(" + std::to_string(gsc_iTrailLine) + ") Assertion failed\n";
        }
        sText += apszHeads.at(i) + std::to_string(iPrinted) + "\n";
    }
    return sText + "Tests failure count   = " + (iResult == 0 ? "1" : "0") +
           "\n\nPress any key to close the application...";
}

// The failing suite leaves its trail ahead of its own line; the suites behind it run as usual.
TEST(Run, OneFailureIsPrintedAndCounted)
{
    for (unsigned int i = 0; i < gsc_uiSuiteCount; ++i)
    {
        std::array<SSuite, gsc_uiSuiteCount> aoSuites = GetSuites();
        aoSuites.at(i).m_pfnRun = FailWithATrail;
        CCapturedOutput oOutput;
        RunSuites(aoSuites);
        EXPECT_EQ(ExpectOutput(i, 0), oOutput.Take());
    }
}

// Any result that is not 0 is a success, and is printed as it is.
TEST(Run, AnotherResultThan0Passes)
{
    std::array<SSuite, gsc_uiSuiteCount> aoSuites = GetSuites();
    aoSuites[5].m_pfnRun = [] { return -3; };
    CCapturedOutput oOutput;
    RunSuites(aoSuites);
    EXPECT_EQ(ExpectOutput(5, -3), oOutput.Take());
}

}
