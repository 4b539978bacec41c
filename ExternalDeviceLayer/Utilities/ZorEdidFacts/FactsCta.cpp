// What data blocks of CTA-861 say, those of HDMI, the HDMI Forum and makers too: CTA-861-H, HDMI 1.4b, HDMI 2.1.

#include <algorithm>
#include <iterator>

#include "FactsReader.h"
#include "Standards/AudioBlocks.h"
#include "Standards/ColourBlocks.h"
#include "Standards/CtaBlocks.h"
#include "Standards/HdmiBlocks.h"
#include "Standards/Ouis.h"
#include "Standards/VendorBlocks.h"

namespace ZorFacts
{
namespace
{
constexpr unsigned int gsc_uiKiloHzPerTmdsUnit = Hdmi::gsc_uiMegaHzPerTmdsUnit * 1000;
constexpr float gsc_fMillion = 1e6F;
constexpr unsigned int gsc_uiExtendedHeader = Cta::gsc_uiHeaderSize + 1; // with the extended tag

// The flags of the public header are bits of the standards' bytes.
static_assert(FlagOf(Colour::gsc_oBt2020Rgb) == CFacts::eColorimetry_Bt2020Rgb &&
              FlagOf(Colour::gsc_oBt2020Ycc) == CFacts::eColorimetry_Bt2020Ycc &&
              FlagOf(Colour::gsc_oBt2020CYcc) == CFacts::eColorimetry_Bt2020CYcc &&
              FlagOf(Colour::gsc_oOpRgb) == CFacts::eColorimetry_OpRgb &&
              FlagOf(Colour::gsc_oOpYcc601) == CFacts::eColorimetry_OpYcc601 &&
              FlagOf(Colour::gsc_oSYcc601) == CFacts::eColorimetry_SYcc601 &&
              FlagOf(Colour::gsc_oXvYcc709) == CFacts::eColorimetry_XvYcc709 &&
              FlagOf(Colour::gsc_oXvYcc601) == CFacts::eColorimetry_XvYcc601 &&
              FlagOf(Colour::gsc_oSt2113Rgb) == CFacts::eColorimetry_St2113Rgb &&
              FlagOf(Colour::gsc_oICtCp) == CFacts::eColorimetry_ICtCp &&
              FlagOf(Colour::gsc_oSrgb) == CFacts::eColorimetry_Srgb &&
              FlagOf(Colour::gsc_oDefaultRgb) == CFacts::eColorimetry_DefaultRgb &&
              FlagOf(Colour::gsc_oGamutMetadataP0) == CFacts::eColorimetry_GamutP0);
static_assert(FlagOf(Colour::gsc_oGammaSdr) == CFacts::eEotf_Sdr &&
              FlagOf(Colour::gsc_oGammaHdr) == CFacts::eEotf_HdrGamma &&
              FlagOf(Colour::gsc_oSt2084) == CFacts::eEotf_Pq && FlagOf(Colour::gsc_oHlg) == CFacts::eEotf_Hlg);
static_assert(FlagOf(Hdmi::gsc_oCnc0) == 1ULL * CFacts::eContentType_Graphics << 4 * gsc_uiBits);
static_assert(Audio::gsc_o32Khz.m_aoPieces[0].m_ui8Low == 0 && Audio::gsc_o192Khz.m_aoPieces[0].m_ui8Low == 6 &&
              Audio::gsc_o16Bit.m_aoPieces[0].m_ui8Low == 0);
static_assert(FlagOf(Audio::gsc_oFlFr) == CFacts::eSpeaker_FlFr && FlagOf(Audio::gsc_oLsRs) == CFacts::eSpeaker_LsRs &&
              FlagOf(Audio::gsc_oTpFlTpFr) == CFacts::eSpeaker_TpFlTpFr &&
              FlagOf(Audio::gsc_oTpBlTpBr) == CFacts::eSpeaker_TpBlTpBr &&
              FlagOf(Audio::gsc_oTpLsTpRs) == CFacts::eSpeaker_TpLsTpRs);

// The places of bytes that are taken whole.
constexpr SPlace gsc_oColorimetryBytes = Little16(0);
constexpr SPlace gsc_oEotfBits = Bits(0, 5, 0);
constexpr SPlace gsc_oMetadataBits = Byte(1);
constexpr SPlace gsc_oRateBits = Bits(1, 6, 0);
constexpr SPlace gsc_oSizeBits = Bits(2, 2, 0);
constexpr SPlace gsc_oSpeakerBytes = Little24(0);
} // namespace

// ---- The block and its data blocks ----

void CReader::VisitCta(const SPart& oPart)
{
    using namespace Cta;
    const SBytes oBlock = oPart;
    if (oBlock.m_uiSize < gsc_uiDataBlocksOffset)
    {
        return;
    }
    const unsigned char* pui8Block = oBlock.m_pui8Bytes;
    const unsigned int uiRevision = pui8Block[gsc_uiRevisionOffset];
    Set(m_oFacts.m_oLink.m_oCtaRevision, uiRevision, eZorEdidField_CtaRevision,
        oBlock.m_uiOffset + gsc_uiRevisionOffset);
    if (uiRevision < gsc_uiNativeCountRevision)
    {
        return;
    }
    Take<gsc_oUnderscan>(m_oFacts.m_oSize.m_oUnderscan, oBlock, eZorEdidField_CtaUnderscan);
    Take<gsc_oBasicAudio>(m_oFacts.m_oAudio.m_oBasic, oBlock, eZorEdidField_CtaBasicAudio);
    OfferPlace<gsc_oBasicAudio>(CFacts::eQuestion_Audio, eSource_Cta, m_oFacts.m_oAudio.m_oAudio, oBlock,
                                eZorEdidField_CtaBasicAudio);
    if (gsc_oYCbCr444.IsSet(pui8Block))
    {
        AddFormat(CFacts::eFormat_YCbCr444, eZorEdidField_CtaYcbcr444, oBlock.OffsetOf<gsc_oYCbCr444>());
    }
    if (gsc_oYCbCr422.IsSet(pui8Block))
    {
        AddFormat(CFacts::eFormat_YCbCr422, eZorEdidField_CtaYcbcr422, oBlock.OffsetOf<gsc_oYCbCr422>());
    }
}

void CReader::VisitCtaData(unsigned int uiTag, const SPart& oPayload)
{
    switch (uiTag)
    {
    case Cta::gsc_uiAudioTag:
        ReadAudio(oPayload);
        break;
    case Cta::gsc_uiVendorTag:
        ReadVendor(oPayload);
        break;
    case Cta::gsc_uiSpeakersTag:
        TakeAll<gsc_oSpeakerBytes>(m_oFacts.m_oAudio.m_oSpeakers, oPayload, eZorEdidField_CtaSpeakers,
                                   Cta::gsc_uiHeaderSize);
        break;
    default:
        if (uiTag >= gsc_uiExtended)
        {
            ReadExtended(uiTag - gsc_uiExtended, oPayload);
        }
        break;
    }
}

void CReader::ReadExtended(unsigned int uiTag, const SBytes& oPayload)
{
    switch (uiTag)
    {
    case Cta::gsc_uiExtendedVideoCapability:
        ReadVideoCapability(oPayload);
        break;
    case Cta::gsc_uiExtendedVendorVideo:
        ReadVendorVideo(oPayload);
        break;
    case Cta::gsc_uiExtendedDisplayDevice:
        ReadDisplayDevice(oPayload);
        break;
    case Cta::gsc_uiExtendedColorimetry:
        TakeAll<gsc_oColorimetryBytes>(m_oFacts.m_oColour.m_oColorimetry, oPayload, eZorEdidField_CtaColorimetry,
                                       gsc_uiExtendedHeader);
        break;
    case Cta::gsc_uiExtendedStaticHdr:
        ReadStaticHdr(oPayload);
        break;
    case Cta::gsc_uiExtendedDynamicHdr:
        ReadDynamicHdr(oPayload);
        break;
    case Cta::gsc_uiExtendedNative:
        ReadNativeResolution(oPayload);
        break;
    case Cta::gsc_uiExtended420Video:
    case Cta::gsc_uiExtended420Map:
        Read420(uiTag, oPayload);
        break;
    case Cta::gsc_uiExtendedHdmiAudio:
        ReadHdmiAudio(oPayload);
        break;
    case Cta::gsc_uiExtendedHdmiSink:
        ReadHdmiForum(oPayload.From(HdmiForum::gsc_uiSinkSkip));
        break;
    case Cta::gsc_uiExtendedToneMapping:
        Take<HdmiForum::gsc_oToneMappingVersion>(m_oFacts.m_oColour.m_oToneMapping, oPayload,
                                                 eZorEdidField_CtaToneMappingVersion);
        break;
    default:
        break;
    }
}

void CReader::ReadVendor(const SBytes& oPayload)
{
    if (!oPayload.Has<Cta::gsc_oOui>())
    {
        return;
    }
    const SBytes oContents = oPayload.From(Cta::gsc_uiOuiSize);
    switch (oPayload.Get<Cta::gsc_oOui>())
    {
    case gsc_uiOuiHdmi:
        ReadHdmi(oContents);
        break;
    case gsc_uiOuiHdmiForum:
        ReadHdmiForum(oContents);
        break;
    case gsc_uiOuiAmd:
        ReadAmd(oContents);
        break;
    case gsc_uiOuiMicrosoft:
        ReadMicrosoft(oContents);
        break;
    case gsc_uiOuiNvidia:
        Set(m_oFacts.m_oLink.m_oNvidia, true, eZorEdidField_CtaVendor, oPayload.m_uiOffset - Cta::gsc_uiHeaderSize);
        break;
    default:
        break;
    }
}

void CReader::ReadVendorVideo(const SBytes& oPayload)
{
    using namespace Colour;
    const SBytes oContents = oPayload.From(Cta::gsc_uiOuiSize);
    const unsigned int uiOui = oPayload.Or0<Cta::gsc_oOui>();
    if (uiOui == gsc_uiOuiDolby)
    {
        ReadDolbyVision(oContents);
    }
    else if (uiOui == gsc_uiOuiHdr10Plus && oContents.Has<gsc_oHdr10PlusVersion>())
    {
        const auto fnByte = [](unsigned int uiValue) { return static_cast<unsigned char>(uiValue); };
        Set(m_oFacts.m_oColour.m_oHdr10Plus,
            CFacts::SHdr10Plus{ fnByte(oContents.Get<gsc_oHdr10PlusVersion>()),
                                fnByte(oContents.Get<gsc_oHdr10PlusPeak>()),
                                fnByte(oContents.Get<gsc_oHdr10PlusFullFramePeak>()) },
            eZorEdidField_CtaHdr10PlusApplicationVersion, oContents.OffsetOf<gsc_oHdr10PlusVersion>());
    }
}

// ---- Audio ----

void CReader::ReadAudio(const SBytes& oPayload)
{
    using namespace Audio;
    CFacts::SAudio& oAudio = m_oFacts.m_oAudio;
    for (SBytes oItem = oPayload; oItem.m_uiSize >= gsc_uiDescriptorSize; oItem = oItem.From(gsc_uiDescriptorSize))
    {
        const unsigned int uiFormat = oItem.Get<gsc_oFormat>();
        if (uiFormat == 0)
        {
            continue;
        }
        if (oAudio.m_uiFormats < CFacts::msc_uiMostFormats)
        {
            const unsigned char* pui8Item = oItem.m_pui8Bytes;
            const unsigned int uiExtended = uiFormat == gsc_uiExtendedFormat ? oItem.Get<gsc_oExtendedFormat>() : 0;
            const unsigned int uiChannels = uiExtended == gsc_uiPcm3d           ? oItem.Get<gsc_oPcm3dChannels>() + 1
                                            : HasChannels(uiFormat, uiExtended) ? oItem.Get<gsc_oChannels>() + 1
                                                                                : 0;
            const bool bPcm = uiFormat == gsc_uiPcm || uiExtended == gsc_uiPcm3d;
            CFacts::SAudioFormat& oFormat = oAudio.m_aoFormats[oAudio.m_uiFormats];
            oFormat.m_ui8Format = static_cast<unsigned char>(uiFormat);
            oFormat.m_ui8Extended = static_cast<unsigned char>(uiExtended);
            oFormat.m_ui8Channels = static_cast<unsigned char>(uiChannels);
            oFormat.m_ui8Rates = static_cast<unsigned char>(gsc_oRateBits.Read(pui8Item));
            oFormat.m_ui8Sizes = static_cast<unsigned char>(bPcm ? gsc_oSizeBits.Read(pui8Item) : 0);
            oFormat.m_ui8Byte = pui8Item[2];
            oFormat.m_ui16BitRate = static_cast<unsigned short>(
                HasBitRate(uiFormat) ? oItem.Get<gsc_oMaxBitRate>() * gsc_uiKiloBitsPerStep : 0);
            oFormat.m_eId = eZorEdidField_CtaAudioDescriptor;
            oFormat.m_ui16Offset = static_cast<unsigned short>(oItem.m_uiOffset);
        }
        ++oAudio.m_uiFormats;
    }
}

void CReader::ReadHdmiAudio(const SBytes& oPayload)
{
    using namespace Audio;
    CFacts::SAudio& oAudio = m_oFacts.m_oAudio;
    if (oPayload.Has<gsc_oMultiStreamCount>())
    {
        const unsigned int uiStreams = oPayload.Get<gsc_oMultiStreamCount>();
        Set(oAudio.m_oStreams, uiStreams != 0 ? uiStreams + 1 : 0, eZorEdidField_CtaHdmiAudioMaxStreamCount,
            oPayload.OffsetOf<gsc_oMultiStreamCount>());
    }
    unsigned int uiLeft = oPayload.Or0<gsc_o3dDescriptors>();
    for (SBytes oItem = oPayload.From(gsc_uiHdmiHeadSize); uiLeft != 0 && oItem.m_uiSize >= gsc_uiHdmiDescriptorSize;
         oItem = oItem.From(gsc_uiHdmiDescriptorSize), --uiLeft)
    {
        if (oAudio.m_uiFormats < CFacts::msc_uiMostFormats)
        {
            const unsigned char* pui8Item = oItem.m_pui8Bytes;
            CFacts::SAudioFormat& oFormat = oAudio.m_aoFormats[oAudio.m_uiFormats];
            const unsigned int uiFormat = oItem.Get<gsc_o3dFormat>();
            oFormat.m_ui8Format = static_cast<unsigned char>(uiFormat);
            oFormat.m_ui8Channels = static_cast<unsigned char>(oItem.Get<gsc_o3dDescriptorChannels>() + 1);
            oFormat.m_ui8Rates = static_cast<unsigned char>(gsc_oRateBits.Read(pui8Item + 1));
            oFormat.m_ui8Sizes =
                static_cast<unsigned char>(uiFormat == gsc_uiPcm ? gsc_oSizeBits.Read(pui8Item + 1) : 0);
            oFormat.m_ui8Byte = pui8Item[3];
            oFormat.m_bHdmi3d = true;
            oFormat.m_eId = eZorEdidField_CtaHdmiAudioDescriptor;
            oFormat.m_ui16Offset = static_cast<unsigned short>(oItem.m_uiOffset);
        }
        ++oAudio.m_uiFormats;
    }
}

// ---- HDMI ----

namespace
{
// Milliseconds; false for what is not indicated, or reserved.
bool ReadLatency(unsigned int uiCode, int& iLatency)
{
    constexpr unsigned int uiNotSupported = 255;
    const bool bNumber = uiCode != Hdmi::gsc_uiLatencyNotIndicated && uiCode <= Hdmi::gsc_uiMostLatencyCode;
    iLatency = bNumber ? static_cast<int>(Hdmi::GetLatencyInMs(uiCode)) : CFacts::msc_iNotSupported;
    return bNumber || uiCode == uiNotSupported;
}

template <const SPlace& PLACE>
void TakeLatency(SZorFact<int>& oFact, const SBytes& oHdmi, EZorEdidField eId)
{
    int iLatency = 0;
    if (!oFact.IsSaid() && oHdmi.Has<PLACE>() && ReadLatency(oHdmi.Get<PLACE>(), iLatency))
    {
        oFact = { iLatency, eId, static_cast<unsigned short>(oHdmi.OffsetOf<PLACE>()) };
    }
}
} // namespace

void CReader::ReadHdmi(const SBytes& oHdmi)
{
    using namespace Hdmi;
    CFacts::SLink& oLink = m_oFacts.m_oLink;
    CFacts::SColour& oColour = m_oFacts.m_oColour;
    if (!oHdmi.Has<gsc_oPhysicalAddress>())
    {
        return;
    }
    const unsigned int uiBlock = oHdmi.m_uiOffset - Cta::gsc_uiOuiSize - Cta::gsc_uiHeaderSize;
    Set(oLink.m_oHdmi, true, eZorEdidField_CtaHdmi, uiBlock);
    SetHdmiVersion(10, eZorEdidField_CtaHdmi, uiBlock);
    Take<gsc_oPhysicalAddress>(oLink.m_oPhysicalAddress, oHdmi, eZorEdidField_CtaHdmiPhysicalAddress);
    Take<gsc_oSupportsAi>(oLink.m_oSupportsAi, oHdmi, eZorEdidField_CtaHdmiSupportsAi);
    Take<gsc_oDualLinkDvi>(oLink.m_oDviDual, oHdmi, eZorEdidField_CtaHdmiDviDual);
    if (oHdmi.Has<gsc_oDeepColour30>())
    {
        const unsigned int uiDeep = FlagIf(oHdmi.Get<gsc_oDeepColour30>(), CFacts::eDepth_10) |
                                    FlagIf(oHdmi.Get<gsc_oDeepColour36>(), CFacts::eDepth_12) |
                                    FlagIf(oHdmi.Get<gsc_oDeepColour48>(), CFacts::eDepth_16);
        Set(oColour.m_oHdmiDeep, uiDeep, eZorEdidField_CtaHdmiDc30bit, oHdmi.OffsetOf<gsc_oDeepColour30>());
        Take<gsc_oDeepColourY444>(oColour.m_oHdmiDeep444, oHdmi, eZorEdidField_CtaHdmiDcY444);
        if (uiDeep != 0)
        {
            SetHdmiVersion(13, eZorEdidField_CtaHdmiDc30bit, oHdmi.OffsetOf<gsc_oDeepColour30>());
        }
    }
    if (const unsigned int uiClock = oHdmi.Or0<gsc_oMaxTmdsClock>())
    {
        RaiseMaxTmds(uiClock * gsc_uiKiloHzPerTmdsUnit, eZorEdidField_CtaHdmiMaxTmdsClock,
                     oHdmi.OffsetOf<gsc_oMaxTmdsClock>());
        constexpr unsigned int uiMostBefore13 = 165 / 5;
        SetHdmiVersion(uiClock > uiMostBefore13 ? 13 : 10, eZorEdidField_CtaHdmiMaxTmdsClock,
                       oHdmi.OffsetOf<gsc_oMaxTmdsClock>());
    }
    if (!oHdmi.Has<gsc_oContentTypes>())
    {
        return;
    }
    Take<gsc_oContentTypes>(oLink.m_oContentTypes, oHdmi, eZorEdidField_CtaHdmiCnc0);
    const CRecordBytes oRecord = { oHdmi.m_pui8Bytes, oHdmi.m_uiSize };
    CFacts::SAudio& oAudio = m_oFacts.m_oAudio;
    if (HasLatency(oRecord))
    {
        TakeLatency<gsc_oVideoLatency>(oAudio.m_oVideoLatency, oHdmi, eZorEdidField_CtaHdmiVideoLatency);
        TakeLatency<gsc_oAudioLatency>(oAudio.m_oAudioLatency, oHdmi, eZorEdidField_CtaHdmiAudioLatency);
        SetHdmiVersion(13, eZorEdidField_CtaHdmiLatencyFieldsPresent, oHdmi.OffsetOf<gsc_oLatencyPresent>());
    }
    if (HasInterlacedLatency(oRecord))
    {
        TakeLatency<gsc_oInterlacedVideoLatency>(oAudio.m_oInterlacedVideoLatency, oHdmi,
                                                 eZorEdidField_CtaHdmiInterlacedVideoLatency);
        TakeLatency<gsc_oInterlacedAudioLatency>(oAudio.m_oInterlacedAudioLatency, oHdmi,
                                                 eZorEdidField_CtaHdmiInterlacedAudioLatency);
    }
    if (oHdmi.Get<gsc_oContentTypes>() != 0 || oHdmi.Get<gsc_oVideoPresent>() != 0)
    {
        SetHdmiVersion(14, eZorEdidField_CtaHdmiVideoPresent, oHdmi.OffsetOf<gsc_oVideoPresent>());
    }
    if (oHdmi.Get<gsc_oVideoPresent>() != 0)
    {
        const SBytes oVideo = oHdmi.From(GetVideoOffset(oRecord));
        if (oVideo.m_uiSize >= gsc_uiVideoSize)
        {
            Take<gsc_oImageSize>(m_oFacts.m_oSize.m_oImageSize, oVideo, eZorEdidField_CtaHdmiImageSize);
        }
    }
}

void CReader::ReadHdmiForum(const SBytes& oSink)
{
    using namespace HdmiForum;
    CFacts::SLink& oLink = m_oFacts.m_oLink;
    if (!oSink.Has<gsc_oMaxFrlRate>())
    {
        return;
    }
    const auto fnProve21 = [&](EZorEdidField eId, unsigned int uiOffset) { SetHdmiVersion(21, eId, uiOffset); };
    SetHdmiVersion(20, eZorEdidField_CtaHdmiForumVersion, oSink.OffsetOf<gsc_oVersion>());
    RaiseMaxTmds(oSink.Get<gsc_oMaxTmdsCharacterRate>() * gsc_uiKiloHzPerTmdsUnit,
                 eZorEdidField_CtaHdmiForumMaxTmdsCharacterRate, oSink.OffsetOf<gsc_oMaxTmdsCharacterRate>());
    Take<gsc_oScdcPresent>(oLink.m_oScdc, oSink, eZorEdidField_CtaHdmiForumScdcPresent);
    Take<gsc_oRrCapable>(oLink.m_oReadRequest, oSink, eZorEdidField_CtaHdmiForumRrCapable);
    Take<gsc_oCableStatus>(oLink.m_oCableStatus, oSink, eZorEdidField_CtaHdmiForumCableStatus);
    Take<gsc_oCcbpci>(oLink.m_oCcbpci, oSink, eZorEdidField_CtaHdmiForumCcbpci);
    Take<gsc_oLte340mcscScramble>(oLink.m_oScrambleLow, oSink, eZorEdidField_CtaHdmiForumLte340mcscScramble);
    Take<gsc_oIndependentView>(oLink.m_oIndependentView, oSink, eZorEdidField_CtaHdmiForumIndependentView);
    Take<gsc_oDualView>(oLink.m_oDualView, oSink, eZorEdidField_CtaHdmiForumDualView);
    Take<gsc_o3dOsdDisparity>(oLink.m_o3dOsdDisparity, oSink, eZorEdidField_CtaHdmiForum3dOsdDisparity);
    Take<gsc_oUhdVic>(oLink.m_oUhdVic, oSink, eZorEdidField_CtaHdmiForumUhdVic);
    const unsigned int uiDeep = FlagIf(oSink.Get<gsc_oDc30bit420>(), CFacts::eDepth_10) |
                                FlagIf(oSink.Get<gsc_oDc36bit420>(), CFacts::eDepth_12) |
                                FlagIf(oSink.Get<gsc_oDc48bit420>(), CFacts::eDepth_16);
    Set(m_oFacts.m_oColour.m_oHdmiDeep420, uiDeep, eZorEdidField_CtaHdmiForumDc30bit420,
        oSink.OffsetOf<gsc_oDc30bit420>());
    const unsigned int uiFrl = oSink.Get<gsc_oMaxFrlRate>();
    if (uiFrl < std::size(gsc_aoFrlRates))
    {
        Set(oLink.m_oFrl, CFacts::SFrl{ gsc_aoFrlRates[uiFrl].m_ui8Lanes, gsc_aoFrlRates[uiFrl].m_ui8Gbps },
            eZorEdidField_CtaHdmiForumMaxFrlRate, oSink.OffsetOf<gsc_oMaxFrlRate>());
    }
    if (uiFrl != 0)
    {
        fnProve21(eZorEdidField_CtaHdmiForumMaxFrlRate, oSink.OffsetOf<gsc_oMaxFrlRate>());
    }
    Take<gsc_oFapaEndExtended>(oLink.m_oFapaEnd, oSink, eZorEdidField_CtaHdmiForumFapaEndExtended);
    Take<gsc_oQms>(oLink.m_oQms, oSink, eZorEdidField_CtaHdmiForumQms);
    Take<gsc_oMDelta>(oLink.m_oMDelta, oSink, eZorEdidField_CtaHdmiForumMDelta);
    Take<gsc_oCinemaVrr>(oLink.m_oCinemaVrr, oSink, eZorEdidField_CtaHdmiForumCinemaVrr);
    Take<gsc_oCnmVrr>(oLink.m_oNegativeMVrr, oSink, eZorEdidField_CtaHdmiForumCnmvrr);
    Take<gsc_oFva>(oLink.m_oFastVactive, oSink, eZorEdidField_CtaHdmiForumFva);
    Take<gsc_oAllm>(oLink.m_oAllm, oSink, eZorEdidField_CtaHdmiForumAllm);
    Take<gsc_oFapaStartLocation>(oLink.m_oFapaStart, oSink, eZorEdidField_CtaHdmiForumFapaStartLocation);
    constexpr SPlace oFeatures = Byte(gsc_oAllm.GetFirst());
    if (oSink.m_uiSize >= oFeatures.GetEnd() && oFeatures.IsSet(oSink.m_pui8Bytes))
    {
        fnProve21(eZorEdidField_CtaHdmiForumAllm, oSink.OffsetOf<gsc_oAllm>());
    }
    if (oSink.Has<gsc_oVrrMax>() && oSink.Get<gsc_oVrrMin>() != 0)
    {
        AddRange({ oSink.Get<gsc_oVrrMin>(), oSink.Get<gsc_oVrrMax>(), CFacts::eRefreshSource_HdmiForum, false, false,
                   false, 0, 0, eZorEdidField_CtaHdmiForumVrrMin,
                   static_cast<unsigned short>(oSink.OffsetOf<gsc_oVrrMin>()) });
        fnProve21(eZorEdidField_CtaHdmiForumVrrMin, oSink.OffsetOf<gsc_oVrrMin>());
    }
    ReadDsc(oSink);
}

void CReader::ReadDsc(const SBytes& oSink)
{
    using namespace HdmiForum;
    CFacts::SLink& oLink = m_oFacts.m_oLink;
    Take<gsc_oDsc1p2>(oLink.m_oDsc, oSink, eZorEdidField_CtaHdmiForumDsc1p2);
    Take<gsc_oQmsTfrMin>(oLink.m_oQmsMin, oSink, eZorEdidField_CtaHdmiForumQmsTfrMin);
    Take<gsc_oQmsTfrMax>(oLink.m_oQmsMax, oSink, eZorEdidField_CtaHdmiForumQmsTfrMax);
    if (!oSink.Has<gsc_oDsc1p2>() || oSink.Get<gsc_oDsc1p2>() == 0)
    {
        return;
    }
    SetHdmiVersion(21, eZorEdidField_CtaHdmiForumDsc1p2, oSink.OffsetOf<gsc_oDsc1p2>());
    Take<gsc_oDscNative420>(oLink.m_oDscNative420, oSink, eZorEdidField_CtaHdmiForumDscNative420);
    Take<gsc_oDscAllBpp>(oLink.m_oDscAllBpp, oSink, eZorEdidField_CtaHdmiForumDscAllBpp);
    const unsigned int uiDepth = oSink.Get<gsc_oDsc16bpc>() != 0   ? 16
                                 : oSink.Get<gsc_oDsc12bpc>() != 0 ? 12
                                 : oSink.Get<gsc_oDsc10bpc>() != 0 ? 10
                                                                   : 8;
    Set(oLink.m_oDscDepth, uiDepth, eZorEdidField_CtaHdmiForumDsc10bpc, oSink.OffsetOf<gsc_oDsc10bpc>());
    const unsigned int uiFrl = oSink.Or0<gsc_oDscMaxFrlRate>();
    if (oSink.Has<gsc_oDscMaxFrlRate>() && uiFrl < std::size(gsc_aoFrlRates))
    {
        Set(oLink.m_oDscFrl, CFacts::SFrl{ gsc_aoFrlRates[uiFrl].m_ui8Lanes, gsc_aoFrlRates[uiFrl].m_ui8Gbps },
            eZorEdidField_CtaHdmiForumDscMaxFrlRate, oSink.OffsetOf<gsc_oDscMaxFrlRate>());
    }
    const unsigned int uiSlices = oSink.Or0<gsc_oDscMaxSlices>();
    if (oSink.Has<gsc_oDscMaxSlices>() && uiSlices < std::size(gsc_aoDscSlices))
    {
        Set(oLink.m_oDscSlices,
            CFacts::SSlices{ gsc_aoDscSlices[uiSlices].m_ui8Most, gsc_aoDscSlices[uiSlices].m_ui16MegaHz },
            eZorEdidField_CtaHdmiForumDscMaxSlices, oSink.OffsetOf<gsc_oDscMaxSlices>());
    }
    if (oSink.Has<gsc_oDscTotalChunkKbytes>())
    {
        constexpr unsigned int uiKilo = 1024;
        Set(oLink.m_oDscChunk, uiKilo * (oSink.Get<gsc_oDscTotalChunkKbytes>() + 1),
            eZorEdidField_CtaHdmiForumDscTotalChunkKbytes, oSink.OffsetOf<gsc_oDscTotalChunkKbytes>());
    }
}

// ---- Makers ----

void CReader::ReadAmd(const SBytes& oAmd)
{
    using namespace Amd;
    if (!oAmd.Has<gsc_oMaxRefreshRate>())
    {
        return;
    }
    const unsigned int uiVersion = oAmd.Get<gsc_oVersion>();
    const bool bWide = uiVersion >= gsc_uiVersionWithWideRate && oAmd.m_uiSize >= gsc_uiWideSize;
    AddRange({ oAmd.Get<gsc_oMinRefreshRate>(),
               bWide ? oAmd.Get<gsc_oWideMaxRefreshRate>() : oAmd.Get<gsc_oMaxRefreshRate>(),
               CFacts::eRefreshSource_Amd, false, false, false, 0, 0, eZorEdidField_CtaAmdMinRefreshRate,
               static_cast<unsigned short>(oAmd.OffsetOf<gsc_oMinRefreshRate>()) });
    if (uiVersion >= gsc_uiVersionWithHdr && oAmd.m_uiSize >= gsc_uiHdrSize && oAmd.Get<gsc_oLuminancesValid>() != 0)
    {
        const unsigned int uiMaximum = oAmd.Get<gsc_oMaxLuminance>();
        Set(m_oFacts.m_oColour.m_oAmdMaxLuminance,
            static_cast<float>(Colour::LuminanceOfCode(uiMaximum)) / gsc_fMillion, eZorEdidField_CtaAmdMaxLuminance,
            oAmd.OffsetOf<gsc_oMaxLuminance>());
        Set(m_oFacts.m_oColour.m_oAmdMinLuminance,
            static_cast<float>(Colour::MinimumLuminanceOfCode(uiMaximum, oAmd.Get<gsc_oMinLuminance>())) / gsc_fMillion,
            eZorEdidField_CtaAmdMinLuminance, oAmd.OffsetOf<gsc_oMinLuminance>());
    }
}

void CReader::ReadMicrosoft(const SBytes& oMicrosoft)
{
    using namespace Microsoft;
    if (!oMicrosoft.Has<gsc_oUseCase>())
    {
        return;
    }
    const bool bUsage = oMicrosoft.Get<gsc_oVersion>() >= gsc_uiVersionWithUsage;
    Set(m_oFacts.m_oSize.m_oDesktop, bUsage && oMicrosoft.Get<gsc_oDesktopUsage>() != 0,
        bUsage ? eZorEdidField_CtaMicrosoftDesktopUsage : eZorEdidField_CtaMicrosoftVersion,
        bUsage ? oMicrosoft.OffsetOf<gsc_oDesktopUsage>() : oMicrosoft.OffsetOf<gsc_oVersion>());
    if (const unsigned int uiUseCase = oMicrosoft.Get<gsc_oUseCase>())
    {
        Offer(CFacts::eQuestion_Kind, eSource_Microsoft, m_oFacts.m_oSize.m_oKind, FindUseCase(uiUseCase),
              eZorEdidField_CtaMicrosoftUseCase, oMicrosoft.OffsetOf<gsc_oUseCase>());
    }
    const SBytes oContainer = oMicrosoft.From(gsc_uiContainerIdOffset);
    CFacts::SContainerId oId = {};
    if (oContainer.m_uiSize >= sizeof(oId.m_aui8Bytes))
    {
        std::copy_n(oContainer.m_pui8Bytes, sizeof(oId.m_aui8Bytes), oId.m_aui8Bytes);
        Offer(CFacts::eQuestion_ContainerId, eSource_Microsoft, m_oFacts.m_oIdentity.m_oContainerId, oId,
              eZorEdidField_CtaMicrosoftContainerId, oContainer.m_uiOffset);
    }
}

void CReader::ReadDisplayDevice(const SBytes& oDevice)
{
    using namespace DisplayDevice;
    constexpr unsigned int uiSize = 30;
    constexpr CFacts::ELink aeLinks[] = { CFacts::eLink_Analog,      CFacts::eLink_Lvds,   CFacts::eLink_Other,
                                          CFacts::eLink_Dvi,         CFacts::eLink_Analog, CFacts::eLink_Dvi,
                                          CFacts::eLink_Hdmi,        CFacts::eLink_Hdmi,   CFacts::eLink_Other,
                                          CFacts::eLink_DisplayPort, CFacts::eLink_Other,  CFacts::eLink_Analog,
                                          CFacts::eLink_Digital };
    CFacts::SSize& oSize = m_oFacts.m_oSize;
    if (oDevice.m_uiSize < uiSize)
    {
        return;
    }
    const unsigned int uiInterface = oDevice.Get<gsc_oInterfaceType>();
    if (uiInterface < std::size(aeLinks))
    {
        Offer(CFacts::eQuestion_Link, eSource_Vesa, m_oFacts.m_oLink.m_oKind, aeLinks[uiInterface],
              eZorEdidField_CtaDisplayDeviceInterfaceType, oDevice.OffsetOf<gsc_oInterfaceType>());
    }
    if (uiInterface != 0)
    {
        OfferPlace<gsc_oLanes>(CFacts::eQuestion_Lanes, eSource_Vesa, m_oFacts.m_oLink.m_oLanes, oDevice,
                               eZorEdidField_CtaDisplayDeviceLanes);
    }
    const CFacts::SPixels oPixels = { oDevice.Get<gsc_oHorizontalPixels>(), oDevice.Get<gsc_oVerticalPixels>() };
    if (oPixels.m_uiWidth != 0 && oPixels.m_uiHeight != 0)
    {
        Offer(CFacts::eQuestion_Native, eSource_Vesa, oSize.m_oNative, oPixels,
              eZorEdidField_CtaDisplayDeviceHorizontalPixels, oDevice.OffsetOf<gsc_oHorizontalPixels>());
    }
    constexpr unsigned int uiSquare = 100;
    Offer(CFacts::eQuestion_Aspect, eSource_Vesa, oSize.m_oAspect, oDevice.Get<gsc_oAspectRatio>() + uiSquare,
          eZorEdidField_CtaDisplayDeviceAspectRatio, oDevice.OffsetOf<gsc_oAspectRatio>());
    OfferPlace<gsc_oDefaultOrientation>(CFacts::eQuestion_Orientation, eSource_Vesa, oSize.m_oOrientation, oDevice,
                                        eZorEdidField_CtaDisplayDeviceDefaultOrientation);
    OfferPlace<gsc_oRotationCapability>(CFacts::eQuestion_Rotation, eSource_Vesa, oSize.m_oRotation, oDevice,
                                        eZorEdidField_CtaDisplayDeviceRotationCapability);
    OfferPlace<gsc_oSubPixelLayout>(CFacts::eQuestion_SubPixels, eSource_Vesa, oSize.m_oSubPixels, oDevice,
                                    eZorEdidField_CtaDisplayDeviceSubPixelLayout);
    Offer(CFacts::eQuestion_Depth, eSource_Vesa, m_oFacts.m_oColour.m_oDepth, oDevice.Get<gsc_oDisplayBitDepth>() + 1,
          eZorEdidField_CtaDisplayDeviceDisplayBitDepth, oDevice.OffsetOf<gsc_oDisplayBitDepth>());
    OfferPlace<gsc_oAudioSupport>(CFacts::eQuestion_Audio, eSource_Vesa, m_oFacts.m_oAudio.m_oAudio, oDevice,
                                  eZorEdidField_CtaDisplayDeviceAudioSupport);
}

// ---- Pictures ----

void CReader::ReadVideoCapability(const SBytes& oCapability)
{
    using namespace Cta;
    CFacts::SColour& oColour = m_oFacts.m_oColour;
    CFacts::SSize& oSize = m_oFacts.m_oSize;
    Take<gsc_oQuantizationRgb>(oColour.m_oSelectableRgb, oCapability, eZorEdidField_CtaVideoCapabilityQs);
    Take<gsc_oQuantizationYcc>(oColour.m_oSelectableYcc, oCapability, eZorEdidField_CtaVideoCapabilityQy);
    Take<gsc_oPreferredScan>(oSize.m_oPreferredScan, oCapability, eZorEdidField_CtaVideoCapabilityPreferredScan);
    Take<gsc_oItScan>(oSize.m_oItScan, oCapability, eZorEdidField_CtaVideoCapabilityItScan);
    Take<gsc_oCeScan>(oSize.m_oCeScan, oCapability, eZorEdidField_CtaVideoCapabilityCeScan);
}

// A map without a byte is of all modes; else its bits are modes, as the bytes of the other data block are.
void CReader::Read420(unsigned int uiTag, const SBytes& oPayload)
{
    const bool bMap = uiTag == Cta::gsc_uiExtended420Map;
    const unsigned char* pui8End = oPayload.m_pui8Bytes + oPayload.m_uiSize;
    const bool bModes =
        std::any_of(oPayload.m_pui8Bytes, pui8End, [](unsigned char ui8Byte) { return ui8Byte != 0; }) ||
        (bMap && oPayload.m_uiSize == 0);
    if (bModes && !m_b420)
    {
        m_b420 = true;
        m_e420 = bMap ? eZorEdidField_Cta420Map : eZorEdidField_Cta420Video;
        m_ui420Offset = oPayload.m_uiOffset - gsc_uiExtendedHeader;
    }
}

void CReader::ReadStaticHdr(const SBytes& oHdr)
{
    using namespace Colour;
    CFacts::SColour& oColour = m_oFacts.m_oColour;
    TakeAll<gsc_oEotfBits>(oColour.m_oEotfs, oHdr, eZorEdidField_CtaHdrStatic, gsc_uiExtendedHeader);
    Take<gsc_oMetadataBits>(oColour.m_oMetadataTypes, oHdr, eZorEdidField_CtaHdrStaticMetadataType1);
    const unsigned int uiMaximum = oHdr.Or0<gsc_oMaxLuminanceCode>();
    const auto fnLuminance = [](long long llMicro, unsigned int uiCode) {
        return CFacts::SLuminance{ static_cast<float>(llMicro) / gsc_fMillion, static_cast<unsigned char>(uiCode) };
    };
    if (uiMaximum != 0)
    {
        Set(oColour.m_oContentMax, fnLuminance(LuminanceOfCode(uiMaximum), uiMaximum),
            eZorEdidField_CtaHdrStaticMaxLuminance, oHdr.OffsetOf<gsc_oMaxLuminanceCode>());
    }
    if (const unsigned int uiAverage = oHdr.Or0<gsc_oMaxFrameAverageCode>())
    {
        Set(oColour.m_oContentMaxFrameAverage, fnLuminance(LuminanceOfCode(uiAverage), uiAverage),
            eZorEdidField_CtaHdrStaticMaxFrameAverageLuminance, oHdr.OffsetOf<gsc_oMaxFrameAverageCode>());
    }
    const unsigned int uiMinimum = oHdr.Or0<gsc_oMinLuminanceCode>();
    if (uiMaximum != 0 && uiMinimum != 0)
    {
        Set(oColour.m_oContentMin, fnLuminance(MinimumLuminanceOfCode(uiMaximum, uiMinimum), uiMinimum),
            eZorEdidField_CtaHdrStaticMinLuminance, oHdr.OffsetOf<gsc_oMinLuminanceCode>());
    }
}

void CReader::ReadDynamicHdr(const SBytes& oHdr)
{
    using namespace Colour;
    constexpr unsigned int uiGraphics = 256;
    constexpr unsigned int uiWithoutVersion = 3;   // a type
    constexpr unsigned int uiLeastWithVersion = 3; // bytes after the length
    CFacts::SDynamicHdr oDynamic = {};
    for (SBytes oItem = oHdr; oItem.Has<gsc_oDynamicType>(); oItem = oItem.From(1 + oItem.Get<gsc_oDynamicLength>()))
    {
        const unsigned int uiType = oItem.Get<gsc_oDynamicType>();
        const bool bVersion = uiType != uiWithoutVersion && oItem.Get<gsc_oDynamicLength>() >= uiLeastWithVersion;
        oDynamic.m_bType1 = oDynamic.m_bType1 || uiType == 1;
        oDynamic.m_bType2 = oDynamic.m_bType2 || uiType == 2;
        oDynamic.m_bType3 = oDynamic.m_bType3 || uiType == 3;
        oDynamic.m_bType4 = oDynamic.m_bType4 || uiType == 4;
        oDynamic.m_bGraphics = oDynamic.m_bGraphics || uiType == uiGraphics;
        if (uiType >= 1 && uiType <= std::size(oDynamic.m_aui8Versions))
        {
            oDynamic.m_aui8Versions[uiType - 1] =
                static_cast<unsigned char>(bVersion ? oItem.Or0<gsc_oDynamicVersion>() : 0);
        }
    }
    Set(m_oFacts.m_oColour.m_oDynamicHdr, oDynamic, eZorEdidField_CtaHdrDynamic,
        oHdr.m_uiOffset - gsc_uiExtendedHeader);
}

namespace
{
// The luminances of the target display, of versions 0 to 2.
void SetDolbyLuminances(CFacts::SDolbyVision& oVision, const SBytes& oDolby)
{
    using namespace Colour;
    constexpr float fMinimumUnits = 100000; // of DolbyMinimum1
    switch (oVision.m_ui8Version)
    {
    case 0:
        oVision.m_fMaxLuminance = static_cast<float>(PqLuminance(oDolby.Get<gsc_oDolbyMax0>())) / gsc_fMillion;
        oVision.m_fMinLuminance = static_cast<float>(PqLuminance(oDolby.Get<gsc_oDolbyMin0>())) / gsc_fMillion;
        return;
    case 1:
        oVision.m_fMaxLuminance =
            static_cast<float>(oDolby.Get<gsc_oDolbyMax1>() * gsc_uiDolbyMax1Step + gsc_uiDolbyMax1Least);
        oVision.m_fMinLuminance = static_cast<float>(DolbyMinimum1(oDolby.Get<gsc_oDolbyMin1>())) / fMinimumUnits;
        return;
    default:
        oVision.m_fMaxLuminance =
            static_cast<float>(PqLuminance(oDolby.Get<gsc_oDolbyMax2>() * gsc_uiDolbyMax2Step + gsc_uiDolbyMax2Least)) /
            gsc_fMillion;
        oVision.m_fMinLuminance =
            static_cast<float>(PqLuminance(oDolby.Get<gsc_oDolbyMin2>() * gsc_uiDolbyMin2Step)) / gsc_fMillion;
        return;
    }
}
} // namespace

void CReader::ReadDolbyVision(const SBytes& oDolby)
{
    using namespace Colour;
    constexpr unsigned int uiLeast = 7;
    constexpr unsigned int uiLeast0 = 17;
    constexpr unsigned int uiTen = 10;
    const unsigned int uiVersion = oDolby.Or0<gsc_oDolbyVersion>();
    if (oDolby.m_uiSize < (uiVersion == 0 ? uiLeast0 : uiLeast))
    {
        return;
    }
    CFacts::SDolbyVision oVision = {};
    oVision.m_ui8Version = static_cast<unsigned char>(uiVersion);
    if (uiVersion <= 2)
    {
        const unsigned int uiInterface = oDolby.Get<gsc_oDolbyInterface2>();
        oVision.m_bYuv422 = oDolby.Get<gsc_oDolbyYuv422>() != 0;
        oVision.m_bStandard = uiVersion < 2 || uiInterface >= 2;
        oVision.m_bLowLatency = uiVersion == 2 || (uiVersion == 1 && oDolby.Get<gsc_oDolbyLatency1>() != 0);
        oVision.m_ui8DmVersion = static_cast<unsigned char>(
            uiVersion == 0 ? oDolby.Get<gsc_oDolbyMajor0>() * uiTen + std::min(oDolby.Get<gsc_oDolbyMinor0>(), 9U)
                           : (oDolby.Get<gsc_oDolbyDmVersion>() + 2) * uiTen);
        SetDolbyLuminances(oVision, oDolby);
    }
    Set(m_oFacts.m_oColour.m_oDolbyVision, oVision, eZorEdidField_CtaDolbyVisionVersion,
        oDolby.OffsetOf<gsc_oDolbyVersion>());
}

void CReader::ReadNativeResolution(const SBytes& oNative)
{
    using namespace Cta;
    if (!oNative.Has<gsc_oNativeImageHeight>() || oNative.Get<gsc_oNativeSizePresent>() == 0)
    {
        return;
    }
    constexpr unsigned int uiTenths = 10;
    const unsigned int uiTimes = oNative.Get<gsc_oNativeSizeInMillimetres>() != 0 ? uiTenths : 1;
    const CFacts::SMillimetres oSize = { oNative.Get<gsc_oNativeImageWidth>() * uiTimes,
                                         oNative.Get<gsc_oNativeImageHeight>() * uiTimes };
    Offer(CFacts::eQuestion_Size, eSource_Cta, m_oFacts.m_oSize.m_oSize, oSize,
          eZorEdidField_CtaNativeResolutionImageWidth, oNative.OffsetOf<gsc_oNativeImageWidth>());
}
} // namespace ZorFacts
