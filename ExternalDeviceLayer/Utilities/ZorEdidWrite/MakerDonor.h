// What CZorEdidMaker takes of another image: identity, size, colours and audio. Private to the library.

#pragma once

#include "Standards/BaseBlock.h"
#include "ZorEdidMaker.h"

namespace ZorWrite
{
using CByteArray = CMArray<unsigned char, const unsigned char&>;

// Bytes as the structures have them, of what is sound alone.
struct SDonor
{
    bool m_bRead = false;
    unsigned char m_aui8Serial[4] = {};
    unsigned char m_aui8Date[2] = {}; // week and year
    unsigned char m_ui8Gamma = 0;
    unsigned char m_aui8Chromaticities[sizeof(ZorStandards::BaseBlock::gsc_aui8SrgbColors)] = {};
    bool m_bSrgb = false;
    CByteArray m_aui8Audio = {};    // of 3 bytes each
    CByteArray m_aui8Speakers = {}; // 3 bytes or none
    CMArrayString m_asNotes = {};   // what is left out or replaced, a line each
};

// Reads the donor that oWishes has, and completes oWishes by it. Empty, or why it cannot be read.
CMString ReadDonor(SZorEdidWishes& oWishes, SDonor& oDonor);
} // namespace ZorWrite
