// The message members of OsServices: gates, head, prefix, and the line that a guard writes.

#include <limits.h>

#include <string>

#include "CapturedOutput.h"
#include "ZorAssert.h"

namespace
{
constinit std::string* g_psFormats = nullptr; // receives the formats that come to the client's writer
}

// A program may bring a writer of its own in place of the client's.
int OsServices_WriteMsg(const char* pszFormat, va_list oList)
{
    if (g_psFormats != nullptr)
    {
        *g_psFormats += std::string("|") + pszFormat;
    }
    return vfprintf(stdout, pszFormat, oList);
}

namespace
{
// Each test starts from the values at program start and leaves them behind.
class Messages : public testing::Test
{
protected:
    Messages() { Reset(); }
    ~Messages() override { Reset(); }

    static void Reset()
    {
        OsServices::SetMsgLevel(1, 1, 0);
        OsServices::SetMsgPrefix("nr4");
        OsServices::SetMsgPrefixEnable(1);
        OsServices::SetMsgReferenceId(0);
    }

    // What the three writers give for one text each.
    static std::string WriteAll()
    {
        CCapturedOutput oOutput;
        OsServices::WriteErrorMsg("e%d\n", 1);
        OsServices::WriteUserMsg("u%s\n", "2");
        OsServices::WriteMsg("d%c\n", '3');
        return oOutput.Take();
    }
};
}

// Runs before anything has set a switch only when it is the first test of the process, which ctest's one process for
// each test makes it.
TEST(MessagesAtStart, DebugLinesAreOff)
{
    CCapturedOutput oOutput;
    OsServices::WriteErrorMsg("text\n");
    OsServices::WriteUserMsg("text\n");
    OsServices::WriteMsg("text\n");
    EXPECT_EQ("nr4[0]: (Error) text\nnr4[0]: (Info) text\n", oOutput.Take());
}

TEST_F(Messages, EachGateOpensOneWriter)
{
    struct SCase
    {
        int m_bError, m_bUser, m_bInfo;
        const char* m_szExpected;
    };
    const SCase aoCases[] = {
        { 0, 0, 0, "" },
        { 1, 0, 0, "nr4[0]: (Error) e1\n" },
        { 0, 1, 0, "nr4[0]: (Info) u2\n" },
        { 0, 0, 1, "nr4[0]: (Debug) d3\n" },
        { -1, 2, INT_MIN, "nr4[0]: (Error) e1\nnr4[0]: (Info) u2\nnr4[0]: (Debug) d3\n" },
    };
    for (const SCase& oCase : aoCases)
    {
        OsServices::SetMsgLevel(oCase.m_bError, oCase.m_bUser, oCase.m_bInfo);
        EXPECT_EQ(oCase.m_szExpected, WriteAll());
        int bError = 9;
        int bUser = 9;
        int bInfo = 9;
        OsServices::GetMsgLevel(&bError, nullptr, nullptr);
        OsServices::GetMsgLevel(nullptr, &bUser, &bInfo);
        OsServices::GetMsgLevel(nullptr, nullptr, nullptr);
        EXPECT_EQ(oCase.m_bError, bError); // kept as given
        EXPECT_EQ(oCase.m_bUser, bUser);
        EXPECT_EQ(oCase.m_bInfo, bInfo);
    }
}

TEST_F(Messages, HeadAndTextAreTwoWrites)
{
    std::string sFormats;
    g_psFormats = &sFormats;
    OsServices::SetMsgLevel(1, 1, 1);
    WriteAll();
    OsServices::SetMsgPrefixEnable(0);
    EXPECT_EQ("e1\nu2\nd3\n", WriteAll());
    g_psFormats = nullptr;
    EXPECT_EQ("|%s[%llu]: (Error) |e%d\n|%s[%llu]: (Info) |u%s\n|%s[%llu]: (Debug) |d%c\n|e%d\n|u%s\n|d%c\n", sFormats);
}

TEST_F(Messages, HeadCarriesPrefixAndReferenceId)
{
    OsServices::SetMsgReferenceId(ULONG_MAX);
    OsServices::SetMsgPrefix("%d"); // text, not a format
    OsServices::SetMsgPrefixEnable(-2);
    EXPECT_EQ("%d[18446744073709551615]: (Error) e1\n%d[18446744073709551615]: (Info) u2\n", WriteAll());
    for (size_t uiLength : { 0U, 63U, 64U, 200U })
    {
        OsServices::SetMsgPrefix(std::string(uiLength, 'p').c_str());
        CCapturedOutput oOutput;
        OsServices::WriteErrorMsg("x");
        const std::string sPrefix(uiLength < 63 ? uiLength : 63, 'p');
        EXPECT_EQ(sPrefix + "[18446744073709551615]: (Error) x", oOutput.Take());
    }
}

TEST_F(Messages, InternalWriterHasNoGateAndNoHead)
{
    OsServices::SetMsgLevel(0, 0, 0);
    CCapturedOutput oOutput;
    OsServices::WriteMsgInternal("%s-%d", "text", 3);
    EXPECT_EQ("text-3", oOutput.Take());
}

TEST_F(Messages, FileNameIsTheTailOfAPath)
{
    struct SCase
    {
        const char* m_szPath;
        size_t m_uiTail; // where the name begins
    };
    const SCase aoCases[] = {
        { "", 0 },       { "abc", 0 },     { "/", 0 },     { "a\\b/c", 4 }, { "a/b\\c", 4 },
        { "dir/", 4 },   { "dir\\", 4 },   { "/file", 0 }, { "\\file", 0 }, // a separator in front only
        { "//file", 2 }, { "/a/file", 3 },
    };
    for (const SCase& oCase : aoCases)
    {
        EXPECT_EQ(oCase.m_szPath + oCase.m_uiTail, OsServices::GetFileNameOnlySubSring(oCase.m_szPath))
            << oCase.m_szPath;
    }
}

TEST_F(Messages, AGuardWritesFileAndLineAndGoesOn)
{
    CCapturedOutput oOutput;
    const int iLine = __LINE__ + 1;
    MASSERT_FAILED();
    EXPECT_EQ("nr4[0]: (Error) TestMessages.cpp(" + std::to_string(iLine) + ") Assertion failed\n", oOutput.Take());

    OsServices::SetMsgLevel(0, 1, 1);
    CCapturedOutput oSilent;
    MASSERT_FAILED();
    EXPECT_EQ("", oSilent.Take());
}
