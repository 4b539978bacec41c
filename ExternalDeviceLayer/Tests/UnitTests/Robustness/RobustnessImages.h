// Images for the robustness tests.

#pragma once

#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "SharedFiles.h"

// An image of the self-check with a CEA-861 block (audio, speakers, HDMI codes), and a DisplayID block behind it.
inline CBytes MakeImageWithAllBlocks()
{
    CBytes aui8Image = ToBytes(ExtStandard2::g_auiStandard2EdidData);
    Append(aui8Image, MakeFullDisplayIdBlock());
    aui8Image[126] = 2;
    return FixChecksums(aui8Image);
}

// The real images, or those of the self-check and two more.
inline std::vector<SCorpusImage> GetImages(bool bReal)
{
    if (bReal)
    {
        return ReadCorpus();
    }
    // A base block of version 1.4, digital, with a wrong checksum, which its edits mend; a CEA-861 block with an empty
    // display descriptor in place of a timing: removals of table timings move its tag to where a pixel clock would be.
    CBytes aui8Block = { 0x02, 0x03, 0x09, 0x00, 0x44, 0x90, 0x04, 0x03, 0x02, 0x00, 0x00, 0x00, 0x10 };
    aui8Block.resize(gsc_uiBlockSize);
    CBytes aui8WrongSum = MakeEdid({ FixChecksums(aui8Block) });
    ++aui8WrongSum[gsc_uiBlockSize - 1];
    std::vector<SCorpusImage> aoImages = { { "all blocks", MakeImageWithAllBlocks() }, { "wrong sum", aui8WrongSum } };
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        aoImages.push_back({ oImage.m_pszName, ToBytes(*oImage.m_paui8Image) });
    }
    return aoImages;
}
