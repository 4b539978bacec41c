// All that has an id, wherever it is declared: for the list of ids. Private to this folder.

#pragma once

#include "MapRows.h"

namespace ZorMap
{
// Is given tables, rows and groups, file by file. A table without an id makes no group of its own.
class CIdVisitor
{
public:
    template <class... PARTS>
    void Visit(const PARTS&... oParts)
    {
        (VisitPart(oParts), ...);
    }
    void VisitGroup(EZorEdidField eId, const char* pszName) { OnPart(eId, pszName, CZorEdidMap::eKind_Group, nullptr); }
    // The id of many bits, each of which has its own name: before their rows, since the first name counts.
    void VisitBits(EZorEdidField eId, const char* pszName) { OnPart(eId, pszName, CZorEdidMap::eKind_Flag, nullptr); }

protected:
    ~CIdVisitor() = default;
    virtual void OnPart(EZorEdidField eId, const char* pszName, CZorEdidMap::EKind eKind, const char* pszUnit) = 0;

private:
    void VisitPart(const SRow& oRow)
    {
        OnPart(oRow.m_eId, oRow.m_pszName, oRow.m_oForm.m_eKind, oRow.m_oForm.m_pszUnit);
    }
    void VisitPart(const SRest& oRest) { OnPart(oRest.m_eId, oRest.m_pszName, oRest.m_eKind, nullptr); }
    void VisitPart(std::span<const SRow> aoRows)
    {
        for (const SRow& oRow : aoRows)
        {
            VisitPart(oRow);
        }
    }
    void VisitPart(const STable& oTable)
    {
        if (oTable.m_eId != eZorEdidField_None)
        {
            VisitGroup(oTable.m_eId, oTable.m_pszName);
        }
        VisitPart(oTable.m_aoRows);
    }
};

void VisitIds(CIdVisitor& oVisitor); // of all files, blocks and data blocks before what is in them

// By file.
void VisitBaseIds(CIdVisitor& oVisitor);
void VisitDescriptorIds(CIdVisitor& oVisitor);
void VisitCtaIds(CIdVisitor& oVisitor);
void VisitCtaVideoIds(CIdVisitor& oVisitor);
void VisitCtaAudioIds(CIdVisitor& oVisitor);
void VisitCtaColourIds(CIdVisitor& oVisitor);
void VisitCtaHdmiIds(CIdVisitor& oVisitor);
void VisitCtaVendorIds(CIdVisitor& oVisitor);
void VisitDisplayIdIds(CIdVisitor& oVisitor);
void VisitProductIds(CIdVisitor& oVisitor);
void VisitInterfaceIds(CIdVisitor& oVisitor);
void VisitTimingIds(CIdVisitor& oVisitor);
void VisitDisplayInformationIds(CIdVisitor& oVisitor);
void VisitOtherIds(CIdVisitor& oVisitor);
void VisitSharedIds(CIdVisitor& oVisitor); // of all structures
} // namespace ZorMap
