// One image, or two beside each other, as the page shows them: the map, facts, modes, findings, and what differs.

#pragma once

#include <stdint.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "Findings.h"
#include "ImageDiff.h"
#include "ImageModes.h"
#include "Input.h"
#include "LoadedImage.h"
#include "MapText.h"
#include "ZorEdidFacts.h"
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
    // The value of a field as text.
    std::string GetValue(unsigned int uiField) const { return GetWholeValue(m_oMap, uiField); }

    SInput m_oInput;
    CZorEdidMap m_oMap;
    CZorEdidFacts m_oFacts;
    CLoadedImage m_oLoaded; // with the reason where the library refuses the image
    CModes m_aoListed;      // empty for a refused image
    CImageModes m_oModes;
    std::string m_sFile;  // its name without folders, which are nobody's business, in one line
    std::string m_sTitle; // the monitor's name, or else the file's
    std::vector<SFinding> m_aoFindings;
    std::vector<SPageField> m_aoFields; // as many as the map has
};

// Two images as `compare` sees them. Their modes are the same rows as those of SPageImage, in the same order.
struct SPageComparison
{
    SPageComparison(const SPageImage& oFirst, const SPageImage& oSecond)
        : m_oFirst(oFirst.m_oInput.m_aui8Bytes), m_oSecond(oSecond.m_oInput.m_aui8Bytes),
          m_oDiff(m_oFirst, m_oSecond, { .m_bAll = true })
    {
    }

    SComparedImage m_oFirst;
    SComparedImage m_oSecond;
    CImageDiff m_oDiff;
};

// How much a page has of what an image may have by the ten thousand.
struct SPageLimits
{
    size_t m_uiFindings = SIZE_MAX;    // of an image
    size_t m_uiDifferences = SIZE_MAX; // of a list
    size_t m_uiFields = SIZE_MAX;      // of an image; the block with the last one is whole
    size_t m_uiTimings = SIZE_MAX;
};

// What the page is about: one image, or two that are compared.
struct SPage
{
    SPageLimits m_oLimits;
    bool m_bNumbered = false; // each field has its index in the map as data-i, for a program around the page
    std::vector<std::unique_ptr<SPageImage>> m_apoImages;
    std::unique_ptr<SPageComparison> m_poComparison; // null for a single image
    std::string m_sIndex;                            // of a page of many, the address of their index
    std::string m_sMark;                             // as MakePage takes it

    const CImageDiff& GetDiff() const { return m_poComparison->m_oDiff; } // of a pair
    bool IsPair() const { return m_apoImages.size() > 1; }
    // "A" or "B" in text; empty for a single image.
    const char* GetMark(size_t uiImage) const { return !IsPair() ? "" : uiImage == 0 ? "A" : "B"; }
};

// Fills in what differs between the two images of a pair.
void CompareImages(SPage& oPage);
