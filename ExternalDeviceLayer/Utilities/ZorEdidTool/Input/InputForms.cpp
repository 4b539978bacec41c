// The forms in which an image comes, one reader each. A reader goes over the text once. Those of dumps are in
// InputDump.cpp, those of base64 and plain digits in InputDigits.cpp, those of logs in InputLogs.cpp. InputMonitors.cpp
// takes those that are wanted of several EDIDs in a text, InputImages.cpp of several in the bytes.

#include <stdio.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "Characters.h"
#include "InputReaders.h"
#include "ZorEdidUtilsTable.h"

namespace
{
// ---- Raw ----

bool TakeBytes(const std::string& sContent, SInput& oInput)
{
    const size_t uiCount = std::min(sContent.size(), gsc_uiMaxSize + 1);
    oInput.m_aui8Bytes.assign(sContent.begin(), sContent.begin() + static_cast<std::ptrdiff_t>(uiCount));
    return true;
}

// Every EDID holds zeros, and no text does.
bool ReadRaw(const std::string& sContent, SInput& oInput)
{
    return sContent.find('\0') != std::string::npos && TakeBytes(sContent, oInput);
}

// What is left when no text was found, such as a read from a bus that nobody answers on. Dumps in other character sets
// are texts all the same.
bool ReadRest(const std::string& sContent, SInput& oInput) { return !IsText(sContent) && TakeBytes(sContent, oInput); }

// ---- The text table of the library ----

bool ReadTextTable(const std::string& sText, SInput& oInput)
{
    const std::string sMarker = ZorUtils::gsc_szEdidTableMarker;
    if (!StartsWith(sText, sMarker) && sText.find("\n" + sMarker) == std::string::npos)
    {
        return false;
    }
    FILE* const poFile = fmemopen(const_cast<char*>(sText.data()), sText.size(), "r");
    CZorEdidUtils::CByteArray oBytes;
    const bool bRead = poFile != nullptr && ZorUtils::ReadEdidTable(poFile, oBytes);
    if (poFile != nullptr)
    {
        fclose(poFile);
    }
    if (!bRead || oBytes.GetCount() == 0)
    {
        oInput.m_sProblem = "no rows of bytes after the marker line";
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

// ---- Windows registry ----

// The values EDID, each under the key of its monitor. An override of the driver has a key of its own with a value for
// each block instead, with the names "0", "1" and so on, in any order.
class CRegistryValues
{
public:
    // What gets the bytes of the next value.
    SInput& Begin(std::string_view sKey, std::string_view sName)
    {
        constexpr unsigned long long ullMost = 255; // block
        if (EqualsNoCase(sName, "EDID"))
        {
            return m_aoMonitors.emplace_back(SInput{ std::string(sKey), {}, "", "" });
        }
        unsigned long long ullBlock = 0;
        SInput& oValue =
            ParseDigits(sName, 10, ullBlock) && ullBlock <= ullMost ? FindBlocks(sKey)[ullBlock] : m_oOther;
        oValue = {};
        return oValue;
    }

    CMonitors Finish()
    {
        if (!m_aoMonitors.empty())
        {
            return std::move(m_aoMonitors);
        }
        for (const auto& [sKey, aoBlocks] : m_aoOverrides)
        {
            AddOverride(sKey, aoBlocks);
        }
        return std::move(m_aoMonitors);
    }

private:
    using CBlocks = std::map<unsigned long long, SInput>;

    CBlocks& FindBlocks(std::string_view sKey)
    {
        const auto itFound = std::ranges::find(m_aoOverrides, sKey, &std::pair<std::string, CBlocks>::first);
        return itFound != m_aoOverrides.end() ? itFound->second
                                              : m_aoOverrides.emplace_back(std::string(sKey), CBlocks()).second;
    }

    // Values of other programs have such names, too: anything but a block counts only under the key of overrides.
    void AddOverride(const std::string& sKey, const CBlocks& aoBlocks)
    {
        constexpr std::string_view sOverrideKey = "EDID_OVERRIDE";
        const std::string_view sPath = std::string_view(sKey).substr(0, sKey.find_last_not_of(']') + 1);
        const size_t uiTail = sPath.size() - std::min(sPath.size(), sOverrideKey.size());
        SInput oOverride = { sKey, {}, "", "" };
        for (const auto& [ullBlock, oValue] : aoBlocks)
        {
            const bool bNext = ullBlock * gsc_uiBlockSize == oOverride.m_aui8Bytes.size();
            oOverride.m_sProblem = !oValue.IsGood() ? oValue.m_sProblem
                                   : !bNext         ? "an override without the value of each block, from 0 on"
                                   : oValue.m_aui8Bytes.size() != gsc_uiBlockSize
                                       ? "value " + std::to_string(ullBlock) + " of an override has not 128 bytes"
                                       : "";
            if (!oOverride.IsGood())
            {
                break;
            }
            oOverride.m_aui8Bytes.insert(oOverride.m_aui8Bytes.end(), oValue.m_aui8Bytes.begin(),
                                         oValue.m_aui8Bytes.end());
        }
        if (!oOverride.m_aui8Bytes.empty() || EqualsNoCase(sPath.substr(uiTail), sOverrideKey))
        {
            m_aoMonitors.push_back(std::move(oOverride));
        }
    }

    CMonitors m_aoMonitors;
    std::vector<std::pair<std::string, CBlocks>> m_aoOverrides; // with their keys
    SInput m_oOther;
};

// Calls fnLine(line, key, text after it, number of the line) for each; a key has a line of its own, which begins so.
template <class LINE>
void ForEachRegistryLine(const std::string& sText, std::string_view sKeyStart, LINE fnLine)
{
    std::string_view sRest = sText;
    std::string_view sKey;
    for (size_t uiLine = 1; !sRest.empty(); ++uiLine)
    {
        const std::string_view sLine = Trim(TakeLine(sRest));
        sKey = StartsWith(sLine, sKeyStart) ? sLine : sKey;
        fnLine(sLine, sKey, sRest, uiLine);
    }
}

// ---- Its export: "EDID"=hex:00,ff,...,\ with the rest on the next lines ----

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

// Reads a value from its first line on; sRest and uiLine move past its last one.
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
                oInput.m_sProblem = AtLine(uiLine, "a byte has two hexadecimal digits; decimal ones are not read");
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

bool ReadRegistry(const std::string& sText, CMonitors& aoMonitors)
{
    bool bRegistry = StartsWith(sText, "Windows Registry Editor") || StartsWith(sText, "REGEDIT4");
    CRegistryValues oValues;
    ForEachRegistryLine(sText, "[", [&](auto sLine, auto sKey, auto& sRest, auto& uiLine) {
        SRegistryValue oValue;
        if (SplitRegistryLine(sLine, oValue))
        {
            bRegistry = true;
            AddRegistryBytes(oValue.m_sBytes, sRest, uiLine, oValues.Begin(sKey, oValue.m_sName));
        }
    });
    aoMonitors = oValues.Finish();
    if (bRegistry && aoMonitors.empty())
    {
        aoMonitors.push_back({ "", {}, "", "a registry export without a value EDID" });
    }
    return bRegistry;
}

// ---- reg query KEY /s: a line with the key, and a line "    EDID    REG_BINARY    00FF..." ----

bool ReadRegistryQuery(const std::string& sText, CMonitors& aoMonitors)
{
    bool bKey = false;
    bool bBinary = false;
    CRegistryValues oValues;
    ForEachRegistryLine(sText, "HKEY_", [&](auto sLine, auto sKey, auto&, auto uiLine) {
        bKey = bKey || !sKey.empty();
        std::string_view sWords = sLine;
        const std::string_view sName = TakeToken(sWords, gsc_sBlanks);
        if (TakeToken(sWords, gsc_sBlanks) != "REG_BINARY")
        {
            return;
        }
        bBinary = true;
        SInput& oInput = oValues.Begin(sKey, sName);
        if (!AddHex(oInput, Trim(sWords)))
        {
            oInput.m_sProblem = AtLine(uiLine, "not hexadecimal bytes");
        }
    });
    aoMonitors = oValues.Finish();
    if (bBinary && bKey && aoMonitors.empty())
    {
        aoMonitors.push_back({ "", {}, "", "no value EDID" });
    }
    return !aoMonitors.empty();
}

// ---- xrandr --verbose or --prop: a line "EDID:", then lines of digits only ----

bool ReadXrandr(const std::string& sText, CMonitors& aoMonitors)
{
    std::string_view sRest = sText;
    std::string_view sOutput; // whose properties the lines are
    bool bInside = false;
    for (size_t uiLine = 1; !sRest.empty(); ++uiLine)
    {
        const std::string_view sLine = Trim(TakeLine(sRest));
        std::string_view sWords = sLine;
        const std::string_view sFirst = TakeToken(sWords, gsc_sBlanks);
        sOutput = TakeToken(sWords, gsc_sBlanks) == "connected" ? sFirst : sOutput;
        if (sLine == "EDID:" || sLine == "EDID_DATA:")
        {
            aoMonitors.push_back({ std::string(sOutput), {}, "", "" });
            bInside = true;
            continue;
        }
        bInside = bInside && AddRow(aoMonitors.back(), sLine, uiLine);
    }
    return !aoMonitors.empty();
}

// ---- xrandr without --verbose: outputs and modes only ----

bool ReadPlainXrandr(const std::string& sText, SInput& oInput)
{
    bool bScreen = false;
    std::string_view sRest = sText;
    while (!sRest.empty())
    {
        std::string_view sWords = TakeLine(sRest);
        const std::string_view sFirst = TakeToken(sWords, gsc_sBlanks);
        const std::string_view sSecond = TakeToken(sWords, gsc_sBlanks);
        bScreen = bScreen || (sFirst == "Screen" && sSecond.ends_with(':')); // "Screen 0: minimum 320 x 200, ..."
        if (bScreen && (sSecond == "connected" || sSecond == "disconnected"))
        {
            oInput.m_sProblem = "this output has no EDID; run xrandr --verbose (or xrandr --prop)";
            return true;
        }
    }
    return false;
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

// The place of a brace that numbers follow, or of a first hexadecimal number; the size of the text without either.
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
    if (!ParseDigits(sToken, uiRadix, ullValue) || ullValue > 0xFF)
    {
        return false;
    }
    AddByte(oInput, ullValue);
    return true;
}

// Where an array of arrays goes on after the brace that ends a row: after the next row's; 0 where it ends.
size_t FindNextRow(std::string_view sText, size_t uiBrace)
{
    const size_t uiComma = SkipBlanksAndComments(sText, uiBrace + 1);
    const size_t uiNext = sText.substr(uiComma, 1) == "," ? SkipBlanksAndComments(sText, uiComma + 1) : sText.size();
    return sText.substr(uiNext, 1) == "{" ? uiNext + 1 : 0;
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
        const bool bBrace = bBraces && uiPlace < sText.size() && sText[uiPlace] == '}';
        if (const size_t uiRow = bBrace ? FindNextRow(sText, uiPlace) : 0; uiRow != 0)
        {
            uiPlace = uiRow;
            continue;
        }
        if (bBrace && LacksBlocks(oInput) &&
            FindCArray(std::string_view(sText).substr(uiPlace)) < sText.size() - uiPlace)
        {
            oInput.m_sProblem = "an array with fewer blocks than it announces, and another array after it";
        }
        if (bBrace || (!bBraces && uiPlace == sText.size()))
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

// ---- All forms, in the order in which they are tried ----

struct SForm
{
    const char* m_pszName; // replaced by a reader that knows more
    // False when the text does not have this form. Else the input receives the bytes or a problem.
    bool (*m_pfnRead)(const std::string& sText, SInput& oInput);
    // Instead of that one, for texts that may hold several EDIDs.
    bool (*m_pfnReadAll)(const std::string& sText, CMonitors& aoMonitors) = nullptr;
};

constexpr SForm gsc_aoForms[] = {
    { gsc_szRawForm, ReadRaw },
    { "text table", ReadTextTable },
    { "Windows registry export", nullptr, ReadRegistry },
    { "reg query output", nullptr, ReadRegistryQuery },
    { "xrandr --verbose", nullptr, ReadXrandr },
    { "modetest output", nullptr, ReadModetest },
    { "ddcutil dump", nullptr, ReadDdcDump },
    { "dump with addresses", ReadDump }, // its column of text may look like any of those below
    { "log", nullptr, ReadLog },
    { "ioreg dump", nullptr, ReadIoRegistry },
    { "xrandr", ReadPlainXrandr },
    { "C array", ReadCArray },
    { "base64", ReadBase64 },
    { "hexadecimal digits", ReadDigits },
    { "raw image", ReadRest },
};

// Empty when the text does not have this form.
CInputs ReadForm(const SForm& oForm, const std::string& sText, const std::string& sMonitor, const std::string& sName)
{
    SInput oInput = { sName, {}, oForm.m_pszName, "" };
    CMonitors aoMonitors;
    if (oForm.m_pfnReadAll != nullptr ? !oForm.m_pfnReadAll(sText, aoMonitors) : !oForm.m_pfnRead(sText, oInput))
    {
        return {};
    }
    if (oForm.m_pfnReadAll == nullptr && !sMonitor.empty() && oInput.IsGood())
    {
        aoMonitors.push_back({ "", oInput.m_aui8Bytes, "", "" });
    }
    return TakeMonitors(std::move(aoMonitors), sMonitor, oInput);
}

// An image may begin like a byte order mark, too. All characters of the forms are below 256.
bool IsUtf16(const std::string& sContent)
{
    constexpr size_t uiLookedAt = 2 * 8; // bytes after the mark
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

// Words of two or four bytes, low byte first, printed as numbers.
bool IsSwapped(const std::vector<unsigned char>& aui8Bytes)
{
    constexpr unsigned char aaui8Swapped[][8] = { { 0xFF, 0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0xFF },
                                                  { 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0xFF, 0xFF, 0xFF } };
    return std::any_of(std::begin(aaui8Swapped), std::end(aaui8Swapped), [&](const auto& aui8Head) {
        return aui8Bytes.size() >= sizeof(aui8Head) &&
               std::equal(std::begin(aui8Head), std::end(aui8Head), aui8Bytes.begin());
    });
}
// An input that has been read as this form is refused where that cannot be an image.
void FinishInput(const SForm& oForm, SInput& oInput)
{
    if (oInput.IsGood() && oInput.m_aui8Bytes.size() > gsc_uiMaxSize)
    {
        oInput.m_sProblem = oInput.m_sForm + " of more than 256 blocks";
    }
    else if (oInput.IsGood() && oInput.m_aui8Bytes.empty())
    {
        oInput.m_sProblem = oInput.m_sForm + " without a digit";
    }
    else if (oInput.IsGood() && oForm.m_pfnRead != ReadRaw && IsSwapped(oInput.m_aui8Bytes))
    {
        oInput.m_sProblem = oInput.m_sForm + " whose bytes are swapped in each word (od -tx1 prints bytes)";
    }
    else if (!oInput.IsGood())
    {
        oInput.m_sProblem = oInput.m_sForm + ": " + oInput.m_sProblem;
    }
    if (!oInput.IsGood())
    {
        oInput.m_aui8Bytes.clear();
        oInput.m_sHint.clear();
    }
}
} // namespace

CInputs DecodeInputs(const std::string& sName, const std::string& sContent, const std::string& sMonitor,
                     unsigned int uiImage)
{
    const std::string sText = MakePlainText(sContent);
    for (const SForm& oForm : gsc_aoForms)
    {
        CInputs aoInputs;
        for (SInput& oInput : ReadForm(oForm, sText, sMonitor, sName))
        {
            FinishInput(oForm, oInput);
            if (oInput.IsGood())
            {
                AddImages(std::move(oInput), uiImage, aoInputs);
                continue;
            }
            aoInputs.push_back(std::move(oInput));
        }
        if (!aoInputs.empty())
        {
            return aoInputs;
        }
    }
    const bool bEmpty = Trim(sText).empty();
    return { { sName, {}, "", bEmpty ? "is empty" : "in no known form: no image, no digits, no base64" } };
}
