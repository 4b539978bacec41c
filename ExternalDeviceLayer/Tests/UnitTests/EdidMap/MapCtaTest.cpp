// CZorEdidMap over CTA-861 extension blocks: each kind of data block, and what is off about one.

#include "MapCases.h"
#include "VidParamCea.h"
#include "VidParamTimingGeneric.h"

namespace
{
constexpr unsigned int gsc_uiHeadSize = 4;

CBytes MakeImage(const SCaseRow& oRow)
{
    const CBytes aui8Content = oRow.GetBytes(2);
    CBytes aui8Block = oRow.GetBytes(1);
    if (aui8Block.empty())
    {
        aui8Block = { 0x02, 0x03, static_cast<unsigned char>(gsc_uiHeadSize + aui8Content.size()), 0x40 };
    }
    Append(aui8Block, aui8Content);
    return FixChecksums(BehindBaseBlock(aui8Block));
}

TEST(MapCta, FieldsAndNotesOfEachDataBlock)
{
    for (const SCaseRow& oRow : ReadCases("EdidMap/golden/cta-blocks.txt", 4))
    {
        SCOPED_TRACE(oRow.GetName());
        ExpectFields(MakeImage(oRow), oRow.GetText(3));
    }
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
