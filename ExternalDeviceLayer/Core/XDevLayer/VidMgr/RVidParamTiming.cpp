// The timing value in kilohertz: what is more than reading or writing one field.

#include "RVidParamTiming.h"

#include "ZorTools.h"

namespace
{
// The two enumerations share their numbers; true for those that this interface knows.
constexpr bool IsKnownFamily(unsigned int uiNumber)
{
    return uiNumber <= eRVideoFamily_Cea || uiNumber == eRVideoFamily_Smpte;
}
} // namespace

CRVidParamTiming::CRVidParamTiming() : m_bIs420ColorSpace(0), m_bIs3D(0), m_oVidParam{}, m_eFamily(eRVideoFamily_None)
{
}

CRVidParamTiming::CRVidParamTiming(const tagRVideo_VidParam& oVidParam, RVideo_VidParamFamily eFamily)
    : m_bIs420ColorSpace(0), m_bIs3D(0), m_oVidParam(oVidParam), m_eFamily(eFamily)
{
}

CRVidParamTiming::~CRVidParamTiming() { CRVidParamTiming::ClearData(); }

CRVidParamTiming& CRVidParamTiming::operator=(const CRVidParamTiming& oOther)
{
    // Exact copies, without the field-wise base assignment, which goes through hertz and would be overwritten whole.
    m_bIs420ColorSpace = oOther.m_bIs420ColorSpace;
    m_bIs3D = oOther.m_bIs3D;
    m_oVidParam = oOther.m_oVidParam;
    m_eFamily = oOther.m_eFamily;
    return *this;
}

void CRVidParamTiming::ClearData()
{
    m_oVidParam = tagRVideo_VidParam{};
    m_eFamily = eRVideoFamily_None;
}

unsigned int CRVidParamTiming::GetPixelClockInHz() const
{
    return m_oVidParam.uiPixelClockInKiloHz * msc_uiHzPerKiloHz;
}

unsigned int CRVidParamTiming::GetHorizontalRateInHz() const
{
    return m_oVidParam.uiHorizontalRateInKiloHz * msc_uiHzPerKiloHz;
}

CVidParamTiming::EVidParamType CRVidParamTiming::GetVideoFamilyType() const
{
    const unsigned int uiNumber = static_cast<unsigned int>(m_eFamily); // Unknown is far above the known ones
    return IsKnownFamily(uiNumber) ? static_cast<EVidParamType>(uiNumber) : eVidParamType_Unknown;
}

void CRVidParamTiming::SetPixelClockInHz(unsigned int uiHz)
{
    m_oVidParam.uiPixelClockInKiloHz = ZorTools_RoundedDivision(uiHz, msc_uiHzPerKiloHz);
}

void CRVidParamTiming::SetHorizontalRateInHz(unsigned int uiHz)
{
    m_oVidParam.uiHorizontalRateInKiloHz = ZorTools_RoundedDivision(uiHz, msc_uiHzPerKiloHz);
}

void CRVidParamTiming::SetVideoFamilyType(EVidParamType eType)
{
    m_eFamily = IsKnownFamily(eType) ? static_cast<RVideo_VidParamFamily>(eType) : eRVideoFamily_Unknown;
}

int CRVidParamTiming::IsOverscan() const { return 0; }
