/// What is wrong with an EDID image, whether the library loads it or not, by the rules of ZorEdidRules.h: the notes of
/// its map, what its structures say about each other, and what the library does not read of it.

#pragma once

#include "ZorEdidMap.h"
#include "ZorEdidRules.h"

#pragma GCC visibility push(default)

namespace ZorCheck
{
class CFindings;
}

/// A rule that an image breaks, and where.
struct SZorFinding
{
    EZorEdidRule m_eRule = eZorEdidRule_None;
    CZorEdidMap::ESeverity m_eSeverity = CZorEdidMap::eSeverity_Note;
    unsigned int m_uiField = 0;  ///< of the map
    unsigned int m_uiOffset = 0; ///< in the image, of the field's first byte
    const char* m_pszWhat = "";  ///< in words: a static text, never null
    CMString m_sReason = {};     ///< what the words leave open, to follow them after a colon; mostly empty
    CMString m_sFound = {};      ///< the value; empty where the bytes are many, or the words say it
    CMString m_sExpected = {};   ///< empty where the words say it

    bool HasWeight() const { return m_eSeverity != CZorEdidMap::eSeverity_Note; }
};

template <>
inline constexpr bool gsc_bByteRelocatable<SZorFinding> = true;

/// The findings about one image: errors, warnings, notes, and then what this library does not read of it; each of these
/// in the order of the bytes. Read makes the list, everything else asks it.
class CZorEdidCheck
{
public:
    CZorEdidCheck() = default;
    CZorEdidCheck(const CZorEdidCheck&) = delete;
    CZorEdidCheck& operator=(const CZorEdidCheck&) = delete;

    /// Checks the image that oMap has read. uiThisYear is what no year of manufacture may exceed. When memory runs out,
    /// the list means nothing until the next Read.
    void Read(const CZorEdidMap& oMap, unsigned int uiThisYear);

    unsigned int GetCount() const { return m_aoFindings.GetCount(); }
    /// uiIndex must be below GetCount. The reference is good until the next Read.
    const SZorFinding& Get(unsigned int uiIndex) const { return m_aoFindings[uiIndex]; }

private:
    void Order(const ZorCheck::CFindings& oFindings);

    CMArray<SZorFinding> m_aoFindings;
};

#pragma GCC visibility pop
