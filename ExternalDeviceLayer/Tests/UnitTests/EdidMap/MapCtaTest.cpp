// CZorEdidMap over CTA-861 extension blocks: each kind of data block, and what is off about one.

#include <sstream>

#include "MapCases.h"
#include "MapCheck.h"
#include "VidParamCea.h"
#include "VidParamTimingGeneric.h"

namespace
{
constexpr unsigned int gsc_uiHeadSize = 4;

TEST(MapCta, FieldsAndNotesOfEachDataBlock)
{
    for (const SCaseRow& oRow : ReadCases("EdidMap/golden/cta-blocks.txt", 4))
    {
        SCOPED_TRACE(oRow.GetName());
        ExpectFields(MakeCtaImage(oRow), oRow.GetText(3));
    }
}

CBytes MakeBlock(const CBytes& aui8Content)
{
    CBytes aui8Block = { 0x02, 0x03, static_cast<unsigned char>(gsc_uiHeadSize + aui8Content.size()), 0x40 };
    Append(aui8Block, aui8Content);
    aui8Block.resize(gsc_uiBlockSize);
    return aui8Block;
}

// A data block with a payload of FFs.
struct SPlaced
{
    size_t m_uiOffset; // in the image
    CBytes m_aui8Block;
};

// Data blocks of each length up to the most, in as many extension blocks as they need.
std::vector<SPlaced> PlaceEachLength(const CBytes& aui8Header, CBytes& aui8Image)
{
    constexpr size_t uiMost = 31;
    std::vector<SPlaced> aoPlaced;
    CBytes aui8Content;
    const auto fnFlush = [&] {
        Append(aui8Image, MakeBlock(aui8Content));
        aui8Content.clear();
    };
    for (size_t uiLength = aui8Header.size() - 1; uiLength <= uiMost; ++uiLength)
    {
        CBytes aui8Block = aui8Header;
        aui8Block[0] = static_cast<unsigned char>(aui8Block[0] | uiLength);
        aui8Block.resize(1 + uiLength, 0xFF);
        if (gsc_uiHeadSize + aui8Content.size() + aui8Block.size() >= gsc_uiBlockSize)
        {
            fnFlush();
        }
        aoPlaced.push_back({ aui8Image.size() + gsc_uiHeadSize + aui8Content.size(), aui8Block });
        Append(aui8Content, aui8Block);
    }
    fnFlush();
    return aoPlaced;
}

// No two rows of a table share a bit, and every byte is covered, whatever the length; and what each kind is about.
TEST(MapCta, EachKindOfEachLength)
{
    struct SKinds
    {
        CZorEdidMap::EArea m_eArea;
        const char* m_pszHeaders; // each one ended by a semicolon
    };
    static constexpr SKinds aoKinds[] = {
        { CZorEdidMap::eArea_Structure, "E0 78;" },
        { CZorEdidMap::eArea_Identity, "E0 21;" },
        { CZorEdidMap::eArea_Display, "60 03 0C 00;60 D8 5D C4;E0 00;E0 02;E0 20;E0 79;" },
        { CZorEdidMap::eArea_Colour, "A0;E0 01 8B 84 90;E0 01 46 D0 00;E0 05;E0 06;E0 07;E0 7A;" },
        { CZorEdidMap::eArea_Timing, "40;C0;E0 03;E0 08;E0 0D;E0 0E;E0 0F;E0 22;E0 23;E0 2A;" },
        { CZorEdidMap::eArea_Audio, "20;80;E0 11 46 D0 00;E0 12;E0 13;E0 14;" },
        { CZorEdidMap::eArea_Vendor, "60 1A 00 00;60 5C 12 CA;60 FB BB 1A;60 01 02 03;E0 01 01 02 03;E0 11 01 02 03;" },
        { CZorEdidMap::eArea_Unused, "00;E0 04;E0 09;E0 10;E0 15;E0 24;E0 2B;E0 7B;E0 80;E0 FF;" },
    };
    for (const SKinds& oKinds : aoKinds)
    {
        std::istringstream oStream(oKinds.m_pszHeaders);
        for (std::string sHeader; std::getline(oStream, sHeader, ';');)
        {
            CBytes aui8Image(gsc_uiBlockSize);
            const std::vector<SPlaced> aoPlaced = PlaceEachLength(ParseBytes(sHeader), aui8Image);
            CZorEdidMap oMap;
            oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
            EXPECT_EQ("", CheckMap(oMap)) << sHeader;
            for (const SPlaced& oPlaced : aoPlaced)
            {
                if (oPlaced.m_aui8Block[0] != 0) // a filler
                {
                    const CZorEdidMap::SField& oTag =
                        oMap.GetField(oMap.FindLeaf(static_cast<unsigned int>(oPlaced.m_uiOffset), 7));
                    EXPECT_EQ(oKinds.m_eArea, oMap.GetField(oTag.m_uiGroup).m_eArea) << sHeader;
                }
            }
        }
    }
}

// Places of video codes run on from block to block, in both directions, up to the base block of another EDID.
TEST(MapCta, PlacesOfVideoCodesOverAllBlocks)
{
    CBytes aui8Image =
        Join({ BehindBaseBlock(MakeBlock(ParseBytes("42 90 04 6F 03 0C 00 10 00 00 00 20 C0 05 00 01 00 04 20"))),
               MakeBlock(ParseBytes("41 5F E4 0F 05 00 00 E2 0E 10")), CBytes(gsc_uiBlockSize),
               MakeBlock(ParseBytes("41 61 E2 0F 01")) });
    aui8Image[126] = 4;
    ExpectFields(FixChecksums(aui8Image), "Video code 16, 1920x1080p 59.94/60 Hz 16:9=not in 3D; "
                                          "Video code 95, 3840x2160p 29.97/30 Hz 16:9=in 3D; "
                                          "2D_VIC_order=3840x2160p 29.97/30 Hz 16:9; "
                                          "Video code 16, 1920x1080p 59.94/60 Hz 16:9=also in YCbCr 4:2:0; "
                                          "Video code 4, 1280x720p 59.94/60 Hz 16:9=not in YCbCr 4:2:0; "
                                          "Video code 95, 3840x2160p 29.97/30 Hz 16:9=also in YCbCr 4:2:0; "
                                          "Short video descriptor=1920x1080p 59.94/60 Hz 16:9; !is in a video data "
                                          "block as well: here are codes for YCbCr 4:2:0 only; "
                                          "Unknown extension block=; !not a known kind of extension block; "
                                          "YCbCr 4:2:0 capability map data block=; "
                                          "!the standard allows only one of this kind; "
                                          "Video code 97, 3840x2160p 59.94/60 Hz 16:9=not in YCbCr 4:2:0");
}

// The names of codes against the library's own table of their timings.
TEST(MapCta, NamesOfVideoCodesAreThoseOfTheirTimings)
{
    unsigned int uiCompared = 0;
    for (unsigned int uiVic = 1; uiVic < 128; ++uiVic)
    {
        CVidParamTimingGeneric oTiming;
        if (CVidParamCea::GetVidParamFromVic(uiVic, &oTiming) == 0)
        {
            continue;
        }
        const bool bInterlaced = oTiming.IsInterlaced() != 0;
        CZorEdidMap oMap;
        const CBytes aui8Image = BehindBaseBlock({ 2, 3, 6, 0, 0x41, static_cast<unsigned char>(uiVic) });
        oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
        const std::string sName = static_cast<const char*>(oMap.GetValue(oMap.FindLeaf(gsc_uiBlockSize + 5, 0)));
        const std::string sSize = std::to_string(uiVic) + ", " + std::to_string(oTiming.GetHorizontalActive()) + "x" +
                                  std::to_string(oTiming.GetVerticalActive()) + (bInterlaced ? "i " : "p ");
        const unsigned int uiRate = oTiming.GetVerticalRateInHz() * (bInterlaced ? 2 : 1);
        EXPECT_EQ(0U, sName.find(sSize)) << uiVic << ": " << sName;
        EXPECT_NE(std::string::npos, sName.find(std::to_string(uiRate) + " Hz ")) << uiVic << ": " << sName;
        ++uiCompared;
    }
    EXPECT_LT(80U, uiCompared);
}
} // namespace
