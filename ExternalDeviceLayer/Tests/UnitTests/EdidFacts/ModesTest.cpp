// The list of modes: of real images beside the map and the numbered lists, and of hand-made ones by what each source
// says.

#include "ModesCheck.h"

#include <gtest/gtest.h>

#include "DisplayIdImages.h"
#include "SharedFiles.h"
#include "VidParamTimingGeneric.h"

namespace
{
// A base block of revision 4 with an extension block: what is given from offset 35 and 54 on.
CBytes MakeBase(const std::string& sEstablishedOn, const std::string& sDescriptors = "", unsigned char ui8Features = 2)
{
    CBytes aui8Base = ParseBytes("00 FF*6 00 4C 2D 34 12 00*6 01 04 A5 3C 22 78");
    aui8Base.push_back(ui8Features);
    aui8Base.resize(35);
    Append(aui8Base, ParseBytes(sEstablishedOn));
    while (aui8Base.size() < 54)
    {
        aui8Base.push_back(aui8Base.size() < 38 ? 0 : 1);
    }
    Append(aui8Base, ParseBytes(sDescriptors));
    aui8Base.resize(gsc_uiBlockSize);
    aui8Base[126] = 1;
    return aui8Base;
}

CBytes MakeCta(const std::string& sDataBlocks)
{
    const CBytes aui8Blocks = ParseBytes(sDataBlocks);
    CBytes aui8Cta = { 2, 3, static_cast<unsigned char>(4 + aui8Blocks.size()), 0 };
    Append(aui8Cta, aui8Blocks);
    aui8Cta.resize(gsc_uiBlockSize);
    return aui8Cta;
}

// "1920x1080 60.000 148500 2200x1125 [marks]", a mode each.
std::string Describe(const SZorImageMode& oListed)
{
    constexpr const char* apszNumbers[] = { " none", "", " table", " formula", " assumed" };
    const SZorMode& oMode = oListed.m_oMode;
    char szText[200];
    snprintf(szText, sizeof(szText), "%ux%u%s %.3f %llu %ux%u%s", oMode.m_uiWidth, oMode.m_uiHeight,
             oMode.m_bInterlaced ? "i" : "",
             static_cast<double>(oMode.m_oRate.m_ullDividend) / static_cast<double>(oMode.m_oRate.m_ullDivisor),
             oMode.m_ullClock / 1000, oMode.m_oHorizontal.m_uiTotal, oMode.m_oVertical.m_uiTotal,
             apszNumbers[oListed.m_eNumbers]);
    std::string sText = szText;
    sText += oMode.m_uiRepetition > 1 ? " repeated" : "";
    sText += oMode.m_bFractionToo ? " fraction" : "";
    sText += oMode.m_bNative ? " native" : "";
    sText += oMode.m_eY420 == SZorMode::eY420_Only ? " only" : oMode.m_eY420 == SZorMode::eY420_Also ? " also" : "";
    sText += oListed.m_uiStereo != 0 ? " 3d=" + std::to_string(oListed.m_uiStereo) : "";
    sText += oListed.m_uiPreference != 0 ? " #" + std::to_string(oListed.m_uiPreference) : "";
    return sText;
}

void ExpectModes(const CBytes& aui8Image, const std::vector<std::string>& asExpected)
{
    CZorEdidModes oModes;
    CZorEdidMap oMap;
    const auto pui8Copy = CopyToHeap(aui8Image);
    EXPECT_EQ(1, oModes.Read(static_cast<unsigned int>(aui8Image.size()), pui8Copy.get()));
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), pui8Copy.get());
    EXPECT_EQ("", CheckModes(oModes, oMap));
    std::vector<std::string> asModes;
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        asModes.push_back(Describe(oModes.Get(i)));
    }
    EXPECT_EQ(asExpected, asModes);
}

void ExpectCtaModes(const std::string& sDataBlocks, const std::vector<std::string>& asExpected)
{
    ExpectModes(Join({ MakeBase("00 00 00"), MakeCta(sDataBlocks) }), asExpected);
}

// Established I and II: the makers' own numbers; 1920x1200, whose code DMT has, and 1152x720, whose code it lacks.
TEST(Modes, EstablishedAndStandard)
{
    const std::string sLists = "80 20 80 D1 00 71 00";
    const std::vector<std::string> asTables = { "720x400 70.082 28320 900x449 table",
                                                "832x624 74.551 57284 1152x667 table",
                                                "1152x870 75.062 100000 1456x915 table",
                                                "1920x1200 59.885 193250 2592x1245 table" };
    const auto fnExpect = [&](const std::string& sDescriptors, unsigned char ui8Features, const char* pszAssumed) {
        std::vector<std::string> asExpected = asTables;
        asExpected.push_back(pszAssumed);
        ExpectModes(MakeBase(sLists, sDescriptors, ui8Features), asExpected);
    };
    const char* const pszGtf = "1152x720 60.000 67319 1504x746 assumed";
    const char* const pszCvt = "1152x720 59.972 66750 1488x748 assumed";
    fnExpect("", 3, pszGtf);
    fnExpect("00*3 FD 00 30 90 1E DE 3C 04 11*7", 3, pszCvt);
    fnExpect("00*3 FD 02 30 90 1E DE 3C 04 11*7", 3, pszCvt); // with offsets of rates
    fnExpect("00*3 FD 00 30 90 1E DE 3C 04 11*7", 2, pszGtf); // not any rate
    fnExpect("00*3 FD 00 30 90 1E DE 3C 02 00 00 46 58 02 80 28", 3, "1152x720 60.000 65170 1456x746 assumed");
}

TEST(Modes, Descriptors)
{
    ExpectModes(MakeBase("00 00 00", "02 3A 80 18 71 38 2D 40 58 2C 45 00 58 54 21 00 00 1E"
                                     " 00*3 F7 00 0A 80 00*11 00*3 F8 00 01 37 10 28 00*9 00*3 FA 00 81 80 01*10 0A"),
                { "1920x1080 60.000 148500 2200x1125 native #1", "640x350 85.080 31500 832x445 table",
                  "832x624 59.824 41000 1056x649 formula", "1280x1024 60.020 108000 1688x1066 table" });
}

// Codes from 193 on are no native forms; a map by place; HDMI's own codes and 3D; preferences by reference.
TEST(Modes, VideoCodes)
{
    ExpectCtaModes("45 90 06 C1 61 DB 6D 03 0C 00 10 00 00 00 20 A0 22 03 00 41 E2 0D 10 E2 0F 10 E2 0E 60",
                   { "1920x1080 60.000 148500 2200x1125 table fraction native 3d=65 #1",
                     "720x480i 60.000 27027 1716x525 table repeated fraction 3d=65",
                     "5120x2160 120.000 1485000 5500x2250 table fraction 3d=65",
                     "3840x2160 60.000 594000 4400x2250 table fraction 3d=65",
                     "4096x2160 120.000 1188000 4400x2250 table fraction also 3d=65",
                     "3840x2160 24.000 297000 5500x2250 table fraction",
                     "3840x2160 50.000 594000 5280x2250 table only" });
}

// 1280x720 at 24, 30 and 60 Hz with 1000/1001; a DMT code; a timing that takes its own blanking. The first rate is
// native, the others are preferred by reference; what a reference misses ranks nothing.
TEST(Modes, FormatsAndTypesInCta)
{
    ExpectCtaModes(
        "C3 40 41 02 E3 23 00 09 E8 2A 00 03 7F 07 37 04 3B E2 08 A1 E6 0D A5 A6 92 FE 91",
        { "1280x720 24.000 35520 1600x925 formula fraction native", "1280x720 30.000 35520 1600x740 formula fraction",
          "1280x720 60.000 67488 1480x760 formula fraction #1", "1280x720 30.000 35520 1600x740 formula fraction",
          "1280x720 60.000 67488 1480x760 formula fraction", "800x600 60.317 40000 1056x628 table #2",
          "1920x1080 60.000 133320 2000x1111 formula #3" });
}

TEST(Modes, DisplayId)
{
    const CBytes aui8Type3 = ParseBytes("94 EF 3B"); // CVT reduced blanking, 16:9
    const CBytes aui8Cta = ParseBytes("41 10");
    ExpectModes(Join({ MakeBase("00 00 00"),
                       MakeDisplayIdBlock(Join({ MakeDataBlock(3, 0, Type1Record1080p()),
                                                 MakeDataBlock(5, 0, aui8Type3), MakeDataBlock(0x81, 0, aui8Cta) })) }),
                { "1920x1080 60.000 148500 2200x1125", "1920x1080 59.934 138500 2080x1111 formula #1",
                  "1920x1080 60.000 148500 2200x1125 table fraction" });
}

// A map counts the codes of all CTA-861 blocks that the image counts; those of a DisplayID section are its own.
TEST(Modes, PlacesOfVideoCodes)
{
    const CBytes aui8Cta = ParseBytes("42 10 1F E2 0F 02");
    const CBytes aui8Section = MakeDisplayIdBlock(MakeDataBlock(0x81, 0, aui8Cta));
    CBytes aui8Base = MakeBase("00 00 00");
    aui8Base[126] = 3;
    ExpectModes(Join({ aui8Base, aui8Section, MakeCta("42 61 60 E2 0F 04"), MakeCta("41 5F") }),
                { "1920x1080 60.000 148500 2200x1125 table fraction", "1920x1080 50.000 148500 2640x1125 table also",
                  "3840x2160 60.000 594000 4400x2250 table fraction", "3840x2160 50.000 594000 5280x2250 table",
                  "3840x2160 30.000 297000 4400x2250 table fraction also" });
    ExpectModes(Join({ MakeBase("00 00 00"), MakeCta("41 61 E2 0F 03"), MakeCta("41 5F") }),
                { "3840x2160 60.000 594000 4400x2250 table fraction also" });
}

// Revisions are those of version 1: another version is read as its first one, square pixels and no preferred timing.
TEST(Modes, OtherVersion)
{
    CBytes aui8Image = Join({ MakeBase("00 00 00 81 00", "", 0), MakeCta("41 10") });
    aui8Image[18] = 2;
    ExpectModes(aui8Image,
                { "1280x1280 60.000 137376 1728x1325 assumed", "1920x1080 60.000 148500 2200x1125 table fraction" });
}

TEST(Modes, Partner)
{
    CZorEdidModes oModes;
    const CBytes aui8Image = Join({ MakeBase("00 00 00"), MakeCta("41 10") });
    oModes.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    SZorMode oPartner = {};
    ASSERT_TRUE(CZorEdidModes::GetPartner(oModes.Get(0).m_oMode, oPartner));
    EXPECT_EQ(148351648U, oPartner.m_ullClock);
    EXPECT_EQ(1001 * 60 * oPartner.m_oRate.m_ullDividend, 60000 * 60 * oPartner.m_oRate.m_ullDivisor);
    // Reduced blanking 2 has its clock at 1000/1001 by the formula: DMT 58h.
    const CBytes aui8Type5 =
        Join({ MakeBase("00 00 00"), MakeDisplayIdBlock(MakeDataBlock(0x11, 0, ParseBytes("10 00 FF 0F 6F 08 3B"))) });
    CZorEdidModes oReduced;
    oReduced.Read(static_cast<unsigned int>(aui8Type5.size()), aui8Type5.data());
    SZorMode oVideo = {};
    ASSERT_TRUE(CZorEdidModes::GetPartner(oReduced.Get(0).m_oMode, oVideo));
    EXPECT_EQ(556188000U, oVideo.m_ullClock);
    EXPECT_FALSE(CZorEdidModes::GetPartner(oPartner, oPartner));
    EXPECT_EQ(0, oModes.Read(127, aui8Image.data()));
    EXPECT_EQ(0U, oModes.GetCount());
    EXPECT_EQ(nullptr, oModes.GetPreferred());
}

// Over real images: the modes of the map, and the numbers of the lists. A detailed timing has the same clock in both.
TEST(Modes, AgreeWithMapAndLists)
{
    const auto oImages = ReadImages(ZOREDID_SHARED_DIR "/corpus");
    if (oImages.empty())
    {
        GTEST_SKIP() << "no real images";
    }
    for (const auto& [sName, aui8Image] : oImages)
    {
        CEdid oEdid;
        CZorEdidModes oModes;
        CZorEdidMap oMap;
        const unsigned int uiSize = static_cast<unsigned int>(aui8Image.size());
        oModes.Read(uiSize, aui8Image.data());
        oMap.Read(uiSize, aui8Image.data());
        EXPECT_EQ("", CheckModes(oModes, oMap)) << sName;
        if (oEdid.SetEdidBuffer(aui8Image.data(), uiSize, 0) == 0)
        {
            continue;
        }
        oModes.SetNumbers(oEdid);
        unsigned int uiDetailed = 0;
        for (unsigned int i = 0; i < oModes.GetCount(); ++i)
        {
            const SZorImageMode& oMode = oModes.Get(i);
            CVidParamTimingGeneric oTiming;
            if (oMode.m_eList == SZorImageMode::eList_Detailed && oEdid.GetDetailed(oMode.m_uiNumber, &oTiming) != 0)
            {
                ++uiDetailed;
                EXPECT_EQ(oMode.m_oMode.m_ullClock, oTiming.GetPixelClockInHz()) << sName << oMode.m_uiOffset;
            }
        }
        CTimingOrigins aoOrigins;
        oEdid.ListDetailedOrigins(aoOrigins);
        EXPECT_EQ(aoOrigins.GetCount(), uiDetailed) << sName;
    }
}
} // namespace
