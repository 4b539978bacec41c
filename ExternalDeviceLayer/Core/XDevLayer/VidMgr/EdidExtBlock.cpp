// The answers of a block that knows nothing of tiles, and the factory: the one place that knows both block classes.

#include "EdidExtBlock.h"

#include <initializer_list>

#include "ZorAssert.h"

CEdidExtBlock::~CEdidExtBlock() = default;

int CEdidExtBlock::IsDisplayPartOfTiledTopology() { return 0; }

int CEdidExtBlock::GetTiledDisplayCapabilities(int* piSingleEnclosure, int* piBezelInfoPresent,
                                               int* piMultiTileAtLocation, int* piSingleTileAtLocation,
                                               int* piSingleTileScaled, int* piSingleTileCloned)
{
    for (int* piOutput : { piSingleEnclosure, piBezelInfoPresent, piMultiTileAtLocation, piSingleTileAtLocation,
                           piSingleTileScaled, piSingleTileCloned })
    {
        if (piOutput != nullptr)
        {
            *piOutput = 0;
        }
    }
    return 0;
}

int CEdidExtBlock::GetTopologyDescription(unsigned int& uiTileLocationX, unsigned int& uiTileLocationY,
                                          unsigned int& uiTileCountX, unsigned int& uiTileCountY,
                                          unsigned int& uiTileWidth, unsigned int& uiTileHeight)
{
    uiTileLocationX = uiTileLocationY = uiTileCountX = uiTileCountY = uiTileWidth = uiTileHeight = 0;
    return 0;
}

CEdidExtBlock* CEdidExtBlock::CreateExtensionBlock(unsigned int, unsigned char const*, unsigned int)
{
    MASSERT_FAILED();
    return nullptr;
}
