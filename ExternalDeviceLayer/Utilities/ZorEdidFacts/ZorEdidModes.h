/// Every mode that an EDID image announces, with its exact numbers as the standards of today have them: VESA E-EDID 1.3
/// and 1.4, DMT, GTF and CVT, CTA-861-H and CTA-861.6, HDMI 1.4, DisplayID 1.3 and 2.1. The library's numbered lists
/// (CEdid) keep their answers beside it: they leave out what is newer than they are.

#pragma once

#include "EdidMode.h"
#include "ZorEdidMapIds.h"
#include "ZorMFCTypes.h"

class CEdid;

#pragma GCC visibility push(default)

/// A mode and the field that announces it.
struct SZorImageMode
{
    static constexpr unsigned int msc_uiNone = 0xFFFFFFFF;

    /// Where the numbers of the timing come from.
    enum ENumbers : unsigned char
    {
        eNumbers_None,    ///< m_oMode.m_bTiming is false: nothing gives them
        eNumbers_Bytes,   ///< the image
        eNumbers_Table,   ///< published with the code
        eNumbers_Formula, ///< by the formula that the field names: CVT, or OVT of a video format descriptor
        eNumbers_Assumed  ///< a standard timing that no table has: by the formula that the display declares, else GTF
    };

    /// Why a mode is preferred.
    enum EReason : unsigned char
    {
        eReason_None,
        eReason_Preference,    ///< the video format preference data block of CTA-861 names it
        eReason_FirstDetailed, ///< the first detailed timing of the base block, where that is declared as preferred
        eReason_Flag           ///< its own flag, of DisplayID
    };

    /// The library's numbering that a timing is in.
    enum EList : unsigned char
    {
        eList_None,
        eList_Established, ///< CEdid::GetEstablished with bVesaOnly 0
        eList_Standard,    ///< CEdid::GetStandard
        eList_Detailed     ///< CEdid::GetDetailed
    };

    SZorMode m_oMode;        ///< m_oRate: of interlaced modes of fields
    EZorEdidField m_eField;  ///< the kind of field, as CZorEdidMap::SField::m_eId
    unsigned int m_uiOffset; ///< of its first byte in the image
    unsigned int m_uiBit;    ///< 7 to 0 where one bit announces the mode; else msc_uiNone
    unsigned int m_uiRank;   ///< which of several modes of one field, from 0
    ENumbers m_eNumbers;
    EReason m_eReason;
    unsigned int m_uiPreference; ///< 1 for the most preferred mode, then 2 and so on; 0 without a preference
    unsigned int m_uiStereo;     ///< bit n: structure n of HDMI's 3D_Structure, 0 is frame packing; 0 for none
    EList m_eList;               ///< by CZorEdidModes::SetNumbers
    unsigned int m_uiNumber;     ///< in m_eList, from 0; msc_uiNone without a list
};

/// A byte of a video format preference or native video resolution data block, and the mode that it points at.
struct SZorModeReference
{
    unsigned int m_uiOffset; ///< in the image
    unsigned int m_uiByte;   ///< the short video reference itself; reserved values have no entry
    unsigned int m_uiMode;   ///< of CZorEdidModes::Get; SZorImageMode::msc_uiNone where the image has no such mode
};

/// The list of one image, in the order of its bytes. Read makes it, everything else asks it.
///
/// A code of CTA-861 whose rate may be divided by 1.001 is one entry with m_bFractionToo: GetPartner gives the other
/// rate. Every field has an entry of its own, also where two announce the same mode. Fields that only say more about a
/// mode (a 4:2:0 capability map, a preference, 3D) mark it and have none; of several such blocks the first one counts.
class CZorEdidModes
{
public:
    CZorEdidModes() = default;
    CZorEdidModes(const CZorEdidModes&) = delete;
    CZorEdidModes& operator=(const CZorEdidModes&) = delete;

    /// Reads uiSize bytes in any state: blocks that the image announces, as far as they are there. Checksums are not
    /// looked at. Returns 1; 0 when pui8Data is null or uiSize is below 128, and then the list is empty. Memory use
    /// depends only on uiSize.
    int Read(unsigned int uiSize, const unsigned char* pui8Data);

    unsigned int GetCount() const { return m_aoModes.GetCount(); }
    /// uiIndex must be below GetCount. The reference is good until the next Read.
    const SZorImageMode& Get(unsigned int uiIndex) const { return m_aoModes[uiIndex]; }

    /// What points at modes, in the order of the bytes, over all such data blocks. uiIndex must be below
    /// GetReferenceCount; the reference is good until the next Read.
    unsigned int GetReferenceCount() const { return m_aoReferences.GetCount(); }
    const SZorModeReference& GetReference(unsigned int uiIndex) const { return m_aoReferences[uiIndex]; }

    /// The most preferred mode; null without one.
    const SZorImageMode* GetPreferred() const;

    /// Sets m_eList and m_uiNumber of the modes whose timings the lists of oEdid hold: an EDID that was loaded from the
    /// bytes of Read and not changed since. Of a code with two timings the first number. A byte that the library reads
    /// as another code, 193 and above, has no number.
    void SetNumbers(const CEdid& oEdid);

    /// The mode at 1000/1001 of the rate and the clock, where oMode.m_bFractionToo. Returns false, and oPartner
    /// unchanged, else. The clock is rounded to whole Hz; m_oRate is exact.
    static bool GetPartner(const SZorMode& oMode, SZorMode& oPartner);

private:
    CMArray<SZorImageMode, const SZorImageMode&> m_aoModes;
    CMArray<SZorModeReference, const SZorModeReference&> m_aoReferences;
};

#pragma GCC visibility pop
