#include <stdio.h>

#include "ZorEdidUtils.h"

int main(int iCount, char** ppszArguments) // the path of a .bin or .dat file, and where the edited image goes
{
    // Load. An image that has more blocks than were kept would lose them below.
    CZorEdidUtils::CByteArray aui8Image;
    CEdid oEdid;
    if (iCount != 3 || CZorEdidUtils::ExtractEdidFromFile(CMString(ppszArguments[1]), aui8Image) == 0 ||
        oEdid.SetEdidBuffer(aui8Image.GetData(), aui8Image.GetCount(), 0) == 0 ||
        oEdid.GetSize() != aui8Image.GetCount())
        return 1;

    // List.
    CVidParamTimingGeneric oTiming;
    for (unsigned int i = 0; oEdid.GetStandard(i, &oTiming, nullptr) != 0; ++i)
        printf("standard %u: %u x %u%c at %u Hz\n", i, oTiming.GetHorizontalActive(), oTiming.GetVerticalActive(),
               oTiming.IsInterlaced() != 0 ? 'i' : 'p', oTiming.GetVerticalRateInHz());
    if (fflush(stdout) != 0 || ferror(stdout) != 0)
        return 1;

    // Edit. A refusal changes nothing; a success leaves the checksums right.
    if (oEdid.RemoveStandardKeepingDescriptors(18) == 0)
        return 1;

    // Save.
    aui8Image = oEdid.GetEdidBuffer();
    FILE* pFile = fopen(ppszArguments[2], "wb");
    return pFile != nullptr && fwrite(aui8Image.GetData(), aui8Image.GetCount(), 1, pFile) == 1 && fclose(pFile) == 0
               ? 0
               : 1;
}
