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

inline unsigned int ParseNumber(const std::string& sText) // "0x" for hexadecimal
{
    return static_cast<unsigned int>(std::stoul(sText, nullptr, 0));
}

// "@14 B5 @36 00 00": bytes from 14h on, and from 36h on.
inline CBytes ChangeBytes(CBytes aui8Image, const std::string& sChanges)
{
    std::istringstream oStream(sChanges);
    size_t uiOffset = 0;
    for (std::string sToken; oStream >> sToken;)
    {
        if (sToken[0] == '@')
        {
            uiOffset = std::stoul(sToken.substr(1), nullptr, 16);
            continue;
        }
        for (const unsigned char ui8Byte : ParseBytes(sToken))
        {
            aui8Image.at(uiOffset++) = ui8Byte;
        }
    }
    return aui8Image;
}

struct SCaseRow
{
    std::vector<std::string> m_asFields; // the name first
    std::string m_sPlace;                // file and line

    const std::string& GetName() const { return m_asFields[0]; }
    const std::string& GetText(size_t uiField) const { return m_asFields.at(uiField); }
    std::vector<std::string> GetWords(size_t uiField) const // separated by blanks
    {
        std::istringstream oStream(GetText(uiField));
        return { std::istream_iterator<std::string>(oStream), std::istream_iterator<std::string>() };
    }
    // What does not read ends the test with the place of the row.
    template <class READ>
    auto Read(READ fnRead, const std::string& sText) const
    {
        try
        {
            return fnRead(sText);
        }
        catch (const std::logic_error&)
        {
            throw std::runtime_error(m_sPlace + ": \"" + sText + "\" does not read");
        }
    }
    unsigned int GetNumber(size_t uiField) const { return Read(ParseNumber, GetText(uiField)); }
    std::vector<unsigned int> GetNumbers(size_t uiField) const // separated by blanks
    {
        std::vector<unsigned int> auiNumbers;
        for (const std::string& sWord : GetWords(uiField))
        {
            auiNumbers.push_back(Read(ParseNumber, sWord));
        }
        return auiNumbers;
    }
    CBytes GetBytes(size_t uiField) const { return Read(ParseBytes, GetText(uiField)); }
};

// pszFile  path below Tests/UnitTests. Fails the test when the file has no row or a row has another number of fields.
inline std::vector<SCaseRow> ReadCases(const char* pszFile, size_t uiFields)
{
    std::vector<SCaseRow> aoRows;
    std::ifstream oFile(std::string(ZOREDID_SOURCE_DIR "/ExternalDeviceLayer/Tests/UnitTests/") + pszFile);
    unsigned int uiLine = 0;
    for (std::string sLine; std::getline(oFile, sLine);)
    {
        SCaseRow oRow;
        oRow.m_sPlace = std::string(pszFile) + ":";
        oRow.m_sPlace += std::to_string(++uiLine);
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
        EXPECT_EQ(uiFields, oRow.m_asFields.size()) << oRow.m_sPlace;
        oRow.m_asFields.resize(uiFields);
        aoRows.push_back(oRow);
    }
    EXPECT_FALSE(aoRows.empty()) << pszFile;
    return aoRows;
}
