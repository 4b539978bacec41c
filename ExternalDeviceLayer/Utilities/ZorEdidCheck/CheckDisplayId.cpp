// Rules about the DisplayID sections of an image: which data blocks a display must have, and where.

#include <algorithm>
#include <bitset>
#include <cstdlib>

#include "CheckFindings.h"
#include "Standards/BaseBlock.h"
#include "Standards/DisplayIdBlocks.h"

namespace ZorCheck
{
namespace
{
unsigned int ReadMajorVersion(const unsigned char* pui8Block)
{
    return DisplayId::GetMajorVersion(pui8Block[DisplayId::gsc_uiVersionOffset]);
}

// The data blocks of all sections of one major version: fnVisit(tag, offset in the image).
template <class VISIT>
void ForEachDataBlock(const CFindings& oFindings, unsigned int uiVersion, VISIT fnVisit)
{
    oFindings.ForEachBlock(gsc_uiDisplayIdTag, [&](unsigned int uiBlock) {
        const unsigned char* pui8Block = oFindings.GetAt(uiBlock);
        const unsigned int uiEnd = std::min(DisplayId::GetSectionSize(pui8Block), gsc_uiChecksumOffset);
        DisplayId::CDataBlockWalk oWalk(pui8Block, DisplayId::gsc_uiDataBlocksOffset, uiEnd, uiEnd);
        while (ReadMajorVersion(pui8Block) == uiVersion && oWalk.Next())
        {
            fnVisit(oWalk.GetTag(), uiBlock + oWalk.GetOffset());
        }
    });
}

// The tags by the major version of the structure, 1 and 2.
struct SRequired
{
    EZorEdidRule m_eRule;
    unsigned int m_auiTags[2];
    bool m_bDisplaysOnly; // not of a section that names no product type
};
constexpr SRequired gsc_oProduct = { eZorEdidRule_DisplayIdNoProduct,
                                     { DisplayId::gsc_uiProduct1Tag, DisplayId::gsc_uiProduct2Tag },
                                     false };
constexpr SRequired gsc_aoRequired[] = {
    gsc_oProduct,
    { eZorEdidRule_DisplayIdNoParameters, { DisplayId::gsc_uiParameters1Tag, DisplayId::gsc_uiParameters2Tag }, true },
    { eZorEdidRule_DisplayIdNoInterface,
      { DisplayId::gsc_uiInterfaceTag, DisplayId::gsc_uiInterfaceFeaturesTag },
      true },
};

bool IsDisplay(unsigned int uiVersion, unsigned int uiProductType)
{
    constexpr unsigned int uiRepeater = 5; // of version 1
    constexpr unsigned int uiFirst = 2;
    return uiProductType >= uiFirst && !(uiVersion == 1 && uiProductType == uiRepeater);
}

void CheckRequired(CFindings& oFindings, unsigned int uiBlock, unsigned int uiVersion)
{
    std::bitset<256> oTags;
    ForEachDataBlock(oFindings, uiVersion, [&](unsigned int uiTag, unsigned int) { oTags.set(uiTag); });
    const bool bDisplay = IsDisplay(uiVersion, oFindings.GetByte(uiBlock + DisplayId::gsc_uiProductTypeOffset));
    for (const SRequired& oRequired : gsc_aoRequired)
    {
        if ((bDisplay || !oRequired.m_bDisplaysOnly) && !oTags[oRequired.m_auiTags[uiVersion - 1]])
        {
            const unsigned int uiField = oFindings.FindGroup(uiBlock + DisplayId::gsc_uiVersionOffset);
            SZorFinding& oFinding = oFindings.Add(uiField, oRequired.m_eRule);
            if (const unsigned int uiOther = oRequired.m_auiTags[2 - uiVersion]; oTags[uiOther])
            {
                oFinding.m_sFound.Format("tag 0x%02x of the other version", uiOther);
            }
        }
    }
}

// It identifies the display before anything else is said of it.
void CheckProductPlace(CFindings& oFindings, unsigned int uiVersion)
{
    bool bFirst = true;
    ForEachDataBlock(oFindings, uiVersion, [&](unsigned int uiTag, unsigned int uiOffset) {
        if (uiTag == gsc_oProduct.m_auiTags[uiVersion - 1] && !bFirst)
        {
            oFindings.Add(oFindings.FindGroup(uiOffset), eZorEdidRule_DisplayIdProductNotFirst);
        }
        bFirst = false;
    });
}

void CheckVersions(CFindings& oFindings, unsigned int uiFirst)
{
    const unsigned int uiVersion = oFindings.GetByte(uiFirst + DisplayId::gsc_uiVersionOffset);
    oFindings.ForEachBlock(gsc_uiDisplayIdTag, [&](unsigned int uiBlock) {
        const unsigned int uiOwn = oFindings.GetByte(uiBlock + DisplayId::gsc_uiVersionOffset);
        if (uiOwn != uiVersion)
        {
            SZorFinding& oFinding = oFindings.Add(oFindings.FindGroup(uiBlock + DisplayId::gsc_uiVersionOffset),
                                                  eZorEdidRule_DisplayIdVersionsDiffer);
            oFinding.m_sFound = DescribeVersion(uiOwn);
            oFinding.m_sExpected = DescribeVersion(uiVersion);
        }
    });
}

constexpr long long gsc_llTenthsPerMillimetre = 10;

// A size in tenths of a millimetre; 0 where none is given.
long long ReadTenths(const CFindings& oFindings, unsigned int uiField)
{
    if (uiField == CMap::msc_uiNone)
    {
        return 0;
    }
    const CMap::SField& oField = oFindings.GetMap().GetField(uiField);
    return oField.m_uiDecimals != 0 ? oField.m_llNumber : oField.m_llNumber * gsc_llTenthsPerMillimetre;
}

// Both sizes are of the same screen. The base block has whole centimetres, up or down.
void CheckImageSize(CFindings& oFindings, unsigned int uiBlock)
{
    constexpr long long llCentimetre = 100;
    const unsigned int uiField = oFindings.FindField(uiBlock, eZorEdidField_DisplayidParametersImageWidth);
    const long long llWidth = ReadTenths(oFindings, uiField);
    const long long llHeight =
        ReadTenths(oFindings, oFindings.FindField(uiBlock, eZorEdidField_DisplayidParametersImageHeight));
    const long long llScreenWidth = oFindings.GetByte(BaseBlock::gsc_uiImageWidthOffset) * llCentimetre;
    const long long llScreenHeight = oFindings.GetByte(BaseBlock::gsc_uiImageHeightOffset) * llCentimetre;
    const bool bGiven = llWidth != 0 && llHeight != 0 && llScreenWidth != 0 && llScreenHeight != 0;
    if (bGiven &&
        (std::abs(llWidth - llScreenWidth) >= llCentimetre || std::abs(llHeight - llScreenHeight) >= llCentimetre))
    {
        SZorFinding& oFinding = oFindings.Add(uiField, eZorEdidRule_DisplayIdImageSize);
        oFinding.m_sFound.Format("%lld x %lld mm", llWidth / gsc_llTenthsPerMillimetre,
                                 llHeight / gsc_llTenthsPerMillimetre);
        oFinding.m_sExpected.Format("about %lld x %lld mm", llScreenWidth / gsc_llTenthsPerMillimetre,
                                    llScreenHeight / gsc_llTenthsPerMillimetre);
    }
}
} // namespace

// The first section says what the others are about.
void CheckDisplayId(CFindings& oFindings)
{
    const unsigned int uiBlock = oFindings.FindFirstBlock(gsc_uiDisplayIdTag);
    const unsigned int uiVersion = uiBlock != 0 ? ReadMajorVersion(oFindings.GetAt(uiBlock)) : 0;
    if (uiVersion != 0 && uiVersion <= DisplayId::gsc_uiHighestMajorVersion)
    {
        CheckRequired(oFindings, uiBlock, uiVersion);
        CheckProductPlace(oFindings, uiVersion);
        CheckVersions(oFindings, uiBlock);
        oFindings.ForEachBlock(gsc_uiDisplayIdTag, [&](unsigned int uiOne) { CheckImageSize(oFindings, uiOne); });
    }
}
} // namespace ZorCheck
