#include "ZorEdidFacts.h"

#include <math.h>
#include <string.h>

#include <algorithm>
#include <iterator>

#include "FactsReader.h"
#include "Standards/HdmiBlocks.h"

bool CZorEdidFacts::SText::operator==(const SText& oOther) const { return strcmp(m_szText, oOther.m_szText) == 0; }

int CZorEdidFacts::Read(unsigned int uiSize, const unsigned char* pui8Data)
{
    constexpr unsigned int uiMost = 256 * ZorStandards::gsc_uiBlockSize; // that an EDID can have
    Clear();
    if (pui8Data == nullptr || uiSize < ZorStandards::gsc_uiBlockSize)
    {
        return 0;
    }
    ZorFacts::CReader(*this, pui8Data, std::min(uiSize, uiMost)).Read();
    return 1;
}

void CZorEdidFacts::Clear()
{
    m_oIdentity = {};
    m_oSize = {};
    m_oLink = {};
    m_oColour = {};
    m_oAudio = {};
    std::fill(std::begin(m_aoConflicts), std::end(m_aoConflicts), SConflict{});
    m_uiConflicts = 0;
    m_oUnread = {};
}

const CZorEdidFacts::SConflict* CZorEdidFacts::GetConflict(unsigned int uiIndex) const
{
    return uiIndex < std::min(m_uiConflicts, msc_uiMostConflicts) ? m_aoConflicts + uiIndex : nullptr;
}

double CZorEdidFacts::SSize::GetDiagonal() const
{
    constexpr double dTenthsPerInch = 254;
    const SMillimetres& oSize = m_oSize.m_oValue;
    return hypot(oSize.m_uiWidth, oSize.m_uiHeight) / dTenthsPerInch;
}

const CZorEdidFacts::SVariableRefresh* CZorEdidFacts::SLink::GetVariableRefresh() const
{
    const SVariableRefresh* const poEnd = m_aoRanges + std::min(m_uiRanges, msc_uiMostRanges);
    for (const ERefreshSource eSource : msc_aeBestRefresh)
    {
        const SVariableRefresh* const poRange =
            std::find_if(m_aoRanges, poEnd, [eSource](const auto& oRange) { return oRange.m_eSource == eSource; });
        if (poRange != poEnd)
        {
            return poRange;
        }
    }
    return nullptr;
}

bool CZorEdidFacts::SLink::HasScrambling() const
{
    constexpr unsigned int uiMostWithout = ZorStandards::Hdmi::gsc_uiMostTmdsInMegaHz * 1000; // kHz
    return m_oScdc.m_oValue && m_oMaxTmds.m_oValue > uiMostWithout;
}

bool CZorEdidFacts::SColour::IsMonochrome() const
{
    constexpr unsigned int uiRgbOnly = 1U << eFormat_Rgb; // what every digital display is taken for
    constexpr float fLeastArea = 0.01F;                   // of a triangle in x and y; that of sRGB has 0.11
    const auto& [oRed, oGreen, oBlue] = m_oPrimaries.m_oValue;
    const float fTwoAreas =
        (oGreen.m_fX - oRed.m_fX) * (oBlue.m_fY - oRed.m_fY) - (oBlue.m_fX - oRed.m_fX) * (oGreen.m_fY - oRed.m_fY);
    return m_oMonochrome.m_oValue && m_oFormats.m_oValue <= uiRgbOnly && !m_aoDepths[eFormat_Rgb].IsSaid() &&
           m_oColorimetry.m_oValue == 0 && m_uiSpaces == 0 && fabsf(fTwoAreas) < 2 * fLeastArea;
}

CZorEdidFacts::SPrimaries CZorEdidFacts::SColour::GetDefaultPrimaries() const
{
    constexpr SPrimaries oSrgb = { { 0.64F, 0.33F }, { 0.30F, 0.60F }, { 0.15F, 0.06F } };
    return m_oSrgbDefault.m_oValue ? oSrgb : m_oPrimaries.m_oValue;
}

CZorEdidFacts::SPoint CZorEdidFacts::SColour::GetDefaultWhite() const
{
    constexpr SPoint oSrgb = { 0.3127F, 0.3290F };
    return m_oSrgbDefault.m_oValue ? oSrgb : m_oWhite.m_oValue;
}

float CZorEdidFacts::SColour::GetDefaultGamma() const
{
    constexpr float fSrgb = 2.2F;
    return m_oSrgbDefault.m_oValue ? fSrgb : m_oGamma.m_oValue;
}

bool CZorEdidFacts::SColour::IsSupported(ESpace eSpace, ETransfer eTransfer) const
{
    const unsigned int uiListed = std::min(m_uiSpaces, msc_uiMostSpaces);
    if (std::any_of(m_aoSpaces, m_aoSpaces + uiListed,
                    [&](const SSpace& oSpace) { return oSpace.m_eSpace == eSpace && oSpace.m_eTransfer == eTransfer; }))
    {
        return true;
    }
    struct SOwn
    {
        ESpace m_eSpace;
        ETransfer m_eTransfer;
        unsigned int m_uiColorimetry; // any of them; 0: every colour display has it
    };
    constexpr SOwn aoOwn[] = {
        { eSpace_Srgb, eTransfer_Srgb, 0 },
        { eSpace_Bt709, eTransfer_Bt1886, 0 },
        { eSpace_AdobeRgb, eTransfer_AdobeRgb, eColorimetry_OpRgb },
        { eSpace_DciP3, eTransfer_DciP3, eColorimetry_St2113Rgb },
        { eSpace_Bt2020, eTransfer_Bt2020, eColorimetry_Bt2020Rgb | eColorimetry_Bt2020Ycc | eColorimetry_Bt2020CYcc },
    };
    const SOwn* poOwn =
        std::find_if(std::begin(aoOwn), std::end(aoOwn), [&](const SOwn& oOwn) { return oOwn.m_eSpace == eSpace; });
    if (poOwn == std::end(aoOwn) || IsMonochrome() ||
        (poOwn->m_uiColorimetry != 0 && (m_oColorimetry.m_oValue & poOwn->m_uiColorimetry) == 0))
    {
        return false;
    }
    return eTransfer == poOwn->m_eTransfer || (eTransfer == eTransfer_Pq && (m_oEotfs.m_oValue & eEotf_Pq) != 0) ||
           (eTransfer == eTransfer_Hlg && (m_oEotfs.m_oValue & eEotf_Hlg) != 0);
}
