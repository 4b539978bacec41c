/// One video timing as everybody sees it: geometry, rates, clock, polarities, source.
///
/// Producers (tables, formulas, EDID descriptors) write through this interface and consumers read through it; how the
/// values are stored is the business of CVidParamTimingGeneric (hertz) and CRVidParamTiming (kilohertz). A producer
/// writes the record of a plain CVidParamTimingGeneric directly, and asks `typeid` for the exact class; a class derived
/// from a timing is therefore compiled with RTTI.
///
/// Units, for every accessor: active sizes, porches, syncs and totals in pixels (horizontal) or lines (vertical);
/// clocks and rates in hertz or kilohertz as the name says, whole numbers over the whole unsigned 32-bit range; flags 0
/// or not 0. Of an interlaced mode the vertical active size is the height of the frame, the vertical porches and sync
/// are those of one field, and the vertical rate is the frame rate (1080i at 60 fields a second: 1080 lines, 30 Hz).
///
/// Sums and products wrap at 32 bits; a division by zero gives 0. Nothing here fails, reports or allocates.

#pragma once

#include "ZorTools.h"

#pragma GCC visibility push(default)

class CVidParamTiming
{
public:
    /// Where a timing came from. 7 to 15 are not used.
    enum EVidParamType : unsigned int
    {
        eVidParamType_None = 0, ///< nothing set, a cleared record
        eVidParamType_Dmt = 1,
        eVidParamType_DmtReducedBlanking = 2,
        eVidParamType_Cvt = 3,
        eVidParamType_CvtReducedBlanking = 4,
        eVidParamType_Gtf = 5,
        eVidParamType_Cea = 6,
        eVidParamType_Smpte = 16,
        eVidParamType_Detailed = 32, ///< EDID detailed descriptor or DisplayID detailed timing
        eVidParamType_Unknown = 255, ///< a storage that has no number for the source
    };

    /// The order of the virtual operations is the order of their slots; append only.

    virtual ~CVidParamTiming() = 0;

    /// Resets the record to zero; each storage class says what it keeps beyond its record.
    virtual void ClearData() = 0;

    virtual unsigned int GetHorizontalActive() const = 0;
    virtual unsigned int GetVerticalActive() const = 0;
    virtual int IsInterlaced() const = 0;
    virtual int Is420ColorSpace() const = 0;
    virtual int Is3D() const = 0;
    virtual unsigned int GetPixelClockInHz() const = 0;
    virtual unsigned int GetPixelClockInKiloHz() const = 0;

    /// The clock that the link runs at: 4:2:0 halves the stored clock (truncating), 3D doubles it, both leave it.
    virtual unsigned int GetEffectivePixelClockInHz() const;
    virtual unsigned int GetEffectivePixelClockInKiloHz() const;

    virtual unsigned int GetHorizontalRateInHz() const = 0;
    virtual unsigned int GetHorizontalRateInKiloHz() const = 0;
    virtual unsigned int GetHorizontalFrontPorch() const = 0;
    virtual unsigned int GetHorizontalSync() const = 0;
    virtual unsigned int GetHorizontalBackPorch() const = 0;
    virtual unsigned int GetHorizontalOverscan() const = 0; ///< 0 in both storage classes
    virtual int IsHorizontalPolarityPositive() const = 0;
    virtual unsigned int GetVerticalRateInHz() const = 0;
    virtual unsigned int GetVerticalFrontPorch() const = 0;
    virtual unsigned int GetVerticalSync() const = 0;
    virtual unsigned int GetVerticalBackPorch() const = 0;
    virtual int IsVerticalPolarityPositive() const = 0;
    virtual unsigned int GetVerticalOverscan() const = 0; ///< 0 in both storage classes
    virtual EVidParamType GetVideoFamilyType() const = 0;

    /// The static forms below, applied to this timing's own values. The rates are worked from the clock and the totals,
    /// not read from the stored rates.
    virtual unsigned int ComputeHorizontalTotalPixel() const;
    virtual unsigned int ComputeVerticalTotalLine() const;
    virtual unsigned int ComputeHorizontalRateInHz() const;
    virtual unsigned int ComputeHorizontalRateInKiloHz() const;
    virtual unsigned int ComputeVerticalRateInHz() const;

    virtual void SetHorizontalActive(unsigned int uiPixels) = 0;
    virtual void SetVerticalActive(unsigned int uiLines) = 0;
    virtual void SetPixelClockInHz(unsigned int uiHz) = 0;
    virtual void SetPixelClockInKiloHz(unsigned int uiKiloHz) = 0;
    virtual void SetHorizontalRateInHz(unsigned int uiHz) = 0;
    virtual void SetHorizontalRateInKiloHz(unsigned int uiKiloHz) = 0;
    virtual void SetHorizontalFrontPorch(unsigned int uiPixels) = 0;
    virtual void SetHorizontalSync(unsigned int uiPixels) = 0;
    virtual void SetHorizontalBackPorch(unsigned int uiPixels) = 0;
    virtual void SetHorizontalPolarityPositive(int bPositive) = 0;
    virtual void SetVerticalRateInHz(unsigned int uiHz) = 0;
    virtual void SetVerticalFrontPorch(unsigned int uiLines) = 0;
    virtual void SetVerticalSync(unsigned int uiLines) = 0;
    virtual void SetVerticalBackPorch(unsigned int uiLines) = 0;
    virtual void SetVerticalPolarityPositive(int bPositive) = 0;
    virtual void SetInterlaced(int bInterlaced) = 0;
    virtual void Set420ColorSpace(int b420) = 0;
    virtual void Set3D(int b3D) = 0;
    virtual void SetVideoFamilyType(EVidParamType eType) = 0;

    /// Copies field by field, through the getters of oOther and the setters of this object, clocks and line rate in
    /// hertz: between the two storage classes their conversions apply. Assigning an object to itself changes nothing.
    virtual CVidParamTiming& operator=(const CVidParamTiming& oOther);

    /// Totals, active plus blanking.
    unsigned int GetHorizontalTotal() const;
    unsigned int GetVerticalTotal() const;

    /// Whether a clock counts as this timing's own within the spread of the 1000/1001 variants and of rounding: 0.10 %
    /// up to 75,000 kHz inclusive, 0.50 % above, judged by THIS object's clock and compared on truncated kilohertz, so
    /// near 75,000 kHz the answer may depend on which side is asked. Zero equals only zero. The kilohertz form takes
    /// the clock times 1000 at 32 bits. Give 1 or 0.
    int IsPixelClockInHzEquivalent(unsigned int uiPixelClockInHz) const;
    int IsPixelClockInKiloHzEquivalent(unsigned int uiPixelClockInKiloHz) const;

    /// Tolerant equality, 1 or 0: geometry, scan, vertical rate, 4:2:0 and 3D exactly, the line rate within 1 kHz, the
    /// clock by the equivalence above asked of this object. Polarities, source, overscan and the line rate in hertz do
    /// not count, so timings of different origin and storage are equal when their geometry agrees.
    int operator==(const CVidParamTiming& oOther) const;
    int operator!=(const CVidParamTiming& oOther) const;

    /// The one formula for each derived value. Mind the order of arguments: the horizontal total takes the sync before
    /// the front porch, the vertical total the front porch before the sync.
    static unsigned int ComputeHorizontalTotalPixel(unsigned int uiActive, unsigned int uiSync,
                                                    unsigned int uiFrontPorch, unsigned int uiBackPorch,
                                                    unsigned int uiOverscan);
    /// bInterlaced: the blanking counts twice, plus the half line of each field: 1080 with 2, 5 and 15 gives 1125.
    static unsigned int ComputeVerticalTotalLine(unsigned int uiActive, unsigned int uiFrontPorch, unsigned int uiSync,
                                                 unsigned int uiBackPorch, unsigned int uiOverscan, int bInterlaced);
    /// Rounded to the nearest, half up; 0 for a total of 0. The vertical rate of an interlaced mode is its frame rate.
    static unsigned int ComputeHorizontalRateInHz(unsigned int uiHorizontalTotal, unsigned int uiPixelClockInHz);
    static unsigned int ComputeHorizontalRateInKiloHz(unsigned int uiHorizontalTotal,
                                                      unsigned int uiPixelClockInKiloHz);
    static unsigned int ComputeVerticalRateInHz(unsigned int uiHorizontalTotal, unsigned int uiVerticalTotal,
                                                unsigned int uiPixelClockInHz);

protected:
    CVidParamTiming() = default;
    CVidParamTiming(const CVidParamTiming&) = default;

    static constexpr unsigned int msc_uiHzPerKiloHz = 1000;

    /// A flag word with the bit uiMask set or cleared by bit 0 of iValue; the other bits stay.
    static constexpr unsigned int WithFlag(unsigned int uiFlags, unsigned int uiMask, int iValue)
    {
        return (iValue & 1) != 0 ? uiFlags | uiMask : uiFlags & ~uiMask;
    }
};

// Inline: each timing that is produced goes through these, and a producer that knows the storage sees through them.
// Out of line they took 18 % of the instructions of a walk.

inline CVidParamTiming::~CVidParamTiming() = default;

inline unsigned int CVidParamTiming::ComputeHorizontalTotalPixel() const
{
    return ComputeHorizontalTotalPixel(GetHorizontalActive(), GetHorizontalSync(), GetHorizontalFrontPorch(),
                                       GetHorizontalBackPorch(), GetHorizontalOverscan());
}

inline unsigned int CVidParamTiming::ComputeVerticalTotalLine() const
{
    return ComputeVerticalTotalLine(GetVerticalActive(), GetVerticalFrontPorch(), GetVerticalSync(),
                                    GetVerticalBackPorch(), GetVerticalOverscan(), IsInterlaced());
}

inline unsigned int CVidParamTiming::ComputeHorizontalRateInHz() const
{
    return ComputeHorizontalRateInHz(ComputeHorizontalTotalPixel(), GetPixelClockInHz());
}

inline unsigned int CVidParamTiming::ComputeHorizontalRateInKiloHz() const
{
    return ComputeHorizontalRateInKiloHz(ComputeHorizontalTotalPixel(), GetPixelClockInKiloHz());
}

inline unsigned int CVidParamTiming::ComputeVerticalRateInHz() const
{
    const unsigned int uiVerticalTotal = ComputeVerticalTotalLine();
    const unsigned int uiHorizontalTotal = ComputeHorizontalTotalPixel();
    return ComputeVerticalRateInHz(uiHorizontalTotal, uiVerticalTotal, GetPixelClockInHz());
}

inline unsigned int CVidParamTiming::ComputeHorizontalTotalPixel(unsigned int uiActive, unsigned int uiSync,
                                                                 unsigned int uiFrontPorch, unsigned int uiBackPorch,
                                                                 unsigned int uiOverscan)
{
    return uiActive + uiSync + uiFrontPorch + uiBackPorch + uiOverscan;
}

inline unsigned int CVidParamTiming::ComputeVerticalTotalLine(unsigned int uiActive, unsigned int uiFrontPorch,
                                                              unsigned int uiSync, unsigned int uiBackPorch,
                                                              unsigned int uiOverscan, int bInterlaced)
{
    const unsigned int uiBlanking = uiFrontPorch + uiSync + uiBackPorch + uiOverscan;
    return bInterlaced != 0 ? uiActive + 2 * uiBlanking + 1 : uiActive + uiBlanking;
}

inline unsigned int CVidParamTiming::ComputeHorizontalRateInHz(unsigned int uiHorizontalTotal,
                                                               unsigned int uiPixelClockInHz)
{
    return ZorTools_RoundedDivision(uiPixelClockInHz, uiHorizontalTotal);
}

inline unsigned int CVidParamTiming::ComputeHorizontalRateInKiloHz(unsigned int uiHorizontalTotal,
                                                                   unsigned int uiPixelClockInKiloHz)
{
    return ZorTools_RoundedDivision(uiPixelClockInKiloHz, uiHorizontalTotal);
}

inline unsigned int CVidParamTiming::ComputeVerticalRateInHz(unsigned int uiHorizontalTotal,
                                                             unsigned int uiVerticalTotal,
                                                             unsigned int uiPixelClockInHz)
{
    return ZorTools_RoundedDivision(uiPixelClockInHz, uiHorizontalTotal * uiVerticalTotal);
}

#pragma GCC visibility pop
