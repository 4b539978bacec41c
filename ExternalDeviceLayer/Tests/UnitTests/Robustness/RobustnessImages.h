// Images for the robustness tests, and the one with all block types.

#pragma once

#include "CEdidTestImages.h"
#include "DisplayIdImages.h"

// An image of the self-check with a CEA-861 block (audio, speakers, HDMI codes), and a DisplayID block behind it.
inline CBytes MakeImageWithAllBlocks()
{
    CBytes aui8Image = ToBytes(ExtStandard2::g_auiStandard2EdidData);
    Append(aui8Image, MakeFullDisplayIdBlock());
    aui8Image[126] = 2;
    FixBlockSum(aui8Image, 0);
    return aui8Image;
}
