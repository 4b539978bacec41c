// What the library writes to standard output in a test: caught, to count assertion lines, or kept quiet.

#pragma once

#include <gtest/gtest.h>
#include <stdio.h>

#include <regex>
#include <string>

#include "OsServices.h"

// Catches standard output while an object of this class lives.
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

    // Ends the capture and gives the text.
    std::string Take()
    {
        m_bTaken = true;
        fflush(stdout);
        return testing::internal::GetCapturedStdout();
    }

    // Ends the capture and gives the number of assertion lines in it.
    unsigned int TakeAssertionCount() { return CountAssertions(Take()); }

    static unsigned int CountAssertions(const std::string& sText)
    {
        const std::regex oMark("Assertion failed\n"); // ends each of them
        return static_cast<unsigned int>(
            std::distance(std::sregex_iterator(sText.begin(), sText.end(), oMark), std::sregex_iterator()));
    }

private:
    bool m_bTaken = false;
};

// Assertion lines are a normal answer to the bytes of a sweep, and there are many of them: none is written while an
// object of this class lives.
class CQuietMessages
{
public:
    CQuietMessages() { OsServices::SetMsgLevel(0, 0, 0); }
    ~CQuietMessages() { OsServices::SetMsgLevel(1, 1, 0); }
};
