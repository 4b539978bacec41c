// The front door: each operation is one call of one source.

#include "VidParamTimingFunc.h"

#include "VidParamCea.h"
#include "VidParamCvt.h"
#include "VidParamDmt.h"
#include "VidParamGtf.h"
#include "VidParamSmpte.h"
#include "ZorAssert.h"

int CVidParamTimingFunc::ComputeCvt(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                                    unsigned int uiVerticalRateInHz, int bReducedBlanking, CVidParamTiming* poTiming)
{
    return CVidParamCvt::GetVidParam(uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz, bReducedBlanking,
                                     poTiming);
}

int CVidParamTimingFunc::ComputeGft(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                                    unsigned int uiVerticalRateInHz, CVidParamTiming* poTiming)
{
    return CVidParamGtf::GetVidParam(uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz, poTiming);
}

int CVidParamTimingFunc::GetCeaTiming(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiHorizontalActive,
                                      unsigned int uiVerticalActive, unsigned int uiVerticalRateInHz)
{
    return CVidParamCea::GetVidParam(uiIndex, poTiming, uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz,
                                     CVidParamCea::eScanTypeAny);
}

int CVidParamTimingFunc::GetDmtTiming(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiHorizontalActive,
                                      unsigned int uiVerticalActive, unsigned int uiVerticalRateInHz)
{
    return CVidParamDmt::GetVidParam(uiIndex, poTiming, uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz,
                                     CVidParamDmt::eModeListAll);
}

int CVidParamTimingFunc::GetSmpteTiming(unsigned int uiIndex, CVidParamTiming* poTiming,
                                        unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                                        unsigned int uiVerticalRateInHz)
{
    return CVidParamSmpte::GetVidParam(uiIndex, poTiming, uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz);
}

namespace
{
int AskSource(unsigned int uiHorizontalActive, unsigned int uiVerticalActive, unsigned int uiVerticalRateInHz,
              CVidParamTiming::EVidParamType eType, CVidParamTiming* poTiming)
{
    switch (eType)
    {
    case CVidParamTiming::eVidParamType_Dmt:
        return CVidParamDmt::GetVidParam(0, poTiming, uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz,
                                         CVidParamDmt::eModeListStandard);
    case CVidParamTiming::eVidParamType_DmtReducedBlanking:
        return CVidParamDmt::GetVidParam(0, poTiming, uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz,
                                         CVidParamDmt::eModeListReducedBlanking);
    case CVidParamTiming::eVidParamType_Cvt:
        return CVidParamCvt::GetVidParam(uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz, 0, poTiming);
    case CVidParamTiming::eVidParamType_CvtReducedBlanking:
        return CVidParamCvt::GetVidParam(uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz, 1, poTiming);
    case CVidParamTiming::eVidParamType_Gtf:
        return CVidParamGtf::GetVidParam(uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz, poTiming);
    case CVidParamTiming::eVidParamType_Cea:
        return CVidParamCea::GetVidParam(0, poTiming, uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz,
                                         CVidParamCea::eScanTypeAny);
    case CVidParamTiming::eVidParamType_Smpte:
        return CVidParamSmpte::GetVidParam(0, poTiming, uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz);
    case CVidParamTiming::eVidParamType_None:
    case CVidParamTiming::eVidParamType_Detailed:
    case CVidParamTiming::eVidParamType_Unknown:
        return 0;
    }
    return 0; // a number without a name
}
} // namespace

int CVidParamTimingFunc::GetTiming(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                                   unsigned int uiVerticalRateInHz, CVidParamTiming::EVidParamType eType,
                                   CVidParamTiming& oTiming)
{
    const int iResult = AskSource(uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz, eType, &oTiming);
    if (iResult == 0)
    {
        MASSERT_FAILED();
    }
    return iResult;
}
