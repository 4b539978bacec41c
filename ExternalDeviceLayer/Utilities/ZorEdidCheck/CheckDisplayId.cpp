// Rules about the DisplayID sections of an image: which data blocks a display must have.

#include <algorithm>
#include <bitset>

#include "CheckFindings.h"

namespace ZorCheck
{
namespace
{
using CTags = std::bitset<256>;

// Of all sections of one major version.
CTags ListTags(const CFindings& oFindings, unsigned int uiVersion)
{
    CTags oTags;
    oFindings.ForEachBlock(gsc_uiDisplayIdTag, [&](unsigned int uiBlock) {
        const unsigned char* pui8Block = oFindings.GetAt(uiBlock);
        const unsigned int uiEnd = std::min(DisplayId::GetSectionSize(pui8Block), gsc_uiChecksumOffset);
        if (pui8Block[DisplayId::gsc_uiVersionOffset] >> 4 == static_cast<int>(uiVersion))
        {
            DisplayId::CDataBlockWalk oWalk(pui8Block, DisplayId::gsc_uiDataBlocksOffset, uiEnd, uiEnd);
            while (oWalk.Next())
            {
                oTags.set(oWalk.GetTag());
            }
        }
    });
    return oTags;
}

// The tags by the major version of the structure, 1 and 2.
struct SRequired
{
    EZorEdidRule m_eRule;
    unsigned int m_auiTags[2];
    bool m_bDisplaysOnly; // not of a section that names no product type
};
constexpr SRequired gsc_aoRequired[] = {
    { eZorEdidRule_DisplayIdNoProduct, { 0x00, 0x20 }, false },
    { eZorEdidRule_DisplayIdNoParameters, { 0x01, 0x21 }, true },
    { eZorEdidRule_DisplayIdNoInterface, { 0x0F, 0x26 }, true },
};

bool IsDisplay(unsigned int uiVersion, unsigned int uiProductType)
{
    constexpr unsigned int uiRepeater = 5; // of version 1
    constexpr unsigned int uiFirst = 2;
    return uiProductType >= uiFirst && !(uiVersion == 1 && uiProductType == uiRepeater);
}

void CheckRequired(CFindings& oFindings, unsigned int uiBlock, unsigned int uiVersion)
{
    const CTags oTags = ListTags(oFindings, uiVersion);
    const bool bDisplay = IsDisplay(uiVersion, oFindings.GetByte(uiBlock + DisplayId::gsc_uiProductTypeOffset));
    for (const SRequired& oRequired : gsc_aoRequired)
    {
        if ((bDisplay || !oRequired.m_bDisplaysOnly) && !oTags[oRequired.m_auiTags[uiVersion - 1]])
        {
            oFindings.Add(oFindings.FindGroup(uiBlock + DisplayId::gsc_uiVersionOffset), oRequired.m_eRule);
        }
    }
}
} // namespace

// The first section says what the others are about.
void CheckDisplayId(CFindings& oFindings)
{
    const unsigned int uiBlock = oFindings.FindFirstBlock(gsc_uiDisplayIdTag);
    const unsigned int uiVersion = uiBlock != 0 ? oFindings.GetByte(uiBlock + DisplayId::gsc_uiVersionOffset) >> 4 : 0;
    if (uiVersion != 0 && uiVersion <= DisplayId::gsc_uiHighestMajorVersion)
    {
        CheckRequired(oFindings, uiBlock, uiVersion);
    }
}
} // namespace ZorCheck
