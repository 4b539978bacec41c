// The rows of the list, and their numbers by the places in the bytes.

#include "ImageModes.h"

#include <algorithm>
#include <utility>

#include "ExactTimings.h"
#include "Hdmi1xVsdb.h"
#include "MapText.h"
#include "Standards/CtaBlocks.h"
#include "Standards/ExtensionBlocks.h"
#include "Standards/HdmiBlocks.h"
#include "Standards/VideoCodes.h"
#include "TextFormat.h"

namespace
{
using ZorStandards::gsc_uiBlockSize;

// Finds rows by the bytes that announce them, and gives them their numbers.
class CNumbering
{
public:
    CNumbering(std::vector<SModeRow>& aoRows, const std::vector<unsigned char>& aui8Bytes, const CModes& aoListed)
        : m_aoRows(aoRows), m_aui8Bytes(aui8Bytes), m_aoListed(aoListed)
    {
        for (size_t i = 0; i < aoRows.size(); ++i)
        {
            m_auiOffsets.emplace_back(aoRows[i].m_poEntry->m_uiOffset, i);
        }
        std::sort(m_auiOffsets.begin(), m_auiOffsets.end());
        m_abSeen.resize(aoListed.size());
    }

    void Number(CZorEdidMap::EList eList, const CTimingOrigins& aoOrigins)
    {
        for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
        {
            Number(eList, aoOrigins[i]);
        }
        AddStrays(eList, aoOrigins);
    }

    const std::vector<SStrayTiming>& GetStrays() const { return m_aoStrays; }

private:
    // m_aoListed is in the order of the lists, and each of them in that of its numbers.
    size_t FindListed(CZorEdidMap::EList eList, unsigned int uiNumber) const
    {
        const auto fnKey = [](const SImageMode& oMode) { return std::pair(oMode.m_eList, oMode.m_uiIndex); };
        const auto itListed = std::ranges::lower_bound(m_aoListed, std::pair(eList, uiNumber), {}, fnKey);
        const bool bFound = itListed != m_aoListed.end() && fnKey(*itListed) == std::pair(eList, uiNumber);
        return bFound ? static_cast<size_t>(itListed - m_aoListed.begin()) : m_aoListed.size();
    }

    // The list has clocks of whole kHz, the 1000/1001 variant of a code the exact one.
    static SZorMode MakeStrayMode(const STimingOrigin& oOrigin, const CVidParamTimingGeneric& oTiming)
    {
        const CExactTimings aoOfCode = oOrigin.m_bVariant != 0 ? FindTimingsOfVic(oOrigin.m_uiCode) : CExactTimings{};
        return aoOfCode.size() > 1 ? aoOfCode.back().m_oMode : MakeListedMode(oTiming);
    }

    // Those of aoOrigins that Number has found no row for.
    void AddStrays(CZorEdidMap::EList eList, const CTimingOrigins& aoOrigins)
    {
        for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
        {
            const STimingOrigin& oOrigin = aoOrigins[i];
            const size_t uiListed = FindListed(eList, oOrigin.m_uiIndex);
            if (uiListed == m_aoListed.size() || m_abSeen[uiListed])
            {
                continue;
            }
            m_abSeen[uiListed] = true;
            const unsigned int uiOffset = oOrigin.m_uiBlock * gsc_uiBlockSize + oOrigin.m_uiCodeByte;
            m_aoStrays.push_back({ MakeStrayMode(oOrigin, m_aoListed[uiListed].m_oTiming), eList, oOrigin.m_uiIndex,
                                   uiOffset, DescribeListed(m_aui8Bytes[uiOffset], oOrigin.m_bVariant != 0) });
        }
    }

    void Number(CZorEdidMap::EList eList, const STimingOrigin& oOrigin)
    {
        const size_t uiListed = FindListed(eList, oOrigin.m_uiIndex);
        if (uiListed == m_aoListed.size())
        {
            return; // a place without a timing
        }
        // A capability map names what another byte announces.
        const unsigned int uiOffset =
            oOrigin.m_uiBlock * gsc_uiBlockSize +
            (oOrigin.m_e420 == STimingOrigin::e420_Also ? oOrigin.m_uiCodeByte : oOrigin.m_uiOffset);
        for (auto it = std::lower_bound(m_auiOffsets.begin(), m_auiOffsets.end(), std::pair(uiOffset, size_t{ 0 }));
             it != m_auiOffsets.end() && it->first == uiOffset; ++it)
        {
            SModeRow& oRow = m_aoRows[it->second];
            const bool bBit = oOrigin.m_e420 == STimingOrigin::e420_Also ||
                              oOrigin.m_uiBit == STimingOrigin::msc_uiNoBit ||
                              oOrigin.m_uiBit == oRow.m_poEntry->m_uiBit;
            const bool bRate = oOrigin.m_uiCode == 0 || oRow.m_bPartner == (oOrigin.m_bVariant != 0);
            if (bBit && (bRate || IsOther(oRow)))
            {
                Number(oRow, oOrigin, m_aoListed[uiListed]);
                m_abSeen[uiListed] = true;
            }
        }
    }

    bool IsOther(const SModeRow& oRow) const
    {
        return oRow.m_oMode.m_eKind == SZorMode::eModeKind_Vic &&
               ZorStandards::IsListedAsOther(m_aui8Bytes[oRow.m_poEntry->m_uiOffset]);
    }

    void Number(SModeRow& oRow, const STimingOrigin& oOrigin, const SImageMode& oListed) const
    {
        if (IsOther(oRow))
        {
            oRow.m_auiOtherNumbers.push_back(oOrigin.m_uiIndex);
            oRow.m_sOtherwise = DescribeOtherCode(m_aui8Bytes[oRow.m_poEntry->m_uiOffset]) + " (standard";
            for (const unsigned int uiNumber : oRow.m_auiOtherNumbers)
            {
                oRow.m_sOtherwise += FormatText("%s %u", uiNumber == oRow.m_auiOtherNumbers[0] ? "" : ",", uiNumber);
            }
            oRow.m_sOtherwise += ")";
            return;
        }
        if (oOrigin.m_e420 == STimingOrigin::e420_Also)
        {
            oRow.m_ui420Number = oOrigin.m_uiIndex;
            return;
        }
        if (!oRow.IsListed())
        {
            oRow.m_eList = oListed.m_eList;
            oRow.m_uiNumber = oOrigin.m_uiIndex;
            oRow.m_sOtherwise = DescribeOther(oRow.m_oMode, oListed.m_oTiming);
        }
    }

    // The library computes established timings of other makers, rounds clocks to whole Hz, takes standard timings by
    // its own rules, and has a few codes as earlier editions of the standard had them.
    static std::string DescribeOther(const SZorMode& oMode, const CVidParamTimingGeneric& oTiming)
    {
        constexpr unsigned long long ullRounding = 2000; // parts of the clock
        const unsigned long long ullListed = oTiming.GetPixelClockInHz();
        const unsigned long long ullFar = oMode.m_ullClock / ullRounding;
        const SZorMode::SAxis& oAcross = oMode.m_oHorizontal;
        const SZorMode::SAxis& oDown = oMode.m_oVertical;
        if (!oMode.m_bTiming)
        {
            return "";
        }
        if (oTiming.GetHorizontalActive() != oAcross.m_uiActive || oTiming.GetVerticalActive() != oDown.m_uiActive)
        {
            return FormatText("the list has %u x %u", oTiming.GetHorizontalActive(), oTiming.GetVerticalActive());
        }
        if (ullListed > oMode.m_ullClock + ullFar || oMode.m_ullClock > ullListed + ullFar)
        {
            return "the list has " + GetMegaHertz(ullListed, 3) + " MHz";
        }
        const bool bSame = oTiming.GetHorizontalFrontPorch() == oAcross.m_uiFront &&
                           oTiming.GetHorizontalSync() == oAcross.m_uiSync &&
                           oTiming.ComputeHorizontalTotalPixel() == oAcross.m_uiTotal &&
                           oTiming.GetVerticalFrontPorch() == oDown.m_uiFront &&
                           oTiming.GetVerticalSync() == oDown.m_uiSync && GetVerticalTotal(oTiming) == oDown.m_uiTotal;
        return bSame ? "" : "the list has other porches or syncs";
    }

    std::vector<SModeRow>& m_aoRows;
    const std::vector<unsigned char>& m_aui8Bytes;
    const CModes& m_aoListed;
    std::vector<std::pair<unsigned int, size_t>> m_auiOffsets; // and rows, in order
    std::vector<bool> m_abSeen;                                // of m_aoListed: a row has its number, or it is a stray
    std::vector<SStrayTiming> m_aoStrays;
};

struct SKind
{
    SZorMode::EModeKind m_eKind;
    const char* m_pszSource; // of its group
};

constexpr SKind gsc_aoKinds[] = {
    { SZorMode::eModeKind_Type1, "DisplayID Type I timings" },
    { SZorMode::eModeKind_Type2, "DisplayID Type II timings" },
    { SZorMode::eModeKind_Type3, "DisplayID Type III timings" },
    { SZorMode::eModeKind_Type5, "DisplayID Type V timings" },
    { SZorMode::eModeKind_Type6, "DisplayID Type VI timings" },
    { SZorMode::eModeKind_Type7, "DisplayID Type VII timings" },
    { SZorMode::eModeKind_Type9, "DisplayID Type IX timings" },
    { SZorMode::eModeKind_Type10, "DisplayID Type X timings" },
    { SZorMode::eModeKind_Established, "Established timings" },
    { SZorMode::eModeKind_EstablishedIII, "Established timings III" },
    { SZorMode::eModeKind_Standard, "Standard timings" },
    { SZorMode::eModeKind_CvtCode, "CVT codes" },
    { SZorMode::eModeKind_Detailed, "Detailed timings" },
    { SZorMode::eModeKind_Dmt, "DMT codes" },
    { SZorMode::eModeKind_Vic, "Video codes" },
    { SZorMode::eModeKind_HdmiVic, "HDMI codes" },
    { SZorMode::eModeKind_VideoFormat, "Video format descriptors" },
};

// Whether the data block of an HDMI code says that it has more of them than fit, of which the library lists none.
bool IsCountPastEnd(const std::vector<unsigned char>& aui8Bytes, const SModeRow& oRow)
{
    namespace Cta = ZorStandards::Cta;
    const unsigned char* pui8Block = aui8Bytes.data() + size_t{ oRow.GetBlock() } * gsc_uiBlockSize;
    const unsigned int uiCode = oRow.m_poEntry->m_uiOffset % gsc_uiBlockSize;
    Cta::CDataBlockWalk oWalk(pui8Block, Cta::GetDataBlocksEnd(pui8Block[Cta::gsc_uiRevisionOffset],
                                                               pui8Block[Cta::gsc_uiDetailedStartOffset]));
    while (pui8Block[0] == Cta::gsc_uiTag && oWalk.Next())
    {
        const auto [uiOffset, uiLength] = oWalk.GetPayload();
        if (uiCode >= uiOffset && uiCode < uiOffset + uiLength)
        {
            const CHdmi1xVsdb::SVics oVics = CHdmi1xVsdb::FindVics(uiLength, pui8Block + uiOffset);
            return oVics.m_uiVicsOffset != 0 && oVics.m_uiCount == 0 &&
                   ZorStandards::Hdmi::gsc_oVicCount.IsSet(pui8Block + uiOffset + oVics.m_uiVideoOffset);
        }
    }
    return false;
}
} // namespace

unsigned int SModeRow::GetBlock() const { return m_poEntry->m_uiOffset / gsc_uiBlockSize; }

CImageModes::CImageModes(const std::vector<unsigned char>& aui8Bytes, const CEdid* poEdid, const CModes& aoListed)
{
    m_oModes.Read(static_cast<unsigned int>(aui8Bytes.size()), aui8Bytes.data());
    m_aoRows.reserve(2 * size_t{ m_oModes.GetCount() });
    for (unsigned int i = 0; i < m_oModes.GetCount(); ++i)
    {
        SZorMode oPartner = {};
        m_aoRows.push_back({ &m_oModes.Get(i), m_oModes.Get(i).m_oMode, false });
        if (CZorEdidModes::GetPartner(m_oModes.Get(i).m_oMode, oPartner))
        {
            m_aoRows.push_back({ &m_oModes.Get(i), oPartner, true });
        }
    }
    if (poEdid == nullptr)
    {
        return;
    }
    for (SModeRow& oRow : m_aoRows)
    {
        if (oRow.m_poEntry->m_eField == eZorEdidField_CtaHdmiVic && IsCountPastEnd(aui8Bytes, oRow))
        {
            oRow.m_sOtherwise = "the list leaves it out, as HDMI_VIC_LEN runs past the data block";
        }
    }
    CNumbering oNumbering(m_aoRows, aui8Bytes, aoListed);
    CTimingOrigins aoOrigins;
    poEdid->ListEstablishedOrigins(aoOrigins);
    oNumbering.Number(CZorEdidMap::eList_Established, aoOrigins);
    poEdid->ListStandardOrigins(aoOrigins);
    oNumbering.Number(CZorEdidMap::eList_Standard, aoOrigins);
    poEdid->ListDetailedOrigins(aoOrigins);
    oNumbering.Number(CZorEdidMap::eList_Detailed, aoOrigins);
    m_aoStrays = oNumbering.GetStrays();
}

std::string SStrayTiming::GetNumberText() const { return FormatText("%s %u", GetListName(m_eList), m_uiNumber); }

const SModeRow* CImageModes::FindPreferred() const
{
    const auto itPreferred = std::ranges::find_if(m_aoRows, &SModeRow::IsPreferred);
    return itPreferred != m_aoRows.end() ? &*itPreferred : nullptr;
}

double GetRate(const SZorMode& oMode)
{
    const SZorMode::SRate& oRate = oMode.m_oRate.m_ullDivisor != 0 ? oMode.m_oRate : oMode.m_oNominalRate;
    return oRate.m_ullDivisor == 0 ? 0 : GetHz(oRate);
}

std::string GetSizeText(const SZorMode& oMode)
{
    return FormatText("%u x %u%s", oMode.m_uiWidth, oMode.m_uiHeight, oMode.m_bInterlaced ? "i" : "");
}

std::string GetShortRate(const SZorMode& oMode) { return GetRateText(GetRate(oMode)); }

std::string GetRateText(double dHz)
{
    std::string sText = FormatText("%.2f", dHz);
    sText.erase(sText.find_last_not_of('0') + 1);
    return sText.back() == '.' ? sText.substr(0, sText.size() - 1) : sText;
}

std::string GetModeName(const SZorMode& oMode)
{
    return FormatText("%ux%u%s@", oMode.m_uiWidth, oMode.m_uiHeight, oMode.m_bInterlaced ? "i" : "") +
           GetShortRate(oMode);
}

std::string GetSourceText(const SModeRow& oRow)
{
    const auto* poKind = std::ranges::find(gsc_aoKinds, oRow.m_oMode.m_eKind, &SKind::m_eKind);
    std::string sKind = poKind != std::end(gsc_aoKinds) ? poKind->m_pszSource : "Modes";
    // Those of a data block for timing codes are apart from those of video data blocks.
    const EZorEdidField eField = oRow.m_poEntry->m_eField;
    sKind = eField == eZorEdidField_DisplayidTimingVic       ? "DisplayID video codes"
            : eField == eZorEdidField_DisplayidTimingHdmiVic ? "DisplayID HDMI codes"
                                                             : sKind;
    return oRow.GetBlock() == 0 ? sKind : sKind + FormatText(", block %u", oRow.GetBlock());
}

std::string GetCodeMark(const SZorMode& oMode)
{
    return oMode.m_eKind == SZorMode::eModeKind_Vic       ? FormatText("VIC %u", oMode.m_uiCode)
           : oMode.m_eKind == SZorMode::eModeKind_HdmiVic ? FormatText("HDMI VIC %u", oMode.m_uiCode)
           : oMode.m_eKind == SZorMode::eModeKind_Dmt     ? FormatText("DMT %02Xh", oMode.m_uiCode)
                                                          : "";
}

std::vector<std::string> ListMarks(const SModeRow& oRow)
{
    const SZorMode& oMode = oRow.m_oMode;
    const SZorImageMode& oEntry = *oRow.m_poEntry;
    std::vector<std::string> asMarks;
    const auto fnAdd = [&asMarks](bool bHolds, const std::string& sMark) {
        if (bHolds)
        {
            asMarks.push_back(sMark);
        }
    };
    const std::string sCode = GetCodeMark(oMode);
    fnAdd(!sCode.empty(), sCode);
    const bool bCode = oMode.m_eKind == SZorMode::eModeKind_Vic || oMode.m_eKind == SZorMode::eModeKind_HdmiVic;
    const SVics oVics = bCode || !oMode.m_bTiming ? SVics() : FindExactVics(oMode);
    fnAdd(!oVics.m_auiCodes.empty(), "as " + GetVicsText(oVics));
    fnAdd(oRow.IsPreferred(), "preferred");
    fnAdd(oEntry.m_uiPreference > 1 && !oRow.m_bPartner, FormatText("preference %u", oEntry.m_uiPreference));
    fnAdd(oMode.m_bNative, "native");
    fnAdd(oMode.m_eY420 == SZorMode::eY420_Only, "4:2:0 only");
    fnAdd(oMode.m_eY420 == SZorMode::eY420_Also, "4:2:0 also");
    fnAdd(oRow.Is3d(), "3D");
    fnAdd(oMode.m_uiRepetition > 1, FormatText("each pixel sent %u times", oMode.m_uiRepetition));
    fnAdd(oEntry.m_eNumbers == SZorImageMode::eNumbers_None, "no timing given");
    fnAdd(oEntry.m_eNumbers == SZorImageMode::eNumbers_Assumed, "timing assumed");
    fnAdd(oRow.m_ui420Number != SModeRow::msc_uiNone, FormatText("in 4:2:0 standard %u", oRow.m_ui420Number));
    fnAdd(!oRow.m_sOtherwise.empty(), oRow.m_sOtherwise);
    return asMarks;
}

std::string GetNumberText(const SModeRow& oRow)
{
    return oRow.IsListed() ? FormatText("%s %u", GetListName(oRow.m_eList), oRow.m_uiNumber) : "-";
}

const char* GetSourceName(const SZorImageMode& oEntry)
{
    switch (oEntry.m_oMode.m_eKind)
    {
    case SZorMode::eModeKind_Vic:
    case SZorMode::eModeKind_HdmiVic:
        return "cea";
    case SZorMode::eModeKind_Established:
    case SZorMode::eModeKind_EstablishedIII:
    case SZorMode::eModeKind_Dmt:
        return "dmt";
    case SZorMode::eModeKind_Standard:
        return oEntry.m_eNumbers == SZorImageMode::eNumbers_Table ? "dmt" : "gtf";
    case SZorMode::eModeKind_CvtCode:
        return "cvt";
    case SZorMode::eModeKind_VideoFormat:
        return "ovt";
    case SZorMode::eModeKind_Detailed:
        return "detailed";
    default:
        return "displayid";
    }
}
