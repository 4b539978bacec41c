// A timing that notes the order in which it is written.

#pragma once

#include <string>
#include <vector>

#include "VidParamTimingGeneric.h"

// Names of setters.
using CCallNames = std::vector<std::string>;

// Keeps the names of its setters in the order of the calls, and has the overscan that no storage class has.
class CRecordingTiming : public CVidParamTimingGeneric
{
public:
    using Base = CVidParamTimingGeneric;
    using CVidParamTiming::operator=;

    CCallNames m_asCalls;

    unsigned int GetHorizontalOverscan() const override { return 1000; }
    unsigned int GetVerticalOverscan() const override { return 100; }

    void ClearData() override
    {
        Note("ClearData", 0);
        Base::ClearData();
    }
    void SetHorizontalActive(unsigned int ui) override { Base::SetHorizontalActive(Note("HActive", ui)); }
    void SetVerticalActive(unsigned int ui) override { Base::SetVerticalActive(Note("VActive", ui)); }
    void SetPixelClockInHz(unsigned int ui) override { Base::SetPixelClockInHz(Note("ClockHz", ui)); }
    void SetPixelClockInKiloHz(unsigned int ui) override { Base::SetPixelClockInKiloHz(Note("ClockKiloHz", ui)); }
    void SetHorizontalRateInHz(unsigned int ui) override { Base::SetHorizontalRateInHz(Note("HRateHz", ui)); }
    void SetHorizontalRateInKiloHz(unsigned int ui) override
    {
        Base::SetHorizontalRateInKiloHz(Note("HRateKiloHz", ui));
    }
    void SetHorizontalFrontPorch(unsigned int ui) override { Base::SetHorizontalFrontPorch(Note("HFront", ui)); }
    void SetHorizontalSync(unsigned int ui) override { Base::SetHorizontalSync(Note("HSync", ui)); }
    void SetHorizontalBackPorch(unsigned int ui) override { Base::SetHorizontalBackPorch(Note("HBack", ui)); }
    void SetHorizontalPolarityPositive(int b) override { Base::SetHorizontalPolarityPositive(Note("HPolarity", b)); }
    void SetVerticalRateInHz(unsigned int ui) override { Base::SetVerticalRateInHz(Note("VRate", ui)); }
    void SetVerticalFrontPorch(unsigned int ui) override { Base::SetVerticalFrontPorch(Note("VFront", ui)); }
    void SetVerticalSync(unsigned int ui) override { Base::SetVerticalSync(Note("VSync", ui)); }
    void SetVerticalBackPorch(unsigned int ui) override { Base::SetVerticalBackPorch(Note("VBack", ui)); }
    void SetVerticalPolarityPositive(int b) override { Base::SetVerticalPolarityPositive(Note("VPolarity", b)); }
    void SetInterlaced(int b) override { Base::SetInterlaced(Note("Interlaced", b)); }
    void Set420ColorSpace(int b) override { Base::Set420ColorSpace(Note("420", b)); }
    void Set3D(int b) override { Base::Set3D(Note("3D", b)); }
    void SetVideoFamilyType(EVidParamType e) override { Base::SetVideoFamilyType(Note("Type", e)); }

private:
    template <class VALUE>
    VALUE Note(const char* pszName, VALUE value)
    {
        m_asCalls.emplace_back(pszName);
        return value;
    }
};
