// CMAllocator and CMArray: where memory comes from, when buffers move, what runs on elements and what guards refuse.

#include <limits.h>

#include <numeric>
#include <string>
#include <vector>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "StringProbe.h"

namespace
{
using CByteArray = CMArray<unsigned char, const unsigned char&>;
using CNumberArray = CMArray<unsigned int, const unsigned int&>;
using CStringArray = CMArray<CMString, const CMString&>;

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

// Capacities that an array takes one after the other, seen by the allocator.
std::vector<unsigned long> Capacities(const CCountingAllocator& oHeap, size_t uiElementSize)
{
    std::vector<unsigned long> aulCapacities;
    for (unsigned long ulSize : oHeap.GetSizes())
    {
        aulCapacities.push_back(ulSize / uiElementSize);
    }
    return aulCapacities;
}

template <class TYPE>
std::vector<TYPE> Elements(const CMArray<TYPE, const TYPE&>& oArray)
{
    return oArray.GetCount() == 0 ? std::vector<TYPE>()
                                  : std::vector<TYPE>(oArray.GetData(), oArray.GetData() + oArray.GetCount());
}

CNumberArray Numbers(std::vector<unsigned int> auiValues)
{
    CNumberArray oArray;
    oArray.SetCount(static_cast<unsigned int>(auiValues.size()), -1);
    for (unsigned int i = 0; i < auiValues.size(); ++i)
    {
        oArray[i] = auiValues[i];
    }
    return oArray;
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

TEST(Allocator, FallsBackToTheLanguageHeap)
{
    CMAllocator oLocal;
    void* p = oLocal.Alloc(16);
    ASSERT_NE(nullptr, p);
    oLocal.Free(p);
    oLocal.Free(nullptr);
}

TEST(ArrayGrowth, FirstAllocationIsExactThenStepsOfFour)
{
    CCountingAllocator oHeap;
    CByteArray oArray;
    for (unsigned char i = 0; i < 14; ++i)
    {
        oArray.Add(i);
    }
    EXPECT_EQ((std::vector<unsigned long>{ 1, 5, 9, 13, 17 }), Capacities(oHeap, 1));
    std::vector<unsigned char> aui8Expected(14);
    std::iota(aui8Expected.begin(), aui8Expected.end(), static_cast<unsigned char>(0));
    EXPECT_EQ(aui8Expected, Elements(oArray));
}

TEST(ArrayGrowth, StepIsDerivedOnceFromTheCount)
{
    struct SCase
    {
        const char* m_szName;
        int m_iFirstSize;
        unsigned long m_ulStep;
    };
    const SCase aoCases[] = {
        { "BelowTheSmallestStep", 8, 4 },      { "EighthTruncates", 47, 5 },       { "Eighth", 80, 10 },
        { "JustBelowTheLargest", 8191, 1023 }, { "CutToTheLargest", 16000, 1024 },
    };
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CCountingAllocator oHeap;
        CNumberArray oArray;
        oArray.SetSize(oCase.m_iFirstSize, -1);
        const unsigned long ulFirst = static_cast<unsigned long>(oCase.m_iFirstSize);
        for (unsigned int i = 0; i < 2 * oCase.m_ulStep + 1; ++i)
        {
            oArray.Add(i);
        }
        const std::vector<unsigned long> aulExpected = { ulFirst, ulFirst + oCase.m_ulStep,
                                                         ulFirst + 2 * oCase.m_ulStep, ulFirst + 3 * oCase.m_ulStep };
        EXPECT_EQ(aulExpected, Capacities(oHeap, sizeof(unsigned int)));
    }
}

TEST(ArrayGrowth, StepSurvivesRemoveAllAndIsNotCopied)
{
    CCountingAllocator oHeap;
    CByteArray oArray;
    oArray.SetSize(80, -1);
    oArray.Add(1); // derives 10
    oArray.RemoveAll();
    EXPECT_EQ(0U, oHeap.GetLiveCount());
    EXPECT_EQ(nullptr, oArray.GetData());
    oArray.Add(1);
    oArray.Add(2);
    EXPECT_EQ(11U, oHeap.GetLastSize());

    CByteArray oCopy(oArray);
    EXPECT_EQ(2U, oHeap.GetLastSize());
    oCopy.Add(3);
    EXPECT_EQ(6U, oHeap.GetLastSize());
}

TEST(ArrayGrowth, GivenStepIsStoredInEveryBranch)
{
    struct SCase
    {
        const char* m_szName;
        int m_iSize; // the call SetSize(m_iSize, 7) on an array of three
        unsigned long m_ulNextCapacity;
    };
    const SCase aoCases[] = {
        { "Within", 2, 3 + 7 },
        { "Same", 3, 3 + 7 },
        { "ToNothing", 0, 1 + 7 },
        { "Growing", 4, 10 + 7 },
    };
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CCountingAllocator oHeap;
        CByteArray oArray;
        oArray.SetSize(3, -1);
        oArray.SetSize(oCase.m_iSize, 7);
        const size_t uiAllocs = oHeap.GetAllocCount() + (oCase.m_iSize == 0 ? 2 : 1);
        while (oHeap.GetAllocCount() < uiAllocs)
        {
            oArray.Add(0);
        }
        EXPECT_EQ(oCase.m_ulNextCapacity, oHeap.GetLastSize());
    }
}

TEST(ArrayGrowth, ZeroStepIsDerivedAnew)
{
    CCountingAllocator oHeap;
    CByteArray oArray;
    oArray.SetSize(2, 100);
    oArray.SetSize(2, 0);
    oArray.Add(1);
    EXPECT_EQ(6U, oHeap.GetLastSize());
}

TEST(ArrayGrowth, MovesElementsWithoutRunningAnything)
{
    CCountingAllocator oHeap;
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
        EXPECT_EQ(3 * sizeof(CTracked), oHeap.GetLastSize());
        oArray.SetSize(1, -1);
        EXPECT_EQ(2U, CTracked::ms_uiDestroyed);
    }
    EXPECT_EQ(3U, CTracked::ms_uiDestroyed);
}

TEST(ArrayGrowth, LeavesReferenceCountsOfStringsAlone)
{
    CCountingAllocator oHeap;
    const CMString oShared("shared");
    CStringArray oArray;
    oArray.Add(oShared);
    oArray.Add(oShared);
    for (int i = 0; i < 20; ++i)
    {
        oArray.Add(CMString());
    }
    EXPECT_EQ(3, CStringProbe::GetRefs(oShared));
    EXPECT_EQ(Text(oShared), Text(oArray[1]));
    oArray.FreeExtra();
    EXPECT_EQ(3, CStringProbe::GetRefs(oShared));
    oArray.SetSize(1, -1);
    EXPECT_EQ(2, CStringProbe::GetRefs(oShared));
    oArray.RemoveAll();
    EXPECT_EQ(1, CStringProbe::GetRefs(oShared));
}

TEST(ArraySize, SlotsThatComeBackAreZeroed)
{
    CCountingAllocator oHeap;
    CNumberArray oArray;
    oArray.SetSize(16, -1);
    for (unsigned int i = 0; i < 16; ++i)
    {
        oArray[i] = i + 1;
    }
    oArray.SetSize(3, -1);
    oArray.SetSize(10, -1);
    EXPECT_EQ((std::vector<unsigned int>{ 1, 2, 3, 0, 0, 0, 0, 0, 0, 0 }), Elements(oArray));
    EXPECT_EQ(1U, oHeap.GetAllocCount()); // neither moved nor reduced
}

TEST(ArraySize, FreeExtraGivesAnExactBuffer)
{
    CCountingAllocator oHeap;
    CByteArray oArray;
    oArray.SetSize(16, -1);
    oArray[2] = 9;
    oArray.FreeExtra();
    EXPECT_EQ(1U, oHeap.GetAllocCount());
    oArray.SetSize(3, -1);
    oArray.FreeExtra();
    EXPECT_EQ(3U, oHeap.GetLastSize());
    EXPECT_EQ((std::vector<unsigned char>{ 0, 0, 9 }), Elements(oArray));
}

TEST(ArraySize, SetAtGrowConstructsTheSlotsBetween)
{
    CNumberArray oNumbers;
    oNumbers.SetAtGrow(5, 7);
    EXPECT_EQ((std::vector<unsigned int>{ 0, 0, 0, 0, 0, 7 }), Elements(oNumbers));

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
    oTarget = CNumberArray();
    EXPECT_EQ(nullptr, oTarget.GetData());
}

TEST(ArraySize, OtherOperationsGoThroughTheVirtualSetSize)
{
    class CListening : public CByteArray
    {
    public:
        explicit CListening(unsigned int* puiCalls) : m_puiCalls(puiCalls) {}
        void SetSize(int iNewSize, int iGrowBy) override
        {
            ++*m_puiCalls;
            CByteArray::SetSize(iNewSize, iGrowBy);
        }

    private:
        unsigned int* m_puiCalls;
    };
    unsigned int uiCalls = 0;
    {
        CListening oArray(&uiCalls);
        oArray.SetCount(2, -1);
        oArray.SetAtGrow(2, 1);
        oArray.SetAtGrow(0, 1); // within: no call
        CByteArray oMore;
        oMore.Add(4);
        EXPECT_EQ(3, oArray.Append(oMore));
        EXPECT_EQ(4, oArray.Append(CByteArray()));
        EXPECT_EQ(4U, uiCalls);
        static_cast<CByteArray&>(oArray) = oMore;
        EXPECT_EQ(5U, uiCalls);
        oArray.RemoveAll();
        EXPECT_EQ(6U, uiCalls);
    }
    EXPECT_EQ(6U, uiCalls); // the destructor does without
}

TEST(ArraySize, AppendGivesTheFirstNewIndex)
{
    CNumberArray oArray = Numbers({ 1, 2 });
    EXPECT_EQ(2, oArray.Append(Numbers({ 3, 4, 5 })));
    EXPECT_EQ(5, oArray.Append(CNumberArray()));
    EXPECT_EQ((std::vector<unsigned int>{ 1, 2, 3, 4, 5 }), Elements(oArray));
}

// Sizes that wrap or that no memory call can take: the heap refuses them and the array is as before.
TEST(ArraySize, HugeSizesAreRefusedByTheHeap)
{
    struct SCase
    {
        const char* m_szName;
        int m_iSize;
        int m_iGrowBy;
    };
    const SCase aoCases[] = {
        { "BytesBeyond32Bits", INT_MAX, -1 },
        { "BytesWrapToFew", 0x40000001, -1 },
        { "LargeStep", 4, INT_MAX - 3 },
    };
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CCountingAllocator oHeap;
        CNumberArray oArray = Numbers({ 1, 2, 3 });
        EXPECT_THROW(oArray.SetSize(oCase.m_iSize, oCase.m_iGrowBy), std::bad_alloc);
        EXPECT_EQ((std::vector<unsigned int>{ 1, 2, 3 }), Elements(oArray));
        CNumberArray oEmpty;
        EXPECT_THROW(oEmpty.SetSize(INT_MAX, -1), std::bad_alloc);
        EXPECT_EQ(0U, oEmpty.GetCount());
        EXPECT_EQ(2U, oHeap.GetRefusedCount());
    }
}

TEST(ArraySize, StepThatWrapsGivesTheExactSize)
{
    CCountingAllocator oHeap;
    CByteArray oArray;
    oArray.SetSize(3, INT_MAX);
    oArray.SetSize(5, -1);
    EXPECT_EQ(5U, oHeap.GetLastSize());
}

TEST(ArrayGuards, ReportOnceAndChangeNothing)
{
    struct SCase
    {
        const char* m_szName;
        void (*m_pfnCall)(CNumberArray& oArray);
    };
    const SCase aoCases[] = {
        { "SetSizeNegative", [](CNumberArray& oArray) { oArray.SetSize(-1, -1); } },
        { "SetCountAboveInt", [](CNumberArray& oArray) { oArray.SetCount(0x80000000U, -1); } },
        { "SetAtGrowNegative", [](CNumberArray& oArray) { oArray.SetAtGrow(-1, 9); } },
        { "SetAtNegative", [](CNumberArray& oArray) { oArray.SetAt(-1, 9); } },
        { "SetAtEnd", [](CNumberArray& oArray) { oArray.SetAt(3, 9); } },
        { "GetAtNegative", [](CNumberArray& oArray) { EXPECT_EQ(0U, oArray.GetAt(-1)); } },
        { "GetAtEnd", [](CNumberArray& oArray) { EXPECT_EQ(0U, oArray.GetAt(3)); } },
        { "ReadEnd", [](CNumberArray& oArray) { EXPECT_EQ(0U, std::as_const(oArray)[3U]); } },
        { "WriteEnd", [](CNumberArray& oArray) { oArray[3] = 9; } },
        { "AppendToItself", [](CNumberArray& oArray) { EXPECT_EQ(3, oArray.Append(oArray)); } },
        { "SortWithoutFunction", [](CNumberArray& oArray) { EXPECT_EQ(0, oArray.SortElements(nullptr, 0)); } },
    };
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CNumberArray oArray = Numbers({ 3, 1, 2 });
        CCapturedOutput oOutput;
        oCase.m_pfnCall(oArray);
        EXPECT_EQ(1U, oOutput.TakeAssertionCount());
        EXPECT_EQ((std::vector<unsigned int>{ 3, 1, 2 }), Elements(oArray));
    }
}

// The size that would be needed is no number, and then the index is outside.
TEST(ArrayGuards, TheHighestIndexReportsTwice)
{
    CNumberArray oArray = Numbers({ 3, 1, 2 });
    CCapturedOutput oOutput;
    oArray.SetAtGrow(INT_MAX, 9);
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
    EXPECT_EQ((std::vector<unsigned int>{ 3, 1, 2 }), Elements(oArray));
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

TEST(ArrayGuards, ElementTemplatesRefuseNull)
{
    CCapturedOutput oOutput;
    MConstructElements<unsigned int>(nullptr, 1);
    MDestructElements<unsigned int>(nullptr, 0);
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
}

TEST(ArrayElements, ConstructAndCopyDoNothingBelowOne)
{
    unsigned char aui8Bytes[2] = { 1, 2 };
    const unsigned char aui8Source[2] = { 3, 4 };
    MConstructElements(aui8Bytes, 0);
    MConstructElements(aui8Bytes, -1);
    CMArrayCopyElements(aui8Bytes, aui8Source, 0);
    CMArrayCopyElements(aui8Bytes, aui8Source, -1);
    EXPECT_EQ(1, aui8Bytes[0]);
    EXPECT_EQ(2, aui8Bytes[1]);
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
        std::vector<unsigned int> m_auiBefore;
        std::vector<unsigned int> m_auiAfter;
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

TEST(ArraySort, SwapsByThreeAssignments)
{
    CMArray<CTracked, const CTracked&> oArray;
    oArray.SetSize(2, -1);
    oArray[0].m_uiValue = 2;
    oArray[1].m_uiValue = 1;
    CTracked::ResetCounts();
    oArray.SortElements(
        [](const CTracked& oFirst, const CTracked& oSecond, unsigned long) {
            return static_cast<int>(oFirst.m_uiValue) - static_cast<int>(oSecond.m_uiValue);
        },
        0);
    EXPECT_EQ(3U, CTracked::ms_uiAssigned);
    EXPECT_EQ(1U, CTracked::ms_uiConstructed);
    EXPECT_EQ(0U, CTracked::ms_uiCopied);
    EXPECT_EQ(1U, oArray[0].m_uiValue);
}
