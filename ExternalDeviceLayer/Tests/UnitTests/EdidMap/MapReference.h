// Tables of names and fields in the optional folder with further data (docs/test-data.md): lines of values.

#pragma once

#include <fstream>
#include <string>
#include <vector>

using CLine = std::vector<std::string>;

// Values in quotes may hold commas.
inline CLine SplitLine(const std::string& sLine)
{
    CLine asValues(1);
    bool bQuoted = false;
    for (const char cOne : sLine)
    {
        bQuoted ^= cOne == '"';
        if (cOne == ',' && !bQuoted)
        {
            asValues.emplace_back();
        }
        else if (cOne != '"' && cOne != '\r')
        {
            asValues.back() += cOne;
        }
    }
    return asValues;
}

// Without the line of titles; empty where the folder is not there.
inline std::vector<CLine> ReadLines(const std::string& sName)
{
    std::vector<CLine> aoLines;
    std::ifstream oFile(std::string(ZOREDID_SHARED_DIR "/reference/fields/") + sName);
    std::string sLine;
    std::getline(oFile, sLine);
    while (std::getline(oFile, sLine))
    {
        aoLines.push_back(SplitLine(sLine));
    }
    return aoLines;
}

#define READ_OR_SKIP(aoLines, pszName)                                                                                 \
    const std::vector<CLine> aoLines = ReadLines(pszName);                                                             \
    if (aoLines.empty())                                                                                               \
    {                                                                                                                  \
        GTEST_SKIP() << "the optional folder with further data has no " << (pszName);                                  \
    }
