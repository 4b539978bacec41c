// Why the library does not read an extension block, in words. Private to the library and the command.

#pragma once

#include "ZorMFCTypes.h"

namespace ZorCheck
{
// Of 128 bytes; empty for a block that it reads. pszRepair follows a reason that is a checksum.
CMString FindUnreadReason(const unsigned char* pui8Block, const char* pszRepair = "");
} // namespace ZorCheck
