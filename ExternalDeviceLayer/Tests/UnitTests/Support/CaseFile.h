// Tables of cases as text files beside the tests, one case a line:
//
//     name | field | field ...        # a comment
//
// Blank lines and lines that begin with '#' are passed over; blanks around a field do not count. A field of bytes holds
// hexadecimal pairs, with short forms: "00*5" repeats a pair, "..127" fills with zeros up to that many bytes, and "sum"
// is the byte that makes all of them sum up to 0 modulo 256.

#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "TestBytes.h"

struct SCaseRow
{
    std::vector<std::string> m_asFields; // the name first

    const std::string& GetName() const { return m_asFields[0]; }
    const std::string& GetText(size_t uiField) const { return m_asFields.at(uiField); }
    std::vector<std::string> GetWords(size_t uiField) const // separated by blanks
    {
        std::istringstream oStream(GetText(uiField));
        return { std::istream_iterator<std::string>(oStream), std::istream_iterator<std::string>() };
    }
    unsigned int GetNumber(size_t uiField) const
    {
        return static_cast<unsigned int>(std::stoul(GetText(uiField), nullptr, 0)); // "0x" for hexadecimal
    }

    std::vector<unsigned int> GetNumbers(size_t uiField) const // separated by blanks
    {
        std::vector<unsigned int> auiNumbers;
        std::istringstream oStream(GetText(uiField));
        for (std::string sToken; oStream >> sToken;)
        {
            auiNumbers.push_back(static_cast<unsigned int>(std::stoul(sToken, nullptr, 0)));
        }
        return auiNumbers;
    }

    CBytes GetBytes(size_t uiField) const { return ParseBytes(GetText(uiField)); }
};

// pszFile  path below Tests/UnitTests. Fails the test when the file has no row or a row has another number of fields.
inline std::vector<SCaseRow> ReadCases(const char* pszFile, size_t uiFields)
{
    std::vector<SCaseRow> aoRows;
    std::ifstream oFile(std::string(ZOREDID_SOURCE_DIR "/ExternalDeviceLayer/Tests/UnitTests/") + pszFile);
    for (std::string sLine; std::getline(oFile, sLine);)
    {
        SCaseRow oRow;
        std::istringstream oStream(sLine.substr(0, sLine.find('#')));
        for (std::string sField; std::getline(oStream, sField, '|');)
        {
            const size_t uiFirst = sField.find_first_not_of(' ');
            const size_t uiLast = sField.find_last_not_of(' ');
            oRow.m_asFields.push_back(uiFirst == std::string::npos ? "" : sField.substr(uiFirst, uiLast - uiFirst + 1));
        }
        if (oRow.m_asFields.empty() || (oRow.m_asFields.size() == 1 && oRow.m_asFields[0].empty()))
        {
            continue;
        }
        EXPECT_EQ(uiFields, oRow.m_asFields.size()) << pszFile << ": " << sLine;
        oRow.m_asFields.resize(uiFields);
        aoRows.push_back(oRow);
    }
    EXPECT_FALSE(aoRows.empty()) << pszFile;
    return aoRows;
}
