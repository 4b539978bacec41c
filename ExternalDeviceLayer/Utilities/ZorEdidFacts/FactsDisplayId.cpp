// What a DisplayID section says: DisplayID 1.3, 2.0 and 2.1.

#include <algorithm>
#include <iterator>

#include "FactsReader.h"
#include "Standards/DisplayIdBlocks.h"
#include "Standards/Ouis.h"

namespace ZorFacts
{
using namespace DisplayId;

namespace
{
constexpr unsigned int gsc_uiTenthsPerMillimetre = 10;
constexpr unsigned int gsc_uiLetters = 3;
constexpr float gsc_fHundred = 100.0F;
constexpr unsigned int gsc_uiGammaNotGiven = 0xFF;
constexpr unsigned int gsc_uiFirstYear = 2000;

constexpr SPlace gsc_oProductTextLength = Byte(gsc_uiProductTextLengthOffset);
constexpr SPlace gsc_oHeaderFlags = Byte(1);
constexpr SPlace gsc_oMaxFull = Little16(gsc_uiMaxLuminanceFullOffset);
constexpr SPlace gsc_oMax10Percent = Little16(gsc_uiMaxLuminance10PercentOffset);
constexpr SPlace gsc_oMin = Little16(gsc_uiMinLuminanceOffset);
constexpr SPlace gsc_oMinSdr = Little16(gsc_uiMinSdrLuminanceOffset);
constexpr SPlace gsc_oMaxSdr = Little16(gsc_uiMaxSdrLuminanceOffset);
constexpr SPlace gsc_oMaxBoost = Little16(gsc_uiMaxBoostLuminanceOffset);

// Product types of version 1, use cases of version 2.
constexpr CFacts::EKind gsc_aeTypes[] = { CFacts::eKind_Generic, CFacts::eKind_Other,      CFacts::eKind_Panel,
                                          CFacts::eKind_Monitor, CFacts::eKind_Television, CFacts::eKind_Repeater,
                                          CFacts::eKind_Monitor };
constexpr CFacts::ELink gsc_aeLinks[] = { CFacts::eLink_Analog, CFacts::eLink_Lvds,        CFacts::eLink_Digital,
                                          CFacts::eLink_Other,  CFacts::eLink_Dvi,         CFacts::eLink_Analog,
                                          CFacts::eLink_Dvi,    CFacts::eLink_Hdmi,        CFacts::eLink_Hdmi,
                                          CFacts::eLink_Other,  CFacts::eLink_DisplayPort, CFacts::eLink_Other };
constexpr unsigned char gsc_aui8Depths2[] = { 0, 6, 8, 10, 12, 16, 0, 0 };

CFacts::SPoint MakePoint(unsigned int uiFirst, unsigned int uiSecond, bool b1976)
{
    constexpr float fSteps = 4096.0F;
    const float fFirst = static_cast<float>(uiFirst) / fSteps;
    const float fSecond = static_cast<float>(uiSecond) / fSteps;
    if (!b1976)
    {
        return { fFirst, fSecond };
    }
    // CIE 1976 (u', v') to CIE 1931 (x, y)
    const float fBelow = 6 * fFirst - 16 * fSecond + 12;
    return fBelow > 0 ? CFacts::SPoint{ 9 * fFirst / fBelow, 4 * fSecond / fBelow } : CFacts::SPoint{ 0, 0 };
}

// Point uiIndex of those at uiOffset of the block, all of which are there.
template <unsigned int OFFSET>
CFacts::SPoint ReadPoint(const SBytes& oBlock, unsigned int uiIndex, bool b1976)
{
    const unsigned char* pui8Point = oBlock.m_pui8Bytes + OFFSET + uiIndex * gsc_uiCoordinatesSize;
    return MakePoint(FirstCoordinate(0).Read(pui8Point), SecondCoordinate(0).Read(pui8Point), b1976);
}

bool IsColour(const CFacts::SPoint& oPoint) { return oPoint.m_fX > 0 && oPoint.m_fY > 0; }

template <const SPlace& PLACE>
void TakeLuminance(SZorFact<float>& oFact, const SBytes& oBlock, EZorEdidField eId)
{
    constexpr float fMillion = 1e6F;
    if (!oFact.IsSaid() && oBlock.Has<PLACE>() && oBlock.Get<PLACE>() < gsc_uiHalfInfinite)
    {
        oFact = { static_cast<float>(HalfInMillionths(oBlock.Get<PLACE>())) / fMillion, eId,
                  static_cast<unsigned short>(oBlock.OffsetOf<PLACE>()) };
    }
}
} // namespace

void CReader::VisitDisplayId(const SPart& oBlock)
{
    const unsigned int uiVersion = GetMajorVersion(oBlock.GetByte(gsc_uiVersionOffset));
    const bool bVersion2 = uiVersion == 2;
    const unsigned int uiType = oBlock.GetByte(gsc_uiProductTypeOffset);
    const unsigned int uiOffset = oBlock.m_uiOffset + gsc_uiProductTypeOffset;
    if (uiVersion > gsc_uiHighestMajorVersion || uiType == 0 || (!bVersion2 && uiType >= std::size(gsc_aeTypes)))
    {
        return;
    }
    const CFacts::EKind eKind = bVersion2 ? FindUseCase(uiType) : gsc_aeTypes[uiType];
    Offer(CFacts::eQuestion_Kind, bVersion2 ? eSource_DisplayId2 : eSource_DisplayId1, m_oFacts.m_oSize.m_oKind, eKind,
          bVersion2 ? eZorEdidField_DisplayidSectionUseCase : eZorEdidField_DisplayidSectionProductType, uiOffset);
    if (eKind == CFacts::eKind_HeadMounted)
    {
        Replace(m_oFacts.m_oSize.m_oDesktop, false, eZorEdidField_DisplayidSectionUseCase, uiOffset);
    }
}

// Both versions have the same tag for no two data blocks.
void CReader::VisitDisplayIdData(unsigned int /*uiVersion*/, const SPart& oData)
{
    const SBytes oBlock = oData;
    const unsigned int uiTag = oData.GetByte(0);
    CFacts::SIdentity& oIdentity = m_oFacts.m_oIdentity;
    CFacts::SText oText;
    switch (uiTag)
    {
    case gsc_uiProduct1Tag:
    case gsc_uiProduct2Tag:
        ReadProduct(oBlock, uiTag == gsc_uiProduct2Tag);
        break;
    case gsc_uiParameters1Tag:
        ReadParameters1(oBlock);
        break;
    case gsc_uiParameters2Tag:
        ReadParameters2(oBlock);
        break;
    case gsc_uiColorTag:
        ReadColour(oBlock);
        break;
    case gsc_uiSerialTag:
        if (MakeText(oText, oBlock.From(gsc_uiPayloadOffset)))
        {
            Offer(CFacts::eQuestion_SerialText, eSource_DisplayId1, oIdentity.m_oSerialText, oText,
                  eZorEdidField_DisplayidSerialSerialNumber, oBlock.m_uiOffset + gsc_uiPayloadOffset);
        }
        break;
    case gsc_uiStringTag:
        if (MakeText(oText, oBlock.From(gsc_uiPayloadOffset)))
        {
            Set(oIdentity.m_oText, oText, eZorEdidField_DisplayidStringText, oBlock.m_uiOffset + gsc_uiPayloadOffset);
        }
        break;
    case gsc_uiDeviceTag:
        ReadDevice(oBlock);
        break;
    case gsc_uiRangeTag:
        ReadRange1(oBlock);
        break;
    case gsc_uiDynamicRangeTag:
        ReadDynamicRange(oBlock);
        break;
    case gsc_uiInterfaceTag:
        ReadInterface(oBlock);
        break;
    case gsc_uiInterfaceFeaturesTag:
        ReadFeatures(oBlock);
        break;
    case gsc_uiTiled1Tag:
    case gsc_uiTiled2Tag:
        ReadTile(oBlock, uiTag == gsc_uiTiled2Tag ? eSource_DisplayId2 : eSource_DisplayId1);
        break;
    case gsc_uiContainerTag:
        ReadContainerId(oBlock.From(gsc_uiPayloadOffset));
        break;
    case gsc_uiAdaptiveSyncTag:
        ReadAdaptiveSync(oBlock);
        break;
    case gsc_uiHeadMountedTag:
        Offer(CFacts::eQuestion_Kind, eSource_DisplayId2, m_oFacts.m_oSize.m_oKind, CFacts::eKind_HeadMounted,
              eZorEdidField_DisplayidHmd, oBlock.m_uiOffset);
        break;
    case gsc_uiBrightnessTag:
        ReadBrightness(oBlock);
        break;
    case gsc_uiVendor2Tag:
        ReadVesaVendor(oBlock);
        break;
    default:
        break;
    }
}

// ---- Identity ----

void CReader::ReadProduct(const SBytes& oBlock, bool bVersion2)
{
    CFacts::SIdentity& oIdentity = m_oFacts.m_oIdentity;
    const ESource eSource = bVersion2 ? eSource_DisplayId2 : eSource_DisplayId1;
    if (!oBlock.Has<gsc_oProductYear>())
    {
        return;
    }
    const unsigned char* pui8Vendor = oBlock.m_pui8Bytes + gsc_uiPayloadOffset;
    const bool bLetters =
        std::all_of(pui8Vendor, pui8Vendor + gsc_uiLetters, [](unsigned char ui8) { return ui8 >= 'A' && ui8 <= 'Z'; });
    if (bVersion2 || !bLetters)
    {
        Take<gsc_oVendorOui>(oIdentity.m_oMakerOui, oBlock, eZorEdidField_DisplayidProductVendor);
    }
    OfferPlace<gsc_oProductCode>(CFacts::eQuestion_Product, eSource, oIdentity.m_oProduct, oBlock,
                                 eZorEdidField_DisplayidProductProductCode);
    if (const unsigned int uiSerial = oBlock.Get<gsc_oProductSerial>())
    {
        Offer(CFacts::eQuestion_SerialNumber, eSource, oIdentity.m_oSerialNumber, uiSerial,
              eZorEdidField_DisplayidProductSerialNumber, oBlock.OffsetOf<gsc_oProductSerial>());
    }
    const bool bModel = oBlock.Get<gsc_oProductWeek>() == gsc_uiModelYear;
    Offer(bModel ? CFacts::eQuestion_ModelYear : CFacts::eQuestion_Year, eSource,
          bModel ? oIdentity.m_oModelYear : oIdentity.m_oYear, oBlock.Get<gsc_oProductYear>() + gsc_uiFirstYear,
          eZorEdidField_DisplayidProductYear, oBlock.OffsetOf<gsc_oProductYear>());
    SBytes oName = oBlock.From(gsc_uiProductTextOffset);
    oName.m_uiSize = std::min(oName.m_uiSize, oBlock.Or0<gsc_oProductTextLength>());
    CFacts::SText oText;
    if (MakeText(oText, oName))
    {
        Offer(CFacts::eQuestion_Name, eSource, oIdentity.m_oName, oText, eZorEdidField_DisplayidProductName,
              oName.m_uiOffset);
    }
}

void CReader::ReadContainerId(const SBytes& oPayload)
{
    CFacts::SContainerId oId = {};
    if (oPayload.m_uiSize >= sizeof(oId.m_aui8Bytes))
    {
        std::copy_n(oPayload.m_pui8Bytes, sizeof(oId.m_aui8Bytes), oId.m_aui8Bytes);
        Offer(CFacts::eQuestion_ContainerId, eSource_DisplayId2, m_oFacts.m_oIdentity.m_oContainerId, oId,
              eZorEdidField_DisplayidContainerId, oPayload.m_uiOffset);
    }
}

// ---- Size and shape ----

void CReader::ReadParameters(const SBytes& oBlock, ESource eSource, unsigned int uiTimes)
{
    CFacts::SSize& oSize = m_oFacts.m_oSize;
    const unsigned int uiWidth = oBlock.Get<gsc_oImageWidth>() * uiTimes;
    const unsigned int uiHeight = oBlock.Get<gsc_oImageHeight>() * uiTimes;
    if (uiWidth != 0 && uiHeight != 0)
    {
        Offer(CFacts::eQuestion_Size, eSource, oSize.m_oSize, CFacts::SMillimetres{ uiWidth, uiHeight },
              eZorEdidField_DisplayidParametersImageWidth, oBlock.OffsetOf<gsc_oImageWidth>());
    }
    const CFacts::SPixels oPixels = { oBlock.Get<gsc_oHorizontalPixels>(), oBlock.Get<gsc_oVerticalPixels>() };
    if (oPixels.m_uiWidth != 0 && oPixels.m_uiHeight != 0)
    {
        Offer(CFacts::eQuestion_Native, eSource, oSize.m_oNative, oPixels,
              eZorEdidField_DisplayidParametersHorizontalPixels, oBlock.OffsetOf<gsc_oHorizontalPixels>());
    }
}

void CReader::ReadParameters1(const SBytes& oBlock)
{
    CFacts::SColour& oColour = m_oFacts.m_oColour;
    if (!oBlock.Has<gsc_oNativeBitDepth>())
    {
        return;
    }
    ReadParameters(oBlock, eSource_DisplayId1, 1);
    constexpr unsigned int uiSquare = 100;
    Offer(CFacts::eQuestion_Aspect, eSource_DisplayId1, m_oFacts.m_oSize.m_oAspect,
          oBlock.Get<gsc_oAspectRatio>() + uiSquare, eZorEdidField_DisplayidParametersAspectRatio,
          oBlock.OffsetOf<gsc_oAspectRatio>());
    Offer(CFacts::eQuestion_Depth, eSource_DisplayId1, oColour.m_oDepth, oBlock.Get<gsc_oNativeBitDepth>() + 1,
          eZorEdidField_DisplayidParametersNativeBitDepth, oBlock.OffsetOf<gsc_oNativeBitDepth>());
    OfferPlace<gsc_oAudioSupport>(CFacts::eQuestion_Audio, eSource_DisplayId1, m_oFacts.m_oAudio.m_oAudio, oBlock,
                                  eZorEdidField_DisplayidParametersAudioSupport);
    if (oBlock.Get<gsc_oGamma>() != gsc_uiGammaNotGiven)
    {
        Offer(CFacts::eQuestion_Gamma, eSource_DisplayId1, oColour.m_oGamma,
              static_cast<float>(oBlock.Get<gsc_oGamma>() + 100) / gsc_fHundred, eZorEdidField_DisplayidParametersGamma,
              oBlock.OffsetOf<gsc_oGamma>());
    }
}

void CReader::ReadParameters2(const SBytes& oBlock)
{
    CFacts::SColour& oColour = m_oFacts.m_oColour;
    if (!oBlock.Has<gsc_oGamma2>())
    {
        return;
    }
    ReadParameters(oBlock, eSource_DisplayId2,
                   oBlock.Get<gsc_oSizeInMillimetres>() != 0 ? gsc_uiTenthsPerMillimetre : 1);
    Set(m_oFacts.m_oAudio.m_oSpeakersBuiltIn, oBlock.Get<gsc_oSpeakersNotIntegrated>() == 0,
        eZorEdidField_DisplayidParameters2AudioSpeakers, oBlock.OffsetOf<gsc_oSpeakersNotIntegrated>());
    Take<gsc_oScanOrientation>(m_oFacts.m_oSize.m_oScanOrientation, oBlock,
                               eZorEdidField_DisplayidParameters2ScanOrientation);
    if (const unsigned char ui8Depth = gsc_aui8Depths2[oBlock.Get<gsc_oNativeBitDepth2>()])
    {
        Offer(CFacts::eQuestion_Depth, eSource_DisplayId2, oColour.m_oDepth, ui8Depth,
              eZorEdidField_DisplayidParameters2NativeBitDepth, oBlock.OffsetOf<gsc_oNativeBitDepth2>());
    }
    if (oBlock.Get<gsc_oGamma2>() != gsc_uiGammaNotGiven)
    {
        Offer(CFacts::eQuestion_Gamma, eSource_DisplayId2, oColour.m_oGamma,
              static_cast<float>(oBlock.Get<gsc_oGamma2>() + 100) / gsc_fHundred,
              eZorEdidField_DisplayidParameters2GammaEotf, oBlock.OffsetOf<gsc_oGamma2>());
    }
    TakeLuminance<gsc_oMaxFull>(oColour.m_oMaxLuminance, oBlock, eZorEdidField_DisplayidParameters2MaxLuminanceFull);
    TakeLuminance<gsc_oMax10Percent>(oColour.m_oMaxLuminance10, oBlock,
                                     eZorEdidField_DisplayidParameters2MaxLuminance10Percent);
    TakeLuminance<gsc_oMin>(oColour.m_oMinLuminance, oBlock, eZorEdidField_DisplayidParameters2MinLuminance);
    const bool b1976 = oBlock.Get<gsc_oChromaticityIn1976>() != 0;
    OfferColours<gsc_uiPrimariesOffset>(oBlock, eSource_DisplayId2, eZorEdidField_DisplayidParameters2Primary1X, b1976);
    const CFacts::SPoint oWhite = ReadPoint<gsc_uiPrimariesOffset>(oBlock, 3, b1976);
    if (IsColour(oWhite))
    {
        Offer(CFacts::eQuestion_White, eSource_DisplayId2, oColour.m_oWhite, oWhite,
              eZorEdidField_DisplayidParameters2WhitePointX,
              oBlock.m_uiOffset + gsc_uiPrimariesOffset + 3 * gsc_uiCoordinatesSize);
    }
}

// Three primaries from byte OFFSET of the block on.
template <unsigned int OFFSET>
void CReader::OfferColours(const SBytes& oBlock, ESource eSource, EZorEdidField eId, bool b1976)
{
    const CFacts::SPrimaries oPrimaries = { ReadPoint<OFFSET>(oBlock, 0, b1976), ReadPoint<OFFSET>(oBlock, 1, b1976),
                                            ReadPoint<OFFSET>(oBlock, 2, b1976) };
    if (IsColour(oPrimaries.m_oRed) && IsColour(oPrimaries.m_oGreen) && IsColour(oPrimaries.m_oBlue))
    {
        Offer(CFacts::eQuestion_Primaries, eSource, m_oFacts.m_oColour.m_oPrimaries, oPrimaries, eId,
              oBlock.m_uiOffset + OFFSET);
    }
}

// With more than three primaries nothing says which is red. The first white point counts.
void CReader::ReadColour(const SBytes& oBlock)
{
    constexpr unsigned int uiFirst = 4;
    constexpr unsigned int uiThree = 3;
    if (!oBlock.Has<gsc_oWhitePointCount>() || oBlock.Get<gsc_oPrimaryCount>() != uiThree)
    {
        return;
    }
    const bool b1976 = oBlock.Get<gsc_oColourIn1976>() != 0;
    if (oBlock.m_uiSize >= uiFirst + uiThree * gsc_uiCoordinatesSize)
    {
        OfferColours<uiFirst>(oBlock, eSource_DisplayId1, eZorEdidField_DisplayidColorX, b1976);
    }
    if (oBlock.Get<gsc_oWhitePointCount>() == 0 || oBlock.m_uiSize < uiFirst + (uiThree + 1) * gsc_uiCoordinatesSize)
    {
        return;
    }
    const CFacts::SPoint oWhite = ReadPoint<uiFirst>(oBlock, uiThree, b1976);
    if (IsColour(oWhite))
    {
        Offer(CFacts::eQuestion_White, eSource_DisplayId1, m_oFacts.m_oColour.m_oWhite, oWhite,
              eZorEdidField_DisplayidColorX, oBlock.m_uiOffset + uiFirst + uiThree * gsc_uiCoordinatesSize);
    }
}

void CReader::ReadDevice(const SBytes& oBlock)
{
    CFacts::SSize& oSize = m_oFacts.m_oSize;
    if (!oBlock.Has<gsc_oSubPixelLayout>())
    {
        return;
    }
    constexpr unsigned int uiFirstProjection = 11;
    constexpr unsigned int uiLastProjection = 13;
    const unsigned int uiMode = oBlock.Get<gsc_oOperatingMode>();
    if (uiMode >= uiFirstProjection && uiMode <= uiLastProjection)
    {
        Offer(CFacts::eQuestion_Kind, eSource_DisplayId1, oSize.m_oKind, CFacts::eKind_Projector,
              eZorEdidField_DisplayidDeviceOperatingMode, oBlock.OffsetOf<gsc_oOperatingMode>());
    }
    const unsigned int uiWidth = oBlock.Get<gsc_oDeviceHorizontalPixels>();
    const unsigned int uiHeight = oBlock.Get<gsc_oDeviceVerticalPixels>();
    if (uiWidth != 0 && uiHeight != 0)
    {
        Offer(CFacts::eQuestion_Native, eSource_DisplayId1, oSize.m_oNative,
              CFacts::SPixels{ uiWidth + 1, uiHeight + 1 }, eZorEdidField_DisplayidDeviceHorizontalPixels,
              oBlock.OffsetOf<gsc_oDeviceHorizontalPixels>());
    }
    OfferPlace<gsc_oDefaultOrientation>(CFacts::eQuestion_Orientation, eSource_DisplayId1, oSize.m_oOrientation, oBlock,
                                        eZorEdidField_DisplayidDeviceDefaultOrientation);
    OfferPlace<gsc_oRotationCapability>(CFacts::eQuestion_Rotation, eSource_DisplayId1, oSize.m_oRotation, oBlock,
                                        eZorEdidField_DisplayidDeviceRotationCapability);
    OfferPlace<gsc_oSubPixelLayout>(CFacts::eQuestion_SubPixels, eSource_DisplayId1, oSize.m_oSubPixels, oBlock,
                                    eZorEdidField_DisplayidDeviceSubPixelLayout);
    constexpr unsigned int uiSquare = 100;
    Offer(CFacts::eQuestion_Aspect, eSource_DisplayId1, oSize.m_oAspect,
          oBlock.Get<gsc_oDeviceAspectRatio>() + uiSquare, eZorEdidField_DisplayidDeviceAspectRatio,
          oBlock.OffsetOf<gsc_oDeviceAspectRatio>());
}

void CReader::ReadTile(const SBytes& oBlock, ESource eSource)
{
    const SBytes oTile = oBlock.From(gsc_uiPayloadOffset);
    if (oTile.m_uiSize < gsc_uiTiledTopologySize)
    {
        return;
    }
    const auto fnShort = [](unsigned int uiValue) { return static_cast<unsigned short>(uiValue); };
    const CFacts::STile oValue = { fnShort(oTile.Get<gsc_oTileCountX>() + 1),
                                   fnShort(oTile.Get<gsc_oTileCountY>() + 1),
                                   fnShort(oTile.Get<gsc_oTileLocationX>()),
                                   fnShort(oTile.Get<gsc_oTileLocationY>()),
                                   oTile.Get<gsc_oTileWidth>() + 1,
                                   oTile.Get<gsc_oTileHeight>() + 1,
                                   oTile.Get<gsc_oSingleEnclosure>() != 0,
                                   static_cast<unsigned char>(oTile.Get<gsc_oMultiTileBehaviour>()),
                                   static_cast<unsigned char>(oTile.Get<gsc_oSingleTileBehaviour>()) };
    Offer(CFacts::eQuestion_Tile, eSource, m_oFacts.m_oSize.m_oTile, oValue, eZorEdidField_DisplayidTiled,
          oBlock.m_uiOffset);
}

// ---- Link ----

void CReader::ReadRange1(const SBytes& oBlock)
{
    constexpr unsigned int uiKiloHz = 10;
    CFacts::SLink& oLink = m_oFacts.m_oLink;
    if (!oBlock.Has<gsc_oRangeDiscrete>())
    {
        return;
    }
    Offer(CFacts::eQuestion_VerticalRates, eSource_DisplayId1, oLink.m_oVerticalRates,
          CFacts::SRange{ oBlock.Get<gsc_oRangeMinVerticalRate>(), oBlock.Get<gsc_oRangeMaxVerticalRate>() },
          eZorEdidField_DisplayidRangeMinVerticalRefreshRate, oBlock.OffsetOf<gsc_oRangeMinVerticalRate>());
    Offer(CFacts::eQuestion_HorizontalRates, eSource_DisplayId1, oLink.m_oHorizontalRates,
          CFacts::SRange{ oBlock.Get<gsc_oRangeMinHorizontalRate>(), oBlock.Get<gsc_oRangeMaxHorizontalRate>() },
          eZorEdidField_DisplayidRangeMinHorizontalFrequency, oBlock.OffsetOf<gsc_oRangeMinHorizontalRate>());
    Set(oLink.m_oMinPixelClock, (oBlock.Get<gsc_oRangeMinPixelClock>() + 1) * uiKiloHz,
        eZorEdidField_DisplayidRangeMinPixelClock, oBlock.OffsetOf<gsc_oRangeMinPixelClock>());
    Offer(CFacts::eQuestion_MaxPixelClock, eSource_DisplayId1, oLink.m_oMaxPixelClock,
          (oBlock.Get<gsc_oRangeMaxPixelClock>() + 1) * uiKiloHz, eZorEdidField_DisplayidRangeMaxPixelClock,
          oBlock.OffsetOf<gsc_oRangeMaxPixelClock>());
    Offer(CFacts::eQuestion_Continuous, eSource_DisplayId1, oLink.m_oContinuous, oBlock.Get<gsc_oRangeDiscrete>() == 0,
          eZorEdidField_DisplayidRangeDiscrete, oBlock.OffsetOf<gsc_oRangeDiscrete>());
    const unsigned int uiLeast = oBlock.Get<gsc_oRangeMinVerticalRate>();
    const unsigned int uiMost = oBlock.Get<gsc_oRangeMaxVerticalRate>();
    if (oBlock.Get<gsc_oRangeDiscrete>() == 0 && uiLeast != 0 && uiLeast < uiMost)
    {
        AddRange({ uiLeast, uiMost, CFacts::eRefreshSource_RangeLimits, false, false, false, 0, 0,
                   eZorEdidField_DisplayidRangeMinVerticalRefreshRate,
                   static_cast<unsigned short>(oBlock.OffsetOf<gsc_oRangeMinVerticalRate>()) });
    }
}

void CReader::ReadDynamicRange(const SBytes& oBlock)
{
    CFacts::SLink& oLink = m_oFacts.m_oLink;
    if (!oBlock.Has<gsc_oDynamicSeamless>())
    {
        return;
    }
    const bool bWide = gsc_oHeaderRevision.Read(oBlock.m_pui8Bytes) >= 1;
    const CFacts::SRange oRates = { oBlock.Get<gsc_oDynamicMinVerticalRate>(),
                                    bWide ? oBlock.Get<gsc_oDynamicWideMaxVerticalRate>()
                                          : oBlock.Get<gsc_oDynamicMaxVerticalRate>() };
    const unsigned int uiOffset = oBlock.OffsetOf<gsc_oDynamicMinVerticalRate>();
    Offer(CFacts::eQuestion_VerticalRates, eSource_DisplayId2, oLink.m_oVerticalRates, oRates,
          eZorEdidField_DisplayidRangeMinVerticalRefreshRate, uiOffset);
    Set(oLink.m_oMinPixelClock, oBlock.Get<gsc_oRangeMinPixelClock>() + 1, eZorEdidField_DisplayidRangeMinPixelClock,
        oBlock.OffsetOf<gsc_oRangeMinPixelClock>());
    Offer(CFacts::eQuestion_MaxPixelClock, eSource_DisplayId2, oLink.m_oMaxPixelClock,
          oBlock.Get<gsc_oRangeMaxPixelClock>() + 1, eZorEdidField_DisplayidRangeMaxPixelClock,
          oBlock.OffsetOf<gsc_oRangeMaxPixelClock>());
    if (oBlock.Get<gsc_oDynamicSeamless>() != 0)
    {
        AddRange({ oRates.m_uiLeast, oRates.m_uiMost, CFacts::eRefreshSource_DynamicRange, false, true, false, 0, 0,
                   eZorEdidField_DisplayidRangeMinVerticalRefreshRate, static_cast<unsigned short>(uiOffset) });
    }
}

void CReader::ReadInterface(const SBytes& oBlock)
{
    if (!oBlock.Has<gsc_oInterfaceRevision>())
    {
        return;
    }
    const unsigned int uiInterface = oBlock.Get<gsc_oInterfaceType>();
    if (uiInterface < std::size(gsc_aeLinks))
    {
        Offer(CFacts::eQuestion_Link, eSource_DisplayId1, m_oFacts.m_oLink.m_oKind, gsc_aeLinks[uiInterface],
              eZorEdidField_DisplayidInterfaceType, oBlock.OffsetOf<gsc_oInterfaceType>());
    }
    if (uiInterface != 0)
    {
        OfferPlace<gsc_oInterfaceLinks>(CFacts::eQuestion_Lanes, eSource_DisplayId1, m_oFacts.m_oLink.m_oLanes, oBlock,
                                        eZorEdidField_DisplayidInterfaceLinks);
    }
    ReadDepths(oBlock.From(gsc_uiDepthsOffset1), CFacts::eFormat_YCbCr422 + 1);
}

// From the byte of RGB 4:4:4 on.
void CReader::ReadDepths(const SBytes& oDepths, unsigned int uiFormats)
{
    constexpr EZorEdidField aeIds[] = { eZorEdidField_DisplayidInterfaceRgb444_16bpc,
                                        eZorEdidField_DisplayidInterfaceYcbcr444_16bpc,
                                        eZorEdidField_DisplayidInterfaceYcbcr422_16bpc,
                                        eZorEdidField_DisplayidInterfaceFeaturesYcbcr420_16bpc };
    constexpr unsigned int uiBits444 = 0x3F;
    constexpr unsigned int uiBits = 0x1F; // no 6 bits per colour
    for (unsigned int i = 0; i < uiFormats && i < oDepths.m_uiSize; ++i)
    {
        const bool b444 = i == CFacts::eFormat_Rgb || i == CFacts::eFormat_YCbCr444;
        const unsigned int uiByte = oDepths.m_pui8Bytes[i];
        const unsigned int uiMask = b444 ? uiByte & uiBits444 : (uiByte & uiBits) << 1;
        Set(m_oFacts.m_oColour.m_aoDepths[i], uiMask, aeIds[i], oDepths.m_uiOffset + i);
        if (uiMask != 0)
        {
            AddFormat(static_cast<CFacts::EFormat>(i), aeIds[i], oDepths.m_uiOffset + i);
        }
    }
}

void CReader::ReadFeatures(const SBytes& oBlock)
{
    using enum CFacts::ESpace;
    using enum CFacts::ETransfer;
    struct SFeature
    {
        SPlace m_oPlace;
        CFacts::ESpace m_eSpace;
        CFacts::ETransfer m_eTransfer;
        EZorEdidField m_eId;
    };
    static constexpr SFeature aoFeatures[] = {
        { gsc_oFeatureSrgb, eSpace_Srgb, eTransfer_Srgb, eZorEdidField_DisplayidInterfaceFeaturesSrgb },
        { gsc_oFeatureBt601, eSpace_Bt601, eTransfer_Bt601, eZorEdidField_DisplayidInterfaceFeaturesBt601 },
        { gsc_oFeatureBt709Bt1886, eSpace_Bt709, eTransfer_Bt1886,
          eZorEdidField_DisplayidInterfaceFeaturesBt709Bt1886 },
        { gsc_oFeatureAdobeRgb, eSpace_AdobeRgb, eTransfer_AdobeRgb, eZorEdidField_DisplayidInterfaceFeaturesAdobeRgb },
        { gsc_oFeatureDciP3, eSpace_DciP3, eTransfer_DciP3, eZorEdidField_DisplayidInterfaceFeaturesDciP3 },
        { gsc_oFeatureBt2020, eSpace_Bt2020, eTransfer_Bt2020, eZorEdidField_DisplayidInterfaceFeaturesBt2020 },
        { gsc_oFeatureBt2020St2084, eSpace_Bt2020, eTransfer_Pq, eZorEdidField_DisplayidInterfaceFeaturesBt2020St2084 },
    };
    if (!oBlock.Has<gsc_oFeatureCombinations>())
    {
        return;
    }
    ReadDepths(oBlock.From(gsc_uiDepthsOffset2), CFacts::eFormat_Count);
    if (oBlock.Get<gsc_oYCbCr420MinPixelRate>() != 0)
    {
        constexpr unsigned int uiKiloHz = 74250;
        Set(m_oFacts.m_oColour.m_oMin420PixelRate, oBlock.Get<gsc_oYCbCr420MinPixelRate>() * uiKiloHz,
            eZorEdidField_DisplayidInterfaceFeaturesYcbcr420MinPixelRate, oBlock.OffsetOf<gsc_oYCbCr420MinPixelRate>());
    }
    const unsigned int uiRates = FlagIf(oBlock.Get<gsc_oFeatureAudio32Khz>(), CFacts::eRate_32) |
                                 FlagIf(oBlock.Get<gsc_oFeatureAudio44_1Khz>(), CFacts::eRate_44_1) |
                                 FlagIf(oBlock.Get<gsc_oFeatureAudio48Khz>(), CFacts::eRate_48);
    Set(m_oFacts.m_oAudio.m_oDisplayIdRates, uiRates, eZorEdidField_DisplayidInterfaceFeaturesAudio32Khz,
        oBlock.OffsetOf<gsc_oFeatureAudio32Khz>());
    if (uiRates != 0)
    {
        Offer(CFacts::eQuestion_Audio, eSource_DisplayId2, m_oFacts.m_oAudio.m_oAudio, true,
              eZorEdidField_DisplayidInterfaceFeaturesAudio32Khz, oBlock.OffsetOf<gsc_oFeatureAudio32Khz>());
    }
    for (const SFeature& oFeature : aoFeatures)
    {
        if (oFeature.m_oPlace.IsSet(oBlock.m_pui8Bytes))
        {
            AddSpace(oFeature.m_eSpace, oFeature.m_eTransfer, oFeature.m_eId,
                     oBlock.m_uiOffset + oFeature.m_oPlace.GetFirst());
        }
    }
    const SBytes oPairs = oBlock.From(gsc_uiCombinationsOffset);
    const unsigned int uiPairs = std::min(oBlock.Get<gsc_oFeatureCombinations>(), oPairs.m_uiSize);
    for (unsigned int i = 0; i < uiPairs; ++i)
    {
        const unsigned char* pui8Pair = oPairs.m_pui8Bytes + i;
        AddSpace(static_cast<CFacts::ESpace>(gsc_oCombinationSpace.Read(pui8Pair)),
                 static_cast<CFacts::ETransfer>(gsc_oCombinationEotf.Read(pui8Pair)),
                 eZorEdidField_DisplayidInterfaceFeaturesCombination, oPairs.m_uiOffset + i);
    }
}

void CReader::ReadAdaptiveSync(const SBytes& oBlock)
{
    if (!oBlock.Has<gsc_oHeaderFlags>())
    {
        return;
    }
    const unsigned int uiSize = gsc_uiAdaptiveSize + oBlock.Get<gsc_oAdaptiveExtraBytes>();
    for (SBytes oItem = oBlock.From(gsc_uiPayloadOffset); oItem.m_uiSize >= uiSize; oItem = oItem.From(uiSize))
    {
        AddRange({ oItem.Get<gsc_oAdaptiveMinRate>(), oItem.Get<gsc_oAdaptiveMaxRate>() + 1,
                   CFacts::eRefreshSource_AdaptiveSync, oItem.Get<gsc_oAdaptiveNative>() != 0,
                   oItem.Get<gsc_oAdaptiveNotSeamless>() == 0, oItem.Get<gsc_oAdaptiveMode>() == 1,
                   static_cast<unsigned char>(oItem.Get<gsc_oAdaptiveMaxIncrease>()),
                   static_cast<unsigned char>(oItem.Get<gsc_oAdaptiveMaxDecrease>()),
                   eZorEdidField_DisplayidAdaptiveSyncMinRefreshRate,
                   static_cast<unsigned short>(oItem.OffsetOf<gsc_oAdaptiveMinRate>()) });
    }
}

void CReader::ReadVesaVendor(const SBytes& oBlock)
{
    constexpr unsigned char aui8Streams[] = { 0, 2, 4, 0 };
    CFacts::SLink& oLink = m_oFacts.m_oLink;
    if (oBlock.Or0<gsc_oVendorOui>() != gsc_uiOuiVesa || oBlock.m_uiSize < gsc_uiPayloadOffset + gsc_uiVesaSize)
    {
        return;
    }
    Set(oLink.m_oMsoStreams, aui8Streams[oBlock.Get<gsc_oMultiSstOperation>()],
        eZorEdidField_DisplayidVendorMultiSstOperation, oBlock.OffsetOf<gsc_oMultiSstOperation>());
    Take<gsc_oPanelOverlap>(oLink.m_oMsoOverlap, oBlock, eZorEdidField_DisplayidVendorOverlap);
}

void CReader::ReadBrightness(const SBytes& oBlock)
{
    CFacts::SColour& oColour = m_oFacts.m_oColour;
    TakeLuminance<gsc_oMinSdr>(oColour.m_oMinSdrLuminance, oBlock, eZorEdidField_DisplayidBrightnessMinSdrLuminance);
    TakeLuminance<gsc_oMaxSdr>(oColour.m_oMaxSdrLuminance, oBlock, eZorEdidField_DisplayidBrightnessMaxSdrLuminance);
    TakeLuminance<gsc_oMaxBoost>(oColour.m_oMaxBoostLuminance, oBlock,
                                 eZorEdidField_DisplayidBrightnessMaxBoostLuminance);
}
} // namespace ZorFacts
