// DisplayID extension block: still one field.

#include "MapWriter.h"

void MapDisplayIdBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    oWriter.BeginBlock("DisplayID extension block", uiOffset, uiLength);
    oWriter.EndBlock("Unknown", CZorEdidMap::eKind_Unknown);
}
