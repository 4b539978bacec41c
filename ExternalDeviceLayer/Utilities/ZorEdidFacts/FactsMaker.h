// The name of a maker by the lists that there are.

#pragma once

#include "ZorMFCTypes.h"

namespace ZorFacts
{
// Of the list pszFirst, else of the library's own, else of pszLast. Rows of a file are three letters, a tab and a name;
// null for no file.
bool FindMaker(const char* pszLetters, const char* pszFirst, const char* pszLast, CMString& sName);
} // namespace ZorFacts
