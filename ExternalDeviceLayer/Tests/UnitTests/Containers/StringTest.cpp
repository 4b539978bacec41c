// CMString: every change in every state that a buffer can have, all operations against std::string, direct writing,
// locks, refusals.

#include <limits.h>
#include <sys/mman.h>
#include <unistd.h>

#include <map>
#include <random>

#include "CapturedOutput.h"
#include "CaseFile.h"
#include "CountingAllocator.h"
#include "StringProbe.h"
#include "StringProgram.h"

namespace
{
int Refs(const CMString& oString) { return CStringProbe::GetRefs(oString); }

bool IsNil(const CMString& oString) { return Text(oString) == CStringProbe::GetNil(); }

int LengthOf(const std::string& sText) { return static_cast<int>(sText.size()); }

const char* const gsc_pszNull = nullptr;

class String : public testing::Test
{
protected:
    CCountingAllocator m_oHeap; // checks that everything is given back
};

// Where an operation exists with int and with unsigned int, both mean the same.
unsigned int Unsigned(int iNumber) { return static_cast<unsigned int>(iNumber); }

struct SCall
{
    CMString& m_o;
    const char* m_psz;
    int m_i = 0, m_j = 0;
    int m_iAnswer = 0;
};

const std::map<std::string, void (*)(SCall&)> gsc_oOperations = {
    { "InsertChar", [](SCall& o) { o.m_iAnswer = o.m_o.Insert(Unsigned(o.m_i), *o.m_psz); } },
    { "Insert", [](SCall& o) { o.m_iAnswer = o.m_o.Insert(Unsigned(o.m_i), o.m_psz); } },
    { "Delete", [](SCall& o) { o.m_iAnswer = o.m_o.Delete(Unsigned(o.m_i), Unsigned(o.m_j)); } },
    { "GetAt", [](SCall& o) { o.m_iAnswer = o.m_o.GetAt(o.m_i); } },
    { "SetAt", [](SCall& o) { o.m_o.SetAt(Unsigned(o.m_i), *o.m_psz); } },
    { "Find", [](SCall& o) { o.m_iAnswer = o.m_o.Find(o.m_psz, 0); } },
    { "TrimLeft", [](SCall& o) { o.m_o.TrimLeft(o.m_psz); } },
    { "TrimRight", [](SCall& o) { o.m_o.TrimRight(o.m_psz); } },
    { "Trim", [](SCall& o) { o.m_o.Trim(o.m_psz); } },
    { "AppendChar", [](SCall& o) { o.m_o += *o.m_psz; } },
    { "Append", [](SCall& o) { o.m_o += o.m_psz; } },
    { "AppendPart", [](SCall& o) { o.m_o.ConcatInPlace(o.m_i, o.m_psz); } },
    { "AppendItself", [](SCall& o) { o.m_o += o.m_o; } },
    { "Assign", [](SCall& o) { o.m_o = o.m_psz; } },
    { "AssignChar", [](SCall& o) { o.m_o = *o.m_psz; } },
    { "AssignString", [](SCall& o) { o.m_o = CMString(o.m_psz); } },
    { "AssignItself", [](SCall& o) { o.m_o.operator=(o.m_o); } },
    { "MakeUpper", [](SCall& o) { o.m_o.MakeUpper(); } },
    { "MakeLower", [](SCall& o) { o.m_o.MakeLower(); } },
    { "MakeReverse", [](SCall& o) { o.m_o.MakeReverse(); } },
    { "MakeLongest", [](SCall& o) { o.m_iAnswer = CMString('x', INT_MAX).GetAllocLength(); } },
    { "GetBuffer", [](SCall& o) { o.m_iAnswer = o.m_o.GetBuffer(Unsigned(o.m_i)) != nullptr ? 1 : 0; } },
    { "SetLength", [](SCall& o) { o.m_iAnswer = o.m_o.GetBufferSetLength(Unsigned(o.m_i)) != nullptr ? 1 : 0; } },
    { "ReleaseBuffer", [](SCall& o) { o.m_o.ReleaseBuffer(o.m_i); } },
    { "Empty", [](SCall& o) { o.m_o.Empty(); } },
    { "FreeExtra", [](SCall& o) { o.m_o.FreeExtra(); } },
    { "Format", [](SCall& o) { o.m_o.Format(o.m_psz, 1, 1); } },
    { "AppendFormat", [](SCall& o) { o.m_o.AppendFormat(o.m_psz, 1, 1); } },
};

std::string Unquoted(const std::string& sField) { return sField.size() < 2 ? "" : sField.substr(1, sField.size() - 2); }

// iCapacity: for the four characters.
void CheckChange(const SCaseRow& oRow, const char* pszState, int iCapacity, bool bIsShared, bool bIsLocked)
{
    SCOPED_TRACE(oRow.GetName() + " " + pszState);
    CMString oText(" Ab ");
    const char* pszBuffer = oText.GetBuffer(iCapacity);
    if (bIsLocked)
    {
        oText.LockBuffer();
    }
    const CMString oHolder = bIsShared || bIsLocked ? oText : CMString(" Ab ");
    const int iRefs = Refs(oText);
    const std::string& sField = oRow.GetText(4);
    const std::string sArgument = Unquoted(sField);
    SCall oCall = { oText, sField == "null" ? nullptr : sArgument.c_str() };
    std::istringstream(oRow.GetText(3)) >> oCall.m_i >> oCall.m_j;
    if (sField.starts_with("own"))
    {
        oCall.m_psz = pszBuffer + std::stoi(sField.substr(4));
    }
    CCapturedOutput oOutput;
    gsc_oOperations.at(oRow.GetText(2))(oCall);
    EXPECT_EQ(oRow.GetNumber(7), oOutput.TakeAssertionCount());
    EXPECT_EQ(oRow.GetNumber(5), static_cast<unsigned int>(oCall.m_iAnswer));
    const std::string sExpected = Unquoted(oRow.GetText(6));
    EXPECT_EQ(sExpected, Text(oText));
    EXPECT_EQ(LengthOf(sExpected), oText.GetLength());

    const bool bFits = !bIsShared && LengthOf(sExpected) <= iCapacity;
    const bool bAssigned = bFits && !sExpected.empty();
    const std::map<std::string, bool> oStays = { { "kept", bIsShared ? sExpected == " Ab " : bFits },
                                                 { "taken", bFits },
                                                 { "assigned", bAssigned },
                                                 { "replaced", bAssigned && bIsLocked },
                                                 { "cleared", bIsLocked },
                                                 { "exact", false } };
    if (oStays.at(oRow.GetText(1)))
    {
        EXPECT_EQ(pszBuffer, Text(oText));
        EXPECT_EQ(iCapacity, oText.GetAllocLength());
        EXPECT_EQ(iRefs, Refs(oText)); // a locked one is still locked
    }
    else
    {
        const bool bTextStays = oRow.GetText(1) == "kept" || oRow.GetText(1) == "taken";
        EXPECT_EQ(std::max(LengthOf(sExpected), bTextStays ? 4 : 0), oText.GetAllocLength());
        EXPECT_EQ(IsNil(oText) ? -1 : 1, Refs(oText)); // neither shared nor locked
    }
    EXPECT_STREQ(" Ab ", oHolder); // no change reaches another holder
    EXPECT_EQ(bIsShared ? 7 : 4, oHolder.GetAllocLength());
}
} // namespace

TEST_F(String, ChangesInEveryStateOfTheBuffer)
{
    for (const SCaseRow& oRow : ReadCases("Containers/golden/changes.txt", 8))
    {
        CheckChange(oRow, "Exact", 4, false, false);
        CheckChange(oRow, "Roomy", 7, false, false);
        CheckChange(oRow, "Shared", 7, true, false);
        CheckChange(oRow, "Locked", 7, false, true);
    }
}

// Characters of the own buffer that a cut text left after its end.
TEST_F(String, OwnCharactersBehindTheEnd)
{
    const auto Make = [](int iLength) {
        CMString oText("abcdefghij");
        oText.GetBuffer(0);
        oText.ReleaseBuffer(iLength);
        return oText;
    };
    CMString oText = Make(2);
    EXPECT_EQ(8, oText.Insert(0, Text(oText) + 4));
    EXPECT_STREQ("efghijab", oText);
    oText = Make(3);
    oText += Text(oText) + 4;
    EXPECT_STREQ("abcefghij", oText);
    oText = Make(3);
    oText.ConcatInPlace(5, Text(oText) + 4);
    EXPECT_STREQ("abcefghi", oText);
}

// Random programs over strings and their model. Half of the bytes are letters, so that searches find something.
TEST_F(String, OperationsAgreeWithStdString)
{
    const CQuietMessages oQuiet;
    std::minstd_rand oRandom;
    CBytes aui8Program(3000);
    const CBytes aui8Letters = { ' ', 'a', 'A', 'b', 'B', '@', '[', '`', '{' };
    for (unsigned int i = 0; i < 500; ++i)
    {
        std::ranges::generate(aui8Program, [&] {
            const unsigned char ui8Random = static_cast<unsigned char>(oRandom() >> 8);
            return oRandom() % 2 == 0 ? aui8Letters[ui8Random % aui8Letters.size()] : ui8Random;
        });
        ASSERT_STREQ(nullptr, StringProgram::Run(aui8Program.data(), aui8Program.size()));
    }
}

TEST_F(String, PartsAreExactAndTheWholeIsShared)
{
    const CMString oText("abcde");
    for (const CMString& oWhole : { oText.Mid(0U), oText.Mid(-3, 5), oText.Left(INT_MAX), oText.Right(5U) })
    {
        EXPECT_EQ(Text(oText), Text(oWhole));
    }
    for (const CMString& oPart : { oText.Mid(1U), oText.Mid(0U, 4U), oText.Left(4U), oText.Right(4), oText.Mid(1, 9) })
    {
        EXPECT_EQ(4, oPart.GetAllocLength());
        EXPECT_TRUE(oPart == (oPart[0] == 'a' ? "abcd" : "bcde"));
        EXPECT_TRUE(oPart != oText);
    }
    EXPECT_TRUE(IsNil(oText.Mid(5)));
    EXPECT_EQ(6, (oText + "x").GetAllocLength());
}

TEST_F(String, NulsAndNull)
{
    CMString oText("abcde");
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
    EXPECT_TRUE(IsNil(oText + oText));
    EXPECT_TRUE(IsNil(gsc_pszNull));
    EXPECT_TRUE(IsNil(""));
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
    EXPECT_EQ(pszBuffer, oText.GetBuffer(5U));
    ZorTools_strcpy_s(pszBuffer, 9, "12345678");
    oText.ReleaseBuffer(-1);
    EXPECT_EQ(8, oText.GetLength());
    oText.Delete(0, 8); // an empty text in a buffer, which is shared and then left for the shared empty one
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
}

namespace
{
// A text of 2 GiB without the memory for it: the same pages again and again, all mapped beforehand, since a page fault
// for each takes long. The text stays until the process ends. Null where the system does not map that much.
const char* MapHugeText()
{
    constexpr size_t uiPart = 1U << 20;
    constexpr size_t uiSize = 1UL << 31;
    const int iFile = memfd_create("text", 0);
    // One part more than there are characters: its zeros end the text.
    void* pText = mmap(nullptr, uiSize + uiPart, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    const std::string sPart(uiPart, 'x');
    bool bIsMapped = pText != MAP_FAILED && write(iFile, sPart.data(), uiPart) == static_cast<ssize_t>(uiPart);
    for (size_t uiAt = 0; uiAt < uiSize && bIsMapped; uiAt += uiPart)
    {
        void* pPart = static_cast<char*>(pText) + uiAt;
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
