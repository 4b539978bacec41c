// The readers of base64 and of hexadecimal digits: xxd -p, od -An -tx1, edid-decode -o hex, bytes with signs between.

#include "InputReaders.h"

namespace
{
constexpr std::string_view gsc_sHexSeparators = " \t\r\n\f\v,;:-";

enum ELine : unsigned int
{
    eLine_Empty,
    eLine_Digits,
    eLine_OddDigits, // a run of digits ends in the middle of a byte
    eLine_Damaged,   // begins with a byte and has something else behind it
    eLine_Other
}; // the first three are nothing but digits

ELine GetKindOfLine(std::string_view sLine)
{
    const std::string_view sTrimmed = Trim(sLine);
    std::string_view sFirst = sTrimmed;
    sFirst = TakeToken(sFirst, gsc_sHexSeparators);
    if (sTrimmed.empty())
    {
        return eLine_Empty;
    }
    if (sFirst.empty())
    {
        return eLine_Other; // a ruler of dashes
    }
    bool bOdd = false;
    std::string_view sRest = sTrimmed;
    for (std::string_view sRun = TakeToken(sRest, gsc_sHexSeparators); !sRun.empty();
         sRun = TakeToken(sRest, gsc_sHexSeparators))
    {
        if (!IsHex(sRun))
        {
            return sFirst.size() == 2 && IsHex(sFirst) ? eLine_Damaged : eLine_Other;
        }
        bOdd = bOdd || sRun.size() % 2 != 0;
    }
    return bOdd ? eLine_OddDigits : eLine_Digits;
}

unsigned int GetBase64Digit(char c)
{
    constexpr std::string_view sDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const size_t uiPlace = c == '-' ? 62 : c == '_' ? 63 : sDigits.find(c);
    return uiPlace < sDigits.size() ? static_cast<unsigned int>(uiPlace) : 99;
}

// Whether the lines can be base64: none is longer than the first. Digits alone are left to the next form.
bool HasLinesOfBase64(std::string_view sDigits)
{
    const size_t uiFirst = Trim(sDigits.substr(0, sDigits.find('\n'))).size();
    bool bDigitsOnly = true;
    while (!sDigits.empty())
    {
        const std::string_view sLine = Trim(TakeLine(sDigits));
        bDigitsOnly = bDigitsOnly && GetKindOfLine(sLine) <= eLine_OddDigits;
        if (sLine.size() > uiFirst)
        {
            return false;
        }
    }
    return !bDigitsOnly;
}
constexpr size_t gsc_uiShortestStart = 16; // digits of a line that is not mistaken for one

bool HoldsMoreDigits(std::string_view sRest)
{
    while (!sRest.empty())
    {
        const std::string_view sLine = TakeLine(sRest);
        if (GetKindOfLine(sLine) == eLine_Digits && Trim(sLine).size() >= gsc_uiShortestStart)
        {
            return true;
        }
    }
    return false;
}
} // namespace

// Lines ahead of the digits are skipped, as long as they are not mistaken for some: below that length only the first
// line counts as digits. The first other line behind them ends them.
bool ReadDigits(const std::string& sText, SInput& oInput)
{
    std::string_view sRest = sText;
    bool bFirst = true;
    bool bBegun = false;
    for (size_t uiLine = 1; !sRest.empty(); ++uiLine)
    {
        std::string_view sLine = TakeLine(sRest);
        const ELine eLine = GetKindOfLine(sLine);
        bBegun = bBegun || ((eLine == eLine_Digits || eLine == eLine_OddDigits) &&
                            (bFirst || Trim(sLine).size() >= gsc_uiShortestStart));
        bFirst = bFirst && eLine == eLine_Empty;
        if (!bBegun || eLine == eLine_Empty)
        {
            continue;
        }
        if (eLine != eLine_Digits)
        {
            oInput.m_sProblem =
                eLine == eLine_OddDigits ? AtLine(uiLine, "an odd number of digits")
                : eLine == eLine_Damaged ? AtLine(uiLine, "not hexadecimal bytes")
                : Trim(sLine) == "*"     ? AtLine(uiLine, "a star stands for lines left out (od -v)")
                : LacksBlocks(oInput) && HoldsMoreDigits(sRest)
                    ? AtLine(uiLine, "ends the digits with fewer blocks than announced, and more follow")
                    : "";
            return true;
        }
        for (std::string_view sRun = TakeToken(sLine, gsc_sHexSeparators); !sRun.empty();
             sRun = TakeToken(sLine, gsc_sHexSeparators))
        {
            AddHex(oInput, sRun);
        }
    }
    return bBegun;
}

// Less than a block is some word.
bool ReadBase64(const std::string& sText, SInput& oInput)
{
    constexpr std::string_view sHead = ";base64,";
    const size_t uiHead = StartsWith(sText, "data:") ? sText.find(sHead) : std::string::npos;
    std::string_view sDigits = sText;
    sDigits = Trim(uiHead != std::string::npos ? sDigits.substr(uiHead + sHead.size()) : sDigits);
    sDigits = sDigits.substr(0, sDigits.find_last_not_of('=') + 1);
    if (!HasLinesOfBase64(sDigits))
    {
        return false;
    }
    unsigned int uiBits = 0; // held in uiValue, 0 to 7 ahead of each digit
    unsigned int uiValue = 0;
    size_t uiCount = 0;
    for (const char c : sDigits)
    {
        const unsigned int uiDigit = GetBase64Digit(c);
        if (c == '\n' || c == '\r')
        {
            continue;
        }
        if (uiDigit > 63)
        {
            return false;
        }
        ++uiCount;
        uiValue = (uiValue << 6 | uiDigit) & 0xFFFF;
        uiBits += 6;
        if (uiBits >= 8)
        {
            uiBits -= 8;
            AddByte(oInput, uiValue >> uiBits);
        }
    }
    if (uiCount % 4 == 1)
    {
        oInput.m_sProblem = "ends in the middle of a byte";
    }
    return oInput.m_aui8Bytes.size() >= gsc_uiBlockSize;
}
