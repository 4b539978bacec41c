// Blocks of an image that the library drops, and why, in the words of modes and edit.

#pragma once

#include <string>

#include "LoadedImage.h"

// Error lines, one for each announced block that is present and not read; empty when all are read. pszRepair follows a
// reason that is a checksum.
std::string DescribeUnreadBlocks(const SInput& oInput, const CLoadedImage& oImage, const char* pszRepair);
