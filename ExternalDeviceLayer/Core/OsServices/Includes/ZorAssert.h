/// The one guard macro of the library. A guard reports and goes on: it never stops the program.
///
/// Use it after a test that has already failed, then return the function's own refusal value:
///
///     if (pui8Data == nullptr)
///     {
///         MASSERT_FAILED();
///         return 0;
///     }
///
/// It writes "FILE(LINE) Assertion failed" as an error line on standard output, with the bare file name.

#pragma once

#include "OsServices.h"
#include "ZorTools.h"

#define MASSERT_FAILED()                                                                                               \
    do                                                                                                                 \
    {                                                                                                                  \
        OsServices::WriteErrorMsg("%s(%d) Assertion failed\n", OsServices::GetFileNameOnlySubSring(__FILE__),          \
                                  __LINE__);                                                                           \
        ZorTools_Assert(0, __FILE__, __LINE__);                                                                        \
    } while (false)
