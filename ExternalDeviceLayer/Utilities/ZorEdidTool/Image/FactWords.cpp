// Facts put into words.

#include "FactWords.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <vector>

#include "AudioNumbers.h"
#include "ExactTimings.h"
#include "FactList.h"
#include "TextFormat.h"

namespace
{
using CFacts = CZorEdidFacts;

constexpr unsigned long long gsc_ullHzPerKiloHz = 1000;
constexpr const char* gsc_pszNotAnnounced = "not announced";

void Append(std::string& sList, const std::string& sNext, const char* pszBetween = ", ")
{
    if (!sNext.empty())
    {
        sList += (sList.empty() ? "" : pszBetween) + sNext;
    }
}

void AppendIf(std::string& sList, const SZorFact<bool>& oFlag, const char* pszName)
{
    Append(sList, oFlag.m_oValue ? pszName : "");
}

struct SBitName
{
    unsigned int m_uiBits; // any of them
    const char* m_pszName;
};

template <size_t uiCount>
std::string NameBits(unsigned int uiBits, const SBitName (&aoNames)[uiCount], const char* pszBetween = ", ")
{
    std::string sText;
    for (const SBitName& oName : aoNames)
    {
        Append(sText, (uiBits & oName.m_uiBits) != 0 ? oName.m_pszName : "", pszBetween);
    }
    return sText;
}

// "600", "169.25"
std::string GetMegaHz(unsigned int uiKiloHz) { return GetMegaHertz(gsc_ullHzPerKiloHz * uiKiloHz, 0); }

// "48 to 144 Hz", "430 kHz"
std::string GetRange(const SZorFact<CFacts::SRange>& oRange, const char* pszUnit)
{
    const auto [uiLeast, uiMost] = oRange.m_oValue;
    return !oRange.IsSaid()    ? ""
           : uiLeast == uiMost ? FormatText("%u %s", uiLeast, pszUnit)
                               : FormatText("%u to %u %s", uiLeast, uiMost, pszUnit);
}

// No more digits than the code of a luminance is good for.
std::string GetLuminance(float fLuminance)
{
    const double dLuminance = static_cast<double>(fLuminance);
    return FormatText("%.*f", dLuminance >= 10 ? 0 : dLuminance >= 0.01 ? 2 : 4, dLuminance);
}

// "Dolby Vision to 1000 cd/m2"
std::string DescribeDolbyVision(const SZorFact<CFacts::SDolbyVision>& oDolby)
{
    const float fMaximum = oDolby.m_oValue.m_fMaxLuminance;
    return !oDolby.IsSaid() ? ""
           : fMaximum > 0   ? "Dolby Vision to " + GetLuminance(fMaximum) + " cd/m\u00B2"
                            : "Dolby Vision";
}

std::string GetDepths(unsigned int uiDepths)
{
    constexpr SBitName aoDepths[] = { { CFacts::eDepth_6, "6" },   { CFacts::eDepth_8, "8" },
                                      { CFacts::eDepth_10, "10" }, { CFacts::eDepth_12, "12" },
                                      { CFacts::eDepth_14, "14" }, { CFacts::eDepth_16, "16" } };
    return NameBits(uiDepths, aoDepths, "/");
}

std::string GetFrl(const CFacts::SFrl& oFrl)
{
    return oFrl.m_ui8Lanes == 0 ? "" : FormatText("FRL %u x %u Gbit/s", oFrl.m_ui8Lanes, oFrl.m_ui8Gbps);
}

const char* NameKind(CFacts::EKind eKind)
{
    constexpr const char* apszNames[] = {
        "display",  "panel",          "monitor", "television", "projector", "headset", "presentation display",
        "repeater", "special display"
    };
    return apszNames[eKind];
}

std::string DescribeInterface(const CFacts::SLink& oLink)
{
    constexpr const char* apszNames[] = {
        "analogue", "digital", "DVI", "HDMI", "DisplayPort", "LVDS", "other digital"
    };
    std::string sText = oLink.m_oKind.IsSaid() ? apszNames[oLink.m_oKind.m_oValue] : "";
    const unsigned int uiVersion = oLink.m_oHdmiVersion.m_oValue;
    if (oLink.m_oHdmiVersion.IsSaid())
    {
        constexpr unsigned int uiFirst = 10; // what a block without more proves
        const std::string sHdmi =
            uiVersion == uiFirst ? "HDMI" : FormatText("HDMI %u.%u", uiVersion / 10, uiVersion % 10);
        oLink.m_oKind.m_oValue == CFacts::eLink_Hdmi ? sText = sHdmi : sText += sText.empty() ? sHdmi : ", " + sHdmi;
    }
    // Links of other interfaces are no lanes.
    const unsigned int uiLanes = oLink.m_oKind.m_oValue == CFacts::eLink_DisplayPort ? oLink.m_oLanes.m_oValue : 0U;
    Append(sText, uiLanes == 1 ? "1 lane" : uiLanes != 0 ? FormatText("%u lanes", uiLanes) : "");
    AppendIf(sText, oLink.m_oDviDual, "dual-link DVI");
    return sText;
}

// What the image does not say: the denial where all blocks were read that could say it, else why it is not known.
std::string DescribeAbsence(const CFacts& oFacts, const char* pszDenial)
{
    if (oFacts.GetUnread().m_eReason != CFacts::eUnread_None)
    {
        return "not known: " + static_cast<std::string>(oFacts.GetUnreadText());
    }
    return oFacts.GetIdentity().m_oRevision.IsSaid() ? pszDenial : ""; // of an image with a base block
}

// Enough for sources of DisplayPort, whose sinks say in DPCD that they ignore the timing of a frame; said where nothing
// else announces variable refresh.
bool IsContinuousDisplayPort(const CFacts::SLink& oLink)
{
    return oLink.m_oKind.m_oValue == CFacts::eLink_DisplayPort && oLink.m_oContinuous.m_oValue;
}

// ---- Audio ----

std::string DescribeFormat(const CFacts::SAudioFormat& oFormat)
{
    constexpr double dHzPerKiloHz = 1000;
    std::string sText = NameAudioFormat(oFormat);
    sText += oFormat.m_ui8Channels != 0 ? FormatText(" %uch", oFormat.m_ui8Channels) : "";
    for (size_t i = std::size(gsc_aiSamplingRates); i-- > 0;)
    {
        if ((oFormat.m_ui8Rates >> i & 1U) != 0)
        {
            return sText + FormatText(" %g kHz", gsc_aiSamplingRates[i] / dHzPerKiloHz); // the highest one
        }
    }
    return sText;
}
} // namespace

const std::string& NameMaker(const std::string& sLetters)
{
    thread_local std::map<std::string, std::string> s_oNames; // letters are three: a bounded number of names
    const auto [itName, bNew] = s_oNames.try_emplace(sLetters);
    CMString sName;
    if (bNew && CFacts::FindMakerName(sLetters.c_str(), sName) != 0)
    {
        itName->second = sName;
    }
    return itName->second;
}

std::string DescribeMaker(const CZorEdidFacts::SIdentity& oIdentity)
{
    if (!oIdentity.m_oMaker.IsSaid())
    {
        return "";
    }
    const std::string sLetters = oIdentity.m_oMaker.m_oValue.m_szLetters;
    const std::string& sName = NameMaker(sLetters);
    return sName.empty() ? sLetters : sName + " (" + sLetters + ")";
}

std::string DescribeName(const CZorEdidFacts::SIdentity& oIdentity)
{
    return oIdentity.m_oName.IsSaid() && oIdentity.m_oName.m_oValue.m_szText[0] != '\0'
               ? oIdentity.m_oName.m_oValue.m_szText
           : oIdentity.m_oText.IsSaid() && oIdentity.m_oText.m_oValue.m_szText[0] != '\0'
               ? oIdentity.m_oText.m_oValue.m_szText
               : DescribeCode(oIdentity);
}

std::string DescribeCode(const CZorEdidFacts::SIdentity& oIdentity)
{
    return oIdentity.m_oProduct.IsSaid() ? FormatText("product 0x%04x", oIdentity.m_oProduct.m_oValue) : "";
}

std::string DescribeSerial(const CZorEdidFacts::SIdentity& oIdentity)
{
    return oIdentity.m_oSerialText.IsSaid() && oIdentity.m_oSerialText.m_oValue.m_szText[0] != '\0'
               ? oIdentity.m_oSerialText.m_oValue.m_szText
           : oIdentity.m_oSerialNumber.IsSaid() ? std::to_string(oIdentity.m_oSerialNumber.m_oValue)
                                                : "";
}

std::string DescribeDate(const CZorEdidFacts::SIdentity& oIdentity)
{
    if (oIdentity.m_oModelYear.IsSaid())
    {
        return FormatText("model year %u", oIdentity.m_oModelYear.m_oValue);
    }
    if (!oIdentity.m_oYear.IsSaid())
    {
        return "";
    }
    const unsigned int uiYear = oIdentity.m_oYear.m_oValue;
    return oIdentity.m_oWeek.IsSaid() ? FormatText("week %u of %u", oIdentity.m_oWeek.m_oValue, uiYear)
                                      : FormatText("%u", uiYear);
}

std::string DescribeSize(const CZorEdidFacts::SSize& oSize)
{
    constexpr unsigned int uiTenths = 10;
    const CFacts::SMillimetres& oValue = oSize.m_oSize.m_oValue;
    return oSize.m_oSize.IsSaid() ? FormatText("%.1f in, %u x %u mm", oSize.GetDiagonal(), oValue.m_uiWidth / uiTenths,
                                               oValue.m_uiHeight / uiTenths)
           : oSize.m_oAspect.IsSaid() ? FormatText("aspect ratio %.2f", oSize.m_oAspect.m_oValue / 100.0)
                                      : "";
}

std::string DescribeShape(const CZorEdidFacts::SSize& oSize)
{
    std::string sText = oSize.m_oKind.IsSaid() && oSize.m_oKind.m_oValue != CFacts::eKind_Generic
                            ? NameKind(oSize.m_oKind.m_oValue)
                            : "";
    const CFacts::SPixels& oNative = oSize.m_oNative.m_oValue;
    Append(sText, oSize.m_oNative.IsSaid() ? FormatText("native %u x %u", oNative.m_uiWidth, oNative.m_uiHeight) : "");
    Append(sText, oSize.m_oOrientation.IsSaid() && oSize.m_oOrientation.m_oValue == CFacts::eOrientation_Portrait
                      ? "portrait"
                      : "");
    const CFacts::STile& oTile = oSize.m_oTile.m_oValue;
    Append(sText, oSize.m_oTile.IsSaid() ? FormatText("tile column %u of %u, row %u of %u", oTile.m_ui16Column + 1U,
                                                      oTile.m_ui16Columns, oTile.m_ui16Row + 1U, oTile.m_ui16Rows)
                                         : "");
    return sText;
}

std::string DescribeLink(const CZorEdidFacts& oFacts)
{
    const CFacts::SLink& oLink = oFacts.GetLink();
    std::string sText = DescribeInterface(oLink);
    Append(sText, GetFrl(oLink.m_oFrl.m_oValue));
    Append(sText, oLink.m_oMaxTmds.m_oValue != 0 ? "TMDS to " + GetMegaHz(oLink.m_oMaxTmds.m_oValue) + " MHz" : "");
    if (oLink.m_oDsc.m_oValue)
    {
        const std::string sFrl = GetFrl(oLink.m_oDscFrl.m_oValue);
        Append(sText, sFrl.empty() ? "DSC" : "DSC over " + sFrl);
    }
    Append(sText, oLink.m_oMsoStreams.m_oValue != 0 ? FormatText("%u MSO streams", oLink.m_oMsoStreams.m_oValue) : "");
    return sText;
}

std::string DescribeTransport(const CZorEdidFacts::SLink& oLink)
{
    std::string sText;
    AppendIf(sText, oLink.m_oAllm, "ALLM");
    AppendIf(sText, oLink.m_oQms, "QMS");
    AppendIf(sText, oLink.m_oFastVactive, "fast Vactive");
    AppendIf(sText, oLink.m_oCinemaVrr, "cinema VRR");
    AppendIf(sText, oLink.m_oScdc, "SCDC");
    constexpr SBitName aoContents[] = { { CFacts::eContentType_Graphics, "graphics" },
                                        { CFacts::eContentType_Photo, "photo" },
                                        { CFacts::eContentType_Cinema, "cinema" },
                                        { CFacts::eContentType_Game, "game" } };
    const std::string sContents = NameBits(oLink.m_oContentTypes.m_oValue, aoContents, "/");
    Append(sText, sContents.empty() ? "" : "content type " + sContents);
    return sText;
}

std::string DescribeVariableRefresh(const CZorEdidFacts& oFacts)
{
    const CFacts::SLink& oLink = oFacts.GetLink();
    constexpr const char* apszSources[] = { "HDMI Forum", "AMD", "adaptive sync", "DisplayID", "range limits" };
    std::string sText;
    for (const CFacts::SVariableRefresh& oRange : ListVariableRefresh(oLink))
    {
        const std::string sRange = oRange.m_uiMost == 0 ? FormatText("from %u Hz to the mode's rate", oRange.m_uiLeast)
                                                        : FormatText("%u to %u Hz", oRange.m_uiLeast, oRange.m_uiMost);
        Append(sText, sRange + " (" + apszSources[oRange.m_eSource] + ")");
    }
    AppendIf(sText, oLink.m_oNvidia, "a block of NVIDIA");
    if (sText.empty() && IsContinuousDisplayPort(oLink))
    {
        const std::string sRange = GetRange(oLink.m_oVerticalRates, "Hz");
        Append(sText, sRange.empty() ? "continuous frequency, no range given"
                                     : sRange + " (range limits with continuous frequency)");
    }
    return sText.empty() ? DescribeAbsence(oFacts, gsc_pszNotAnnounced) : sText;
}

bool HasVariableRefresh(const CZorEdidFacts::SLink& oLink)
{
    return !ListVariableRefresh(oLink).empty() || oLink.m_oNvidia.m_oValue ||
           (IsContinuousDisplayPort(oLink) && oLink.m_oVerticalRates.IsSaid());
}

std::string DescribeRanges(const CZorEdidFacts::SLink& oLink)
{
    std::string sText;
    Append(sText, GetRange(oLink.m_oVerticalRates, "Hz"));
    Append(sText, GetRange(oLink.m_oHorizontalRates, "kHz"));
    Append(sText, oLink.m_oMaxPixelClock.m_oValue != 0
                      ? "clock to " + GetMegaHz(oLink.m_oMaxPixelClock.m_oValue) + " MHz"
                      : "");
    Append(sText, oLink.m_oContinuous.m_oValue ? "continuous frequency" : "");
    return sText;
}

std::string NameHdrKinds(const CZorEdidFacts::SColour& oColour)
{
    const unsigned int uiEotfs = oColour.m_oEotfs.m_oValue;
    const auto* const poEnd = oColour.m_aoSpaces + std::min(oColour.m_uiSpaces, CFacts::msc_uiMostSpaces);
    const auto fnInDisplayId = [&](CFacts::ETransfer eTransfer) {
        return std::any_of(oColour.m_aoSpaces, poEnd,
                           [eTransfer](const CFacts::SSpace& oSpace) { return oSpace.m_eTransfer == eTransfer; });
    };
    std::string sText;
    Append(sText, HasHdr10(oColour)                     ? "HDR10"
                  : (uiEotfs & CFacts::eEotf_Pq) != 0   ? "PQ without static metadata"
                  : fnInDisplayId(CFacts::eTransfer_Pq) ? "PQ by DisplayID"
                                                        : "");
    Append(sText, (uiEotfs & CFacts::eEotf_Hlg) != 0     ? "HLG"
                  : fnInDisplayId(CFacts::eTransfer_Hlg) ? "HLG by DisplayID"
                                                         : "");
    Append(sText, (uiEotfs & CFacts::eEotf_HdrGamma) != 0 ? "HDR gamma" : "");
    Append(sText, oColour.m_oHdr10Plus.IsSaid() ? "HDR10+" : "");
    Append(sText, DescribeDolbyVision(oColour.m_oDolbyVision));
    return sText;
}

std::string DescribeHdr(const CZorEdidFacts& oFacts)
{
    const CFacts::SColour& oColour = oFacts.GetColour();
    std::string sText = NameHdrKinds(oColour);
    if (sText.empty()) // luminances of a display without HDR do not belong under HDR
    {
        return DescribeAbsence(oFacts, gsc_pszNotAnnounced);
    }
    Append(sText,
           oColour.m_oContentMax.m_oValue.m_ui8Code != 0
               ? "peak " + GetLuminance(oColour.m_oContentMax.m_oValue.m_fLuminance) + " cd/m\u00B2"
               : "",
           "; ");
    Append(sText, oColour.m_oContentMaxFrameAverage.m_oValue.m_ui8Code != 0
                      ? "frame average " + GetLuminance(oColour.m_oContentMaxFrameAverage.m_oValue.m_fLuminance)
                      : "");
    Append(sText, oColour.m_oContentMin.m_oValue.m_ui8Code != 0
                      ? "minimum " + GetLuminance(oColour.m_oContentMin.m_oValue.m_fLuminance)
                      : "");
    return sText;
}

std::string DescribeColour(const CZorEdidFacts::SColour& oColour)
{
    constexpr const char* apszFormats[] = { "RGB", "YCbCr 4:4:4", "4:2:2", "4:2:0" };
    constexpr SBitName aoSpaces[] = { { CFacts::eColorimetry_Bt2020Rgb | CFacts::eColorimetry_Bt2020Ycc |
                                            CFacts::eColorimetry_Bt2020CYcc,
                                        "BT.2020" },
                                      { CFacts::eColorimetry_St2113Rgb, "DCI-P3" },
                                      { CFacts::eColorimetry_OpRgb | CFacts::eColorimetry_OpYcc601, "opRGB" },
                                      { CFacts::eColorimetry_ICtCp, "ICtCp" },
                                      { CFacts::eColorimetry_XvYcc601 | CFacts::eColorimetry_XvYcc709, "xvYCC" },
                                      { CFacts::eColorimetry_SYcc601, "sYCC" } };
    std::string sText = oColour.m_oDepth.IsSaid() ? FormatText("%u bits per colour", oColour.m_oDepth.m_oValue) : "";
    for (size_t i = 0; i < CFacts::eFormat_Count; ++i)
    {
        const std::string sDepths = GetDepths(oColour.m_aoDepths[i].m_oValue);
        const bool bFormat = (oColour.m_oFormats.m_oValue >> i & 1U) != 0 && !oColour.IsMonochrome();
        Append(sText, bFormat ? apszFormats[i] + (sDepths.empty() ? "" : " " + sDepths) : "");
    }
    AppendIf(sText, oColour.m_oMonochrome, oColour.IsMonochrome() ? "monochrome" : "feature bits say monochrome");
    const std::string sSpaces = NameBits(oColour.m_oColorimetry.m_oValue, aoSpaces);
    Append(sText, sSpaces, "; ");
    AppendIf(sText, oColour.m_oSrgbDefault, "sRGB by default");
    Append(sText,
           oColour.m_oGamma.IsSaid() ? FormatText("gamma %.2f", static_cast<double>(oColour.m_oGamma.m_oValue)) : "");
    return sText;
}

std::string DescribeAudio(const CZorEdidFacts& oFacts)
{
    const CFacts::SAudio& oAudio = oFacts.GetAudio();
    std::string sText;
    for (unsigned int i = 0; i < std::min(oAudio.m_uiFormats, CFacts::msc_uiMostFormats); ++i)
    {
        const std::string sFormat = DescribeFormat(oAudio.m_aoFormats[i]);
        Append(sText, (", " + sText + ",").find(", " + sFormat + ",") == std::string::npos ? sFormat : "");
    }
    Append(sText, sText.empty() && oAudio.m_oBasic.m_oValue ? "basic audio (PCM 2ch)" : "");
    Append(sText, sText.empty() && oAudio.m_oAudio.m_oValue ? "yes" : "");
    return sText.empty() ? DescribeAbsence(oFacts, oAudio.m_oAudio.IsSaid() ? "none" : "") : sText;
}
