// CMString: every change in every state that a buffer can have, reading operations against std::string, direct writing,
// locks, refusals.

#include <ctype.h>
#include <limits.h>
#include <string.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <string>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "StringProbe.h"

namespace
{
int Refs(const CMString& oString) { return CStringProbe::GetRefs(oString); }

bool IsNil(const CMString& oString) { return Text(oString) == CStringProbe::GetNil(); }

class String : public testing::Test
{
protected:
    CCountingAllocator m_oHeap; // checks that everything is given back
};

const char* const gsc_pszNull = nullptr;

int LengthOf(const std::string& sText) { return static_cast<int>(sText.size()); }

// What becomes of the buffer of a changed string.
enum EBuffer
{
    eKept,     // stays where the text fits, else an exact one; sharing ends with a change
    eTaken,    // the same, but sharing ends in any case
    eAssigned, // the same, but an empty text gives it back
    eReplaced, // that of the text assigned, which is exact; a locked string is assigned to as above
    eCleared,  // given back; a locked one stays
    eExact     // an exact one
};

struct SChange
{
    const char* m_pszName;
    EBuffer m_eBuffer;
    void (*m_pfnChange)(CMString& o);
    const char* m_pszExpected; // of " Ab "
    unsigned int m_uiReports = 0;
};

// Not constant, so that compilers do not check them.
constinit const char* g_apszRefused[] = { nullptr, "%2147483647d%2147483647d", "" };

const SChange gsc_aoChanges[] = {
    { "InsertChar", eKept, [](CMString& o) { EXPECT_EQ(5, o.Insert(1, 'x')); }, " xAb " },
    { "InsertBeyondTheEnd", eKept, [](CMString& o) { EXPECT_EQ(5, o.Insert(99U, 'x')); }, " Ab x" },
    { "InsertText", eKept, [](CMString& o) { EXPECT_EQ(6, o.Insert(4U, "yz")); }, " Ab yz" },
    { "InsertOwnTail", eKept, [](CMString& o) { EXPECT_EQ(7, o.Insert(2, Text(o) + 1)); }, " AAb b " },
    { "InsertNothing", eKept, [](CMString& o) { EXPECT_EQ(4, o.Insert(1, "")); }, " Ab " },
    { "InsertNull", eKept, [](CMString& o) { EXPECT_EQ(4, o.Insert(1, gsc_pszNull)); }, " Ab " },
    { "Delete", eKept, [](CMString& o) { EXPECT_EQ(4, o.Delete(1U, 2U)); }, "  " },
    { "DeleteCutsTheCount", eKept, [](CMString& o) { EXPECT_EQ(4, o.Delete(2, 9)); }, " A" },
    { "DeleteAllAndMore", eKept, [](CMString& o) { EXPECT_EQ(4, o.Delete(0, INT_MAX)); }, "" },
    { "DeleteBehindTheEnd", eKept, [](CMString& o) { EXPECT_EQ(4, o.Delete(9, 1)); }, " Ab " },
    { "DeleteNothing", eKept, [](CMString& o) { EXPECT_EQ(4, o.Delete(1, 0)); }, " Ab " },
    // From 0, but the count is cut by the distance to the index as given.
    { "DeleteNegativeIndex", eKept, [](CMString& o) { EXPECT_EQ(4, o.Delete(-1, 3)); }, " " },
    { "DeletePassesTheEnd", eKept, [](CMString& o) { EXPECT_EQ(4, o.Delete(-3, 100)); }, " Ab " },
    { "DeleteLowestIndex", eKept, [](CMString& o) { EXPECT_EQ(4, o.Delete(INT_MIN, INT_MAX)); }, " Ab " },
    { "SetAt", eKept, [](CMString& o) { o.SetAt(1U, '-'); }, " -b " },
    { "TrimLeft", eKept, [](CMString& o) { o.TrimLeft("A "); }, "b " },
    { "TrimRight", eKept, [](CMString& o) { o.TrimRight("b "); }, " A" },
    { "Trim", eKept, [](CMString& o) { o.Trim(" "); }, "Ab" },
    { "TrimAll", eKept, [](CMString& o) { o.Trim("Ab "); }, "" },
    { "TrimNothing", eKept, [](CMString& o) { o.Trim("").Trim(gsc_pszNull); }, " Ab " },
    { "AppendChar", eKept, [](CMString& o) { o += 'x'; }, " Ab x" },
    { "AppendText", eKept, [](CMString& o) { o += "xy"; }, " Ab xy" },
    { "AppendPart", eKept, [](CMString& o) { o.ConcatInPlace(3, "xyz-"); }, " Ab xyz" },
    { "AppendItself", eKept, [](CMString& o) { o += o; }, " Ab  Ab " },
    { "AppendOwnTail", eKept, [](CMString& o) { o += Text(o) + 1; }, " Ab Ab " },
    { "AppendNull", eKept, [](CMString& o) { (o += gsc_pszNull).ConcatInPlace(3, nullptr); }, " Ab " },
    { "AssignText", eAssigned, [](CMString& o) { o = "longer text"; }, "longer text" },
    { "AssignShortText", eAssigned, [](CMString& o) { o = "ab"; }, "ab" },
    { "AssignOwnTail", eAssigned, [](CMString& o) { o = Text(o) + 2; }, "b " },
    { "AssignChar", eAssigned, [](CMString& o) { o = 'c'; }, "c" },
    { "AssignNull", eAssigned, [](CMString& o) { o = gsc_pszNull; }, "" },
    { "AssignString", eReplaced, [](CMString& o) { o = CMString("other"); }, "other" },
    { "AssignLongString", eReplaced, [](CMString& o) { o = CMString("longer text"); }, "longer text" },
    { "AssignEmptyString", eReplaced, [](CMString& o) { o = CMString(); }, "" },
    { "AssignItself", eKept, [](CMString& o) { o.operator=(o); }, " Ab " },
    { "MakeUpper", eTaken, [](CMString& o) { o.MakeUpper(); }, " AB " },
    { "MakeLower", eTaken, [](CMString& o) { o.MakeLower(); }, " ab " },
    { "MakeReverse", eTaken, [](CMString& o) { o.MakeReverse(); }, " bA " },
    { "GetBuffer", eTaken, [](CMString& o) { o.GetBuffer(0)[0] = 'x'; }, "xAb " },
    { "SetLength", eTaken, [](CMString& o) { o.GetBufferSetLength(2); }, " A" },
    { "ReleaseBuffer", eTaken, [](CMString& o) { o.ReleaseBuffer(1); }, " " },
    { "Empty", eCleared, [](CMString& o) { o.Empty(); }, "" },
    { "FreeExtra", eExact, [](CMString& o) { o.FreeExtra(); }, " Ab " },
    // Refused.
    { "GetLongestBuffer", eKept, [](CMString& o) { EXPECT_EQ(nullptr, o.GetBuffer(INT_MAX)); }, " Ab ", 1 },
    { "SetLongest", eKept, [](CMString& o) { EXPECT_EQ(nullptr, o.GetBufferSetLength(INT_MAX)); }, " Ab ", 1 },
    { "SetNegative", eKept, [](CMString& o) { EXPECT_EQ(nullptr, o.GetBufferSetLength(-1)); }, " Ab ", 1 },
    { "ReleaseTooMuch", eTaken, [](CMString& o) { o.ReleaseBuffer(8); }, " Ab ", 1 },
    { "ReleaseNegative", eTaken, [](CMString& o) { o.ReleaseBuffer(-2); }, " Ab ", 1 },
    { "AppendNegative", eKept, [](CMString& o) { o.ConcatInPlace(-1, "x"); }, " Ab ", 1 },
    { "GetAtTheEnd", eKept, [](CMString& o) { EXPECT_EQ('\0', o.GetAt(4)); }, " Ab ", 1 },
    { "GetAtNegative", eKept, [](CMString& o) { EXPECT_EQ('\0', o.GetAt(-1)); }, " Ab ", 1 },
    { "SetAtTheEnd", eKept, [](CMString& o) { o.SetAt(4, 'x'); }, " Ab ", 1 },
    { "SetAtNegative", eKept, [](CMString& o) { o.SetAt(-1, 'x'); }, " Ab ", 1 },
    { "FindNull", eKept, [](CMString& o) { EXPECT_EQ(-1, o.Find(gsc_pszNull, 0)); }, " Ab ", 1 },
    { "FormatNull", eKept, [](CMString& o) { o.Format(g_apszRefused[0], 1); }, " Ab ", 1 },
    { "FormatBeyondTheLongest", eKept, [](CMString& o) { o.Format(g_apszRefused[1], 1, 1); }, " Ab ", 1 },
    { "AppendFormatNull", eKept, [](CMString& o) { o.AppendFormat(g_apszRefused[0], 1); }, " Ab ", 1 },
    { "AppendFormatBeyond", eKept, [](CMString& o) { o.AppendFormat(g_apszRefused[1], 1, 1); }, " Ab ", 1 },
    { "AppendEmptyFormat", eKept, [](CMString& o) { o.AppendFormat(g_apszRefused[2], 1); }, " Ab " },
    { "MakeLongest", eKept, [](CMString&) { EXPECT_TRUE(IsNil(CMString('x', INT_MAX))); }, " Ab ", 1 },
    { "SetAtOfAnEmptyOne", eKept, [](CMString&) { CMString().SetAt(0, 'x'); }, " Ab ", 1 },
};

struct SState
{
    const char* m_pszName;
    int m_iCapacity; // for the four characters
    bool m_bIsShared, m_bIsLocked;
};
const SState gsc_aoStates[] = { { "Exact", 4, false, false },
                                { "Roomy", 7, false, false },
                                { "Shared", 7, true, false },
                                { "Locked", 7, false, true } };
} // namespace

TEST_F(String, ChangesInEveryStateOfTheBuffer)
{
    for (const SChange& oChange : gsc_aoChanges)
    {
        for (const SState& oState : gsc_aoStates)
        {
            SCOPED_TRACE(std::string(oChange.m_pszName) + " " + oState.m_pszName);
            CMString oText(" Ab ");
            const char* pszBuffer = oText.GetBuffer(oState.m_iCapacity);
            if (oState.m_bIsLocked)
            {
                oText.LockBuffer();
            }
            const CMString oHolder = oState.m_bIsShared || oState.m_bIsLocked ? oText : CMString(" Ab ");
            const int iRefs = Refs(oText);
            CCapturedOutput oOutput;
            oChange.m_pfnChange(oText);
            EXPECT_EQ(oChange.m_uiReports, oOutput.TakeAssertionCount());
            const std::string sExpected = oChange.m_pszExpected;
            EXPECT_EQ(sExpected, Text(oText));
            EXPECT_EQ(LengthOf(sExpected), oText.GetLength());

            const bool bIsSame = sExpected == " Ab ";
            const bool bFits = !oState.m_bIsShared && LengthOf(sExpected) <= oState.m_iCapacity;
            const bool bAssigned = bFits && !sExpected.empty();
            const bool abStays[] = { oState.m_bIsShared ? bIsSame : bFits,
                                     bFits,
                                     bAssigned,
                                     bAssigned && oState.m_bIsLocked,
                                     oState.m_bIsLocked,
                                     false };
            if (abStays[oChange.m_eBuffer])
            {
                EXPECT_EQ(pszBuffer, Text(oText));
                EXPECT_EQ(oState.m_iCapacity, oText.GetAllocLength());
                EXPECT_EQ(iRefs, Refs(oText)); // a locked one is still locked
            }
            else
            {
                const bool bTextStays = oChange.m_eBuffer == eKept || oChange.m_eBuffer == eTaken;
                EXPECT_EQ(std::max(LengthOf(sExpected), bTextStays ? 4 : 0), oText.GetAllocLength());
                EXPECT_EQ(IsNil(oText) ? -1 : 1, Refs(oText)); // neither shared nor locked
            }
            EXPECT_STREQ(" Ab ", oHolder); // no change reaches another holder
            EXPECT_EQ(oState.m_bIsShared ? 7 : 4, oHolder.GetAllocLength());
        }
    }
}

namespace
{
int IndexOf(size_t uiFound) { return uiFound != std::string::npos ? static_cast<int>(uiFound) : -1; }
size_t Count(int iCount) { return static_cast<size_t>(std::max(iCount, 0)); }

std::string Upper(std::string sText)
{
    std::transform(sText.begin(), sText.end(), sText.begin(), [](char c) { return static_cast<char>(toupper(c)); });
    return sText;
}
} // namespace

TEST_F(String, PartsSumsAndSearchesAgreeWithStdString)
{
    CCapturedOutput oOutput;
    for (const std::string sText : { "", "a", " Ab ", "bBa a", "  ", "@[`{" })
    {
        const CMString oText(sText.c_str());
        const auto ExpectPart = [&](const std::string& sExpected, const CMString& oPart) {
            EXPECT_EQ(sExpected, Text(oPart));
            EXPECT_EQ(LengthOf(sExpected), oPart.GetAllocLength());
            EXPECT_EQ(sExpected == sText, Text(oText) == Text(oPart)) << "the whole shares the buffer";
        };
        for (int iIndex : { INT_MIN, -1, 0, 1, 2, 4, INT_MAX })
        {
            const std::string sRest = sText.substr(std::min(Count(iIndex), sText.size()));
            ExpectPart(sRest, oText.Mid(iIndex));
            for (int iCount : { -1, 0, 1, 2, INT_MAX })
            {
                ExpectPart(sRest.substr(0, Count(iCount)), oText.Mid(iIndex, iCount));
                ExpectPart(sText.substr(0, Count(iCount)), oText.Left(iCount));
                ExpectPart(sText.substr(sText.size() - std::min(Count(iCount), sText.size())), oText.Right(iCount));
            }
        }
        const std::string sUpper = Upper(sText);
        for (const std::string sOther : { "", "a", "bA", " B" })
        {
            const char* pszOther = sOther.c_str();
            EXPECT_EQ(sText + sOther, Text(oText + pszOther));
            EXPECT_EQ(sOther + sText, Text(pszOther + oText));
            EXPECT_EQ(sText + sOther, Text(oText + CMString(pszOther)));
            EXPECT_EQ(sText == sOther, oText == pszOther);
            EXPECT_EQ(sText != sOther, oText != CMString(pszOther));
            for (size_t i = 0; i < 7; ++i)
            {
                const int iStart = static_cast<int>(i);
                EXPECT_EQ(IndexOf(sText.find(sOther, i)), oText.Find(pszOther, iStart));
                EXPECT_EQ(IndexOf(sUpper.find(Upper(sOther), i)), oText.FindNoCase(pszOther, iStart));
                for (const char c : { 'a', 'B', '`' })
                {
                    const char cUpper = static_cast<char>(toupper(c));
                    EXPECT_EQ(sText + c, Text(oText + c));
                    EXPECT_EQ(c + sText, Text(c + oText));
                    EXPECT_EQ(IndexOf(sText.find(c, i)), oText.Find(c, iStart));
                    EXPECT_EQ(IndexOf(sUpper.find(cUpper, i)), oText.FindNoCase(c, iStart));
                    EXPECT_EQ(IndexOf(sText.rfind(c)), oText.ReverseFind(c));
                    EXPECT_EQ(IndexOf(sUpper.rfind(cUpper)), oText.ReverseFindNoCase(c));
                    EXPECT_EQ(std::count(sText.begin(), sText.end(), c), oText.CountOf(c));
                    EXPECT_EQ(std::count(sUpper.begin(), sUpper.end(), cUpper), oText.CountOfNoCase(c));
                }
            }
        }
        EXPECT_EQ(sText, Text(oText));
    }
    EXPECT_EQ("", oOutput.Take());
}

TEST_F(String, UnsignedNumbersNulsAndNull)
{
    CMString oText("abcde");
    EXPECT_STREQ("bc", oText.Mid(1U, 2U));
    EXPECT_STREQ("de", oText.Mid(3U));
    EXPECT_STREQ("ab", oText.Left(2U));
    EXPECT_STREQ("de", oText.Right(2U));
    EXPECT_EQ('e', oText.GetAt(4));
    EXPECT_EQ(2, oText.FindNoCase(gsc_pszNull, 2));
    EXPECT_STREQ("abcde", oText + gsc_pszNull);
    EXPECT_TRUE(CMString() == gsc_pszNull);
    EXPECT_EQ(5, oText.Find('\0', 0)); // the terminator, but not from its own place
    EXPECT_EQ(-1, oText.Find('\0', 5));
    oText.SetAt(1, '\0');
    EXPECT_EQ(1, oText.CountOf('\0'));
    EXPECT_EQ(1, oText.CountOf('e'));
    EXPECT_EQ(1, oText.CountOfNoCase('E'));
}

TEST_F(String, EmptyOnesShareAConstantWithoutMemory)
{
    CMString oText;
    CCapturedOutput oOutput;
    EXPECT_EQ(CStringProbe::GetNil(), oText.GetBuffer(0));
    EXPECT_EQ(CStringProbe::GetNil(), oText.GetBufferSetLength(-1));
    EXPECT_EQ(CStringProbe::GetNil(), oText.LockBuffer());
    oText.UnlockBuffer();
    oText.ReleaseBuffer(5);
    oText.ReleaseBuffer(-1);
    EXPECT_TRUE(IsNil(oText + oText));
    EXPECT_TRUE(IsNil(gsc_pszNull));
    EXPECT_TRUE(IsNil(""));
    EXPECT_TRUE(IsNil({ 'x', 0U }));
    EXPECT_TRUE(IsNil({ 'x', -3 }));
    EXPECT_TRUE(IsNil(*CMString::m_poEmptyString));
    EXPECT_EQ(0U, oOutput.TakeAssertionCount());
    EXPECT_EQ(0U, m_oHeap.GetAllocCount());
}

TEST_F(String, BuffersAreExactAndCanBeWritten)
{
    EXPECT_STREQ("z", CMString('z', 1));
    CMString oText('z', 2U);
    EXPECT_EQ(sizeof(CMString::SMetaData) + 3, m_oHeap.GetLastSize());
    char* pszBuffer = oText.GetBuffer(8);
    EXPECT_STREQ("zz", pszBuffer);
    EXPECT_EQ(2, oText.GetLength());
    EXPECT_EQ(8, oText.GetAllocLength());
    EXPECT_EQ(pszBuffer, oText.GetBuffer(5U));
    ZorTools_strcpy_s(pszBuffer, 9, "12345678");
    oText.ReleaseBuffer(-1);
    EXPECT_EQ(8, oText.GetLength());
    EXPECT_EQ(pszBuffer, oText.GetBufferSetLength(1U));
    EXPECT_STREQ("1", oText);
    oText.Delete(0, 1); // an empty text in a buffer, which is shared and then left for the shared empty one
    EXPECT_EQ(CStringProbe::GetNil(), CMString(oText).GetBuffer(0));
}

TEST_F(String, LocksAreSetAndTakenBack)
{
    CMString oFirst("abc");
    CMString oSecond(oFirst);
    CCapturedOutput oOutput;
    oFirst.UnlockBuffer();
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
    EXPECT_EQ(2, Refs(oFirst)); // the count of holders is not lost
    oFirst.LockBuffer()[0] = 'x';
    EXPECT_STREQ("abc", oSecond);
    oSecond = oFirst; // a copy
    oFirst.UnlockBuffer();
    EXPECT_EQ(1, Refs(oFirst));
    EXPECT_STREQ("xbc", oSecond);
    oFirst.LockBuffer();
    oFirst.GetBuffer(100); // the lock ends with its buffer
    EXPECT_EQ(1, Refs(oFirst));
}

namespace
{
// A text of 2 GiB without the memory for it: the same pages again and again, all mapped ahead, since a page fault for
// each takes long. The text stays until the process ends. Null where the system does not map that much.
const char* MapHugeText()
{
    constexpr size_t uiPart = 1U << 20;
    constexpr size_t uiParts = 1U << 11;
    const int iFile = memfd_create("text", 0);
    // One part more than there are characters: its zeros end the text.
    void* pText = mmap(nullptr, (uiParts + 1) * uiPart, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    const std::string sPart(uiPart, 'x');
    bool bIsMapped = pText != MAP_FAILED && write(iFile, sPart.data(), uiPart) == static_cast<ssize_t>(uiPart);
    for (size_t i = 0; i < uiParts && bIsMapped; ++i)
    {
        void* pPart = static_cast<char*>(pText) + i * uiPart;
        bIsMapped = mmap(pPart, uiPart, PROT_READ, MAP_SHARED | MAP_FIXED | MAP_POPULATE, iFile, 0) == pPart;
    }
    close(iFile);
    return bIsMapped ? static_cast<const char*>(pText) : nullptr;
}
} // namespace

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
