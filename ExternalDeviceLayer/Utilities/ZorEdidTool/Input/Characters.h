// Characters of a text, in ASCII or UTF-8.

#pragma once

#include <stddef.h>

#include <string_view>

// Bytes of the character of UTF-8 at this place when it is one that prints, else 0: control characters, U+0080 to
// U+009F among them, and bytes that are no UTF-8.
size_t GetPrintableLength(std::string_view sText, size_t uiPlace);

// Whether nothing but characters that print stands there, with line ends and what terminals write among them.
bool IsText(std::string_view sText);
