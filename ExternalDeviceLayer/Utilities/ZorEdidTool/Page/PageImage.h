// One image, or two beside each other, as the page shows them: the map, the modes, findings, and what differs.

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "CheckRules.h"
#include "Input.h"
#include "LoadedImage.h"
#include "MapText.h"
#include "ModeMatch.h"
#include "ZorEdidMap.h"

// A field and what the other image has in its place.
struct SPageField
{
    bool m_bDiffers = false;   // a leaf with another value, or that only this image has; a group with such a leaf
    bool m_bOnlyHere = false;  // of a leaf or a group
    std::string m_sOther = {}; // the other value of a leaf
};

struct SPageImage
{
    // The image of oInput, which is moved in. uiThisYear is for the findings.
    SPageImage(SInput oInput, unsigned int uiThisYear);

    // The leaf of a bit; null past the image.
    const CZorEdidMap::SField* FindField(unsigned int uiOffset, unsigned int uiBit) const;
    // Its value as text; empty past the image.
    std::string GetValueAt(unsigned int uiOffset, unsigned int uiBit) const;
    // That of a field by its index.
    std::string GetValue(unsigned int uiField) const { return static_cast<const char*>(m_oMap.GetValue(uiField)); }
    // Its number, decimals applied; 0 past the image.
    double GetNumberAt(unsigned int uiOffset, unsigned int uiBit) const;

    SInput m_oInput;
    CZorEdidMap m_oMap;
    CLoadedImage m_oLoaded;
    std::string m_sProblem; // why the library refuses the image; empty when it does not
    std::string m_sFile;    // its name without folders, which are nobody's business, in one line
    std::string m_sTitle;   // the monitor's name, or else the file's
    CModes m_aoModes;
    std::vector<SFinding> m_aoFindings;
    std::vector<SPageField> m_aoFields; // as many as the map has
    unsigned int m_uiAnnounced = 0;     // this many fields are in blocks that the image announces
};

// What the page is about: one image, or two that are compared.
struct SPage
{
    std::vector<std::unique_ptr<SPageImage>> m_apoImages;
    SModePairs m_oPairs; // of the modes of a pair

    bool IsPair() const { return m_apoImages.size() > 1; }
    // "A" or "B" in text; empty for a single image.
    const char* GetMark(size_t uiImage) const { return !IsPair() ? "" : uiImage == 0 ? "A" : "B"; }
};

// Fills in what differs between the two images of a pair.
void CompareImages(SPage& oPage);

// The number of the first field with this id in a group, the group itself included; -1 when there is none.
double GetNumberOf(const CZorEdidMap& oMap, unsigned int uiGroup, EZorEdidField eId);
