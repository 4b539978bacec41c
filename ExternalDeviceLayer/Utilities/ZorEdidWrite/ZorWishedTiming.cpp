// The tables and formulas that modes are looked for in.

#include "ZorWishedTiming.h"

#include <functional>
#include <numeric>

#include "Standards/Formulas.h"
#include "TableTimings.h"

namespace
{
using namespace ZorStandards;

bool IsWanted(const SZorMode& oMode, const SZorMode& oWanted)
{
    return ZorWrite::IsSamePicture(oMode, oWanted) && ZorWrite::IsWantedRate(oMode, oWanted);
}

bool FindCode(const SZorMode& oWanted, bool bRepeated, SZorMode& oTiming)
{
    return ZorWrite::FindInCodes([&](const SZorMode& oMode) {
        const bool bIs = (oMode.m_uiRepetition <= 1 || bRepeated) && IsWanted(oMode, oWanted);
        oTiming = bIs ? oMode : oTiming;
        return bIs;
    });
}

bool FindDmt(const SZorMode& oWanted, bool bReduced, SZorMode& oTiming)
{
    return ZorWrite::FindInDmt(bReduced, [&](const SZorMode& oMode) {
        const bool bIs = IsWanted(oMode, oWanted);
        oTiming = bIs ? oMode : oTiming;
        return bIs;
    });
}

// Version 2 has a form for rates of 1000/1001: that fraction of the clock, with the lines of the whole rate.
bool ComputeReduced2(SZorMode& oMode)
{
    const SZorMode::SRate oAsked = oMode.m_oNominalRate;
    SReducedBlanking oReduced;
    oReduced.m_bVideo = oAsked.m_ullDivisor % 1001 == 0 && oAsked.m_ullDividend % 1000 == 0 &&
                        oAsked.m_ullDividend / 1000 % (oAsked.m_ullDivisor / 1001) == 0;
    if (oReduced.m_bVideo)
    {
        oMode.m_oNominalRate = { oAsked.m_ullDividend / 1000, oAsked.m_ullDivisor / 1001 };
    }
    const bool bComputed = !oMode.m_bInterlaced && ComputeCvt(oMode, oReduced);
    oMode.m_oNominalRate = oAsked;
    return bComputed;
}

bool Compute(const SZorMode& oWanted, SZorMode::EBlanking eBlanking, SZorMode& oTiming)
{
    SZorMode oMode = {};
    oMode.m_eKind = SZorMode::eModeKind_Detailed;
    oMode.m_uiWidth = oWanted.m_uiWidth;
    oMode.m_uiHeight = oWanted.m_uiHeight;
    oMode.m_bInterlaced = oWanted.m_bInterlaced;
    oMode.m_oNominalRate = oWanted.m_oNominalRate;
    oMode.m_uiRepetition = 1;
    oMode.m_eBlanking = eBlanking;
    const bool bComputed = eBlanking == SZorMode::eBlanking_NotGiven   ? ComputeGtf(oMode)
                           : eBlanking == SZorMode::eBlanking_Reduced2 ? ComputeReduced2(oMode)
                                                                       : ComputeCvt(oMode);
    if (!bComputed)
    {
        return false;
    }
    oMode.m_bTiming = true;
    oTiming = oMode;
    return true;
}

// ---- The nearest rate ----

// No product overflows: dividends have up to 44 bits, divisors 36, those of tables at 1000/1001 and of wishes that a
// formula takes among them.
__extension__ using CWide = unsigned __int128;

// Hz, multiplied by the divisor of the wished rate: distances from one wish compare.
struct SDistance
{
    CWide m_uiDividend;
    unsigned long long m_ullDivisor;

    bool operator<(const SDistance& oOther) const
    {
        return m_uiDividend * oOther.m_ullDivisor < oOther.m_uiDividend * m_ullDivisor;
    }
};

SDistance MeasureDistance(const SZorMode::SRate& oRate, const SZorMode::SRate& oWanted)
{
    const unsigned long long ullCommon = std::gcd(oWanted.m_ullDividend, oWanted.m_ullDivisor);
    const CWide uiRate = CWide{ oRate.m_ullDividend } * (oWanted.m_ullDivisor / ullCommon);
    const CWide uiWanted = CWide{ oWanted.m_ullDividend / ullCommon } * oRate.m_ullDivisor;
    return { uiRate > uiWanted ? uiRate - uiWanted : uiWanted - uiRate, oRate.m_ullDivisor };
}

// Is given the modes of tables and keeps the nearest one, of equally near ones the first. What has the wished rate, by
// its clock or by its name, has a distance of 0.
class CNearestOfTables
{
public:
    CNearestOfTables(const SZorMode& oWanted, bool bRepeated) : m_oWanted(oWanted), m_bRepeated(bRepeated) {}

    bool operator()(const SZorMode& oMode)
    {
        if (ZorWrite::IsSamePicture(oMode, m_oWanted) && (oMode.m_uiRepetition <= 1 || m_bRepeated))
        {
            const SDistance oDistance = ZorWrite::IsWantedRate(oMode, m_oWanted)
                                            ? SDistance{ 0, 1 }
                                            : MeasureDistance(oMode.m_oRate, m_oWanted.m_oNominalRate);
            if (!m_bFound || oDistance < m_oLeast)
            {
                m_oNearest = oMode;
                m_oLeast = oDistance;
                m_bFound = true;
            }
        }
        return false;
    }

    const SZorMode& ChooseBeside(const SZorMode& oComputed) const
    {
        const bool bNearer = MeasureDistance(oComputed.m_oRate, m_oWanted.m_oNominalRate) < m_oLeast;
        return m_bFound && !bNearer ? m_oNearest : oComputed;
    }

private:
    const SZorMode& m_oWanted;
    bool m_bRepeated;
    bool m_bFound = false;
    SZorMode m_oNearest = {};
    SDistance m_oLeast = {};
};

// CVT for the rate, or for the next whole one, whose clock may come nearer: 2560x1440 for 60 Hz has 59.95 Hz.
bool ComputeNearest(const SZorMode& oWanted, SZorMode& oTiming)
{
    if (!Compute(oWanted, SZorMode::eBlanking_Reduced1, oTiming))
    {
        return false;
    }
    const SZorMode::SRate& oRate = oWanted.m_oNominalRate;
    SZorMode oWhole = oWanted;
    oWhole.m_oNominalRate = { oRate.m_ullDividend / oRate.m_ullDivisor + 1, 1 };
    const bool bNearer = ZorWrite::IsFraction(oRate) && Compute(oWhole, SZorMode::eBlanking_Reduced1, oWhole) &&
                         MeasureDistance(oWhole.m_oRate, oRate) < MeasureDistance(oTiming.m_oRate, oRate);
    oTiming = bNearer ? oWhole : oTiming;
    return true;
}

// A whole rate that only the formula with clocks of 1 kHz meets is met well enough by one with clocks of 250 kHz.
bool FindAny(const SZorMode& oWanted, bool bRepeated, SZorMode& oTiming)
{
    SZorMode oComputed = {};
    if (!ComputeNearest(oWanted, oComputed))
    {
        return FindCode(oWanted, bRepeated, oTiming) || FindDmt(oWanted, true, oTiming) ||
               FindDmt(oWanted, false, oTiming);
    }
    CNearestOfTables oTables(oWanted, bRepeated);
    ZorWrite::FindInCodes(std::ref(oTables));
    ZorWrite::FindInDmt(true, std::ref(oTables));
    ZorWrite::FindInDmt(false, std::ref(oTables));
    oTiming = oTables.ChooseBeside(oComputed);
    return true;
}
} // namespace

int FindZorTiming(const SZorMode& oWanted, EZorTimingSource eSource, bool bRepeated, SZorMode& oTiming)
{
    switch (eSource)
    {
    case eZorTimingSource_Cta:
        return FindCode(oWanted, bRepeated, oTiming) ? 1 : 0;
    case eZorTimingSource_Dmt:
        return FindDmt(oWanted, false, oTiming) || FindDmt(oWanted, true, oTiming) ? 1 : 0;
    case eZorTimingSource_DmtReduced:
        return FindDmt(oWanted, true, oTiming) ? 1 : 0;
    case eZorTimingSource_Cvt:
        return Compute(oWanted, SZorMode::eBlanking_Standard, oTiming) ? 1 : 0;
    case eZorTimingSource_CvtReduced1:
        return Compute(oWanted, SZorMode::eBlanking_Reduced1, oTiming) ? 1 : 0;
    case eZorTimingSource_CvtReduced2:
        return Compute(oWanted, SZorMode::eBlanking_Reduced2, oTiming) ? 1 : 0;
    case eZorTimingSource_Gtf:
        return Compute(oWanted, SZorMode::eBlanking_NotGiven, oTiming) ? 1 : 0;
    default:
        return FindAny(oWanted, bRepeated, oTiming) ? 1 : 0;
    }
}
