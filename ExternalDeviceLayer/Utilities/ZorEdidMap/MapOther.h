// What MapOther.cpp shares with the files of single extension blocks.

#pragma once

#include "MapWriter.h"

// The leaves of a display information extension block, tag 40h, but for the checksum.
void MapDisplayInformation(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
