#include <stdio.h>

#include "ZorEdidUtils.h"

int main(int iCount, char** ppszArguments) // the path of a .bin or .dat file
{
    CZorEdidUtils::CByteArray aui8Image;
    CEdid oEdid;
    if (iCount != 2 || CZorEdidUtils::ExtractEdidFromFile(CMString(ppszArguments[1]), aui8Image) == 0 ||
        oEdid.SetEdidBuffer(aui8Image.GetData(), aui8Image.GetCount(), 0) == 0)
    {
        return 1;
    }
    CVidParamTimingGeneric oTiming;
    for (unsigned int i = 0; oEdid.GetDetailed(i, &oTiming) != 0; ++i)
        printf("%u x %u at %u Hz\n", oTiming.GetHorizontalActive(), oTiming.GetVerticalActive(),
               oTiming.GetVerticalRateInHz());
}
