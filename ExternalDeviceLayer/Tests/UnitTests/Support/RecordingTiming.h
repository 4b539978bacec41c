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
    static constexpr unsigned int msc_uiHorizontalOverscan = 1000;
    static constexpr unsigned int msc_uiVerticalOverscan = 100;

    using CVidParamTimingGeneric::CVidParamTimingGeneric;
    using CVidParamTiming::operator=;

    CCallNames m_asCalls;

    unsigned int GetHorizontalOverscan() const override { return msc_uiHorizontalOverscan; }
    unsigned int GetVerticalOverscan() const override { return msc_uiVerticalOverscan; }

    // clang-format off
    void ClearData() override { Note("ClearData"); CVidParamTimingGeneric::ClearData(); }
    void SetHorizontalActive(unsigned int ui) override { Note("HActive"); CVidParamTimingGeneric::SetHorizontalActive(ui); }
    void SetVerticalActive(unsigned int ui) override { Note("VActive"); CVidParamTimingGeneric::SetVerticalActive(ui); }
    void SetPixelClockInHz(unsigned int ui) override { Note("ClockHz"); CVidParamTimingGeneric::SetPixelClockInHz(ui); }
    void SetPixelClockInKiloHz(unsigned int ui) override { Note("ClockKiloHz"); CVidParamTimingGeneric::SetPixelClockInKiloHz(ui); }
    void SetHorizontalRateInHz(unsigned int ui) override { Note("HRateHz"); CVidParamTimingGeneric::SetHorizontalRateInHz(ui); }
    void SetHorizontalRateInKiloHz(unsigned int ui) override { Note("HRateKiloHz"); CVidParamTimingGeneric::SetHorizontalRateInKiloHz(ui); }
    void SetHorizontalFrontPorch(unsigned int ui) override { Note("HFront"); CVidParamTimingGeneric::SetHorizontalFrontPorch(ui); }
    void SetHorizontalSync(unsigned int ui) override { Note("HSync"); CVidParamTimingGeneric::SetHorizontalSync(ui); }
    void SetHorizontalBackPorch(unsigned int ui) override { Note("HBack"); CVidParamTimingGeneric::SetHorizontalBackPorch(ui); }
    void SetHorizontalPolarityPositive(int b) override { Note("HPolarity"); CVidParamTimingGeneric::SetHorizontalPolarityPositive(b); }
    void SetVerticalRateInHz(unsigned int ui) override { Note("VRate"); CVidParamTimingGeneric::SetVerticalRateInHz(ui); }
    void SetVerticalFrontPorch(unsigned int ui) override { Note("VFront"); CVidParamTimingGeneric::SetVerticalFrontPorch(ui); }
    void SetVerticalSync(unsigned int ui) override { Note("VSync"); CVidParamTimingGeneric::SetVerticalSync(ui); }
    void SetVerticalBackPorch(unsigned int ui) override { Note("VBack"); CVidParamTimingGeneric::SetVerticalBackPorch(ui); }
    void SetVerticalPolarityPositive(int b) override { Note("VPolarity"); CVidParamTimingGeneric::SetVerticalPolarityPositive(b); }
    void SetInterlaced(int b) override { Note("Interlaced"); CVidParamTimingGeneric::SetInterlaced(b); }
    void Set420ColorSpace(int b) override { Note("420"); CVidParamTimingGeneric::Set420ColorSpace(b); }
    void Set3D(int b) override { Note("3D"); CVidParamTimingGeneric::Set3D(b); }
    void SetVideoFamilyType(EVidParamType e) override { Note("Type"); CVidParamTimingGeneric::SetVideoFamilyType(e); }
    // clang-format on

private:
    void Note(const char* pszName) { m_asCalls.emplace_back(pszName); }
};
