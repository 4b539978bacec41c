// Tables of names and fields in the optional folder with further data (docs/test-data.md): lines of values.

#pragma once

#include <string>
#include <vector>

using CLine = std::vector<std::string>;

// Without the line of titles; empty where the folder is not there.
std::vector<CLine> ReadLines(const std::string& sName);

// The parts of the text that fit the pattern: the whole part, then its groups; an absent group is empty.
std::vector<std::vector<std::string>> FindAll(const std::string& sText, const char* pszPattern);
std::string ReplaceAll(const std::string& sText, const char* pszPattern, const char* pszBy);

#define READ_OR_SKIP(aoLines, pszName)                                                                                 \
    const std::vector<CLine> aoLines = ReadLines(pszName);                                                             \
    if (aoLines.empty())                                                                                               \
    {                                                                                                                  \
        GTEST_SKIP() << "the optional folder with further data has no " << (pszName);                                  \
    }
