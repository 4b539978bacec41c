// Shared between the files of the DisplayID map: the row of the table of data blocks, and what its walks ask. Private
// to this folder.
//
// A data block has three header bytes: tag; revision in bits 2 to 0 with flags of the block in bits 7 to 3; payload
// length. All tables of data blocks count offsets from the tag, so that the payload begins at 3.

#pragma once

#include "MapForms.h"
#include "MapNames.h"

namespace ZorMap
{
// Positions in a data block.
inline constexpr unsigned int gsc_uiDataBlockFlagsOffset = 1;
inline constexpr unsigned int gsc_uiPayloadOffset = 3;

// A place that counts from the start of the payload.
constexpr SPlace InPayload(const SPlace& oPlace) { return Shifted(oPlace, gsc_uiPayloadOffset); }

// Bits 6 to 4 of the flags, or those given, make each item longer.
constexpr SPayloadRule ItemsWithExtraBytes(unsigned int uiBytes, unsigned int uiHigh = 6, unsigned int uiLow = 4)
{
    return { uiBytes, gsc_uiMostPayload, uiBytes, { gsc_uiDataBlockFlagsOffset, PlaceByte(uiHigh), PlaceByte(uiLow) } };
}

// One kind of data block.
struct SDisplayIdBlock
{
    unsigned int m_uiTag;
    STable m_oGroup;
    SPayloadRule m_oPayload;
    const STable* m_poFlags = nullptr; // of bits 7 to 3 of byte 1; null: they are reserved
    const STable* m_apoTables[3] = {}; // over the whole data block, in this order
    // What tables alone cannot say, after them. The record is the data block as far as it lies in its section.
    void (*m_pfnWalk)(CMapWriter&, const CRecord& oBlock, unsigned int uiOffset) = nullptr;
};

// The group of a data block.
constexpr STable Group(EZorEdidField eId, const char* pszName, CZorEdidMap::EArea eArea,
                       CMString (*pfnSummary)(const CRecord&) = nullptr)
{
    return { eId, pszName, eArea, {}, pfnSummary };
}

// The kinds of data blocks of each version of the structure, topic by topic. No tag is in two of them.
extern const std::span<const SDisplayIdBlock> g_aoDisplayId1ProductBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayId1TimingBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayId1InterfaceBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayId2ProductBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayId2TimingBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayId2InterfaceBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayId2HeadMountedBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayIdCtaBlocks; // of both versions

// Three letters as of EISA; but monitors are about that hold an OUI.
template <unsigned int OFFSET>
bool HasLetters(const CRecord& oBlock)
{
    for (unsigned int i = OFFSET; i < OFFSET + 3; ++i)
    {
        if (oBlock.GetByte(i) < 'A' || oBlock.GetByte(i) > 'Z')
        {
            return false;
        }
    }
    return true;
}

// The letters, or the OUI in their place with a note.
template <unsigned int OFFSET>
constexpr SRow LettersRow(EZorEdidField eId, const char* pszName)
{
    return { eId,
             Run(OFFSET, 3),
             pszName,
             Text().Text([](const CRecord& oBlock, unsigned int) {
                 if (!HasLetters<OFFSET>(oBlock))
                 {
                     return OuiText(oBlock, oBlock.Get(Big24(OFFSET)));
                 }
                 CMString sLetters;
                 for (unsigned int i = OFFSET; i < OFFSET + 3; ++i)
                 {
                     sLetters += static_cast<char>(oBlock.GetByte(i));
                 }
                 return sLetters;
             }),
             nullptr,
             [](const CRecord& oBlock, unsigned int) -> SBreach {
                 return HasLetters<OFFSET>(oBlock) ? eZorEdidRule_None : eZorEdidRule_DisplayIdMaker;
             } };
}

// A note on the group of the data block.
inline void NoteBlock(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset, EZorEdidRule eRule)
{
    oWriter.AddNote(oWriter.FindField(uiOffset, oBlock.GetSize()), eRule);
}

// Revision of the data block, bits 2 to 0 of its byte 1.
inline unsigned int GetRevision(const CRecord& oBlock) { return oBlock.GetBits(gsc_uiDataBlockFlagsOffset, 2, 0); }
inline bool IsRevision1Plus(const CRecord& oBlock) { return GetRevision(oBlock) >= 1; }
inline constexpr auto IsRevision0 = IsNot<IsRevision1Plus>;

inline unsigned int GetPayloadLength(const CRecord& oBlock)
{
    return oBlock.GetSize() > gsc_uiPayloadOffset ? oBlock.GetSize() - gsc_uiPayloadOffset : 0;
}
} // namespace ZorMap
