// Checksum, detailed timing descriptor and hex dump.

#include "EdidUtils.h"

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "CaseFile.h"
#include "RecordingTiming.h"
#include "TimingValues.h"
#include "ZorMFCTypes.h"

namespace
{
// The bytes add up modulo 256 before the sum is negated.
TEST(Checksum, NegatedSumModulo256)
{
    const unsigned char aui8Data[] = { 0xFF, 0x03, 0xFE };
    EXPECT_EQ(-255, CEdidUtils::Compute8BitsChecksum(1, aui8Data));
    EXPECT_EQ(-2, CEdidUtils::Compute8BitsChecksum(2, aui8Data));
    EXPECT_EQ(0, CEdidUtils::Compute8BitsChecksum(3, aui8Data));
    EXPECT_EQ(0, CEdidUtils::Compute8BitsChecksum(3, nullptr));
    EXPECT_EQ(0, CEdidUtils::Is8BitsChecksumValid(2, aui8Data));
    EXPECT_EQ(1, CEdidUtils::Is8BitsChecksumValid(3, aui8Data));
    EXPECT_EQ(1, CEdidUtils::Is8BitsChecksumValid(0, aui8Data));
    EXPECT_EQ(0, CEdidUtils::Is8BitsChecksumValid(0, nullptr));
}

CEdidUtils::SEdidDetailedRaw MakeRaw(const CBytes& aui8Data)
{
    CEdidUtils::SEdidDetailedRaw oRaw;
    std::copy(aui8Data.begin(), aui8Data.end(), oRaw.m_aui8Data);
    return oRaw;
}

CBytes BytesOf(const CEdidUtils::SEdidDetailedRaw& oRaw) { return CBytes(oRaw.m_aui8Data, oRaw.m_aui8Data + 18); }

TEST(Descriptor, EachFieldIsReadAndWrittenBack)
{
    for (const SCaseRow& oRow : ReadCases("EdidCore/golden/descriptors.txt", 5))
    {
        SCOPED_TRACE(oRow.GetName());
        const CEdidUtils::SEdidDetailedRaw oRaw = MakeRaw(oRow.GetBytes(4));
        const bool bTiming = !oRow.GetText(1).empty();
        CVidParamTimingGeneric oTiming(gsc_oMarked); // is left alone by a refusal, else cleared
        EXPECT_EQ(bTiming ? 1 : 0, CEdidUtils::ConvertDetailedDescriptorToVidParam(oRaw, nullptr));
        EXPECT_EQ(bTiming ? 1 : 0, CEdidUtils::ConvertDetailedDescriptorToVidParam(oRaw, &oTiming));
        EXPECT_EQ(bTiming ? oRow.GetNumbers(1) : ReadAll(CVidParamTimingGeneric(gsc_oMarked)), ReadAll(oTiming));
        if (!bTiming)
        {
            continue;
        }
        EXPECT_EQ(oTiming.ComputeHorizontalRateInHz(), oTiming.GetHorizontalRateInHz());
        const CEdidUtils::SImageSize oSize = { oRaw.GetImageWidth(), oRaw.GetImageHeight() };
        EXPECT_EQ(oRow.GetNumbers(2), (std::vector<unsigned int>{ oSize.m_uiWidth, oSize.m_uiHeight }));
        CBytes aui8Expected = oRow.GetBytes(4);
        const CBytes aui8Tail = oRow.GetBytes(3);
        std::copy(aui8Tail.begin(), aui8Tail.end(), aui8Expected.begin() + 12);
        CEdidUtils::SEdidDetailedRaw oWritten = MakeRaw(CBytes(18, 0xA5));
        EXPECT_EQ(1, CEdidUtils::ConvertVidParamToDetailedDescriptor(&oTiming, &oWritten, &oSize));
        EXPECT_EQ(aui8Expected, BytesOf(oWritten));
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
// leaves room for: here 44 and 6, where the bytes say 43 and 5. The blanking is 280 and 45.
TEST(Descriptor, StorageIsWrittenInOrderAndAskedForTheBackPorch)
{
    const CEdidUtils::SEdidDetailedRaw oRaw =
        MakeRaw({ 0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58, 43, 0x45, 0, 0, 0, 0, 0, 0, 0x1E });
    CEvenSyncTiming oTiming;
    ASSERT_EQ(1, CEdidUtils::ConvertDetailedDescriptorToVidParam(oRaw, &oTiming));
    EXPECT_EQ(280U - 88 - 44, oTiming.GetHorizontalBackPorch());
    EXPECT_EQ(45U - 4 - 6, oTiming.GetVerticalBackPorch());
    const CCallNames asExpected = { "ClearData", "ClockKiloHz", "Interlaced", "HActive", "HFront", "HSync",
                                    "HBack",     "HPolarity",   "VActive",    "VFront",  "VSync",  "VBack",
                                    "VPolarity", "HRateHz",     "VRate",      "Type" };
    EXPECT_EQ(asExpected, oTiming.m_asCalls);
}

// 5000 needs 13 bits: the highest is lost. An odd interlaced height loses its line, the clock what is below 10 kHz.
TEST(Descriptor, WritingDropsWhatDoesNotFit)
{
    CVidParamTimingGeneric oTiming;
    WriteAll(oTiming, { 5000, 1081, 0, 74259, 0, 0, 0, 0, 0, 0, 0, 1, 0 });
    CEdidUtils::SEdidDetailedRaw oRaw;
    ASSERT_EQ(1, CEdidUtils::ConvertVidParamToDetailedDescriptor(&oTiming, &oRaw, nullptr));
    const CBytes aui8Expected = { 0x01, 0x1D, 0x88, 0, 0x30, 0x1C, 0, 0x20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x98 };
    EXPECT_EQ(0, CEdidUtils::ConvertVidParamToDetailedDescriptor(nullptr, &oRaw, nullptr));
    EXPECT_EQ(0, CEdidUtils::ConvertVidParamToDetailedDescriptor(&oTiming, nullptr, nullptr));
    EXPECT_EQ(aui8Expected, BytesOf(oRaw));
}

// The stored reports hold dumps of whole images. A caller may take the prefix from the very list that is emptied.
TEST(HexDump, PrefixOfEachLineAndARefusalThatKeepsTheLines)
{
    const unsigned char aui8Data[20] = {};
    CMArrayString oLines;
    oLines.Add(CMString("> "));
    EXPECT_EQ(1, CEdidUtils::GetFormatedEdidDataStrings(20, aui8Data, oLines, oLines[0]));
    CCapturedOutput oOutput;
    EXPECT_EQ(0, CEdidUtils::GetFormatedEdidDataStrings(0, aui8Data, oLines, ""));
    EXPECT_EQ(0, CEdidUtils::GetFormatedEdidDataStrings(10, nullptr, oLines, ""));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
    ASSERT_EQ(3U + 2 + 2, oLines.GetCount());
    EXPECT_STREQ("> 128 BYTES OF EDID CODE:", oLines[0]);
    EXPECT_STREQ("> 010 | 00 00 00 00 00 00 00 00 00 00", oLines[4]);
    EXPECT_STREQ("> ", oLines[5]);
    EXPECT_STREQ("> Real Buffer Size: 20 Bytes", oLines[6]);
}
} // namespace
