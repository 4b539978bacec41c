#include "CutBase.h"

#include <algorithm>

#include "Standards/BaseBlock.h"
#include "Standards/Modes.h"

using namespace ZorStandards;

namespace
{
struct SBasePart
{
    unsigned int m_uiOffset;
    unsigned int m_uiSize;
    unsigned int m_uiCount;     // of such parts, one after the other
    unsigned char m_ui8Nothing; // each byte of a part that says nothing
};

// Zeros are no chromaticities, and as a descriptor one of the maker's that nobody reads. Where the number of extension
// blocks is cut off, one may follow, which is missing.
constexpr SBasePart gsc_aoParts[] = {
    { BaseBlock::gsc_uiChromaticitiesOffset, BaseBlock::gsc_uiEstablishedOffset - BaseBlock::gsc_uiChromaticitiesOffset,
      1, 0 },
    { BaseBlock::gsc_uiEstablishedOffset, 1, BaseBlock::gsc_uiStandardsOffset - BaseBlock::gsc_uiEstablishedOffset, 0 },
    { BaseBlock::gsc_uiStandardsOffset, gsc_uiStandardTimingSize,
      (BaseBlock::gsc_uiDescriptorsOffset - BaseBlock::gsc_uiStandardsOffset) / gsc_uiStandardTimingSize, 1 },
    { BaseBlock::gsc_uiDescriptorsOffset, Descriptors::gsc_uiDescriptorSize, BaseBlock::gsc_uiDescriptors, 0 },
    { BaseBlock::gsc_uiExtensionCountOffset, 1, 1, 1 },
    { gsc_uiChecksumOffset, 1, 1, 0 },
};
} // namespace

std::vector<unsigned char> FillCutBase(const std::vector<unsigned char>& aui8Bytes)
{
    std::vector<unsigned char> aui8Base = aui8Bytes;
    if (aui8Bytes.size() >= gsc_uiBlockSize)
    {
        return aui8Base;
    }
    if (aui8Bytes.size() < gsc_aoParts[0].m_uiOffset)
    {
        return {};
    }
    aui8Base.resize(gsc_uiBlockSize);
    for (const SBasePart& oPart : gsc_aoParts)
    {
        for (unsigned int i = 0; i < oPart.m_uiCount; ++i)
        {
            const unsigned int uiOffset = oPart.m_uiOffset + i * oPart.m_uiSize;
            if (uiOffset + oPart.m_uiSize > aui8Bytes.size())
            {
                std::fill_n(&aui8Base[uiOffset], oPart.m_uiSize, oPart.m_ui8Nothing);
            }
        }
    }
    return aui8Base;
}
