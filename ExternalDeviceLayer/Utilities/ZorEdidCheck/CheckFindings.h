// The findings about one image while its rules run, and what the rules ask of it. Private to this folder.

#pragma once

#include "Standards/ExtensionBlocks.h"
#include "ZorEdidCheck.h"

namespace ZorCheck
{
using CMap = CZorEdidMap;
using namespace ZorStandards;

class CFindings
{
public:
    CFindings(const CMap& oMap, CMArray<SZorFinding>& aoFindings) : m_oMap(oMap), m_aoFindings(aoFindings) {}

    // The result may be completed until the next call.
    SZorFinding& Add(unsigned int uiField, EZorEdidRule eRule)
    {
        const SZorEdidRule* poRule = FindZorEdidRule(eRule);
        return Add(uiField, eRule, poRule->m_eSeverity, poRule->m_pszWhat);
    }
    SZorFinding& Add(unsigned int uiField, EZorEdidRule eRule, CMap::ESeverity eSeverity, const char* pszWhat)
    {
        SZorFinding oFinding;
        oFinding.m_eRule = eRule;
        oFinding.m_eSeverity = eSeverity;
        oFinding.m_uiField = uiField;
        oFinding.m_uiOffset = m_oMap.GetField(uiField).m_uiOffset;
        oFinding.m_pszWhat = pszWhat;
        m_aoFindings.Add(oFinding);
        return m_aoFindings[m_aoFindings.GetCount() - 1];
    }

    const CMap& GetMap() const { return m_oMap; }
    unsigned int GetByte(unsigned int uiOffset) const { return m_oMap.GetData()[uiOffset]; }
    const unsigned char* GetAt(unsigned int uiOffset) const { return m_oMap.GetData() + uiOffset; }
    // The group that the highest bit of a byte lies in.
    unsigned int FindGroup(unsigned int uiOffset) const
    {
        return m_oMap.GetField(m_oMap.FindLeaf(uiOffset, gsc_uiBits - 1)).m_uiGroup;
    }

private:
    const CMap& m_oMap;
    CMArray<SZorFinding>& m_aoFindings;
};

// ---- The rules by topic; of an image with the header of a base block ----

void CheckBase(CFindings& oFindings, unsigned int uiThisYear);
void CheckReading(CFindings& oFindings); // what the library does not read
} // namespace ZorCheck
