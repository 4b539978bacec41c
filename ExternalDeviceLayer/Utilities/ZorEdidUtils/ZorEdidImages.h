// The EDIDs in the bytes of a file, one after the other: so write tools that copy all monitors into one file, and those
// that read a memory past the end of an EDID, where it often begins again. Private to the library and the command.

#pragma once

#include <stddef.h>

namespace ZorImages
{
// Where the EDID that begins at uiBegin ends: at the header of the next one, or after the last byte. Bytes without a
// header are not split. uiBegin is at most uiSize, which is at most INT_MAX.
size_t FindImageEnd(size_t uiSize, const unsigned char* pui8Bytes, size_t uiBegin);
} // namespace ZorImages
