// Images for the robustness tests.

#pragma once

#include <map>

#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "SharedFiles.h"

// An image of the self-check with a CTA-861 block (audio, speakers, HDMI codes), and then a DisplayID block. One
// code occurs as a short video descriptor and as an HDMI code, so that its removal edits two data blocks.
inline CBytes MakeImageWithAllBlocks()
{
    CBytes aui8Image = Join({ ToBytes(ExtStandard2::g_auiStandard2EdidData), MakeFullDisplayIdBlock() });
    aui8Image[126] = 2;
    aui8Image[gsc_uiBlockSize + 9] = 95; // HDMI code 1, in place of code 7, which has no timing
    return FixChecksums(aui8Image);
}

// Those of the self-check and three more.
inline std::map<std::string, CBytes> GetImages()
{
    // A base block of version 1.4, digital, with a wrong checksum, which its edits mend; a CTA-861 block with an empty
    // display descriptor in place of a timing: removals of table timings move its tag to where a pixel clock would be.
    CBytes aui8WrongSum = MakeEdid({ ParseBytes("02 03 09 00 44 90 04 03 02 00 00 00 10 ..127 sum") });
    ++aui8WrongSum[gsc_uiBlockSize - 1];
    std::map<std::string, CBytes> oImages = {
        { "all blocks", MakeImageWithAllBlocks() },
        { "wrong sum", aui8WrongSum },
        // A DisplayID block refuses each removal, which then falls to the block after it.
        { "DisplayID first", MakeEdid({ MakeFullDisplayIdBlock(), MakeCeaBlock() }) },
    };
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        oImages[oImage.m_pszName] = ToBytes(*oImage.m_paui8Image);
    }
    return oImages;
}
