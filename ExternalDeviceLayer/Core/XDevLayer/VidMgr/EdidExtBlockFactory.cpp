// The factory of the extension blocks: the one source that includes all block classes.

#include "EdidExtBlock.h"
#include "EdidExtBlockCEA861.h"
#include "EdidExtBlockDisplayID.h"
#include "ZorAssert.h"

// What IsSupported has taken is not tested again: the constructors called here are the private ones.
CEdidExtBlock* CEdidExtBlock::CreateExtensionBlock(unsigned int uiSize, const unsigned char* pui8Data,
                                                   unsigned int uiStripFlags)
{
    if (CEdidExtBlockCEA861::IsSupported(uiSize, pui8Data) != 0)
    {
        return new CEdidExtBlockCEA861(CEdidExtBlockCEA861::SSupported(), pui8Data, uiStripFlags);
    }
    if (CEdidExtBlockDisplayID::IsSupported(uiSize, pui8Data) != 0)
    {
        return new CEdidExtBlockDisplayID(CEdidExtBlockDisplayID::SSupported(), uiSize, pui8Data); // never stripped
    }
    MASSERT_FAILED();
    return nullptr;
}
