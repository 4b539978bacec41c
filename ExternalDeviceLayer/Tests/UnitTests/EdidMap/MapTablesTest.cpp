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

    CZorEdidMap m_oMap;
};

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
    }
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
