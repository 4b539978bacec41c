// Names for the bytes that differ. A byte that has another meaning in the second image gets both names.

#include "ByteDiff.h"

#include <algorithm>

#include "EdidUtils.h"
#include "MapText.h"
#include "TextFormat.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;

// The leaves of these bits. Those of one group follow it once: "Group > first, second".
std::string NameBits(const CZorEdidMap& oMap, unsigned int uiOffset, unsigned int uiMask)
{
    std::string sNames;
    unsigned int uiGroup = CZorEdidMap::msc_uiNone;
    for (const unsigned int uiLeaf : FindLeaves(oMap, uiOffset, uiMask))
    {
        const CZorEdidMap::SField& oLeaf = oMap.GetField(uiLeaf);
        sNames += sNames.empty() ? "" : ", ";
        sNames += !sNames.empty() && oLeaf.m_uiGroup == uiGroup ? GetFieldName(oLeaf) : GetPath(oMap, uiLeaf);
        uiGroup = oLeaf.m_uiGroup;
    }
    return sNames;
}
} // namespace

std::string DescribeBytes(const std::vector<unsigned char>& aui8Read, const std::vector<unsigned char>& aui8Edited)
{
    CZorEdidMap oRead;
    CZorEdidMap oEdited;
    oRead.Read(static_cast<unsigned int>(aui8Read.size()), aui8Read.data());
    oEdited.Read(static_cast<unsigned int>(aui8Edited.size()), aui8Edited.data());
    const size_t uiShared = std::min(aui8Read.size(), aui8Edited.size());
    std::string sText;
    for (unsigned int i = 0; i < uiShared; ++i)
    {
        if (aui8Read[i] != aui8Edited[i])
        {
            const unsigned int uiMask = static_cast<unsigned int>(aui8Read[i] ^ aui8Edited[i]);
            const std::string sOld = NameBits(oRead, i, uiMask);
            const std::string sNew = NameBits(oEdited, i, uiMask);
            sText += FormatText("block %u offset 0x%02x: %02x -> %02x  ", i / gsc_uiBlockSize, i % gsc_uiBlockSize,
                                aui8Read[i], aui8Edited[i]);
            sText += sNew;
            sText += sOld != sNew ? "; was " + sOld : "";
            sText += "\n";
        }
    }
    const size_t uiMore = std::max(aui8Read.size(), aui8Edited.size()) - uiShared;
    sText += uiMore == 0 ? ""
                         : FormatText("%zu more bytes in the %s image\n", uiMore,
                                      aui8Read.size() > aui8Edited.size() ? "first" : "second");
    return sText;
}
