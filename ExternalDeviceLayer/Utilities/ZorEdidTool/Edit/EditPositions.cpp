#include "EditPositions.h"

#include <algorithm>
#include <vector>

#include "EdidUtils.h"
#include "Standards/ExtensionBlocks.h"
#include "Standards/VideoCodes.h"

using namespace ZorStandards;

namespace
{
using CTargets = std::vector<CBytes>;

// A code of a Type VIII data block counts with the kind of its field, as equal bytes of two kinds are two modes.
bool IsTarget(EZorEdidField eId, SVideoReference::EKind eKind)
{
    switch (eKind)
    {
    case SVideoReference::eDetailed:
        return eId == eZorEdidField_BaseDetailed;
    case SVideoReference::eType7Or10:
        return eId == eZorEdidField_DisplayidType7Timing || eId == eZorEdidField_DisplayidType10Timing;
    case SVideoReference::eType8:
        return eId == eZorEdidField_DisplayidTimingDmtId || eId == eZorEdidField_DisplayidTimingVic ||
               eId == eZorEdidField_DisplayidTimingHdmiVic;
    default:
        return false;
    }
}

// The bytes of the timings that references of a kind count, in their order: of the base block and CTA-861 blocks.
CTargets ListTargets(const CZorEdidMap& oMap, SVideoReference::EKind eKind)
{
    CTargets aaui8Targets;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        const unsigned int uiBlock = oField.m_uiOffset / gsc_uiBlockSize * gsc_uiBlockSize;
        if (IsTarget(oField.m_eId, eKind) && (uiBlock == 0 || oMap.GetData()[uiBlock] == gsc_uiCtaTag))
        {
            const unsigned char* pui8Field = oMap.GetData() + oField.m_uiOffset;
            aaui8Targets.emplace_back(pui8Field, pui8Field + oField.m_uiLength)
                .push_back(static_cast<unsigned char>(oField.m_eId)); // low byte: the three differ
        }
    }
    return aaui8Targets;
}

// Empty where a reference has no timing.
CBytes FindTarget(const CTargets& aaui8Targets, unsigned int uiNumber)
{
    return uiNumber < aaui8Targets.size() ? aaui8Targets[uiNumber] : CBytes();
}

bool HasOtherTarget(const CZorEdidMap& oBefore, const CZorEdidMap& oAfter)
{
    for (const SVideoReference::EKind eKind :
         { SVideoReference::eDetailed, SVideoReference::eType7Or10, SVideoReference::eType8 })
    {
        const CTargets aaui8Before = ListTargets(oBefore, eKind);
        const CTargets aaui8After = ListTargets(oAfter, eKind);
        for (unsigned int i = 0; i < oAfter.CountFields(eZorEdidField_CtaVideoReference); ++i)
        {
            const unsigned int uiField = oAfter.FindField(eZorEdidField_CtaVideoReference, i);
            const auto oReference = ReadVideoReference(oAfter.GetData()[oAfter.GetField(uiField).m_uiOffset]);
            if (oReference.m_eKind == eKind &&
                FindTarget(aaui8Before, oReference.m_uiNumber) != FindTarget(aaui8After, oReference.m_uiNumber))
            {
                return true;
            }
        }
    }
    return false;
}

// The timings that the block with the highest count declares as native.
CTargets ListNatives(const CZorEdidMap& oMap)
{
    CTargets aaui8Natives = ListTargets(oMap, SVideoReference::eDetailed);
    long long llMost = 0;
    for (unsigned int i = 0; i < oMap.CountFields(eZorEdidField_CtaNativeCount); ++i)
    {
        llMost = std::max(llMost, oMap.GetField(oMap.FindField(eZorEdidField_CtaNativeCount, i)).m_llNumber);
    }
    aaui8Natives.resize(std::min(aaui8Natives.size(), static_cast<size_t>(llMost)));
    std::ranges::sort(aaui8Natives);
    return aaui8Natives;
}

// A count of 1 follows the preferred timing, as CFieldEdits::Do has it.
bool HasNewNative(const CZorEdidMap& oBefore, const CZorEdidMap& oAfter)
{
    const CTargets aaui8After = ListNatives(oAfter);
    return aaui8After.size() > 1 && !std::ranges::includes(ListNatives(oBefore), aaui8After);
}
} // namespace

std::string DoInPlace(CFieldEdits& oFields, const CNamedEdit& fnEdit)
{
    CZorEdidMap oBefore;
    oBefore.Read(oFields.GetMap().GetSize(), oFields.GetMap().GetData());
    std::string sProblem = fnEdit(oFields);
    if (!sProblem.empty())
    {
        return sProblem;
    }
    if (HasOtherTarget(oBefore, oFields.GetMap()))
    {
        return gsc_szReferredByPosition;
    }
    return HasNewNative(oBefore, oFields.GetMap())
               ? "the native timings of CTA-861 are counted, and another timing would be one of them; --set "
                 "cta.native-count changes their number"
               : "";
}

std::string RefuseWrongSum(const CFieldEdits& oFields, unsigned int uiOffset)
{
    const unsigned int uiBlock = uiOffset / gsc_uiBlockSize;
    const unsigned char* pui8Block = oFields.GetMap().GetData() + size_t{ uiBlock } * gsc_uiBlockSize;
    const bool bWrong = uiBlock != 0 && (uiBlock + 1) * gsc_uiBlockSize <= oFields.GetMap().GetSize() &&
                        CEdidUtils::Is8BitsChecksumValid(gsc_uiBlockSize, pui8Block) == 0;
    return bWrong ? "the checksum of block " + std::to_string(uiBlock) +
                        " is wrong, which --repair-checksums in a call of its own makes right"
                  : "";
}
