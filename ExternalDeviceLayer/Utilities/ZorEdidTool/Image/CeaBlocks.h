// Where things stand in a CEA-861 block, as the library finds them.

#pragma once

#include <set>
#include <span>
#include <vector>

#include "EdidExtBlockCEA861.h"
#include "EdidUtils.h"
#include "Standards/CtaBlocks.h"

using CBytes = std::vector<unsigned char>;
using CNumbers = std::set<unsigned int>;

inline constexpr unsigned int gsc_uiAudioSize = 3; // bytes of a descriptor

// One data block, without its header.
struct SCeaDataBlock
{
    unsigned int m_uiTag;
    unsigned int m_uiOffset; // from the start of the CEA-861 block
    CBytes m_aui8Payload;
};

// In the order of the bytes.
std::vector<SCeaDataBlock> ListDataBlocks(const CEdidExtBlockCEA861& oBlock);

// The payloads of the data blocks with this tag.
std::vector<CBytes> ListPayloads(const CEdidExtBlockCEA861& oBlock, unsigned int uiTag);

// The audio descriptors, three bytes each, in the order of their numbers; what is left of a data block is left out.
std::vector<CBytes> ListAudioBytes(const CEdidExtBlockCEA861& oBlock);

// Short video references of the blocks that prefer a timing or name the native one. 1 to 127 and 193 to 253 are video
// codes; 129 to 144 are the detailed timings 1 to 16, counted over the base block and then all CEA-861 blocks.
CBytes ListReferences(const CEdidExtBlockCEA861& oBlock);

// The payload of an HDMI vendor block behind its extended tag, where it has one; empty for any other data block.
std::span<const unsigned char> GetHdmiPayload(const SCeaDataBlock& oDataBlock);

// The video codes of the block as short video references name them, those of HDMI vendor blocks included.
CNumbers ListCodes(const CEdidExtBlockCEA861& oBlock);

// Whether the data blocks end where the descriptors begin, and these lie behind the header. Where they do not, one of
// them overlaps the descriptors, the header or the end, and no edit can say what it touches.
bool AreDataBlocksExact(const CEdidExtBlockCEA861& oBlock);

// The bytes from the first descriptor on, up to the checksum, without zeros at the end.
CBytes GetDescriptorArea(const CEdidExtBlockCEA861& oBlock);

// The block as this class; null for another kind.
inline CEdidExtBlockCEA861* AsCea(CEdidExtBlock* poBlock)
{
    return poBlock != nullptr && poBlock->GetExtensionType() == ZorStandards::Cta::gsc_uiTag
               ? static_cast<CEdidExtBlockCEA861*>(poBlock)
               : nullptr;
}
