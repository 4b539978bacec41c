// The run over the suites. Their steps are in the Test_ sources.

#include "CEdidTestSuites.h"

#include <stdio.h>

namespace
{
// The widths of the literals are what readers of the output rely on: one of them is a column wider than the others.
constexpr std::array<SSuite, gsc_uiSuiteCount> gsc_aoSuites = { {
    { Test_AsusHd, "AsusHd Test           = %d\n" },
    { Test_BaseStandard, "BaseStandard Test     = %d\n" },
    { Test_BaseDetailed, "BaseDetailed Test     = %d\n" },
    { Test_ExtDetailed, "ExtDetailed Test      = %d\n" },
    { Test_ExtDetailed2, "ExtDetailed2 Test      = %d\n" },
    { Test_ExtStandard, "ExtStandard Test      = %d\n" },
    { Test_ExtStandard2, "ExtStandard2 Test     = %d\n" },
    { Test_ColorBitDepth, "ColorBitDepth Test    = %d\n" },
    { Test_TimingsCompare, "TimingsCompare Test   = %d\n" },
    { Test_Audio, "Audio Test            = %d\n" },
} };
} // namespace

std::array<SSuite, gsc_uiSuiteCount> GetSuites() { return gsc_aoSuites; }

void RunSuites(std::span<const SSuite> aoSuites)
{
    int iFailureCount = 0;
    for (const SSuite& oSuite : aoSuites)
    {
        const int iResult = oSuite.m_pfnRun();
        printf(oSuite.m_pszResultFormat, iResult);
        if (iResult == 0)
        {
            ++iFailureCount;
        }
    }
    printf("Tests failure count   = %d\n", iFailureCount);
    putchar('\n');
    printf("Press any key to close the application...");
}
