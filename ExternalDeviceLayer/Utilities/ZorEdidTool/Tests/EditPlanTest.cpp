// The edits of the command line: texts against plans, or against the refusal.

#include <gtest/gtest.h>

#include "EditSteps.h"
#include "ModeSources.h"

namespace
{
TEST(EditPlan, Numbers)
{
    const struct
    {
        const char* m_pszOption;
        const char* m_pszValue;
        EEditKind m_eKind;
        unsigned int m_uiNumber;
    } aoCases[] = {
        { "--serial", "0", eEdit_Serial, 0 },
        { "--serial", "4294967295", eEdit_Serial, 0xFFFFFFFF },
        { "--serial", "0XdeadBEEF", eEdit_Serial, 0xDEADBEEF },
        { "--remove-standard", "12", eEdit_RemoveStandard, 12 },
        { "--remove-detailed", "007", eEdit_RemoveDetailed, 7 },
        { "--remove-established", "0x10", eEdit_RemoveEstablished, 16 },
        { "--audio-remove", "1", eEdit_AudioRemove, 1 },
        // The standards' codes of bits per colour.
        { "--color-depth", "undefined", eEdit_ColorDepth, 0 },
        { "--color-depth", "6", eEdit_ColorDepth, 1 },
        { "--color-depth", "8", eEdit_ColorDepth, 2 },
        { "--color-depth", "10", eEdit_ColorDepth, 3 },
        { "--color-depth", "12", eEdit_ColorDepth, 4 },
        { "--color-depth", "14", eEdit_ColorDepth, 5 },
        { "--color-depth", "16", eEdit_ColorDepth, 6 },
        { "--deep-color", "none", eEdit_DeepColor, 0 },
        { "--deep-color", "48,30", eEdit_DeepColor, 5 },
        { "--deep-color", "36+36", eEdit_DeepColor, 2 },
        { "--speakers", "none", eEdit_Speakers, 0 },
        { "--speakers", "FL/FR+LFE+FC+RL/RR", eEdit_Speakers, 0x00F },
        { "--speakers", "FL/FR+LFE1+FC+BL/BR", eEdit_Speakers, 0x00F },
        { "--speakers", "rc,FLC/FRC,RLC/RRC,FLW/FRW", eEdit_Speakers, 0x0F0 },
        { "--speakers", "TpFL/TpFR+TpC+TpFC+BL/BR+BC", eEdit_Speakers, 0x718 },
        { "--speakers", "FLH/FRH,TC,FCH", eEdit_Speakers, 0x700 },
        { "--repair-checksums", "", eEdit_RepairChecksums, 0 },
    };
    for (const auto& oCase : aoCases)
    {
        SEdit oEdit = { eEdit_Preferred, "old", 99, {}, {} };
        EXPECT_EQ("", ParseOption(oCase.m_pszOption, oCase.m_pszValue, oEdit)) << oCase.m_pszValue;
        EXPECT_EQ(oCase.m_eKind, oEdit.m_eKind) << oCase.m_pszOption;
        EXPECT_EQ(oCase.m_uiNumber, oEdit.m_uiNumber) << oCase.m_pszOption << ' ' << oCase.m_pszValue;
        const std::string sValue = oCase.m_pszValue;
        EXPECT_EQ(oCase.m_pszOption + (sValue.empty() ? "" : " " + sValue), oEdit.m_sText);
    }
}

struct SAudioCase
{
    const char* m_pszText;
    unsigned int m_uiFormat; // codes and bits of the standard
    unsigned int m_uiChannels;
    unsigned int m_uiRates;
    unsigned int m_uiExtra;
};

const SAudioCase gsc_aoAudios[] = {
    { "pcm,2ch,32+44.1+48,16+20+24", 1, 2, 0x07, 0x07 },
    { "PCM,8ch,88.2+96+176.4+192,24", 1, 8, 0x78, 0x04 },
    { "pcm,1ch,44+88+176,0x03", 1, 1, 0x2A, 0x03 },
    { "ac3,6ch,48,640kbps", 2, 6, 0x04, 80 },
    { "mpeg1,2ch,48,2040kbps", 3, 2, 0x04, 0xFF },
    { "mp3,2ch,48,0kbps", 4, 2, 0x04, 0 },
    { "mpeg2,2ch,48", 5, 2, 0x04, 0 },
    { "aac,2ch,48,8kbps", 6, 2, 0x04, 1 },
    { "dts,7ch,48+96,1536kbps", 7, 7, 0x14, 192 },
    { "atrac,2ch,32,0xff", 8, 2, 0x01, 0xFF },
    { "1bit,6ch,44.1", 9, 6, 0x02, 0 },
    { "eac3,8ch,48,0x01", 10, 8, 0x04, 1 },
    { "dts-hd,8ch,192,0x1", 11, 8, 0x40, 1 },
    { "mat,8ch,192,0x00", 12, 8, 0x40, 0 },
    { "dst,2ch,48", 13, 2, 0x04, 0 },
    { "wma-pro,8ch,48,0x03", 14, 8, 0x04, 3 },
    { "WMA Pro,8ch,48,0x03", 14, 8, 0x04, 3 }, // as 'show' has them
    { "E-AC-3,8ch,48,0x01", 10, 8, 0x04, 1 },
};

TEST(EditPlan, AudioDescriptors)
{
    for (const SAudioCase& oCase : gsc_aoAudios)
    {
        for (const bool bSet : { false, true })
        {
            SEdit oEdit = {};
            const std::string sOption = bSet ? "--audio-set" : "--audio-add";
            EXPECT_EQ("", ParseOption(sOption, (bSet ? "3=" : "") + std::string(oCase.m_pszText), oEdit))
                << oCase.m_pszText;
            EXPECT_EQ(bSet ? 3U : 0U, oEdit.m_uiNumber);
            EXPECT_EQ(oCase.m_uiFormat, static_cast<unsigned int>(oEdit.m_oAudio.m_eFormat)) << oCase.m_pszText;
            EXPECT_EQ(oCase.m_uiChannels, oEdit.m_oAudio.m_uiChannels) << oCase.m_pszText;
            EXPECT_EQ(oCase.m_uiRates, static_cast<unsigned int>(oEdit.m_oAudio.m_eSamplingFreq)) << oCase.m_pszText;
            EXPECT_EQ(oCase.m_uiExtra, oEdit.m_oAudio.m_uiExtra) << oCase.m_pszText;
        }
    }
}

TEST(EditPlan, RefusalsHaveTheirReason)
{
    const std::string sNumber = " is not a number from 0 to 4294967295";
    const std::string sMode = " is not a mode such as 1920x1080@60 or 1920x1080@60,cvt-rb, with a whole number of Hz "
                              "(--add-mode WxH@R,preferred takes others)";
    const std::string sClock = " has no timing with a pixel clock of at most 4294967295 Hz";
    const std::string sAudio = " is not FORMAT,CHANNELS,RATES,DEPTHS or FORMAT,CHANNELS,RATES,BITRATE such as "
                               "pcm,2ch,32+44.1+48,16+20+24 or ac3,6ch,48,640kbps";
    const std::string sBitRate = " is not a bit rate such as 640kbps, a multiple of 8 up to 2040";
    const std::string sChannels = " is not a number of channels such as 2ch, up to 8ch";
    const struct
    {
        const char* m_pszOption;
        const char* m_pszValue;
        std::string m_sReason;
    } aoCases[] = {
        { "--serial", "4294967296", "'4294967296'" + sNumber },
        { "--serial", "0x100000000", "'0x100000000'" + sNumber },
        { "--serial", "", "''" + sNumber },
        { "--serial", "0x", "'0x'" + sNumber },
        { "--serial", "-1", "'-1'" + sNumber },
        { "--serial", "+1", "'+1'" + sNumber },
        { "--serial", " 1", "' 1'" + sNumber },
        { "--serial", "1 ", "'1 '" + sNumber },
        { "--remove-detailed", "0-2", "'0-2'" + sNumber },
        { "--remove-standard", "1,2", "'1,2'" + sNumber },
        { "--remove-vic", "0", "'0' is not a video code from 1 to 255" },
        { "--remove-vic", "256", "'256' is not a video code from 1 to 255" },
        { "--remove", "1920x1080",
          "'1920x1080' is not a mode such as 1920x1080@60, 1920x1080i@59.94 or 1920x1080@60000/1001; 'Hz' may follow" },
        { "--color-depth", "24", "unknown value '24'; expected one of undefined, 6, 8, 10, 12, 14, 16" },
        { "--color-depth", "8,10", "unknown value '8,10'; expected one of undefined, 6, 8, 10, 12, 14, 16" },
        { "--deep-color", "", "unknown value ''; expected one of 30, 36, 48, none" },
        { "--deep-color", "30,", "unknown value ''; expected one of 30, 36, 48" },
        { "--deep-color", "none,30", "unknown value 'none'; expected one of 30, 36, 48" },
        { "--speakers", "FL/FR+XX",
          "unknown value 'XX'; expected one of FL/FR, LFE1, LFE, FC, BL/BR, RL/RR, BC, RC, FLc/FRc, RLC/RRC, FLw/FRw, "
          "TpFL/TpFR, FLH/FRH, TpC, TC, TpFC, FCH" },
        { "--speakers", "FL/FR+LS/RS", "'LS/RS' goes by its id, as in --set cta.speakers.lfe2=yes" },
        { "--audio-add", "pcm,2ch", "'pcm,2ch'" + sAudio },
        { "--audio-add", "pcm,2ch,48,16,24", "'pcm,2ch,48,16,24'" + sAudio },
        { "--audio-add", "pcm,2ch,48", "pcm needs its bit depths, such as 16+20+24" },
        { "--audio-add", "pcm,2ch,48,18", "unknown value '18'; expected one of 16, 20, 24" },
        { "--audio-add", "pcm,2ch,48,0x100", "'0x100' is not a number from 0 to 255" },
        { "--audio-add", "pcm,2ch,48,0x", "'0x' is not a number from 0 to 255" },
        { "--audio-add", "pcm,2,48,16", "'2'" + sChannels },
        { "--audio-add", "pcm,0ch,48,16", "'0ch'" + sChannels },
        { "--audio-add", "pcm,9ch,48,16", "'9ch'" + sChannels },
        { "--audio-add", "pcm,ch,48,16", "'ch'" + sChannels },
        { "--audio-add", "pcm,2ch,50,16",
          "unknown value '50'; expected one of 32, 44.1, 44, 48, 88.2, 88, 96, 176.4, 176, 192" },
        { "--audio-add", "ac3,2ch,48,644kbps", "'644kbps'" + sBitRate + "; the nearest is 648kbps" },
        { "--audio-add", "ac3,2ch,48,2048kbps", "'2048kbps'" + sBitRate + "; the nearest is 2040kbps" },
        { "--audio-add", "ac3,2ch,48,640", "'640'" + sBitRate },
        { "--audio-add", "ac4,2ch,48", "unknown value 'ac4'; did you mean 'ac3'?" },
        { "--audio-add", "flac",
          "unknown value 'flac'; expected one of pcm, ac3, mpeg1, mp3, mpeg2, aac, dts, atrac, 1bit, eac3, dts-hd, "
          "mat, "
          "dst, wma-pro" },
        { "--audio-add", "1bit,2ch,48,640kbps", "this format takes a byte such as 0x01 in its last field" },
        { "--audio-set", "ac3,2ch,48", "'ac3,2ch,48' is not NUMBER=SPEC" },
        { "--audio-set", "x=ac3,2ch,48", "'x=ac3,2ch,48' is not NUMBER=SPEC" },
        { "--audio-set", "1=", "''" + sAudio },
        { "--preferred", "", "''" + sMode },
        { "--preferred", "1920x1080", "'1920x1080'" + sMode },
        { "--preferred", "1920x1080@59.94", "'1920x1080@59.94'" + sMode },
        { "--preferred", "1920X1080@60", "'1920X1080@60'" + sMode },
        { "--preferred", "1920x1080@60,cea,dmt", "'1920x1080@60,cea,dmt'" + sMode },
        { "--preferred", "1920x1080@60,vesa",
          "unknown value 'vesa'; expected one of dmt, dmt-rb, cvt, cvt-rb, gtf, cea, smpte" },
        { "--preferred", "1921x1080@60,cea", "cea has no mode '1921x1080@60'" },
        { "--preferred", "16000x16000@240", "'16000x16000@240'" + sClock },
        { "--preferred", "16000x16000@240,gtf", "'16000x16000@240'" + sClock },
    };
    for (const auto& oCase : aoCases)
    {
        SEdit oEdit = {};
        EXPECT_EQ(oCase.m_sReason, ParseOption(oCase.m_pszOption, oCase.m_pszValue, oEdit)) << oCase.m_pszValue;
    }
}

TEST(EditPlan, PreferredTimings)
{
    // Without a type the first table that has the mode, a progressive one before an interlaced one, else CVT with
    // reduced blanking. Totals and clocks are the published ones.
    const struct
    {
        const char* m_pszValue;
        unsigned int m_uiHorizontalTotal;
        unsigned int m_uiVerticalTotal;
        unsigned int m_uiClockInKiloHz;
    } aoCases[] = {
        { "1920x1080@60", 2200, 1125, 148500 },        { "1920x1080@30", 2200, 1125, 74250 },
        { "1280x1024@60", 1688, 1066, 108000 },        { "1920x1200@60", 2080, 1235, 154000 },
        { "1920x1200@60,dmt", 2592, 1245, 193250 },    { "1920x1080@60,cvt", 2576, 1120, 173000 },
        { "1920x1080@60,CVT-rb", 2080, 1111, 138500 }, { "1366x768@60,dmt", 1792, 798, 85500 },
    };
    for (const auto& oCase : aoCases)
    {
        SEdit oEdit = {};
        EXPECT_EQ("", ParseOption("--preferred", oCase.m_pszValue, oEdit));
        EXPECT_EQ(oCase.m_uiHorizontalTotal, oEdit.m_oTiming.ComputeHorizontalTotalPixel()) << oCase.m_pszValue;
        EXPECT_EQ(oCase.m_uiVerticalTotal, oEdit.m_oTiming.ComputeVerticalTotalLine()) << oCase.m_pszValue;
        EXPECT_EQ(oCase.m_uiClockInKiloHz, oEdit.m_oTiming.GetPixelClockInKiloHz()) << oCase.m_pszValue;
        EXPECT_EQ(0, oEdit.m_oTiming.IsInterlaced()) << oCase.m_pszValue;
    }
}

// ---- Modes and their sources ----

TEST(Mode, IsThreeNumbersAboveZero)
{
    SAskedMode oMode;
    ASSERT_TRUE(ParseMode("4294967295x1080@60", oMode));
    EXPECT_EQ(4294967295U, oMode.m_uiWidth);
    EXPECT_EQ(1080U, oMode.m_uiHeight);
    EXPECT_EQ(60U, oMode.m_uiRateInHz);
    for (const char* pszText : { "4294967296x1@1", "0x1080@60", "1920x0@60", "1920x1080@0", "1920x1080@60 ", "x@",
                                 "1920x1080x60", "1920@1080x60", " 1920x1080@60", "-1x1@1", "1920x1080@" })
    {
        EXPECT_FALSE(ParseMode(pszText, oMode)) << pszText;
    }
}

TEST(Mode, SourcesGiveEachTimingOnce)
{
    const auto fnAsk = [](const std::string& sSource, const SAskedMode& oMode) {
        for (const STimingSource& oSource : GetModeSources())
        {
            if (sSource == oSource.m_pszName)
            {
                return AskSource(oSource, oMode);
            }
        }
        return STimingAnswers{ {}, true };
    };
    // Codes 4 and 69 differ in their picture aspect only; 34 and 74 are progressive, 5 is interlaced.
    EXPECT_EQ(1U, fnAsk("cea", { 1280, 720, 60 }).m_aoTimings.size());
    EXPECT_EQ(2U, fnAsk("cea", { 1920, 1080, 30 }).m_aoTimings.size());
    EXPECT_EQ(0U, fnAsk("cea", { 1280, 720, 61 }).m_aoTimings.size());
    for (const char* pszFormula : { "cvt", "cvt-rb", "gtf" })
    {
        const STimingAnswers oGood = fnAsk(pszFormula, { 1920, 1080, 60 });
        EXPECT_EQ(1U, oGood.m_aoTimings.size()) << pszFormula;
        EXPECT_FALSE(oGood.m_bClockTooHigh) << pszFormula;
        const STimingAnswers oHigh = fnAsk(pszFormula, { 7680, 4320, 240 }); // about 9 GHz
        EXPECT_EQ(0U, oHigh.m_aoTimings.size()) << pszFormula;
        EXPECT_TRUE(oHigh.m_bClockTooHigh) << pszFormula;
    }
    EXPECT_EQ(1U, fnAsk("cvt-rb", { 7680, 4320, 110 }).m_aoTimings.size()); // below 4.29 GHz
}
} // namespace
