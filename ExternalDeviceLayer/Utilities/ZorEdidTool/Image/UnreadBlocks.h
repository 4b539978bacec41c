// Blocks of an image that the library drops, and why, in the words of modes, edit and check.

#pragma once

#include <string>

#include "LoadedImage.h"

// Why the library does not read an extension block of 128 bytes; empty for a block that it reads. pszRepair follows a
// reason that is a checksum.
std::string FindUnreadReason(const unsigned char* pui8Block, const char* pszRepair = "");

// Error lines, one for each announced block that is present and not read; empty when all are read. pszRepair is that of
// FindUnreadReason.
std::string DescribeUnreadBlocks(const SInput& oInput, const CLoadedImage& oImage, const char* pszRepair);
