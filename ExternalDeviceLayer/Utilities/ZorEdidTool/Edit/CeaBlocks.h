// The parts of a CTA-861 block that edits must not touch, and the walk over its data blocks.

#pragma once

#include <set>
#include <vector>

#include "EdidExtBlockCEA861.h"
#include "Standards/CtaBlocks.h"

using CBytes = std::vector<unsigned char>;
using CNumbers = std::set<unsigned int>;

// As the library finds the data blocks.
ZorStandards::Cta::CDataBlockWalk WalkDataBlocks(const CEdidExtBlockCEA861& oBlock);

// Whether the data blocks end where the descriptors begin, and these follow the header. Otherwise a data block overlaps
// the descriptors, the header or the end, and no edit can say what it touches.
bool AreDataBlocksExact(const CEdidExtBlockCEA861& oBlock);

// The bytes from the first descriptor on, up to the checksum, without zeros at the end.
CBytes GetDescriptorArea(const CEdidExtBlockCEA861& oBlock);
