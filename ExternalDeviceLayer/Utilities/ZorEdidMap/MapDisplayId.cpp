// The walk of a DisplayID extension block: section, data blocks, filler, checksums. What a data block says is in
// MapDisplayIdProduct.cpp, MapDisplayIdTimings.cpp, MapDisplayIdInterface.cpp and MapDisplayIdHeadMounted.cpp. Called
// by the walk of an image.

#include "MapDisplayId.h"

#include <algorithm>

#include "MapKinds.h"
#include "MapOther.h"
#include "Standards/DisplayIdSection.h"

namespace ZorMap
{
namespace
{
using CMap = CZorEdidMap;

// ---- The section: DisplayID 1.3 and 2.0. It follows the extension tag ----

constexpr unsigned int gsc_uiSectionOffset = DisplayId::gsc_uiSectionOffset;
// From the section's first byte.
constexpr unsigned int gsc_uiSectionLengthOffset = DisplayId::gsc_uiSectionLengthOffset - gsc_uiSectionOffset;
constexpr unsigned int gsc_uiProductTypeOffset = DisplayId::gsc_uiProductTypeOffset - gsc_uiSectionOffset;
constexpr unsigned int gsc_uiExtensionCountOffset = DisplayId::gsc_uiExtensionCountOffset - gsc_uiSectionOffset;
constexpr unsigned int gsc_uiSectionHeaderSize = DisplayId::gsc_uiDataBlocksOffset - gsc_uiSectionOffset;
constexpr unsigned int gsc_uiChecksumSize = DisplayId::gsc_uiSectionOverhead - gsc_uiSectionHeaderSize;
constexpr unsigned int gsc_uiMostSectionBytes = DisplayId::gsc_uiMostDataBytes;
constexpr unsigned int gsc_uiLargestSection = gsc_uiMostSectionBytes + DisplayId::gsc_uiSectionOverhead;

constexpr unsigned int gsc_uiExtensionTag = DisplayId::gsc_uiTag;
constexpr unsigned int gsc_uiBaseBlockTag = 0x00;

constexpr auto gsc_aoProductTypes = ListedTo(
    255, { "extension section", "test structure", "display panel or other transducer", "standalone display device",
           "television receiver", "repeater or translator", "direct drive monitor" });
constexpr auto gsc_aoUseCases =
    ListedTo(255, { "same as the base section", "test structure", "none of the listed, generic display", "television",
                    "desktop productivity", "desktop gaming", "presentation", "head-mounted virtual reality",
                    "head-mounted augmented reality" });

unsigned int GetVersion(const CRecord& oSection) { return oSection.GetBits(0, 7, 4); }
// The library lists the timings of version 0 as those of version 1.
bool IsVersion1(const CRecord& oSection) { return GetVersion(oSection) < 2; }
bool IsVersion2(const CRecord& oSection) { return GetVersion(oSection) == 2; }
bool IsLaterVersion(const CRecord& oSection) { return GetVersion(oSection) > 2; }

SBreach CheckVersion(const CRecord& /*oSection*/, unsigned int uiVersion)
{
    return uiVersion == 1 || uiVersion == 2 ? eZorEdidRule_None : eZorEdidRule_DisplayIdVersion;
}

// 1.0 to 1.3, 2.0 and 2.1; other versions have a note of their own.
SBreach CheckRevision(const CRecord& oSection, unsigned int uiRevision)
{
    constexpr unsigned int auiLatest[] = { 3, 1 };
    const unsigned int uiVersion = GetVersion(oSection);
    return uiVersion == 1 || uiVersion == 2
               ? CheckAtMost(auiLatest[uiVersion - 1], uiRevision, eZorEdidRule_DisplayIdRevision)
               : gsc_oNoBreach;
}

SBreach CheckSectionLength(const CRecord& /*oSection*/, unsigned int uiLength)
{
    return CheckAtMost(gsc_uiMostSectionBytes, uiLength, eZorEdidRule_DisplayIdLength);
}

constexpr SRow gsc_aoSectionRows[] = {
    { eId_DisplayidSectionVersion, Bits(0, 7, 4), "Structure version", Number(), nullptr, CheckVersion },
    { eId_DisplayidSectionRevision, Bits(0, 3, 0), "Structure revision", Number(), nullptr, CheckRevision },
    { eId_DisplayidSectionLength, Byte(1), "Bytes in section", Number("bytes"), nullptr, CheckSectionLength },
    { eId_DisplayidSectionProductType, Byte(2), "Display product type identifier", Names(gsc_aoProductTypes),
      IsVersion1 },
    { eId_DisplayidSectionUseCase, Byte(2), "Display product primary use case", Names(gsc_aoUseCases), IsVersion2 },
    { eId_Unknown, Byte(2), "Unknown", Unknown(), IsLaterVersion },
    { eId_DisplayidSectionExtensionCount, Byte(3), "Extension count", Number() },
};

// "DisplayID 1.2"
CMString SectionText(const CRecord& oSection)
{
    CMString sText;
    sText.Format("DisplayID %u.%u", GetVersion(oSection), oSection.GetBits(0, 3, 0));
    return sText;
}
constexpr STable gsc_oSection = { eId_DisplayidSection, "DisplayID section", eArea_Structure, gsc_aoSectionRows,
                                  SectionText };

constexpr SRow gsc_oSectionChecksum = ChecksumRow(eId_DisplayidSectionChecksum, "Section checksum");
constexpr SRest gsc_oFillerBehind = { eId_Padding, "Filler", CZorEdidMap::eKind_Reserved,
                                      eZorEdidRule_DisplayIdFiller };
constexpr SRow gsc_oFiller = { eId_Padding, RunToEnd(0), "Filler", Filler(0, eZorEdidRule_DisplayIdFiller) };

// ---- Which data blocks there are ----

struct SVersionedBlocks
{
    unsigned int m_uiVersion; // 0: both
    const std::span<const SDisplayIdBlock>& m_aoBlocks;
};

constexpr SVersionedBlocks gsc_aoAllBlocks[] = {
    { 1, g_aoDisplayId1ProductBlocks },     { 1, g_aoDisplayId1TimingBlocks }, { 1, g_aoDisplayId1InterfaceBlocks },
    { 2, g_aoDisplayId2ProductBlocks },     { 2, g_aoDisplayId2TimingBlocks }, { 2, g_aoDisplayId2InterfaceBlocks },
    { 2, g_aoDisplayId2HeadMountedBlocks }, { 0, g_aoDisplayIdCtaBlocks },
};

constexpr SDisplayIdBlock gsc_oUnknownBlock = { 0, Group(eId_DisplayidUnknown, "Unknown data block", eArea_Unused),
                                                AtLeast(0) };

struct SKind
{
    const SDisplayIdBlock& m_oBlock;
    unsigned int m_uiVersion;
};

SKind FindKind(unsigned int uiTag)
{
    for (const SVersionedBlocks& oBlocks : gsc_aoAllBlocks)
    {
        for (const SDisplayIdBlock& oBlock : oBlocks.m_aoBlocks)
        {
            if (oBlock.m_uiTag == uiTag)
            {
                return { oBlock, oBlocks.m_uiVersion };
            }
        }
    }
    return { gsc_oUnknownBlock, 0 };
}

// ---- A data block ----

constexpr unsigned int gsc_uiDataBlockLengthOffset = DisplayId::gsc_uiHeaderLengthOffset;

constexpr SRow gsc_oDataBlockTag = { eId_DisplayidDataBlockTag, Byte(0), "Data block tag", MakeForm(CMap::eKind_Name) };
constexpr SRow gsc_aoReservedFlagRows[] = { { eId_Reserved, Bits(1, 7, 3), "Reserved", Reserved() } };
constexpr STable gsc_oReservedFlags = { eZorEdidField_None, "Flags", eArea_Structure, gsc_aoReservedFlagRows };
constexpr SRow gsc_aoDataBlockRows[] = {
    { eId_DisplayidDataBlockRevision, Bits(1, 2, 0), "Block revision", Number() },
    { eId_DisplayidDataBlockLength, Byte(2), "Number of payload bytes", Number("bytes") },
};
constexpr STable gsc_oDataBlock = { eZorEdidField_None, "Data block", eArea_Structure, gsc_aoDataBlockRows };

void NotePayload(CMapWriter& oWriter, unsigned int uiGroup, const CRecord& oBlock, SPayloadRule oRule)
{
    const SBitsPlace& oExtra = oRule.m_oExtraBytes;
    const unsigned int uiExtra =
        oExtra.m_ui8Offset != 0 ? oBlock.GetBits(oExtra.m_ui8Offset, oExtra.m_ui8High, oExtra.m_ui8Low) : 0;
    oRule.m_uiLeast += uiExtra;
    oRule.m_uiStep += uiExtra;
    const unsigned int uiLength = oBlock.GetByte(gsc_uiDataBlockLengthOffset);
    const EZorEdidRule eRule = CheckPayload(
        oRule, uiLength, { eZorEdidRule_DisplayIdShort, eZorEdidRule_DisplayIdLong, eZorEdidRule_DisplayIdPart });
    oWriter.AddNote(uiGroup, eRule, oRule.GetSeverity(), GetRightLengths(oRule, uiLength));
}

// All bytes of the data block that there are, from its tag on.
void AddDataBlock(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset, unsigned int uiVersion)
{
    const SKind oKind = FindKind(oBlock.GetByte(0));
    const SDisplayIdBlock& oKnown = oKind.m_oBlock;
    const unsigned int uiSize = oBlock.GetSize();
    const unsigned int uiGroup = oWriter.BeginGroup(oKnown.m_oGroup, uiOffset, uiSize);
    const unsigned int uiLength = oBlock.GetByte(gsc_uiDataBlockLengthOffset);
    if (uiSize < gsc_uiPayloadOffset + uiLength)
    {
        oWriter.AddNote(uiGroup, eZorEdidRule_DisplayIdPast,
                        CountAtMost("bytes", uiLength, std::max(uiSize, gsc_uiPayloadOffset) - gsc_uiPayloadOffset));
    }
    NotePayload(oWriter, uiGroup, oBlock, oKnown.m_oPayload);
    if (oKind.m_uiVersion != 0 && oKind.m_uiVersion != uiVersion)
    {
        oWriter.AddNote(uiGroup, eZorEdidRule_DisplayIdOtherVersion);
    }

    const unsigned int uiTag = oWriter.AddLeaf(gsc_oDataBlockTag, eArea_Structure, uiOffset, uiSize);
    oWriter.SetMeaning(uiTag, &oKnown != &gsc_oUnknownBlock ? oKnown.m_oGroup.m_pszName : nullptr);
    oWriter.AddRows(oKnown.m_poFlags != nullptr ? *oKnown.m_poFlags : gsc_oReservedFlags, uiOffset, uiSize);
    oWriter.AddRows(gsc_oDataBlock, uiOffset, uiSize);
    for (const STable* poTable : oKnown.m_apoTables)
    {
        if (poTable != nullptr)
        {
            oWriter.AddRows(*poTable, uiOffset, uiSize);
        }
    }
    if (oKnown.m_pfnWalk != nullptr)
    {
        oKnown.m_pfnWalk(oWriter, oBlock, uiOffset);
    }
    oWriter.EndGroup(gsc_oUnknownRest);
}

// ---- The data blocks of a section ----

// Up to the filler.
void AddDataBlocks(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength, unsigned int uiVersion)
{
    const CRecord oBytes = oWriter.GetRecord(uiOffset, uiLength);
    DisplayId::CDataBlockWalk oWalk(oBytes.GetData(), 0, oBytes.GetSize(), oBytes.GetSize());
    while (oWalk.Next())
    {
        const unsigned int uiAt = uiOffset + oWalk.GetOffset();
        AddDataBlock(oWriter, oWriter.GetRecord(uiAt, oWalk.GetSize()), uiAt, uiVersion);
    }
    if (oWalk.GetEnd() < oBytes.GetSize())
    {
        oWriter.AddLeaf(gsc_oFiller, eArea_Unused, uiOffset + oWalk.GetEnd(), oBytes.GetSize() - oWalk.GetEnd());
    }
}

// ---- The section among its neighbours ----

// DisplayID blocks before the one at uiOffset, or after it, of the same EDID: a file may hold several.
bool IsFirstSection(const CMapWriter& oWriter, unsigned int uiOffset)
{
    for (unsigned int uiAt = uiOffset; uiAt >= CMapWriter::msc_uiBlockSize;)
    {
        uiAt -= CMapWriter::msc_uiBlockSize;
        if (oWriter.GetByte(uiAt) == gsc_uiExtensionTag)
        {
            return false;
        }
        if (oWriter.GetByte(uiAt) == gsc_uiBaseBlockTag)
        {
            return true;
        }
    }
    return true;
}

unsigned int CountSectionsBehind(const CMapWriter& oWriter, unsigned int uiOffset)
{
    unsigned int uiCount = 0;
    for (unsigned int uiAt = uiOffset + CMapWriter::msc_uiBlockSize; oWriter.GetByte(uiAt) != gsc_uiBaseBlockTag;
         uiAt += CMapWriter::msc_uiBlockSize)
    {
        uiCount += oWriter.GetByte(uiAt) == gsc_uiExtensionTag ? 1U : 0U; // a byte past the image is 0
    }
    return uiCount;
}

void NoteSection(CMapWriter& oWriter, unsigned int uiField, const CRecord& oSection, unsigned int uiBlock)
{
    const bool bFirst = IsFirstSection(oWriter, uiBlock);
    const bool bHasType = oSection.GetByte(gsc_uiProductTypeOffset) != 0;
    if (oSection.GetSize() < gsc_uiSectionHeaderSize || IsLaterVersion(oSection))
    {
        return;
    }
    if (bFirst && !bHasType)
    {
        oWriter.AddNote(uiField, eZorEdidRule_DisplayIdNoType);
    }
    if (!bFirst && bHasType)
    {
        oWriter.AddNote(uiField, eZorEdidRule_DisplayIdTypeAgain);
    }
    const unsigned int uiSections = bFirst ? CountSectionsBehind(oWriter, uiBlock) : 0;
    if (oSection.GetByte(gsc_uiExtensionCountOffset) != uiSections)
    {
        oWriter.AddNote(uiField, eZorEdidRule_DisplayIdSections,
                        CountExactly("sections", oSection.GetByte(gsc_uiExtensionCountOffset), uiSections));
    }
}

// uiLength: what the block has for the section.
void MapSection(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    const unsigned int uiDeclared = oWriter.GetByte(uiOffset + gsc_uiSectionLengthOffset);
    const unsigned int uiSize = gsc_uiSectionHeaderSize + uiDeclared + gsc_uiChecksumSize;
    const bool bWhole = uiSize <= uiLength;
    const unsigned int uiEnd = bWhole ? uiSize - gsc_uiChecksumSize : uiLength;
    const CRecord oSection = oWriter.GetRecord(uiOffset, uiLength);

    const unsigned int uiField = oWriter.BeginGroup(gsc_oSection, uiOffset, std::min(uiSize, uiLength));
    if (!bWhole)
    {
        oWriter.AddNote(uiField, eZorEdidRule_DisplayIdSectionPast, CountAtMost("bytes", uiSize, uiLength));
    }
    NoteSection(oWriter, uiField, oSection, uiOffset - gsc_uiSectionOffset);
    oWriter.AddRows(gsc_oSection, uiOffset, gsc_uiSectionHeaderSize);
    if (!IsLaterVersion(oSection) && uiEnd > gsc_uiSectionHeaderSize)
    {
        AddDataBlocks(oWriter, uiOffset + gsc_uiSectionHeaderSize, uiEnd - gsc_uiSectionHeaderSize,
                      GetVersion(oSection));
    }
    if (bWhole)
    {
        oWriter.AddChecksum(gsc_oSectionChecksum, uiOffset, uiOffset + uiEnd);
    }
    oWriter.EndGroup(gsc_oUnknownRest);
}
} // namespace

void MapDisplayIdBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    oWriter.BeginBlock(eId_Displayid, "DisplayID extension block", uiOffset, uiLength);
    oWriter.AddLeaf(g_oExtensionTagRow, eArea_Structure, uiOffset, uiLength);
    if (uiLength > gsc_uiSectionOffset)
    {
        MapSection(oWriter, uiOffset + gsc_uiSectionOffset,
                   std::min(uiLength - gsc_uiSectionOffset, gsc_uiLargestSection));
    }
    oWriter.EndBlock(gsc_oFillerBehind);
}

bool FindDisplayIdHead(EZorEdidField eId, unsigned int uiVersion, SDataBlockHead& oHead)
{
    for (const SVersionedBlocks& oBlocks : gsc_aoAllBlocks)
    {
        for (const SDisplayIdBlock& oBlock : oBlocks.m_aoBlocks)
        {
            if (oBlock.m_oGroup.m_eId == eId && (oBlocks.m_uiVersion == uiVersion || oBlocks.m_uiVersion == 0))
            {
                oHead = { { PlaceByte(oBlock.m_uiTag) }, gsc_uiPayloadOffset };
                return true;
            }
        }
    }
    return false;
}

void VisitDisplayIdIds(CIdVisitor& oVisitor)
{
    oVisitor.Visit(gsc_oSection, gsc_oSectionChecksum, gsc_oFiller, gsc_oDataBlockTag, gsc_oReservedFlags,
                   gsc_oDataBlock, gsc_oUnknownBlock.m_oGroup);
    for (const SVersionedBlocks& oBlocks : gsc_aoAllBlocks)
    {
        for (const SDisplayIdBlock& oBlock : oBlocks.m_aoBlocks)
        {
            oVisitor.Visit(oBlock.m_oGroup);
            for (const STable* poTable :
                 { oBlock.m_poFlags, oBlock.m_apoTables[0], oBlock.m_apoTables[1], oBlock.m_apoTables[2] })
            {
                if (poTable != nullptr)
                {
                    oVisitor.Visit(*poTable);
                }
            }
        }
    }
}
} // namespace ZorMap
