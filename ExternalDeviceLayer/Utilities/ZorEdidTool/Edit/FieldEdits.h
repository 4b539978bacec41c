// An image under edit by its fields and parts: the writers of the library one after the other, and what they did in
// words. What edits that have a name of their own are made of.

#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "CeaBlocks.h"
#include "EditNamed.h"
#include "EditSet.h"
#include "Findings.h"
#include "ZorEdidParts.h"

// What is found of an image after an edit and was not before, a line each: by its rule as often as it is there more.
std::vector<std::string> NameNewFindings(const std::vector<SFinding>& aoBefore, const std::vector<SFinding>& aoAfter);

// All edits give an empty text, or the reason of a refusal, which changes nothing.
class CFieldEdits
{
public:
    // aui8Read: the image that the user has, where other edits have changed it; its parts are those that could go for
    // new ones.
    explicit CFieldEdits(const CBytes& aui8Image) : CFieldEdits(aui8Image, aui8Image) {}
    CFieldEdits(const CBytes& aui8Image, const CBytes& aui8Read);

    const CZorEdidMap& GetMap() const { return m_oParts.GetMap(); }
    CBytes GetBytes() const;
    bool Has(EZorEdidField eId) const { return GetMap().CountFields(eId) != 0; }
    // The number of a field, the first one of its id; 0 where there is none.
    long long GetNumber(EZorEdidField eId) const;
    // Of the base block.
    bool IsRevision4() const;
    // Whether the image breaks one of these rules.
    bool IsFound(std::initializer_list<EZorEdidRule> aeRules) const;

    // What zoredid check finds afterwards and did not find before is noted.
    std::string Do(const CNamedEdit& fnEdit);

    std::string Apply(const SSetting& oSetting);
    // Field number uiNumber of an id. pszValue as CZorEdidWriter::Set takes it.
    std::string Set(EZorEdidField eId, const std::string& sValue, unsigned int uiNumber = 0);
    struct SValue
    {
        EZorEdidField m_eId;
        std::string m_sValue;
    };
    std::string SetAll(std::initializer_list<SValue> aoValues);

    using SWhere = CZorEdidParts::SWhere;
    std::string AddDataBlock(EZorEdidField eId, const CBytes& aui8Payload, const SWhere& oWhere = {});
    // In the block that has a data block of another kind: where that one is full, its last timing makes room.
    std::string AddBeside(EZorEdidField eOther, EZorEdidField eId, const CBytes& aui8Payload);
    std::string AddItem(EZorEdidField eId, const CBytes& aui8Item, const SWhere& oWhere = {});
    // Of 128 bytes, or without bytes an empty one.
    std::string AddBlock(unsigned int uiTag, const CBytes& aui8Block);
    // Where the base block has no room, its last timing goes to a CTA-861 block: to a further one only for a timing.
    std::string AddDescriptor(const CBytes& aui8Bytes, const SWhere& oWhere = {});
    std::string AddStandard(const CBytes& aui8Bytes);
    std::string Remove(unsigned int uiField);
    // Data blocks, and items of them, in one step.
    std::string RemoveItems(const std::vector<unsigned int>& auiFields);
    std::string Move(unsigned int uiField, unsigned int uiPlace);

    // Clears flags on which no other field depends, in one step. Checksums follow.
    struct SBit
    {
        unsigned int m_uiOffset; // in the image
        unsigned int m_uiBit;
    };
    using CBits = std::vector<SBit>;
    void ClearBits(const CBits& aoBits);

    // The payload of the first data block of a kind; empty without one.
    CBytes GetPayload(EZorEdidField eId) const;
    // Another payload for it, or a new data block where there is none.
    std::string PutPayload(EZorEdidField eId, const CBytes& aui8Payload, const SWhere& oNewAt = {});
    // Zeros after a payload that is shorter.
    std::string Lengthen(EZorEdidField eId, size_t uiLeast);
    // Bytes of the base block, which its checksum follows.
    void PutBase(unsigned int uiOffset, const CBytes& aui8Bytes);

    void Note(const std::string& sNote) { m_asNotes.push_back(sNote); }
    // What was done since the last call.
    std::vector<std::string> TakeNotes();

private:
    std::string NameWithValue(unsigned int uiField) const;
    std::string NameRemovable(const CZorEdidParts::SAnswer& oAnswer) const;
    bool IsNew(unsigned int uiField) const;
    template <class DO>
    std::string EditParts(DO fnDo, const char* pszDone);
    std::string NameSome(const std::vector<unsigned int>& auiFields) const;
    bool HasOtherPreferred(const CBytes& aui8Before) const;
    std::string ClearNative(bool bOneNative);
    std::string SetBy(unsigned int uiField, const std::string& sValue);
    void Read(const CBytes& aui8Image);
    std::string PutDescriptor(const CBytes& aui8Bytes, const SWhere& oWhere);
    unsigned int FindLastTiming(unsigned int uiBlock) const;
    std::string AddBehindMovedTiming(const CBytes& aui8Bytes, const SWhere& oWhere);

    CZorEdidParts m_oParts;
    CZorEdidMap m_oRead;  // the image that the user has
    CZorEdidMap m_oBegun; // before the edit that goes on
    std::vector<std::string> m_asNotes;
    std::vector<std::string> m_asSame; // fields that had their value already
};
