// The message members of OsServices: gates, head, prefix, and the line that a guard writes.

#include <limits.h>

#include <array>
#include <string>

#include "CapturedOutput.h"
#include "ZorAssert.h"

namespace
{
std::string g_sFormats; // those that came to the client's writer
}

// A program may bring a writer of its own in place of the client's.
int OsServices_WriteMsg(const char* pszFormat, va_list oList)
{
    g_sFormats += std::string("|") + pszFormat;
    return vfprintf(stdout, pszFormat, oList);
}

namespace
{
// Each test leaves the values of program start.
class Messages : public testing::Test
{
protected:
    ~Messages() override
    {
        OsServices::SetMsgLevel(1, 1, 0);
        OsServices::SetMsgPrefix("nr4");
        OsServices::SetMsgPrefixEnable(1);
        OsServices::SetMsgReferenceId(0);
    }
};

// What the three writers give for one text each.
std::string WriteAll()
{
    CCapturedOutput oOutput;
    OsServices::WriteErrorMsg("e%d\n", 1);
    OsServices::WriteUserMsg("u%s\n", "2");
    OsServices::WriteMsg("d%c\n", '3');
    return oOutput.Take();
}
} // namespace

// Nothing has set a switch before: it is the first test here, and ctest gives each test a process.
TEST(MessagesAtStart, DebugLinesAreOff) { EXPECT_EQ("nr4[0]: (Error) e1\nnr4[0]: (Info) u2\n", WriteAll()); }

TEST_F(Messages, EachGateOpensOneWriter)
{
    for (unsigned int uiGates = 0; uiGates < 8; ++uiGates)
    {
        const bool bError = (uiGates & 1) != 0, bUser = (uiGates & 2) != 0, bInfo = (uiGates & 4) != 0;
        const std::array<int, 3> abLevels = { bError ? -1 : 0, bUser ? 2 : 0, bInfo ? INT_MIN : 0 };
        OsServices::SetMsgLevel(abLevels[0], abLevels[1], abLevels[2]);
        EXPECT_EQ(std::string(bError ? "nr4[0]: (Error) e1\n" : "") + (bUser ? "nr4[0]: (Info) u2\n" : "") +
                      (bInfo ? "nr4[0]: (Debug) d3\n" : ""),
                  WriteAll());
        std::array<int, 3> abRead = { 9, 9, 9 };
        OsServices::GetMsgLevel(&abRead[0], nullptr, nullptr);
        OsServices::GetMsgLevel(nullptr, &abRead[1], &abRead[2]);
        EXPECT_EQ(abLevels, abRead) << "kept as given";
    }
}

TEST_F(Messages, HeadAndTextAreTwoWrites)
{
    OsServices::SetMsgLevel(1, 1, 1);
    g_sFormats.clear();
    WriteAll();
    OsServices::SetMsgPrefixEnable(0);
    EXPECT_EQ("e1\nu2\nd3\n", WriteAll());
    EXPECT_EQ("|%s[%llu]: (Error) |e%d\n|%s[%llu]: (Info) |u%s\n|%s[%llu]: (Debug) |d%c\n|e%d\n|u%s\n|d%c\n",
              g_sFormats);
    OsServices::SetMsgLevel(0, 0, 0);
    CCapturedOutput oOutput;
    OsServices::WriteMsgInternal("%s-%d", "text", 3); // neither gate nor head
    EXPECT_EQ("text-3", oOutput.Take());
}

TEST_F(Messages, AWriterTakesOverHeadAndText)
{
    static std::string s_sWritten;
    s_sWritten.clear();
    OsServices::SetMsgWriter([](const char* pszFormat, va_list oList) {
        char szText[64];
        vsnprintf(szText, sizeof(szText), pszFormat, oList);
        s_sWritten += std::string("|") + szText;
    });
    EXPECT_EQ("", WriteAll());
    OsServices::WriteMsgInternal("i%d", 4);
    EXPECT_EQ("|nr4[0]: (Error) |e1\n|nr4[0]: (Info) |u2\n|i4", s_sWritten);
    OsServices::SetMsgWriter(nullptr);
    EXPECT_EQ("nr4[0]: (Error) e1\nnr4[0]: (Info) u2\n", WriteAll());
}

TEST_F(Messages, HeadCarriesPrefixAndReferenceId)
{
    OsServices::SetMsgReferenceId(ULONG_MAX);
    OsServices::SetMsgPrefixEnable(-2);
    const std::string sLongest(63, 'p');
    for (const std::string& sPrefix : { std::string("%d"), std::string(), sLongest, sLongest + "q" }) // never a format
    {
        OsServices::SetMsgPrefix(sPrefix.c_str());
        const std::string sHead = sPrefix.substr(0, 63) + "[18446744073709551615]: ";
        EXPECT_EQ(sHead + "(Error) e1\n" + sHead + "(Info) u2\n", WriteAll());
    }
}

TEST_F(Messages, FileNameIsTheTailOfAPath)
{
    // Where the name begins. A separator in front only does not count.
    const std::pair<const char*, size_t> aoCases[] = {
        { "", 0 },      { "abc", 0 },   { "/", 0 },      { "a\\b/c", 4 }, { "a/b\\c", 4 },  { "dir/", 4 },
        { "dir\\", 4 }, { "/file", 0 }, { "\\file", 0 }, { "//file", 2 }, { "/a/file", 3 },
    };
    for (const auto& [pszPath, uiTail] : aoCases)
    {
        EXPECT_EQ(pszPath + uiTail, OsServices::GetFileNameOnlySubSring(pszPath));
    }
}

TEST_F(Messages, AGuardWritesFileAndLineAndGoesOn)
{
    CCapturedOutput oOutput;
    const int iLine = __LINE__ + 1;
    MASSERT_FAILED();
    OsServices::SetMsgLevel(0, 1, 1);
    MASSERT_FAILED(); // its gate is that of errors
    EXPECT_EQ("nr4[0]: (Error) MessagesTest.cpp(" + std::to_string(iLine) + ") Assertion failed\n", oOutput.Take());
}
