// CMString::CIterator: the tokens of a text. The cutting is that of ZorTools_strtok_s, in a copy of the text.

#include "ZorMFCTypes/CMString.h"

#include <new>

namespace
{
// Two null fields agree, a null and a non-null one do not.
bool IsSameText(const char* pszFirst, const char* pszSecond)
{
    if (pszFirst == nullptr || pszSecond == nullptr)
    {
        return pszFirst == pszSecond;
    }
    return ZorTools_strcmp(pszFirst, pszSecond) == 0;
}
} // namespace

CMString::CIterator CMString::Begin(const char* pszSeparators) const { return CIterator(pszSeparators, m_pszData); }

CMString::CIterator CMString::End() const { return CIterator(); }

CMString::CIterator::CIterator(const char* pszSeparators, const char* pszText)
{
    if (pszSeparators == nullptr)
    {
        MASSERT_FAILED();
        return;
    }
    m_pszSeparators = pszSeparators;
    SetText(CMString(pszText));
    // The shared empty string may come here: without a token nothing is written.
    m_pszToken = ZorTools_strtok_s(m_poText->GetBuffer(0), m_pszSeparators, &m_pszContext);
    if (m_pszToken == nullptr)
    {
        Reset();
    }
}

CMString::CIterator::CIterator(const CIterator& oSource) { *this = oSource; }

CMString::CIterator& CMString::CIterator::operator=(const CIterator& oSource)
{
    if (this == &oSource)
    {
        return *this;
    }
    Reset();
    if (oSource.m_poText != nullptr)
    {
        SetText(*oSource.m_poText);
        m_pszSeparators = oSource.m_pszSeparators;
        m_pszContext = oSource.m_pszContext;
        m_pszToken = oSource.m_pszToken;
    }
    return *this;
}

CMString::CIterator::~CIterator() { Reset(); }

// oText is a copy already; this one shares its buffer.
void CMString::CIterator::SetText(const CMString& oText)
{
    m_poText = new (CMAllocator().Alloc(sizeof(CMString))) CMString(oText);
}

void CMString::CIterator::Reset()
{
    if (m_poText != nullptr)
    {
        m_poText->~CMString();
        CMAllocator().Free(m_poText);
    }
    m_pszSeparators = nullptr;
    m_poText = nullptr;
    m_pszContext = nullptr;
    m_pszToken = nullptr;
}

CMString::CIterator& CMString::CIterator::operator++()
{
    if (m_poText != nullptr)
    {
        m_pszToken = ZorTools_strtok_s(nullptr, m_pszSeparators, &m_pszContext);
        if (m_pszToken == nullptr)
        {
            Reset();
        }
    }
    return *this;
}

CMString::CIterator CMString::CIterator::operator++(int)
{
    CIterator oBefore(*this);
    ++*this;
    return oBefore;
}

CMString CMString::CIterator::operator*() const { return CMString(m_pszToken); }

bool CMString::CIterator::operator==(const CIterator& oOther) const
{
    const char* pszText = m_poText != nullptr ? static_cast<const char*>(*m_poText) : nullptr;
    const char* pszOtherText = oOther.m_poText != nullptr ? static_cast<const char*>(*oOther.m_poText) : nullptr;
    return IsSameText(pszText, pszOtherText) && IsSameText(m_pszSeparators, oOther.m_pszSeparators) &&
           IsSameText(m_pszContext, oOther.m_pszContext) && IsSameText(m_pszToken, oOther.m_pszToken);
}
