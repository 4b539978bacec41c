// The timings that the library lists of an image, with their numbers.

#pragma once

#include <string>
#include <vector>

#include "LoadedImage.h"
#include "Timings.h"
#include "VidParamTimingGeneric.h"
#include "ZorEdidMap.h"

struct SImageMode
{
    CZorEdidMap::EList m_eList;
    unsigned int m_uiIndex; // from 0, the number that edits take
    unsigned int m_uiBlock; // of the image; the base block is 0
    const char* m_pszKind;  // "base" or GetBlockKind
    CVidParamTimingGeneric m_oTiming;
    bool m_bPreferred = false;
    bool m_bNative = false;           // of a code of CTA-861 only
    bool m_bVesa = false;             // established timings only: counted with bVesaOnly 1, too
    std::string m_sStandardCode = {}; // standard timings of the base block only: its two bytes in hexadecimal digits
    SVics m_oVics = {};               // of a CTA-861 block's standard timing the one code that the block names
};
using CModes = std::vector<SImageMode>;

// What the library lists: established, standard, detailed, each in the order of its numbers. A place that counts but
// holds no timing is left out, and its number with it.
CModes ListTimings(CLoadedImage& oImage);

// The preferred mode, of which there is at most one; null without one.
const SImageMode* FindPreferred(const CModes& aoModes);
