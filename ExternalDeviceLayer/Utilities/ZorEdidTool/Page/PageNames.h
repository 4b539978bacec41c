// Names that the map gives to fields, as far as the page asks for them. A test holds each of them against a map.

#pragma once

#include <string_view>

namespace PageNames
{
// ---- Words about the monitor ----

inline constexpr std::string_view gsc_sModelYear = "Model year";
inline constexpr std::string_view gsc_sPreferredIsNative = "Preferred timing mode is native";
inline constexpr std::string_view gsc_sNative = "Native";
inline constexpr std::string_view gsc_sDisplayParameters = "Display parameters data block";
inline constexpr std::string_view gsc_sPixelsAcross = "Horizontal pixel count";
inline constexpr std::string_view gsc_sPixelsDown = "Vertical pixel count";
inline constexpr std::string_view gsc_sHdmiForum = "HDMI Forum vendor-specific data block";
inline constexpr std::string_view gsc_sHdmiForumSink = "HDMI Forum sink capability data block";
inline constexpr std::string_view gsc_sHdmi = "HDMI vendor-specific data block";
inline constexpr std::string_view gsc_sColorimetry = "Colorimetry data block";
inline constexpr std::string_view gsc_sGamutBoundary = "MD0 gamut boundary metadata profile P0";
inline constexpr std::string_view gsc_sPq = "SMPTE ST 2084";
inline constexpr std::string_view gsc_sHlg = "Hybrid Log-Gamma (ITU-R BT.2100)";
inline constexpr std::string_view gsc_sHdrGamma = "Traditional gamma, HDR luminance range";
inline constexpr std::string_view gsc_sHdr10Plus = "HDR10+ vendor-specific video data block";
inline constexpr std::string_view gsc_sDolbyVision = "Dolby Vision vendor-specific video data block";
inline constexpr std::string_view gsc_sMaxLuminance = "Desired content max luminance";
inline constexpr std::string_view gsc_sFrameLuminance = "Desired content max frame-average luminance";
inline constexpr std::string_view gsc_sMinLuminance = "Desired content min luminance";

// ---- Range limits ----

inline constexpr std::string_view gsc_sLimits = "Display range limits";
inline constexpr std::string_view gsc_sLeastRate = "Minimum vertical rate";
inline constexpr std::string_view gsc_sMostRate = "Maximum vertical rate";
inline constexpr std::string_view gsc_sLeastLineRate = "Minimum horizontal rate";
inline constexpr std::string_view gsc_sMostLineRate = "Maximum horizontal rate";
inline constexpr std::string_view gsc_sMostClock = "Maximum pixel clock";
inline constexpr std::string_view gsc_sClockPrecision = "Additional pixel clock precision"; // to be taken off

inline constexpr std::string_view gsc_sPadding = "Padding";
} // namespace PageNames
