// What the base block says, and its descriptors: VESA E-EDID standard, Release A Revision 2 (1.4) and 1.3.

#include <algorithm>
#include <iterator>

#include "FactsReader.h"
#include "Standards/BaseBlock.h"

namespace ZorFacts
{
using namespace ZorStandards::BaseBlock;

namespace
{
constexpr unsigned int gsc_uiTenthsPerMillimetre = 10;
constexpr unsigned int gsc_uiRevision4 = 4;
constexpr float gsc_fHundred = 100.0F;
constexpr unsigned char gsc_ui8LineFeed = 0x0A;

constexpr CFacts::ELink gsc_aeLinks[] = { CFacts::eLink_Digital, CFacts::eLink_Dvi,   CFacts::eLink_Hdmi,
                                          CFacts::eLink_Hdmi,    CFacts::eLink_Other, CFacts::eLink_DisplayPort };

CFacts::SPoint PointIn1024(unsigned int uiX, unsigned int uiY)
{
    constexpr float fSteps = 1024.0F;
    return { static_cast<float>(uiX) / fSteps, static_cast<float>(uiY) / fSteps };
}

template <const SPlace& X, const SPlace& Y>
CFacts::SPoint ReadPoint(const SBytes& oBase)
{
    return PointIn1024(oBase.Get<X>(), oBase.Get<Y>());
}
} // namespace

void CReader::VisitBase(const SPart& oBase)
{
    ReadIdentity(m_pui8Image);
    ReadDisplay(m_pui8Image);
    ReadChromaticities(oBase);
}

// Those of a CTA-861 block, too, where the base block has no room for its texts; the first timing is the base block's.
void CReader::VisitDescriptor(const SPart& oDescriptor)
{
    if (!HasPixelClock(oDescriptor.m_oBytes.GetData()))
    {
        ReadDescriptor(oDescriptor);
    }
    else if (oDescriptor.m_uiOffset < gsc_uiBlockSize && !m_oFacts.m_oSize.m_oFirst.IsSaid())
    {
        ReadTiming(oDescriptor);
    }
}

void CReader::ReadIdentity(const unsigned char* pui8Base)
{
    CFacts::SIdentity& oIdentity = m_oFacts.m_oIdentity;
    const SManufacturerCode oCode = ReadManufacturerCode(pui8Base);
    CFacts::SLetters oLetters = {};
    std::copy_n(oCode.m_szCode, gsc_uiManufacturerLetters, oLetters.m_szLetters);
    Set(oIdentity.m_oMaker, oLetters, eZorEdidField_BaseIdentityManufacturer, gsc_uiManufacturerOffset);
    Offer(CFacts::eQuestion_Product, eSource_Base, oIdentity.m_oProduct, ReadProductCode(pui8Base),
          eZorEdidField_BaseIdentityProductCode, gsc_uiProductOffset);
    if (const unsigned int uiSerial = ReadSerialNumber(pui8Base))
    {
        Offer(CFacts::eQuestion_SerialNumber, eSource_Base, oIdentity.m_oSerialNumber, uiSerial,
              eZorEdidField_BaseIdentitySerialNumber, gsc_uiSerialOffset);
    }
    const unsigned int uiWeek = pui8Base[gsc_uiWeekOffset];
    const unsigned int uiYear = pui8Base[gsc_uiYearOffset] + gsc_uiFirstYear;
    if (IsModelYear(pui8Base))
    {
        Offer(CFacts::eQuestion_ModelYear, eSource_Base, oIdentity.m_oModelYear, uiYear,
              eZorEdidField_BaseIdentityModelYear, gsc_uiYearOffset);
    }
    else
    {
        Offer(CFacts::eQuestion_Year, eSource_Base, oIdentity.m_oYear, uiYear, eZorEdidField_BaseIdentityYear,
              gsc_uiYearOffset);
    }
    if (uiWeek != 0 && uiWeek <= gsc_uiLastWeek)
    {
        Set(oIdentity.m_oWeek, uiWeek, eZorEdidField_BaseIdentityWeek, gsc_uiWeekOffset);
    }
    Set(oIdentity.m_oRevision, pui8Base[gsc_uiRevisionOffset], eZorEdidField_BaseEdidRevision, gsc_uiRevisionOffset);
}

void CReader::ReadDisplay(const unsigned char* pui8Base)
{
    CFacts::SSize& oSize = m_oFacts.m_oSize;
    CFacts::SColour& oColour = m_oFacts.m_oColour;
    const SBytes oBase = { pui8Base, gsc_uiBlockSize, 0 };
    const bool b4 = IsAtLeastRevision(pui8Base, gsc_uiRevision4);
    const bool bDigital = (pui8Base[gsc_uiVideoInputOffset] & gsc_uiDigitalMask) != 0;
    const unsigned int uiInterface = gsc_oInterface.Read(pui8Base);
    if (!bDigital)
    {
        Offer(CFacts::eQuestion_Link, eSource_Base, m_oFacts.m_oLink.m_oKind, CFacts::eLink_Analog,
              eZorEdidField_BaseDisplaySignalInterface, gsc_uiVideoInputOffset);
    }
    else if (b4 && uiInterface != 0 && uiInterface < std::size(gsc_aeLinks))
    {
        Offer(CFacts::eQuestion_Link, eSource_Base, m_oFacts.m_oLink.m_oKind, gsc_aeLinks[uiInterface],
              eZorEdidField_BaseDisplayInterface, gsc_uiVideoInputOffset);
    }
    constexpr unsigned int uiDfpDepth = 8; // at most
    const auto ui8Depth = static_cast<unsigned char>(GetBitsPerColor(gsc_oColorDepth.Read(pui8Base)));
    if (bDigital && b4 && ui8Depth != 0)
    {
        Offer(CFacts::eQuestion_Depth, eSource_Base, oColour.m_oDepth, ui8Depth, eZorEdidField_BaseDisplayColorBitDepth,
              gsc_uiVideoInputOffset);
    }
    if (bDigital && !b4 && IsAtLeastRevision(pui8Base, gsc_uiDfpRevision) && gsc_oDfp1Compatible.IsSet(pui8Base))
    {
        Offer(CFacts::eQuestion_Depth, eSource_Base, oColour.m_oDepth, uiDfpDepth,
              eZorEdidField_BaseDisplayDfp1Compatible, gsc_uiVideoInputOffset);
        Offer(CFacts::eQuestion_Link, eSource_Base, m_oFacts.m_oLink.m_oKind, CFacts::eLink_Dvi,
              eZorEdidField_BaseDisplayDfp1Compatible, gsc_uiVideoInputOffset);
    }

    const unsigned int uiEncodings = gsc_oDisplayColorType.Read(pui8Base);
    if (bDigital)
    {
        AddFormat(CFacts::eFormat_Rgb,
                  b4 ? eZorEdidField_BaseDisplayColorEncodings : eZorEdidField_BaseDisplaySignalInterface,
                  b4 ? gsc_uiFeaturesOffset : gsc_uiVideoInputOffset);
    }
    if (bDigital && b4 && (uiEncodings & 1U) != 0)
    {
        AddFormat(CFacts::eFormat_YCbCr444, eZorEdidField_BaseDisplayColorEncodings, gsc_uiFeaturesOffset);
    }
    if (bDigital && b4 && (uiEncodings & 2U) != 0)
    {
        AddFormat(CFacts::eFormat_YCbCr422, eZorEdidField_BaseDisplayColorEncodings, gsc_uiFeaturesOffset);
    }
    if (!(bDigital && b4))
    {
        Set(oColour.m_oMonochrome, uiEncodings == 0, eZorEdidField_BaseDisplayColorType, gsc_uiFeaturesOffset);
    }
    Take<gsc_oSrgbDefault>(oColour.m_oSrgbDefault, oBase, eZorEdidField_BaseDisplaySrgbDefault);
    if (b4)
    {
        OfferPlace<gsc_oContinuousFrequency>(CFacts::eQuestion_Continuous, eSource_Base, m_oFacts.m_oLink.m_oContinuous,
                                             oBase, eZorEdidField_BaseDisplayContinuousFrequency);
        Take<gsc_oPreferredIsNative>(oSize.m_oFirstIsNative, oBase, eZorEdidField_BaseDisplayPreferredIsNative);
    }
    if (pui8Base[gsc_oGamma.GetFirst()] != gsc_uiGammaElsewhere)
    {
        Offer(CFacts::eQuestion_Gamma, eSource_Base, oColour.m_oGamma,
              static_cast<float>(gsc_oGamma.Read(pui8Base) + 100) / gsc_fHundred, eZorEdidField_BaseDisplayGamma,
              gsc_oGamma.GetFirst());
    }

    const unsigned int uiWidth = pui8Base[gsc_uiImageWidthOffset];
    const unsigned int uiHeight = pui8Base[gsc_uiImageHeightOffset];
    if (uiWidth != 0 && uiHeight != 0)
    {
        const CFacts::SMillimetres oTenths = { uiWidth * gsc_uiTenthsPerCentimetre,
                                               uiHeight * gsc_uiTenthsPerCentimetre };
        Set(oSize.m_oCentimetres, oTenths, eZorEdidField_BaseDisplayScreenWidth, gsc_uiImageWidthOffset);
    }
    else if (b4 && uiWidth != 0)
    {
        Offer(CFacts::eQuestion_Aspect, eSource_Base, oSize.m_oAspect, uiWidth + gsc_uiRatioOffset,
              eZorEdidField_BaseDisplayAspectRatioLandscape, gsc_uiImageWidthOffset);
    }
    else if (b4 && uiHeight != 0)
    {
        constexpr unsigned int uiSquared = 10000;
        const unsigned int uiTall = uiHeight + gsc_uiRatioOffset;
        Offer(CFacts::eQuestion_Aspect, eSource_Base, oSize.m_oAspect, (uiSquared + uiTall / 2) / uiTall,
              eZorEdidField_BaseDisplayAspectRatioPortrait, gsc_uiImageHeightOffset);
    }
}

// Zeros are no colours: displays without any have them.
void CReader::ReadChromaticities(const SBytes& oBase)
{
    CFacts::SColour& oColour = m_oFacts.m_oColour;
    const CFacts::SPrimaries oPrimaries = { ReadPoint<gsc_oRedX, gsc_oRedY>(oBase),
                                            ReadPoint<gsc_oGreenX, gsc_oGreenY>(oBase),
                                            ReadPoint<gsc_oBlueX, gsc_oBlueY>(oBase) };
    const CFacts::SPoint oWhite = ReadPoint<gsc_oWhiteX, gsc_oWhiteY>(oBase);
    if (oPrimaries.m_oRed.m_fX > 0 && oPrimaries.m_oGreen.m_fY > 0 && oPrimaries.m_oBlue.m_fX > 0)
    {
        Offer(CFacts::eQuestion_Primaries, eSource_Base, oColour.m_oPrimaries, oPrimaries,
              eZorEdidField_BaseChromaticityRedX, oBase.OffsetOf<gsc_oRedX>());
    }
    if (oWhite.m_fX > 0 && oWhite.m_fY > 0)
    {
        Offer(CFacts::eQuestion_White, eSource_Base, oColour.m_oWhite, oWhite, eZorEdidField_BaseChromaticityWhiteX,
              oBase.OffsetOf<gsc_oWhiteX>());
    }
}

void CReader::ReadDescriptor(const SBytes& oDescriptor)
{
    CFacts::SIdentity& oIdentity = m_oFacts.m_oIdentity;
    const unsigned char* pui8Text = oDescriptor.m_pui8Bytes + gsc_uiContentsOffset;
    const unsigned char* pui8End = oDescriptor.m_pui8Bytes + gsc_uiDescriptorSize;
    const SBytes oContents = { pui8Text,
                               static_cast<unsigned int>(std::find(pui8Text, pui8End, gsc_ui8LineFeed) - pui8Text),
                               oDescriptor.m_uiOffset + gsc_uiContentsOffset };
    CFacts::SText oText;
    switch (oDescriptor.m_pui8Bytes[gsc_uiTagOffset])
    {
    case gsc_ui8TagRangeLimits:
        ReadRange(oDescriptor);
        break;
    case gsc_ui8TagName:
        if (!oIdentity.m_oName.IsSaid() && MakeText(oText, oContents))
        {
            Offer(CFacts::eQuestion_Name, eSource_Descriptor, oIdentity.m_oName, oText,
                  eZorEdidField_BaseDescriptorText, oContents.m_uiOffset);
        }
        break;
    case gsc_ui8TagSerialNumber:
        if (!oIdentity.m_oSerialText.IsSaid() && MakeText(oText, oContents))
        {
            Offer(CFacts::eQuestion_SerialText, eSource_Descriptor, oIdentity.m_oSerialText, oText,
                  eZorEdidField_BaseDescriptorText, oContents.m_uiOffset);
        }
        break;
    case gsc_ui8TagString:
        if (!oIdentity.m_oText.IsSaid() && MakeText(oText, oContents))
        {
            Set(oIdentity.m_oText, oText, eZorEdidField_BaseDescriptorText, oContents.m_uiOffset);
        }
        break;
    default:
        break;
    }
}

void CReader::ReadTiming(const SBytes& oTiming)
{
    CFacts::SSize& oSize = m_oFacts.m_oSize;
    const unsigned char* pui8Bytes = oTiming.m_pui8Bytes;
    const bool bInterlaced = gsc_oInterlaced.IsSet(pui8Bytes);
    const unsigned int uiWidth = gsc_oHorizontalActive.Read(pui8Bytes);
    const unsigned int uiLines = gsc_oVerticalActive.Read(pui8Bytes);
    // Of a field: an interlaced one ends with a half line.
    const unsigned int uiHalfLines = 2 * (uiLines + gsc_oVerticalBlanking.Read(pui8Bytes)) + (bInterlaced ? 1U : 0U);
    const unsigned long long ullHalves = 1ULL * (uiWidth + gsc_oHorizontalBlanking.Read(pui8Bytes)) * uiHalfLines;
    constexpr unsigned long long ullMilliHertzPerClock = 10000ULL * 1000 * 2; // of half lines
    const unsigned long long ullClock = gsc_oPixelClock.Read(pui8Bytes) * ullMilliHertzPerClock;
    const unsigned long long ullRate = ullHalves != 0 ? (ullClock + ullHalves / 2) / ullHalves : 0;
    constexpr unsigned long long ullMost = 0xFFFFFFFF;
    const CFacts::SFirstTiming oFirst = { { uiWidth, uiLines * (bInterlaced ? 2 : 1) },
                                          static_cast<unsigned int>(std::min(ullRate, ullMost)),
                                          bInterlaced };
    Set(oSize.m_oFirst, oFirst, eZorEdidField_BaseDetailedPixelClock, oTiming.m_uiOffset);
    // From EDID 1.4 on it always is.
    const bool b4 = IsAtLeastRevision(m_pui8Image, gsc_uiRevision4);
    Set(oSize.m_oFirstIsPreferred, IsPreferredTimingDeclared(m_pui8Image),
        b4 ? eZorEdidField_BaseEdidRevision : eZorEdidField_BaseDisplayPreferredTiming,
        b4 ? gsc_uiRevisionOffset : gsc_uiFeaturesOffset);
    if (oSize.m_oFirstIsNative.m_oValue)
    {
        Offer(CFacts::eQuestion_Native, eSource_Timing, oSize.m_oNative, oFirst.m_oPixels,
              eZorEdidField_BaseDetailedHorizontalActive, oTiming.OffsetOf<gsc_oHorizontalActive>());
    }
    const unsigned int uiImageWidth = gsc_oImageWidth.Read(pui8Bytes);
    const unsigned int uiImageHeight = gsc_oImageHeight.Read(pui8Bytes);
    if (uiImageWidth != 0 && uiImageHeight != 0 && !IsRatio({ uiImageWidth, uiImageHeight }))
    {
        const CFacts::SMillimetres oTenths = { uiImageWidth * gsc_uiTenthsPerMillimetre,
                                               uiImageHeight * gsc_uiTenthsPerMillimetre };
        Set(oSize.m_oTimingSize, oTenths, eZorEdidField_BaseDetailedImageWidth, oTiming.OffsetOf<gsc_oImageWidth>());
    }
}

void CReader::ReadRange(const SBytes& oRange)
{
    CFacts::SLink& oLink = m_oFacts.m_oLink;
    if (oLink.m_oRangeFormula.IsSaid())
    {
        return; // a second one is against the standard
    }
    const SRangeLimits oLimits = ReadRangeLimits(oRange.m_pui8Bytes, ReadRevision(m_pui8Image));
    const CFacts::SRange oVertical = { oLimits.m_uiMinVerticalRateInHz, oLimits.m_uiMaxVerticalRateInHz };
    Offer(CFacts::eQuestion_VerticalRates, eSource_Descriptor, oLink.m_oVerticalRates, oVertical,
          eZorEdidField_BaseRangeMinVerticalRate, oRange.OffsetOf<gsc_oMinVerticalRate>());
    Offer(CFacts::eQuestion_HorizontalRates, eSource_Descriptor, oLink.m_oHorizontalRates,
          CFacts::SRange{ oLimits.m_uiMinHorizontalRateInKiloHz, oLimits.m_uiMaxHorizontalRateInKiloHz },
          eZorEdidField_BaseRangeMinHorizontalRate, oRange.OffsetOf<gsc_oMinHorizontalRate>());
    if (oLimits.m_uiPreciseMaxPixelClockInKiloHz != 0)
    {
        Offer(CFacts::eQuestion_MaxPixelClock, eSource_Descriptor, oLink.m_oMaxPixelClock,
              oLimits.m_uiPreciseMaxPixelClockInKiloHz, eZorEdidField_BaseRangeMaxPixelClock,
              oRange.OffsetOf<gsc_oMaxPixelClock>());
    }
    const bool b4 = IsAtLeastRevision(m_pui8Image, gsc_uiRevision4);
    Take<gsc_oFormula>(oLink.m_oRangeFormula, oRange,
                       b4 ? eZorEdidField_BaseRangeVideoTimingSupport : eZorEdidField_BaseRangeSecondaryTimingFormula);
    if (b4 && gsc_oContinuousFrequency.IsSet(m_pui8Image))
    {
        AddRange({ oVertical.m_uiLeast, oVertical.m_uiMost, CFacts::eRefreshSource_RangeLimits, false, false, false, 0,
                   0, eZorEdidField_BaseRangeMinVerticalRate,
                   static_cast<unsigned short>(oRange.OffsetOf<gsc_oMinVerticalRate>()) });
    }
}
} // namespace ZorFacts
