// An image as explain --json prints it, read back: which bits its fields give the image, and what they say.

#pragma once

#include <string>
#include <vector>

#include "JsonReader.h"
#include "ZorEdidMap.h"

struct SExplainedLeaf
{
    EZorEdidField m_eId = eZorEdidField_None; // none: this version knows no such id
    size_t m_uiFirstPiece = 0;                // of SExplained::m_aoPieces; at least one
    size_t m_uiPieces = 0;
    bool m_bValue = false;  // there is a value
    bool m_bNumber = false; // which is a number
    std::string m_sValue = {};
    // Texts for people, which are compared, but not kept.
    struct SText
    {
        bool m_bPresent = false;
        size_t m_uiHash = 0;
    };
    SText m_oText = {};
    SText m_oMeaning = {};
};

struct SExplained
{
    std::vector<unsigned char> m_aui8Read;  // "bytes": the image that was explained, 1 byte to 256 blocks
    std::vector<unsigned char> m_aui8Built; // the same size: the raw bits of all leaves
    std::vector<SExplainedLeaf> m_aoLeaves; // each bit of the image is of exactly one
    std::vector<CZorEdidMap::SPiece> m_aoPieces;
    unsigned int m_uiImage = 0;             // of several in a file, its number from 1
    std::vector<unsigned int> m_auiOffsets; // of several in a file, in that file; empty for a whole file
};

// Text of which only equality counts.
size_t HashText(std::string_view sText);

// Reads one document, which oReader has. Empty, or why it is not a whole image of explain --json, in one line.
std::string ReadExplained(CJsonReader& oReader, SExplained& oExplained);
