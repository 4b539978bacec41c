// Code page 437, and UTF-8.

#include "Utf8.h"

#include <string.h>

#include <iterator>

namespace ZorC
{
namespace
{
constexpr unsigned char gsc_ui8FirstBeyondAscii = 0x80;
constexpr char16_t gsc_aszCodePage437[] = u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒáíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
                                          u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
static_assert(std::size(gsc_aszCodePage437) == 128 + 1);

char* AppendUtf8(char16_t c, char* pszEnd)
{
    constexpr unsigned int uiBits = 6;
    constexpr unsigned int uiMask = 0x3F;
    constexpr char16_t cFirstOfThree = 0x800;
    if (c < cFirstOfThree)
    {
        *pszEnd++ = static_cast<char>(0xC0 | c >> uiBits);
    }
    else
    {
        *pszEnd++ = static_cast<char>(0xE0 | c >> 2 * uiBits);
        *pszEnd++ = static_cast<char>(gsc_ui8FirstBeyondAscii | (c >> uiBits & uiMask));
    }
    *pszEnd++ = static_cast<char>(gsc_ui8FirstBeyondAscii | (c & uiMask));
    return pszEnd;
}
} // namespace

size_t ToUtf8(const char* pszText, size_t uiLength, const unsigned char* pui8Bytes, char* pszUtf8)
{
    char* pszEnd = pszUtf8;
    for (size_t i = 0; i < uiLength; ++i)
    {
        if (pszText[i] == '.' && pui8Bytes[i] >= gsc_ui8FirstBeyondAscii)
        {
            pszEnd = AppendUtf8(gsc_aszCodePage437[pui8Bytes[i] - gsc_ui8FirstBeyondAscii], pszEnd);
        }
        else
        {
            *pszEnd++ = pszText[i];
        }
    }
    *pszEnd = '\0';
    return static_cast<size_t>(pszEnd - pszUtf8);
}

size_t CopyText(const char* pszText, size_t uiLength, char* pszBuffer, size_t uiSize)
{
    constexpr unsigned int uiTopBits = 0xC0;
    if (pszBuffer == nullptr || uiSize == 0)
    {
        return uiLength;
    }
    size_t uiCopied = uiLength < uiSize ? uiLength : uiSize - 1;
    while (uiCopied != 0 && uiCopied < uiLength &&
           (static_cast<unsigned char>(pszText[uiCopied]) & uiTopBits) == gsc_ui8FirstBeyondAscii)
    {
        --uiCopied; // the next one goes on with a character
    }
    memcpy(pszBuffer, pszText, uiCopied);
    pszBuffer[uiCopied] = '\0';
    return uiLength;
}
} // namespace ZorC
