// From a plan to bytes: the base block, then what CZorEdidParts adds to it, then the proof that it says what was
// wished.

#include "ZorEdidMaker.h"

#include <string.h>

#include "MakerBase.h"
#include "MakerCta.h"
#include "MakerDisplayId.h"
#include "Standards/ExtensionBlocks.h"
#include "Standards/HdmiBlocks.h"
#include "ZorEdidCheck.h"
#include "ZorEdidModes.h"

namespace ZorWrite
{
namespace
{
using namespace ZorStandards;

// ---- The image. Each function returns false with the reason in oParts ----

bool AddDescriptors(const CMakerPlan& oPlan, CMakerParts& oParts, CMArrayString& asNotes)
{
    CDetailedBytes aui8Range;
    CDetailedBytes aui8Name;
    CDetailedBytes aui8Serial;
    const bool bRange = MakeRange(oPlan, aui8Range);
    MakeName(oPlan, aui8Name);
    MakeSerial(oPlan, aui8Serial);
    if (!bRange)
    {
        asNotes.Add("no range limits, as lines or frames are faster than they go without offsets");
    }
    return (!bRange || oParts.AddDescriptor(aui8Range)) && oParts.AddDescriptor(aui8Name) &&
           (oPlan.GetWishes().m_sSerial.GetLength() == 0 || oParts.AddDescriptor(aui8Serial));
}

// Where no block has room, a further CTA-861 block has.
bool AddDetailed(const CMakerPlan& oPlan, CMakerCta& oCta, CMakerParts& oParts)
{
    for (unsigned int i = 0; i < oPlan.GetCount(); ++i)
    {
        CDetailedBytes aui8Bytes;
        if (i == oPlan.GetFirstDetailed() || !oPlan.Get(i).m_bDetailed)
        {
            continue;
        }
        WriteDetailed(oPlan.Get(i).m_oTiming, GetImageSize(oPlan), aui8Bytes);
        if (!oParts.AddDescriptor(aui8Bytes) && (!oCta.AddFurtherBlock() || !oParts.AddDescriptor(aui8Bytes)))
        {
            return false;
        }
    }
    return true;
}

SDisplayIdFacts::EInterface GetInterface(const CMakerPlan& oPlan)
{
    const SZorEdidWishes::EInterface eWished = oPlan.GetWishes().m_eInterface;
    return oPlan.IsHdmi()                                      ? SDisplayIdFacts::eInterface_Hdmi
           : eWished == SZorEdidWishes::eInterface_DisplayPort ? SDisplayIdFacts::eInterface_DisplayPort
                                                               : SDisplayIdFacts::eInterface_Dvi;
}

bool BeginDisplayId(const CMakerPlan& oPlan, CMakerParts& oParts)
{
    constexpr unsigned int uiHdmi422Depth = 12; // for which it has room whatever the display has
    const SZorMode& oNative = oPlan.Get(0).m_oTiming;
    const unsigned int uiDepth = oPlan.GetColorDepth();
    const unsigned int ui444Depth = oPlan.HasYCbCr() ? uiDepth : 0;
    const unsigned int ui422Depth = ui444Depth != 0 && oPlan.IsHdmi() ? uiHdmi422Depth : ui444Depth;
    const SDisplayIdFacts oFacts = {
        GetInterface(oPlan),
        GetImageSize(oPlan),
        oNative.m_uiWidth,
        oNative.m_uiHeight,
        GetRatio(oNative.m_uiWidth, oNative.m_uiHeight),
        uiDepth,
        oPlan.HasAudio(),
        GetDepthsTo(uiDepth),
        GetDepthsTo(ui444Depth),
        GetDepthsTo(ui422Depth),
    };
    CBlockBytes aui8Block;
    MakeDisplayIdBlock(oFacts, oParts.GetMap().GetData(), aui8Block);
    return oParts.AddBlock(gsc_uiDisplayIdTag, aui8Block) && oParts.AddBlock(gsc_uiDisplayIdTag, nullptr);
}

// One section says what the display is, the next ones have the timings: readers of version 1 end a section with the tag
// of the identification.
bool AddType1(const CMakerPlan& oPlan, CMakerParts& oParts)
{
    bool bBegun = false;
    for (unsigned int i = 0; i < oPlan.GetCount(); ++i)
    {
        CType1Bytes aui8Bytes;
        if (!oPlan.Get(i).m_bType1)
        {
            continue;
        }
        WriteType1(oPlan.Get(i).m_oTiming, i == 0, aui8Bytes);
        const auto fnAdd = [&] {
            return oParts.AddItemToLast(eZorEdidField_DisplayidType1, sizeof(aui8Bytes), aui8Bytes);
        };
        if ((!bBegun && !BeginDisplayId(oPlan, oParts)) ||
            (!fnAdd() && (!oParts.AddBlock(gsc_uiDisplayIdTag, nullptr) || !fnAdd())))
        {
            return false;
        }
        bBegun = true;
    }
    return true;
}

bool MakeImage(const CMakerPlan& oPlan, const SDonor& oDonor, CMakerParts& oParts, CMArrayString& asNotes)
{
    CBlockBytes aui8Base;
    CMakerCta oCta(oPlan, oDonor, oParts, asNotes);
    MakeBaseBlock(oPlan, oDonor, aui8Base);
    return oParts.Read(sizeof(aui8Base), aui8Base) && AddDescriptors(oPlan, oParts, asNotes) &&
           (!oPlan.HasCta() || oCta.Add()) && AddDetailed(oPlan, oCta, oParts) && AddType1(oPlan, oParts);
}

// ---- The proof ----

// The mode that an entry of the list announces, as planned. A clock of 10 kHz steps may differ by half of one.
bool IsPlanned(const SPlannedMode& oMode, const SZorMode& oRead)
{
    constexpr unsigned int uiHalfStep = 5000;
    const bool bCode = oRead.m_eKind == SZorMode::eModeKind_Vic && oRead.m_uiCode == oMode.m_uiCode;
    const bool bBit = oRead.m_eKind == SZorMode::eModeKind_Established && oRead.m_uiCode == oMode.m_uiEstablished;
    return bCode || bBit || IsSameTiming(oMode.m_oTiming, oRead, uiHalfStep);
}

bool IsFallback(const SZorMode& oRead)
{
    return oRead.m_eKind == SZorMode::eModeKind_Established && oRead.m_uiWidth == 640 && oRead.m_uiHeight == 480;
}

// Empty, or what the image says otherwise than planned.
CMString Prove(const CMakerPlan& oPlan, const CZorEdidMap& oMap)
{
    CZorEdidModes oModes;
    oModes.Read(oMap.GetSize(), oMap.GetData());
    CMArray<bool> abFound;
    abFound.SetCount(oPlan.GetCount(), -1);
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        const SZorMode& oRead = oModes.Get(i).m_oMode;
        bool bKnown = oRead.m_bReference || IsFallback(oRead);
        for (unsigned int k = 0; k < oPlan.GetCount(); ++k)
        {
            const bool bIs = !oRead.m_bReference && IsPlanned(oPlan.Get(k), oRead);
            abFound[k] = abFound[k] || bIs;
            bKnown = bKnown || bIs;
        }
        if (!bKnown)
        {
            return "a mode that was not asked for";
        }
    }
    for (unsigned int k = 0; k < oPlan.GetCount(); ++k)
    {
        if (!abFound[k])
        {
            return oPlan.Get(k).m_sName + " is not announced";
        }
    }
    CZorEdidCheck oCheck;
    oCheck.Read(oMap, BaseBlock::gsc_uiFirstYear + oMap.GetData()[BaseBlock::gsc_uiYearOffset]);
    for (unsigned int i = 0; i < oCheck.GetCount(); ++i)
    {
        if (oCheck.Get(i).HasWeight())
        {
            return CMString(FindZorEdidRule(oCheck.Get(i).m_eRule)->m_pszId) + ": " + oCheck.Get(i).m_pszWhat;
        }
    }
    return "";
}

// ---- Notes ----

// A code meets the rate that it has by its name. Clocks of timings have steps of 10 kHz.
SZorMode::SRate GetAnnouncedRate(const SPlannedMode& oMode)
{
    constexpr unsigned long long ullStep = 10000;
    const SZorMode& oTiming = oMode.m_oTiming;
    const bool bRounded = oMode.m_bDetailed || oMode.m_bType1;
    if (oMode.m_uiCode != 0 && !bRounded)
    {
        return IsSameRate(oTiming.m_oNominalRate, oMode.m_oWished) ? oMode.m_oWished : oTiming.m_oRate;
    }
    const unsigned long long ullClock =
        bRounded ? (oTiming.m_ullClock + ullStep / 2) / ullStep * ullStep : oTiming.m_ullClock;
    const unsigned long long ullFields = oTiming.m_bInterlaced ? 2 : 1;
    return { ullClock * ullFields, 1ULL * oTiming.m_oHorizontal.m_uiTotal * oTiming.m_oVertical.m_uiTotal };
}

void NotePlaces(const CMakerPlan& oPlan, CMArrayString& asNotes)
{
    for (unsigned int i = 0; i < oPlan.GetCount(); ++i)
    {
        const SPlannedMode& oMode = oPlan.Get(i);
        CMString sNote = oMode.m_sName + ":";
        const auto fnAdd = [&sNote](const char* pszText) {
            sNote += sNote.GetAt(sNote.GetLength() - 1) == ':' ? " " : ", ";
            sNote += pszText;
        };
        const SZorMode::SRate oRate = GetAnnouncedRate(oMode);
        if (oMode.m_oWished.m_ullDivisor != 0 && !IsSameRate(oRate, oMode.m_oWished))
        {
            CMString sRate;
            sRate.Format("at %.2f Hz",
                         static_cast<double>(oRate.m_ullDividend) / static_cast<double>(oRate.m_ullDivisor));
            fnAdd(sRate);
        }
        if (i == 0)
        {
            fnAdd("preferred");
        }
        if (oMode.m_bFallback)
        {
            fnAdd("fallback");
        }
        if (oMode.m_bDetailed && oMode.m_oTiming.m_uiRepetition > 1) // a detailed timing has no place for it
        {
            CMString sSent;
            sSent.Format("detailed timing of %u pixels, as each is sent %u times",
                         oMode.m_oTiming.m_oHorizontal.m_uiActive, oMode.m_oTiming.m_uiRepetition);
            fnAdd(sSent);
        }
        else if (oMode.m_bDetailed)
        {
            fnAdd("detailed timing");
        }
        if (oMode.m_bType1)
        {
            fnAdd(oMode.m_bDetailed ? "DisplayID timing" : "DisplayID timing, as no detailed one has room for it");
        }
        if (oMode.m_uiCode != 0)
        {
            CMString sCode;
            sCode.Format("VIC %u%s", oMode.m_uiCode, oMode.m_b420Only ? " in YCbCr 4:2:0 only" : "");
            fnAdd(sCode);
        }
        if (oMode.m_uiEstablished != SPlannedMode::msc_uiNoBit || oMode.m_uiCode == gsc_uiVgaCode)
        {
            fnAdd("established timing");
        }
        asNotes.Add(sNote);
    }
}

void NoteLink(const CMakerPlan& oPlan, CMArrayString& asNotes)
{
    const SPlannedLink& oLink = oPlan.GetLink();
    CMString sNote;
    if (oLink.m_uiForumTmds != 0)
    {
        sNote.Format("HDMI: TMDS to %u MHz", oLink.m_uiForumTmds);
    }
    else if (oPlan.IsHdmi())
    {
        sNote.Format("HDMI: TMDS to %u MHz", oLink.m_uiTmds);
    }
    if (oLink.m_uiFrl != 0)
    {
        const HdmiForum::SFrlRate& oRate = HdmiForum::gsc_aoFrlRates[oLink.m_uiFrl];
        sNote.AppendFormat(", FRL of %u lanes of %u Gbps", oRate.m_ui8Lanes, oRate.m_ui8Gbps);
    }
    sNote += oLink.m_bDsc ? ", DSC" : "";
    if (sNote.GetLength() != 0)
    {
        asNotes.Add(sNote);
    }
}

// Rates past 255 are there by offsets.
void NoteOffsets(const CZorEdidMap& oMap, CMArrayString& asNotes)
{
    const unsigned int uiVertical = oMap.FindField(eZorEdidField_BaseRangeMaxVerticalRate);
    const unsigned int uiHorizontal = oMap.FindField(eZorEdidField_BaseRangeMaxHorizontalRate);
    if (uiVertical == CZorEdidMap::msc_uiNone || uiHorizontal == CZorEdidMap::msc_uiNone)
    {
        return;
    }
    if (oMap.GetField(uiVertical).m_llNumber > Descriptors::gsc_uiRateOffset ||
        oMap.GetField(uiHorizontal).m_llNumber > Descriptors::gsc_uiRateOffset)
    {
        asNotes.Add("range limits past 255 have offsets, which check notes, as the text reports do not read them");
    }
}

void NoteIdentity(const SZorEdidWishes& oWishes, const SDonor& oDonor, CMArrayString& asNotes)
{
    for (int i = 0; i < static_cast<int>(oDonor.m_asNotes.GetCount()); ++i)
    {
        asNotes.Add("donor: " + oDonor.m_asNotes[i]);
    }
    if (oWishes.m_sMaker.GetLength() == 0)
    {
        asNotes.Add(CMString("maker ") + gsc_szNeutralMaker + ", which no maker has");
    }
}
} // namespace
} // namespace ZorWrite

int CZorEdidMaker::Make(const SZorEdidWishes& oWishes)
{
    using namespace ZorWrite;
    m_aui8Data.RemoveAll();
    m_asNotes.RemoveAll();
    SZorEdidWishes oCompleted = oWishes;
    SDonor oDonor;
    m_sReason = ReadDonor(oCompleted, oDonor);
    CMakerPlan oPlan(oCompleted, oDonor.m_aui8Audio.GetCount() != 0);
    m_sReason = m_sReason.GetLength() != 0 ? m_sReason : oPlan.Make();
    if (m_sReason.GetLength() != 0)
    {
        return 0;
    }
    NotePlaces(oPlan, m_asNotes);
    NoteLink(oPlan, m_asNotes);
    NoteIdentity(oCompleted, oDonor, m_asNotes);
    CMakerParts oParts;
    m_sReason = MakeImage(oPlan, oDonor, oParts, m_asNotes) ? CMString() : oParts.GetReason();
    NoteOffsets(oParts.GetMap(), m_asNotes);
    if (m_sReason.GetLength() == 0)
    {
        const CMString sFault = Prove(oPlan, oParts.GetMap());
        m_sReason = sFault.GetLength() == 0 ? "" : "internal fault: " + sFault;
    }
    if (m_sReason.GetLength() != 0)
    {
        m_asNotes.RemoveAll();
        return 0;
    }
    m_aui8Data.SetCount(oParts.GetMap().GetSize(), -1);
    memcpy(m_aui8Data.GetData(), oParts.GetMap().GetData(), oParts.GetMap().GetSize());
    return 1;
}
