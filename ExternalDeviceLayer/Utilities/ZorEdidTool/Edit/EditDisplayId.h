// The DisplayID section that an image gets where an edit needs one.

#pragma once

#include <string>

#include "FieldEdits.h"

// A section of a display says what it is, how large, and how it is connected, and has a preferred timing. An image
// without DisplayID gets two blocks: readers of version 1 end a section at the identification, so that the timings, of
// which the preferred one of the base block comes first, stand in the second one. bPreferred: the caller's own timing
// is the preferred one. Nothing to do where there is DisplayID.
std::string BeginDisplayId(CFieldEdits& oFields, bool bPreferred);

// Where a further data block goes: behind a section that only says what the display is.
CFieldEdits::SWhere FindPlaceInDisplayId(const CFieldEdits& oFields);
