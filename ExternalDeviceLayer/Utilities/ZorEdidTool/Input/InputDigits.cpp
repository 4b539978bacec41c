// The readers of base64 and of hexadecimal digits: xxd -p, od -An -tx1, edid-decode -o hex, bytes with signs between.

#include <algorithm>

#include "InputReaders.h"

namespace
{
constexpr std::string_view gsc_sHexSeparators = " \t\r\n\f\v,;:-";

enum ELine : unsigned int
{
    eLine_Empty,
    eLine_Digits,
    eLine_OddDigits, // a run of digits ends in the middle of a byte
    eLine_Damaged,   // begins with a byte, and something else follows
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

bool IsBase64(std::string_view sText)
{
    return std::all_of(sText.begin(), sText.end(), [](char c) { return GetBase64Digit(c) <= 63; });
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

// Lines before the digits are skipped, as long as they are not mistaken for some: below that length only the first
// line counts as digits. The first other line after them ends them.
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
                : Trim(sLine) == "*"     ? AtLine(uiLine, "a star replaces repeated lines (od -v prints them)")
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

namespace
{
class CBase64Decoder
{
public:
    explicit CBase64Decoder(SInput& oInput) : m_oInput(oInput) {}

    // Digits and ends of lines. False at any other character.
    bool Add(std::string_view sDigits)
    {
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
            ++m_uiCount;
            m_uiValue = (m_uiValue << 6 | uiDigit) & 0xFFFF;
            m_uiBits += 6;
            if (m_uiBits >= 8)
            {
                m_uiBits -= 8;
                AddByte(m_oInput, m_uiValue >> m_uiBits);
            }
        }
        return true;
    }

    // Less than a block is some word.
    bool Finish()
    {
        if (m_uiCount % 4 == 1)
        {
            m_oInput.m_sProblem = "ends in the middle of a byte";
        }
        return m_oInput.m_aui8Bytes.size() >= gsc_uiBlockSize;
    }

private:
    SInput& m_oInput;
    unsigned int m_uiBits = 0; // held in m_uiValue, 0 to 7 before each digit
    unsigned int m_uiValue = 0;
    size_t m_uiCount = 0;
};

std::string_view CutPadding(std::string_view sDigits) { return sDigits.substr(0, sDigits.find_last_not_of('=') + 1); }

// Between other lines base64 is known by the header of a base block, and is a run of lines of one length, the last one
// shorter. It ends before any other line, and once all announced blocks are read.
bool ReadBase64Between(std::string_view sRest, SInput& oInput)
{
    constexpr std::string_view sHeader = "AP///////w";
    constexpr std::string_view sHeaderOfAddresses = "AP_______w";
    std::string_view sLine;
    do
    {
        if (sRest.empty())
        {
            return false;
        }
        sLine = Trim(TakeLine(sRest));
    } while (!StartsWith(sLine, sHeader) && !StartsWith(sLine, sHeaderOfAddresses));
    oInput.m_aui8Bytes.clear(); // of an earlier attempt
    CBase64Decoder oDecoder(oInput);
    const size_t uiLength = sLine.size();
    bool bEnds = false;
    while (!bEnds)
    {
        const std::string_view sDigits = CutPadding(sLine);
        const bool bComplete =
            oInput.m_aui8Bytes.size() % gsc_uiBlockSize == 0 && !oInput.m_aui8Bytes.empty() && !LacksBlocks(oInput);
        if (bComplete || sLine.size() > uiLength || !IsBase64(sDigits))
        {
            break;
        }
        oDecoder.Add(sDigits);
        bEnds = sLine.size() < uiLength || sDigits.size() < sLine.size() || sRest.empty();
        sLine = Trim(TakeLine(sRest));
    }
    return oDecoder.Finish();
}
} // namespace

bool ReadBase64(const std::string& sText, SInput& oInput)
{
    constexpr std::string_view sHead = ";base64,";
    const size_t uiHead = StartsWith(sText, "data:") ? sText.find(sHead) : std::string::npos;
    std::string_view sDigits = sText;
    sDigits = Trim(uiHead != std::string::npos ? sDigits.substr(uiHead + sHead.size()) : sDigits);
    sDigits = CutPadding(sDigits);
    CBase64Decoder oDecoder(oInput);
    return HasLinesOfBase64(sDigits) && oDecoder.Add(sDigits) ? oDecoder.Finish() : ReadBase64Between(sText, oInput);
}
