// The routines that the suites share: what they accept, what they refuse, and when they write a line.

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "CapturedOutput.h"
#include "CEdidTestHelp.h"
#include "Edid.h"

namespace
{
// Detailed timings of the ASUS image: one in the base block, four in the extension block, as codes of CTA-861.
constexpr std::array<STimingData, 5> gsc_aoDetailed = { {
    CeaRow(1920, 1080, 60, 16),
    CeaRow(720, 480, 60, 3),
    CeaRow(1280, 720, 60, 4),
    CeaRow(1280, 720, 50, 19),
    CeaRow(720, 576, 50, 18),
} };

// The base block's one, as a record: 2200 pixels and 1125 lines at 148.5 MHz, 67 kHz.
constexpr tagRVideo_VidParam gsc_oBaseDetailed = { 1920, 1080, 60, 67, 148500, 88, 44, 148, 4, 5, 36, 0, { 0, 0 } };

constexpr std::array<STimingData, 7> gsc_aoBaseStandard = { {
    DmtRow(1152, 864, 75),
    DmtRow(1280, 720, 60),
    DmtRow(1280, 960, 60),
    DmtRow(1280, 1024, 60),
    DmtRow(1440, 900, 60, CVidParamDmt::eModeListStandard),
    DmtRow(1680, 1050, 60, CVidParamDmt::eModeListStandard),
    DmtRow(1920, 1080, 60),
} };

class CAsusHd
{
public:
    CAsusHd() { EXPECT_EQ(1, LoadCopy(m_oEdid, AsusHd::g_auiAsusHdEdidData)); }
    CEdid& Get() { return m_oEdid; }

private:
    CEdid m_oEdid;
};

struct SCompareCase
{
    const char* m_pszName;
    unsigned int m_uiSize;
    bool m_bNull;
    bool m_bFlipLast;
    int m_iExpected;
};

TEST(CompareRawData, NeverWritesALine)
{
    constexpr SCompareCase aoCases[] = {
        { "Equal", 256, false, false, 1 },          { "NullImage", 256, true, false, 0 },
        { "SmallerSize", 128, false, false, 0 },    { "SizeOf0", 0, false, false, 0 },
        { "LastByteDiffers", 256, false, true, 0 },
    };
    CAsusHd oAsus;
    for (const SCompareCase& oCase : aoCases)
    {
        SEdidImage aui8Expected = AsusHd::g_auiAsusHdEdidData;
        aui8Expected[255] = static_cast<unsigned char>(aui8Expected[255] ^ (oCase.m_bFlipLast ? 1 : 0));
        CCapturedOutput oOutput;
        EXPECT_EQ(oCase.m_iExpected,
                  CompareRawData(oAsus.Get(), oCase.m_uiSize, oCase.m_bNull ? nullptr : aui8Expected.data()))
            << oCase.m_pszName;
        EXPECT_EQ("", oOutput.Take()) << oCase.m_pszName;
    }
}

// An empty EDID serialises to 128 zero bytes but has a size of 0: nothing is compared.
TEST(CompareRawData, EmptyEdidEqualsNoBytes)
{
    CEdid oEdid;
    EXPECT_EQ(1, CompareRawData(oEdid, 0, AsusHd::g_auiAsusHdEdidData.data()));
}

CVidParamTimingGeneric MakeMarkedTiming()
{
    CVidParamTimingGeneric oTiming;
    oTiming.SetHorizontalActive(4321);
    return oTiming;
}

TEST(GetVidParam, ResultTellsThatTheTypeIsKnown)
{
    struct SCase
    {
        const char* m_pszName;
        STimingData m_oRow;
        int m_iExpected;
        unsigned int m_uiHorizontalActive; // afterwards; 4321 is "as it was"
    };
    STimingData oReduced = DmtRow(1920, 1200, 60);
    oReduced.m_eTimingType = CVidParamTiming::eVidParamType_DmtReducedBlanking;
    STimingData oOutside = DmtRow(1920, 1200, 60);
    oOutside.m_eTimingType = CVidParamTiming::eVidParamType_Smpte;
    const SCase aoCases[] = {
        { "Dmt", DmtRow(1280, 1024, 75), 1, 1280 },
        { "DmtWithoutARow", DmtRow(1281, 1024, 75), 1, 4321 },
        { "Gtf", GtfRow(832, 624, 75), 1, 832 },
        { "GtfThatCannotBe", GtfRow(0, 0, 60), 1, 4321 },
        { "CeaByCode", CeaRow(1, 2, 3, 1016), 1, 1920 },
        { "CeaByCodeWithoutARow", CeaRow(1920, 1080, 60, 7), 1, 0 }, // cleared by the look-up
        { "CeaBySize", CeaRow(1280, 720, 50, 0), 1, 1280 },
        { "CeaBySizeWithoutARow", CeaRow(1280, 721, 50, 0), 1, 4321 },
        { "ReducedBlankingIsNoTypeOfARow", oReduced, 0, 4321 },
        { "SmpteIsNoTypeOfARow", oOutside, 0, 4321 },
    };
    for (const SCase& oCase : aoCases)
    {
        CVidParamTimingGeneric oTiming = MakeMarkedTiming();
        EXPECT_EQ(oCase.m_iExpected, GetVidParam(oCase.m_oRow, oTiming)) << oCase.m_pszName;
        EXPECT_EQ(oCase.m_uiHorizontalActive, oTiming.GetHorizontalActive()) << oCase.m_pszName;
    }
}

// A size and rate alone take rows of any scan: the first row of this one is interlaced.
TEST(GetVidParam, CeaBySizeTakesAnyScan)
{
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(1, GetVidParam(CeaRow(1920, 1080, 30, 0), oTiming));
    EXPECT_TRUE(oTiming.IsInterlaced());
}

// One of the six validators, with the table that it accepts for the ASUS image, and a damaged copy.
struct SValidator
{
    const char* m_pszName;
    std::function<int(const CEdid&, unsigned int)> m_oRun;        // with the given count
    std::function<int(const CEdid&, unsigned int)> m_oRunDamaged; // the same, last row damaged
    std::function<int(const CEdid&)> m_oRunNull;                  // count 0, null table
    unsigned int m_uiCount;
    unsigned int m_uiLinesOnWrongCount;
};

template <class ROW>
using TValidate = int (*)(const CEdid&, unsigned int, const ROW*);

template <class ROW>
SValidator MakeValidator(const char* pszName, TValidate<ROW> pfnValidate, std::vector<ROW> aoRows,
                         std::vector<ROW> aoDamaged, unsigned int uiLinesOnWrongCount)
{
    const unsigned int uiCount = static_cast<unsigned int>(aoRows.size());
    return { pszName,
             [=](const CEdid& oEdid, unsigned int uiAsked) { return pfnValidate(oEdid, uiAsked, aoRows.data()); },
             [=](const CEdid& oEdid, unsigned int uiAsked) { return pfnValidate(oEdid, uiAsked, aoDamaged.data()); },
             [=](const CEdid& oEdid) { return pfnValidate(oEdid, 0, nullptr); },
             uiCount,
             uiLinesOnWrongCount };
}

std::vector<STimingData> Damage(std::vector<STimingData> aoRows)
{
    aoRows.back().m_uiVic = aoRows.back().m_uiVic == 0 ? 0 : 1;
    aoRows.back().m_uiHorizontalActive += 8;
    return aoRows;
}

std::vector<tagRVideo_VidParam> Damage(std::vector<tagRVideo_VidParam> aoRows)
{
    ++aoRows.back().uiHorizontalSync;
    return aoRows;
}

// Standard timings of both blocks: the base block's seven, then what the validator is told. The extension's own list is
// taken from the codes of its video data block: 1 2 3 17 18 19 4 20 5 14 15 29 30 31 16, with a variant where there is
// one.
std::vector<STimingData> MakeStandardRows()
{
    std::vector<STimingData> aoRows(gsc_aoBaseStandard.begin(), gsc_aoBaseStandard.end());
    for (unsigned int uiVic : { 1U, 1001U, 2U,  1002U, 3U,  1003U, 17U, 18U, 19U, 4U,  1004U, 20U,
                                5U, 1005U, 14U, 1014U, 15U, 1015U, 29U, 30U, 31U, 16U, 1016U })
    {
        aoRows.push_back(CeaRow(0, 0, 0, uiVic));
    }
    return aoRows;
}

std::vector<SValidator> MakeValidators()
{
    const std::vector<tagRVideo_VidParam> aoBaseDetailed = { gsc_oBaseDetailed };
    const std::vector<tagRVideo_VidParam> aoDetailed = {
        gsc_oBaseDetailed,
        { 720, 480, 60, 31, 27000, 16, 62, 60, 9, 6, 30, 0, { 0, 0 } },
        { 1280, 720, 60, 45, 74250, 110, 40, 220, 5, 5, 20, 0, { 0, 0 } },
        { 1280, 720, 50, 37, 74250, 440, 40, 220, 5, 5, 20, 0, { 0, 0 } },
        { 720, 576, 50, 31, 27000, 12, 64, 68, 5, 5, 39, 0, { 0, 0 } },
    };
    const std::vector<STimingData> aoBaseDetailedRows = { gsc_aoDetailed[0] };
    const std::vector<STimingData> aoDetailedRows(gsc_aoDetailed.begin(), gsc_aoDetailed.end());
    const std::vector<STimingData> aoBaseStandardRows(gsc_aoBaseStandard.begin(), gsc_aoBaseStandard.end());
    const std::vector<STimingData> aoStandardRows = MakeStandardRows();
    return {
        MakeValidator<tagRVideo_VidParam>("BaseDetailed", ValidateBaseDetailed, aoBaseDetailed, Damage(aoBaseDetailed),
                                          1),
        MakeValidator<STimingData>("BaseDetailedRows", ValidateBaseDetailed, aoBaseDetailedRows,
                                   Damage(aoBaseDetailedRows), 0),
        MakeValidator<tagRVideo_VidParam>("Detailed", ValidateDetailed, aoDetailed, Damage(aoDetailed), 1),
        MakeValidator<STimingData>("DetailedRows", ValidateDetailed, aoDetailedRows, Damage(aoDetailedRows), 1),
        MakeValidator<STimingData>("BaseStandard", ValidateBaseStandard, aoBaseStandardRows, Damage(aoBaseStandardRows),
                                   1),
        MakeValidator<STimingData>("Standard", ValidateStandard, aoStandardRows, Damage(aoStandardRows), 0),
    };
}

TEST(Validators, AcceptTheTimingsThatTheImageDeclares)
{
    CAsusHd oAsus;
    for (const SValidator& oValidator : MakeValidators())
    {
        CCapturedOutput oOutput;
        EXPECT_EQ(1, oValidator.m_oRun(oAsus.Get(), oValidator.m_uiCount)) << oValidator.m_pszName;
        EXPECT_EQ("", oOutput.Take()) << oValidator.m_pszName;
    }
}

TEST(Validators, WrongCountIsSilentInTwoOfThem)
{
    CAsusHd oAsus;
    for (const SValidator& oValidator : MakeValidators())
    {
        CCapturedOutput oOutput;
        EXPECT_EQ(0, oValidator.m_oRun(oAsus.Get(), oValidator.m_uiCount - 1)) << oValidator.m_pszName;
        EXPECT_EQ(oValidator.m_uiLinesOnWrongCount, oOutput.TakeAssertionCount()) << oValidator.m_pszName;
    }
}

TEST(Validators, ADifferentRowWritesOneLine)
{
    CAsusHd oAsus;
    for (const SValidator& oValidator : MakeValidators())
    {
        CCapturedOutput oOutput;
        EXPECT_EQ(0, oValidator.m_oRunDamaged(oAsus.Get(), oValidator.m_uiCount)) << oValidator.m_pszName;
        EXPECT_EQ(1U, oOutput.TakeAssertionCount()) << oValidator.m_pszName;
    }
}

TEST(Validators, CountOf0NeedsNoTable)
{
    CEdid oEmpty;
    for (const SValidator& oValidator : MakeValidators())
    {
        CCapturedOutput oOutput;
        EXPECT_EQ(1, oValidator.m_oRunNull(oEmpty)) << oValidator.m_pszName;
        EXPECT_EQ("", oOutput.Take()) << oValidator.m_pszName;
    }
}

// The removal comes first and is not undone when a later check fails.
TEST(RemoveAndValidateStandard, KeepsTheRemovalWhenACheckFails)
{
    CAsusHd oAsus;
    const unsigned int uiCount = oAsus.Get().GetStandardCount();
    CCapturedOutput oOutput;
    EXPECT_EQ(0, RemoveAndValidateStandard(0, oAsus.Get(), uiCount, nullptr, 256, nullptr));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount()); // a wrong count is silent in the validator itself
    EXPECT_EQ(uiCount - 1, oAsus.Get().GetStandardCount());
}

TEST(RemoveAndValidateStandard, RefusesAnIndexBehindTheList)
{
    CAsusHd oAsus;
    const unsigned int uiCount = oAsus.Get().GetStandardCount();
    CCapturedOutput oOutput;
    EXPECT_EQ(0, RemoveAndValidateStandard(uiCount, oAsus.Get(), uiCount, nullptr, 256, nullptr));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
    EXPECT_EQ(1, CompareRawData(oAsus.Get(), 256, AsusHd::g_auiAsusHdEdidData.data()));
}

// Both timings of a code go with its one byte, whichever of them is named.
TEST(RemoveAndValidateStandard, EndsInTheSameBytesForEitherRowOfAPair)
{
    struct SCase
    {
        const char* m_pszName;
        const SEdidImage& m_aui8Image;
        unsigned int m_uiFirst;            // index of the code; its variant follows
        const SEdidImage* m_paui8Expected; // null: the images for the two are compared with each other only
    };
    const SCase aoCases[] = {
        { "Code16", ExtStandard::g_auiStandardEdidData, 6, &ExtStandard::g_auiStandardEdidData1 },
        { "Code4", ExtStandard::g_auiStandardEdidData, 8, nullptr },
        { "Code3", ExtStandard::g_auiStandardEdidData, 10, nullptr },
        { "Code1", ExtStandard::g_auiStandardEdidData, 12, nullptr },
        { "Code3Behind16", ExtStandard::g_auiStandardEdidData1, 8, &ExtStandard::g_auiStandardEdidData2 },
        { "Code4Behind3", ExtStandard::g_auiStandardEdidData2, 6, &ExtStandard::g_auiStandardEdidData3 },
        { "Code1Behind4", ExtStandard::g_auiStandardEdidData3, 6, &ExtStandard::g_auiStandardEdidData4 },
        { "HdmiCode93", ExtStandard2::g_auiStandard2EdidData, 25, &ExtStandard2::g_auiStandard2EdidData1 },
    };
    for (const SCase& oCase : aoCases)
    {
        CEdid oFirst;
        CEdid oVariant;
        ASSERT_EQ(1, LoadCopy(oFirst, oCase.m_aui8Image)) << oCase.m_pszName;
        ASSERT_EQ(1, LoadCopy(oVariant, oCase.m_aui8Image)) << oCase.m_pszName;
        EXPECT_EQ(1, oFirst.RemoveStandard(oCase.m_uiFirst)) << oCase.m_pszName;
        EXPECT_EQ(1, oVariant.RemoveStandard(oCase.m_uiFirst + 1)) << oCase.m_pszName;
        const CMArray<unsigned char, const unsigned char&> aui8First = oFirst.GetEdidBuffer();
        EXPECT_EQ(1, CompareRawData(oVariant, 256, &aui8First[0])) << oCase.m_pszName;
        if (oCase.m_paui8Expected != nullptr)
        {
            EXPECT_EQ(1, CompareRawData(oFirst, 256, oCase.m_paui8Expected->data())) << oCase.m_pszName;
        }
    }
}

// Pairs that move leave 01 01 behind; the empty pairs 01 00 stay where they are.
TEST(RemoveStandard, MovesTheTimingsOfTheBaseBlockOverItsEmptySlots)
{
    CEdid oEdid;
    ASSERT_EQ(1, LoadCopy(oEdid, BaseStandard::g_auiBaseStandardEdidData));
    EXPECT_EQ(1, oEdid.RemoveStandard(0));
    const SEdidImage aui8Expected =
        CEdidImageEdit(BaseStandard::g_auiBaseStandardEdidData)
            .Set(38, { 0x81, 0x40, 0x95, 0x00, 0xD1, 0xC0, 0x01, 0x00, 0x01, 0x01, 0x01, 0x00, 0x01, 0x01, 0x01, 0x01 })
            .FixBaseChecksum()
            .Get();
    EXPECT_EQ(1, CompareRawData(oEdid, 256, aui8Expected.data()));
}
}
