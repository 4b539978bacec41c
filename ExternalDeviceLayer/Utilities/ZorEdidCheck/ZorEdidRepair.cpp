// CZorEdidRepair: the notes of the map that have one right answer, then the checksums.

#include "ZorEdidRepair.h"

#include <string.h>

#include <algorithm>
#include <iterator>

#include "EdidUtils.h"
#include "Standards/ExtensionBlocks.h"
#include "Standards/Modes.h"
#include "ZorEdidCheck.h"
#include "ZorEdidMap.h"

namespace
{
using namespace ZorStandards;

// Rules about leaves of whole bytes, all of which must have one value.
struct SFill
{
    EZorEdidRule m_eRule;
    unsigned char m_ui8Value;
};
constexpr unsigned char gsc_ui8LineFeed = 0x0A;
constexpr unsigned int gsc_uiMostBlocks = 256;
constexpr SFill gsc_aoFills[] = {
    { eZorEdidRule_LineFeed, gsc_ui8LineFeed },
    { eZorEdidRule_Blanks, ' ' },
    { eZorEdidRule_CtaPadding, 0 },
    { eZorEdidRule_DisplayIdFiller, 0 },
};

// How much is repaired at most.
enum ERepairs
{
    eRepairs_All,
    eRepairs_NoCounts, // a count may take in blocks that contradict others
    eRepairs_Sums,
    eRepairs_None
};

bool IsErased(const unsigned char* pui8Block)
{
    constexpr unsigned char ui8Erased = 0xFF;
    return std::all_of(pui8Block, pui8Block + gsc_uiBlockSize,
                       [](unsigned char ui8Byte) { return ui8Byte == ui8Erased; });
}

class CRepairs
{
public:
    CRepairs(CMArray<unsigned char, const unsigned char&>& aui8Data, CMArray<SZorRepair, const SZorRepair&>& aoRepairs,
             ERepairs eMost)
        : m_aui8Data(aui8Data), m_aoRepairs(aoRepairs), m_eMost(eMost)
    {
        m_oMap.Read(m_aui8Data.GetCount(), m_aui8Data.GetData());
    }

    void RepairNotes()
    {
        for (unsigned int i = 0; i < m_oMap.GetNoteCount() && m_eMost < eRepairs_Sums; ++i)
        {
            const CZorEdidMap::SNote& oNote = m_oMap.GetNote(i);
            const CZorEdidMap::SField& oField = m_oMap.GetField(oNote.m_uiField);
            const SFill* poFill = std::ranges::find(gsc_aoFills, oNote.m_eRule, &SFill::m_eRule);
            if (poFill != std::end(gsc_aoFills))
            {
                Fill(oNote.m_eRule, oField.m_uiOffset, oField.m_uiLength, poFill->m_ui8Value);
            }
            else if (oNote.m_eRule == eZorEdidRule_StandardTimingZero && m_aui8Data[oField.m_uiOffset + 1] == 0)
            {
                Fill(oNote.m_eRule, oField.m_uiOffset, gsc_uiStandardTimingSize, gsc_uiUnusedStandard);
            }
            else if (oNote.m_eRule == eZorEdidRule_BlockNotCounted && m_eMost == eRepairs_All)
            {
                RepairBlockCount(oNote.m_eRule);
            }
            else if (oNote.m_eRule == eZorEdidRule_DisplayIdSections && m_eMost == eRepairs_All)
            {
                RepairSectionCount(oField.m_uiOffset / gsc_uiBlockSize * gsc_uiBlockSize);
            }
        }
    }

    // Of all blocks that are counted: what was repaired in them has changed their sums. Those that were right are
    // not named. What follows these blocks may be anything.
    void RepairChecksums()
    {
        const unsigned int uiBlocks = 1 + CountExtensions(m_aui8Data.GetData(), m_aui8Data.GetCount());
        const unsigned int uiEnd = std::min(m_aui8Data.GetCount(), uiBlocks * gsc_uiBlockSize);
        for (unsigned int uiBlock = 0; uiBlock + gsc_uiBlockSize <= uiEnd; uiBlock += gsc_uiBlockSize)
        {
            if (IsErased(m_aui8Data.GetData() + uiBlock))
            {
                continue; // a right sum would hide that it was never written
            }
            ForEachSum(m_aui8Data.GetData() + uiBlock, [&](unsigned int uiFirst, unsigned int uiLength) {
                if (HasChecksum(uiBlock + uiFirst + uiLength - 1))
                {
                    StoreChecksum(uiBlock + uiFirst, uiLength);
                }
            });
        }
    }

private:
    void Fill(EZorEdidRule eRule, unsigned int uiOffset, unsigned int uiLength, unsigned char ui8Value)
    {
        memset(m_aui8Data.GetData() + uiOffset, ui8Value, uiLength);
        m_aoRepairs.Add({ eRule, uiOffset, uiLength });
    }

    void Set(EZorEdidRule eRule, unsigned int uiOffset, unsigned int uiValue)
    {
        if (m_aui8Data[uiOffset] != uiValue)
        {
            Fill(eRule, uiOffset, 1, static_cast<unsigned char>(uiValue));
        }
    }

    // Some kinds of blocks have none.
    bool HasChecksum(unsigned int uiOffset) const
    {
        const unsigned int uiField = m_oMap.FindLeaf(uiOffset, 0);
        return uiField != CZorEdidMap::msc_uiNone && m_oMap.GetField(uiField).m_eKind == CZorEdidMap::eKind_Checksum;
    }

    void StoreChecksum(unsigned int uiFirst, unsigned int uiSize)
    {
        const unsigned int uiOffset = uiFirst + uiSize - 1;
        const unsigned char ui8Before = m_aui8Data[uiOffset];
        CEdidUtils::StoreChecksum(uiSize, m_aui8Data.GetData() + uiFirst);
        const CZorEdidMap::SField& oField = m_oMap.GetField(m_oMap.FindLeaf(uiOffset, 0));
        if (m_aui8Data[uiOffset] != ui8Before && oField.m_uiNotes != 0)
        {
            m_aoRepairs.Add({ eZorEdidRule_Checksum, uiOffset, 1 });
        }
    }

    // A block that a count may take in: whole, of a known kind, its sum right.
    bool IsSound(unsigned int uiBlock) const
    {
        const unsigned char* pui8Block = m_oMap.GetData() + uiBlock * gsc_uiBlockSize;
        return pui8Block[0] != 0 && CZorEdidMap::GetBlockKind(pui8Block[0]) != nullptr &&
               CEdidUtils::Compute8BitsChecksum(gsc_uiBlockSize, pui8Block) == 0;
    }

    // Only upwards: where blocks are missing, the dump was cut or the count is wrong, and no byte says which.
    void RepairBlockCount(EZorEdidRule eRule)
    {
        const unsigned int uiPresent = m_oMap.GetSize() / gsc_uiBlockSize - 1;
        const unsigned int uiPlace = FindExtensionCount(m_oMap.GetData(), m_oMap.GetSize());
        unsigned int uiCount = m_oMap.GetData()[uiPlace];
        bool bSound = m_oMap.GetSize() % gsc_uiBlockSize == 0 && uiPresent < gsc_uiMostBlocks;
        while (bSound && uiCount < uiPresent)
        {
            bSound = IsSound(++uiCount);
        }
        if (bSound)
        {
            Set(eRule, uiPlace, uiPresent);
        }
    }

    // The first section counts those that follow.
    void RepairSectionCount(unsigned int uiFirst)
    {
        unsigned int uiSections = 0;
        const unsigned int uiCount = CountExtensions(m_oMap.GetData(), m_oMap.GetSize());
        for (CBlockWalk oWalk(m_oMap.GetData(), m_oMap.GetSize()); oWalk.Next() && oWalk.GetNumber() <= uiCount;)
        {
            uiSections += oWalk.GetOffset() > uiFirst && oWalk.GetData()[0] == gsc_uiDisplayIdTag ? 1U : 0U;
        }
        Set(eZorEdidRule_DisplayIdSections, uiFirst + DisplayId::gsc_uiExtensionCountOffset, uiSections);
    }

    CZorEdidMap m_oMap; // of the bytes before this round
    CMArray<unsigned char, const unsigned char&>& m_aui8Data;
    CMArray<SZorRepair, const SZorRepair&>& m_aoRepairs;
    ERepairs m_eMost;
};

void Repair(CMArray<unsigned char, const unsigned char&>& aui8Data, CMArray<SZorRepair, const SZorRepair&>& aoRepairs,
            ERepairs eMost)
{
    // A count that is right now may show others that are wrong.
    constexpr unsigned int uiMostRounds = 3;
    for (unsigned int i = 0, uiBefore = 0; i == 0 || (i < uiMostRounds && aoRepairs.GetCount() != uiBefore); ++i)
    {
        uiBefore = aoRepairs.GetCount();
        CRepairs oRepairs(aui8Data, aoRepairs, eMost);
        oRepairs.RepairNotes();
        oRepairs.RepairChecksums();
    }
}

// The findings of an image in any year. Those on what the library reads follow from the checksums.
class CFound
{
public:
    CFound(unsigned int uiSize, const unsigned char* pui8Data)
    {
        constexpr unsigned int uiAnyYear = 0xFFFF;
        CZorEdidMap oMap;
        oMap.Read(uiSize, pui8Data);
        m_oCheck.Read(oMap, uiAnyYear);
    }
    bool HasAllOf(const CFound& oOther) const
    {
        for (unsigned int i = 0; i < oOther.m_oCheck.GetCount(); ++i)
        {
            if (!IsZorEdidRuleOfLibrary(oOther.m_oCheck.Get(i).m_eRule) && !Has(oOther.m_oCheck.Get(i)))
            {
                return false;
            }
        }
        return true;
    }

private:
    bool Has(const SZorFinding& oFinding) const
    {
        for (unsigned int i = 0; i < m_oCheck.GetCount(); ++i)
        {
            if (m_oCheck.Get(i).m_eRule == oFinding.m_eRule && m_oCheck.Get(i).m_uiOffset == oFinding.m_uiOffset)
            {
                return true;
            }
        }
        return false;
    }

    CZorEdidCheck m_oCheck;
};
} // namespace

int CZorEdidRepair::Read(unsigned int uiSize, const unsigned char* pui8Data)
{
    constexpr unsigned int uiMost = 0x7FFFFFFF;
    const bool bGood = uiSize != 0 && uiSize <= uiMost && pui8Data != nullptr;
    CMArray<unsigned char, const unsigned char&> aui8Data; // the caller's may be those of the last repair
    aui8Data.SetCount(bGood ? uiSize : 0, -1);
    if (bGood && aui8Data.GetCount() == uiSize)
    {
        memcpy(aui8Data.GetData(), pui8Data, uiSize);
    }
    m_aoRepairs.RemoveAll();
    m_aui8Data = aui8Data;
    if (!bGood || m_aui8Data.GetCount() != uiSize)
    {
        return 0;
    }
    Repair(m_aui8Data, m_aoRepairs, eRepairs_All);
    if (m_aoRepairs.GetCount() != 0)
    {
        // Less is repaired where a repair would cause what was not found before.
        const CFound oBefore(uiSize, aui8Data.GetData());
        for (unsigned int i = eRepairs_NoCounts; !oBefore.HasAllOf(CFound(uiSize, m_aui8Data.GetData())); ++i)
        {
            memcpy(m_aui8Data.GetData(), aui8Data.GetData(), uiSize);
            m_aoRepairs.RemoveAll();
            if (i == eRepairs_None)
            {
                break;
            }
            Repair(m_aui8Data, m_aoRepairs, static_cast<ERepairs>(i));
        }
    }
    SZorRepair* poFirst = m_aoRepairs.GetData();
    std::sort(poFirst, poFirst + m_aoRepairs.GetCount(),
              [](const SZorRepair& oOne, const SZorRepair& oOther) { return oOne.m_uiOffset < oOther.m_uiOffset; });
    return 1;
}
