// CMString: formatting, and the estimate of the room that it needs.

#include "ZorMFCTypes/CMString.h"

#include <limits.h>

#include <algorithm>

namespace
{
enum ESizeClass : unsigned int
{
    eSizeClassInt,
    eSizeClassNarrow, // h
    eSizeClassLong,   // l
    eSizeClass64      // ll
};

// One conversion as it is read from a format.
struct SItem
{
    int m_iWidth;
    int m_iPrecision; // 0 counts as none for texts
    ESizeClass m_eClass;
    char m_cConversion; // NUL where the format ends after a '%'
};

constexpr int gsc_iCharLength = 2;
constexpr int gsc_iNullTextLength = 6; // "(null)"
constexpr long long gsc_iShortestInteger = 32;
constexpr long long gsc_iShortestFloat = 128;
constexpr long long gsc_iLongestFixedPoint = 312; // sign, 309 digits of the largest double, point, and one to spare

// Takes the arguments of a format one by one from a copy of the list, so that the list itself stays usable.
class CArguments
{
public:
    explicit CArguments(va_list oList) { va_copy(m_oList, oList); }
    ~CArguments() { va_end(m_oList); }
    CArguments(const CArguments&) = delete;
    CArguments& operator=(const CArguments&) = delete;

    int TakeInt() { return va_arg(m_oList, int); }
    long TakeLong() { return va_arg(m_oList, long); }
    long long TakeLongLong() { return va_arg(m_oList, long long); }
    double TakeDouble() { return va_arg(m_oList, double); }
    void* TakePointer() { return va_arg(m_oList, void*); }
    const char* TakeText() { return va_arg(m_oList, const char*); }
    const wchar_t* TakeWideText() { return va_arg(m_oList, const wchar_t*); }

private:
    va_list m_oList;
};

// Reads a decimal number and skips its digits.
int ReadNumber(const char*& pszFormat)
{
    const int iNumber = ZorTools_atoi(pszFormat);
    while (ZorTools_isDigit(static_cast<unsigned char>(*pszFormat)) != 0)
    {
        ++pszFormat;
    }
    return iNumber;
}

// A negative width or precision reports and is used as it is.
int CheckNumber(int iNumber)
{
    if (iNumber < 0)
    {
        MASSERT_FAILED();
    }
    return iNumber;
}

// Flags and width; iExtra receives the room for prefixes such as "0x".
int ReadWidth(const char*& pszFormat, CArguments& oArguments, long long& iExtra)
{
    int iWidth = 0;
    bool bIsArgument = false;
    for (;; ++pszFormat)
    {
        switch (*pszFormat)
        {
        case '#':
            iExtra += 2;
            continue;
        case '*':
            iWidth = oArguments.TakeInt();
            bIsArgument = true;
            continue;
        case '+':
        case '-':
        case ' ':
        case '0':
            continue;
        default:
            return CheckNumber(bIsArgument ? iWidth : ReadNumber(pszFormat));
        }
    }
}

int ReadPrecision(const char*& pszFormat, CArguments& oArguments)
{
    if (*pszFormat != '.')
    {
        return 0;
    }
    ++pszFormat;
    if (*pszFormat != '*')
    {
        return CheckNumber(ReadNumber(pszFormat));
    }
    ++pszFormat;
    return CheckNumber(oArguments.TakeInt());
}

ESizeClass ReadSizeClass(const char*& pszFormat)
{
    if (ZorTools_strncmp(pszFormat, "ll", 2) == 0)
    {
        pszFormat += 2;
        return eSizeClass64;
    }
    switch (*pszFormat)
    {
    case 'h':
        ++pszFormat;
        return eSizeClassNarrow;
    case 'l':
        ++pszFormat;
        return eSizeClassLong;
    case 'F':
    case 'L':
    case 'N':
        ++pszFormat;
        return eSizeClassInt;
    default:
        return eSizeClassInt;
    }
}

long long FitText(const SItem& oItem, int iLength)
{
    const bool bIsWhole = oItem.m_iPrecision == 0 || oItem.m_iPrecision > iLength;
    return std::max(bIsWhole ? iLength : oItem.m_iPrecision, oItem.m_iWidth);
}

// ZorTools_strlen or ZorTools_wcslen, but at least 1 and at most what a length can be; "(null)" replaces null.
template <class TYPE>
int TextLength(const TYPE* pText, unsigned int (*pfnLength)(const TYPE*))
{
    constexpr unsigned int uiLongest = INT_MAX;
    return pText == nullptr ? gsc_iNullTextLength : static_cast<int>(std::clamp(pfnLength(pText), 1U, uiLongest));
}

// Width and precision together, but at least iLeast.
long long FitNumber(const SItem& oItem, long long iLeast)
{
    return std::max(static_cast<long long>(oItem.m_iWidth) + oItem.m_iPrecision, iLeast);
}

long long UnknownLength()
{
    MASSERT_FAILED();
    return 0;
}

void TakeInteger(ESizeClass eClass, CArguments& oArguments)
{
    switch (eClass)
    {
    case eSizeClass64:
        oArguments.TakeLongLong();
        return;
    case eSizeClassLong:
        oArguments.TakeLong();
        return;
    default:
        oArguments.TakeInt();
        return;
    }
}

long long TextItemLength(const SItem& oItem, CArguments& oArguments)
{
    const bool bIsWide =
        oItem.m_eClass == eSizeClassLong || (oItem.m_cConversion == 'S' && oItem.m_eClass == eSizeClassInt);
    if (oItem.m_eClass == eSizeClass64)
    {
        return UnknownLength();
    }
    return FitText(oItem, bIsWide ? TextLength(oArguments.TakeWideText(), ZorTools_wcslen)
                                  : TextLength(oArguments.TakeText(), ZorTools_strlen));
}

// The length of one conversion; its argument is taken.
long long ItemLength(const SItem& oItem, CArguments& oArguments)
{
    switch (oItem.m_cConversion)
    {
    case 'c':
    case 'C':
        if (oItem.m_eClass == eSizeClass64)
        {
            return UnknownLength();
        }
        oArguments.TakeInt();
        return FitText(oItem, gsc_iCharLength);
    case 's':
    case 'S':
        return TextItemLength(oItem, oArguments);
    case 'd':
    case 'i':
    case 'u':
    case 'x':
    case 'X':
    case 'o':
        TakeInteger(oItem.m_eClass, oArguments);
        return FitNumber(oItem, gsc_iShortestInteger);
    case 'p':
        oArguments.TakePointer();
        return FitNumber(oItem, gsc_iShortestInteger);
    case 'e':
    case 'E':
    case 'g':
    case 'G':
        oArguments.TakeDouble();
        return FitNumber(oItem, gsc_iShortestFloat);
    case 'f':
        oArguments.TakeDouble();
        return std::max(oItem.m_iPrecision + gsc_iLongestFixedPoint, gsc_iShortestFloat);
    case 'n':
        oArguments.TakePointer();
        return 0;
    default:
        return UnknownLength();
    }
}
} // namespace

void CMString::Format(const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    FormatV(pszFormat, oList);
    va_end(oList);
}

void CMString::FormatV(const char* pszFormat, va_list oList)
{
    if (pszFormat == nullptr)
    {
        MASSERT_FAILED();
        return;
    }
    const int iEstimate = GetFormattedLength(pszFormat, oList);
    if (iEstimate < 0)
    {
        return;
    }
    const unsigned int uiSize = static_cast<unsigned int>(iEstimate) + 1;
    char* pszBuffer = GetBuffer(iEstimate < INT_MAX ? iEstimate + 1 : INT_MAX);
    if (pszBuffer == nullptr)
    {
        return;
    }
    const int iResult = PrintInto(pszBuffer, uiSize, pszFormat, oList);
    if (iResult < 0 || static_cast<unsigned int>(iResult) > uiSize)
    {
        MASSERT_FAILED();
    }
}

void CMString::AppendFormat(const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    AppendFormatV(pszFormat, oList);
    va_end(oList);
}

void CMString::AppendFormatV(const char* pszFormat, va_list oList)
{
    if (pszFormat == nullptr)
    {
        MASSERT_FAILED();
        return;
    }
    const int iEstimate = GetFormattedLength(pszFormat, oList);
    if (iEstimate < 1)
    {
        return;
    }
    const int iOldLength = GetLength();
    char* pszBuffer = GetBuffer(iEstimate < INT_MAX - iOldLength ? iOldLength + iEstimate : INT_MAX);
    if (pszBuffer == nullptr)
    {
        return;
    }
    PrintInto(pszBuffer + iOldLength, static_cast<unsigned int>(iEstimate) + 1, pszFormat, oList);
}

// uiSize characters at pszAt belong to the buffer, the terminator counted.
int CMString::PrintInto(char* pszAt, unsigned int uiSize, const char* pszFormat, va_list oList)
{
    const int iResult = ZorTools_vsprintf_s(pszAt, uiSize, pszFormat, oList);
    if (iResult < 0)
    {
        *pszAt = '\0'; // what a failed conversion leaves is not defined
    }
    ReleaseBuffer(-1);
    return iResult;
}

int CMString::GetFormattedLength(const char* pszFormat, va_list oList)
{
    if (pszFormat == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    CArguments oArguments(oList);
    long long iSum = 0;
    while (*pszFormat != '\0')
    {
        if (*pszFormat++ != '%')
        {
            ++iSum;
            continue;
        }
        if (*pszFormat == '%')
        {
            ++pszFormat;
            ++iSum;
            continue;
        }
        SItem oItem;
        oItem.m_iWidth = ReadWidth(pszFormat, oArguments, iSum);
        oItem.m_iPrecision = ReadPrecision(pszFormat, oArguments);
        oItem.m_eClass = ReadSizeClass(pszFormat);
        oItem.m_cConversion = *pszFormat;
        if (*pszFormat != '\0')
        {
            ++pszFormat;
        }
        iSum += ItemLength(oItem, oArguments);
    }
    if (iSum < 0 || iSum > INT_MAX)
    {
        MASSERT_FAILED();
        return -1;
    }
    return static_cast<int>(iSum);
}
