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
bool FindInFile(const char* pszFile, const char* pszLetters, CMString& sName)
{
    FILE* poFile = fopen(pszFile, "re");
    bool bFound = false;
    char szLine[gsc_uiMostLine];
    while (!bFound && poFile != nullptr && fgets(szLine, sizeof(szLine), poFile) != nullptr)
    {
        char* pszName = szLine + ZorStandards::gsc_uiMakerLetters;
        if (strncmp(szLine, pszLetters, ZorStandards::gsc_uiMakerLetters) == 0 && *pszName == '\t')
        {
            ++pszName;
            pszName[strcspn(pszName, "\r\n")] = '\0';
            sName = pszName;
            bFound = true;
        }
    }
    if (poFile != nullptr)
    {
        fclose(poFile);
    }
    return bFound;
}
} // namespace

int CZorEdidFacts::FindMakerName(const char* pszLetters, CMString& sName, const char* pszFile)
{
    if (pszLetters == nullptr || strlen(pszLetters) != ZorStandards::gsc_uiMakerLetters)
    {
        return 0;
    }
    if (pszFile != nullptr && FindInFile(pszFile, pszLetters, sName))
    {
        return 1;
    }
    if (const char* pszOwn = ZorStandards::FindMakerName(pszLetters))
    {
        sName = pszOwn;
        return 1;
    }
    return FindInFile(gsc_szSystemList, pszLetters, sName) ? 1 : 0;
}
