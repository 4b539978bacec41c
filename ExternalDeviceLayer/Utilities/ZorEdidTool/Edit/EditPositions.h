// What an edit that takes a part away, or moves it, must leave as it is: what data blocks mean by counting timings, and
// blocks whose checksum is wrong.

#pragma once

#include <string>

#include "FieldEdits.h"

inline constexpr char gsc_szReferredByPosition[] =
    "a video format preference or native resolution data block refers by position to a timing that would be another "
    "one";

// Does the edit. Refused where a short video reference then means another timing than before, or a timing is counted
// among the native ones of CTA-861 that was not; the edited fields are of no use then, as after other refusals.
std::string DoInPlace(CFieldEdits& oFields, const CNamedEdit& fnEdit);

// Why the extension block with this offset of the image is not edited: its checksum is wrong, and an edit would make it
// right without having read the block. Empty otherwise.
std::string RefuseWrongSum(const CFieldEdits& oFields, unsigned int uiOffset);
