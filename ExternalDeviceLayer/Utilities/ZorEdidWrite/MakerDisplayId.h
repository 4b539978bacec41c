// The first DisplayID section of an image: what CZorEdidMaker makes, and what an edit adds. Private to the library and
// the command.

#pragma once

#include "ModePlaces.h"
#include "Standards/BaseBlock.h"

namespace ZorWrite
{
// What a section says that the base block does not say, or not as finely.
struct SDisplayIdFacts
{
    enum EInterface
    {
        eInterface_Hdmi,
        eInterface_DisplayPort,
        eInterface_Dvi,
        eInterface_Analog,
    };

    EInterface m_eInterface;
    SImageSizeInMm m_oSize;
    unsigned int m_uiWidth; // in pixels; 0 for none known
    unsigned int m_uiHeight;
    unsigned int m_uiBitsPerColor;
    unsigned int m_uiBitsOnLink; // of each color, at most: HDMI's deep color may be more than the display shows
    bool m_bAudio;
    bool m_bYCbCr; // 4:4:4 and 4:2:2 beside RGB
};

// What a section of a display device must say: what product it is about, how large it is, and how it is connected. The
// product is that of the base block.
void MakeDisplayIdBlock(const SDisplayIdFacts& oFacts, const unsigned char* pui8Base,
                        unsigned char (&aui8Block)[ZorStandards::gsc_uiBlockSize]);
} // namespace ZorWrite
