// The view of an HDMI vendor block: where its video codes are, taking one out, deep colour.

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "CaseFile.h"
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

const CBytes gsc_aui8Start = { 0x03, 0x0C, 0x00, 0x10, 0x00, 0x80, 0x00 }; // up to the presence byte

TEST(Hdmi1xVsdb, FindsItsVideoCodesAndRemovesOne)
{
    for (const SCaseRow& oRow : ReadCases("ExtBlocks/golden/hdmi.txt", 5))
    {
        SCOPED_TRACE(oRow.GetName());
        const bool bRefused = oRow.GetText(4) == "=";
        const CBytes aui8Payload = Join({ gsc_aui8Start, oRow.GetBytes(1) });
        const unsigned int uiLength = static_cast<unsigned int>(aui8Payload.size());
        const auto pui8Exact = CopyToHeap(aui8Payload);
        CHdmi1xVsdb oVsdb(uiLength, pui8Exact.get());
        EXPECT_EQ(oRow.GetNumbers(2), GetCeaVics(oVsdb));
        EXPECT_EQ(oRow.GetNumbers(2).size(), oVsdb.ExtractTimings());
        EXPECT_EQ(bRefused ? 0 : 1, oVsdb.RemoveCea861Vic(oRow.GetNumber(3)));
        EXPECT_EQ(Join({ gsc_aui8Start, oRow.GetBytes(bRefused ? 1 : 4) }),
                  CBytes(pui8Exact.get(), pui8Exact.get() + uiLength));
        EXPECT_EQ(GetCeaVics(CHdmi1xVsdb(uiLength, pui8Exact.get())), GetCeaVics(oVsdb));
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
} // namespace
