// Filling a list whose size is known to be at most so much. Private to the library's own sources.

#pragma once

#include "ZorMFCTypes/CMArray.h"

namespace ZorCore
{
// Fills a list with one allocation at most: sizes it once for as many entries as there can be, and cuts it to those
// that came when the object goes. The first uiKept entries stay. An entry beyond the size is dropped. Lists that grow
// took 23 % of the instructions of a load and 19 % of a comparison.
template <class TYPE>
class CListFill
{
public:
    CListFill(CMArray<TYPE, const TYPE&>& aoList, unsigned int uiMost, unsigned int uiKept = 0)
        : m_aoList(aoList), m_uiCount(uiKept)
    {
        m_aoList.SetCount(uiKept + uiMost, -1);
    }
    ~CListFill() { m_aoList.SetCount(m_uiCount, -1); }
    CListFill(const CListFill&) = delete;
    CListFill& operator=(const CListFill&) = delete;

    void Add(const TYPE& oEntry)
    {
        if (m_uiCount < m_aoList.GetCount())
        {
            m_aoList.SetAt(static_cast<int>(m_uiCount++), oEntry);
        }
    }
    unsigned int GetCount() const { return m_uiCount; }

private:
    CMArray<TYPE, const TYPE&>& m_aoList;
    unsigned int m_uiCount;
};

// Replaces the content of a list by uiCount entries, with one allocation at most and of exactly their size.
template <class TYPE>
void CopyList(const TYPE* poEntries, unsigned int uiCount, CMArray<TYPE, const TYPE&>& aoList)
{
    aoList.RemoveAll(); // what holds more would keep it
    CListFill<TYPE> oFill(aoList, uiCount);
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        oFill.Add(poEntries[i]);
    }
}
} // namespace ZorCore
