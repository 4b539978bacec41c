// The bytes that differ between two images, with their names.

#pragma once

#include <string>
#include <vector>

// A line a byte: "block 1 offset 0x04: 10 -> 90  Video data block > ...". Empty for images of the same bytes.
std::string DescribeBytes(const std::vector<unsigned char>& aui8First, const std::vector<unsigned char>& aui8Second);
