// Modes of codes, and CZorEdidMap::GetMode.

#include "MapModes.h"

#include "Standards/BaseBlock.h"

namespace ZorMap
{
CMode MakeBareMode(SZorMode::EModeKind eKind, unsigned int uiCode, unsigned int uiWidth, unsigned int uiHeight,
                   bool bInterlaced, const SZorMode::SRate& oRate)
{
    CMode oMode = {};
    oMode.m_eKind = eKind;
    oMode.m_uiCode = uiCode;
    oMode.m_uiWidth = uiWidth;
    oMode.m_uiHeight = uiHeight;
    oMode.m_bInterlaced = bInterlaced;
    oMode.m_oRate = oRate;
    oMode.m_oNominalRate = oRate;
    oMode.m_uiRepetition = 1;
    return oMode;
}

void SetTiming(CMode& oMode, const SPublishedTiming& oTiming)
{
    constexpr unsigned long long ullHzPerKiloHz = 1000;
    oMode.m_bTiming = true;
    oMode.m_ullClock = oTiming.m_uiClock * ullHzPerKiloHz;
    oMode.m_oHorizontal = { oTiming.m_ui16Width,
                            oTiming.m_ui16HorizontalFront,
                            oTiming.m_ui16HorizontalSync,
                            oTiming.GetTotalWidth(),
                            0,
                            oTiming.IsHorizontalPositive() };
    oMode.m_oVertical = {
        oTiming.m_ui16Height,        oTiming.m_ui8VerticalFront, oTiming.m_ui8VerticalSync, oTiming.GetTotalHeight(), 0,
        oTiming.IsVerticalPositive()
    };
    oMode.m_oRate = { (oTiming.IsInterlaced() ? 2 : 1) * oMode.m_ullClock,
                      1ULL * oMode.m_oHorizontal.m_uiTotal * oMode.m_oVertical.m_uiTotal };
}

bool MakeVideoMode(CMode& oMode, unsigned int uiCode)
{
    const SVideoCode* poCode = FindVideoCode(uiCode);
    if (poCode == nullptr)
    {
        return false;
    }
    const SPublishedTiming& oTiming = poCode->m_oTiming;
    oMode = MakeBareMode(SZorMode::eModeKind_Vic, uiCode, oTiming.m_ui16Width / (0U + poCode->m_ui8Repetition),
                         oTiming.m_ui16Height, oTiming.IsInterlaced(), WholeRate(oTiming.m_ui8Rate));
    SetTiming(oMode, oTiming);
    SetAspect(oMode, poCode->m_oAspect);
    oMode.m_bFractionToo = poCode->m_bFraction;
    oMode.m_uiRepetition = poCode->m_ui8Repetition;
    return true;
}

bool MakeHdmiMode(CMode& oMode, unsigned int uiCode)
{
    const SHdmiCode* poCode = FindHdmiCode(uiCode);
    if (poCode == nullptr || !MakeVideoMode(oMode, poCode->m_ui8VideoCode))
    {
        return false;
    }
    oMode.m_eKind = SZorMode::eModeKind_HdmiVic;
    oMode.m_uiCode = uiCode;
    oMode.m_bFractionToo = poCode->m_bFraction;
    return true;
}

bool MakeDmtMode(CMode& oMode, unsigned int uiId)
{
    const SDmtMode* poDmt = FindDmtMode(uiId);
    if (poDmt == nullptr)
    {
        return false;
    }
    const SPublishedTiming& oTiming = poDmt->m_oTiming;
    const SZorMode::SRate oFraction = { oTiming.m_ui8Rate * 1000U, 1001 };
    oMode = MakeBareMode(SZorMode::eModeKind_Dmt, uiId, oTiming.m_ui16Width, oTiming.m_ui16Height,
                         oTiming.IsInterlaced(), poDmt->m_bFraction ? oFraction : WholeRate(oTiming.m_ui8Rate));
    SetTiming(oMode, oTiming);
    oMode.m_eBlanking = poDmt->m_eBlanking == EBlanking::eReduced1   ? SZorMode::eBlanking_Reduced1
                        : poDmt->m_eBlanking == EBlanking::eReduced2 ? SZorMode::eBlanking_Reduced2
                                                                     : SZorMode::eBlanking_Standard;
    return true;
}

bool MakeEstablishedMode(CMode& oMode, unsigned int uiBit)
{
    if (uiBit >= gsc_uiEstablishedModes)
    {
        return false;
    }
    const SEstablishedMode& oEstablished = gsc_aoEstablishedModes[uiBit];
    if (!MakeDmtMode(oMode, oEstablished.m_ui8Dmt))
    {
        oMode = MakeBareMode(SZorMode::eModeKind_Established, uiBit, oEstablished.m_ui16Width,
                             oEstablished.m_ui16Height, false, WholeRate(oEstablished.m_ui8Rate));
    }
    oMode.m_eKind = SZorMode::eModeKind_Established;
    oMode.m_uiCode = uiBit;
    return true;
}

bool MakeEstablishedIIIMode(CMode& oMode, unsigned int uiBit)
{
    if (uiBit >= gsc_uiEstablishedIIIModes || !MakeDmtMode(oMode, gsc_aui8EstablishedIII[uiBit]))
    {
        return false;
    }
    oMode.m_eKind = SZorMode::eModeKind_EstablishedIII;
    oMode.m_uiCode = uiBit;
    return true;
}

void SetMarks(CMode& oMode, unsigned int uiMarks)
{
    oMode.m_eY420 = (uiMarks & gsc_uiMarkOnly420) != 0   ? SZorMode::eY420_Only
                    : (uiMarks & gsc_uiMarkAlso420) != 0 ? SZorMode::eY420_Also
                                                         : oMode.m_eY420;
    oMode.m_eStereo = (uiMarks & gsc_uiMarkHdmi3d) != 0 ? SZorMode::eStereo_Hdmi : oMode.m_eStereo;
    oMode.m_bReference |= (uiMarks & gsc_uiMarkHdmi3d) != 0;
    oMode.m_bNative |= (uiMarks & gsc_uiMarkNative) != 0;
}

namespace
{
ModeMaker GetMaker(const SOrigin& oOrigin)
{
    return oOrigin.m_poRow != nullptr     ? oOrigin.m_poRow->m_oForm.m_pfnMode
           : oOrigin.m_poTable != nullptr ? oOrigin.m_poTable->m_pfnMode
                                          : nullptr;
}

unsigned int GetCode(const SEntry& oEntry)
{
    const SRow* poRow = oEntry.m_oOrigin.m_poRow;
    const bool bOfRow = poRow != nullptr && poRow->m_oForm.m_ui8Code != 0;
    return oEntry.m_oOrigin.m_ui8Code != 0                      ? oEntry.m_oOrigin.m_ui8Code
           : bOfRow                                             ? poRow->m_oForm.m_ui8Code - 1U
           : oEntry.m_oField.m_eKind == CZorEdidMap::eKind_Flag ? 0 // its number is 1
                                                                : static_cast<unsigned int>(oEntry.m_oField.m_llNumber);
}
} // namespace
} // namespace ZorMap

using namespace ZorMap;

bool CZorEdidMap::GetMode(unsigned int uiField, SMode& oMode, unsigned int uiIndex) const
{
    if (uiField >= GetFieldCount())
    {
        MASSERT_FAILED();
        return false;
    }
    const SEntry& oEntry = m_poContent->m_aoEntries[uiField];
    const SOrigin& oOrigin = oEntry.m_oOrigin;
    const ModeMaker pfnMaker = GetMaker(oOrigin);
    if (pfnMaker == nullptr || (oEntry.m_oField.m_eKind == eKind_Flag && oEntry.m_oField.m_llNumber == 0))
    {
        return false;
    }
    const CRecord oRecord(m_poContent->m_oFacts, GetData() + oOrigin.m_uiOffset, oOrigin.m_uiLength);
    SMode oMade = {};
    if (!pfnMaker(oRecord, { GetCode(oEntry), uiIndex, oOrigin.m_ui8Marks }, oMade) || oMade.m_uiWidth == 0 ||
        oMade.m_uiHeight == 0)
    {
        return false;
    }
    SetMarks(oMade, oOrigin.m_ui8Marks);
    // Timings of the base block come first in its order of preference.
    oMade.m_bPreferred |=
        oOrigin.m_uiOffset == BaseBlock::gsc_uiDescriptorsOffset && BaseBlock::IsPreferredTimingDeclared(GetData());
    oMode = oMade;
    return true;
}
