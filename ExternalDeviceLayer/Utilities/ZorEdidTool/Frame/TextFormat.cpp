// Text for people and for messages.

#include "TextFormat.h"

#include <stdarg.h>
#include <stdio.h>

#include <algorithm>
#include <charconv>
#include <string_view>

#include "Characters.h"

std::string FormatText(const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    va_list oCopy;
    va_copy(oCopy, oList);
    const int iLength = vsnprintf(nullptr, 0, pszFormat, oCopy);
    va_end(oCopy);
    std::string sText(iLength > 0 ? static_cast<size_t>(iLength) : 0, '\0');
    vsnprintf(sText.data(), sText.size() + 1, pszFormat, oList); // the terminator falls on the string's own
    va_end(oList);
    return sText;
}

std::string JoinTexts(const std::vector<std::string>& asTexts, const char* pszBetween)
{
    std::string sAll;
    for (auto it = asTexts.begin(); it != asTexts.end(); ++it)
    {
        if (!it->empty() && std::find(asTexts.begin(), it, *it) == it)
        {
            sAll += (sAll.empty() ? "" : pszBetween) + *it;
        }
    }
    return sAll;
}

std::string FormatHex(const unsigned char* pui8Bytes, size_t uiCount)
{
    constexpr char szDigits[] = "0123456789abcdef";
    std::string sText;
    sText.reserve(2 * uiCount);
    for (size_t i = 0; i < uiCount; ++i)
    {
        sText += szDigits[pui8Bytes[i] >> 4];
        sText += szDigits[pui8Bytes[i] & 0x0F];
    }
    return sText;
}

namespace
{
// A byte that no line shows as itself.
std::string EscapeByte(char cByte)
{
    switch (cByte)
    {
    case '\n':
        return "\\n";
    case '\t':
        return "\\t";
    case '\\':
        return "\\\\";
    default:
        break;
    }
    const unsigned char ui8Byte = static_cast<unsigned char>(cByte);
    return "\\x" + FormatHex(&ui8Byte, 1);
}

// Printable characters are shown, but not those of sBut; of all others those of sAlso are.
std::string Show(const std::string& sText, std::string_view sBut, std::string_view sAlso)
{
    std::string sShown;
    for (size_t i = 0; i < sText.size();)
    {
        const size_t uiLength = sBut.find(sText[i]) != std::string_view::npos    ? 0
                                : sAlso.find(sText[i]) != std::string_view::npos ? 1
                                                                                 : GetPrintableLength(sText, i);
        sShown += uiLength != 0 ? sText.substr(i, uiLength) : EscapeByte(sText[i]);
        i += uiLength != 0 ? uiLength : 1;
    }
    return sShown;
}
} // namespace

std::string ShowName(const std::string& sName) { return Show(sName, "\\", ""); }

std::string ShowLines(const std::string& sText) { return Show(sText, "", "\n"); }

const char* FindEntity(char cNext)
{
    switch (cNext)
    {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&#39;";
    default:
        return nullptr;
    }
}

std::string EscapeMarkup(const std::string& sText)
{
    std::string sEscaped;
    for (const char cNext : sText)
    {
        const char* pszEntity = FindEntity(cNext);
        sEscaped += pszEntity != nullptr ? pszEntity : std::string(1, cNext);
    }
    return sEscaped;
}

std::string EncodePath(const std::string& sPath)
{
    constexpr std::string_view svPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~/";
    std::string sEncoded;
    for (const char cNext : sPath)
    {
        const unsigned char ui8Next = static_cast<unsigned char>(cNext);
        sEncoded +=
            svPlain.find(cNext) != std::string_view::npos ? std::string(1, cNext) : FormatText("%%%02X", ui8Next);
    }
    return sEncoded;
}

bool ParseNumber(const std::string& sText, unsigned int& uiNumber)
{
    const bool bHex = sText.starts_with("0x") || sText.starts_with("0X");
    const char* pszStart = sText.data() + (bHex ? 2 : 0);
    const char* pszEnd = sText.data() + sText.size();
    const std::from_chars_result oResult = std::from_chars(pszStart, pszEnd, uiNumber, bHex ? 16 : 10);
    return oResult.ec == std::errc() && oResult.ptr == pszEnd && pszStart != pszEnd;
}

bool ParseWeekAndYear(const std::string& sText, unsigned int& uiWeek, unsigned int& uiYear)
{
    const size_t uiSlash = sText.find('/');
    const bool bWeek = uiSlash != std::string::npos;
    uiWeek = 0;
    return ParseNumber(bWeek ? sText.substr(uiSlash + 1) : sText, uiYear) &&
           (!bWeek || (ParseNumber(sText.substr(0, uiSlash), uiWeek) && uiWeek != 0));
}

std::vector<std::string> SplitText(const std::string& sText, const char* pszSeparators)
{
    std::vector<std::string> asParts;
    size_t uiStart = 0;
    for (size_t uiEnd = 0; uiEnd != std::string::npos; uiStart = uiEnd + 1)
    {
        uiEnd = sText.find_first_of(pszSeparators, uiStart);
        asParts.push_back(sText.substr(uiStart, uiEnd == std::string::npos ? uiEnd : uiEnd - uiStart));
    }
    return asParts;
}
