// The message members of OsServices: gates, line head, and the hand-over to the writer.
// The members that need an object are in OsServices.cpp.

#include "OsServices.h"

#include <stdarg.h>

#include "OsServicesClient.h"
#include "ZorTools.h"

constinit int OsServices::ms_bEnableErrorMsg = 1;
constinit int OsServices::ms_bEnableUserMsg = 1;
constinit int OsServices::ms_bEnableInfo = 0;
constinit int OsServices::ms_bIsMessagePrefixEnabled = 1;
constinit char OsServices::ms_szMsgPrefix[OsServices::msc_uiMsgPrefixSize] = "nr4";
constinit unsigned long OsServices::ms_uiReferenceId = 0;
constinit OsServices::CMsgWriter OsServices::ms_pfnMsgWriter = nullptr;

namespace
{
constinit thread_local unsigned int g_uiPauses = 0; // of this thread
}

OsServices::CMsgPause::CMsgPause() { ++g_uiPauses; }
OsServices::CMsgPause::~CMsgPause() { --g_uiPauses; }

void OsServices::WriteErrorMsg(const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    WriteLine(ms_bEnableErrorMsg, "%s[%llu]: (Error) ", pszFormat, oList);
    va_end(oList);
}

void OsServices::WriteUserMsg(const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    WriteLine(ms_bEnableUserMsg, "%s[%llu]: (Info) ", pszFormat, oList);
    va_end(oList);
}

void OsServices::WriteMsg(const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    WriteLine(ms_bEnableInfo, "%s[%llu]: (Debug) ", pszFormat, oList);
    va_end(oList);
}

void OsServices::WriteMsgInternal(const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    WriteText(pszFormat, oList);
    va_end(oList);
}

void OsServices::SetMsgWriter(CMsgWriter pfnWriter) { ms_pfnMsgWriter = pfnWriter; }

void OsServices::SetMsgLevel(int bError, int bUser, int bInfo)
{
    ms_bEnableErrorMsg = bError;
    ms_bEnableUserMsg = bUser;
    ms_bEnableInfo = bInfo;
}

void OsServices::GetMsgLevel(int* pbError, int* pbUser, int* pbInfo)
{
    if (pbError != nullptr)
    {
        *pbError = ms_bEnableErrorMsg;
    }
    if (pbUser != nullptr)
    {
        *pbUser = ms_bEnableUserMsg;
    }
    if (pbInfo != nullptr)
    {
        *pbInfo = ms_bEnableInfo;
    }
}

void OsServices::SetMsgPrefix(const char* pszPrefix)
{
    ZorTools_strcpy_s(ms_szMsgPrefix, msc_uiMsgPrefixSize, pszPrefix);
}

void OsServices::SetMsgPrefixEnable(int bEnable) { ms_bIsMessagePrefixEnabled = bEnable; }

void OsServices::SetMsgReferenceId(unsigned long uiId) { ms_uiReferenceId = uiId; }

const char* OsServices::GetFileNameOnlySubSring(const char* pszPath)
{
    // Position 0 is left out: a path whose only separator is its first character comes back whole.
    for (unsigned int i = ZorTools_strlen(pszPath); i > 1; --i)
    {
        const char c = pszPath[i - 1];
        if (c == '/' || c == '\\')
        {
            return pszPath + i;
        }
    }
    return pszPath;
}

void OsServices::WriteText(const char* pszFormat, va_list oList)
{
    if (ms_pfnMsgWriter != nullptr)
    {
        ms_pfnMsgWriter(pszFormat, oList);
        return;
    }
    OsServices_WriteMsg(pszFormat, oList);
}

void OsServices::WriteLine(int bEnable, const char* pszHeadFormat, const char* pszFormat, va_list oList)
{
    if (bEnable == 0 || g_uiPauses != 0)
    {
        return;
    }
    if (ms_bIsMessagePrefixEnabled != 0)
    {
        WriteMsgInternal(pszHeadFormat, ms_szMsgPrefix, static_cast<unsigned long long>(ms_uiReferenceId));
    }
    WriteText(pszFormat, oList);
}
