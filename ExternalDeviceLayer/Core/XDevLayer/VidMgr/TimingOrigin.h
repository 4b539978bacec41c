/// Where the timings of an EDID's lists come from, in the bytes of the image.

#pragma once

#include "ZorMFCTypes.h"

#pragma GCC visibility push(default)

/// One place that names a timing of a list. A timing that several places name has an entry for each; a place that names
/// two timings, a video code and its 1000/1001 variant, has two.
struct STimingOrigin
{
    static constexpr unsigned int msc_uiNoBit = 8;

    /// Whether a timing exists in YCbCr 4:2:0.
    enum E420 : unsigned int
    {
        e420_No = 0,   ///< an ordinary entry of the list
        e420_Also = 1, ///< a capability map selects a code of the block
        e420_Only = 2, ///< a 4:2:0 video data block has the code
    };

    unsigned int m_uiIndex;    ///< in the list; as a GetStandard, GetDetailed or GetEstablished takes it
    unsigned int m_uiBlock;    ///< number in the image as it was loaded; the base block is 0
    unsigned int m_uiOffset;   ///< of the first byte, from the start of the block
    unsigned int m_uiLength;   ///< in bytes; 0 for a capability map that selects all codes by having no byte
    unsigned int m_uiBit;      ///< where a bit names the timing; else msc_uiNoBit
    unsigned int m_uiCode;     ///< video identification code as the lists have it; 0 for none
    unsigned int m_uiCodeByte; ///< offset of the byte that holds the code, which goes when the timing is removed
    int m_bVariant;            ///< 1 for the 1000/1001 variant of the code, else 0
    int m_bRepeated;           ///< 1 when an entry before this one has the same index, else 0
    E420 m_e420;
};

using CTimingOrigins = CMArray<STimingOrigin, const STimingOrigin&>;

#pragma GCC visibility pop
