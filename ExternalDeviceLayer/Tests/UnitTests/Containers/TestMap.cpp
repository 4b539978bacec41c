// CMMap and CMPlex: what is allocated when, that values are built and destroyed, and what guards refuse.

#include <limits.h>
#include <stddef.h>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "StringProbe.h"

namespace
{
using CNumberMap = CMMap<unsigned int, unsigned int, const unsigned int&, const unsigned int&>;

enum EKey : unsigned int
{
    eKeyFirst = 1,
    eKeySecond = 2
};
using CListMap =
    CMMap<EKey, CMArray<CMString, const CMString&>, const EKey&, const CMArray<CMString, const CMString&>&>;

// Shows the parts of a node.
class CMapProbe : public CNumberMap
{
public:
    unsigned int GetBucket(unsigned int uiKey) { return GetNode(uiKey)->m_uiHashValue; }
    // The key of the node that follows in the bucket; UINT_MAX at the end of the chain.
    unsigned int GetNextKey(unsigned int uiKey)
    {
        const CAssoc* poNext = GetNode(uiKey)->m_poNext;
        return poNext != nullptr ? poNext->m_oKey : UINT_MAX;
    }
    // Whether a node taken off the free list still leads to the one that is taken next.
    bool KeepsTheLink()
    {
        const CAssoc* poFirst = NewAssoc(1);
        const CAssoc* poLink = poFirst->m_poNext;
        return poLink != nullptr && poLink == NewAssoc(2);
    }

private:
    CAssoc* GetNode(unsigned int uiKey)
    {
        return reinterpret_cast<CAssoc*>(reinterpret_cast<char*>(&(*this)[uiKey]) - offsetof(CAssoc, m_aui8Value));
    }
};
constexpr unsigned long gsc_ulNodeSize = 24; // key, value, link, bucket, rounded up to the link's alignment
}

TEST(Map, AllocatesTableAndBlocksWhenNeeded)
{
    CCountingAllocator oHeap;
    CNumberMap oMap;
    EXPECT_EQ(0U, oHeap.GetAllocCount());
    for (unsigned int uiKey = 0; uiKey < 10; ++uiKey)
    {
        EXPECT_EQ(0U, oMap[uiKey]);
        oMap[uiKey] = uiKey + 100;
    }
    const std::vector<unsigned long> aulFirst = { 17 * sizeof(void*), sizeof(CMPlex) + 10 * gsc_ulNodeSize };
    EXPECT_EQ(aulFirst, oHeap.GetSizes());
    oMap[10] = 110;
    EXPECT_EQ(3U, oHeap.GetAllocCount());
    EXPECT_EQ(11, oMap.GetCount());
    for (unsigned int uiKey = 0; uiKey <= 10; ++uiKey)
    {
        EXPECT_EQ(uiKey + 100, oMap[uiKey]);
    }
    EXPECT_EQ(11, oMap.GetCount());

    oMap.RemoveAll();
    EXPECT_EQ(0U, oHeap.GetLiveCount());
    EXPECT_EQ(0, oMap.GetCount());
    EXPECT_EQ(0U, oMap[3]); // nothing of the old value is left
    EXPECT_EQ(5U, oHeap.GetAllocCount());
}

TEST(Map, NodesAreTakenInTheOrderOfTheirAddresses)
{
    CCountingAllocator oHeap;
    CNumberMap oMap;
    char* pchFirst = reinterpret_cast<char*>(&oMap[7]);
    char* pchSecond = reinterpret_cast<char*>(&oMap[3]);
    EXPECT_EQ(pchFirst + gsc_ulNodeSize, pchSecond);
}

TEST(Map, ANewNodeKeepsItsLink) { EXPECT_TRUE(CMapProbe().KeepsTheLink()); }

TEST(Map, KeysFallIntoBucketsOfSixteen)
{
    CMapProbe oMap;
    const unsigned int auiKeys[] = { 1, 2, 16, 272, 0xFFFFFFFF };
    const unsigned int auiBuckets[] = { 0, 0, 1, 0, 0xFFFFFFF % 17 };
    for (unsigned int i = 0; i < 5; ++i)
    {
        oMap[auiKeys[i]] = i;
    }
    for (unsigned int i = 0; i < 5; ++i)
    {
        EXPECT_EQ(auiBuckets[i], oMap.GetBucket(auiKeys[i])) << auiKeys[i];
    }
    // The newest stands at the head.
    EXPECT_EQ(2U, oMap.GetNextKey(272));
    EXPECT_EQ(1U, oMap.GetNextKey(2));
    EXPECT_EQ(UINT_MAX, oMap.GetNextKey(1));
}

TEST(Map, ValuesThatOwnMemoryAreDestroyed)
{
    CCountingAllocator oHeap;
    const CMString oShared("shared");
    {
        CListMap oMap;
        oMap[eKeyFirst].Add(oShared);
        oMap[eKeySecond].Add(oShared);
        oMap[eKeyFirst].Add(oShared);
        EXPECT_EQ(2U, oMap[eKeyFirst].GetCount());
        EXPECT_EQ(1U, oMap[eKeySecond].GetCount());
        EXPECT_EQ(4, CStringProbe::GetRefs(oShared));
        oMap.RemoveAll();
        EXPECT_EQ(1, CStringProbe::GetRefs(oShared));
        oMap[eKeySecond].Add(oShared);
    }
    EXPECT_EQ(1, CStringProbe::GetRefs(oShared));
}

TEST(Map, TableSizeIsTakenNowOrLater)
{
    CCountingAllocator oHeap;
    CNumberMap oMap;
    EXPECT_EQ(0, oMap.InitHashTable(31, 0));
    EXPECT_EQ(31U, oMap.GetHashTableSize());
    EXPECT_EQ(0U, oHeap.GetAllocCount());
    EXPECT_EQ(1, oMap.InitHashTable(5, 1));
    EXPECT_EQ(1, oMap.InitHashTable(31, 1));
    EXPECT_EQ(1U, oHeap.GetLiveCount());
    EXPECT_EQ(31 * sizeof(void*), oHeap.GetLastSize());
    oMap[3] = 4;
    EXPECT_EQ(3U, oHeap.GetAllocCount()); // two tables and the block
    oMap.RemoveAll();
    EXPECT_EQ(31U, oMap.GetHashTableSize());
}

TEST(Map, RefusesATableOnceThereAreEntriesAndOneWithoutBuckets)
{
    CNumberMap oMap;
    CCapturedOutput oOutput;
    EXPECT_EQ(0, oMap.InitHashTable(0, 1));
    oMap[3] = 4;
    EXPECT_EQ(0, oMap.InitHashTable(31, 1));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
    EXPECT_EQ(17U, oMap.GetHashTableSize());
    EXPECT_EQ(4U, oMap[3]);
}

TEST(Plex, ChainsBlocksAndFreesThemTogether)
{
    CCountingAllocator oHeap;
    CMPlex* poHead = nullptr;
    CMPlex* poFirst = CMPlex::Create(poHead, 3, 5);
    EXPECT_EQ(poFirst, poHead);
    EXPECT_EQ(sizeof(CMPlex) + 15, oHeap.GetLastSize());
    CMPlex* poSecond = CMPlex::Create(poHead, 1, 1);
    EXPECT_EQ(poSecond, poHead);
    EXPECT_EQ(static_cast<void*>(reinterpret_cast<char*>(poSecond) + sizeof(CMPlex)), poSecond->GetData());
    poHead->FreeDataChain();
    EXPECT_EQ(0U, oHeap.GetLiveCount());
    CMPlex::FreeDataChain(nullptr); // a chain without blocks
    EXPECT_EQ(0U, oHeap.GetFreedNullCount());
}

TEST(Plex, RefusesNothingAndTooMuch)
{
    CCountingAllocator oHeap;
    CMPlex* poHead = nullptr;
    CCapturedOutput oOutput;
    EXPECT_EQ(nullptr, CMPlex::Create(poHead, 0, 5));
    EXPECT_EQ(nullptr, CMPlex::Create(poHead, 5, 0));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
    EXPECT_THROW(CMPlex::Create(poHead, 1UL << 32, (1UL << 32) + 1), std::bad_alloc);
    EXPECT_EQ(nullptr, poHead);
}
