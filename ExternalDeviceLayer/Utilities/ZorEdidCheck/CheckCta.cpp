// Rules about CTA-861 blocks among each other, and about what HDMI asks of them.

#include "CheckFindings.h"

namespace ZorCheck
{
namespace
{
const CMap::SField* FindIn(const CMap& oMap, unsigned int uiBlock, EZorEdidField eId, unsigned int& uiField)
{
    for (uiField = 0; uiField < oMap.GetFieldCount(); ++uiField)
    {
        const CMap::SField& oField = oMap.GetField(uiField);
        if (oField.m_eId == eId && oField.m_uiOffset / gsc_uiBlockSize == uiBlock / gsc_uiBlockSize)
        {
            return &oField;
        }
    }
    return nullptr;
}

// The flag says what the display does with IT formats by default, the data block what it can do with them.
void CheckUnderscan(CFindings& oFindings, unsigned int uiBlock)
{
    constexpr long long llAlwaysOver = 1;
    constexpr long long llAlwaysUnder = 2;
    unsigned int uiScan = 0;
    const CMap::SField* poScan = FindIn(oFindings.GetMap(), uiBlock, eZorEdidField_CtaVideoCapabilityItScan, uiScan);
    const bool bUnder = Cta::gsc_oUnderscan.IsSet(oFindings.GetAt(uiBlock));
    if (poScan != nullptr &&
        ((poScan->m_llNumber == llAlwaysOver && bUnder) || (poScan->m_llNumber == llAlwaysUnder && !bUnder)))
    {
        oFindings.Add(uiScan, eZorEdidRule_UnderscanContradicts).m_sFound =
            bUnder ? "byte 3 of the block has underscan" : "byte 3 of the block has no underscan";
    }
}

// All blocks say the same of the display, which sources read from any of them.
void CheckFlags(CFindings& oFindings)
{
    constexpr unsigned int uiFlags = 0xF0;
    constexpr unsigned int uiFlagsOffset = 3;
    const unsigned int uiFirst = oFindings.FindFirstBlock(gsc_uiCtaTag);
    oFindings.ForEachBlock(gsc_uiCtaTag, [&](unsigned int uiBlock) {
        const unsigned int uiDifferent =
            oFindings.GetByte(uiBlock + uiFlagsOffset) ^ oFindings.GetByte(uiFirst + uiFlagsOffset);
        if ((uiDifferent & uiFlags) != 0)
        {
            oFindings.Add(oFindings.FindBlock(uiBlock), eZorEdidRule_CtaFlagsDiffer);
        }
    });
}

// HDMI 2.1 has a bit for it; sinks of HDMI 2.0 may have the codes without it.
void CheckUhdCodes(CFindings& oFindings, unsigned int uiBlock)
{
    constexpr unsigned int uiUhdWidth = 3840;
    unsigned int uiUhd = 0;
    const CMap::SField* poUhd = FindIn(oFindings.GetMap(), uiBlock, eZorEdidField_CtaHdmiForumUhdVic, uiUhd);
    bool bHas = false;
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        bHas = bHas || (oEntry.m_eField == eZorEdidField_CtaVideoDescriptor && oEntry.m_oMode.m_uiWidth >= uiUhdWidth);
    });
    if (poUhd != nullptr && poUhd->m_llNumber == 0 && bHas)
    {
        oFindings.Add(uiUhd, eZorEdidRule_UhdVicMissing,
                      TakesFrl(oFindings.GetFacts().GetLink()) ? CMap::eSeverity_Warning : CMap::eSeverity_Note);
    }
}
} // namespace

void CheckCta(CFindings& oFindings)
{
    CheckFlags(oFindings);
    oFindings.ForEachBlock(gsc_uiCtaTag, [&](unsigned int uiBlock) {
        CheckUnderscan(oFindings, uiBlock);
        CheckUhdCodes(oFindings, uiBlock);
    });
}
} // namespace ZorCheck
