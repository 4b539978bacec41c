// One image, or two beside each other, as the page shows them: the map, what the library lists, findings, and what
// differs. For the sources of zoredid page, and for zoredid modes, which counts what only the map has.

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "CheckRules.h"
#include "Input.h"
#include "LoadedImage.h"
#include "MapText.h"
#include "Timings.h"
#include "ZorEdidMap.h"

// A field and what the other image has in its place.
struct SPageField
{
    bool m_bDiffers = false;   // a leaf with another value, or one that only this image has; a group with such a leaf
    bool m_bOnlyHere = false;  // of a leaf or a group
    std::string m_sOther = {}; // the other value of a leaf
};

struct SPageTiming
{
    SListedTiming m_oListed;                // without list and number where m_sSource is not empty
    std::string m_sSource = {};             // of a mode that no list of the library has, where the map has it
    std::string m_sBareRate = {};           // of one with no numbers but size and rate, "119.88/120"; else empty
    std::string m_sOtherCode = {};          // why the library's code is another one than the map's, which counts
    bool m_bStandIn = false;                // an established timing whose numbers the library has made up
    unsigned int m_uiBorderWidth = 0;       // pixels, each side
    unsigned int m_uiBorderHeight = 0;      // lines, each side
    const SPageTiming* m_poOther = nullptr; // the timing of the other image that equals it
    bool m_bRowOfOther = false;             // it stands in that one's row

    bool IsListed() const { return m_sSource.empty(); }
    bool HasNumbers() const { return m_sBareRate.empty(); }
    // False for what the library makes of a code that stands for another mode.
    bool IsOfMonitor() const { return m_sOtherCode.empty(); }
    // Frames a second, of an interlaced mode fields. Of two rates that a code stands for the higher one.
    double GetRate() const;
    std::string GetRateText() const; // "60", "59.94", "119.88/120"
};

struct SPageImage
{
    // The image of oInput, which is moved in. uiThisYear is for the findings.
    SPageImage(SInput oInput, unsigned int uiThisYear);

    // The leaf of a bit; null behind the image.
    const CZorEdidMap::SField* FindField(unsigned int uiOffset, unsigned int uiBit) const;
    // Its value as text; empty behind the image.
    std::string GetValueAt(unsigned int uiOffset, unsigned int uiBit) const;
    // That of a field by its index.
    std::string GetValue(unsigned int uiField) const { return static_cast<const char*>(m_oMap.GetValue(uiField)); }
    // Its number, decimals applied; 0 behind the image.
    double GetNumberAt(unsigned int uiOffset, unsigned int uiBit) const;
    // The preferred timing, of which there is one at most; null without one.
    const SPageTiming* FindPreferred() const;

    SInput m_oInput;
    CZorEdidMap m_oMap;
    CLoadedImage m_oLoaded;
    std::string m_sProblem;               // why the library refuses the image; empty when it does not
    std::string m_sMaker;                 // the company's name, where the library knows it
    std::string m_sFile;                  // its name without folders, which are nobody's business, in one line
    std::string m_sTitle;                 // the monitor's name, or else the file's
    CEdidBase m_oBase;                    // of the base block with its header put right; empty when it is cut short
    std::vector<SPageTiming> m_aoTimings; // what the library lists, then what only the map has
    std::vector<SFinding> m_aoFindings;
    std::vector<SPageField> m_aoFields; // as many as the map has
    unsigned int m_uiAnnounced = 0;     // this many fields lie in blocks that the image announces; the rest is no part
};

// What the page is about: one image, or two that are compared.
struct SPage
{
    std::vector<std::unique_ptr<SPageImage>> m_apoImages;

    bool IsPair() const { return m_apoImages.size() > 1; }
    // "A" or "B" in text; empty for a single image.
    const char* GetMark(size_t uiImage) const { return !IsPair() ? "" : uiImage == 0 ? "A" : "B"; }
};

// Fills in what differs between the two images of a pair.
void CompareImages(SPage& oPage);

// The number of the first field of this name in a group, the group itself included; -1 when there is none.
double GetNumberOf(const CZorEdidMap& oMap, unsigned int uiGroup, std::string_view sName);

bool IsOfGtf(const CVidParamTimingGeneric& oTiming);

// The library leaves borders out. oGroup is the map's group of the timing; those of DisplayID have none.
void ReadBorders(const CZorEdidMap& oMap, const CZorEdidMap::SField& oGroup, SPageTiming& oTiming);
