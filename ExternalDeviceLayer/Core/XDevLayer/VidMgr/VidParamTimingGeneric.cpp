// The timing value in hertz: what is more than reading or writing one field.

#include "VidParamTimingGeneric.h"

CVidParamTimingGeneric::CVidParamTimingGeneric() noexcept : m_oData{} {}

CVidParamTimingGeneric::CVidParamTimingGeneric(const SVidParamGenericData& oData) : m_oData(oData) {}

CVidParamTimingGeneric::~CVidParamTimingGeneric() { CVidParamTimingGeneric::ClearData(); }

CVidParamTimingGeneric& CVidParamTimingGeneric::operator=(const CVidParamTimingGeneric& oOther)
{
    // The record and nothing else, the bit without accessor too: what the field-wise base assignment would write first
    // is overwritten whole, and sorting a mode list consists of little but this.
    m_oData = oOther.m_oData;
    return *this;
}

void CVidParamTimingGeneric::ClearData() { m_oData = SVidParamGenericData{}; }

unsigned int CVidParamTimingGeneric::GetPixelClockInKiloHz() const
{
    return m_oData.uiPixelClockInHz / msc_uiHzPerKiloHz;
}

unsigned int CVidParamTimingGeneric::GetHorizontalRateInKiloHz() const
{
    return m_oData.uiHorizontalRateInHz / msc_uiHzPerKiloHz;
}

void CVidParamTimingGeneric::SetPixelClockInKiloHz(unsigned int uiKiloHz)
{
    m_oData.uiPixelClockInHz = uiKiloHz * msc_uiHzPerKiloHz;
}

void CVidParamTimingGeneric::SetHorizontalRateInKiloHz(unsigned int uiKiloHz)
{
    m_oData.uiHorizontalRateInHz = uiKiloHz * msc_uiHzPerKiloHz;
}

unsigned int CVidParamTimingGeneric::GetHorizontalTotal() const { return CVidParamTiming::GetHorizontalTotal(); }

unsigned int CVidParamTimingGeneric::GetVerticalTotal() const { return CVidParamTiming::GetVerticalTotal(); }

int CVidParamTimingGeneric::IsOverscan() const { return 0; }
