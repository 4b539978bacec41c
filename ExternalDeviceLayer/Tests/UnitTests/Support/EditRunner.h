// Edits of an EDID that watch over their promises. One list of edits serves the fuzz target, which makes sequences up,
// and the tests, which try all edits at all indexes.

#pragma once

#include <stddef.h>

#include <vector>

#include "Edid.h"
#include "VidParamTimingGeneric.h"

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
    // that its index falls into, of the base block only the bytes that it names, took out what it was to remove, and
    // left the checksum right; number and size of the blocks stayed; the bytes load again, and all lists are those of
    // the bytes, as far as the edit promises it. Else a text that names the broken promise.
    const char* Apply(const SEditStep& oStep);

    // Runs one edit and looks at nothing; takes no memory of its own. Gives what the edit gives.
    int Run(const SEditStep& oStep);

    const CEdid& GetEdid() const { return m_oEdid; }
    unsigned int GetSuccessCount() const { return m_uiSuccessCount; }

private:
    using CBlock = std::vector<unsigned char>;
    using CBlocks = std::vector<CBlock>;

    // A block that an edit may change, counted from 0, the base block.
    struct SPlace
    {
        size_t m_uiBlock;
        unsigned int m_uiIndex;           // there
        CVidParamTimingGeneric m_oTiming; // the table timing that is to be removed
        unsigned int m_uiCount;           // how many there were of what is to be removed
    };
    using CPlaces = std::vector<SPlace>;

    struct SBefore
    {
        CBlocks m_aaui8Blocks;
        CPlaces m_aoPlaces;
    };

    int RunOnBlock(const SEditStep& oStep, unsigned int uiOperation);
    CBlocks CopyBlocks() const;
    CPlaces FindPlaces(const SEditStep& oStep, unsigned int uiOperation) const;
    SPlace MakePlace(unsigned int uiOperation, size_t uiBlock, unsigned int uiIndex) const;
    unsigned int CountTimings(unsigned int uiOperation, size_t uiBlock) const;
    unsigned int Count(unsigned int uiOperation, const SPlace& oPlace) const;
    bool IsBehind(size_t uiBlock) const;

    const char* CheckAfterRawStep(const SEditStep& oStep, const CBlocks& aaui8Before);
    const char* CheckBytes(const SEditStep& oStep, int iResult, const SBefore& oBefore, const SPlace*& poPlace) const;
    const char* CheckEffect(const SEditStep& oStep, const SBefore& oBefore, const SPlace& oPlace);
    const char* CheckRefusal(const SEditStep& oStep, const SBefore& oBefore) const;
    const char* CheckStoredInBase(const SEditStep& oStep, const CBlock& aui8Before) const;
    const char* CheckStoredInBlock(const SEditStep& oStep, const SPlace& oPlace);
    const char* CheckLists() const;

    CEdid m_oEdid;
    // Blocks whose lists, all but the table timings, are behind their bytes: from a removal of a table timing to the
    // next edit of the block.
    std::vector<bool> m_abBehind;
    unsigned int m_uiSuccessCount = 0;
};
