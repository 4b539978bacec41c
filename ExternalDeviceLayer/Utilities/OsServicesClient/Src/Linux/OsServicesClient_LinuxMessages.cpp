// The one client function that messages need; it has a file to itself so that EDID programs link no threads and no
// libpci.

#include "OsServicesClient.h"

#include <stdio.h>

int OsServices_WriteMsg(const char* pszFormat, va_list oList) { return vfprintf(stdout, pszFormat, oList); }
