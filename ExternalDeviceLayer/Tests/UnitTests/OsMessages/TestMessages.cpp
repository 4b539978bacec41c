// The message members of OsServices: gates, head, prefix, and the line that a guard writes.

#include <limits.h>

#include <string>
#include <vector>

#include "CapturedOutput.h"
#include "ZorAssert.h"

namespace
{
std::vector<std::string> g_asFormats; // what came to the client's writer
}

// A program may bring a writer of its own in place of the client's.
int OsServices_WriteMsg(const char* pszFormat, va_list oList)
{
    g_asFormats.emplace_back(pszFormat);
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
        g_asFormats.clear();
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
    int bError = 9;
    int bUser = 9;
    int bInfo = 9;
    OsServices::GetMsgLevel(&bError, &bUser, &bInfo);
    EXPECT_EQ(1, bError);
    EXPECT_EQ(1, bUser);
    EXPECT_EQ(0, bInfo);
    CCapturedOutput oOutput;
    OsServices::WriteErrorMsg("text\n");
    OsServices::WriteMsg("text\n");
    EXPECT_EQ("nr4[0]: (Error) text\n", oOutput.Take());
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

TEST_F(Messages, HeadAndTextComeToTheWriterOneAfterTheOther)
{
    OsServices::SetMsgLevel(1, 1, 1);
    WriteAll();
    const std::vector<std::string> asExpected = { "%s[%llu]: (Error) ", "e%d\n", "%s[%llu]: (Info) ", "u%s\n",
                                                  "%s[%llu]: (Debug) ", "d%c\n" };
    EXPECT_EQ(asExpected, g_asFormats);
}

TEST_F(Messages, HeadCanBeLeftOut)
{
    OsServices::SetMsgPrefixEnable(0);
    EXPECT_EQ("e1\nu2\n", WriteAll());
    OsServices::SetMsgPrefixEnable(-2);
    EXPECT_EQ("nr4[0]: (Error) e1\nnr4[0]: (Info) u2\n", WriteAll());
}

TEST_F(Messages, HeadCarriesPrefixAndReferenceId)
{
    OsServices::SetMsgReferenceId(ULONG_MAX);
    OsServices::SetMsgPrefix("%d"); // text, not a format
    EXPECT_EQ("%d[18446744073709551615]: (Error) e1\n%d[18446744073709551615]: (Info) u2\n", WriteAll());
    OsServices::SetMsgPrefix("");
    OsServices::SetMsgReferenceId(7);
    EXPECT_EQ("[7]: (Error) e1\n[7]: (Info) u2\n", WriteAll());
}

TEST_F(Messages, PrefixIsCutTo63Characters)
{
    for (size_t uiLength : { 62U, 63U, 64U, 65U, 200U })
    {
        OsServices::SetMsgPrefix(std::string(uiLength, 'p').c_str());
        CCapturedOutput oOutput;
        OsServices::WriteErrorMsg("x");
        EXPECT_EQ(std::string(uiLength < 63 ? uiLength : 63, 'p') + "[0]: (Error) x", oOutput.Take()) << uiLength;
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
