// Texts on their way out: UTF-8 of the characters of an image, and copies into a caller's buffer. Private to this
// folder.

#pragma once

#include <stddef.h>

namespace ZorC
{
inline constexpr size_t gsc_uiMostUtf8 = 3; // bytes of a character of code page 437

// The library's texts have '.' for a byte that is not printable ASCII. Gives those beyond ASCII as the characters of
// code page 437 that they are; pui8Bytes are the bytes of the text, at least as many. Writes at most gsc_uiMostUtf8
// bytes a character and a NUL, and returns the bytes without it.
size_t ToUtf8(const char* pszText, size_t uiLength, const unsigned char* pui8Bytes, char* pszUtf8);

// Copies what uiSize bytes have room for, with a NUL and no character in half. pszBuffer may be null where uiSize is 0.
// Returns uiLength.
size_t CopyText(const char* pszText, size_t uiLength, char* pszBuffer, size_t uiSize);
} // namespace ZorC
