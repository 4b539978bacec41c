// The answers of a block that knows nothing of tiles, and of one whose RemoveStandard leaves nothing out of step.

#include "EdidExtBlock.h"

#include "EdidTileOutputs.h"

CEdidExtBlock::~CEdidExtBlock() = default;

int CEdidExtBlock::IsDisplayPartOfTiledTopology() { return 0; }

int CEdidExtBlock::GetTiledDisplayCapabilities(int* piSingleEnclosure, int* piBezelInfoPresent,
                                               int* piMultiTileAtLocation, int* piSingleTileAtLocation,
                                               int* piSingleTileScaled, int* piSingleTileCloned)
{
    ZeroTileOutputs({ piSingleEnclosure, piBezelInfoPresent, piMultiTileAtLocation, piSingleTileAtLocation,
                      piSingleTileScaled, piSingleTileCloned });
    return 0;
}

int CEdidExtBlock::GetTopologyDescription(unsigned int& uiTileLocationX, unsigned int& uiTileLocationY,
                                          unsigned int& uiTileCountX, unsigned int& uiTileCountY,
                                          unsigned int& uiTileWidth, unsigned int& uiTileHeight)
{
    ZeroTileOutputs({ &uiTileLocationX, &uiTileLocationY, &uiTileCountX, &uiTileCountY, &uiTileWidth, &uiTileHeight });
    return 0;
}

int CEdidExtBlock::RemoveStandardKeepingDescriptors(unsigned int uiIndex) { return RemoveStandard(uiIndex); }
