// From a decoded timing to a CVidParamTiming, through its setters in a fixed order.

#include "EdidDetailedTiming.h"

#include "VidParamFill.h"

namespace ZorCore
{
namespace
{
template <class TIMING>
void Fill(const SDetailedTiming& oDetailed, TIMING& oTiming)
{
    oTiming.SetPixelClockInKiloHz(oDetailed.m_uiPixelClockInKiloHz);
    oTiming.SetInterlaced(oDetailed.m_bInterlaced ? 1 : 0);

    const SDetailedAxis& oHorizontal = oDetailed.m_oHorizontal;
    oTiming.SetHorizontalActive(oHorizontal.m_uiActive);
    oTiming.SetHorizontalFrontPorch(oHorizontal.m_uiFrontPorch);
    oTiming.SetHorizontalSync(oHorizontal.m_uiSync);
    oTiming.SetHorizontalBackPorch(oHorizontal.m_uiBlanking - oTiming.GetHorizontalSync() -
                                   oTiming.GetHorizontalFrontPorch());
    if (oDetailed.m_bHasPolarities)
    {
        oTiming.SetHorizontalPolarityPositive(oHorizontal.m_bPositive ? 1 : 0);
    }

    const SDetailedAxis& oVertical = oDetailed.m_oVertical;
    oTiming.SetVerticalActive(oVertical.m_uiActive);
    oTiming.SetVerticalFrontPorch(oVertical.m_uiFrontPorch);
    oTiming.SetVerticalSync(oVertical.m_uiSync);
    oTiming.SetVerticalBackPorch(oVertical.m_uiBlanking - oTiming.GetVerticalSync() - oTiming.GetVerticalFrontPorch());
    if (oDetailed.m_bHasPolarities)
    {
        oTiming.SetVerticalPolarityPositive(oVertical.m_bPositive ? 1 : 0);
    }

    // The bytes store no rates.
    oTiming.SetHorizontalRateInHz(oTiming.ComputeHorizontalRateInHz());
    oTiming.SetVerticalRateInHz(oTiming.ComputeVerticalRateInHz());
    oTiming.SetVideoFamilyType(CVidParamTiming::eVidParamType_Detailed);
}
} // namespace

void StoreDetailedTiming(const SDetailedTiming& oDetailed, CVidParamTiming& oTiming)
{
    VidParamFill::FillTiming(oTiming, [&oDetailed](auto& oFilled) { Fill(oDetailed, oFilled); });
}
} // namespace ZorCore
