// Wishes that are wrong by themselves, whatever else is wished. Private to the library and the command, which takes
// them for a wrong command line.

#pragma once

#include "ZorEdidMaker.h"

namespace ZorWrite
{
// Empty, or the first value that no display has, with what is expected.
CMString CheckValues(const SZorEdidWishes& oWishes);
} // namespace ZorWrite
