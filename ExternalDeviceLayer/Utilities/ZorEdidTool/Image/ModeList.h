// The modes of an image, in one list: what the library lists, then what only the map has.

#pragma once

#include <string>
#include <vector>

#include "LoadedImage.h"
#include "Timings.h"
#include "VidParamTimingGeneric.h"
#include "ZorEdidMap.h"

struct SImageMode
{
    CZorEdidMap::EList m_eList; // eList_None for a mode that the library does not list
    unsigned int m_uiIndex;     // from 0, the number that edits take; 0 without a list
    unsigned int m_uiBlock;     // of the image; the base block is 0
    const char* m_pszKind;      // "base" or GetBlockKind
    CVidParamTimingGeneric m_oTiming;
    bool m_bPreferred = false;
    bool m_bNative = false;           // of a code of CTA-861 only
    bool m_bVesa = false;             // established timings only: counted with bVesaOnly 1, too
    std::string m_sStandardCode = {}; // standard timings of the base block only: its two bytes in hexadecimal digits
    SVics m_oVics = {};               // of a CTA-861 block's standard timing the one code that the block names

    unsigned int m_uiOtherCode = 0; // the code that the byte means, which the library reads as another one; 0 for none
    bool m_bStandIn = false;        // an established timing whose numbers the library computes by GTF
    bool m_bTiming = true;          // false where only size and rate are known
    unsigned int m_uiRate = 0;      // of such a mode, in hundredths of Hz: of frames, of an interlaced mode fields
    bool m_bFractionToo = false;    // such a mode is announced at 1000/1001 of the rate as well
    bool m_bEstablished = false;    // of the established timings I, II or III
    unsigned int m_uiField = CZorEdidMap::msc_uiNone; // that announces the mode; ListTimings does not look for it

    bool IsListed() const { return m_eList != CZorEdidMap::eList_None; }
    // False where m_uiOtherCode is the code that counts; its mode is in the list as well.
    bool IsOfMonitor() const { return m_uiOtherCode == 0; }
};
using CModes = std::vector<SImageMode>;

// What the library lists: established, standard, detailed, each in the order of its numbers. A place that counts but
// holds no timing is left out, and its number with it.
CModes ListTimings(CLoadedImage& oImage);

// The same, followed by the modes that only the map has, in the order of the bytes. Of an image that the library
// refuses poImage is null, and the map alone gives the list.
CModes ListModes(const CZorEdidMap& oMap, CLoadedImage* poImage);

// The preferred mode, of which there is at most one; null without one.
const SImageMode* FindPreferred(const CModes& aoModes);

// "the library reads byte c2 as VIC 66; by CTA-861-H it is VIC 194"; empty for a mode of the monitor.
std::string GetOtherCodeText(const SImageMode& oMode);

// "119.88/120", the rate of a mode without a timing.
std::string GetBareRateText(const SImageMode& oMode);

// The index after the last field of the blocks that the image announces.
unsigned int FindAnnouncedEnd(const CZorEdidMap& oMap);
