// Which blocks the classes take, and the answers of a block that has no tiles, or whose RemoveStandard leaves nothing
// out of step.

#include "EdidExtBlock.h"

#include "EdidTileOutputs.h"
#include "EdidUtils.h"
#include "Standards/ExtensionBlocks.h"

using namespace ZorCore;
using namespace ZorStandards;

CEdidExtBlock::~CEdidExtBlock() = default;

CEdidExtBlock::ERefusal CEdidExtBlock::GetRefusal(unsigned int uiSize, const unsigned char* pui8Data)
{
    if (uiSize < gsc_uiBlockSize || pui8Data == nullptr)
    {
        return eRefusal_Size;
    }
    const bool bCta = pui8Data[0] == gsc_uiCtaTag;
    if (!bCta && pui8Data[0] != gsc_uiDisplayIdTag)
    {
        return eRefusal_Kind;
    }
    if (pui8Data[1] > (bCta ? Cta::gsc_uiHighestRevision : DisplayId::gsc_uiHighestVersion))
    {
        return eRefusal_Revision;
    }
    const unsigned int uiSection = DisplayId::GetSectionSize(pui8Data);
    if (!bCta && uiSection >= gsc_uiChecksumOffset)
    {
        return eRefusal_SectionSize;
    }
    if (CEdidUtils::Is8BitsChecksumValid(uiSize, pui8Data) == 0)
    {
        return eRefusal_Checksum;
    }
    return bCta || CEdidUtils::Is8BitsChecksumValid(uiSection, pui8Data + DisplayId::gsc_uiSectionOffset) != 0
               ? eRefusal_None
               : eRefusal_SectionChecksum;
}

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

void CEdidExtBlock::ListStandardOrigins(CTimingOrigins& aoOrigins) const { aoOrigins.RemoveAll(); }

void CEdidExtBlock::ListDetailedOrigins(CTimingOrigins& aoOrigins) const { aoOrigins.RemoveAll(); }
