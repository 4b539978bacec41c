// The start of every fuzz target.

#include <stdio.h>

#include "OsServices.h"

// Assertion lines, and what the text loader prints, are the normal answer to hostile bytes; they would drown the
// findings.
extern "C" int LLVMFuzzerInitialize(int* /*piCount*/, char*** /*pppszArguments*/)
{
    OsServices::SetMsgLevel(0, 0, 0);
    return freopen("/dev/null", "w", stdout) != nullptr ? 0 : 1;
}
