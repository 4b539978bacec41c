// Telling text from other bytes.

#include "Characters.h"

namespace
{
struct SCharacter
{
    unsigned int m_uiCode;
    size_t m_uiLength; // in bytes; 0 for what is not UTF-8
};

SCharacter ReadCharacter(std::string_view sText, size_t uiPlace)
{
    constexpr unsigned int auiFirst[] = { 0, 0x80, 0x800, 0x10000, 0x110000 }; // by length; the last one is beyond
    const auto fnByte = [&](size_t i) { return i < sText.size() ? static_cast<unsigned char>(sText[i]) : 0U; };
    const unsigned int uiLead = fnByte(uiPlace);
    if (uiLead < 0x80)
    {
        return { uiLead, 1 };
    }
    const size_t uiLength = uiLead >= 0xF0 ? 4 : uiLead >= 0xE0 ? 3 : 2;
    unsigned int uiCode = uiLead & (0x7FU >> uiLength);
    for (size_t i = 1; i < uiLength; ++i)
    {
        const unsigned int uiNext = fnByte(uiPlace + i);
        if ((uiNext & 0xC0) != 0x80)
        {
            return {};
        }
        uiCode = uiCode << 6 | (uiNext & 0x3F);
    }
    const bool bInRange = uiLead >= 0xC0 && uiLead < 0xF8 && uiCode >= auiFirst[uiLength - 1] && uiCode < auiFirst[4];
    const bool bSurrogate = uiCode >= 0xD800 && uiCode <= 0xDFFF; // of UTF-16, no character
    return { uiCode, bInRange && !bSurrogate ? uiLength : 0 };
}
} // namespace

size_t GetCharacterLength(std::string_view sText, size_t uiPlace) { return ReadCharacter(sText, uiPlace).m_uiLength; }

size_t GetPrintableLength(std::string_view sText, size_t uiPlace)
{
    constexpr unsigned int uiDelete = 0x7F;
    constexpr unsigned int uiControlsEnd = 0xA0; // of those from DEL on
    const auto [uiCode, uiLength] = ReadCharacter(sText, uiPlace);
    return uiCode < ' ' || (uiCode >= uiDelete && uiCode < uiControlsEnd) ? 0 : uiLength;
}

bool IsText(std::string_view sText)
{
    constexpr std::string_view sControls = "\a\b\t\n\v\f\r\x1B";
    for (size_t i = 0; i < sText.size();)
    {
        const bool bControl = sControls.find(sText[i]) != std::string_view::npos;
        const size_t uiLength = bControl ? 1 : GetPrintableLength(sText, i);
        if (uiLength == 0)
        {
            return false;
        }
        i += uiLength;
    }
    return true;
}
