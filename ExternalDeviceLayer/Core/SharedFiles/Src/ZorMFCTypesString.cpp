// CMString: buffers, sharing, searching, changing. Formatting is in ZorMFCTypesStringFormat.cpp, the iterator in
// ZorMFCTypesStringIterator.cpp.

#include "ZorMFCTypes/CMString.h"

#include <limits.h>
#include <string.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace
{
constexpr CMString gsc_oEmptyString;

// INT_MAX, which no buffer can have, where it is that or more; a count in 32 bits would wrap.
int LengthOf(const char* pszText) { return pszText != nullptr ? static_cast<int>(strnlen(pszText, INT_MAX)) : 0; }

// A source of no characters may be null.
void CopyChars(char* pszDestination, const char* pszSource, int iCount)
{
    if (iCount > 0)
    {
        ZorTools_memcpy(pszDestination, pszSource, static_cast<unsigned int>(iCount));
    }
}

// For ranges that may overlap.
void MoveChars(char* pszDestination, const char* pszSource, int iCount)
{
    ZorTools_memmove(pszDestination, pszSource, static_cast<unsigned int>(iCount));
}

// A sum of two lengths, or INT_MAX, which no buffer can have, where it would be more.
int SumOfLengths(int iFirst, int iSecond)
{
    return static_cast<int>(std::min(static_cast<long long>(iFirst) + iSecond, static_cast<long long>(INT_MAX)));
}

char ToUpper(char c)
{
    ZorTools_strupr_s(&c, 1);
    return c;
}

char ToLower(char c)
{
    ZorTools_strlwr_s(&c, 1);
    return c;
}

bool IsOneOf(char c, const char* pszTargets) { return c != '\0' && ZorTools_strchr(pszTargets, c) != nullptr; }
} // namespace

constinit CMString* const CMString::m_poEmptyString = const_cast<CMString*>(&gsc_oEmptyString);

// ---- Buffers ----

bool CMString::AllocData(int iLength)
{
    m_pszData = m_pszNil;
    if (iLength < 0 || iLength == INT_MAX)
    {
        MASSERT_FAILED();
        return false;
    }
    if (iLength == 0)
    {
        return true;
    }
    void* pBlock = CMAllocator().Alloc(sizeof(SMetaData) + static_cast<unsigned long>(iLength) + 1);
    SMetaData* poData = new (pBlock) SMetaData{ 1, iLength, iLength };
    m_pszData = reinterpret_cast<char*>(poData + 1);
    m_pszData[iLength] = '\0';
    return true;
}

void CMString::FreeData(const SMetaData* poData) { CMAllocator().Free(poData); }

void CMString::Release()
{
    if (!IsNil())
    {
        Release(GetMetaData());
        m_pszData = m_pszNil;
    }
}

void CMString::Release(SMetaData* poData)
{
    if (poData == m_poDataNil)
    {
        return;
    }
    if (poData->m_iRefs == 0)
    {
        MASSERT_FAILED();
    }
    if (--poData->m_iRefs < 1) // a locked buffer, at -1, goes with a single release
    {
        FreeData(poData);
    }
}

void CMString::Share(const CMString& oSource)
{
    SMetaData* poData = oSource.GetMetaData();
    if (poData->m_iRefs == 0)
    {
        MASSERT_FAILED();
    }
    ++poData->m_iRefs;
    m_pszData = oSource.m_pszData;
}

void CMString::CopyBeforeWrite()
{
    if (GetMetaData()->m_iRefs < 2)
    {
        return;
    }
    // The copy comes first and gives up the share on its way out, so that nothing is lost when memory runs out.
    CMString oCopy;
    AllocCopy(oCopy, GetLength(), 0, 0);
    std::swap(m_pszData, oCopy.m_pszData);
}

bool CMString::AllocBeforeWrite(int iLength)
{
    if (GetMetaData()->m_iRefs < 2 && iLength >= 0 && iLength <= GetAllocLength())
    {
        return true;
    }
    CMString oNew; // gives up the old buffer on its way out: kept until the new one is there
    if (!oNew.AllocData(iLength))
    {
        return false;
    }
    std::swap(m_pszData, oNew.m_pszData);
    return true;
}

void CMString::AssignCopy(int iLength, const char* pszText)
{
    if (iLength == 0 || pszText == nullptr)
    {
        Release();
        return;
    }
    // A text inside this string's own private buffer always fits, so that the buffer stays and is moved within.
    if (AllocBeforeWrite(iLength) && pszText != m_pszData)
    {
        MoveChars(m_pszData, pszText, iLength);
        SetLength(iLength);
    }
}

void CMString::AllocCopy(CMString& oDestination, int iCopyLength, int iCopyIndex, int iExtraLength) const
{
    const int iSum = SumOfLengths(iCopyLength, iExtraLength);
    if (oDestination.AllocData(iSum) && iSum != 0)
    {
        CopyChars(oDestination.m_pszData, m_pszData + iCopyIndex, iCopyLength);
    }
}

bool CMString::ConcatCopy(int iLength1, const char* pszText1, int iLength2, const char* pszText2)
{
    if (!AllocData(SumOfLengths(iLength1, iLength2)))
    {
        return false;
    }
    if (!IsNil())
    {
        CopyChars(m_pszData, pszText1, iLength1);
        CopyChars(m_pszData + iLength1, pszText2, iLength2);
    }
    return true;
}

void CMString::SetLength(int iLength)
{
    if (!IsNil())
    {
        GetMetaData()->m_iDataLength = iLength;
        m_pszData[iLength] = '\0';
    }
}

// ---- Making and assigning ----

CMString::CMString(const char* pszText) : m_pszData(m_pszNil) { AssignCopy(LengthOf(pszText), pszText); }

CMString::CMString(char c, int iCount) : m_pszData(m_pszNil)
{
    if (iCount > 0 && AllocData(iCount))
    {
        ZorTools_memset(m_pszData, c, static_cast<unsigned int>(iCount));
    }
}

CMString::CMString(char c, unsigned int uiCount) : CMString(c, static_cast<int>(uiCount)) {}

CMString::CMString(const CMString& oSource) : m_pszData(m_pszNil)
{
    if (oSource.GetMetaData()->m_iRefs < 0)
    {
        AssignCopy(oSource.GetLength(), oSource.m_pszData);
        return;
    }
    Share(oSource);
}

CMString& CMString::operator=(const CMString& oSource)
{
    if (this == &oSource || m_pszData == oSource.m_pszData)
    {
        return *this;
    }
    const bool bIsLocked = !IsNil() && GetMetaData()->m_iRefs < 0;
    if (bIsLocked || oSource.GetMetaData()->m_iRefs < 0)
    {
        AssignCopy(oSource.GetLength(), oSource.m_pszData);
        return *this;
    }
    Release();
    Share(oSource);
    return *this;
}

CMString& CMString::operator=(const char* pszText)
{
    AssignCopy(LengthOf(pszText), pszText);
    return *this;
}

CMString& CMString::operator=(char c)
{
    AssignCopy(1, &c);
    return *this;
}

// ---- Appending ----

void CMString::ConcatInPlace(int iLength, const char* pszText)
{
    if (iLength == 0 || pszText == nullptr)
    {
        return;
    }
    if (iLength < 0)
    {
        MASSERT_FAILED();
        return;
    }
    const SMetaData* poOld = GetMetaData();
    const int iOldLength = poOld->m_iDataLength;
    if (poOld->m_iRefs < 2 && iLength <= poOld->m_iAllocLength - iOldLength)
    {
        MoveChars(m_pszData + iOldLength, pszText, iLength); // pszText may lie past the end, in this very buffer
        SetLength(iOldLength + iLength);
        return;
    }
    CMString oNew;
    if (oNew.ConcatCopy(iOldLength, m_pszData, iLength, pszText))
    {
        std::swap(m_pszData, oNew.m_pszData); // the old buffer goes after the copy, as pszText may lie in it
    }
}

CMString& CMString::operator+=(char c)
{
    ConcatInPlace(1, &c);
    return *this;
}

CMString& CMString::operator+=(const char* pszText)
{
    ConcatInPlace(LengthOf(pszText), pszText);
    return *this;
}

CMString& CMString::operator+=(const CMString& oText)
{
    ConcatInPlace(oText.GetLength(), oText.m_pszData);
    return *this;
}

CMString operator+(const CMString& oFirst, const CMString& oSecond)
{
    CMString oSum;
    oSum.ConcatCopy(oFirst.GetLength(), oFirst.m_pszData, oSecond.GetLength(), oSecond.m_pszData);
    return oSum;
}

CMString operator+(const CMString& oFirst, const char* pszSecond)
{
    CMString oSum;
    oSum.ConcatCopy(oFirst.GetLength(), oFirst.m_pszData, LengthOf(pszSecond), pszSecond);
    return oSum;
}

CMString operator+(const char* pszFirst, const CMString& oSecond)
{
    CMString oSum;
    oSum.ConcatCopy(LengthOf(pszFirst), pszFirst, oSecond.GetLength(), oSecond.m_pszData);
    return oSum;
}

CMString operator+(const CMString& oFirst, char cSecond)
{
    CMString oSum;
    oSum.ConcatCopy(oFirst.GetLength(), oFirst.m_pszData, 1, &cSecond);
    return oSum;
}

CMString operator+(char cFirst, const CMString& oSecond)
{
    CMString oSum;
    oSum.ConcatCopy(1, &cFirst, oSecond.GetLength(), oSecond.m_pszData);
    return oSum;
}

// ---- The buffer itself ----

char* CMString::GetBuffer(int iMinLength)
{
    const SMetaData* poOld = GetMetaData();
    if (poOld->m_iRefs < 2 && poOld->m_iAllocLength >= iMinLength)
    {
        return m_pszData;
    }
    const int iLength = poOld->m_iDataLength;
    CMString oNew;
    if (!oNew.AllocData(std::max(iMinLength, iLength)))
    {
        return nullptr;
    }
    CopyChars(oNew.m_pszData, m_pszData, oNew.IsNil() ? 0 : iLength);
    oNew.SetLength(iLength);
    std::swap(m_pszData, oNew.m_pszData);
    return m_pszData;
}

char* CMString::GetBufferSetLength(int iLength)
{
    if (iLength < 0)
    {
        if (IsNil())
        {
            return m_pszData;
        }
        MASSERT_FAILED();
        return nullptr;
    }
    char* pszBuffer = GetBuffer(iLength);
    if (pszBuffer != nullptr)
    {
        SetLength(iLength);
    }
    return pszBuffer;
}

void CMString::ReleaseBuffer(int iLength)
{
    if (IsNil())
    {
        return;
    }
    CopyBeforeWrite();
    const int iNewLength = iLength == -1 ? LengthOf(m_pszData) : iLength;
    if (iNewLength < 0 || iNewLength > GetAllocLength())
    {
        MASSERT_FAILED();
        return;
    }
    SetLength(iNewLength);
}

void CMString::FreeExtra()
{
    const int iLength = GetLength();
    if (iLength > GetAllocLength())
    {
        MASSERT_FAILED();
        return;
    }
    if (iLength != GetAllocLength())
    {
        CMString oExact;
        AllocCopy(oExact, iLength, 0, 0);
        std::swap(m_pszData, oExact.m_pszData);
    }
}

char* CMString::LockBuffer()
{
    char* pszBuffer = GetBuffer(0);
    if (!IsNil())
    {
        GetMetaData()->m_iRefs = -1;
    }
    return pszBuffer;
}

void CMString::UnlockBuffer()
{
    if (GetMetaData()->m_iRefs != -1)
    {
        MASSERT_FAILED(); // a count of sharers must not be overwritten
        return;
    }
    if (!IsNil())
    {
        GetMetaData()->m_iRefs = 1;
    }
}

// ---- Searching ----

int CMString::Find(char c, int iStart) const
{
    if (iStart >= GetLength())
    {
        return -1;
    }
    const char* pszFound = ZorTools_strchr(m_pszData + iStart, c);
    return pszFound != nullptr ? static_cast<int>(pszFound - m_pszData) : -1;
}

int CMString::Find(const char* pszText, int iStart) const
{
    if (pszText == nullptr)
    {
        MASSERT_FAILED();
        return -1;
    }
    if (iStart > GetLength())
    {
        return -1;
    }
    const char* pszFound = ZorTools_strstr(m_pszData + iStart, pszText);
    return pszFound != nullptr ? static_cast<int>(pszFound - m_pszData) : -1;
}

int CMString::ReverseFind(char c) const
{
    const char* pszFound = ZorTools_strrchr(m_pszData, c);
    return pszFound != nullptr ? static_cast<int>(pszFound - m_pszData) : -1;
}

int CMString::FindNoCase(char c, int iStart) const
{
    CMString oUpper(*this);
    return oUpper.MakeUpper().Find(ToUpper(c), iStart);
}

int CMString::FindNoCase(const char* pszText, int iStart) const
{
    CMString oUpper(*this);
    CMString oUpperText(pszText);
    return oUpper.MakeUpper().Find(static_cast<const char*>(oUpperText.MakeUpper()), iStart);
}

int CMString::ReverseFindNoCase(char c) const
{
    CMString oUpper(*this);
    return oUpper.MakeUpper().ReverseFind(ToUpper(c));
}

int CMString::CountOf(char c) const { return static_cast<int>(std::count(m_pszData, m_pszData + GetLength(), c)); }

int CMString::CountOfNoCase(char c) const
{
    const char cUpper = ToUpper(c);
    const char cLower = ToLower(c);
    return static_cast<int>(std::count_if(m_pszData, m_pszData + GetLength(),
                                          [=](char cHere) { return cHere == cUpper || cHere == cLower; }));
}

// ---- Changing in place ----

CMString& CMString::MakeUpper()
{
    CopyBeforeWrite();
    ZorTools_strupr_s(m_pszData, static_cast<unsigned int>(GetAllocLength()) + 1);
    return *this;
}

CMString& CMString::MakeLower()
{
    CopyBeforeWrite();
    ZorTools_strlwr_s(m_pszData, static_cast<unsigned int>(GetAllocLength()) + 1);
    return *this;
}

CMString& CMString::MakeReverse()
{
    CopyBeforeWrite();
    ZorTools_strrev(m_pszData);
    return *this;
}

void CMString::SetAt(int iIndex, char c)
{
    if (iIndex < 0 || iIndex >= GetLength())
    {
        MASSERT_FAILED();
        return;
    }
    CopyBeforeWrite();
    m_pszData[iIndex] = c;
}

int CMString::Insert(int iIndex, char c)
{
    CopyBeforeWrite();
    return InsertText(iIndex, 1, &c);
}

int CMString::Insert(int iIndex, const char* pszText)
{
    const int iLength = LengthOf(pszText);
    if (iLength == 0)
    {
        return GetLength();
    }
    // Past the end, too: what a longer text left there moves as well.
    const bool bIsOwnText = std::greater_equal<const char*>()(pszText, m_pszData) &&
                            std::less_equal<const char*>()(pszText, m_pszData + GetAllocLength());
    if (bIsOwnText)
    {
        const CMString oText(pszText); // the characters move while they are inserted
        CopyBeforeWrite();
        return InsertText(iIndex, iLength, oText.m_pszData);
    }
    CopyBeforeWrite();
    return InsertText(iIndex, iLength, pszText);
}

// The string's buffer is its own; pszText lies outside it.
int CMString::InsertText(int iIndex, int iLength, const char* pszText)
{
    const int iOldLength = GetLength();
    const int iNewLength = SumOfLengths(iOldLength, iLength);
    const int iAt = std::clamp(iIndex, 0, iOldLength);
    if (GetBuffer(iNewLength) == nullptr)
    {
        return iOldLength;
    }
    MoveChars(m_pszData + iAt + iLength, m_pszData + iAt, iOldLength - iAt);
    CopyChars(m_pszData + iAt, pszText, iLength);
    SetLength(iNewLength);
    return iNewLength;
}

int CMString::Delete(int iIndex, int iCount)
{
    const int iLength = GetLength();
    // Wide, as the distance from a negative index to the end can pass the range of int.
    const long long iRemoved = std::min<long long>(iCount, static_cast<long long>(iLength) - iIndex);
    const int iAt = std::max(iIndex, 0);
    if (iRemoved < 1 || iAt >= iLength || iAt + iRemoved > iLength)
    {
        return iLength;
    }
    CopyBeforeWrite();
    const int iRest = iAt + static_cast<int>(iRemoved);
    MoveChars(m_pszData + iAt, m_pszData + iRest, iLength - iRest);
    SetLength(iLength - static_cast<int>(iRemoved));
    return iLength;
}

void CMString::Empty()
{
    if (GetLength() == 0)
    {
        return;
    }
    if (GetMetaData()->m_iRefs >= 0)
    {
        Release();
        return;
    }
    SetLength(0);
}

CMString& CMString::TrimLeft(const char* pszTargets)
{
    if (LengthOf(pszTargets) == 0)
    {
        return *this;
    }
    int iCount = 0;
    while (IsOneOf(m_pszData[iCount], pszTargets))
    {
        ++iCount;
    }
    if (iCount > 0)
    {
        const int iRest = GetLength() - iCount;
        char* pszBuffer = GetBuffer(GetLength());
        MoveChars(pszBuffer, pszBuffer + iCount, iRest);
        ReleaseBuffer(iRest);
    }
    return *this;
}

CMString& CMString::TrimRight(const char* pszTargets)
{
    if (LengthOf(pszTargets) == 0)
    {
        return *this;
    }
    int iRest = GetLength();
    while (iRest > 0 && IsOneOf(m_pszData[iRest - 1], pszTargets))
    {
        --iRest;
    }
    if (iRest < GetLength())
    {
        GetBuffer(GetLength());
        ReleaseBuffer(iRest);
    }
    return *this;
}

CMString& CMString::Trim(const char* pszTargets) { return TrimLeft(pszTargets).TrimRight(pszTargets); }

// ---- Taking parts ----

CMString CMString::Mid(int iFirst, int iCount) const
{
    const int iLength = GetLength();
    const int iFrom = std::clamp(iFirst, 0, iLength);
    const int iTaken = std::clamp(iCount, 0, iLength - iFrom);
    if (iFirst <= 0 && iTaken == iLength)
    {
        return *this;
    }
    CMString oPart;
    AllocCopy(oPart, iTaken, iFrom, 0);
    return oPart;
}

CMString CMString::Mid(int iFirst) const { return Mid(iFirst, GetLength()); }

CMString CMString::Left(int iCount) const { return Mid(0, iCount); }

CMString CMString::Right(int iCount) const
{
    const int iTaken = std::clamp(iCount, 0, GetLength());
    return Mid(GetLength() - iTaken, iTaken);
}
