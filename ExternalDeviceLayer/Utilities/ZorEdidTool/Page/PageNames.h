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

// ---- Modes ----

inline constexpr std::string_view gsc_sShortVideo = "Short video descriptor";
inline constexpr std::string_view gsc_sDetailed = "Detailed timing";
inline constexpr std::string_view gsc_sStandard = "Standard timing";
inline constexpr std::string_view gsc_sCvtCode = "CVT 3 byte timing code";
inline constexpr std::string_view gsc_sType1 = "Type I timing";
inline constexpr std::string_view gsc_sType2 = "Type II timing";
inline constexpr std::string_view gsc_sType3 = "Type III timing";
inline constexpr std::string_view gsc_sType5 = "Type V timing";
inline constexpr std::string_view gsc_sType6 = "Type VI timing";
inline constexpr std::string_view gsc_sType7 = "Type VII timing";
inline constexpr std::string_view gsc_sType9 = "Type IX timing";
inline constexpr std::string_view gsc_sType10 = "Type X timing";
inline constexpr std::string_view gsc_sVideoCode = "Video identification code";
inline constexpr std::string_view gsc_sHdmiVic = "HDMI_VIC";
inline constexpr std::string_view gsc_sDmtCode = "DMT ID";
inline constexpr std::string_view gsc_sVicCode = "VIC";
inline constexpr std::string_view gsc_sHdmiVicCode = "HDMI VIC";
inline constexpr std::string_view gsc_sY420Block = "YCbCr 4:2:0 video data block";
inline constexpr std::string_view gsc_sY420Map = "YCbCr 4:2:0 capability map data block";

// ---- Numbers of a mode written out ----

inline constexpr std::string_view gsc_sPreferred = "Preferred timing";
inline constexpr std::string_view gsc_sClock = "Pixel clock";
inline constexpr std::string_view gsc_sActiveX = "Horizontal active image";
inline constexpr std::string_view gsc_sBlankX = "Horizontal blank";
inline constexpr std::string_view gsc_sFrontX = "Horizontal front porch";
inline constexpr std::string_view gsc_sSyncX = "Horizontal sync width";
inline constexpr std::string_view gsc_sSignX = "Horizontal sync polarity";
inline constexpr std::string_view gsc_sActiveY = "Vertical active image";
inline constexpr std::string_view gsc_sBlankY = "Vertical blank";
inline constexpr std::string_view gsc_sFrontY = "Vertical front porch";
inline constexpr std::string_view gsc_sSyncY = "Vertical sync width";
inline constexpr std::string_view gsc_sSignY = "Vertical sync polarity";

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
