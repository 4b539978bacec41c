// What can be done to strings, as one table: on CMString, and on a model over std::string that must give the same. The
// fuzz target makes programs of it; the tests of failing memory run each entry.

#pragma once

#include <limits.h>
#include <math.h>
#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <string>

#include "ZorMFCTypes.h"

// The operations of CMString, for texts without NUL.
class CModelString
{
public:
    CModelString(std::string sText = "") : m_s(std::move(sText)) {}
    CModelString(const char* pszText) : m_s(pszText) {}
    CModelString(char c, int iCount = 1) : m_s(Count(iCount), c) {}

    const std::string& Get() const { return m_s; }
    CModelString& operator+=(const CModelString& oText) { return *this = *this + oText; }
    friend CModelString operator+(const CModelString& o, const CModelString& oText) { return o.m_s + oText.m_s; }

    int Insert(int iIndex, CModelString oText) { return Int(m_s.insert(At(iIndex), oText.m_s).size()); }
    int Delete(int iIndex, int iCount)
    {
        const long long llLength = Int(m_s.size());
        const long long llCut = std::min<long long>(iCount, llLength - iIndex);
        if (llCut >= 1 && std::max(iIndex, 0) + llCut <= llLength)
        {
            m_s.erase(At(iIndex), static_cast<size_t>(llCut));
        }
        return static_cast<int>(llLength);
    }
    void SetAt(int iIndex, char c) { m_s.replace(At(iIndex), IsInside(iIndex), IsInside(iIndex), c); }
    int GetAt(int iIndex) const { return IsInside(iIndex) != 0 ? m_s[At(iIndex)] : '\0'; }
    void MakeUpper() { m_s = Fold(m_s, 'a'); }
    void MakeLower() { m_s = Fold(m_s, 'A'); }
    void MakeReverse() { std::reverse(m_s.begin(), m_s.end()); }
    void TrimLeft(const char* pszTargets) { m_s.erase(0, m_s.find_first_not_of(pszTargets)); }
    void TrimRight(const char* pszTargets) { m_s.erase(m_s.find_last_not_of(pszTargets) + 1); }
    void Trim(const char* pszTargets) { TrimRight(pszTargets), TrimLeft(pszTargets); }
    CModelString Mid(int iFirst, int iCount = INT_MAX) const { return m_s.substr(At(iFirst), Count(iCount)); }
    CModelString Left(int iCount) const { return m_s.substr(0, Count(iCount)); }
    CModelString Right(int iCount) const { return m_s.substr(m_s.size() - At(iCount)); }
    int Find(const CModelString& oText, int iStart) const { return Int(m_s.find(oText.m_s, Count(iStart))); }
    int ReverseFind(char c) const { return Int(m_s.rfind(c)); }
    int CountOf(char c) const { return static_cast<int>(std::count(m_s.begin(), m_s.end(), c)); }
    int FindNoCase(const CModelString& oText, int iStart) const { return Upper().Find(oText.Upper(), iStart); }
    int ReverseFindNoCase(char c) const { return Upper().ReverseFind(Fold({ c }, 'a')[0]); }
    int CountOfNoCase(char c) const { return Upper().CountOf(Fold({ c }, 'a')[0]); }
    void Empty() { m_s.clear(); }
    char* GetBufferSetLength(int iLength) { return m_s.resize(Count(iLength)), m_s.data(); }
    char* GetBuffer(int iLength) { return GetBufferSetLength(std::max(iLength, Int(m_s.size()))); }
    void ReleaseBuffer(int iLength) { m_s.resize(Count(iLength)); }
    void FreeExtra() {}
    void LockBuffer() {}
    void UnlockBuffer() {}
    template <class... ARGUMENTS>
    void Format(const char* pszFormat, ARGUMENTS... aArguments)
    {
        char szText[2048];
        snprintf(szText, sizeof(szText), pszFormat, aArguments...);
        m_s = szText;
    }
    template <class... ARGUMENTS>
    void AppendFormat(const char* pszFormat, ARGUMENTS... aArguments)
    {
        const std::string sBefore = m_s;
        Format(pszFormat, aArguments...);
        m_s.insert(0, sBefore);
    }

private:
    static int Int(size_t uiNumber) { return static_cast<int>(uiNumber); } // -1 for npos
    static size_t Count(int iCount) { return static_cast<size_t>(std::max(iCount, 0)); }
    size_t At(int iIndex) const { return std::min(Count(iIndex), m_s.size()); }
    size_t IsInside(int iIndex) const { return iIndex >= 0 && At(iIndex) < m_s.size() ? 1 : 0; } // characters there

    // The 26 letters from cFirst on change their case.
    static std::string Fold(std::string sText, char cFirst)
    {
        for (char& c : sText)
        {
            c = c >= cFirst && c < cFirst + 26 ? static_cast<char>(c ^ 0x20) : c;
        }
        return sText;
    }
    CModelString Upper() const { return Fold(m_s, 'a'); }

    std::string m_s;
};

inline const char* GetText(const CModelString& oText) { return oText.Get().c_str(); }
inline const char* GetText(const CMString& oText) { return oText; }

// Strings that an operation works on, which may be one, its arguments, and its answer where it gives one. Not copied.
template <class STRING>
struct SStringStep
{
    STRING& m_o;
    STRING& m_oOther;
    char m_c; // not NUL
    int m_iIndex;
    int m_iCount;
    std::string m_sText;
    unsigned int m_uiNumber; // chooses a format and is what is written

    const char* m_pszText = m_sText.c_str();
    int m_iLength = static_cast<int>(m_sText.size());
    int m_iStart = std::max(m_iIndex, 0);
    int m_iAnswer = 0;
};

// The tokens joined. Their number is added to the answer.
inline CModelString JoinTokens(const CModelString& oText, const char* pszSeparators, int& iTokens)
{
    std::string sJoined;
    const std::string& sText = oText.Get();
    for (size_t uiAt = sText.find_first_not_of(pszSeparators); uiAt != std::string::npos; ++iTokens)
    {
        const size_t uiEnd = std::min(sText.find_first_of(pszSeparators, uiAt), sText.size());
        sJoined += (sJoined.empty() ? "" : ", ") + sText.substr(uiAt, uiEnd - uiAt);
        uiAt = sText.find_first_not_of(pszSeparators, uiEnd);
    }
    return sJoined;
}

inline CMString JoinTokens(const CMString& oText, const char* pszSeparators, int& iTokens)
{
    CMArrayString oList;
    oList.InitFromString(oText, pszSeparators);
    for (CMString::CIterator oToken = oText.Begin(pszSeparators); oToken != oText.End(); oToken++)
    {
        iTokens += *oToken == oList[iTokens] ? 1 : 1000;
    }
    return oList.Join(", ");
}

template <class STRING>
void WriteBuffer(SStringStep<STRING>& o)
{
    char* pszBuffer = o.m_o.GetBuffer(o.m_iLength);
    if (o.m_iLength != 0) // else it is perhaps the shared empty string, which must not be written
    {
        memcpy(pszBuffer, o.m_pszText, o.m_sText.size());
        o.m_o.ReleaseBuffer(o.m_iLength);
    }
}

// One conversion. Width and precision stay below where the estimate is known to be too short
// (CMString::GetFormattedLength).
template <bool APPEND, class STRING>
void Format(SStringStep<STRING>& o)
{
    const char* const apszIntegers[] = { "%*.*d|", "%+-*.*i", "%#*.*x", "%0*.*u%%", "% *.*X", "%#-*.*o" };
    const char* const apszReals[] = { "%*.*f|", "%+-*.*e", "%#*.*g", "%0*.*G%%", "% *.*E", "%#-*.*f" };
    const auto Write = [&](const char* pszFormat, auto Argument) {
        const int iWidth = o.m_iStart % 96;
        const int iPrecision = std::max(o.m_iCount, 0) % 30;
        APPEND ? o.m_o.AppendFormat(pszFormat, iWidth, iPrecision, Argument)
               : o.m_o.Format(pszFormat, iWidth, iPrecision, Argument);
    };
    const unsigned int uiKind = o.m_uiNumber % 13;
    uiKind == 12 ? Write("%-*.*s<", o.m_pszText)
    : uiKind < 6 ? Write(apszIntegers[uiKind], o.m_uiNumber)
                 : Write(apszReals[uiKind - 6], ldexp(static_cast<int>(o.m_uiNumber), o.m_iIndex % 900));
}

struct SStringOperation
{
    template <class ACT>
    constexpr SStringOperation(const char* psz, ACT fnAct) : m_pszName(psz), m_pfnLibrary(fnAct), m_pfnModel(fnAct)
    {
    }

    const char* m_pszName;
    void (*m_pfnLibrary)(SStringStep<CMString>&);
    void (*m_pfnModel)(SStringStep<CModelString>&);
};

inline constexpr SStringOperation gsc_aoStringOperations[] = {
    { "assign a text", [](auto& o) { o.m_o = o.m_pszText; } },
    { "assign a character", [](auto& o) { o.m_o = o.m_c; } },
    { "assign a string", [](auto& o) { o.m_o = o.m_oOther; } },
    { "assign a part of itself",
      [](auto& o) { o.m_o = GetText(o.m_o) + strnlen(GetText(o.m_o), static_cast<size_t>(o.m_iStart)); } },
    { "append a character", [](auto& o) { o.m_o += o.m_c; } },
    { "append a string", [](auto& o) { o.m_o += o.m_oOther; } },
    { "append a text", [](auto& o) { o.m_o += o.m_pszText; } },
    { "repeat", [](auto& o) { o.m_o = std::decay_t<decltype(o.m_o)>(o.m_c, o.m_iCount % 64); } },
    { "sum", [](auto& o) { o.m_o = o.m_pszText + (o.m_c + (o.m_o + o.m_oOther + o.m_pszText + o.m_c)); } },
    { "insert a character", [](auto& o) { o.m_iAnswer = o.m_o.Insert(o.m_iIndex, o.m_c); } },
    { "insert a text", [](auto& o) { o.m_iAnswer = o.m_o.Insert(o.m_iIndex, o.m_pszText); } },
    { "insert itself", [](auto& o) { o.m_iAnswer = o.m_o.Insert(o.m_iIndex, o.m_o); } },
    { "delete", [](auto& o) { o.m_iAnswer = o.m_o.Delete(o.m_iIndex, o.m_iCount); } },
    { "set a character", [](auto& o) { o.m_o.SetAt(o.m_iIndex, o.m_c); } },
    { "get a character", [](auto& o) { o.m_iAnswer = o.m_o.GetAt(o.m_iIndex); } },
    { "upper case", [](auto& o) { o.m_o.MakeUpper(); } },
    { "lower case", [](auto& o) { o.m_o.MakeLower(); } },
    { "reverse", [](auto& o) { o.m_o.MakeReverse(); } },
    { "trim left", [](auto& o) { o.m_o.TrimLeft(o.m_pszText); } },
    { "trim right", [](auto& o) { o.m_o.TrimRight(o.m_pszText); } },
    { "trim both", [](auto& o) { o.m_o.Trim(o.m_pszText); } },
    { "middle", [](auto& o) { o.m_o = o.m_o.Mid(o.m_iIndex, o.m_iCount); } },
    { "rest", [](auto& o) { o.m_o = o.m_o.Mid(o.m_iIndex); } },
    { "left", [](auto& o) { o.m_o = o.m_o.Left(o.m_iCount); } },
    { "right", [](auto& o) { o.m_o = o.m_o.Right(o.m_iCount); } },
    { "find a character", [](auto& o) { o.m_iAnswer = o.m_o.Find(o.m_c, o.m_iStart); } },
    { "find a text", [](auto& o) { o.m_iAnswer = o.m_o.Find(o.m_pszText, o.m_iStart); } },
    { "find backwards", [](auto& o) { o.m_iAnswer = o.m_o.ReverseFind(o.m_c); } },
    { "count", [](auto& o) { o.m_iAnswer = o.m_o.CountOf(o.m_c); } },
    { "find a character of any case", [](auto& o) { o.m_iAnswer = o.m_o.FindNoCase(o.m_c, o.m_iStart); } },
    { "find a text of any case", [](auto& o) { o.m_iAnswer = o.m_o.FindNoCase(o.m_pszText, o.m_iStart); } },
    { "find backwards in any case", [](auto& o) { o.m_iAnswer = o.m_o.ReverseFindNoCase(o.m_c); } },
    { "count in any case", [](auto& o) { o.m_iAnswer = o.m_o.CountOfNoCase(o.m_c); } },
    { "empty", [](auto& o) { o.m_o.Empty(); } },
    { "write the buffer", [](auto& o) { WriteBuffer(o); } },
    { "set the buffer's length",
      [](auto& o) { memcpy(o.m_o.GetBufferSetLength(o.m_iLength), o.m_pszText, o.m_sText.size()); } },
    { "free extra", [](auto& o) { o.m_o.FreeExtra(); } },
    { "lock", [](auto& o) { o.m_o.LockBuffer(); } },
    { "unlock", [](auto& o) { o.m_o.UnlockBuffer(); } },
    { "format", [](auto& o) { Format<false>(o); } },
    { "append a format", [](auto& o) { Format<true>(o); } },
    { "tokens", [](auto& o) { o.m_o = JoinTokens(o.m_o, o.m_pszText, o.m_iAnswer); } },
};
