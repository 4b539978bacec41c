// The findings about one image while its rules run, and what the rules ask of it. Private to this folder.

#pragma once

#include <algorithm>

#include "Standards/ExtensionBlocks.h"
#include "ZorEdidCheck.h"
#include "ZorEdidFacts.h"
#include "ZorEdidModes.h"

namespace ZorCheck
{
using CMap = CZorEdidMap;
using namespace ZorStandards;

class CFindings
{
public:
    CFindings(const CMap& oMap, CMArray<SZorFinding>& aoFindings) : m_oMap(oMap), m_aoFindings(aoFindings)
    {
        m_oModes.Read(oMap.GetSize(), oMap.GetData());
        m_oFacts.Read(oMap.GetSize(), oMap.GetData());
        FindMisread();
    }

    // The result may be completed until the next call.
    SZorFinding& Add(unsigned int uiField, EZorEdidRule eRule)
    {
        const SZorEdidRule* poRule = FindZorEdidRule(eRule);
        return Add(uiField, eRule, poRule->m_eSeverity, poRule->m_pszWhat);
    }
    SZorFinding& Add(unsigned int uiField, EZorEdidRule eRule, CMap::ESeverity eSeverity)
    {
        return Add(uiField, eRule, eSeverity, FindZorEdidRule(eRule)->m_pszWhat);
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
    const CZorEdidFacts& GetFacts() const { return m_oFacts; }
    // Bytes after a data block that its CTA-861 block cuts: byte 2 of the block points into it, so that what follows
    // is not timings.
    bool IsMisread(unsigned int uiOffset) const
    {
        const unsigned int* puiFirst = m_auiMisread.GetData();
        return std::any_of(puiFirst, puiFirst + m_auiMisread.GetCount(), [uiOffset](unsigned int uiFirst) {
            return uiFirst <= uiOffset && uiFirst / gsc_uiBlockSize == uiOffset / gsc_uiBlockSize;
        });
    }
    template <class VISIT>
    void ForEachMode(VISIT fnVisit) const
    {
        for (unsigned int i = 0; i < m_oModes.GetCount(); ++i)
        {
            if (!IsMisread(m_oModes.Get(i).m_uiOffset))
            {
                fnVisit(m_oModes.Get(i));
            }
        }
    }
    // With those that may be misread.
    template <class TEST>
    bool HasMode(TEST fnTest) const
    {
        bool bHas = false;
        for (unsigned int i = 0; i < m_oModes.GetCount() && !bHas; ++i)
        {
            bHas = fnTest(m_oModes.Get(i));
        }
        return bHas;
    }
    template <class VISIT>
    void ForEachReference(VISIT fnVisit) const
    {
        for (unsigned int i = 0; i < m_oModes.GetReferenceCount(); ++i)
        {
            fnVisit(m_oModes.GetReference(i));
        }
    }
    // Each counted extension block, as far as the image has it whole: fnVisit(CBlockWalk), fnVisit(offset). The map
    // notes those that are not counted, and those that are cut short.
    template <class VISIT>
    void ForEachBlock(VISIT fnVisit) const
    {
        const unsigned int uiCount = CountExtensions(m_oMap.GetData(), m_oMap.GetSize());
        for (CBlockWalk oWalk(m_oMap.GetData(), m_oMap.GetSize());
             oWalk.Next() && oWalk.IsWhole() && oWalk.GetNumber() <= uiCount;)
        {
            fnVisit(oWalk);
        }
    }
    template <class VISIT>
    void ForEachBlock(unsigned int uiTag, VISIT fnVisit) const
    {
        ForEachBlock([&](const CBlockWalk& oWalk) {
            if (oWalk.GetData()[0] == uiTag)
            {
                fnVisit(oWalk.GetOffset());
            }
        });
    }
    // The offset of the first one; 0 for none.
    unsigned int FindFirstBlock(unsigned int uiTag) const
    {
        unsigned int uiFirst = 0;
        ForEachBlock(uiTag, [&](unsigned int uiOffset) { uiFirst = uiFirst == 0 ? uiOffset : uiFirst; });
        return uiFirst;
    }
    unsigned int GetByte(unsigned int uiOffset) const { return m_oMap.GetData()[uiOffset]; }
    const unsigned char* GetAt(unsigned int uiOffset) const { return m_oMap.GetData() + uiOffset; }
    // The group that the highest bit of a byte lies in.
    unsigned int FindGroup(unsigned int uiOffset) const
    {
        return m_oMap.GetField(m_oMap.FindLeaf(uiOffset, gsc_uiBits - 1)).m_uiGroup;
    }

    // Each field of this id in the block at this offset: fnVisit(index, field).
    template <class VISIT>
    void ForEachField(unsigned int uiOffset, EZorEdidField eId, VISIT fnVisit) const
    {
        const unsigned int uiBlock = FindBlock(uiOffset);
        for (unsigned int i = uiBlock; i < m_oMap.GetField(uiBlock).m_uiEnd; ++i)
        {
            const CMap::SField& oField = m_oMap.GetField(i);
            if (oField.m_eId == eId)
            {
                fnVisit(i, oField);
            }
        }
    }
    // The first of them; CZorEdidMap::msc_uiNone for none.
    unsigned int FindField(unsigned int uiOffset, EZorEdidField eId) const
    {
        unsigned int uiFirst = CMap::msc_uiNone;
        ForEachField(uiOffset, eId, [&](unsigned int uiField, const CMap::SField&) {
            uiFirst = uiFirst == CMap::msc_uiNone ? uiField : uiFirst;
        });
        return uiFirst;
    }

    // The field of a whole block.
    unsigned int FindBlock(unsigned int uiOffset) const
    {
        unsigned int uiField = FindGroup(uiOffset);
        while (m_oMap.GetField(uiField).m_uiDepth != 0)
        {
            uiField = m_oMap.GetField(uiField).m_uiGroup;
        }
        return uiField;
    }

private:
    void FindMisread()
    {
        for (unsigned int i = 0; i < m_oMap.GetNoteCount(); ++i)
        {
            const CMap::SField& oField = m_oMap.GetField(m_oMap.GetNote(i).m_uiField);
            const unsigned int uiBlock = oField.m_uiOffset / gsc_uiBlockSize * gsc_uiBlockSize;
            if (m_oMap.GetNote(i).m_eRule == eZorEdidRule_CtaPastCollection && GetByte(uiBlock) == gsc_uiCtaTag)
            {
                m_auiMisread.Add(oField.m_uiOffset + oField.m_uiLength);
            }
        }
    }

    const CMap& m_oMap;
    CMArray<unsigned int, const unsigned int&> m_auiMisread; // the first of the bytes, of each block that has them
    CZorEdidModes m_oModes;
    CZorEdidFacts m_oFacts;
    CMArray<SZorFinding>& m_aoFindings;
};

// Sinks of HDMI 2.0 have the field as well, with a rate of 0.
inline bool TakesFrl(const CZorEdidFacts::SLink& oLink) { return oLink.m_oFrl.m_oValue.m_ui8Lanes != 0; }

// Inputs of DisplayPort have HDMI's data blocks for adapters: what these require of a link is not about theirs.
inline bool IsDisplayPort(const CZorEdidFacts::SLink& oLink)
{
    return oLink.m_oKind.m_oValue == CZorEdidFacts::eLink_DisplayPort;
}

// "block 1 offset 0x05"
CMString DescribePlace(unsigned int uiOffset);
// "1.2", of the byte with version and revision of a DisplayID section.
CMString DescribeVersion(unsigned int uiVersion);

void AddNotes(CFindings& oFindings); // those of the map, of any image

// Whether a finding only follows from another one, of a rule that is such a cause: who mends that mends both.
bool IsCause(EZorEdidRule eRule);
bool IsConsequence(const CFindings& oFindings, const SZorFinding& oCause, const SZorFinding& oOther);

// ---- The rules by topic; of an image with the header of a base block ----

void CheckBase(CFindings& oFindings, unsigned int uiThisYear);
void CheckTimings(CFindings& oFindings);   // of all blocks
void CheckLimits(CFindings& oFindings);    // modes against limits
void CheckCta(CFindings& oFindings);       // CTA-861 blocks and HDMI's data blocks in them
void CheckDisplayId(CFindings& oFindings); // DisplayID sections
void CheckReading(CFindings& oFindings);   // what the library does not read
} // namespace ZorCheck
