#include "MakeWishes.h"

#include <strings.h>

#include <algorithm>
#include <charconv>
#include <iterator>

#include "ExactTimings.h"
#include "MakerValues.h"
#include "NearWord.h"
#include "Standards/HdmiBlocks.h"
#include "TextFormat.h"

namespace
{
using CTexts = std::vector<std::string>;

// Takes a unit off, in either case.
std::string WithoutUnit(const std::string& sText, const std::string& sUnit)
{
    const size_t uiLength = sText.size() - std::min(sText.size(), sUnit.size());
    return strcasecmp(sText.c_str() + uiLength, sUnit.c_str()) == 0 ? sText.substr(0, uiLength) : sText;
}

// Two numbers with a mark between them: "48-144", "600x340".
bool ParsePair(const std::string& sText, char cMark, unsigned int& uiFirst, unsigned int& uiSecond)
{
    const size_t uiMark = sText.find(cMark);
    return uiMark != std::string::npos && ParseNumber(sText.substr(0, uiMark), uiFirst) &&
           ParseNumber(sText.substr(uiMark + 1), uiSecond);
}

// A name of a table of rows with m_pszName.
template <class ROW, size_t COUNT>
const ROW* FindRow(const ROW (&aoRows)[COUNT], const std::string& sName)
{
    const auto* poRow = std::find_if(std::begin(aoRows), std::end(aoRows), [&sName](const ROW& oRow) {
        return strcasecmp(oRow.m_pszName, sName.c_str()) == 0;
    });
    return poRow == std::end(aoRows) ? nullptr : poRow;
}

// ---- Values ----

std::string RefuseText(const std::string& sValue, const char* pszExpected)
{
    return "'" + sValue + "' is not " + pszExpected;
}

std::string SetMode(const std::string& sValue, SZorEdidWishes& oWishes)
{
    const size_t uiComma = sValue.find(',');
    SZorMode oMode = {};
    SZorWishedMode oWish;
    if (!ParseExactMode(sValue.substr(0, uiComma), oMode))
    {
        return RefuseText(sValue, "a mode such as 1920x1080@60 or 2560x1440@144,cvt-rb2");
    }
    if (uiComma != std::string::npos)
    {
        const STimingSourceName* poSource = FindRow(gsc_aoTimingSources, sValue.substr(uiComma + 1));
        if (poSource == nullptr)
        {
            return RefuseName(sValue.substr(uiComma + 1), gsc_aoTimingSources);
        }
        oWish.m_eSource = poSource->m_eSource;
    }
    oWish.m_uiWidth = oMode.m_uiWidth;
    oWish.m_uiHeight = oMode.m_uiHeight;
    oWish.m_bInterlaced = oMode.m_bInterlaced;
    oWish.m_oRate = oMode.m_oNominalRate;
    oWishes.m_aoModes.Add(oWish);
    return "";
}

struct SInterfaceName
{
    const char* m_pszName;
    SZorEdidWishes::EInterface m_eInterface;
};
constexpr SInterfaceName gsc_aoInterfaces[] = {
    { "hdmi", SZorEdidWishes::eInterface_Hdmi },
    { "dp", SZorEdidWishes::eInterface_DisplayPort },
    { "dvi", SZorEdidWishes::eInterface_Dvi },
};

std::string SetInterface(const std::string& sValue, SZorEdidWishes& oWishes)
{
    const SInterfaceName* poName = FindRow(gsc_aoInterfaces, sValue);
    oWishes.m_eInterface = poName != nullptr ? poName->m_eInterface : oWishes.m_eInterface;
    return poName != nullptr ? "" : RefuseName(sValue, gsc_aoInterfaces);
}

std::string SetName(const std::string& sValue, SZorEdidWishes& oWishes)
{
    oWishes.m_sName = sValue.c_str();
    return "";
}

std::string SetSerial(const std::string& sValue, SZorEdidWishes& oWishes)
{
    oWishes.m_sSerial = sValue.c_str();
    return "";
}

std::string SetMaker(const std::string& sValue, SZorEdidWishes& oWishes)
{
    oWishes.m_sMaker = sValue.c_str();
    return "";
}

std::string SetProduct(const std::string& sValue, SZorEdidWishes& oWishes)
{
    return ParseNumber(sValue, oWishes.m_uiProduct) ? "" : RefuseText(sValue, "a number from 0 to 65535");
}

std::string SetDate(const std::string& sValue, SZorEdidWishes& oWishes)
{
    return ParseWeekAndYear(sValue, oWishes.m_uiWeek, oWishes.m_uiYear)
               ? ""
               : RefuseText(sValue, "WEEK/YEAR or YEAR such as 12/2026");
}

std::string SetSize(const std::string& sValue, SZorEdidWishes& oWishes)
{
    return ParsePair(WithoutUnit(sValue, "mm"), 'x', oWishes.m_uiWidthInMm, oWishes.m_uiHeightInMm)
               ? ""
               : RefuseText(sValue, "a size such as 600x340mm");
}

// "0.05" in 0.0001; false for anything else.
bool ParseLuminance(const std::string& sText, unsigned int& uiTenThousandths)
{
    constexpr size_t uiMostDecimals = 4;
    const size_t uiPoint = std::min(sText.find('.'), sText.size());
    std::string sDecimals = uiPoint < sText.size() ? sText.substr(uiPoint + 1) : "";
    const bool bDigits = std::ranges::all_of(sDecimals, [](char c) { return c >= '0' && c <= '9'; });
    if (sDecimals.size() > uiMostDecimals || !bDigits || uiPoint == 0 || uiPoint > 3)
    {
        return false;
    }
    sDecimals.resize(uiMostDecimals, '0');
    const std::string sAll = sText.substr(0, uiPoint) + sDecimals;
    return std::from_chars(sAll.data(), sAll.data() + sAll.size(), uiTenThousandths).ptr == sAll.data() + sAll.size();
}

std::string SetHdr(const std::string& sValue, SZorEdidWishes& oWishes)
{
    if (sValue.empty() || sValue == "true")
    {
        oWishes.m_bPq = oWishes.m_bHlg = true;
        return "";
    }
    const CTexts asParts = SplitText(sValue, ",");
    const auto fnGetName = [](const std::string& sPart) { return sPart.substr(0, sPart.find('=')); };
    for (const std::string& sPart : asParts)
    {
        const size_t uiEquals = std::min(sPart.find('='), sPart.size());
        const std::string sName = sPart.substr(0, uiEquals);
        const std::string sNumber = uiEquals < sPart.size() ? sPart.substr(uiEquals + 1) : "";
        if (!sNumber.empty() && std::ranges::count(asParts, sName, fnGetName) > 1)
        {
            return FormatText("'%s' has %s twice", sValue.c_str(), sName.c_str());
        }
        const bool bGood = sPart == "pq"      ? (oWishes.m_bPq = true)
                           : sPart == "hlg"   ? (oWishes.m_bHlg = true)
                           : sName == "max"   ? ParseNumber(sNumber, oWishes.m_uiMaxLuminance)
                           : sName == "frame" ? ParseNumber(sNumber, oWishes.m_uiFrameLuminance)
                                              : sName == "min" && ParseLuminance(sNumber, oWishes.m_uiMinLuminance);
        if (!bGood)
        {
            return RefuseText(sPart, "one of pq, hlg, max=600, frame=400, min=0.05");
        }
    }
    oWishes.m_bPq = oWishes.m_bPq || !oWishes.m_bHlg; // luminances alone
    return "";
}

struct SAudioName
{
    const char* m_pszName;
    SZorEdidWishes::EAudio m_eAudio;
};
constexpr SAudioName gsc_aoAudio[] = {
    { "none", SZorEdidWishes::eAudio_None },
    { "stereo", SZorEdidWishes::eAudio_Stereo },
    { "5.1", SZorEdidWishes::eAudio_5_1 },
    { "7.1", SZorEdidWishes::eAudio_7_1 },
};

std::string SetAudio(const std::string& sValue, SZorEdidWishes& oWishes)
{
    const SAudioName* poName = FindRow(gsc_aoAudio, sValue);
    oWishes.m_eAudio = poName != nullptr ? poName->m_eAudio : oWishes.m_eAudio;
    return poName != nullptr ? "" : RefuseName(sValue, gsc_aoAudio);
}

std::string SetVrr(const std::string& sValue, SZorEdidWishes& oWishes)
{
    return ParsePair(WithoutUnit(sValue, "Hz"), '-', oWishes.m_uiVrrMin, oWishes.m_uiVrrMax) && oWishes.HasVrr()
               ? ""
               : RefuseText(sValue, "a range of rates such as 48-144");
}

std::string SetColorDepth(const std::string& sValue, SZorEdidWishes& oWishes)
{
    return ParseNumber(sValue, oWishes.m_uiColorDepth) && oWishes.m_uiColorDepth != 0
               ? ""
               : RefuseText(sValue, "a colour depth of 8, 10 or 12 bits");
}

std::string SetTmds(const std::string& sValue, SZorEdidWishes& oWishes)
{
    return ParseNumber(WithoutUnit(sValue, "MHz"), oWishes.m_uiMaxTmds) && oWishes.m_uiMaxTmds != 0
               ? ""
               : RefuseText(sValue, "a TMDS clock from 25 to 600 MHz");
}

// Gbit/s of each lane, and lanes.
std::string SetFrl(const std::string& sValue, SZorEdidWishes& oWishes)
{
    CTexts asNames;
    for (unsigned int i = 1; i < std::size(ZorStandards::HdmiForum::gsc_aoFrlRates); ++i)
    {
        const auto& oRate = ZorStandards::HdmiForum::gsc_aoFrlRates[i];
        asNames.push_back(FormatText("%ux%u", oRate.m_ui8Gbps, oRate.m_ui8Lanes));
        if (strcasecmp(asNames.back().c_str(), sValue.c_str()) == 0)
        {
            oWishes.m_uiFrl = i;
            return "";
        }
    }
    return "unknown value '" + sValue + "'" + NameKnownWords(sValue, asNames);
}

std::string SetY420(const std::string& sValue, SZorEdidWishes& oWishes)
{
    oWishes.m_bYCbCr420 = sValue != "false";
    return "";
}

constexpr SWishOption gsc_aoOptions[] = {
    { "--mode", "WxH@R[,FROM]",
      "A mode; the first one is preferred. FROM: cta, dmt, dmt-rb, cvt, cvt-rb, cvt-rb2, gtf; without it a table that "
      "has the mode, else cvt-rb",
      SetMode },
    { "--interface", "KIND", "hdmi, dp or dvi; without it hdmi", SetInterface },
    { "--name", "TEXT", "Name of the product, up to 13 characters", SetName },
    { "--serial-text", "TEXT", "Serial number, up to 13 characters", SetSerial },
    { "--maker", "ABC", "Three letters of the maker; without it ZVD, which no maker has", SetMaker },
    { "--product", "N", "Product code", SetProduct, true },
    { "--date", "[WEEK/]YEAR", "Of manufacture; without it that of the donor, else 2025", SetDate },
    { "--size", "WxHmm", "Of the picture; without it no size is given", SetSize },
    { "--hdr", "[LIST]", "pq, hlg, and luminances in cd/m2: max=600, frame=400, min=0.05; pq,hlg without LIST",
      SetHdr },
    { "--audio", "KIND", "stereo, 5.1 or 7.1", SetAudio },
    { "--vrr", "MIN-MAX", "Variable refresh between these rates in Hz", SetVrr },
    { "--color-depth", "BITS", "8, 10 or 12; without it 10 with HDR, else 8", SetColorDepth, true },
    { "--ycbcr420", "", "2160p and larger codes at 50 Hz and more in YCbCr 4:2:0, too", SetY420 },
    { "--tmds", "MHZ", "Most that TMDS takes; without it as the modes need", SetTmds, true },
    { "--frl", "GxL", "Most of HDMI's Fixed Rate Link, Gbps x lanes: 3x3, 6x3, 6x4, 8x4, 10x4 or 12x4", SetFrl },
};

// ---- Profiles ----

struct SProfile
{
    const char* m_pszName;
    std::vector<std::pair<const char*, const char*>> m_aoValues; // options without their hyphens
};

const std::vector<SProfile>& GetProfiles()
{
    static const std::vector<SProfile> s_aoProfiles = {
        { "headless", { { "mode", "1920x1080@60" } } },
        { "hdmi-1080p",
          { { "mode", "1920x1080@60" },
            { "mode", "1920x1080@50" },
            { "mode", "1280x720@60" },
            { "mode", "1280x720@50" },
            { "audio", "stereo" } } },
        { "hdmi-4k",
          { { "mode", "3840x2160@60" },
            { "mode", "3840x2160@50" },
            { "mode", "3840x2160@30" },
            { "mode", "3840x2160@24" },
            { "mode", "1920x1080@60" },
            { "mode", "1920x1080@50" },
            { "mode", "1280x720@60" },
            { "audio", "stereo" } } },
        { "hdmi-8k",
          { { "mode", "7680x4320@60" },
            { "mode", "7680x4320@30" },
            { "mode", "3840x2160@120" },
            { "mode", "3840x2160@60" },
            { "mode", "1920x1080@60" },
            { "audio", "stereo" } } },
        { "dp-1440p144",
          { { "interface", "dp" },
            { "mode", "2560x1440@144" },
            { "mode", "2560x1440@60" },
            { "mode", "1920x1080@60" } } },
        { "hdr",
          { { "mode", "3840x2160@60" },
            { "mode", "3840x2160@24" },
            { "mode", "1920x1080@60" },
            { "hdr", "pq,hlg,max=600" },
            { "audio", "stereo" } } },
        { "vrr",
          { { "interface", "dp" },
            { "mode", "2560x1440@144" },
            { "mode", "2560x1440@60" },
            { "mode", "1920x1080@60" },
            { "vrr", "48-144" } } },
    };
    return s_aoProfiles;
}
} // namespace

std::span<const SWishOption> GetWishOptions() { return gsc_aoOptions; }

std::string SetWish(const SWishOption& oOption, const std::string& sValue, SZorEdidWishes& oWishes)
{
    std::string sReason = oOption.m_pfnSet(sValue, oWishes);
    return sReason.empty() ? static_cast<const char*>(ZorWrite::CheckValues(oWishes)) : sReason;
}

std::string ApplyWishes(const CWishValues& aoValues, SZorEdidWishes& oWishes)
{
    const auto fnIsMode = [](const SWishValue& oValue) { return oValue.m_poOption == gsc_aoOptions; };
    if (std::ranges::any_of(aoValues, fnIsMode))
    {
        oWishes.m_aoModes.RemoveAll();
    }
    for (const SWishValue& oValue : aoValues)
    {
        const auto fnIsSame = [&](const SWishValue& oOther) { return oOther.m_poOption == oValue.m_poOption; };
        if (!fnIsMode(oValue) && std::ranges::count_if(aoValues, fnIsSame) > 1)
        {
            return std::string(oValue.m_poOption->m_pszName) + " is given twice";
        }
        const std::string sReason = SetWish(*oValue.m_poOption, oValue.m_sValue, oWishes);
        if (!sReason.empty())
        {
            return std::string(oValue.m_poOption->m_pszName) + ": " + sReason;
        }
    }
    return "";
}

std::vector<std::string> ListProfiles()
{
    CTexts asNames;
    for (const SProfile& oProfile : GetProfiles())
    {
        asNames.emplace_back(oProfile.m_pszName);
    }
    return asNames;
}

CWishValues GetProfile(const std::string& sName)
{
    CWishValues aoValues;
    for (const SProfile& oProfile : GetProfiles())
    {
        for (const auto& [pszName, pszValue] : oProfile.m_aoValues)
        {
            if (sName == oProfile.m_pszName)
            {
                const std::string sOption = std::string("--") + pszName;
                aoValues.push_back(
                    { std::ranges::find_if(gsc_aoOptions,
                                           [&](const SWishOption& oOption) { return sOption == oOption.m_pszName; }),
                      pszValue });
            }
        }
    }
    return aoValues;
}
