// zoredid explain: what each byte of an image says, what one byte says, and where something is said.

#include <ctype.h>
#include <stdlib.h>
#include <string.h>
#include <strings.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <tuple>

#include "CommandLine.h"
#include "EdidUtils.h"
#include "EditSet.h"
#include "ImageModes.h"
#include "Json.h"
#include "ManyFiles.h"
#include "MapJson.h"
#include "MapText.h"
#include "NearWord.h"
#include "TextFormat.h"
#include "Tool.h"
#include "ZorEdidWriter.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;
constexpr unsigned int gsc_uiMostBlocks = 256; // of an image
constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;

struct SExplainOptions
{
    std::string m_sFile;
    unsigned int m_uiBlock = gsc_uiNone;
    unsigned int m_uiAt = gsc_uiNone; // in the block of --block, else in the image
    EZorEdidField m_eAt = eZorEdidField_None;
    unsigned int m_uiNumber = gsc_uiNone; // of several fields of that id; none for all
    std::string m_sFind;
    bool m_bJson = false;
    bool m_bIds = false;
    bool m_bValues = false;

    bool IsPlaceAsked() const { return m_uiAt != gsc_uiNone || m_eAt != eZorEdidField_None; }
};

// Empty, or what does not go together.
std::string CheckOptions(const SExplainOptions& oOptions)
{
    if (oOptions.m_bIds == !oOptions.m_sFile.empty())
    {
        return oOptions.m_bIds ? "FILE cannot be combined with --ids" : "FILE or --ids is required";
    }
    return oOptions.m_bValues && !oOptions.IsPlaceAsked() ? "--values requires --at" : "";
}

// ---- Colours ----

constexpr const char* gsc_pszPlain = "\x1B[0m";
constexpr const char* gsc_pszBold = "\x1B[1m";
constexpr const char* gsc_apszAreaColours[] = {
    "\x1B[90m", // structure: grey
    "\x1B[36m", // identity: cyan
    "\x1B[94m", // display: light blue
    "\x1B[35m", // colour: magenta
    "\x1B[32m", // timing: green
    "\x1B[33m", // audio: yellow
    "\x1B[95m", // vendor: light magenta
    "\x1B[2m",  // unused: faint
};
constexpr const char* gsc_apszNoteColours[] = { "\x1B[1m", "\x1B[1;33m", "\x1B[1;31m" }; // bold; yellow; red

// On a terminal that has colours, unless the user wants none.
bool HasColours()
{
    const char* pszNoColour = getenv("NO_COLOR");
    const char* pszTerminal = getenv("TERM");
    return isatty(STDOUT_FILENO) != 0 && (pszNoColour == nullptr || *pszNoColour == '\0') &&
           (pszTerminal == nullptr || strcmp(pszTerminal, "dumb") != 0);
}

// ---- Order ----

// Fields come in the order of their first bits; the map has what is left of a structure after its other fields.
bool IsBefore(const CZorEdidMap& oMap, unsigned int uiFirst, unsigned int uiSecond)
{
    const CZorEdidMap::SField& oFirst = oMap.GetField(uiFirst);
    const CZorEdidMap::SField& oSecond = oMap.GetField(uiSecond);
    const auto fnMask = [&oMap](const CZorEdidMap::SField& oField) {
        unsigned int uiMask = oField.m_uiPieces == 0 ? 0xFF : 0; // bits of the first byte
        for (unsigned int i = 0; i < oField.m_uiPieces; ++i)
        {
            const CZorEdidMap::SPiece& oPiece = oMap.GetPiece(oField.m_uiFirstPiece + i);
            uiMask |= oPiece.m_uiOffset == oField.m_uiOffset ? oPiece.m_ui8Mask : 0U;
        }
        return uiMask;
    };
    const auto fnKey = [&](const CZorEdidMap::SField& oField, unsigned int uiField) {
        return std::make_tuple(oField.m_uiOffset, 8 - std::bit_width(fnMask(oField)), uiField);
    };
    return fnKey(oFirst, uiFirst) < fnKey(oSecond, uiSecond);
}

// All fields, groups before what is in them.
std::vector<unsigned int> OrderByPlace(const CZorEdidMap& oMap)
{
    std::vector<unsigned int> auiOrder;
    std::vector<unsigned int> auiLeft; // the next one last
    const auto fnAdd = [&](unsigned int uiStart, unsigned int uiEnd) {
        const size_t uiFirst = auiLeft.size();
        for (unsigned int i = uiStart; i < uiEnd; i = oMap.GetField(i).m_uiEnd)
        {
            auiLeft.push_back(i);
        }
        std::sort(auiLeft.begin() + static_cast<std::ptrdiff_t>(uiFirst), auiLeft.end(),
                  [&oMap](unsigned int uiOne, unsigned int uiOther) { return IsBefore(oMap, uiOne, uiOther); });
        std::reverse(auiLeft.begin() + static_cast<std::ptrdiff_t>(uiFirst), auiLeft.end());
    };
    fnAdd(0, oMap.GetFieldCount());
    while (!auiLeft.empty())
    {
        const unsigned int uiField = auiLeft.back();
        auiLeft.pop_back();
        auiOrder.push_back(uiField);
        fnAdd(uiField + 1, oMap.GetField(uiField).m_uiEnd);
    }
    return auiOrder;
}

// ---- Places and bytes ----

using CFieldBytes = std::vector<SFieldByte>;

constexpr size_t gsc_uiBytesOfLine = 8;

std::string GetBlockText(const CZorEdidMap& oMap, unsigned int uiField)
{
    return "block " + std::to_string(oMap.GetField(uiField).m_uiOffset / gsc_uiBlockSize);
}

// Offsets count in the block; of a block its number.
std::string GetPlace(const CZorEdidMap& oMap, unsigned int uiField, const CFieldBytes& aoBytes)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    const unsigned int uiFirst = oField.m_uiOffset % gsc_uiBlockSize;
    if (oField.m_uiDepth == 0)
    {
        return GetBlockText(oMap, uiField);
    }
    if (oField.m_eKind != CZorEdidMap::eKind_Group)
    {
        return GetPlaceText(aoBytes, oField.m_uiOffset - uiFirst);
    }
    return GetOffsetText(uiFirst) + (oField.m_uiLength > 1 ? "-" + GetOffsetText(uiFirst + oField.m_uiLength - 1) : "");
}

// Bytes of one value that a line does not hold are counted.
bool AreCounted(const CZorEdidMap& oMap, const CFieldBytes& aoBytes)
{
    return aoBytes.size() > gsc_uiBytesOfLine &&
           std::all_of(aoBytes.begin(), aoBytes.end(), [&](const SFieldByte& oByte) {
               return oMap.GetData()[oByte.m_uiOffset] == oMap.GetData()[aoBytes[0].m_uiOffset];
           });
}

std::string ListBytes(const CZorEdidMap& oMap, const CFieldBytes& aoBytes, size_t uiFirst, size_t uiCount)
{
    std::string sBytes;
    for (size_t i = uiFirst; i < std::min(aoBytes.size(), uiFirst + uiCount); ++i)
    {
        sBytes += FormatHex(oMap.GetData() + aoBytes[i].m_uiOffset, 1);
        sBytes += ' ';
    }
    return sBytes;
}

// As many as a first line may have.
std::string GetBytes(const CZorEdidMap& oMap, const CFieldBytes& aoBytes, size_t uiCount)
{
    return AreCounted(oMap, aoBytes)
               ? FormatHex(oMap.GetData() + aoBytes[0].m_uiOffset, 1) + " " + std::to_string(aoBytes.size()) + " times"
               : ListBytes(oMap, aoBytes, 0, uiCount);
}

// ---- What is asked for ----

// Sizes are written with and without blanks around their x: all of them without.
std::string CloseSizes(std::string sText)
{
    const auto fnDigit = [&](size_t i) { return i < sText.size() && sText[i] >= '0' && sText[i] <= '9'; };
    for (size_t i = 1; i + 2 < sText.size(); ++i)
    {
        if (fnDigit(i - 1) && strncasecmp(sText.data() + i, " x ", 3) == 0 && fnDigit(i + 3))
        {
            sText.replace(i, 3, "x");
        }
    }
    return sText;
}

// What follows a field's name on its line: value, timing and notes, which fnPaint may colour.
template <class PAINT>
std::string GetFieldSays(const CZorEdidMap& oMap, unsigned int uiField, PAINT fnPaint)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    const std::string sValue = GetFieldValue(oMap, uiField);
    std::string sText = sValue.empty() ? "" : ": " + sValue;
    const std::string sNumbers = GetTimingNumbers(oMap, uiField);
    sText += sNumbers.empty() ? "" : "  (" + sNumbers + ")";
    for (unsigned int i = 0; i < oField.m_uiNotes; ++i)
    {
        const CZorEdidMap::SNote& oNote = oMap.GetNote(oField.m_uiFirstNote + i);
        sText += "  " + fnPaint(gsc_apszNoteColours[oNote.m_eSeverity], "! " + GetNoteText(oNote));
    }
    return sText;
}

// sPart is as CloseSizes gives it.
bool HasText(const std::string& sText, const std::string& sPart)
{
    return strcasestr(CloseSizes(sText).c_str(), sPart.c_str()) != nullptr ||
           strcasestr(sText.c_str(), sPart.c_str()) != nullptr; // a part of a size: "x 1080"
}

// Places and bytes are found by whole words, as a digit or two are in most of them. fnIs(first, end) may refuse one.
template <class IS>
bool HasWords(const std::string& sText, const std::string& sPart, const IS& fnIs)
{
    const auto fnInWord = [&sText](size_t i) {
        return i < sText.size() && isalnum(static_cast<unsigned char>(sText[i])) != 0;
    };
    for (size_t i = sText.find(sPart); i != std::string::npos; i = sText.find(sPart, i + 1))
    {
        const size_t uiEnd = i + sPart.size();
        if ((i == 0 || !fnInWord(i - 1)) && !fnInWord(uiEnd) && fnIs(i, uiEnd))
        {
            return true;
        }
    }
    return false;
}

bool HasWords(const std::string& sText, const std::string& sPart)
{
    return HasWords(sText, sPart, [](size_t, size_t) { return true; });
}

std::string ToLower(std::string sText)
{
    std::transform(sText.begin(), sText.end(), sText.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; });
    return sText;
}

// Several blanks as one, and none at the ends.
std::string JoinBlanks(const std::string& sText)
{
    std::string sJoined;
    for (const char c : sText)
    {
        const bool bDropped = c == ' ' && (sJoined.empty() || sJoined.back() == ' ');
        sJoined.append(bDropped ? 0 : 1, c);
    }
    return sJoined.substr(0, sJoined.find_last_not_of(' ') + 1);
}

// What goes from one column of a line into another, such as a whole line, "block 0 17" or "03 Revision". Nothing but
// digits with one blank between them is bytes by themselves.
bool HasColumns(const std::vector<std::string>& asColumns, const std::string& sPart)
{
    std::string sLine;
    std::vector<size_t> auiStarts;
    for (const std::string& sColumn : asColumns)
    {
        auiStarts.push_back(sLine.size());
        sLine += ToLower(CloseSizes(JoinBlanks(sColumn)));
        sLine += sColumn.empty() ? "" : " ";
    }
    constexpr size_t uiPlace = 1; // of the columns: block, place, bytes, name with all after it
    constexpr size_t uiBytes = 2;
    constexpr size_t uiName = 3;
    const bool bPairs = sPart.find_first_not_of("0123456789abcdef ") == std::string::npos;
    const bool bApart = !bPairs || sPart.find("  ") != std::string::npos;
    return HasWords(sLine, JoinBlanks(sPart), [&](size_t uiFirst, size_t uiEnd) {
        const auto fnCrosses = [&](size_t uiColumn) {
            return uiFirst < auiStarts[uiColumn] && uiEnd > auiStarts[uiColumn];
        };
        return fnCrosses(uiName) || (bApart && (fnCrosses(uiPlace) || fnCrosses(uiBytes)));
    });
}

// Whether a field, or a group that it lies in, has an id.
bool IsIn(const CZorEdidMap& oMap, unsigned int uiField, EZorEdidField eId)
{
    for (unsigned int i = uiField; i != gsc_uiNone; i = oMap.GetField(i).m_uiGroup)
    {
        if (oMap.GetField(i).m_eId == eId)
        {
            return true;
        }
    }
    return false;
}

// An id, or the common beginning of several before a point. The id of a group with a point has all of the group.
bool HasId(const CZorEdidMap& oMap, unsigned int uiField, const std::string& sId, EZorEdidField eId)
{
    const std::string sFull = CZorEdidMap::GetId(oMap.GetField(uiField).m_eId);
    const bool bPoint = sId.find('.') != std::string::npos;
    return sFull == sId ||
           (bPoint && (sFull.starts_with(sId + ".") || (eId != eZorEdidField_None && IsIn(oMap, uiField, eId))));
}

// "HDMI VIC 1", "DMT 52h": a code as the list of modes has it, where the field has it in another form.
std::string GetListedCode(const CZorEdidMap& oMap, unsigned int uiField)
{
    CZorEdidMap::SMode oMode = {};
    const bool bCode = oMap.GetField(uiField).m_eKind != CZorEdidMap::eKind_Group && oMap.GetMode(uiField, oMode) &&
                       oMode.m_eKind != SZorMode::eModeKind_Vic;
    return bCode ? GetCodeMark(oMode) : "";
}

// Lines are in the tree or alone, with the block and with the groups before the name.
bool IsAcrossColumns(const CZorEdidMap& oMap, unsigned int uiField, const std::string& sName, const std::string& sSays,
                     const std::string& sPart)
{
    const CFieldBytes aoBytes = GetFieldBytes(oMap, uiField);
    const bool bBlock = oMap.GetField(uiField).m_uiDepth == 0;
    std::vector<std::string> asColumns = { bBlock ? "" : GetBlockText(oMap, uiField), GetPlace(oMap, uiField, aoBytes),
                                           GetBytes(oMap, aoBytes, gsc_uiBytesOfLine), sName + sSays };
    const bool bInTree = HasColumns(asColumns, sPart);
    asColumns.back() = GetPath(oMap, uiField) + sSays;
    return bInTree || HasColumns(asColumns, sPart);
}

// Looks at the text of the field's line and at its other names. eId is the id with the text sPart.
bool Matches(const CZorEdidMap& oMap, unsigned int uiField, const std::string& sPart, EZorEdidField eId)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    const auto fnPlain = [](const char*, const std::string& sText) { return sText; };
    const std::string sName = GetFieldName(oField);
    const std::string sSays = GetFieldSays(oMap, uiField, fnPlain);
    bool bFound = HasId(oMap, uiField, sPart, eId) || HasText(sName + sSays, sPart) ||
                  HasText(JoinBlanks(sName + sSays), sPart) || HasText(GetCodeText(oField), sPart) ||
                  HasText(GetListedCode(oMap, uiField), sPart) ||
                  (oField.m_pszMeaning != nullptr && HasText(oField.m_pszMeaning, sPart));
    if (!bFound)
    {
        const CFieldBytes aoBytes = GetFieldBytes(oMap, uiField);
        bFound = HasWords(GetPlace(oMap, uiField, aoBytes), sPart) ||
                 HasWords(GetBytes(oMap, aoBytes, aoBytes.size()), sPart);
    }
    for (unsigned int i = 0; i < oField.m_uiTimings + oField.m_uiOthers; ++i)
    {
        bFound = bFound || HasText(GetTimingNumber(oField, i), sPart);
    }
    return bFound || (sPart.find(' ') != std::string::npos && IsAcrossColumns(oMap, uiField, sName, sSays, sPart));
}

struct SAsked
{
    std::vector<unsigned int> m_auiFields;
    std::string m_sProblem; // why none was found
};

SAsked FindByte(const CZorEdidMap& oMap, const SExplainOptions& oOptions)
{
    const bool bInBlock = oOptions.m_uiBlock != gsc_uiNone;
    const unsigned int uiStart = bInBlock ? oOptions.m_uiBlock * gsc_uiBlockSize : 0;
    const unsigned int uiSize = bInBlock ? std::min(oMap.GetSize() - uiStart, gsc_uiBlockSize) : oMap.GetSize();
    if (oOptions.m_uiAt >= uiSize)
    {
        return { {},
                 FormatText("has no byte at 0x%02x: %s ends at 0x%02x", oOptions.m_uiAt,
                            bInBlock ? "the block" : "the image", uiSize - 1) };
    }
    return { FindLeaves(oMap, uiStart + oOptions.m_uiAt, 0xFF), "" };
}

// In the order of the tree.
SAsked FindFields(const CZorEdidMap& oMap, const SExplainOptions& oOptions)
{
    const bool bInBlock = oOptions.m_uiBlock != gsc_uiNone;
    const unsigned int uiLastBlock = (oMap.GetSize() - 1) / gsc_uiBlockSize;
    if (bInBlock && oOptions.m_uiBlock > uiLastBlock)
    {
        return { {}, FormatText("has no block %u: its last one is %u", oOptions.m_uiBlock, uiLastBlock) };
    }
    if (oOptions.m_uiAt != gsc_uiNone)
    {
        return FindByte(oMap, oOptions);
    }
    const bool bId = oOptions.m_eAt != eZorEdidField_None;
    const bool bNumber = oOptions.m_uiNumber != gsc_uiNone;
    const unsigned int uiOnly = bNumber ? oMap.FindField(oOptions.m_eAt, oOptions.m_uiNumber) : gsc_uiNone;
    const auto fnIsAsked = [&](unsigned int uiField) {
        return bNumber ? uiOnly <= uiField && uiField < oMap.GetField(uiOnly).m_uiEnd
                       : IsIn(oMap, uiField, oOptions.m_eAt);
    };
    const std::string sPart = ToLower(CloseSizes(oOptions.m_sFind)); // as ids are
    const EZorEdidField eFind = CZorEdidMap::FindId(sPart.c_str());
    SAsked oAsked;
    for (const unsigned int uiField : OrderByPlace(oMap))
    {
        if ((!bInBlock || oMap.GetField(uiField).m_uiOffset / gsc_uiBlockSize == oOptions.m_uiBlock) &&
            (bId ? fnIsAsked(uiField) : sPart.empty() || Matches(oMap, uiField, sPart, eFind)))
        {
            oAsked.m_auiFields.push_back(uiField);
        }
    }
    if (oAsked.m_auiFields.empty())
    {
        oAsked.m_sProblem = bId ? std::string("has no field ") + CZorEdidMap::GetId(oOptions.m_eAt) +
                                      (bNumber ? FormatText("[%u]", oOptions.m_uiNumber) : "")
                                : "has no field with this text: " + oOptions.m_sFind;
    }
    return oAsked;
}

// Which fields are asked for or are groups of those.
std::vector<bool> MarkWithGroups(const CZorEdidMap& oMap, const std::vector<unsigned int>& auiFields)
{
    std::vector<bool> abShown(oMap.GetFieldCount(), false);
    for (const unsigned int uiField : auiFields)
    {
        for (unsigned int i = uiField; i != gsc_uiNone && !abShown[i]; i = oMap.GetField(i).m_uiGroup)
        {
            abShown[i] = true;
        }
    }
    return abShown;
}

// ---- Lines ----

constexpr size_t gsc_uiPlaceWidth = 14;
constexpr size_t gsc_uiBytesWidth = 3 * gsc_uiBytesOfLine + 1;

// Up to this width, and by one blank at least.
void Pad(std::string& sText, size_t uiWidth) { sText.resize(std::max(sText.size() + 1, uiWidth), ' '); }

// Writes fields as lines: place, bytes, and what they say.
class CLines
{
public:
    CLines(const CZorEdidMap& oMap, bool bColours) : m_oMap(oMap), m_bColours(bColours) {}

    // Shown in the tree, indented by its depth.
    void AddToTree(unsigned int uiField)
    {
        const CZorEdidMap::SField& oField = m_oMap.GetField(uiField);
        m_sText += oField.m_uiDepth == 0 && !m_sText.empty() ? "\n" : "";
        Add(uiField, "", gsc_uiPlaceWidth, std::string(size_t{ 2 } * oField.m_uiDepth, ' '), GetFieldName(oField));
    }

    // Shown by itself, with its block and its groups.
    void AddAlone(unsigned int uiField)
    {
        const bool bBlock = m_oMap.GetField(uiField).m_uiDepth == 0;
        Add(uiField, bBlock ? "" : GetBlockText(m_oMap, uiField) + " ", gsc_uiPlaceWidth + 8, "",
            GetPath(m_oMap, uiField));
    }

    const std::string& GetText() const { return m_sText; }

private:
    void AppendPainted(std::string& sLine, const char* pszColour, const std::string& sText) const
    {
        sLine += m_bColours ? pszColour : "";
        sLine += sText;
        sLine += m_bColours ? gsc_pszPlain : "";
    }

    // Many bytes of the same value are counted; other ones that do not fit have lines of their own.
    void Add(unsigned int uiField, const std::string& sHead, size_t uiPlaceWidth, const std::string& sIndentation,
             const std::string& sName)
    {
        const CZorEdidMap::SField& oField = m_oMap.GetField(uiField);
        const char* pszColour = gsc_apszAreaColours[oField.m_eArea];
        const CFieldBytes aoBytes = GetFieldBytes(m_oMap, uiField);
        std::string sBytes = GetBytes(m_oMap, aoBytes, gsc_uiBytesOfLine);
        Pad(sBytes, gsc_uiBytesWidth);
        std::string sLine = sHead;
        sLine += GetPlace(m_oMap, uiField, aoBytes);
        Pad(sLine, uiPlaceWidth);
        AppendPainted(sLine, pszColour, sBytes);
        sLine += sIndentation;
        AppendPainted(sLine, oField.m_eKind == CZorEdidMap::eKind_Group ? gsc_pszBold : pszColour, sName);
        sLine += GetFieldSays(m_oMap, uiField, [this](const char* pszNoteColour, const std::string& sText) {
            std::string sPainted;
            AppendPainted(sPainted, pszNoteColour, sText);
            return sPainted;
        });
        AddLine(sLine);
        const size_t uiListed = AreCounted(m_oMap, aoBytes) ? 0 : aoBytes.size();
        for (size_t i = gsc_uiBytesOfLine; i < uiListed; i += gsc_uiBytesOfLine)
        {
            sLine.assign(uiPlaceWidth, ' ');
            AppendPainted(sLine, pszColour, ListBytes(m_oMap, aoBytes, i, gsc_uiBytesOfLine));
            AddLine(sLine);
        }
    }

    void AddLine(const std::string& sLine)
    {
        m_sText.append(sLine, 0, sLine.find_last_not_of(' ') + 1);
        m_sText += '\n';
    }

    const CZorEdidMap& m_oMap;
    const bool m_bColours;
    std::string m_sText;
};

std::string DescribeFields(const CZorEdidMap& oMap, const SExplainOptions& oOptions,
                           const std::vector<unsigned int>& auiFields)
{
    CLines oLines(oMap, HasColours());
    if (!oOptions.m_sFind.empty())
    {
        for (const unsigned int uiField : auiFields)
        {
            oLines.AddAlone(uiField);
        }
        return oLines.GetText();
    }
    const std::vector<bool> abShown = MarkWithGroups(oMap, auiFields);
    for (const unsigned int uiField : OrderByPlace(oMap))
    {
        if (abShown[uiField])
        {
            oLines.AddToTree(uiField);
        }
    }
    return oLines.GetText();
}

bool IsTaken(const SInput& oInput, unsigned int uiField, const char* pszName)
{
    CZorEdidWriter oWriter;
    CZorEdidWriter::SAnswer oAnswer;
    oWriter.Read(static_cast<unsigned int>(oInput.m_aui8Bytes.size()), oInput.m_aui8Bytes.data());
    return oWriter.Set(uiField, pszName, oAnswer) != 0;
}

// The names that an edit may set one of the fields to, a line each. Those of the first field that has some, as fields
// of an id have the same but for what the fields beside them refuse.
std::string ListValues(const SInput& oInput, const std::vector<unsigned int>& auiFields)
{
    CZorEdidWriter oWriter;
    oWriter.Read(static_cast<unsigned int>(oInput.m_aui8Bytes.size()), oInput.m_aui8Bytes.data());
    std::string sText;
    for (size_t i = 0; i < auiFields.size() && sText.empty(); ++i)
    {
        CMArrayString aoNames;
        oWriter.ListNames(auiFields[i], aoNames);
        for (unsigned int j = 0; j < aoNames.GetCount(); ++j)
        {
            const std::string sName(aoNames[j]);
            sText += IsTaken(oInput, auiFields[i], sName.c_str()) ? sName + "\n" : "";
        }
    }
    return sText;
}

SOutcome Explain(const SExplainOptions& oOptions, const SInput& oInput)
{
    SOutcome oOutcome;
    if (!oInput.IsGood())
    {
        oOutcome = RefuseInput(oInput, oInput.m_sProblem);
        oOutcome.m_sOut =
            oOptions.m_bJson ? MakeFailure(oInput, oInput.m_sProblem, CJsonWriter::eStyle_Indented) + "\n" : "";
        return oOutcome;
    }
    CZorEdidMap oMap;
    if (oMap.Read(static_cast<unsigned int>(oInput.m_aui8Bytes.size()), oInput.m_aui8Bytes.data()) == 0)
    {
        return RefuseInput(oInput, "is empty");
    }
    const SAsked oAsked = FindFields(oMap, oOptions);
    if (!oAsked.m_sProblem.empty())
    {
        oOutcome.m_sError = MakeErrorLine(oInput.m_sName, oAsked.m_sProblem);
        oOutcome.m_eExit = eExit_Finding;
    }
    if (oOptions.m_bValues)
    {
        oOutcome.m_sOut = ListValues(oInput, oAsked.m_auiFields);
        if (oOutcome.m_sOut.empty() && oAsked.m_sProblem.empty())
        {
            oOutcome.m_sError = MakeErrorLine(oInput.m_sName, "no field there takes names");
            oOutcome.m_eExit = eExit_Finding;
        }
        return oOutcome;
    }
    if (oOptions.m_bJson)
    {
        oOutcome.m_sOut = MakeExplanation(oInput, oMap, MarkWithGroups(oMap, oAsked.m_auiFields)) + "\n";
        return oOutcome;
    }
    oOutcome.m_sOut = oInput.IsOneOfSeveral() ? ShowName(oInput.m_sName) + ":\n" : "";
    oOutcome.m_sOut += DescribeFields(oMap, oOptions, oAsked.m_auiFields);
    return oOutcome;
}

// ---- Ids ----

// The innermost structure around a field: the one whose id is the longest beginning of the field's.
std::string GetStructureName(std::string sId)
{
    CZorEdidMap::SIdDescription oStructure = {};
    for (size_t uiPoint = sId.rfind('.'); uiPoint != std::string::npos; uiPoint = sId.rfind('.'))
    {
        sId.resize(uiPoint);
        if (CZorEdidMap::DescribeId(CZorEdidMap::FindId(sId.c_str()), oStructure) != 0)
        {
            return oStructure.m_pszName;
        }
    }
    return "";
}

std::string ListIds()
{
    std::string sText;
    for (const EZorEdidField eField : GetAllIds())
    {
        const char* pszId = CZorEdidMap::GetId(eField);
        CZorEdidMap::SIdDescription oField = {};
        CZorEdidMap::DescribeId(eField, oField);
        const std::string sStructure = GetStructureName(pszId);
        sText += FormatText("%-53s %-8s %-14s %s%s%s\n", pszId, GetKindName(oField.m_eKind),
                            oField.m_pszUnit != nullptr ? oField.m_pszUnit : "-", oField.m_pszName,
                            sStructure.empty() ? "" : " | ", sStructure.c_str());
    }
    return sText;
}

// A number: decimal, or hexadecimal after 0x.
COption DeclareNumber(COptions& oCommand, const char* pszName, unsigned int& uiNumber, unsigned int uiMost,
                      const char* pszHelp)
{
    return oCommand
        .Word(
            pszName, [&uiNumber](const std::string& sText) { ParseNumber(sText, uiNumber); }, pszHelp)
        .Check([uiMost](const std::string& sText) {
            unsigned int uiParsed = 0;
            return ParseNumber(sText, uiParsed) && uiParsed <= uiMost
                       ? std::string()
                       : FormatText("%s is not a number from 0 to %u", ShowName(sText).c_str(), uiMost);
        });
}
} // namespace

void DeclareExplainOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<SExplainOptions>();
    oCommand
        .Word("FILE", poOptions->m_sFile,
              "An image in any form, also damaged or cut short, \"-\" for standard input, or a connector")
        .Placeholder("");
    const COption oBlock = DeclareNumber(oCommand, "--block", poOptions->m_uiBlock, gsc_uiMostBlocks - 1,
                                         "This block only; 0 is the base block")
                               .Placeholder("N");
    const COption oAt =
        oCommand
            .Word(
                "--at",
                [poOptions](const std::string& sText) {
                    SSetting oField;
                    if (!ParseNumber(sText, poOptions->m_uiAt) && ParseField(sText, oField).empty())
                    {
                        poOptions->m_eAt = oField.m_eId;
                        poOptions->m_uiNumber = oField.m_uiNumber;
                    }
                },
                "What this byte says, or the fields with an id, or with ID[N] one of several, from 0 in the image. An "
                "offset is decimal, or hexadecimal after 0x, and counts from the start of the image, or with --block "
                "of the block")
            .Placeholder("OFFSET|ID")
            .Check([](const std::string& sText) {
                constexpr unsigned int uiMost = gsc_uiMostBlocks * gsc_uiBlockSize - 1;
                unsigned int uiParsed = 0;
                SSetting oField;
                return (ParseNumber(sText, uiParsed) && uiParsed <= uiMost) ||
                               (ParseField(sText, oField).empty() && oField.m_eId != eZorEdidField_None)
                           ? std::string()
                           : "unknown offset or id " + ShowName(sText) +
                                 NameKnownWords(sText, ListIdTexts(),
                                                FormatText("a number from 0 to %u or one of --ids", uiMost));
            });
    const COption oFind =
        oCommand
            .Word(
                "--find", poOptions->m_sFind,
                "Where the text of a line has this, in either case: names, values, notes, a timing's list and number, "
                "whole words of places, bytes and blocks. "
                "An id finds its fields, that of a structure all of the structure")
            .Placeholder("TEXT")
            .Check([](const std::string& sText) { return std::string(sText.empty() ? "no text to find" : ""); });
    oAt.Excludes(oFind);
    const COption oIds = oCommand.Flag("--ids", poOptions->m_bIds,
                                       "The ids of all fields, with kind, unit, name and structure; without FILE");
    const COption oJson = oCommand.Flag("--json", poOptions->m_bJson, "One JSON document with the fields as a tree");
    oIds.Excludes(oBlock).Excludes(oAt).Excludes(oFind).Excludes(oJson);
    oCommand
        .Flag(
            "--values", poOptions->m_bValues,
            "With --at: the names that edit --set takes there, a line each; of several fields those of the first that "
            "has some")
        .Excludes(oIds)
        .Excludes(oJson);
    oCommand.Footer("A line for each field: its bytes' offsets in the block, the bytes, and what they say, indented "
                    "by its groups.\n"
                    "Offsets are hexadecimal. Bits follow a point: 14.7 is the highest bit of byte 0x14, \"38 "
                    "3a.7-4\" is byte\n"
                    "0x38 with four more bits in byte 0x3a. A timing ends in its list and its number, which "
                    "edits take. A note\n"
                    "about a problem follows an exclamation mark. Exit status: 1 when the image has no such byte, "
                    "block or text, or a field no names.\n"
                    "A terminal shows areas in colours, unless NO_COLOR is set in the environment and not empty.\n\n"
                    "Examples:\n"
                    "  zoredid explain --at 0x36 monitor.bin\n"
                    "  zoredid explain --at cta.hdmi.max-tmds-clock monitor.bin\n"
                    "  zoredid explain --find gamma monitor.bin");
    oCommand.Run([poOptions, &oTool] {
        if (const std::string sMistake = CheckOptions(*poOptions); !sMistake.empty())
        {
            PrintError(sMistake + " (see zoredid explain --help)");
            oTool.Note(eExit_CommandLine);
            return;
        }
        if (poOptions->m_bIds)
        {
            PrintResult(ListIds());
            return;
        }
        SFiles oFiles;
        oFiles.m_asNames = { poOptions->m_sFile };
        oFiles.m_sBetween = poOptions->m_bJson ? "" : "\n";
        oFiles.m_bTurnsForBadOnes = true; // JSON reports them, too
        ForEachInput(oFiles, oTool, [&](const SInput& oInput) { return Explain(*poOptions, oInput); });
    });
}
