// The names of makers: the only part of the facts that reads a file.

#include <stdio.h>
#include <string.h>

#include "Standards/Makers.h"
#include "ZorEdidFacts.h"

namespace
{
constexpr char gsc_szSystemList[] = "/usr/share/hwdata/pnp.ids";
constexpr unsigned int gsc_uiMostLine = 256;

// Rows are three letters, a tab and a name.
bool FindInFile(FILE* poFile, const char* pszLetters, CMString& sName)
{
    char szLine[gsc_uiMostLine];
    while (fgets(szLine, sizeof(szLine), poFile) != nullptr)
    {
        char* pszName = szLine + ZorStandards::gsc_uiMakerLetters;
        if (strncmp(szLine, pszLetters, ZorStandards::gsc_uiMakerLetters) == 0 && *pszName == '\t')
        {
            ++pszName;
            pszName[strcspn(pszName, "\r\n")] = '\0';
            sName = pszName;
            return true;
        }
    }
    return false;
}
} // namespace

int CZorEdidFacts::FindMakerName(const char* pszLetters, CMString& sName, const char* pszFile)
{
    if (pszLetters == nullptr || strlen(pszLetters) != ZorStandards::gsc_uiMakerLetters)
    {
        return 0;
    }
    FILE* poFile = fopen(pszFile != nullptr ? pszFile : gsc_szSystemList, "re");
    const bool bFound = poFile != nullptr && FindInFile(poFile, pszLetters, sName);
    if (poFile != nullptr)
    {
        fclose(poFile);
    }
    const char* pszOwn = bFound ? nullptr : ZorStandards::FindMakerName(pszLetters);
    if (pszOwn != nullptr)
    {
        sName = pszOwn;
    }
    return bFound || pszOwn != nullptr ? 1 : 0;
}
