// Edits of an EDID that watch over their promises. One list of edits serves the fuzz target, which makes sequences up,
// and the tests, which try all edits at all indexes.

#pragma once

#include <bitset>
#include <vector>

#include "Edid.h"

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
    // Every edit of CEdid, then every edit of a block by itself.
    enum EOperation : unsigned int
    {
        eEdit_RemoveStandard,
        eEdit_RemoveDetailed,
        eEdit_SetEstablished,
        eEdit_SetEstablishedFromId,
        eEdit_SetSerialNumber,
        eEdit_SetColorBitDepth,
        eEdit_SetPreferredMode,
        eEdit_RePackStandards,
        eEdit_UpdateChecksum,
        eEdit_BlockRemoveStandard,
        eEdit_BlockRemoveDetailed,
        eEdit_BlockSetColorBitDepthSupport,
        eEdit_AddAudio,
        eEdit_SetAudio,
        eEdit_RemoveAudio,
        eEdit_AddSpeaker,
        eEdit_SetSpeaker,
        eEdit_RemoveSpeaker,
        eEdit_AddVendorSpecific,
        eEdit_RemoveDataRange, // raw step: the lists are derived afterwards, and the object is loaded again
        eEdit_PadDataRange,    // the same
        eEdit_Reload,          // from its own bytes
        eEdit_End
    };
    static constexpr unsigned int msc_uiOperationCount = eEdit_End;

    // As CEdid::SetEdidBuffer without strip flags.
    int Load(const unsigned char* pui8Data, unsigned int uiSize);

    // Runs one edit. Null when all promises held: a refusal changed no byte; a success changed at most the one block
    // that it names and left its checksum right; number and size of the blocks stayed; the bytes load again, and all
    // lists are those of the bytes, as far as the edit promises it. Else a text that names the broken promise.
    const char* Apply(const SEditStep& oStep);

    // Runs one edit and looks at nothing; takes no memory of its own. Gives what the edit gives.
    int Run(const SEditStep& oStep);

    const CEdid& GetEdid() const { return m_oEdid; }
    unsigned int GetSuccessCount() const { return m_uiSuccessCount; }

private:
    static constexpr unsigned int msc_uiMostExtensions = 255; // their number is a byte

    using CBlocks = std::vector<std::vector<unsigned char>>;

    int RunOnBlock(const SEditStep& oStep, unsigned int uiOperation);
    const char* CheckAfterRawStep(const SEditStep& oStep, const CBlocks& aaui8Before);
    const char* CheckBytes(const SEditStep& oStep, unsigned int uiOperation, int iResult, const CBlocks& aaui8Before);
    void NoteOldLists(const SEditStep& oStep, unsigned int uiOperation, const CBlocks& aaui8Before);
    const char* CheckLists() const;
    CBlocks CopyBlocks() const;

    CEdid m_oEdid;
    // For each extension block: 1 from the removal of a table timing to the next other edit of the block that succeeds.
    std::bitset<msc_uiMostExtensions> m_abListsMayBeOld;
    unsigned int m_uiSuccessCount = 0;
};
