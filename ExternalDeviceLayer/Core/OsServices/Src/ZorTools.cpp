// Tools: thin forwarders to the C library, and the integer arithmetic that the timing formulas share.

#include "ZorTools.h"

#include <ctype.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <wchar.h>

int ZorTools_memcmp(const void* pFirst, const void* pSecond, unsigned int uiSize)
{
    return memcmp(pFirst, pSecond, uiSize);
}

void* ZorTools_memcpy(void* pDestination, const void* pSource, unsigned int uiSize)
{
    return memcpy(pDestination, pSource, uiSize);
}

void* ZorTools_memset(void* pDestination, int iValue, unsigned int uiSize)
{
    return memset(pDestination, iValue, uiSize);
}

void* ZorTools_memmove(void* pDestination, const void* pSource, unsigned int uiSize)
{
    return memmove(pDestination, pSource, uiSize);
}

unsigned int ZorTools_strlen(const char* pszText) { return static_cast<unsigned int>(strlen(pszText)); }

unsigned int ZorTools_wcslen(const wchar_t* pwszText) { return static_cast<unsigned int>(wcslen(pwszText)); }

int ZorTools_strcmp(const char* pszFirst, const char* pszSecond) { return strcmp(pszFirst, pszSecond); }

int ZorTools_strncmp(const char* pszFirst, const char* pszSecond, unsigned int uiSize)
{
    return strncmp(pszFirst, pszSecond, uiSize);
}

const char* ZorTools_strstr(const char* pszText, const char* pszPattern) { return strstr(pszText, pszPattern); }

const char* ZorTools_strchr(const char* pszText, int iValue) { return strchr(pszText, iValue); }

const char* ZorTools_strrchr(const char* pszText, int iValue) { return strrchr(pszText, iValue); }

char* ZorTools_strtok_s(char* pszText, const char* pszDelimiters, char** ppszContext)
{
    return strtok_r(pszText, pszDelimiters, ppszContext);
}

int ZorTools_vsprintf_s(char* pszDestination, unsigned int uiSize, const char* pszFormat, va_list oList)
{
    return vsnprintf(pszDestination, uiSize, pszFormat, oList);
}

void ZorTools_Assert(int /*bCondition*/, const char* /*pszFile*/, int /*iLine*/) {}

int ZorTools_atoi(const char* pszText) { return static_cast<int>(strtol(pszText, nullptr, 10)); }

int ZorTools_isDigit(int iValue)
{
    // Not what isdigit gives: a compiler that folds the call may answer 1.
    constexpr int iDigitClass = 0x800;
    return isdigit(iValue) != 0 ? iDigitClass : 0;
}

void ZorTools_strcpy_s(char* pszDestination, unsigned int uiSize, const char* pszSource)
{
    snprintf(pszDestination, uiSize, "%s", pszSource);
}

namespace
{
constexpr int gsc_iCaseDistance = 'a' - 'A';

// Moves a letter from cFirst to cLast by iDistance.
char ShiftLetter(char c, char cFirst, char cLast, int iDistance)
{
    return c >= cFirst && c <= cLast ? static_cast<char>(c + iDistance) : c;
}

int FoldToLower(char c)
{
    // Characters above 127 count as negative, whatever the sign of char. NOLINTNEXTLINE(bugprone-signed-char-misuse)
    return static_cast<signed char>(ShiftLetter(c, 'A', 'Z', gsc_iCaseDistance));
}

// ShiftLetter in at most uiSize characters.
char* ShiftLetters(char* pszText, unsigned int uiSize, char cFirst, char cLast, int iDistance)
{
    if (pszText == nullptr)
    {
        return pszText;
    }
    for (unsigned int i = 0; i < uiSize && pszText[i] != '\0'; ++i)
    {
        pszText[i] = ShiftLetter(pszText[i], cFirst, cLast, iDistance);
    }
    return pszText;
}
} // namespace

int ZorTools_stricmp(const char* pszFirst, const char* pszSecond)
{
    for (unsigned int i = 0;; ++i)
    {
        const int iFirst = FoldToLower(pszFirst[i]);
        const int iSecond = FoldToLower(pszSecond[i]);
        if (iFirst == 0 || iFirst != iSecond)
        {
            return iFirst - iSecond;
        }
    }
}

char* ZorTools_strupr_s(char* pszText, unsigned int uiSize)
{
    return ShiftLetters(pszText, uiSize, 'a', 'z', -gsc_iCaseDistance);
}

char* ZorTools_strlwr_s(char* pszText, unsigned int uiSize)
{
    return ShiftLetters(pszText, uiSize, 'A', 'Z', gsc_iCaseDistance);
}

char* ZorTools_strrev(char* pszText)
{
    if (pszText == nullptr || *pszText == '\0')
    {
        return pszText;
    }
    char* pcFront = pszText;
    char* pcBack = pszText + strlen(pszText) - 1;
    while (pcFront < pcBack)
    {
        const char cFront = *pcFront;
        *pcFront++ = *pcBack;
        *pcBack-- = cFront;
    }
    return pszText;
}

unsigned int ZorTools_RoundedDownDivision(unsigned int uiDividend, unsigned int uiDivisor)
{
    return uiDivisor == 0 ? 0 : uiDividend / uiDivisor;
}

unsigned int ZorTools_RoundedUpDivision(unsigned int uiDividend, unsigned int uiDivisor)
{
    if (uiDivisor == 0)
    {
        return 0;
    }
    return uiDividend / uiDivisor + (uiDividend % uiDivisor != 0 ? 1U : 0U);
}

unsigned int ZorTools_SquareRoot(unsigned int uiValue)
{
    unsigned int uiRoot = uiValue >> 1;
    while (uiRoot != 0)
    {
        const unsigned int uiNext = (uiValue / uiRoot + uiRoot) >> 1; // Newton's step
        if (uiNext >= uiRoot)
        {
            return uiRoot;
        }
        uiRoot = uiNext;
    }
    return 0;
}
