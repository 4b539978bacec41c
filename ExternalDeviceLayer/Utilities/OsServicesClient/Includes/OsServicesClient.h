// The client layer: flat functions that hold what depends on the platform. The class OsServices calls them.

#pragma once

#include <stdarg.h>

// Writes to standard output, the one destination of all message levels. Returns what vfprintf returns.
int OsServices_WriteMsg(const char* pszFormat, va_list oList) __attribute__((format(printf, 1, 0)));
