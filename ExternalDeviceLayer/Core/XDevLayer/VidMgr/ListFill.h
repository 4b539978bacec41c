// Filling a list that is derived from bytes. Private to the sources of the extension blocks.

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

    void Add(const TYPE& oEntry) { m_aoList.SetAt(static_cast<int>(m_uiCount++), oEntry); }
    unsigned int GetCount() const { return m_uiCount; }
    // An entry below GetCount. Not by [], whose test the search for repeats, the hot loop of loading, would pay for.
    const TYPE& GetAt(unsigned int uiIndex) const { return m_aoList.GetData()[uiIndex]; }

private:
    CMArray<TYPE, const TYPE&>& m_aoList;
    unsigned int m_uiCount = 0;
};
