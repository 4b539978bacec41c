// DisplayID blocks under edit: the section that an image gets where an edit needs one, and modes that go.

#pragma once

#include <string>

#include "EditPlaces.h"
#include "FieldEdits.h"

// A section of a display says what it is, how large, and how it is connected, and has a preferred timing. An image
// without DisplayID gets two blocks: readers of version 1 end a section at the identification, so that the timings, of
// which the preferred one of the base block comes first, go to the second one. bPreferred: the caller's own timing
// is the preferred one. Nothing to do where there is DisplayID.
std::string BeginDisplayId(CFieldEdits& oFields, bool bPreferred);

// Where a further data block goes: after a section that only says what the display is.
CFieldEdits::SWhere FindPlaceInDisplayId(const CFieldEdits& oFields);

// Whether RemoveFromDisplayId takes the mode away: a timing, a code or a bit of a DisplayID block.
bool IsInDisplayId(const CBytes& aui8Image, const SZorImageMode& oPlace);

// Removes the wanted mode or code from all DisplayID blocks: records and codes, the bits of lists of bits, and of a
// Type X timing that also declares 1000/1001 of its rate only that, when it alone is wanted.
std::string RemoveFromDisplayId(CFieldEdits& oFields, const SWanted& oWanted);
