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
        m_uiValue = oOther.m_uiValue;
        ++ms_uiAssigned;
        return *this;
    }
    ~CTracked() { ++ms_uiDestroyed; }

    static void ResetCounts() { ms_uiConstructed = ms_uiCopied = ms_uiAssigned = ms_uiDestroyed = 0; }

    unsigned int m_uiValue; // left to the zero fill
    static constinit unsigned int ms_uiConstructed, ms_uiCopied, ms_uiAssigned, ms_uiDestroyed;
};
constinit unsigned int CTracked::ms_uiConstructed = 0;
constinit unsigned int CTracked::ms_uiCopied = 0;
constinit unsigned int CTracked::ms_uiAssigned = 0;
constinit unsigned int CTracked::ms_uiDestroyed = 0;

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

// The step that an empty array has kept: the distance of its second and third capacity, since the first is exact.
unsigned long TakeStep(CByteArray& oArray, const CCountingAllocator& oHeap)
{
    const size_t uiFirst = oHeap.GetAllocCount();
    while (oHeap.GetAllocCount() < uiFirst + 3)
    {
        oArray.Add(0);
    }
    return oHeap.GetSizes()[uiFirst + 2] - oHeap.GetSizes()[uiFirst + 1];
}
}

template <>
inline constexpr bool gsc_bByteRelocatable<CTracked> = true;

TEST(Allocator, ForwardsToTheReplacementAlsoForNull)
{
    CCountingAllocator oHeap;
    CMAllocator oLocal;
    void* p = oLocal.Alloc(7);
    EXPECT_EQ(7U, oHeap.GetLastSize());
    oLocal.Free(p);
    oLocal.Free(nullptr);
    EXPECT_EQ(1U, oHeap.GetFreedNullCount());
}

TEST(ArrayGrowth, FirstAllocationIsExactThenStepsOfFour)
{
    CCountingAllocator oHeap;
    CByteArray oArray;
    for (unsigned char i = 0; i < 14; ++i)
    {
        oArray.Add(i);
    }
    EXPECT_EQ((std::vector<unsigned long>{ 1, 5, 9, 13, 17 }), oHeap.GetSizes());
    EXPECT_EQ(0, oArray[0]);
    EXPECT_EQ(13, oArray[13]);
}

TEST(ArrayGrowth, StepIsDerivedOnceOrGiven)
{
    struct SCase
    {
        const char* m_szName;
        std::vector<std::pair<int, int>> m_aiSizesAndSteps; // the calls of SetSize
        unsigned long m_ulStep;
    };
    const SCase aoCases[] = {
        { "BelowTheSmallest", { { 8, -1 }, { 9, -1 } }, 4 },
        { "EighthTruncates", { { 47, -1 }, { 48, -1 } }, 5 },
        { "Eighth", { { 80, -1 }, { 81, -1 } }, 10 },
        { "NotDerivedAgain", { { 80, -1 }, { 81, -1 }, { 800, -1 } }, 10 },
        { "JustBelowTheLargest", { { 8191, -1 }, { 8192, -1 } }, 1023 },
        { "CutToTheLargest", { { 16000, -1 }, { 16001, -1 } }, 1024 },
        { "GivenAtFirst", { { 3, 7 } }, 7 },
        { "GivenWithin", { { 3, -1 }, { 2, 7 } }, 7 },
        { "GivenAtTheSameSize", { { 3, -1 }, { 3, 7 } }, 7 },
        { "GivenForNothing", { { 0, 7 } }, 7 },
        { "GivenWithGrowth", { { 3, -1 }, { 4, 7 } }, 7 },
        { "ZeroDerivesAnew", { { 3, 100 }, { 3, 0 } }, 4 },
        { "NegativeSizeStoresNothing", { { 3, -1 }, { -1, 7 } }, 4 },
    };
    const CQuietMessages oQuiet;
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CCountingAllocator oHeap;
        CByteArray oArray;
        for (const auto& [iSize, iStep] : oCase.m_aiSizesAndSteps)
        {
            oArray.SetSize(iSize, iStep);
        }
        oArray.RemoveAll(); // the step stays
        CByteArray oCopy(oArray);
        CByteArray oAssigned;
        oAssigned = oArray;
        EXPECT_EQ(oCase.m_ulStep, TakeStep(oArray, oHeap));
        EXPECT_EQ(4U, TakeStep(oCopy, oHeap)); // copies take the elements alone
        EXPECT_EQ(4U, TakeStep(oAssigned, oHeap));
    }
}

TEST(ArrayGrowth, StepIsAddedToTheCapacity)
{
    CCountingAllocator oHeap;
    CByteArray oArray;
    oArray.SetSize(3, INT_MAX);
    oArray.SetSize(5, -1); // the step wraps: the exact size
    EXPECT_EQ(5U, oHeap.GetLastSize());
    oArray.SetSize(2, -1);
    oArray.SetSize(6, 7);
    EXPECT_EQ(12U, oHeap.GetLastSize());
}

TEST(ArrayGrowth, MovesElementsWithoutRunningAnything)
{
    {
        CMArray<CTracked, const CTracked&> oArray;
        oArray.SetSize(2, -1);
        oArray[1].m_uiValue = 5;
        CTracked::ResetCounts();
        oArray.SetSize(3, -1);
        oArray.FreeExtra();
        EXPECT_EQ(1U, CTracked::ms_uiConstructed);
        EXPECT_EQ(0U, CTracked::ms_uiCopied + CTracked::ms_uiAssigned + CTracked::ms_uiDestroyed);
        EXPECT_EQ(5U, oArray[1].m_uiValue);
        EXPECT_EQ(0U, oArray[2].m_uiValue);
        oArray.SetSize(1, -1);
        EXPECT_EQ(2U, CTracked::ms_uiDestroyed);
    }
    EXPECT_EQ(3U, CTracked::ms_uiDestroyed);
}

TEST(ArraySize, SlotsThatComeBackAreZeroed)
{
    CCountingAllocator oHeap;
    CNumberArray oArray;
    oArray.SetSize(5, -1);
    oArray[1] = 2;
    oArray[4] = 5;
    oArray.SetSize(2, -1);
    oArray.SetSize(5, -1);
    EXPECT_EQ((CNumbers{ 0, 2, 0, 0, 0 }), Elements(oArray));
    oArray.FreeExtra();
    EXPECT_EQ(1U, oHeap.GetAllocCount()); // neither moved nor reduced
    oArray.SetSize(2, -1);
    oArray.FreeExtra();
    EXPECT_EQ(2 * sizeof(unsigned int), oHeap.GetLastSize());
    EXPECT_EQ((CNumbers{ 0, 2 }), Elements(oArray));
}

TEST(ArraySize, SetAtGrowConstructsTheSlotsBetween)
{
    CNumberArray oNumbers;
    oNumbers.SetAtGrow(5, 7);
    EXPECT_EQ((CNumbers{ 0, 0, 0, 0, 0, 7 }), Elements(oNumbers));

    CStringArray oStrings;
    oStrings.SetAtGrow(2, CMString("x"));
    EXPECT_EQ(CStringProbe::GetNil(), Text(oStrings[0]));
    EXPECT_STREQ("x", oStrings[2]);
}

TEST(ArraySize, CopiesKeepTheLargerBuffer)
{
    CCountingAllocator oHeap;
    CNumberArray oTarget = Numbers({ 1, 2, 3, 4 });
    const CNumberArray oSource = Numbers({ 8, 9 });
    const unsigned int* pBuffer = oTarget.GetData();
    oTarget = oSource;
    EXPECT_EQ(pBuffer, oTarget.GetData());
    EXPECT_EQ(Elements(oSource), Elements(oTarget));
    const CNumberArray& oSelf = oTarget;
    oTarget = oSelf;
    EXPECT_EQ(Elements(oSource), Elements(oTarget));
    EXPECT_EQ(2, oTarget.Append(CNumberArray()));
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
            ++m_uiCalls;
            CByteArray::SetSize(iNewSize, iGrowBy);
        }
        unsigned int m_uiCalls = 0;
    };
    CListening oArray;
    CByteArray oMore;
    oMore.Add(4);
    oArray.SetCount(2, -1);
    oArray.SetAtGrow(2, 1);
    oArray.SetAtGrow(0, 1);             // within: no call
    EXPECT_EQ(3, oArray.Append(oMore)); // the index of the first new element
    EXPECT_EQ(4, oArray[3]);
    EXPECT_EQ(3U, oArray.m_uiCalls);
    static_cast<CByteArray&>(oArray) = oMore;
    EXPECT_EQ(4U, oArray.m_uiCalls);
    oArray.RemoveAll();
    EXPECT_EQ(5U, oArray.m_uiCalls);
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
    void (*const apfnCalls[])(CNumberArray&) = {
        [](CNumberArray& oArray) { oArray.SetSize(-1, -1); },
        [](CNumberArray& oArray) { oArray.SetCount(0x80000000U, -1); },
        [](CNumberArray& oArray) { oArray.SetAtGrow(-1, 9); },
        [](CNumberArray& oArray) { oArray.SetAt(-1, 9); },
        [](CNumberArray& oArray) { oArray.SetAt(3, 9); },
        [](CNumberArray& oArray) { EXPECT_EQ(0U, oArray.GetAt(-1)); },
        [](CNumberArray& oArray) { EXPECT_EQ(0U, std::as_const(oArray)[3U]); },
        [](CNumberArray& oArray) { oArray[3] = 9; },
        [](CNumberArray& oArray) { EXPECT_EQ(3, oArray.Append(oArray)); },
        [](CNumberArray& oArray) { EXPECT_EQ(0, oArray.SortElements(nullptr, 0)); },
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
    oArray.SetAtGrow(INT_MAX, 9); // the size that would be needed is no number, and then the index is outside
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
    EXPECT_EQ((CNumbers{ 3, 1, 2 }), Elements(oArray));
}

TEST(ArrayGuards, OutsideElementCarriesNothingOver)
{
    CCapturedOutput oOutput;
    CNumberArray oNumbers;
    oNumbers[4] = 9;
    EXPECT_EQ(0U, oNumbers[4]);
    CStringArray oStrings;
    oStrings[0] = "text";
    EXPECT_EQ(0, oStrings[0].GetLength());
    EXPECT_EQ(4U, oOutput.TakeAssertionCount());
}

TEST(ArrayElements, AreCopiedInRisingOrderAndNullReports)
{
    unsigned int auiNumbers[] = { 1, 2, 3, 4 };
    CMArrayCopyElements(auiNumbers + 1, auiNumbers, 2); // overlapping: the first value spreads
    for (int iCount : { 0, -1 })
    {
        MConstructElements(auiNumbers, iCount);
        CMArrayCopyElements(auiNumbers, auiNumbers + 3, iCount);
    }
    EXPECT_EQ((CNumbers{ 1, 1, 1, 4 }), CNumbers(auiNumbers, auiNumbers + 4));

    CCapturedOutput oOutput;
    MConstructElements<unsigned int>(nullptr, 0); // whatever the count
    MDestructElements<unsigned int>(nullptr, 0);
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
}

namespace
{
constexpr unsigned long gsc_ulContext = 0x123456789ABCDEF0;
std::string* g_psCalls = nullptr;

// Compares tens only and notes the pairs.
int CompareTens(const unsigned int& uiFirst, const unsigned int& uiSecond, unsigned long ulContext)
{
    EXPECT_EQ(gsc_ulContext, ulContext);
    *g_psCalls += std::to_string(uiFirst) + ":" + std::to_string(uiSecond) + " ";
    return static_cast<int>(uiFirst / 10) - static_cast<int>(uiSecond / 10);
}
}

TEST(ArraySort, CallsStandInBubbleOrderAndEqualsStay)
{
    struct SCase
    {
        const char* m_szName;
        CNumbers m_auiBefore;
        CNumbers m_auiAfter;
        const char* m_szCalls;
    };
    const SCase aoCases[] = {
        { "Empty", {}, {}, "" },
        { "One", { 10 }, { 10 }, "" },
        { "SortedStopsAfterOnePass", { 10, 20, 30 }, { 10, 20, 30 }, "10:20 20:30 " },
        { "SwapsThenOneQuietPass", { 30, 10, 20 }, { 10, 20, 30 }, "30:10 30:20 10:20 " },
        { "Reversed", { 40, 30, 20, 10 }, { 10, 20, 30, 40 }, "40:30 40:20 40:10 30:20 30:10 20:10 " },
        { "EqualsKeepTheirOrder", { 21, 12, 22, 11 }, { 12, 11, 21, 22 }, "21:12 21:22 22:11 12:21 21:11 12:11 " },
    };
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CNumberArray oArray = Numbers(oCase.m_auiBefore);
        std::string sCalls;
        g_psCalls = &sCalls;
        EXPECT_EQ(1, oArray.SortElements(CompareTens, gsc_ulContext));
        EXPECT_EQ(oCase.m_auiAfter, Elements(oArray));
        EXPECT_EQ(oCase.m_szCalls, sCalls);
    }
}

TEST(ArraySort, SwapsByThreeAssignmentsThroughOneTemporary)
{
    CMArray<CTracked, const CTracked&> oArray;
    oArray.SetSize(3, -1);
    CTracked::ResetCounts();
    oArray.SortElements([](const CTracked&, const CTracked&, unsigned long) { return 1; }, 0); // three swaps
    EXPECT_EQ(9U, CTracked::ms_uiAssigned);
    EXPECT_EQ(1U, CTracked::ms_uiConstructed);
    EXPECT_EQ(0U, CTracked::ms_uiCopied);
}
