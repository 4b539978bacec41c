// The self-check: ten suites over EDID images of real monitors. Takes no arguments, reads no input, always exits with
// 0.

#include "CEdidTestSuites.h"
#include "OsServices.h"

int main()
{
    OsServices::SetMsgLevel(1, 1, 1);
    RunSuites(GetSuites());
    return 0;
}
