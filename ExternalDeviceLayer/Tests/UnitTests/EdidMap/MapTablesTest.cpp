// Names in the map against tables of names in the optional folder with further data (docs/test-data.md).

#include "DisplayIdImages.h"
#include "MapCases.h"
#include "MapReference.h"

namespace
{
class MapTables : public testing::Test
{
protected:
    void ReadMap(const CBytes& aui8Image)
    {
        ASSERT_EQ(1, m_oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data()));
    }
    std::string GetValue(unsigned int uiOffset, unsigned int uiBit = 0) const
    {
        return static_cast<const char*>(m_oMap.GetValue(m_oMap.FindLeaf(uiOffset, uiBit)));
    }
    std::string GetName(unsigned int uiOffset, unsigned int uiBit) const
    {
        return m_oMap.GetField(m_oMap.FindLeaf(uiOffset, uiBit)).m_pszName;
    }

    // Of the leaf at bit 0 of a byte, or of its group.
    CZorEdidMap::SMode GetMode(unsigned int uiOffset, bool bGroup) const
    {
        const unsigned int uiLeaf = m_oMap.FindLeaf(uiOffset, 0);
        CZorEdidMap::SMode oMode = {};
        EXPECT_TRUE(m_oMap.GetMode(bGroup ? m_oMap.GetField(uiLeaf).m_uiGroup : uiLeaf, oMode)) << uiOffset;
        return oMode;
    }

    CZorEdidMap m_oMap;
};

std::vector<unsigned int> Numbers(const CLine& asLine, const std::vector<size_t>& auiColumns)
{
    std::vector<unsigned int> auiNumbers;
    std::ranges::transform(auiColumns, std::back_inserter(auiNumbers),
                           [&](size_t uiColumn) { return ParseNumber(asLine[uiColumn]); });
    return auiNumbers;
}

std::vector<unsigned int> GetNumbers(const CZorEdidMap::SMode& oMode)
{
    const SZorMode::SAxis& oX = oMode.m_oHorizontal;
    const SZorMode::SAxis& oY = oMode.m_oVertical;
    return { oX.m_uiActive, oX.m_uiFront, oX.m_uiSync, oX.m_uiTotal,
             oY.m_uiActive, oY.m_uiFront, oY.m_uiSync, oY.m_uiTotal };
}

std::string GetSigns(const CZorEdidMap::SMode& oMode)
{
    return std::string(oMode.m_oHorizontal.m_bPositive ? "+" : "-") + (oMode.m_oVertical.m_bPositive ? "+" : "-");
}

// Width, height, scan, rate in hundredths of Hz, announced fraction, blanking, 4:2:0, native, preferred.
std::string FormatMode(const CZorEdidMap& oMap, unsigned int uiField, unsigned int uiIndex)
{
    CZorEdidMap::SMode oMode = {};
    if (!oMap.GetMode(uiField, oMode, uiIndex))
    {
        return "none";
    }
    std::string sText = std::to_string(oMode.m_uiWidth) + "x" + std::to_string(oMode.m_uiHeight) +
                        (oMode.m_bInterlaced ? "i" : "") + " ";
    sText += std::to_string((oMode.m_oRate.m_ullDividend * 100 + oMode.m_oRate.m_ullDivisor / 2) /
                            oMode.m_oRate.m_ullDivisor);
    sText += oMode.m_bFractionToo ? " fraction" : "";
    sText += " blanking " + std::to_string(oMode.m_eBlanking) + " 420 " + std::to_string(oMode.m_eY420);
    sText += std::string(oMode.m_bNative ? " native" : "") + (oMode.m_bPreferred ? " preferred" : "") +
             (oMode.m_bReference ? " reference" : "") + (oMode.m_bTiming ? " timing" : "");
    return sText;
}

// All modes of the extension block, group or leaf, in the order of the map.
std::string ListModes(const CZorEdidMap& oMap)
{
    std::string sText;
    for (unsigned int i = oMap.GetField(0).m_uiEnd; i < oMap.GetFieldCount(); ++i)
    {
        CZorEdidMap::SMode oMode = {};
        for (unsigned int j = 0; oMap.GetMode(i, oMode, j); ++j)
        {
            sText += FormatMode(oMap, i, j) + "; ";
        }
    }
    return sText;
}

struct SModesCase
{
    const char* m_pszName;
    CBytes m_aui8Block;
    const char* m_pszModes;
};

TEST(MapModes, OfEachKindOfField)
{
    const SModesCase aoCases[] = {
        { "codes, native, a 4:2:0 map and one only in 4:2:0",
          { 2, 3, 15, 0, 0x44, 0x90, 1, 0xE1, 6, 0xE2, 0x0F, 0x05, 0xE2, 0x0E, 0x61 },
          "1920x1080 6000 fraction blanking 0 420 0 native timing; 640x480 6000 fraction blanking 0 420 0 timing; "
          "720x480i 6000 fraction blanking 0 420 0 timing; 1920x1080 6000 fraction blanking 0 420 1 timing; "
          "3840x2160 6000 fraction blanking 0 420 2 timing; " },
        { "video formats: 24, 30 and 60 Hz, and 25 and 50 Hz as well",
          { 2, 3, 8, 0, 0xC3, 0x40, 0x44, 0x84 },
          "1920x1080 2400 fraction blanking 0 420 0; 1920x1080 3000 fraction blanking 0 420 0; "
          "1920x1080 6000 fraction blanking 0 420 0; 1920x1080 2500 blanking 0 420 0; "
          "1920x1080 3000 fraction blanking 0 420 0; 1920x1080 5000 blanking 0 420 0; "
          "1920x1080 6000 fraction blanking 0 420 0; " },
        { "DisplayID types V and X", MakeDisplayIdBlock(MakeDataBlock(0x11, 0, ParseBytes("90 00 7F 07 37 04 77"))),
          "1920x1080 12000 fraction blanking 3 420 0 preferred; " },
        { "DisplayID codes of HDMI", MakeDisplayIdBlock(MakeDataBlock(0x06, 0x81, { 4, 5 })),
          "4096x2160 2400 blanking 0 420 0 timing; " },
    };
    for (const SModesCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const CBytes aui8Image = BehindBaseBlock(oCase.m_aui8Block);
        CZorEdidMap oMap;
        ASSERT_EQ(1, oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data()));
        EXPECT_EQ(oCase.m_pszModes, ListModes(oMap));
    }
}

unsigned int ParseHex(const std::string& sText) { return ParseNumber("0x" + sText); }

// Small letters without blanks, "1024x768i@87hz", "1280x768@60hzrb". An interlaced mode may be said by its frames.
std::string Plain(std::string sText)
{
    std::erase(sText, ' ');
    std::ranges::transform(sText, sText.begin(), [](unsigned char ui8One) { return std::tolower(ui8One); });
    sText = ReplaceAll(sText, ",reducedblanking", "rb");
    return ReplaceAll(sText, "@(43|87)hzinterlaced", "i@87hz");
}

TEST_F(MapTables, VideoCodes)
{
    READ_OR_SKIP(aoLines, "vic.csv");
    for (const CLine& asLine : aoLines)
    {
        const auto ui8Code = static_cast<unsigned char>(ParseNumber(asLine[0]));
        ReadMap(BehindBaseBlock({ 2, 3, 6, 0, 0x41, ui8Code }));
        const std::string sValue = GetValue(gsc_uiBlockSize + 5);
        const std::string sPixels = asLine[20] == "2" ? "720(1440)" : asLine[1]; // each one sent twice
        const std::string sSize = sPixels + "x" + asLine[2] + (asLine[3] == "1" ? "i " : "p ");
        EXPECT_TRUE(sValue.starts_with(asLine[0] + ", " + sSize)) << asLine[0] << ": " << sValue;
        EXPECT_NE(std::string::npos, sValue.find(asLine[6] + " Hz ")) << asLine[0] << ": " << sValue;
        EXPECT_TRUE(sValue.ends_with(" " + asLine[19])) << asLine[0] << ": " << sValue;
        const CZorEdidMap::SMode oMode = GetMode(gsc_uiBlockSize + 5, true);
        EXPECT_EQ(ParseNumber(asLine[0]), oMode.m_uiCode);
        EXPECT_EQ(Numbers(asLine, { 1, 9, 10, 12, 2, 13, 14, 16 }), GetNumbers(oMode)) << asLine[0];
        EXPECT_EQ(asLine[17] + asLine[18], GetSigns(oMode)) << asLine[0];
        // The clock of the whole rate is the larger one.
        const double dClock = std::max(atof(asLine[7].c_str()), atof(asLine[8].c_str()));
        EXPECT_EQ(dClock * 1000, static_cast<double>(oMode.m_ullClock)) << asLine[0];
        EXPECT_EQ(!asLine[8].empty(), oMode.m_bFractionToo) << asLine[0];
        EXPECT_EQ(asLine[19], std::to_string(oMode.m_uiAspectWidth) + ":" + std::to_string(oMode.m_uiAspectHeight));
    }
}

TEST_F(MapTables, DmtModes)
{
    READ_OR_SKIP(aoLines, "dmt-ids.csv");
    for (const CLine& asLine : aoLines)
    {
        const auto ui8Id = static_cast<unsigned char>(ParseHex(asLine[0]));
        ReadMap(BehindBaseBlock(MakeDisplayIdBlock(MakeDataBlock(0x06, 0, { ui8Id }))));
        const std::string sCode = std::to_string(unsigned{ ui8Id }) + ",";
        EXPECT_EQ(sCode + Plain(asLine[3]), Plain(GetValue(gsc_uiBlockSize + 8))) << asLine[0];
        EXPECT_TRUE(GetMode(gsc_uiBlockSize + 8, false).m_bTiming) << asLine[0];
    }
}

// The byte E1h is a code that is not published, the byte 80h is reserved.
TEST_F(MapTables, BitsOfUnknownCodes)
{
    ReadMap(BehindBaseBlock({ 2, 3, 10, 0, 0x42, 0xE1, 0x80, 0xE2, 0x0F, 0x03 }));
    EXPECT_EQ("unknown (225)", GetValue(gsc_uiBlockSize + 5));
    EXPECT_EQ("Unknown video code", GetName(gsc_uiBlockSize + 9, 0));
    EXPECT_EQ("reserved", GetValue(gsc_uiBlockSize + 6));
    EXPECT_EQ("Reserved video code", GetName(gsc_uiBlockSize + 9, 1));
}

// Bits of the base block, and of the descriptor that lists more of them.
TEST_F(MapTables, EstablishedTimings)
{
    READ_OR_SKIP(aoLines, "established.csv");
    constexpr unsigned int uiDescriptor = 0x6C;
    CBytes aui8Image = MakeEdid({});
    const CBytes aui8Tag = ParseBytes("00 00 00 F7 00 0A ..18");
    std::copy(aui8Tag.begin(), aui8Tag.end(), aui8Image.begin() + uiDescriptor);
    ReadMap(aui8Image);
    for (const CLine& asLine : aoLines)
    {
        const unsigned int uiOffset = ParseHex(asLine[1]) + (asLine[0] == "base" ? 0 : uiDescriptor);
        if (asLine[3] != "manufacturer's")
        {
            EXPECT_EQ(Plain(asLine[3]), Plain(GetName(uiOffset, ParseNumber(asLine[2])))) << asLine[1] << asLine[2];
        }
    }
}

TEST_F(MapTables, Makers)
{
    READ_OR_SKIP(aoLines, "ouis.csv");
    for (const CLine& asLine : aoLines)
    {
        if (asLine[3].find("VS") == std::string::npos) // of DisplayID alone
        {
            continue;
        }
        CBytes aui8Block = { 2, 3, 8, 0, 0x63 };
        Append(aui8Block, ParseBytes(asLine[1]));
        ReadMap(BehindBaseBlock(aui8Block));
        const std::string sValue = GetValue(gsc_uiBlockSize + 5);
        EXPECT_LT(asLine[0].size(), sValue.size()) << asLine[0];
        EXPECT_TRUE((asLine[0] + " " + asLine[2]).starts_with(sValue)) << asLine[2] << ": " << sValue;
    }
}

// What a bit of a block's payload is named, for blocks whose flags have fixed places. The map's name begins with the
// first word of the table's.
TEST_F(MapTables, FlagsOfDataBlocks)
{
    READ_OR_SKIP(aoLines, "cta-fields.csv");
    struct SKind
    {
        const char* m_pszBlock;
        const char* m_pszBase;
        const char* m_pszBytes; // of the data block
        unsigned int m_uiPayload;
        unsigned int m_uiFlags;
    };
    static constexpr SKind aoKinds[] = {
        { "Audio Data Block", "item:sads", "23 09 00 00", 1, 10 },
        { "Speaker Allocation Data Block", "payload", "83 00 00 00", 1, 20 },
        { "HDMI Forum Vendor-Specific Data Block", "oui", "6E D8 5D C4 01 00 ..15", 4, 20 },
        { "Colorimetry Data Block", "payload", "E3 05 00 00", 2, 13 },
        { "HDR Static Metadata Data Block", "payload", "E3 06 00 00", 2, 5 },
    };
    for (const SKind& oKind : aoKinds)
    {
        CBytes aui8Block = { 2, 3, 32, 0x40 };
        Append(aui8Block, ParseBytes(oKind.m_pszBytes));
        ReadMap(BehindBaseBlock(aui8Block));
        unsigned int uiCompared = 0;
        for (const CLine& asLine : aoLines)
        {
            const bool bOtherFormat = asLine[1].find("format == ") != std::string::npos &&
                                      asLine[1].find("format == 1 ") == std::string::npos;
            if (asLine[0] != oKind.m_pszBlock || asLine[2] != oKind.m_pszBase || asLine[7] != "flag" ||
                asLine[6].empty() || asLine[4].size() != 1 || bOtherFormat ||
                asLine[3].find_first_not_of("0123456789") != std::string::npos)
            {
                continue;
            }
            constexpr unsigned int uiDataBlock = 0x84;
            const unsigned int uiOffset = uiDataBlock + oKind.m_uiPayload + ParseNumber(asLine[3]);
            const std::string sName = GetName(uiOffset, ParseNumber(asLine[4]));
            const std::string sTerm = ReplaceAll(asLine[6], "^(ET|SM)_\\d ", "");
            const std::string sWord = Plain(sTerm.substr(0, sTerm.find(' ')));
            EXPECT_TRUE(Plain(sName).starts_with(sWord)) << oKind.m_pszBlock << ": " << asLine[6] << ", " << sName;
            ++uiCompared;
        }
        EXPECT_LE(oKind.m_uiFlags, uiCompared) << oKind.m_pszBlock;
    }
}
} // namespace
