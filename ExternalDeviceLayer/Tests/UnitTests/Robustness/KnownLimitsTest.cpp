// What docs/robustness.md names as a limit: each is safe, and told of.

#include <gtest/gtest.h>
#include <stdio.h>

#include <ostream>
#include <string>

#include "CapturedOutput.h"
#include "ZorMFCTypes.h"

namespace
{
struct SFormatCase
{
    const char* m_pszName;
    const char* m_pszFormat;
    double m_dArgument; // as an int where the format wants one
    bool m_bIsInteger;
    unsigned int m_uiReports; // none where a single character is lost

    // Its bytes would show its padding.
    friend void PrintTo(const SFormatCase& oCase, std::ostream* poStream) { *poStream << oCase.m_pszName; }
};

class FormatBeyondTheEstimate : public testing::TestWithParam<SFormatCase>
{
};

// The estimate counts neither sign nor prefix nor exponent, and no width of f.
TEST_P(FormatBeyondTheEstimate, IsCut)
{
    const SFormatCase& oCase = GetParam();
    char szWhole[1024];
    CMString oText;
    CCapturedOutput oOutput;
    if (oCase.m_bIsInteger)
    {
        snprintf(szWhole, sizeof(szWhole), oCase.m_pszFormat, static_cast<int>(oCase.m_dArgument));
        oText.Format(oCase.m_pszFormat, static_cast<int>(oCase.m_dArgument));
    }
    else
    {
        snprintf(szWhole, sizeof(szWhole), oCase.m_pszFormat, oCase.m_dArgument);
        oText.Format(oCase.m_pszFormat, oCase.m_dArgument);
    }
    EXPECT_EQ(oCase.m_uiReports, oOutput.TakeAssertionCount());
    const std::string sWhole = szWhole;
    const std::string sText = static_cast<const char*>(oText);
    EXPECT_LT(sText.size(), sWhole.size());
    EXPECT_EQ(sWhole.substr(0, sText.size()), sText);
    EXPECT_EQ(static_cast<int>(sText.size()), oText.GetLength());
}

INSTANTIATE_TEST_SUITE_P(Cases, FormatBeyondTheEstimate,
                         testing::Values(SFormatCase{ "SignAndPrecision", "%+.40d", 5, true, 0 },
                                         SFormatCase{ "WidthOfF", "%500f", 1.5, false, 1 },
                                         SFormatCase{ "PrecisionOfE", "%.200e", 1.5, false, 1 }),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_pszName); });
}
