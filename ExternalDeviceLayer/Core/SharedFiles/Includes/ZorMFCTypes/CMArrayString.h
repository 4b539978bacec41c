/// CMArrayString: a list of texts, as the reports hand it around, and the steps between it and one text.
///
/// When memory runs out, InitFromString leaves the tokens that it has appended so far; Join changes nothing.

#pragma once

#include "ZorMFCTypes/CMArray.h"
#include "ZorMFCTypes/CMString.h"

#pragma GCC visibility push(default)

class CMArrayString : public CMArray<CMString, const CMString&>
{
public:
    CMArrayString() = default;
    CMArrayString(const CMArrayString&) = default;
    CMArrayString& operator=(const CMArrayString&) = default;
    ~CMArrayString() override = default;

    /// All elements with pszSeparator between neighbours, also next to empty elements. Null means no separator.
    CMString Join(const char* pszSeparator) const;

    /// Cuts pszText at runs of the characters in pszSeparators and appends the tokens; none of them is empty. A null
    /// text counts as empty. Gives the count of the whole array.
    int InitFromString(const char* pszText, const char* pszSeparators);
};

#pragma GCC visibility pop
