// Text for people and for messages.

#include "TextFormat.h"

#include <stdarg.h>
#include <stdio.h>

#include <charconv>

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
// Bytes of the character of UTF-8 at this place when it is one that prints, else 0: control characters, U+0080 to
// U+009F among them, and bytes that are no UTF-8.
size_t GetPrintableLength(const std::string& sText, size_t uiPlace)
{
    constexpr unsigned int uiLastOfOne = 0x7E;                                   // behind it stands DEL
    constexpr unsigned int auiFirst[] = { ' ', 0xA0, 0x800, 0x10000, 0x110000 }; // by length; the last one is beyond
    const auto fnByte = [&](size_t i) { return i < sText.size() ? static_cast<unsigned char>(sText[i]) : 0U; };
    const unsigned int uiLead = fnByte(uiPlace);
    if (uiLead < 0x80)
    {
        return uiLead >= auiFirst[0] && uiLead <= uiLastOfOne ? 1 : 0;
    }
    const size_t uiLength = uiLead >= 0xF0 ? 4 : uiLead >= 0xE0 ? 3 : 2;
    unsigned int uiCode = uiLead & (0x7FU >> uiLength);
    for (size_t i = 1; i < uiLength; ++i)
    {
        const unsigned int uiNext = fnByte(uiPlace + i);
        if ((uiNext & 0xC0) != 0x80)
        {
            return 0;
        }
        uiCode = uiCode << 6 | (uiNext & 0x3F);
    }
    const bool bInRange = uiLead >= 0xC0 && uiLead < 0xF8 && uiCode >= auiFirst[uiLength - 1] && uiCode < auiFirst[4];
    const bool bSurrogate = uiCode >= 0xD800 && uiCode <= 0xDFFF; // of UTF-16, no character
    return bInRange && !bSurrogate ? uiLength : 0;
}

// A byte that stands for itself in no line.
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
} // namespace

std::string ShowName(const std::string& sName)
{
    std::string sText;
    for (size_t i = 0; i < sName.size();)
    {
        const size_t uiLength = sName[i] == '\\' ? 0 : GetPrintableLength(sName, i);
        sText += uiLength != 0 ? sName.substr(i, uiLength) : EscapeByte(sName[i]);
        i += uiLength != 0 ? uiLength : 1;
    }
    return sText;
}

bool ParseNumber(const std::string& sText, unsigned int& uiNumber)
{
    const bool bHex = sText.starts_with("0x") || sText.starts_with("0X");
    const char* pszStart = sText.data() + (bHex ? 2 : 0);
    const char* pszEnd = sText.data() + sText.size();
    const std::from_chars_result oResult = std::from_chars(pszStart, pszEnd, uiNumber, bHex ? 16 : 10);
    return oResult.ec == std::errc() && oResult.ptr == pszEnd && pszStart != pszEnd;
}

SOutcome RefuseInput(const SInput& oInput, const std::string& sReason)
{
    return { "", MakeErrorLine(oInput.m_sName, sReason), eExit_Input };
}
