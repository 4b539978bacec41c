/// The video modes of VESA DMT 1.0 revision 11 with some later ones: look-up by size and rate.
/// Searches are linear over constant rows, allocate nothing, and may run on several threads at once.

#pragma once

#pragma GCC visibility push(default)

class CVidParamTiming;

class CVidParamDmt
{
public:
    /// Row filter. Any other value matches no row.
    enum EModeListType : unsigned int
    {
        eModeListAll = 1,
        eModeListStandard = 2, ///< rows without reduced blanking
        eModeListReducedBlanking = 3,
    };

    /// Pixels, lines, kHz, whole Hz. Borders of the published mode are counted into the porches.
    struct SDmtVidParam
    {
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
        unsigned int uiFlags; ///< bit 0 interlaced, bit 2 horizontal, bit 3 vertical polarity positive, bit 7 reduced
    };

    /// Finds match number uiIndex, counted from 0 in table order, among the rows that pass all filters. Size and rate
    /// filter by equality, 0 passes every row: with all filters open a rising uiIndex enumerates the table.
    ///   poTiming  receives the row; null makes the call a test. Untouched on a result of 0.
    /// Returns 1 when there is such a row, else 0.
    static int GetVidParam(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiHorizontalActive,
                           unsigned int uiVerticalActive, unsigned int uiVerticalRateInHz, EModeListType eListType);

    /// Fills the timing from a row, line rate derived, source eVidParamType_Dmt or eVidParamType_DmtReducedBlanking.
    /// 4:2:0 and 3D are left as ClearData of the timing leaves them.
    static void ConvertVidParam(const SDmtVidParam& oRow, CVidParamTiming& oTiming);
};

#pragma GCC visibility pop
