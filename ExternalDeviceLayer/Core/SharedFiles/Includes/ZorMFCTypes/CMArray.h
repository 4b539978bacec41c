/// CMArray: the dynamic array of the whole library, and the element templates that it works with.
///
/// Memory is held tight: the first allocation is exact, and later ones grow by a step that is derived once and kept.
/// Elements move as raw bytes when the buffer moves: no constructor, destructor or assignment runs. A type opts in
/// through gsc_bByteRelocatable. One thread at a time; nothing is locked.

#pragma once

#include <limits.h>

#include <new>
#include <type_traits>

#include "ZorAssert.h"
#include "ZorMFCTypes/CMAllocator.h"
#include "ZorTools.h"

#pragma GCC visibility push(default)

/// Whether an object of T stays good when its bytes are copied elsewhere and the old place is forgotten. True for plain
/// records and numbers; a class that manages memory specialises it beside its definition once it is known to hold.
template <class T>
inline constexpr bool gsc_bByteRelocatable = std::is_trivially_copyable_v<T>;

template <class TYPE>
unsigned long MElementBytes(int iCount)
{
    return static_cast<unsigned long>(iCount) * sizeof(TYPE);
}

/// Zeroes iCount elements and constructs them in place where the type has a constructor of its own. A count below 1
/// does nothing; null reports and does nothing.
template <class TYPE>
void MConstructElements(TYPE* poElements, int iCount)
{
    if (poElements == nullptr)
    {
        MASSERT_FAILED();
        return;
    }
    if (iCount < 1)
    {
        return;
    }
    ZorTools_memset(static_cast<void*>(poElements), 0, static_cast<unsigned int>(MElementBytes<TYPE>(iCount)));
    if constexpr (!std::is_trivially_default_constructible_v<TYPE>)
    {
        for (int i = 0; i < iCount; ++i)
        {
            new (static_cast<void*>(poElements + i)) TYPE;
        }
    }
}

/// Destroys iCount elements; null reports and does nothing.
template <class TYPE>
void MDestructElements(TYPE* poElements, int iCount)
{
    if (poElements == nullptr)
    {
        MASSERT_FAILED();
        return;
    }
    if constexpr (!std::is_trivially_destructible_v<TYPE>)
    {
        for (int i = 0; i < iCount; ++i)
        {
            // Elements are exactly of this type. A virtual call took 3 % of the instructions of extracting modes.
            poElements[i].TYPE::~TYPE();
        }
    }
}

/// Assigns element by element in rising order; a count below 1 does nothing.
template <class TYPE>
void CMArrayCopyElements(TYPE* poDestination, const TYPE* poSource, int iCount)
{
    for (int i = 0; i < iCount; ++i)
    {
        poDestination[i] = poSource[i];
    }
}

template <>
inline void CMArrayCopyElements<unsigned char>(unsigned char* poDestination, const unsigned char* poSource, int iCount)
{
    if (iCount > 0)
    {
        ZorTools_memcpy(poDestination, poSource, static_cast<unsigned int>(iCount));
    }
}

/// What an index outside a container reads or writes: a value made anew for each call, so that nothing is carried over.
template <class TYPE>
TYPE& MOutsideElement()
{
    static thread_local TYPE s_oOutside = TYPE();
    MDestructElements(&s_oOutside, 1);
    MConstructElements(&s_oOutside, 1);
    return s_oOutside;
}

/// The array owns its buffer and its elements; elements that are pointers do not own what they point to. Elements need
/// a default constructor that cannot fail.
///
/// When memory runs out, the array is as it was before the call, but for the stored growth step (strong guarantee). The
/// exceptions are operations that assign elements which take memory of their own, such as locked strings: copy
/// assignment, Append, SetAtGrow and SortElements then leave every element valid, but some assigned and some not (basic
/// guarantee).
template <class TYPE, class ARG_TYPE = const TYPE&>
class CMArray
{
public:
    static_assert(gsc_bByteRelocatable<TYPE>, "elements move as raw bytes when the buffer grows");
    static_assert(std::is_nothrow_default_constructible_v<TYPE>, "elements are counted before each one is there");

    CMArray() noexcept = default;
    /// Copies take the elements, not the growth step.
    CMArray(const CMArray& oOther) : CMArray()
    {
        CMArray::SetSize(oOther.m_iSize, -1); // qualified: the object is still being made
        CopyElements(oOther);
    }
    CMArray& operator=(const CMArray& oOther)
    {
        if (this != &oOther)
        {
            SetSize(oOther.m_iSize, -1);
            CopyElements(oOther);
        }
        return *this;
    }

    virtual ~CMArray()
    {
        if (m_pData != nullptr)
        {
            MDestructElements(m_pData, m_iSize);
            CMAllocator().Free(m_pData);
        }
    }

    /// Sets the element count. New elements are zeroed and constructed; a count of 0 gives the buffer back, any other
    /// smaller count keeps it. iGrowBy is stored as the growth step in elements: 0 derives it at the next reallocation,
    /// -1 leaves it alone. A negative size reports and changes nothing.
    virtual void SetSize(int iNewSize, int iGrowBy);

    /// SetSize with an unsigned count; a count above INT_MAX is a negative size.
    virtual void SetCount(unsigned int uiNewCount, int iGrowBy);

    /// Makes the capacity equal the count.
    virtual void FreeExtra();

    /// Stores oValue at iIndex, growing the array to iIndex + 1 elements first where needed. A negative index and
    /// INT_MAX report and change nothing. oValue must not refer to an element of this array when the call can grow it.
    virtual void SetAtGrow(int iIndex, ARG_TYPE oValue);

    unsigned int GetCount() const { return static_cast<unsigned int>(m_iSize); }
    /// Null when the array holds no buffer. Valid until the count or the capacity changes.
    TYPE* GetData() { return m_pData; }
    const TYPE* GetData() const { return m_pData; }

    // An index outside the array reports and gives a zeroed element of no array. NOLINT: a counted one has a buffer.
    const TYPE& GetAt(int iIndex) const { return IsInside(iIndex) ? m_pData[iIndex] : MOutsideElement<TYPE>(); }
    const TYPE& operator[](int iIndex) const { return GetAt(iIndex); }
    TYPE& operator[](int iIndex) { return IsInside(iIndex) ? m_pData[iIndex] : MOutsideElement<TYPE>(); } // NOLINT
    const TYPE& GetAt(unsigned int uiIndex) const { return GetAt(static_cast<int>(uiIndex)); }
    const TYPE& operator[](unsigned int uiIndex) const { return GetAt(static_cast<int>(uiIndex)); }
    TYPE& operator[](unsigned int uiIndex) { return (*this)[static_cast<int>(uiIndex)]; }

    /// Assigns to an element that is there; an index outside the array reports and changes nothing.
    void SetAt(int iIndex, ARG_TYPE oValue)
    {
        if (IsInside(iIndex))
        {
            m_pData[iIndex] = oValue; // NOLINT(clang-analyzer-core.CallAndMessage): inside means there is a buffer
        }
    }

    /// Appends one element; see SetAtGrow for values that refer into this array.
    void Add(ARG_TYPE oValue) { SetAtGrow(m_iSize, oValue); }

    /// Empties the array and gives the buffer back; the growth step stays.
    void RemoveAll() { SetSize(0, -1); }

    /// Appends all elements of oSource; the result is the index of the first one, that is, the count before the call.
    /// Appending the array to itself reports and changes nothing.
    int Append(const CMArray& oSource);

    /// Sorts in place by exchanging neighbours for which pfnCompare gives a result above 0; stable where it gives 0 for
    /// equals. ulContext is handed through. 1, or 0 with a report for a null function.
    int SortElements(int (*pfnCompare)(const TYPE& oFirst, const TYPE& oSecond, unsigned long ulContext),
                     unsigned long ulContext);

private:
    static constexpr int msc_iStepDivisor = 8;    ///< the derived step is an eighth of the count,
    static constexpr int msc_iSmallestStep = 4;   ///< but at least this
    static constexpr int msc_iLargestStep = 1024; ///< and at most this many elements

    /// Memory calls take 32-bit sizes, so that a buffer beyond them must not come into being: the allocator is asked
    /// for more than any heap has and refuses in its own way.
    static TYPE* AllocElements(int iCount)
    {
        const unsigned long ulBytes = MElementBytes<TYPE>(iCount);
        return static_cast<TYPE*>(CMAllocator().Alloc(ulBytes > UINT_MAX ? LONG_MAX : ulBytes));
    }

    /// Moves iCount elements to a buffer of their own as raw bytes.
    static void RelocateElements(TYPE* poDestination, const TYPE* poSource, int iCount)
    {
        if (iCount > 0)
        {
            ZorTools_memcpy(static_cast<void*>(poDestination), static_cast<const void*>(poSource),
                            static_cast<unsigned int>(MElementBytes<TYPE>(iCount)));
        }
    }

    bool IsInside(int iIndex) const
    {
        if (iIndex < 0 || iIndex >= m_iSize)
        {
            MASSERT_FAILED();
            return false;
        }
        return true;
    }

    /// As many as both have: the SetSize of a derived class may give another count than asked for.
    void CopyElements(const CMArray& oOther)
    {
        CMArrayCopyElements(m_pData, oOther.m_pData, m_iSize < oOther.m_iSize ? m_iSize : oOther.m_iSize);
    }

    int NextCapacity(int iNewSize);

    TYPE* m_pData = nullptr;
    int m_iSize = 0;    ///< live elements
    int m_iMaxSize = 0; ///< elements that the buffer holds
    int m_iGrowBy = 0;  ///< growth step in elements; 0: still to be derived
};

template <class TYPE, class ARG_TYPE>
void CMArray<TYPE, ARG_TYPE>::SetSize(int iNewSize, int iGrowBy)
{
    if (iNewSize < 0)
    {
        MASSERT_FAILED();
        return;
    }
    if (iGrowBy != -1)
    {
        m_iGrowBy = iGrowBy;
    }

    if (iNewSize == 0)
    {
        if (m_pData != nullptr)
        {
            MDestructElements(m_pData, m_iSize);
            CMAllocator().Free(m_pData);
            m_pData = nullptr;
        }
        m_iSize = 0;
        m_iMaxSize = 0;
        return;
    }

    if (m_pData == nullptr)
    {
        m_pData = AllocElements(iNewSize);
        m_iMaxSize = iNewSize;
        MConstructElements(m_pData, iNewSize);
        m_iSize = iNewSize;
        return;
    }

    if (iNewSize <= m_iMaxSize)
    {
        if (iNewSize > m_iSize)
        {
            MConstructElements(m_pData + m_iSize, iNewSize - m_iSize);
        }
        else
        {
            MDestructElements(m_pData + iNewSize, m_iSize - iNewSize);
        }
        m_iSize = iNewSize;
        return;
    }

    const int iCapacity = NextCapacity(iNewSize);
    TYPE* pNewData = AllocElements(iCapacity);
    RelocateElements(pNewData, m_pData, m_iSize);
    MConstructElements(pNewData + m_iSize, iNewSize - m_iSize);
    CMAllocator().Free(m_pData);
    m_pData = pNewData;
    m_iSize = iNewSize;
    m_iMaxSize = iCapacity;
}

/// The capacity for a count that the buffer does not hold. Derives the growth step at the first reallocation.
template <class TYPE, class ARG_TYPE>
int CMArray<TYPE, ARG_TYPE>::NextCapacity(int iNewSize)
{
    if (m_iGrowBy == 0)
    {
        const int iStep = m_iSize / msc_iStepDivisor;
        m_iGrowBy = iStep < msc_iSmallestStep ? msc_iSmallestStep : iStep > msc_iLargestStep ? msc_iLargestStep : iStep;
    }
    // Unsigned, so that a step near INT_MAX wraps instead of overflowing; what has wrapped is below the new count.
    const int iStepped = static_cast<int>(static_cast<unsigned int>(m_iMaxSize) + static_cast<unsigned int>(m_iGrowBy));
    return iStepped > iNewSize ? iStepped : iNewSize;
}

template <class TYPE, class ARG_TYPE>
void CMArray<TYPE, ARG_TYPE>::SetCount(unsigned int uiNewCount, int iGrowBy)
{
    SetSize(static_cast<int>(uiNewCount), iGrowBy);
}

template <class TYPE, class ARG_TYPE>
void CMArray<TYPE, ARG_TYPE>::FreeExtra()
{
    if (m_iSize == m_iMaxSize)
    {
        return;
    }
    TYPE* pNewData = nullptr;
    if (m_iSize != 0)
    {
        pNewData = AllocElements(m_iSize);
        RelocateElements(pNewData, m_pData, m_iSize);
    }
    CMAllocator().Free(m_pData);
    m_pData = pNewData;
    m_iMaxSize = m_iSize;
}

template <class TYPE, class ARG_TYPE>
void CMArray<TYPE, ARG_TYPE>::SetAtGrow(int iIndex, ARG_TYPE oValue)
{
    if (iIndex >= 0 && iIndex >= m_iSize)
    {
        // The highest index has no count: SetSize refuses the negative number that results.
        SetSize(iIndex < INT_MAX ? iIndex + 1 : INT_MIN, -1);
    }
    SetAt(iIndex, oValue);
}

template <class TYPE, class ARG_TYPE>
int CMArray<TYPE, ARG_TYPE>::Append(const CMArray& oSource)
{
    const int iOldCount = m_iSize;
    if (this == &oSource)
    {
        MASSERT_FAILED();
        return iOldCount;
    }
    const unsigned int uiSum = GetCount() + oSource.GetCount();
    SetSize(static_cast<int>(uiSum), -1);
    if (GetCount() == uiSum && oSource.m_pData != nullptr)
    {
        CMArrayCopyElements(m_pData + iOldCount, oSource.m_pData, oSource.m_iSize);
    }
    return iOldCount;
}

template <class TYPE, class ARG_TYPE>
int CMArray<TYPE, ARG_TYPE>::SortElements(int (*pfnCompare)(const TYPE&, const TYPE&, unsigned long),
                                          unsigned long ulContext)
{
    if (pfnCompare == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    TYPE oTemporary = TYPE();
    bool bSorted = false;
    for (int iPass = 0; iPass < m_iSize && !bSorted; ++iPass)
    {
        bSorted = true;
        for (int j = 0; j < m_iSize - iPass - 1; ++j)
        {
            if (pfnCompare(m_pData[j], m_pData[j + 1], ulContext) > 0)
            {
                oTemporary = m_pData[j];
                m_pData[j] = m_pData[j + 1];
                m_pData[j + 1] = oTemporary;
                bSorted = false;
            }
        }
    }
    return 1;
}

#pragma GCC visibility pop
