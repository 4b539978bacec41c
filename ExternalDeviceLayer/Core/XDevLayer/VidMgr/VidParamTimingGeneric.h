/// The library's own timing value, clocks and rates in hertz: the element of mode lists, timing arrays and reports.
/// Units of all accessors as in VidParamTiming.h.

#pragma once

#include "VidParamTiming.h"
#include "ZorMFCTypes/CMArray.h"

#pragma GCC visibility push(default)

/// The record of CVidParamTimingGeneric. Plain data: all zero is the empty timing.
struct SVidParamGenericData
{
    unsigned int uiHorizontalActive;
    unsigned int uiVerticalActive;
    unsigned int uiVerticalRateInHz;
    unsigned int uiHorizontalRateInHz;
    unsigned int uiPixelClockInHz;
    unsigned int uiHorizontalFrontPorch;
    unsigned int uiHorizontalSync;
    unsigned int uiHorizontalBackPorch;
    unsigned int uiVerticalFrontPorch;
    unsigned int uiVerticalSync;
    unsigned int uiVerticalBackPorch;
    unsigned int uiFlags; ///< CVidParamTimingGeneric::EFlag
    CVidParamTiming::EVidParamType eVideoFamilyType;
};
static_assert(sizeof(SVidParamGenericData) == 52, "thirteen 32-bit fields");

/// Accessors are inline: out of line they took 26 % of the instructions of a walk over an EDID's timings.
class CVidParamTimingGeneric : public CVidParamTiming
{
public:
    /// Bits of SVidParamGenericData::uiFlags.
    enum EFlag : unsigned int
    {
        eFlag_Interlaced = 1U << 0,
        eFlag_BottomFieldFirst = 1U << 1, ///< no accessor; comes in only with a record
        eFlag_HorizontalPositive = 1U << 2,
        eFlag_VerticalPositive = 1U << 3,
        eFlag_420ColorSpace = 1U << 4,
        eFlag_3D = 1U << 5,
    };

    CVidParamTimingGeneric() noexcept : m_oData{} {} ///< an empty timing, all zero
    explicit CVidParamTimingGeneric(const SVidParamGenericData& oData) : m_oData(oData) {}
    CVidParamTimingGeneric(const CVidParamTimingGeneric& oOther) = default;
    ~CVidParamTimingGeneric() override { CVidParamTimingGeneric::ClearData(); }

    /// Copies the record exactly, the flag without accessor included.
    CVidParamTimingGeneric& operator=(const CVidParamTimingGeneric& oOther)
    {
        // The record and nothing else, the bit without accessor too: what the field-wise base assignment would write
        // first is overwritten whole (it took 46 % of the instructions of extracting modes).
        m_oData = oOther.m_oData;
        return *this;
    }
    /// From any timing, field by field.
    using CVidParamTiming::operator=;

    /// The record itself.
    const SVidParamGenericData& GetData() const { return m_oData; }
    SVidParamGenericData& GetData() { return m_oData; }

    /// Zeroes the whole record, source and flags included.
    void ClearData() override { m_oData = SVidParamGenericData{}; }

    unsigned int GetHorizontalActive() const override { return m_oData.uiHorizontalActive; }
    unsigned int GetVerticalActive() const override { return m_oData.uiVerticalActive; }
    /// Flag getters give 0 or 1.
    int IsInterlaced() const override { return IsFlagSet(eFlag_Interlaced) ? 1 : 0; }
    int Is420ColorSpace() const override { return IsFlagSet(eFlag_420ColorSpace) ? 1 : 0; }
    int Is3D() const override { return IsFlagSet(eFlag_3D) ? 1 : 0; }
    unsigned int GetPixelClockInHz() const override { return m_oData.uiPixelClockInHz; }
    unsigned int GetPixelClockInKiloHz() const override { return m_oData.uiPixelClockInHz / msc_uiHzPerKiloHz; }
    unsigned int GetHorizontalRateInHz() const override { return m_oData.uiHorizontalRateInHz; }
    unsigned int GetHorizontalRateInKiloHz() const override { return m_oData.uiHorizontalRateInHz / msc_uiHzPerKiloHz; }
    unsigned int GetHorizontalFrontPorch() const override { return m_oData.uiHorizontalFrontPorch; }
    unsigned int GetHorizontalSync() const override { return m_oData.uiHorizontalSync; }
    unsigned int GetHorizontalBackPorch() const override { return m_oData.uiHorizontalBackPorch; }
    unsigned int GetHorizontalOverscan() const override { return 0; }
    int IsHorizontalPolarityPositive() const override { return IsFlagSet(eFlag_HorizontalPositive) ? 1 : 0; }
    unsigned int GetVerticalRateInHz() const override { return m_oData.uiVerticalRateInHz; }
    unsigned int GetVerticalFrontPorch() const override { return m_oData.uiVerticalFrontPorch; }
    unsigned int GetVerticalSync() const override { return m_oData.uiVerticalSync; }
    unsigned int GetVerticalBackPorch() const override { return m_oData.uiVerticalBackPorch; }
    int IsVerticalPolarityPositive() const override { return IsFlagSet(eFlag_VerticalPositive) ? 1 : 0; }
    unsigned int GetVerticalOverscan() const override { return 0; }
    EVidParamType GetVideoFamilyType() const override { return m_oData.eVideoFamilyType; }

    void SetHorizontalActive(unsigned int uiPixels) override { m_oData.uiHorizontalActive = uiPixels; }
    void SetVerticalActive(unsigned int uiLines) override { m_oData.uiVerticalActive = uiLines; }
    void SetPixelClockInHz(unsigned int uiHz) override { m_oData.uiPixelClockInHz = uiHz; }
    /// Stores the product with 1000, wrapped to 32 bits.
    void SetPixelClockInKiloHz(unsigned int uiKiloHz) override
    {
        m_oData.uiPixelClockInHz = uiKiloHz * msc_uiHzPerKiloHz;
    }
    void SetHorizontalRateInHz(unsigned int uiHz) override { m_oData.uiHorizontalRateInHz = uiHz; }
    /// As the clock.
    void SetHorizontalRateInKiloHz(unsigned int uiKiloHz) override
    {
        m_oData.uiHorizontalRateInHz = uiKiloHz * msc_uiHzPerKiloHz;
    }
    void SetHorizontalFrontPorch(unsigned int uiPixels) override { m_oData.uiHorizontalFrontPorch = uiPixels; }
    void SetHorizontalSync(unsigned int uiPixels) override { m_oData.uiHorizontalSync = uiPixels; }
    void SetHorizontalBackPorch(unsigned int uiPixels) override { m_oData.uiHorizontalBackPorch = uiPixels; }
    /// Flag setters look at bit 0 of their argument alone: 2 clears the flag.
    void SetHorizontalPolarityPositive(int bPositive) override { SetFlag(eFlag_HorizontalPositive, bPositive); }
    void SetVerticalRateInHz(unsigned int uiHz) override { m_oData.uiVerticalRateInHz = uiHz; }
    void SetVerticalFrontPorch(unsigned int uiLines) override { m_oData.uiVerticalFrontPorch = uiLines; }
    void SetVerticalSync(unsigned int uiLines) override { m_oData.uiVerticalSync = uiLines; }
    void SetVerticalBackPorch(unsigned int uiLines) override { m_oData.uiVerticalBackPorch = uiLines; }
    void SetVerticalPolarityPositive(int bPositive) override { SetFlag(eFlag_VerticalPositive, bPositive); }
    void SetInterlaced(int bInterlaced) override { SetFlag(eFlag_Interlaced, bInterlaced); }
    void Set420ColorSpace(int b420) override { SetFlag(eFlag_420ColorSpace, b420); }
    void Set3D(int b3D) override { SetFlag(eFlag_3D, b3D); }
    void SetVideoFamilyType(EVidParamType eType) override { m_oData.eVideoFamilyType = eType; }

    /// Virtual here, over the plain operations of the same name in the base: the same numbers either way.
    virtual unsigned int GetHorizontalTotal() const;
    virtual unsigned int GetVerticalTotal() const;
    virtual int IsOverscan() const; ///< 0

private:
    bool IsFlagSet(EFlag eFlag) const { return (m_oData.uiFlags & eFlag) != 0; }
    void SetFlag(EFlag eFlag, int bSet) { m_oData.uiFlags = WithFlag(m_oData.uiFlags, eFlag, bSet); }

    SVidParamGenericData m_oData;
};

/// Numbers only, beside the pointer to the virtual operations: the bytes are as good in another place.
template <>
inline constexpr bool gsc_bByteRelocatable<CVidParamTimingGeneric> = true;

#pragma GCC visibility pop
