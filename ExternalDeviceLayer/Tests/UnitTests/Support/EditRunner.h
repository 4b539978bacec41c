// Edits of an EDID that watch over their promises. One list of edits serves the fuzz target, which makes sequences up,
// and the tests, which try all edits at all indexes.

#pragma once

#include <bitset>
#include <string>

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

    // Runs one edit. Null when all promises held: a refusal changed no byte and no list; a success changed at most the
    // one block that its index falls into, of the base block only the bytes that it names, took out what it was to
    // remove and nothing else, stored what it was given, and left the checksum right; number and size of the blocks
    // stayed; the bytes load again, and all lists are those of the bytes, as far as the edit promises it. Else a text
    // that names the broken promise, valid until the next call.
    const char* Apply(const SEditStep& oStep);

    // Runs one edit and looks at nothing; takes no memory of its own. Gives what the edit gives.
    int Run(const SEditStep& oStep);

    // How many indexes are worth trying: those that the edit tells apart, and two more. Whether it looks at the value.
    unsigned int GetIndexCount(unsigned int uiOperation) const;
    static bool UsesValue(unsigned int uiOperation);

    const CEdid& GetEdid() const { return m_oEdid; }
    unsigned int GetSuccessCount() const { return m_uiSuccessCount; }

private:
    // A block that an edit may change, counted from 0, the base block: the index there, the lists before, and whether
    // an edit does to its lists what it says and to nothing else.
    struct SPlace
    {
        size_t m_uiBlock;
        unsigned int m_uiIndex;
        CLists m_aoLists;
        bool m_bIsSure;
    };

    std::vector<SPlace> FindPlaces(const SEditStep& oStep, const CBytes& aui8Bytes) const;
    void Require(bool bHolds, const char* pszPromise);
    void CheckRefusal(const SEditStep& oStep, const SPlace& oPlace);
    void CheckBytes(const SEditStep& oStep, const SPlace& oPlace, const CBytes& aui8Before, const CBytes& aui8After);
    void CheckEffect(const SEditStep& oStep, const SPlace& oPlace, const CBytes& aui8Before, const CBytes& aui8After);
    void CompareWithFreshLoad(const CBytes& aui8Bytes);

    CEdid m_oEdid;
    // Blocks whose lists, all but the table timings, are behind their bytes: from a removal of a table timing to the
    // next edit of the block.
    std::bitset<256> m_oBehind;
    unsigned int m_uiSuccessCount = 0;
    std::string m_sBroken;
};
