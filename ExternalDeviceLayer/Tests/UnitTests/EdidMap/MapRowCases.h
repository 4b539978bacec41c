// Cases for the rows of the map's tables: a record in which each field has a value of its own, and what every field of
// it must be: its bits, its name, its value. A row that is shifted by a bit or a byte, or takes the place of another
// one, gives another text.

#pragma once

#include <span>

#include "MapCases.h"

// A field, and all that the map says of it.
struct SRowCase
{
    // Bits, counted from the beginning of the record, most significant piece first: "05" is a byte, "05.3" a bit,
    // "05.7-4" bits 7 to 4, "05.7,2-0" bits 7 and 2 to 0, "06-09" a run of bytes, "07 06" a number of two bytes.
    const char* m_pszPlace;
    const char* m_pszName;
    const char* m_pszValue;
    const char* m_pszNote = nullptr;
};

inline constexpr char gsc_szSet[] = "reserved bits are set";

// A record in an image. Places count from m_uiOffset; fields from m_uiFirst on, up to m_uiSize, are compared.
struct SRecord
{
    CBytes m_aui8Image;
    unsigned int m_uiOffset;
    unsigned int m_uiFirst;
    unsigned int m_uiSize;
};

// A data block of DisplayID, its tag at 0, in a section of the version that has such blocks.
SRecord MakeDisplayIdRecord(unsigned int uiTag, unsigned int uiFlags, const char* pszPayload);

// A data block of CTA-861, as the whole block without its header. Places count from byte uiPayload of the data block:
// 1, 2 after an extended tag, 4 after an OUI.
SRecord MakeCtaRecord(unsigned int uiPayload, const char* pszBlock);

// The last descriptor of a base block of this revision, a display of continuous frequencies.
SRecord MakeDescriptorRecord(unsigned int uiRevision, const char* pszDescriptor);

struct SPlaceBits
{
    unsigned int m_uiOffset;
    unsigned int m_uiHigh;
    unsigned int m_uiLow;
};

// The pieces of a place; of a run its first byte.
std::vector<SPlaceBits> ParsePlace(const std::string& sPlace);

// "PLACE | NAME | VALUE", and " | NOTE" for each note.
std::string FormatLeaf(const CZorEdidMap& oMap, unsigned int uiField, unsigned int uiRecord);

void ReadRecord(CZorEdidMap& oMap, const SRecord& oRecord);

// The rows are all fields of the record but reserved bits that are as they should be.
void ExpectRows(const SRecord& oRecord, std::span<const SRowCase> aoRows);

// The rows are some of the fields of the record.
void ExpectSomeRows(const SRecord& oRecord, std::span<const SRowCase> aoRows);

// What the codes of a field say, from m_uiFirst on, one after the other, with "|" between them.
struct SCodesCase
{
    const char* m_pszPlace;
    unsigned int m_uiFirst;
    const char* m_pszTexts;
};

void SetBits(CBytes& aui8Bytes, unsigned int uiRecord, const std::string& sPlace, unsigned int uiValue);

// Puts each code into the record. One that is reserved, and no other one, gets a note of that.
void ExpectCodes(const SRecord& oRecord, std::span<const SCodesCase> aoCases);
