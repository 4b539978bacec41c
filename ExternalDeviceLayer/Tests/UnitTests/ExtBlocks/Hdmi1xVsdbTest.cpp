// The view of an HDMI vendor block: where its video codes stand, taking one out, deep colour; alone and through a
// block.

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "Cea861TestHelp.h"
#include "EditCheck.h"
#include "Hdmi1xVsdb.h"

namespace
{
using SBytes = std::vector<unsigned char>;

std::vector<unsigned int> GetCeaVics(const CHdmi1xVsdb& oVsdb)
{
    std::vector<unsigned int> auiVics;
    for (unsigned int i = 0; oVsdb.EnumCea861Vic(i) != 0; ++i)
    {
        auiVics.push_back(oVsdb.EnumCea861Vic(i));
    }
    return auiVics;
}

unsigned int Length(const SBytes& aui8Bytes) { return static_cast<unsigned int>(aui8Bytes.size()); }

struct SHdmiCase
{
    const char* m_szName;
    SBytes m_aui8Payload; // behind the identifier
    std::vector<unsigned int> m_auiVics;
};

const SHdmiCase gsc_aoHdmiCases[] = {
    { "NoLatency", { 0x10, 0, 0x80, 0, 0x20, 0x00, 0x80, 1, 2, 3, 4 }, { 95, 94, 93, 98 } },
    { "Latency", { 0x10, 0, 0x80, 0, 0xA0, 9, 9, 0x00, 0x20, 2 }, { 94 } },
    { "InterlacedLatencyAlone", { 0x10, 0, 0x80, 0, 0x60, 9, 9, 0x00, 0x20, 2 }, { 94 } },
    { "BothLatencies", { 0x10, 0, 0x80, 0, 0xE0, 9, 9, 9, 9, 0x00, 0x20, 2 }, { 94 } },
    { "NoVideoFields", { 0x10, 0, 0x80, 0, 0x00, 0x00, 0x20, 1 }, {} },
    { "CountOf0", { 0x10, 0, 0x80, 0, 0x20, 0x00, 0x1F, 1 }, {} },
    { "CountRunsPastThePayload", { 0x10, 0, 0x80, 0, 0x20, 0x00, 0x60, 1, 2 }, {} },
    { "CountEndsWithThePayload", { 0x10, 0, 0x80, 0, 0x20, 0x00, 0x40, 1, 2 }, { 95, 94 } },
    { "UnknownCodesArePassedOver", { 0x10, 0, 0x80, 0, 0x20, 0x00, 0xA0, 5, 1, 0, 255, 4 }, { 95, 98 } },
    { "NoRoomForTheLengths", { 0x10, 0, 0x80, 0, 0x20, 0x00 }, {} },
    { "NoRoomForVideoFields", { 0x10, 0, 0x80, 0, 0x20 }, {} },
    { "LatencyRunsPastThePayload", { 0x10, 0, 0x80, 0, 0xE0, 9 }, {} },
};

TEST(Hdmi1xVsdb, FindsItsVideoCodes)
{
    for (const SHdmiCase& oCase : gsc_aoHdmiCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        SBytes aui8Payload = { 0x03, 0x0C, 0x00 };
        aui8Payload.insert(aui8Payload.end(), oCase.m_aui8Payload.begin(), oCase.m_aui8Payload.end());
        aui8Payload.shrink_to_fit();
        CHdmi1xVsdb oVsdb(Length(aui8Payload), aui8Payload.data());
        EXPECT_EQ(oCase.m_auiVics, GetCeaVics(oVsdb));
        EXPECT_EQ(oCase.m_auiVics.size(), oVsdb.ExtractTimings());
        EXPECT_EQ(0U, oVsdb.EnumCea861Vic(0xFFFFFFFF));
    }
}

TEST(Hdmi1xVsdb, RemovalClosesTheGapAndLeavesThe3dData)
{
    const SBytes aui8Before = { 3, 0x0C, 0, 0, 0, 0, 0, 0x20, 0xA0, 0x82, 1, 2, 3, 4, 0x01, 0x41 };
    const std::pair<unsigned int, SBytes> aoCases[] = {
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
        SBytes aui8Payload = aui8Before;
        CHdmi1xVsdb oVsdb(Length(aui8Payload), aui8Payload.data());
        EXPECT_EQ(aui8After != aui8Before, oVsdb.RemoveCea861Vic(uiVic) != 0);
        EXPECT_EQ(aui8After, aui8Payload);
        SBytes aui8Copy = aui8After;
        EXPECT_EQ(GetCeaVics(CHdmi1xVsdb(Length(aui8Copy), aui8Copy.data())), GetCeaVics(oVsdb));
    }
}

TEST(Hdmi1xVsdb, AnUnknownCodeIsNotCode0)
{
    SBytes aui8Payload = { 3, 0x0C, 0, 0, 0, 0, 0, 0x20, 0, 0x40, 9, 0 };
    CHdmi1xVsdb oVsdb(Length(aui8Payload), aui8Payload.data());
    EXPECT_EQ(0, oVsdb.RemoveCea861Vic(0));
    EXPECT_EQ(0x40, aui8Payload[9]);
}

TEST(Hdmi1xVsdb, SupportedByLengthAndIdentifier)
{
    SBytes aui8Payload(31);
    aui8Payload[0] = 3;
    aui8Payload[1] = 0x0C;
    for (unsigned int uiLength = 0; uiLength <= 31; ++uiLength)
    {
        EXPECT_EQ(uiLength >= 8, CHdmi1xVsdb::IsSupported(uiLength, aui8Payload.data()) != 0) << uiLength;
    }
    for (unsigned int i = 0; i < 3; ++i)
    {
        SBytes aui8Other = aui8Payload;
        aui8Other[i] ^= 0x80;
        EXPECT_FALSE(CHdmi1xVsdb::IsSupported(31, aui8Other.data()));
    }
    CCapturedOutput oOutput;
    EXPECT_FALSE(CHdmi1xVsdb::IsSupported(7, nullptr)) << "silent";
    EXPECT_FALSE(CHdmi1xVsdb::IsSupported(32, aui8Payload.data()));
    EXPECT_FALSE(CHdmi1xVsdb::IsSupported(8, nullptr));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
}

TEST(Hdmi1xVsdb, ConvertsFourCodes)
{
    const unsigned char aui8Expected[] = { 0, 95, 94, 93, 98, 0 };
    for (unsigned int i = 0; i < 256; ++i)
    {
        unsigned char ui8Vic = 77;
        const bool bKnown = i >= 1 && i <= 4;
        EXPECT_EQ(bKnown ? 1 : 0, CHdmi1xVsdb::ConvertHdmiVicToCeaVic(static_cast<unsigned char>(i), ui8Vic));
        EXPECT_EQ(bKnown ? aui8Expected[i] : 77, ui8Vic);
    }
}

TEST(Hdmi1xVsdb, ColourDepthBits)
{
    for (unsigned int uiByte = 0; uiByte < 256; ++uiByte)
    {
        SBytes aui8Payload = { 3, 0x0C, 0, 0, 0, static_cast<unsigned char>(uiByte), 0, 0 };
        CHdmi1xVsdb oVsdb(Length(aui8Payload), aui8Payload.data());
        unsigned int uiBits = 99;
        EXPECT_EQ(1, oVsdb.GetColorBitDepthSupport(uiBits));
        EXPECT_EQ(((uiByte & 0x10) ? 1U : 0U) + ((uiByte & 0x20) ? 2U : 0U) + ((uiByte & 0x40) ? 4U : 0U), uiBits);
        for (unsigned int uiNew = 0; uiNew < 8; ++uiNew)
        {
            EXPECT_EQ(1, oVsdb.SetColorBitDepthSupport(uiNew | 0xFFFFFFF8));
            EXPECT_EQ((uiByte & 0x8F) | uiNew * 16, aui8Payload[5]);
        }
    }
}

TEST(Hdmi1xVsdb, ViewsOfNothingReportAndRefuse)
{
    SBytes aui8Short = { 3, 0x0C, 0, 0, 0 };
    aui8Short.shrink_to_fit();
    CHdmi1xVsdb oNull(0, nullptr);
    CHdmi1xVsdb oShort(Length(aui8Short), aui8Short.data());
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
    const auto MakeBlocks = [](unsigned char ui8First, unsigned char ui8Second, unsigned char ui8Third) {
        return CCeaBlockBuilder()
            .Bytes({ 0x68, 3, 0x0C, 0,    0, 0, ui8First,  0,        0,      //
                     0x65, 3, 0x0C, 0,    0, 0,                              // too short to be one
                     0x68, 1, 2,    3,    0, 0, 0x70,      0,        0,      // another vendor
                     0x69, 3, 0x0C, 0,    0, 0, ui8Second, 0,        0, 0,   //
                     0xE9, 1, 3,    0x0C, 0, 0, 0,         ui8Third, 0, 0 }) // extended: not for depth
            .Detailed({ 1 })
            .Get();
    };
    const auto poBlock = LoadBlock(MakeBlocks(0x10, 0xC8, 0x20));
    unsigned int uiBits = 0;
    EXPECT_EQ(1, poBlock->GetColorBitDepthSupport(uiBits));
    EXPECT_EQ(5U, uiBits);
    const CEditCheck oCheck(*poBlock);
    EXPECT_EQ(1, poBlock->SetColorBitDepthSupport(3));
    oCheck.ExpectEdited({ { 4 + 1 + 5, 1 }, { 4 + 9 + 6 + 9 + 1 + 5, 1 } });
    EXPECT_EQ(MakeBlocks(0x30, 0xB8, 0x20), GetBytes(*poBlock));
    EXPECT_EQ(1, poBlock->GetColorBitDepthSupport(uiBits));
    EXPECT_EQ(3U, uiBits);
}

TEST(Cea861ColourDepth, NoHdmiBlockAnswersYesWithNothing)
{
    const SCeaBlock aui8Block = CCeaBlockBuilder().Bytes({ 0x41, 0x10 }).Get();
    const auto poBlock = LoadBlock(aui8Block);
    unsigned int uiBits = 9;
    EXPECT_EQ(1, poBlock->GetColorBitDepthSupport(uiBits));
    EXPECT_EQ(0U, uiBits);
    EXPECT_EQ(1, poBlock->SetColorBitDepthSupport(7));
    EXPECT_EQ(aui8Block, GetBytes(*poBlock));
}
}
