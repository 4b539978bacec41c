// Checksum, detailed timing descriptor and hex dump.

#include "EdidUtils.h"

#include <gtest/gtest.h>
#include <string.h>

#include <array>
#include <initializer_list>
#include <string>
#include <vector>

#include "BaseBlockImage.h"
#include "CapturedOutput.h"
#include "RecordingTiming.h"
#include "VidParamTimingGeneric.h"
#include "ZorMFCTypes.h"

namespace
{
// The bytes add up modulo 256 before the sum is negated.
TEST(Checksum, NegatedSumModulo256)
{
    const struct
    {
        CBytes m_aui8Data;
        int m_iChecksum;
    } aoCases[] = { { { 0x01 }, -1 }, { { 0xFF }, -255 }, { { 0x80, 0x7F, 0x01 }, 0 }, { { 0xFF, 0x03 }, -2 } };
    for (const auto& oCase : aoCases)
    {
        const unsigned int uiSize = static_cast<unsigned int>(oCase.m_aui8Data.size());
        EXPECT_EQ(oCase.m_iChecksum, CEdidUtils::Compute8BitsChecksum(uiSize, oCase.m_aui8Data.data()));
        EXPECT_EQ(oCase.m_iChecksum == 0, CEdidUtils::Is8BitsChecksumValid(uiSize, oCase.m_aui8Data.data()) != 0);
    }
    const unsigned char ui8Byte = 5;
    EXPECT_EQ(0, CEdidUtils::Compute8BitsChecksum(0, &ui8Byte));
    EXPECT_NE(0, CEdidUtils::Is8BitsChecksumValid(0, &ui8Byte));
    EXPECT_EQ(0, CEdidUtils::Compute8BitsChecksum(128, nullptr));
    EXPECT_EQ(0, CEdidUtils::Is8BitsChecksumValid(128, nullptr));
    EXPECT_EQ(0, CEdidUtils::Is8BitsChecksumValid(0, nullptr));
}

// ---- Detailed timing descriptor ----

CEdidUtils::SEdidDetailedRaw MakeRaw(const DescriptorBytes& aui8Data)
{
    CEdidUtils::SEdidDetailedRaw oRaw;
    memcpy(oRaw.m_aui8Data, aui8Data.data(), aui8Data.size());
    return oRaw;
}

DescriptorBytes BytesOf(const CEdidUtils::SEdidDetailedRaw& oRaw)
{
    DescriptorBytes aui8Data;
    memcpy(aui8Data.data(), oRaw.m_aui8Data, aui8Data.size());
    return aui8Data;
}

using HalfTiming = std::array<unsigned int, 6>; // active, front porch, sync, back porch, rate in Hz, positive

HalfTiming HorizontalOf(const CVidParamTiming& oTiming)
{
    return { oTiming.GetHorizontalActive(),   oTiming.GetHorizontalFrontPorch(),
             oTiming.GetHorizontalSync(),     oTiming.GetHorizontalBackPorch(),
             oTiming.GetHorizontalRateInHz(), oTiming.IsHorizontalPolarityPositive() != 0 ? 1U : 0U };
}

HalfTiming VerticalOf(const CVidParamTiming& oTiming)
{
    return { oTiming.GetVerticalActive(),   oTiming.GetVerticalFrontPorch(),
             oTiming.GetVerticalSync(),     oTiming.GetVerticalBackPorch(),
             oTiming.GetVerticalRateInHz(), oTiming.IsVerticalPolarityPositive() != 0 ? 1U : 0U };
}

struct SDescriptorCase
{
    const char* m_szName;
    DescriptorBytes m_aui8Data;
    unsigned int m_uiClockInKiloHz;
    bool m_bInterlaced;
    HalfTiming m_auiHorizontal;
    HalfTiming m_auiVertical;
    CEdidUtils::SImageSize m_oSize;
};

// clang-format off
const SDescriptorCase gsc_aoDescriptorCases[] = {
    { "plain", gsc_aui8Timing1080p,
      148500, false, { 1920, 88, 44, 148, 67500, 1 }, { 1080, 4, 5, 36, 60, 1 }, { 60, 34 } },
    // The bytes hold the lines of one field, the timing those of the frame; the blanking is that of one field in both.
    { "interlaced stores one field",
      { 0x01, 0x1D, 0x80, 0x18, 0x71, 0x1C, 0x16, 0x20, 0x58, 0x2C, 0x25, 0x00, 0x3C, 0x22, 0x00, 0x00, 0x00, 0x9E },
      74250, true, { 1920, 88, 44, 148, 33750, 1 }, { 1080, 2, 5, 15, 30, 1 }, { 60, 34 } },
    // 12, 10 and 6 bits used: 4095 active, 1023 porches, 63 lines.
    { "widest fields",
      { 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x18 },
      655350, false, { 4095, 1023, 1023, 2049, 80018, 0 }, { 4095, 63, 63, 3969, 10, 0 }, { 4095, 4095 } },
    // So that swapped nibbles and pairs show. The horizontal blanking is too small for its parts and wraps.
    { "each high part differs",
      { 0x10, 0x27, 0x00, 0x00, 0x63, 0x00, 0x00, 0x41, 0x01, 0x02, 0x34, 0x6D, 0x00, 0x00, 0x12, 0x00, 0x00, 0x1A },
      100000, false, { 1536, 257, 514, 0xFFFFFFFD, 43403, 1 }, { 1024, 51, 20, 185, 34, 0 }, { 256, 512 } },
    { "vertical positive alone",
      { 0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58, 0x2C, 0x45, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x1C },
      148500, false, { 1920, 88, 44, 148, 67500, 0 }, { 1080, 4, 5, 36, 60, 1 }, { 0, 0 } },
};
// clang-format on

TEST(Descriptor, EachFieldIsReadAndWrittenBack)
{
    for (const SDescriptorCase& oCase : gsc_aoDescriptorCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CVidParamTimingGeneric oTiming;
        ASSERT_EQ(1, CEdidUtils::ConvertDetailedDescriptorToVidParam(MakeRaw(oCase.m_aui8Data), &oTiming));
        EXPECT_EQ(oCase.m_uiClockInKiloHz, oTiming.GetPixelClockInKiloHz());
        EXPECT_EQ(oCase.m_bInterlaced, oTiming.IsInterlaced() != 0);
        EXPECT_EQ(oCase.m_auiHorizontal, HorizontalOf(oTiming));
        EXPECT_EQ(oCase.m_auiVertical, VerticalOf(oTiming));
        EXPECT_EQ(CVidParamTiming::eVidParamType_Detailed, oTiming.GetVideoFamilyType());

        CEdidUtils::SEdidDetailedRaw oWritten;
        memset(&oWritten, 0xA5, sizeof(oWritten));
        ASSERT_EQ(1, CEdidUtils::ConvertVidParamToDetailedDescriptor(&oTiming, &oWritten, &oCase.m_oSize));
        EXPECT_EQ(oCase.m_aui8Data, BytesOf(oWritten));
    }
}

// Storage that rounds its sync up to even pixels and lines.
class CEvenSyncTiming : public CRecordingTiming
{
public:
    unsigned int GetHorizontalSync() const override { return (CRecordingTiming::GetHorizontalSync() + 1) & ~1U; }
    unsigned int GetVerticalSync() const override { return (CRecordingTiming::GetVerticalSync() + 1) & ~1U; }
};

// A storage may derive one field from another, so the order counts, and what it gives back is what the back porch
// leaves room for: here 44 and 6, where the bytes say 43 and 5.
TEST(Descriptor, StorageIsWrittenInOrderAndAskedForTheBackPorch)
{
    CEdidUtils::SEdidDetailedRaw oRaw = MakeRaw(gsc_aui8Timing1080p);
    oRaw.SetHorizontalSync(43);
    CEvenSyncTiming oTiming;
    ASSERT_EQ(1, CEdidUtils::ConvertDetailedDescriptorToVidParam(oRaw, &oTiming));
    EXPECT_EQ(280U - 88 - 44, oTiming.GetHorizontalBackPorch());
    EXPECT_EQ(45U - 4 - 6, oTiming.GetVerticalBackPorch());
    const CCallNames asExpected = { "ClearData", "ClockKiloHz", "Interlaced", "HActive", "HFront", "HSync",
                                    "HBack",     "HPolarity",   "VActive",    "VFront",  "VSync",  "VBack",
                                    "VPolarity", "HRateHz",     "VRate",      "Type" };
    EXPECT_EQ(asExpected, oTiming.m_asCalls);
}

TEST(Descriptor, NoTimingLeavesTheOutputUntouched)
{
    CEdidUtils::SEdidDetailedRaw oNoClock = MakeRaw(gsc_aui8Timing1080p);
    oNoClock.SetPixelClockIn10KiloHz(0);
    CEdidUtils::SEdidDetailedRaw oNoWidth = MakeRaw(gsc_aui8Timing1080p);
    oNoWidth.SetHorizontalActive(0);
    CEdidUtils::SEdidDetailedRaw oNoHeight = MakeRaw(gsc_aui8Timing1080p);
    oNoHeight.SetVerticalActive(0);
    for (const CEdidUtils::SEdidDetailedRaw& oRaw : { oNoClock, oNoWidth, oNoHeight })
    {
        CRecordingTiming oTiming;
        EXPECT_EQ(0, CEdidUtils::ConvertDetailedDescriptorToVidParam(oRaw, &oTiming));
        EXPECT_EQ(CCallNames(), oTiming.m_asCalls);
        EXPECT_EQ(0, CEdidUtils::ConvertDetailedDescriptorToVidParam(oRaw, nullptr));
    }
    EXPECT_EQ(1, CEdidUtils::ConvertDetailedDescriptorToVidParam(MakeRaw(gsc_aui8Timing1080p), nullptr));
}

// Bits 2 and 1 are polarities only with digital separate sync, which writing always declares.
TEST(Descriptor, OtherSyncTypesGiveNoPolarity)
{
    for (const unsigned int uiSyncType : { 0U, 1U, 2U })
    {
        DescriptorBytes aui8Data = gsc_aui8Timing1080p;
        aui8Data[17] = static_cast<unsigned char>(uiSyncType << 3 | 0x67); // stereo and both polarity bits
        CVidParamTimingGeneric oTiming;                                    // nothing of its former contents stays
        oTiming.GetData().uiFlags = CVidParamTimingGeneric::eFlag_BottomFieldFirst |
                                    CVidParamTimingGeneric::eFlag_HorizontalPositive |
                                    CVidParamTimingGeneric::eFlag_VerticalPositive;
        ASSERT_EQ(1, CEdidUtils::ConvertDetailedDescriptorToVidParam(MakeRaw(aui8Data), &oTiming));
        EXPECT_EQ(0U, oTiming.GetData().uiFlags);
        CEdidUtils::SEdidDetailedRaw oWritten;
        ASSERT_EQ(1, CEdidUtils::ConvertVidParamToDetailedDescriptor(&oTiming, &oWritten, nullptr));
        EXPECT_EQ(0x18, oWritten.m_aui8Data[17]);
        EXPECT_EQ(0, oWritten.m_aui8Data[12] | oWritten.m_aui8Data[13] | oWritten.m_aui8Data[14]);
    }
}

// 5000 needs 13 bits: the highest is lost. An odd interlaced height loses its line, the clock what is below 10 kHz.
TEST(Descriptor, WritingDropsWhatDoesNotFit)
{
    CVidParamTimingGeneric oTiming;
    oTiming.SetHorizontalActive(5000);
    oTiming.SetVerticalActive(1081);
    oTiming.SetInterlaced(1);
    oTiming.SetPixelClockInKiloHz(74259);
    CEdidUtils::SEdidDetailedRaw oRaw;
    ASSERT_EQ(1, CEdidUtils::ConvertVidParamToDetailedDescriptor(&oTiming, &oRaw, nullptr));
    EXPECT_EQ(904U, oRaw.GetHorizontalActive());
    EXPECT_EQ(540U, oRaw.GetVerticalActive());
    EXPECT_EQ(7425U, oRaw.GetPixelClockIn10KiloHz());
    EXPECT_EQ(0U, oRaw.GetHorizontalBlanking());

    const DescriptorBytes aui8Before = BytesOf(oRaw);
    EXPECT_EQ(0, CEdidUtils::ConvertVidParamToDetailedDescriptor(nullptr, &oRaw, nullptr));
    EXPECT_EQ(0, CEdidUtils::ConvertVidParamToDetailedDescriptor(&oTiming, nullptr, nullptr));
    EXPECT_EQ(aui8Before, BytesOf(oRaw));
}

// ---- Hex dump; the stored reports hold dumps of whole images ----

std::vector<std::string> TextOf(const CMArrayString& oLines)
{
    std::vector<std::string> asLines;
    for (unsigned int ui = 0; ui < oLines.GetCount(); ++ui)
    {
        asLines.emplace_back(static_cast<const char*>(oLines[ui]));
    }
    return asLines;
}

TEST(HexDump, LinesOfTenBytes)
{
    const unsigned char aui8Data[] = { 0x00, 0xFF, 0x0A, 0xB0, 4, 5, 6, 7, 8, 9, 0xC1 };
    std::vector<std::string> asExpected = {
        "> 128 BYTES OF EDID CODE:",
        ">        0  1  2  3  4  5  6  7  8  9",
        ">      ______________________________",
        "> 000 | 00 FF 0A B0 04 05 06 07 08 09",
        "> 010 | C1",
        "> ",
        "> Real Buffer Size: 11 Bytes",
    };
    // A caller may take the prefix from the very list that is emptied.
    CMArrayString oLines;
    oLines.Add(CMString("> "));
    ASSERT_EQ(1, CEdidUtils::GetFormatedEdidDataStrings(sizeof(aui8Data), aui8Data, oLines, oLines[0]));
    EXPECT_EQ(asExpected, TextOf(oLines));

    ASSERT_EQ(1, CEdidUtils::GetFormatedEdidDataStrings(10, aui8Data, oLines, "> "));
    asExpected.erase(asExpected.begin() + 4);
    asExpected.back() = "> Real Buffer Size: 10 Bytes";
    EXPECT_EQ(asExpected, TextOf(oLines));
}

TEST(HexDump, BadInputReportsAndKeepsTheLines)
{
    const unsigned char ui8Byte = 0;
    CMArrayString oLines;
    oLines.Add(CMString("old"));
    CCapturedOutput oOutput;
    EXPECT_EQ(0, CEdidUtils::GetFormatedEdidDataStrings(0, &ui8Byte, oLines, ""));
    EXPECT_EQ(0, CEdidUtils::GetFormatedEdidDataStrings(10, nullptr, oLines, ""));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
    EXPECT_EQ(std::vector<std::string>{ "old" }, TextOf(oLines));
}
}
