// Catches what is written to standard output while an object of this class lives, to count assertion lines.

#pragma once

#include <gtest/gtest.h>
#include <stdio.h>

#include <string>

class CCapturedOutput
{
public:
    CCapturedOutput() { testing::internal::CaptureStdout(); }
    ~CCapturedOutput()
    {
        if (!m_bTaken)
        {
            testing::internal::GetCapturedStdout();
        }
    }
    CCapturedOutput(const CCapturedOutput&) = delete;
    CCapturedOutput& operator=(const CCapturedOutput&) = delete;

    // Ends the capture and gives the text.
    std::string Take()
    {
        m_bTaken = true;
        fflush(stdout);
        return testing::internal::GetCapturedStdout();
    }

    // Ends the capture and gives the number of assertion lines in it.
    unsigned int TakeAssertionCount()
    {
        const std::string sText = Take();
        const std::string sMark = "Assertion failed\n";
        unsigned int uiCount = 0;
        for (size_t uiAt = sText.find(sMark); uiAt != std::string::npos; uiAt = sText.find(sMark, uiAt + 1))
        {
            ++uiCount;
        }
        return uiCount;
    }

private:
    bool m_bTaken = false;
};
