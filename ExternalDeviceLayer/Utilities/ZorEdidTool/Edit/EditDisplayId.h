// DisplayID blocks under edit: the section that an image gets where an edit needs one, and modes that go.

#pragma once

#include <string>
#include <vector>

#include "EditPlaces.h"
#include "FieldEdits.h"

// A section of a display says what it is, how large, and how it is connected, and has a preferred timing. An image
// without DisplayID gets two blocks: readers of version 1 end a section at the identification, so that the timings, of
// which the preferred one of the base block comes first, go to the second one. bPreferred: the caller's own timing
// is the preferred one. Nothing to do where there is DisplayID.
std::string BeginDisplayId(CFieldEdits& oFields, bool bPreferred);

// Where a further data block goes: after a section that only says what the display is.
CFieldEdits::SWhere FindPlaceInDisplayId(const CFieldEdits& oFields);

// Whether the mode is a timing, a code or a bit of DisplayID: of a DisplayID block, or of a data block for such timings
// in a CTA-861 block. The functions below take it away.
bool IsDisplayIdTiming(const CBytes& aui8Image, const SZorImageMode& oPlace);

// Removes the wanted mode or code from all of them: records and codes, the bits of lists of bits, and of a Type X
// timing that also declares 1000/1001 of its rate only that, when it alone is wanted.
std::string RemoveDisplayIdTimings(CFieldEdits& oFields, const SWanted& oWanted);

// Of the edits those that name such a timing by its number in the library's list of detailed timings of the image as it
// was read, as edits of fields in the order in which they are to be done. Each goes once, however often it is named.
std::vector<SEdit> ListNumberedTimings(const CBytes& aui8Image, const std::vector<SEdit>& aoEdits);
