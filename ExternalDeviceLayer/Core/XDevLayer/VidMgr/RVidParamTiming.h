/// The timing value of a video output interface, clocks and rates in kilohertz: the record of the expected-timing
/// tables. Units of all accessors as in VidParamTiming.h.

#pragma once

#include "VidParamTiming.h"

#pragma GCC visibility push(default)

/// A stored format of fourteen 32-bit words.
struct tagRVideo_VidParam
{
    unsigned int uiHorizontalActive;
    unsigned int uiVerticalActive;
    unsigned int uiVerticalRateInHz;
    unsigned int uiHorizontalRateInKiloHz;
    unsigned int uiPixelClockInKiloHz;
    unsigned int uiHorizontalFrontPorch;
    unsigned int uiHorizontalSync;
    unsigned int uiHorizontalBackPorch;
    unsigned int uiVerticalFrontPorch;
    unsigned int uiVerticalSync;
    unsigned int uiVerticalBackPorch;
    unsigned int uiFlags;        ///< CRVidParamTiming::EFlag
    unsigned int auiReserved[2]; ///< zero
};
static_assert(sizeof(tagRVideo_VidParam) == 56, "fourteen words of a stored format");

/// Where a timing came from: the numbers of CVidParamTiming::EVidParamType that this interface knows.
enum RVideo_VidParamFamily : int
{
    eRVideoFamily_Unknown = -1,
    eRVideoFamily_None = 0,
    eRVideoFamily_Dmt = 1,
    eRVideoFamily_DmtReducedBlanking = 2,
    eRVideoFamily_Cvt = 3,
    eRVideoFamily_CvtReducedBlanking = 4,
    eRVideoFamily_Gtf = 5,
    eRVideoFamily_Cea = 6,
    eRVideoFamily_Smpte = 16,
};

class CRVidParamTiming : public CVidParamTiming
{
public:
    /// Bits of tagRVideo_VidParam::uiFlags.
    enum EFlag : unsigned int
    {
        eFlag_Interlaced = 1U << 0,
        eFlag_BottomFieldFirst = 1U << 1,
        eFlag_HorizontalPositive = 1U << 2,
        eFlag_VerticalPositive = 1U << 3,
    };

    CRVidParamTiming(); ///< an empty timing, all zero
    CRVidParamTiming(const tagRVideo_VidParam& oVidParam, RVideo_VidParamFamily eFamily);
    CRVidParamTiming(const CRVidParamTiming& oOther) = default;
    ~CRVidParamTiming() override;

    /// Copies everything exactly: record, family, 4:2:0 and 3D.
    CRVidParamTiming& operator=(const CRVidParamTiming& oOther);
    /// From any timing, field by field; bottom field first stays.
    using CVidParamTiming::operator=;

    /// The record itself.
    const tagRVideo_VidParam& GetRVideoVidParam() const { return m_oVidParam; }
    tagRVideo_VidParam& GetRVideoVidParam() { return m_oVidParam; }

    /// Which field of an interlaced mode comes first. The setter looks at bit 0 of its argument alone.
    int GetBottomFieldFirst() const { return IsFlagSet(eFlag_BottomFieldFirst) ? 1 : 0; }
    void SetBottomFieldFirst(int bBottomFieldFirst) { SetFlag(eFlag_BottomFieldFirst, bBottomFieldFirst); }

    /// Zeroes the record and the family. 4:2:0 and 3D are not part of the record and stay until they are set again.
    void ClearData() override;

    unsigned int GetHorizontalActive() const override { return m_oVidParam.uiHorizontalActive; }
    unsigned int GetVerticalActive() const override { return m_oVidParam.uiVerticalActive; }
    int IsInterlaced() const override { return IsFlagSet(eFlag_Interlaced) ? 1 : 0; }
    int Is420ColorSpace() const override { return m_bIs420ColorSpace; } ///< the value set, not only 0 or 1
    int Is3D() const override { return m_bIs3D; }                       ///< the value set, not only 0 or 1
    unsigned int GetPixelClockInHz() const override;                    ///< wraps to 32 bits
    unsigned int GetPixelClockInKiloHz() const override { return m_oVidParam.uiPixelClockInKiloHz; }
    unsigned int GetHorizontalRateInHz() const override; ///< wraps to 32 bits
    unsigned int GetHorizontalRateInKiloHz() const override { return m_oVidParam.uiHorizontalRateInKiloHz; }
    unsigned int GetHorizontalFrontPorch() const override { return m_oVidParam.uiHorizontalFrontPorch; }
    unsigned int GetHorizontalSync() const override { return m_oVidParam.uiHorizontalSync; }
    unsigned int GetHorizontalBackPorch() const override { return m_oVidParam.uiHorizontalBackPorch; }
    unsigned int GetHorizontalOverscan() const override { return 0; }
    int IsHorizontalPolarityPositive() const override { return IsFlagSet(eFlag_HorizontalPositive) ? 1 : 0; }
    unsigned int GetVerticalRateInHz() const override { return m_oVidParam.uiVerticalRateInHz; }
    unsigned int GetVerticalFrontPorch() const override { return m_oVidParam.uiVerticalFrontPorch; }
    unsigned int GetVerticalSync() const override { return m_oVidParam.uiVerticalSync; }
    unsigned int GetVerticalBackPorch() const override { return m_oVidParam.uiVerticalBackPorch; }
    int IsVerticalPolarityPositive() const override { return IsFlagSet(eFlag_VerticalPositive) ? 1 : 0; }
    unsigned int GetVerticalOverscan() const override { return 0; }
    /// eVidParamType_Unknown for a family without a number here, eVidParamType_Detailed among them.
    EVidParamType GetVideoFamilyType() const override;

    void SetHorizontalActive(unsigned int uiPixels) override { m_oVidParam.uiHorizontalActive = uiPixels; }
    void SetVerticalActive(unsigned int uiLines) override { m_oVidParam.uiVerticalActive = uiLines; }
    void SetPixelClockInHz(unsigned int uiHz) override; ///< rounds to the nearest kilohertz
    void SetPixelClockInKiloHz(unsigned int uiKiloHz) override { m_oVidParam.uiPixelClockInKiloHz = uiKiloHz; }
    void SetHorizontalRateInHz(unsigned int uiHz) override; ///< rounds to the nearest kilohertz
    void SetHorizontalRateInKiloHz(unsigned int uiKiloHz) override { m_oVidParam.uiHorizontalRateInKiloHz = uiKiloHz; }
    void SetHorizontalFrontPorch(unsigned int uiPixels) override { m_oVidParam.uiHorizontalFrontPorch = uiPixels; }
    void SetHorizontalSync(unsigned int uiPixels) override { m_oVidParam.uiHorizontalSync = uiPixels; }
    void SetHorizontalBackPorch(unsigned int uiPixels) override { m_oVidParam.uiHorizontalBackPorch = uiPixels; }
    /// Setters of interlace and polarities look at bit 0 of their argument alone: 2 clears the flag.
    void SetHorizontalPolarityPositive(int bPositive) override { SetFlag(eFlag_HorizontalPositive, bPositive); }
    void SetVerticalRateInHz(unsigned int uiHz) override { m_oVidParam.uiVerticalRateInHz = uiHz; }
    void SetVerticalFrontPorch(unsigned int uiLines) override { m_oVidParam.uiVerticalFrontPorch = uiLines; }
    void SetVerticalSync(unsigned int uiLines) override { m_oVidParam.uiVerticalSync = uiLines; }
    void SetVerticalBackPorch(unsigned int uiLines) override { m_oVidParam.uiVerticalBackPorch = uiLines; }
    void SetVerticalPolarityPositive(int bPositive) override { SetFlag(eFlag_VerticalPositive, bPositive); }
    void SetInterlaced(int bInterlaced) override { SetFlag(eFlag_Interlaced, bInterlaced); }
    void Set420ColorSpace(int b420) override { m_bIs420ColorSpace = b420; }
    void Set3D(int b3D) override { m_bIs3D = b3D; }
    /// A source without a number of its own here becomes eRVideoFamily_Unknown.
    void SetVideoFamilyType(EVidParamType eType) override;

    virtual int IsOverscan() const; ///< 0

private:
    bool IsFlagSet(EFlag eFlag) const { return (m_oVidParam.uiFlags & eFlag) != 0; }
    void SetFlag(EFlag eFlag, int bSet) { m_oVidParam.uiFlags = WithFlag(m_oVidParam.uiFlags, eFlag, bSet); }

    int m_bIs420ColorSpace;
    int m_bIs3D;
    tagRVideo_VidParam m_oVidParam;
    RVideo_VidParamFamily m_eFamily;
};

#pragma GCC visibility pop
