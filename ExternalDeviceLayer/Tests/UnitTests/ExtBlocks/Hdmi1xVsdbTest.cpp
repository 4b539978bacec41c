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

const CBytes gsc_aui8Start = { 0x03, 0x0C, 0x00, 0x10, 0x00, 0x80, 0x00 }; // up to the presence byte

TEST(Hdmi1xVsdb, FindsItsVideoCodes)
{
    const struct
    {
        const char* m_pszName;
        CBytes m_aui8Payload; // from the presence byte on
        std::vector<unsigned int> m_auiVics;
    } aoCases[] = {
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
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const CBytes aui8Payload = Join({ gsc_aui8Start, oCase.m_aui8Payload });
        const auto pui8Exact = CopyToHeap(aui8Payload);
        CHdmi1xVsdb oVsdb(Length(aui8Payload), pui8Exact.get());
        EXPECT_EQ(oCase.m_auiVics, GetCeaVics(oVsdb));
        EXPECT_EQ(oCase.m_auiVics.size(), oVsdb.ExtractTimings());
    }
}

TEST(Hdmi1xVsdb, RemovalClosesTheGapAndLeavesThe3dData)
{
    // Codes with lengths byte and 3D data; 9 is no code, and not that of 0.
    const CBytes aui8Before = { 0xA2, 1, 9, 2, 3, 4, 0x01, 0x41 };
    const std::pair<unsigned int, CBytes> aoCases[] = {
        { 95, { 0x82, 9, 2, 3, 4, 0, 0x01, 0x41 } },
        { 93, { 0x82, 1, 9, 2, 4, 0, 0x01, 0x41 } },
        { 98, { 0x82, 1, 9, 2, 3, 0, 0x01, 0x41 } },
        { 0, aui8Before },
        { 1093, aui8Before },
        { 93 + 256, aui8Before },
    };
    const CBytes aui8Front = Join({ gsc_aui8Start, { 0x20, 0xA0 } });
    for (const auto& [uiVic, aui8After] : aoCases)
    {
        SCOPED_TRACE(uiVic);
        CBytes aui8Payload = Join({ aui8Front, aui8Before });
        CHdmi1xVsdb oVsdb(Length(aui8Payload), aui8Payload.data());
        EXPECT_EQ(aui8After != aui8Before ? 1 : 0, oVsdb.RemoveCea861Vic(uiVic));
        EXPECT_EQ(Join({ aui8Front, aui8After }), aui8Payload);
        EXPECT_EQ(GetCeaVics(CHdmi1xVsdb(Length(aui8Payload), aui8Payload.data())), GetCeaVics(oVsdb));
    }
}

TEST(Hdmi1xVsdb, SupportedByLengthAndIdentifier)
{
    CBytes aui8Payload = gsc_aui8Start;
    aui8Payload.resize(32);
    CCapturedOutput oOutput;
    EXPECT_EQ(0, CHdmi1xVsdb::IsSupported(7, aui8Payload.data()));
    EXPECT_EQ(1, CHdmi1xVsdb::IsSupported(8, aui8Payload.data()));
    EXPECT_EQ(1, CHdmi1xVsdb::IsSupported(31, aui8Payload.data()));
    for (unsigned int i = 0; i < 3; ++i)
    {
        CBytes aui8Other = aui8Payload;
        aui8Other[i] ^= 0x80;
        EXPECT_EQ(0, CHdmi1xVsdb::IsSupported(31, aui8Other.data())) << i;
    }
    EXPECT_EQ(0, CHdmi1xVsdb::IsSupported(7, nullptr)) << "silent";
    EXPECT_EQ(0, CHdmi1xVsdb::IsSupported(32, aui8Payload.data()));
    EXPECT_EQ(0, CHdmi1xVsdb::IsSupported(8, nullptr));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
}

TEST(Hdmi1xVsdb, ViewsOfNothingReportAndRefuse)
{
    const auto pui8Short = CopyToHeap({ 3, 0x0C, 0, 0, 0 });
    for (const unsigned int uiLength : { 0U, 5U })
    {
        CHdmi1xVsdb oVsdb(uiLength, uiLength != 0 ? pui8Short.get() : nullptr);
        CCapturedOutput oOutput;
        unsigned int uiBits = 99;
        EXPECT_EQ(0, oVsdb.GetColorBitDepthSupport(uiBits));
        EXPECT_EQ(0U, uiBits);
        EXPECT_EQ(0, oVsdb.SetColorBitDepthSupport(7));
        EXPECT_EQ(2U, oOutput.TakeAssertionCount());
        EXPECT_EQ(0, oVsdb.RemoveCea861Vic(95));
        EXPECT_EQ(0U, oVsdb.ExtractTimings());
    }
}

// ---- Through the block ----

TEST(Cea861ColourDepth, JoinsAndWritesAllHdmiVendorBlocks)
{
    const CBytes aui8Blocks = { 0x68, 3, 0x0C, 0,    0, 0, 0x10, 0,    0,      //
                                0x65, 3, 0x0C, 0,    0, 0,                     // too short to be one
                                0x68, 1, 2,    3,    0, 0, 0x70, 0,    0,      // another vendor
                                0x69, 3, 0x0C, 0,    0, 0, 0xC8, 0,    0, 0,   //
                                0xE9, 1, 3,    0x0C, 0, 0, 0,    0x20, 0, 0 }; // extended: not for depth
    const auto poBlock = LoadBlock(CCeaBlockBuilder().Bytes(aui8Blocks).Detailed({ 1 }).Get());
    unsigned int uiBits = 0;
    EXPECT_EQ(1, poBlock->GetColorBitDepthSupport(uiBits));
    EXPECT_EQ(5U, uiBits);
    for (const unsigned int uiNew : { 3U, 0U, 6U })
    {
        const CEditCheck oCheck(*poBlock);
        EXPECT_EQ(1, poBlock->SetColorBitDepthSupport(uiNew | 0xFFFFFFF8));
        oCheck.ExpectEdited({ { 10, 1 }, { 34, 1 } });
        EXPECT_EQ(uiNew * 16, poBlock->GetData()[10]);
        EXPECT_EQ(0x88 + uiNew * 16, poBlock->GetData()[34]) << "the other bits stay";
        EXPECT_EQ(1, poBlock->GetColorBitDepthSupport(uiBits));
        EXPECT_EQ(uiNew, uiBits);
    }
}
}
