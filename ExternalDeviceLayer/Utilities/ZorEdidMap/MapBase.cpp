// The base block of E-EDID 1.3 and 1.4.

#include "MapWriter.h"

void MapBaseBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    oWriter.BeginBlock("Base block", uiOffset, uiLength);
    oWriter.EndBlock("Unknown", CZorEdidMap::eKind_Unknown);
}
