// Edits of an EDID that watch over their promises. One list of edits serves the fuzz target, which makes sequences up,
// and the tests, which try all edits at all indexes.

#pragma once

#include <bitset>

#include "BlockLists.h"

// One edit, in numbers that anything may make up.
struct SEditStep
{
    unsigned int m_uiOperation; // taken modulo CEditRunner::msc_uiOperationCount
    unsigned int m_uiBlock;     // number of the extension block, for edits of a block
    unsigned int m_uiIndex;     // of a timing, a descriptor, a bit
    unsigned int m_uiValue;     // what is stored
};

class CEditRunner
{
public:
    // The edits, in the order of the table in EditRunner.cpp: those of CEdid, those of a block by itself, raw steps on
    // the bytes of a block, after which the object is loaded again, and the loading alone.
    enum EOperation : unsigned int
    {
        eEdit_LastThroughBlocks = 2, // from RemoveStandard on: the index goes through all blocks
        eEdit_FirstOfBlock = 10,     // RemoveStandard
        eEdit_RemoveDataRange = 23,
        eEdit_PadDataRange,
        eEdit_Reload,
        eEdit_End
    };
    static constexpr unsigned int msc_uiOperationCount = eEdit_End;

    int Load(const CBytes& aui8Image);

    // Runs one edit. Empty when all promises held: a refusal changed no byte and no list; a success changed at most the
    // one block that its index falls into, of the base block only the bytes that it names, took out what it was to
    // remove and nothing else, stored what it was given, and left the checksum right; number and size of the blocks
    // stayed; the bytes load again, and all lists are those of the bytes, as far as the edit promises it. Else a text
    // that names the broken promise.
    std::string Apply(const SEditStep& oStep);

    // Runs one edit and looks at nothing; takes no memory of its own. Gives what the edit gives.
    int Run(const SEditStep& oStep);

    // How many indexes to try: those that the edit distinguishes, and two more. Whether it looks at the value.
    unsigned int GetIndexCount(unsigned int uiOperation) const;
    static bool UsesValue(unsigned int uiOperation);

    const CEdid& GetEdid() const { return m_oEdid; }
    unsigned int GetChangeCount() const { return m_uiChangeCount; } // edits that changed bytes

private:
    CEdid m_oEdid;
    // Blocks whose lists, all but the table timings, are out of date: from a removal of a table timing to the
    // next edit of the block.
    std::bitset<256> m_oBehind;
    unsigned int m_uiChangeCount = 0;
};
