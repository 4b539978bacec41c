// Extension blocks beside CTA-861 and DisplayID: VTB, block map, DI-EXT, LS-EXT, and by name the rest. Called by the
// walk of an image.

#include "MapOther.h"

#include <string.h>

#include <algorithm>
#include <iterator>

#include "EdidUtils.h"
#include "MapBase.h"
#include "MapNames.h"
#include "Standards/ExtensionBlocks.h"

namespace ZorMap
{
namespace
{
using CMap = CZorEdidMap;

// ---- Video timing block extension ----

constexpr unsigned int gsc_uiVtbListsSize = gsc_uiChecksumOffset - Vtb::gsc_uiListsOffset;

// A list that begins after uiBefore bytes of lists. One that begins past the block says nothing: an earlier one did.
SBreach CheckVtbList(unsigned int uiBefore, unsigned int uiCount, unsigned int uiSize)
{
    return uiBefore <= gsc_uiVtbListsSize
               ? CheckAtMost((gsc_uiVtbListsSize - uiBefore) / uiSize, uiCount, eZorEdidRule_VtbTooMany)
               : gsc_oNoBreach;
}

SBreach CheckVtbDetailed(const CRecord& /*oBlock*/, unsigned int uiDetailed)
{
    return CheckVtbList(0, uiDetailed, gsc_uiMapDescriptorSize);
}

SBreach CheckVtbCvt(const CRecord& oBlock, unsigned int uiCodes)
{
    return CheckVtbList(oBlock.Get(Vtb::gsc_oDetailedTimings) * gsc_uiMapDescriptorSize, uiCodes, gsc_uiCvtCodeSize);
}

SBreach CheckVtbStandard(const CRecord& oBlock, unsigned int uiStandard)
{
    return CheckVtbList(oBlock.Get(Vtb::gsc_oDetailedTimings) * gsc_uiMapDescriptorSize +
                            oBlock.Get(Vtb::gsc_oCvtCodes) * gsc_uiCvtCodeSize,
                        uiStandard, gsc_uiStandardTimingSize);
}

constexpr SRow gsc_aoVtbRows[] = {
    { eId_VtbVersion, Byte(1), "Version", Number().Expect(1, eZorEdidRule_Version1Layout) },
    { eId_VtbDetailedTimings, Vtb::gsc_oDetailedTimings, "Number of detailed timings", Number(), nullptr,
      CheckVtbDetailed },
    { eId_VtbCvtTimingCodes, Vtb::gsc_oCvtCodes, "Number of CVT timing codes", Number(), nullptr, CheckVtbCvt },
    { eId_VtbStandardTimings, Vtb::gsc_oStandardTimings, "Number of standard timings", Number(), nullptr,
      CheckVtbStandard },
};
constexpr SRow gsc_oVtbCutRow = { eId_VtbCutTiming, RunToEnd(0), "Timing, cut short", Unknown() };
constexpr STable gsc_oVtbTable = { eId_Vtb, "Video timing block", eArea_Structure, gsc_aoVtbRows };

void MapVtb(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    const CRecord oBlock = oWriter.GetRecord(uiOffset, uiLength);
    oWriter.AddRows(gsc_oVtbTable, uiOffset, uiLength);
    unsigned int uiAt = Vtb::gsc_uiListsOffset;
    const unsigned int uiEnd = std::min(uiLength, gsc_uiChecksumOffset);
    const auto fnAddList = [&](const STable& oTable, const SPlace& oCount, unsigned int uiSize) {
        const unsigned int uiFit = uiAt < uiEnd ? (uiEnd - uiAt) / uiSize : 0;
        const unsigned int uiBytes = std::min(oBlock.Get(oCount), uiFit) * uiSize;
        oWriter.AddItems(oTable, uiOffset + uiAt, uiBytes, uiSize);
        if (oBlock.Get(oCount) > uiFit && uiAt + uiBytes < uiEnd)
        {
            oWriter.AddLeaf(gsc_oVtbCutRow, eArea_Unused, uiOffset + uiAt + uiBytes, uiEnd - uiAt - uiBytes);
        }
        uiAt += oBlock.Get(oCount) * uiSize;
    };
    fnAddList(g_oDetailedTimingTable, Vtb::gsc_oDetailedTimings, gsc_uiMapDescriptorSize);
    fnAddList(g_oCvtCodeTable, Vtb::gsc_oCvtCodes, gsc_uiCvtCodeSize);
    fnAddList(g_oVtbStandardTimingTable, Vtb::gsc_oStandardTimings, gsc_uiStandardTimingSize);
}

// ---- Block map, E-EDID 1.4: the tags of the blocks after it. Block 1 has those of blocks 2 to 127, block 128
//      those of blocks 129 to 254 ----

constexpr SRow gsc_oMapTagRow = { eId_BlockMapTag, Byte(0), "Tag of block", MakeForm(CMap::eKind_Name) };

// The number of a block in its EDID: a file may hold several in a row.
unsigned int GetPlace(const CMapWriter& oWriter, unsigned int uiOffset)
{
    unsigned int uiPlace = 0;
    while (uiPlace * CMapWriter::msc_uiBlockSize < uiOffset &&
           !HasHeader(oWriter.GetRecord(uiOffset - uiPlace * CMapWriter::msc_uiBlockSize, CMapWriter::msc_uiBlockSize)))
    {
        ++uiPlace;
    }
    return uiPlace;
}

void MapBlockMap(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    const unsigned int uiBlock = uiOffset / CMapWriter::msc_uiBlockSize;
    const unsigned int uiPlace = GetPlace(oWriter, uiOffset);
    const bool bPlaced = std::ranges::find(ZorStandards::gsc_auiBlockMapPlaces, uiPlace) !=
                         std::end(ZorStandards::gsc_auiBlockMapPlaces);
    if (!bPlaced)
    {
        oWriter.AddNote(oWriter.FindField(uiOffset, uiLength), eZorEdidRule_BlockMapPlace);
    }
    for (unsigned int i = 1; i < std::min(uiLength, gsc_uiChecksumOffset); ++i)
    {
        const unsigned int uiTag = oWriter.GetByte(uiOffset + i);
        const unsigned int uiField = oWriter.AddLeaf(gsc_oMapTagRow, eArea_Structure, uiOffset + i, 1);
        oWriter.SetMeaning(uiField,
                           uiTag == 0 ? "no block" : FindMeaning(g_oExtensionTagRow.m_oForm.m_aoMeanings, uiTag));
        if (!bPlaced)
        {
            continue; // whose tags they are is not known
        }
        oWriter.SetIndex(uiField, uiBlock + i);
        // A block that is not there reads as 0.
        if (uiTag != oWriter.GetByte(uiOffset + i * CMapWriter::msc_uiBlockSize))
        {
            oWriter.AddNote(uiField, eZorEdidRule_BlockMapTag);
        }
    }
}

// ---- Localized string extension, VESA LS-EXT, release A: string tables in several languages ----

constexpr unsigned int gsc_uiStringTablesOffset = 5;
constexpr unsigned int gsc_uiStringsOffset = 6; // in a string table

constexpr SRow gsc_aoLocalizedRows[] = {
    { eId_LsVersion, Byte(1), "Version", Number().Expect(1, eZorEdidRule_Version1Layout) },
    { eId_LsRevision, Byte(2), "Revision", Number() },
    { eId_LsUnicodeVersionMajor, Bits(3, 7, 4), "Unicode version, major", Number() },
    { eId_LsUnicodeVersionMinor, Bits(3, 3, 0), "Unicode version, minor", Number() },
    { eId_LsUnicodeVersionUpdate, Byte(4), "Unicode version, update", Number() },
};
constexpr STable gsc_oLocalizedTable = { eId_Ls, "Localized strings", eArea_Structure, gsc_aoLocalizedRows };

constexpr SMeaning gsc_aoEncodings[] = {
    { 0, 0, "UTF-8" }, { 1, 1, "UTF-16BE" }, { 2, 2, "UTF-32BE" }, { 3, 7, gsc_szReserved }
};
constexpr SPlace gsc_oLanguage = Split({ { 4, 6, 0 }, { 5, 7, 0 } });

bool IsUtf8(const CRecord& oStringTable) { return oStringTable.GetBits(1, 2, 0) == 0; }

// Three letters of five bits, 1 is A.
CMString LanguageText(const CRecord& /*oStringTable*/, unsigned int uiValue)
{
    constexpr char cBefore = 'A' - 1;
    constexpr unsigned int uiLetters = 26;
    CMString sText;
    for (unsigned int uiShift = 15; uiShift != 0; uiShift -= 5)
    {
        const unsigned int uiLetter = (uiValue >> (uiShift - 5)) & 0x1F;
        sText += uiLetter == 0 ? ' ' : uiLetter > uiLetters ? '?' : static_cast<char>(cBefore + uiLetter);
    }
    return sText;
}

SBreach CheckLanguage(const CRecord& oStringTable, unsigned int uiValue)
{
    return LanguageText(oStringTable, uiValue).Find('?', 0) >= 0 ? eZorEdidRule_LsLanguage : eZorEdidRule_None;
}

constexpr SRow gsc_aoStringTableRows[] = {
    { eId_LsTableLength, Byte(0), "Table length", Number("bytes") }, // counts itself
    { eId_Reserved, Bits(1, 7, 3), "Reserved", Reserved() },
    { eId_LsTableEncoding, Bits(1, 2, 0), "Encoding", Names(gsc_aoEncodings) },
    { eId_Reserved, Bits(2, 7, 6), "Reserved", Reserved() },
    { eId_LsTableCountry, Split({ { 2, 5, 0 }, { 3, 7, 0 } }), "Country code, ISO 3166", Number() },
    { eId_Reserved, Bit(4, 7), "Reserved", Reserved() },
    { eId_LsTableLanguage, gsc_oLanguage, "Language code", Number().Text(LanguageText), nullptr, CheckLanguage },
};

// "ENG"
CMString StringTableText(const CRecord& oStringTable)
{
    return LanguageText(oStringTable, oStringTable.Get(gsc_oLanguage));
}
constexpr STable gsc_oStringTable = { eId_LsTable, "String table", eArea_Identity, gsc_aoStringTableRows,
                                      StringTableText };

// Each string follows its length in bytes.
struct SLocalizedString
{
    SRow m_oLength;
    SRow m_oText;
    SRow m_oBytes; // of encodings whose characters are not bytes
};
constexpr SLocalizedString gsc_aoStrings[] = {
    { { eId_LsTableManufacturerNameLength, Byte(0), "Manufacturer name length", Number("bytes") },
      { eId_LsTableManufacturerName, RunToEnd(0), "Manufacturer name", Text() },
      { eId_LsTableManufacturerName, RunToEnd(0), "Manufacturer name", Bytes() } },
    { { eId_LsTableModelNameLength, Byte(0), "Model name length", Number("bytes") },
      { eId_LsTableModelName, RunToEnd(0), "Model name", Text() },
      { eId_LsTableModelName, RunToEnd(0), "Model name", Bytes() } },
    { { eId_LsTableSerialNumberLength, Byte(0), "Serial number length", Number("bytes") },
      { eId_LsTableSerialNumber, RunToEnd(0), "Serial number", Text() },
      { eId_LsTableSerialNumber, RunToEnd(0), "Serial number", Bytes() } },
};

void MapStrings(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    const CRecord oTable = oWriter.GetRecord(uiOffset, uiLength);
    unsigned int uiAt = gsc_uiStringsOffset;
    for (const SLocalizedString& oString : gsc_aoStrings)
    {
        if (uiAt >= uiLength)
        {
            return;
        }
        const unsigned int uiField = oWriter.AddLeaf(oString.m_oLength, eArea_Structure, uiOffset + uiAt, 1);
        const unsigned int uiDeclared = oTable.GetByte(uiAt++);
        const unsigned int uiPresent = std::min(uiDeclared, uiLength - uiAt);
        if (uiPresent < uiDeclared)
        {
            oWriter.AddNote(uiField, eZorEdidRule_LsStringPast, CountAtMost("bytes", uiDeclared, uiPresent));
        }
        oWriter.AddLeaf(IsUtf8(oTable) ? oString.m_oText : oString.m_oBytes, eArea_Identity, uiOffset + uiAt,
                        uiPresent);
        uiAt += uiPresent;
    }
}

void MapLocalizedStrings(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    oWriter.AddRows(gsc_oLocalizedTable, uiOffset, uiLength);
    const unsigned int uiEnd = std::min(uiLength, gsc_uiChecksumOffset);
    unsigned int uiSize = 0;
    for (unsigned int uiAt = gsc_uiStringTablesOffset; uiAt < uiEnd; uiAt += uiSize)
    {
        const unsigned int uiDeclared = oWriter.GetByte(uiOffset + uiAt);
        if (uiDeclared == 0)
        {
            return;
        }
        uiSize = std::min(uiDeclared, uiEnd - uiAt);
        const unsigned int uiField = oWriter.BeginRecord(gsc_oStringTable, uiOffset + uiAt, uiSize);
        if (uiSize < uiDeclared)
        {
            oWriter.AddNote(uiField, eZorEdidRule_LsTablePast, CountAtMost("bytes", uiDeclared, uiSize));
        }
        MapStrings(oWriter, uiOffset + uiAt, uiSize);
        oWriter.EndGroup(gsc_oUnknownRest);
    }
}

// ---- Blocks that are known by name only ----

constexpr SRow gsc_oVendorRow = { eId_ManufacturerData, Run(1, gsc_uiChecksumOffset - 1), "Manufacturer's data",
                                  Bytes() };

void MapVendorBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    oWriter.AddLeaf(gsc_oVendorRow, eArea_Vendor, uiOffset, uiLength);
}

// ---- Which block is walked by what: E-EDID 1.4; 01h and 30h of its early lists ----

// CTA-861 and DisplayID are in the list for their names; the walks of their blocks are elsewhere.
struct SExtension
{
    EZorEdidField m_eId;   // of the block
    SMeaning m_oKey;       // tag
    const char* m_pszKind; // GetBlockKind
    const SRest& m_oRest;  // what the walk leaves over
    const char* m_pszName;
    void (*m_pfnWalk)(CMapWriter&, unsigned int uiOffset, unsigned int uiLength) = nullptr; // null: by name only
};

// clang-format off
constexpr SExtension gsc_aoExtensions[] = {
    { eId_LcdTimings, { 0x01, 0x01, "LCD timings" }, "lcd-timings", gsc_oUnknownRest, "LCD timings extension block" },
    { eId_Cta, { 0x02, 0x02, "CTA-861 extension" }, "cea-861", gsc_oUnknownRest, "CTA-861 extension block" },
    { eId_Vtb, { Vtb::gsc_uiTag, Vtb::gsc_uiTag, "video timing block extension (VTB-EXT)" }, "video-timing",
      gsc_oFillerRest, "Video timing block extension", MapVtb },
    { eId_Edid2, { 0x20, 0x20, "EDID 2.0 extension" }, "edid-2", gsc_oUnknownRest, "EDID 2.0 extension block" },
    { eId_ColorInformation, { 0x30, 0x30, "color information" }, "color-information", gsc_oUnknownRest, "Color information extension block" },
    { eId_Di, { gsc_uiDisplayInformationTag, gsc_uiDisplayInformationTag, "display information extension (DI-EXT)" }, "display-information",
      gsc_oFillerRest, "Display information extension block", MapDisplayInformation },
    { eId_Ls, { gsc_uiLocalizedStringTag, gsc_uiLocalizedStringTag, "localized string extension (LS-EXT)" }, "localized-string",
      gsc_oFillerRest, "Localized string extension block", MapLocalizedStrings },
    { eId_Dpvl, { gsc_uiVideoLinkTag, gsc_uiVideoLinkTag, "digital packet video link extension (DPVL-EXT)" }, "dpvl",
      gsc_oUnknownRest, "Digital packet video link extension block" },
    { eId_Displayid, { gsc_uiDisplayIdTag, gsc_uiDisplayIdTag, "DisplayID extension" }, "displayid", gsc_oUnknownRest, "DisplayID extension block" },
    { eId_Dtcdb, { 0xA7, 0xA7, "display transfer characteristics data block (DTCDB)" }, "transfer-characteristics",
      gsc_oUnknownRest, "Display transfer characteristics block" },
    { eId_Dtcdb, { 0xAF, 0xAF, "display transfer characteristics data block (DTCDB)" }, "transfer-characteristics",
      gsc_oUnknownRest, "Display transfer characteristics block" },
    { eId_Dtcdb, { 0xBF, 0xBF, "display transfer characteristics data block (DTCDB)" }, "transfer-characteristics",
      gsc_oUnknownRest, "Display transfer characteristics block" },
    { eId_BlockMap, { gsc_uiBlockMapTag, gsc_uiBlockMapTag, "block map" }, "block-map", gsc_oFillerRest, "Block map", MapBlockMap },
    { eId_Manufacturer, { gsc_uiManufacturerTag, gsc_uiManufacturerTag, "extension of the manufacturer" }, "manufacturer",
      gsc_oUnknownRest, "Extension block of the manufacturer", MapVendorBlock },
};
// clang-format on
constexpr auto gsc_aoExtensionTags = TakeKeys(gsc_aoExtensions);
// A file may hold several EDIDs in a row.
constexpr SExtension gsc_oOtherBase = { eId_OtherBase, {}, nullptr, gsc_oUnknownRest, "Base block of another EDID" };

constexpr SExtension gsc_oUnknownExtension = {
    eId_UnknownExtension, {}, nullptr, gsc_oUnknownRest, "Unknown extension block"
};

// Null for an unknown one.
const SExtension* FindExtension(unsigned int uiTag)
{
    const auto* poEnd = std::end(gsc_aoExtensions);
    const auto* poFound = std::find_if(std::begin(gsc_aoExtensions), poEnd, [uiTag](const SExtension& oExtension) {
        return oExtension.m_oKey.m_uiFirst == uiTag;
    });
    return poFound != poEnd ? poFound : nullptr;
}

const SExtension& FindExtension(const CMapWriter& oWriter, unsigned int uiOffset)
{
    if (const SExtension* poExtension = FindExtension(oWriter.GetByte(uiOffset)))
    {
        return *poExtension;
    }
    return HasHeader(oWriter.GetRecord(uiOffset, CMapWriter::msc_uiBlockSize)) ? gsc_oOtherBase : gsc_oUnknownExtension;
}
} // namespace

constinit const SRow g_oExtensionTagRow = { eId_ExtensionTag, Byte(0), "Extension tag", Names(gsc_aoExtensionTags) };

void MapOtherBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    const SExtension& oExtension = FindExtension(oWriter, uiOffset);
    const unsigned int uiField = oWriter.BeginBlock(oExtension.m_eId, oExtension.m_pszName, uiOffset, uiLength);
    const CRecord oRecord = oWriter.GetRecord(uiOffset, uiLength);
    if (IsErased(oRecord.GetData(), oRecord.GetSize()))
    {
        oWriter.AddNote(uiField, eZorEdidRule_BlockErased);
    }
    oWriter.AddLeaf(&oExtension == &gsc_oOtherBase ? g_oHeaderRow : g_oExtensionTagRow, eArea_Structure, uiOffset,
                    uiLength);
    if (oExtension.m_pfnWalk != nullptr)
    {
        oExtension.m_pfnWalk(oWriter, uiOffset, uiLength);
    }
    oWriter.EndBlock(oExtension.m_oRest);
}

void VisitOtherIds(CIdVisitor& oVisitor)
{
    for (const SExtension& oExtension : gsc_aoExtensions)
    {
        oVisitor.VisitGroup(oExtension.m_eId, oExtension.m_pszName);
    }
    oVisitor.VisitGroup(gsc_oOtherBase.m_eId, gsc_oOtherBase.m_pszName);
    oVisitor.VisitGroup(gsc_oUnknownExtension.m_eId, gsc_oUnknownExtension.m_pszName);
    oVisitor.Visit(g_oExtensionTagRow, gsc_oVtbTable, gsc_oVtbCutRow, gsc_oMapTagRow, gsc_oLocalizedTable,
                   gsc_oStringTable, gsc_oVendorRow);
    for (const SLocalizedString& oString : gsc_aoStrings)
    {
        oVisitor.Visit(oString.m_oLength, oString.m_oText, oString.m_oBytes);
    }
}
} // namespace ZorMap

const char* CZorEdidMap::GetBlockKind(unsigned int uiTag)
{
    const ZorMap::SExtension* poExtension = ZorMap::FindExtension(uiTag);
    return poExtension != nullptr ? poExtension->m_pszKind : nullptr;
}

const char* CZorEdidMap::FindUnsound(const unsigned char* pui8Image, unsigned int uiBlock)
{
    using ZorStandards::gsc_uiBlockSize;
    const unsigned char* pui8Block = pui8Image + uiBlock * gsc_uiBlockSize;
    if (GetBlockKind(pui8Block[0]) == nullptr)
    {
        return "the block is of no known kind";
    }
    if (ZorStandards::IsErased(pui8Block, gsc_uiBlockSize))
    {
        return "the block was never written";
    }
    if (CEdidUtils::Compute8BitsChecksum(gsc_uiBlockSize, pui8Block) != 0)
    {
        return "the checksum of the block is wrong";
    }
    for (unsigned int i = 1; i < uiBlock; ++i)
    {
        if (memcmp(pui8Block, pui8Image + i * gsc_uiBlockSize, gsc_uiBlockSize) == 0)
        {
            return "the block is a copy of an earlier one";
        }
    }
    return nullptr;
}
