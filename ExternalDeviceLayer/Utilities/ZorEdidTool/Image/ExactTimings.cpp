// Timings in exact numbers, as text and as JSON.

#include "ExactTimings.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <iterator>
#include <map>
#include <numeric>

#include "JsonWriter.h"
#include "ModeSources.h"
#include "Standards/Formulas.h"
#include "Standards/Modes.h"
#include "TableTimings.h"
#include "TextFormat.h"
#include "Timings.h"
#include "ZorEdidModes.h"

namespace
{
using namespace ZorStandards;

constexpr unsigned int gsc_uiFractionStep = 6; // rates that come at 1000/1001: 24, 30, 48, 60, 120

// ---- Parsing ----

bool TakeNumber(const char*& pszNext, const char* pszEnd, unsigned int& uiValue)
{
    const std::from_chars_result oResult = std::from_chars(pszNext, pszEnd, uiValue);
    pszNext = oResult.ptr;
    return oResult.ec == std::errc();
}

bool TakeMark(const char*& pszNext, const char* pszEnd, char cMark)
{
    const bool bThere = pszNext != pszEnd && *pszNext == cMark;
    pszNext += bThere ? 1 : 0;
    return bThere;
}

void SkipBlanks(const char*& pszNext, const char* pszEnd)
{
    while (TakeMark(pszNext, pszEnd, ' '))
    {
    }
}

// What may follow a rate: nothing, or "Hz".
bool IsUnitOrEnd(const char* pszNext, const char* pszEnd)
{
    constexpr char szUnit[] = "Hz";
    if (pszNext == pszEnd)
    {
        return true;
    }
    SkipBlanks(pszNext, pszEnd);
    return strcasecmp(std::string(pszNext, pszEnd).c_str(), szUnit) == 0;
}

// "59.94" is 60000/1001: uiWhole and uiPart / uiScale, where the scale is 100 or 1000.
SZorMode::SRate ReadDecimalRate(unsigned int uiWhole, unsigned int uiPart, unsigned int uiScale)
{
    const unsigned long long ullScaled = 1ULL * uiWhole * uiScale + uiPart;
    const unsigned long long ullNominal = (uiWhole / gsc_uiFractionStep + 1ULL) * gsc_uiFractionStep;
    const unsigned long long ullFraction = (2 * ullNominal * 1000 * uiScale + 1001) / (2 * 1001); // rounded
    return uiScale >= 100 && ullScaled == ullFraction ? SZorMode::SRate{ ullNominal * 1000, 1001 }
                                                      : SZorMode::SRate{ ullScaled, uiScale };
}

bool TakeRate(const char*& pszNext, const char* pszEnd, SZorMode::SRate& oRate)
{
    constexpr long iMostDigits = 6;
    unsigned int uiWhole = 0;
    unsigned int uiPart = 0;
    if (pszNext == pszEnd || !TakeNumber(pszNext, pszEnd, uiWhole))
    {
        return false;
    }
    oRate = { uiWhole, 1 };
    if (TakeMark(pszNext, pszEnd, '/'))
    {
        const bool bRead = TakeNumber(pszNext, pszEnd, uiPart);
        oRate.m_ullDivisor = uiPart;
        return bRead && uiPart != 0 && uiWhole != 0;
    }
    if (TakeMark(pszNext, pszEnd, '.'))
    {
        const char* const pszPart = pszNext;
        if (!TakeNumber(pszNext, pszEnd, uiPart) || pszNext - pszPart > iMostDigits)
        {
            return false;
        }
        unsigned int uiScale = 1;
        for (const char* pszDigit = pszPart; pszDigit != pszNext; ++pszDigit)
        {
            uiScale *= 10;
        }
        oRate = ReadDecimalRate(uiWhole, uiPart, uiScale);
    }
    return oRate.m_ullDividend != 0;
}

// ---- Rates ----

bool IsWantedPicture(const SZorMode& oMode, const SZorMode& oWanted)
{
    const bool bSize = oMode.m_oHorizontal.m_uiActive == oWanted.m_uiWidth || oMode.m_uiWidth == oWanted.m_uiWidth;
    return bSize && oMode.m_uiHeight == oWanted.m_uiHeight && oMode.m_bInterlaced == oWanted.m_bInterlaced;
}

bool IsWanted(const SZorMode& oMode, const SZorMode& oWanted)
{
    return IsWantedPicture(oMode, oWanted) && ZorWrite::IsWantedRate(oMode, oWanted);
}

std::string Trim(std::string sText, size_t uiDecimals)
{
    const size_t uiLeast = sText.find('.') + 1 + uiDecimals;
    while (sText.size() > uiLeast && sText.back() == '0')
    {
        sText.pop_back();
    }
    if (sText.back() == '.')
    {
        sText.pop_back();
    }
    return sText;
}

// ---- Sources ----

bool IsSameTiming(const SZorMode& oFirst, const SZorMode& oSecond)
{
    return oFirst.m_ullClock == oSecond.m_ullClock && MakeTimingKey(oFirst) == MakeTimingKey(oSecond);
}

// Codes by their total width, in pixels, which few of them share.
struct SCodeOfTotal
{
    unsigned int m_uiTotal;
    unsigned int m_uiCode;
    constexpr bool operator<(const SCodeOfTotal& oOther) const
    {
        return m_uiTotal != oOther.m_uiTotal ? m_uiTotal < oOther.m_uiTotal : m_uiCode < oOther.m_uiCode;
    }
};

constexpr auto gsc_aoCodesByTotal = [] {
    std::array<SCodeOfTotal, std::size(gsc_aoVideoCodes)> aoCodes = {};
    std::ranges::transform(gsc_aoVideoCodes, aoCodes.begin(), [](const SVideoCode& oCode) {
        return SCodeOfTotal{ oCode.m_oTiming.GetTotalWidth(), oCode.m_ui8Code };
    });
    std::sort(aoCodes.begin(), aoCodes.end());
    return aoCodes;
}();

// A code's mode, and its partner at 1000/1001.
CExactTimings ListRates(const char* pszType, const SZorMode& oMode)
{
    CExactTimings aoTimings = { { pszType, oMode } };
    SZorMode oPartner = {};
    if (CZorEdidModes::GetPartner(oMode, oPartner))
    {
        aoTimings.push_back({ pszType, oPartner });
    }
    return aoTimings;
}

// Gathers what a table offers, each timing once.
class CWantedTimings
{
public:
    CWantedTimings(const char* pszType, const SZorMode& oWanted) : m_pszType(pszType), m_oWanted(oWanted) {}

    bool operator()(const SZorMode& oMode)
    {
        const auto fnIsSame = [&](const SExactTiming& oOther) { return IsSameTiming(oOther.m_oMode, oMode); };
        if (IsWanted(oMode, m_oWanted) && std::ranges::none_of(m_aoTimings, fnIsSame))
        {
            m_aoTimings.push_back({ m_pszType, oMode });
        }
        return false;
    }
    CExactTimings m_aoTimings;

private:
    const char* m_pszType;
    const SZorMode& m_oWanted;
};

CExactTimings FindDmt(const char* pszType, const SZorMode& oWanted)
{
    CWantedTimings aoWanted(pszType, oWanted);
    ZorWrite::FindInDmt(std::string(pszType) != "dmt", std::ref(aoWanted));
    return aoWanted.m_aoTimings;
}

CExactTimings FindCea(const char* pszType, const SZorMode& oWanted)
{
    CWantedTimings aoWanted(pszType, oWanted);
    ZorWrite::FindInCodes(std::ref(aoWanted));
    return aoWanted.m_aoTimings;
}

// A timing of the library, of the wanted size and nominal rate.
SZorMode MakeListed(const CVidParamTimingGeneric& oTiming, const SZorMode& oWanted)
{
    SZorMode oMode = MakeListedMode(oTiming);
    oMode.m_uiWidth = oWanted.m_uiWidth;
    oMode.m_uiHeight = oWanted.m_uiHeight;
    oMode.m_oNominalRate = oWanted.m_oNominalRate;
    oMode.m_uiRepetition = oWanted.m_uiRepetition;
    return oMode;
}

// The library knows whole rates, of interlaced modes those of frames.
CExactTimings AskLibrary(const char* pszSource, const char* pszType, const SZorMode& oWanted)
{
    const SZorMode::SRate& oRate = oWanted.m_oNominalRate;
    const unsigned long long ullFields = oWanted.m_bInterlaced ? 2 : 1;
    CExactTimings aoTimings;
    if (oRate.m_ullDividend % (ullFields * oRate.m_ullDivisor) != 0)
    {
        return aoTimings;
    }
    const SAskedMode oMode = { oWanted.m_uiWidth, oWanted.m_uiHeight,
                               static_cast<unsigned int>(oRate.m_ullDividend / (ullFields * oRate.m_ullDivisor)) };
    for (const STimingSource& oSource : GetModeSources())
    {
        if (pszSource != std::string(oSource.m_pszName))
        {
            continue;
        }
        for (const CVidParamTimingGeneric& oTiming : AskSource(oSource, oMode).m_aoTimings)
        {
            const SZorMode oListed = MakeListed(oTiming, oWanted);
            if (oListed.m_bInterlaced == oWanted.m_bInterlaced)
            {
                aoTimings.push_back({ pszType, oListed });
            }
        }
    }
    return aoTimings;
}

// The formulas themselves take any width; their standards round most of them to cells.
constexpr unsigned int KeepWidth(unsigned int uiWidth) { return uiWidth; }

template <EZorTimingSource eSource, unsigned int (*pfnRound)(unsigned int)>
bool ComputeBy(SZorMode& oMode)
{
    oMode.m_uiWidth = pfnRound(oMode.m_uiWidth);
    return FindZorTiming(oMode, eSource, false, oMode) != 0;
}

bool ComputeReduced3(SZorMode& oMode)
{
    oMode.m_uiWidth = CutToCell(oMode.m_uiWidth);
    oMode.m_eBlanking = SZorMode::eBlanking_Reduced3;
    return ComputeCvt(oMode);
}

// One of these has the answer.
struct SType
{
    const char* m_pszName;
    CExactTimings (*m_pfnTable)(const char* pszType, const SZorMode& oWanted);
    bool (*m_pfnFormula)(SZorMode& oMode);
    const char* m_pszLibrary; // a mode source of the library
    bool m_bInterlaced;       // whether there are interlaced modes
    bool m_bInAll;
};

constexpr SType gsc_aoTypes[] = {
    { "dmt", FindDmt, nullptr, nullptr, true, true },
    { "dmt-rb", FindDmt, nullptr, nullptr, true, true },
    { "cvt", nullptr, ComputeBy<eZorTimingSource_Cvt, CutToCell>, nullptr, true, true },
    { "cvt-rb", nullptr, ComputeBy<eZorTimingSource_CvtReduced1, CutToCell>, nullptr, true, true },
    { "cvt-rb2", nullptr, ComputeBy<eZorTimingSource_CvtReduced2, KeepWidth>, nullptr, false, true },
    { "cvt-rb3", nullptr, ComputeReduced3, nullptr, false, true },
    { "gtf", nullptr, ComputeBy<eZorTimingSource_Gtf, RoundToCell>, nullptr, true, true },
    { "ovt", nullptr, ComputeOvt, nullptr, false, true },
    { "cea", FindCea, nullptr, nullptr, true, true },
    { "smpte", nullptr, nullptr, "smpte", true, true },
    { "cvt-list", nullptr, nullptr, "cvt", false, false },
    { "cvt-rb-list", nullptr, nullptr, "cvt-rb", false, false },
    { "gtf-list", nullptr, nullptr, "gtf", false, false },
};

CExactTimings AskType(const SType& oType, const SZorMode& oWanted)
{
    if (oWanted.m_bInterlaced && !oType.m_bInterlaced)
    {
        return {};
    }
    if (oType.m_pfnTable != nullptr)
    {
        return oType.m_pfnTable(oType.m_pszName, oWanted);
    }
    if (oType.m_pszLibrary != nullptr)
    {
        return AskLibrary(oType.m_pszLibrary, oType.m_pszName, oWanted);
    }
    SZorMode oMode = oWanted;
    return oType.m_pfnFormula(oMode) ? CExactTimings{ { oType.m_pszName, oMode } } : CExactTimings{};
}

unsigned int GetFields(const SZorMode& oMode) { return oMode.m_bInterlaced ? 2 : 1; }

// What front porch and sync leave of the blanking; of an interlaced mode of the first field.
long long GetBack(const SZorMode::SAxis& oAxis, unsigned int uiFields)
{
    return (0LL + oAxis.m_uiTotal - oAxis.m_uiActive) / uiFields - oAxis.m_uiFront - oAxis.m_uiSync;
}

// ---- Modelines ----

std::string GetName(const SZorMode& oMode)
{
    const char* pszBlanking = oMode.m_eBlanking == SZorMode::eBlanking_Reduced1   ? "_RB"
                              : oMode.m_eBlanking == SZorMode::eBlanking_Reduced2 ? "_RB2"
                              : oMode.m_eBlanking == SZorMode::eBlanking_Reduced3 ? "_RB3"
                                                                                  : "";
    return FormatText("%ux%u%s_%s%s", oMode.m_oHorizontal.m_uiActive, oMode.m_uiHeight, oMode.m_bInterlaced ? "i" : "",
                      Trim(FormatText("%.2f", GetHz(oMode.m_oRate)), 0).c_str(), pszBlanking);
}

std::string GetExactModeline(const SZorMode& oMode, const std::string& sName)
{
    const unsigned int uiFields = GetFields(oMode);
    if (GetBack(oMode.m_oHorizontal, 1) < 0 || GetBack(oMode.m_oVertical, uiFields) < 0)
    {
        return "# " + sName + ": its sync ends after its total\n";
    }
    const auto fnAxis = [](const SZorMode::SAxis& oAxis, unsigned int uiTimes) {
        const unsigned int uiStart = oAxis.m_uiActive + uiTimes * oAxis.m_uiFront;
        return FormatText("%u %u %u %u", oAxis.m_uiActive, uiStart, uiStart + uiTimes * oAxis.m_uiSync,
                          oAxis.m_uiTotal);
    };
    return FormatText("Modeline \"%s\" %s %s %s %chsync %cvsync%s\n", sName.c_str(),
                      GetMegaHertz(oMode.m_ullClock, 2).c_str(), fnAxis(oMode.m_oHorizontal, 1).c_str(),
                      fnAxis(oMode.m_oVertical, uiFields).c_str(), oMode.m_oHorizontal.m_bPositive ? '+' : '-',
                      oMode.m_oVertical.m_bPositive ? '+' : '-', oMode.m_bInterlaced ? " Interlace" : "");
}
} // namespace

SVics FindExactVics(const SZorMode& oMode)
{
    SVics oVics;
    const unsigned int uiTotal = oMode.m_oHorizontal.m_uiTotal;
    const auto* itCode =
        std::lower_bound(gsc_aoCodesByTotal.begin(), gsc_aoCodesByTotal.end(), SCodeOfTotal{ uiTotal, 0 });
    for (; itCode != gsc_aoCodesByTotal.end() && itCode->m_uiTotal == uiTotal; ++itCode)
    {
        SZorMode oCodeMode = {};
        MakeVideoMode(oCodeMode, itCode->m_uiCode);
        for (const SExactTiming& oRate : ListRates("", oCodeMode))
        {
            if (IsSameTiming(oRate.m_oMode, oMode))
            {
                oVics.m_auiCodes.push_back(itCode->m_uiCode);
                oVics.m_bVariant = oRate.m_oMode.m_ullClock != oCodeMode.m_ullClock;
            }
        }
    }
    return oVics;
}

bool ParseExactMode(const std::string& sText, SZorMode& oMode)
{
    const char* pszNext = sText.data();
    const char* const pszEnd = pszNext + sText.size();
    SZorMode oRead = {};
    if (!TakeNumber(pszNext, pszEnd, oRead.m_uiWidth) ||
        !(TakeMark(pszNext, pszEnd, 'x') || TakeMark(pszNext, pszEnd, 'X')) ||
        !TakeNumber(pszNext, pszEnd, oRead.m_uiHeight) || oRead.m_uiWidth == 0 || oRead.m_uiHeight == 0)
    {
        return false;
    }
    oRead.m_bInterlaced = TakeMark(pszNext, pszEnd, 'i');
    oRead.m_uiRepetition = 1;
    SkipBlanks(pszNext, pszEnd);
    if (!TakeMark(pszNext, pszEnd, '@'))
    {
        return false;
    }
    SkipBlanks(pszNext, pszEnd);
    if (!TakeRate(pszNext, pszEnd, oRead.m_oNominalRate) || !IsUnitOrEnd(pszNext, pszEnd))
    {
        return false;
    }
    oRead.m_oRate = oRead.m_oNominalRate;
    oMode = oRead;
    return true;
}

bool GetWantedFraction(const SZorMode& oWanted, SZorMode& oFraction)
{
    const SZorMode::SRate& oRate = oWanted.m_oNominalRate;
    if (oRate.m_ullDivisor != 1 || oRate.m_ullDividend % gsc_uiFractionStep != 0)
    {
        return false;
    }
    oFraction = oWanted;
    oFraction.m_oNominalRate = oFraction.m_oRate = { oRate.m_ullDividend * 1000, 1001 };
    return true;
}

double GetHz(const SZorMode::SRate& oRate)
{
    return static_cast<double>(oRate.m_ullDividend) / static_cast<double>(oRate.m_ullDivisor);
}

bool IsMeant(const SZorMode& oMode, const SZorMode& oWanted)
{
    constexpr double dHalf = 0.5;
    SZorMode oPartner = {};
    SZorMode oFraction = {};
    if (oMode.m_oRate.m_ullDivisor == 0 || oMode.m_oNominalRate.m_ullDivisor == 0)
    {
        return false;
    }
    if (IsWanted(oMode, oWanted) || (CZorEdidModes::GetPartner(oMode, oPartner) && IsWanted(oPartner, oWanted)))
    {
        return true;
    }
    const double dDifference = GetHz(oMode.m_oRate) - GetHz(oWanted.m_oNominalRate);
    const bool bRounds = oWanted.m_oNominalRate.m_ullDivisor == 1 && dDifference >= -dHalf && dDifference < dHalf;
    return bRounds && IsWantedPicture(oMode, oWanted) &&
           !(GetWantedFraction(oWanted, oFraction) && ZorWrite::IsSameRate(oMode.m_oRate, oFraction.m_oNominalRate));
}

std::vector<std::string> ListTimingTypes()
{
    std::vector<std::string> asNames;
    for (const SType& oType : gsc_aoTypes)
    {
        asNames.emplace_back(oType.m_pszName);
    }
    return asNames;
}

CExactTimings FindTimings(const SZorMode& oWanted, const std::string& sType)
{
    CExactTimings aoTimings;
    for (const SType& oType : gsc_aoTypes)
    {
        if (sType == "all" ? oType.m_bInAll : sType == oType.m_pszName)
        {
            const CExactTimings aoAnswers = AskType(oType, oWanted);
            aoTimings.insert(aoTimings.end(), aoAnswers.begin(), aoAnswers.end());
        }
    }
    return aoTimings;
}

CExactTimings FindTimingsOfVic(unsigned int uiCode)
{
    SZorMode oMode = {};
    return MakeVideoMode(oMode, uiCode) ? ListRates("cea", oMode) : CExactTimings{};
}

CExactTimings FindTimingsOfHdmiVic(unsigned int uiCode)
{
    SZorMode oMode = {};
    return MakeHdmiMode(oMode, uiCode) ? ListRates("cea", oMode) : CExactTimings{};
}

CExactTimings FindTimingsOfDmt(unsigned int uiId)
{
    SZorMode oMode = {};
    if (!MakeDmtMode(oMode, uiId))
    {
        return {};
    }
    return { { oMode.m_eBlanking == SZorMode::eBlanking_Standard ? "dmt" : "dmt-rb", oMode } };
}

std::string GetExactText(const SZorMode& oMode)
{
    return FormatText("%4u x %4u%c @ %7.3f Hz %11s MHz",
                      oMode.m_bTiming ? oMode.m_oHorizontal.m_uiActive : oMode.m_uiWidth, oMode.m_uiHeight,
                      oMode.m_bInterlaced ? 'i' : 'p', GetHz(oMode.m_oRate),
                      oMode.m_ullClock != 0 ? GetMegaHertz(oMode.m_ullClock, 3).c_str() : "-");
}

std::string GetExactNumbers(const SZorMode& oMode)
{
    const auto fnAxis = [](const SZorMode::SAxis& oAxis, unsigned int uiFieldsOf) {
        return FormatText("%u+%u+%lld %c", oAxis.m_uiFront, oAxis.m_uiSync, GetBack(oAxis, uiFieldsOf),
                          oAxis.m_bPositive ? '+' : '-');
    };
    return GetExactText(oMode) + "  horizontal " + fnAxis(oMode.m_oHorizontal, 1) + "  vertical " +
           fnAxis(oMode.m_oVertical, GetFields(oMode));
}

std::string GetExactLine(const SExactTiming& oTiming)
{
    const SZorMode& oMode = oTiming.m_oMode;
    std::string sEnd = GetVicsText(FindExactVics(oMode));
    if (oMode.m_eKind == SZorMode::eModeKind_Dmt)
    {
        sEnd += (sEnd.empty() ? "" : "  ") + FormatText("DMT %02Xh", oMode.m_uiCode);
    }
    if (oMode.m_uiRepetition > 1)
    {
        sEnd += FormatText("  each pixel sent %u times", oMode.m_uiRepetition);
    }
    return FormatText("%-7s %s%s%s\n", oTiming.m_pszType, GetExactNumbers(oMode).c_str(), sEnd.empty() ? "" : "  ",
                      sEnd.c_str());
}

SZorMode MakeListedMode(const CVidParamTimingGeneric& oTiming)
{
    SZorMode oMode = {};
    oMode.m_uiWidth = oTiming.GetHorizontalActive();
    oMode.m_uiHeight = oTiming.GetVerticalActive();
    oMode.m_uiRepetition = 1;
    oMode.m_bInterlaced = oTiming.IsInterlaced() != 0;
    oMode.m_bTiming = true;
    oMode.m_ullClock = oTiming.GetPixelClockInHz();
    oMode.m_oHorizontal = { oTiming.GetHorizontalActive(),
                            oTiming.GetHorizontalFrontPorch(),
                            oTiming.GetHorizontalSync(),
                            oTiming.ComputeHorizontalTotalPixel(),
                            0,
                            oTiming.IsHorizontalPolarityPositive() != 0 };
    oMode.m_oVertical = { oTiming.GetVerticalActive(),
                          oTiming.GetVerticalFrontPorch(),
                          oTiming.GetVerticalSync(),
                          GetVerticalTotal(oTiming),
                          0,
                          oTiming.IsVerticalPolarityPositive() != 0 };
    oMode.m_oRate = { (oMode.m_bInterlaced ? 2 : 1) * oMode.m_ullClock,
                      1ULL * oMode.m_oHorizontal.m_uiTotal * oMode.m_oVertical.m_uiTotal };
    return oMode;
}

std::string GetMegaHertz(unsigned long long ullHz, size_t uiDecimals)
{
    constexpr unsigned long long ullHzPerMegaHz = 1000000;
    return Trim(FormatText("%llu.%06llu", ullHz / ullHzPerMegaHz, ullHz % ullHzPerMegaHz), uiDecimals);
}

void DropSameTimings(CExactTimings& aoTimings)
{
    CExactTimings aoLeft;
    for (const SExactTiming& oTiming : aoTimings)
    {
        if (std::ranges::none_of(
                aoLeft, [&](const SExactTiming& oOther) { return IsSameTiming(oOther.m_oMode, oTiming.m_oMode); }))
        {
            aoLeft.push_back(oTiming);
        }
    }
    aoTimings = aoLeft;
}

std::string GetExactModelines(const CExactTimings& aoTimings)
{
    std::map<std::string, unsigned int> auiUses;
    for (const SExactTiming& oTiming : aoTimings)
    {
        ++auiUses[GetName(oTiming.m_oMode)];
    }
    std::map<std::string, unsigned int> auiPrinted;
    std::string sText;
    for (const SExactTiming& oTiming : aoTimings)
    {
        std::string sName = GetName(oTiming.m_oMode);
        sName += auiUses[sName] > 1 ? FormatText("_%s", oTiming.m_pszType) : "";
        const unsigned int uiNumber = ++auiPrinted[sName];
        sName += uiNumber > 1 ? FormatText("_%u", uiNumber) : "";
        sText += GetExactModeline(oTiming.m_oMode, sName);
    }
    return sText;
}

void WriteTiming(const SZorMode& oMode, const char* pszType, bool bPartner, CJsonWriter& oJson)
{
    const unsigned long long ullCommon = std::gcd(oMode.m_oRate.m_ullDividend, oMode.m_oRate.m_ullDivisor);
    const unsigned long long ullPixels = 1ULL * oMode.m_oHorizontal.m_uiTotal * oMode.m_oVertical.m_uiTotal;
    const auto fnAxis = [&oJson](const char* pszName, const SZorMode::SAxis& oAxis, unsigned int uiFields) {
        oJson.BeginObject(pszName);
        oJson.Member("front_porch", oAxis.m_uiFront);
        oJson.Member("sync", oAxis.m_uiSync);
        oJson.Member("back_porch", GetBack(oAxis, uiFields));
        oJson.Member("total", oAxis.m_uiTotal);
        oJson.Member("positive", oAxis.m_bPositive);
        oJson.EndObject();
    };
    oJson.Member("width", oMode.m_oHorizontal.m_uiActive);
    oJson.Member("height", oMode.m_uiHeight);
    oJson.Member("interlaced", oMode.m_bInterlaced);
    oJson.Member("vertical_rate_hz", (2 * oMode.m_ullClock + ullPixels) / (2 * ullPixels));
    oJson.BeginObject("rate");
    oJson.Member("dividend", oMode.m_oRate.m_ullDividend / ullCommon);
    oJson.Member("divisor", oMode.m_oRate.m_ullDivisor / ullCommon);
    oJson.EndObject();
    oJson.Member("horizontal_rate_hz",
                 (2 * oMode.m_ullClock + oMode.m_oHorizontal.m_uiTotal) / (2ULL * oMode.m_oHorizontal.m_uiTotal));
    oJson.Member("pixel_clock_hz", oMode.m_ullClock);
    fnAxis("horizontal", oMode.m_oHorizontal, 1);
    fnAxis("vertical", oMode.m_oVertical, GetFields(oMode));
    oJson.Member("type", pszType);
    const SVics oVics = FindExactVics(oMode);
    if (!oVics.m_auiCodes.empty())
    {
        oJson.Member("vics", oVics.m_auiCodes);
    }
    if (oVics.m_bVariant || bPartner)
    {
        oJson.Member("rate_1000_1001", true);
    }
    if (oMode.m_eKind == SZorMode::eModeKind_Dmt)
    {
        oJson.Member("dmt_id", oMode.m_uiCode);
    }
    if (oMode.m_uiRepetition > 1)
    {
        oJson.Member("pixel_repetition", oMode.m_uiRepetition);
    }
}
