// What is expected of fields of the map, as lines of text.

#include "MapRowCases.h"

#include <algorithm>
#include <bit>
#include <sstream>

#include "DisplayIdImages.h"
#include "MapCheck.h"

namespace
{
std::vector<std::string> SplitAtSemicolons(const std::string& sText)
{
    std::vector<std::string> asParts;
    std::istringstream oStream(sText);
    for (std::string sPart; std::getline(oStream >> std::ws, sPart, ';');)
    {
        asParts.push_back(sPart);
    }
    return asParts;
}

// "NAME=VALUE"; a star at the end of the value matches any rest.
void ExpectValue(const CZorEdidMap& oMap, unsigned int uiField, const std::string& sValue)
{
    const std::string sActual = static_cast<const char*>(oMap.GetValue(uiField));
    const bool bBeginning = !sValue.empty() && sValue.back() == '*';
    EXPECT_EQ(bBeginning ? sValue.substr(0, sValue.size() - 1) : sValue,
              bBeginning ? sActual.substr(0, sValue.size() - 1) : sActual)
        << oMap.GetField(uiField).m_pszName;
}

std::string FormatPiece(const CZorEdidMap::SPiece& oPiece, unsigned int uiRecord)
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

std::string JoinSorted(std::vector<std::string> asLines)
{
    std::ranges::sort(asLines);
    std::string sText;
    for (const std::string& sLine : asLines)
    {
        sText.append(sLine).append("\n");
    }
    return sText;
}

std::string FormatRows(std::span<const SRowCase> aoRows)
{
    std::vector<std::string> asLines;
    for (const SRowCase& oRow : aoRows)
    {
        asLines.push_back(std::string(oRow.m_pszPlace) + " | " + oRow.m_pszName + " | " + oRow.m_pszValue +
                          (oRow.m_pszNote != nullptr ? std::string(" | ") + oRow.m_pszNote : ""));
    }
    return JoinSorted(asLines);
}
} // namespace

CBytes BehindBaseBlock(CBytes aui8Block)
{
    CBytes aui8Image(gsc_uiBlockSize);
    aui8Image[126] = 1;
    aui8Block.resize(gsc_uiBlockSize);
    return Join({ aui8Image, aui8Block });
}

CBytes MakeCtaImage(const SCaseRow& oRow)
{
    constexpr unsigned int uiHeadSize = 4;
    const CBytes aui8Content = oRow.GetBytes(2);
    CBytes aui8Block = oRow.GetBytes(1);
    if (aui8Block.empty())
    {
        aui8Block = { 0x02, 0x03, static_cast<unsigned char>(uiHeadSize + aui8Content.size()), 0x40 };
    }
    Append(aui8Block, aui8Content);
    return FixChecksums(BehindBaseBlock(aui8Block));
}

CBytes MakeSectionImage(const SCaseRow& oRow)
{
    constexpr unsigned char ui8DisplayIdTag = 0x70;
    CBytes aui8Header = oRow.GetBytes(1);
    if (aui8Header.empty())
    {
        aui8Header = { 0x12, 121, 0x03, 0x00 };
    }
    CBytes aui8Image = BehindBaseBlock(Join({ { ui8DisplayIdTag }, aui8Header, oRow.GetBytes(2) }));
    FixSectionSum(aui8Image, gsc_uiBlockSize);
    return FixChecksums(aui8Image);
}

unsigned int FindNext(const CZorEdidMap& oMap, unsigned int uiField, const std::string& sName)
{
    while (uiField < oMap.GetFieldCount() &&
           (oMap.GetField(uiField).m_uiOffset < gsc_uiBlockSize || oMap.GetField(uiField).m_pszName != sName))
    {
        ++uiField;
    }
    return uiField;
}

std::vector<std::string> GetNotes(const CZorEdidMap& oMap, unsigned int uiField)
{
    std::vector<std::string> asNotes;
    for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
    {
        const CZorEdidMap::SNote& oNote = oMap.GetNote(i);
        if (oMap.GetField(oNote.m_uiField).m_uiOffset >= gsc_uiBlockSize &&
            (uiField == CZorEdidMap::msc_uiNone || oNote.m_uiField == uiField))
        {
            asNotes.emplace_back(oNote.m_pszText);
        }
    }
    return asNotes;
}

void ExpectFields(const CBytes& aui8Image, const std::string& sExpected)
{
    CZorEdidMap oMap;
    ASSERT_EQ(1, oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data()));
    EXPECT_EQ("", CheckMap(oMap));
    unsigned int uiNext = 0;
    std::vector<std::string> asNotes;
    for (const std::string& sPart : SplitAtSemicolons(sExpected))
    {
        if (sPart[0] == '!')
        {
            asNotes.push_back(sPart.substr(1));
            const std::vector<std::string> asOfField = GetNotes(oMap, uiNext - 1);
            EXPECT_NE(asOfField.end(), std::find(asOfField.begin(), asOfField.end(), asNotes.back())) << sPart;
            continue;
        }
        const std::string sName = sPart.substr(0, sPart.find('='));
        const unsigned int uiField = FindNext(oMap, uiNext, sName);
        ASSERT_LT(uiField, oMap.GetFieldCount()) << sName;
        ExpectValue(oMap, uiField, sPart.substr(sPart.find('=') + 1));
        uiNext = uiField + 1;
    }
    EXPECT_EQ(asNotes, GetNotes(oMap));
}

SRecord MakeDisplayIdRecord(unsigned int uiTag, unsigned int uiFlags, const char* pszPayload)
{
    constexpr unsigned int uiHeader = 3;
    constexpr unsigned int uiSection = 5;
    const unsigned int uiVersion = uiTag >= 0x20 && uiTag < 0x7F ? 0x20 : 0x12;
    const CBytes aui8Block = MakeDataBlock(uiTag, uiFlags, ParseBytes(pszPayload));
    return { BehindBaseBlock(MakeDisplayIdBlock(aui8Block, 121, uiVersion)), gsc_uiBlockSize + uiSection, uiHeader,
             static_cast<unsigned int>(aui8Block.size()) };
}

SRecord MakeCtaRecord(unsigned int uiPayload, const char* pszBlock)
{
    constexpr unsigned int uiHead = 4;
    const CBytes aui8DataBlock = ParseBytes(pszBlock);
    const auto uiSize = static_cast<unsigned int>(aui8DataBlock.size());
    const auto uiOffset = static_cast<unsigned int>(gsc_uiBlockSize) + uiHead + uiPayload;
    const CBytes aui8Head = { 0x02, 0x03, static_cast<unsigned char>(uiHead + uiSize), 0x40 };
    return { FixChecksums(BehindBaseBlock(Join({ aui8Head, aui8DataBlock }))), uiOffset, 0, uiSize - uiPayload };
}

SRecord MakeDescriptorRecord(unsigned int uiRevision, const char* pszDescriptor)
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

std::vector<SPlaceBits> ParsePlace(const std::string& sPlace)
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

std::string FormatLeaf(const CZorEdidMap& oMap, unsigned int uiField, unsigned int uiRecord)
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

void ReadRecord(CZorEdidMap& oMap, const SRecord& oRecord)
{
    ASSERT_EQ(1, oMap.Read(static_cast<unsigned int>(oRecord.m_aui8Image.size()), oRecord.m_aui8Image.data()));
    EXPECT_EQ("", CheckMap(oMap));
}

void ExpectRows(const SRecord& oRecord, std::span<const SRowCase> aoRows)
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

void ExpectSomeRows(const SRecord& oRecord, std::span<const SRowCase> aoRows)
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

void SetBits(CBytes& aui8Bytes, unsigned int uiRecord, const std::string& sPlace, unsigned int uiValue)
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

void ExpectCodes(const SRecord& oRecord, std::span<const SCodesCase> aoCases)
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
