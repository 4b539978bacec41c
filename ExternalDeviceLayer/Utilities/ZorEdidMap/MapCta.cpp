// CTA-861 extension block: still one field.

#include "MapWriter.h"

void MapCtaBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    oWriter.BeginBlock("CTA-861 extension block", uiOffset, uiLength);
    oWriter.EndBlock("Unknown", CZorEdidMap::eKind_Unknown);
}
