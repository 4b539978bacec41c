/// Memory, text and integer operations under one prefix: plain functions without state.
///
/// Sizes and counts are unsigned 32 bits, in bytes or characters. Pointers are not tested unless a function says so.
/// May be called from anywhere; calls nothing of the library.

#pragma once

#include <stdarg.h>

#pragma GCC visibility push(default)

// ---- Forwarders to the platform function of the same job; results are the platform's. ----

int ZorTools_memcmp(const void* pFirst, const void* pSecond, unsigned int uiSize);
void* ZorTools_memcpy(void* pDestination, const void* pSource, unsigned int uiSize);
void* ZorTools_memset(void* pDestination, int iValue, unsigned int uiSize);
void* ZorTools_memmove(void* pDestination, const void* pSource, unsigned int uiSize);

/// Lengths in characters, without the terminator.
unsigned int ZorTools_strlen(const char* pszText);
unsigned int ZorTools_wcslen(const wchar_t* pwszText);

int ZorTools_strcmp(const char* pszFirst, const char* pszSecond);
int ZorTools_strncmp(const char* pszFirst, const char* pszSecond, unsigned int uiSize);

/// Pointers into pszText, or null when nothing is found.
const char* ZorTools_strstr(const char* pszText, const char* pszPattern);
const char* ZorTools_strchr(const char* pszText, int iValue);
const char* ZorTools_strrchr(const char* pszText, int iValue);

/// Cuts pszText into tokens by writing terminators into it (strtok_r). The first call passes the text, later ones null;
/// the position is kept in *ppszContext. Null when no token is left.
char* ZorTools_strtok_s(char* pszText, const char* pszDelimiters, char** ppszContext);

/// Formats at most uiSize - 1 characters and a terminator (vsnprintf). Returns the length that the whole text has.
int ZorTools_vsprintf_s(char* pszDestination, unsigned int uiSize, const char* pszFormat, va_list oList)
    __attribute__((format(printf, 3, 0)));

// ---- Functions with behaviour of their own. ----

/// The breakpoint of every failed guard. Does nothing and returns.
void ZorTools_Assert(int bCondition, const char* pszFile, int iLine);

/// Decimal number at the start of the text, cut to 32 bits; 0 when there is none.
int ZorTools_atoi(const char* pszText);

/// 0x800, the platform's bit for the class of digits, for '0' to '9', else 0. iValue is an unsigned char value or EOF.
int ZorTools_isDigit(int iValue);

/// Copies at most uiSize - 1 characters and terminates.
void ZorTools_strcpy_s(char* pszDestination, unsigned int uiSize, const char* pszSource);

/// Compares without regard to the case of ASCII letters. The result is the difference of the first two characters that
/// differ, folded to lower case and taken as signed values; 0 for equal texts.
int ZorTools_stricmp(const char* pszFirst, const char* pszSecond);

/// Change the case of ASCII letters in place, in at most uiSize characters and no further than the terminator.
/// Null or a size of 0 changes nothing. Return pszText.
char* ZorTools_strupr_s(char* pszText, unsigned int uiSize);
char* ZorTools_strlwr_s(char* pszText, unsigned int uiSize);

/// Reverses the text in place; null is allowed. Returns pszText.
char* ZorTools_strrev(char* pszText);

/// Unsigned division; 0 when uiDivisor is 0, over the whole 32-bit range.
unsigned int ZorTools_RoundedDownDivision(unsigned int uiDividend, unsigned int uiDivisor); ///< truncating
unsigned int ZorTools_RoundedUpDivision(unsigned int uiDividend, unsigned int uiDivisor);   ///< any rest goes up
/// To the nearest, half goes up. Inline, since each timing that is produced divides at least once: out of line it took
/// 5 % of the instructions of a walk over an EDID's timings.
constexpr unsigned int ZorTools_RoundedDivision(unsigned int uiDividend, unsigned int uiDivisor)
{
    if (uiDivisor == 0)
    {
        return 0;
    }
    // (dividend + divisor / 2) / divisor would wrap near the top of the range; quotient and rest do not.
    const unsigned int uiQuotient = uiDividend / uiDivisor;
    const unsigned int uiRest = uiDividend % uiDivisor;
    const unsigned int uiHalf = uiDivisor / 2 + uiDivisor % 2; // smallest rest that rounds up
    return uiRest >= uiHalf ? uiQuotient + 1 : uiQuotient;
}

/// Integer square root, rounded down, for 2 and above. Gives 0 for 0 and for 1.
unsigned int ZorTools_SquareRoot(unsigned int uiValue);

#pragma GCC visibility pop
