// The edits that move bytes of a CTA-861 block, without its lists.

#include <gtest/gtest.h>

#include <functional>

#include "Cea861Bytes.h"
#include "TestBytes.h"

using ZorCore::CCea861Editor;

namespace
{
// A whole block from its bytes from byte 2 on, then zeros; in place of the checksum a byte that no edit may touch.
CBytes MakeBlock(const CBytes& aui8FromByte2)
{
    CBytes aui8Block = Join({ { 2, 3 }, aui8FromByte2 });
    aui8Block.resize(127);
    aui8Block.push_back(0xEE);
    return aui8Block;
}

using CEdit = std::function<unsigned int(CCea861Editor&, unsigned int, unsigned int)>;
const CEdit gsc_fnRemove = [](auto& o, unsigned int uiAt, unsigned int uiBy) { return o.RemoveRange(uiAt, uiBy); };
const CEdit gsc_fnOpen = [](auto& o, unsigned int uiTag, unsigned int uiBy) { return o.OpenDataBlock(uiTag, uiBy); };
const CEdit gsc_fnGrow = [](auto& o, unsigned int uiAt, unsigned int uiLength) {
    return o.GrowDataBlock({ uiAt, uiLength }, 3);
};
const CEdit gsc_fnRemoveTag = [](auto& o, unsigned int uiTag, unsigned int) { return o.RemoveDataBlocks(uiTag); };

struct SEditCase
{
    const char* m_pszName;
    CBytes m_aui8Before; // from byte 2 on
    CEdit m_fnEdit;
    unsigned int m_uiFirst; // the edit's two arguments
    unsigned int m_uiSecond;
    unsigned int m_uiResult = 0;
    CBytes m_aui8After = {}; // empty: nothing changes
};

const SEditCase gsc_aoEditCases[] = {
    { "removal closes the gap", { 8, 0, 1, 2, 3, 4, 5 }, gsc_fnRemove, 5, 2, 1, { 8, 0, 1, 4, 5 } },
    { "up to byte 126", { 8, 0, 1, 2 }, gsc_fnRemove, 5, 122, 1, { 8, 0, 1 } },
    { "no bytes at all", { 4, 0, 1 }, gsc_fnRemove, 128, 0, 1 },
    { "not past the block", { 4, 0, 1 }, gsc_fnRemove, 5, 124 },
    { "nor around it", { 4, 0, 1 }, gsc_fnRemove, 5, ~0U },
    { "nor the checksum", { 4, 0, 1 }, gsc_fnRemove, 0, 128 },
    { "descriptors make room", { 6, 0, 0x41, 1, 7, 8 }, gsc_fnOpen, 3, 2, 7, { 9, 0, 0x41, 1, 0x62, 0, 0, 7, 8 } },
    { "nothing else moves", { 6, 0, 0x41, 1, 0, 0, 9 }, gsc_fnOpen, 3, 2, 7, { 9, 0, 0x41, 1, 0x62, 0, 9 } },
    { "byte 126 stays free", { 125, 0 }, gsc_fnOpen, 0, 0, 126, { 126, 0 } },
    { "no room", { 126, 0 }, gsc_fnOpen, 0, 0 },
    { "not over the header", { 3, 0 }, gsc_fnOpen, 3, 2 },
    { "growing inserts zeros", { 8, 0, 0x23, 1, 2, 3, 7 }, gsc_fnGrow, 5, 3, 8, { 11, 0, 0x26, 1, 2, 3, 0, 0, 0, 7 } },
    { "no room to grow", { 124, 0, 0x23 }, gsc_fnGrow, 5, 3 },
    { "not over the checksum", Join({ { 101, 0 }, CBytes(96), { 0x38 } }), gsc_fnGrow, 101, 24 },
    { "all of a tag", { 10, 0, 0x21, 1, 0x41, 2, 0x21, 3, 7 }, gsc_fnRemoveTag, 1, 0, 1, { 6, 0, 0x41, 2, 7 } },
    { "none of it", { 6, 0, 0x41, 2, 7 }, gsc_fnRemoveTag, 1, 0 },
};

TEST(Cea861Bytes, EditsMoveBytesOrChangeNothing)
{
    for (const SEditCase& oCase : gsc_aoEditCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        CBytes aui8Block = MakeBlock(oCase.m_aui8Before);
        CCea861Editor oEditor(aui8Block.data(), 3);
        EXPECT_EQ(oCase.m_uiResult, oCase.m_fnEdit(oEditor, oCase.m_uiFirst, oCase.m_uiSecond));
        EXPECT_EQ(MakeBlock(oCase.m_aui8After.empty() ? oCase.m_aui8Before : oCase.m_aui8After), aui8Block);
    }
}
} // namespace
