// CZorEdidMap over DisplayID extension blocks and the other ones beside CTA-861: each kind of data block, and what is
// off about one.

#include "MapCases.h"

namespace
{
constexpr unsigned char gsc_ui8DisplayIdTag = 0x70;
constexpr size_t gsc_uiSectionOffset = 1;
constexpr size_t gsc_uiSectionOverhead = 4; // its header, up to the section checksum

// The section that the row describes: header, data blocks, filler, checksums.
CBytes MakeSection(const SCaseRow& oRow)
{
    CBytes aui8Header = oRow.GetBytes(1);
    if (aui8Header.empty())
    {
        aui8Header = { 0x12, 121, 0x03, 0x00 };
    }
    CBytes aui8Image = BehindBaseBlock(Join({ { gsc_ui8DisplayIdTag }, aui8Header, oRow.GetBytes(2) }));
    const size_t uiChecksum = gsc_uiSectionOffset + gsc_uiSectionOverhead + aui8Header[1];
    if (uiChecksum < gsc_uiBlockSize - 1)
    {
        FixSum(aui8Image, gsc_uiBlockSize + gsc_uiSectionOffset, gsc_uiBlockSize + uiChecksum);
    }
    return FixChecksums(aui8Image);
}

TEST(MapDisplayId, FieldsAndNotesOfEachDataBlock)
{
    for (const SCaseRow& oRow : ReadCases("EdidMap/golden/displayid-blocks.txt", 4))
    {
        SCOPED_TRACE(oRow.GetName());
        ExpectFields(MakeSection(oRow), oRow.GetText(3));
    }
}

TEST(MapOther, FieldsAndNotesOfEachBlock)
{
    for (const SCaseRow& oRow : ReadCases("EdidMap/golden/other-blocks.txt", 3))
    {
        SCOPED_TRACE(oRow.GetName());
        ExpectFields(BehindBaseBlock(oRow.GetBytes(1)), oRow.GetText(2));
    }
}
} // namespace
