// The name of a field with the structure around it, for refusals. Private to the library.

#pragma once

#include "ZorEdidMap.h"

namespace ZorMap
{
// A place of a map or a mask has no name of its own: "3D_MASK > Video code 4". oMap: CZorEdidMap, or what it holds.
template <class MAP>
CMString NameInGroup(const MAP& oMap, unsigned int uiField)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    const bool bNamed = oField.m_uiGroup != CZorEdidMap::msc_uiNone && oMap.GetField(oField.m_uiGroup).m_uiDepth != 0;
    return bNamed ? CMString(oMap.GetField(oField.m_uiGroup).m_pszName) + " > " + oField.m_pszName
                  : CMString(oField.m_pszName);
}
} // namespace ZorMap
