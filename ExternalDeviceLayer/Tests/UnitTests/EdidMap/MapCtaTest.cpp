// CZorEdidMap over CTA-861 extension blocks: each kind of data block, and what is off about one.

#include "MapCases.h"

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
} // namespace
