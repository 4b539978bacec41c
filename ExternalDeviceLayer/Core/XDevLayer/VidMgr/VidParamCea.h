/// The video modes of CTA-861 (as of CEA-861-F) by their video identification code (VIC): look-up by code, by size and
/// rate, and from a timing back to its code.
///
/// A key n + 1000 is the 1000/1001 variant of VIC n. Such keys exist only in this table, never in an EDID.
/// Searches are linear over constant rows, allocate nothing, and may run on several threads at once.

#pragma once

#pragma GCC visibility push(default)

class CVidParamTiming;

class CVidParamCea
{
public:
    /// Row filter. Any other value matches no row.
    enum EScanType : int
    {
        eScanTypeAny = -1,
        eScanTypeProgressive = 1,
        eScanTypeInterlaced = 2,
    };

    /// Pixels, lines, kHz, whole Hz (truncated: 59.94 is 59). Interlaced rows hold the frame height, the frame
    /// rate and the vertical blanking of one field.
    struct SCeaVidParam
    {
        unsigned int uiVic; ///< key, n + 1000 for the 1000/1001 variant of n
        unsigned int uiHorizontalActive;
        unsigned int uiVerticalActive;
        unsigned int uiVerticalRateInHz;
        unsigned int uiPixelClockInKiloHz;
        unsigned int uiHorizontalFrontPorch;
        unsigned int uiHorizontalSync;
        unsigned int uiHorizontalBackPorch;
        unsigned int uiVerticalFrontPorch;
        unsigned int uiVerticalSync;
        unsigned int uiVerticalBackPorch;
        unsigned int uiFlags; ///< bit 0 interlaced, bit 2 horizontal and bit 3 vertical polarity positive
    };

    /// All rows, in rising order of their key.
    static constexpr unsigned int msc_uiCea861FRowCount = 129;
    static const SCeaVidParam msc_aoCea861FTable[msc_uiCea861FRowCount];

    /// Added to a code, it gives the key of the 1000/1001 variant.
    static constexpr unsigned int msc_uiVariantKey = 1000;

    /// 1 when a row has this key, keys above 1000 included, else 0.
    static int IsVicSupported(unsigned int uiVic);

    /// Index of the row with this key in the table, or -1.
    static int GetVicTableIndex(unsigned int uiVic);

    /// Finds match number uiIndex, counted from 0 in table order, among the rows that pass all filters. Size and rate
    /// filter by equality, 0 passes every row: with all filters open a rising uiIndex enumerates the table.
    ///   poTiming  receives the row; null makes the call a test. Untouched on a result of 0.
    /// Returns 1 when there is such a row, else 0.
    static int GetVidParam(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiHorizontalActive,
                           unsigned int uiVerticalActive, unsigned int uiVerticalRateInHz, EScanType eScanType);

    /// The mode of a code, keys above 1000 included. Returns 1, or 0 for a code without a row, which leaves the timing
    /// cleared. A null poTiming is a caller's mistake: assertion line, 0.
    static int GetVidParamFromVic(unsigned int uiVic, CVidParamTiming* poTiming);

    /// The first row whose every value equals that of the timing exactly, the clock taken as the effective clock (see
    /// CVidParamTiming). Where two codes share a timing the lower one is found. Stores its key and returns 1, or stores
    /// 0 and returns 0.
    static int GetVicFromVidParam(const CVidParamTiming& oTiming, unsigned int& uiVic);

    /// Fills the timing from a row, line rate derived, source eVidParamType_Cea. 4:2:0 and 3D are left as ClearData of
    /// the timing leaves them.
    static void ConvertVidParam(const SCeaVidParam& oRow, CVidParamTiming& oTiming);
};

#pragma GCC visibility pop
