// Prints the timings that the EDID in a .bin or .dat file declares.

#include <stdio.h>

#include "ZorEdidUtils.h"

int main(int iCount, char** ppszArguments)
{
    CZorEdidUtils::CByteArray aui8Image;
    CEdid oEdid;
    if (iCount != 2 || !CZorEdidUtils::ExtractEdidFromFile(CMString(ppszArguments[1]), aui8Image) ||
        !oEdid.SetEdidBuffer(aui8Image.GetData(), aui8Image.GetCount(), 0))
    {
        return 1;
    }
    CVidParamTimingGeneric oTiming;
    const unsigned int uiDetailed = oEdid.GetDetailedCount();
    for (unsigned int i = 0; i < uiDetailed + oEdid.GetStandardCount(); ++i)
    {
        if (i < uiDetailed ? oEdid.GetDetailed(i, &oTiming) : oEdid.GetStandard(i - uiDetailed, &oTiming, nullptr))
        {
            printf("%u x %u at %u Hz\n", oTiming.GetHorizontalActive(), oTiming.GetVerticalActive(),
                   oTiming.GetVerticalRateInHz());
        }
    }
    return 0;
}
