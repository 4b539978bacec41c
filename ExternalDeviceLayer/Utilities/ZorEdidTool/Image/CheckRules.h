// What is wrong with an image, whether the library loads it or not: rules over its bytes, and the notes of its map.

#pragma once

#include <string>
#include <vector>

enum class ESeverity
{
    eError,   // against the standard, and something is lost or refused
    eWarning, // odd enough to look at
    eNote     // allowed, but the library does not read it
};

const char* GetSeverityName(ESeverity eSeverity);

struct SFinding
{
    unsigned int m_uiBlock;  // of the image; the base block is 0
    unsigned int m_uiOffset; // in the block
    ESeverity m_eSeverity;
    std::string m_sWhat;
    std::string m_sFound;      // empty where the bytes are many
    std::string m_sExpected;   // empty where m_sWhat says it
    std::string m_sField = {}; // what stands there, as GetPath of MapText.h; empty behind the image

    bool HasWeight() const { return m_eSeverity != ESeverity::eNote; }
};

// Findings in the order of the blocks. uiThisYear is what no year of manufacture may exceed.
std::vector<SFinding> CheckImage(const std::vector<unsigned char>& aui8Bytes, unsigned int uiThisYear);

// By the clock of this machine.
unsigned int GetThisYear();
