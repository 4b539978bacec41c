// The parts of a CTA-861 block that edits must not touch, the walk over its data blocks, and what refers to timings.

#pragma once

#include <map>
#include <memory>
#include <set>
#include <vector>

#include "EdidExtBlockCEA861.h"
#include "Standards/CtaBlocks.h"

using CBytes = std::vector<unsigned char>;
using CNumbers = std::set<unsigned int>;
using CCodes = std::map<unsigned int, unsigned int>; // video codes by the offsets of their bytes in the block

std::unique_ptr<CEdidExtBlockCEA861> CopyCea(const unsigned char* pui8Bytes);

// As the library finds the data blocks.
ZorStandards::Cta::CDataBlockWalk WalkDataBlocks(const CEdidExtBlockCEA861& oBlock);

// Whether the data blocks end where the descriptors begin, and these follow the header. Otherwise a data block overlaps
// the descriptors, the header or the end, and no edit can say what it touches.
bool AreDataBlocksExact(const CEdidExtBlockCEA861& oBlock);

// The bytes from the first descriptor on, up to the checksum, without zeros at the end.
CBytes GetDescriptorArea(const CEdidExtBlockCEA861& oBlock);

// The block with the timings of its descriptors before the others, both in their order. The list of timings ends at
// the first other descriptor, so none that follows one is in it. Descriptors end at the first 18 bytes that are
// none.
CBytes GetWithTimingsFirst(const CEdidExtBlockCEA861& oBlock);

// Short video references of the blocks that prefer a timing or name the native one. 1 to 127 and 193 to 253 are video
// codes; 129 to 144 are the detailed timings 1 to 16, counted over the base block and then all CTA-861 blocks.
CBytes ListReferences(const CEdidExtBlockCEA861& oCea);
