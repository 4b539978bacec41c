// The findings of the library about an image as texts, with the names of the fields.

#pragma once

#include <string>
#include <vector>

#include "ZorEdidCheck.h"

struct SFinding
{
    EZorEdidRule m_eRule;
    unsigned int m_uiBlock;             // of the image; the base block is 0
    unsigned int m_uiOffset;            // in the block
    unsigned int m_uiLength;            // bytes
    CZorEdidMap::ESeverity m_eSeverity; // a note: allowed, but worth a word, or not read by the library
    std::string m_sWhat;
    std::string m_sFound;    // empty where the bytes are many
    std::string m_sExpected; // empty where m_sWhat says it
    std::string m_sField;    // what these bytes are, as GetPath of MapText.h

    bool HasWeight() const { return m_eSeverity != CZorEdidMap::eSeverity_Note; }
    // Of this severity or above, and about the image: what the library does not read is not a fault of the monitor.
    bool IsFailure(CZorEdidMap::ESeverity eFailOn) const
    {
        return m_eSeverity >= eFailOn && !IsZorEdidRuleOfLibrary(m_eRule);
    }
};

// As CZorEdidCheck has them.
std::vector<SFinding> CheckImage(const CZorEdidMap& oMap, unsigned int uiThisYear);

// By the clock of this machine.
unsigned int GetThisYear();
