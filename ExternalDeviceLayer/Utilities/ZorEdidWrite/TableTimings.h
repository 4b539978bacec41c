// Modes looked for in the tables of CTA-861 and VESA DMT: the one that an image is to announce, and all that there are.
// Private to the library and the command.

#pragma once

#include "ModePlaces.h"
#include "Standards/Modes.h"
#include "ZorEdidModes.h"

namespace ZorWrite
{
// A mode whose pixels are sent twice has two names: 720x480i, and 1440x480i by what is sent.
inline bool IsSamePicture(const SZorMode& oMode, const SZorMode& oWanted)
{
    return (oMode.m_uiWidth == oWanted.m_uiWidth || oMode.m_uiWidth * oMode.m_uiRepetition == oWanted.m_uiWidth) &&
           oMode.m_uiHeight == oWanted.m_uiHeight && oMode.m_bInterlaced == oWanted.m_bInterlaced;
}

// By its clock or by its name: 60 Hz of 640 x 480 at 59.94.
inline bool IsWantedRate(const SZorMode& oMode, const SZorMode& oWanted)
{
    return IsSameRate(oMode.m_oNominalRate, oWanted.m_oNominalRate) ||
           IsSameRate(oMode.m_oRate, oWanted.m_oNominalRate);
}

// Each offers timing after timing until fnIsIt returns true, which is then the result. The lowest code comes first, of
// each code the rate of its clock before its partner at 1000/1001.
template <class IS_IT>
bool FindInCodes(IS_IT fnIsIt)
{
    for (const ZorStandards::SVideoCode& oCode : ZorStandards::gsc_aoVideoCodes)
    {
        SZorMode oMode = {};
        SZorMode oPartner = {};
        ZorStandards::MakeVideoMode(oMode, oCode.m_ui8Code);
        if (fnIsIt(oMode) || (CZorEdidModes::GetPartner(oMode, oPartner) && fnIsIt(oPartner)))
        {
            return true;
        }
    }
    return false;
}

// Those with reduced blanking, or those with standard blanking.
template <class IS_IT>
bool FindInDmt(bool bReduced, IS_IT fnIsIt)
{
    for (unsigned int uiId = 1; uiId <= ZorStandards::gsc_uiDmtModes; ++uiId)
    {
        SZorMode oMode = {};
        ZorStandards::MakeDmtMode(oMode, uiId);
        if (bReduced == (oMode.m_eBlanking != SZorMode::eBlanking_Standard) && fnIsIt(oMode))
        {
            return true;
        }
    }
    return false;
}
} // namespace ZorWrite
