// CMString: when buffers are shared, copied and given back; searching, changing and cutting.

#include <limits.h>
#include <sys/mman.h>
#include <unistd.h>

#include <vector>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "StringProbe.h"

namespace
{
int Refs(const CMString& oString) { return CStringProbe::GetRefs(oString); }

bool IsShared(const CMString& oFirst, const CMString& oSecond) { return Text(oFirst) == Text(oSecond); }

// A text longer than INT_MAX without the memory for it: one small file mapped again and again. Null where the system
// does not map that much.
class CHugeText
{
public:
    CHugeText()
    {
        const std::vector<char> acPart(msc_uiPartSize, 'x');
        const int iFile = memfd_create("text", 0);
        if (iFile < 0)
        {
            return;
        }
        bool bIsMapped = write(iFile, acPart.data(), msc_uiPartSize) == static_cast<ssize_t>(msc_uiPartSize);
        // Zero behind the last part, which ends the text.
        void* pAll = mmap(nullptr, msc_uiSize, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        m_pszText = pAll != MAP_FAILED ? static_cast<char*>(pAll) : nullptr;
        bIsMapped = bIsMapped && m_pszText != nullptr;
        for (size_t i = 0; i < msc_uiParts && bIsMapped; ++i)
        {
            void* pPart = m_pszText + i * msc_uiPartSize;
            bIsMapped = mmap(pPart, msc_uiPartSize, PROT_READ, MAP_SHARED | MAP_FIXED, iFile, 0) == pPart;
        }
        close(iFile);
        if (!bIsMapped)
        {
            Unmap();
        }
    }
    ~CHugeText() { Unmap(); }
    CHugeText(const CHugeText&) = delete;
    CHugeText& operator=(const CHugeText&) = delete;

    const char* Get() const { return m_pszText; }

private:
    static constexpr size_t msc_uiPartSize = 1UL << 20;
    static constexpr size_t msc_uiParts = 1UL << 11; // 2 GiB of characters
    static constexpr size_t msc_uiSize = (msc_uiParts + 1) * msc_uiPartSize;

    void Unmap()
    {
        if (m_pszText != nullptr)
        {
            munmap(m_pszText, msc_uiSize);
            m_pszText = nullptr;
        }
    }

    char* m_pszText = nullptr;
};

// The bytes of the shared empty string must stay as they are whatever a test does.
class String : public testing::Test
{
protected:
    ~String() override
    {
        EXPECT_EQ(-1, CStringProbe::GetNilMetaData().m_iRefs);
        EXPECT_EQ(0, CStringProbe::GetNilMetaData().m_iDataLength);
        EXPECT_EQ(0, CStringProbe::GetNilMetaData().m_iAllocLength);
        EXPECT_EQ('\0', *CStringProbe::GetNil());
    }

    CCountingAllocator m_oHeap; // checks that everything is given back
};

using StringSharing = String;
using StringBuffer = String;
using StringLock = String;
using StringEdit = String;
using StringSearch = String;
using StringParts = String;
}

TEST_F(String, EmptyOnesShareAConstantWithoutMemory)
{
    const CMString oDefault;
    const CMString oNull(static_cast<const char*>(nullptr));
    const CMString oEmpty("");
    const CMString oNone('x', 0);
    const CMString oNegative('x', -3);
    const CMString oNoneUnsigned('x', 0U);
    const CMString oCopy(oDefault);
    const CMString* const apoStrings[] = { &oDefault,  &oNull,         &oEmpty, &oNone,
                                           &oNegative, &oNoneUnsigned, &oCopy,  CMString::m_poEmptyString };
    for (const CMString* poString : apoStrings)
    {
        EXPECT_EQ(CStringProbe::GetNil(), Text(*poString));
        EXPECT_EQ(0, poString->GetLength());
    }
    EXPECT_EQ(0U, m_oHeap.GetAllocCount());
}

TEST_F(String, BuffersAreExact)
{
    const CMString oText("abc");
    EXPECT_EQ(sizeof(CMString::SMetaData) + 4, m_oHeap.GetLastSize());
    EXPECT_EQ(3, oText.GetLength());
    EXPECT_EQ(3, oText.GetAllocLength());
    EXPECT_STREQ("zzz", CMString('z', 3));
    EXPECT_STREQ("zz", CMString('z', 2U));
}

TEST_F(String, ComparesTextsNotBuffers)
{
    const CMString oFirst("abc");
    const CMString oSecond("abc");
    EXPECT_FALSE(IsShared(oFirst, oSecond));
    EXPECT_TRUE(oFirst == oSecond);
    EXPECT_TRUE(oFirst == "abc");
    EXPECT_TRUE("abc" == oFirst);
    EXPECT_TRUE(oFirst != "abd");
    EXPECT_TRUE(CMString() == static_cast<const char*>(nullptr));
}

TEST_F(String, LengthsThatCannotBeReport)
{
    CMString oText("abc");
    CCapturedOutput oOutput;
    EXPECT_EQ(nullptr, oText.GetBuffer(INT_MAX));
    EXPECT_EQ(nullptr, oText.GetBufferSetLength(INT_MAX));
    EXPECT_EQ(nullptr, oText.GetBufferSetLength(-1));
    EXPECT_STREQ("", CMString('x', INT_MAX));
    oText.ReleaseBuffer(4);
    oText.ReleaseBuffer(-2);
    EXPECT_EQ(6U, oOutput.TakeAssertionCount());
    EXPECT_STREQ("abc", oText);
}

TEST_F(String, TextsBeyondTheLongestLengthAreRefused)
{
    const CHugeText oHuge;
    if (oHuge.Get() == nullptr)
    {
        GTEST_SKIP() << "the system does not map 2 GiB";
    }
    CMString oText("abc");
    CCapturedOutput oOutput;
    EXPECT_STREQ("", CMString(oHuge.Get()));
    oText = oHuge.Get();
    oText += oHuge.Get();
    EXPECT_EQ(3, oText.Insert(1, oHuge.Get()));
    oText.Format("%s", oHuge.Get());
    EXPECT_EQ(5U, oOutput.TakeAssertionCount());
    EXPECT_STREQ("abc", oText);
}

TEST_F(StringSharing, CopiesShareUntilOneChanges)
{
    CMString oFirst("abc");
    CMString oSecond(oFirst);
    EXPECT_TRUE(IsShared(oFirst, oSecond));
    EXPECT_EQ(2, Refs(oFirst));
    EXPECT_EQ(1U, m_oHeap.GetAllocCount());
    oSecond.SetAt(0, 'x');
    EXPECT_STREQ("abc", oFirst);
    EXPECT_STREQ("xbc", oSecond);
    EXPECT_EQ(1, Refs(oFirst));
    EXPECT_EQ(1, Refs(oSecond));
}

// Every changing operation leaves the other holder of the buffer alone.
TEST_F(StringSharing, NoChangeReachesTheOtherHolder)
{
    struct SCase
    {
        const char* m_szName;
        void (*m_pfnChange)(CMString& oText);
        const char* m_szExpected;
    };
    const SCase aoCases[] = {
        { "SetAt", [](CMString& oText) { oText.SetAt(1U, '-'); }, " -b " },
        { "InsertChar", [](CMString& oText) { oText.Insert(1, 'x'); }, " xAb " },
        { "InsertText", [](CMString& oText) { oText.Insert(4U, "yz"); }, " Ab yz" },
        { "InsertItself", [](CMString& oText) { oText.Insert(2, Text(oText) + 1); }, " AAb b " },
        { "Delete", [](CMString& oText) { oText.Delete(0U, 2U); }, "b " },
        { "Empty", [](CMString& oText) { oText.Empty(); }, "" },
        { "MakeUpper", [](CMString& oText) { oText.MakeUpper(); }, " AB " },
        { "MakeLower", [](CMString& oText) { oText.MakeLower(); }, " ab " },
        { "MakeReverse", [](CMString& oText) { oText.MakeReverse(); }, " bA " },
        { "TrimLeft", [](CMString& oText) { oText.TrimLeft(" "); }, "Ab " },
        { "TrimRight", [](CMString& oText) { oText.TrimRight(" "); }, " Ab" },
        { "Trim", [](CMString& oText) { oText.Trim(" "); }, "Ab" },
        { "AppendChar", [](CMString& oText) { oText += 'x'; }, " Ab x" },
        { "AppendText", [](CMString& oText) { oText += "xy"; }, " Ab xy" },
        { "AppendItself", [](CMString& oText) { oText += oText; }, " Ab  Ab " },
        { "AssignText", [](CMString& oText) { oText = "longer text"; }, "longer text" },
        { "AssignOwnTail", [](CMString& oText) { oText = Text(oText) + 2; }, "b " },
        { "AssignChar", [](CMString& oText) { oText = 'c'; }, "c" },
        { "AssignNull", [](CMString& oText) { oText = static_cast<const char*>(nullptr); }, "" },
        { "AssignString", [](CMString& oText) { oText = CMString("other"); }, "other" },
        { "GetBuffer", [](CMString& oText) { oText.GetBuffer(0)[0] = 'x'; }, "xAb " },
        { "SetLength", [](CMString& oText) { oText.GetBufferSetLength(2); }, " A" },
        { "ReleaseBuffer", [](CMString& oText) { oText.ReleaseBuffer(1); }, " " },
        { "Format", [](CMString& oText) { oText.Format("%d", 7); }, "7" },
        { "AppendFormat", [](CMString& oText) { oText.AppendFormat("%d", 7); }, " Ab 7" },
        { "LockBuffer",
          [](CMString& oText) {
              oText.LockBuffer()[1] = 'x';
              oText.UnlockBuffer();
          },
          " xb " },
    };
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const CMString oHolder(" Ab ");
        CMString oShared(oHolder);
        oCase.m_pfnChange(oShared);
        EXPECT_STREQ(oCase.m_szExpected, oShared);
        EXPECT_EQ(static_cast<int>(ZorTools_strlen(oShared)), oShared.GetLength());
        EXPECT_STREQ(" Ab ", oHolder);
        EXPECT_EQ(1, Refs(oHolder));

        CMString oPrivate(static_cast<const char*>(oHolder)); // the same in place
        oCase.m_pfnChange(oPrivate);
        EXPECT_STREQ(oCase.m_szExpected, oPrivate);
    }
}

TEST_F(StringSharing, AssignmentSharesOrKeepsTheBuffer)
{
    CMString oFirst("abc");
    const CMString& oSelf = oFirst;
    oFirst = oSelf;
    CMString oSecond;
    oSecond = oFirst;
    oSecond = oFirst; // sharing already
    EXPECT_EQ(2, Refs(oFirst));
    EXPECT_EQ(1U, m_oHeap.GetAllocCount());

    CMString oLarge("a long text");
    const char* pszBuffer = oLarge;
    oLarge = "short"; // a buffer once large stays
    EXPECT_EQ(pszBuffer, Text(oLarge));
    EXPECT_EQ(11, oLarge.GetAllocLength());
    oLarge = CMString(); // an empty source gives it back
    EXPECT_EQ(CStringProbe::GetNil(), Text(oLarge));
}

TEST_F(StringSharing, EmptyOnASharedBufferLeavesTheOthers)
{
    const CMString oFirst("abc");
    CMString oSecond(oFirst);
    oSecond.Empty();
    EXPECT_EQ(CStringProbe::GetNil(), Text(oSecond));
    EXPECT_STREQ("abc", oFirst);
    EXPECT_EQ(1, Refs(oFirst));
}

TEST_F(StringBuffer, AppendingReallocatesExactlyEachTime)
{
    CMString oText("a");
    oText += 'b';
    EXPECT_EQ(2, oText.GetAllocLength());
    oText += "cd";
    EXPECT_EQ(4, oText.GetAllocLength());
    oText += CMString();
    EXPECT_EQ(3U, m_oHeap.GetAllocCount());
    oText.GetBuffer(10);
    oText += "ef"; // room is used
    EXPECT_EQ(4U, m_oHeap.GetAllocCount());
    EXPECT_STREQ("abcdef", oText);
    oText.ConcatInPlace(0, nullptr);
    oText.ConcatInPlace(3, nullptr);
    EXPECT_STREQ("abcdef", oText);
}

// The room belongs to the buffer that stays with the other holder.
TEST_F(StringBuffer, ChangingASharedRoomyBufferGivesAnExactOne)
{
    CMString oRoomy("abc");
    oRoomy.GetBuffer(20);
    CMString oChanged(oRoomy);
    oChanged.SetAt(0, 'x');
    EXPECT_STREQ("xbc", oChanged);
    EXPECT_EQ(3, oChanged.GetAllocLength());

    CMString oAppended(oRoomy);
    oAppended.ConcatInPlace(2, "de");
    EXPECT_STREQ("abcde", oAppended);
    EXPECT_EQ(5, oAppended.GetAllocLength());

    EXPECT_STREQ("abc", oRoomy);
    EXPECT_EQ(20, oRoomy.GetAllocLength());
    EXPECT_EQ(1, Refs(oRoomy));
}

TEST_F(StringBuffer, SumsAreNewStrings)
{
    const CMString oFirst("ab");
    const CMString oSecond("cd");
    EXPECT_STREQ("abcd", oFirst + oSecond);
    EXPECT_STREQ("abx", oFirst + "x");
    EXPECT_STREQ("xab", "x" + oFirst);
    EXPECT_STREQ("ab!", oFirst + '!');
    EXPECT_STREQ("!ab", '!' + oFirst);
    EXPECT_STREQ("ab", oFirst + static_cast<const char*>(nullptr));
    EXPECT_EQ(CStringProbe::GetNil(), Text(CMString() + CMString()));
}

TEST_F(StringBuffer, GetBufferKeepsTheTextAndItsLength)
{
    CMString oText("abc");
    char* pszBuffer = oText.GetBuffer(8);
    EXPECT_EQ(3, oText.GetLength());
    EXPECT_EQ(8, oText.GetAllocLength());
    EXPECT_STREQ("abc", pszBuffer);
    EXPECT_EQ(pszBuffer, oText.GetBuffer(5U));
    ZorTools_strcpy_s(pszBuffer, 9, "12345678");
    oText.ReleaseBuffer(-1);
    EXPECT_EQ(8, oText.GetLength());
    oText.ReleaseBuffer(2);
    EXPECT_STREQ("12", oText);
    EXPECT_EQ(8, oText.GetAllocLength());
    oText.FreeExtra();
    EXPECT_EQ(2, oText.GetAllocLength());
    EXPECT_STREQ("12", oText);
    oText.GetBufferSetLength(0U);
    oText.FreeExtra();
    EXPECT_EQ(CStringProbe::GetNil(), Text(oText));
}

TEST_F(StringBuffer, FreeExtraLeavesASharedBufferToTheOthers)
{
    CMString oFirst("abc");
    oFirst.GetBuffer(20);
    CMString oSecond(oFirst);
    oSecond.FreeExtra();
    EXPECT_EQ(3, oSecond.GetAllocLength());
    EXPECT_EQ(20, oFirst.GetAllocLength());
    EXPECT_EQ(1, Refs(oFirst));
}

TEST_F(StringBuffer, TheSharedEmptyStringIsNeverWritten)
{
    CMString oText;
    EXPECT_EQ(CStringProbe::GetNil(), oText.GetBuffer(0));
    EXPECT_EQ(CStringProbe::GetNil(), oText.GetBufferSetLength(0));
    CCapturedOutput oOutput;
    EXPECT_EQ(CStringProbe::GetNil(), oText.GetBufferSetLength(-1));
    EXPECT_EQ(0U, oOutput.TakeAssertionCount());
    EXPECT_EQ(CStringProbe::GetNil(), oText.LockBuffer());
    oText.UnlockBuffer();
    oText.ReleaseBuffer(5);
    oText.ReleaseBuffer(-1);
    oText.FreeExtra();
    oText.Empty();
    oText.MakeUpper().MakeLower().MakeReverse().Trim(" ");
    EXPECT_EQ(0, oText.Delete(0, 1));
    EXPECT_EQ(0, oText.Insert(0, ""));
    EXPECT_EQ(0U, m_oHeap.GetAllocCount());
}

TEST_F(StringLock, ALockedBufferIsCopiedNotShared)
{
    CMString oLocked("abc");
    oLocked.LockBuffer();
    EXPECT_EQ(-1, Refs(oLocked));
    const CMString oCopy(oLocked);
    CMString oAssigned;
    oAssigned = oLocked;
    EXPECT_FALSE(IsShared(oLocked, oCopy));
    EXPECT_FALSE(IsShared(oLocked, oAssigned));
    EXPECT_EQ(1, Refs(oCopy));
    EXPECT_STREQ("abc", oAssigned);
    oLocked.UnlockBuffer();
    EXPECT_EQ(1, Refs(oLocked));
}

TEST_F(StringLock, AssigningToALockedStringCopiesIntoIt)
{
    CMString oLocked("abcdef");
    const char* pszBuffer = oLocked.LockBuffer();
    const CMString oSource("xyz");
    oLocked = oSource;
    EXPECT_EQ(pszBuffer, Text(oLocked));
    EXPECT_STREQ("xyz", oLocked);
    EXPECT_EQ(-1, Refs(oLocked));
    EXPECT_EQ(1, Refs(oSource));
}

TEST_F(StringLock, AssigningAnEmptyTextEndsTheLock)
{
    CMString oByText("abc");
    oByText.LockBuffer();
    oByText = "";
    EXPECT_EQ(CStringProbe::GetNil(), Text(oByText));

    CMString oByString("abc");
    oByString.LockBuffer();
    oByString = CMString();
    EXPECT_EQ(CStringProbe::GetNil(), Text(oByString));
    EXPECT_EQ(0U, m_oHeap.GetLiveCount());
}

TEST_F(StringLock, EmptyKeepsBufferAndLock)
{
    CMString oLocked("abc");
    const char* pszBuffer = oLocked.LockBuffer();
    oLocked.Empty();
    EXPECT_EQ(pszBuffer, Text(oLocked));
    EXPECT_EQ(0, oLocked.GetLength());
    EXPECT_EQ(3, oLocked.GetAllocLength());
    EXPECT_EQ(-1, Refs(oLocked));
}

TEST_F(StringLock, UnlockingWhatIsNotLockedReports)
{
    CMString oFirst("abc");
    const CMString oSecond(oFirst);
    CCapturedOutput oOutput;
    oFirst.UnlockBuffer();
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
    EXPECT_EQ(2, Refs(oFirst)); // the count of holders is not lost
}

TEST_F(StringEdit, IndexesOutsideReport)
{
    CMString oText("abc");
    CMString oEmpty;
    CCapturedOutput oOutput;
    EXPECT_EQ('c', oText.GetAt(2));
    EXPECT_EQ('\0', oText.GetAt(3));
    EXPECT_EQ('\0', oText.GetAt(-1));
    oText.SetAt(3, 'x');
    oText.SetAt(-1, 'x');
    oEmpty.SetAt(0, 'x');
    EXPECT_EQ(5U, oOutput.TakeAssertionCount());
    EXPECT_STREQ("abc", oText);
}

TEST_F(StringEdit, DeleteGivesTheLengthBefore)
{
    struct SCase
    {
        const char* m_szName;
        int m_iIndex;
        int m_iCount;
        const char* m_szExpected;
    };
    const SCase aoCases[] = {
        { "Middle", 1, 2, "ade" },
        { "CountCutAtTheEnd", 3, 9, "abc" },
        { "All", 0, 5, "" },
        { "AllAndMore", 0, INT_MAX, "" },
        { "BehindTheEnd", 9, 1, "abcde" },
        { "AtTheEnd", 5, 1, "abcde" },
        { "NoCount", 1, 0, "abcde" },
        { "NegativeCount", 1, -1, "abcde" },
        { "NegativeIndexKeepsTheCount", -1, 3, "de" },
        { "NegativeIndexPassesTheEnd", -3, 100, "abcde" },
        { "LowestIndex", INT_MIN, INT_MAX, "abcde" },
    };
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CMString oText("abcde");
        EXPECT_EQ(5, oText.Delete(oCase.m_iIndex, oCase.m_iCount));
        EXPECT_STREQ(oCase.m_szExpected, oText);
        EXPECT_EQ(static_cast<int>(ZorTools_strlen(oCase.m_szExpected)), oText.GetLength());
        EXPECT_EQ(5, oText.GetAllocLength());
    }
}

TEST_F(StringEdit, InsertGivesTheLengthAfter)
{
    struct SCase
    {
        const char* m_szName;
        int m_iIndex;
        const char* m_szInserted;
        const char* m_szExpected;
    };
    const SCase aoCases[] = {
        { "Front", 0, "z", "zab" },     { "Middle", 1, "z", "azb" },       { "BeyondTheEnd", 99, "z", "abz" },
        { "Negative", -5, "z", "zab" }, { "Long", 1, "12345", "a12345b" }, { "Empty", 1, "", "ab" },
        { "Null", 1, nullptr, "ab" },
    };
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const int iExpected = static_cast<int>(ZorTools_strlen(oCase.m_szExpected));
        CMString oText("ab");
        EXPECT_EQ(iExpected, oText.Insert(oCase.m_iIndex, oCase.m_szInserted));
        EXPECT_STREQ(oCase.m_szExpected, oText);
        EXPECT_EQ(iExpected, oText.GetAllocLength());

        CMString oRoomy("ab");
        oRoomy.GetBuffer(20);
        EXPECT_EQ(iExpected, oRoomy.Insert(oCase.m_iIndex, oCase.m_szInserted));
        EXPECT_STREQ(oCase.m_szExpected, oRoomy);
        EXPECT_EQ(20, oRoomy.GetAllocLength());
    }
    CMString oText;
    EXPECT_EQ(1, oText.Insert(0, 'x'));
    EXPECT_EQ(2, oText.Insert(99U, 'y'));
    EXPECT_STREQ("xy", oText);
}

TEST_F(StringEdit, TrimTakesWholeRunsOffTheEnds)
{
    struct SCase
    {
        const char* m_szText;
        const char* m_szTargets;
        const char* m_szLeft;
        const char* m_szRight;
        const char* m_szBoth;
    };
    const SCase aoCases[] = {
        { "   x ", " ", "x ", "   x", "x" },
        { "  ", " ", "", "", "" },
        { "xyaxy", "yx", "axy", "xya", "a" },
        { "abc", " ", "abc", "abc", "abc" },
        { " a ", "", " a ", " a ", " a " },
        { " a ", nullptr, " a ", " a ", " a " },
        { "", " ", "", "", "" },
    };
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szText);
        const int iLength = static_cast<int>(ZorTools_strlen(oCase.m_szText));
        CMString oLeft(oCase.m_szText);
        CMString oRight(oCase.m_szText);
        CMString oBoth(oCase.m_szText);
        EXPECT_STREQ(oCase.m_szLeft, oLeft.TrimLeft(oCase.m_szTargets));
        EXPECT_STREQ(oCase.m_szRight, oRight.TrimRight(oCase.m_szTargets));
        EXPECT_STREQ(oCase.m_szBoth, oBoth.Trim(oCase.m_szTargets));
        EXPECT_EQ(static_cast<int>(ZorTools_strlen(oCase.m_szBoth)), oBoth.GetLength());
        EXPECT_EQ(iLength, oBoth.GetAllocLength()); // the buffer stays
    }
}

TEST_F(StringSearch, GivesIndexesFromTheStart)
{
    const CMString oText("abcAbc");
    struct SCase
    {
        const char* m_szName;
        int m_iActual;
        int m_iExpected;
    };
    const SCase aoCases[] = {
        { "Char", oText.Find('b', 0), 1 },
        { "CharBehindStart", oText.Find('b', 2), 4 },
        { "CharAtStart", oText.Find('b', 4), 4 },
        { "CharMissing", oText.Find('x', 0), -1 },
        { "CharFromTheEnd", oText.Find('a', 6), -1 },
        { "CharBeyond", oText.Find('a', 99), -1 },
        { "Text", oText.Find("bc", 0), 1 },
        { "TextBehindStart", oText.Find("bc", 2), 4 },
        { "TextWithCase", oText.Find("ABC", 0), -1 },
        { "EmptyTextAtTheEnd", oText.Find("", 6), 6 },
        { "EmptyTextBeyond", oText.Find("", 7), -1 },
        { "Reverse", oText.ReverseFind('b'), 4 },
        { "ReverseMissing", oText.ReverseFind('x'), -1 },
        { "NoCaseChar", oText.FindNoCase('A', 1), 3 },
        { "NoCaseLowerChar", oText.FindNoCase('a', 1), 3 },
        { "NoCaseText", oText.FindNoCase("CaB", 0), 2 },
        { "NoCaseTextBeyond", oText.FindNoCase("a", 7), -1 },
        { "NoCaseReverse", oText.ReverseFindNoCase('a'), 3 },
        { "NoCaseReverseMissing", oText.ReverseFindNoCase('x'), -1 },
        { "Count", oText.CountOf('a'), 1 },
        { "CountNoCase", oText.CountOfNoCase('A'), 2 },
        { "CountNoLetter", CMString("1@`1").CountOfNoCase('@'), 1 }, // '`' is '@' with another bit, no other case
    };
    for (const SCase& oCase : aoCases)
    {
        EXPECT_EQ(oCase.m_iExpected, oCase.m_iActual) << oCase.m_szName;
    }
    EXPECT_STREQ("abcAbc", oText);
    EXPECT_EQ(1, Refs(oText));
}

TEST_F(StringSearch, NullReportsWhereCaseCounts)
{
    const CMString oText("abc");
    CCapturedOutput oOutput;
    EXPECT_EQ(-1, oText.Find(static_cast<const char*>(nullptr), 0));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
    CCapturedOutput oNoCaseOutput;
    EXPECT_EQ(2, oText.FindNoCase(static_cast<const char*>(nullptr), 2)); // counts as empty
    EXPECT_EQ(0U, oNoCaseOutput.TakeAssertionCount());
}

TEST_F(StringParts, AreCutToTheTextAndShareWhenWhole)
{
    const CMString oText("abcde");
    struct SCase
    {
        const char* m_szName;
        CMString m_oPart;
        const char* m_szExpected;
    };
    const SCase aoCases[] = {
        { "MidToTheEnd", oText.Mid(2, 100), "cde" },
        { "MidInside", oText.Mid(1U, 2U), "bc" },
        { "MidBeyond", oText.Mid(9, 1), "" },
        { "MidAtTheEnd", oText.Mid(5, 1), "" },
        { "MidWhole", oText.Mid(0, 5), "abcde" },
        { "MidNegativeFirst", oText.Mid(-2, 2), "ab" },
        { "MidNegativeFirstAll", oText.Mid(-2), "abcde" },
        { "MidLowestFirst", oText.Mid(INT_MIN), "abcde" },
        { "MidNegativeCount", oText.Mid(1, -1), "" },
        { "MidHighest", oText.Mid(1, INT_MAX), "bcde" },
        { "MidOne", oText.Mid(3U), "de" },
        { "LeftSome", oText.Left(2U), "ab" },
        { "LeftNegative", oText.Left(-1), "" },
        { "LeftWhole", oText.Left(99), "abcde" },
        { "RightSome", oText.Right(2U), "de" },
        { "RightNegative", oText.Right(-1), "" },
        { "RightWhole", oText.Right(5), "abcde" },
    };
    int iSharing = 1;
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        EXPECT_STREQ(oCase.m_szExpected, oCase.m_oPart);
        const bool bIsWhole = oCase.m_oPart.GetLength() == oText.GetLength();
        EXPECT_EQ(bIsWhole, IsShared(oText, oCase.m_oPart));
        iSharing += bIsWhole ? 1 : 0;
    }
    EXPECT_EQ(iSharing, Refs(oText));
}
