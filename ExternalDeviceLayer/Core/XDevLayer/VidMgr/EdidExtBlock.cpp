// The answers of a block that knows nothing of tiles, and the factory: the one place that knows both block classes.

#include "EdidExtBlock.h"

#include "EdidExtBlockCEA861.h"
#include "EdidExtBlockDisplayID.h"
#include "EdidTileOutputs.h"
#include "ZorAssert.h"

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

CEdidExtBlock* CEdidExtBlock::CreateExtensionBlock(unsigned int uiSize, const unsigned char* pui8Data,
                                                   unsigned int uiStripFlags)
{
    if (CEdidExtBlockCEA861::IsSupported(uiSize, pui8Data) != 0)
    {
        return new CEdidExtBlockCEA861(uiSize, pui8Data, uiStripFlags);
    }
    if (CEdidExtBlockDisplayID::IsSupported(uiSize, pui8Data) != 0)
    {
        return new CEdidExtBlockDisplayID(uiSize, pui8Data); // never stripped
    }
    MASSERT_FAILED();
    return nullptr;
}
