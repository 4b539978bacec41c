// CZorEdidMap over DisplayID extension blocks and the other ones beside CTA-861: each kind of data block, and what is
// off about one.

#include "MapCases.h"

namespace
{
TEST(MapDisplayId, FieldsAndNotesOfEachDataBlock)
{
    for (const SCaseRow& oRow : ReadCases("EdidMap/golden/displayid-blocks.txt", 4))
    {
        SCOPED_TRACE(oRow.GetName());
        ExpectFields(MakeSectionImage(oRow), oRow.GetText(3));
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
