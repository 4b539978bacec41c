// Cases for the rows of the map's tables: a record in which each field has a value of its own, and what every field of
// it must be: its bits, its name, its value. A row that is shifted by a bit or a byte, or takes the place of another
// one, gives another text.

#pragma once

#include <bit>
#include <span>

#include "DisplayIdImages.h"
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
inline SRecord MakeDisplayIdRecord(unsigned int uiTag, unsigned int uiFlags, const char* pszPayload)
{
    constexpr unsigned int uiHeader = 3;
    constexpr unsigned int uiSection = 5;
    const unsigned int uiVersion = uiTag >= 0x20 && uiTag < 0x7F ? 0x20 : 0x12;
    const CBytes aui8Block = MakeDataBlock(uiTag, uiFlags, ParseBytes(pszPayload));
    return { BehindBaseBlock(MakeDisplayIdBlock(aui8Block, 121, uiVersion)), gsc_uiBlockSize + uiSection, uiHeader,
             static_cast<unsigned int>(aui8Block.size()) };
}

// A data block of CTA-861, as the whole block without its header. Places count from byte uiPayload of the data block:
// 1, 2 behind an extended tag, 4 behind an OUI.
inline SRecord MakeCtaRecord(unsigned int uiPayload, const char* pszBlock)
{
    constexpr unsigned int uiHead = 4;
    const CBytes aui8DataBlock = ParseBytes(pszBlock);
    const auto uiSize = static_cast<unsigned int>(aui8DataBlock.size());
    const auto uiOffset = static_cast<unsigned int>(gsc_uiBlockSize) + uiHead + uiPayload;
    const CBytes aui8Head = { 0x02, 0x03, static_cast<unsigned char>(uiHead + uiSize), 0x40 };
    return { FixChecksums(BehindBaseBlock(Join({ aui8Head, aui8DataBlock }))), uiOffset, 0, uiSize - uiPayload };
}

// The last descriptor of a base block of this revision, a display of continuous frequencies.
inline SRecord MakeDescriptorRecord(unsigned int uiRevision, const char* pszDescriptor)
{
    constexpr unsigned int uiDescriptor = 0x6C;
    constexpr unsigned int uiSize = 18;
    CBytes aui8Image = MakeEdid({});
    aui8Image[0x13] = static_cast<unsigned char>(uiRevision);
    aui8Image[0x18] |= 1;
    const CBytes aui8Descriptor = ParseBytes(pszDescriptor);
    std::copy_n(aui8Descriptor.begin(), uiSize, aui8Image.begin() + uiDescriptor);
    return { FixChecksums(aui8Image), uiDescriptor, 2, uiSize };
}

struct SPlaceBits
{
    unsigned int m_uiOffset;
    unsigned int m_uiHigh;
    unsigned int m_uiLow;
};

// The pieces of a place; of a run its first byte.
inline std::vector<SPlaceBits> ParsePlace(const std::string& sPlace)
{
    std::vector<SPlaceBits> aoPieces;
    std::istringstream oStream(sPlace);
    for (std::string sToken; oStream >> sToken;)
    {
        SPlaceBits oBits = { static_cast<unsigned int>(std::stoul(sToken, nullptr, 16)), 7, 0 };
        if (sToken.find('.') != std::string::npos)
        {
            const std::string sBits = sToken.substr(sToken.find('.') + 1);
            oBits.m_uiHigh = static_cast<unsigned int>(sBits.front() - '0');
            oBits.m_uiLow = static_cast<unsigned int>(sBits.back() - '0');
        }
        aoPieces.push_back(oBits);
    }
    return aoPieces;
}

inline std::string FormatPiece(const CZorEdidMap::SPiece& oPiece, unsigned int uiRecord)
{
    const unsigned int uiOffset = oPiece.m_uiOffset - uiRecord;
    CMString sText;
    sText.Format("%02X", uiOffset);
    if (oPiece.m_uiLength > 1)
    {
        sText.AppendFormat("-%02X", uiOffset + oPiece.m_uiLength - 1);
    }
    const char* pszSeparator = ".";
    for (unsigned int uiMask = oPiece.m_ui8Mask == 0xFF ? 0U : oPiece.m_ui8Mask; uiMask != 0; pszSeparator = ",")
    {
        const auto uiHigh = static_cast<unsigned int>(std::bit_width(uiMask)) - 1;
        const auto uiCount = static_cast<unsigned int>(std::countl_one(uiMask << (31 - uiHigh)));
        sText.AppendFormat(uiCount == 1 ? "%s%u" : "%s%u-%u", pszSeparator, uiHigh, uiHigh + 1 - uiCount);
        uiMask &= (1U << (uiHigh + 1 - uiCount)) - 1;
    }
    return static_cast<const char*>(sText);
}

// "PLACE | NAME | VALUE", and " | NOTE" for each note.
inline std::string FormatLeaf(const CZorEdidMap& oMap, unsigned int uiField, unsigned int uiRecord)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    std::string sLine;
    for (unsigned int i = 0; i < oField.m_uiPieces; ++i)
    {
        sLine.append(i == 0 ? "" : " ").append(FormatPiece(oMap.GetPiece(oField.m_uiFirstPiece + i), uiRecord));
    }
    sLine.append(" | ").append(oField.m_pszName).append(" | ").append(oMap.GetValue(uiField));
    for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
    {
        if (oMap.GetNote(i).m_uiField == uiField)
        {
            sLine.append(" | ").append(oMap.GetNote(i).m_pszText);
        }
    }
    return sLine;
}

inline std::string JoinSorted(std::vector<std::string> asLines)
{
    std::ranges::sort(asLines);
    std::string sText;
    for (const std::string& sLine : asLines)
    {
        sText.append(sLine).append("\n");
    }
    return sText;
}

inline std::string FormatRows(std::span<const SRowCase> aoRows)
{
    std::vector<std::string> asLines;
    for (const SRowCase& oRow : aoRows)
    {
        asLines.push_back(std::string(oRow.m_pszPlace) + " | " + oRow.m_pszName + " | " + oRow.m_pszValue +
                          (oRow.m_pszNote != nullptr ? std::string(" | ") + oRow.m_pszNote : ""));
    }
    return JoinSorted(asLines);
}

inline void ReadRecord(CZorEdidMap& oMap, const SRecord& oRecord)
{
    ASSERT_EQ(1, oMap.Read(static_cast<unsigned int>(oRecord.m_aui8Image.size()), oRecord.m_aui8Image.data()));
    EXPECT_EQ("", CheckMap(oMap));
}

// The rows are all fields of the record but reserved bits that are as they should be.
inline void ExpectRows(const SRecord& oRecord, std::span<const SRowCase> aoRows)
{
    CZorEdidMap oMap;
    ReadRecord(oMap, oRecord);
    std::vector<std::string> asLines;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        const std::string sLine = FormatLeaf(oMap, i, oRecord.m_uiOffset);
        const bool bInside = oField.m_uiOffset >= oRecord.m_uiOffset + oRecord.m_uiFirst &&
                             oField.m_uiOffset < oRecord.m_uiOffset + oRecord.m_uiSize;
        const bool bQuiet = oField.m_eKind == CZorEdidMap::eKind_Reserved && std::ranges::count(sLine, '|') == 2;
        if (bInside && oField.m_eKind != CZorEdidMap::eKind_Group && !bQuiet)
        {
            asLines.push_back(sLine);
        }
    }
    EXPECT_EQ(FormatRows(aoRows), JoinSorted(asLines));
}

// The rows are some of the fields of the record.
inline void ExpectSomeRows(const SRecord& oRecord, std::span<const SRowCase> aoRows)
{
    CZorEdidMap oMap;
    ReadRecord(oMap, oRecord);
    std::vector<std::string> asLines;
    for (const SRowCase& oRow : aoRows)
    {
        const SPlaceBits oFirst = ParsePlace(oRow.m_pszPlace).front();
        asLines.push_back(FormatLeaf(oMap, oMap.FindLeaf(oRecord.m_uiOffset + oFirst.m_uiOffset, oFirst.m_uiHigh),
                                     oRecord.m_uiOffset));
    }
    EXPECT_EQ(FormatRows(aoRows), JoinSorted(asLines));
}

// What the codes of a field say, from m_uiFirst on, one after the other, with "|" between them.
struct SCodesCase
{
    const char* m_pszPlace;
    unsigned int m_uiFirst;
    const char* m_pszTexts;
};

inline void SetBits(CBytes& aui8Bytes, unsigned int uiRecord, const std::string& sPlace, unsigned int uiValue)
{
    std::vector<SPlaceBits> aoPieces = ParsePlace(sPlace);
    std::ranges::reverse(aoPieces);
    for (const SPlaceBits& oPiece : aoPieces)
    {
        unsigned char& ui8Byte = aui8Bytes.at(uiRecord + oPiece.m_uiOffset);
        for (unsigned int i = oPiece.m_uiLow; i <= oPiece.m_uiHigh; ++i, uiValue >>= 1)
        {
            ui8Byte = static_cast<unsigned char>((ui8Byte & ~(1U << i)) | ((uiValue & 1U) << i));
        }
    }
}

// Puts each code into the record. One that is reserved, and no other one, gets a note of that.
inline void ExpectCodes(const SRecord& oRecord, std::span<const SCodesCase> aoCases)
{
    for (const SCodesCase& oCase : aoCases)
    {
        const SPlaceBits oFirst = ParsePlace(oCase.m_pszPlace).front();
        unsigned int uiCode = oCase.m_uiFirst;
        std::istringstream oStream(oCase.m_pszTexts);
        for (std::string sText; std::getline(oStream, sText, '|'); ++uiCode)
        {
            SRecord oChanged = oRecord;
            SetBits(oChanged.m_aui8Image, oRecord.m_uiOffset, oCase.m_pszPlace, uiCode);
            CZorEdidMap oMap;
            ReadRecord(oMap, oChanged);
            const std::string sLine = FormatLeaf(
                oMap, oMap.FindLeaf(oRecord.m_uiOffset + oFirst.m_uiOffset, oFirst.m_uiHigh), oRecord.m_uiOffset);
            const std::string sName = sLine.substr(0, sLine.find(" | ", sLine.find(" | ") + 1));
            const char* pszNote = sText.starts_with("reserved") ? " | reserved value" : "";
            EXPECT_EQ(sName + " | " + sText + pszNote, sLine) << "code " << uiCode;
            EXPECT_TRUE(sLine.starts_with(std::string(oCase.m_pszPlace) + " | ")) << sLine;
        }
    }
}
