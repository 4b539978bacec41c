// CMAllocator and CMArray: where memory comes from, when buffers move, what runs on elements and what guards refuse.

#include <limits.h>

#include <utility>

#include "CapturedOutput.h"
#include "CaseFile.h"
#include "CountingAllocator.h"
#include "StringProbe.h"

namespace
{
using CNumberArray = CMArray<unsigned int, const unsigned int&>;
using CNumbers = std::vector<unsigned int>;

// Notes what runs on it, assignments apart.
class CTracked
{
public:
    CTracked() noexcept { ms_sCalls += '+'; }
    CTracked(const CTracked& oOther) : m_uiValue(oOther.m_uiValue) { ms_sCalls += 'c'; }
    CTracked& operator=(const CTracked&) = default;
    ~CTracked() { ms_sCalls += '-'; }

    unsigned int m_uiValue; // left to the zero fill
    static inline std::string ms_sCalls;
};

template <class NUMBER>
std::vector<NUMBER> Elements(const CMArray<NUMBER, const NUMBER&>& oArray)
{
    return { oArray.GetData(), oArray.GetData() + oArray.GetCount() };
}

CNumberArray Numbers(const CNumbers& auiValues)
{
    CNumberArray oArray;
    for (unsigned int uiValue : auiValues)
    {
        oArray.Add(uiValue);
    }
    oArray.FreeExtra();
    return oArray;
}
} // namespace

template <>
inline constexpr bool gsc_bByteRelocatable<CTracked> = true;

TEST(ArrayGrowth, AllocatesByAStepThatIsDerivedOnceOrGiven)
{
    const CQuietMessages oQuiet;
    for (const SCaseRow& oRow : ReadCases("Containers/golden/growth.txt", 3))
    {
        SCOPED_TRACE(oRow.GetName());
        CCountingAllocator oHeap;
        CMArray<unsigned char, const unsigned char&> oArray;
        CBytes aui8Model;
        for (const std::string& sSize : oRow.GetWords(1))
        {
            const size_t uiSlash = sSize.find('/');
            const int iSize = std::stoi(sSize);
            oArray.SetSize(iSize, uiSlash != std::string::npos ? std::stoi(sSize.substr(uiSlash + 1)) : -1);
            aui8Model.resize(iSize >= 0 ? static_cast<size_t>(iSize) : aui8Model.size());
            ASSERT_EQ(aui8Model, Elements(oArray)); // new ones are 0
            aui8Model.assign(aui8Model.size(), 7);
            std::fill_n(oArray.GetData(), oArray.GetCount(), static_cast<unsigned char>(7));
        }
        oArray.FreeExtra();
        oArray.FreeExtra(); // there is none any more
        EXPECT_EQ(oRow.GetNumbers(2), CNumbers(oHeap.GetSizes().begin(), oHeap.GetSizes().end()));
        EXPECT_EQ(aui8Model, Elements(oArray));
    }
    CMArrayString oStrings;
    oStrings.SetAtGrow(2, CMString("x"));
    EXPECT_EQ(CStringProbe::GetNil(), Text(oStrings[0])); // constructed, not only zeroed
    EXPECT_STREQ("x", oStrings[2]);
}

TEST(ArrayGrowth, MovesElementsWithoutRunningAnything)
{
    {
        CMArray<CTracked, const CTracked&> oArray;
        oArray.SetSize(2, -1);
        oArray[1].m_uiValue = 5;
        oArray.SetSize(3, -1);
        oArray.FreeExtra();
        EXPECT_EQ("+++", CTracked::ms_sCalls);
        EXPECT_EQ(5U, oArray[1].m_uiValue);
        EXPECT_EQ(0U, oArray[2].m_uiValue);
        oArray.SetSize(1, -1);
        EXPECT_EQ("+++--", CTracked::ms_sCalls);
    }
    EXPECT_EQ("+++---", CTracked::ms_sCalls);
}

TEST(ArraySize, CopiesTakeTheElementsAndKeepTheLargerBuffer)
{
    CCountingAllocator oHeap;
    CNumberArray oTarget = Numbers({ 1, 2, 3, 4 });
    CNumberArray oSource = Numbers({ 8, 9 });
    oSource.SetSize(2, 100);
    const unsigned int* pBuffer = oTarget.GetData();
    oTarget = oSource;
    EXPECT_EQ(pBuffer, oTarget.GetData());
    oTarget.operator=(oTarget);
    EXPECT_EQ((CNumbers{ 8, 9 }), Elements(oTarget));
    CNumberArray oCopy(oSource);
    for (CNumberArray* poArray : { &oCopy, &oTarget })
    {
        poArray->FreeExtra();
        poArray->Add(7);
        EXPECT_EQ(6 * sizeof(unsigned int), oHeap.GetLastSize()); // the step stays
    }
    EXPECT_EQ(3, oTarget.Append(CNumberArray()));
    EXPECT_EQ(3, oTarget.Append(oSource)); // the index of the first new element
    EXPECT_EQ((CNumbers{ 8, 9, 7, 8, 9 }), Elements(oTarget));
    oTarget = CNumberArray();
    EXPECT_EQ(nullptr, oTarget.GetData());
}

// Sizes that wrap or that no memory call can take: the heap refuses them and the array is as before.
TEST(ArraySize, HugeSizesAreRefusedByTheHeap)
{
    CCountingAllocator oHeap;
    CNumberArray oArray = Numbers({ 1, 2, 3 });
    EXPECT_THROW(oArray.SetSize(INT_MAX, -1), std::bad_alloc);    // bytes beyond 32 bits
    EXPECT_THROW(oArray.SetSize(0x40000001, -1), std::bad_alloc); // bytes that wrap to few
    EXPECT_THROW(oArray.SetSize(4, INT_MAX - 3), std::bad_alloc); // a large step
    EXPECT_EQ((CNumbers{ 1, 2, 3 }), Elements(oArray));
}

TEST(ArrayGuards, ReportAndChangeNothing)
{
    void (*const apfnCalls[])(CNumberArray & o) = {
        [](CNumberArray& o) { o.SetSize(-1, -1); },
        [](CNumberArray& o) { o.SetCount(0x80000000U, -1); },
        [](CNumberArray& o) { o.SetAtGrow(-1, 9); },
        [](CNumberArray& o) { o.SetAt(3, 9); },
        [](CNumberArray& o) { EXPECT_EQ(0U, o.GetAt(-1)); },
        [](CNumberArray& o) { EXPECT_EQ(0U, std::as_const(o)[3U]); },
        [](CNumberArray& o) { o[3] = 9; },
        [](CNumberArray& o) { EXPECT_EQ(0U, o[3U]); }, // nothing is carried over
        [](CNumberArray& o) { EXPECT_EQ(3, o.Append(o)); },
        [](CNumberArray& o) { EXPECT_EQ(0, o.SortElements(nullptr, 0)); },
    };
    CNumberArray oArray = Numbers({ 3, 1, 2 });
    for (const auto& pfnCall : apfnCalls)
    {
        SCOPED_TRACE(&pfnCall - apfnCalls);
        CCapturedOutput oOutput;
        pfnCall(oArray);
        EXPECT_EQ(1U, oOutput.TakeAssertionCount());
        EXPECT_EQ((CNumbers{ 3, 1, 2 }), Elements(oArray));
    }
    CCapturedOutput oOutput;
    oArray.SetAtGrow(INT_MAX, 9); // no count has this index, and then it is outside
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
}

TEST(ArraySort, CallsStandInBubbleOrderAndEqualsStay)
{
    static std::string s_sCalls;
    const auto CompareTens = [](const unsigned int& uiFirst, const unsigned int& uiSecond, unsigned long ulContext) {
        EXPECT_EQ(0x123456789ABCDEF0UL, ulContext);
        s_sCalls += s_sCalls.empty() ? "" : " ";
        s_sCalls += std::to_string(uiFirst) + ":" + std::to_string(uiSecond);
        return static_cast<int>(uiFirst / 10) - static_cast<int>(uiSecond / 10);
    };
    for (const SCaseRow& oRow : ReadCases("Containers/golden/sorts.txt", 4))
    {
        s_sCalls.clear();
        CNumberArray oArray = Numbers(oRow.GetNumbers(1));
        EXPECT_EQ(1, oArray.SortElements(CompareTens, 0x123456789ABCDEF0));
        EXPECT_EQ(oRow.GetText(2), s_sCalls);
        EXPECT_EQ(oRow.GetNumbers(3), Elements(oArray));
    }
}
