// A second computation of CVT and GTF: the same steps in 128 bits, which wrap by hand where the formulas wrap.
// Tests and fuzz targets compare the formulas with it.

#pragma once

#include <algorithm>
#include <array>
#include <optional>

#include "TimingValues.h"

// 32-bit words in 128 bits: every step is cut back by hand.
__extension__ typedef unsigned __int128 Wide;

constexpr Wide Cut(Wide uiValue) { return uiValue % 0x100000000U; }
constexpr Wide Minus(Wide uiFrom, Wide uiWhat) { return Cut(uiFrom + 0x100000000U - uiWhat); }
constexpr Wide Times(Wide uiFirst, Wide uiSecond) { return Cut(uiFirst * uiSecond); }
constexpr Wide Nearest(Wide uiDividend, Wide uiDivisor)
{
    return uiDivisor == 0 ? 0 : (2 * uiDividend + uiDivisor) / (2 * uiDivisor);
}
constexpr Wide Down(Wide uiDividend, Wide uiDivisor) { return uiDivisor == 0 ? 0 : uiDividend / uiDivisor; }

// Vertical sync of CVT: the first aspect whose width in whole cells is this one counts.
inline Wide SyncLines(Wide uiWidth, Wide uiHeight)
{
    if (uiHeight == 0)
    {
        return 0;
    }
    const bool bSeven = uiWidth == Times(uiHeight, 5) / 32 * 8 || uiWidth == Times(uiHeight, 15) / 72 * 8;
    return uiWidth == Times(uiHeight, 4) / 24 * 8    ? 4
           : uiWidth == Times(uiHeight, 16) / 72 * 8 ? 5
           : uiWidth == Times(uiHeight, 16) / 80 * 8 ? 6
           : bSeven                                  ? 7
                                                     : 10;
}

using Expected = std::optional<CAllValues>; // none: refused

inline CAllValues Pack(const std::array<Wide, 13>& auiWide) { return CAllValues(auiWide.begin(), auiWide.end()); }

inline Expected SecondCvt(Wide h, Wide v, Wide rate)
{
    const Wide h8 = Times(Nearest(h, 8), 8);
    const Wide vs = SyncLines(h, v);
    const Wide p = Nearest(Minus(Down(1000000000, rate), 550000), Cut(v + 3));
    const Wide vsbp = std::max(Down(550000, p) + 1, vs + 6);
    const Wide vTotal = Cut(v + 3 + vsbp);
    const Wide duty = std::max<Wide>(Minus(30000000, Times(300, p)) / 1000, 20000);
    const Wide hBlank = Times(Down(Times(duty, h8), Minus(1600000, Times(16, duty))), 16);
    const Wide hTotal = Cut(h8 + hBlank);
    const Wide hSync = Times(hTotal, 80) / 1000 / 8 * 8;
    const Wide hClockTotal = h % 8 != 0 ? Cut(hTotal + 8) : hTotal;
    const Wide k = Down(Times(hClockTotal, 100000), p) / 25;
    const Wide hz = Nearest(Times(k, 25000), hTotal);
    const Wide hBack = hBlank / 2;
    const Wide vBack = Minus(vsbp, vs);
    const Wide hSyncStart = Minus(Minus(hTotal, hSync), hBack);
    if (hSyncStart >= Minus(hTotal, hBack) || Minus(vTotal, vsbp) >= Minus(vTotal, vBack) || h > hSyncStart ||
        v > Minus(vTotal, vsbp))
    {
        return std::nullopt;
    }
    return Pack({ h, v, Nearest(Times(hz, 10), vTotal), Times(k, 250), Minus(Minus(hBlank, hBack), hSync), hSync, hBack,
                  3, vs, vBack, hz / 100, 8, CVidParamTiming::eVidParamType_Cvt });
}

inline Expected SecondCvtReduced(Wide h, Wide v, Wide rate)
{
    const Wide vs = SyncLines(h, v);
    const Wide p = Nearest(Minus(Nearest(1000000000, rate), 460000), v);
    const Wide vbi = std::max(Down(460000, p) + 1, vs + 9);
    const Wide hTotal = Cut(Times(Nearest(h, 8), 8) + 160);
    const Wide k = Nearest(Times(Times(rate, hTotal), Cut(v + vbi)), 10000) / 25;
    return Pack({ h, v, rate, Times(k, 250), 48, 32, 80, 3, vs, Minus(vbi, vs + 3), Nearest(Times(k, 250), hTotal), 4,
                  CVidParamTiming::eVidParamType_CvtReducedBlanking });
}

inline Expected SecondGtf(Wide h, Wide v, Wide rate)
{
    const Wide h8 = Times(Nearest(h, 8), 8);
    const Wide p = Nearest(Minus(Nearest(1000000000, rate), 550000), Times(Cut(v + 1), 10));
    const Wide vsbp = Nearest(55000, p);
    const Wide vTotal10 = Times(Cut(v + 1 + vsbp), 10);
    const Wide est = Nearest(1000000000, Nearest(Times(p, vTotal10), 10));
    const Wide p2 = Nearest(Times(p, est), Times(rate, 10));
    const Wide act = Nearest(1000000000, Nearest(Times(vTotal10, p2), 10));
    const Wide duty = Minus(3000, Nearest(Times(p2, 3000), 10000));
    const Wide hBlank = Times(Nearest(Times(duty, h8), Minus(160000, Times(16, duty))), 16);
    const Wide hTotal = Cut(h8 + hBlank);
    const Wide hBack = Times(Nearest(hBlank / 2, 8), 8);
    const Wide hSync = Nearest(Times(hTotal, 80), 1000) & ~Wide{ 7 };
    const Wide vTotal = Nearest(vTotal10, 10);
    const Wide hSyncStart = Minus(Minus(hTotal, hBack), hSync);
    const Wide vSyncStart = Minus(vTotal, vsbp);
    if (vSyncStart >= Minus(vTotal, Minus(vsbp, 3)) || hSyncStart >= Minus(hTotal, hBack) || h > hSyncStart ||
        v > vSyncStart)
    {
        return std::nullopt;
    }
    return Pack({ h, v, Nearest(act, 10), Nearest(Times(hTotal, 100000), p2), Minus(hSyncStart, h), hSync, hBack,
                  Minus(vSyncStart, v), 3, Minus(vsbp, 3), Nearest(100000000, p2) / 1000, 8,
                  CVidParamTiming::eVidParamType_Gtf });
}
