// The walk over an image, the precedence of sources, and what is only known at the end.

#include "FactsReader.h"

#include <math.h>

#include <algorithm>
#include <iterator>

#include "Standards/VendorBlocks.h"

namespace ZorFacts
{
namespace
{
// ---- Which source wins ----

// Sources from the best one on. DisplayID is newer and finer than the base block in all that describes the panel; who
// the display is, drivers and lists of displays take from the base block.
constexpr unsigned int gsc_uiMostSources = 5;
struct SPrecedence
{
    CFacts::EQuestion m_eQuestion;
    ESource m_aeSources[gsc_uiMostSources];
};

constexpr SPrecedence gsc_aoPrecedence[] = {
    { CFacts::eQuestion_Product, { eSource_Base, eSource_DisplayId2, eSource_DisplayId1 } },
    { CFacts::eQuestion_SerialNumber, { eSource_Base, eSource_DisplayId2, eSource_DisplayId1 } },
    { CFacts::eQuestion_SerialText, { eSource_Descriptor, eSource_DisplayId1 } },
    { CFacts::eQuestion_Name, { eSource_Descriptor, eSource_DisplayId2, eSource_DisplayId1 } },
    { CFacts::eQuestion_Year, { eSource_Base, eSource_DisplayId2, eSource_DisplayId1 } },
    { CFacts::eQuestion_ModelYear, { eSource_Base, eSource_DisplayId2, eSource_DisplayId1 } },
    { CFacts::eQuestion_ContainerId, { eSource_DisplayId2, eSource_Microsoft } },
    { CFacts::eQuestion_Size, { eSource_DisplayId2, eSource_DisplayId1, eSource_Cta, eSource_Timing, eSource_Base } },
    { CFacts::eQuestion_Aspect, { eSource_DisplayId1, eSource_Vesa, eSource_Base } },
    { CFacts::eQuestion_Native, { eSource_DisplayId2, eSource_DisplayId1, eSource_Vesa, eSource_Timing } },
    { CFacts::eQuestion_Kind, { eSource_DisplayId2, eSource_DisplayId1, eSource_Microsoft, eSource_Vesa } },
    { CFacts::eQuestion_Orientation, { eSource_DisplayId1, eSource_Vesa } },
    { CFacts::eQuestion_Rotation, { eSource_DisplayId1, eSource_Vesa } },
    { CFacts::eQuestion_SubPixels, { eSource_DisplayId1, eSource_Vesa } },
    { CFacts::eQuestion_Tile, { eSource_DisplayId2, eSource_DisplayId1 } },
    { CFacts::eQuestion_Link, { eSource_Base, eSource_DisplayId1, eSource_Vesa, eSource_Hdmi } },
    { CFacts::eQuestion_Lanes, { eSource_DisplayId1, eSource_Vesa } },
    { CFacts::eQuestion_VerticalRates, { eSource_DisplayId2, eSource_DisplayId1, eSource_Descriptor } },
    { CFacts::eQuestion_HorizontalRates, { eSource_DisplayId1, eSource_Descriptor } },
    { CFacts::eQuestion_MaxPixelClock, { eSource_DisplayId2, eSource_DisplayId1, eSource_Descriptor } },
    { CFacts::eQuestion_Continuous, { eSource_DisplayId1, eSource_Base } },
    { CFacts::eQuestion_Depth, { eSource_DisplayId2, eSource_DisplayId1, eSource_Base, eSource_Vesa } },
    { CFacts::eQuestion_Primaries, { eSource_DisplayId2, eSource_DisplayId1, eSource_Base } },
    { CFacts::eQuestion_White, { eSource_DisplayId2, eSource_DisplayId1, eSource_Base } },
    { CFacts::eQuestion_Gamma, { eSource_DisplayId2, eSource_DisplayId1, eSource_Base } },
    { CFacts::eQuestion_Audio, { eSource_Cta, eSource_DisplayId1, eSource_DisplayId2, eSource_Vesa } },
};
static_assert(std::size(gsc_aoPrecedence) == CFacts::eQuestion_Count);

struct SRanks
{
    unsigned char m_aui8Ranks[CFacts::eQuestion_Count][eSource_Count];
};

constexpr SRanks MakeRanks()
{
    SRanks oRanks = {};
    for (unsigned int uiQuestion = 0; uiQuestion < CFacts::eQuestion_Count; ++uiQuestion)
    {
        for (unsigned char& ui8Rank : oRanks.m_aui8Ranks[uiQuestion])
        {
            ui8Rank = gsc_uiMostSources;
        }
        for (unsigned int i = 0; i < gsc_uiMostSources; ++i)
        {
            oRanks.m_aui8Ranks[uiQuestion][gsc_aoPrecedence[uiQuestion].m_aeSources[i]] = static_cast<unsigned char>(i);
        }
    }
    return oRanks;
}
constexpr SRanks gsc_oRanks = MakeRanks();

constexpr bool IsEachRowInPlace()
{
    for (unsigned int i = 0; i < CFacts::eQuestion_Count; ++i)
    {
        if (gsc_aoPrecedence[i].m_eQuestion != i)
        {
            return false;
        }
    }
    return true;
}
static_assert(IsEachRowInPlace());

bool IsNear(unsigned int uiOne, unsigned int uiOther, unsigned int uiMost)
{
    return uiOne < uiOther ? uiOther - uiOne < uiMost : uiOne - uiOther < uiMost;
}

constexpr float gsc_fColourRounding = 0.001F; // the base block has steps of 1/1024
constexpr float gsc_fGammaRounding = 0.005F;
} // namespace

unsigned char CReader::RankOf(CFacts::EQuestion eQuestion, ESource eSource)
{
    return gsc_oRanks.m_aui8Ranks[eQuestion][eSource];
}

bool CReader::IsSame(const CFacts::SMillimetres& oOne, const CFacts::SMillimetres& oOther, unsigned int uiUnit)
{
    return IsNear(oOne.m_uiWidth, oOther.m_uiWidth, uiUnit) && IsNear(oOne.m_uiHeight, oOther.m_uiHeight, uiUnit);
}

// Televisions have an aspect ratio in place of a size.
bool CReader::IsRatio(const CFacts::SMillimetres& oSize)
{
    constexpr unsigned int auiUnits[] = { 1, 10, 100, 1000 };
    return std::ranges::any_of(auiUnits, [&](unsigned int uiUnit) {
        return (oSize.m_uiWidth == 16 * uiUnit && oSize.m_uiHeight == 9 * uiUnit) ||
               (oSize.m_uiWidth == 4 * uiUnit && oSize.m_uiHeight == 3 * uiUnit);
    });
}

bool CReader::IsSame(const CFacts::SPoint& oOne, const CFacts::SPoint& oOther)
{
    return fabsf(oOne.m_fX - oOther.m_fX) < gsc_fColourRounding && fabsf(oOne.m_fY - oOther.m_fY) < gsc_fColourRounding;
}

bool CReader::IsSame(const CFacts::SPrimaries& oOne, const CFacts::SPrimaries& oOther)
{
    return IsSame(oOne.m_oRed, oOther.m_oRed) && IsSame(oOne.m_oGreen, oOther.m_oGreen) &&
           IsSame(oOne.m_oBlue, oOther.m_oBlue);
}

bool CReader::IsSame(float fOne, float fOther) { return fabsf(fOne - fOther) < gsc_fGammaRounding; }

void CReader::NoteConflict(CFacts::EQuestion eQuestion, const SPlaceInImage& oTaken, const SPlaceInImage& oOther)
{
    if (m_oFacts.m_uiConflicts < CFacts::msc_uiMostConflicts)
    {
        m_oFacts.m_aoConflicts[m_oFacts.m_uiConflicts] = { eQuestion, oTaken.m_eId, oTaken.m_ui16Offset, oOther.m_eId,
                                                           oOther.m_ui16Offset };
    }
    ++m_oFacts.m_uiConflicts;
}

// ---- Lists and texts ----

bool CReader::MakeText(CFacts::SText& oText, const SBytes& oBytes)
{
    constexpr unsigned char ui8FirstAfterAscii = 0x7F;
    const unsigned int uiMost = std::min(oBytes.m_uiSize, CFacts::SText::msc_uiMost);
    unsigned int uiLength = 0; // up to the last character other than a space
    for (unsigned int i = 0; i < uiMost && oBytes.m_pui8Bytes[i] != 0; ++i)
    {
        const unsigned char ui8One = oBytes.m_pui8Bytes[i];
        oText.m_szText[i] = ui8One >= ' ' && ui8One < ui8FirstAfterAscii ? static_cast<char>(ui8One) : '.';
        uiLength = ui8One > ' ' ? i + 1 : uiLength;
    }
    oText.m_szText[uiLength] = '\0';
    return uiLength != 0;
}

void CReader::AddRange(const CFacts::SVariableRefresh& oRange)
{
    CFacts::SLink& oLink = m_oFacts.m_oLink;
    if (oRange.m_uiLeast == 0 && oRange.m_uiMost == 0)
    {
        return; // the fields are there, but no range
    }
    if (oLink.m_uiRanges < CFacts::msc_uiMostRanges)
    {
        oLink.m_aoRanges[oLink.m_uiRanges] = oRange;
    }
    ++oLink.m_uiRanges;
}

void CReader::AddSpace(CFacts::ESpace eSpace, CFacts::ETransfer eTransfer, EZorEdidField eId, unsigned int uiOffset)
{
    CFacts::SColour& oColour = m_oFacts.m_oColour;
    if (oColour.m_uiSpaces < CFacts::msc_uiMostSpaces)
    {
        oColour.m_aoSpaces[oColour.m_uiSpaces] = { eSpace, eTransfer, eId, static_cast<unsigned short>(uiOffset) };
    }
    ++oColour.m_uiSpaces;
}

void CReader::AddFormat(CFacts::EFormat eFormat, EZorEdidField eId, unsigned int uiOffset)
{
    CFacts::SByte& oFormats = m_oFacts.m_oColour.m_oFormats;
    Set(oFormats, 0, eId, uiOffset);
    oFormats.m_oValue = static_cast<unsigned char>(oFormats.m_oValue | (1U << eFormat));
}

// The largest of all blocks.
void CReader::RaiseMaxTmds(unsigned int uiKiloHz, EZorEdidField eId, unsigned int uiOffset)
{
    if (m_oFacts.m_oLink.m_oMaxTmds.m_oValue < uiKiloHz)
    {
        Replace(m_oFacts.m_oLink.m_oMaxTmds, uiKiloHz, eId, uiOffset);
    }
}

void CReader::SetHdmiVersion(unsigned int uiVersion, EZorEdidField eId, unsigned int uiOffset)
{
    if (m_oFacts.m_oLink.m_oHdmiVersion.m_oValue < uiVersion)
    {
        Replace(m_oFacts.m_oLink.m_oHdmiVersion, uiVersion, eId, uiOffset);
    }
}

// ---- The walk ----

void CReader::Read()
{
    WalkImage(m_uiSize, m_pui8Image, *this);
    Finish();
}

void CReader::VisitOther(unsigned int uiTag, const SPart& oBlock)
{
    constexpr const SPlace& oProjector = DisplayInformation::gsc_oStandaloneProjector;
    if (uiTag == gsc_uiDisplayInformationTag && oBlock.m_oBytes.IsSet(oProjector))
    {
        Offer(CFacts::eQuestion_Kind, eSource_Vesa, m_oFacts.m_oSize.m_oKind, CFacts::eKind_Projector,
              eZorEdidField_DiStandaloneProjector, oBlock.m_uiOffset + oProjector.GetFirst());
    }
}

// ---- The end ----

void CReader::Finish()
{
    FinishSize();
    FinishLink();
    FinishColour();
    CFacts::SAudio& oAudio = m_oFacts.m_oAudio;
    if (oAudio.m_uiFormats != 0)
    {
        Replace(oAudio.m_oAudio, true, oAudio.m_aoFormats[0].m_eId, oAudio.m_aoFormats[0].m_ui16Offset);
    }
    m_oFacts.m_oUnread = FindUnread(m_pui8Image, m_uiSize);
    if (!oAudio.m_oAudio.m_oValue && m_oFacts.m_oUnread.m_eReason != CFacts::eUnread_None)
    {
        oAudio.m_oAudio = {};
    }
}

// The base block's centimetres and the first timing's millimetres, as an HDMI block lets them count. Centimetres that
// are a ratio are a size only where the timing says the same.
void CReader::FinishSize()
{
    constexpr unsigned int uiFive = 5;
    constexpr unsigned int uiHundred = 100;
    CFacts::SSize& oSize = m_oFacts.m_oSize;
    if (!oSize.m_oCentimetres.IsSaid())
    {
        return;
    }
    const unsigned int uiTimes = oSize.m_oImageSize.m_oValue == CFacts::eImageSize_FiveCentimetres ? uiFive : 1;
    const CFacts::SMillimetres& oBase = oSize.m_oCentimetres.m_oValue;
    const CFacts::SMillimetres oScreen = { oBase.m_uiWidth * uiTimes, oBase.m_uiHeight * uiTimes };
    const bool bSame = oSize.m_oTimingSize.IsSaid() &&
                       IsSame(oSize.m_oTimingSize.m_oValue, oScreen, uiTimes * gsc_uiTenthsPerCentimetre);
    if (oSize.m_oImageSize.m_oValue == CFacts::eImageSize_AspectOnly || (IsRatio(oBase) && !bSame))
    {
        Offer(CFacts::eQuestion_Aspect, eSource_Base, oSize.m_oAspect,
              (uiHundred * oBase.m_uiWidth + oBase.m_uiHeight / 2) / oBase.m_uiHeight, oSize.m_oCentimetres.m_eId,
              oSize.m_oCentimetres.m_ui16Offset);
        return;
    }
    if (bSame)
    {
        Offer(CFacts::eQuestion_Size, eSource_Timing, oSize.m_oSize, oSize.m_oTimingSize.m_oValue,
              oSize.m_oTimingSize.m_eId, oSize.m_oTimingSize.m_ui16Offset);
        return;
    }
    Offer(CFacts::eQuestion_Size, eSource_Base, oSize.m_oSize, oScreen, oSize.m_oCentimetres.m_eId,
          oSize.m_oCentimetres.m_ui16Offset);
}

void CReader::FinishLink()
{
    CFacts::SLink& oLink = m_oFacts.m_oLink;
    // HDMI takes DVI with it.
    const bool bDvi = oLink.m_oKind.IsSaid() && oLink.m_oKind.m_oValue == CFacts::eLink_Dvi;
    if (oLink.m_oHdmi.IsSaid() && !bDvi)
    {
        Offer(CFacts::eQuestion_Link, eSource_Hdmi, oLink.m_oKind, CFacts::eLink_Hdmi, oLink.m_oHdmi.m_eId,
              oLink.m_oHdmi.m_ui16Offset);
    }
    if (oLink.m_oHdmi.IsSaid() && bDvi)
    {
        Replace(oLink.m_oKind, CFacts::eLink_Hdmi, oLink.m_oHdmi.m_eId, oLink.m_oHdmi.m_ui16Offset);
    }
    if (!oLink.m_oKind.IsSaid())
    {
        Set(oLink.m_oKind, CFacts::eLink_Digital, eZorEdidField_BaseDisplaySignalInterface,
            BaseBlock::gsc_uiVideoInputOffset);
    }
}

// The depths that HDMI blocks say, where DisplayID has no list; and YCbCr 4:2:0, by its modes.
void CReader::FinishColour()
{
    CFacts::SColour& oColour = m_oFacts.m_oColour;
    if (m_b420)
    {
        AddFormat(CFacts::eFormat_YCbCr420, m_e420, m_ui420Offset);
        Set(oColour.m_aoDepths[CFacts::eFormat_YCbCr420], CFacts::eDepth_8 | oColour.m_oHdmiDeep420.m_oValue, m_e420,
            m_ui420Offset);
    }
    const SZorFact<bool>& oHdmi = m_oFacts.m_oLink.m_oHdmi;
    if (!oHdmi.IsSaid())
    {
        return;
    }
    const CFacts::SByte& oDeep = oColour.m_oHdmiDeep;
    const EZorEdidField eId = oDeep.IsSaid() ? oDeep.m_eId : oHdmi.m_eId;
    const unsigned int uiOffset = oDeep.IsSaid() ? oDeep.m_ui16Offset : oHdmi.m_ui16Offset;
    const unsigned int uiDeep444 = oColour.m_oHdmiDeep444.m_oValue ? oDeep.m_oValue : 0U;
    const auto fnSet = [&](CFacts::EFormat eFormat, unsigned int uiDepths) {
        if ((oColour.m_oFormats.m_oValue & (1U << eFormat)) != 0)
        {
            Set(oColour.m_aoDepths[eFormat], uiDepths, eId, uiOffset);
        }
    };
    Set(oColour.m_aoDepths[CFacts::eFormat_Rgb], CFacts::eDepth_8 | oDeep.m_oValue, eId, uiOffset);
    fnSet(CFacts::eFormat_YCbCr444, CFacts::eDepth_8 | uiDeep444);
    // HDMI sends 4:2:2 in as many bits as any 8-bit format.
    fnSet(CFacts::eFormat_YCbCr422, CFacts::eDepth_8 | CFacts::eDepth_10 | CFacts::eDepth_12);
}
} // namespace ZorFacts
