// The reader of text tables without the file around it: it opens nothing and prints nothing. The form is described in
// ZorEdidUtils.h, at ExtractEdidFromDatFile. Private to the project, which reads tables from memory with it, too.

#pragma once

#include <stdio.h>

#include "ZorEdidUtils.h"

namespace ZorUtils
{

// The line before the rows begins with it: 8 blanks, 40 underscores.
inline constexpr char gsc_szEdidTableMarker[] = "        ________________________________________";

// Reads from the position of poFile to the line after the table and replaces oData by the bytes, of whatever number.
// False without a marker line, or when it ends the file without a line feed; oData is then left alone. False also
// when reading failed; oData then holds the bytes in front of that place.
bool ReadEdidTable(FILE* poFile, CZorEdidUtils::CByteArray& oData);

} // namespace ZorUtils
