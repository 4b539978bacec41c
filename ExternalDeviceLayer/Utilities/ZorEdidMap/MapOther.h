// What MapOther.cpp shares: with the walks of the other extension blocks, and with the files of single ones.

#pragma once

#include "MapWriter.h"

namespace ZorMap
{
extern const SRow g_oExtensionTagRow; // the first byte of an extension block

// The leaves of a display information extension block, tag 40h, but for the tag and the checksum.
void MapDisplayInformation(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
} // namespace ZorMap
