// Timings as text.

#include "Timings.h"

#include <string.h>

#include "TextFormat.h"

namespace
{
// MHz with as many of six decimals as the hertz need, but no fewer than uiLeast.
std::string GetMegaHertzText(unsigned int uiHz, size_t uiLeast)
{
    constexpr unsigned int uiHzPerMegaHz = 1000000;
    std::string sText = FormatText("%u.%06u", uiHz / uiHzPerMegaHz, uiHz % uiHzPerMegaHz);
    for (size_t i = 6; i > uiLeast && sText.back() == '0'; --i)
    {
        sText.pop_back();
    }
    return sText;
}
} // namespace

bool IsSameRecord(const CVidParamTimingGeneric& oFirst, const CVidParamTimingGeneric& oSecond)
{
    return memcmp(&oFirst.GetData(), &oSecond.GetData(), sizeof(SVidParamGenericData)) == 0;
}

const char* GetTypeName(CVidParamTiming::EVidParamType eType)
{
    switch (eType)
    {
    case CVidParamTiming::eVidParamType_Dmt:
        return "dmt";
    case CVidParamTiming::eVidParamType_DmtReducedBlanking:
        return "dmt-rb";
    case CVidParamTiming::eVidParamType_Cvt:
        return "cvt";
    case CVidParamTiming::eVidParamType_CvtReducedBlanking:
        return "cvt-rb";
    case CVidParamTiming::eVidParamType_Gtf:
        return "gtf";
    case CVidParamTiming::eVidParamType_Cea:
        return "cea";
    case CVidParamTiming::eVidParamType_Smpte:
        return "smpte";
    case CVidParamTiming::eVidParamType_Detailed:
        return "detailed";
    default:
        return nullptr;
    }
}

std::string GetVicsText(const SVics& oVics)
{
    std::string sText;
    for (const unsigned int uiCode : oVics.m_auiCodes)
    {
        sText += (sText.empty() ? "VIC " : "/") + std::to_string(uiCode);
    }
    return sText + (oVics.m_bVariant ? " at 1000/1001" : "");
}

unsigned int GetVerticalTotal(const CVidParamTimingGeneric& oTiming)
{
    const unsigned int uiTotal = oTiming.ComputeVerticalTotalLine();
    const unsigned long long ullWithout =
        1ULL * oTiming.ComputeHorizontalTotalPixel() * (uiTotal - 1) * oTiming.GetVerticalRateInHz();
    const bool bWithout = oTiming.IsInterlaced() != 0 && ullWithout != 0 && ullWithout == oTiming.GetPixelClockInHz();
    return bWithout ? uiTotal - 1 : uiTotal;
}

std::string GetModeline(const CVidParamTimingGeneric& oTiming)
{
    return GetModeline(oTiming, FormatText("%ux%u%s_%u", oTiming.GetHorizontalActive(), oTiming.GetVerticalActive(),
                                           oTiming.IsInterlaced() != 0 ? "i" : "", oTiming.GetVerticalRateInHz()));
}

std::string GetModeline(const CVidParamTimingGeneric& oTiming, const std::string& sName)
{
    const bool bInterlaced = oTiming.IsInterlaced() != 0;
    const unsigned int uiFields = bInterlaced ? 2 : 1;
    const unsigned int uiHorizontalStart = oTiming.GetHorizontalActive() + oTiming.GetHorizontalFrontPorch();
    const unsigned int uiHorizontalEnd = uiHorizontalStart + oTiming.GetHorizontalSync();
    const unsigned int uiHorizontalTotal = oTiming.ComputeHorizontalTotalPixel();
    const unsigned int uiVerticalStart = oTiming.GetVerticalActive() + uiFields * oTiming.GetVerticalFrontPorch();
    const unsigned int uiVerticalEnd = uiVerticalStart + uiFields * oTiming.GetVerticalSync();
    const unsigned int uiVerticalTotal = GetVerticalTotal(oTiming);
    if (uiHorizontalEnd > uiHorizontalTotal || uiVerticalEnd > uiVerticalTotal)
    {
        return "# " + sName + ": its sync ends after its total";
    }
    return FormatText("Modeline \"%s\" %s %u %u %u %u %u %u %u %u %chsync %cvsync%s", sName.c_str(),
                      GetMegaHertzText(oTiming.GetPixelClockInHz(), 2).c_str(), oTiming.GetHorizontalActive(),
                      uiHorizontalStart, uiHorizontalEnd, uiHorizontalTotal, oTiming.GetVerticalActive(),
                      uiVerticalStart, uiVerticalEnd, uiVerticalTotal,
                      oTiming.IsHorizontalPolarityPositive() != 0 ? '+' : '-',
                      oTiming.IsVerticalPolarityPositive() != 0 ? '+' : '-', bInterlaced ? " Interlace" : "");
}
