// Rules about CTA-861 blocks among each other, and about what HDMI asks of them.

#include <algorithm>

#include "CheckFindings.h"
#include "Standards/HdmiBlocks.h"

namespace ZorCheck
{
namespace
{
// The number of a field of a block; -1 without the field.
long long GetNumber(const CFindings& oFindings, unsigned int uiField)
{
    return uiField != CMap::msc_uiNone ? oFindings.GetMap().GetField(uiField).m_llNumber : -1;
}

// The flag says what the display does with IT formats by default, the data block what it can do with them.
void CheckUnderscan(CFindings& oFindings, unsigned int uiBlock)
{
    constexpr long long llAlwaysOver = 1;
    constexpr long long llAlwaysUnder = 2;
    const unsigned int uiScan = oFindings.FindField(uiBlock, eZorEdidField_CtaVideoCapabilityItScan);
    const bool bUnder = Cta::gsc_oUnderscan.IsSet(oFindings.GetAt(uiBlock));
    if (GetNumber(oFindings, uiScan) == (bUnder ? llAlwaysOver : llAlwaysUnder))
    {
        const CMString sScan = oFindings.GetMap().GetField(uiScan).m_pszMeaning;
        oFindings.Add(uiScan, eZorEdidRule_UnderscanContradicts).m_sFound =
            sScan + (bUnder ? ", and byte 3 of the block has underscan" : ", and byte 3 of the block has no underscan");
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
            SZorFinding& oFinding = oFindings.Add(oFindings.FindBlock(uiBlock), eZorEdidRule_CtaFlagsDiffer);
            oFinding.m_sFound.Format("0x%02x in bits 7 to 4", oFindings.GetByte(uiBlock + uiFlagsOffset) & uiFlags);
            oFinding.m_sExpected.Format("0x%02x", oFindings.GetByte(uiFirst + uiFlagsOffset) & uiFlags);
        }
    });
}

// The CTA-861 blocks must announce the audio of DisplayID sections, too; an image without such blocks has no flag to
// read. The map notes audio in a CTA-861 block itself.
void CheckBasicAudio(CFindings& oFindings)
{
    const unsigned int uiCta = oFindings.FindFirstBlock(gsc_uiCtaTag);
    if (uiCta != 0 && Cta::gsc_oBasicAudio.IsSet(oFindings.GetAt(uiCta)))
    {
        return;
    }
    oFindings.ForEachBlock(gsc_uiDisplayIdTag, [&](unsigned int uiBlock) {
        for (const EZorEdidField eId : { eZorEdidField_CtaAudio, eZorEdidField_CtaSpeakers, eZorEdidField_CtaHdmiAudio,
                                         eZorEdidField_CtaDolbyAudio, eZorEdidField_CtaVendorAudio,
                                         eZorEdidField_CtaRoom, eZorEdidField_CtaSpeakerLocation })
        {
            const unsigned int uiField = oFindings.FindField(uiBlock, eId);
            if (uiField != CMap::msc_uiNone)
            {
                oFindings.Add(uiField, eZorEdidRule_CtaBasicAudio,
                              uiCta != 0 ? CMap::eSeverity_Warning : CMap::eSeverity_Note);
                return;
            }
        }
    });
}

// HDMI 2.1 has a bit for it. Sinks of HDMI 2.0, which say nothing of FRL and in the bytes that came later, do not.
bool IsBefore21(const CFindings& oFindings, unsigned int uiUhd)
{
    const CMap& oMap = oFindings.GetMap();
    const CMap::SField& oGroup = oMap.GetField(oMap.GetField(uiUhd).m_uiGroup);
    const unsigned char* pui8End = oFindings.GetAt(oGroup.m_uiOffset + oGroup.m_uiLength);
    return !TakesFrl(oFindings.GetFacts().GetLink()) &&
           std::all_of(oFindings.GetAt(oMap.GetField(uiUhd).m_uiOffset + 1), pui8End,
                       [](unsigned char ui8Byte) { return ui8Byte == 0; });
}

void CheckUhdCodes(CFindings& oFindings, unsigned int uiBlock)
{
    const unsigned int uiUhd = oFindings.FindField(uiBlock, eZorEdidField_CtaHdmiForumUhdVic);
    if (GetNumber(oFindings, uiUhd) != 0 || IsBefore21(oFindings, uiUhd))
    {
        return;
    }
    bool bHas = false;
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        bHas = bHas || (oEntry.m_eField == eZorEdidField_CtaVideoDescriptor &&
                        oEntry.m_oMode.m_uiWidth >= ZorStandards::HdmiForum::gsc_uiUhdWidth);
    });
    if (bHas)
    {
        oFindings.Add(uiUhd, eZorEdidRule_UhdVicMissing);
    }
}

// HDMI has the CTA-861 block first; a block map may precede it.
void CheckFirstExtension(CFindings& oFindings)
{
    const CZorEdidFacts::SLink& oLink = oFindings.GetFacts().GetLink();
    bool bFirst = oLink.m_oHdmi.m_oValue && !IsDisplayPort(oLink);
    oFindings.ForEachBlock([&](const CBlockWalk& oWalk) {
        const unsigned int uiTag = oWalk.GetData()[0];
        if (bFirst && uiTag != gsc_uiCtaTag && uiTag != gsc_uiBlockMapTag)
        {
            oFindings.Add(oFindings.FindBlock(oWalk.GetOffset()), eZorEdidRule_HdmiNotFirst);
        }
        bFirst = bFirst && uiTag == gsc_uiBlockMapTag;
    });
}

// ---- Speakers ----

// Of all blocks.
void CountLocations(const CFindings& oFindings, unsigned int& uiDataBlocks, unsigned int& uiActive)
{
    oFindings.ForEachBlock(gsc_uiCtaTag, [&](unsigned int uiBlock) {
        oFindings.ForEachField(uiBlock, eZorEdidField_CtaSpeakerLocation,
                               [&](unsigned int, const CMap::SField&) { ++uiDataBlocks; });
        oFindings.ForEachField(
            uiBlock, eZorEdidField_CtaSpeakerLocationActive,
            [&](unsigned int, const CMap::SField& oField) { uiActive += oField.m_llNumber != 0 ? 1U : 0U; });
    });
}

// The room says whether the places of speakers are given, and how many there are.
void CheckRoom(CFindings& oFindings, unsigned int uiBlock)
{
    const unsigned int uiSld = oFindings.FindField(uiBlock, eZorEdidField_CtaRoomSld);
    if (uiSld == CMap::msc_uiNone)
    {
        return;
    }
    unsigned int uiDataBlocks = 0;
    unsigned int uiActive = 0;
    CountLocations(oFindings, uiDataBlocks, uiActive);
    const bool bSld = GetNumber(oFindings, uiSld) != 0;
    const long long llSpeakers =
        GetNumber(oFindings, oFindings.FindField(uiBlock, eZorEdidField_CtaRoomSpeakerCount)); // with the flag only
    CMString sReason;
    if (bSld != (uiDataBlocks != 0))
    {
        sReason = bSld ? "SLD is set, but there is none" : "there is one, but SLD is not set";
    }
    else if (bSld && llSpeakers < 0)
    {
        sReason = "SLD is set without Speaker";
    }
    else if (bSld && llSpeakers != uiActive)
    {
        sReason.Format("speakers are %lld here, and %u are active there", llSpeakers, uiActive);
    }
    if (sReason.GetLength() != 0)
    {
        oFindings.Add(uiSld, eZorEdidRule_RoomContradicts).m_sReason = sReason;
    }
}

// A channel goes to one speaker.
void CheckChannels(CFindings& oFindings, unsigned int uiBlock)
{
    constexpr unsigned int uiChannels = 32;
    bool abSeen[uiChannels] = {};
    bool bActive = false; // of the descriptor, before its channel
    const unsigned int uiField = oFindings.FindBlock(uiBlock);
    for (unsigned int i = uiField; i < oFindings.GetMap().GetField(uiField).m_uiEnd; ++i)
    {
        const CMap::SField& oField = oFindings.GetMap().GetField(i);
        bActive = oField.m_eId == eZorEdidField_CtaSpeakerLocationActive ? oField.m_llNumber != 0 : bActive;
        if (oField.m_eId != eZorEdidField_CtaSpeakerLocationChannelIndex || !bActive)
        {
            continue;
        }
        bool& bSeen = abSeen[static_cast<unsigned long long>(oField.m_llNumber) % uiChannels];
        if (bSeen)
        {
            oFindings.Add(i, eZorEdidRule_ChannelTwice).m_sFound.Format("%lld", oField.m_llNumber);
        }
        bSeen = true;
    }
}
} // namespace

void CheckCta(CFindings& oFindings)
{
    CheckFirstExtension(oFindings);
    CheckFlags(oFindings);
    CheckBasicAudio(oFindings);
    oFindings.ForEachBlock(gsc_uiCtaTag, [&](unsigned int uiBlock) {
        CheckUnderscan(oFindings, uiBlock);
        CheckUhdCodes(oFindings, uiBlock);
        CheckRoom(oFindings, uiBlock);
        CheckChannels(oFindings, uiBlock);
    });
}
} // namespace ZorCheck
