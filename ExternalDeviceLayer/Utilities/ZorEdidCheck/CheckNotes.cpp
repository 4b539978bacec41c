// The notes of the map as findings: what was found, and what would keep the rule, in the numbers of a standard.

#include <algorithm>
#include <bit>
#include <iterator>

#include "CheckFindings.h"
#include "CheckLimits.h"
#include "EdidBase.h"
#include "Standards/Modes.h"

using namespace ZorStandards::BaseBlock;

namespace ZorCheck
{
namespace
{
constexpr unsigned int gsc_uiMostBytes = 18; // that a finding shows, as many as a descriptor has

CMString MakeHex(const unsigned char* pui8Bytes, unsigned int uiCount, const char* pszBetween = "")
{
    CMString sText;
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        sText.AppendFormat("%s%02x", i != 0 ? pszBetween : "", pui8Bytes[i]);
    }
    return sText;
}

CMString MakeNumber(long long llNumber)
{
    CMString sText;
    sText.Format("%lld", llNumber);
    return sText;
}

// ---- What most notes say: the value of the field ----

// Bits of one byte with their places, as nobody shifts in the head; of many bytes the first that is not 0.
CMString GetReserved(const CMap& oMap, unsigned int uiField)
{
    constexpr unsigned int uiByte = 0xFF;
    const CMap::SField& oField = oMap.GetField(uiField);
    const CMap::SPiece& oPiece = oMap.GetPiece(oField.m_uiFirstPiece);
    CMString sText;
    if (oField.m_uiPieces == 1 && oField.m_uiLength == 1 && oPiece.m_ui8Mask != uiByte)
    {
        const unsigned int uiMask = oPiece.m_ui8Mask;
        const auto iHigh = static_cast<int>(std::bit_width(uiMask)) - 1;
        const int iLow = std::countr_zero(uiMask);
        sText.Format(iHigh != iLow ? "0x%02x in bits %d to %d" : "0x%02x in bit %d",
                     oMap.GetData()[oPiece.m_uiOffset] & uiMask, iHigh, iLow);
        return sText;
    }
    if (oField.m_uiLength <= gsc_uiMostBytes)
    {
        return oMap.GetValue(uiField);
    }
    const unsigned char* pui8First = oMap.GetData() + oField.m_uiOffset;
    const unsigned char* pui8End = pui8First + oField.m_uiLength;
    const unsigned char* pui8Set = std::find_if(pui8First, pui8End, [](unsigned char ui8Byte) { return ui8Byte != 0; });
    if (pui8Set != pui8End)
    {
        const auto uiOffset = static_cast<unsigned int>(pui8Set - oMap.GetData());
        sText.Format("%02x at ", 0U + *pui8Set);
        sText += DescribePlace(uiOffset);
    }
    return sText;
}

// A note on a reserved value needs its number, one on another code its name as well, one on characters their codes. One
// on a structure, or on many bytes, needs none.
CMString GetFound(const CMap& oMap, unsigned int uiField, EZorEdidRule eRule)
{
    const CMap::SField& oField = oMap.GetField(uiField);
    if (oField.m_eKind == CMap::eKind_Reserved)
    {
        return GetReserved(oMap, uiField);
    }
    if (oField.m_eKind == CMap::eKind_Group || oField.m_uiLength > gsc_uiMostBytes)
    {
        return {};
    }
    if (oField.m_eKind == CMap::eKind_Text)
    {
        return MakeHex(oMap.GetData() + oField.m_uiOffset, oField.m_uiLength);
    }
    const bool bMeaning = oField.m_pszMeaning != nullptr;
    if (oField.m_eKind == CMap::eKind_Name && bMeaning && eRule != eZorEdidRule_ReservedValue)
    {
        return MakeNumber(oField.m_llNumber) + " (" + oField.m_pszMeaning + ")";
    }
    if (oField.m_eKind == CMap::eKind_Name || (oField.m_eKind == CMap::eKind_Number && bMeaning))
    {
        return MakeNumber(oField.m_llNumber);
    }
    return oMap.GetValue(uiField);
}

// What would be right; bytes and bits that say nothing have it in the words of their rules.
CMString GetExpected(const CMap& oMap, unsigned int uiNote)
{
    const CMap::SNote& oNote = oMap.GetNote(uiNote);
    const CMap::EKind eKind = oMap.GetField(oNote.m_uiField).m_eKind;
    return eKind == CMap::eKind_Reserved ? CMString() : oMap.GetExpected(uiNote);
}

// ---- What else some rules say ----

void AddBlockTag(const CFindings& oFindings, SZorFinding& oFinding)
{
    oFinding.m_sFound.Format("tag 0x%02x", oFindings.GetByte(oFinding.m_uiOffset));
}

void AddBlockNumber(const CFindings& /*oFindings*/, SZorFinding& oFinding)
{
    oFinding.m_sFound.Format("block %u", oFinding.m_uiOffset / gsc_uiBlockSize);
}

void AddRightTag(const CFindings& oFindings, SZorFinding& oFinding)
{
    const unsigned int uiBlock = oFindings.GetMap().GetField(oFinding.m_uiField).m_uiIndex; // of a tag in a block map
    const unsigned int uiOffset = uiBlock * gsc_uiBlockSize;
    if (uiOffset >= oFindings.GetMap().GetSize())
    {
        return;
    }
    const unsigned int uiTag = oFindings.GetByte(uiOffset);
    if (CMap::GetBlockKind(uiTag) != nullptr)
    {
        oFinding.m_sExpected.Format("%u for block %u", uiTag, uiBlock);
        return;
    }
    // The block is wrong rather than the map.
    oFinding.m_sFound.AppendFormat(", and tag 0x%02x at ", uiTag);
    oFinding.m_sFound += DescribePlace(uiOffset);
}

void AddHeader(const CFindings& /*oFindings*/, SZorFinding& oFinding)
{
    oFinding.m_sExpected = MakeHex(EDID_V1_HEADER, sizeof(EDID_V1_HEADER), " ");
}

void AddSrgbColors(const CFindings& oFindings, SZorFinding& oFinding)
{
    oFinding.m_sFound = MakeHex(oFindings.GetAt(gsc_uiChromaticitiesOffset), sizeof(gsc_aui8SrgbColors), " ");
    oFinding.m_sExpected = MakeHex(gsc_aui8SrgbColors, sizeof(gsc_aui8SrgbColors), " ");
}

void AddSrgbGamma(const CFindings& oFindings, SZorFinding& oFinding)
{
    oFinding.m_sFound = oFindings.GetMap().GetValue(oFindings.GetMap().FindLeaf(gsc_uiGammaOffset, 0));
    oFinding.m_sExpected = "2.20";
}

void AddUnusedStandard(const CFindings& oFindings, SZorFinding& oFinding)
{
    oFinding.m_sFound = MakeHex(oFindings.GetAt(oFinding.m_uiOffset), gsc_uiStandardTimingSize, " ");
    oFinding.m_sExpected = "01 01 in an unused place";
}

// The size in a detailed timing, beside that of the screen.
void AddImageSize(const CFindings& oFindings, SZorFinding& oFinding)
{
    constexpr unsigned int uiMillimetres = 10;
    const CMap& oMap = oFindings.GetMap();
    const CMap::SField& oTiming = oMap.GetField(oMap.GetField(oFinding.m_uiField).m_uiGroup);
    const unsigned char* pui8Timing = oFindings.GetAt(oTiming.m_uiOffset);
    oFinding.m_sFound.Format("%u x %u mm", Descriptors::gsc_oImageWidth.Read(pui8Timing),
                             Descriptors::gsc_oImageHeight.Read(pui8Timing));
    const unsigned int uiWidth = oFindings.GetByte(gsc_uiImageWidthOffset) * uiMillimetres;
    const unsigned int uiHeight = oFindings.GetByte(gsc_uiImageHeightOffset) * uiMillimetres;
    if (uiWidth != 0 && uiHeight != 0) // with one of them 0 the other is an aspect ratio
    {
        oFinding.m_sExpected.Format("about %u x %u mm", uiWidth, uiHeight);
    }
}

// A timing that has lost its clock has other numbers where a display descriptor has zeros.
void AddNoClock(const CFindings& oFindings, SZorFinding& oFinding)
{
    const unsigned char* pui8Descriptor = oFindings.GetAt(oFinding.m_uiOffset);
    oFinding.m_sFound = "pixel clock 0 MHz";
    if (Descriptors::IsDescriptor(pui8Descriptor))
    {
        oFinding.m_sFound.AppendFormat(", tag 0x%02x", pui8Descriptor[Descriptors::gsc_uiTagOffset]);
    }
}

// Either byte 2 of the block is wrong, or the timing is past a gap in the list.
void AddLostTiming(const CFindings& oFindings, SZorFinding& oFinding)
{
    const CMap& oMap = oFindings.GetMap();
    const unsigned int uiBlock = oFinding.m_uiOffset / gsc_uiBlockSize * gsc_uiBlockSize;
    const CMap::SNumbers& oPlaces = oMap.GetNote(oMap.GetField(oFinding.m_uiField).m_uiFirstNote).m_oNumbers;
    const auto uiLost = static_cast<unsigned int>(oPlaces.m_llFound);
    SZorMode oMode = {};
    ReadDetailedMode({ oFindings.GetAt(uiBlock + uiLost), gsc_uiDescriptorSize }, oMode);
    const unsigned int uiStart = oFindings.GetByte(uiBlock + Cta::gsc_uiDetailedStartOffset);
    const bool bGap = uiStart != 0 && uiStart != static_cast<unsigned int>(oPlaces.m_llLeast);
    oFinding.m_sFound = CMap::GetModeText(oMode) + " at " + DescribePlace(uiBlock + uiLost);
    oFinding.m_sExpected.Format(bGap ? "the next timing at offset 0x%02x" : "0x%02x in byte 2",
                                bGap ? static_cast<unsigned int>(oPlaces.m_llLeast) : uiLost);
}

void AddNoFormula(const CFindings& /*oFindings*/, SZorFinding& oFinding)
{
    oFinding.m_sExpected = "1 (range limits only)";
}

void AddLimits(const CFindings& oFindings, SZorFinding& oFinding)
{
    SZorMode oMode = {};
    if (oFindings.GetMap().GetMode(oFinding.m_uiField, oMode))
    {
        DescribeBreach(oMode, FindRangeLimits(oFindings).m_oLimits, oFinding);
        oFinding.m_sFound += " of " + CMap::GetModeText(oMode);
    }
}

// Where the first one of its kind is.
void AddFirst(const CFindings& oFindings, SZorFinding& oFinding)
{
    const CMap& oMap = oFindings.GetMap();
    const unsigned int uiFirst = oMap.FindField(oMap.GetField(oFinding.m_uiField).m_eId);
    oFinding.m_sFound = "the first one at " + DescribePlace(oMap.GetField(uiFirst).m_uiOffset);
}

// Places count from 1 here, as the codes do that they are compared with.
void AddVideoPlace(const CFindings& oFindings, SZorFinding& oFinding)
{
    const CMap::SField& oField = oFindings.GetMap().GetField(oFinding.m_uiField);
    const bool bOrder = oField.m_eId == eZorEdidField_CtaHdmi2dVicOrder;
    oFinding.m_sFound.Format("place %lld", (bOrder ? oField.m_llNumber : oField.m_uiIndex) + 1);
}

void AddSectionVersion(const CFindings& oFindings, SZorFinding& oFinding)
{
    const unsigned int uiBlock = oFinding.m_uiOffset / gsc_uiBlockSize * gsc_uiBlockSize;
    oFinding.m_sFound.Format("tag 0x%02x in a section of ", oFindings.GetByte(oFinding.m_uiOffset));
    oFinding.m_sFound += DescribeVersion(oFindings.GetByte(uiBlock + DisplayId::gsc_uiVersionOffset));
}

// The names of the flags beside it that are set.
template <EZorEdidField... IDS>
void AddSupported(const CFindings& oFindings, SZorFinding& oFinding)
{
    const CMap& oMap = oFindings.GetMap();
    const unsigned int uiGroup = oMap.GetField(oFinding.m_uiField).m_uiGroup;
    for (unsigned int i = uiGroup; i < oMap.GetField(uiGroup).m_uiEnd; ++i)
    {
        const CMap::SField& oField = oMap.GetField(i);
        if (((oField.m_eId == IDS) || ...) && oField.m_llNumber != 0)
        {
            oFinding.m_sExpected +=
                CMString(oFinding.m_sExpected.GetLength() != 0 ? ", " : "one of ") + oField.m_pszName;
        }
    }
}

// The first character that a text may not have, where the text is too long to show.
void AddUnprintable(const CFindings& oFindings, SZorFinding& oFinding)
{
    const CMap::SField& oText = oFindings.GetMap().GetField(oFinding.m_uiField);
    unsigned int uiOffset = oText.m_uiOffset;
    const unsigned int uiLast = oText.m_uiOffset + oText.m_uiLength - 1;
    while (uiOffset < uiLast && oFindings.GetByte(uiOffset) >= ' ' && oFindings.GetByte(uiOffset) <= '~')
    {
        ++uiOffset;
    }
    oFinding.m_sFound.Format("%02x at ", oFindings.GetByte(uiOffset));
    oFinding.m_sFound += DescribePlace(uiOffset);
}

constexpr struct
{
    EZorEdidRule m_eRule;
    void (*m_pfnAdd)(const CFindings&, SZorFinding&);
} gsc_aoMore[] = {
    { eZorEdidRule_BlockKind, AddBlockTag },
    { eZorEdidRule_BlockMapPlace, AddBlockNumber },
    { eZorEdidRule_BlockMapTag, AddRightTag },
    { eZorEdidRule_BaseHeader, AddHeader },
    { eZorEdidRule_SrgbColors, AddSrgbColors },
    { eZorEdidRule_SrgbGamma, AddSrgbGamma },
    { eZorEdidRule_StandardTimingZero, AddUnusedStandard },
    { eZorEdidRule_FirstDescriptor, AddNoClock },
    { eZorEdidRule_ImageSize, AddImageSize },
    { eZorEdidRule_TimingAspect, AddImageSize },
    { eZorEdidRule_RangeFormula, AddNoFormula },
    { eZorEdidRule_RangePixelClock, AddLimits },
    { eZorEdidRule_RangeLineRate, AddLimits },
    { eZorEdidRule_RangeFieldRate, AddLimits },
    { eZorEdidRule_PreferredAspect,
      AddSupported<eZorEdidField_BaseRange4_3AspectRatio, eZorEdidField_BaseRange16_9AspectRatio,
                   eZorEdidField_BaseRange16_10AspectRatio, eZorEdidField_BaseRange5_4AspectRatio,
                   eZorEdidField_BaseRange15_9AspectRatio> },
    { eZorEdidRule_CvtRate, AddSupported<eZorEdidField_BaseCvtCode50HzStandard, eZorEdidField_BaseCvtCode60HzStandard,
                                         eZorEdidField_BaseCvtCode75HzStandard, eZorEdidField_BaseCvtCode85HzStandard,
                                         eZorEdidField_BaseCvtCode60HzReduced> },
    { eZorEdidRule_Ascii, AddUnprintable },
    { eZorEdidRule_CtaAgain, AddFirst },
    { eZorEdidRule_CtaVideoIndex, AddVideoPlace },
    { eZorEdidRule_CtaLostTimings, AddLostTiming },
    { eZorEdidRule_DisplayIdOtherVersion, AddSectionVersion },
};
} // namespace

void AddNotes(CFindings& oFindings)
{
    const CMap& oMap = oFindings.GetMap();
    for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
    {
        const CMap::SNote& oNote = oMap.GetNote(i);
        SZorFinding& oFinding = oFindings.Add(oNote.m_uiField, oNote.m_eRule, oNote.m_eSeverity, oNote.m_pszText);
        oFinding.m_sFound = oMap.GetFound(i);
        if (oFinding.m_sFound.GetLength() == 0)
        {
            oFinding.m_sFound = GetFound(oMap, oNote.m_uiField, oNote.m_eRule);
        }
        oFinding.m_sExpected = GetExpected(oMap, i);
        const auto* poMore =
            std::ranges::find(gsc_aoMore, oNote.m_eRule, [](const auto& oMore) { return oMore.m_eRule; });
        if (poMore != std::end(gsc_aoMore))
        {
            poMore->m_pfnAdd(oFindings, oFinding);
        }
    }
}
} // namespace ZorCheck
