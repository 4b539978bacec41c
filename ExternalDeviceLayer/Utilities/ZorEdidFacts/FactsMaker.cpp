// The names of makers: the only part of the facts that reads a file.

#include "FactsMaker.h"

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
    FILE* poFile = pszFile != nullptr ? fopen(pszFile, "re") : nullptr;
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

bool ZorFacts::FindMaker(const char* pszLetters, const char* pszFirst, const char* pszLast, CMString& sName)
{
    if (pszLetters == nullptr || strlen(pszLetters) != ZorStandards::gsc_uiMakerLetters)
    {
        return false;
    }
    if (FindInFile(pszFirst, pszLetters, sName))
    {
        return true;
    }
    if (const char* pszOwn = ZorStandards::FindMakerName(pszLetters))
    {
        sName = pszOwn;
        return true;
    }
    return FindInFile(pszLast, pszLetters, sName);
}

int CZorEdidFacts::FindMakerName(const char* pszLetters, CMString& sName, const char* pszFile)
{
    return ZorFacts::FindMaker(pszLetters, pszFile, gsc_szSystemList, sName) ? 1 : 0;
}
