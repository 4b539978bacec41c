/// Makes an EDID image of what a display is to be able to do: for machines without a monitor, virtual displays, test
/// benches.

#pragma once

#include "EdidMode.h"
#include "ZorMFCTypes.h"
#include "ZorWishedTiming.h"

#pragma GCC visibility push(default)

struct SZorWishedMode
{
    unsigned int m_uiWidth = 0;
    unsigned int m_uiHeight = 0; ///< lines of the frame
    bool m_bInterlaced = false;
    SZorMode::SRate m_oRate = { 0, 0 }; ///< Hz, of interlaced modes of fields
    EZorTimingSource m_eSource = eZorTimingSource_Any;
};

/// What the display is to be. Numbers that are 0 and empty texts are chosen by CZorEdidMaker.
struct SZorEdidWishes
{
    enum EInterface : unsigned char
    {
        eInterface_Hdmi, ///< sources of every kind of connector take its image
        eInterface_DisplayPort,
        eInterface_Dvi
    };

    enum EAudio : unsigned char
    {
        eAudio_None,
        eAudio_Stereo,
        eAudio_5_1,
        eAudio_7_1
    };

    EInterface m_eInterface = eInterface_Hdmi;
    CMArray<SZorWishedMode, const SZorWishedMode&> m_aoModes; ///< at least one; the first one is preferred

    CMString m_sName = {};          ///< up to 13 printable characters; "Virtual" without it
    CMString m_sSerial = {};        ///< a serial number as a text, up to 13 printable characters
    CMString m_sMaker = {};         ///< three capital letters; gsc_szNeutralMaker without them
    unsigned int m_uiProduct = 0;   ///< up to 65535; 1 without it
    unsigned int m_uiYear = 0;      ///< of manufacture, 2006 to 2245; 0: that of the donor, else gsc_uiNeutralYear
    unsigned int m_uiWeek = 0;      ///< of m_uiYear, 1 to 53; 0 for none
    unsigned int m_uiThisYear = 0;  ///< no year of manufacture may exceed it; 0 for any year
    unsigned int m_uiWidthInMm = 0; ///< of the picture, up to 2550; 0 with the height for a size that is not given
    unsigned int m_uiHeightInMm = 0;

    bool m_bPq = false;                  ///< HDR by SMPTE ST 2084
    bool m_bHlg = false;                 ///< HDR by hybrid log-gamma
    unsigned int m_uiMaxLuminance = 0;   ///< cd/m2, 50 to 12500; 0: not said
    unsigned int m_uiFrameLuminance = 0; ///< of a whole frame on average; with m_uiMaxLuminance only
    unsigned int m_uiMinLuminance = 0;   ///< in 0.0001 cd/m2; with m_uiMaxLuminance only
    unsigned int m_uiColorDepth = 0;     ///< bits: 8, 10 or 12; 0 for 10 with HDR and 8 else
    bool m_bYCbCr420 = false;            ///< video codes of 3840 pixels and more at 50 Hz and more in YCbCr 4:2:0, too

    EAudio m_eAudio = eAudio_None;

    unsigned int m_uiVrrMin = 0; ///< Hz: variable refresh from here ...
    unsigned int m_uiVrrMax = 0; ///< ... to here; both 0 for none

    unsigned int m_uiMaxTmds = 0; ///< MHz, 25 to 600: the most that HDMI's TMDS takes; 0: as the modes need
    unsigned int m_uiFrl = 0;     ///< HDMI's Fixed Rate Link: 1 for 3 lanes of 3 Gbps to 6 for 4 of 12; 0: as needed

    /// An image whose identity, size, colours and audio are taken where nothing above says otherwise; not owned. What
    /// is not sound in it is left out or replaced, and a note says so.
    const unsigned char* m_pui8Donor = nullptr;
    unsigned int m_uiDonorSize = 0;

    bool HasHdr() const { return m_bPq || m_bHlg; }
    bool HasVrr() const { return m_uiVrrMin != 0 || m_uiVrrMax != 0; }
};

/// Letters that no maker in the lists of today has.
inline constexpr char gsc_szNeutralMaker[] = "ZVD";

/// A year is a part of every EDID. Not the year of today, so that the same wishes give the same bytes.
inline constexpr unsigned int gsc_uiNeutralYear = 2025;

/// Makes one image after the other. The same wishes give the same bytes.
///
/// The image is of E-EDID 1.4. What follows from the wishes: a CTA-861 block for HDMI, audio and HDR, HDMI's data
/// blocks by the clocks, DisplayID for modes that no detailed timing holds, range limits that hold all modes, and 640 x
/// 480 at 60 Hz, which every display must have. It is read again before it counts: it announces the wished modes and
/// the fallbacks that GetNote names and no other, and CZorEdidCheck has nothing against it above a note.
class CZorEdidMaker
{
public:
    CZorEdidMaker() = default;
    CZorEdidMaker(const CZorEdidMaker&) = delete;
    CZorEdidMaker& operator=(const CZorEdidMaker&) = delete;

    /// Returns 1; 0 for wishes that cannot be, and then there are no bytes and GetReason says why. When memory runs
    /// out, the result means nothing.
    int Make(const SZorEdidWishes& oWishes);

    /// Good until the next Make.
    const unsigned char* GetData() const { return m_aui8Data.GetData(); }
    unsigned int GetSize() const { return m_aui8Data.GetCount(); }

    /// Of a refusal; else empty.
    const CMString& GetReason() const { return m_sReason; }

    /// What was chosen, a line each: "2560x1440@144: detailed timing, preferred".
    unsigned int GetNoteCount() const { return m_asNotes.GetCount(); }
    /// uiIndex must be below GetNoteCount.
    const CMString& GetNote(unsigned int uiIndex) const { return m_asNotes[uiIndex]; }

private:
    CMArray<unsigned char, const unsigned char&> m_aui8Data;
    CMString m_sReason;
    CMArrayString m_asNotes;
};

#pragma GCC visibility pop
