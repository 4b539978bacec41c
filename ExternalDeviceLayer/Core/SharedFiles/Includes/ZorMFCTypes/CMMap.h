/// CMMap: a chained hash map whose nodes come from a block pool.
///
/// The number of buckets is fixed once the table is there; entries lengthen the chains. Entries leave only all
/// together. One thread at a time.

#pragma once

#include "ZorMFCTypes/CMArray.h"
#include "ZorMFCTypes/CMPlex.h"

#pragma GCC visibility push(default)

/// Keys are integers or enumerations; values need a default constructor that cannot fail. Neighbouring keys, those that
/// differ in their low four bits only, share a bucket. When memory runs out the map has the entries that it had (strong
/// guarantee).
template <class KEY, class VALUE, class ARG_KEY = const KEY&, class ARG_VALUE = const VALUE&>
class CMMap
{
public:
    CMMap() = default;
    CMMap(const CMMap&) = delete;
    CMMap& operator=(const CMMap&) = delete;
    CMMap(CMMap&&) = delete;
    CMMap& operator=(CMMap&&) = delete;

    virtual ~CMMap()
    {
        RemoveAll();
        if (m_iCount != 0)
        {
            MASSERT_FAILED();
        }
    }

    /// The value of the key; a key that is missing is inserted with a default-constructed value, also by a mere read.
    /// The reference stays valid until RemoveAll.
    VALUE& operator[](ARG_KEY oKey);

    /// Sets the number of buckets of an empty map, and with bAllocNow makes the table at once; otherwise the first
    /// insertion does. 1 when a table is there afterwards, so 0 without bAllocNow though the size was taken. A map with
    /// entries and a size of 0 report, give 0 and change nothing.
    int InitHashTable(unsigned int uiHashSize, int bAllocNow);

    /// Destroys all values and gives all memory back; the sizes of table and blocks stay.
    void RemoveAll();

    int GetCount() const { return m_iCount; }
    unsigned int GetHashTableSize() const { return m_uiHashTableSize; }

protected:
    struct CAssoc
    {
        KEY m_oKey;
        alignas(VALUE) unsigned char m_aui8Value[sizeof(VALUE)]; ///< a VALUE while the node is in use
        CAssoc* m_poNext;                                        ///< in the bucket or in the free list
        unsigned int m_uiHashValue;                              ///< the bucket

        VALUE* GetValue() { return std::launder(reinterpret_cast<VALUE*>(m_aui8Value)); }
    };
    static_assert(std::is_trivially_copyable_v<KEY>, "keys are stored by bytes and not destroyed");
    static_assert(std::is_nothrow_default_constructible_v<VALUE>, "a node is counted before its value is there");
    static_assert(alignof(CAssoc) <= alignof(CMPlex), "nodes follow the block head directly");

    /// A node from the free list with the key and a new value; not yet in a bucket. Null with a report when the
    /// allocator gives no memory.
    CAssoc* NewAssoc(ARG_KEY oKey);

private:
    static constexpr unsigned int msc_uiDefaultHashTableSize = 17;
    static constexpr int msc_iDefaultBlockSize = 10;
    static constexpr unsigned int msc_uiKeyShift = 4;

    unsigned int BucketOf(ARG_KEY oKey) const
    {
        return (static_cast<unsigned int>(oKey) >> msc_uiKeyShift) % m_uiHashTableSize;
    }

    void FreeTable()
    {
        if (m_ppoHashTable != nullptr)
        {
            CMAllocator().Free(m_ppoHashTable);
            m_ppoHashTable = nullptr;
        }
    }

    CAssoc** m_ppoHashTable = nullptr; ///< one chain a bucket; null until first needed
    unsigned int m_uiHashTableSize = msc_uiDefaultHashTableSize;
    int m_iCount = 0;
    CAssoc* m_poFreeList = nullptr;
    CMPlex* m_poBlocks = nullptr;
    int m_iBlockSize = msc_iDefaultBlockSize; ///< nodes a block
};

template <class KEY, class VALUE, class ARG_KEY, class ARG_VALUE>
VALUE& CMMap<KEY, VALUE, ARG_KEY, ARG_VALUE>::operator[](ARG_KEY oKey)
{
    const unsigned int uiBucket = BucketOf(oKey);
    if (m_ppoHashTable == nullptr)
    {
        if (InitHashTable(m_uiHashTableSize, 1) == 0)
        {
            MASSERT_FAILED();
            return MOutsideElement<VALUE>();
        }
    }
    else
    {
        for (CAssoc* poAssoc = m_ppoHashTable[uiBucket]; poAssoc != nullptr; poAssoc = poAssoc->m_poNext)
        {
            if (poAssoc->m_oKey == oKey)
            {
                return *poAssoc->GetValue();
            }
        }
    }

    CAssoc* poNew = NewAssoc(oKey);
    if (poNew == nullptr)
    {
        return MOutsideElement<VALUE>();
    }
    poNew->m_uiHashValue = uiBucket;
    poNew->m_poNext = m_ppoHashTable[uiBucket];
    m_ppoHashTable[uiBucket] = poNew;
    return *poNew->GetValue();
}

template <class KEY, class VALUE, class ARG_KEY, class ARG_VALUE>
int CMMap<KEY, VALUE, ARG_KEY, ARG_VALUE>::InitHashTable(unsigned int uiHashSize, int bAllocNow)
{
    if (m_iCount != 0 || uiHashSize == 0)
    {
        MASSERT_FAILED();
        return 0;
    }
    FreeTable();
    if (bAllocNow != 0)
    {
        m_ppoHashTable = static_cast<CAssoc**>(CMAllocator().Alloc(uiHashSize * sizeof(void*)));
        if (m_ppoHashTable == nullptr)
        {
            MASSERT_FAILED();
        }
        else
        {
            for (unsigned int i = 0; i < uiHashSize; ++i)
            {
                m_ppoHashTable[i] = nullptr;
            }
        }
    }
    m_uiHashTableSize = uiHashSize;
    return m_ppoHashTable != nullptr ? 1 : 0;
}

template <class KEY, class VALUE, class ARG_KEY, class ARG_VALUE>
void CMMap<KEY, VALUE, ARG_KEY, ARG_VALUE>::RemoveAll()
{
    if (m_ppoHashTable != nullptr)
    {
        for (unsigned int i = 0; i < m_uiHashTableSize; ++i)
        {
            for (CAssoc* poAssoc = m_ppoHashTable[i]; poAssoc != nullptr; poAssoc = poAssoc->m_poNext)
            {
                MDestructElements(poAssoc->GetValue(), 1);
            }
        }
        FreeTable();
    }
    m_iCount = 0;
    m_poFreeList = nullptr;
    CMPlex::FreeDataChain(m_poBlocks);
    m_poBlocks = nullptr;
}

template <class KEY, class VALUE, class ARG_KEY, class ARG_VALUE>
typename CMMap<KEY, VALUE, ARG_KEY, ARG_VALUE>::CAssoc* CMMap<KEY, VALUE, ARG_KEY, ARG_VALUE>::NewAssoc(ARG_KEY oKey)
{
    if (m_poFreeList == nullptr)
    {
        CMPlex* poBlock = CMPlex::Create(m_poBlocks, static_cast<unsigned long>(m_iBlockSize), sizeof(CAssoc));
        if (poBlock != nullptr)
        {
            // From the last to the first, so that nodes are taken in the order of their addresses.
            CAssoc* paoNodes = static_cast<CAssoc*>(poBlock->GetData());
            for (int i = m_iBlockSize - 1; i >= 0; --i)
            {
                paoNodes[i].m_poNext = m_poFreeList;
                m_poFreeList = paoNodes + i;
            }
        }
        if (m_poFreeList == nullptr)
        {
            MASSERT_FAILED();
            return nullptr;
        }
    }

    CAssoc* poAssoc = m_poFreeList;
    m_poFreeList = poAssoc->m_poNext;
    ZorTools_memset(static_cast<void*>(poAssoc), 0, sizeof(CAssoc));
    poAssoc->m_poNext = m_poFreeList; // the link stays

    m_iCount = static_cast<int>(static_cast<unsigned int>(m_iCount) + 1U);
    if (m_iCount < 1)
    {
        MASSERT_FAILED();
    }
    poAssoc->m_oKey = oKey;
    MConstructElements(reinterpret_cast<VALUE*>(poAssoc->m_aui8Value), 1);
    return poAssoc;
}

#pragma GCC visibility pop
