// The first DisplayID section of the image that CZorEdidMaker makes. Private to the library.

#pragma once

#include "MakerBase.h"

namespace ZorWrite
{
// What a section of a display device must say: what product it is about, how large it is, and how it is connected.
void MakeDisplayIdBlock(const CMakerPlan& oPlan, const CBlockBytes& aui8Base, CBlockBytes& aui8Block);
} // namespace ZorWrite
