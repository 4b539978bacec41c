// Lines of tables, and patterns in them.

#include "MapReference.h"

#include <fstream>
#include <map>
#include <regex>

namespace
{
// Values in quotes may hold commas.
CLine SplitLine(const std::string& sLine)
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
} // namespace

std::vector<CLine> ReadLines(const std::string& sName)
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

std::vector<std::vector<std::string>> FindAll(const std::string& sText, const char* pszPattern)
{
    static std::map<std::string, std::regex> s_oPatterns; // to make one takes longer than to use it
    const std::regex& oPattern = s_oPatterns.try_emplace(pszPattern, pszPattern).first->second;
    std::vector<std::vector<std::string>> aasFound;
    for (std::sregex_iterator itFound(sText.begin(), sText.end(), oPattern); itFound != std::sregex_iterator();
         ++itFound)
    {
        aasFound.emplace_back(itFound->begin(), itFound->end());
    }
    return aasFound;
}

std::string ReplaceAll(const std::string& sText, const char* pszPattern, const char* pszBy)
{
    return std::regex_replace(sText, std::regex(pszPattern), pszBy);
}
