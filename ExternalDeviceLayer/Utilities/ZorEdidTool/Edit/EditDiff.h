// Changed bytes, with what they are.

#pragma once

#include <string>

#include "CeaBlocks.h"

// A line for each byte that differs between two images of the same size: block, offset in the block, old and new value
// in hexadecimal digits, and the fields whose bits differ.
std::string DescribeChanges(const CBytes& aui8Read, const CBytes& aui8Edited);
