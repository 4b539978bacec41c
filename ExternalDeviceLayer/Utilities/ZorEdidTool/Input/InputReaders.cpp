// Characters, lines and bytes for the readers of the forms.

#include "InputReaders.h"

#include <strings.h>

#include <algorithm>

namespace
{
// Above any digit of any radix where the character is not a digit.
unsigned int GetDigit(char c)
{
    const size_t uiPlace = gsc_sHexDigits.find(c);
    constexpr unsigned int uiUpper = 16; // the place of 'A'
    return uiPlace == std::string_view::npos ? 99U
                                             : static_cast<unsigned int>(uiPlace < uiUpper ? uiPlace : uiPlace - 6);
}
} // namespace

std::string_view Trim(std::string_view sText)
{
    const size_t uiFirst = sText.find_first_not_of(gsc_sBlanks);
    if (uiFirst == std::string_view::npos)
    {
        return {};
    }
    return sText.substr(uiFirst, sText.find_last_not_of(gsc_sBlanks) - uiFirst + 1);
}

std::string_view TakeLine(std::string_view& sRest)
{
    const size_t uiEnd = std::min(sRest.find('\n'), sRest.size());
    const std::string_view sLine = sRest.substr(0, uiEnd);
    sRest.remove_prefix(std::min(uiEnd + 1, sRest.size()));
    return sLine;
}

std::string_view TakeToken(std::string_view& sRest, std::string_view sSeparators)
{
    sRest.remove_prefix(std::min(sRest.find_first_not_of(sSeparators), sRest.size()));
    const std::string_view sToken = sRest.substr(0, sRest.find_first_of(sSeparators));
    sRest.remove_prefix(sToken.size());
    return sToken;
}

bool IsHex(std::string_view sText) { return sText.find_first_not_of(gsc_sHexDigits) == std::string_view::npos; }

bool StartsWith(std::string_view sText, std::string_view sHead) { return sText.substr(0, sHead.size()) == sHead; }

bool EqualsNoCase(std::string_view sText, std::string_view sOther)
{
    return sText.size() == sOther.size() && strncasecmp(sText.data(), sOther.data(), sText.size()) == 0;
}

bool IsConnector(std::string_view sConnector, std::string_view sName)
{
    constexpr std::string_view sCard = "card";
    const size_t uiCardEnd = sConnector.find_first_not_of("0123456789", sCard.size());
    const bool bCard =
        StartsWith(sConnector, sCard) && sConnector.substr(std::min(uiCardEnd, sConnector.size()), 1) == "-";
    return EqualsNoCase(sConnector, sName) || (bCard && EqualsNoCase(sConnector.substr(uiCardEnd + 1), sName));
}

std::string AtLine(size_t uiLine, const std::string& sProblem)
{
    return "line " + std::to_string(uiLine) + ": " + sProblem;
}

bool ParseDigits(std::string_view sDigits, unsigned int uiRadix, unsigned long long& ullValue)
{
    constexpr unsigned long long ullLimit = 1ULL << 48;
    ullValue = 0;
    for (const char c : sDigits)
    {
        const unsigned int uiDigit = GetDigit(c);
        if (uiDigit >= uiRadix || ullValue > ullLimit)
        {
            return false;
        }
        ullValue = ullValue * uiRadix + uiDigit;
    }
    return !sDigits.empty();
}

void AddByte(SInput& oInput, unsigned long long ullByte)
{
    if (oInput.m_aui8Bytes.size() <= gsc_uiMaxSize)
    {
        oInput.m_aui8Bytes.push_back(static_cast<unsigned char>(ullByte & 0xFF));
    }
}

bool AddHex(SInput& oInput, std::string_view sDigits)
{
    if (sDigits.size() % 2 != 0 || !IsHex(sDigits))
    {
        return false;
    }
    for (size_t i = 0; i < sDigits.size(); i += 2)
    {
        AddByte(oInput, GetDigit(sDigits[i]) * 16 + GetDigit(sDigits[i + 1]));
    }
    return true;
}

bool AddRow(SInput& oInput, std::string_view sLine, size_t uiLine)
{
    if (sLine.empty() || AddHex(oInput, sLine))
    {
        return !sLine.empty();
    }
    // One word that is digits for the most part, or a message of a kernel between the rows.
    const auto iDigits = std::ranges::count_if(sLine, [](char c) { return IsHex({ &c, 1 }); });
    const bool bWord = sLine.find_first_of(gsc_sBlanks) == std::string_view::npos;
    const bool bRow = bWord && static_cast<size_t>(iDigits) * 4 >= sLine.size() * 3;
    const bool bWhole = oInput.m_aui8Bytes.size() % gsc_uiBlockSize == 0 && !LacksBlocks(oInput);
    if (bRow || (sLine.starts_with('[') && !bWhole))
    {
        oInput.m_sProblem = AtLine(uiLine, IsHex(sLine) ? "an odd number of digits" : "not hexadecimal bytes");
    }
    return false;
}

bool LacksBlocks(const SInput& oInput)
{
    constexpr size_t uiCountOffset = 126; // of the base block: how many extension blocks follow
    const size_t uiSize = oInput.m_aui8Bytes.size();
    return uiSize != 0 && uiSize % gsc_uiBlockSize == 0 &&
           uiSize / gsc_uiBlockSize < 1U + oInput.m_aui8Bytes[uiCountOffset];
}
