// Loading, writing back and numbering over all blocks. EdidBase.cpp, EdidBaseTimings.cpp and
// the classes derived from CEdidExtBlock know what a block means.

#include "Edid.h"

#include <algorithm>
#include <memory>

#include "EdidTileOutputs.h"
#include "EdidUtils.h"
#include "ListFill.h"
#include "Standards/ExtensionBlocks.h"
#include "VidParamTiming.h"
#include "ZorAssert.h"
#include "ZorTools.h"

using namespace ZorCore;
using namespace ZorStandards;

namespace
{
using ExtensionList = CMArray<CEdidExtBlock*, CEdidExtBlock* const&>;

// Finds the block that a merged index falls into and asks it: fnCount gives the timings of a block, fnAsk asks the
// block for the index that is left. uiRest counts from the first timing after the base block. A block that refuses
// hands the same rest to the next one that is long enough.
template <class COUNT, class ASK>
int AskBlockAt(const ExtensionList& aoExtensions, unsigned int uiRest, COUNT fnCount, ASK fnAsk)
{
    for (unsigned int i = 0; i < aoExtensions.GetCount(); ++i)
    {
        CEdidExtBlock* poBlock = aoExtensions[i];
        const unsigned int uiCount = fnCount(*poBlock);
        if (uiRest >= uiCount)
        {
            uiRest -= uiCount;
            continue;
        }
        const int iResult = fnAsk(*poBlock, uiRest);
        if (iResult != 0)
        {
            return iResult;
        }
    }
    return 0;
}

// The first non-zero answer of a block, in block order.
template <class ASK>
int AskFirst(const ExtensionList& aoExtensions, ASK fnAsk)
{
    for (unsigned int i = 0; i < aoExtensions.GetCount(); ++i)
    {
        const int iResult = fnAsk(*aoExtensions[i]);
        if (iResult != 0)
        {
            return iResult;
        }
    }
    return 0;
}

template <class COUNT>
unsigned int SumOver(const ExtensionList& aoExtensions, COUNT fnCount)
{
    unsigned int uiSum = 0;
    for (unsigned int i = 0; i < aoExtensions.GetCount(); ++i)
    {
        uiSum += fnCount(*aoExtensions[i]);
    }
    return uiSum;
}

// Appends the origins of the timings of the extension blocks, uiFirst of which precede them.
template <class COUNT>
void AppendOrigins(const ExtensionList& aoExtensions, unsigned int uiFirst, COUNT fnCount,
                   void (CEdidExtBlock::*pfnList)(CTimingOrigins&) const, CTimingOrigins& aoOrigins)
{
    for (unsigned int i = 0; i < aoExtensions.GetCount(); ++i)
    {
        CTimingOrigins aoOfBlock;
        (aoExtensions[i]->*pfnList)(aoOfBlock);
        // Room for all of the block and half of those before it: hundreds of blocks do not move the list at each one.
        const unsigned int uiStep = aoOfBlock.GetCount() + aoOrigins.GetCount() / 2;
        aoOrigins.SetSize(static_cast<int>(aoOrigins.GetCount()), static_cast<int>(uiStep));
        for (unsigned int j = 0; j < aoOfBlock.GetCount(); ++j)
        {
            STimingOrigin oOrigin = aoOfBlock[j];
            oOrigin.m_uiIndex += uiFirst;
            aoOrigins.Add(oOrigin);
        }
        uiFirst += fnCount(*aoExtensions[i]);
    }
}

unsigned int SizeOf(const CEdidExtBlock& oBlock) { return oBlock.GetSize(); }
unsigned int StandardCountOf(const CEdidExtBlock& oBlock) { return oBlock.GetStandardCount(); }
unsigned int DetailedCountOf(const CEdidExtBlock& oBlock) { return oBlock.GetDetailedCount(); }
} // namespace

CEdid::CEdid() { CEdid::ClearEdidBuffer(); }

CEdid::~CEdid() { CEdid::ClearEdidBuffer(); }

int CEdid::ClearEdidBuffer()
{
    CEdidBase::ClearEdidBuffer();
    for (unsigned int i = 0; i < m_aoExtensions.GetCount(); ++i)
    {
        delete m_aoExtensions[i];
        m_aoExtensions[i] = nullptr;
    }
    m_aoExtensions.RemoveAll();
    return 1;
}

int CEdid::SetEdidBuffer(const unsigned char* pui8Data, unsigned int uiSize, unsigned int uiStripFlags)
{
    ClearEdidBuffer();
    if (pui8Data == nullptr || uiSize == 0)
    {
        return 1; // loading nothing is the way to empty the object
    }
    if (uiSize % CEdidUtils::msc_uiBlockSize != 0)
    {
        return 0;
    }
    if (CEdidBase::SetEdidBuffer(pui8Data, uiSize, 0) == 0)
    {
        return 0;
    }

    const unsigned int uiPresent = uiSize / gsc_uiBlockSize - 1;
    const unsigned int uiAnnounced = m_aui8Edid[BaseBlock::gsc_uiExtensionCountOffset];
    if (uiAnnounced > uiPresent)
    {
        MASSERT_FAILED();
    }
    CListFill<CEdidExtBlock*> oFill(m_aoExtensions, std::min(uiAnnounced, uiPresent));
    for (CBlockWalk oWalk(pui8Data, uiSize); oWalk.Next() && oWalk.IsAnnounced();)
    {
        std::unique_ptr<CEdidExtBlock> poBlock(
            CEdidExtBlock::CreateExtensionBlock(gsc_uiBlockSize, oWalk.GetData(), uiStripFlags));
        if (poBlock != nullptr)
        {
            poBlock->m_uiImageBlock = oWalk.GetNumber();
            oFill.Add(poBlock.release());
        }
    }
    return 1;
}

unsigned int CEdid::GetSize() const { return m_uiEdidSize + SumOver(m_aoExtensions, SizeOf); }

int CEdid::IsChecksumValid() const
{
    if (CEdidUtils::Is8BitsChecksumValid(m_uiEdidSize, m_aui8Edid) == 0)
    {
        return 0;
    }
    for (unsigned int i = 0; i < m_aoExtensions.GetCount(); ++i)
    {
        if (m_aoExtensions[i]->IsChecksumValid() == 0)
        {
            return 0;
        }
    }
    return 1;
}

CMArray<unsigned char, const unsigned char&> CEdid::GetEdidBuffer() const
{
    CMArray<unsigned char, const unsigned char&> aui8Buffer;
    aui8Buffer.SetCount(CEdidUtils::msc_uiBlockSize, -1);
    ZorTools_memcpy(aui8Buffer.GetData(), m_aui8Edid, CEdidUtils::msc_uiBlockSize);
    for (unsigned int i = 0; i < m_aoExtensions.GetCount(); ++i)
    {
        aui8Buffer.Append(m_aoExtensions[i]->GetEdidBuffer());
    }
    return aui8Buffer;
}

unsigned int CEdid::GetEdidBuffer(unsigned int uiSize, unsigned char* pui8Buffer) const
{
    if (pui8Buffer == nullptr || uiSize == 0 || m_uiEdidSize == 0)
    {
        return 0;
    }
    unsigned int uiCopied = std::min(uiSize, m_uiEdidSize);
    ZorTools_memcpy(pui8Buffer, m_aui8Edid, uiCopied);
    for (unsigned int i = 0; i < m_aoExtensions.GetCount() && uiCopied < uiSize; ++i)
    {
        const CEdidExtBlock& oBlock = *m_aoExtensions[i];
        const unsigned int uiPart = std::min(uiSize - uiCopied, oBlock.GetSize());
        if (oBlock.GetEdidBuffer(uiPart, pui8Buffer + uiCopied) == 0)
        {
            break;
        }
        uiCopied += uiPart;
    }
    return uiCopied;
}

int CEdid::operator==(const CEdid& oOther) const
{
    const CMArray<unsigned char, const unsigned char&> aui8Other = oOther.GetEdidBuffer();
    const CMArray<unsigned char, const unsigned char&> aui8Own = GetEdidBuffer();
    if (aui8Own.GetCount() != aui8Other.GetCount())
    {
        return 0;
    }
    return ZorTools_memcmp(aui8Own.GetData(), aui8Other.GetData(), aui8Own.GetCount()) == 0 ? 1 : 0;
}

unsigned int CEdid::GetExtensionCount() const { return m_aoExtensions.GetCount(); }

CEdidExtBlock* CEdid::GetExtension(unsigned int uiIndex)
{
    return uiIndex < m_aoExtensions.GetCount() ? m_aoExtensions[uiIndex] : nullptr;
}

const CEdidExtBlock* CEdid::GetExtension(unsigned int uiIndex) const
{
    return uiIndex < m_aoExtensions.GetCount() ? m_aoExtensions[uiIndex] : nullptr;
}

unsigned int CEdid::GetStandardCount() const
{
    return GetBaseStandardCount() + SumOver(m_aoExtensions, StandardCountOf);
}

int CEdid::GetStandard(unsigned int uiIndex, CVidParamTiming* poTiming, int* piNative) const
{
    const unsigned int uiBaseCount = GetBaseStandardCount();
    if (uiIndex < uiBaseCount)
    {
        return GetBaseStandard(uiIndex, poTiming, piNative);
    }
    return AskBlockAt(m_aoExtensions, uiIndex - uiBaseCount, StandardCountOf,
                      [=](const CEdidExtBlock& oBlock, unsigned int uiRest) {
                          return oBlock.GetStandard(uiRest, poTiming, piNative);
                      });
}

int CEdid::RemoveStandard(unsigned int uiIndex)
{
    const unsigned int uiBaseCount = GetBaseStandardCount();
    if (uiIndex < uiBaseCount)
    {
        return CEdidBase::RemoveStandard(uiIndex);
    }
    return AskBlockAt(m_aoExtensions, uiIndex - uiBaseCount, StandardCountOf,
                      [](CEdidExtBlock& oBlock, unsigned int uiRest) { return oBlock.RemoveStandard(uiRest); });
}

int CEdid::RemoveStandardKeepingDescriptors(unsigned int uiIndex)
{
    const unsigned int uiBaseCount = GetBaseStandardCount();
    if (uiIndex < uiBaseCount)
    {
        return CEdidBase::RemoveStandard(uiIndex); // nothing follows a pair
    }
    return AskBlockAt(
        m_aoExtensions, uiIndex - uiBaseCount, StandardCountOf,
        [](CEdidExtBlock& oBlock, unsigned int uiRest) { return oBlock.RemoveStandardKeepingDescriptors(uiRest); });
}

void CEdid::ListStandardOrigins(CTimingOrigins& aoOrigins) const
{
    CEdidBase::ListStandardOrigins(aoOrigins);
    AppendOrigins(m_aoExtensions, GetBaseStandardCount(), StandardCountOf, &CEdidExtBlock::ListStandardOrigins,
                  aoOrigins);
}

void CEdid::ListDetailedOrigins(CTimingOrigins& aoOrigins) const
{
    CEdidBase::ListDetailedOrigins(aoOrigins);
    AppendOrigins(m_aoExtensions, GetBaseDetailedCount(), DetailedCountOf, &CEdidExtBlock::ListDetailedOrigins,
                  aoOrigins);
}

unsigned int CEdid::GetDetailedCount() const
{
    return GetBaseDetailedCount() + SumOver(m_aoExtensions, DetailedCountOf);
}

int CEdid::GetDetailed(unsigned int uiIndex, CVidParamTiming* poTiming) const
{
    const unsigned int uiBaseCount = GetBaseDetailedCount();
    if (uiIndex < uiBaseCount)
    {
        return GetBaseDetailed(uiIndex, poTiming);
    }
    return AskBlockAt(
        m_aoExtensions, uiIndex - uiBaseCount, DetailedCountOf,
        [=](const CEdidExtBlock& oBlock, unsigned int uiRest) { return oBlock.GetDetailed(uiRest, poTiming); });
}

int CEdid::RemoveDetailed(unsigned int uiIndex)
{
    const unsigned int uiBaseCount = GetBaseDetailedCount();
    if (uiIndex < uiBaseCount)
    {
        return CEdidBase::RemoveDetailed(uiIndex);
    }
    return AskBlockAt(m_aoExtensions, uiIndex - uiBaseCount, DetailedCountOf,
                      [](CEdidExtBlock& oBlock, unsigned int uiRest) { return oBlock.RemoveDetailed(uiRest); });
}

unsigned int CEdid::GetBaseStandardCount() const { return CEdidBase::GetStandardCount(); }

int CEdid::GetBaseStandard(unsigned int uiIndex, CVidParamTiming* poTiming, int* piNative) const
{
    return CEdidBase::GetStandard(uiIndex, poTiming, piNative);
}

int CEdid::GetBaseStandard(CEdidBase::EStandardSlotIndex eSlot, CVidParamTiming* poTiming, int* piNative) const
{
    return CEdidBase::GetStandard(eSlot, poTiming, piNative);
}

unsigned int CEdid::GetBaseDetailedCount() const { return CEdidBase::GetDetailedCount(); }

int CEdid::GetBaseDetailed(unsigned int uiIndex, CVidParamTiming* poTiming) const
{
    return CEdidBase::GetDetailed(uiIndex, poTiming);
}

unsigned int CEdid::GetEstablishedCount(int bVesaOnly) const { return CEdidBase::GetEstablishedCount(bVesaOnly); }

int CEdid::GetEstablished(unsigned int uiIndex, CVidParamTiming* poTiming, int bVesaOnly) const
{
    return CEdidBase::GetEstablished(uiIndex, poTiming, bVesaOnly);
}

int CEdid::SetEstablished(unsigned int uiIndex, int bSet, int bUpdateChecksum)
{
    return CEdidBase::SetEstablished(uiIndex, bSet, bUpdateChecksum);
}

int CEdid::SetEstablishedFromId(CEdidBase::EEstablishedTiming eId, int bSet, int bUpdateChecksum)
{
    return CEdidBase::SetEstablishedFromId(eId, bSet, bUpdateChecksum);
}

int CEdid::IsDisplayPartOfTiledTopology() const
{
    return AskFirst(m_aoExtensions, [](CEdidExtBlock& oBlock) { return oBlock.IsDisplayPartOfTiledTopology(); });
}

int CEdid::GetTiledDisplayCapabilities(int* piSingleEnclosure, int* piBezelInfoPresent, int* piMultiTileAtLocation,
                                       int* piSingleTileAtLocation, int* piSingleTileScaled,
                                       int* piSingleTileCloned) const
{
    const int iResult = AskFirst(m_aoExtensions, [=](CEdidExtBlock& oBlock) {
        return oBlock.GetTiledDisplayCapabilities(piSingleEnclosure, piBezelInfoPresent, piMultiTileAtLocation,
                                                  piSingleTileAtLocation, piSingleTileScaled, piSingleTileCloned);
    });
    if (iResult != 0)
    {
        return iResult;
    }
    ZeroTileOutputs({ piSingleEnclosure, piBezelInfoPresent, piMultiTileAtLocation, piSingleTileAtLocation,
                      piSingleTileScaled, piSingleTileCloned });
    return 0;
}

int CEdid::GetTopologyDescription(unsigned int& uiTileLocationX, unsigned int& uiTileLocationY,
                                  unsigned int& uiTileCountX, unsigned int& uiTileCountY, unsigned int& uiTileWidth,
                                  unsigned int& uiTileHeight) const
{
    const int iResult = AskFirst(m_aoExtensions, [&](CEdidExtBlock& oBlock) {
        return oBlock.GetTopologyDescription(uiTileLocationX, uiTileLocationY, uiTileCountX, uiTileCountY, uiTileWidth,
                                             uiTileHeight);
    });
    if (iResult == 0)
    {
        ZeroTileOutputs(
            { &uiTileLocationX, &uiTileLocationY, &uiTileCountX, &uiTileCountY, &uiTileWidth, &uiTileHeight });
    }
    return iResult;
}
