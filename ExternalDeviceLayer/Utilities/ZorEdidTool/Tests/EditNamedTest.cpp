// Edits that have a name of their own: what they leave in the map, and that images stay as sound as they were.

#include <gtest/gtest.h>
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>

#include "CapturedOutput.h"
#include "DisplayIdImages.h"
#include "EditSteps.h"
#include "Findings.h"
#include "SharedFiles.h"
#include "TextFormat.h"
#include "ZorEdidFacts.h"

namespace
{
class EditNamed : public testing::Test
{
protected:
    const CQuietMessages m_oQuiet;
};

// Empty, or why the value or the edit is refused.
std::string Do(CFieldEdits& oFields, const std::string& sOption, const std::string& sValue)
{
    SEdit oEdit = {};
    const std::string sProblem = ParseOption(sOption, sValue, oEdit);
    return sProblem.empty() ? oFields.Do(oEdit.m_fnNamed) : sProblem;
}

struct SNamedCase
{
    const char* m_pszOption;
    const char* m_pszValue;
    const char* m_pszFields; // "ID=VALUE; ...": what the first field of the id then says
};
constexpr SNamedCase gsc_aoCases[] = {
    { "--name", "Test bench", "base.descriptor.text=Test bench" },
    { "--serial-text", "0123456789ABC", "base.descriptor.text=0123456789ABC" },
    { "--maker", "XYZ", "base.identity.manufacturer=XYZ" },
    { "--product", "0x1234", "base.identity.product-code=4660" },
    { "--date", "12/2024", "base.identity.week=12; base.identity.year=2024" },
    { "--date", "2025", "base.identity.model-year=2025" },
    { "--size", "598x336mm", "base.display.screen-width=60 cm; base.detailed.image-width=598 mm" },
    { "--range-limits", "48-300Hz,30-222kHz,595MHz",
      "base.range.min-vertical-rate=48 Hz; base.range.max-vertical-rate=300 Hz; base.range.max-pixel-clock=600 MHz" },
    { "--chromaticities", "bt2020", "base.chromaticity.red-x=0.7080; base.chromaticity.blue-y=0.0459" },
    { "--chromaticities", "srgb", "base.chromaticity.red-x=0.6396" },
    { "--chromaticities", ".1,.2,.3,.4,.5,.4,.25,.75", "base.chromaticity.white-y=0.7500" },
    { "--gamma", "2.4", "base.display.gamma=2.40" },
    { "--add-hdr", "pq,hlg,max=600,frame=400,min=0.05",
      "cta.hdr-static.smpte-st-2084=yes; cta.hdr-static.hlg=yes; cta.hdr-static.traditional-gamma-hdr=no; "
      "cta.hdr-static.max-luminance=603.666 cd/m2; cta.hdr-static.min-luminance=0.04911 cd/m2" },
    { "--colorimetry", "bt2020rgb,dci-p3", "cta.colorimetry.bt2020rgb=yes; cta.colorimetry.bt2020ycc=no" },
    { "--vrr", "48-144",
      "cta.hdmi-forum.vrr-min=48 Hz; cta.hdmi-forum.vrr-max=144 Hz; cta.hdmi.max-tmds-clock=340 MHz" },
    { "--frl", "6x4", "cta.hdmi-forum.max-frl-rate=6 Gbps on 4 lanes; cta.hdmi-forum.max-tmds-character-rate=600 MHz" },
    { "--frl", "3x3", "cta.hdmi-forum.max-frl-rate=3 Gbps on 3 lanes; cta.hdmi-forum.max-tmds-character-rate=600 MHz" },
    { "--tmds", "600", "cta.hdmi-forum.max-tmds-character-rate=600 MHz; cta.hdmi-forum.scdc-present=yes" },
    { "--tmds", "341", "cta.hdmi-forum.max-tmds-character-rate=345 MHz" },
    { "--tmds", "225", "cta.hdmi.max-tmds-clock=225 MHz" },
    { "--ycbcr420", "16,97", "cta.420-map=; cta.420-video=" },
    { "--tile", "2x1,1x0,1920x2160",
      "displayid.tiled.horizontal-tiles=2; displayid.tiled.column=1; displayid.tiled.tile-height=2160 lines" },
    { "--add", "cta.video-capability=4a", "cta.video-capability.qs=yes" },
    { "--remove-part", "displayid.type1", "displayid.type2=" },
    { "--move-part", "displayid=1", "displayid.type1=" },
    // A code, a detailed timing, a timing of DisplayID.
    { "--add-mode", "3840x2160@60", "cta.video.vic=" },
    { "--add-mode", "1280x1024@75,preferred", "base.detailed=1280 x 1024 @ 75.02 Hz" },
    { "--add-mode", "1366x768@75,cvt-rb,preferred", "base.detailed=1366 x 768 @ 74.92 Hz" },
    { "--add-mode", "5120x2880@60,displayid", "displayid.type1.timing=1920 x 1080 @ 60 Hz" },
    { "--add-modeline", "Modeline \"1080p 50\" 148.5 1920 2448 2492 2640 1080 1084 1089 1125 +HSync +vsync",
      "cta.video.vic=" },
    { "--add-vic", "219", "cta.video.vic=" },
};

TEST_F(EditNamed, IsReadBack)
{
    const CBytes aui8Image = MakeEdid({ MakeCeaBlock(), MakeFullDisplayIdBlock() });
    for (const SNamedCase& oCase : gsc_aoCases)
    {
        SCOPED_TRACE(std::string(oCase.m_pszOption) + " " + oCase.m_pszValue);
        CFieldEdits oFields(aui8Image);
        ASSERT_EQ("", Do(oFields, oCase.m_pszOption, oCase.m_pszValue));
        EXPECT_NE(aui8Image, oFields.GetBytes());
        EXPECT_FALSE(oFields.TakeNotes().empty());
        for (const std::string& sField : SplitText(oCase.m_pszFields, ";"))
        {
            const size_t uiEquals = sField.find('=');
            const size_t uiFirst = sField.find_first_not_of(' ');
            const CZorEdidMap& oMap = oFields.GetMap();
            const unsigned int uiField =
                oMap.FindField(CZorEdidMap::FindId(sField.substr(uiFirst, uiEquals - uiFirst).c_str()));
            ASSERT_NE(CZorEdidMap::msc_uiNone, uiField) << sField;
            EXPECT_TRUE(uiEquals + 1 == sField.size() ||
                        sField.substr(uiEquals + 1) == static_cast<const char*>(oMap.GetValue(uiField)))
                << sField << ": " << static_cast<const char*>(oMap.GetValue(uiField));
        }
    }
}

TEST_F(EditNamed, ModesGoWhereTheyFit)
{
    const struct
    {
        const char* m_pszMode;
        EZorEdidField m_eId;
        unsigned int m_uiCount;
    } aoCases[] = {
        { "3840x2160@60", eZorEdidField_CtaVideoVic, 3 },
        { "2560x1440@60,cvt-rb", eZorEdidField_BaseDetailed, 3 },
        { "1280x720@60,displayid", eZorEdidField_DisplayidType1Timing, 2 },
        { "1920x1080@60,displayid", eZorEdidField_DisplayidType1Timing, 1 }, // it is there already
        { "7680x4320@60,cvt-rb2", eZorEdidField_DisplayidType1Timing, 2 },   // too wide for a detailed timing
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszMode);
        CFieldEdits oFields(MakeEdid({ MakeCeaBlock(), MakeFullDisplayIdBlock() }));
        ASSERT_EQ("", Do(oFields, "--add-mode", oCase.m_pszMode));
        EXPECT_EQ(oCase.m_uiCount, oFields.GetMap().CountFields(oCase.m_eId));
    }
}

// A timing that is there is not added twice, a full base block gives its last timing away, and the flag of sRGB goes
// with colours and gamma.
TEST_F(EditNamed, RoomIsFoundAndNothingIsThereTwice)
{
    CBytes aui8Image = MakeEdid({ MakeCeaBlock() });
    aui8Image[0x7E] = 1;
    CFieldEdits oFields(FixChecksums(aui8Image));
    ASSERT_EQ("", Do(oFields, "--serial-text", "1"));
    ASSERT_EQ("", Do(oFields, "--range-limits", "24-144Hz,30-222kHz,600MHz"));
    const unsigned int uiTimings = oFields.GetMap().CountFields(eZorEdidField_BaseDetailed);
    for (unsigned int i = 1; i <= 2; ++i)
    {
        ASSERT_EQ("", Do(oFields, "--add-mode", i == 1 ? "2560x1440@60,cvt-rb" : "1600x900@60,preferred,cvt-rb"));
        EXPECT_EQ(uiTimings + i, oFields.GetMap().CountFields(eZorEdidField_BaseDetailed));
        const CBytes aui8Once = oFields.GetBytes();
        ASSERT_EQ("", Do(oFields, "--add-mode", i == 1 ? "2560x1440@60,cvt-rb" : "1600x900@60,preferred,cvt-rb"));
        EXPECT_EQ(aui8Once, oFields.GetBytes());
    }
    ASSERT_EQ("", Do(oFields, "--name", "Full"));
    EXPECT_TRUE(oFields.Has(eZorEdidField_BaseName));
    ASSERT_EQ("", Do(oFields, "--gamma", "2.2"));
    ASSERT_EQ("", Do(oFields, "--chromaticities", "srgb"));
    EXPECT_EQ(1, oFields.GetNumber(eZorEdidField_BaseDisplaySrgbDefault));
    ASSERT_EQ("", Do(oFields, "--gamma", "2.4"));
    EXPECT_EQ(0, oFields.GetNumber(eZorEdidField_BaseDisplaySrgbDefault));
    EXPECT_NE(std::string::npos, JoinTexts(oFields.TakeNotes()).find("it made room in the base block"));
}

TEST_F(EditNamed, IsRefused)
{
    const char* const aapszCases[][2] = {
        { "--name", "fourteen chars" },
        { "--maker", "ab" },
        { "--product", "65536" },
        { "--date", "55/2024" },
        { "--date", "1989" },
        { "--size", "600x340" },
        { "--range-limits", "48-144" },
        { "--range-limits", "48-144Hz" }, // no range limits are there
        { "--chromaticities", "adobe" },
        { "--chromaticities", ".6,.5,.3,.6,.1,.1,.3,.3" },
        { "--chromaticities", ".6,.3,.3,.6,.1,0,.3,.3" },
        { "--gamma", "9" },
        { "--add-mode", "1920x1080" },
        { "--add-mode", "1920x1080@60,vesa" },
        { "--add-modeline", "74.25 1280 1390" },
        { "--add-vic", "128" },
        { "--add-hdr", "dolby" },
        { "--add-hdr", "hlg,min=0.05" }, // without a maximum
        { "--colorimetry", "rgb" },
        { "--vrr", "60-144" },
        { "--frl", "5x4" },
        { "--tmds", "601" },
        { "--ycbcr420", "0" },
        { "--tile", "2x1,2x0,1x1" },
        { "--add", "base.gamma=00" },
        { "--add", "cta.hdr-static=0" },
        { "--remove-part", "base" },
        { "--remove-part", "base.detailed" }, // the preferred one
        { "--remove-part", "cta.audio" },
        { "--move-part", "displayid=3" },
    };
    const CBytes aui8Image = MakeEdid({ MakeCeaBlock(), MakeFullDisplayIdBlock() });
    for (const auto& [pszOption, pszValue] : aapszCases)
    {
        CFieldEdits oFields(aui8Image);
        EXPECT_NE("", Do(oFields, pszOption, pszValue)) << pszOption << " " << pszValue;
    }
}

// Codes in a DisplayID section have no place in the map of a CTA-861 block.
TEST_F(EditNamed, PlacesOf420)
{
    CBytes aui8Cta = ParseBytes("02 03 07 00 42 61 60");
    aui8Cta.resize(gsc_uiBlockSize);
    CFieldEdits oFields(
        MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(0x81, 0, ParseBytes("42 10 1F"))), FixChecksums(aui8Cta) }));
    EXPECT_EQ("", Do(oFields, "--ycbcr420", "97"));
    EXPECT_EQ(CBytes{ 1 }, oFields.GetPayload(eZorEdidField_Cta420Map));
}

// A new first timing of another picture is not native: neither by the bit of EDID 1.4 nor by the count of CTA-861.
TEST_F(EditNamed, NewPreferredTimingIsNotNative)
{
    const struct
    {
        const char* m_pszMode;
        bool m_bNative;
    } aoCases[] = {
        { "1280x1024@75,preferred", false },
        { "1280x1024@75", true },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszMode);
        CFieldEdits oFields(MakeEdid({ MakeCeaBlock() }));
        ASSERT_EQ("", oFields.Set(eZorEdidField_BaseDisplayPreferredIsNative, "yes"));
        ASSERT_EQ("", oFields.Set(eZorEdidField_CtaNativeCount, "1"));
        ASSERT_EQ("", Do(oFields, "--add-mode", oCase.m_pszMode));
        EXPECT_EQ(oCase.m_bNative ? 1 : 0, oFields.GetNumber(eZorEdidField_BaseDisplayPreferredIsNative));
        EXPECT_EQ(oCase.m_bNative ? 1 : 0, oFields.GetNumber(eZorEdidField_CtaNativeCount));
        EXPECT_EQ(oCase.m_bNative, JoinTexts(oFields.TakeNotes()).find("is not called native") == std::string::npos);
    }
}

// Bytes of the base block that is edited.
CBytes MakePatched(const std::vector<std::pair<unsigned int, unsigned char>>& aoBytes)
{
    CBytes aui8Image = MakeEdid({ MakeCeaBlock() });
    for (const auto& [uiOffset, ui8Byte] : aoBytes)
    {
        aui8Image[uiOffset] = ui8Byte;
    }
    return FixChecksums(aui8Image);
}

// The first section repeats what the image says, and says of the rest as little as it can.
TEST_F(EditNamed, FirstDisplayId)
{
    const struct
    {
        CBytes m_aui8Image;
        EZorEdidField m_eId;
        const char* m_pszValue;
        const char* m_pszSaid;
    } aoCases[] = {
        { MakePatched({}), eZorEdidField_DisplayidParametersAudioSupport, "no", "a standalone display device; " },
        { MakePatched({ { 0x15, 160 }, { 0x16, 90 } }), eZorEdidField_DisplayidParametersImageWidth, "not given", "" },
        { MakePatched({ { 0x15, 160 }, { 0x16, 120 }, { 0x18, 0 } }), eZorEdidField_DisplayidParametersAspectRatio,
          "1.33", "" },
        { MakePatched({ { 0x18, 0 } }), eZorEdidField_DisplayidParametersHorizontalPixels, "not given", "" },
        { MakePatched({ { 0x14, 0x80 } }), eZorEdidField_DisplayidParametersNativeBitDepth, "8 bits per color",
          "DVI, 8 bits per colour; " },
        { MakePatched({ { 0x10, 9 }, { 0x11, 5 } }), eZorEdidField_DisplayidProductWeek, "not given",
          "DisplayID says 2000 for the year" },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(CZorEdidMap::GetId(oCase.m_eId));
        CFieldEdits oFields(oCase.m_aui8Image);
        ASSERT_EQ("", Do(oFields, "--add-mode", "1280x1024@75,displayid"));
        const CZorEdidMap& oMap = oFields.GetMap();
        EXPECT_STREQ(oCase.m_pszValue, oMap.GetValue(oMap.FindField(oCase.m_eId)));
        const std::string sSaid = JoinTexts(oFields.TakeNotes());
        EXPECT_NE(std::string::npos, sSaid.find(oCase.m_pszSaid)) << sSaid;
    }
}

// Product, display parameters and colours: serial number 5, 8 bits, CIE 1931.
CBytes MakeDisplayId1()
{
    return MakeEdid(
        { MakeDisplayIdBlock(Join({ MakeDataBlock(0, 0, ParseBytes("41 42 43 01 00 05 00 00 00 01 14 00")),
                                    MakeDataBlock(1, 0, ParseBytes("00 14 C0 0D 80 07 38 04 00 78 4E 77")),
                                    MakeDataBlock(2, 0, ParseBytes("31 3D 8A 54 CD 04 99 66 92 09 01 05 55")) })) });
}

// Display parameters of version 2: 8 bits, CIE 1976, one colour for all.
CBytes MakeDisplayId2()
{
    return MakeEdid({ MakeDisplayIdBlock(
        MakeDataBlock(0x21, 0, ParseBytes("00 14 C0 0D 80 07 38 04 40 3D 8A 54 3D 8A 54 3D 8A 54 3D 8A 54 00*6 12 78")),
        UINT_MAX, 0x20) });
}

// HDMI, whose size is a ratio.
CBytes MakeHdmi()
{
    CBytes aui8Cta = ParseBytes("02 03 0F 30 6A 03 0C 00 10 00 00 3C 20 08 00");
    aui8Cta.resize(gsc_uiBlockSize);
    return FixChecksums(aui8Cta);
}

// RGB in 8 bits.
CBytes MakeInterface(std::vector<CBytes> aaui8Blocks)
{
    aaui8Blocks.push_back(MakeDisplayIdBlock(MakeDataBlock(0x0F, 0, ParseBytes("A4 12 02 00 00 00 00 00 00 00"))));
    return MakeEdid(aaui8Blocks);
}

// A CTA-861 block of HDMI with six timings and 7 bytes left.
CBytes MakeFullHdmi()
{
    CBytes aui8Cta = ParseBytes("02 03 0C 30 67 03 0C 00 10 00 F8 3C");
    for (unsigned int i = 0; i < 6; ++i)
    {
        Append(aui8Cta, Detailed1080p());
    }
    aui8Cta.resize(gsc_uiBlockSize);
    return MakeEdid({ FixChecksums(aui8Cta) });
}

CBytes MakePreferringDisplayId()
{
    CBytes aui8Record = Type1Record1080p();
    aui8Record[0] ^= 0x40; // another clock than in the base block
    aui8Record[3] = 0x80;
    return MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(3, 1, aui8Record)) });
}

CBytes MakeOldImage()
{
    CBytes aui8Image = MakeEdid({ MakeCeaBlock() });
    aui8Image[0x13] = 0;
    aui8Image[0x18] = 0;
    return FixChecksums(aui8Image);
}

// What follows from an edit is done or said, and what was not there has no value before.
TEST_F(EditNamed, SaysWhatFollows)
{
    const struct
    {
        CBytes m_aui8Image;
        const char* m_pszOption;
        const char* m_pszValue;
        const char* m_pszSaid; // in a note or in the refusal
        const char* m_pszUnsaid = "internal";
    } aoCases[] = {
        { MakeDisplayId1(), "--serial", "77", "Serial number: 5 became 77" },
        { MakeDisplayId1(), "--color-depth", "12", "overall: 8 bits per color became 12 bits" },
        { MakeDisplayId1(), "--color-depth", "6", "overall: 8 bits per color became 6 bits" },
        { MakeDisplayId1(), "--color-depth", "undefined", "DisplayID still says 8 bits per color: " },
        { MakeDisplayId1(), "--maker", "XYZ", "ABC became XYZ" },
        { MakeDisplayId1(), "--date", "5/2024", "2020 became 2024" },
        { MakeDisplayId1(), "--date", "5/1995", "DisplayID still says 2020: its first year is 2000" },
        { MakeDisplayId1(), "--audio-add", "pcm,2ch,48,16", "Audio support on video interface: no became yes" },
        { MakeInterface({}), "--color-depth", "12", "RGB 4:4:4, 12 bits per color: not", "YCbCr" },
        { MakeInterface({}), "--deep-color", "30", "RGB 4:4:4, 10 bits per color: not", "12 bits" },
        { MakeInterface({ MakeHdmi() }), "--color-depth", "12", "", "RGB" },
        { MakeEdid({ MakeHdmi() }), "--size", "597x336mm", "the right aspect ratio only became the base block's" },
        { MakePreferringDisplayId(), "--preferred", "1280x1024@75", "DisplayID still prefers" },
        { MakeDisplayId1(), "--chromaticities", "p3", "> y: 0.3320 became 0.3289", "still says" },
        { MakeDisplayId2(), "--color-depth", "10", "native: 8 bits per color became 10 bits per color" },
        { MakeDisplayId2(), "--color-depth", "14", "DisplayID still says 8 bits per color: " },
        { MakeDisplayId2(), "--chromaticities", "srgb", "Primary color 1 x: 0.6399 became 0.4507" }, // u' of red
        { MakeEdid({ MakeCeaBlock() }), "--tmds", "300", "Max_TMDS_Clock: is 300 MHz", "became" },
        { MakeEdid({ MakeCeaBlock() }), "--add-hdr", "pq", "SMPTE ST 2084: is yes", "became" },
        { MakeEdid({ MakeCeaBlock() }), "--frl", "6x4", "the base block says that the input is DisplayPort" },
        { MakeFullHdmi(), "--vrr", "48-144", "no mode has a rate of 144 Hz" },
        { MakeFullHdmi(), "--frl", "6x4", "it made room in block 1" },
        { MakePreferringDisplayId(), "--add-mode", "1280x1024@75,preferred", "DisplayID still prefers" },
        { MakeOldImage(), "--add-mode", "1280x1024@75,preferred", "Preferred timing mode: no became yes" },
        { MakeOldImage(), "--date", "54/2020", "before EDID 1.4 weeks are 1 to 53" },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(std::string(oCase.m_pszOption) + " " + oCase.m_pszValue);
        CFieldEdits oFields(oCase.m_aui8Image);
        const std::string sProblem = Do(oFields, oCase.m_pszOption, oCase.m_pszValue);
        const std::string sSaid = sProblem + JoinTexts(oFields.TakeNotes());
        EXPECT_NE(std::string::npos, sSaid.find(oCase.m_pszSaid)) << sSaid;
        EXPECT_EQ(std::string::npos, sSaid.find(oCase.m_pszUnsaid)) << sSaid;
    }
}

// A full base block: DisplayID takes the timing where the image has no CTA-861, and a refusal names what the image had
// before the call, but not its preferred timing.
TEST_F(EditNamed, FullBaseBlocks)
{
    const char szString[] = "base.string=000000FE004100000000000000000000000A";
    CFieldEdits oFields(MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(3, 1, Type1Record1080p())) }));
    ASSERT_EQ("", Do(oFields, "--name", "A"));
    ASSERT_EQ("", Do(oFields, "--serial-text", "B"));
    ASSERT_EQ("", Do(oFields, "--range-limits", "24-144Hz,30-222kHz,600MHz"));
    ASSERT_EQ("", Do(oFields, "--add-mode", "1600x900@60,cvt-rb"));
    EXPECT_FALSE(oFields.Has(eZorEdidField_Cta));
    EXPECT_EQ(2U, oFields.GetMap().CountFields(eZorEdidField_DisplayidType1Timing));
    EXPECT_EQ("block 0 lacks 18 bytes", Do(oFields, "--add", szString));
    CFieldEdits oAgain(oFields.GetBytes());
    EXPECT_EQ("block 0 lacks 18 bytes; one of these could go: base.name (A), base.serial (B), "
              "base.range (24 to 144 Hz, 30 to 222 kHz)",
              Do(oAgain, "--add", szString));
}

// A first DisplayID section says no less than the image did, and a further one has the version of the first.
TEST_F(EditNamed, NewDisplayIdBlocks)
{
    const auto fnDepths = [](const CFieldEdits& oFields) {
        CZorEdidFacts oFacts;
        oFacts.Read(oFields.GetMap().GetSize(), oFields.GetMap().GetData());
        const auto& aoDepths = oFacts.GetColour().m_aoDepths;
        return CBytes{ aoDepths[0].m_oValue, aoDepths[1].m_oValue, aoDepths[2].m_oValue };
    };
    CFieldEdits oFields(MakeFullHdmi()); // 48 bits a pixel, also in YCbCr 4:4:4
    const CBytes aui8Before = fnDepths(oFields);
    EXPECT_NE(0, aui8Before[1] & CZorEdidFacts::eDepth_16);
    ASSERT_EQ("", Do(oFields, "--tile", "2x1,1x0,1920x2160"));
    EXPECT_EQ(aui8Before, fnDepths(oFields));

    CBytes aui8Records;
    for (unsigned int i = 0; i < 5; ++i)
    {
        Append(aui8Records, Type1Record1080p());
    }
    CFieldEdits oFull(MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(0x22, 0, aui8Records), UINT_MAX, 0x20) }));
    ASSERT_EQ("", Do(oFull, "--tile", "2x1,1x0,1920x2160"));
    ASSERT_EQ(3 * gsc_uiBlockSize, oFull.GetMap().GetSize());
    EXPECT_EQ(0x20, oFull.GetBytes()[2 * gsc_uiBlockSize + 1]);
}

using CRules = std::map<std::string, unsigned int>;

CRules CountFindings(const CFieldEdits& oFields)
{
    CRules auiRules;
    for (const SFinding& oFinding : CheckImage(oFields.GetMap(), GetThisYear()))
    {
        ++auiRules[FindZorEdidRule(oFinding.m_eRule)->m_pszId];
    }
    return auiRules;
}

// The failures that edid-decode names, without the numbers in them.
std::set<std::string> ListFailures(const CBytes& aui8Image, const std::string& sFile)
{
    std::ofstream(sFile, std::ios::binary)
        .write(reinterpret_cast<const char*>(aui8Image.data()), static_cast<std::streamsize>(aui8Image.size()));
    FILE* pPipe = popen(("edid-decode --check " + sFile + " 2>/dev/null").c_str(), "r");
    std::set<std::string> oFailures;
    bool bFailures = false;
    char szLine[1024];
    while (fgets(szLine, sizeof(szLine), pPipe) != nullptr)
    {
        std::string sLine = szLine;
        std::erase_if(sLine, [](char c) { return (c >= '0' && c <= '9') || c == '.' || c == '\n'; });
        const bool bTitle = sLine == "Failures:" || sLine == "Warnings:";
        bFailures = bTitle ? sLine == "Failures:" : bFailures;
        if (bFailures && !bTitle && !sLine.empty() && !sLine.ends_with(':'))
        {
            oFailures.insert(sLine);
        }
    }
    pclose(pPipe);
    return oFailures;
}

// What a note says instead, and what edid-decode alone finds.
constexpr const char* gsc_aapszSaid[][2] = {
    { "Missing VCDB", "no video capability data block" },
    { "requires EDID", "HDMI asks for EDID 1.3" },
    { "requires CTA Extension revision", "HDMI asks for a CTA-861 block" },
    { "requires that the first Extension Block", "as the first extension block" },
    { "requires that the first Extension Block", "hdmi.not-first-extension" },
    { "Native progressive timings are a mix", "native formats of several sizes" },
    { "Required xp timings", "timing.640x480-missing" },
    { "not immediately follow", "hdmi-forum.not-next" },
    { "Max TMDS rate <", "hdmi-forum.tmds-rate.frl" },
    { "(Monitor:", "beyond-range-limits" },
    { "(Monitor:", "cannot be widened" },
    { "timings are out of range", "beyond-range-limits" },
    { "set to overscanned", "cta.underscan" },
    { "Only one instance", "cta.data-block.repeated" },
    { "sRGB is not signaled", "sRGB is the default color space" },
    { "sRGB is not signaled", "does not say that it is sRGB" },
    { "Block Map", "block.map" },
    { "Must be used in block", "block.map" },
    { "Invalid block number", "block.map" },
    { "expects at least one preferred", "was removed" },
    { "expects at least one preferred", "DisplayID asks for a preferred timing" },
    { "Missing DisplayID Type I", "DisplayID asks for a preferred timing" },
    { "HDMI VIC Codes must have", "is new" },                            // it looks for them in the same block
    { "D_Structure_X", "" },                                             // read beyond a data block that is cut
    { "The DTD max image size", "DisplayID extension block was added" }, // it did not fit before
};

bool IsSaid(const std::string& sFailure, const std::string& sNotes)
{
    return std::ranges::any_of(gsc_aapszSaid, [&](const auto& apszSaid) {
        return sFailure.find(apszSaid[0]) != std::string::npos && sNotes.find(apszSaid[1]) != std::string::npos;
    });
}

// Every option over real images makes no new finding, and no new failure of edid-decode where it is installed, unless a
// note says so; or it is refused.
TEST_F(EditNamed, LeavesImagesSound)
{
    constexpr unsigned int uiEach = 16; // which the peer, a process each time, is asked about
    const bool bInstalled = system("edid-decode --version > /dev/null 2>&1") == 0;
    const std::string sFile = testing::TempDir() + "zoredid-sound-" + std::to_string(getpid());
    for (unsigned int uiImage = 0; const auto& [sName, aui8Image] : ReadImages(ZOREDID_SHARED_DIR "/corpus"))
    {
        const bool bPeer = bInstalled && uiImage++ % uiEach == 0;
        const CRules auiBefore = CountFindings(CFieldEdits(aui8Image));
        const std::set<std::string> oBefore = bPeer ? ListFailures(aui8Image, sFile) : std::set<std::string>();
        for (const SNamedCase& oCase : gsc_aoCases)
        {
            SCOPED_TRACE(sName + " " + oCase.m_pszOption + " " + oCase.m_pszValue);
            CFieldEdits oFields(aui8Image);
            if (!Do(oFields, oCase.m_pszOption, oCase.m_pszValue).empty())
            {
                continue;
            }
            const std::string sNotes = JoinTexts(oFields.TakeNotes());
            for (const auto& [sRule, uiCount] : CountFindings(oFields))
            {
                const auto itBefore = auiBefore.find(sRule);
                EXPECT_TRUE((itBefore != auiBefore.end() && itBefore->second >= uiCount) ||
                            sNotes.find("[" + sRule + "]") != std::string::npos)
                    << sRule;
            }
            for (const std::string& sFailure : bPeer ? ListFailures(oFields.GetBytes(), sFile) : oBefore)
            {
                EXPECT_TRUE(oBefore.contains(sFailure) || IsSaid(sFailure, sNotes)) << sFailure << "\n" << sNotes;
            }
        }
    }
    remove(sFile.c_str());
}
} // namespace
