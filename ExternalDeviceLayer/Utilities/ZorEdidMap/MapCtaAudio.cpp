// Tables of CTA-861 data blocks about audio formats, speakers and rooms. MapCta.cpp dispatches here.

#include <algorithm>

#include "MapCtaBlocks.h"
#include "MapValue.h"
#include "Standards/AudioBlocks.h"

namespace ZorMap
{
namespace
{
// ---- Short audio descriptors: CTA-861-H 7.5.2 ----

enum EFormat : unsigned int
{
    eFormat_Reserved = 0,
    eFormat_Pcm = 1,
    eFormat_OneBit = 9,
    eFormat_EnhancedAc3 = 10,
    eFormat_DtsHd = 11,
    eFormat_Mat = 12,
    eFormat_Dst = 13,
    eFormat_WmaPro = 14,
    eFormat_Extended = 15
};

enum EExtended : unsigned int
{
    eExtended_LastWithdrawn = 3,
    eExtended_HeAac = 4,
    eExtended_HeAacV2 = 5,
    eExtended_AacLc = 6,
    eExtended_Dra = 7,
    eExtended_HeAacSurround = 8,
    eExtended_AacLcSurround = 10,
    eExtended_MpegH = 11,
    eExtended_Ac4 = 12,
    eExtended_Pcm3d = 13,
    eExtended_AuroCx = 14,
    eExtended_MpegDUsac = 15,
};

constexpr SMeaning gsc_aoFormats[] = {
    { 0, 0, gsc_szReserved },
    { 1, 1, "L-PCM" },
    { 2, 2, "AC-3" },
    { 3, 3, "MPEG-1 (Layers 1 & 2)" },
    { 4, 4, "MP3 (MPEG-1 Layer 3)" },
    { 5, 5, "MPEG-2 (multichannel)" },
    { 6, 6, "AAC LC" },
    { 7, 7, "DTS" },
    { 8, 8, "ATRAC" },
    { 9, 9, "One Bit Audio" },
    { 10, 10, "Enhanced AC-3 (DD+)" },
    { 11, 11, "DTS-HD" },
    { 12, 12, "MAT (Dolby TrueHD)" },
    { 13, 13, "DST" },
    { 14, 14, "WMA Pro" },
    { 15, 15, "extended" },
};

// 1 to 3 were withdrawn.
constexpr SMeaning gsc_aoExtended[] = {
    { 0, 0, gsc_szReserved },
    { 1, 1, "HE AAC" },
    { 2, 2, "HE AAC v2" },
    { 3, 3, "MPEG Surround" },
    { 4, 4, "MPEG-4 HE AAC" },
    { 5, 5, "MPEG-4 HE AAC v2" },
    { 6, 6, "MPEG-4 AAC LC" },
    { 7, 7, "DRA" },
    { 8, 8, "MPEG-4 HE AAC + MPEG Surround" },
    { 9, 9, gsc_szReserved },
    { 10, 10, "MPEG-4 AAC LC + MPEG Surround" },
    { 11, 11, "MPEG-H 3D Audio" },
    { 12, 12, "AC-4" },
    { 13, 13, "L-PCM 3D Audio" },
    { 14, 14, "Auro-Cx" },
    { 15, 15, "MPEG-D USAC" },
    { 16, 31, gsc_szReserved },
};

unsigned int GetFormat(const CRecord& oAudio) { return oAudio.GetBits(0, 6, 3); }
unsigned int GetExtended(const CRecord& oAudio) { return oAudio.GetBits(2, 7, 3); }

template <unsigned int FORMAT>
bool WhereFormat(const CRecord& oAudio)
{
    return GetFormat(oAudio) == FORMAT;
}

template <unsigned int EXTENDED>
bool WhereExtended(const CRecord& oAudio)
{
    return WhereFormat<eFormat_Extended>(oAudio) && GetExtended(oAudio) == EXTENDED;
}

constexpr auto IsFormat = IsNot<WhereFormat<eFormat_Reserved>>;
bool IsMat4OrLater(const CRecord& oAudio) { return WhereFormat<eFormat_Mat>(oAudio) && oAudio.IsSet(2, 0); }
bool IsMatBefore4(const CRecord& oAudio) { return WhereFormat<eFormat_Mat>(oAudio) && !oAudio.IsSet(2, 0); }

// Which bits of the descriptor mean what is not known for these.
bool IsUnknownExtended(const CRecord& oAudio)
{
    return WhereFormat<eFormat_Extended>(oAudio) && Audio::IsUnknownExtended(GetExtended(oAudio));
}

// The meaning of bits 2 to 0 is the format's, and not published; of HE AAC that of bit 0.
bool HasOwnBits(const CRecord& oAudio)
{
    return WhereExtended<eExtended_Dra>(oAudio) || (WhereFormat<eFormat_Extended>(oAudio) && GetExtended(oAudio) != 0 &&
                                                    GetExtended(oAudio) <= eExtended_LastWithdrawn);
}
bool HasOwnBit0(const CRecord& oAudio)
{
    return WhereExtended<eExtended_HeAac>(oAudio) || WhereExtended<eExtended_HeAacV2>(oAudio);
}

bool HasBitRate(const CRecord& oAudio) { return Audio::HasBitRate(GetFormat(oAudio)); }

bool HasOwnValue(const CRecord& oAudio)
{
    return WhereFormat<eFormat_OneBit>(oAudio) || WhereFormat<eFormat_DtsHd>(oAudio) ||
           WhereFormat<eFormat_Dst>(oAudio);
}

bool IsOfLaterEdition(const CRecord& oAudio)
{
    return WhereExtended<eExtended_AuroCx>(oAudio) || WhereExtended<eExtended_MpegDUsac>(oAudio);
}

bool HasSampleSizes(const CRecord& oAudio)
{
    return WhereFormat<eFormat_Pcm>(oAudio) || WhereExtended<eExtended_Pcm3d>(oAudio);
}

bool IsMpegSurround(const CRecord& oAudio)
{
    return WhereExtended<eExtended_HeAacSurround>(oAudio) || WhereExtended<eExtended_AacLcSurround>(oAudio);
}

bool HasFrameLengths(const CRecord& oAudio)
{
    return WhereExtended<eExtended_HeAac>(oAudio) || WhereExtended<eExtended_HeAacV2>(oAudio) ||
           WhereExtended<eExtended_AacLc>(oAudio) || IsMpegSurround(oAudio);
}

bool HasChannels(const CRecord& oAudio) { return Audio::HasChannels(GetFormat(oAudio), GetExtended(oAudio)); }

SBreach CheckRate192(const CRecord& oAudio, unsigned int uiBit)
{
    return uiBit != 0 && HasFrameLengths(oAudio) ? eZorEdidRule_CtaZeroRate : eZorEdidRule_None;
}
SBreach CheckRate176(const CRecord& oAudio, unsigned int uiBit)
{
    const bool bZero = HasFrameLengths(oAudio) || WhereExtended<eExtended_Ac4>(oAudio);
    return uiBit != 0 && bZero ? eZorEdidRule_CtaZeroRate : eZorEdidRule_None;
}
SBreach CheckRateOfAc4(const CRecord& oAudio, unsigned int uiBit)
{
    return uiBit != 0 && WhereExtended<eExtended_Ac4>(oAudio) ? eZorEdidRule_CtaZeroRate : eZorEdidRule_None;
}

constexpr SMeaning gsc_aoMpegHLevels[] = {
    { 0, 0, "unspecified" }, { 1, 1, "level 1" }, { 2, 2, "level 2" },      { 3, 3, "level 3" },
    { 4, 4, "level 4" },     { 5, 5, "level 5" }, { 6, 7, gsc_szReserved },
};
constexpr auto gsc_aoMatKinds = Listed({ "Dolby TrueHD only", "Dolby TrueHD, object audio PCM and channel-based PCM" });
constexpr auto gsc_aoMatHash = Listed({ "required", "not required" });
constexpr auto gsc_aoSurroundSignals = Listed({ "implicit", "implicit and explicit" });

constexpr SRow gsc_aoAudioRows[] = {
    { eId_CtaAudioFormat, Audio::gsc_oFormat, "Audio format code", Names(gsc_aoFormats) },
    { eId_CtaAudioExtendedFormat, Audio::gsc_oExtendedFormat, "Audio format extended code", Names(gsc_aoExtended),
      WhereFormat<eFormat_Extended> },
    { eId_CtaAudioChannels, Audio::gsc_oChannels, "Maximum number of channels", NumberFrom1("channels"), HasChannels },
    { eId_CtaAudioChannels, Audio::gsc_oPcm3dChannels, "Maximum number of channels", NumberFrom1("channels"),
      WhereExtended<eExtended_Pcm3d> },
    { eId_CtaAudioMpegHLevel, Bits(0, 2, 0), "MPEG-H 3D Audio level", Names(gsc_aoMpegHLevels),
      WhereExtended<eExtended_MpegH> },
    { eId_CtaAudio192Khz, Audio::gsc_o192Khz, "192 kHz", Flag(), IsFormat, CheckRate192 },
    { eId_CtaAudio176_4Khz, Audio::gsc_o176_4Khz, "176.4 kHz", Flag(), IsFormat, CheckRate176 },
    { eId_CtaAudio96Khz, Audio::gsc_o96Khz, "96 kHz", Flag(), IsFormat },
    { eId_CtaAudio88_2Khz, Audio::gsc_o88_2Khz, "88.2 kHz", Flag(), IsFormat, CheckRateOfAc4 },
    { eId_CtaAudio48Khz, Audio::gsc_o48Khz, "48 kHz", Flag(), IsFormat },
    { eId_CtaAudio44_1Khz, Audio::gsc_o44_1Khz, "44.1 kHz", Flag(), IsFormat },
    { eId_CtaAudio32Khz, Audio::gsc_o32Khz, "32 kHz", Flag(), IsFormat, CheckRateOfAc4 },
    { eId_CtaAudio24Bit, Audio::gsc_o24Bit, "24 bit", Flag(), HasSampleSizes },
    { eId_CtaAudio20Bit, Audio::gsc_o20Bit, "20 bit", Flag(), HasSampleSizes },
    { eId_CtaAudio16Bit, Audio::gsc_o16Bit, "16 bit", Flag(), HasSampleSizes },
    { eId_CtaAudioMaxBitRate, Audio::gsc_oMaxBitRate, "Maximum bit rate", Number("kbit/s").Times(8), HasBitRate },
    { eId_CtaAudioFormatDependentValue, Byte(2), "Audio format code dependent value", Number(), HasOwnValue },
    { eId_Unknown, Bits(2, 7, 2), "Unknown", Unknown(), WhereFormat<eFormat_EnhancedAc3> },
    { eId_CtaAudioJointObjectCodingAcmod28, Bit(2, 1), "Joint object coding with ACMOD28", Flag(),
      WhereFormat<eFormat_EnhancedAc3> },
    { eId_CtaAudioJointObjectCoding, Bit(2, 0), "Joint object coding", Flag(), WhereFormat<eFormat_EnhancedAc3> },
    { eId_Unknown, Bits(2, 7, 2), "Unknown", Unknown(), IsMat4OrLater },
    { eId_Unknown, Bits(2, 7, 1), "Unknown", Unknown(), IsMatBefore4 },
    { eId_CtaAudioPcmHash, Bit(2, 1), "Hash calculation for PCM", Flag(gsc_aoMatHash), IsMat4OrLater },
    { eId_CtaAudioMatContent, Bit(2, 0), "MAT content", Flag(gsc_aoMatKinds), WhereFormat<eFormat_Mat> },
    { eId_CtaAudioProfile, Bits(2, 2, 0), "Profile", Number(), WhereFormat<eFormat_WmaPro> },
    { eId_CtaAudio1024Tl, Bit(2, 2), "1024_TL", Flag(), HasFrameLengths },
    { eId_CtaAudio960Tl, Bit(2, 1), "960_TL", Flag(), HasFrameLengths },
    { eId_Unknown, Bit(2, 0), "Unknown", Unknown(), HasOwnBit0 },
    { eId_Unknown, Bits(2, 2, 0), "Unknown", Unknown(), HasOwnBits },
    { eId_CtaAudio22_2Multichannel, Bit(2, 0), "22.2 multichannel", Flag(), WhereExtended<eExtended_AacLc> },
    { eId_CtaAudioMpegSurround, Bit(2, 0), "MPEG Surround signaling", Flag(gsc_aoSurroundSignals), IsMpegSurround },
    { eId_CtaAudioBaselineProfile, Bit(2, 1), "Baseline profile", Flag(), WhereExtended<eExtended_MpegH> },
    { eId_CtaAudioLowComplexityProfile, Bit(2, 0), "Low complexity profile", Flag(), WhereExtended<eExtended_MpegH> },
    { eId_CtaAudioFormatDependentValue, Bits(2, 2, 0), "Audio format code dependent value", Number(),
      WhereExtended<eExtended_Ac4> },
    // Of these two the published part is all that is known.
    { eId_CtaAudioFormatDependentValue, Bits(2, 2, 0), "Audio format code dependent value", Number(),
      WhereExtended<eExtended_AuroCx> },
    { eId_Unknown, Bits(0, 2, 0), "Unknown", Unknown(), WhereExtended<eExtended_AuroCx> },
    { eId_Unknown, Bits(2, 2, 0), "Unknown", Unknown(), WhereExtended<eExtended_MpegDUsac> },
    { eId_Unknown, Bit(0, 7), "Unknown", Unknown(), IsOfLaterEdition },
    { eId_Unknown, Bit(1, 7), "Unknown", Unknown(), IsOfLaterEdition },
    // Of a reserved format nothing is known, and one note is enough.
    { eId_Unknown, Bit(0, 7), "Unknown", Unknown(), WhereFormat<eFormat_Reserved> },
    { eId_Unknown, Bits(0, 2, 0), "Unknown", Unknown(), WhereFormat<eFormat_Reserved> },
    { eId_Unknown, Byte(1), "Unknown", Unknown(), WhereFormat<eFormat_Reserved> },
    { eId_Unknown, Byte(2), "Unknown", Unknown(), WhereFormat<eFormat_Reserved> },
    { eId_Unknown, Bit(0, 7), "Unknown", Unknown(), IsUnknownExtended },
    { eId_Unknown, Bits(0, 2, 0), "Unknown", Unknown(), IsUnknownExtended },
    { eId_Unknown, Bit(1, 7), "Unknown", Unknown(), IsUnknownExtended },
    { eId_Unknown, Bits(2, 2, 0), "Unknown", Unknown(), IsUnknownExtended },
};

CMString AudioSummary(const CRecord& oAudio)
{
    const bool bExtended = WhereFormat<eFormat_Extended>(oAudio);
    CMString sText(bExtended ? FindMeaning(gsc_aoExtended, GetExtended(oAudio))
                             : FindMeaning(gsc_aoFormats, GetFormat(oAudio)));
    const bool b3d = WhereExtended<eExtended_Pcm3d>(oAudio);
    if (b3d || HasChannels(oAudio))
    {
        sText += ", ";
        sText += FormatNumber(oAudio.Get(b3d ? Audio::gsc_oPcm3dChannels : Bits(0, 2, 0)) + 1, 0, "channels");
    }
    return sText;
}

// ---- Speakers: CTA-861-H 7.5.3, HDMI 2.0 ----

// The four bytes of HDMI end with the audio channel allocation type; the three of CTA-861 are their beginning.
constexpr unsigned int gsc_uiSpeakerSize = 3;
constexpr unsigned int gsc_uiHdmiSpeakerSize = 4;

bool IsOfCta(const CRecord& oSpeakers) { return oSpeakers.GetSize() < gsc_uiHdmiSpeakerSize; }

// From CTA-861-G on. The bit of RLC/RRC has no such note: later editions give it to other speakers.
SBreach CheckDeprecated(const CRecord& oSpeakers, unsigned int uiBit)
{
    return uiBit != 0 && IsOfCta(oSpeakers) ? eZorEdidRule_CtaSpeakerDeprecated : eZorEdidRule_None;
}

constexpr SMeaning gsc_aoAllocations[] = {
    { 0, 0, gsc_szReserved },  { 1, 1, "10.2 channels" }, { 2, 2, "22.2 channels" },
    { 3, 3, "30.2 channels" }, { 4, 15, gsc_szReserved },
};

constexpr SRow gsc_aoSpeakerRows[] = {
    { eId_CtaSpeakersFlwFrw, Audio::gsc_oFlwFrw, "FLw/FRw Front left/right wide", Flag() },
    { eId_CtaSpeakersRlcRrc, Audio::gsc_oRlcRrc, "RLC/RRC Rear left/right of center", Flag(), IsOfCta },
    { eId_CtaSpeakersFlcFrc, Audio::gsc_oFlcFrc, "FLc/FRc Front left/right of center", Flag() },
    { eId_CtaSpeakersBc, Audio::gsc_oBc, "BC Back center", Flag() },
    { eId_CtaSpeakersBlBr, Audio::gsc_oBlBr, "BL/BR Back left/right", Flag() },
    { eId_CtaSpeakersFc, Audio::gsc_oFc, "FC Front center", Flag() },
    { eId_CtaSpeakersLfe1, Audio::gsc_oLfe1, "LFE1 Low frequency effects 1", Flag() },
    { eId_CtaSpeakersFlFr, Audio::gsc_oFlFr, "FL/FR Front left/right", Flag() },
    { eId_CtaSpeakersTpsilTpsir, Audio::gsc_oTpSilTpSir, "TpSiL/TpSiR Top side left/right", Flag() },
    { eId_CtaSpeakersSilSir, Audio::gsc_oSilSir, "SiL/SiR Side left/right", Flag() },
    { eId_CtaSpeakersTpbc, Audio::gsc_oTpBc, "TpBC Top back center", Flag() },
    { eId_CtaSpeakersLfe2, Audio::gsc_oLfe2, "LFE2 Low frequency effects 2", Flag() },
    { eId_CtaSpeakersLsRs, Audio::gsc_oLsRs, "LS/RS Left/right surround", Flag() },
    { eId_CtaSpeakersTpfc, Audio::gsc_oTpFc, "TpFC Top front center", Flag() },
    { eId_CtaSpeakersTpc, Audio::gsc_oTpC, "TpC Top center", Flag() },
    { eId_CtaSpeakersTpflTpfr, Audio::gsc_oTpFlTpFr, "TpFL/TpFR Top front left/right", Flag() },
    { eId_CtaSpeakersLsdRsd, Audio::gsc_oLsdRsd, "LSd/RSd Left/right surround direct", Flag(), IsNot<IsOfCta> },
    { eId_CtaSpeakersTplsTprs, Audio::gsc_oTpLsTpRs, "TpLS/TpRS Top left/right surround", Flag(), nullptr,
      CheckDeprecated },
    { eId_CtaSpeakersBtflBtfr, Audio::gsc_oBtFlBtFr, "BtFL/BtFR Bottom front left/right", Flag() },
    { eId_CtaSpeakersBtfc, Audio::gsc_oBtFc, "BtFC Bottom front center", Flag() },
    { eId_CtaSpeakersTpblTpbr, Audio::gsc_oTpBlTpBr, "TpBL/TpBR Top back left/right", Flag() },
    { eId_CtaSpeakersAllocationType, Bits(3, 7, 4), "Audio channel allocation type", Names(gsc_aoAllocations) },
};

constexpr STable gsc_oSpeakerTable = { eId_CtaSpeakersAllocation, "Speaker allocation", eArea_Audio,
                                       gsc_aoSpeakerRows };

// ---- HDMI Audio Data Block: HDMI 2.0 ----

SBreach CheckNonMixed(const CRecord& oHead, unsigned int uiBit)
{
    return uiBit != 0 && oHead.GetBits(0, 1, 0) == 0 ? eZorEdidRule_HdmiAudioNonMixed : eZorEdidRule_None;
}

constexpr SMeaning gsc_aoNoStreams[] = { { 0, 0, "multi-stream audio not supported" } };

constexpr SRow gsc_aoHdmiHeadRows[] = {
    { eId_CtaHdmiAudioSupportsMsNonmixed, Audio::gsc_oMultiStreamNonMixed, "Supports_MS_NonMixed", Flag(), nullptr,
      CheckNonMixed },
    { eId_CtaHdmiAudioMaxStreamCount, Audio::gsc_oMultiStreamCount, "Max_Stream_Count",
      NumberFrom1("streams").With(gsc_aoNoStreams) },
    { eId_CtaHdmiAudioNumHdmi3dAd, Audio::gsc_o3dDescriptors, "NUM_HDMI_3D_AD", Number() },
};
constexpr STable gsc_oHdmiHeadTable = { eId_CtaHdmiAudio, "HDMI audio data block", eArea_Audio, gsc_aoHdmiHeadRows };
using Audio::gsc_uiHdmiHeadSize;
constexpr unsigned int gsc_uiHdmiAudioSize = Audio::gsc_uiHdmiDescriptorSize;

template <unsigned int FORMAT>
bool WhereHdmiFormat(const CRecord& oAudio)
{
    return oAudio.GetBits(0, 3, 0) == FORMAT;
}

// There is no room for an extended code.
SBreach CheckHdmiFormat(const CRecord& /*oAudio*/, unsigned int uiFormat)
{
    return uiFormat == eFormat_Extended ? eZorEdidRule_ReservedValue : eZorEdidRule_None;
}

constexpr SRow gsc_aoHdmiAudioRows[] = {
    { eId_CtaHdmiAudioFormat, Audio::gsc_o3dFormat, "3D audio format", Names(gsc_aoFormats), nullptr, CheckHdmiFormat },
    { eId_CtaHdmiAudioChannels, Audio::gsc_o3dDescriptorChannels, "Maximum number of channels",
      NumberFrom1("channels") },
    { eId_CtaHdmiAudio192Khz, Audio::gsc_o3d192Khz, "192 kHz", Flag() },
    { eId_CtaHdmiAudio176_4Khz, Audio::gsc_o3d176_4Khz, "176.4 kHz", Flag() },
    { eId_CtaHdmiAudio96Khz, Audio::gsc_o3d96Khz, "96 kHz", Flag() },
    { eId_CtaHdmiAudio88_2Khz, Audio::gsc_o3d88_2Khz, "88.2 kHz", Flag() },
    { eId_CtaHdmiAudio48Khz, Audio::gsc_o3d48Khz, "48 kHz", Flag() },
    { eId_CtaHdmiAudio44_1Khz, Audio::gsc_o3d44_1Khz, "44.1 kHz", Flag() },
    { eId_CtaHdmiAudio32Khz, Audio::gsc_o3d32Khz, "32 kHz", Flag() },
    { eId_CtaHdmiAudio24Bit, Audio::gsc_o3d24Bit, "24 bit", Flag(), WhereHdmiFormat<eFormat_Pcm> },
    { eId_CtaHdmiAudio20Bit, Audio::gsc_o3d20Bit, "20 bit", Flag(), WhereHdmiFormat<eFormat_Pcm> },
    { eId_CtaHdmiAudio16Bit, Audio::gsc_o3d16Bit, "16 bit", Flag(), WhereHdmiFormat<eFormat_Pcm> },
    { eId_CtaHdmiAudioFormatDependentValue, Byte(3), "Audio format code dependent value", Number(),
      WhereHdmiFormat<eFormat_OneBit> },
};
constexpr STable gsc_oHdmiAudioTable = { eId_CtaHdmiAudioDescriptor, "HDMI 3D audio descriptor", eArea_Audio,
                                         gsc_aoHdmiAudioRows };

// ---- Room Configuration Data Block: CTA-861-H 7.5.15 ----

// Of a maximum; two's complement.
constexpr SForm Part(const char* pszOf) { return Fraction(pszOf, 64, 6).Signed(); }

constexpr SRow gsc_aoRoomRows[] = {
    { eId_CtaRoomDisplay, Bit(0, 7), "Display", Flag() },
    { eId_CtaRoomSpeaker, Bit(0, 6), "Speaker", Flag() },
    { eId_CtaRoomSld, Bit(0, 5), "SLD", Flag() },
    { eId_CtaRoomSpeakerCount, Bits(0, 4, 0), "Speaker count", NumberFrom1("L-PCM channels"), WhereSet<0, 6> },
    { eId_CtaRoomXMax, Byte(4), "Xmax", Number("dm") },
    { eId_CtaRoomYMax, Byte(5), "Ymax", Number("dm") },
    { eId_CtaRoomZMax, Byte(6), "Zmax", Number("dm") },
    { eId_CtaRoomDisplayX, Byte(7), "DisplayX", Part("Xmax"), WhereSet<0, 7> },
    { eId_CtaRoomDisplayY, Byte(8), "DisplayY", Part("Ymax"), WhereSet<0, 7> },
    { eId_CtaRoomDisplayZ, Byte(9), "DisplayZ", Part("Zmax"), WhereSet<0, 7> },
};
constexpr STable gsc_oRoomTable = { eId_CtaRoom, "Room configuration", eArea_Audio, gsc_aoRoomRows };

// ---- Speaker Location Data Block: CTA-861-H 7.5.16 ----

constexpr unsigned int gsc_uiCoordinatesBit = 6;
constexpr unsigned int gsc_uiLocationSize = 2;
constexpr unsigned int gsc_uiLocationWithCoordinates = 5;

constexpr SMeaning gsc_aoSpeakerIds[] = {
    { 0, 0, "FL" },
    { 1, 1, "FR" },
    { 2, 2, "FC" },
    { 3, 3, "LFE1" },
    { 4, 4, "BL" },
    { 5, 5, "BR" },
    { 6, 6, "FLc" },
    { 7, 7, "FRc" },
    { 8, 8, "BC" },
    { 9, 9, "LFE2" },
    { 10, 10, "SiL" },
    { 11, 11, "SiR" },
    { 12, 12, "TpFL" },
    { 13, 13, "TpFR" },
    { 14, 14, "TpFC" },
    { 15, 15, "TpC" },
    { 16, 16, "TpBL" },
    { 17, 17, "TpBR" },
    { 18, 18, "TpSiL" },
    { 19, 19, "TpSiR" },
    { 20, 20, "TpBC" },
    { 21, 21, "BtFC" },
    { 22, 22, "BtFL" },
    { 23, 23, "BtFR" },
    { 24, 24, "FLw" },
    { 25, 25, "FRw" },
    { 26, 26, "LS" },
    { 27, 27, "RS" },
    { 28, 30, gsc_szReserved },
};

constexpr SRow gsc_aoLocationRows[] = {
    { eId_CtaSpeakerLocationCoord, Bit(0, gsc_uiCoordinatesBit), "COORD", Flag() },
    { eId_CtaSpeakerLocationActive, Bit(0, 5), "ACTIVE", Flag() },
    { eId_CtaSpeakerLocationChannelIndex, Bits(0, 4, 0), "Channel_Index", Number() },
    { eId_CtaSpeakerLocationSpeakerId, Bits(1, 4, 0), "Speaker_ID", Names(gsc_aoSpeakerIds) },
    { eId_CtaSpeakerLocationX, Byte(2), "X", Part("Xmax"), WhereSet<0, gsc_uiCoordinatesBit> },
    { eId_CtaSpeakerLocationY, Byte(3), "Y", Part("Ymax"), WhereSet<0, gsc_uiCoordinatesBit> },
    { eId_CtaSpeakerLocationZ, Byte(4), "Z", Part("Zmax"), WhereSet<0, gsc_uiCoordinatesBit> },
};

CMString LocationSummary(const CRecord& oLocation)
{
    return CMString(FindMeaning(gsc_aoSpeakerIds, oLocation.GetBits(1, 4, 0)));
}
constexpr STable gsc_oLocationTable = { eId_CtaSpeakerLocationDescriptor, "Speaker location descriptor", eArea_Audio,
                                        gsc_aoLocationRows, LocationSummary };

unsigned int GetLocationSize(unsigned int uiFirstByte)
{
    return ((uiFirstByte >> gsc_uiCoordinatesBit) & 1U) != 0 ? gsc_uiLocationWithCoordinates : gsc_uiLocationSize;
}

// ---- Vendor-Specific Audio Data Block of Dolby ----

constexpr SRow gsc_aoDolbyRows[] = {
    { eId_CtaDolbyAudioHeadphoneOnly, Bit(0, 7), "Headphone only", Flag() },
    { eId_CtaDolbyAudioHeightSpeakerZone, Bit(0, 6), "Height speaker zone", Flag() },
    { eId_CtaDolbyAudioSurroundSpeakerZone, Bit(0, 5), "Surround speaker zone", Flag() },
    { eId_CtaDolbyAudioCenterSpeakerZone, Bit(0, 4), "Center speaker zone", Flag() },
    { eId_Unknown, Bit(0, 3), "Unknown", Unknown() },
    { eId_CtaDolbyAudioVersion, Bits(0, 2, 0), "Version", NumberFrom1() },
    { eId_CtaDolbyAudioMatPcm48KhzOnly, Bit(1, 0), "MAT PCM at 48 kHz only", Flag() },
    { eId_Unknown, Bits(1, 7, 1), "Unknown", Unknown() },
    { eId_Unknown, RunToEnd(2), "Unknown", Unknown() },
};
} // namespace

constinit const STable g_oCtaAudioTable = { eId_CtaAudioDescriptor, "Short audio descriptor", eArea_Audio,
                                            gsc_aoAudioRows, AudioSummary };
constinit const STable g_oCtaDolbyAudioTable = { eId_CtaDolbyAudio, "Dolby audio", eArea_Audio, gsc_aoDolbyRows };

void MapCtaSpeakers(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    oWriter.AddRows(gsc_oSpeakerTable, oPayload.m_uiOffset, std::min(oPayload.m_uiLength, gsc_uiSpeakerSize));
}

void MapCtaHdmiAudio(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    oWriter.AddRows(gsc_oHdmiHeadTable, oPayload.m_uiOffset, std::min(oPayload.m_uiLength, gsc_uiHdmiHeadSize));
    const unsigned int uiCount = oWriter.GetRecord(oPayload.m_uiOffset, oPayload.m_uiLength).GetBits(1, 2, 0);
    if (oPayload.m_uiLength < gsc_uiHdmiHeadSize)
    {
        return;
    }
    const unsigned int uiSize = std::min(uiCount * gsc_uiHdmiAudioSize, oPayload.m_uiLength - gsc_uiHdmiHeadSize);
    const unsigned int uiSpeakers = gsc_uiHdmiHeadSize + uiSize;
    const unsigned int uiEnd =
        gsc_uiHdmiHeadSize + (uiCount != 0 ? uiCount * gsc_uiHdmiAudioSize + gsc_uiHdmiSpeakerSize : 0);
    oWriter.AddItems(gsc_oHdmiAudioTable, oPayload.m_uiOffset + gsc_uiHdmiHeadSize, uiSize, gsc_uiHdmiAudioSize);
    if (oPayload.m_uiLength < uiEnd)
    {
        oWriter.AddNote(oWriter.FindLeaf(oPayload.m_uiOffset + 1, 0), eZorEdidRule_HdmiAudioPast,
                        CountAtMost("bytes", uiEnd, oPayload.m_uiLength));
    }
    else if (uiCount != 0)
    {
        oWriter.AddRecord(gsc_oSpeakerTable, oPayload.m_uiOffset + uiSpeakers, gsc_uiHdmiSpeakerSize);
    }
    oWriter.AddUnknownEnd();
}

void MapCtaRoom(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    constexpr unsigned int uiSpeakersOffset = 1;
    if (oPayload.m_uiLength >= uiSpeakersOffset + gsc_uiSpeakerSize)
    {
        oWriter.AddRows(gsc_oSpeakerTable, oPayload.m_uiOffset + uiSpeakersOffset, gsc_uiSpeakerSize);
    }
    oWriter.AddRows(gsc_oRoomTable, oPayload.m_uiOffset, oPayload.m_uiLength);
}

void MapCtaSpeakerLocations(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    AddCtaItems(oWriter, gsc_oLocationTable, oPayload.m_uiOffset, oPayload.m_uiLength, GetLocationSize);
}

void VisitCtaAudioIds(CIdVisitor& oVisitor)
{
    oVisitor.Visit(g_oCtaAudioTable, gsc_oSpeakerTable, gsc_oHdmiHeadTable, gsc_oHdmiAudioTable, gsc_oRoomTable,
                   gsc_oLocationTable, g_oCtaDolbyAudioTable);
}
} // namespace ZorMap
