/// What a display can do, as its EDID image says: identity, size and shape, link, colour, audio. One record of plain
/// values, each with the field of the map and the offset that it comes from. Layouts are those of VESA E-EDID 1.3 and
/// 1.4, CTA-861-H with CTA-861.6, HDMI 1.4b and 2.1, DisplayID 1.3, 2.0 and 2.1. docs/facts.md lists the questions,
/// their sources and which source wins.

#pragma once

#include "ZorEdidMapIds.h"
#include "ZorMFCTypes.h"

namespace ZorFacts
{
class CReader;
}

#pragma GCC visibility push(default)

/// A value of an image. The image does not say it where m_eId is eZorEdidField_None; m_oValue is 0 then. A value of 0
/// or false that is said is a 'no'.
template <class V>
struct SZorFact
{
    V m_oValue = {};
    EZorEdidField m_eId = eZorEdidField_None; ///< the field; of a value of several fields the first one
    unsigned short m_ui16Offset = 0;          ///< bytes from the start of the image to that field

    bool IsSaid() const { return m_eId != eZorEdidField_None; }
    const V& Or(const V& oElse) const { return IsSaid() ? m_oValue : oElse; }
};

/// The facts of one image. Read fills the record, everything else looks at it. An object is a plain value: it owns no
/// memory, may be copied, and keeps nothing of the bytes. Read does not allocate.
class CZorEdidFacts
{
public:
    template <class V>
    using SFact = SZorFact<V>;
    using SFlag = SZorFact<bool>;
    using SByte = SZorFact<unsigned char>;
    using SNumber = SZorFact<unsigned int>;

    // ---- Values of several parts ----

    /// Terminated. A zero ends a text; spaces and control characters at the end are left out, others and bytes beyond
    /// ASCII are '.', as they have no agreed meaning.
    struct SText
    {
        static constexpr unsigned int msc_uiMost = 120;
        char m_szText[msc_uiMost + 1];
        bool operator==(const SText& oOther) const;
    };
    /// Terminated. Damaged codes have '@' or one of the five characters after 'Z'.
    struct SLetters
    {
        char m_szLetters[4];
        bool operator==(const SLetters&) const = default;
    };
    struct SContainerId
    {
        unsigned char m_aui8Bytes[16]; ///< in stored order
        bool operator==(const SContainerId&) const = default;
    };
    struct SMillimetres
    {
        unsigned int m_uiWidth; ///< tenths of a millimetre
        unsigned int m_uiHeight;
        bool operator==(const SMillimetres&) const = default;
    };
    struct SPixels
    {
        unsigned int m_uiWidth;
        unsigned int m_uiHeight; ///< lines of a frame
        bool operator==(const SPixels&) const = default;
    };
    struct SRange
    {
        unsigned int m_uiLeast;
        unsigned int m_uiMost;
        bool operator==(const SRange&) const = default;
    };
    struct SPoint
    {
        float m_fX; ///< CIE 1931, 0 to 1
        float m_fY;
        bool operator==(const SPoint&) const = default;
    };
    struct SPrimaries
    {
        SPoint m_oRed;
        SPoint m_oGreen;
        SPoint m_oBlue;
        bool operator==(const SPrimaries&) const = default;
    };

    // ---- Identity ----

    struct SIdentity
    {
        SFact<SLetters> m_oMaker;   ///< three letters; CZorEdidFacts::FindMakerName has the name
        SNumber m_oMakerOui;        ///< IEEE's identifier, of DisplayID 2.0
        SNumber m_oProduct;         ///< code of the maker, 16 bits
        SNumber m_oSerialNumber;    ///< 32 bits; 0 is not said
        SFact<SText> m_oSerialText; ///< of a descriptor or DisplayID
        SFact<SText> m_oName;       ///< product name, of a descriptor or DisplayID
        SFact<SText> m_oText;       ///< the first other text: panels have their type here
        SByte m_oWeek;              ///< of manufacture, 1 to 54
        SNumber m_oYear;            ///< of manufacture, from 1990 on
        SNumber m_oModelYear;       ///< instead of a date of manufacture
        SFact<SContainerId> m_oContainerId;
        SByte m_oRevision; ///< of EDID version 1
    };

    // ---- Size and shape ----

    enum EKind : unsigned char
    {
        eKind_Generic,
        eKind_Panel,   ///< built in, without a case of its own
        eKind_Monitor, ///< desktop display
        eKind_Television,
        eKind_Projector,
        eKind_HeadMounted, ///< virtual or augmented reality
        eKind_Presentation,
        eKind_Repeater, ///< passes the picture on
        eKind_Other     ///< test equipment, video wall, medical, ...
    };
    enum EOrientation : unsigned char
    {
        eOrientation_Landscape,
        eOrientation_Portrait,
        eOrientation_NotFixed,
        eOrientation_Undefined
    };
    enum ERotation : unsigned char
    {
        eRotation_None,
        eRotation_Clockwise, ///< by 90 degrees
        eRotation_CounterClockwise,
        eRotation_Both
    };
    /// Codes of DisplayID 1.3 and VESA DDDB; others are as stored.
    enum ESubPixels : unsigned char
    {
        eSubPixels_Undefined,
        eSubPixels_RgbVertical,
        eSubPixels_RgbHorizontal,
        eSubPixels_PrimaryOrderVertical,
        eSubPixels_PrimaryOrderHorizontal,
        eSubPixels_QuadRedTopLeft,
        eSubPixels_QuadRedBottomLeft,
        eSubPixels_Delta,
        eSubPixels_Mosaic,
        eSubPixels_Quad4,
        eSubPixels_Five,
        eSubPixels_Six,
        eSubPixels_PenTile
    };
    enum EScan : unsigned char
    {
        eScan_NoData, ///< of CE and IT formats: not supported
        eScan_Overscan,
        eScan_Underscan,
        eScan_Both
    };
    /// What an HDMI block says of the base block's sizes: HDMI 1.4b, Image_Size.
    enum EImageSize : unsigned char
    {
        eImageSize_Unknown,
        eImageSize_AspectOnly,
        eImageSize_Centimetres,
        eImageSize_FiveCentimetres
    };
    /// One of several parts of a display: DisplayID 1.3 and 2.0.
    struct STile
    {
        unsigned short m_ui16Columns; ///< of the whole display, from 1
        unsigned short m_ui16Rows;
        unsigned short m_ui16Column; ///< of this part, from 0
        unsigned short m_ui16Row;
        unsigned int m_uiWidth; ///< pixels of this part
        unsigned int m_uiHeight;
        bool m_bSingleEnclosure;
        unsigned char m_ui8SomeTiles; ///< behaviour when some tiles are driven, as stored
        unsigned char m_ui8OneTile;   ///< behaviour when only this one is driven: 1 in place, 2 scaled, 3 cloned
        bool operator==(const STile&) const = default;
    };
    /// The first timing of the base block.
    struct SFirstTiming
    {
        SPixels m_oPixels;
        unsigned int m_uiMilliHertz; ///< frames per 1000 seconds, of interlaced ones fields
        bool m_bInterlaced;
    };

    struct SSize
    {
        SFact<SMillimetres> m_oSize;        ///< by the best source
        SFact<SMillimetres> m_oCentimetres; ///< as the base block has it, times 100; also where m_oImageSize denies it
        SFact<SMillimetres> m_oTimingSize;  ///< of the first timing
        SFact<EImageSize> m_oImageSize;
        SNumber m_oAspect;            ///< width to height in hundredths; of 9:16 56. Where no size is needed for it
        SFact<SPixels> m_oNative;     ///< pixels of the panel
        SFact<SFirstTiming> m_oFirst; ///< the first timing of the base block
        SFlag m_oFirstIsPreferred;
        SFlag m_oFirstIsNative; ///< from EDID 1.4 on
        SFact<EKind> m_oKind;
        SFlag m_oDesktop; ///< for desktop use; false for head-mounted and special ones
        SFact<EOrientation> m_oOrientation;
        SFact<ERotation> m_oRotation;
        SByte m_oScanOrientation; ///< of DisplayID 2.0, 0 to 7 as stored; 0 is left to right, top to bottom
        SFact<ESubPixels> m_oSubPixels;
        SFlag m_oUnderscan;            ///< IT formats are underscanned by default: CTA-861
        SFact<EScan> m_oPreferredScan; ///< of the preferred format
        SFact<EScan> m_oItScan;
        SFact<EScan> m_oCeScan;
        SFact<STile> m_oTile;

        /// Inches; 0 where the size is not said.
        double GetDiagonal() const;
    };

    // ---- Link ----

    enum ELink : unsigned char
    {
        eLink_Analog,
        eLink_Digital, ///< of a kind that is not said
        eLink_Dvi,
        eLink_Hdmi,
        eLink_DisplayPort,
        eLink_Lvds,
        eLink_Other ///< MDDI, RSDS, a maker's
    };
    /// Fixed rate link of HDMI 2.1.
    struct SFrl
    {
        unsigned char m_ui8Lanes; ///< 0 for none
        unsigned char m_ui8Gbps;  ///< of each lane
        bool operator==(const SFrl&) const = default;
    };
    /// Of compressed video: HDMI 2.1.
    struct SSlices
    {
        unsigned char m_ui8Most;     ///< 0 for none
        unsigned short m_ui16MegaHz; ///< largest clock of each
        bool operator==(const SSlices&) const = default;
    };
    enum ERefreshSource : unsigned char
    {
        eRefreshSource_HdmiForum,
        eRefreshSource_Amd,
        eRefreshSource_AdaptiveSync, ///< a descriptor of DisplayID 2.1
        eRefreshSource_DynamicRange, ///< DisplayID 2.0, seamless
        eRefreshSource_RangeLimits   ///< of a continuous frequency display, of EDID 1.4 or DisplayID 1
    };
    /// Of several ranges a source takes the one that comes first here. It may not use range limits unasked.
    static constexpr ERefreshSource msc_aeBestRefresh[] = { eRefreshSource_HdmiForum, eRefreshSource_AdaptiveSync,
                                                            eRefreshSource_Amd, eRefreshSource_DynamicRange };
    /// A range of refresh rates within which a source may vary the rate.
    struct SVariableRefresh
    {
        unsigned int m_uiLeast; ///< Hz
        unsigned int m_uiMost;  ///< Hz; 0 for the rate of the mode
        ERefreshSource m_eSource;
        bool m_bNative;                 ///< adaptive sync: the panel's own range
        bool m_bSeamless;               ///< adaptive sync: from one rate to another without a break
        bool m_bAdaptive;               ///< adaptive sync: adaptive as well as fixed average total
        unsigned char m_ui8MaxIncrease; ///< adaptive sync: of one frame's duration to the next, in 0.25 ms; 0 no limit
        unsigned char m_ui8MaxDecrease;
        EZorEdidField m_eId; ///< of the least rate
        unsigned short m_ui16Offset;
    };
    static constexpr unsigned int msc_uiMostRanges = 16;
    /// Bits of SLink::m_oContentTypes: HDMI 1.4b.
    enum EContentType : unsigned char
    {
        eContentType_Graphics = 1,
        eContentType_Photo = 2,
        eContentType_Cinema = 4,
        eContentType_Game = 8
    };

    struct SLink
    {
        SFact<ELink> m_oKind;
        SByte m_oHdmiVersion; ///< ten times the least version that the blocks prove: 10, 13, 14, 20, 21
        SFlag m_oHdmi;        ///< an HDMI block is there
        SByte m_oCtaRevision; ///< of the first CTA-861 block
        SByte m_oLanes;       ///< lanes or links of the interface: DisplayID 1.3, VESA DDDB
        SFact<unsigned short> m_oPhysicalAddress; ///< 0x1000 is 1.0.0.0

        SNumber m_oMaxTmds;  ///< kHz, the largest that HDMI blocks say
        SFlag m_oSupportsAi; ///< ACP, ISRC1 and ISRC2 packets
        SFlag m_oDviDual;
        SByte m_oContentTypes; ///< EContentType
        SFlag m_oScdc;
        SFlag m_oReadRequest;
        SFlag m_oScrambleLow; ///< scrambling at 340 MHz and below
        SFlag m_oCableStatus;
        SFlag m_oCcbpci;
        SFlag m_oIndependentView;
        SFlag m_oDualView;
        SFlag m_o3dOsdDisparity;
        SFlag m_oUhdVic;
        SFact<SFrl> m_oFrl;

        SFlag m_oDsc;
        SFlag m_oDscNative420;
        SFlag m_oDscAllBpp;
        SByte m_oDscDepth; ///< bits per colour at most: 8, 10, 12 or 16
        SFact<SFrl> m_oDscFrl;
        SFact<SSlices> m_oDscSlices;
        SNumber m_oDscChunk; ///< bytes of all chunks of a line

        SFlag m_oAllm;
        SFlag m_oQms;
        SFlag m_oQmsMin;
        SFlag m_oQmsMax;
        SFlag m_oFastVactive;
        SFlag m_oCinemaVrr;
        SFlag m_oNegativeMVrr;
        SFlag m_oMDelta;
        SFlag m_oFapaStart;
        SFlag m_oFapaEnd;

        SFact<SRange> m_oVerticalRates;   ///< Hz
        SFact<SRange> m_oHorizontalRates; ///< kHz
        SNumber m_oMinPixelClock;         ///< kHz
        SNumber m_oMaxPixelClock;         ///< kHz
        SByte m_oRangeFormula;            ///< of EDID's range limits, as stored: 1 is limits only, 4 is CVT
        SFlag m_oContinuous;              ///< all rates within the limits, not only listed modes
        /// All ranges, in the order of the bytes; m_uiRanges is how many, the first msc_uiMostRanges are kept.
        SVariableRefresh m_aoRanges[msc_uiMostRanges];
        unsigned int m_uiRanges;
        SFlag m_oNvidia; ///< a block of NVIDIA is there; what its bytes mean is not public

        SByte m_oMsoStreams; ///< multi-SST operation of embedded DisplayPort: 0, 2 or 4
        SByte m_oMsoOverlap; ///< pixels, 0 to 8

        /// The range that a source takes, by msc_aeBestRefresh; null without one.
        const SVariableRefresh* GetVariableRefresh() const;
        /// Whether a source scrambles above 340 MHz: SCDC and a rate above it.
        bool HasScrambling() const;
    };

    // ---- Colour ----

    enum EFormat : unsigned char
    {
        eFormat_Rgb,
        eFormat_YCbCr444,
        eFormat_YCbCr422,
        eFormat_YCbCr420,
        eFormat_Count
    };
    /// Bits of SColour::m_aoDepths: bits per colour.
    enum EDepth : unsigned char
    {
        eDepth_6 = 1,
        eDepth_8 = 2,
        eDepth_10 = 4,
        eDepth_12 = 8,
        eDepth_14 = 16,
        eDepth_16 = 32
    };
    /// Bits of SColour::m_oColorimetry: the two bytes of CTA-861's block, the first one below.
    enum EColorimetry : unsigned short
    {
        eColorimetry_XvYcc601 = 0x0001,
        eColorimetry_XvYcc709 = 0x0002,
        eColorimetry_SYcc601 = 0x0004,
        eColorimetry_OpYcc601 = 0x0008,
        eColorimetry_OpRgb = 0x0010,
        eColorimetry_Bt2020CYcc = 0x0020,
        eColorimetry_Bt2020Ycc = 0x0040,
        eColorimetry_Bt2020Rgb = 0x0080,
        eColorimetry_GamutP0 = 0x0100,
        eColorimetry_DefaultRgb = 0x1000,
        eColorimetry_Srgb = 0x2000,
        eColorimetry_ICtCp = 0x4000,
        eColorimetry_St2113Rgb = 0x8000 ///< P3
    };
    /// Bits of SColour::m_oEotfs: of CTA-861-H.
    enum EEotf : unsigned char
    {
        eEotf_Sdr = 1, ///< traditional gamma
        eEotf_HdrGamma = 2,
        eEotf_Pq = 4, ///< SMPTE ST 2084
        eEotf_Hlg = 8
    };
    enum ESpace : unsigned char
    {
        eSpace_Undefined,
        eSpace_Srgb,
        eSpace_Bt601,
        eSpace_Bt709,
        eSpace_AdobeRgb,
        eSpace_DciP3,
        eSpace_Bt2020,
        eSpace_Custom
    };
    enum ETransfer : unsigned char
    {
        eTransfer_Undefined,
        eTransfer_Srgb,
        eTransfer_Bt601,
        eTransfer_Bt1886,
        eTransfer_AdobeRgb,
        eTransfer_DciP3,
        eTransfer_Bt2020,
        eTransfer_Gamma,
        eTransfer_Pq,
        eTransfer_Hlg,
        eTransfer_Custom
    };
    /// A colour space with a transfer function, of DisplayID 2.0.
    struct SSpace
    {
        ESpace m_eSpace;
        ETransfer m_eTransfer;
        EZorEdidField m_eId;
        unsigned short m_ui16Offset;
    };
    static constexpr unsigned int msc_uiMostSpaces = 16;
    /// Of CTA-861-H: the code as stored, and what it is in cd/m2.
    struct SLuminance
    {
        float m_fLuminance;
        unsigned char m_ui8Code;
        bool operator==(const SLuminance&) const = default;
    };
    struct SHdr10Plus
    {
        unsigned char m_ui8Version;       ///< of the application, as stored
        unsigned char m_ui8Peak;          ///< index, as stored
        unsigned char m_ui8FullFramePeak; ///< index, as stored
    };
    /// HDR dynamic metadata of CTA-861-H; a version of 0 is not supported, or has none.
    struct SDynamicHdr
    {
        bool m_bType1;                   ///< SMPTE ST 2094-10
        bool m_bType2;                   ///< ETSI TS 103 433, SL-HDR
        bool m_bType3;                   ///< colour remapping
        bool m_bType4;                   ///< SMPTE ST 2094-40, HDR10+
        bool m_bGraphics;                ///< type 256
        unsigned char m_aui8Versions[4]; ///< of types 1 to 4
    };
    struct SDolbyVision
    {
        unsigned char m_ui8Version;   ///< of the data block, 0 to 2; others as stored
        unsigned char m_ui8DmVersion; ///< display management: ten times the version, 0 when unknown
        bool m_bYuv422;               ///< 12 bits
        bool m_bLowLatency;
        bool m_bStandard;      ///< the mode with metadata in the picture
        float m_fMaxLuminance; ///< of the target, cd/m2; 0 for other versions, as the next
        float m_fMinLuminance;
    };

    struct SColour
    {
        SByte m_oDepth;                  ///< bits per colour of the panel or interface: 6, 8, 10, 12, 14, 16
        SByte m_oFormats;                ///< bit EFormat: which of them, RGB for all digital ones
        SByte m_aoDepths[eFormat_Count]; ///< EDepth, for each format
        SByte m_oHdmiDeep;               ///< EDepth 10, 12, 16 of RGB: HDMI
        SFlag m_oHdmiDeep444;            ///< and of YCbCr 4:4:4
        SByte m_oHdmiDeep420;            ///< EDepth of YCbCr 4:2:0: HDMI Forum
        SFlag m_oMonochrome;             ///< what the base block says, and IsMonochrome may contradict
        SNumber m_oMin420PixelRate;      ///< kHz, from which on YCbCr 4:2:0 is offered: DisplayID 2.0

        SFact<SPrimaries> m_oPrimaries;
        SFact<SPoint> m_oWhite;
        SFact<float> m_oGamma; ///< 1.00 to 3.54
        SFlag m_oSrgbDefault;

        SFact<unsigned short> m_oColorimetry; ///< EColorimetry
        SSpace m_aoSpaces[msc_uiMostSpaces];  ///< in the order of the bytes
        unsigned int m_uiSpaces;
        SFlag m_oSelectableRgb; ///< the quantization range of RGB is selectable
        SFlag m_oSelectableYcc;

        SByte m_oEotfs;                  ///< EEotf
        SByte m_oMetadataTypes;          ///< bit 0: static metadata type 1
        SFact<SLuminance> m_oContentMax; ///< desired content, of static metadata
        SFact<SLuminance> m_oContentMaxFrameAverage;
        SFact<SLuminance> m_oContentMin;
        SFact<SDynamicHdr> m_oDynamicHdr;
        SFact<SHdr10Plus> m_oHdr10Plus;
        SFact<SDolbyVision> m_oDolbyVision;
        SByte m_oToneMapping; ///< version of the HDMI Forum's source-based tone mapping

        SFact<float> m_oMaxLuminance;   ///< cd/m2, the full screen
        SFact<float> m_oMaxLuminance10; ///< a tenth of it
        SFact<float> m_oMinLuminance;
        SFact<float> m_oMaxSdrLuminance; ///< DisplayID 2.1
        SFact<float> m_oMinSdrLuminance;
        SFact<float> m_oMaxBoostLuminance;
        SFact<float> m_oAmdMaxLuminance; ///< of AMD's block: what it measures is not public
        SFact<float> m_oAmdMinLuminance;

        /// Whether the display is monochrome: by the base block, and nothing has colours. Makers leave the bits of its
        /// colour type 0, which mean it, on displays with primaries, YCbCr or HDMI.
        bool IsMonochrome() const;

        /// The colours that the display shows by default: those of sRGB where the base block says
        /// that sRGB is the default, else m_oPrimaries, m_oWhite, m_oGamma; 0 for what is not said.
        SPrimaries GetDefaultPrimaries() const;
        SPoint GetDefaultWhite() const;
        float GetDefaultGamma() const;

        /// Whether the display takes this colour space with this transfer function: by DisplayID's list, or by CTA-861
        /// where that has both. False also for what is not said; sRGB with its own is true for every colour display.
        bool IsSupported(ESpace eSpace, ETransfer eTransfer) const;
    };

    // ---- Audio ----

    /// Bits of SAudioFormat::m_ui8Rates: of CTA-861-H.
    enum ERate : unsigned char
    {
        eRate_32 = 1, ///< kHz
        eRate_44_1 = 2,
        eRate_48 = 4,
        eRate_88_2 = 8,
        eRate_96 = 16,
        eRate_176_4 = 32,
        eRate_192 = 64
    };
    /// Bits of SAudioFormat::m_ui8Sizes.
    enum ESampleSize : unsigned char
    {
        eSampleSize_16 = 1, ///< bits
        eSampleSize_20 = 2,
        eSampleSize_24 = 4
    };
    /// A format, of a short audio descriptor of CTA-861-H or a 3D one of HDMI 2.0.
    struct SAudioFormat
    {
        unsigned char m_ui8Format;    ///< audio format code, 1 (L-PCM) to 15
        unsigned char m_ui8Extended;  ///< extended code, with 15; else 0
        unsigned char m_ui8Channels;  ///< at most; 0 where the format has no such number
        unsigned char m_ui8Rates;     ///< ERate
        unsigned char m_ui8Sizes;     ///< ESampleSize, of L-PCM; else 0
        unsigned char m_ui8Byte;      ///< the last byte, as stored
        unsigned short m_ui16BitRate; ///< kbit/s at most; 0 where the format has none
        bool m_bHdmi3d;
        EZorEdidField m_eId;
        unsigned short m_ui16Offset;
    };
    static constexpr unsigned int msc_uiMostFormats = 32;
    /// Bits of SAudio::m_oSpeakers: the bytes of CTA-861-H, the first one below.
    enum ESpeaker : unsigned int
    {
        eSpeaker_FlFr = 0x000001,
        eSpeaker_Lfe1 = 0x000002,
        eSpeaker_Fc = 0x000004,
        eSpeaker_BlBr = 0x000008,
        eSpeaker_Bc = 0x000010,
        eSpeaker_FlcFrc = 0x000020,
        eSpeaker_RlcRrc = 0x000040,
        eSpeaker_FlwFrw = 0x000080,
        eSpeaker_TpFlTpFr = 0x000100,
        eSpeaker_TpC = 0x000200,
        eSpeaker_TpFc = 0x000400,
        eSpeaker_LsRs = 0x000800,
        eSpeaker_Lfe2 = 0x001000,
        eSpeaker_TpBc = 0x002000,
        eSpeaker_SilSir = 0x004000,
        eSpeaker_TpSilTpSir = 0x008000,
        eSpeaker_TpBlTpBr = 0x010000,
        eSpeaker_BtFc = 0x020000,
        eSpeaker_BtFlBtFr = 0x040000,
        eSpeaker_TpLsTpRs = 0x080000
    };
    static constexpr int msc_iNotSupported = -1; ///< of a latency: no video, or no audio

    struct SAudio
    {
        SFlag m_oAudio;           ///< any: of CTA-861, DisplayID or VESA DDDB; 'no' only where all blocks were read
        SFlag m_oBasic;           ///< basic audio, two channels of L-PCM: CTA-861
        SFlag m_oSpeakersBuiltIn; ///< DisplayID 2.0
        /// In the order of the bytes; m_uiFormats is how many, the first msc_uiMostFormats are kept.
        SAudioFormat m_aoFormats[msc_uiMostFormats];
        unsigned int m_uiFormats;
        SNumber m_oSpeakers;        ///< ESpeaker
        SByte m_oStreams;           ///< of HDMI's multi-stream audio, 2 to 4; 0 for none
        SByte m_oDisplayIdRates;    ///< ERate 32, 44.1, 48, of DisplayID 2.0
        SFact<int> m_oVideoLatency; ///< ms, 0 to 500; msc_iNotSupported
        SFact<int> m_oAudioLatency;
        SFact<int> m_oInterlacedVideoLatency;
        SFact<int> m_oInterlacedAudioLatency;
    };

    // ---- Conflicts ----

    /// Questions that several sources answer; docs/facts.md has which of them wins.
    enum EQuestion : unsigned char
    {
        eQuestion_Product,
        eQuestion_SerialNumber,
        eQuestion_SerialText,
        eQuestion_Name,
        eQuestion_Year,
        eQuestion_ModelYear,
        eQuestion_ContainerId,
        eQuestion_Size,
        eQuestion_Aspect,
        eQuestion_Native,
        eQuestion_Kind,
        eQuestion_Orientation,
        eQuestion_Rotation,
        eQuestion_SubPixels,
        eQuestion_Tile,
        eQuestion_Link,
        eQuestion_Lanes,
        eQuestion_VerticalRates,
        eQuestion_HorizontalRates,
        eQuestion_MaxPixelClock,
        eQuestion_Continuous,
        eQuestion_Depth,
        eQuestion_Primaries,
        eQuestion_White,
        eQuestion_Gamma,
        eQuestion_Audio,
        eQuestion_Count
    };
    /// Two answers that differ. Sizes that differ by less than a centimetre do not, nor chromaticities by rounding.
    struct SConflict
    {
        EQuestion m_eQuestion;
        EZorEdidField m_eTaken;
        unsigned short m_ui16Taken; ///< offset
        EZorEdidField m_eOther;
        unsigned short m_ui16Other;
    };
    static constexpr unsigned int msc_uiMostConflicts = 16;

    // ---- What was not read ----

    /// Why an extension block may say what the facts do not have.
    enum EUnread : unsigned char
    {
        eUnread_None,
        eUnread_Missing,   ///< announced, and not there
        eUnread_Cut,       ///< the image ends within it
        eUnread_Kind,      ///< its tag has no meaning
        eUnread_Revision,  ///< not published, or one of CTA-861 without data blocks that has bytes in their place
        eUnread_Offset,    ///< of CTA-861: byte 2, where its data blocks end
        eUnread_Length,    ///< of a section or data block, which runs past its end
        eUnread_Checksum,  ///< wrong: it was read, but any of its bytes may be damaged
        eUnread_NotCounted ///< one of CTA-861 or DisplayID that is there and not announced
    };
    struct SUnread
    {
        EUnread m_eReason = eUnread_None;
        unsigned int m_uiBlock = 0; ///< number in the image
    };

    CZorEdidFacts() { Clear(); }

    /// Reads the facts of pui8Data, uiSize bytes in any state; null counts as none. Blocks are those that the image
    /// announces and has. Checksums, lengths and headers that are wrong are no reason to leave a block out. Returns 1;
    /// 0 with an empty record for fewer than 128 bytes.
    int Read(unsigned int uiSize, const unsigned char* pui8Data);
    /// Leaves nothing said.
    void Clear();

    const SIdentity& GetIdentity() const { return m_oIdentity; }
    const SSize& GetSize() const { return m_oSize; }
    const SLink& GetLink() const { return m_oLink; }
    const SColour& GetColour() const { return m_oColour; }
    const SAudio& GetAudio() const { return m_oAudio; }

    /// The first block that was not read whole; with one, what is not said may be said there: it is not known.
    const SUnread& GetUnread() const { return m_oUnread; }
    /// Why, in words: "the image ends before block 2". Empty without one.
    CMString GetUnreadText() const;

    /// All that were found; the first msc_uiMostConflicts are kept.
    unsigned int GetConflictCount() const { return m_uiConflicts; }
    /// Null at min(GetConflictCount(), msc_uiMostConflicts) or beyond.
    const SConflict* GetConflict(unsigned int uiIndex) const;

    /// The maker's name for three letters: of the list pszFile, rows of letters, a tab and a name, else of the
    /// library's own list, else of the system's (hwdata's pnp.ids). Reads files at each call, the system's for letters
    /// that the others lack: a caller with many images keeps the names. Returns 1; 0 with sName unchanged for letters
    /// that no list has.
    static int FindMakerName(const char* pszLetters, CMString& sName, const char* pszFile = nullptr);

private:
    friend class ZorFacts::CReader;

    SIdentity m_oIdentity;
    SSize m_oSize;
    SLink m_oLink;
    SColour m_oColour;
    SAudio m_oAudio;
    SConflict m_aoConflicts[msc_uiMostConflicts];
    unsigned int m_uiConflicts;
    SUnread m_oUnread;
};

#pragma GCC visibility pop
