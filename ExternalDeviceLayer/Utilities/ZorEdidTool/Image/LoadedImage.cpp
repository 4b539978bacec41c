// Loading an input, and separating the blocks that the library kept from those that it dropped.

#include "LoadedImage.h"

#include <string.h>

#include "Standards/ExtensionBlocks.h"
#include "TextFormat.h"
#include "ZorEdidMap.h"

using namespace ZorStandards;
using namespace ZorStandards::BaseBlock;

namespace
{
// Why CEdid::SetEdidBuffer refuses an image; empty if it does not.
std::string FindProblem(const std::vector<unsigned char>& aui8Bytes)
{
    if (aui8Bytes.empty())
    {
        return "is empty";
    }
    if (aui8Bytes.size() % gsc_uiBlockSize != 0)
    {
        return FormatText("no EDID: %zu bytes, not a multiple of %u", aui8Bytes.size(), gsc_uiBlockSize);
    }
    if (memcmp(aui8Bytes.data(), EDID_V1_HEADER, sizeof(EDID_V1_HEADER)) != 0)
    {
        return "no EDID: it does not begin with 00 ff ff ff ff ff ff 00";
    }
    return "";
}
} // namespace

const char* GetBlockKind(unsigned int uiTag)
{
    const char* pszKind = CZorEdidMap::GetBlockKind(uiTag);
    return pszKind != nullptr ? pszKind : "unknown";
}

int FindExtension(const CEdid& oEdid, unsigned int uiBlock)
{
    for (unsigned int i = 0; i < oEdid.GetExtensionCount(); ++i)
    {
        if (oEdid.GetExtension(i)->GetImageBlock() == uiBlock)
        {
            return static_cast<int>(i);
        }
    }
    return -1;
}

CEdidExtBlockCEA861* AsCea(CEdidExtBlock* poBlock)
{
    return poBlock != nullptr && poBlock->GetExtensionType() == gsc_uiCtaTag
               ? static_cast<CEdidExtBlockCEA861*>(poBlock)
               : nullptr;
}

CEdidExtBlockCEA861* SImageBlock::GetCea() const { return AsCea(m_poLoaded); }

bool CLoadedImage::Load(const SInput& oInput)
{
    m_sProblem = oInput.IsGood() ? FindProblem(oInput.m_aui8Bytes) : oInput.m_sProblem;
    if (!m_sProblem.empty())
    {
        return false;
    }
    const unsigned int uiSize = static_cast<unsigned int>(oInput.m_aui8Bytes.size());
    if (m_oEdid.SetEdidBuffer(oInput.m_aui8Bytes.data(), uiSize, 0) == 0)
    {
        m_sProblem = "no EDID";
        return false;
    }
    FindBlocks(oInput);
    return true;
}

unsigned int CLoadedImage::GetAnnouncedCount() const { return m_oEdid.GetBaseBlock()[gsc_uiExtensionCountOffset]; }

void CLoadedImage::FindBlocks(const SInput& oInput)
{
    m_aoBlocks.clear();
    CBlockWalk oWalk(oInput.m_aui8Bytes.data(), static_cast<unsigned int>(oInput.m_aui8Bytes.size()));
    while (oWalk.Next() && oWalk.IsAnnounced())
    {
        const int iExtension = FindExtension(m_oEdid, oWalk.GetNumber());
        CEdidExtBlock* poLoaded =
            iExtension < 0 ? nullptr : m_oEdid.GetExtension(static_cast<unsigned int>(iExtension));
        m_aoBlocks.push_back({ oWalk.GetNumber(), oWalk.GetData(), poLoaded });
    }
}
