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
}

// Runs before anything has set a switch only when it is the first test of the process, which ctest's one process for
// each test makes it.
TEST(MessagesAtStart, DebugLinesAreOff) { EXPECT_EQ("nr4[0]: (Error) e1\nnr4[0]: (Info) u2\n", WriteAll()); }

TEST_F(Messages, EachGateOpensOneWriter)
{
    struct SCase
    {
        int m_bError, m_bUser, m_bInfo;
        const char* m_pszExpected;
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
        EXPECT_EQ(oCase.m_pszExpected, WriteAll());
        int abLevels[3] = { 9, 9, 9 };
        OsServices::GetMsgLevel(abLevels, nullptr, nullptr);
        OsServices::GetMsgLevel(nullptr, abLevels + 1, abLevels + 2);
        EXPECT_EQ(oCase.m_bError, abLevels[0]); // kept as given
        EXPECT_EQ(oCase.m_bUser, abLevels[1]);
        EXPECT_EQ(oCase.m_bInfo, abLevels[2]);
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

    OsServices::SetMsgLevel(0, 0, 0);
    CCapturedOutput oOutput;
    OsServices::WriteMsgInternal("%s-%d", "text", 3); // neither gate nor head
    EXPECT_EQ("text-3", oOutput.Take());
}

TEST_F(Messages, HeadCarriesPrefixAndReferenceId)
{
    OsServices::SetMsgReferenceId(ULONG_MAX);
    OsServices::SetMsgPrefixEnable(-2);
    const std::string sLongest(63, 'p');
    const std::string aasPrefixes[][2] = {
        { "%d", "%d" }, { "", "" }, { sLongest, sLongest }, { sLongest + "p", sLongest } // text, not a format
    };
    for (const auto& asPrefix : aasPrefixes)
    {
        OsServices::SetMsgPrefix(asPrefix[0].c_str());
        const std::string sHead = asPrefix[1] + "[18446744073709551615]: ";
        EXPECT_EQ(sHead + "(Error) e1\n" + sHead + "(Info) u2\n", WriteAll());
    }
}

TEST_F(Messages, FileNameIsTheTailOfAPath)
{
    struct SCase
    {
        const char* m_pszPath;
        size_t m_uiTail; // where the name begins
    };
    const SCase aoCases[] = {
        { "", 0 },       { "abc", 0 },     { "/", 0 },     { "a\\b/c", 4 }, { "a/b\\c", 4 },
        { "dir/", 4 },   { "dir\\", 4 },   { "/file", 0 }, { "\\file", 0 }, // a separator in front only
        { "//file", 2 }, { "/a/file", 3 },
    };
    for (const SCase& oCase : aoCases)
    {
        EXPECT_EQ(oCase.m_pszPath + oCase.m_uiTail, OsServices::GetFileNameOnlySubSring(oCase.m_pszPath));
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
