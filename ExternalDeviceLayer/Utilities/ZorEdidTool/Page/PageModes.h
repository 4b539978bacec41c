// The modes that an image announces, as the map has them: for those that stand in no list of the library, and for
// images that the library refuses.

#pragma once

#include "PageImage.h"

// Appends to the timings of oImage the modes of its map that no list has; of several in one kind of field the first.
void AddModesOfMap(SPageImage& oImage);
