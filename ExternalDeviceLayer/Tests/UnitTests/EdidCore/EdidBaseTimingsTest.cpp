// Established, standard and detailed timings of the base block, and their edits.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "BaseBlockImage.h"
#include "CountingAllocator.h"
#include "EdidBase.h"
#include "EditCheck.h"
#include "VidParamTimingGeneric.h"

namespace
{
// ---- Established timings ----

struct SEstablishedCase
{
    const char* m_szTiming;
    unsigned int m_uiBit;
    bool m_bVesa;
    bool m_bGtf;
};

// As published: byte 35 from bit 7 down, byte 36, byte 37 bit 7.
const SEstablishedCase gsc_aoEstablishedCases[] = {
    { "720x400@70", 0x80, false, true },      { "720x400@88", 0x40, false, true },
    { "640x480@60", 0x20, true, false },      { "640x480@67", 0x10, false, true },
    { "640x480@72", 0x08, true, false },      { "640x480@75", 0x04, true, false },
    { "800x600@56", 0x02, true, false },      { "800x600@60", 0x01, true, false },
    { "800x600@72", 0x8000, true, false },    { "800x600@75", 0x4000, true, false },
    { "832x624@75", 0x2000, false, true },    { "1024x768@43", 0x1000, false, false },
    { "1024x768@60", 0x0800, true, false },   { "1024x768@70", 0x0400, true, false },
    { "1024x768@75", 0x0200, true, false },   { "1280x1024@75", 0x0100, true, false },
    { "1152x870@75", 0x800000, false, true },
};

CBaseBlockImage MakeEstablishedImage(unsigned int uiBits)
{
    return CBaseBlockImage().Set(35, { static_cast<unsigned char>(uiBits & 0xFF),
                                       static_cast<unsigned char>(uiBits >> 8 & 0xFF),
                                       static_cast<unsigned char>(uiBits >> 16 & 0xFF) });
}

TEST(Established, EachBitAlone)
{
    for (const SEstablishedCase& oCase : gsc_aoEstablishedCases)
    {
        SCOPED_TRACE(oCase.m_szTiming);
        const auto eId = static_cast<CEdidBase::EEstablishedTiming>(oCase.m_uiBit);
        const SEditedBytes oByte = { oCase.m_uiBit > 0xFFFF ? 37U : oCase.m_uiBit > 0xFF ? 36U : 35U, 1 };
        CLoadedBase oBase(MakeEstablishedImage(oCase.m_uiBit));
        CVidParamTimingGeneric oTiming;
        EXPECT_EQ(1, oBase.GetEstablishedFromId(eId, &oTiming, 0));
        EXPECT_EQ(oCase.m_szTiming, NameOf(oTiming));
        EXPECT_EQ(oCase.m_bGtf, oTiming.GetVideoFamilyType() == CVidParamTiming::eVidParamType_Gtf);
        EXPECT_EQ(oCase.m_bVesa ? 1 : 0, oBase.GetEstablishedFromId(eId, nullptr, 1));
        EXPECT_EQ(1U, oBase.GetEstablishedCount(0));
        EXPECT_EQ(oCase.m_bVesa ? 1U : 0U, oBase.GetEstablishedCount(1));
        CEditCheck oCleared(oBase);
        EXPECT_EQ(1, oBase.SetEstablishedFromId(eId, 0, 1));
        oCleared.ExpectEdited({ oByte });
        EXPECT_EQ(0U, oBase.GetEstablishedCount(0));

        Load(oBase, MakeEstablishedImage(~oCase.m_uiBit).Get());
        EXPECT_EQ(0, oBase.GetEstablishedFromId(eId, nullptr, 0));
        EXPECT_EQ(16U, oBase.GetEstablishedCount(0)); // the bits without a timing do not count
        CEditCheck oSet(oBase);
        EXPECT_EQ(1, oBase.SetEstablishedFromId(eId, 1, 1));
        oSet.ExpectEdited({ oByte });
        EXPECT_EQ(0xFF, oBase.GetBaseBlock()[oByte.m_uiOffset]);
    }
}

TEST(Established, ListRunsInPublishedOrder)
{
    CLoadedBase oBase(MakeEstablishedImage(0xFFFFFF));
    for (const int bVesaOnly : { 0, 1 })
    {
        unsigned int uiIndex = 0;
        CVidParamTimingGeneric oTiming;
        for (const SEstablishedCase& oCase : gsc_aoEstablishedCases)
        {
            if (bVesaOnly == 0 || oCase.m_bVesa)
            {
                EXPECT_EQ(1, oBase.GetEstablished(uiIndex++, &oTiming, bVesaOnly));
                EXPECT_EQ(oCase.m_szTiming, NameOf(oTiming));
            }
        }
        EXPECT_EQ(uiIndex, oBase.GetEstablishedCount(bVesaOnly));
        // Behind the list the output holds the last timing that was passed by; an index out of any range walks nothing.
        oTiming.ClearData();
        EXPECT_EQ(0, oBase.GetEstablished(uiIndex, &oTiming, bVesaOnly));
        EXPECT_EQ(bVesaOnly != 0 ? "1280x1024@75" : "0x0@0", NameOf(oTiming));
    }
}

TEST(Established, ValuesThatNameNoTimingAreRefused)
{
    CLoadedBase oBase(MakeEstablishedImage(0xFFFFFF).GetWithWrongChecksum());
    CEditCheck oCheck(oBase);
    for (const unsigned int uiValue : { 0U, 0x03U, 0x400000U, 0x010000U, 0x1000000U, 0xFFFFFFFFU })
    {
        const auto eId = static_cast<CEdidBase::EEstablishedTiming>(uiValue);
        EXPECT_EQ(0, oBase.SetEstablishedFromId(eId, 0, 1));
        EXPECT_EQ(0, oBase.GetEstablishedFromId(eId, nullptr, 0));
    }
    EXPECT_EQ(0, oBase.SetEstablished(11, 0, 1)); // of the listed ones, 11 are VESA's
    EXPECT_EQ(0, oBase.SetEstablished(0xFFFFFFFF, 0, 1));
    oCheck.ExpectUnchanged();
}

// The numbering is that of the VESA modes which are set: 720x400 does not count, and a clear bit has no number.
// Flags other than 0 and 1 count as 1.
TEST(Established, SettingByIndexNumbersTheListedVesaModes)
{
    for (const int bSet : { 1, 2, -1 })
    {
        SCOPED_TRACE(bSet);
        CLoadedBase oBase(MakeEstablishedImage(0x80 | 0x20 | 0x08 | 0x1000 | 0x0100));
        EXPECT_EQ(3U, oBase.GetEstablishedCount(bSet));
        EXPECT_EQ(1, oBase.SetEstablished(1, 0, bSet)); // 640x480@72
        EXPECT_EQ(0xA0, oBase.GetBaseBlock()[35]);
        EXPECT_EQ(1, oBase.SetEstablished(1, bSet, bSet)); // now 1280x1024@75, set again
        EXPECT_EQ(0x11, oBase.GetBaseBlock()[36]);
        EXPECT_EQ(0, oBase.SetEstablished(2, bSet, bSet));
        EXPECT_NE(0, CEdidUtils::Is8BitsChecksumValid(128, oBase.GetBaseBlock()));
    }
}

// ---- Standard timings ----

struct SPairCase
{
    const char* m_szName;
    unsigned char m_ui8Version;
    unsigned char m_ui8Revision;
    unsigned char m_aui8Pair[2];
    const char* m_szTiming; // empty: refused
    CVidParamTiming::EVidParamType m_eFamily;
    unsigned int m_uiClockInKiloHz; // 0: not looked at
};

constexpr auto eDmt = CVidParamTiming::eVidParamType_Dmt;
constexpr auto eDmtReduced = CVidParamTiming::eVidParamType_DmtReducedBlanking;
constexpr auto eGtf = CVidParamTiming::eVidParamType_Gtf;
constexpr auto eNone = CVidParamTiming::eVidParamType_None;

const SPairCase gsc_aoPairCases[] = {
    { "16:9", 1, 3, { 0x81, 0xC0 }, "1280x720@60", eDmt, 74250 },
    { "5:4", 1, 3, { 0x81, 0x80 }, "1280x1024@60", eDmt, 108000 },
    { "4:3, top rate", 1, 3, { 0x59, 0x7F }, "960x720@123", eGtf, 0 },
    { "16:10 since revision 3", 1, 3, { 0x61, 0x00 }, "1024x640@60", eGtf, 0 },
    { "1:1 before", 1, 2, { 0x61, 0x00 }, "1024x1024@60", eGtf, 0 },
    { "16:10 whatever the version", 2, 3, { 0x61, 0x00 }, "1024x640@60", eGtf, 0 },
    { "1:1 whatever the version", 2, 2, { 0x61, 0x00 }, "1024x1024@60", eGtf, 0 },
    { "5:4 drops the part of a line", 1, 3, { 0x80, 0x80 }, "1272x1017@60", eGtf, 0 },
    { "table has this size at 75 only", 1, 3, { 0x71, 0x40 }, "1152x864@60", eGtf, 0 },
    { "reduced rows only by override", 1, 3, { 0x45, 0x7C }, "800x600@120", eGtf, 0 },
    { "override 640x350", 1, 3, { 0x31, 0xD9 }, "640x350@85", eDmt, 31500 },
    { "override 720x400", 1, 3, { 0x3B, 0xD9 }, "720x400@85", eDmt, 35500 },
    { "override 848x480", 1, 3, { 0x4B, 0xC0 }, "848x480@60", eDmt, 33750 },
    { "override 1360x768", 1, 3, { 0x8B, 0xC0 }, "1360x768@60", eDmt, 85500 },
    { "override 1360x768 reduced", 1, 3, { 0x8B, 0xFC }, "1360x768@120", eDmtReduced, 148250 },
    { "override 1280x800", 1, 3, { 0x81, 0x00 }, "1280x800@60", eDmt, 83500 },
    { "override whatever the revision", 1, 2, { 0x81, 0x00 }, "1280x800@60", eDmt, 83500 },
    { "override 1400x1050", 1, 3, { 0x90, 0x40 }, "1400x1050@60", eDmt, 121750 },
    { "override 1440x900", 1, 3, { 0x95, 0x00 }, "1440x900@60", eDmt, 106500 },
    { "override 1680x1050", 1, 3, { 0xB3, 0x00 }, "1680x1050@60", eDmt, 146250 },
    { "override 1920x1200 reduced", 1, 3, { 0xD1, 0x00 }, "1920x1200@60", eDmtReduced, 154000 },
    { "override 1600x900 reduced", 1, 3, { 0xA9, 0xC0 }, "1600x900@60", eDmtReduced, 108000 },
    { "override needs the second byte too", 1, 3, { 0x8B, 0xC1 }, "1360x765@61", eGtf, 0 },
    { "override needs the first byte too", 1, 3, { 0x8C, 0xFC }, "1368x769@120", eGtf, 0 },
    { "empty 01 01", 1, 3, { 0x01, 0x01 }, "", eNone, 0 },
    { "empty 00 00", 1, 3, { 0x00, 0x00 }, "", eNone, 0 },
    { "empty whatever the second byte", 1, 3, { 0x01, 0x40 }, "", eNone, 0 },
    { "in use, but too small for any mode", 1, 3, { 0x02, 0x00 }, "", eNone, 0 },
};

TEST(Standard, PairsAndTheirModes)
{
    for (const SPairCase& oCase : gsc_aoPairCases)
    {
        SCOPED_TRACE(std::string(oCase.m_szName) + " " + oCase.m_szTiming);
        const int iExpected = oCase.m_eFamily == eNone ? 0 : 1;
        CLoadedBase oBase(CBaseBlockImage()
                              .Version(oCase.m_ui8Version, oCase.m_ui8Revision)
                              .Slot(5, oCase.m_aui8Pair[0], oCase.m_aui8Pair[1]));
        const CEdidBase::SStandard oPair = { oCase.m_aui8Pair[0], oCase.m_aui8Pair[1] };
        CVidParamTimingGeneric oTiming;
        oTiming.SetHorizontalActive(77); // stays when there is no mode
        EXPECT_EQ(iExpected, oBase.GetStandardTiming(&oPair, &oTiming));
        EXPECT_EQ(iExpected != 0 ? oCase.m_szTiming : "77x0@0", NameOf(oTiming));
        EXPECT_EQ(oCase.m_eFamily, oTiming.GetVideoFamilyType());
        EXPECT_EQ(iExpected, oBase.GetStandardTiming(&oPair, nullptr));
        if (oCase.m_uiClockInKiloHz != 0)
        {
            EXPECT_EQ(oCase.m_uiClockInKiloHz, oTiming.GetPixelClockInKiloHz());
        }

        // Through the slot and through the list: a pair without a mode takes no index.
        for (const bool bBySlot : { true, false })
        {
            int iNative = 7;
            oTiming.ClearData();
            EXPECT_EQ(iExpected, bBySlot ? oBase.GetStandard(CEdidBase::eStandardSlot5, &oTiming, &iNative)
                                         : oBase.GetStandard(0U, &oTiming, &iNative));
            EXPECT_EQ(oCase.m_eFamily, oTiming.GetVideoFamilyType());
            EXPECT_EQ(0, iNative);
        }
        EXPECT_EQ(iExpected != 0 ? 1U : 0U, oBase.GetStandardCount());
    }
}

TEST(Standard, NullAndIndexesOutOfRange)
{
    // The first descriptor would be pairs in use, if there were slots beyond the last.
    CLoadedBase oBase(CBaseBlockImage().Slot(0, 0x81, 0xC0).Descriptor(0, { 0x4D, 0xD0, 0x4D, 0xD0 }));
    EXPECT_EQ(0, oBase.GetStandardTiming(nullptr, nullptr));
    EXPECT_EQ(1, oBase.GetStandard(0U, nullptr, nullptr));
    int aiNative[2] = { 7, 7 };
    EXPECT_EQ(0, oBase.GetStandard(1U, nullptr, &aiNative[0]));
    EXPECT_EQ(0, oBase.GetStandard(static_cast<CEdidBase::EStandardSlotIndex>(8), nullptr, &aiNative[1]));
    EXPECT_EQ(0, aiNative[0] | aiNative[1]);
}

CBytes SlotsOf(const CEdidBase& oBase) { return CBytes(oBase.GetBaseBlock() + 38, oBase.GetBaseBlock() + 54); }

// What repacking makes of the sixteen bytes, by hand.
struct SRepackCase
{
    const char* m_szName;
    CBytes m_aui8Before;
    CBytes m_aui8After;
};

const SRepackCase gsc_aoRepackCases[] = {
    { "gaps close in order",
      { 1, 1, 0x81, 0xC0, 0xD1, 0xC0, 1, 1, 0x61, 0x40, 1, 1, 0x81, 0x80, 1, 1 },
      { 0x81, 0xC0, 0xD1, 0xC0, 0x61, 0x40, 0x81, 0x80, 1, 1, 1, 1, 1, 1, 1, 1 } },
    // 02 00 has no mode and moves all the same; 00 40 and 01 00 are empty and stay where nothing moves over them.
    { "bytes decide, not modes",
      { 0x00, 0x40, 0x02, 0x00, 0x01, 0x00, 0x00, 0x99, 0x81, 0xC0, 0x00, 0x77, 0x01, 0x55, 0, 0 },
      { 0x02, 0x00, 0x81, 0xC0, 0x01, 0x00, 0x00, 0x99, 1, 1, 0x00, 0x77, 0x01, 0x55, 0, 0 } },
    { "nothing in use",
      { 0, 0, 1, 0, 0, 1, 1, 1, 0, 9, 1, 9, 0, 0, 1, 1 },
      { 0, 0, 1, 0, 0, 1, 1, 1, 0, 9, 1, 9, 0, 0, 1, 1 } },
};

TEST(Standard, Repacking)
{
    for (const SRepackCase& oCase : gsc_aoRepackCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CLoadedBase oBase(CBaseBlockImage().Set(38, oCase.m_aui8Before));
        oBase.RePackStandards();
        EXPECT_EQ(oCase.m_aui8After, SlotsOf(oBase));
        EXPECT_NE(0, CEdidUtils::Is8BitsChecksumValid(128, oBase.GetBaseBlock()));
    }
}

TEST(Standard, RemovalMovesTheLaterOnesDown)
{
    CLoadedBase oBase(
        CBaseBlockImage().Set(38, { 1, 1, 0x81, 0xC0, 0xD1, 0xC0, 1, 1, 0x61, 0x40, 1, 1, 0x81, 0x80, 1, 1 }));
    ASSERT_EQ(4U, oBase.GetStandardCount());
    CEditCheck oCheck(oBase);
    ASSERT_EQ(1, oBase.RemoveStandard(0));
    oCheck.ExpectEdited({ { 38, 16 } });
    const CBytes aui8After = { 0xD1, 0xC0, 0x61, 0x40, 0x81, 0x80, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1 };
    EXPECT_EQ(aui8After, SlotsOf(oBase));
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(1, oBase.GetStandard(2U, &oTiming, nullptr));
    EXPECT_EQ("1280x1024@60", NameOf(oTiming));

    CEditCheck oRefused(oBase);
    EXPECT_EQ(0, oBase.RemoveStandard(3));
    EXPECT_EQ(0, oBase.RemoveStandard(0xFFFFFFFF));
    oRefused.ExpectUnchanged();
    CEditCheck oLast(oBase); // nothing moves
    ASSERT_EQ(1, oBase.RemoveStandard(2));
    oLast.ExpectEdited({ { 42, 2 } });
    EXPECT_EQ(2U, oBase.GetStandardCount());
}

// Emptying, and a refused load, zero the slots but keep the list of them: the count stays, and every one of the timings
// is refused.
TEST(Standard, CountOfAnEmptiedObjectMayStay)
{
    const CBytes aui8Two = CBaseBlockImage().Slot(0, 0x81, 0xC0).Slot(3, 0xD1, 0xC0).Get();
    CEdidBase oBase;
    for (const bool bByLoading : { false, true })
    {
        SCOPED_TRACE(bByLoading);
        Load(oBase, aui8Two);
        EXPECT_EQ(bByLoading ? 0 : 1,
                  bByLoading ? oBase.SetEdidBuffer(aui8Two.data(), 127, 0) : oBase.ClearEdidBuffer());
        EXPECT_EQ(2U, oBase.GetStandardCount());
        EXPECT_EQ(0, oBase.GetStandard(1U, nullptr, nullptr));
        CEditCheck oCheck(oBase);
        EXPECT_EQ(0, oBase.RemoveStandard(1));
        oCheck.ExpectUnchanged();
    }
    Load(oBase, CBaseBlockImage().Get());
    EXPECT_EQ(0U, oBase.GetStandardCount());
}

TEST(Standard, ExtraPairsInTheirDescriptors)
{
    CLoadedBase oBase(CBaseBlockImage()
                          .Descriptor(1, { 0, 0, 0, 0xFA, 0, 0x81, 0xC0, 1, 1, 0, 0, 0, 0, 0, 0, 0xD1, 0xC0, 0x0A })
                          .Descriptor(3, { 0, 0, 0, 0xFA, 0, 0x61, 0x40, 1, 1, 1, 1, 1, 1, 1, 1, 0x81, 0x80, 0x0A }));
    const struct
    {
        unsigned int m_uiIndex;
        const char* m_szTiming; // as cleared: refused
    } aoCases[] = { { 0, "1280x720@60" },   { 1, "0x0@0" },  { 5, "1920x1080@60" },  { 6, "1024x768@60" },
                    { 11, "1280x1024@60" }, { 12, "0x0@0" }, { 0xFFFFFFFF, "0x0@0" } };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_uiIndex);
        CVidParamTimingGeneric oTiming;
        const bool bFound = oBase.GetExtraStdTiming(oCase.m_uiIndex, oTiming) != 0;
        EXPECT_EQ(oCase.m_szTiming, NameOf(oTiming));
        EXPECT_EQ(bFound, oTiming.GetHorizontalActive() != 0);
    }
    EXPECT_EQ(0U, oBase.GetStandardCount());
}

// ---- Detailed timings ----

constexpr DescriptorBytes gsc_aui8Tag1 = { 0, 0, 0, 1 };                         // counts, but is no timing
constexpr DescriptorBytes gsc_aui8NoWidth = { 0x02, 0x3A, 0, 0x18, 0x01, 0x38 }; // counts, but has no width

struct SDetailedCase
{
    const char* m_szName;
    DescriptorBytes m_aaui8Descriptors[4];
    unsigned int m_uiCount;
    std::array<const char*, 4> m_aszTimings; // by index; null: refused
};

const SDetailedCase gsc_aoDetailedCases[] = {
    { "texts between take no index",
      { gsc_aui8Name, gsc_aui8Timing720p, gsc_aui8Name, gsc_aui8Timing1080p },
      2,
      { "1280x720@60", "1920x1080@60", nullptr, nullptr } },
    { "four",
      { gsc_aui8Timing720p, gsc_aui8Timing1080p, gsc_aui8Timing720p, gsc_aui8Timing1080p },
      4,
      { "1280x720@60", "1920x1080@60", "1280x720@60", "1920x1080@60" } },
    { "a candidate that is no timing ends the count, not the numbering",
      { gsc_aui8Timing1080p, gsc_aui8Tag1, gsc_aui8Timing720p, gsc_aui8NoWidth },
      1,
      { "1920x1080@60", nullptr, "1280x720@60", nullptr } },
    { "each of the bytes 1, 2 and 4 alone makes a candidate",
      { DescriptorBytes{ 0, 0, 0, 0xFC, 1 }, { 0, 0, 1, 0xFC }, { 0, 1, 0, 0xFC }, gsc_aui8Timing720p },
      0,
      { nullptr, nullptr, nullptr, "1280x720@60" } },
    { "byte 0 alone makes a candidate",
      { DescriptorBytes{ 1, 0, 0, 0xFC }, gsc_aui8Timing720p },
      0,
      { nullptr, "1280x720@60", nullptr, nullptr } },
    { "no timing in front", { gsc_aui8NoWidth, gsc_aui8Timing720p }, 0, { nullptr, "1280x720@60", nullptr, nullptr } },
};

TEST(Detailed, CandidatesAndTheirCount)
{
    for (const SDetailedCase& oCase : gsc_aoDetailedCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CBaseBlockImage oImage;
        for (unsigned int ui = 0; ui < 4; ++ui)
        {
            oImage.Descriptor(ui, oCase.m_aaui8Descriptors[ui]);
        }
        CLoadedBase oBase(oImage);
        EXPECT_EQ(oCase.m_uiCount, oBase.GetDetailedCount());
        for (unsigned int ui = 0; ui < 4; ++ui)
        {
            CVidParamTimingGeneric oTiming;
            const char* pszTiming = oCase.m_aszTimings[ui];
            EXPECT_EQ(pszTiming != nullptr ? 1 : 0, oBase.GetDetailed(ui, &oTiming)) << ui;
            EXPECT_EQ(pszTiming != nullptr ? pszTiming : "0x0@0", NameOf(oTiming)) << ui;
        }
        EXPECT_EQ(0, oBase.GetDetailed(4, nullptr));
        EXPECT_EQ(0, oBase.GetDetailed(0xFFFFFFFF, nullptr));
    }
}

// Version, revision and feature byte decide whether index 0 is the preferred timing.
TEST(Detailed, PreferredTimingIsReplacedElseRemoved)
{
    const struct
    {
        const char* m_szName;
        unsigned char m_ui8Version;
        unsigned char m_ui8Revision;
        unsigned char m_ui8Features;
        bool m_bProtected;
    } aoCases[] = {
        { "1.3", 1, 3, 0xFD, true },
        { "1.4", 1, 4, 0x00, true },
        { "1.2 by its feature bit", 1, 2, 0x02, true },
        { "1.2 without", 1, 2, 0xFD, false },
        { "2.4 without", 2, 4, 0x00, false },
        { "2.0 by its feature bit", 2, 0, 0x02, true },
    };
    CVidParamTimingGeneric oTiming;
    oTiming.SetHorizontalActive(800);
    oTiming.SetVerticalActive(600);
    oTiming.SetPixelClockInKiloHz(40000);
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        // The first descriptor is empty, so that the second holds the preferred timing.
        CLoadedBase oBase(CBaseBlockImage()
                              .Version(oCase.m_ui8Version, oCase.m_ui8Revision)
                              .Set(24, { oCase.m_ui8Features })
                              .Descriptor(1, gsc_aui8Timing1080p)
                              .Descriptor(2, gsc_aui8Timing720p)
                              .Descriptor(3, gsc_aui8Name));
        CEditCheck oRefused(oBase);
        EXPECT_EQ(0, oCase.m_bProtected ? oBase.RemoveDetailed(0) : oBase.SetPreferredMode(&oTiming));
        EXPECT_EQ(0, oBase.SetPreferredMode(nullptr));
        EXPECT_EQ(0, oBase.RemoveDetailed(2));
        EXPECT_EQ(0, oBase.RemoveDetailed(4));
        oRefused.ExpectUnchanged();

        CEditCheck oEdit(oBase);
        EXPECT_EQ(1, oCase.m_bProtected ? oBase.SetPreferredMode(&oTiming) : oBase.RemoveDetailed(0));
        oEdit.ExpectEdited({ { 72, 18 } });
        CVidParamTimingGeneric oFirst;
        EXPECT_EQ(1, oBase.GetDetailed(0, &oFirst));
        EXPECT_EQ(oCase.m_bProtected ? 800U : 1280U, oFirst.GetHorizontalActive());
    }
}

TEST(Detailed, RemovalEmptiesTheDescriptorInPlace)
{
    CLoadedBase oBase(CBaseBlockImage()
                          .Descriptor(0, gsc_aui8Timing1080p)
                          .Descriptor(1, gsc_aui8Timing720p)
                          .Descriptor(2, gsc_aui8Timing1080p));
    CEditCheck oCheck(oBase);
    EXPECT_EQ(1, oBase.RemoveDetailed(1));
    oCheck.ExpectEdited({ { 72, 18 } });
    const DescriptorBytes aui8Empty = { 0, 0, 0, 0x10 };
    EXPECT_TRUE(std::equal(aui8Empty.begin(), aui8Empty.end(), oBase.GetBaseBlock() + 72));
    EXPECT_EQ(2U, oBase.GetDetailedCount());
}

// Bytes 21 and 22 go in as they stand, both or neither.
TEST(Detailed, PreferredModeTakesTheImageSize)
{
    const struct
    {
        unsigned char m_aui8Size[2];
        unsigned int m_uiWidth;
        unsigned int m_uiHeight;
    } aoCases[] = { { { 60, 34 }, 60, 34 }, { { 255, 1 }, 255, 1 }, { { 0, 34 }, 0, 0 }, { { 60, 0 }, 0, 0 } };
    const CVidParamTimingGeneric oTiming;
    CEdidBase oBase;
    for (const auto& oCase : aoCases)
    {
        Load(oBase, CBaseBlockImage()
                        .Set(21, { oCase.m_aui8Size[0], oCase.m_aui8Size[1] })
                        .Descriptor(0, gsc_aui8Timing1080p)
                        .Get());
        EXPECT_EQ(1, oBase.SetPreferredMode(&oTiming));
        EXPECT_EQ(oCase.m_uiWidth, oBase.GetBaseBlock()[54 + 12]);
        EXPECT_EQ(oCase.m_uiHeight, oBase.GetBaseBlock()[54 + 13]);
        EXPECT_EQ(0, oBase.GetBaseBlock()[54 + 14]);
    }
    Load(oBase, CBaseBlockImage().Get());
    CEditCheck oNoDescriptor(oBase);
    EXPECT_EQ(0, oBase.SetPreferredMode(&oTiming));
    oNoDescriptor.ExpectUnchanged();
}

// ---- Memory ----

// Only the list of usable slots is kept on the heap: one slot, then four more each time that it is full.
TEST(Memory, LoadingAllocatesForTheListOfSlotsAndWalkingForNothing)
{
    const CBytes aui8Data =
        CBaseBlockImage()
            .Set(38, { 0x81, 0xC0, 0x81, 0xC0, 0x81, 0xC0, 0x81, 0xC0, 0x81, 0xC0, 0x81, 0xC0, 0x81, 0xC0, 0x81, 0xC0 })
            .Set(35, { 0xFF, 0xFF, 0x80 })
            .Descriptor(0, gsc_aui8Timing1080p)
            .Descriptor(1, gsc_aui8Timing720p)
            .Descriptor(2, { 0, 0, 0, 0xFA, 0, 0x81, 0xC0, 0xD1, 0xC0, 0x81, 0xC0, 0xD1, 0xC0, 0x81, 0xC0 })
            .Get();

    const CCountingAllocator oAllocator;
    CLoadedBase oBase(aui8Data);
    const std::vector<unsigned long> aulExpected = { sizeof(unsigned int), 5 * sizeof(unsigned int),
                                                     9 * sizeof(unsigned int) };
    EXPECT_EQ(aulExpected, oAllocator.GetSizes());

    CVidParamTimingGeneric oTiming;
    int iNative = 0;
    unsigned int uiTimings = 0;
    for (unsigned int ui = 0; ui < 32; ++ui) // beyond the end of each list
    {
        uiTimings += oBase.GetEstablished(ui, &oTiming, 0) != 0 ? 1U : 0U;
        uiTimings += oBase.GetStandard(ui, &oTiming, &iNative) != 0 ? 1U : 0U;
        uiTimings += oBase.GetExtraStdTiming(ui, oTiming) != 0 ? 1U : 0U;
        uiTimings += oBase.GetDetailed(ui, &oTiming) != 0 ? 1U : 0U;
    }
    EXPECT_EQ(17U + 8 + 5 + 2, uiTimings);
    EXPECT_EQ(aulExpected, oAllocator.GetSizes());
}
}
