// CMString: when buffers are shared, copied and given back; searching, changing and cutting.

#include <limits.h>
#include <string.h>
#include <sys/mman.h>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "StringProbe.h"

namespace
{
int Refs(const CMString& oString) { return CStringProbe::GetRefs(oString); }

bool IsNil(const CMString& oString) { return Text(oString) == CStringProbe::GetNil(); }

int LengthOf(const char* pszText) { return static_cast<int>(ZorTools_strlen(pszText)); }

// A text of 2 GiB without the memory for it: the same pages again and again. It stays until the process ends. Null where
// the system does not map that much.
const char* MapHugeText()
{
    constexpr size_t uiPart = 1U << 20;
    constexpr size_t uiParts = 1U << 11;
    void* pPart = mmap(nullptr, uiPart, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    // One part more than there are characters: its zeros end the text.
    void* pText = mmap(nullptr, (uiParts + 1) * uiPart, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    bool bIsMapped = pPart != MAP_FAILED && pText != MAP_FAILED;
    char* pszText = static_cast<char*>(pText);
    for (size_t i = 0; i < uiParts && bIsMapped; ++i)
    {
        // An old size of 0 maps the shared pages once more instead of moving them.
        bIsMapped = mremap(pPart, 0, uiPart, MREMAP_MAYMOVE | MREMAP_FIXED, pszText + i * uiPart) != MAP_FAILED;
    }
    if (!bIsMapped)
    {
        return nullptr;
    }
    memset(pPart, 'x', uiPart);
    return pszText;
}

struct SChange
{
    const char* m_szName;
    void (*m_pfnChange)(CMString& oText);
    const char* m_szExpected;
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

const char* const gsc_pszNull = nullptr;
}

TEST_F(String, EmptyOnesShareAConstantWithoutMemory)
{
    const CMString aoStrings[] = { CMString(),
                                   CMString(gsc_pszNull),
                                   CMString(""),
                                   CMString('x', 0),
                                   CMString('x', -3),
                                   CMString('x', 0U),
                                   CMString(*CMString::m_poEmptyString) };
    for (const CMString& oString : aoStrings)
    {
        EXPECT_TRUE(IsNil(oString));
        EXPECT_EQ(0, oString.GetLength());
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
    EXPECT_TRUE(oText == CMString("abc")); // texts are compared, not buffers
    EXPECT_TRUE(oText != "abd");
    EXPECT_TRUE(CMString() == gsc_pszNull);
}

TEST_F(String, GuardsReportAndChangeNothing)
{
    CMString oText("abc");
    CMString oEmpty;
    CCapturedOutput oOutput;
    // Lengths that cannot be.
    EXPECT_EQ(nullptr, oText.GetBuffer(INT_MAX));
    EXPECT_EQ(nullptr, oText.GetBufferSetLength(INT_MAX));
    EXPECT_EQ(nullptr, oText.GetBufferSetLength(-1));
    EXPECT_TRUE(IsNil(CMString('x', INT_MAX)));
    oText.ReleaseBuffer(4);
    oText.ReleaseBuffer(-2);
    oText.ConcatInPlace(-1, "x");
    // Indexes outside.
    EXPECT_EQ('\0', oText.GetAt(3));
    EXPECT_EQ('\0', oText.GetAt(-1));
    oText.SetAt(3, 'x');
    oText.SetAt(-1, 'x');
    oEmpty.SetAt(0, 'x');
    EXPECT_EQ(-1, oText.Find(gsc_pszNull, 0));
    EXPECT_EQ(13U, oOutput.TakeAssertionCount());
    EXPECT_STREQ("abc", oText);
}

TEST_F(String, TextsBeyondTheLongestLengthAreRefused)
{
    const char* pszHuge = MapHugeText();
    if (pszHuge == nullptr)
    {
        GTEST_SKIP() << "the system does not map 2 GiB";
    }
    CMString oText("abc");
    CCapturedOutput oOutput;
    EXPECT_STREQ("", CMString(pszHuge));
    oText = pszHuge;
    oText += pszHuge;
    EXPECT_EQ(3, oText.Insert(1, pszHuge));
    oText.Format("%s", pszHuge);
    EXPECT_EQ(5U, oOutput.TakeAssertionCount());
    EXPECT_STREQ("abc", oText);
}

// What each changing operation makes of " Ab ", and that the other holder of the buffer does not see it.
TEST_F(String, ChangesReachNoOtherHolder)
{
    const SChange aoCases[] = {
        { "SetAt", [](CMString& oText) { oText.SetAt(1U, '-'); }, " -b " },
        { "InsertChar", [](CMString& oText) { EXPECT_EQ(5, oText.Insert(1, 'x')); }, " xAb " },
        { "InsertBeyondTheEnd", [](CMString& oText) { EXPECT_EQ(5, oText.Insert(99U, 'x')); }, " Ab x" },
        { "InsertText", [](CMString& oText) { EXPECT_EQ(6, oText.Insert(4U, "yz")); }, " Ab yz" },
        { "InsertNegative", [](CMString& oText) { EXPECT_EQ(6, oText.Insert(-5, "yz")); }, "yz Ab " },
        { "InsertItself", [](CMString& oText) { oText.Insert(2, Text(oText) + 1); }, " AAb b " },
        { "InsertNothing", [](CMString& oText) { EXPECT_EQ(4, oText.Insert(1, "")); }, " Ab " },
        { "InsertNull", [](CMString& oText) { EXPECT_EQ(4, oText.Insert(1, gsc_pszNull)); }, " Ab " },
        { "Delete", [](CMString& oText) { EXPECT_EQ(4, oText.Delete(1U, 2U)); }, "  " },
        { "DeleteCutsTheCount", [](CMString& oText) { EXPECT_EQ(4, oText.Delete(2, 9)); }, " A" },
        { "DeleteAllAndMore", [](CMString& oText) { EXPECT_EQ(4, oText.Delete(0, INT_MAX)); }, "" },
        { "DeleteAtTheEnd", [](CMString& oText) { EXPECT_EQ(4, oText.Delete(4, 1)); }, " Ab " },
        { "DeleteBehindTheEnd", [](CMString& oText) { EXPECT_EQ(4, oText.Delete(9, 1)); }, " Ab " },
        { "DeleteNothing", [](CMString& oText) { EXPECT_EQ(4, oText.Delete(1, 0)); }, " Ab " },
        // From 0, but the count is cut by the distance to the index as given.
        { "DeleteNegativeIndex", [](CMString& oText) { EXPECT_EQ(4, oText.Delete(-1, 3)); }, " " },
        { "DeletePassesTheEnd", [](CMString& oText) { EXPECT_EQ(4, oText.Delete(-3, 100)); }, " Ab " },
        { "DeleteLowestIndex", [](CMString& oText) { EXPECT_EQ(4, oText.Delete(INT_MIN, INT_MAX)); }, " Ab " },
        { "Empty", [](CMString& oText) { oText.Empty(); }, "" },
        { "MakeUpper", [](CMString& oText) { oText.MakeUpper(); }, " AB " },
        { "MakeLower", [](CMString& oText) { oText.MakeLower(); }, " ab " },
        { "MakeReverse", [](CMString& oText) { oText.MakeReverse(); }, " bA " },
        { "TrimLeft", [](CMString& oText) { oText.TrimLeft("A "); }, "b " },
        { "TrimRight", [](CMString& oText) { oText.TrimRight("b "); }, " A" },
        { "Trim", [](CMString& oText) { oText.Trim(" "); }, "Ab" },
        { "TrimAll", [](CMString& oText) { oText.Trim("Ab "); }, "" },
        { "TrimNothing", [](CMString& oText) { oText.Trim("").Trim(gsc_pszNull); }, " Ab " },
        { "AppendChar", [](CMString& oText) { oText += 'x'; }, " Ab x" },
        { "AppendText", [](CMString& oText) { oText += "xy"; }, " Ab xy" },
        { "AppendItself", [](CMString& oText) { oText += oText; }, " Ab  Ab " },
        { "AssignText", [](CMString& oText) { oText = "longer text"; }, "longer text" },
        { "AssignOwnTail", [](CMString& oText) { oText = Text(oText) + 2; }, "b " },
        { "AssignChar", [](CMString& oText) { oText = 'c'; }, "c" },
        { "AssignNull", [](CMString& oText) { oText = gsc_pszNull; }, "" },
        { "AssignString", [](CMString& oText) { oText = CMString("other"); }, "other" },
        { "GetBuffer", [](CMString& oText) { oText.GetBuffer(0)[0] = 'x'; }, "xAb " },
        { "SetLength", [](CMString& oText) { oText.GetBufferSetLength(2); }, " A" },
        { "ReleaseBuffer", [](CMString& oText) { oText.ReleaseBuffer(1); }, " " },
        { "Format", [](CMString& oText) { oText.Format("%d", 7); }, "7" },
        { "AppendFormat", [](CMString& oText) { oText.AppendFormat("%d", 7); }, " Ab 7" },
        { "LockBuffer", [](CMString& oText) { oText.LockBuffer()[1] = 'x'; }, " xb " },
    };
    for (const SChange& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const CMString oHolder(" Ab ");
        CMString oShared(oHolder);
        CMString oPrivate(Text(oHolder)); // the same in place
        for (CMString* poText : { &oShared, &oPrivate })
        {
            oCase.m_pfnChange(*poText);
            EXPECT_STREQ(oCase.m_szExpected, *poText);
            EXPECT_EQ(LengthOf(oCase.m_szExpected), poText->GetLength());
        }
        EXPECT_STREQ(" Ab ", oHolder);
        EXPECT_EQ(oShared == oHolder ? 2 : 1, Refs(oHolder)); // shared until there is something to change
    }
}

TEST_F(String, AssignmentSharesOrKeepsTheBuffer)
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
    oLarge.TrimLeft("s").TrimRight("t").Delete(1, 1); // nor does it go where the text gets shorter
    EXPECT_STREQ("hr", oLarge);
    EXPECT_EQ(pszBuffer, Text(oLarge));
    EXPECT_EQ(11, oLarge.GetAllocLength());
    CMString oEmptied(oLarge);
    oEmptied.Empty();
    EXPECT_TRUE(IsNil(oEmptied));
    oLarge = CMString(); // an empty source gives it back
    EXPECT_TRUE(IsNil(oLarge));
}

TEST_F(String, GrowingReallocatesExactlyEachTime)
{
    CMString oText("a");
    oText += 'b';
    EXPECT_EQ(2, oText.GetAllocLength());
    oText += "cd";
    EXPECT_EQ(4, oText.GetAllocLength());
    oText += CMString();
    oText.ConcatInPlace(3, nullptr);
    EXPECT_EQ(3U, m_oHeap.GetAllocCount());
    oText.GetBuffer(6);
    oText += "ef"; // room is used, to the last character
    EXPECT_EQ(4U, m_oHeap.GetAllocCount());
    oText.Insert(0, "12");
    EXPECT_EQ(8, oText.GetAllocLength());
    oText.GetBuffer(9);
    oText.Insert(8, 'g');
    EXPECT_EQ(9, oText.GetAllocLength());
    EXPECT_STREQ("12abcdefg", oText);
}

// The room belongs to the buffer that stays with the other holder.
TEST_F(String, ChangingASharedRoomyBufferGivesAnExactOne)
{
    const SChange aoCases[] = {
        { "SetAt", [](CMString& oText) { oText.SetAt(0, 'x'); }, "xbc" },
        { "Append", [](CMString& oText) { oText.ConcatInPlace(2, "de"); }, "abcde" },
        { "FreeExtra", [](CMString& oText) { oText.FreeExtra(); }, "abc" },
    };
    CMString oRoomy("abc");
    oRoomy.GetBuffer(20);
    for (const SChange& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CMString oShared(oRoomy);
        oCase.m_pfnChange(oShared);
        EXPECT_STREQ(oCase.m_szExpected, oShared);
        EXPECT_EQ(LengthOf(oCase.m_szExpected), oShared.GetAllocLength());
        EXPECT_STREQ("abc", oRoomy);
        EXPECT_EQ(20, oRoomy.GetAllocLength());
        EXPECT_EQ(1, Refs(oRoomy));
    }
}

TEST_F(String, SumsAreNewStrings)
{
    const CMString oFirst("ab");
    const CMString oSecond("cd");
    EXPECT_STREQ("abcd", oFirst + oSecond);
    EXPECT_STREQ("abx", oFirst + "x");
    EXPECT_STREQ("xab", "x" + oFirst);
    EXPECT_STREQ("ab!", oFirst + '!');
    EXPECT_STREQ("!ab", '!' + oFirst);
    EXPECT_STREQ("ab", oFirst + gsc_pszNull);
    EXPECT_TRUE(IsNil(CMString() + CMString()));
}

TEST_F(String, GetBufferKeepsTheTextAndItsLength)
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
    EXPECT_TRUE(IsNil(oText));
}

TEST_F(String, TheSharedEmptyStringIsNeverWritten)
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

TEST_F(String, LockedBufferIsCopiedNotShared)
{
    CMString oLocked("abc");
    oLocked.LockBuffer();
    EXPECT_EQ(-1, Refs(oLocked));
    const CMString oCopy(oLocked);
    CMString oAssigned;
    oAssigned = oLocked;
    for (const CMString* poText : { &oCopy, static_cast<const CMString*>(&oAssigned) })
    {
        EXPECT_NE(Text(oLocked), Text(*poText));
        EXPECT_STREQ("abc", *poText);
        EXPECT_EQ(1, Refs(*poText));
    }
    oLocked.UnlockBuffer();
    EXPECT_EQ(1, Refs(oLocked));
}

TEST_F(String, LockStaysWhileTheBufferStays)
{
    CMString oLocked("abcdef");
    const char* pszBuffer = oLocked.LockBuffer();
    const CMString oSource("xyz");
    oLocked = oSource;
    EXPECT_STREQ("xyz", oLocked);
    EXPECT_EQ(1, Refs(oSource));
    oLocked.Empty();
    EXPECT_EQ(0, oLocked.GetLength());
    EXPECT_EQ(6, oLocked.GetAllocLength());
    EXPECT_EQ(pszBuffer, Text(oLocked));
    EXPECT_EQ(-1, Refs(oLocked));
}

TEST_F(String, LockEndsWhereTheBufferIsReplaced)
{
    const SChange aoCases[] = {
        { "Append", [](CMString& oText) { oText += "defgh"; }, "abcdefgh" },
        { "Insert", [](CMString& oText) { oText.Insert(1, "12345"); }, "a12345bc" },
        { "LongerText", [](CMString& oText) { oText = "a longer text"; }, "a longer text" },
        { "LongerString", [](CMString& oText) { oText = CMString("a longer text"); }, "a longer text" },
        { "GetBuffer", [](CMString& oText) { oText.GetBuffer(100); }, "abc" },
        { "FreeExtra", [](CMString& oText) { oText.FreeExtra(); }, "abc" },
        { "EmptyText", [](CMString& oText) { oText = ""; }, "" },
        { "EmptyString", [](CMString& oText) { oText = CMString(); }, "" },
    };
    for (const SChange& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CMString oLocked("abc");
        oLocked.GetBuffer(4);
        oLocked.LockBuffer();
        oCase.m_pfnChange(oLocked);
        EXPECT_STREQ(oCase.m_szExpected, oLocked);
        EXPECT_EQ(*oCase.m_szExpected == '\0', IsNil(oLocked));
        EXPECT_TRUE(IsNil(oLocked) || Refs(oLocked) == 1);
    }
}

TEST_F(String, UnlockingWhatIsNotLockedReports)
{
    CMString oFirst("abc");
    const CMString oSecond(oFirst);
    CCapturedOutput oOutput;
    oFirst.UnlockBuffer();
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
    EXPECT_EQ(2, Refs(oFirst)); // the count of holders is not lost
}

TEST_F(String, SearchGivesIndexesFromTheStart)
{
    const CMString oText("abcAbc");
    EXPECT_EQ('c', oText.GetAt(5));
    EXPECT_EQ(1, oText.Find('b', 0));
    EXPECT_EQ(4, oText.Find('b', 2));
    EXPECT_EQ(-1, oText.Find('x', 0));
    EXPECT_EQ(6, oText.Find('\0', 0)); // the terminator, but not from its own place
    EXPECT_EQ(-1, oText.Find('\0', 6));
    EXPECT_EQ(-1, oText.Find('a', 99));
    EXPECT_EQ(4, oText.Find("bc", 2));
    EXPECT_EQ(-1, oText.Find("ABC", 0));
    EXPECT_EQ(6, oText.Find("", 6));
    EXPECT_EQ(-1, oText.Find("", 7));
    EXPECT_EQ(4, oText.ReverseFind('b'));
    EXPECT_EQ(3, oText.FindNoCase('a', 1));
    EXPECT_EQ(2, oText.FindNoCase("CaB", 0));
    EXPECT_EQ(3, oText.ReverseFindNoCase('a'));
    EXPECT_STREQ("abcAbc", oText);
    EXPECT_EQ(1, Refs(oText));

    CCapturedOutput oOutput;
    EXPECT_EQ(2, oText.FindNoCase(gsc_pszNull, 2)); // counts as empty
    EXPECT_EQ(0U, oOutput.TakeAssertionCount());
}

TEST_F(String, CountsAllPositionsBelowTheLength)
{
    CMString oText("aAb-a");
    oText.SetAt(3, '\0');
    EXPECT_EQ(2, oText.CountOf('a'));
    EXPECT_EQ(3, oText.CountOfNoCase('A'));
    EXPECT_EQ(1, oText.CountOf('\0'));
    EXPECT_EQ(1, CMString("1@`1").CountOfNoCase('@')); // '`' is '@' with another bit, no other case
}

TEST_F(String, PartsAreCutToTheTextAndShareWhenWhole)
{
    const CMString oText("abcde");
    EXPECT_STREQ("cde", oText.Mid(2, 100));
    EXPECT_STREQ("bc", oText.Mid(1U, 2U));
    EXPECT_STREQ("de", oText.Mid(3U));
    EXPECT_STREQ("ab", oText.Mid(-2, 2));
    EXPECT_STREQ("bcde", oText.Mid(1, INT_MAX));
    EXPECT_STREQ("ab", oText.Left(2U));
    EXPECT_STREQ("de", oText.Right(2U));
    for (const CMString& oNone : { oText.Mid(9, 1), oText.Mid(1, -1), oText.Left(-1), oText.Right(-1) })
    {
        EXPECT_TRUE(IsNil(oNone));
    }
    EXPECT_EQ(1, Refs(oText));
    for (const CMString& oWhole : { oText.Mid(0, 5), oText.Mid(INT_MIN), oText.Left(99), oText.Right(5) })
    {
        EXPECT_EQ(Text(oText), Text(oWhole));
    }
}
