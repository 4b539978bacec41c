// zoredid show: what an image says of its monitor, for people: at most 25 lines of 80 columns.

#include <algorithm>
#include <cmath>
#include <map>

#include "CutBase.h"
#include "FactWords.h"
#include "Findings.h"
#include "ImageModes.h"
#include "JsonReport.h"
#include "LoadedImage.h"
#include "MapText.h"
#include "TextFormat.h"
#include "Tool.h"

namespace
{
constexpr size_t gsc_uiMostLines = 25;
constexpr size_t gsc_uiColumns = 80;
constexpr size_t gsc_uiNameColumns = 10; // of the name of a line
constexpr size_t gsc_uiTextColumns = gsc_uiColumns - gsc_uiNameColumns;

struct SShowOptions
{
    SFiles m_oFiles;
    SJsonOptions m_oJson;
};

using CLines = std::vector<std::string>;

// ---- Lines of a limited width ----

// Columns of a terminal: of UTF-8 each character's first byte counts.
size_t CountColumns(const std::string& sText)
{
    return static_cast<size_t>(
        std::ranges::count_if(sText, [](char cNext) { return (static_cast<unsigned char>(cNext) & 0xC0U) != 0x80U; }));
}

// The bytes of as many characters as fit into these columns.
size_t CountBytes(const std::string& sText, size_t uiColumns)
{
    size_t uiBytes = 0;
    while (uiBytes < sText.size() && CountColumns(sText.substr(0, uiBytes + 1)) <= uiColumns)
    {
        ++uiBytes;
    }
    return uiBytes;
}

// Breaks at blanks into lines of these columns, and words that are longer than a line. What does not fit into the last
// one ends in "...".
CLines Wrap(const std::string& sText, size_t uiColumns, size_t uiMostLines)
{
    constexpr char szCut[] = "...";
    CLines asLines(1);
    for (size_t uiStart = 0; uiStart < sText.size();)
    {
        const size_t uiEnd = std::min(sText.find(' ', uiStart), sText.size());
        const std::string sWord = sText.substr(uiStart, uiEnd - uiStart);
        const bool bLast = asLines.size() == uiMostLines;
        std::string& sLine = asLines.back();
        const std::string sAhead = sLine.empty() ? "" : sLine + " ";
        const size_t uiRoom = uiColumns - std::min(uiColumns, CountColumns(sAhead));
        const bool bFits = CountColumns(sWord) <= uiRoom;
        const bool bRestFits = CountColumns(sText.substr(uiStart)) <= uiRoom;
        if (bLast ? bRestFits || CountColumns(sWord) + sizeof(szCut) <= uiRoom : bFits)
        {
            sLine = sAhead + sWord;
            uiStart = uiEnd + 1;
        }
        else if (bLast)
        {
            constexpr size_t uiWorthCutting = 20; // columns; a shorter word is left out
            const size_t uiLeft = uiRoom - std::min(uiRoom, sizeof(szCut) - 1);
            const bool bCut = CountColumns(sWord) > uiWorthCutting && uiLeft != 0;
            sLine = sAhead + (bCut ? sWord.substr(0, CountBytes(sWord, uiLeft)) : "") + szCut;
            break;
        }
        else if (CountColumns(sWord) > uiColumns)
        {
            const size_t uiTaken = CountBytes(sWord, uiRoom);
            sLine = sAhead + sWord.substr(0, uiTaken);
            uiStart += uiTaken;
            asLines.emplace_back();
        }
        else
        {
            asLines.emplace_back();
        }
    }
    return asLines;
}

// Adds "Name      text", with more lines below the text. Nothing for an empty text.
void Add(CLines& asLines, const char* pszName, const std::string& sText, size_t uiMostLines)
{
    if (sText.empty())
    {
        return;
    }
    for (const std::string& sLine : Wrap(sText, gsc_uiTextColumns, uiMostLines))
    {
        asLines.push_back(FormatText("%-*s", static_cast<int>(gsc_uiNameColumns), pszName) + sLine);
        pszName = "";
    }
}

// ---- Modes ----

// The rates of one size: the text of each, from the highest down.
struct SSize
{
    unsigned long long m_ullArea;
    bool m_bInterlaced;
    std::map<double, bool, std::greater<>> m_oRates; // whether in YCbCr 4:2:0 only
};

std::vector<std::pair<std::string, SSize>> ListSizes(const CImageModes& oModes)
{
    std::map<std::string, SSize> oSizes;
    for (const SModeRow& oRow : oModes.GetRows())
    {
        const SZorMode& oMode = oRow.m_oMode;
        const std::string sSize =
            FormatText("%ux%u%s", oMode.m_uiWidth, oMode.m_uiHeight, oMode.m_bInterlaced ? "i" : "");
        SSize& oSize = oSizes[sSize];
        oSize.m_ullArea = 1ULL * oMode.m_uiWidth * oMode.m_uiHeight;
        oSize.m_bInterlaced = oMode.m_bInterlaced;
        const bool bOnly = oMode.m_eY420 == SZorMode::eY420_Only;
        constexpr double dStep = 100; // two decimals
        const auto [itRate, bNew] = oSize.m_oRates.try_emplace(std::round(GetRate(oMode) * dStep) / dStep, bOnly);
        itRate->second = itRate->second && bOnly;
    }
    std::vector<std::pair<std::string, SSize>> aoSizes(oSizes.begin(), oSizes.end());
    std::ranges::stable_sort(aoSizes, [](const auto& oFirst, const auto& oSecond) {
        return std::pair(oFirst.second.m_ullArea, !oFirst.second.m_bInterlaced) >
               std::pair(oSecond.second.m_ullArea, !oSecond.second.m_bInterlaced);
    });
    return aoSizes;
}

bool Has420Only(const CImageModes& oModes)
{
    return std::ranges::any_of(oModes.GetRows(),
                               [](const SModeRow& oRow) { return oRow.m_oMode.m_eY420 == SZorMode::eY420_Only; });
}

// The most preferred mode, and the first one by its own flag where that is another one: readers of DisplayID start with
// it.
std::string DescribePreferred(const CImageModes& oModes, bool bCut)
{
    const SModeRow* poPreferred = oModes.FindPreferred();
    if (poPreferred == nullptr)
    {
        return bCut ? "the preferred one is not known" : "no preferred mode";
    }
    const auto fnName = [](const SModeRow& oRow) {
        return GetSizeText(oRow.m_oMode) + " at " + GetShortRate(oRow.m_oMode) + " Hz";
    };
    const std::string sFirst = fnName(*poPreferred);
    const auto itFlagged = std::ranges::find_if(oModes.GetRows(), [](const SModeRow& oRow) {
        return oRow.m_poEntry->m_eReason == SZorImageMode::eReason_Flag && !oRow.m_bPartner;
    });
    const std::string sFlagged = itFlagged != oModes.GetRows().end() ? fnName(*itFlagged) : sFirst;
    return "prefers " + sFirst + (sFlagged == sFirst ? "" : ", by DisplayID " + sFlagged);
}

// A line a size, the largest ones first, as many as there is room for. Of a base block that is cut, others may be gone.
void AddModes(CLines& asLines, const CImageModes& oModes, bool bCut, size_t uiRoom)
{
    constexpr size_t uiSizeColumns = 11;
    const auto aoSizes = ListSizes(oModes);
    if (aoSizes.empty())
    {
        Add(asLines, "Modes", bCut ? "" : "none", 1);
        return;
    }
    Add(asLines, "Modes", DescribePreferred(oModes, bCut), 1);
    const size_t uiLegend = Has420Only(oModes) ? 1 : 0;
    const bool bAll = aoSizes.size() + 1 + uiLegend <= uiRoom;
    const size_t uiShown = !bAll ? uiRoom - 2 - uiLegend : aoSizes.size();
    for (size_t i = 0; i < uiShown; ++i)
    {
        std::string sRates;
        for (const auto& [dRate, bOnly] : aoSizes[i].second.m_oRates)
        {
            sRates += (sRates.empty() ? "" : " ") + (dRate == 0 ? "-" : GetRateText(dRate)) + (bOnly ? "*" : "");
        }
        const std::string sSize = FormatText("%-*s ", static_cast<int>(uiSizeColumns) - 1, aoSizes[i].first.c_str());
        asLines.push_back(std::string(gsc_uiNameColumns, ' ') + sSize +
                          Wrap(sRates, gsc_uiTextColumns - sSize.size(), 1)[0]);
    }
    if (!bAll)
    {
        Add(asLines, "", FormatText("and %zu smaller sizes: see zoredid modes", aoSizes.size() - uiShown), 1);
    }
    Add(asLines, "", uiLegend != 0 ? "* in YCbCr 4:2:0 only" : "", 1);
}

// ---- Findings ----

std::string GetCountText(const std::vector<SFinding>& aoFindings, CZorEdidMap::ESeverity eSeverity)
{
    const auto iCount = std::ranges::count(aoFindings, eSeverity, &SFinding::m_eSeverity);
    return iCount == 0 ? "" : FormatText("%td %s%s", iCount, GetNoteName(eSeverity), iCount == 1 ? "" : "s");
}

// "warning: Max_TMDS_Clock 600 MHz is above 340 MHz (block 1)", or "error: the checksum is wrong: found 0x00, should be
// 0x12 (block 0, Checksum)": the innermost field is the subject of what has none.
std::string DescribeFinding(const SFinding& oFinding)
{
    const size_t uiName = oFinding.m_sField.rfind("> ");
    const std::string sField = oFinding.m_sField.substr(uiName == std::string::npos ? 0 : uiName + 2);
    const std::string sSeverity = std::string(GetNoteName(oFinding.m_eSeverity)) + ": ";
    const std::string& sFound = oFinding.m_sFound;
    if (FindZorEdidRule(oFinding.m_eRule)->m_bOfField)
    {
        return sSeverity + sField + (sFound.empty() ? "" : " " + sFound) + " " + oFinding.m_sWhat +
               FormatText(" (block %u)", oFinding.m_uiBlock);
    }
    const std::string& sExpected = oFinding.m_sExpected;
    return sSeverity + oFinding.m_sWhat + (sFound.empty() ? "" : ": found " + sFound) +
           (sExpected.empty() ? "" : ", expected " + sExpected) + FormatText(" (block %u, ", oFinding.m_uiBlock) +
           sField + ")";
}

// A second line of the same finding is indented, as the next finding is not.
void AddFinding(CLines& asLines, const std::string& sText)
{
    constexpr size_t uiIndent = 2;
    constexpr size_t uiMostLines = 2;
    const bool bLong = CountColumns(sText) > gsc_uiTextColumns;
    size_t uiBlanks = gsc_uiNameColumns;
    for (const std::string& sLine : Wrap(sText, gsc_uiTextColumns - (bLong ? uiIndent : 0), uiMostLines))
    {
        asLines.push_back(std::string(uiBlanks, ' ') + sLine);
        uiBlanks = gsc_uiNameColumns + uiIndent;
    }
}

// The numbers, then what is worst.
void AddFindings(CLines& asLines, const std::vector<SFinding>& aoFindings)
{
    constexpr size_t uiMost = 2; // of those that are named
    std::string sCounts;
    for (const CZorEdidMap::ESeverity eSeverity :
         { CZorEdidMap::eSeverity_Error, CZorEdidMap::eSeverity_Warning, CZorEdidMap::eSeverity_Note })
    {
        const std::string sCount = GetCountText(aoFindings, eSeverity);
        sCounts += (sCounts.empty() || sCount.empty() ? "" : ", ") + sCount;
    }
    Add(asLines, "Findings", sCounts.empty() ? "none" : sCounts + ": see zoredid check", 1);
    std::vector<std::pair<std::string, size_t>> asTexts; // each with how often it is found
    for (const SFinding& oFinding : aoFindings)
    {
        if (!oFinding.HasWeight())
        {
            continue;
        }
        const std::string sText = DescribeFinding(oFinding);
        const auto itSame = std::ranges::find(asTexts, sText, &std::pair<std::string, size_t>::first);
        if (itSame != asTexts.end())
        {
            ++itSame->second;
            continue;
        }
        asTexts.emplace_back(sText, 1);
    }
    for (size_t i = 0; i < std::min(uiMost, asTexts.size()); ++i)
    {
        const auto& [sText, uiCount] = asTexts[i];
        AddFinding(asLines, (uiCount == 1 ? "" : FormatText("%zu x ", uiCount)) + sText);
    }
}

// ---- The whole ----

// What there is to say of any image: its blocks, what is wrong, and whether the library takes it.
void AddState(CLines& asLines, const CZorEdidMap& oMap, const CLoadedImage& oImage)
{
    Add(asLines, "Image", DescribeBlocks(oMap), 1);
    AddFindings(asLines, CheckImage(oMap, GetThisYear()));
    Add(asLines, "Library", oImage.IsLoaded() ? "" : "refuses the image: " + oImage.GetProblem(), 1);
}

std::string Join(const CLines& asLines)
{
    std::string sText;
    for (const std::string& sLine : asLines)
    {
        sText += sLine + "\n";
    }
    return sText;
}

std::string Summarise(const SInput& oInput, CLoadedImage& oImage)
{
    const unsigned int uiSize = static_cast<unsigned int>(oInput.m_aui8Bytes.size());
    CZorEdidMap oMap;
    oMap.Read(uiSize, oInput.m_aui8Bytes.data());
    const std::vector<unsigned char> aui8Bytes = FillCutBase(oInput.m_aui8Bytes);
    CZorEdidFacts oFacts;
    if (oFacts.Read(static_cast<unsigned int>(aui8Bytes.size()), aui8Bytes.data()) == 0)
    {
        CLines asLines;
        AddState(asLines, oMap, oImage);
        return Join(asLines);
    }
    const bool bCut = aui8Bytes.size() != uiSize;     // what follows the base block is not known
    const CImageModes oModes(aui8Bytes, nullptr, {}); // numbers are not shown
    const CZorEdidFacts::SIdentity& oIdentity = oFacts.GetIdentity();
    const std::string sSerial = DescribeSerial(oIdentity);
    const std::string sDate = (oIdentity.m_oYear.IsSaid() ? "made in " : "") + DescribeDate(oIdentity);

    CLines asHead;
    Add(asHead, "Monitor", JoinTexts({ DescribeMaker(oIdentity) + " " + DescribeName(oIdentity) }), 1);
    Add(asHead, "",
        JoinTexts({ DescribeSize(oFacts.GetSize()), DescribeShape(oFacts.GetSize()), sDate,
                    sSerial.empty() ? "" : "serial " + sSerial }),
        2);
    Add(asHead, "Link", JoinTexts({ DescribeLink(oFacts), DescribeTransport(oFacts.GetLink()) }), 2);
    CLines asTail;
    Add(asTail, "HDR", DescribeHdr(oFacts), 2);
    Add(asTail, "VRR", DescribeVariableRefresh(oFacts), 2);
    Add(asTail, "Ranges", DescribeRanges(oFacts.GetLink()), 1);
    Add(asTail, "Colour", DescribeColour(oFacts.GetColour()), 2);
    Add(asTail, "Audio", DescribeAudio(oFacts), 2);
    AddState(asTail, oMap, oImage);

    CLines asLines = asHead;
    AddModes(asLines, oModes, bCut, gsc_uiMostLines - asHead.size() - asTail.size());
    asLines.insert(asLines.end(), asTail.begin(), asTail.end());
    return Join(asLines);
}

SOutcome ShowImage(const SShowOptions& oOptions, const SInput& oInput)
{
    CLoadedImage oImage;
    SOutcome oOutcome;
    if (!oImage.Load(oInput))
    {
        oOutcome = RefuseInput(oInput, oImage.GetProblem());
    }
    if (!oInput.m_aui8Bytes.empty())
    {
        const std::string sHead = oOptions.m_oFiles.NeedsName(oInput) ? ShowName(oInput.m_sName) + ":\n" : "";
        oOutcome.m_sOut = sHead + Summarise(oInput, oImage);
    }
    return oOutcome;
}

void Show(SShowOptions& oOptions, STool& oTool)
{
    if (oOptions.m_oJson.IsAsked())
    {
        ReportAsJson(oOptions.m_oJson, oOptions.m_oFiles, oTool);
        return;
    }
    oOptions.m_oFiles.m_sBetween = "\n";
    ForEachInput(oOptions.m_oFiles, oTool, [&oOptions](const SInput& oInput) { return ShowImage(oOptions, oInput); });
}
} // namespace

void DeclareShowOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<SShowOptions>();
    DeclareFiles(oCommand, poOptions->m_oFiles);
    DeclareJson(oCommand, poOptions->m_oJson);
    oCommand.Footer("At most 25 lines of 80 columns an image, damaged or not, after its name where there are several; "
                    "modes by size.\n\n"
                    "Examples:\n"
                    "  zoredid show monitor.bin\n"
                    "  zoredid show --jsonl *.bin | jq -r 'select(.facts.link.vrr) | .file'");
    oCommand.Run([poOptions, &oTool] { Show(*poOptions, oTool); });
}
