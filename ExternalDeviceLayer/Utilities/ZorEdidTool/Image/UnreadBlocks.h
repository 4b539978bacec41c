// Blocks of an image that the library drops, and why: what modes and edit tell of them.

#pragma once

#include <string>

#include "LoadedImage.h"

// Error lines, one for each announced block that is present and not read; empty when there is none. pszRepair stands
// behind a reason that is a checksum.
std::string DescribeUnreadBlocks(const SInput& oInput, const CLoadedImage& oImage, const char* pszRepair);
