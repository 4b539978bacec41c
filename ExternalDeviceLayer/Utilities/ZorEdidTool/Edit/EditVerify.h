// The last look at an edited image, before it is written: nothing that no edit named reads differently.

#pragma once

#include <string>
#include <vector>

#include "EditImage.h"

// Empty, or what the edits changed although none of them named it: then they are at fault.
//   aui8Read    the image as it was read
//   aui8Edited  what would be written
//   aoBlocks    the blocks with what was edited in them; of their bytes nothing is used
std::string VerifyEdits(const CBytes& aui8Read, const CBytes& aui8Edited, const std::vector<SEditedBlock>& aoBlocks);
