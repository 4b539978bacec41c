// What DisplayID says of its own beside the base block, and follows an edit of that.

#pragma once

#include <string>
#include <vector>

#include "FieldEdits.h"

// Every field of these ids that says something. Where one cannot say the value, a note has what it still says.
void FollowWhereGiven(CFieldEdits& oFields, const std::vector<CFieldEdits::SValue>& aoValues);

void FollowSerial(CFieldEdits& oFields, unsigned int uiSerial);
// uiBits: of each colour; 0 for undefined.
void FollowColorDepth(CFieldEdits& oFields, unsigned int uiBits);
// x and y of red, green, blue and white, in CIE 1931.
void FollowColors(CFieldEdits& oFields, const std::vector<std::string>& asNumbers);
