// What is wrong with an image, whether the library loads it or not: the notes of its map, and what the library does not
// read of it.

#pragma once

#include <string>
#include <vector>

#include "ZorEdidMap.h"

struct SFinding
{
    unsigned int m_uiBlock;             // of the image; the base block is 0
    unsigned int m_uiOffset;            // in the block
    CZorEdidMap::ESeverity m_eSeverity; // a note: allowed, but worth a word, or not read by the library
    std::string m_sWhat;
    std::string m_sFound;    // empty where the bytes are many
    std::string m_sExpected; // empty where m_sWhat says it
    std::string m_sField;    // what these bytes are, as GetPath of MapText.h

    bool HasWeight() const { return m_eSeverity != CZorEdidMap::eSeverity_Note; }
};

// Findings about the image that the map has read, in the order of the blocks. uiThisYear is what no year of manufacture
// may exceed.
std::vector<SFinding> CheckImage(const CZorEdidMap& oMap, unsigned int uiThisYear);

// By the clock of this machine.
unsigned int GetThisYear();
