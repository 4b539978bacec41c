// The map of an image in words: names, places and chains of its fields. explain, check and edit --diff name bytes with
// it.

#pragma once

#include <span>
#include <string>
#include <vector>

#include "ZorEdidMap.h"

// All ids, in the order of their list.
std::span<const EZorEdidField> GetAllIds();
std::vector<std::string> ListIdTexts(); // "base.display.gamma"

// The name with its number where there are several: "Standard timing 3"; of codes "VIC #3", so that it does not read as
// a code.
std::string GetFieldName(const CZorEdidMap::SField& oField);

// CZorEdidMap::GetValue; of what points at a timing by its number with the mode, "detailed timing 2: 1920 x 1080 @ 60
// Hz", and with "none" where the image has no such timing.
std::string GetWholeValue(const CZorEdidMap& oMap, unsigned int uiField);

// The same, or the summary of a group; empty where the bytes themselves say all.
std::string GetFieldValue(const CZorEdidMap& oMap, unsigned int uiField);

// What of a field a program takes for its value, beside the text.
enum EValueForm
{
    eValue_None,   // the text, or the bytes, say all
    eValue_Number, // GetFieldNumber
    eValue_Text    // CZorEdidMap::GetValue
};
EValueForm GetValueForm(const CZorEdidMap::SField& oField);

// A number with its decimals as the nearest double.
double GetFieldNumber(const CZorEdidMap::SField& oField);

// The groups that a field lies in, from its block down, and the field itself.
std::vector<unsigned int> GetChain(const CZorEdidMap& oMap, unsigned int uiField);

// The chain without the block: "Video data block > Short video descriptor 3 > Native". Of a block its own name.
std::string GetPath(const CZorEdidMap& oMap, unsigned int uiField);

// The leaves with any of these bits of a byte, the most significant first.
std::vector<unsigned int> FindLeaves(const CZorEdidMap& oMap, unsigned int uiOffset, unsigned int uiMask);

// The bytes of a field in the order of the image.
struct SFieldByte
{
    unsigned int m_uiOffset; // in the image
    unsigned int m_uiMask;   // the bits that are the field's
};
std::vector<SFieldByte> GetFieldBytes(const CZorEdidMap& oMap, unsigned int uiField);
std::vector<SFieldByte> GetPieceBytes(std::span<const CZorEdidMap::SPiece> aoPieces);

// At least two hexadecimal digits.
std::string GetOffsetText(unsigned int uiOffset);

// Offsets in hexadecimal digits from uiStart of the image on, bits after a point: "36-37", "14.7", "38 3a.7-4".
std::string GetPlaceText(const std::vector<SFieldByte>& aoBytes, unsigned int uiStart);

// "256 bytes: Base block, CTA-861".
std::string DescribeBlocks(const CZorEdidMap& oMap);

// Lower-case words.
const char* GetKindName(CZorEdidMap::EKind eKind);
const char* GetAreaName(CZorEdidMap::EArea eArea);
const char* GetListName(CZorEdidMap::EList eList); // "established", "standard", "detailed"; empty for none
const char* GetNoteName(CZorEdidMap::ESeverity eSeverity);

// The numbers of a timing that the library lists, "detailed 0" or "standard 12, 13", and of what it lists otherwise for
// these bytes, "the list takes byte db for VIC 91: standard 7, 8"; empty for other fields. And one of all of them, from
// 0 on: "standard 13"; empty beyond the last.
std::string GetTimingNumbers(const CZorEdidMap& oMap, unsigned int uiField);
std::string GetTimingNumber(const CZorEdidMap::SField& oField, unsigned int uiIndex);

// "the list takes byte db for VIC 91", of a byte of ZorStandards::IsListedAsOther.
std::string DescribeOtherCode(unsigned int uiByte);
// The same, or why the list has a timing that the field of a code does not say: at 1000/1001 of its rate with bVariant.
std::string DescribeListed(unsigned int uiByte, bool bVariant);

// "VIC 16", "DMT ID 82" of a code; else empty.
std::string GetCodeText(const CZorEdidMap::SField& oField);

std::string GetNoteText(const CZorEdidMap::SNote& oNote); // "warning: reserved value"
