// Filling a list that is derived from bytes. Private to the sources of the EDID and its extension blocks.

#pragma once

#include "ZorMFCTypes/CMArray.h"

// Fills a list anew with one allocation at most: sizes it once for as many entries as there can be, and cuts it to
// those that came when the object goes.
template <class TYPE>
class CListFill
{
public:
    CListFill(CMArray<TYPE, const TYPE&>& aoList, unsigned int uiMost) : m_aoList(aoList)
    {
        m_aoList.SetCount(uiMost, -1);
    }
    ~CListFill() { m_aoList.SetCount(m_uiCount, -1); }
    CListFill(const CListFill&) = delete;
    CListFill& operator=(const CListFill&) = delete;

    void Add(const TYPE& oEntry) { m_aoList[m_uiCount++] = oEntry; }
    unsigned int GetCount() const { return m_uiCount; }

private:
    CMArray<TYPE, const TYPE&>& m_aoList;
    unsigned int m_uiCount = 0;
};

// Replaces the content of a list by uiCount entries, with one allocation at most and of exactly their size.
template <class TYPE>
void CopyList(const TYPE* poEntries, unsigned int uiCount, CMArray<TYPE, const TYPE&>& aoList)
{
    aoList.SetCount(uiCount, -1);
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        aoList[i] = poEntries[i];
    }
}
