// The forms in which an image is written.

#include "OutputForms.h"

#include <stdio.h>
#include <string.h>
#include <strings.h>

#include <algorithm>

#include "ZorEdidUtilsTable.h"

namespace
{
using CBytes = std::vector<unsigned char>;

constexpr size_t gsc_uiLine = 16; // bytes a line

void AddNumber(std::string& sText, const char* pszFormat, size_t uiNumber)
{
    char szText[64];
    snprintf(szText, sizeof(szText), pszFormat, uiNumber);
    sText += szText;
}

std::string MakeRaw(const CBytes& aui8Bytes) { return { aui8Bytes.begin(), aui8Bytes.end() }; }

// "00000000: 00ff ffff ffff ff00 4c2d 6f79 5744 3031  ........L-oyWD01"
std::string MakeXxd(const CBytes& aui8Bytes)
{
    constexpr size_t uiTextColumn = 51; // after the address and eight groups
    std::string sText;
    for (size_t uiOffset = 0; uiOffset < aui8Bytes.size(); uiOffset += gsc_uiLine)
    {
        std::string sLine;
        std::string sReadable;
        AddNumber(sLine, "%08zx:", uiOffset);
        for (size_t i = uiOffset; i < aui8Bytes.size() && i < uiOffset + gsc_uiLine; ++i)
        {
            AddNumber(sLine, i % 2 == 0 ? " %02zx" : "%02zx", aui8Bytes[i]);
            sReadable += aui8Bytes[i] >= 0x20 && aui8Bytes[i] < 0x7F ? static_cast<char>(aui8Bytes[i]) : '.';
        }
        sLine.resize(uiTextColumn, ' ');
        sText += sLine + sReadable + "\n";
    }
    return sText;
}

std::string MakeHex(const CBytes& aui8Bytes)
{
    std::string sText;
    for (size_t i = 0; i < aui8Bytes.size(); ++i)
    {
        const bool bLineEnds = i % gsc_uiLine == gsc_uiLine - 1 || i + 1 == aui8Bytes.size();
        AddNumber(sText, bLineEnds ? "%02zx\n" : "%02zx ", aui8Bytes[i]);
    }
    return sText;
}

std::string MakeCArray(const CBytes& aui8Bytes)
{
    std::string sText;
    AddNumber(sText, "const unsigned char edid[%zu] = {", aui8Bytes.size());
    for (size_t i = 0; i < aui8Bytes.size(); ++i)
    {
        AddNumber(sText, i % gsc_uiLine == 0 ? "\n    0x%02zx," : " 0x%02zx,", aui8Bytes[i]);
    }
    return sText + "\n};\n";
}

std::string MakeBase64(const CBytes& aui8Bytes)
{
    constexpr char szDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    constexpr size_t uiLineLength = 76 + 1; // with the line feed
    std::string sText;
    for (size_t i = 0; i < aui8Bytes.size(); i += 3)
    {
        const auto fnGet = [&](size_t uiByte) { return uiByte < aui8Bytes.size() ? aui8Bytes[uiByte] : 0U; };
        const unsigned int uiBits = fnGet(i) << 16 | fnGet(i + 1) << 8 | fnGet(i + 2);
        sText += szDigits[uiBits >> 18];
        sText += szDigits[uiBits >> 12 & 63];
        sText += i + 1 < aui8Bytes.size() ? szDigits[uiBits >> 6 & 63] : '=';
        sText += i + 2 < aui8Bytes.size() ? szDigits[uiBits & 63] : '=';
        if (sText.size() % uiLineLength == uiLineLength - 1 || i + 3 >= aui8Bytes.size())
        {
            sText += '\n';
        }
    }
    return sText;
}

// The table that CZorEdidUtils::ExtractEdidFromDatFile reads: rows of ten bytes after the marker line.
std::string MakeTextTable(const CBytes& aui8Bytes)
{
    constexpr size_t uiRow = 10;
    std::string sText = std::string(ZorUtils::gsc_szEdidTableMarker) + "\n";
    for (size_t i = 0; i < aui8Bytes.size(); ++i)
    {
        if (i % uiRow == 0)
        {
            AddNumber(sText, "%6zu |", i);
        }
        AddNumber(sText, "  %02zX", aui8Bytes[i]);
        sText += i % uiRow == uiRow - 1 || i + 1 == aui8Bytes.size() ? "\n" : "";
    }
    return sText;
}

constexpr SOutputForm gsc_aoForms[] = {
    { "bin", ".bin", nullptr, false, MakeRaw },        { "xxd", ".xxd", nullptr, true, MakeXxd },
    { "hex", ".hex", nullptr, true, MakeHex },         { "c", ".c", ".h", true, MakeCArray },
    { "base64", ".b64", ".base64", true, MakeBase64 }, { "dat", ".dat", nullptr, true, MakeTextTable },
};

// Of texts that others write; an image under such a name is taken for a damaged text.
constexpr const char* gsc_apszOtherTexts[] = { ".cc",   ".cpp", ".csv",  ".css", ".htm", ".html",  ".ini", ".js",
                                               ".json", ".log", ".md",   ".py",  ".reg", ".jsonl", ".rs",  ".svg",
                                               ".text", ".tsv", ".toml", ".txt", ".xml", ".yaml",  ".yml" };

// Of packed files, pictures, documents and programs: the name promises another content.
constexpr const char* gsc_apszOtherFiles[] = { ".7z",  ".a",    ".bmp",  ".bz2", ".exe", ".gif", ".gz",  ".jpeg",
                                               ".jpg", ".o",    ".pdf",  ".png", ".rar", ".so",  ".tar", ".tgz",
                                               ".tif", ".tiff", ".webp", ".xz",  ".zip", ".zst" };

bool EndsWith(const std::string& sText, const char* pszEnding)
{
    const size_t uiLength = strlen(pszEnding);
    return sText.size() >= uiLength && strcasecmp(sText.c_str() + sText.size() - uiLength, pszEnding) == 0;
}

bool HasEnding(const SOutputForm& oForm, const std::string& sPath)
{
    return EndsWith(sPath, oForm.m_pszEnding) ||
           (oForm.m_pszOtherEnding != nullptr && EndsWith(sPath, oForm.m_pszOtherEnding));
}
} // namespace

std::span<const SOutputForm> GetOutputForms() { return gsc_aoForms; }

const SOutputForm* FindOutputForm(const std::string& sPath, std::string& sProblem)
{
    const auto itForm = std::find_if(std::begin(gsc_aoForms), std::end(gsc_aoForms),
                                     [&](const SOutputForm& oForm) { return HasEnding(oForm, sPath); });
    if (itForm != std::end(gsc_aoForms))
    {
        return itForm;
    }
    for (const std::span<const char* const> aszEndings :
         { std::span<const char* const>(gsc_apszOtherTexts), std::span<const char* const>(gsc_apszOtherFiles) })
    {
        const auto itEnding = std::ranges::find_if(aszEndings, [&](const char* psz) { return EndsWith(sPath, psz); });
        if (itEnding != aszEndings.end())
        {
            sProblem =
                std::string("no form of an image has the ending ") + *itEnding + "; those written are " + ListEndings();
            return nullptr;
        }
    }
    return std::begin(gsc_aoForms);
}

SWritten WriteImage(const std::string& sPath, const CBytes& aui8Bytes, bool bForce)
{
    SWritten oWritten;
    const SOutputForm* const poForm = FindOutputForm(sPath, oWritten.m_sProblem);
    return poForm == nullptr ? oWritten : WriteOutput(sPath, poForm->m_pfnMake(aui8Bytes), bForce, poForm->m_bText);
}

std::string ListEndings()
{
    std::string sEndings;
    for (const SOutputForm& oForm : gsc_aoForms)
    {
        sEndings += (sEndings.empty() ? "" : " ") + std::string(oForm.m_pszEnding);
        sEndings += oForm.m_pszOtherEnding != nullptr ? std::string(" ") + oForm.m_pszOtherEnding : "";
    }
    return sEndings;
}
