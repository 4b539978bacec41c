// The values of the edit options: numbers, audio descriptors, speakers, colour depths and modes.

#include "EditPlan.h"

#include <string.h>
#include <strings.h>

#include <algorithm>
#include <vector>

#include "EdidBase.h"
#include "EditDisplayId.h"
#include "EditFollow.h"
#include "ExactTimings.h"
#include "ModeSources.h"
#include "NearWord.h"
#include "SpeakerNames.h"
#include "Standards/BaseBlock.h"
#include "TextFormat.h"

namespace
{
using CTexts = std::vector<std::string>;

constexpr SNamedValue gsc_aoColorDepths[] = {
    { "undefined", CEdidBase::eColorBitDepthUndefined },
    { "6", CEdidBase::eColorBitDepth6 },
    { "8", CEdidBase::eColorBitDepth8 },
    { "10", CEdidBase::eColorBitDepth10 },
    { "12", CEdidBase::eColorBitDepth12 },
    { "14", CEdidBase::eColorBitDepth14 },
    { "16", CEdidBase::eColorBitDepth16 },
};

constexpr SNamedValue gsc_aoDeepColors[] = { { "30", 0x1 }, { "36", 0x2 }, { "48", 0x4 } };

constexpr SNamedValue gsc_aoAudioFormats[] = {
    { "pcm", CEdidExtBlockCEA861::eAudioFormat_Pcm },      { "ac3", CEdidExtBlockCEA861::eAudioFormat_Ac3 },
    { "mpeg1", CEdidExtBlockCEA861::eAudioFormat_Mpeg1 },  { "mp3", CEdidExtBlockCEA861::eAudioFormat_Mp3 },
    { "mpeg2", CEdidExtBlockCEA861::eAudioFormat_Mpeg2 },  { "aac", CEdidExtBlockCEA861::eAudioFormat_Aac },
    { "dts", CEdidExtBlockCEA861::eAudioFormat_Dts },      { "atrac", CEdidExtBlockCEA861::eAudioFormat_Atrac },
    { "1bit", CEdidExtBlockCEA861::eAudioFormat_OneBit },  { "eac3", CEdidExtBlockCEA861::eAudioFormat_EnhancedAc3 },
    { "dts-hd", CEdidExtBlockCEA861::eAudioFormat_DtsHd }, { "mat", CEdidExtBlockCEA861::eAudioFormat_Mat },
    { "dst", CEdidExtBlockCEA861::eAudioFormat_Dst },      { "wma-pro", CEdidExtBlockCEA861::eAudioFormat_WmaPro },
};

// In kHz; the cut form is that of the reports.
constexpr SNamedValue gsc_aoAudioRates[] = {
    { "32", 0x01 }, { "44.1", 0x02 }, { "44", 0x02 },    { "48", 0x04 },  { "88.2", 0x08 },
    { "88", 0x08 }, { "96", 0x10 },   { "176.4", 0x20 }, { "176", 0x20 }, { "192", 0x40 },
};

constexpr SNamedValue gsc_aoPcmDepths[] = { { "16", 0x1 }, { "20", 0x2 }, { "24", 0x4 } };

constexpr const char* gsc_pszNone = "none";

// Any case; 'AC-3' is ac3, and 'WMA Pro' wma-pro.
bool IsSameWord(const char* pszOne, const char* pszOther)
{
    const auto fnSkip = [](const char* psz) { return psz + strspn(psz, "- "); };
    for (pszOne = fnSkip(pszOne), pszOther = fnSkip(pszOther); *pszOne != '\0';
         pszOne = fnSkip(pszOne + 1), pszOther = fnSkip(pszOther + 1))
    {
        if (strncasecmp(pszOne, pszOther, 1) != 0)
        {
            return false;
        }
    }
    return *pszOther == '\0';
}

template <size_t uiCount>
bool FindValue(const SNamedValue (&aoValues)[uiCount], const std::string& sName, unsigned int& uiValue)
{
    for (const SNamedValue& oValue : aoValues)
    {
        if (IsSameWord(oValue.m_pszName, sName.c_str()))
        {
            uiValue = oValue.m_uiValue;
            return true;
        }
    }
    return false;
}

// Joins the bits of all names.
template <size_t uiCount>
std::string ParseBits(const SNamedValue (&aoValues)[uiCount], const std::string& sText, const char* pszSeparators,
                      unsigned int& uiBits)
{
    uiBits = 0;
    for (const std::string& sName : SplitText(sText, pszSeparators))
    {
        unsigned int uiBit = 0;
        if (!FindValue(aoValues, sName, uiBit))
        {
            return RefuseName(sName, aoValues);
        }
        uiBits |= uiBit;
    }
    return "";
}

// The same, or "none" alone for no bit.
template <size_t uiCount>
std::string ParseBitsOrNone(const SNamedValue (&aoValues)[uiCount], const std::string& sText, const char* pszSeparators,
                            unsigned int& uiBits)
{
    if (sText == gsc_pszNone)
    {
        uiBits = 0;
        return "";
    }
    unsigned int uiBit = 0;
    if (sText.find_first_of(pszSeparators) != std::string::npos || FindValue(aoValues, sText, uiBit))
    {
        return ParseBits(aoValues, sText, pszSeparators, uiBits);
    }
    std::vector<std::string> asNames = ListNames(aoValues);
    asNames.emplace_back(gsc_pszNone);
    return "unknown value '" + sText + "'" + NameKnownWords(sText, asNames);
}

bool ParseNumberBefore(const std::string& sText, const std::string& sUnit, unsigned int& uiNumber)
{
    return sText.ends_with(sUnit) && ParseNumber(sText.substr(0, sText.size() - sUnit.size()), uiNumber);
}

// ---- Audio ----

// The third byte: bit depths of PCM, bit rate in units of 8 kbit/s, or a byte that the format defines.
std::string ParseAudioExtra(const std::string& sText, CAudio& oAudio)
{
    constexpr unsigned int uiKiloBitsPerUnit = 8;
    constexpr unsigned int uiMost = 0xFF;
    if (sText.starts_with("0x"))
    {
        return ParseNumber(sText, oAudio.m_uiExtra) && oAudio.m_uiExtra <= uiMost
                   ? ""
                   : "'" + sText + "' is not a number from 0 to " + std::to_string(uiMost);
    }
    if (oAudio.m_eFormat == CEdidExtBlockCEA861::eAudioFormat_Pcm)
    {
        return ParseBits(gsc_aoPcmDepths, sText, "+", oAudio.m_uiExtra);
    }
    if (oAudio.m_eFormat > CEdidExtBlockCEA861::eAudioFormat_Atrac)
    {
        return "this format takes a byte such as 0x01 in its last field";
    }
    unsigned int uiRate = 0;
    const bool bRate = ParseNumberBefore(sText, "kbps", uiRate);
    const unsigned int uiNearest =
        std::min(uiRate / uiKiloBitsPerUnit + (uiRate / (uiKiloBitsPerUnit / 2)) % 2, uiMost);
    oAudio.m_uiExtra = uiNearest;
    if (bRate && uiRate == uiNearest * uiKiloBitsPerUnit)
    {
        return "";
    }
    const std::string sNearest =
        bRate ? "; the nearest is " + std::to_string(uiNearest * uiKiloBitsPerUnit) + "kbps" : std::string();
    return "'" + sText + "' is not a bit rate such as 640kbps, a multiple of 8 up to 2040" + sNearest;
}

// FORMAT,CHANNELS,RATES[,EXTRA]: "pcm,2ch,32+44.1+48,16+20+24", "ac3,6ch,48,640kbps".
std::string ParseAudio(const std::string& sText, CAudio& oAudio)
{
    constexpr unsigned int uiMostChannels = 8;
    const CTexts asFields = SplitText(sText, ",");
    unsigned int uiFormat = 0;
    if (!sText.empty() && !FindValue(gsc_aoAudioFormats, asFields[0], uiFormat))
    {
        return RefuseName(asFields[0], gsc_aoAudioFormats);
    }
    if (asFields.size() < 3 || asFields.size() > 4)
    {
        return "'" + sText +
               "' is not FORMAT,CHANNELS,RATES,DEPTHS or FORMAT,CHANNELS,RATES,BITRATE such as "
               "pcm,2ch,32+44.1+48,16+20+24 or ac3,6ch,48,640kbps";
    }
    oAudio = {};
    oAudio.m_eFormat = static_cast<CEdidExtBlockCEA861::EAudioFormat>(uiFormat);
    if (!ParseNumberBefore(asFields[1], "ch", oAudio.m_uiChannels) || oAudio.m_uiChannels == 0 ||
        oAudio.m_uiChannels > uiMostChannels)
    {
        return "'" + asFields[1] + "' is not a number of channels such as 2ch, up to 8ch";
    }
    unsigned int uiRates = 0;
    std::string sProblem = ParseBits(gsc_aoAudioRates, asFields[2], "+", uiRates);
    oAudio.m_eSamplingFreq = static_cast<CEdidExtBlockCEA861::EAudioSamplingFreq>(uiRates);
    if (!sProblem.empty())
    {
        return sProblem;
    }
    if (asFields.size() == 4)
    {
        return ParseAudioExtra(asFields[3], oAudio);
    }
    return uiFormat == CEdidExtBlockCEA861::eAudioFormat_Pcm ? "pcm needs its bit depths, such as 16+20+24" : "";
}

std::string ParseSpeakers(const std::string& sText, unsigned int& uiMask)
{
    for (const std::string& sName : SplitText(sText, "+,"))
    {
        for (unsigned int i = gsc_uiListedSpeakers; i < std::size(gsc_apszSpeakers); ++i)
        {
            if (IsSameWord(gsc_apszSpeakers[i], sName.c_str()))
            {
                return "'" + sName + "' goes by its id, as in --set cta.speakers.lfe2=yes";
            }
        }
    }
    return ParseBitsOrNone(gsc_aoSpeakers, sText, "+,", uiMask);
}

std::string ParseAudioSet(const std::string& sText, SEdit& oEdit)
{
    const size_t uiEquals = sText.find('=');
    if (uiEquals == std::string::npos || !ParseNumber(sText.substr(0, uiEquals), oEdit.m_uiNumber))
    {
        return "'" + sText + "' is not NUMBER=SPEC";
    }
    return ParseAudio(sText.substr(uiEquals + 1), oEdit.m_oAudio);
}

// ---- Modes ----

// Without a type, the first of these that knows the mode: what televisions and monitors use, else computed.
// --preferred takes a timing of the library's lists, whose rates are whole; --add-mode asks FindZorTiming.
constexpr const char* gsc_apszDefaultSources[] = { "cea", "dmt-rb", "dmt", "cvt-rb" };

const STimingSource* FindSource(const std::string& sName)
{
    const std::span<const STimingSource> aoSources = GetModeSources();
    const auto itSource = std::find_if(aoSources.begin(), aoSources.end(), [&](const STimingSource& oSource) {
        return strcasecmp(sName.c_str(), oSource.m_pszName) == 0;
    });
    return itSource != aoSources.end() ? &*itSource : nullptr;
}

// A progressive timing, as a size and rate without further words is meant, else the first one.
const CVidParamTimingGeneric& PickTiming(const std::vector<CVidParamTimingGeneric>& aoTimings)
{
    const auto itProgressive =
        std::find_if(aoTimings.begin(), aoTimings.end(),
                     [](const CVidParamTimingGeneric& oTiming) { return oTiming.IsInterlaced() == 0; });
    return itProgressive != aoTimings.end() ? *itProgressive : aoTimings.front();
}

// WxH@R[,TYPE]; without a type the mode itself is kept as well, as the image may have a timing of its own for it.
std::string ParseTiming(const std::string& sText, SEdit& oEdit)
{
    const CTexts asFields = SplitText(sText, ",");
    SAskedMode oMode;
    if (asFields.size() > 2 || !ParseMode(asFields[0], oMode))
    {
        return "'" + sText + "' is not a mode such as 1920x1080@60 or 1920x1080@60,cvt-rb, with a whole number of Hz " +
               "(--add-mode WxH@R,preferred takes others)";
    }
    const bool bTyped = asFields.size() == 2;
    if (!bTyped)
    {
        ParseExactMode(asFields[0], oEdit.m_oWanted.m_oMode);
    }
    const CTexts asAsked =
        bTyped ? CTexts{ asFields[1] } : CTexts(std::begin(gsc_apszDefaultSources), std::end(gsc_apszDefaultSources));
    bool bClockTooHigh = false;
    for (const std::string& sName : asAsked)
    {
        const STimingSource* poSource = FindSource(sName);
        if (poSource == nullptr)
        {
            return RefuseName(sName, GetModeSources());
        }
        const STimingAnswers oAnswers = AskSource(*poSource, oMode);
        if (!oAnswers.m_aoTimings.empty())
        {
            oEdit.m_oTiming = PickTiming(oAnswers.m_aoTimings);
            return "";
        }
        bClockTooHigh = bClockTooHigh || oAnswers.m_bClockTooHigh;
    }
    return bClockTooHigh ? "'" + asFields[0] + "' has no timing with a pixel clock of at most 4294967295 Hz"
           : bTyped      ? asFields[1] + " has no mode '" + asFields[0] + "'"
                         : "no table and no formula has '" + asFields[0] + "'";
}

std::string ParsePlainNumber(const std::string& sText, unsigned int& uiNumber)
{
    return ParseNumber(sText, uiNumber) ? "" : "'" + sText + "' is not a number from 0 to 4294967295";
}

// What DisplayID says of an edit, too, is set or noted after the other bytes, and refuses nothing.
template <class FOLLOW>
CNamedEdit Follow(FOLLOW fnFollow)
{
    return [fnFollow](CFieldEdits& oFields) {
        fnFollow(oFields);
        return std::string();
    };
}

std::string ParseSerial(const std::string& sText, SEdit& oEdit)
{
    std::string sProblem = ParsePlainNumber(sText, oEdit.m_uiNumber);
    oEdit.m_fnNamed = Follow([uiSerial = oEdit.m_uiNumber](CFieldEdits& oFields) { FollowSerial(oFields, uiSerial); });
    return sProblem;
}

std::string ParseColorDepth(const std::string& sText, SEdit& oEdit)
{
    const bool bKnown = FindValue(gsc_aoColorDepths, sText, oEdit.m_uiNumber);
    oEdit.m_fnNamed = Follow([uiBits = ZorStandards::BaseBlock::GetBitsPerColor(oEdit.m_uiNumber)](
                                 CFieldEdits& oFields) { FollowColorDepth(oFields, uiBits); });
    return bKnown ? "" : RefuseName(sText, gsc_aoColorDepths);
}

std::string ParseDeepColor(const std::string& sText, SEdit& oEdit)
{
    std::string sProblem = ParseBitsOrNone(gsc_aoDeepColors, sText, ",+", oEdit.m_uiNumber);
    oEdit.m_fnNamed = Follow([uiBits = oEdit.m_uiNumber](CFieldEdits& oFields) { FollowDeepColor(oFields, uiBits); });
    return sProblem;
}

std::string ParseCode(const std::string& sText, unsigned int& uiCode)
{
    constexpr unsigned int uiMost = 255;
    return ParseNumber(sText, uiCode) && uiCode != 0 && uiCode <= uiMost
               ? ""
               : "'" + sText + "' is not a video code from 1 to " + std::to_string(uiMost);
}

// Of a mode or a code. The DisplayID blocks are edited by parts.
std::string ParseRemoval(const std::string& sText, SEdit& oEdit)
{
    SWanted& oWanted = oEdit.m_oWanted;
    std::string sProblem;
    if (oEdit.m_eKind == eEdit_RemoveCode)
    {
        sProblem = ParseCode(sText, oWanted.m_uiCode);
    }
    else if (!ParseExactMode(sText, oWanted.m_oMode))
    {
        sProblem = "'" + sText +
                   "' is not a mode such as 1920x1080@60, 1920x1080i@59.94 or 1920x1080@60000/1001; 'Hz' may follow";
    }
    oEdit.m_fnNamed = [oWanted](CFieldEdits& oFields) { return RemoveDisplayIdTimings(oFields, oWanted); };
    return sProblem;
}

constexpr SEditOption gsc_aoOptions[] = {
    { eEdit_Serial, "--serial", "N", "Set the serial number of the base block, decimal or hexadecimal after 0x" },
    { eEdit_Remove, "--remove", "WxH[i]@R",
      "Remove a mode from every place that announces it, also those without a number; of an interlaced mode the rate "
      "of fields" },
    { eEdit_RemoveCode, "--remove-vic", "CODE",
      "Remove a video code of CTA-861-H from every place, with the HDMI code of the same format" },
    { eEdit_RemoveStandard, "--remove-standard", "I",
      "Remove a standard timing; of a video code every mention in video and HDMI data blocks, with the 1000/1001 "
      "variant" },
    { eEdit_RemoveDetailed, "--remove-detailed", "I", "Remove a detailed timing" },
    { eEdit_RemoveEstablished, "--remove-established", "I", "Remove an established timing" },
    { eEdit_Preferred, "--preferred", "WxH@R[,TYPE]",
      "Replace the preferred timing, by the image's own timing of this mode, without one by the first of cea, "
      "dmt-rb, dmt and cvt-rb that has it; with TYPE by that of cea, dmt, dmt-rb, cvt-rb, cvt, gtf or smpte" },
    { eEdit_ColorDepth, "--color-depth", "BITS",
      "Set the bits per colour of a digital input: 6, 8, 10, 12, 14, 16 or undefined" },
    { eEdit_DeepColor, "--deep-color", "LIST",
      "Set the HDMI deep colours: some of 30,36,48, or none; in every HDMI data block" },
    { eEdit_AudioAdd, "--audio-add", "SPEC",
      "Add an audio descriptor such as pcm,2ch,32+44.1+48,16+20+24 or ac3,6ch,48,640kbps" },
    { eEdit_AudioSet, "--audio-set", "I=SPEC", "Replace an audio descriptor" },
    { eEdit_AudioRemove, "--audio-remove", "I", "Remove an audio descriptor" },
    { eEdit_Speakers, "--speakers", "LIST",
      "Set the speakers, such as FL/FR+LFE1+FC+BL/BR, in the first speaker data block or a new one; none removes "
      "the data blocks" },
    { eEdit_RepairChecksums, "--repair-checksums", "",
      "Make the checksum of every block right, and a DisplayID section's own" },
    { eEdit_Set, "--set", "FIELD=VALUE",
      "Set any field: by its id (explain --ids), ID[N] of several, or its place such as 0x36.7; in words, units or, "
      "after raw:, bits" },
    { eEdit_Named, "--name", "TEXT", "Set the name of the product, in a new descriptor where there is none",
      ParseName },
    { eEdit_Named, "--serial-text", "TEXT", "Set the serial number that is a text", ParseSerialText },
    { eEdit_Named, "--maker", "ABC", "Set the three letters of the maker", ParseMaker },
    { eEdit_Named, "--product", "N", "Set the product code, decimal or hexadecimal after 0x", ParseProduct },
    { eEdit_Named, "--date", "[WEEK/]YEAR", "Set week and year of manufacture; a year alone is the model year",
      ParseDate },
    { eEdit_Named, "--size", "WxHmm", "Set the size of the picture, in the base block and in detailed timings",
      ParseSize },
    { eEdit_Named, "--range-limits", "LIST", "Set some of 48-144Hz,30-222kHz,600MHz; new range limits need all three",
      ParseRangeLimits },
    { eEdit_Named, "--chromaticities", "LIST",
      "Set the primaries and the white point: srgb, p3, bt2020 or x and y of red, green, blue and white",
      ParseChromaticities },
    { eEdit_Named, "--gamma", "G", "Set the gamma, such as 2.2", ParseGamma },
    { eEdit_Named, "--add-mode", "WxH[i]@R[,...]",
      "Add a mode where it fits: a video code, a detailed timing or DisplayID; a type of 'zoredid timing', preferred "
      "and displayid may follow",
      ParseAddMode },
    { eEdit_Named, "--add-modeline", "LINE", "Add the timing of a line as Xorg, xrandr and cvt have it",
      ParseAddModeline },
    { eEdit_Named, "--add-vic", "CODE", "Add a video code of CTA-861", ParseAddVic },
    { eEdit_Named, "--add-hdr", "LIST",
      "Announce HDR: some of pq, hlg, gamma and sdr, and luminances such as max=600,frame=400,min=0.05", ParseAddHdr },
    { eEdit_Named, "--colorimetry", "LIST",
      "Set the colorimetries: some of bt2020rgb, bt2020ycc, bt2020cycc, oprgb, opycc601, sycc601, xvycc601, xvycc709, "
      "st2113rgb, ictcp, srgb, default-rgb",
      ParseColorimetry },
    { eEdit_Named, "--vrr", "MIN-MAX", "Set the range of variable refresh of HDMI, such as 48-144; range limits follow",
      ParseVrr },
    { eEdit_Named, "--frl", "RATE", "Set the fixed rate link of HDMI: 3x3, 6x3, 6x4, 8x4, 10x4 or 12x4", ParseFrl },
    { eEdit_Named, "--tmds", "MHZ", "Set the highest clock of HDMI, 25 to 600", ParseTmds },
    { eEdit_Named, "--ycbcr420", "CODES",
      "Announce video codes in YCbCr 4:2:0: those that the image has as well, others only so", ParseYCbCr420 },
    { eEdit_Named, "--tile", "CxR,CxR,WxH",
      "Say that this is a tile: columns and rows, its own column and row from 0, its size, such as "
      "2x1,0x0,1920x2160",
      ParseTile },
    { eEdit_Named, "--add", "ID=HEX",
      "Add a data block of any kind by its id (explain --ids) and its payload, a descriptor or a standard timing",
      ParseAdd },
    { eEdit_Named, "--remove-part", "ID[N]",
      "Remove a block, a data block, a descriptor, a timing or an item of a list", ParseRemovePart },
    { eEdit_Named, "--move-part", "ID[N]=PLACE", "Move such a part among its like, from 0; blocks from 1",
      ParseMovePart },
};
} // namespace

std::span<const SEditOption> GetEditOptions() { return gsc_aoOptions; }

std::string ParseEdit(const SEditOption& oOption, const std::string& sValue, SEdit& oEdit)
{
    oEdit = {
        oOption.m_eKind, oOption.m_pszName + (*oOption.m_pszValue != '\0' ? " " + sValue : ""), 0, {}, {}, {}, {}, {}
    };
    switch (oOption.m_eKind)
    {
    case eEdit_Serial:
        return ParseSerial(sValue, oEdit);
    case eEdit_RemoveStandard:
    case eEdit_RemoveDetailed:
    case eEdit_RemoveEstablished:
    case eEdit_AudioRemove:
        return ParsePlainNumber(sValue, oEdit.m_uiNumber);
    case eEdit_Remove:
    case eEdit_RemoveCode:
        return ParseRemoval(sValue, oEdit);
    case eEdit_Preferred:
        oEdit.m_fnNamed = Follow(NoteOtherPreferred);
        return ParseTiming(sValue, oEdit);
    case eEdit_ColorDepth:
        return ParseColorDepth(sValue, oEdit);
    case eEdit_DeepColor:
        return ParseDeepColor(sValue, oEdit);
    case eEdit_AudioAdd:
        oEdit.m_fnNamed = Follow(FollowAudio);
        return ParseAudio(sValue, oEdit.m_oAudio);
    case eEdit_AudioSet:
        return ParseAudioSet(sValue, oEdit);
    case eEdit_Speakers:
        return ParseSpeakers(sValue, oEdit.m_uiNumber);
    case eEdit_RepairChecksums:
        return "";
    case eEdit_Set:
        return ParseSetting(sValue, oEdit.m_oSetting);
    case eEdit_Named:
        return oOption.m_pfnNamed(sValue, oEdit.m_fnNamed);
    }
    return "";
}
