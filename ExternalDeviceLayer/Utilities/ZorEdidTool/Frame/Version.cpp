// The only source that a new version compiles anew.

#include "Version.h"

const char* GetVersion() { return ZOREDID_VERSION; }
