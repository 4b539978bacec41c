// Where things stand in a CEA-861 block, as the library finds them.

#pragma once

#include <vector>

#include "EdidExtBlockCEA861.h"

using CBytes = std::vector<unsigned char>;

// Offsets in a CEA-861 block.
inline constexpr unsigned int gsc_uiCeaDetailedStart = 2;
inline constexpr unsigned int gsc_uiCeaFlags = 3;
inline constexpr unsigned int gsc_uiCeaDataBlocks = 4;
inline constexpr unsigned int gsc_uiDetailedSize = sizeof(CEdidUtils::SEdidDetailedRaw);

// One data block, without its header.
struct SCeaDataBlock
{
    unsigned int m_uiTag;
    unsigned int m_uiOffset; // from the start of the CEA-861 block
    CBytes m_aui8Payload;
};

// In the order of the bytes.
std::vector<SCeaDataBlock> ListDataBlocks(const CEdidExtBlockCEA861& oBlock);

// Whether the data blocks end where the descriptors begin. Where they do not, one of them overlaps the descriptors or
// the end, and no edit can say what it touches.
bool AreDataBlocksExact(const CEdidExtBlockCEA861& oBlock);

// The bytes from the first descriptor on, up to the checksum, without zeros at the end.
CBytes GetDescriptorArea(const CEdidExtBlockCEA861& oBlock);

// The block as this class; null for another kind.
inline CEdidExtBlockCEA861* AsCea(CEdidExtBlock* poBlock)
{
    return poBlock != nullptr && poBlock->GetExtensionType() == 2 ? static_cast<CEdidExtBlockCEA861*>(poBlock)
                                                                  : nullptr;
}
