// CZorEdidRepair: the header and the number of blocks, the notes of the map that have one right answer, then the
// checksums.

#include "ZorEdidRepair.h"

#include <string.h>

#include <algorithm>
#include <iterator>

#include "EdidBase.h"
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
    eRepairs_NoCounts, // of sections: it may take in data blocks that contradict others
    eRepairs_Sums,
    eRepairs_None
};

// What one repair works on.
struct SWork
{
    CMArray<unsigned char, const unsigned char&>& m_aui8Data;
    CMArray<SZorRepair, const SZorRepair&>& m_aoRepairs;
    CMArray<SZorWithheld, const SZorWithheld&>& m_aoWithheld;
    const CMArray<EZorEdidRule, EZorEdidRule>& m_aeLeftOut;
    static constexpr unsigned int msc_uiKept = 2; // blocks that may have the number of blocks
    unsigned char m_aui8Lacks[msc_uiKept] = {};   // what bytes of these that are left wrong lack of a sum of 0

    bool IsLeftOut(EZorEdidRule eRule) const
    {
        const EZorEdidRule* peFirst = m_aeLeftOut.GetData();
        return std::find(peFirst, peFirst + m_aeLeftOut.GetCount(), eRule) != peFirst + m_aeLeftOut.GetCount();
    }
    void Withhold(EZorEdidRule eRule, unsigned int uiOffset, const char* pszReason) const
    {
        if (!IsLeftOut(eRule))
        {
            m_aoWithheld.Add({ eRule, uiOffset, pszReason });
        }
    }
};

class CRepairs
{
public:
    explicit CRepairs(const SWork& oWork) : m_oWork(oWork), m_aui8Data(oWork.m_aui8Data)
    {
        m_oMap.Read(m_aui8Data.GetCount(), m_aui8Data.GetData());
    }

    void RepairNotes(bool bSectionCounts)
    {
        for (unsigned int i = 0; i < m_oMap.GetNoteCount(); ++i)
        {
            const CZorEdidMap::SNote& oNote = m_oMap.GetNote(i);
            if (m_oWork.IsLeftOut(oNote.m_eRule))
            {
                continue;
            }
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
            else if (oNote.m_eRule == eZorEdidRule_DisplayIdSections && bSectionCounts)
            {
                RepairSectionCount(oField.m_uiOffset / gsc_uiBlockSize * gsc_uiBlockSize);
            }
        }
    }

    // Only upwards: where blocks are missing, the dump was cut or the count is wrong, and no byte says which.
    void RepairBlockCount()
    {
        const unsigned int uiBlocks = m_oMap.GetSize() / gsc_uiBlockSize;
        if (uiBlocks == 0 || uiBlocks > gsc_uiMostBlocks)
        {
            return;
        }
        const unsigned int uiPlace = FindExtensionCount(m_oMap.GetData(), m_oMap.GetSize());
        const unsigned int uiCount = m_oMap.GetData()[uiPlace];
        if (uiCount >= uiBlocks)
        {
            m_oWork.Withhold(eZorEdidRule_BlocksMissing, uiPlace,
                             "blocks were cut off, or the number is wrong, and no byte says which");
            return;
        }
        const bool bWhole = m_oMap.GetSize() % gsc_uiBlockSize == 0;
        const char* pszReason = bWhole || uiCount + 1 == uiBlocks ? nullptr : "the last block is cut short";
        unsigned int uiBlock = uiCount + 1;
        while (pszReason == nullptr && uiBlock < uiBlocks)
        {
            pszReason = CZorEdidMap::FindUnsound(m_oMap.GetData(), uiBlock++);
        }
        if (pszReason != nullptr)
        {
            m_oWork.Withhold(eZorEdidRule_BlockNotCounted, (uiBlock - 1) * gsc_uiBlockSize, pszReason);
        }
        else if (bWhole && !m_oWork.IsLeftOut(eZorEdidRule_BlockNotCounted))
        {
            Set(eZorEdidRule_BlockNotCounted, uiPlace, uiBlocks - 1);
        }
    }

    // Of all blocks that are counted: what was repaired in them has changed their sums. Those that were right are
    // not named. What follows these blocks may be anything. bWrongToo: those as well that were wrong before.
    void RepairChecksums(bool bWrongToo)
    {
        m_bWrongToo = bWrongToo && !m_oWork.IsLeftOut(eZorEdidRule_Checksum);
        const unsigned int uiBlocks = 1 + CountExtensions(m_aui8Data.GetData(), m_aui8Data.GetCount());
        const unsigned int uiEnd = std::min(m_aui8Data.GetCount(), uiBlocks * gsc_uiBlockSize);
        for (unsigned int uiBlock = 0; uiBlock + gsc_uiBlockSize <= uiEnd; uiBlock += gsc_uiBlockSize)
        {
            if (IsErased(m_aui8Data.GetData() + uiBlock, gsc_uiBlockSize))
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
        m_oWork.m_aoRepairs.Add({ eRule, uiOffset, uiLength });
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
        const bool bWrong = m_oMap.GetField(m_oMap.FindLeaf(uiOffset, 0)).m_uiNotes != 0;
        if (bWrong && !m_bWrongToo)
        {
            return;
        }
        const unsigned int uiBlock = uiFirst / gsc_uiBlockSize;
        const unsigned char ui8Lack = uiBlock < SWork::msc_uiKept ? m_oWork.m_aui8Lacks[uiBlock] : 0;
        const unsigned char ui8Before = m_aui8Data[uiOffset];
        CEdidUtils::StoreChecksum(uiSize, m_aui8Data.GetData() + uiFirst);
        m_aui8Data[uiOffset] = static_cast<unsigned char>(m_aui8Data[uiOffset] - ui8Lack);
        if (m_aui8Data[uiOffset] != ui8Before && bWrong && ui8Lack == 0)
        {
            m_oWork.m_aoRepairs.Add({ eZorEdidRule_Checksum, uiOffset, 1 });
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
    const SWork& m_oWork;
    CMArray<unsigned char, const unsigned char&>& m_aui8Data;
    bool m_bWrongToo = false;
};

// Whether the header is right now, or the image has none. Without it the base block is damaged, and only its
// checksum shows how.
bool RepairHeader(const SWork& oWork)
{
    constexpr unsigned int uiMostWrong = 2;
    unsigned char* pui8Block = oWork.m_aui8Data.GetData();
    if (oWork.m_aui8Data.GetCount() < gsc_uiBlockSize || oWork.IsLeftOut(eZorEdidRule_BaseHeader))
    {
        return true;
    }
    unsigned int uiWrong = 0;
    unsigned int uiFirst = 0;
    unsigned int uiEnd = 0;
    for (unsigned int i = 0; i < sizeof(EDID_V1_HEADER); ++i)
    {
        if (pui8Block[i] != EDID_V1_HEADER[i])
        {
            uiFirst = uiWrong++ == 0 ? i : uiFirst;
            uiEnd = i + 1;
        }
    }
    if (uiWrong == 0)
    {
        return true;
    }
    unsigned char aui8Right[gsc_uiBlockSize];
    memcpy(aui8Right, pui8Block, gsc_uiBlockSize);
    memcpy(aui8Right, EDID_V1_HEADER, sizeof(EDID_V1_HEADER));
    if (uiWrong > uiMostWrong)
    {
        oWork.Withhold(eZorEdidRule_BaseHeader, 0, "more than two of its bytes are wrong");
        return false;
    }
    if (CEdidUtils::Compute8BitsChecksum(gsc_uiBlockSize, aui8Right) != 0)
    {
        oWork.Withhold(eZorEdidRule_BaseHeader, 0, "the checksum does not confirm the right one");
        return false;
    }
    memcpy(pui8Block, EDID_V1_HEADER, sizeof(EDID_V1_HEADER));
    oWork.m_aoRepairs.Add({ eZorEdidRule_BaseHeader, uiFirst, uiEnd - uiFirst });
    return true;
}

void RepairCount(const SWork& oWork)
{
    CRepairs oRepairs(oWork);
    oRepairs.RepairBlockCount();
    oRepairs.RepairChecksums(false);
}

// What the bytes of a block lack of the right header and the right number of blocks, modulo 256.
unsigned char FindLack(const SWork& oWork, unsigned int uiBlock)
{
    const unsigned char* pui8Data = oWork.m_aui8Data.GetData();
    const unsigned int uiSize = oWork.m_aui8Data.GetCount();
    const unsigned int uiBlocks = uiSize / gsc_uiBlockSize;
    const unsigned int uiPlace = FindExtensionCount(pui8Data, uiSize);
    unsigned int uiLack = 0;
    for (unsigned int i = 0; uiBlock == 0 && i < sizeof(EDID_V1_HEADER); ++i)
    {
        uiLack += 0U + EDID_V1_HEADER[i] - pui8Data[i];
    }
    if (uiPlace / gsc_uiBlockSize == uiBlock && uiSize % gsc_uiBlockSize == 0 && uiBlocks <= gsc_uiMostBlocks)
    {
        uiLack += uiBlocks - 1 - pui8Data[uiPlace];
    }
    return static_cast<unsigned char>(uiLack);
}

// Where the checksum of a block is right but for a header or a number of blocks that is left wrong, a new one would
// hide that: it stays what it would be with the right bytes.
void KeepChecksums(SWork& oWork)
{
    for (unsigned int i = 0; i < SWork::msc_uiKept && (i + 1) * gsc_uiBlockSize <= oWork.m_aui8Data.GetCount(); ++i)
    {
        const unsigned char ui8Lack = FindLack(oWork, i);
        CMArray<unsigned char, const unsigned char&>& aui8Data = oWork.m_aui8Data;
        const auto ui8Missing = static_cast<unsigned char>(
            CEdidUtils::Compute8BitsChecksum(gsc_uiBlockSize, aui8Data.GetData() + i * gsc_uiBlockSize));
        if (ui8Lack != 0 && ui8Missing == ui8Lack)
        {
            oWork.m_aui8Lacks[i] = ui8Lack;
            oWork.Withhold(eZorEdidRule_Checksum, i * gsc_uiBlockSize + gsc_uiChecksumOffset,
                           "a new one would hide that the header or the number of blocks is left wrong");
        }
    }
}

void RepairRest(const SWork& oWork, ERepairs eMost)
{
    // A count that is right now may show others that are wrong.
    constexpr unsigned int uiMostRounds = 3;
    for (unsigned int i = 0, uiBefore = 0; i == 0 || (i < uiMostRounds && oWork.m_aoRepairs.GetCount() != uiBefore);
         ++i)
    {
        uiBefore = oWork.m_aoRepairs.GetCount();
        CRepairs oRepairs(oWork);
        if (eMost < eRepairs_Sums)
        {
            oRepairs.RepairNotes(eMost == eRepairs_All);
        }
        oRepairs.RepairChecksums(true);
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
// Less is repaired where a repair would cause what was not found before. A block that is counted now has findings of
// its own, which are no reason to leave it uncounted.
void RepairWithoutHarm(const SWork& oWork)
{
    const CMArray<unsigned char, const unsigned char&> aui8Before = oWork.m_aui8Data;
    const CMArray<SZorRepair, const SZorRepair&> aoBefore = oWork.m_aoRepairs;
    RepairRest(oWork, eRepairs_All);
    if (oWork.m_aoRepairs.GetCount() == aoBefore.GetCount())
    {
        return;
    }
    const unsigned int uiSize = aui8Before.GetCount();
    const CFound oBefore(uiSize, aui8Before.GetData());
    const CMArray<SZorRepair, const SZorRepair&> aoWanted = oWork.m_aoRepairs;
    for (unsigned int i = eRepairs_NoCounts; !oBefore.HasAllOf(CFound(uiSize, oWork.m_aui8Data.GetData())); ++i)
    {
        oWork.m_aui8Data = aui8Before;
        oWork.m_aoRepairs = aoBefore;
        if (i == eRepairs_None)
        {
            break;
        }
        RepairRest(oWork, static_cast<ERepairs>(i));
    }
    const SZorRepair* poFirst = oWork.m_aoRepairs.GetData();
    for (unsigned int i = 0; i < aoWanted.GetCount(); ++i)
    {
        const SZorRepair& oWanted = aoWanted[i];
        if (std::none_of(poFirst, poFirst + oWork.m_aoRepairs.GetCount(), [&](const SZorRepair& oDone) {
                return oDone.m_eRule == oWanted.m_eRule && oDone.m_uiOffset == oWanted.m_uiOffset;
            }))
        {
            oWork.Withhold(oWanted.m_eRule, oWanted.m_uiOffset, "it would cause a finding that was not there");
        }
    }
}

template <class ARRAY>
void SortByOffset(ARRAY& aoAll)
{
    auto* poFirst = aoAll.GetData();
    std::sort(poFirst, poFirst + aoAll.GetCount(),
              [](const auto& oOne, const auto& oOther) { return oOne.m_uiOffset < oOther.m_uiOffset; });
}
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
    m_aoWithheld.RemoveAll();
    m_aui8Data = aui8Data;
    if (!bGood || m_aui8Data.GetCount() != uiSize)
    {
        return 0;
    }
    SWork oWork = { m_aui8Data, m_aoRepairs, m_aoWithheld, m_aeLeftOut };
    if (RepairHeader(oWork))
    {
        RepairCount(oWork);
        KeepChecksums(oWork);
        RepairWithoutHarm(oWork);
    }
    SortByOffset(m_aoRepairs);
    SortByOffset(m_aoWithheld);
    return 1;
}
