// CZorEdidCheck: the notes of the map as findings, the rules by topic, and the order of the bytes.

#include "ZorEdidCheck.h"

#include <string.h>

#include <algorithm>

#include "CheckFindings.h"
#include "EdidBase.h"

namespace ZorCheck
{
namespace
{
CMString MakeHex(const unsigned char* pui8Bytes, unsigned int uiCount)
{
    CMString sText;
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        sText.AppendFormat("%02x", pui8Bytes[i]);
    }
    return sText;
}

CMString MakeNumber(long long llNumber)
{
    CMString sText;
    sText.Format("%lld", llNumber);
    return sText;
}

// The value as the bytes have it: a note on a reserved value needs its number, one on another code its name as well,
// one on characters their codes. One on a structure, or on many bytes, needs none.
CMString GetFound(const CMap& oMap, unsigned int uiField)
{
    constexpr unsigned int uiMost = 18; // bytes
    const CMap::SField& oField = oMap.GetField(uiField);
    if (oField.m_eKind == CMap::eKind_Group || oField.m_uiLength > uiMost)
    {
        return oField.m_uiDepth == 0 && oField.m_uiLength < gsc_uiBlockSize ? MakeNumber(oField.m_uiLength)
                                                                            : CMString();
    }
    if (oField.m_eKind == CMap::eKind_Text)
    {
        return MakeHex(oMap.GetData() + oField.m_uiOffset, oField.m_uiLength);
    }
    const bool bMeaning = oField.m_pszMeaning != nullptr;
    if (oField.m_eKind == CMap::eKind_Name && bMeaning && strcmp(oField.m_pszMeaning, "reserved") != 0)
    {
        return MakeNumber(oField.m_llNumber) + " (" + oField.m_pszMeaning + ")";
    }
    if (oField.m_eKind == CMap::eKind_Name || (oField.m_eKind == CMap::eKind_Number && bMeaning))
    {
        return MakeNumber(oField.m_llNumber);
    }
    return oMap.GetValue(uiField);
}

void AddNotes(CFindings& oFindings)
{
    const CMap& oMap = oFindings.GetMap();
    for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
    {
        const CMap::SNote& oNote = oMap.GetNote(i);
        oFindings.Add(oNote.m_uiField, oNote.m_eRule, oNote.m_eSeverity, oNote.m_pszText).m_sFound =
            GetFound(oMap, oNote.m_uiField);
    }
}

bool HasHeader(const CMap& oMap)
{
    return oMap.GetSize() >= gsc_uiBlockSize && memcmp(oMap.GetData(), EDID_V1_HEADER, sizeof(EDID_V1_HEADER)) == 0;
}
} // namespace
} // namespace ZorCheck

using namespace ZorCheck;

void CZorEdidCheck::Read(const CZorEdidMap& oMap, unsigned int uiThisYear)
{
    m_aoFindings.RemoveAll();
    CFindings oFindings(oMap, m_aoFindings);
    AddNotes(oFindings);
    if (HasHeader(oMap))
    {
        CheckBase(oFindings, uiThisYear);
        CheckTimings(oFindings);
        CheckCta(oFindings);
        CheckDisplayId(oFindings);
        CheckReading(oFindings);
    }
    // By their numbers, as a stable sort of the findings themselves would take memory past CMAllocator.
    CMArray<unsigned int, const unsigned int&> auiOrder;
    for (unsigned int i = 0; i < m_aoFindings.GetCount(); ++i)
    {
        auiOrder.Add(i);
    }
    const SZorFinding* poFirst = m_aoFindings.GetData();
    std::sort(auiOrder.GetData(), auiOrder.GetData() + auiOrder.GetCount(),
              [poFirst](unsigned int uiOne, unsigned int uiOther) {
                  const unsigned int uiOffset = poFirst[uiOne].m_uiOffset;
                  const unsigned int uiOtherOffset = poFirst[uiOther].m_uiOffset;
                  return uiOffset != uiOtherOffset ? uiOffset < uiOtherOffset : uiOne < uiOther;
              });
    CMArray<SZorFinding> aoOrdered;
    for (unsigned int i = 0; i < auiOrder.GetCount(); ++i)
    {
        aoOrdered.Add(m_aoFindings[auiOrder[i]]);
    }
    m_aoFindings = aoOrdered;
}
