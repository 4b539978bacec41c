// The routines that the suites share: what they accept, what they refuse, and when they write a line.

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "CapturedOutput.h"
#include "CEdidTestSuites.h"
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

// The same as records.
constexpr std::array<tagRVideo_VidParam, 5> gsc_aoDetailedRecords = { {
    { 1920, 1080, 60, 67, 148500, 88, 44, 148, 4, 5, 36, 0, { 0, 0 } },
    { 720, 480, 60, 31, 27000, 16, 62, 60, 9, 6, 30, 0, { 0, 0 } },
    { 1280, 720, 60, 45, 74250, 110, 40, 220, 5, 5, 20, 0, { 0, 0 } },
    { 1280, 720, 50, 37, 74250, 440, 40, 220, 5, 5, 20, 0, { 0, 0 } },
    { 720, 576, 50, 31, 27000, 12, 64, 68, 5, 5, 39, 0, { 0, 0 } },
} };

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

TEST(CompareRawData, NeverWritesALine)
{
    CAsusHd oAsus;
    const CEdid oEmpty; // serialises to 128 zero bytes but has a size of 0: nothing is compared
    const SEdidImage& aui8Image = AsusHd::g_auiAsusHdEdidData;
    SEdidImage aui8LastByteDiffers = aui8Image;
    aui8LastByteDiffers[255] ^= 1;
    CCapturedOutput oOutput;
    EXPECT_EQ(1, CompareRawData(oAsus.Get(), 256, aui8Image.data()));
    EXPECT_EQ(0, CompareRawData(oAsus.Get(), 256, nullptr));
    EXPECT_EQ(0, CompareRawData(oAsus.Get(), 128, aui8Image.data()));
    EXPECT_EQ(0, CompareRawData(oAsus.Get(), 0, aui8Image.data()));
    EXPECT_EQ(0, CompareRawData(oAsus.Get(), 256, aui8LastByteDiffers.data()));
    EXPECT_EQ(1, CompareRawData(oEmpty, 0, aui8Image.data()));
    EXPECT_EQ("", oOutput.Take());
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
        CVidParamTimingGeneric oTiming;
        oTiming.SetHorizontalActive(4321);
        EXPECT_EQ(oCase.m_iExpected, GetVidParam(oCase.m_oRow, oTiming)) << oCase.m_pszName;
        EXPECT_EQ(oCase.m_uiHorizontalActive, oTiming.GetHorizontalActive()) << oCase.m_pszName;
    }
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(1, GetVidParam(CeaRow(1920, 1080, 30, 0), oTiming));
    EXPECT_TRUE(oTiming.IsInterlaced()) << "a size and rate alone take rows of any scan";
}

// One of the six validators, with the table that it accepts for the ASUS image. A count of 0 goes with a null table.
struct SValidator
{
    const char* m_pszName;
    std::function<int(const CEdid&, unsigned int)> m_oRun;        // with the given count
    std::function<int(const CEdid&, unsigned int)> m_oRunDamaged; // the same, last row damaged
    unsigned int m_uiCount;
    unsigned int m_uiLinesOnWrongCount;
};

void Damage(STimingData& oRow)
{
    oRow.m_uiVic = oRow.m_uiVic == 0 ? 0 : 1;
    oRow.m_uiHorizontalActive += 8;
}

void Damage(tagRVideo_VidParam& oRow) { ++oRow.uiHorizontalSync; }

template <class ROW>
using TValidate = int (*)(const CEdid&, unsigned int, const ROW*);

template <class ROW>
SValidator MakeValidator(const char* pszName, TValidate<ROW> pfnValidate, const std::vector<ROW>& aoRows,
                         unsigned int uiLinesOnWrongCount)
{
    std::vector<ROW> aoDamaged = aoRows;
    Damage(aoDamaged.back());
    const auto fnRun = [pfnValidate](const std::vector<ROW>& aoTable) {
        return [=](const CEdid& oEdid, unsigned int uiCount) {
            return pfnValidate(oEdid, uiCount, uiCount == 0 ? nullptr : aoTable.data());
        };
    };
    return { pszName, fnRun(aoRows), fnRun(aoDamaged), static_cast<unsigned int>(aoRows.size()), uiLinesOnWrongCount };
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
    const std::vector<tagRVideo_VidParam> aoDetailed(gsc_aoDetailedRecords.begin(), gsc_aoDetailedRecords.end());
    const std::vector<tagRVideo_VidParam> aoBaseDetailed = { aoDetailed[0] };
    const std::vector<STimingData> aoDetailedRows(gsc_aoDetailed.begin(), gsc_aoDetailed.end());
    const std::vector<STimingData> aoBaseDetailedRows = { aoDetailedRows[0] };
    const std::vector<STimingData> aoStandardRows = MakeStandardRows();
    const std::vector<STimingData> aoBaseStandardRows(gsc_aoBaseStandard.begin(), gsc_aoBaseStandard.end());
    return {
        MakeValidator<tagRVideo_VidParam>("BaseDetailed", ValidateBaseDetailed, aoBaseDetailed, 1),
        MakeValidator<STimingData>("BaseDetailedRows", ValidateBaseDetailed, aoBaseDetailedRows, 0),
        MakeValidator<tagRVideo_VidParam>("Detailed", ValidateDetailed, aoDetailed, 1),
        MakeValidator<STimingData>("DetailedRows", ValidateDetailed, aoDetailedRows, 1),
        MakeValidator<STimingData>("BaseStandard", ValidateBaseStandard, aoBaseStandardRows, 1),
        MakeValidator<STimingData>("Standard", ValidateStandard, aoStandardRows, 0),
    };
}

TEST(Validators, AcceptWhatTheImageDeclaresAndNothingElse)
{
    CAsusHd oAsus;
    const CEdid oEmpty;
    for (const SValidator& oValidator : MakeValidators())
    {
        SCOPED_TRACE(oValidator.m_pszName);
        CCapturedOutput oQuiet;
        EXPECT_EQ(1, oValidator.m_oRun(oAsus.Get(), oValidator.m_uiCount));
        EXPECT_EQ(1, oValidator.m_oRun(oEmpty, 0)) << "needs no table";
        EXPECT_EQ("", oQuiet.Take());

        CCapturedOutput oWrongCount;
        EXPECT_EQ(0, oValidator.m_oRun(oAsus.Get(), oValidator.m_uiCount - 1));
        EXPECT_EQ(oValidator.m_uiLinesOnWrongCount, oWrongCount.TakeAssertionCount());

        CCapturedOutput oDamaged;
        EXPECT_EQ(0, oValidator.m_oRunDamaged(oAsus.Get(), oValidator.m_uiCount));
        EXPECT_EQ(1U, oDamaged.TakeAssertionCount());
    }
}

// A wrong checksum of the base block stays through an edit of the extension block.
SEdidImage WithWrongBaseChecksum(SEdidImage aui8Image)
{
    aui8Image[gsc_uiBaseChecksum] ^= 1;
    return aui8Image;
}

TEST(Checksums, AreAskedForWhateverListAndBytesSay)
{
    const SEdidImage aui8Left = WithWrongBaseChecksum(ExtStandard::g_auiStandardEdidData1);
    const CTimingTable aoLeft = GetExtStandardData().m_aaoTiming[1];
    CEdid oStandard;
    ASSERT_EQ(1, LoadCopy(oStandard, WithWrongBaseChecksum(ExtStandard::g_auiStandardEdidData)));
    CCapturedOutput oOutput;
    EXPECT_EQ(0, RemoveAndValidateStandard(6, oStandard, static_cast<unsigned int>(aoLeft.size()), aoLeft.data(), 256,
                                           aui8Left.data()));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
    EXPECT_EQ(1, CompareRawData(oStandard, 256, aui8Left.data())) << "the removal is not undone";

    const SEdidImage aui8Asus = WithWrongBaseChecksum(AsusHd::g_auiAsusHdEdidData);
    CEdid oDetailed;
    ASSERT_EQ(1, LoadCopy(oDetailed, aui8Asus));
    EXPECT_EQ(0, HasDetailedState(oDetailed, gsc_aoDetailedRecords, aui8Asus));
}

TEST(RemoveAndValidateStandard, RefusesAnIndexBehindTheListAndAWrongCount)
{
    CAsusHd oAsus;
    const unsigned int uiCount = oAsus.Get().GetStandardCount();
    for (const unsigned int uiIndex : { uiCount, 0U })
    {
        CCapturedOutput oOutput;
        EXPECT_EQ(0, RemoveAndValidateStandard(uiIndex, oAsus.Get(), uiCount, nullptr, 256, nullptr));
        EXPECT_EQ(1U, oOutput.TakeAssertionCount()); // a wrong count is silent in the validator itself
    }
    EXPECT_EQ(uiCount - 1, oAsus.Get().GetStandardCount());
}

// Both timings of a code go with its one byte, whichever of them is named.
TEST(RemoveStandard, EndsInTheSameBytesForEitherRowOfAPair)
{
    const struct
    {
        const char* m_pszName;
        const SEdidImage& m_aui8Image;
        unsigned int m_uiFirst; // index of the code; its variant follows
        const SEdidImage& m_aui8Expected;
    } aoCases[] = {
        { "Code16", ExtStandard::g_auiStandardEdidData, 6, ExtStandard::g_auiStandardEdidData1 },
        { "HdmiCode93", ExtStandard2::g_auiStandard2EdidData, 25, ExtStandard2::g_auiStandard2EdidData1 },
    };
    for (const auto& oCase : aoCases)
    {
        for (const unsigned int uiIndex : { oCase.m_uiFirst, oCase.m_uiFirst + 1 })
        {
            CEdid oEdid;
            ASSERT_EQ(1, LoadCopy(oEdid, oCase.m_aui8Image)) << oCase.m_pszName;
            EXPECT_EQ(1, oEdid.RemoveStandard(uiIndex)) << oCase.m_pszName;
            EXPECT_EQ(1, CompareRawData(oEdid, 256, oCase.m_aui8Expected.data())) << oCase.m_pszName << uiIndex;
        }
    }
}
}
