// Tables of CTA-861 data blocks of makers, and of those about a display as a whole. MapCta.cpp dispatches here.

#include <algorithm>

#include "MapCtaBlocks.h"
#include "Standards/ColourBlocks.h"
#include "Standards/CtaBlocks.h"
#include "Standards/VendorBlocks.h"

namespace ZorMap
{
namespace
{
// ---- AMD: variable refresh rate. Not published; what is known comes from drivers ----

bool HasAmdWideRate(const CRecord& oAmd)
{
    return oAmd.Get(Amd::gsc_oVersion) >= Amd::gsc_uiVersionWithWideRate && oAmd.GetSize() >= Amd::gsc_uiWideSize;
}

bool HasAmdHdr(const CRecord& oAmd)
{
    return oAmd.Get(Amd::gsc_oVersion) >= Amd::gsc_uiVersionWithHdr && oAmd.GetSize() >= Amd::gsc_uiHdrSize &&
           oAmd.IsSet(Amd::gsc_oLuminancesValid);
}

constexpr unsigned int gsc_uiDecimals = 3;
constexpr unsigned int gsc_uiMinimumDecimals = 6; // Colour::MinimumLuminanceOfCode is in 10^-6

long long AmdMaximum(const CRecord& /*oAmd*/, unsigned int uiCode)
{
    return (Colour::LuminanceOfCode(uiCode) + 500) / 1000;
}

template <const SPlace& MAXIMUM>
long long AmdMinimum(const CRecord& oAmd, unsigned int uiCode)
{
    return Colour::MinimumLuminanceOfCode(oAmd.Get(MAXIMUM), uiCode);
}

SBreach CheckAmdRate(const CRecord& oAmd, unsigned int uiRate)
{
    return CheckAtLeast(oAmd.Get(Amd::gsc_oMinRefreshRate), uiRate, eZorEdidRule_CtaAmdRate);
}

constexpr SForm gsc_oAmdMaximum = Number("cd/m2").Computed(AmdMaximum).Decimals(gsc_uiDecimals);
constexpr SForm AmdMinimumForm(long long (*pfnNumber)(const CRecord&, unsigned int))
{
    return Number("cd/m2").Computed(pfnNumber).Decimals(gsc_uiMinimumDecimals);
}

constexpr SRow gsc_aoAmdRows[] = {
    { eId_CtaAmdVersion, Amd::gsc_oVersion, "Version", Number() },
    { eId_Unknown, Bits(1, 7, 2), "Unknown", Unknown() },
    { eId_CtaAmdLuminancesValid, Amd::gsc_oLuminancesValid, "Luminances are valid", Flag() },
    { eId_Unknown, Bit(1, 0), "Unknown", Unknown() },
    { eId_CtaAmdMinRefreshRate, Amd::gsc_oMinRefreshRate, "Minimum refresh rate", Number("Hz") },
    { eId_CtaAmdMaxRefreshRate, Amd::gsc_oMaxRefreshRate, "Maximum refresh rate", Number("Hz"), IsNot<HasAmdWideRate>,
      CheckAmdRate },
    { eId_Unknown, Byte(3), "Unknown", Unknown(), HasAmdWideRate },
    { eId_Unknown, Byte(4), "Unknown", Unknown() },
    { eId_Unknown, Byte(5), "Unknown", Unknown() },
    { eId_CtaAmdMaxLuminance, Amd::gsc_oMaxLuminance, "Maximum luminance", gsc_oAmdMaximum, HasAmdHdr },
    { eId_CtaAmdMinLuminance, Amd::gsc_oMinLuminance, "Minimum luminance",
      AmdMinimumForm(AmdMinimum<Amd::gsc_oMaxLuminance>), HasAmdHdr },
    { eId_CtaAmdSecondMaxLuminance, Amd::gsc_oSecondMaxLuminance, "Second maximum luminance", gsc_oAmdMaximum,
      HasAmdHdr },
    { eId_CtaAmdSecondMinLuminance, Amd::gsc_oSecondMinLuminance, "Second minimum luminance",
      AmdMinimumForm(AmdMinimum<Amd::gsc_oSecondMaxLuminance>), HasAmdHdr },
    { eId_Unknown, Run(6, 4), "Unknown", Unknown(), IsNot<HasAmdHdr> },
    { eId_CtaAmdMaxRefreshRate, Amd::gsc_oWideMaxRefreshRate, "Maximum refresh rate", Number("Hz"), HasAmdWideRate,
      CheckAmdRate },
    { eId_Unknown, Bits(11, 7, 2), "Unknown", Unknown(), HasAmdWideRate },
    { eId_Unknown, RunToEnd(10), "Unknown", Unknown(), IsNot<HasAmdWideRate> },
    { eId_Unknown, RunToEnd(12), "Unknown", Unknown(), HasAmdWideRate },
};

// ---- Microsoft: head-mounted and specialised displays ----

bool HasUsage(const CRecord& oMicrosoft)
{
    return oMicrosoft.Get(Microsoft::gsc_oVersion) >= Microsoft::gsc_uiVersionWithUsage;
}

constexpr SMeaning gsc_aoUseCases[] = {
    { 0, 0, "unknown" },
    { 1, 1, "test equipment" },
    { 2, 2, "generic display" },
    { 3, 3, "television display" },
    { 4, 4, "desktop productivity display" },
    { 5, 5, "desktop gaming display" },
    { 6, 6, "presentation display" },
    { 7, 7, "virtual reality headset" },
    { 8, 8, "augmented reality" },
    { 9, 15, gsc_szReserved },
    { 16, 16, "video wall display" },
    { 17, 17, "medical imaging display" },
    { 18, 18, "dedicated gaming display" },
    { 19, 19, "dedicated video monitor display" },
    { 20, 20, "accessory display" },
    { 21, 31, gsc_szReserved },
};

constexpr SRow gsc_aoMicrosoftRows[] = {
    { eId_CtaMicrosoftVersion, Microsoft::gsc_oVersion, "Version", Number() },
    { eId_CtaMicrosoftDesktopUsage, Microsoft::gsc_oDesktopUsage, "Desktop usage", Flag(), HasUsage },
    { eId_CtaMicrosoftThirdPartyUsage, Bit(1, 5), "Third-party usage", Flag(), HasUsage },
    { eId_CtaMicrosoftUseCase, Microsoft::gsc_oUseCase, "Display product primary use case", Names(gsc_aoUseCases) },
    ContainerIdRow<Microsoft::gsc_uiContainerIdOffset>(eId_CtaMicrosoftContainerId),
};

// ---- UHD Alliance: Filmmaker Mode ----

constexpr SRow gsc_aoUhdRows[] = {
    { eId_CtaUhdAllianceFilmmakerType, Byte(0), "Filmmaker Mode content type", Number() },
    { eId_CtaUhdAllianceFilmmakerSubtype, Byte(1), "Filmmaker Mode content subtype", Number() },
    { eId_Unknown, RunToEnd(2), "Unknown", Unknown() },
};

// ---- VESA Video Display Device Data Block: VESA DDDB 1.0 ----

bool IsAnalogInterface(const CRecord& oDevice) { return oDevice.GetBits(0, 7, 4) == 0; }

template <unsigned int COUNT>
bool HasPrimaries(const CRecord& oDevice)
{
    return oDevice.GetBits(21, 1, 0) >= COUNT;
}

// A byte of 0 specifies none; a specified delay of 0 ms counts as positive.
bool HasDelay(const CRecord& oDevice) { return oDevice.GetByte(16) != 0; }
bool HasNoDelay(const CRecord& oDevice) { return !HasDelay(oDevice); }

SBreach CheckClock(const CRecord& oDevice, unsigned int uiClock)
{
    return uiClock != 0 ? CheckAtLeast(oDevice.GetBits(3, 7, 2), uiClock, eZorEdidRule_CtaDeviceClock) : gsc_oNoBreach;
}

constexpr SMeaning gsc_aoInterfaces[] = {
    { 0, 0, "analog" },       { 1, 1, "LVDS" },           { 2, 2, "RSDS" },        { 3, 3, "DVI-D" },
    { 4, 4, "DVI-I analog" }, { 5, 5, "DVI-I digital" },  { 6, 6, "HDMI-A" },      { 7, 7, "HDMI-B" },
    { 8, 8, "MDDI" },         { 9, 9, "DisplayPort" },    { 10, 10, "IEEE-1394" }, { 11, 11, "M1 analog" },
    { 12, 12, "M1 digital" }, { 13, 15, gsc_szReserved },
};
constexpr SMeaning gsc_aoAnalogTypes[] = {
    { 0, 0, "15HD/VGA" },
    { 1, 1, "VESA NAVI-V (15HD)" },
    { 2, 2, "VESA NAVI-D" },
    { 3, 15, gsc_szReserved },
};
constexpr SMeaning gsc_aoProtections[] = {
    { 0, 0, "none" }, { 1, 1, "HDCP" }, { 2, 2, "DTCP" }, { 3, 3, "DPCP" }, { 4, 255, gsc_szReserved },
};
constexpr SMeaning gsc_aoNotSpecified[] = { { 0, 0, "not specified" } };
constexpr SMeaning gsc_aoFastScans[] = {
    { 0, 0, "not defined" },
    { 1, 1, "fast scan on the long axis" },
    { 2, 2, "fast scan on the short axis" },
    { 3, 3, gsc_szReserved },
};
constexpr SMeaning gsc_aoSubpixels[] = {
    { 0, 0, "not defined" },
    { 1, 1, "RGB vertical stripes" },
    { 2, 2, "RGB horizontal stripes" },
    { 3, 3, "vertical stripes in the order of the base block's primaries" },
    { 4, 4, "horizontal stripes in the order of the base block's primaries" },
    { 5, 5, "quad, red at the top left" },
    { 6, 6, "quad, red at the bottom left" },
    { 7, 7, "delta RGB" },
    { 8, 8, "mosaic" },
    { 9, 9, "quad, RGB and 1 more colour" },
    { 10, 10, "five, RGB and 2 more colours" },
    { 11, 11, "six, RGB and 3 more colours" },
    { 12, 12, "Clairvoyante PenTile Matrix" },
    { 13, 255, gsc_szReserved },
};
constexpr auto gsc_aoDithering = Listed({ "none", "spatial", "temporal", "spatial and temporal" });
constexpr auto gsc_aoRateConversions = Listed({ "none", "single buffering", "double buffering", "advanced" });

constexpr SForm gsc_oPrimary = Fraction(nullptr, 1024, 5);

constexpr SRow gsc_aoDeviceRows[] = {
    { eId_CtaDisplayDeviceInterfaceType, DisplayDevice::gsc_oInterfaceType, "Interface type", Names(gsc_aoInterfaces) },
    { eId_CtaDisplayDeviceAnalogSubtype, Bits(0, 3, 0), "Analog interface subtype", Names(gsc_aoAnalogTypes),
      IsAnalogInterface },
    { eId_CtaDisplayDeviceLanes, DisplayDevice::gsc_oLanes, "Number of lanes or channels", Number(),
      IsNot<IsAnalogInterface> },
    { eId_CtaDisplayDeviceInterfaceVersion, Bits(1, 7, 4), "Interface version", Number() },
    { eId_CtaDisplayDeviceInterfaceRelease, Bits(1, 3, 0), "Interface release", Number() },
    { eId_CtaDisplayDeviceContentProtection, Byte(2), "Content protection support", Names(gsc_aoProtections) },
    { eId_CtaDisplayDeviceMinClock, Bits(3, 7, 2), "Minimum clock frequency", Number("MHz").With(gsc_aoNotSpecified) },
    { eId_CtaDisplayDeviceMaxClock, DisplayDevice::gsc_oMaxClock, "Maximum clock frequency",
      Number("MHz").With(gsc_aoNotSpecified), nullptr, CheckClock },
    { eId_CtaDisplayDeviceHorizontalPixels, DisplayDevice::gsc_oHorizontalPixels, "Native horizontal pixels",
      Number("pixels").With(gsc_aoNotSpecified) },
    { eId_CtaDisplayDeviceVerticalPixels, DisplayDevice::gsc_oVerticalPixels, "Native vertical pixels",
      Number("pixels").With(gsc_aoNotSpecified) },
    { eId_CtaDisplayDeviceAspectRatio, DisplayDevice::gsc_oAspectRatio, "Aspect ratio", HundredthsFrom1() },
    { eId_CtaDisplayDeviceDefaultOrientation, DisplayDevice::gsc_oDefaultOrientation, "Default orientation",
      Names(gsc_aoOrientations) },
    { eId_CtaDisplayDeviceRotationCapability, DisplayDevice::gsc_oRotationCapability, "Rotation capability",
      Names(gsc_aoRotations) },
    { eId_CtaDisplayDeviceZeroPixelLocation, Bits(10, 3, 2), "Zero pixel location", Names(gsc_aoZeroPixels) },
    { eId_CtaDisplayDeviceScanDirection, Bits(10, 1, 0), "Scan direction", Names(gsc_aoFastScans) },
    { eId_CtaDisplayDeviceSubPixelLayout, DisplayDevice::gsc_oSubPixelLayout, "Subpixel layout",
      Names(gsc_aoSubpixels) },
    { eId_CtaDisplayDeviceHorizontalPitch, Byte(12), "Horizontal pixel pitch", Number("mm").Decimals(2) },
    { eId_CtaDisplayDeviceVerticalPitch, Byte(13), "Vertical pixel pitch", Number("mm").Decimals(2) },
    { eId_CtaDisplayDeviceDithering, Bits(14, 7, 6), "Dithering", Names(gsc_aoDithering) },
    { eId_CtaDisplayDeviceDirectDrive, Bit(14, 5), "Direct drive", Flag() },
    { eId_CtaDisplayDeviceOverdriveNotRecommended, Bit(14, 4), "Overdrive not recommended", Flag() },
    { eId_CtaDisplayDeviceDeinterlacing, Bit(14, 3), "Deinterlacing", Flag() },
    { eId_CtaDisplayDeviceAudioSupport, DisplayDevice::gsc_oAudioSupport, "Audio support", Flag() },
    { eId_CtaDisplayDeviceSeparateAudioInputs, Bit(15, 6), "Separate audio inputs", Flag() },
    { eId_CtaDisplayDeviceAudioInputOverride, Bit(15, 5), "Audio input override", Flag() },
    { eId_CtaDisplayDeviceAudioDelaySign, Bit(16, 7), "Audio delay sign", Flag(gsc_aoSigns), HasDelay },
    { eId_CtaDisplayDeviceAudioDelay, Bits(16, 6, 0), "Audio delay", Number("ms").Times(2), HasDelay },
    { eId_CtaDisplayDeviceAudioDelay, Byte(16), "Audio delay", Number("ms").With(gsc_aoNotSpecified), HasNoDelay },
    { eId_CtaDisplayDeviceFrameRateConversion, Bits(17, 7, 6), "Frame rate conversion", Names(gsc_aoRateConversions) },
    { eId_CtaDisplayDeviceFrameRateRange, Bits(17, 5, 0), "Frame rate range", Number("Hz") },
    { eId_CtaDisplayDeviceFrameRate, Byte(18), "Native or nominal frame rate", Number("Hz") },
    { eId_CtaDisplayDeviceInterfaceBitDepth, DisplayDevice::gsc_oInterfaceBitDepth, "Color bit depth of the interface",
      NumberFrom1("bits") },
    { eId_CtaDisplayDeviceDisplayBitDepth, DisplayDevice::gsc_oDisplayBitDepth, "Color bit depth of the display",
      NumberFrom1("bits") },
    { eId_CtaDisplayDevicePrimary4X, Split({ { 22, 7, 0 }, { 20, 7, 6 } }), "Primary 4 x", gsc_oPrimary,
      HasPrimaries<1> },
    { eId_CtaDisplayDevicePrimary4Y, Split({ { 23, 7, 0 }, { 20, 5, 4 } }), "Primary 4 y", gsc_oPrimary,
      HasPrimaries<1> },
    { eId_CtaDisplayDevicePrimary5X, Split({ { 24, 7, 0 }, { 20, 3, 2 } }), "Primary 5 x", gsc_oPrimary,
      HasPrimaries<2> },
    { eId_CtaDisplayDevicePrimary5Y, Split({ { 25, 7, 0 }, { 20, 1, 0 } }), "Primary 5 y", gsc_oPrimary,
      HasPrimaries<2> },
    { eId_CtaDisplayDevicePrimary6X, Split({ { 26, 7, 0 }, { 21, 7, 6 } }), "Primary 6 x", gsc_oPrimary,
      HasPrimaries<3> },
    { eId_CtaDisplayDevicePrimary6Y, Split({ { 27, 7, 0 }, { 21, 5, 4 } }), "Primary 6 y", gsc_oPrimary,
      HasPrimaries<3> },
    { eId_CtaDisplayDeviceAdditionalPrimaries, Bits(21, 1, 0), "Number of additional primaries", Number() },
    { eId_CtaDisplayDeviceResponseTimeTransition, Bit(28, 7), "Response time transition", Flag(gsc_aoTransitions) },
    { eId_CtaDisplayDeviceResponseTime, Bits(28, 6, 0), "Response time", Number("ms") },
    { eId_CtaDisplayDeviceHorizontalOverscan, Bits(29, 7, 4), "Horizontal overscan", Number("%") },
    { eId_CtaDisplayDeviceVerticalOverscan, Bits(29, 3, 0), "Vertical overscan", Number("%") },
};

// ---- InfoFrame Data Block: CTA-861-H 7.5.9 ----

constexpr unsigned int gsc_uiVendorInfoFrame = 1;

bool IsVendorInfoFrame(const CRecord& oFrame) { return oFrame.GetBits(0, 4, 0) == gsc_uiVendorInfoFrame; }

constexpr SMeaning gsc_aoInfoFrames[] = {
    { 0, 0, gsc_szReserved },
    { 1, 1, "Vendor-Specific" },
    { 2, 2, "Auxiliary Video Information" },
    { 3, 3, "Source Product Description" },
    { 4, 4, "Audio" },
    { 5, 5, "MPEG Source" },
    { 6, 6, "NTSC VBI" },
    { 7, 7, "Dynamic Range and Mastering" },
    { 8, 31, gsc_szReserved },
};

constexpr SRow gsc_aoFrameHeadRows[] = {
    { eId_CtaInfoframeProcessingLength, Bits(0, 7, 5), "Length of the InfoFrame processing descriptor's payload",
      Number("bytes") },
    { eId_CtaInfoframeVendorSpecificAtOnce, Byte(1), "Vendor-Specific InfoFrames at once", NumberFrom1() },
};
constexpr STable gsc_oFrameHeadTable = { eId_CtaInfoframe, "InfoFrame processing descriptor", eArea_Display,
                                         gsc_aoFrameHeadRows };
constexpr SRow gsc_oFramePayloadRow = { eId_CtaInfoframePayload, RunToEnd(0), "Payload", Bytes() };
constexpr unsigned int gsc_uiFrameHead = 2;

constexpr SRow gsc_aoFrameRows[] = {
    { eId_CtaInfoframeLength, Bits(0, 7, 5), "Payload length", Number("bytes") },
    { eId_CtaInfoframeType, Bits(0, 4, 0), "InfoFrame type code", Names(gsc_aoInfoFrames) },
    { eId_CtaInfoframeOui, Little24(1), "IEEE OUI", Number().Text(OuiText), IsVendorInfoFrame },
    { eId_CtaInfoframePayload, RunToEnd(4), "Payload", Bytes(), IsVendorInfoFrame },
    { eId_CtaInfoframePayload, RunToEnd(1), "Payload", Bytes(), IsNot<IsVendorInfoFrame> },
};

CMString FrameSummary(const CRecord& oFrame)
{
    return CMString(FindMeaning(gsc_aoInfoFrames, oFrame.GetBits(0, 4, 0)));
}
constexpr STable gsc_oFrameTable = { eId_CtaInfoframeDescriptor, "Short InfoFrame descriptor", eArea_Display,
                                     gsc_aoFrameRows, FrameSummary };

unsigned int GetFrameSize(unsigned int uiFirstByte)
{
    const bool bVendor = (uiFirstByte & 0x1F) == gsc_uiVendorInfoFrame;
    return 1 + (uiFirstByte >> 5) + (bVendor ? Cta::gsc_uiOuiSize : 0);
}
} // namespace

constinit const STable g_oCtaAmdTable = { eId_CtaAmd, "AMD", eArea_Vendor, gsc_aoAmdRows };
constinit const STable g_oCtaMicrosoftTable = { eId_CtaMicrosoft, "Microsoft", eArea_Vendor, gsc_aoMicrosoftRows };
constinit const STable g_oCtaUhdTable = { eId_CtaUhdAlliance, "UHD Alliance", eArea_Vendor, gsc_aoUhdRows };
constinit const STable g_oCtaDisplayDeviceTable = { eId_CtaDisplayDevice, "VESA video display device", eArea_Display,
                                                    gsc_aoDeviceRows };

void MapCtaInfoFrames(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    oWriter.AddRows(gsc_oFrameHeadTable, oPayload.m_uiOffset, std::min(oPayload.m_uiLength, gsc_uiFrameHead));
    if (oPayload.m_uiLength < gsc_uiFrameHead)
    {
        return;
    }
    const unsigned int uiDeclared = oWriter.GetRecord(oPayload.m_uiOffset, 1).GetBits(0, 7, 5);
    const unsigned int uiPayload = std::min(uiDeclared, oPayload.m_uiLength - gsc_uiFrameHead);
    const unsigned int uiFirst = gsc_uiFrameHead + uiPayload;
    if (uiPayload < uiDeclared)
    {
        oWriter.AddNote(oWriter.FindLeaf(oPayload.m_uiOffset, 7), eZorEdidRule_CtaInfoFramePast,
                        CountAtMost("bytes", uiDeclared, uiPayload));
    }
    oWriter.AddLeaf(gsc_oFramePayloadRow, eArea_Display, oPayload.m_uiOffset + gsc_uiFrameHead, uiPayload);
    AddCtaItems(oWriter, gsc_oFrameTable, oPayload.m_uiOffset + uiFirst, oPayload.m_uiLength - uiFirst, GetFrameSize);
}

void VisitCtaVendorIds(CIdVisitor& oVisitor)
{
    oVisitor.Visit(g_oCtaAmdTable, g_oCtaMicrosoftTable, g_oCtaUhdTable, g_oCtaDisplayDeviceTable, gsc_oFrameHeadTable,
                   gsc_oFramePayloadRow, gsc_oFrameTable);
}
} // namespace ZorMap
