// Checksum, detailed timing descriptor and hex dump.

#include "EdidUtils.h"

#include <gtest/gtest.h>
#include <string.h>

#include <memory>
#include <numeric>
#include <vector>

#include "BaseBlockImage.h"
#include "CapturedOutput.h"
#include "RVidParamTiming.h"
#include "VidParamTimingGeneric.h"
#include "ZorMFCTypes.h"

namespace
{
TEST(Checksum, NullAndEmptyInput)
{
    const unsigned char ui8Byte = 5;
    EXPECT_EQ(0, CEdidUtils::Is8BitsChecksumValid(128, nullptr));
    EXPECT_EQ(0, CEdidUtils::Is8BitsChecksumValid(0, nullptr));
    EXPECT_NE(0, CEdidUtils::Is8BitsChecksumValid(0, &ui8Byte));
    EXPECT_EQ(0, CEdidUtils::Compute8BitsChecksum(128, nullptr));
    EXPECT_EQ(0, CEdidUtils::Compute8BitsChecksum(0, &ui8Byte));
}

// The result completes the sum modulo 256, whatever the sum is.
TEST(Checksum, CompletesEverySum)
{
    for (unsigned int uiFill = 0; uiFill < 256; ++uiFill)
    {
        std::vector<unsigned char> aui8Data(128, static_cast<unsigned char>(uiFill));
        aui8Data[127] = 0;
        const int iChecksum = CEdidUtils::Compute8BitsChecksum(128, aui8Data.data());
        aui8Data[127] = static_cast<unsigned char>(iChecksum & 0xFF);
        EXPECT_EQ(0U, std::accumulate(aui8Data.begin(), aui8Data.end(), 0U) % 256);
        EXPECT_NE(0, CEdidUtils::Is8BitsChecksumValid(128, aui8Data.data()));
        ++aui8Data[uiFill % 128];
        EXPECT_EQ(0, CEdidUtils::Is8BitsChecksumValid(128, aui8Data.data()));
    }
}

// What a descriptor says; sizes in pixels and lines.
struct SDescriptorCase
{
    const char* m_szName;
    DescriptorBytes m_aui8Data;
    unsigned int m_uiClockInKiloHz;
    bool m_bInterlaced;
    unsigned int m_auiHorizontal[4]; // active, front porch, sync, back porch
    unsigned int m_auiVertical[4];
    unsigned int m_uiHorizontalRateInHz;
    unsigned int m_uiVerticalRateInHz;
    bool m_bHorizontalPositive;
    bool m_bVerticalPositive;
    CEdidUtils::SImageSize m_oSize;
};

// clang-format off
const SDescriptorCase gsc_aoDescriptorCases[] = {
    { "Plain1080p", gsc_aui8Timing1080p,
      148500, false, { 1920, 88, 44, 148 }, { 1080, 4, 5, 36 }, 67500, 60, true, true, { 60, 34 } },
    // The bytes hold the lines of one field, the timing those of the frame; the blanking is that of one field in both.
    { "InterlacedStoresOneField",
      { 0x01, 0x1D, 0x80, 0x18, 0x71, 0x1C, 0x16, 0x20, 0x58, 0x2C, 0x25, 0x00, 0x3C, 0x22, 0x00, 0x00, 0x00, 0x9E },
      74250, true, { 1920, 88, 44, 148 }, { 1080, 2, 5, 15 }, 33750, 30, true, true, { 60, 34 } },
    // 12, 10 and 6 bits used: 4095 active, 1023 porches, 63 lines.
    { "WidestFields",
      { 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x18 },
      655350, false, { 4095, 1023, 1023, 2049 }, { 4095, 63, 63, 3969 }, 80018, 10, false, false, { 4095, 4095 } },
    // Each high part alone, so that swapped nibbles and pairs show.
    { "HighPartsApart",
      { 0x10, 0x27, 0x00, 0x00, 0x63, 0x00, 0x00, 0x41, 0x01, 0x02, 0x34, 0x6D, 0x00, 0x00, 0x12, 0x00, 0x00, 0x1A },
      100000, false, { 1536, 257, 514, 0xFFFFFFFD }, { 1024, 51, 20, 185 }, 43403, 34, true, false, { 256, 512 } },
    { "VerticalPositiveAlone",
      { 0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58, 0x2C, 0x45, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x1C },
      148500, false, { 1920, 88, 44, 148 }, { 1080, 4, 5, 36 }, 67500, 60, false, true, { 0, 0 } },
};
// clang-format on

class DescriptorRoundTrip : public testing::TestWithParam<SDescriptorCase>
{
};

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

TEST_P(DescriptorRoundTrip, ReadsEachField)
{
    const SDescriptorCase& oCase = GetParam();
    CVidParamTimingGeneric oTiming;
    ASSERT_EQ(1, CEdidUtils::ConvertDetailedDescriptorToVidParam(MakeRaw(oCase.m_aui8Data), &oTiming));
    EXPECT_EQ(oCase.m_uiClockInKiloHz, oTiming.GetPixelClockInKiloHz());
    EXPECT_EQ(oCase.m_bInterlaced, oTiming.IsInterlaced() != 0);
    EXPECT_EQ(oCase.m_auiHorizontal[0], oTiming.GetHorizontalActive());
    EXPECT_EQ(oCase.m_auiHorizontal[1], oTiming.GetHorizontalFrontPorch());
    EXPECT_EQ(oCase.m_auiHorizontal[2], oTiming.GetHorizontalSync());
    EXPECT_EQ(oCase.m_auiHorizontal[3], oTiming.GetHorizontalBackPorch());
    EXPECT_EQ(oCase.m_auiVertical[0], oTiming.GetVerticalActive());
    EXPECT_EQ(oCase.m_auiVertical[1], oTiming.GetVerticalFrontPorch());
    EXPECT_EQ(oCase.m_auiVertical[2], oTiming.GetVerticalSync());
    EXPECT_EQ(oCase.m_auiVertical[3], oTiming.GetVerticalBackPorch());
    EXPECT_EQ(oCase.m_uiHorizontalRateInHz, oTiming.GetHorizontalRateInHz());
    EXPECT_EQ(oCase.m_uiVerticalRateInHz, oTiming.GetVerticalRateInHz());
    EXPECT_EQ(oCase.m_bHorizontalPositive, oTiming.IsHorizontalPolarityPositive() != 0);
    EXPECT_EQ(oCase.m_bVerticalPositive, oTiming.IsVerticalPolarityPositive() != 0);
    EXPECT_EQ(CVidParamTiming::eVidParamType_Detailed, oTiming.GetVideoFamilyType());
}

TEST_P(DescriptorRoundTrip, BytesSurviveReadAndWrite)
{
    const SDescriptorCase& oCase = GetParam();
    CVidParamTimingGeneric oTiming;
    ASSERT_EQ(1, CEdidUtils::ConvertDetailedDescriptorToVidParam(MakeRaw(oCase.m_aui8Data), &oTiming));
    CEdidUtils::SEdidDetailedRaw oWritten;
    memset(&oWritten, 0xA5, sizeof(oWritten));
    ASSERT_EQ(1, CEdidUtils::ConvertVidParamToDetailedDescriptor(&oTiming, &oWritten, &oCase.m_oSize));
    EXPECT_EQ(oCase.m_aui8Data, BytesOf(oWritten));
}

INSTANTIATE_TEST_SUITE_P(Cases, DescriptorRoundTrip, testing::ValuesIn(gsc_aoDescriptorCases),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_szName); });

struct SNoTimingCase
{
    const char* m_szName;
    unsigned int m_auiZeroed[2]; // byte, mask of the bits that are cleared
    unsigned int m_auiZeroedToo[2];
};

TEST(Descriptor, NoTimingLeavesTheOutputUntouched)
{
    const SNoTimingCase aoCases[] = {
        { "no pixel clock", { 0, 0xFF }, { 1, 0xFF } },
        { "no horizontal active", { 2, 0xFF }, { 4, 0xF0 } },
        { "no vertical active", { 5, 0xFF }, { 7, 0xF0 } },
    };
    for (const SNoTimingCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CEdidUtils::SEdidDetailedRaw oRaw = MakeRaw(gsc_aui8Timing1080p);
        for (const auto* puiZeroed : { oCase.m_auiZeroed, oCase.m_auiZeroedToo })
        {
            unsigned char& ui8Byte = oRaw.m_aui8Data[puiZeroed[0]];
            ui8Byte = static_cast<unsigned char>(ui8Byte & ~puiZeroed[1]);
        }
        CVidParamTimingGeneric oTiming;
        oTiming.SetHorizontalActive(77);
        oTiming.SetVideoFamilyType(CVidParamTiming::eVidParamType_Gtf);
        EXPECT_EQ(0, CEdidUtils::ConvertDetailedDescriptorToVidParam(oRaw, &oTiming));
        EXPECT_EQ(0, CEdidUtils::ConvertDetailedDescriptorToVidParam(oRaw, nullptr));
        EXPECT_EQ(77U, oTiming.GetHorizontalActive());
        EXPECT_EQ(CVidParamTiming::eVidParamType_Gtf, oTiming.GetVideoFamilyType());
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
        EXPECT_EQ(0, oTiming.IsHorizontalPolarityPositive());
        EXPECT_EQ(0, oTiming.IsVerticalPolarityPositive());
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
}

TEST(Descriptor, MissingInputWritesNothing)
{
    const CVidParamTimingGeneric oTiming;
    CEdidUtils::SEdidDetailedRaw oRaw = MakeRaw(gsc_aui8Timing1080p);
    EXPECT_EQ(0, CEdidUtils::ConvertVidParamToDetailedDescriptor(nullptr, &oRaw, nullptr));
    EXPECT_EQ(gsc_aui8Timing1080p, BytesOf(oRaw));
    EXPECT_EQ(0, CEdidUtils::ConvertVidParamToDetailedDescriptor(&oTiming, nullptr, nullptr));
}

// The record with clocks in kilohertz goes through the same accessors; it has no number for the source.
TEST(Descriptor, KiloHertzTimingReadsTheSame)
{
    CRVidParamTiming oTiming;
    ASSERT_EQ(1, CEdidUtils::ConvertDetailedDescriptorToVidParam(MakeRaw(gsc_aui8Timing720p), &oTiming));
    EXPECT_EQ(74250U, oTiming.GetPixelClockInKiloHz());
    EXPECT_EQ(45U, oTiming.GetHorizontalRateInKiloHz());
    EXPECT_EQ(220U, oTiming.GetHorizontalBackPorch());
    EXPECT_EQ(20U, oTiming.GetVerticalBackPorch());
    EXPECT_EQ(CVidParamTiming::eVidParamType_Unknown, oTiming.GetVideoFamilyType());
}

std::vector<std::string> TextOf(const CMArrayString& oLines)
{
    std::vector<std::string> asLines;
    for (unsigned int ui = 0; ui < oLines.GetCount(); ++ui)
    {
        asLines.emplace_back(static_cast<const char*>(oLines[ui]));
    }
    return asLines;
}

TEST(HexDump, LinesOfElevenBytes)
{
    const unsigned char aui8Data[] = { 0x00, 0xFF, 0x0A, 0xB0, 4, 5, 6, 7, 8, 9, 0xC1 };
    CMArrayString oLines;
    oLines.Add(CMString("old"));
    ASSERT_EQ(1, CEdidUtils::GetFormatedEdidDataStrings(sizeof(aui8Data), aui8Data, oLines, "> "));
    const std::vector<std::string> asExpected = {
        "> 128 BYTES OF EDID CODE:",
        ">        0  1  2  3  4  5  6  7  8  9",
        ">      ______________________________",
        "> 000 | 00 FF 0A B0 04 05 06 07 08 09",
        "> 010 | C1",
        "> ",
        "> Real Buffer Size: 11 Bytes",
    };
    EXPECT_EQ(asExpected, TextOf(oLines));
}

// Three head lines, a line for each ten bytes begun, an empty line, the size.
TEST(HexDump, LineCounts)
{
    const struct
    {
        unsigned int m_uiSize;
        unsigned int m_uiDataLines;
        const char* m_szLast;
    } aoCases[] = { { 1, 1, "000 | 11" },
                    { 10, 1, "000 | 11 11 11 11 11 11 11 11 11 11" },
                    { 128, 13, "120 | 11 11 11 11 11 11 11 11" },
                    { 256, 26, "250 | 11 11 11 11 11 11" } };
    for (const auto& oCase : aoCases)
    {
        const std::vector<unsigned char> aui8Data(oCase.m_uiSize, 0x11);
        CMArrayString oLines;
        ASSERT_EQ(1, CEdidUtils::GetFormatedEdidDataStrings(oCase.m_uiSize, aui8Data.data(), oLines, ""));
        const std::vector<std::string> asLines = TextOf(oLines);
        ASSERT_EQ(oCase.m_uiDataLines + 5, asLines.size());
        EXPECT_EQ(oCase.m_szLast, asLines[asLines.size() - 3]);
        EXPECT_EQ("", asLines[asLines.size() - 2]);
    }
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

// A caller may take the prefix from the very list that is emptied.
TEST(HexDump, PrefixOutOfTheListItself)
{
    const unsigned char ui8Byte = 0x5A;
    CMArrayString oLines;
    oLines.Add(CMString("a prefix of some length: "));
    ASSERT_EQ(1, CEdidUtils::GetFormatedEdidDataStrings(1, &ui8Byte, oLines, oLines[0]));
    EXPECT_EQ("a prefix of some length: 000 | 5A", TextOf(oLines)[3]);
}
}
