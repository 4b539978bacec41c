// What CZorEdidMaker will write: every mode with its timing and its places, and what HDMI's link must carry. Private to
// the library.

#pragma once

#include "ModePlaces.h"
#include "ZorEdidMaker.h"

namespace ZorWrite
{
inline constexpr unsigned int gsc_uiVgaCode = 1; // 640x480 at 60 and 59.94 Hz

struct SPlannedMode
{
    static constexpr unsigned int msc_uiNoBit = 0xFF;

    SZorMode m_oTiming = {};
    CMString m_sName = {};                      // "1920x1080@60"
    SZorMode::SRate m_oWished = { 0, 0 };       // Hz; { 0, 0 } for a mode that is not wished
    unsigned int m_uiCode = 0;                  // of CTA-861; 0 where the code is not listed
    unsigned int m_uiEstablished = msc_uiNoBit; // the bit
    bool m_bDetailed = false;
    bool m_bType1 = false;
    bool m_b420Only = false; // its clock is too high for RGB
    bool m_bFallback = false;

    bool Allows420() const;        // HDMI has it in YCbCr 4:2:0
    bool IsWishedFraction() const; // its rate is a fraction: that of the wish, or of the code nearest to it
};

} // namespace ZorWrite

template <>
inline constexpr bool gsc_bByteRelocatable<ZorWrite::SPlannedMode> = true;

namespace ZorWrite
{
// Of HDMI.
struct SPlannedLink
{
    unsigned int m_uiTmds = 0;      // MHz, up to 340, of HDMI's own data block
    bool m_bForum = false;          // whether there is the data block of the HDMI Forum
    unsigned int m_uiForumTmds = 0; // MHz; 0 or above 340
    unsigned int m_uiFrl = 0;
    bool m_bDsc = false;
    unsigned int m_uiDscWidth = 0; // of the widest compressed mode
};

class CMakerPlan
{
public:
    // bAudio: there is audio that the wishes do not name.
    CMakerPlan(const SZorEdidWishes& oWishes, bool bAudio) : m_oWishes(oWishes), m_bAudio(bAudio) {}

    // Empty, or why such a display is impossible.
    CMString Make();

    const SZorEdidWishes& GetWishes() const { return m_oWishes; }
    bool HasCta() const { return m_bCta; }
    bool HasAudio() const { return m_bAudio || m_oWishes.m_eAudio != SZorEdidWishes::eAudio_None; }
    bool IsHdmi() const { return m_oWishes.m_eInterface == SZorEdidWishes::eInterface_Hdmi; }
    // Whether YCbCr is announced beside RGB.
    bool HasYCbCr() const { return m_oWishes.HasHdr() || m_oWishes.m_bYCbCr420; }
    unsigned int GetColorDepth() const;
    const SPlannedLink& GetLink() const { return m_oLink; }

    // The wished modes in their order, then the fallbacks. The first of them that m_bDetailed marks is the first
    // detailed timing.
    unsigned int GetCount() const { return m_aoModes.GetCount(); }
    const SPlannedMode& Get(unsigned int uiIndex) const { return m_aoModes[uiIndex]; }
    unsigned int GetFirstDetailed() const { return m_uiFirstDetailed; }
    // The first mode is 1000/1001 of a rate that no detailed timing holds. Its code means the whole rate first.
    bool IsPreferredByDisplayIdAlone() const;
    // Whether the first detailed timing is the native one. Standards want a progressive one beside an interlaced one.
    bool IsFirstNative() const { return m_uiFirstDetailed == 0 && !m_aoModes[0U].m_oTiming.m_bInterlaced; }

private:
    CMString CheckIdentity() const;
    CMString CheckLuminances() const;
    CMString CheckInterface() const;
    CMString CheckVrr() const;
    CMString Check420() const;
    CMString FindTimings();
    bool FindTiming(const SZorWishedMode& oWish, SZorMode& oTiming) const;
    bool AddMode(const SZorMode& oTiming, const CMString& sName, bool bFallback);
    CMString CheckLimits() const;
    CMString PlanLink();
    unsigned long long GetMostClock() const;
    void SizeLink(unsigned long long ullNeeded);
    CMString CheckBlocks() const;
    CMString RepeatPreferred();
    CMString PlacePreferred();
    void AddVga();
    CMString Place(SPlannedMode& oMode, bool bPreferred) const;

    const SZorEdidWishes& m_oWishes;
    bool m_bAudio;
    bool m_bCta = false;
    SPlannedLink m_oLink;
    CMArray<SPlannedMode> m_aoModes;
    unsigned int m_uiFirstDetailed = 0;
};
} // namespace ZorWrite
