// What differs between two images, by meaning: modes, facts, and fields of the map. Places of bytes play no part, nor
// do lengths and checksums that follow from the rest.

#pragma once

#include <array>
#include <string>
#include <vector>

#include "FactList.h"
#include "ImageModes.h"
#include "Input.h"
#include "MapDiff.h"
#include "ModeMatch.h"

class CJsonWriter;

// One of the two, read in every way that the comparison needs.
struct SComparedImage
{
    explicit SComparedImage(const std::vector<unsigned char>& aui8Bytes);

    SMapPart m_oPart; // its map
    CFactList m_aoFacts;
    CImageModes m_oModes;
};

// A fact that the images say otherwise, or an element of a list that only one of them has. Empty: not said.
struct SFactDifference
{
    std::string m_sName; // "link.vrr.max_hz", "audio.formats"
    EZorEdidField m_eId;
    std::array<std::string, 2> m_asValues; // as JSON
    std::array<std::string, 2> m_asWords;  // for people; of an empty one "not said", or "not known" as in show
};

// A field that the images say otherwise, or a group that only one of them has.
struct SFieldDifference
{
    EZorEdidField m_eId;
    std::string m_sPath;
    std::string
        m_sWhich; // ", block 3" of an extension block, ", 3840 x 2160 @ 120 Hz" of a field in a timing; else empty
    std::array<unsigned int, 2> m_auiFields; // of the maps; msc_uiNone where an image does not have it
    std::array<std::string, 2> m_asValues;   // as text; "present" for a group without a summary, empty if it is missing
};

// Modes that differ in 4:2:0 or 3D alone, in the same way: "3D", "no", "yes", "6 modes". Few are named; one and its
// partner at 1000/1001 are one.
struct SFormDifference
{
    const char* m_pszForm;
    std::array<std::string, 2> m_asValues;
    std::string m_sModes;
};

// Which parts of a comparison are wanted.
struct SDiffRules
{
    bool m_bAll = false; // facts and fields besides modes, established timings among these
    bool m_bEstablished = false;
    bool m_bIgnorePreferred = false;
};

// Both images must outlive it.
class CImageDiff
{
public:
    CImageDiff(const SComparedImage& oFirst, const SComparedImage& oSecond, const SDiffRules& oRules);

    // ---- Modes ----

    // False where the rules ignore it, and of a mode that differs in 4:2:0 or 3D alone.
    bool DifferInPreferred() const { return m_bPreferred; }
    // Established timings as the rules say.
    std::vector<const SModeRow*> ListOnly(size_t uiImage) const;
    // Modes that differ in 4:2:0 or 3D alone, in neither list: each with the other image's, and in words.
    const std::vector<CRowPair>& GetFormPairs() const { return m_apoForms; }
    std::vector<SFormDifference> ListForms() const;
    // Modes that both images have, this one once more.
    std::vector<const SModeRow*> ListMore(size_t uiImage) const;
    const SModePairs& GetPairs() const { return m_oPairs; }

    // ---- The rest: empty unless the rules ask for all ----

    const std::vector<SFactDifference>& GetFacts() const { return m_aoFacts; }
    // But fields of a mode that only one image has, and fields of a fact that differs.
    const std::vector<SFieldDifference>& GetFields() const { return m_aoFields; }

    const SComparedImage& GetImage(size_t uiImage) const { return *m_apoImages[uiImage]; }
    const SDiffRules& GetRules() const { return m_oRules; }

private:
    void FindFacts();
    std::vector<const SModeRow*> ListButForms(size_t uiImage, bool bShared) const;
    std::vector<const SModeRow*> ListUnpaired(size_t uiImage, bool bShared) const;
    std::vector<const SModeRow*> ListUnpaired(size_t uiImage) const;

    std::array<const SComparedImage*, 2> m_apoImages;
    SDiffRules m_oRules;
    SModePairs m_oPairs;
    std::vector<CRowPair> m_apoForms;
    bool m_bPreferred;
    std::vector<SFactDifference> m_aoFacts;
    std::vector<SFieldDifference> m_aoFields;
};

// "1920 x 1080p @ 60.000 Hz 148.500 MHz ... VIC 16", for people.
std::string DescribeMode(const SModeRow& oRow);

// A mode, and its partner at 1000/1001 where that is listed next.
struct SModeWithPartner
{
    const SModeRow* m_poRow;
    const SModeRow* m_poPartner; // null for none

    std::string GetPartnerText() const; // ", and at 59.94 Hz"; empty for none
};
std::vector<SModeWithPartner> GroupPartners(const std::vector<const SModeRow*>& apoRows);

// What is put before a mode that only one image has, of one that it has once more, and of the one that each prefers.
struct SDiffWords
{
    std::array<std::string, 2> m_asOnly;
    std::array<std::string, 2> m_asMore;
    std::array<std::string, 2> m_asPreferred;
    std::array<std::string, 2> m_asShared = {}; // of a preferred mode that both images have
};

// Lines, none for images that say the same. A mode and its partner at 1000/1001 have one.
std::string DescribeDiff(const CImageDiff& oDiff, const SDiffWords& oWords);
// Members of the object that is open.
void WriteDiff(const CImageDiff& oDiff, CJsonWriter& oJson);
