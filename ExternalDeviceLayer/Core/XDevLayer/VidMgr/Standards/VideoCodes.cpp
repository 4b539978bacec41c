// Names of video codes, made by the compiler from the numbers.

#include "VideoCodes.h"

#include <array>

namespace ZorStandards
{
namespace
{
constexpr size_t gsc_uiNameSize = 52; // the longest name and its NUL

struct SCodeName
{
    CName<gsc_uiNameSize> m_sText;
    unsigned int m_uiFormat; // where the format begins, after the code
};

constexpr void AddFormat(CName<gsc_uiNameSize>& sName, const SVideoCode& oCode, bool bFraction)
{
    const SPublishedTiming& oTiming = oCode.m_oTiming;
    sName << oTiming.m_ui16Width / (0U + oCode.m_ui8Repetition);
    if (oCode.m_ui8Repetition > 1)
    {
        sName << "(" << oTiming.m_ui16Width << ")";
    }
    sName << "x" << oTiming.m_ui16Height << (oTiming.IsInterlaced() ? "i " : "p ");
    if (bFraction)
    {
        sName.AddHundredths(GetFractionInHundredths(oTiming.m_ui8Rate)) << "/";
    }
    sName << oTiming.m_ui8Rate << " Hz " << oCode.m_oAspect.m_uiWidth << ":" << oCode.m_oAspect.m_uiHeight;
}

constexpr auto MakeCodeNames()
{
    std::array<SCodeName, std::size(gsc_aoVideoCodes)> aoNames = {};
    for (size_t i = 0; i < aoNames.size(); ++i)
    {
        CName<gsc_uiNameSize>& sText = aoNames[i].m_sText;
        sText << "Video code " << gsc_aoVideoCodes[i].m_ui8Code << ", ";
        aoNames[i].m_uiFormat = sText.GetLength();
        AddFormat(sText, gsc_aoVideoCodes[i], gsc_aoVideoCodes[i].m_bFraction);
    }
    return aoNames;
}
constexpr auto gsc_asCodeNames = MakeCodeNames();

constexpr auto MakeHdmiNames()
{
    std::array<CName<gsc_uiNameSize>, std::size(gsc_aoHdmiCodes)> asNames = {};
    for (size_t i = 0; i < asNames.size(); ++i)
    {
        AddFormat(asNames[i], *FindVideoCode(gsc_aoHdmiCodes[i].m_ui8VideoCode), gsc_aoHdmiCodes[i].m_bFraction);
    }
    return asNames;
}
constexpr auto gsc_asHdmiNames = MakeHdmiNames();

constexpr auto MakeResolutionNames()
{
    std::array<CName<gsc_uiNameSize>, gsc_uiFormatResolutions> asNames = {};
    for (size_t i = 0; i < asNames.size(); ++i)
    {
        const SFormatResolution& oResolution = gsc_aoFormatResolutions[i];
        asNames[i] << oResolution.m_ui16Width << "x" << oResolution.m_ui16Height << " "
                   << oResolution.m_oAspect.m_uiWidth << ":" << oResolution.m_oAspect.m_uiHeight;
    }
    return asNames;
}
constexpr auto gsc_asResolutionNames = MakeResolutionNames();

const SCodeName* FindName(unsigned int uiCode)
{
    const SVideoCode* poCode = FindVideoCode(uiCode);
    return poCode != nullptr ? &gsc_asCodeNames[static_cast<size_t>(poCode - gsc_aoVideoCodes)] : nullptr;
}
} // namespace

const char* GetVideoCodeName(unsigned int uiCode)
{
    const SCodeName* poName = FindName(uiCode);
    return poName != nullptr ? poName->m_sText.GetText() : nullptr;
}

const char* GetVideoFormatName(unsigned int uiCode)
{
    const SCodeName* poName = FindName(uiCode);
    return poName != nullptr ? poName->m_sText.GetText() + poName->m_uiFormat : nullptr;
}

const char* GetFormatResolutionName(unsigned int uiResolution) { return gsc_asResolutionNames[uiResolution].GetText(); }

const char* GetHdmiCodeName(unsigned int uiCode)
{
    return FindHdmiCode(uiCode) != nullptr ? gsc_asHdmiNames[uiCode - 1].GetText() : nullptr;
}
} // namespace ZorStandards
