// The view of an HDMI vendor block: where its video codes stand, taking one out, deep colour; alone and through a
// block.

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "Cea861TestHelp.h"
#include "EditCheck.h"
#include "Hdmi1xVsdb.h"

namespace
{
std::vector<unsigned int> GetCeaVics(const CHdmi1xVsdb& oVsdb)
{
    std::vector<unsigned int> auiVics;
    for (unsigned int i = 0; oVsdb.EnumCea861Vic(i) != 0; ++i)
    {
        auiVics.push_back(oVsdb.EnumCea861Vic(i));
    }
    return auiVics;
}

unsigned int Length(const CBytes& aui8Bytes) { return static_cast<unsigned int>(aui8Bytes.size()); }

struct SHdmiCase
{
    const char* m_szName;
    CBytes m_aui8Payload; // from the presence byte on
    std::vector<unsigned int> m_auiVics;
};

const SHdmiCase gsc_aoHdmiCases[] = {
    { "NoLatency", { 0x20, 0x00, 0x80, 1, 2, 3, 4 }, { 95, 94, 93, 98 } },
    { "Latency", { 0xA0, 9, 9, 0x00, 0x20, 2 }, { 94 } },
    { "InterlacedLatencyAlone", { 0x60, 9, 9, 0x00, 0x20, 2 }, { 94 } },
    { "BothLatencies", { 0xE0, 9, 9, 9, 9, 0x00, 0x20, 2 }, { 94 } },
    { "NoVideoFields", { 0x00, 0x00, 0x20, 1 }, {} },
    { "CountOf0", { 0x20, 0x00, 0x1F, 1 }, {} },
    { "CountRunsPastThePayload", { 0x20, 0x00, 0x60, 1, 2 }, {} },
    { "CountEndsWithThePayload", { 0x20, 0x00, 0x40, 1, 2 }, { 95, 94 } },
    { "UnknownCodesArePassedOver", { 0x20, 0x00, 0xA0, 5, 1, 0, 255, 4 }, { 95, 98 } },
    { "NoRoomForTheLengths", { 0x20, 0x00 }, {} },
    { "NoRoomForVideoFields", { 0x20 }, {} },
    { "LatencyRunsPastThePayload", { 0xE0, 9 }, {} },
};

TEST(Hdmi1xVsdb, FindsItsVideoCodes)
{
    for (const SHdmiCase& oCase : gsc_aoHdmiCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const CBytes aui8Payload = Join({ { 0x03, 0x0C, 0x00, 0x10, 0, 0x80, 0 }, oCase.m_aui8Payload });
        const auto pui8Exact = CopyToHeap(aui8Payload);
        CHdmi1xVsdb oVsdb(Length(aui8Payload), pui8Exact.get());
        EXPECT_EQ(oCase.m_auiVics, GetCeaVics(oVsdb));
        EXPECT_EQ(oCase.m_auiVics.size(), oVsdb.ExtractTimings());
        EXPECT_EQ(0U, oVsdb.EnumCea861Vic(0xFFFFFFFF));
    }
}

TEST(Hdmi1xVsdb, RemovalClosesTheGapAndLeavesThe3dData)
{
    const CBytes aui8Before = { 3, 0x0C, 0, 0, 0, 0, 0, 0x20, 0xA0, 0x82, 1, 2, 3, 4, 0x01, 0x41 };
    const std::pair<unsigned int, CBytes> aoCases[] = {
        { 93, { 3, 0x0C, 0, 0, 0, 0, 0, 0x20, 0xA0, 0x62, 1, 2, 4, 0, 0x01, 0x41 } },
        { 98, { 3, 0x0C, 0, 0, 0, 0, 0, 0x20, 0xA0, 0x62, 1, 2, 3, 0, 0x01, 0x41 } },
        { 95, { 3, 0x0C, 0, 0, 0, 0, 0, 0x20, 0xA0, 0x62, 2, 3, 4, 0, 0x01, 0x41 } },
        { 0, aui8Before },
        { 1093, aui8Before },
        { 93 + 256, aui8Before },
    };
    for (const auto& [uiVic, aui8After] : aoCases)
    {
        SCOPED_TRACE(uiVic);
        CBytes aui8Payload = aui8Before;
        CHdmi1xVsdb oVsdb(Length(aui8Payload), aui8Payload.data());
        EXPECT_EQ(aui8After != aui8Before, oVsdb.RemoveCea861Vic(uiVic) != 0);
        EXPECT_EQ(aui8After, aui8Payload);
        EXPECT_EQ(GetCeaVics(CHdmi1xVsdb(Length(aui8Payload), aui8Payload.data())), GetCeaVics(oVsdb));
    }
    CBytes aui8Unknown = { 3, 0x0C, 0, 0, 0, 0, 0, 0x20, 0, 0x40, 9, 0 };
    EXPECT_EQ(0, CHdmi1xVsdb(Length(aui8Unknown), aui8Unknown.data()).RemoveCea861Vic(0)) << "unknown codes are not 0";
}

TEST(Hdmi1xVsdb, SupportedByLengthAndIdentifier)
{
    CBytes aui8Payload = { 3, 0x0C, 0 };
    aui8Payload.resize(31);
    for (unsigned int uiLength = 0; uiLength <= 31; ++uiLength)
    {
        EXPECT_EQ(uiLength >= 8, CHdmi1xVsdb::IsSupported(uiLength, aui8Payload.data()) != 0) << uiLength;
    }
    for (unsigned int i = 0; i < 3; ++i)
    {
        CBytes aui8Other = aui8Payload;
        aui8Other[i] ^= 0x80;
        EXPECT_FALSE(CHdmi1xVsdb::IsSupported(31, aui8Other.data()));
    }
    CCapturedOutput oOutput;
    EXPECT_FALSE(CHdmi1xVsdb::IsSupported(7, nullptr)) << "silent";
    EXPECT_FALSE(CHdmi1xVsdb::IsSupported(32, aui8Payload.data()));
    EXPECT_FALSE(CHdmi1xVsdb::IsSupported(8, nullptr));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
}

TEST(Hdmi1xVsdb, ColourDepthBits)
{
    for (const unsigned char ui8Kept : { static_cast<unsigned char>(0x00), static_cast<unsigned char>(0x8F) })
    {
        CBytes aui8Payload = { 3, 0x0C, 0, 0, 0, ui8Kept, 0, 0 };
        CHdmi1xVsdb oVsdb(Length(aui8Payload), aui8Payload.data());
        for (unsigned int uiBits = 0; uiBits < 8; ++uiBits)
        {
            EXPECT_EQ(1, oVsdb.SetColorBitDepthSupport(uiBits | 0xFFFFFFF8));
            EXPECT_EQ(ui8Kept | uiBits * 16, aui8Payload[5]);
            unsigned int uiRead = 99;
            EXPECT_EQ(1, oVsdb.GetColorBitDepthSupport(uiRead));
            EXPECT_EQ(uiBits, uiRead);
        }
    }
}

TEST(Hdmi1xVsdb, ViewsOfNothingReportAndRefuse)
{
    const auto pui8Short = CopyToHeap({ 3, 0x0C, 0, 0, 0 });
    CHdmi1xVsdb oNull(0, nullptr);
    CHdmi1xVsdb oShort(5, pui8Short.get());
    for (CHdmi1xVsdb* poVsdb : { &oNull, &oShort })
    {
        CCapturedOutput oOutput;
        unsigned int uiBits = 99;
        EXPECT_EQ(0, poVsdb->GetColorBitDepthSupport(uiBits));
        EXPECT_EQ(0U, uiBits);
        EXPECT_EQ(0, poVsdb->SetColorBitDepthSupport(7));
        EXPECT_EQ(2U, oOutput.TakeAssertionCount());
        EXPECT_EQ(0, poVsdb->RemoveCea861Vic(95));
        EXPECT_EQ(0U, poVsdb->ExtractTimings());
    }
}

// ---- Through the block ----

TEST(Cea861ColourDepth, JoinsAndWritesAllHdmiVendorBlocks)
{
    const auto poBlock =
        LoadBlock(CCeaBlockBuilder()
                      .Bytes({ 0x68, 3, 0x0C, 0,    0, 0, 0x10, 0,    0,      //
                               0x65, 3, 0x0C, 0,    0, 0,                     // too short to be one
                               0x68, 1, 2,    3,    0, 0, 0x70, 0,    0,      // another vendor
                               0x69, 3, 0x0C, 0,    0, 0, 0xC8, 0,    0, 0,   //
                               0xE9, 1, 3,    0x0C, 0, 0, 0,    0x20, 0, 0 }) // extended: not for depth
                      .Detailed({ 1 })
                      .Get());
    unsigned int uiBits = 0;
    EXPECT_EQ(1, poBlock->GetColorBitDepthSupport(uiBits));
    EXPECT_EQ(5U, uiBits);
    const CEditCheck oCheck(*poBlock);
    EXPECT_EQ(1, poBlock->SetColorBitDepthSupport(3));
    oCheck.ExpectEdited({ { 4 + 1 + 5, 1 }, { 4 + 9 + 6 + 9 + 1 + 5, 1 } });
    EXPECT_EQ(0x30, poBlock->GetData()[10]);
    EXPECT_EQ(0xB8, poBlock->GetData()[34]);
    EXPECT_EQ(1, poBlock->GetColorBitDepthSupport(uiBits));
    EXPECT_EQ(3U, uiBits);
}
}
