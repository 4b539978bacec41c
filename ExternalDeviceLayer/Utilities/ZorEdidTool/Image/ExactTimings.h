// Timings in exact numbers, by the tables of the standards, their formulas, and those of the library: what `timing`
// prints.

#pragma once

#include <string>
#include <tuple>
#include <vector>

#include "EdidMode.h"
#include "Timings.h"
#include "ZorWishedTiming.h"

class CJsonWriter;

// "1920x1080@60", "1920x1080i@59.94", "1920x1080@60000/1001": the rate in Hz, of interlaced modes of fields. X for x,
// blanks around @ and "Hz" at the end are taken, too. A decimal rate of two or three digits after the point that is
// 1000/1001 of a multiple of 6, rounded, means that fraction. Sets size, scan and nominal rate; false, and oMode
// unchanged, for anything else.
bool ParseExactMode(const std::string& sText, SZorMode& oMode);

double GetHz(const SZorMode::SRate& oRate);

// What timings have in common that are the same but for clock and rate; nothing but the scan without a timing.
inline auto MakeTimingKey(const SZorMode& oMode)
{
    const auto fnAxis = [&oMode](const SZorMode::SAxis& oAxis) {
        return oMode.m_bTiming ? std::make_tuple(oAxis.m_uiActive, oAxis.m_uiFront, oAxis.m_uiSync, oAxis.m_uiTotal,
                                                 oAxis.m_bPositive)
                               : std::make_tuple(0U, 0U, 0U, 0U, false);
    };
    return std::make_tuple(oMode.m_bInterlaced, oMode.m_bTiming, fnAxis(oMode.m_oHorizontal),
                           fnAxis(oMode.m_oVertical));
}

// Whether a size and rate of ParseExactMode mean a mode: at its exact or nominal rate and, of a code that has two, at
// the other one. Rates equal each other to two decimals. A whole rate also means rates that round to it, such as 59.95
// Hz, but not its 1000/1001, which has a name of its own.
bool IsMeant(const SZorMode& oMode, const SZorMode& oWanted);

// The wanted mode at 1000/1001 of its rate; false for rates that have no such variant.
bool GetWantedFraction(const SZorMode& oWanted, SZorMode& oFraction);

struct SExactTiming
{
    const char* m_pszType; // a name of ListTimingTypes
    SZorMode m_oMode;
};
using CExactTimings = std::vector<SExactTiming>;

// The tables and formulas, in the order in which they are printed: "dmt", "cvt-rb3".
std::vector<std::string> ListTimingTypes();

// The words that say where the timing of a new mode comes from.
struct STimingSourceName
{
    const char* m_pszName;
    EZorTimingSource m_eSource;
};
inline constexpr STimingSourceName gsc_aoTimingSources[] = {
    { "cta", eZorTimingSource_Cta },
    { "dmt", eZorTimingSource_Dmt },
    { "dmt-rb", eZorTimingSource_DmtReduced },
    { "cvt", eZorTimingSource_Cvt },
    { "cvt-rb", eZorTimingSource_CvtReduced1 },
    { "cvt-rb2", eZorTimingSource_CvtReduced2 },
    { "gtf", eZorTimingSource_Gtf },
};

// "all" leaves out the formulas of the library's lists, and the CVT versions that have no interlaced modes.
CExactTimings FindTimings(const SZorMode& oWanted, const std::string& sType);

// With the one at 1000/1001 where the code means it as well. Empty for a code that is not published.
CExactTimings FindTimingsOfVic(unsigned int uiCode);
CExactTimings FindTimingsOfHdmiVic(unsigned int uiCode);
CExactTimings FindTimingsOfDmt(unsigned int uiId);

// A timing of the library's lists, with its exact rate, of interlaced modes that of fields.
SZorMode MakeListedMode(const CVidParamTimingGeneric& oTiming);

// Codes of CTA-861 with exactly this timing.
SVics FindExactVics(const SZorMode& oMode);

// "1920 x 1080p @  59.940 Hz     148.352 MHz"; the numbers are in columns. Of a mode without a timing the nominal rate.
std::string GetExactText(const SZorMode& oMode);
// The same with porches, syncs and polarities: "...  horizontal 88+44+148 +  vertical 4+5+36 +".
std::string GetExactNumbers(const SZorMode& oMode);
std::string GetExactLine(const SExactTiming& oTiming);
// "148.351648", of a clock in Hz: at least so many decimals, and as many more as it needs.
std::string GetMegaHertz(unsigned long long ullHz, size_t uiDecimals);
// Leaves one of several timings with the same numbers, the first.
void DropSameTimings(CExactTimings& aoTimings);
// As GetModeline, a line each. The names differ: each has the rate, reduced blanking its version, and lines of one size
// and rate have their types.
std::string GetExactModelines(const CExactTimings& aoTimings);
// The numbers of a timing as members of the object that is open. bPartner: it is a code's at 1000/1001, as codes of
// CTA-861 show without it.
void WriteTiming(const SZorMode& oMode, const char* pszType, bool bPartner, CJsonWriter& oJson);
