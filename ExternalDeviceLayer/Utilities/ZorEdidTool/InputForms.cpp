// The forms in which an image comes, one reader each. A reader goes over the text once.

#include <stdio.h>
#include <strings.h>

#include <algorithm>
#include <string_view>

#include "Input.h"
#include "ZorEdidUtilsTable.h"

namespace
{
constexpr size_t gsc_uiBlockSize = 128;
constexpr size_t gsc_uiMaxSize = 256 * gsc_uiBlockSize;

constexpr std::string_view gsc_sBlanks = " \t\r\n\f\v";
constexpr std::string_view gsc_sHexDigits = "0123456789abcdefABCDEF";

// ---- Characters, lines and bytes ----

std::string_view Trim(std::string_view sText)
{
    const size_t uiFirst = sText.find_first_not_of(gsc_sBlanks);
    if (uiFirst == std::string_view::npos)
    {
        return {};
    }
    return sText.substr(uiFirst, sText.find_last_not_of(gsc_sBlanks) - uiFirst + 1);
}

// The next line without its end; sRest moves behind it.
std::string_view TakeLine(std::string_view& sRest)
{
    const size_t uiEnd = std::min(sRest.find('\n'), sRest.size());
    const std::string_view sLine = sRest.substr(0, uiEnd);
    sRest.remove_prefix(std::min(uiEnd + 1, sRest.size()));
    return sLine;
}

// The next run of characters that are none of the separators; empty at the end.
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

std::string AtLine(size_t uiLine, const std::string& sProblem)
{
    return "line " + std::to_string(uiLine) + ": " + sProblem;
}

// Above any digit of any radix where the character is none.
unsigned int GetDigit(char c)
{
    const size_t uiPlace = gsc_sHexDigits.find(c);
    constexpr unsigned int uiUpper = 16; // the place of 'A'
    return uiPlace == std::string_view::npos ? 99U
                                             : static_cast<unsigned int>(uiPlace < uiUpper ? uiPlace : uiPlace - 6);
}

// False for an empty text, a digit that is none, and a number above 2^48, which nothing here needs.
bool ParseNumber(std::string_view sDigits, unsigned int uiRadix, unsigned long long& ullValue)
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

// Keeps one byte more than fits at most, which shows that there were too many.
void AddByte(SInput& oInput, unsigned long long ullByte)
{
    if (oInput.m_aui8Bytes.size() <= gsc_uiMaxSize)
    {
        oInput.m_aui8Bytes.push_back(static_cast<unsigned char>(ullByte & 0xFF));
    }
}

// Two digits a byte. False for an odd number of them or anything else.
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

std::string NameFirstOf(const char* pszForm, size_t uiCount)
{
    return uiCount > 1 ? std::string(pszForm) + ", the first EDID of " + std::to_string(uiCount) : pszForm;
}

// ---- Raw ----

// Every EDID holds zeros, and no text does.
bool ReadRaw(const std::string& sContent, SInput& oInput)
{
    if (sContent.find('\0') == std::string::npos)
    {
        return false;
    }
    const size_t uiCount = std::min(sContent.size(), gsc_uiMaxSize + 1);
    oInput.m_aui8Bytes.assign(sContent.begin(), sContent.begin() + static_cast<std::ptrdiff_t>(uiCount));
    return true;
}

// ---- The text table of the library ----

bool ReadTextTable(const std::string& sText, SInput& oInput)
{
    const std::string sMarker = gsc_szEdidTableMarker;
    if (!StartsWith(sText, sMarker) && sText.find("\n" + sMarker) == std::string::npos)
    {
        return false;
    }
    FILE* const poFile = fmemopen(const_cast<char*>(sText.data()), sText.size(), "r");
    CZorEdidUtils::CByteArray oBytes;
    const bool bRead = poFile != nullptr && ReadEdidTable(poFile, oBytes);
    if (poFile != nullptr)
    {
        fclose(poFile);
    }
    if (!bRead || oBytes.GetCount() == 0)
    {
        oInput.m_sProblem = "no rows of bytes behind the marker line";
        return true;
    }
    if (oBytes.GetCount() % gsc_uiBlockSize != 0)
    {
        oInput.m_sProblem = "its table has " + std::to_string(oBytes.GetCount()) + " bytes, not a multiple of 128";
        return true;
    }
    for (unsigned int i = 0; i < oBytes.GetCount(); ++i)
    {
        AddByte(oInput, oBytes[i]);
    }
    return true;
}

// ---- Windows registry export: "EDID"=hex:00,ff,...,\ with the rest on the next lines ----
// An override of the driver has a value for each block instead, with the names "0", "1" and so on.

struct SRegistryValue
{
    std::string_view m_sName;
    std::string_view m_sBytes; // the part of the first line
};

bool SplitRegistryLine(std::string_view sLine, SRegistryValue& oValue)
{
    const size_t uiEqual = sLine.find("\"=hex");
    const size_t uiColon = sLine.find(':', uiEqual == std::string_view::npos ? sLine.size() : uiEqual);
    if (!StartsWith(sLine, "\"") || uiColon == std::string_view::npos)
    {
        return false;
    }
    oValue = { sLine.substr(1, uiEqual - 1), sLine.substr(uiColon + 1) };
    return true;
}

// Reads a value from its first line on; sRest and uiLine move behind its last one.
void AddRegistryBytes(std::string_view sLine, std::string_view& sRest, size_t& uiLine, SInput& oInput)
{
    for (;;)
    {
        std::string_view sBytes = Trim(sLine);
        const bool bGoesOn = !sBytes.empty() && sBytes.back() == '\\';
        sBytes.remove_suffix(bGoesOn ? 1 : 0);
        for (std::string_view sByte = TakeToken(sBytes, ", \t"); !sByte.empty(); sByte = TakeToken(sBytes, ", \t"))
        {
            if (sByte.size() != 2 || !AddHex(oInput, sByte))
            {
                oInput.m_sProblem = AtLine(uiLine, "a byte has two hexadecimal digits");
                return;
            }
        }
        if (!bGoesOn || sRest.empty())
        {
            return;
        }
        sLine = TakeLine(sRest);
        ++uiLine;
    }
}

bool ReadRegistry(const std::string& sText, SInput& oInput)
{
    bool bRegistry = StartsWith(sText, "Windows Registry Editor") || StartsWith(sText, "REGEDIT4");
    std::string_view sRest = sText;
    size_t uiFound = 0;
    unsigned int uiBlocks = 0; // of an override
    for (size_t uiLine = 1; !sRest.empty() && oInput.IsGood(); ++uiLine)
    {
        SRegistryValue oValue;
        if (!SplitRegistryLine(Trim(TakeLine(sRest)), oValue))
        {
            continue;
        }
        bRegistry = true;
        const bool bEdid = EqualsNoCase(oValue.m_sName, "EDID");
        const bool bBlock = uiFound == 0 && oValue.m_sName == std::to_string(uiBlocks);
        if (bEdid && uiFound++ == 0)
        {
            oInput.m_aui8Bytes.clear(); // of an override
        }
        uiBlocks += bBlock ? 1 : 0;
        SInput oOther;
        AddRegistryBytes(oValue.m_sBytes, sRest, uiLine, bBlock || (bEdid && uiFound == 1) ? oInput : oOther);
    }
    if (bRegistry && oInput.IsGood() && oInput.m_aui8Bytes.empty())
    {
        oInput.m_sProblem = "a registry export without a value EDID";
    }
    oInput.m_sForm = NameFirstOf("Windows registry export", uiFound);
    return bRegistry;
}

// ---- xrandr --verbose or --prop: a line "EDID:", then lines of digits only ----

bool ReadXrandr(const std::string& sText, SInput& oInput)
{
    std::string_view sRest = sText;
    size_t uiFound = 0;
    bool bInside = false;
    bool bAny = false;
    for (size_t uiLine = 1; !sRest.empty() && oInput.IsGood(); ++uiLine)
    {
        const std::string_view sLine = Trim(TakeLine(sRest));
        if (sLine == "EDID:" || sLine == "EDID_DATA:")
        {
            bAny = true;
            bInside = true;
            uiFound += oInput.m_aui8Bytes.empty() ? 0U : 1U;
            continue;
        }
        bInside = bInside && !sLine.empty() && IsHex(sLine);
        if (bInside && uiFound == 0 && !AddHex(oInput, sLine))
        {
            oInput.m_sProblem = AtLine(uiLine, "an odd number of digits");
        }
    }
    oInput.m_sForm = NameFirstOf("xrandr --verbose", uiFound + 1);
    return bAny;
}

// ---- Dumps with addresses: xxd, od, hexdump, i2cdump ----
//   00000000: 00ff ffff ffff ff00 4c2d 6f79 5744 3031  ........L-oyWD01     bytes in order, any grouping
//   000000 00 ff ff ff ff ff ff 00  >........<                             a byte a group
//   0000000 177400 177777 177777 000377                                    words, low byte first
// A line "*" stands for lines like the one ahead of it.

class CDumpReader
{
public:
    explicit CDumpReader(SInput& oInput) : m_oInput(oInput) {}

    // After that the lines belong to the dump until one does not.
    bool HasBegun() const { return m_bBegun; }
    bool IsXxd() const { return m_bColon; }

    // False for a line that is none of a dump. Problems go to the input.
    bool TakeLine(std::string_view sLine, size_t uiLine)
    {
        sLine = Trim(sLine);
        if (m_bBegun && sLine == "*")
        {
            m_bStar = true;
            return true;
        }
        std::string_view sAddress;
        bool bColon = false;
        if (!SplitAddress(sLine, sAddress, bColon))
        {
            return false;
        }
        if (!m_bBegun)
        {
            m_bColon = bColon;
            m_bBegun = CheckAddress(sAddress) && AddGroups(CutText(sLine)) && m_uiLineSize != 0;
            if (!m_bBegun)
            {
                m_oInput.m_aui8Bytes.clear();
            }
            return m_bBegun;
        }
        if (!CheckAddress(sAddress))
        {
            m_oInput.m_sProblem = AtLine(uiLine, "its address does not follow the bytes ahead of it");
        }
        else if (!AddGroups(CutText(sLine)))
        {
            m_oInput.m_sProblem = AtLine(uiLine, "not hexadecimal or octal bytes");
        }
        return true;
    }

private:
    // The address in front, zero at first; sLine becomes what follows. Without a colon it has six digits or more.
    bool SplitAddress(std::string_view& sLine, std::string_view& sAddress, bool& bColon) const
    {
        const size_t uiLength = std::min(sLine.find_first_not_of(gsc_sHexDigits), sLine.size());
        sAddress = sLine.substr(0, uiLength);
        bColon = uiLength < sLine.size() && sLine[uiLength] == ':';
        const size_t uiBehind = uiLength + (bColon ? 1 : 0);
        const bool bBlank = uiBehind == sLine.size() || sLine[uiBehind] == ' ' || sLine[uiBehind] == '\t';
        sLine.remove_prefix(uiBehind);
        const bool bZero = sAddress.find_first_not_of('0') == std::string_view::npos;
        return bBlank && uiLength >= (bColon ? 2 : 6) && uiLength <= 12 && (m_bBegun || bZero);
    }

    // The readable column goes: behind two blanks in a dump with colons, else behind a bar or an angle.
    std::string_view CutText(std::string_view sLine) const
    {
        if (m_bColon)
        {
            sLine = Trim(sLine);
            return sLine.substr(0, sLine.find("  "));
        }
        return sLine.substr(0, sLine.find_first_of("|>"));
    }

    // Keeps those radices in which this address follows, and makes up for a star: in the first radix that fits.
    bool CheckAddress(std::string_view sAddress)
    {
        bool bAny = false;
        for (SRadix& oRadix : m_aoRadices)
        {
            unsigned long long ullAddress = 0;
            oRadix.m_bPossible = oRadix.m_bPossible && ParseNumber(sAddress, oRadix.m_uiRadix, ullAddress) &&
                                 Follows(ullAddress) && !(m_bStar && bAny);
            if (oRadix.m_bPossible && m_bStar)
            {
                Repeat(ullAddress);
            }
            bAny = bAny || oRadix.m_bPossible;
        }
        m_bStar = false;
        return bAny;
    }

    bool Follows(unsigned long long ullAddress) const
    {
        const size_t uiSize = m_oInput.m_aui8Bytes.size();
        return ullAddress == uiSize ||
               (m_bStar && m_uiLineSize != 0 && ullAddress > uiSize && (ullAddress - uiSize) % m_uiLineSize == 0);
    }

    void Repeat(unsigned long long ullAddress)
    {
        std::vector<unsigned char>& aui8Bytes = m_oInput.m_aui8Bytes;
        while (aui8Bytes.size() < ullAddress && aui8Bytes.size() <= gsc_uiMaxSize)
        {
            AddByte(m_oInput, aui8Bytes[aui8Bytes.size() - m_uiLineSize]);
        }
    }

    bool AddGroups(std::string_view sRest)
    {
        const size_t uiBefore = m_oInput.m_aui8Bytes.size();
        for (std::string_view sGroup = TakeToken(sRest, " \t"); !sGroup.empty(); sGroup = TakeToken(sRest, " \t"))
        {
            if (!(m_bColon ? AddHex(m_oInput, sGroup) : AddNumber(sGroup)))
            {
                return false;
            }
        }
        m_uiLineSize = m_oInput.m_aui8Bytes.size() - uiBefore;
        return true;
    }

    // A group of od: its digits tell the size, and the low byte comes first.
    bool AddNumber(std::string_view sGroup)
    {
        const size_t uiDigits = sGroup.size();
        const bool bOctal = uiDigits == 3 || uiDigits == 6;
        unsigned long long ullValue = 0;
        if ((!bOctal && uiDigits != 2 && uiDigits != 4 && uiDigits != 8) ||
            !ParseNumber(sGroup, bOctal ? 8 : 16, ullValue))
        {
            return false;
        }
        for (size_t i = 0; i < (bOctal ? uiDigits / 3 : uiDigits / 2); ++i)
        {
            AddByte(m_oInput, ullValue >> 8 * i);
        }
        return true;
    }

    struct SRadix
    {
        unsigned int m_uiRadix;
        bool m_bPossible = true;
    };

    SInput& m_oInput;
    SRadix m_aoRadices[3] = { { 16 }, { 8 }, { 10 } }; // in which the addresses may be
    size_t m_uiLineSize = 0;                           // bytes of the last line
    bool m_bBegun = false;
    bool m_bColon = false;
    bool m_bStar = false;
};

// Lines ahead of the dump are skipped; the first other line behind its start ends it.
bool ReadDump(const std::string& sText, SInput& oInput)
{
    CDumpReader oReader(oInput);
    std::string_view sRest = sText;
    for (size_t uiLine = 1; !sRest.empty() && oInput.IsGood(); ++uiLine)
    {
        const std::string_view sLine = TakeLine(sRest);
        if (!oReader.TakeLine(sLine, uiLine) && oReader.HasBegun() && !Trim(sLine).empty())
        {
            break;
        }
    }
    oInput.m_sForm = oReader.IsXxd() ? "xxd dump" : "od dump";
    return oReader.HasBegun();
}

// ---- C array: { 0x00, 255, ... }, or such numbers without braces ----

size_t SkipBlanksAndComments(std::string_view sText, size_t uiPlace)
{
    for (;;)
    {
        uiPlace = std::min(sText.find_first_not_of(gsc_sBlanks, uiPlace), sText.size());
        const std::string_view sHead = sText.substr(uiPlace, 2);
        if (sHead != "//" && sHead != "/*")
        {
            return uiPlace;
        }
        const std::string_view sEnd = sHead == "//" ? "\n" : "*/";
        const size_t uiEnd = sText.find(sEnd, uiPlace + 2);
        uiPlace = uiEnd == std::string_view::npos ? sText.size() : uiEnd + sEnd.size();
    }
}

bool IsDigitAt(std::string_view sText, size_t uiPlace)
{
    return uiPlace < sText.size() && sText[uiPlace] >= '0' && sText[uiPlace] <= '9';
}

// The place of the brace with numbers behind it, or of a first number in hexadecimal form; the size when there is none.
size_t FindCArray(std::string_view sText)
{
    const size_t uiFirst = SkipBlanksAndComments(sText, 0);
    if (EqualsNoCase(sText.substr(uiFirst, 2), "0x"))
    {
        return uiFirst;
    }
    for (size_t uiPlace = uiFirst; uiPlace < sText.size();)
    {
        const size_t uiNext = SkipBlanksAndComments(sText, uiPlace + 1);
        if (sText[uiPlace] == '{' && IsDigitAt(sText, uiNext))
        {
            return uiPlace;
        }
        uiPlace = uiNext;
    }
    return sText.size();
}

// A number as C writes it, from 0 to 255.
bool AddCNumber(std::string_view sToken, SInput& oInput)
{
    unsigned int uiRadix = 10;
    if (EqualsNoCase(sToken.substr(0, 2), "0x"))
    {
        uiRadix = 16;
        sToken.remove_prefix(2);
    }
    else if (sToken.size() > 1 && sToken[0] == '0')
    {
        uiRadix = 8;
    }
    if (!sToken.empty() && (sToken.back() == 'u' || sToken.back() == 'U'))
    {
        sToken.remove_suffix(1);
    }
    unsigned long long ullValue = 0;
    if (!ParseNumber(sToken, uiRadix, ullValue) || ullValue > 0xFF)
    {
        return false;
    }
    AddByte(oInput, ullValue);
    return true;
}

bool ReadCArray(const std::string& sText, SInput& oInput)
{
    size_t uiPlace = FindCArray(sText);
    if (uiPlace == sText.size())
    {
        return false;
    }
    const bool bBraces = sText[uiPlace] == '{';
    uiPlace += bBraces ? 1 : 0;
    for (;;)
    {
        uiPlace = SkipBlanksAndComments(sText, uiPlace);
        const size_t uiEnd = std::min(sText.find_first_of(" \t\r\n,{}/;", uiPlace), sText.size());
        if (uiPlace < sText.size() && sText[uiPlace] == ',')
        {
            ++uiPlace;
            continue;
        }
        if (uiPlace == sText.size() ? !bBraces : (bBraces && sText[uiPlace] == '}'))
        {
            return true;
        }
        if (!AddCNumber(std::string_view(sText).substr(uiPlace, uiEnd - uiPlace), oInput))
        {
            const auto itPlace = sText.begin() + static_cast<std::ptrdiff_t>(uiPlace);
            const size_t uiLine = 1 + static_cast<size_t>(std::count(sText.begin(), itPlace, '\n'));
            oInput.m_sProblem = AtLine(uiLine, "a number from 0 to 255 is missing in the array");
            return true;
        }
        uiPlace = uiEnd;
    }
}

// ---- Hexadecimal digits: xxd -p, od -An -tx1, edid-decode -o hex, bytes with signs between them ----

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

// Lines ahead of the digits are skipped, as long as they are not mistaken for some: below that length only the first
// line counts as digits. The first other line behind them ends them.
bool ReadDigits(const std::string& sText, SInput& oInput)
{
    constexpr size_t uiShortestStart = 16; // digits
    std::string_view sRest = sText;
    bool bFirst = true;
    bool bBegun = false;
    for (size_t uiLine = 1; !sRest.empty(); ++uiLine)
    {
        std::string_view sLine = TakeLine(sRest);
        const ELine eLine = GetKindOfLine(sLine);
        bBegun = bBegun || ((eLine == eLine_Digits || eLine == eLine_OddDigits) &&
                            (bFirst || Trim(sLine).size() >= uiShortestStart));
        bFirst = bFirst && eLine == eLine_Empty;
        if (!bBegun || eLine == eLine_Empty)
        {
            continue;
        }
        if (eLine != eLine_Digits)
        {
            oInput.m_sProblem = eLine == eLine_OddDigits ? AtLine(uiLine, "an odd number of digits")
                                : eLine == eLine_Damaged ? AtLine(uiLine, "not hexadecimal bytes")
                                : Trim(sLine) == "*"     ? AtLine(uiLine, "a star stands for lines left out (od -v)")
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

// ---- Base64, also in its form for addresses, also as a data address ----

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

// ---- All forms, in the order in which they are tried ----

struct SForm
{
    const char* m_pszName; // replaced by a reader that knows more
    // False when the text has not this form. Else the input receives the bytes or a problem.
    bool (*m_pfnRead)(const std::string& sText, SInput& oInput);
};

constexpr SForm gsc_aoForms[] = {
    { "raw image", ReadRaw },
    { "text table", ReadTextTable },
    { "Windows registry export", ReadRegistry },
    { "xrandr --verbose", ReadXrandr },
    { "dump with addresses", ReadDump },
    { "C array", ReadCArray },
    { "base64", ReadBase64 },
    { "hexadecimal digits", ReadDigits },
};

// An image may begin like a byte order mark, too. All characters of the forms are below 256.
bool IsUtf16(const std::string& sContent)
{
    constexpr size_t uiLookedAt = 2 * 8; // bytes behind the mark
    bool bHighBytesZero = sContent.size() % 2 == 0 && StartsWith(sContent, "\xFF\xFE");
    for (size_t i = 3; bHighBytesZero && i < sContent.size() && i < uiLookedAt; i += 2)
    {
        bHighBytesZero = sContent[i] == '\0' && sContent[i - 1] != '\0';
    }
    return bHighBytesZero;
}

// A text without its byte order mark, as single bytes: registry exports come with two bytes a character.
std::string MakePlainText(const std::string& sContent)
{
    if (StartsWith(sContent, "\xEF\xBB\xBF"))
    {
        return sContent.substr(3);
    }
    if (!IsUtf16(sContent))
    {
        return sContent;
    }
    std::string sText;
    for (size_t i = 2; i + 1 < sContent.size(); i += 2)
    {
        sText += sContent[i + 1] == '\0' && sContent[i] != '\0' ? sContent[i] : '?';
    }
    return sText;
}
} // namespace

SInput DecodeInput(const std::string& sName, const std::string& sContent)
{
    const std::string sText = MakePlainText(sContent);
    for (const SForm& oForm : gsc_aoForms)
    {
        SInput oInput = { sName, {}, oForm.m_pszName, "" };
        if (!oForm.m_pfnRead(sText, oInput))
        {
            continue;
        }
        if (oInput.IsGood() && oInput.m_aui8Bytes.size() > gsc_uiMaxSize)
        {
            oInput.m_sProblem = oInput.m_sForm + " of more than 256 blocks";
        }
        else if (oInput.IsGood() && oInput.m_aui8Bytes.empty())
        {
            oInput.m_sProblem = oInput.m_sForm + " without a digit";
        }
        else if (!oInput.IsGood())
        {
            oInput.m_sProblem = oInput.m_sForm + ": " + oInput.m_sProblem;
        }
        if (!oInput.IsGood())
        {
            oInput.m_aui8Bytes.clear();
        }
        return oInput;
    }
    const bool bEmpty = Trim(sText).empty();
    return { sName, {}, "", bEmpty ? "is empty" : "in no known form: no image, no digits, no base64" };
}
