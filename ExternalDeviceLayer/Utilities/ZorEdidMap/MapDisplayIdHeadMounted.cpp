// What a DisplayID 2.1 section says about head-mounted displays: the display and its layers.

#include <math.h>

#include <bit>

#include "MapDisplayId.h"
#include "Standards/DisplayIdBlocks.h"

namespace ZorMap
{
namespace
{
using CMap = CZorEdidMap;

// ---- Projections: IEEE 754 single precision ----

constexpr unsigned int gsc_uiFractionBits = 23;
constexpr unsigned int gsc_uiExponentMask = 0xFF;
constexpr unsigned int gsc_uiBias = 127;

// Six decimals where the number is below 2^31, a power of 2 elsewhere.
CMString SingleText(const CRecord& /*oBlock*/, unsigned int uiSingle)
{
    const char* pszSign = (uiSingle >> 31) != 0 ? "-" : "";
    const unsigned int uiExponent = (uiSingle >> gsc_uiFractionBits) & gsc_uiExponentMask;
    const unsigned int uiFraction = uiSingle & ((1U << gsc_uiFractionBits) - 1);
    const unsigned long long ullSteps = uiFraction | (uiExponent != 0 ? 1U << gsc_uiFractionBits : 0U);
    // The value is ullSteps * 2 ^ iPower.
    const int iPower =
        static_cast<int>(uiExponent != 0 ? uiExponent : 1) - static_cast<int>(gsc_uiBias + gsc_uiFractionBits);
    CMString sText;
    if (uiExponent == gsc_uiExponentMask)
    {
        sText.Format("%s%s", uiFraction == 0 ? pszSign : "", uiFraction == 0 ? "infinite" : "no number");
    }
    else if (iPower >= 8)
    {
        sText.Format("%s%llu * 2^%d", pszSign, ullSteps, iPower);
    }
    else
    {
        // At most 2^31 * 10^6; what is shifted out of 64 bits is less than half of a millionth.
        const unsigned long long ullMillions = ullSteps * 1000000;
        const unsigned long long ullMicro = iPower >= 0    ? ullMillions << iPower
                                            : iPower > -60 ? (ullMillions + (1ULL << (-iPower - 1))) >> -iPower
                                                           : 0;
        sText.Format("%s%llu.%06llu", pszSign, ullMicro / 1000000, ullMicro % 1000000);
    }
    return sText;
}

// In 10^-6; values of 2^31 and above have a meaning instead, by the bits of their exponents.
constexpr unsigned int gsc_uiSingleDecimals = 6;
long long SingleNumber(const CRecord& /*oBlock*/, unsigned int uiSingle)
{
    const unsigned int uiExponent = (uiSingle >> gsc_uiFractionBits) & gsc_uiExponentMask;
    if (uiExponent >= gsc_uiBias + 31)
    {
        return 0;
    }
    const float fSingle = std::bit_cast<float>(uiSingle);
    return llround(static_cast<double>(fSingle) * 1e6);
}
constexpr SMeaning gsc_aoNoSingles[] = {
    { 0x4F000000, 0x7F7FFFFF, "2^31 or more" },
    { 0x7F800000, 0x7FFFFFFF, "no number" },
    { 0xCF000000, 0xFF7FFFFF, "-2^31 or less" },
    { 0xFF800000, 0xFFFFFFFF, "no number" },
};
constexpr SForm gsc_oSingleForm =
    Number().Computed(SingleNumber).Decimals(gsc_uiSingleDecimals).With(gsc_aoNoSingles).Text(SingleText);

SBreach CheckSingle(const CRecord& /*oBlock*/, unsigned int uiSingle)
{
    return ((uiSingle >> gsc_uiFractionBits) & gsc_uiExponentMask) == gsc_uiExponentMask ? eZorEdidRule_DisplayIdSingle
                                                                                         : eZorEdidRule_None;
}
constexpr SRow SingleRow(EZorEdidField eId, unsigned int uiOffset, const char* pszName)
{
    return { eId, Little32(uiOffset), pszName, gsc_oSingleForm, nullptr, CheckSingle };
}

// Both data blocks.
void NoteRevision(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    if (IsRevision0(oBlock))
    {
        oWriter.AddNote(oWriter.FindLeaf(uiOffset + gsc_uiDataBlockFlagsOffset, 0), eZorEdidRule_DisplayIdRevision1);
    }
}

// ---- ARVR HMD, DisplayID 2.1 (tag 2Ch): 79 bytes ----

constexpr auto gsc_aoDualLayers = Listed({ "not supported", "interleaving", "extended frame", "both" });
constexpr auto gsc_aoInterleavings = Listed({ "left then right side by side, layers interleaved on frames",
                                              "left then right stacked, layers interleaved on frames" });
constexpr auto gsc_aoExtendedFrames =
    Listed({ "left then right side by side, layers side by side", "left then right stacked, layers side by side",
             "left then right side by side, layers stacked", gsc_szReserved });
constexpr auto gsc_aoLayerMetadatas = Listed({ "none", "first line of layer 0", "AR/VR SDP", "both" });
constexpr auto gsc_aoReplications = Listed({ "1, no replication", "4", "8", "16" });
constexpr SMeaning gsc_aoNoRotation[] = { { 0, 0, "standard, no rotation" } };
constexpr auto gsc_aoLensAdjustments = Listed({ "fixed", "adjustable" });
constexpr auto gsc_aoLensMotions = Listed({ "not in a straight line", "lenses and displays together in a straight line",
                                            "lenses in a straight line, displays fixed", gsc_szReserved });
constexpr auto gsc_aoFoveations =
    Listed({ "not supported", "single stream", "dual streams", "single or dual streams" });
constexpr auto gsc_aoLayerStreams = Listed({ "not supported", "one", "two only", "one or two" });

// Numbers of four bits.
constexpr SMeaning gsc_aoFourDisplays[] = { { 4, 15, gsc_szReserved } };
constexpr SMeaning gsc_aoTwo[] = { { 2, 15, gsc_szReserved } };

constexpr auto HasInterleaving = WhereSet<0x03, 0>;
constexpr auto HasExtendedFrame = WhereSet<0x03, 1>;
constexpr auto HasLineMetadata = WhereSet<0x05, 4>;

constexpr SRow gsc_aoDisplayRows[] = {
    { eId_DisplayidHmdDualLayer, Bits(0x03, 1, 0), "Dual layer on a single stream", Names(gsc_aoDualLayers) },
    { eId_Reserved, Bits(0x03, 3, 2), "Reserved", Reserved() },
    { eId_DisplayidHmdInterleavingMode, Bit(0x03, 4), "Interleaving mode", Flag(gsc_aoInterleavings), HasInterleaving },
    { eId_Reserved, Bit(0x03, 4), "Reserved", Reserved(), IsNot<HasInterleaving> },
    { eId_DisplayidHmdExtendedFrameMode, Bits(0x03, 6, 5), "Extended frame mode", Names(gsc_aoExtendedFrames),
      HasExtendedFrame },
    { eId_Reserved, Bits(0x03, 6, 5), "Reserved", Reserved(), IsNot<HasExtendedFrame> },
    { eId_Reserved, Bit(0x03, 7), "Reserved", Reserved() },
    { eId_DisplayidHmdDisplays, Bits(0x04, 3, 0), "Number of displays", NumberFrom1().With(gsc_aoFourDisplays) },
    { eId_DisplayidHmdStreams, Bits(0x04, 7, 4), "Number of streams", NumberFrom1().With(gsc_aoTwo) },
    { eId_DisplayidHmdLayers, Bits(0x05, 3, 0), "Number of layers", NumberFrom1().With(gsc_aoTwo) },
    { eId_DisplayidHmdLayerMetadata, Bits(0x05, 5, 4), "Layer metadata", Names(gsc_aoLayerMetadatas) },
    { eId_DisplayidHmdReplicationFactor, Bits(0x05, 7, 6), "Replication factor", Names(gsc_aoReplications),
      HasLineMetadata },
    { eId_Reserved, Bits(0x05, 7, 6), "Reserved", Reserved(), IsNot<HasLineMetadata> },
    { eId_DisplayidHmdRightLowDistortionAreaX, Little16(0x06), "Right low distortion area X", Number("pixels") },
    { eId_DisplayidHmdRightLowDistortionAreaY, Little16(0x08), "Right low distortion area Y", Number("lines") },
    { eId_DisplayidHmdLeftLowDistortionAreaX, Little16(0x0A), "Left low distortion area X", Number("pixels") },
    { eId_DisplayidHmdLeftLowDistortionAreaY, Little16(0x0C), "Left low distortion area Y", Number("lines") },
    { eId_DisplayidHmdLowDistortionAreaWidth, Little16(0x0E), "Low distortion area width", Number("pixels") },
    { eId_DisplayidHmdLowDistortionAreaHeight, Little16(0x10), "Low distortion area height", Number("lines") },
    { eId_DisplayidHmdRightEyeRotationOrientation, Bits(0x12, 2, 0), "Right eye rotation orientation",
      Number().Named(gsc_aoNoRotation) },
    { eId_Reserved, Bit(0x12, 3), "Reserved", Reserved() },
    { eId_DisplayidHmdLeftEyeRotationOrientation, Bits(0x12, 6, 4), "Left eye rotation orientation",
      Number().Named(gsc_aoNoRotation) },
    { eId_Reserved, Bit(0x12, 7), "Reserved", Reserved() },
    { eId_DisplayidHmdRightLensDiameter, Little16(0x13), "Right lens diameter", Fraction("cm", 8192) },
    { eId_DisplayidHmdLeftLensDiameter, Little16(0x15), "Left lens diameter", Fraction("cm", 8192) },
    { eId_DisplayidHmdInterocularAngle, Little16(0x17), "Interocular angle", Fraction("rad", 8192) },
    { eId_DisplayidHmdLensAdjustment, Bit(0x19, 0), "Lens adjustment", Flag(gsc_aoLensAdjustments) },
    { eId_DisplayidHmdLensAdjustMotion, Bits(0x19, 2, 1), "Lens adjust motion", Names(gsc_aoLensMotions) },
    { eId_DisplayidHmdLensDistanceAvailable, Bit(0x19, 3), "Lens distance available", Flag() },
    { eId_DisplayidHmdIpdUseful, Bit(0x19, 4), "IPD useful to the HMD", Flag() },
    { eId_Reserved, Bits(0x19, 7, 5), "Reserved", Reserved() },
    { eId_DisplayidHmdLensAdjustMin, Little16(0x1A), "Lens adjust minimum", Fraction("cm", 8192) },
    { eId_DisplayidHmdLensAdjustmentRange, Little16(0x1C), "Lens adjustment range", Fraction("cm", 8192) },
    { eId_DisplayidHmdIpdCenterOffset, Little16(0x1E), "IPD center offset", Fraction("cm", 8192).Signed() },
    { eId_DisplayidHmdIpdMeasurementMin, Little16(0x20), "IPD measurement minimum", Fraction("cm", 8192) },
    { eId_DisplayidHmdIpdMeasurementRange, Little16(0x22), "IPD measurement range", Fraction("cm", 8192) },
    { eId_DisplayidHmdRightDisplayDistance, Bit(0x24, 0), "Distance to right display available", Flag() },
    { eId_DisplayidHmdLeftDisplayDistance, Bit(0x24, 1), "Distance to left display available", Flag() },
    { eId_DisplayidHmdRightEyeDistance, Bit(0x24, 2), "Distance to right eye available", Flag() },
    { eId_DisplayidHmdLeftEyeDistance, Bit(0x24, 3), "Distance to left eye available", Flag() },
    { eId_Reserved, Bits(0x24, 7, 4), "Reserved", Reserved() },
    { eId_DisplayidHmdFoveatedRendering, Bits(0x25, 1, 0), "Foveated rendering", Names(gsc_aoFoveations) },
    { eId_Reserved, Bits(0x25, 7, 2), "Reserved", Reserved() },
    { eId_DisplayidHmdHorizontalFieldOfView, Little16(0x26), "Horizontal field of view", Fraction("rad", 8192) },
    { eId_DisplayidHmdRightFieldOfViewRight, Little16(0x28), "Right field of view, right", Fraction("rad", 8192) },
    { eId_DisplayidHmdRightFieldOfViewLeft, Little16(0x2A), "Right field of view, left", Fraction("rad", 8192) },
    { eId_DisplayidHmdRightFieldOfViewUp, Little16(0x2C), "Right field of view, up", Fraction("rad", 8192) },
    { eId_DisplayidHmdRightFieldOfViewDown, Little16(0x2E), "Right field of view, down", Fraction("rad", 8192) },
    { eId_DisplayidHmdLeftFieldOfViewRight, Little16(0x30), "Left field of view, right", Fraction("rad", 8192) },
    { eId_DisplayidHmdLeftFieldOfViewLeft, Little16(0x32), "Left field of view, left", Fraction("rad", 8192) },
    { eId_DisplayidHmdLeftFieldOfViewUp, Little16(0x34), "Left field of view, up", Fraction("rad", 8192) },
    { eId_DisplayidHmdLeftFieldOfViewDown, Little16(0x36), "Left field of view, down", Fraction("rad", 8192) },
    { eId_DisplayidHmdRightFocalLength, Little32(0x38), "Right focal length", Fraction("pixels/rad", 65536) },
    { eId_DisplayidHmdLeftFocalLength, Little32(0x3C), "Left focal length", Fraction("pixels/rad", 65536) },
    SingleRow(eId_DisplayidHmdRightCenterOfProjectionY, 0x40, "Right center of projection Y"),
    SingleRow(eId_DisplayidHmdRightCenterOfProjectionX, 0x44, "Right center of projection X"),
    SingleRow(eId_DisplayidHmdLeftCenterOfProjectionY, 0x48, "Left center of projection Y"),
    SingleRow(eId_DisplayidHmdLeftCenterOfProjectionX, 0x4C, "Left center of projection X"),
    { eId_DisplayidHmdLayer0Streams, Bits(0x50, 1, 0), "Layer 0 streams", Names(gsc_aoLayerStreams) },
    { eId_DisplayidHmdLayer1Streams, Bits(0x50, 3, 2), "Layer 1 streams", Names(gsc_aoLayerStreams) },
    { eId_Reserved, Bits(0x50, 7, 4), "Reserved", Reserved() },
    { eId_Reserved, Byte(0x51), "Reserved", Reserved() },
};
constexpr STable gsc_oDisplay = { eId_DisplayidHmd, "ARVR HMD", eArea_Display, gsc_aoDisplayRows };

// ---- ARVR layer, DisplayID 2.1 (tag 2Dh): 20 bytes ----

constexpr auto gsc_aoLensDistortions =
    Listed({ "none", "chromatic aberration correction", "lens distortion and chromatic aberration correction",
             gsc_szReserved });
constexpr auto gsc_aoLensDistortionChoices = Listed({ "no", "chromatic aberration only", "both", gsc_szReserved });
constexpr auto gsc_aoReprojections = Listed({ "none", "3DoF only", "3DoF and 6DoF", gsc_szReserved });
constexpr auto gsc_aoReprojectionChoices =
    Listed({ "neither", "3DoF can be disabled", "6DoF can be disabled", "both can be disabled" });

constexpr auto HasUnlistedScaling = WhereSet<0x11, 6>;

constexpr SRow gsc_aoLayerRows[] = {
    { eId_DisplayidHmdLayerVendor, Big24(0x03), "HMD manufacturer/vendor ID", Oui() },
    { eId_DisplayidHmdLayerProductCode, Little16(0x06), "HMD product ID code", Number() },
    { eId_DisplayidHmdLayerSerialNumber, Little32(0x08), "HMD serial number", Number().With(gsc_aoZeroNotGiven) },
    { eId_DisplayidHmdLayerLayerNumber, Bits(0x0C, 3, 0), "Layer number", Number().With(gsc_aoTwo) },
    { eId_DisplayidHmdLayerLayerConfigurable, Bit(0x0C, 4), "Layer configurable", Flag() },
    { eId_DisplayidHmdLayerCroppingSupported, Bit(0x0C, 5), "Cropping supported", Flag() },
    { eId_Reserved, Bits(0x0C, 7, 6), "Reserved", Reserved() },
    { eId_Reserved, Byte(0x0D), "Reserved", Reserved() },
    { eId_DisplayidHmdLayerLensDistortion, Bits(0x0E, 1, 0), "Lens distortion support", Names(gsc_aoLensDistortions) },
    { eId_DisplayidHmdLayerLensDistortionConfigurable, Bits(0x0E, 3, 2), "Lens distortion configurable",
      Names(gsc_aoLensDistortionChoices) },
    { eId_Reserved, Bits(0x0E, 7, 4), "Reserved", Reserved() },
    { eId_DisplayidHmdLayerGamma, Bit(0x0F, 0), "Gamma", Flag() },
    { eId_DisplayidHmdLayerGammaConfigurable, Bit(0x0F, 1), "Gamma configurable", Flag() },
    { eId_DisplayidHmdLayerDegamma, Bit(0x0F, 2), "Degamma", Flag() },
    { eId_DisplayidHmdLayerDegammaConfigurable, Bit(0x0F, 3), "Degamma configurable", Flag() },
    { eId_DisplayidHmdLayerMuraCompensation, Bit(0x0F, 4), "Mura compensation", Flag() },
    { eId_DisplayidHmdLayerMuraCompensationConfigurable, Bit(0x0F, 5), "Mura compensation configurable", Flag() },
    { eId_DisplayidHmdLayerVbi, Bit(0x0F, 6), "VBI", Flag() },
    { eId_DisplayidHmdLayerVbiConfigurable, Bit(0x0F, 7), "VBI configurable", Flag() },
    { eId_DisplayidHmdLayerReprojection, Bits(0x10, 1, 0), "Asynchronous reprojection support",
      Names(gsc_aoReprojections) },
    { eId_DisplayidHmdLayerReprojectionConfigurable, Bits(0x10, 3, 2), "Asynchronous reprojection configurable",
      Names(gsc_aoReprojectionChoices) },
    { eId_Reserved, Bits(0x10, 7, 4), "Reserved", Reserved() },
    { eId_DisplayidHmdLayerScaling2x, Bit(0x11, 0), "Scaling 2x", Flag() },
    { eId_DisplayidHmdLayerScaling3x, Bit(0x11, 1), "Scaling 3x", Flag() },
    { eId_DisplayidHmdLayerScaling4x, Bit(0x11, 2), "Scaling 4x", Flag() },
    { eId_DisplayidHmdLayerScaling5x, Bit(0x11, 3), "Scaling 5x", Flag() },
    { eId_DisplayidHmdLayerScaling6x, Bit(0x11, 4), "Scaling 6x", Flag() },
    { eId_DisplayidHmdLayerScaling8x, Bit(0x11, 5), "Scaling 8x", Flag() },
    { eId_DisplayidHmdLayerScalingOther, Bit(0x11, 6), "Scaling by other factors", Flag() },
    { eId_DisplayidHmdLayerScalingConfigurable, Bit(0x11, 7), "Scaling configurable", Flag() },
    { eId_Reserved, Run(0x12, 4), "Reserved", Reserved(), IsNot<HasUnlistedScaling> },
    { eId_DisplayidHmdLayerUnlistedScaling0, Byte(0x12), "Unlisted scaling 0",
      Fraction(nullptr, 32).With(gsc_aoZeroNone), HasUnlistedScaling },
    { eId_DisplayidHmdLayerUnlistedScaling1, Byte(0x13), "Unlisted scaling 1",
      Fraction(nullptr, 32).With(gsc_aoZeroNone), HasUnlistedScaling },
    { eId_DisplayidHmdLayerUnlistedScaling2, Byte(0x14), "Unlisted scaling 2",
      Fraction(nullptr, 32).With(gsc_aoZeroNone), HasUnlistedScaling },
    { eId_DisplayidHmdLayerUnlistedScaling3, Byte(0x15), "Unlisted scaling 3",
      Fraction(nullptr, 32).With(gsc_aoZeroNone), HasUnlistedScaling },
    { eId_DisplayidHmdLayerSeparateStreamsSideBySide, Bit(0x16, 0),
      "Left then right side by side, layers on separate streams", Flag() },
    { eId_DisplayidHmdLayerSeparateStreamsStacked, Bit(0x16, 1), "Left then right stacked, layers on separate streams",
      Flag() },
    { eId_Reserved, Bits(0x16, 7, 2), "Reserved", Reserved() },
};
constexpr STable gsc_oLayer = { eId_DisplayidHmdLayer, "ARVR layer", eArea_Display, gsc_aoLayerRows };

// ---- Data blocks ----

// clang-format off
constexpr SDisplayIdBlock gsc_aoBlocks[] = {
    { DisplayId::gsc_uiHeadMountedTag, Group(eId_DisplayidHmd, "ARVR HMD data block", eArea_Display), Exactly(79), nullptr, { &gsc_oDisplay }, NoteRevision },
    { 0x2D, Group(eId_DisplayidHmdLayer, "ARVR layer data block", eArea_Display), Exactly(20), nullptr, { &gsc_oLayer }, NoteRevision },
};
// clang-format on
} // namespace

constinit const std::span<const SDisplayIdBlock> g_aoDisplayId2HeadMountedBlocks = gsc_aoBlocks;
} // namespace ZorMap
