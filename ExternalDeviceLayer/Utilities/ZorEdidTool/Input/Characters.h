// Characters of a text, in ASCII or UTF-8.

#pragma once

#include <stddef.h>

#include <string_view>

// Bytes of the UTF-8 character at this place; 0 for bytes that are not UTF-8.
size_t GetCharacterLength(std::string_view sText, size_t uiPlace);

// Bytes of the UTF-8 character at this place if it is printable, else 0: for control characters, U+0080 to
// U+009F included, and bytes that are not UTF-8.
size_t GetPrintableLength(std::string_view sText, size_t uiPlace);

// Whether the text has only printable characters, line ends and what terminals write.
bool IsText(std::string_view sText);
