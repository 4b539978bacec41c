// Established, standard and detailed timings of the base block, and their edits.

#include <gtest/gtest.h>

#include <map>
#include <string>

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
    const char* m_pszTiming;
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

CBytes MakeEstablished(unsigned int uiBits)
{
    return MakeBase({ { 35,
                        { static_cast<unsigned char>(uiBits & 0xFF), static_cast<unsigned char>(uiBits >> 8 & 0xFF),
                          static_cast<unsigned char>(uiBits >> 16 & 0xFF) } } });
}

TEST(Established, EachBitAloneAndInTheList)
{
    const CLoadedBase oAll(MakeEstablished(0xFFFFFF));
    unsigned int auiIndexes[] = { 0, 0 }; // of the next timing, in the list of all and in that of VESA's own
    for (const SEstablishedCase& oCase : gsc_aoEstablishedCases)
    {
        SCOPED_TRACE(oCase.m_pszTiming);
        const auto eId = static_cast<CEdidBase::EEstablishedTiming>(oCase.m_uiBit);
        const SEditedBytes oByte = { oCase.m_uiBit > 0xFFFF ? 37U : oCase.m_uiBit > 0xFF ? 36U : 35U, 1 };
        CLoadedBase oBase(MakeEstablished(oCase.m_uiBit));
        CVidParamTimingGeneric oTiming;
        EXPECT_EQ(1, oBase.GetEstablishedFromId(eId, &oTiming, 0));
        EXPECT_EQ(oCase.m_pszTiming, NameOf(oTiming));
        EXPECT_EQ(oCase.m_bGtf, oTiming.GetVideoFamilyType() == CVidParamTiming::eVidParamType_Gtf);
        EXPECT_EQ(oCase.m_bVesa ? 1 : 0, oBase.GetEstablishedFromId(eId, nullptr, 1));
        EXPECT_EQ(1U, oBase.GetEstablishedCount(0));
        for (const int bVesaOnly : { 0, 1 })
        {
            if (bVesaOnly == 0 || oCase.m_bVesa)
            {
                EXPECT_EQ(1, oAll.GetEstablished(auiIndexes[bVesaOnly]++, &oTiming, bVesaOnly));
                EXPECT_EQ(oCase.m_pszTiming, NameOf(oTiming));
            }
        }
        CEditCheck oCleared(oBase);
        EXPECT_EQ(1, oBase.SetEstablishedFromId(eId, 0, 1));
        oCleared.ExpectEdited({ oByte });
        EXPECT_EQ(0U, oBase.GetEstablishedCount(0));

        Load(oBase, MakeEstablished(~oCase.m_uiBit));
        EXPECT_EQ(0, oBase.GetEstablishedFromId(eId, nullptr, 0));
        EXPECT_EQ(16U, oBase.GetEstablishedCount(0)); // the bits without a timing do not count
        CEditCheck oSet(oBase);
        EXPECT_EQ(1, oBase.SetEstablishedFromId(eId, 1, 1));
        oSet.ExpectEdited({ oByte });
        EXPECT_EQ(0xFF, oBase.GetBaseBlock()[oByte.m_uiOffset]);
    }
    EXPECT_EQ(17U, oAll.GetEstablishedCount(0));
    EXPECT_EQ(11U, oAll.GetEstablishedCount(1));
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(0, oAll.GetEstablished(17, &oTiming, 0));
    EXPECT_EQ("0x0@0", NameOf(oTiming)) << "an index out of any range walks nothing";
    EXPECT_EQ(0, oAll.GetEstablished(11, &oTiming, 1));
    EXPECT_EQ("1280x1024@75", NameOf(oTiming)) << "the last one that was passed by";
}

TEST(Established, ValuesThatNameNoTimingAreRefused)
{
    CLoadedBase oBase(MakeEstablished(0xFFFFFF));
    CEditCheck oCheck(oBase);
    for (const unsigned int uiValue : { 0U, 0x03U, 0x400000U, 0x010000U, 0x1000000U, 0xFFFFFFFFU })
    {
        const auto eId = static_cast<CEdidBase::EEstablishedTiming>(uiValue);
        EXPECT_EQ(0, oBase.SetEstablishedFromId(eId, 0, 1));
        EXPECT_EQ(0, oBase.GetEstablishedFromId(eId, nullptr, 0));
    }
    EXPECT_EQ(0, oBase.SetEstablished(11, 0, 1)); // of the listed ones, 11 are VESA's
    oCheck.ExpectUnchanged();
}

// The numbering is that of the VESA modes which are set: 720x400 does not count, and a clear bit has no number.
// Flags other than 0 and 1 count as 1.
TEST(Established, SettingByIndexNumbersTheListedVesaModes)
{
    for (const int bSet : { 1, 2, -1 })
    {
        CLoadedBase oBase(MakeEstablished(0x80 | 0x20 | 0x08 | 0x1000 | 0x0100));
        EXPECT_EQ(3U, oBase.GetEstablishedCount(bSet));
        CEditCheck oCheck(oBase);
        EXPECT_EQ(1, oBase.SetEstablished(1, 0, bSet));    // 640x480@72
        EXPECT_EQ(1, oBase.SetEstablished(1, bSet, bSet)); // now 1280x1024@75, set again
        EXPECT_EQ(0, oBase.SetEstablished(2, bSet, bSet));
        oCheck.ExpectEdited({ { 35, 1 } });
        EXPECT_EQ((CBytes{ 0xA0, 0x11 }), BytesOf(oBase, 35, 2));
    }
}

// ---- Standard timings ----

// A pair gives the same by itself, by its slot, and by the list, in which a pair without a mode takes no index. The
// clocks of modes that are in no table come from a second computation of GTF. The self-check has the plain modes.
TEST(Standard, PairsAndTheirModes)
{
    const struct
    {
        const char* m_pszName;
        CBytes m_aui8Version;
        CBytes m_aui8Pair;
        const char* m_pszTiming;
        unsigned int m_uiClockInKiloHz; // 0: refused
    } aoCases[] = {
        { "4:3, top rate", { 1, 3 }, { 0x59, 0x7F }, "960x720@123", 124715 },
        { "16:10 since revision 3, whatever the version", { 2, 3 }, { 0x61, 0x00 }, "1024x640@60", 52824 },
        { "1:1 before", { 1, 2 }, { 0x61, 0x00 }, "1024x1024@60", 87532 },
        { "5:4 drops the part of a line", { 1, 3 }, { 0x80, 0x80 }, "1272x1017@60", 107644 },
        { "table has this size at 75 only", { 1, 3 }, { 0x71, 0x40 }, "1152x864@60", 81589 },
        { "reduced rows only by override", { 1, 3 }, { 0x45, 0x7C }, "800x600@120", 83951 },
        { "override 640x350", { 1, 3 }, { 0x31, 0xD9 }, "640x350@85", 31500 },
        { "override 720x400", { 1, 3 }, { 0x3B, 0xD9 }, "720x400@85", 35500 },
        { "override 848x480", { 1, 3 }, { 0x4B, 0xC0 }, "848x480@60", 33750 },
        { "override 1360x768", { 1, 3 }, { 0x8B, 0xC0 }, "1360x768@60", 85500 },
        { "override 1360x768 reduced", { 1, 3 }, { 0x8B, 0xFC }, "1360x768@120", 148250 },
        { "override 1280x800, whatever the revision", { 1, 2 }, { 0x81, 0x00 }, "1280x800@60", 83500 },
        { "override 1400x1050", { 1, 3 }, { 0x90, 0x40 }, "1400x1050@60", 121750 },
        { "override 1920x1200 reduced", { 1, 3 }, { 0xD1, 0x00 }, "1920x1200@60", 154000 },
        { "override 1600x900 reduced", { 1, 3 }, { 0xA9, 0xC0 }, "1600x900@60", 108000 },
        { "override needs the second byte too", { 1, 3 }, { 0x8B, 0xC1 }, "1360x765@61", 86654 },
        { "override needs the first byte too", { 1, 3 }, { 0x8C, 0xFC }, "1368x769@120", 185955 },
        { "empty 00 00", { 1, 3 }, { 0x00, 0x00 }, "0x0@0", 0 },
        { "empty whatever the second byte", { 1, 3 }, { 0x01, 0x40 }, "0x0@0", 0 },
        { "in use, but too small for any mode", { 1, 3 }, { 0x02, 0x00 }, "0x0@0", 0 },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(std::string(oCase.m_pszName) + " " + oCase.m_pszTiming);
        const int iExpected = oCase.m_uiClockInKiloHz != 0 ? 1 : 0;
        const CLoadedBase oBase({ { 18, oCase.m_aui8Version }, { 48, oCase.m_aui8Pair } });
        const CEdidBase::SStandard oPair = { oCase.m_aui8Pair[0], oCase.m_aui8Pair[1] };
        CVidParamTimingGeneric aoTimings[3];
        int aiNative[] = { 7, 7 };
        EXPECT_EQ(iExpected, oBase.GetStandardTiming(&oPair, &aoTimings[0]));
        EXPECT_EQ(iExpected, oBase.GetStandard(CEdidBase::eStandardSlot5, &aoTimings[1], &aiNative[0]));
        EXPECT_EQ(iExpected, oBase.GetStandard(0U, &aoTimings[2], &aiNative[1]));
        EXPECT_EQ(0, aiNative[0] | aiNative[1]);
        for (const CVidParamTimingGeneric& oTiming : aoTimings)
        {
            EXPECT_EQ(oCase.m_pszTiming, NameOf(oTiming));
            EXPECT_EQ(oCase.m_uiClockInKiloHz, oTiming.GetPixelClockInKiloHz());
        }
        EXPECT_EQ(iExpected, oBase.GetStandardTiming(&oPair, nullptr));
        EXPECT_EQ(iExpected != 0 ? 1U : 0U, oBase.GetStandardCount());
    }
}

TEST(Standard, NullAndIndexesOutOfRange)
{
    // The first descriptor would be pairs in use, if there were slots beyond the last.
    const CLoadedBase oBase({ { 38, { 0x81, 0xC0 } }, { 54, { 0x4D, 0xD0, 0x4D, 0xD0 } } });
    EXPECT_EQ(0, oBase.GetStandardTiming(nullptr, nullptr));
    EXPECT_EQ(1, oBase.GetStandard(0U, nullptr, nullptr));
    int aiNative[2] = { 7, 7 };
    EXPECT_EQ(0, oBase.GetStandard(1U, nullptr, &aiNative[0]));
    EXPECT_EQ(0, oBase.GetStandard(static_cast<CEdidBase::EStandardSlotIndex>(8), nullptr, &aiNative[1]));
    EXPECT_EQ(0, aiNative[0] | aiNative[1]);
}

const CBytes gsc_aui8FourPairs = { 1, 1, 0x81, 0xC0, 0xD1, 0xC0, 1, 1, 0x61, 0x40, 1, 1, 0x81, 0x80, 1, 1 };

// Bytes decide, not modes: 02 00 has none and moves all the same; 00 40 and 01 00 are empty and stay where nothing
// moves over them.
TEST(Standard, RepackingClosesGapsInOrder)
{
    const CBytes aui8Before = { 0, 0x40, 2, 0, 1, 0, 0, 0x99, 0x81, 0xC0, 0, 0x77, 1, 0x55, 0, 0 };
    const CBytes aui8After = { 2, 0, 0x81, 0xC0, 1, 0, 0, 0x99, 1, 1, 0, 0x77, 1, 0x55, 0, 0 };
    CLoadedBase oBase({ { 38, aui8Before } });
    oBase.RePackStandards();
    EXPECT_EQ(MakeBase({ { 38, aui8After } }), BytesOf(oBase));
    CEditCheck oSame(oBase);
    oBase.RePackStandards();
    oSame.ExpectUnchanged();
}

// The self-check removes the first one of a list. Emptying, and a refused load, zero the slots but keep the list of
// them: the count stays, and every one of the timings is refused.
TEST(Standard, RemovalOfTheLastAndOfAnEmptiedObject)
{
    CLoadedBase oBase({ { 38, gsc_aui8FourPairs } });
    CEditCheck oRefused(oBase);
    EXPECT_EQ(0, oBase.RemoveStandard(4));
    EXPECT_EQ(0, oBase.RemoveStandard(0xFFFFFFFF));
    oRefused.ExpectUnchanged();
    ASSERT_EQ(1, oBase.RemoveStandard(3));
    EXPECT_EQ(MakeBase({ { 38, { 0x81, 0xC0, 0xD1, 0xC0, 0x61, 0x40 } } }), BytesOf(oBase));
    CEditCheck oLast(oBase); // nothing moves
    ASSERT_EQ(1, oBase.RemoveStandard(2));
    oLast.ExpectEdited({ { 42, 2 } });
    for (const bool bByLoading : { false, true })
    {
        Load(oBase, MakeBase({ { 38, { 0x81, 0xC0, 0xD1, 0xC0 } } }));
        EXPECT_NE(bByLoading, (bByLoading ? oBase.SetEdidBuffer(nullptr, 128, 0) : oBase.ClearEdidBuffer()) != 0);
        EXPECT_EQ(2U, oBase.GetStandardCount());
        EXPECT_EQ(0, oBase.GetStandard(1U, nullptr, nullptr));
        EXPECT_EQ(0, oBase.RemoveStandard(1));
        EXPECT_EQ(CBytes(128), BytesOf(oBase));
    }
    Load(oBase, MakeBase({}));
    EXPECT_EQ(0U, oBase.GetStandardCount());
}

TEST(Standard, ExtraPairsInTheirDescriptors)
{
    const CLoadedBase oBase({ { 72, { 0, 0, 0, 0xFA, 0, 0x81, 0xC0, 1, 1, 0, 0, 0, 0, 0, 0, 0xD1, 0xC0, 0x0A } },
                              { 108, { 0, 0, 0, 0xFA, 0, 0x61, 0x40, 1, 1, 1, 1, 1, 1, 1, 1, 0x81, 0x80, 0x0A } } });
    const auto Expect = [&](const char* pszTiming, unsigned int uiIndex) { // as cleared: refused
        CVidParamTimingGeneric oTiming;
        EXPECT_EQ(pszTiming[0] != '0' ? 1 : 0, oBase.GetExtraStdTiming(uiIndex, oTiming)) << uiIndex;
        EXPECT_EQ(pszTiming, NameOf(oTiming)) << uiIndex;
    };
    Expect("1280x720@60", 0);
    Expect("0x0@0", 1);
    Expect("1920x1080@60", 5);
    Expect("1024x768@60", 6);
    Expect("1280x1024@60", 11);
    Expect("0x0@0", 12);
    Expect("0x0@0", 0xFFFFFFFF);
    EXPECT_EQ(0U, oBase.GetStandardCount());
}

// ---- Detailed timings ----

// Of the descriptors by their letters: the count, and by index what each gives, a point for a refusal.
TEST(Detailed, CandidatesAndTheirCount)
{
    const std::map<char, CBytes> oDescriptors = {
        { '7', gsc_aui8Timing720p },
        { '1', gsc_aui8Timing1080p },
        { 'N', gsc_aui8Name },
        { 'T', { 0, 0, 0, 1 } },                      // tag 1: a candidate, but no timing
        { 'W', { 0x02, 0x3A, 0, 0x18, 0x01, 0x38 } }, // a candidate, but without a width
        { 'a', { 1, 0, 0, 0xFC } },                   // each of the bytes 0, 1, 2 and 4 alone makes a candidate
        { 'b', { 0, 1, 0, 0xFC } },
        { 'c', { 0, 0, 1, 0xFC } },
        { 'd', { 0, 0, 0, 0xFC, 1 } },
    };
    const struct
    {
        const char* m_pszDescriptors;
        unsigned int m_uiCount;
        const char* m_pszExpected;
    } aoCases[] = { { "N7N1", 2, "71..." },
                    { "7171", 4, "7171." },
                    { "1T7W", 1, "1.7.." },
                    { "dcb7", 0, "...7." },
                    { "a7NN", 0, ".7..." } };
    for (const auto& oCase : aoCases)
    {
        const char* psz = oCase.m_pszDescriptors;
        const CLoadedBase oBase({ { 54, oDescriptors.at(psz[0]) },
                                  { 72, oDescriptors.at(psz[1]) },
                                  { 90, oDescriptors.at(psz[2]) },
                                  { 108, oDescriptors.at(psz[3]) } });
        EXPECT_EQ(oCase.m_uiCount, oBase.GetDetailedCount()) << psz;
        for (unsigned int i = 0; i < 5; ++i)
        {
            CVidParamTimingGeneric oTiming;
            const char cExpected = oCase.m_pszExpected[i];
            EXPECT_EQ(cExpected != '.' ? 1 : 0, oBase.GetDetailed(i, &oTiming)) << psz << i;
            EXPECT_EQ(cExpected == '7' ? "1280x720@60" : cExpected == '1' ? "1920x1080@60" : "0x0@0", NameOf(oTiming));
        }
        EXPECT_EQ(0, oBase.GetDetailed(0xFFFFFFFF, nullptr));
    }
}

// Version, revision and feature byte decide whether index 0 is the preferred timing, which is replaced; another one is
// removed. Bytes 21 and 22 go in as the image size, both or neither.
TEST(Detailed, PreferredTimingIsReplacedElseRemoved)
{
    const CBytes aui8Empty = { 0, 0, 0, 0x10, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0 };
    CVidParamTimingGeneric oTiming;
    ASSERT_EQ(1, CLoadedBase({ { 54, gsc_aui8Timing720p } }).GetDetailed(0, &oTiming));
    const auto Expect = [&](const CBytes& aui8Version, unsigned char ui8Features, bool bPreferred,
                            const CBytes& aui8Size, const CBytes& aui8Written) {
        SCOPED_TRACE(testing::Message() << +aui8Version[0] << "." << +aui8Version[1] << ", " << +ui8Features);
        // The first descriptor is empty, so that the second holds the first timing.
        CLoadedBase oBase({ { 18, aui8Version },
                            { 21, aui8Size },
                            { 24, { ui8Features } },
                            { 72, gsc_aui8Timing1080p },
                            { 90, gsc_aui8Timing1080p },
                            { 108, gsc_aui8Name } });
        CEditCheck oRefused(oBase);
        EXPECT_EQ(0, bPreferred ? oBase.RemoveDetailed(0) : oBase.SetPreferredMode(&oTiming));
        EXPECT_EQ(0, oBase.SetPreferredMode(nullptr));
        EXPECT_EQ(0, oBase.RemoveDetailed(2));
        EXPECT_EQ(0, oBase.RemoveDetailed(4));
        oRefused.ExpectUnchanged();
        EXPECT_EQ(1, bPreferred ? oBase.SetPreferredMode(&oTiming) : oBase.RemoveDetailed(0));
        CBytes aui8Expected = bPreferred ? gsc_aui8Timing720p : aui8Empty;
        std::copy(aui8Written.begin(), aui8Written.end(), aui8Expected.begin() + 12);
        EXPECT_EQ(aui8Expected, BytesOf(oBase, 72, 18));
        EXPECT_EQ(1, oBase.RemoveDetailed(bPreferred ? 1 : 0));
        EXPECT_EQ(aui8Empty, BytesOf(oBase, 90, 18));
        oRefused.ExpectEdited({ { 72, 36 } });
    };
    Expect({ 1, 3 }, 0xFD, true, { 60, 34 }, { 60, 34 });
    Expect({ 1, 4 }, 0x00, true, { 255, 1 }, { 255, 1 });
    Expect({ 1, 2 }, 0x02, true, { 0, 34 }, { 0, 0 });
    Expect({ 2, 0 }, 0x02, true, { 60, 0 }, { 0, 0 });
    Expect({ 1, 2 }, 0xFD, false, { 60, 34 }, {});
    Expect({ 2, 4 }, 0x00, false, { 60, 34 }, {});
    EXPECT_EQ(0, CLoadedBase({}).SetPreferredMode(&oTiming)) << "no descriptor for it";
}

// ---- Memory ----

TEST(Memory, WalkingTheTimingsAllocatesNothing)
{
    const CLoadedBase oBase({ { 35, { 0xFF, 0xFF, 0x80 } },
                              { 38, gsc_aui8FourPairs },
                              { 54, gsc_aui8Timing1080p },
                              { 72, { 0, 0, 0, 0xFA, 0, 0x81, 0xC0, 0xD1, 0xC0 } } });
    const CCountingAllocator oAllocator;
    CVidParamTimingGeneric oTiming;
    for (unsigned int i = 0; i < 18; ++i) // beyond the end of each list
    {
        EXPECT_EQ(i < 17 ? 1 : 0, oBase.GetEstablished(i, &oTiming, 0));
        EXPECT_EQ(i < 4 ? 1 : 0, oBase.GetStandard(i, &oTiming, nullptr));
        EXPECT_EQ(i < 2 ? 1 : 0, oBase.GetExtraStdTiming(i, oTiming));
        EXPECT_EQ(i < 1 ? 1 : 0, oBase.GetDetailed(i, &oTiming));
    }
    EXPECT_EQ(0U, oAllocator.GetAllocCount());
}
}
