// CMAllocator and CMArray: where memory comes from, when buffers move, what runs on elements and what guards refuse.

#include <limits.h>

#include <string>
#include <utility>
#include <vector>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "StringProbe.h"

namespace
{
using CByteArray = CMArray<unsigned char, const unsigned char&>;
using CNumberArray = CMArray<unsigned int, const unsigned int&>;
using CStringArray = CMArray<CMString, const CMString&>;
using CNumbers = std::vector<unsigned int>;

// Counts what runs on it.
class CTracked
{
public:
    CTracked() { ++ms_uiConstructed; }
    CTracked(const CTracked& oOther) : m_uiValue(oOther.m_uiValue) { ++ms_uiCopied; }
    CTracked& operator=(const CTracked& oOther)
    {
        ++ms_uiCopied;
        m_uiValue = oOther.m_uiValue;
        return *this;
    }
    ~CTracked() { ++ms_uiDestroyed; }

    unsigned int m_uiValue; // left to the zero fill
    static inline constinit unsigned int ms_uiConstructed = 0, ms_uiCopied = 0, ms_uiDestroyed = 0;
};

CNumbers Elements(const CNumberArray& oArray)
{
    return CNumbers(oArray.GetData(), oArray.GetData() + oArray.GetCount());
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
    struct SCase
    {
        const char* m_pszName;
        std::vector<std::pair<int, int>> m_aiSizesAndSteps; // the calls of SetSize
        std::vector<unsigned long> m_aulAllocated;
    };
    const SCase aoCases[] = {
        { "FirstIsExact", { { 1, -1 }, { 2, -1 }, { 5, -1 }, { 6, -1 } }, { 1, 5, 9 } },
        { "SmallerKeepsTheBuffer", { { 5, -1 }, { 2, -1 }, { 5, -1 } }, { 5 } },
        { "EighthIsRoundedDown", { { 47, -1 }, { 48, -1 } }, { 47, 52 } },
        { "NotDerivedAgain", { { 80, -1 }, { 81, -1 }, { 800, -1 }, { 801, -1 } }, { 80, 90, 800, 810 } },
        { "JustBelowTheLargest", { { 8191, -1 }, { 8192, -1 } }, { 8191, 9214 } },
        { "CutToTheLargest", { { 16000, -1 }, { 16001, -1 } }, { 16000, 17024 } },
        { "GivenAtFirst", { { 3, 7 }, { 4, -1 } }, { 3, 10 } },
        { "GivenWithin", { { 3, -1 }, { 2, 7 }, { 4, -1 } }, { 3, 10 } },
        { "GivenForNothing", { { 0, 7 }, { 3, -1 }, { 4, -1 } }, { 3, 10 } },
        { "GivenWithGrowth", { { 3, -1 }, { 4, 7 } }, { 3, 10 } },
        { "AddedToTheCapacity", { { 5, -1 }, { 2, -1 }, { 6, 7 } }, { 5, 12 } },
        { "ZeroDerivesAnew", { { 3, 100 }, { 3, 0 }, { 4, -1 } }, { 3, 7 } },
        { "StaysWithoutElements", { { 3, 7 }, { 0, -1 }, { 3, -1 }, { 4, -1 } }, { 3, 3, 10 } },
        { "NegativeSizeStoresNothing", { { 3, -1 }, { -1, 7 }, { 4, -1 } }, { 3, 7 } },
        { "WrappedStepGivesTheExactSize", { { 3, INT_MAX }, { 5, -1 } }, { 3, 5 } },
    };
    const CQuietMessages oQuiet;
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        CCountingAllocator oHeap;
        CByteArray oArray;
        std::vector<unsigned char> aui8Model;
        for (const auto& [iSize, iStep] : oCase.m_aiSizesAndSteps)
        {
            oArray.SetSize(iSize, iStep);
            aui8Model.resize(iSize >= 0 ? static_cast<size_t>(iSize) : aui8Model.size());
            ASSERT_EQ(aui8Model, std::vector<unsigned char>(oArray.GetData(), oArray.GetData() + oArray.GetCount()));
            aui8Model.assign(aui8Model.size(), 7);
            ZorTools_memset(oArray.GetData(), 7, oArray.GetCount());
        }
        EXPECT_EQ(oCase.m_aulAllocated, oHeap.GetSizes());
        oArray.FreeExtra();
        oArray.FreeExtra(); // there is none any more
        EXPECT_EQ(oArray.GetCount(), oHeap.GetLastSize());
        EXPECT_EQ(oCase.m_aulAllocated.size() + (oArray.GetCount() != oCase.m_aulAllocated.back() ? 1 : 0),
                  oHeap.GetAllocCount());
        EXPECT_EQ(aui8Model, std::vector<unsigned char>(oArray.GetData(), oArray.GetData() + oArray.GetCount()));
    }
    CStringArray oStrings;
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
        EXPECT_EQ(2U, CTracked::ms_uiConstructed);
        oArray.SetSize(3, -1);
        oArray.FreeExtra();
        EXPECT_EQ(3U, CTracked::ms_uiConstructed);
        EXPECT_EQ(0U, CTracked::ms_uiCopied + CTracked::ms_uiDestroyed);
        EXPECT_EQ(5U, oArray[1].m_uiValue);
        EXPECT_EQ(0U, oArray[2].m_uiValue);
        oArray.SetSize(1, -1);
        EXPECT_EQ(2U, CTracked::ms_uiDestroyed);
    }
    EXPECT_EQ(3U, CTracked::ms_uiDestroyed);
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
        EXPECT_EQ(6 * sizeof(unsigned int), oHeap.GetLastSize()); // the step stays behind
    }
    EXPECT_EQ(3, oTarget.Append(CNumberArray()));
    EXPECT_EQ(3, oTarget.Append(oSource)); // the index of the first new element
    EXPECT_EQ((CNumbers{ 8, 9, 7, 8, 9 }), Elements(oTarget));
    oTarget = CNumberArray();
    EXPECT_EQ(nullptr, oTarget.GetData());
}

TEST(ArraySize, OtherOperationsGoThroughTheVirtualSetSize)
{
    class CListening : public CByteArray
    {
    public:
        void SetSize(int iNewSize, int iGrowBy) override
        {
            m_aiSizes.push_back(iNewSize);
            CByteArray::SetSize(iNewSize, iGrowBy);
        }
        std::vector<int> m_aiSizes;
    };
    CListening oArray;
    CByteArray oMore;
    oMore.Add(4);
    oArray.SetCount(2, -1);
    oArray.SetAtGrow(2, 1);
    oArray.SetAtGrow(0, 1); // within: no call
    oArray.Append(oMore);
    static_cast<CByteArray&>(oArray) = oMore;
    oArray.RemoveAll();
    EXPECT_EQ((std::vector<int>{ 2, 3, 4, 1, 0 }), oArray.m_aiSizes);
}

// Sizes that wrap or that no memory call can take: the heap refuses them and the array is as before.
TEST(ArraySize, HugeSizesAreRefusedByTheHeap)
{
    CCountingAllocator oHeap;
    CNumberArray oArray = Numbers({ 1, 2, 3 });
    EXPECT_THROW(oArray.SetSize(INT_MAX, -1), std::bad_alloc);    // bytes beyond 32 bits
    EXPECT_THROW(oArray.SetSize(0x40000001, -1), std::bad_alloc); // bytes that wrap to few
    EXPECT_THROW(oArray.SetSize(4, INT_MAX - 3), std::bad_alloc); // a large step
    EXPECT_EQ(3U, oHeap.GetRefusedCount());
    EXPECT_EQ((CNumbers{ 1, 2, 3 }), Elements(oArray));
}

TEST(ArrayGuards, ReportAndChangeNothing)
{
    void (*const apfnCalls[])(CNumberArray & o) = {
        [](CNumberArray& o) { o.SetSize(-1, -1); },
        [](CNumberArray& o) { o.SetCount(0x80000000U, -1); },
        [](CNumberArray& o) { o.SetAtGrow(-1, 9); },
        [](CNumberArray& o) { o.SetAt(-1, 9); },
        [](CNumberArray& o) { o.SetAt(3, 9); },
        [](CNumberArray& o) { EXPECT_EQ(0U, o.GetAt(-1)); },
        [](CNumberArray& o) { EXPECT_EQ(0U, std::as_const(o)[3U]); },
        [](CNumberArray& o) { o[3] = 9; },
        [](CNumberArray& o) { EXPECT_EQ(0U, o[3U]); }, // nothing is carried over
        [](CNumberArray& o) { EXPECT_EQ(3, o.Append(o)); },
        [](CNumberArray& o) { EXPECT_EQ(0, o.SortElements(nullptr, 0)); },
        [](CNumberArray&) { MConstructElements<unsigned int>(nullptr, 0); }, // whatever the count
        [](CNumberArray&) { MDestructElements<unsigned int>(nullptr, 0); },
        [](CNumberArray&) { CStringArray()[0] = "text"; },
        [](CNumberArray&) { EXPECT_EQ(0, CStringArray()[0].GetLength()); },
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

TEST(ArrayElements, AreCopiedInRisingOrder)
{
    unsigned int auiNumbers[] = { 1, 2, 3, 4 };
    CMArrayCopyElements(auiNumbers + 1, auiNumbers, 2); // overlapping: the first value spreads
    for (int iCount : { 0, -1 })
    {
        MConstructElements(auiNumbers, iCount);
        CMArrayCopyElements(auiNumbers, auiNumbers + 3, iCount);
    }
    EXPECT_EQ((CNumbers{ 1, 1, 1, 4 }), CNumbers(auiNumbers, auiNumbers + 4));
}

namespace
{
std::string* g_psCalls = nullptr;

// Compares tens only and notes the pairs.
int CompareTens(const unsigned int& uiFirst, const unsigned int& uiSecond, unsigned long ulContext)
{
    EXPECT_EQ(0x123456789ABCDEF0UL, ulContext);
    *g_psCalls += std::to_string(uiFirst) + ":" + std::to_string(uiSecond) + " ";
    return static_cast<int>(uiFirst / 10) - static_cast<int>(uiSecond / 10);
}
} // namespace

TEST(ArraySort, CallsStandInBubbleOrderAndEqualsStay)
{
    struct SCase
    {
        CNumbers m_auiBefore, m_auiAfter;
        const char* m_pszCalls;
    };
    const SCase aoCases[] = {
        { {}, {}, "" },
        { { 10 }, { 10 }, "" },
        { { 10, 20, 30 }, { 10, 20, 30 }, "10:20 20:30 " },       // one pass
        { { 30, 10, 20 }, { 10, 20, 30 }, "30:10 30:20 10:20 " }, // one that swaps and a quiet one
        { { 40, 30, 20, 10 }, { 10, 20, 30, 40 }, "40:30 40:20 40:10 30:20 30:10 20:10 " },
        { { 21, 12, 22, 11 }, { 12, 11, 21, 22 }, "21:12 21:22 22:11 12:21 21:11 12:11 " },
    };
    for (const SCase& oCase : aoCases)
    {
        CNumberArray oArray = Numbers(oCase.m_auiBefore);
        std::string sCalls;
        g_psCalls = &sCalls;
        EXPECT_EQ(1, oArray.SortElements(CompareTens, 0x123456789ABCDEF0));
        EXPECT_EQ(oCase.m_auiAfter, Elements(oArray));
        EXPECT_EQ(oCase.m_pszCalls, sCalls);
    }
}
