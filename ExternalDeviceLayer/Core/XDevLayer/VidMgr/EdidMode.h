/// A mode of a display as the bytes of an EDID image announce it, and the numbers of a timing: exact, and wider than
/// those of the library's lists. Layouts are those of the standards named at each kind (E-EDID, CTA-861-H, HDMI 1.4,
/// DisplayID 1.3 and 2.1).

#pragma once

#pragma GCC visibility push(default)

/// A mode that a field of an image announces or refers to, or that a formula computes.
struct SZorMode
{
    /// Where a mode comes from; the meaning of its code. DisplayID's types I to X have their numbers.
    enum EModeKind : unsigned char
    {
        eModeKind_Type1 = 1,
        eModeKind_Type2,
        eModeKind_Type3,
        eModeKind_Type5 = 5, ///< Types IV and VIII are codes: eModeKind_Dmt, eModeKind_Vic, eModeKind_HdmiVic
        eModeKind_Type6,
        eModeKind_Type7,
        eModeKind_Type9 = 9,
        eModeKind_Type10,
        eModeKind_Established,    ///< I and II: the bit, from 0 for bit 7 of byte 23h to 16 for bit 7 of byte 25h
        eModeKind_EstablishedIII, ///< the bit, from 0 for bit 7 of byte 6 of the descriptor to 43
        eModeKind_Standard,       ///< its two bytes, the first one above: 0x8180
        eModeKind_CvtCode,        ///< its three bytes, the first one above
        eModeKind_Detailed,       ///< 18 bytes, no code
        eModeKind_Dmt,            ///< the identifier of VESA DMT
        eModeKind_Vic,            ///< the video identification code of CTA-861
        eModeKind_HdmiVic,        ///< HDMI's own code, 1 to 4
        eModeKind_VideoFormat     ///< of CTA-861.6: the resolution identifier
    };

    /// How the blanking of a mode without a timing is to be computed.
    enum EBlanking : unsigned char
    {
        eBlanking_NotGiven,
        eBlanking_Standard, ///< CVT
        eBlanking_Reduced1, ///< CVT reduced blanking, version 1
        eBlanking_Reduced2,
        eBlanking_Reduced3,
        eBlanking_Custom
    };

    enum EY420 : unsigned char
    {
        eY420_No, ///< nothing says so of this field
        eY420_Also,
        eY420_Only
    };

    enum EStereo : unsigned char
    {
        eStereo_No,
        eStereo_FieldRight = 2, ///< field sequential, right image when stereo sync = 1; 2 to 7 as E-EDID counts them
        eStereo_TwoWayRight,    ///< 2-way interleaved, right image on even lines
        eStereo_FieldLeft,
        eStereo_TwoWayLeft,
        eStereo_FourWay,
        eStereo_SideBySide,
        eStereo_Always, ///< by other means: of DisplayID
        eStereo_ByUser, ///< mono or stereo by user action: of DisplayID
        eStereo_Hdmi    ///< a format of HDMI's 3D fields
    };

    /// Hz: frames a second, of an interlaced mode fields. A divisor of 0 says that no rate is given.
    struct SRate
    {
        unsigned long long m_ullDividend;
        unsigned long long m_ullDivisor;
    };

    /// One direction of a timing, in pixels or lines. Vertically the total and the active lines of an interlaced timing
    /// are those of the frame, the front porch and the sync pulse those of its first field.
    struct SAxis
    {
        unsigned int m_uiActive; ///< what is sent: of repeated pixels each one
        unsigned int m_uiFront;
        unsigned int m_uiSync;
        unsigned int m_uiTotal;
        unsigned int m_uiBorder; ///< on either side, within the blanking
        bool m_bPositive;        ///< polarity; false as well where no polarity is given
    };

    EModeKind m_eKind;
    unsigned int m_uiCode;
    unsigned int m_uiWidth;  ///< of the picture in pixels
    unsigned int m_uiHeight; ///< lines of the frame; 0 where the field leaves it open
    bool m_bInterlaced;
    SRate m_oRate;                ///< exact, of the timing where it is known
    SRate m_oNominalRate;         ///< as the standard names it: 60 Hz of 640 x 480 at 59.94; else the same
    bool m_bFractionToo;          ///< m_oRate * 1000/1001 is announced as well
    unsigned int m_uiAspectWidth; ///< of the picture; 0 where it is not given
    unsigned int m_uiAspectHeight;
    unsigned int m_uiRepetition; ///< how often each pixel is sent: 1, also where several are allowed, or 2
    EBlanking m_eBlanking;
    EY420 m_eY420;
    EStereo m_eStereo;
    bool m_bNative;
    bool m_bPreferred;
    bool m_bReference;             ///< ranks, or says more about, a mode that another field announces
    bool m_bTiming;                ///< all numbers are known, and follow
    unsigned long long m_ullClock; ///< Hz
    SAxis m_oHorizontal;
    SAxis m_oVertical;
};

#pragma GCC visibility pop
