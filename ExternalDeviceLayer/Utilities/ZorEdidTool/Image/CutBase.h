// What is left of an image that ends within its base block.

#pragma once

#include <vector>

// A base block with the parts that are whole, and nothing said in the place of the others: facts and modes can be read
// of it. Bytes that are a block or more stay as they are; without identity and display parameters, of which nothing
// can stand in for another part, the result is empty.
std::vector<unsigned char> FillCutBase(const std::vector<unsigned char>& aui8Bytes);
