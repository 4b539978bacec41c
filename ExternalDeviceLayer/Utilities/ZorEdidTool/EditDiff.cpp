// Names for the bytes of each kind of block. A byte that has another meaning after the edit gets both names.

#include "EditDiff.h"

#include <stdio.h>

#include <array>
#include <iterator>

#include "EdidUtils.h"
#include "LoadedImage.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;
using CNames = std::array<std::string, gsc_uiBlockSize>;

struct SArea
{
    unsigned int m_uiStart;
    unsigned int m_uiSize; // of all parts
    unsigned int m_uiPart; // size of a part that is numbered; 0 for an area of one
    const char* m_pszName;
};

constexpr SArea gsc_aoBaseAreas[] = {
    { 0, 8, 0, "header" },
    { 8, 2, 0, "manufacturer" },
    { 10, 2, 0, "product code" },
    { 12, 4, 0, "serial number" },
    { 16, 2, 0, "week and year" },
    { 18, 2, 0, "version" },
    { 20, 1, 0, "video input" },
    { 21, 2, 0, "image size" },
    { 23, 1, 0, "gamma" },
    { 24, 1, 0, "features" },
    { 25, 10, 0, "colour characteristics" },
    { 35, 3, 0, "established timings" },
    { 38, 16, 2, "standard timing slot" },
    { 54, 72, 18, "descriptor" },
    { 126, 1, 0, "number of extension blocks" },
    { 127, 1, 0, "checksum" },
};

constexpr SArea gsc_aoCeaAreas[] = {
    { 0, 1, 0, "CEA-861 tag" },
    { 1, 1, 0, "CEA-861 revision" },
    { 2, 1, 0, "CEA-861 start of the descriptors" },
    { 3, 1, 0, "CEA-861 flags" },
    { 4, 123, 0, "behind the descriptors" },
    { 127, 1, 0, "checksum" },
};

constexpr SArea gsc_aoDisplayIdAreas[] = {
    { 0, 1, 0, "DisplayID tag" },
    { 1, 126, 0, "DisplayID section" },
    { 127, 1, 0, "checksum" },
};

constexpr SArea gsc_aoOtherAreas[] = {
    { 0, 1, 0, "tag" },
    { 1, 126, 0, "contents of an unread block" },
    { 127, 1, 0, "checksum" },
};

constexpr const char* gsc_apszDataBlocks[] = { "reserved", "audio", "video",    "vendor",
                                               "speaker",  "DTC",   "reserved", "extended" };

template <size_t uiCount>
void NameAreas(const SArea (&aoAreas)[uiCount], CNames& asNames)
{
    for (const SArea& oArea : aoAreas)
    {
        for (unsigned int i = 0; i < oArea.m_uiSize; ++i)
        {
            asNames[oArea.m_uiStart + i] = oArea.m_pszName;
            if (oArea.m_uiPart != 0)
            {
                asNames[oArea.m_uiStart + i] += " " + std::to_string(i / oArea.m_uiPart);
            }
        }
    }
}

void NameCea(const CEdidExtBlockCEA861& oCea, CNames& asNames)
{
    unsigned int uiDataBlock = 0;
    for (const SCeaDataBlock& oBlock : ListDataBlocks(oCea))
    {
        std::string sName = std::string(gsc_apszDataBlocks[oBlock.m_uiTag]) + " data block";
        if (oBlock.m_uiTag == CEdidExtBlockCEA861::eCea861Tag_Extended && !oBlock.m_aui8Payload.empty())
        {
            sName += " " + std::to_string(oBlock.m_aui8Payload[0]);
        }
        sName += " (" + std::to_string(uiDataBlock++) + ")";
        asNames[oBlock.m_uiOffset - 1] = sName + ", header";
        for (unsigned int i = 0; i < oBlock.m_aui8Payload.size(); ++i)
        {
            asNames[oBlock.m_uiOffset + i] = sName + ", byte " + std::to_string(i);
        }
    }
    for (unsigned int i = 0; i < oCea.GetDetailedCount(); ++i)
    {
        const unsigned int uiOffset = oCea.GetDetailedTimingsOffset(i);
        for (unsigned int j = 0; j < gsc_uiDetailedSize; ++j)
        {
            asNames[uiOffset + j] = "detailed timing " + std::to_string(i) + ", byte " + std::to_string(j);
        }
    }
}

CNames NameBytes(const CBytes& aui8Image, size_t uiBlock)
{
    constexpr unsigned char ui8CeaTag = 2;
    constexpr unsigned int uiSectionOverhead = 5;
    const unsigned char* pui8Block = aui8Image.data() + uiBlock * gsc_uiBlockSize;
    CNames asNames;
    if (uiBlock == 0)
    {
        NameAreas(gsc_aoBaseAreas, asNames);
    }
    else if (pui8Block[0] == ui8CeaTag && CEdidExtBlockCEA861::IsSupported(gsc_uiBlockSize, pui8Block) != 0)
    {
        NameAreas(gsc_aoCeaAreas, asNames);
        NameCea(CEdidExtBlockCEA861(gsc_uiBlockSize, pui8Block, 0), asNames);
    }
    else if (pui8Block[0] == gsc_uiDisplayIdTag)
    {
        NameAreas(gsc_aoDisplayIdAreas, asNames);
        if (pui8Block[2] + uiSectionOverhead < CEdidUtils::msc_uiChecksumOffset)
        {
            asNames[pui8Block[2] + uiSectionOverhead] = "DisplayID section checksum";
        }
    }
    else
    {
        NameAreas(gsc_aoOtherAreas, asNames);
    }
    return asNames;
}
} // namespace

std::string DescribeChanges(const CBytes& aui8Read, const CBytes& aui8Edited)
{
    std::string sText;
    for (size_t uiBlock = 0; uiBlock * gsc_uiBlockSize < aui8Read.size(); ++uiBlock)
    {
        const CNames asRead = NameBytes(aui8Read, uiBlock);
        const CNames asEdited = NameBytes(aui8Edited, uiBlock);
        for (size_t i = 0; i < gsc_uiBlockSize; ++i)
        {
            const unsigned int uiOld = aui8Read[uiBlock * gsc_uiBlockSize + i];
            const unsigned int uiNew = aui8Edited[uiBlock * gsc_uiBlockSize + i];
            if (uiOld != uiNew)
            {
                char szPlace[64];
                snprintf(szPlace, sizeof(szPlace), "block %zu, offset %3zu: %02X -> %02X  ", uiBlock, i, uiOld, uiNew);
                sText += szPlace + asEdited[i] + (asRead[i] != asEdited[i] ? "; was " + asRead[i] : "") + "\n";
            }
        }
    }
    return sText;
}
