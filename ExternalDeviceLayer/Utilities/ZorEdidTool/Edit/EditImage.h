// An image under edit: finds what a number means, lets the library edit it, and keeps the blocks that the library does
// not read byte for byte.
//
// All numbers mean the image as it was read, whatever earlier edits took away. For that, each block keeps which of its
// timings and descriptors, by their numbers at reading, are still there and in which order; a number that is gone
// already needs no second removal.

#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "CeaBlocks.h"
#include "Edid.h"
#include "EditPlaces.h"
#include "EditPlan.h"
#include "Standards/Descriptors.h"

// Bits of a byte that an edit has changed.
struct SBits
{
    unsigned int m_uiMask;
    unsigned int m_uiBits;
};

// What edits have changed in one block, for the verification. Numbers are the block's own, in the image as it was read.
struct SBlockEdits
{
    bool m_bChecksum = false; // repaired
    // Any block.
    std::map<EZorEdidField, unsigned int> m_oValues; // of fields that the block has once, the lowest bits first
    CNumbers m_oDetailed; // removed; those after another descriptor count on after the listed ones
    // The base block.
    CNumbers m_oStandard;                  // removed
    std::map<unsigned int, SBits> m_oBits; // of established timings, and of modes in display descriptors; by offset
    bool m_bPreferred = false;
    CVidParamTimingGeneric m_oPreferred;
    bool m_bStereoCleared = false; // of the preferred timing; else it stays
    bool m_bLimits = false;
    ZorStandards::Descriptors::SRangeLimits m_oLimits = {}; // what the first range limits then are
    // CTA-861 blocks.
    CNumbers m_oCodes; // offsets of the removed ones
    CNumbers m_oAudioRemoved;
    std::map<unsigned int, CAudio> m_oAudioSet;
    std::vector<CAudio> m_aoAudioAdded;
    bool m_bSpeakers = false;
    unsigned int m_uiSpeakers = 0;    // the first mask that the block then has; 0 when it has none
    bool m_bSpeakersAdded = false;    // a data block at some time
    bool m_bReadSpeakersGone = false; // those of the image as it was read

    bool IsAudioNamed() const { return !m_oAudioRemoved.empty() || !m_oAudioSet.empty() || !m_aoAudioAdded.empty(); }
    // Whether anything but the checksum is named.
    bool IsNamed() const
    {
        return !m_oValues.empty() || !m_oDetailed.empty() || !m_oStandard.empty() || !m_oBits.empty() || m_bPreferred ||
               !m_oCodes.empty() || IsAudioNamed() || m_bSpeakers;
    }
};

// Numbers at reading in their present order; -1 for what an edit has added.
using CPresent = std::vector<int>;

// Place of a number at reading; false when it is gone.
bool FindPresent(const CPresent& aiPresent, unsigned int uiNumber, unsigned int& uiPlace);

// Whether a detailed descriptor holds all of a timing.
bool IsSameMode(const CVidParamTiming& oRead, const CVidParamTiming& oWanted);

struct SEditedBlock
{
    int m_iExtension = -1; // number among the CEdid's blocks; -1 for the base block and for blocks it does not read
    CBytes m_aui8Bytes;    // as read; of a block that the library does not read the present ones
    SBlockEdits m_oEdits;
    unsigned int m_uiStandards = 0; // counts at reading
    unsigned int m_uiDetaileds = 0;
    unsigned int m_uiAudios = 0;
    CPresent m_aiStandards; // good for the ordinary timings, which come before those in YCbCr 4:2:0
    CPresent m_aiDetaileds; // from m_uiDetaileds on those that followed another descriptor
    CPresent m_aiAudios;
    CTimingOrigins m_aoOrigins; // of the standard timings at reading
};

// Of two detailed descriptors: whether pixels, lines or interlacing differ.
bool HasOtherPicture(const unsigned char* pui8First, const unsigned char* pui8Second);

class CEditImage
{
public:
    // False when the library does not load the bytes. bAsListed: numbers of standard timings may be of bytes that the
    // library lists as another code than they mean.
    bool Load(const CBytes& aui8Image, bool bAsListed = false);

    // Empty, or the reason of a refusal; the image must then be given up.
    std::string Apply(const SEdit& oEdit);

    CBytes GetBytes() const;
    const std::vector<SEditedBlock>& GetBlocks() const { return m_aoBlocks; }
    // What the user should know of edits that are done.
    const std::vector<std::string>& GetNotes() const { return m_asNotes; }

private:
    static constexpr const char* msc_pszDamaged = "is damaged: its data blocks do not end where its descriptors begin";
    static constexpr const char* msc_pszInUse =
        "has bytes after its detailed timings that would be read as something else";

    // A number found: the block, and the number there.
    struct SPlace
    {
        SEditedBlock* m_poBlock;
        unsigned int m_uiNumber;
    };
    SPlace Find(unsigned int SEditedBlock::*puiCount, unsigned int uiNumber);
    std::string NameRange(unsigned int SEditedBlock::*puiCount, const char* pszWhat) const;
    std::string NameBlock(const SEditedBlock& oBlock) const;
    CEdidExtBlockCEA861* GetCea(const SEditedBlock& oBlock);

    std::string ApplyOne(const SEdit& oEdit);
    void SetBase(CBytes& aui8Base);
    void CountBase();
    void CountCea(SEditedBlock& oBlock, const CEdidExtBlockCEA861& oCea);

    std::string RemoveStandard(unsigned int uiNumber);
    using CCodeSearch = std::function<CCodes(const CEdidExtBlockCEA861& oCea)>;
    std::string RemoveCodes(SEditedBlock& oBlock, const CCodeSearch& fnFind);
    std::string RemoveCode(SEditedBlock& oBlock, unsigned int uiNumber);
    std::string NameRefusal(const SEditedBlock& oBlock, CEdidExtBlockCEA861::ERemoval eRemoval) const;
    bool IsReferred(unsigned int uiFirst, unsigned int uiEnd) const;
    void CloseGap(const CTimingOrigins& aoOrigins, unsigned int uiPlace);
    std::string RemoveDetailed(unsigned int uiNumber);
    std::string RemoveDetailedOf(SEditedBlock& oBlock, unsigned int uiNumber);
    std::string RemoveUnlisted(const SZorImageMode& oPlace);
    std::string MoveTimingsFirst(SEditedBlock& oBlock);
    unsigned int CountDetailedAhead(const SEditedBlock& oBlock);
    void LowerNatives(unsigned int uiPlace);
    std::string RemoveEstablished(unsigned int uiNumber);
    std::string Remove(const SWanted& oWanted);
    std::string RemoveListed(const SZorImageMode& oPlace);
    std::string RemoveFromDescriptors(const CPlaces& aoPlaces);
    std::string NameKeeper(const SZorImageMode& oPlace);
    void NoteWhole(const SWanted& oWanted, const CPlaces& aoRemoved);
    void NoteLeft(const SWanted& oWanted);
    std::string SetPreferred(const SEdit& oEdit);
    std::string ReplacePreferred(const CVidParamTimingGeneric& oTiming);
    bool ClearNativeCounts();
    void FollowWithLimits(unsigned int uiTiming);
    std::string SetColorDepth(unsigned int uiDepth);
    std::string SetDeepColor(unsigned int uiBits);
    std::string AddAudio(const CAudio& oAudio);
    std::string SetAudio(unsigned int uiNumber, const CAudio& oAudio);
    std::string RemoveAudio(unsigned int uiNumber);
    std::string SetSpeakers(unsigned int uiMask);
    std::string SetSpeakersOf(SEditedBlock& oBlock, unsigned int uiMask);
    std::string RemoveSpeakers();
    void RepairChecksums();

    using CCeaEdit = std::function<std::string(CEdidExtBlockCEA861& oCea)>;
    std::string EditCea(SEditedBlock& oBlock, const CCeaEdit& fnEdit);
    std::string EditFirst(const std::function<std::string(SEditedBlock& oBlock)>& fnEdit);

    CEdid m_oEdid;
    std::vector<SEditedBlock> m_aoBlocks;       // all blocks of the image, the base block first
    std::vector<unsigned int> m_auiEstablished; // bit of each established timing at reading
    CBytes m_aui8Read;
    CNumbers m_oReferences; // short video references of all CTA-861 blocks, which no edit changes
    bool m_bAsListed = false;
    std::vector<std::string> m_asNotes;
};
