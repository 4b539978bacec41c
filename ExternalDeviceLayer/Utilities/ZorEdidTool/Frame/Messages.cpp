// What the library says while it works, kept apart for each thread.

#include "Messages.h"

#include <stdarg.h>
#include <stdio.h>

#include <algorithm>
#include <string_view>
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
    constexpr std::string_view sAssertion = ") Assertion failed\n"; // after FILE(LINE
    char szText[512];
    const int iLength = vsnprintf(szText, sizeof(szText), pszFormat, oList);
    const std::string_view sMessage(szText, std::min(static_cast<size_t>(std::max(iLength, 0)), sizeof(szText) - 1));
    std::string& sText = GetText();
    if (sText.size() < gsc_uiLongest && !sMessage.ends_with(sAssertion))
    {
        sText += sMessage;
    }
}

void Drop(const char* /*pszFormat*/, va_list /*oList*/) {}
} // namespace

void CatchMessages(bool bKeep)
{
    OsServices::SetMsgPrefixEnable(0); // it would come apart from the text, and means nothing to a user
    OsServices::SetMsgWriter(bKeep ? Keep : Drop);
}

std::string TakeMessages()
{
    std::string sText = std::exchange(GetText(), "");
    if (!sText.empty() && sText.back() != '\n')
    {
        sText += '\n'; // a message that was cut
    }
    return sText;
}
