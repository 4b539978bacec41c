// Wishes that cannot be, the timings of modes, the places that they go to, and the link that carries them.

#include "MakerPlan.h"

#include <algorithm>
#include <iterator>

#include "MakerValues.h"
#include "Standards/BaseBlock.h"
#include "Standards/HdmiBlocks.h"
#include "Standards/Modes.h"
#include "ZorEdidModes.h"

namespace ZorWrite
{
namespace
{
using namespace ZorStandards;

constexpr unsigned long long gsc_ullHzPerMegaHz = 1000000;

// ---- Texts ----

bool IsText(const CMString& sText)
{
    constexpr int iMostCharacters = 13; // of a descriptor
    if (sText.GetLength() > iMostCharacters)
    {
        return false;
    }
    for (int i = 0; i < sText.GetLength(); ++i)
    {
        if (sText.GetAt(i) < ' ' || sText.GetAt(i) > '~')
        {
            return false;
        }
    }
    return sText.GetLength() == 0 || (sText.GetAt(0) != ' ' && sText.GetAt(sText.GetLength() - 1) != ' ');
}

CMString NameMode(const SZorWishedMode& oMode)
{
    const SZorMode::SRate& oRate = oMode.m_oRate;
    CMString sName;
    sName.Format("%ux%u%s@", oMode.m_uiWidth, oMode.m_uiHeight, oMode.m_bInterlaced ? "i" : "");
    if (oRate.m_ullDivisor == 0)
    {
        return sName + "?";
    }
    const double dRate = static_cast<double>(oRate.m_ullDividend) / static_cast<double>(oRate.m_ullDivisor);
    sName.AppendFormat(IsFraction(oRate) ? "%.2f" : "%.0f", dRate);
    return sName;
}

// "594 MHz", "148.35 MHz"
CMString NameClock(unsigned long long ullHz)
{
    CMString sClock;
    sClock.Format(ullHz % gsc_ullHzPerMegaHz == 0 ? "%.0f MHz" : "%.2f MHz", static_cast<double>(ullHz) / 1e6);
    return sClock;
}

double GetHz(const SZorMode& oMode)
{
    return static_cast<double>(oMode.m_oRate.m_ullDividend) / static_cast<double>(oMode.m_oRate.m_ullDivisor);
}

// Lines or frames slower than range limits can say.
bool IsBelowLimits(const SZorMode& oMode)
{
    constexpr unsigned long long ullLeastLineRate = 1000; // Hz
    return oMode.m_ullClock < ullLeastLineRate * oMode.m_oHorizontal.m_uiTotal || GetHz(oMode) < 1;
}

// Detailed timings have steps of 10 kHz.
bool IsWholeClock(const SZorMode& oMode)
{
    constexpr unsigned long long ullStep = 10000;
    return oMode.m_ullClock % ullStep == 0;
}

// ---- HDMI's links ----

constexpr unsigned int gsc_uiMostHdmiTmds = Hdmi::gsc_uiMostTmdsInMegaHz; // without the HDMI Forum's data block
constexpr unsigned int gsc_uiMostForumTmds = HdmiForum::gsc_uiMostTmdsInMegaHz;
constexpr unsigned int gsc_uiMostFrl = 6;
constexpr unsigned int gsc_uiBitsOfRgb = 24;                                      // a pixel
constexpr unsigned int gsc_uiBitsCompressed = 8;                                  // a pixel, by DSC
constexpr unsigned long long gsc_ullMostDscClock = 16 * 400 * gsc_ullHzPerMegaHz; // 16 slices of 400 MHz each
constexpr unsigned int gsc_uiMostDviClock = 330;                                  // MHz, of two links

// 77.4 Gbps are left of the four lanes of 20 Gbps.
constexpr unsigned long long gsc_ullMostDisplayPort = 77400 * gsc_ullHzPerMegaHz / gsc_uiBitsCompressed;

// The most that FRL carries, of each 18 bits 16.
constexpr unsigned long long GetFrlClock(unsigned int uiFrl, unsigned int uiBits)
{
    const HdmiForum::SFrlRate oRate = HdmiForum::gsc_aoFrlRates[uiFrl];
    return 1ULL * oRate.m_ui8Lanes * oRate.m_ui8Gbps * 1000 * gsc_ullHzPerMegaHz * 16 / 18 / uiBits;
}
static_assert(std::size(HdmiForum::gsc_aoFrlRates) == gsc_uiMostFrl + 1);

unsigned int FindFrl(unsigned long long ullClock, unsigned int uiBits)
{
    unsigned int uiFrl = 1;
    while (uiFrl < gsc_uiMostFrl && GetFrlClock(uiFrl, uiBits) < ullClock)
    {
        ++uiFrl;
    }
    return uiFrl;
}
} // namespace

bool SPlannedMode::Allows420() const
{
    constexpr unsigned int uiLeastWidth = 3840;
    constexpr double dLeastRate = 49;
    return m_uiCode != 0 && m_oTiming.m_uiWidth >= uiLeastWidth && GetHz(m_oTiming) > dLeastRate;
}

bool SPlannedMode::IsWishedFraction() const
{
    return IsFraction(m_oWished) &&
           (IsSameRate(m_oWished, m_oTiming.m_oRate) || (m_uiCode != 0 && IsFraction(m_oTiming.m_oRate)));
}

bool CMakerPlan::IsPreferredByDisplayIdAlone() const
{
    const SPlannedMode& oFirst = m_aoModes[0U];
    return oFirst.m_bType1 && !oFirst.m_bDetailed && oFirst.IsWishedFraction();
}

unsigned int CMakerPlan::GetColorDepth() const
{
    constexpr unsigned int uiHdrDepth = 10;
    constexpr unsigned int uiUsualDepth = 8;
    return m_oWishes.m_uiColorDepth != 0 ? m_oWishes.m_uiColorDepth : m_oWishes.HasHdr() ? uiHdrDepth : uiUsualDepth;
}

CMString CMakerPlan::Make()
{
    m_bCta = IsHdmi() || m_oWishes.HasHdr() || HasAudio();
    CMString sReason = CheckValues(m_oWishes);
    sReason = sReason.GetLength() != 0 ? sReason : CheckIdentity();
    sReason = sReason.GetLength() != 0 ? sReason : CheckLuminances();
    sReason = sReason.GetLength() != 0 ? sReason : CheckInterface();
    sReason = sReason.GetLength() != 0 ? sReason : FindTimings();
    sReason = sReason.GetLength() != 0 ? sReason : Check420();
    sReason = sReason.GetLength() != 0 ? sReason : CheckVrr();
    sReason = sReason.GetLength() != 0 ? sReason : PlanLink();
    sReason = sReason.GetLength() != 0 ? sReason : PlacePreferred();
    return sReason.GetLength() != 0 ? sReason : CheckBlocks();
}

// ---- Wishes that cannot be ----

CMString CMakerPlan::CheckIdentity() const
{
    const CMString& sWrong = !IsText(m_oWishes.m_sName) ? m_oWishes.m_sName : m_oWishes.m_sSerial;
    if (!IsText(sWrong))
    {
        return "'" + sWrong + "' is not a text of up to 13 printable characters without a blank at either end";
    }
    CMString sReason;
    if (m_oWishes.m_uiThisYear != 0 && m_oWishes.m_uiYear > m_oWishes.m_uiThisYear)
    {
        sReason.Format("the year of manufacture, %u, is in the future", m_oWishes.m_uiYear);
    }
    return sReason;
}

CMString CMakerPlan::CheckLuminances() const
{
    constexpr unsigned int uiLeast = 50;
    constexpr unsigned int uiMost = 12500;            // 50 * 2 ^ (255 / 32)
    constexpr unsigned int uiStepsPerHundredth = 100; // of the minimum, whose code is part of a hundredth
    constexpr double dSteps = 10000;
    const unsigned int uiMax = m_oWishes.m_uiMaxLuminance;
    const unsigned int uiFrame = m_oWishes.m_uiFrameLuminance;
    const unsigned int uiMin = m_oWishes.m_uiMinLuminance;
    CMString sReason;
    if (!m_oWishes.HasHdr() && (uiFrame != 0 || uiMin != 0 || uiMax != 0))
    {
        return "luminances belong to HDR: PQ, HLG or both";
    }
    if (uiMax == 0)
    {
        return uiFrame != 0 || uiMin != 0 ? "frame and min: these luminances need a maximum, max" : "";
    }
    if (uiMax < uiLeast || uiMax > uiMost)
    {
        sReason.Format("max=%u: a maximum luminance is 50 to 12500 cd/m2", uiMax);
    }
    else if (uiFrame != 0 && (uiFrame < uiLeast || uiFrame > uiMax))
    {
        sReason.Format("frame=%u: the luminance of a frame is 50 cd/m2 to the maximum, here %u", uiFrame, uiMax);
    }
    else if (uiMin > uiMax * uiStepsPerHundredth)
    {
        sReason.Format("min=%g: a minimum luminance is at most a hundredth of the maximum, here %g cd/m2",
                       uiMin / dSteps, uiMax / 100.0);
    }
    return sReason;
}

CMString CMakerPlan::CheckInterface() const
{
    const SZorEdidWishes& oWishes = m_oWishes;
    if (oWishes.m_uiFrl != 0 && oWishes.m_uiMaxTmds != 0 && oWishes.m_uiMaxTmds != gsc_uiMostForumTmds)
    {
        CMString sReason;
        sReason.Format("with FRL a display takes TMDS up to %u MHz, not %u MHz", gsc_uiMostForumTmds,
                       oWishes.m_uiMaxTmds);
        return sReason;
    }
    if (!IsHdmi() && (oWishes.m_uiFrl != 0 || oWishes.m_uiMaxTmds != 0 || oWishes.m_bYCbCr420))
    {
        return "TMDS clocks, FRL and YCbCr 4:2:0 are HDMI's";
    }
    const bool bDvi = oWishes.m_eInterface == SZorEdidWishes::eInterface_Dvi;
    if (bDvi && (m_bCta || oWishes.HasVrr() || GetColorDepth() > 8))
    {
        return "DVI has no audio, no HDR, no variable refresh and 8 bits of colour";
    }
    return "";
}

CMString CMakerPlan::CheckVrr() const
{
    constexpr unsigned int uiMostHdmiMinimum = 48;
    constexpr unsigned int uiMostHdmi = 1023;       // 10 bits
    constexpr unsigned int uiMostDisplayPort = 510; // a byte of the range limits, and an offset
    constexpr unsigned int uiFallbackRate = 60;
    const unsigned int uiMin = m_oWishes.m_uiVrrMin;
    const unsigned int uiMax = m_oWishes.m_uiVrrMax;
    if (!m_oWishes.HasVrr())
    {
        return "";
    }
    CMString sReason;
    if (IsHdmi() && (uiMin > uiMostHdmiMinimum || uiMax > uiMostHdmi))
    {
        sReason.Format(
            "variable refresh of HDMI begins at 48 Hz or below and ends at 1023 Hz or below, not %u to %u Hz", uiMin,
            uiMax);
        return sReason;
    }
    if (!IsHdmi() && (uiMin > uiFallbackRate || uiMax < uiFallbackRate || uiMax > uiMostDisplayPort))
    {
        sReason.Format("variable refresh of DisplayPort includes 60 Hz, the rate of the fallback mode, and ends at "
                       "510 Hz or below, not %u to %u Hz",
                       uiMin, uiMax);
        return sReason;
    }
    bool bReached = false;
    for (unsigned int i = 0; i < m_aoModes.GetCount(); ++i)
    {
        const SPlannedMode& oMode = m_aoModes[i];
        const double dRate = GetHz(oMode.m_oTiming);
        bReached = bReached || dRate > uiMax - 1.0;
        // Of DisplayPort the range limits are the range.
        if (!IsHdmi() && (dRate < uiMin - 0.5 || dRate > uiMax + 0.5))
        {
            sReason.Format("%s is outside of the variable refresh of %u to %u Hz, which on DisplayPort all modes share",
                           static_cast<const char*>(oMode.m_sName), uiMin, uiMax);
            return sReason;
        }
    }
    if (!bReached)
    {
        sReason.Format("variable refresh up to %u Hz needs a mode of that rate", uiMax);
    }
    return sReason;
}

CMString CMakerPlan::Check420() const
{
    bool bReached = !m_oWishes.m_bYCbCr420;
    for (unsigned int i = 0; i < m_aoModes.GetCount(); ++i)
    {
        bReached = bReached || m_aoModes[i].Allows420();
    }
    return bReached ? "" : "YCbCr 4:2:0 needs a mode of 3840 pixels or more at 50 Hz or more that has a video code";
}

// ---- Timings ----

// Without a CTA-861 block sources go by VESA's numbers.
bool CMakerPlan::FindTiming(const SZorWishedMode& oWish, SZorMode& oTiming) const
{
    SZorMode oWanted = {};
    oWanted.m_uiWidth = oWish.m_uiWidth;
    oWanted.m_uiHeight = oWish.m_uiHeight;
    oWanted.m_bInterlaced = oWish.m_bInterlaced;
    oWanted.m_oNominalRate = oWish.m_oRate;
    if (oWish.m_eSource == eZorTimingSource_Any && !m_bCta &&
        (FindZorTiming(oWanted, eZorTimingSource_DmtReduced, false, oTiming) != 0 ||
         FindZorTiming(oWanted, eZorTimingSource_Dmt, false, oTiming) != 0))
    {
        return true;
    }
    return FindZorTiming(oWanted, oWish.m_eSource, IsHdmi(), oTiming) != 0;
}

// False for a mode that is there.
bool CMakerPlan::AddMode(const SZorMode& oTiming, const CMString& sName, bool bFallback)
{
    SPlannedMode oMode;
    oMode.m_oTiming = oTiming;
    oMode.m_sName = sName;
    oMode.m_bFallback = bFallback;
    oMode.m_uiCode = m_bCta ? FindVideoCodeOf(oTiming) : 0;
    FindEstablishedBit(oTiming, oMode.m_uiEstablished);
    for (unsigned int i = 0; i < m_aoModes.GetCount(); ++i)
    {
        if (IsSameTiming(m_aoModes[i].m_oTiming, oTiming))
        {
            return false;
        }
    }
    m_aoModes.Add(oMode);
    return true;
}

CMString CMakerPlan::FindTimings()
{
    for (unsigned int i = 0; i < m_oWishes.m_aoModes.GetCount(); ++i)
    {
        const SZorWishedMode& oWish = m_oWishes.m_aoModes[i];
        SZorMode oTiming = {};
        if (!FindTiming(oWish, oTiming))
        {
            return NameMode(oWish) + (oWish.m_eSource == eZorTimingSource_Any
                                          ? ": no table and no formula has such a timing"
                                          : ": the table or formula that is asked for has no such timing");
        }
        if (IsBelowLimits(oTiming))
        {
            return NameMode(oWish) + ": range limits begin at 1 Hz and 1 kHz";
        }
        if (AddMode(oTiming, NameMode(oWish), false))
        {
            m_aoModes[m_aoModes.GetCount() - 1].m_oWished = oWish.m_oRate;
        }
    }
    if (m_aoModes.GetCount() == 0)
    {
        return "a display needs a mode";
    }
    return "";
}

// What every display has, whatever is wished. A code means 59.94 Hz as well: a mode with it is this one.
void CMakerPlan::AddVga()
{
    constexpr unsigned int uiDmt = 4;
    SZorMode oVga = {};
    for (unsigned int i = 0; i < m_aoModes.GetCount(); ++i)
    {
        if (m_aoModes[i].m_uiCode == gsc_uiVgaCode)
        {
            return;
        }
    }
    if (m_bCta)
    {
        MakeVideoMode(oVga, gsc_uiVgaCode);
    }
    else
    {
        MakeDmtMode(oVga, uiDmt);
    }
    AddMode(oVga, "640x480@60", true);
}

// ---- The link ----

unsigned long long CMakerPlan::GetMostClock() const
{
    unsigned long long ullMost = 0;
    for (unsigned int i = 0; i < m_aoModes.GetCount(); ++i)
    {
        const unsigned long long ullClock = m_aoModes[i].m_oTiming.m_ullClock;
        ullMost = std::max(ullMost, m_aoModes[i].m_b420Only ? ullClock / 2 : ullClock);
    }
    return ullMost;
}

// What the modes need, in the steps that displays have.
void CMakerPlan::SizeLink(unsigned long long ullNeeded)
{
    constexpr unsigned int auiSteps[] = { 165, 225, 300, gsc_uiMostHdmiTmds, gsc_uiMostForumTmds };
    unsigned int uiTmds = m_oWishes.m_uiMaxTmds;
    if (uiTmds == 0)
    {
        const auto* puiStep = std::ranges::find_if(
            auiSteps, [&](unsigned int uiStep) { return uiStep * gsc_ullHzPerMegaHz >= ullNeeded; });
        uiTmds = puiStep != std::end(auiSteps) ? *puiStep : gsc_uiMostForumTmds;
    }
    if (m_oWishes.m_uiFrl != 0)
    {
        m_oLink.m_uiFrl = m_oWishes.m_uiFrl;
    }
    else if (m_oWishes.m_uiMaxTmds == 0 && ullNeeded > gsc_uiMostForumTmds * gsc_ullHzPerMegaHz)
    {
        m_oLink.m_uiFrl = FindFrl(std::min(ullNeeded, GetFrlClock(gsc_uiMostFrl, gsc_uiBitsOfRgb)), gsc_uiBitsOfRgb);
    }
    if (m_oLink.m_uiFrl != 0)
    {
        uiTmds = gsc_uiMostForumTmds;
    }
    m_oLink.m_uiTmds = std::min(uiTmds, gsc_uiMostHdmiTmds);
    m_oLink.m_uiForumTmds = uiTmds > gsc_uiMostHdmiTmds ? HdmiForum::RoundUpTmds(uiTmds) : 0;
    m_oLink.m_bForum =
        m_oLink.m_uiForumTmds != 0 || m_oWishes.HasVrr() || (m_oWishes.m_bYCbCr420 && GetColorDepth() > 8);
}

// The range limits of E-EDID 1.3, which HDMI asks for, are bytes. Readers of today take twice the largest rate for it.
CMString CMakerPlan::CheckLimits() const
{
    constexpr unsigned long long ullMostLineRate = 510000;
    constexpr unsigned long long ullMostClock = 2550 * gsc_ullHzPerMegaHz;
    for (unsigned int i = 0; i < m_aoModes.GetCount(); ++i)
    {
        const SZorMode& oTiming = m_aoModes[i].m_oTiming;
        if (oTiming.m_ullClock > ullMostClock ||
            oTiming.m_ullClock / oTiming.m_oHorizontal.m_uiTotal >= ullMostLineRate)
        {
            return m_aoModes[i].m_sName + " needs " + NameClock(oTiming.m_ullClock) +
                   ", and the range limits of HDMI's displays hold at most 2550 MHz and 510 kHz";
        }
    }
    return "";
}

CMString CMakerPlan::PlanLink()
{
    constexpr unsigned long long ullLeastTmds = 25 * gsc_ullHzPerMegaHz;
    const bool bDvi = m_oWishes.m_eInterface == SZorEdidWishes::eInterface_Dvi;
    for (unsigned int i = 0; i < m_aoModes.GetCount() && (bDvi || IsHdmi()); ++i)
    {
        if (m_aoModes[i].m_oTiming.m_ullClock < ullLeastTmds)
        {
            return m_aoModes[i].m_sName + " needs " + NameClock(m_aoModes[i].m_oTiming.m_ullClock) +
                   ", and TMDS begins at 25 MHz";
        }
    }
    if (bDvi && GetMostClock() > gsc_uiMostDviClock * gsc_ullHzPerMegaHz)
    {
        return "DVI takes clocks up to 330 MHz, and a mode has " + NameClock(GetMostClock());
    }
    if (m_oWishes.m_eInterface == SZorEdidWishes::eInterface_DisplayPort && GetMostClock() > gsc_ullMostDisplayPort)
    {
        return "DisplayPort carries " + NameClock(gsc_ullMostDisplayPort) +
               " at most, by 4 lanes of 20 Gbps and compressed to 8 bits a pixel, and a mode has " +
               NameClock(GetMostClock());
    }
    if (!IsHdmi())
    {
        return "";
    }
    if (const CMString sReason = CheckLimits(); sReason.GetLength() != 0)
    {
        return sReason;
    }
    SizeLink(GetMostClock());
    const unsigned long long ullTmds = std::max(m_oLink.m_uiTmds, m_oLink.m_uiForumTmds) * gsc_ullHzPerMegaHz;
    const unsigned long long ullMost =
        std::max(ullTmds, m_oLink.m_uiFrl != 0 ? GetFrlClock(m_oLink.m_uiFrl, gsc_uiBitsOfRgb) : 0);
    const unsigned long long ullMostDsc =
        m_oLink.m_uiFrl != 0 ? std::min(gsc_ullMostDscClock, GetFrlClock(m_oLink.m_uiFrl, gsc_uiBitsCompressed)) : 0;
    for (unsigned int i = 0; i < m_aoModes.GetCount(); ++i)
    {
        SPlannedMode& oMode = m_aoModes[i];
        const unsigned long long ullClock = oMode.m_oTiming.m_ullClock;
        if (ullClock <= ullMost)
        {
            continue;
        }
        oMode.m_b420Only = m_oWishes.m_bYCbCr420 && oMode.Allows420() && ullClock / 2 <= ullMost;
        if (!oMode.m_b420Only && ullClock > ullMostDsc)
        {
            return oMode.m_sName + " needs " + NameClock(ullClock) + ", which is beyond HDMI's " +
                   (m_oLink.m_uiFrl != 0 ? "FRL, also compressed" : "TMDS of " + NameClock(ullMost));
        }
        if (!oMode.m_b420Only)
        {
            m_oLink.m_bDsc = true;
            m_oLink.m_uiDscWidth = std::max(m_oLink.m_uiDscWidth, oMode.m_oTiming.m_uiWidth);
        }
    }
    return "";
}

// ---- Places ----

// The other rate of the code.
bool FindPartner(const SPlannedMode& oMode, SZorMode& oPartner)
{
    SZorMode oCode = {};
    return MakeVideoMode(oCode, oMode.m_uiCode) && CZorEdidModes::GetPartner(oCode, oPartner) &&
           (!IsSameTiming(oPartner, oMode.m_oTiming) || (oPartner = oCode, true));
}

// A mode in 4:2:0 alone is a code: other places mean RGB.
CMString CMakerPlan::Place(SPlannedMode& oMode, bool bPreferred) const
{
    if (oMode.m_b420Only ||
        (!bPreferred && (oMode.m_uiCode != 0 || oMode.m_uiEstablished != SPlannedMode::msc_uiNoBit)))
    {
        return "";
    }
    CDetailedBytes aui8Detailed;
    CType1Bytes aui8Type1;
    // A code means both of its rates. A detailed timing beside it takes whichever of them it meets and adds no
    // third, unless a rate that is not whole is wished, which is then within a step of the clock.
    SZorMode oPartner = {};
    if (oMode.m_uiCode != 0 && !IsWholeClock(oMode.m_oTiming) && !oMode.IsWishedFraction() &&
        FindPartner(oMode, oPartner) && IsWholeClock(oPartner))
    {
        oMode.m_oTiming = oPartner;
    }
    oMode.m_bDetailed = WriteDetailed(oMode.m_oTiming, { 0, 0 }, aui8Detailed);
    oMode.m_bType1 = !oMode.m_bDetailed && WriteType1(oMode.m_oTiming, bPreferred, aui8Type1);
    const bool bPlaced = oMode.m_bDetailed || oMode.m_bType1 || oMode.m_uiCode != 0;
    if (bPlaced)
    {
        return "";
    }
    const bool bEstablished = oMode.m_uiEstablished != SPlannedMode::msc_uiNoBit;
    return oMode.m_sName + ": neither a detailed timing nor DisplayID has room for its numbers" +
           (bEstablished ? ", so it cannot be the first mode, which is the preferred one" : "");
}

// At least so many; asked before the work of making them.
CMString CMakerPlan::CheckBlocks() const
{
    constexpr unsigned int uiMostBlocks = 127;
    constexpr unsigned int uiOfBase = BaseBlock::gsc_uiDescriptors;
    constexpr unsigned int uiOfBlock = 6; // of either kind
    unsigned int uiDetailed = 0;
    unsigned int uiType1 = 0;
    for (unsigned int i = 0; i < m_aoModes.GetCount(); ++i)
    {
        uiDetailed += m_aoModes[i].m_bDetailed ? 1U : 0U;
        uiType1 += m_aoModes[i].m_bType1 ? 1U : 0U;
    }
    const unsigned int uiFurther = uiDetailed > uiOfBase ? uiDetailed - uiOfBase : 0;
    const unsigned int uiBlocks = (uiFurther + uiOfBlock - 1) / uiOfBlock + (uiType1 + uiOfBlock - 1) / uiOfBlock;
    CMString sReason;
    if (uiBlocks > uiMostBlocks)
    {
        sReason.Format("the modes need %u extension blocks or more, and an EDID has at most %u", uiBlocks,
                       uiMostBlocks);
    }
    return sReason;
}

// Where DisplayID has timings, one of them is the preferred one.
CMString CMakerPlan::RepeatPreferred()
{
    CType1Bytes aui8Bytes;
    bool bType1 = false;
    for (unsigned int i = 0; i < m_aoModes.GetCount(); ++i)
    {
        bType1 = bType1 || m_aoModes[i].m_bType1;
    }
    SPlannedMode& oFirst = m_aoModes[0U];
    oFirst.m_bType1 = bType1 && WriteType1(oFirst.m_oTiming, true, aui8Bytes);
    return bType1 == oFirst.m_bType1
               ? ""
               : oFirst.m_sName + ": an interlaced mode cannot be preferred beside modes that need DisplayID";
}

// The base block begins with a detailed timing, that of the first mode that has one.
CMString CMakerPlan::PlacePreferred()
{
    CMString sReason;
    for (unsigned int i = 0; i < m_aoModes.GetCount() && sReason.GetLength() == 0; ++i)
    {
        sReason = Place(m_aoModes[i], i == 0);
    }
    if (sReason.GetLength() == 0)
    {
        sReason = RepeatPreferred();
    }
    const auto fnHasDetailed = [this](unsigned int i) { return m_aoModes[i].m_bDetailed; };
    m_uiFirstDetailed = 0;
    while (m_uiFirstDetailed < m_aoModes.GetCount() && !fnHasDetailed(m_uiFirstDetailed))
    {
        ++m_uiFirstDetailed;
    }
    // Otherwise the first mode with a code that would fit, or a fallback that every source can send.
    CDetailedBytes aui8Bytes;
    for (unsigned int i = 0; i < m_aoModes.GetCount() && m_uiFirstDetailed == m_aoModes.GetCount(); ++i)
    {
        const SPlannedMode& oMode = m_aoModes[i];
        if (!oMode.m_b420Only && WriteDetailed(oMode.m_oTiming, { 0, 0 }, aui8Bytes))
        {
            m_uiFirstDetailed = i;
        }
    }
    if (m_uiFirstDetailed == m_aoModes.GetCount())
    {
        constexpr unsigned int uiFullHd = 16;
        SZorMode oFallback = {};
        MakeVideoMode(oFallback, uiFullHd);
        AddMode(oFallback, "1920x1080@60", true);
    }
    m_aoModes[m_uiFirstDetailed].m_bDetailed = true;
    AddVga();
    return sReason;
}
} // namespace ZorWrite
