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
// uiDeepColor: 1 for 30 bits a pixel, 2 for 36, 4 for 48.
void FollowDeepColor(CFieldEdits& oFields, unsigned int uiDeepColor);
void FollowMaker(CFieldEdits& oFields, const std::string& sLetters);
// uiWeek: as EDID stores it: 0 for not given, 255 for a model year.
void FollowDate(CFieldEdits& oFields, unsigned int uiWeek, unsigned int uiYear);
// The image has an audio descriptor.
void FollowAudio(CFieldEdits& oFields);
// x and y of red, green, blue and white, in CIE 1931.
void FollowColors(CFieldEdits& oFields, const std::vector<std::string>& asNumbers);
