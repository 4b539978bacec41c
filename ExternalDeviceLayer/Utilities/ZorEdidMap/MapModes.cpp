// CZorEdidMap::GetMode.

#include "MapModes.h"

#include "Standards/BaseBlock.h"

namespace ZorMap
{
void SetMarks(CMode& oMode, unsigned int uiMarks)
{
    oMode.m_eY420 = (uiMarks & gsc_uiMarkOnly420) != 0   ? SZorMode::eY420_Only
                    : (uiMarks & gsc_uiMarkAlso420) != 0 ? SZorMode::eY420_Also
                                                         : oMode.m_eY420;
    oMode.m_eStereo = (uiMarks & gsc_uiMarkHdmi3d) != 0 ? SZorMode::eStereo_Hdmi : oMode.m_eStereo;
    oMode.m_bReference |= (uiMarks & (gsc_uiMarkHdmi3d | gsc_uiMarkReference)) != 0;
    oMode.m_bNative |= (uiMarks & gsc_uiMarkNative) != 0;
}

namespace
{
ModeMaker GetMaker(const SOrigin& oOrigin)
{
    return oOrigin.m_poRow != nullptr     ? oOrigin.m_poRow->m_oForm.m_pfnMode
           : oOrigin.m_poTable != nullptr ? oOrigin.m_poTable->m_pfnMode
                                          : nullptr;
}

unsigned int GetCode(const SEntry& oEntry)
{
    const SRow* poRow = oEntry.m_oOrigin.m_poRow;
    const bool bOfRow = poRow != nullptr && poRow->m_oForm.m_ui8Code != 0;
    return oEntry.m_oOrigin.m_ui8Code != 0                      ? oEntry.m_oOrigin.m_ui8Code
           : bOfRow                                             ? poRow->m_oForm.m_ui8Code - 1U
           : oEntry.m_oField.m_eKind == CZorEdidMap::eKind_Flag ? 0 // its number is 1
                                                                : static_cast<unsigned int>(oEntry.m_oField.m_llNumber);
}
} // namespace
} // namespace ZorMap

using namespace ZorMap;

bool CZorEdidMap::GetMode(unsigned int uiField, SMode& oMode, unsigned int uiIndex) const
{
    if (uiField >= GetFieldCount())
    {
        MASSERT_FAILED();
        return false;
    }
    const SEntry& oEntry = m_poContent->m_aoEntries[uiField];
    const SOrigin& oOrigin = oEntry.m_oOrigin;
    const ModeMaker pfnMaker = GetMaker(oOrigin);
    if (pfnMaker == nullptr || (oEntry.m_oField.m_eKind == eKind_Flag && oEntry.m_oField.m_llNumber == 0))
    {
        return false;
    }
    const CRecord oRecord(m_poContent->m_oFacts, GetData() + oOrigin.m_uiOffset, oOrigin.m_uiLength);
    SMode oMade = {};
    if (!pfnMaker(oRecord, { GetCode(oEntry), uiIndex, oOrigin.m_ui8Marks }, oMade) || oMade.m_uiWidth == 0 ||
        oMade.m_uiHeight == 0)
    {
        return false;
    }
    SetMarks(oMade, oOrigin.m_ui8Marks);
    // Timings of the base block come first in its order of preference.
    oMade.m_bPreferred |=
        oOrigin.m_uiOffset == BaseBlock::gsc_uiDescriptorsOffset && BaseBlock::IsPreferredTimingDeclared(GetData());
    oMode = oMade;
    return true;
}
