// Checksum, detailed timing descriptor and hex dump.

#include "EdidUtils.h"

#include <gtest/gtest.h>

#include <array>
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
    const auto Expect = [](int iChecksum, const CBytes& aui8Data, unsigned int uiSize) {
        EXPECT_EQ(iChecksum, CEdidUtils::Compute8BitsChecksum(uiSize, aui8Data.data()));
        EXPECT_EQ(iChecksum == 0 ? 1 : 0, CEdidUtils::Is8BitsChecksumValid(uiSize, aui8Data.data()));
    };
    Expect(-1, { 0x01 }, 1);
    Expect(-255, { 0xFF }, 1);
    Expect(-2, { 0xFF, 0x03 }, 2);
    Expect(0, { 0x80, 0x7F, 0x01 }, 3);
    Expect(0, { 0x05 }, 0);
    EXPECT_EQ(0, CEdidUtils::Compute8BitsChecksum(128, nullptr));
    EXPECT_EQ(0, CEdidUtils::Is8BitsChecksumValid(0, nullptr));
}

// ---- Detailed timing descriptor ----

CEdidUtils::SEdidDetailedRaw MakeRaw(const CBytes& aui8Data)
{
    CEdidUtils::SEdidDetailedRaw oRaw;
    std::copy(aui8Data.begin(), aui8Data.end(), oRaw.m_aui8Data);
    return oRaw;
}

CBytes BytesOf(const CEdidUtils::SEdidDetailedRaw& oRaw) { return CBytes(oRaw.m_aui8Data, oRaw.m_aui8Data + 18); }

// Clock in kHz, interlaced; horizontal, then vertical: active, front porch, sync, back porch, rate in Hz, positive.
using CValues = std::array<unsigned int, 14>;

CValues ValuesOf(const CVidParamTiming& o)
{
    const auto Flag = [](int bFlag) { return bFlag != 0 ? 1U : 0U; };
    return { o.GetPixelClockInKiloHz(), Flag(o.IsInterlaced()),
             o.GetHorizontalActive(),   o.GetHorizontalFrontPorch(),
             o.GetHorizontalSync(),     o.GetHorizontalBackPorch(),
             o.GetHorizontalRateInHz(), Flag(o.IsHorizontalPolarityPositive()),
             o.GetVerticalActive(),     o.GetVerticalFrontPorch(),
             o.GetVerticalSync(),       o.GetVerticalBackPorch(),
             o.GetVerticalRateInHz(),   Flag(o.IsVerticalPolarityPositive()) };
}

const struct
{
    const char* m_pszName;
    CBytes m_aui8Data;
    CValues m_auiValues;
    CEdidUtils::SImageSize m_oSize;
} gsc_aoDescriptorCases[] = {
    // clang-format off
    // The bytes hold the lines of one field, the timing those of the frame; the blanking is that of one field in both.
    { "interlaced stores one field",
      { 0x01, 0x1D, 0x80, 0x18, 0x71, 0x1C, 0x16, 0x20, 0x58, 0x2C, 0x25, 0x00, 0x3C, 0x22, 0x00, 0x00, 0x00, 0x9E },
      { 74250, 1, 1920, 88, 44, 148, 33750, 1, 1080, 2, 5, 15, 30, 1 }, { 60, 34 } },
    // 12, 10 and 6 bits used: 4095 active, 1023 porches, 63 lines.
    { "widest fields",
      { 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x18 },
      { 655350, 0, 4095, 1023, 1023, 2049, 80018, 0, 4095, 63, 63, 3969, 10, 0 }, { 4095, 4095 } },
    // So that swapped nibbles and pairs show. The horizontal blanking is too small for its parts and wraps.
    { "each high part differs",
      { 0x10, 0x27, 0x00, 0x00, 0x63, 0x00, 0x00, 0x41, 0x01, 0x02, 0x34, 0x6D, 0x00, 0x00, 0x12, 0x00, 0x00, 0x1A },
      { 100000, 0, 1536, 257, 514, 0xFFFFFFFD, 43403, 1, 1024, 51, 20, 185, 34, 0 }, { 256, 512 } },
    { "vertical positive alone",
      { 0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58, 0x2C, 0x45, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x1C },
      { 148500, 0, 1920, 88, 44, 148, 67500, 0, 1080, 4, 5, 36, 60, 1 }, { 0, 0 } },
    // clang-format on
};

TEST(Descriptor, EachFieldIsReadAndWrittenBack)
{
    for (const auto& oCase : gsc_aoDescriptorCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        CVidParamTimingGeneric oTiming;
        ASSERT_EQ(1, CEdidUtils::ConvertDetailedDescriptorToVidParam(MakeRaw(oCase.m_aui8Data), &oTiming));
        EXPECT_EQ(oCase.m_auiValues, ValuesOf(oTiming));
        EXPECT_EQ(CVidParamTiming::eVidParamType_Detailed, oTiming.GetVideoFamilyType());
        CEdidUtils::SEdidDetailedRaw oWritten = MakeRaw(CBytes(18, 0xA5));
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

TEST(Descriptor, NoClockWidthOrHeightLeavesTheOutputUntouched)
{
    for (const std::array<size_t, 2>& auiZeros : { std::array<size_t, 2>{ 0, 1 }, { 2, 4 }, { 5, 7 } })
    {
        CEdidUtils::SEdidDetailedRaw oRaw = MakeRaw(gsc_aui8Timing1080p);
        oRaw.m_aui8Data[auiZeros[0]] = 0;
        oRaw.m_aui8Data[auiZeros[1]] = 0;
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
    for (const unsigned char ui8Sync : CBytes{ 0x67, 0x6F, 0x77 }) // stereo and both polarity bits
    {
        CEdidUtils::SEdidDetailedRaw oRaw = MakeRaw(gsc_aui8Timing1080p);
        oRaw.m_aui8Data[17] = ui8Sync;
        CVidParamTimingGeneric oTiming;
        oTiming.GetData().uiFlags = 2 | 4 | 8; // nothing of its former contents stays
        ASSERT_EQ(1, CEdidUtils::ConvertDetailedDescriptorToVidParam(oRaw, &oTiming));
        EXPECT_EQ(0U, oTiming.GetData().uiFlags);
        ASSERT_EQ(1, CEdidUtils::ConvertVidParamToDetailedDescriptor(&oTiming, &oRaw, nullptr));
        EXPECT_EQ((CBytes{ 0, 0, 0, 0, 0, 0x18 }), CBytes(oRaw.m_aui8Data + 12, oRaw.m_aui8Data + 18));
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
    const CBytes aui8Expected = { 0x01, 0x1D, 0x88, 0, 0x30, 0x1C, 0, 0x20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x98 };
    EXPECT_EQ(aui8Expected, BytesOf(oRaw));
    EXPECT_EQ(0, CEdidUtils::ConvertVidParamToDetailedDescriptor(nullptr, &oRaw, nullptr));
    EXPECT_EQ(0, CEdidUtils::ConvertVidParamToDetailedDescriptor(&oTiming, nullptr, nullptr));
    EXPECT_EQ(aui8Expected, BytesOf(oRaw));
}

// ---- Hex dump; the stored reports hold dumps of whole images ----

TEST(HexDump, LinesOfTenBytesAndARefusalThatKeepsTheLines)
{
    const unsigned char aui8Data[] = { 0x00, 0xFF, 0x0A, 0xB0, 4, 5, 6, 7, 8, 9, 0xC1 };
    const std::string sHead = "> 128 BYTES OF EDID CODE:|>        0  1  2  3  4  5  6  7  8  9|"
                              ">      ______________________________|> 000 | 00 FF 0A B0 04 05 06 07 08 09|";
    CMArrayString oLines;
    const auto ExpectLines = [&](const std::string& sExpected) {
        std::string sLines;
        for (unsigned int i = 0; i < oLines.GetCount(); ++i)
        {
            sLines += static_cast<const char*>(oLines[i]) + std::string("|");
        }
        EXPECT_EQ(sExpected, sLines);
    };
    oLines.Add(CMString("> ")); // a caller may take the prefix from the very list that is emptied
    ASSERT_EQ(1, CEdidUtils::GetFormatedEdidDataStrings(sizeof(aui8Data), aui8Data, oLines, oLines[0]));
    ExpectLines(sHead + "> 010 | C1|> |> Real Buffer Size: 11 Bytes|");
    ASSERT_EQ(1, CEdidUtils::GetFormatedEdidDataStrings(10, aui8Data, oLines, "> "));
    ExpectLines(sHead + "> |> Real Buffer Size: 10 Bytes|");

    CCapturedOutput oOutput;
    EXPECT_EQ(0, CEdidUtils::GetFormatedEdidDataStrings(0, aui8Data, oLines, ""));
    EXPECT_EQ(0, CEdidUtils::GetFormatedEdidDataStrings(10, nullptr, oLines, ""));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
    ExpectLines(sHead + "> |> Real Buffer Size: 10 Bytes|");
}
}
