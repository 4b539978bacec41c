// What the library says while it works, kept apart for each thread.

#include "Messages.h"

#include <algorithm>
#include <stdarg.h>
#include <stdio.h>

#include <utility>

#include "OsServices.h"

namespace
{
constexpr size_t gsc_uiLongest = size_t{ 1 } << 16; // of one turn; hostile bytes give thousands of lines

std::string& GetText()
{
    thread_local std::string s_sText;
    return s_sText;
}

void Keep(const char* pszFormat, va_list oList)
{
    char szText[512];
    const int iLength = vsnprintf(szText, sizeof(szText), pszFormat, oList);
    std::string& sText = GetText();
    if (iLength > 0 && sText.size() < gsc_uiLongest)
    {
        sText.append(szText, std::min(static_cast<size_t>(iLength), sizeof(szText) - 1));
    }
}

void Drop(const char* /*pszFormat*/, va_list /*oList*/) {}
} // namespace

void CatchMessages(bool bKeep) { OsServices::SetMsgWriter(bKeep ? Keep : Drop); }

std::string TakeMessages()
{
    std::string sText = std::exchange(GetText(), "");
    if (!sText.empty() && sText.back() != '\n')
    {
        sText += '\n'; // the limit fell between a head and its text
    }
    return sText;
}
