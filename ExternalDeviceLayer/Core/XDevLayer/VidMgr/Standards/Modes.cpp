#include "Modes.h"

#include "CtaBlocks.h"
#include "Descriptors.h"

namespace ZorStandards
{
SZorMode MakeBareMode(SZorMode::EModeKind eKind, unsigned int uiCode, unsigned int uiWidth, unsigned int uiHeight,
                      bool bInterlaced, const SZorMode::SRate& oRate)
{
    SZorMode oMode = {};
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

void SetTiming(SZorMode& oMode, const SPublishedTiming& oTiming)
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

namespace
{
void SetAspect(SZorMode& oMode, const SRatio& oRatio)
{
    oMode.m_uiAspectWidth = oRatio.m_uiWidth;
    oMode.m_uiAspectHeight = oRatio.m_uiHeight;
}
} // namespace

// ---- Codes ----

bool MakeVideoMode(SZorMode& oMode, unsigned int uiCode)
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

bool MakeHdmiMode(SZorMode& oMode, unsigned int uiCode)
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

bool MakeDmtMode(SZorMode& oMode, unsigned int uiId)
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

bool MakeEstablishedMode(SZorMode& oMode, unsigned int uiBit)
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
        SetTiming(oMode, *FindMakerTiming(uiBit));
    }
    oMode.m_eKind = SZorMode::eModeKind_Established;
    oMode.m_uiCode = uiBit;
    return true;
}

bool MakeEstablishedIIIMode(SZorMode& oMode, unsigned int uiBit)
{
    if (uiBit >= gsc_uiEstablishedIIIModes || !MakeDmtMode(oMode, gsc_aui8EstablishedIII[uiBit]))
    {
        return false;
    }
    oMode.m_eKind = SZorMode::eModeKind_EstablishedIII;
    oMode.m_uiCode = uiBit;
    return true;
}

// ---- Base block ----

bool ReadDetailedMode(const CRecordBytes& oRecord, SZorMode& oMode)
{
    using namespace Descriptors;
    constexpr unsigned int uiHzPerClock = 1000 * gsc_uiKiloHzPerClockUnit;
    constexpr unsigned int uiFirstStereo = 2; // smaller values mean no stereo
    if (!oRecord.IsSet(gsc_oPixelClock))
    {
        return false;
    }
    const bool bInterlaced = oRecord.IsSet(gsc_oInterlaced);
    const unsigned int uiWidth = oRecord.Get(gsc_oHorizontalActive);
    const unsigned int uiHeight = oRecord.Get(gsc_oVerticalActive) * (bInterlaced ? 2 : 1);
    const unsigned int uiTotalWidth = uiWidth + oRecord.Get(gsc_oHorizontalBlanking);
    // An interlaced field ends with a half line.
    const unsigned int uiBlankHeight = oRecord.Get(gsc_oVerticalBlanking);
    const unsigned int uiTotalHeight = uiHeight + (bInterlaced ? 2 * uiBlankHeight + 1 : uiBlankHeight);
    const unsigned long long ullClock = 1ULL * uiHzPerClock * oRecord.Get(gsc_oPixelClock);
    const unsigned int uiSync = oRecord.Get(gsc_oSyncType);
    oMode = MakeBareMode(SZorMode::eModeKind_Detailed, 0, uiWidth, uiHeight, bInterlaced,
                         { (bInterlaced ? 2 : 1) * ullClock, 1ULL * uiTotalWidth * uiTotalHeight });
    oMode.m_bTiming = true;
    oMode.m_ullClock = ullClock;
    oMode.m_oHorizontal = { uiWidth,
                            oRecord.Get(gsc_oHorizontalFrontPorch),
                            oRecord.Get(gsc_oHorizontalSync),
                            uiTotalWidth,
                            oRecord.Get(gsc_oHorizontalBorder),
                            uiSync >= gsc_uiDigitalCompositeSync && oRecord.IsSet(gsc_oHorizontalPositive) };
    oMode.m_oVertical = { uiHeight,
                          oRecord.Get(gsc_oVerticalFrontPorch),
                          oRecord.Get(gsc_oVerticalSync),
                          uiTotalHeight,
                          oRecord.Get(gsc_oVerticalBorder),
                          uiSync == gsc_uiDigitalSeparateSync && oRecord.IsSet(gsc_oVerticalPositive) };
    const unsigned int uiStereo = oRecord.Get(gsc_oStereo);
    oMode.m_eStereo = uiStereo < uiFirstStereo ? SZorMode::eStereo_No : static_cast<SZorMode::EStereo>(uiStereo);
    return true;
}

bool ReadStandardMode(const CRecordBytes& oRecord, bool bSquare, SZorMode& oMode)
{
    if (IsUnusedStandard(oRecord) || oRecord.GetByte(0) == 0)
    {
        return false;
    }
    const unsigned int uiCode = oRecord.Get(Big16(0));
    const SStandardTiming oTiming = ReadStandardTiming(oRecord.GetByte(0), oRecord.GetByte(1), bSquare);
    oMode = MakeBareMode(SZorMode::eModeKind_Standard, uiCode, oTiming.m_uiWidth, oTiming.m_uiHeight, false,
                         WholeRate(oTiming.m_uiRate));
    SetAspect(oMode, oTiming.m_oAspect);
    const bool bOldRatio = bSquare && oRecord.Get(gsc_oStandardAspect) == 0;
    const SDmtMode* poDmt = bOldRatio ? nullptr : FindDmtModeOfStandard(uiCode);
    if (poDmt != nullptr)
    {
        SetTiming(oMode, poDmt->m_oTiming);
    }
    return true;
}

namespace
{
// The preferred rate comes first, whether a bit announces it or not.
SCvtCodeRate GetCodeRate(const CRecordBytes& oRecord, unsigned int uiRank)
{
    const SCvtCodeRate& oPreferred = gsc_aoCvtCodeRates[oRecord.Get(gsc_oCvtCodePreferred)];
    const SCvtCodeRate& oReduced = gsc_aoCvtCodeRates[4];
    const bool bReduced = oPreferred.m_uiRate == oReduced.m_uiRate && !oRecord.IsSet(oPreferred.m_oPlace) &&
                          oRecord.IsSet(oReduced.m_oPlace);
    const SCvtCodeRate& oFirst = bReduced ? oReduced : oPreferred;
    if (uiRank == 0)
    {
        return oFirst;
    }
    for (const SCvtCodeRate& oRate : gsc_aoCvtCodeRates)
    {
        if (oRecord.IsSet(oRate.m_oPlace) && &oRate != &oFirst && --uiRank == 0)
        {
            return oRate;
        }
    }
    return {};
}
} // namespace

bool ReadCvtCodeMode(const CRecordBytes& oRecord, unsigned int uiRank, SZorMode& oMode)
{
    constexpr SRatio aoRatios[] = { { 4, 3 }, { 16, 9 }, { 16, 10 }, { 15, 9 } };
    constexpr unsigned int uiCell = 8; // pixels
    const SCvtCodeRate oRate = GetCodeRate(oRecord, uiRank);
    if (IsUnusedCvtCode(oRecord) || oRate.m_uiRate == 0)
    {
        return false;
    }
    const unsigned int uiLines = (oRecord.Get(gsc_oCvtCodeLines) + 1) * 2;
    const SRatio& oRatio = aoRatios[oRecord.Get(gsc_oCvtCodeAspect)];
    oMode = MakeBareMode(SZorMode::eModeKind_CvtCode, oRecord.Get(Big24(0)),
                         uiLines * oRatio.m_uiWidth / oRatio.m_uiHeight / uiCell * uiCell, uiLines, false,
                         WholeRate(oRate.m_uiRate));
    SetAspect(oMode, oRatio);
    oMode.m_eBlanking = oRate.m_eBlanking;
    return true;
}

unsigned int GetCvtCodeBit(const SZorMode& oMode)
{
    unsigned int uiBit = 0;
    for (const SCvtCodeRate& oRate : gsc_aoCvtCodeRates)
    {
        const bool bRate = oMode.m_oNominalRate.m_ullDividend == oRate.m_uiRate;
        uiBit = bRate && oMode.m_eBlanking == oRate.m_eBlanking ? oRate.m_oPlace.m_aoPieces[0].m_ui8Low : uiBit;
    }
    return uiBit;
}

// ---- CTA-861 ----

bool ReadShortVideoMode(unsigned int uiSvd, SZorMode& oMode)
{
    const SShortVideo oVideo = ReadShortVideo(uiSvd);
    if (!MakeVideoMode(oMode, oVideo.m_uiCode))
    {
        return false;
    }
    oMode.m_bNative = oVideo.m_bNative;
    return true;
}

namespace
{
// The rates in rising order; 0 after the last one.
unsigned int GetFormatRate(const CRecordBytes& oFormat, unsigned int uiRank)
{
    using namespace Cta;
    constexpr unsigned int uiMost = 480;
    const bool bShort = oFormat.GetSize() < 2;
    const auto fnHas = [&](unsigned int uiRate) {
        for (unsigned int i = 0; i < std::size(gsc_aoFormatFactors); ++i)
        {
            const SFormatFactor& oFactor = gsc_aoFormatFactors[i];
            const bool bFactor = bShort ? i < gsc_uiShortFormatFactors : oFormat.IsSet(oFactor.m_oPlace);
            const bool b25 = oFormat.IsSet(gsc_oFormatBfr50) && uiRate == oFactor.m_uiFactor * 25;
            const bool b30 = (bShort || oFormat.IsSet(gsc_oFormatBfr60)) && uiRate == oFactor.m_uiFactor * 30;
            if (bFactor && (b25 || b30))
            {
                return true;
            }
        }
        return (uiRate == 24 && oFormat.IsSet(gsc_oFormat24Hz)) || (uiRate == 144 && oFormat.IsSet(gsc_oFormat144Hz)) ||
               (uiRate == 48 && oFormat.IsSet(gsc_oFormat48Hz));
    };
    for (unsigned int uiRate = 1; uiRate <= uiMost; ++uiRate)
    {
        if (fnHas(uiRate) && uiRank-- == 0)
        {
            return uiRate;
        }
    }
    return 0;
}
} // namespace

bool ReadFormatMode(const CRecordBytes& oRecord, unsigned int uiRank, bool bFraction, SZorMode& oMode)
{
    constexpr unsigned int uiNtsc = 6;
    const unsigned int uiResolution = oRecord.Get(Cta::gsc_oFormatResolution);
    const unsigned int uiRate = GetFormatRate(oRecord, uiRank);
    if (uiRate == 0 || uiResolution == 0 || uiResolution >= gsc_uiFormatResolutions)
    {
        return false;
    }
    const SFormatResolution& oResolution = gsc_aoFormatResolutions[uiResolution];
    oMode = MakeBareMode(SZorMode::eModeKind_VideoFormat, uiResolution, oResolution.m_ui16Width,
                         oResolution.m_ui16Height, false, WholeRate(uiRate));
    SetAspect(oMode, oResolution.m_oAspect);
    oMode.m_bFractionToo = bFraction && uiRate % uiNtsc == 0;
    return true;
}

// ---- DisplayID ----

namespace
{
void ReadFlags(SZorMode& oMode, const CRecordBytes& oTiming, const DisplayId::STimingFlags& oFlags)
{
    const unsigned int uiStereo = oTiming.Get(oFlags.m_oStereo);
    oMode.m_bPreferred = oTiming.IsSet(oFlags.m_oPreferred);
    oMode.m_eY420 = oTiming.IsSet(oFlags.m_oY420) ? SZorMode::eY420_Also : SZorMode::eY420_No;
    oMode.m_eStereo = uiStereo == 1   ? SZorMode::eStereo_Always
                      : uiStereo == 2 ? SZorMode::eStereo_ByUser
                                      : SZorMode::eStereo_No;
    oMode.m_bFractionToo = oTiming.IsSet(oFlags.m_oFraction);
    if (oFlags.m_oAspect.m_ui8Pieces != 0)
    {
        SetAspect(oMode, GetTimingRatio(oTiming.Get(oFlags.m_oAspect)));
    }
}

// Sizes in total lines and pixels as the standard has them for a frame. What the lines of an interlaced timing count is
// read in two ways, so that its numbers are left out.
bool ReadLongMode(SZorMode::EModeKind eKind, const DisplayId::STimingPlaces& oPlaces,
                  const DisplayId::STimingFlags& oFlags, const CRecordBytes& oTiming, SZorMode& oMode)
{
    const auto fnGet = [&](const SPlace& oPlace) { return oTiming.Get(oPlace) + 1; };
    const auto fnPixels = [&](const SPlace& oPlace) { return fnGet(oPlace) * oPlaces.m_uiPixels; };
    const bool bInterlaced = oTiming.IsSet(oPlaces.m_oInterlaced);
    const unsigned int uiWidth = fnPixels(oPlaces.m_oHorizontalActive);
    const unsigned int uiHeight = fnGet(oPlaces.m_oVerticalActive);
    const unsigned int uiTotalWidth = uiWidth + fnPixels(oPlaces.m_oHorizontalBlank);
    const unsigned int uiTotalHeight = uiHeight + fnGet(oPlaces.m_oVerticalBlank);
    oMode = MakeBareMode(eKind, 0, uiWidth, uiHeight, bInterlaced, {});
    oMode.m_ullClock = 1000ULL * fnGet(oPlaces.m_oClock) * oPlaces.m_uiClockInKiloHz;
    oMode.m_oRate = { (bInterlaced ? 2 : 1) * oMode.m_ullClock, 1ULL * uiTotalWidth * uiTotalHeight };
    oMode.m_oNominalRate = oMode.m_oRate;
    oMode.m_bTiming = !bInterlaced;
    oMode.m_oHorizontal = {
        uiWidth, fnPixels(oPlaces.m_oHorizontalFrontPorch),   fnPixels(oPlaces.m_oHorizontalSync), uiTotalWidth,
        0,       oTiming.IsSet(oPlaces.m_oHorizontalPositive)
    };
    oMode.m_oVertical = {
        uiHeight, fnGet(oPlaces.m_oVerticalFrontPorch),      fnGet(oPlaces.m_oVerticalSync), uiTotalHeight,
        0,        oTiming.IsSet(oPlaces.m_oVerticalPositive)
    };
    ReadFlags(oMode, oTiming, oFlags);
    return true;
}

// Width, height and rate of a timing by formula.
void ReadFormulaMode(SZorMode::EModeKind eKind, const CRecordBytes& oTiming, const DisplayId::SFormulaPlaces& oPlaces,
                     const SPlace& oRate, SZorMode& oMode)
{
    oMode = MakeBareMode(eKind, 0, oTiming.Get(oPlaces.m_oWidth) + 1, oTiming.Get(oPlaces.m_oHeight) + 1, false,
                         WholeRate(oTiming.Get(oRate) + 1));
}

// By the formula's code: of Type III the first two, of Type IX the first three, of Type X all.
SZorMode::EBlanking GetFormulaBlanking(unsigned int uiFormula, unsigned int uiFormulas)
{
    constexpr SZorMode::EBlanking aeBlankings[] = { SZorMode::eBlanking_Standard, SZorMode::eBlanking_Reduced1,
                                                    SZorMode::eBlanking_Reduced2, SZorMode::eBlanking_Reduced3 };
    return uiFormula < uiFormulas ? aeBlankings[uiFormula] : SZorMode::eBlanking_NotGiven;
}
} // namespace

bool ReadType1Mode(const CRecordBytes& oRecord, SZorMode& oMode)
{
    return ReadLongMode(SZorMode::eModeKind_Type1, DisplayId::gsc_oType1, DisplayId::gsc_oFlags1, oRecord, oMode);
}

bool ReadType2Mode(const CRecordBytes& oRecord, SZorMode& oMode)
{
    return ReadLongMode(SZorMode::eModeKind_Type2, DisplayId::gsc_oType2, DisplayId::gsc_oFlags2, oRecord, oMode);
}

bool ReadType3Mode(const CRecordBytes& oRecord, SZorMode& oMode)
{
    using namespace DisplayId;
    constexpr unsigned int uiFormulas = 2;
    const unsigned int uiWidth = (oRecord.Get(gsc_oType3Width) + 1) * 8;
    const SRatio oRatio = GetTimingRatio(oRecord.Get(gsc_oFlags3.m_oAspect));
    if (oRatio.m_uiWidth == 0)
    {
        return false;
    }
    oMode = MakeBareMode(SZorMode::eModeKind_Type3, 0, uiWidth, uiWidth * oRatio.m_uiHeight / oRatio.m_uiWidth,
                         oRecord.IsSet(gsc_oType3Interlaced), WholeRate(oRecord.Get(gsc_oType3Rate) + 1));
    oMode.m_eBlanking = GetFormulaBlanking(oRecord.Get(gsc_oType3Formula), uiFormulas);
    ReadFlags(oMode, oRecord, gsc_oFlags3);
    return true;
}

bool ReadType5Mode(const CRecordBytes& oRecord, SZorMode& oMode)
{
    const DisplayId::SFormulaPlaces& oPlaces = DisplayId::gsc_oType5;
    const unsigned int uiFormula = oRecord.Get(oPlaces.m_oFormula);
    ReadFormulaMode(SZorMode::eModeKind_Type5, oRecord, oPlaces, oPlaces.m_oRate, oMode);
    oMode.m_eBlanking = uiFormula == 0   ? SZorMode::eBlanking_Reduced2
                        : uiFormula == 1 ? SZorMode::eBlanking_Custom
                                         : SZorMode::eBlanking_NotGiven;
    ReadFlags(oMode, oRecord, DisplayId::gsc_oFlags5);
    return true;
}

bool ReadType6Mode(const CRecordBytes& oRecord, SZorMode& oMode)
{
    return ReadLongMode(SZorMode::eModeKind_Type6, DisplayId::gsc_oType6, DisplayId::gsc_oFlags6, oRecord, oMode);
}

bool ReadType7Mode(const CRecordBytes& oRecord, SZorMode& oMode)
{
    return ReadLongMode(SZorMode::eModeKind_Type7, DisplayId::gsc_oType7, DisplayId::gsc_oFlags7, oRecord, oMode);
}

bool ReadType7Revision2Mode(const CRecordBytes& oRecord, SZorMode& oMode)
{
    return ReadLongMode(SZorMode::eModeKind_Type7, DisplayId::gsc_oType7, DisplayId::gsc_oFlags7Revision2, oRecord,
                        oMode);
}

bool ReadType9Mode(const CRecordBytes& oRecord, SZorMode& oMode)
{
    constexpr unsigned int uiFormulas = 3;
    const DisplayId::SFormulaPlaces& oPlaces = DisplayId::gsc_oType9;
    ReadFormulaMode(SZorMode::eModeKind_Type9, oRecord, oPlaces, oPlaces.m_oRate, oMode);
    ReadFlags(oMode, oRecord, DisplayId::gsc_oFlags9);
    oMode.m_eBlanking = GetFormulaBlanking(oRecord.Get(oPlaces.m_oFormula), uiFormulas);
    return true;
}

bool ReadType10Mode(const CRecordBytes& oRecord, SZorMode& oMode)
{
    using namespace DisplayId;
    constexpr unsigned int uiFormulas = 4;
    const bool bWide = oRecord.GetSize() >= gsc_uiType10WideSize;
    ReadFormulaMode(SZorMode::eModeKind_Type10, oRecord, gsc_oType10, bWide ? gsc_oType10WideRate : gsc_oType10.m_oRate,
                    oMode);
    ReadFlags(oMode, oRecord, gsc_oFlags10);
    oMode.m_eBlanking = GetFormulaBlanking(oRecord.Get(gsc_oType10.m_oFormula), uiFormulas);
    oMode.m_bFractionToo = oMode.m_bFractionToo && oMode.m_eBlanking == SZorMode::eBlanking_Reduced2;
    return true;
}

unsigned int ReadAdditionalBlankInUs(const CRecordBytes& oType10)
{
    constexpr unsigned int uiStepOf300 = 20; // microseconds
    constexpr unsigned int uiStepOf460 = 35;
    const bool b300 = oType10.IsSet(DisplayId::gsc_oLeastBlankOf300);
    return oType10.Get(DisplayId::gsc_oMoreBlankTime) * (b300 ? uiStepOf300 : uiStepOf460);
}

// Steps of 8 pixels over 80; over 160 up to five, and the codes 6 and 7 are one and two steps under it.
SReducedBlanking ReadReducedBlanking(const CRecordBytes& oType10)
{
    using namespace DisplayId;
    constexpr unsigned int uiFormula3 = 3;
    constexpr unsigned int uiStep = 8;
    constexpr unsigned int uiMostAbove160 = 5;
    constexpr unsigned int uiLeast300 = 300;
    SReducedBlanking oBlanking;
    if (oType10.Get(gsc_oType10.m_oFormula) != uiFormula3)
    {
        return oBlanking;
    }
    const unsigned int uiSteps = oType10.Get(gsc_oBlankSteps);
    const bool b160 = oType10.IsSet(gsc_oBlankFrom160);
    oBlanking.m_uiHorizontalBlank = !b160                       ? 80 + uiStep * uiSteps
                                    : uiSteps <= uiMostAbove160 ? 160 + uiStep * uiSteps
                                                                : 160 - uiStep * (uiSteps - uiMostAbove160);
    if (oType10.IsSet(gsc_oLeastBlankOf300))
    {
        oBlanking.m_uiVerticalBlankInUs = uiLeast300;
    }
    oBlanking.m_uiVerticalBlankInUs += ReadAdditionalBlankInUs(oType10);
    oBlanking.m_bEarlySync = oType10.IsSet(gsc_oEarlySync);
    return oBlanking;
}
} // namespace ZorStandards
