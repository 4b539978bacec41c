// The base block of the image that CZorEdidMaker makes. Private to the library.

#pragma once

#include "MakerDonor.h"
#include "MakerPlan.h"
#include "Standards/BaseBlock.h"

namespace ZorWrite
{
using CBlockBytes = unsigned char[ZorStandards::gsc_uiBlockSize];

// What the wishes leave open is chosen here.
const char* GetMaker(const CMakerPlan& oPlan);
unsigned int GetProduct(const CMakerPlan& oPlan);
SImageSizeInMm GetImageSize(const CMakerPlan& oPlan);

// With the first detailed timing and dummies after it.
void MakeBaseBlock(const CMakerPlan& oPlan, const SDonor& oDonor, CBlockBytes& aui8Base);

// The limits of all modes. False for those that are better left out: beyond a byte only offsets say them, which few
// sources know.
bool MakeRange(const CMakerPlan& oPlan, CDetailedBytes& aui8Bytes);
void MakeName(const CMakerPlan& oPlan, CDetailedBytes& aui8Bytes);
void MakeSerial(const CMakerPlan& oPlan, CDetailedBytes& aui8Bytes);
} // namespace ZorWrite
