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

// A base block of version 1.4, digital; a CEA-861 block without a detailed timing, but with an empty display descriptor
// in its place: removals of table timings move its tag to where a pixel clock would be.
inline CBytes MakeImageWithDisplayDescriptor()
{
    CBytes aui8Block = { 0x02, 0x03, 0x09, 0x00, 0x44, 0x90, 0x04, 0x03, 0x02, 0x00, 0x00, 0x00, 0x10 };
    aui8Block.resize(gsc_uiBlockSize);
    return FixChecksums(MakeEdid({ aui8Block }));
}
