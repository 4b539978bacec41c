// CMMap and CMPlex: what is allocated when, that values are built and destroyed, and what guards refuse.

#include <limits.h>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "StringProbe.h"

namespace
{
using CNumberMap = CMMap<unsigned int, unsigned int, const unsigned int&, const unsigned int&>;

// Shows the nodes. A value begins four bytes into its node.
class CMapProbe : public CNumberMap
{
public:
    CAssoc* GetNode(unsigned int uiKey) { return reinterpret_cast<CAssoc*>(&(*this)[uiKey] - 1); }
    CAssoc* Take(unsigned int uiKey) { return NewAssoc(uiKey); }
};
constexpr unsigned long gsc_ulNodeSize = 24; // key, value, link, bucket, rounded up to the link's alignment
} // namespace

TEST(Map, AllocatesTableAndBlocksWhenNeeded)
{
    CCountingAllocator oHeap;
    CNumberMap oMap;
    EXPECT_EQ(0U, oHeap.GetAllocCount());
    for (unsigned int uiKey = 0; uiKey < 20; ++uiKey)
    {
        EXPECT_EQ(0U, oMap[uiKey]);
        oMap[uiKey] = uiKey + 100;
    }
    const unsigned long ulBlock = sizeof(CMPlex) + 10 * gsc_ulNodeSize;
    EXPECT_EQ((std::vector<unsigned long>{ 17 * sizeof(void*), ulBlock, ulBlock }), oHeap.GetSizes());
    EXPECT_EQ(100U, oMap[0]);
    EXPECT_EQ(119U, oMap[19]);
    EXPECT_EQ(20, oMap.GetCount());

    oMap.RemoveAll();
    EXPECT_EQ(0U, oHeap.GetLiveCount());
    EXPECT_EQ(0, oMap.GetCount());
    EXPECT_EQ(0U, oMap[3]); // nothing of the old value is left
    EXPECT_EQ(5U, oHeap.GetAllocCount());
}

TEST(Map, BlockOfMoreBytesThanThereAreIsRefused)
{
    CCountingAllocator oHeap;
    CMPlex* poHead = nullptr;
    EXPECT_THROW(CMPlex::Create(poHead, ULONG_MAX / 8 + 2, 8), std::bad_alloc); // 8 bytes, if the product wrapped
    EXPECT_EQ(nullptr, poHead);
}

TEST(Map, NodesStandInBucketsOfSixteenKeysNewestFirst)
{
    CMapProbe oMap;
    const unsigned int aauiKeysAndBuckets[][2] = { { 1, 0 }, { 2, 0 }, { 16, 1 }, { 272, 0 }, { UINT_MAX, 15 } };
    for (const auto& auiPair : aauiKeysAndBuckets)
    {
        EXPECT_EQ(auiPair[1], oMap.GetNode(auiPair[0])->m_uiHashValue) << auiPair[0];
    }
    EXPECT_EQ(oMap.GetNode(2), oMap.GetNode(272)->m_poNext);
    EXPECT_EQ(oMap.GetNode(1), oMap.GetNode(2)->m_poNext);
    EXPECT_EQ(nullptr, oMap.GetNode(1)->m_poNext);
    // Nodes are taken in the order of their addresses.
    EXPECT_EQ(reinterpret_cast<char*>(&oMap[1]) + gsc_ulNodeSize, reinterpret_cast<char*>(&oMap[2]));
    // A node that is taken still leads to the next one of the free list.
    const auto* poLink = oMap.Take(3)->m_poNext;
    ASSERT_NE(nullptr, poLink);
    EXPECT_EQ(poLink, oMap.Take(4));
}

TEST(Map, ValuesThatOwnMemoryAreDestroyed)
{
    const CMString oShared("shared");
    {
        CMMap<unsigned int, CMArrayString> oMap;
        for (unsigned int uiKey : { 1U, 2U, 1U })
        {
            oMap[uiKey].Add(oShared);
        }
        EXPECT_EQ(2U, oMap[1].GetCount());
        EXPECT_EQ(4, CStringProbe::GetRefs(oShared));
        oMap.RemoveAll();
        EXPECT_EQ(1, CStringProbe::GetRefs(oShared));
        oMap[2].Add(oShared);
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

    CCapturedOutput oOutput;
    EXPECT_EQ(0, oMap.InitHashTable(5, 1)); // there are entries
    oMap.RemoveAll();
    EXPECT_EQ(0, oMap.InitHashTable(0, 1));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
    EXPECT_EQ(31U, oMap.GetHashTableSize());
}
