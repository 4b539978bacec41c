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
    unsigned int m_uiRatio; // by GetRatio
    unsigned int m_uiBitsPerColor;
    bool m_bAudio;
    // What the link carries, a bit for each even number of bits of a color from 6 on: HDMI's deep color may be more
    // than the display shows. 0 for a format that is not carried.
    unsigned int m_uiRgbDepths;
    unsigned int m_ui444Depths;
    unsigned int m_ui422Depths;
};

// The depths from 8 bits to these, or 6 bits alone, as bits of SDisplayIdFacts; 0 for 0.
constexpr unsigned int GetDepthsTo(unsigned int uiBits)
{
    return uiBits < 8 ? uiBits / 6 : (2U << (uiBits - 6) / 2) - 2;
}

// The longer side to the shorter one, in hundredths; 0 where a side is.
constexpr unsigned int GetRatio(unsigned int uiWidth, unsigned int uiHeight)
{
    constexpr unsigned int uiScale = 100;
    const unsigned int uiLong = uiWidth > uiHeight ? uiWidth : uiHeight;
    const unsigned int uiShort = uiWidth > uiHeight ? uiHeight : uiWidth;
    return uiShort != 0 ? (uiLong * uiScale + uiShort / 2) / uiShort : 0;
}

// Earlier ones cannot be said: the section then says this one, without a week.
constexpr unsigned int gsc_uiFirstDisplayIdYear = 2000;

// What a section of a display device must say: what product it is about, how large it is, and how it is connected. The
// product is that of the base block.
void MakeDisplayIdBlock(const SDisplayIdFacts& oFacts, const unsigned char* pui8Base,
                        unsigned char (&aui8Block)[ZorStandards::gsc_uiBlockSize]);
} // namespace ZorWrite
