// The modes of an image, a line each.

#include "ModesDump.h"

#include <stdio.h>
#include <string>

#include "ZorEdidMap.h"
#include "ZorEdidModes.h"

namespace
{
std::string GetFlags(const SZorMode& oMode, unsigned int uiStereo)
{
    std::string sFlags = oMode.m_oHorizontal.m_bPositive ? "+hsync" : "-hsync";
    sFlags += oMode.m_oVertical.m_bPositive ? " +vsync" : " -vsync";
    sFlags += oMode.m_bInterlaced ? " interlace" : "";
    sFlags += oMode.m_uiRepetition > 1 ? " doubleclock" : "";
    sFlags += oMode.m_eY420 == SZorMode::eY420_Only   ? " 420only"
              : oMode.m_eY420 == SZorMode::eY420_Also ? " 420also"
                                                      : "";
    return sFlags + (uiStereo != 0 ? " 3d=" + std::to_string(uiStereo) : "");
}

void PrintMode(const char* pszName, const SZorImageMode& oListed, const SZorMode& oMode)
{
    constexpr const char* apszNumbers[] = { "none", "bytes", "table", "formula", "assumed" };
    const unsigned int uiRepetition = oMode.m_uiRepetition;
    const unsigned int uiFields = oMode.m_bInterlaced ? 2 : 1;
    const SZorMode::SAxis& oAcross = oMode.m_oHorizontal;
    const SZorMode::SAxis& oDown = oMode.m_oVertical;
    const unsigned int uiStartX = oAcross.m_uiActive + oAcross.m_uiFront;
    const unsigned int uiStartY = oDown.m_uiActive + uiFields * oDown.m_uiFront;
    printf("mode\t%s\t%s\t0x%x\t%.3f\t%u\t%u\t%u\t%u\t%u\t%u\t%u\t%u\t%s\t%u\t%u:%u\t%s\t%u\n", pszName,
           CZorEdidMap::GetId(oListed.m_eField), oListed.m_uiOffset,
           static_cast<double>(oMode.m_ullClock) / 1000 / uiRepetition,
           oMode.m_bTiming ? oAcross.m_uiActive / uiRepetition : oMode.m_uiWidth, uiStartX / uiRepetition,
           (uiStartX + oAcross.m_uiSync) / uiRepetition, oAcross.m_uiTotal / uiRepetition, oMode.m_uiHeight, uiStartY,
           uiStartY + uiFields * oDown.m_uiSync, oDown.m_uiTotal, GetFlags(oMode, oListed.m_uiStereo).c_str(),
           oListed.m_uiPreference, oMode.m_uiAspectWidth, oMode.m_uiAspectHeight, apszNumbers[oListed.m_eNumbers],
           oMode.m_eKind == SZorMode::eModeKind_Vic ? oMode.m_uiCode : 0);
}
} // namespace

void PrintModes(const char* pszPath, unsigned int uiSize, const unsigned char* pui8Data)
{
    const std::string sPath = pszPath;
    const std::string sName = sPath.substr(sPath.rfind('/') + 1);
    CZorEdidModes oModes;
    oModes.Read(uiSize, pui8Data);
    for (unsigned int uiMode = 0; uiMode < oModes.GetCount(); ++uiMode)
    {
        const SZorImageMode& oListed = oModes.Get(uiMode);
        SZorMode oPartner;
        PrintMode(sName.c_str(), oListed, oListed.m_oMode);
        if (CZorEdidModes::GetPartner(oListed.m_oMode, oPartner))
        {
            PrintMode(sName.c_str(), oListed, oPartner);
        }
    }
}
