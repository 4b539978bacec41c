// Extension block: still one field.

#include "MapWriter.h"

void MapOtherBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    oWriter.BeginBlock("Extension block", uiOffset, uiLength);
    oWriter.EndBlock("Unknown", CZorEdidMap::eKind_Unknown);
}
