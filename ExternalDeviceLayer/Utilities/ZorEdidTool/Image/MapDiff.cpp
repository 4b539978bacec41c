// Pairs the fields of two maps, group by group, and leaves out what goes with removed ones.

#include "MapDiff.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "EdidUtils.h"
#include "MapText.h"

namespace
{
constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;

using CKeys = std::unordered_map<std::string, unsigned int>; // equal for fields that say the same
using CIndices = std::vector<unsigned int>;

// A count of bytes, and those of the fields in its group that it counts: none for all.
struct SCount
{
    EZorEdidField m_eId;
    EZorEdidField m_eCounted;
};
constexpr SCount gsc_aoCounts[] = { { eZorEdidField_CtaDataBlockLength, eZorEdidField_None },
                                    { eZorEdidField_CtaDetailedOffset, eZorEdidField_CtaCollection },
                                    { eZorEdidField_CtaHdmiVicLen, eZorEdidField_CtaHdmiVic },
                                    { eZorEdidField_CtaHdmi3dLen, eZorEdidField_CtaHdmi3dFormat } };

bool IsOfCode(const CZorEdidMap::SField& oField)
{
    return oField.m_eId == eZorEdidField_CtaHdmi3dMaskPlace || oField.m_eId == eZorEdidField_Cta420MapVic;
}

// One map with keys of its fields, which leave out what counts as nothing, and what its groups hold.
class CTree
{
public:
    explicit CTree(const SMapPart& oPart)
        : m_oPart(oPart), m_auiKeys(oPart.m_oMap.GetFieldCount()), m_abNothing(oPart.m_oMap.GetFieldCount()),
          m_aauiChildren(oPart.m_oMap.GetFieldCount())
    {
    }

    void Read(unsigned int uiBlock, CKeys& oKeys)
    {
        for (unsigned int i = Get(uiBlock).m_uiEnd; i-- > uiBlock;) // a group after what it holds
        {
            std::reverse(m_aauiChildren[i].begin(), m_aauiChildren[i].end());
            if (m_oPart.Is(i, eZorEdidField_CtaHdmi3dMask) || m_oPart.Is(i, eZorEdidField_Cta420Map))
            {
                // The names of the bits say all; their order is that of the bytes' bits. A header stays first.
                std::ranges::stable_sort(m_aauiChildren[i], {}, [this](unsigned int j) {
                    return std::string_view(IsOfCode(Get(j)) ? Get(j).m_pszName : "");
                });
            }
            // Flags of modes share an id, and differ in their names.
            std::string sKey = std::to_string(Get(i).m_eId) + "\n" + Get(i).m_pszName;
            m_abNothing[i] = IsGroup(i) ? AddChildren(i, sKey) : AddBits(i, sKey);
            m_auiKeys[i] = oKeys.try_emplace(sKey, static_cast<unsigned int>(oKeys.size())).first->second;
            if (i != uiBlock && !m_oPart.m_oWithout.contains(i))
            {
                m_aauiChildren[Get(i).m_uiGroup].push_back(i);
            }
        }
    }

    const CZorEdidMap::SField& Get(unsigned int uiField) const { return m_oPart.Get(uiField); }
    bool IsGroup(unsigned int uiField) const { return Get(uiField).m_eKind == CZorEdidMap::eKind_Group; }
    bool IsNothing(unsigned int uiField) const { return m_abNothing[uiField]; }
    unsigned int GetKey(unsigned int uiField) const { return m_auiKeys[uiField]; }
    const CIndices& GetChildren(unsigned int uiField) const { return m_aauiChildren[uiField]; }

private:
    bool AddChildren(unsigned int uiGroup, std::string& sKey) const
    {
        for (const unsigned int uiChild : m_aauiChildren[uiGroup])
        {
            sKey += IsNothing(uiChild) ? "" : "\n" + std::to_string(m_auiKeys[uiChild]);
        }
        return false;
    }

    // True for a leaf that counts as nothing.
    bool AddBits(unsigned int uiLeaf, std::string& sKey) const
    {
        const CZorEdidMap::SField& oLeaf = Get(uiLeaf);
        std::string sBits;
        for (const SFieldByte& oByte : GetFieldBytes(m_oPart.m_oMap, uiLeaf))
        {
            const unsigned int uiBits = m_oPart.m_oMap.GetData()[oByte.m_uiOffset] & oByte.m_uiMask;
            sBits += static_cast<char>(uiBits >> std::countr_zero(oByte.m_uiMask));
        }
        if (oLeaf.m_eKind == CZorEdidMap::eKind_Reserved) // of a single value, or up to the zeros at its end
        {
            const bool bSingle = sBits.find_first_not_of(sBits.front()) == std::string::npos;
            sBits.resize(bSingle ? 1 : sBits.find_last_not_of('\0') + 1);
            sKey += (bSingle ? "\nall\n" : "\n") + sBits;
            return bSingle && sBits[0] == 0;
        }
        const bool bWrong = oLeaf.m_eKind == CZorEdidMap::eKind_Checksum && oLeaf.m_uiNotes != 0;
        const bool bPlace = oLeaf.m_eId == eZorEdidField_CtaHdmi2dVicOrder;
        sKey.append(bWrong ? "\nwrong\n" : "\n").append(oLeaf.m_pszMeaning != nullptr ? oLeaf.m_pszMeaning : "");
        sKey += "\n" + (bPlace ? "" : sBits); // the place of a code says nothing but the code
        return IsOfCode(oLeaf) && oLeaf.m_llNumber == 0;
    }

    const SMapPart& m_oPart;
    CIndices m_auiKeys;
    std::vector<bool> m_abNothing;
    std::vector<CIndices> m_aauiChildren;
};

class CComparison
{
public:
    // In the order of the bytes without a function.
    CComparison(const SMapPart& oFirst, const SMapPart& oSecond, CSameThing fnIsSameThing)
        : m_oFirst(oFirst), m_oSecond(oSecond), m_fnIsSameThing(std::move(fnIsSameThing))
    {
        CKeys oKeys;
        const CIndices auiFirst = Read(oFirst, oSecond, m_oFirst, oKeys);
        PairAlike(auiFirst, Read(oSecond, oFirst, m_oSecond, oKeys));
    }

    std::vector<SMapDifference> m_aoDifferences;

private:
    // The blocks that differ from the other image's at the same place.
    static CIndices Read(const SMapPart& oPart, const SMapPart& oOther, CTree& oTree, CKeys& oKeys)
    {
        CIndices auiBlocks;
        for (unsigned int i = 0; i < oPart.m_oMap.GetFieldCount(); i = oPart.Get(i).m_uiEnd)
        {
            const unsigned int uiOther = oOther.m_oMap.FindLeaf(oPart.Get(i).m_uiOffset, 0);
            const unsigned int uiBlock = uiOther != gsc_uiNone ? GetChain(oOther.m_oMap, uiOther)[0] : gsc_uiNone;
            if (uiBlock == gsc_uiNone || oOther.GetBytes(uiBlock) != oPart.GetBytes(i) ||
                oOther.ListWithout(uiBlock) != oPart.ListWithout(i))
            {
                oTree.Read(i, oKeys);
                auiBlocks.push_back(i);
            }
        }
        return auiBlocks;
    }

    bool AreEqual(unsigned int uiFirst, unsigned int uiSecond) const
    {
        return m_oFirst.GetKey(uiFirst) == m_oSecond.GetKey(uiSecond);
    }

    void Compare(unsigned int uiFirst, unsigned int uiSecond)
    {
        if (AreEqual(uiFirst, uiSecond))
        {
            return;
        }
        if (!m_oFirst.IsGroup(uiFirst))
        {
            m_aoDifferences.push_back({ uiFirst, uiSecond });
            return;
        }
        const CIndices& auiFirst = m_oFirst.GetChildren(uiFirst);
        const CIndices& auiSecond = m_oSecond.GetChildren(uiSecond);
        if (m_fnIsSameThing)
        {
            PairInAnyOrder(auiFirst, auiSecond);
            return;
        }
        // The lengths of the longest common sequences from each pair on.
        std::vector<CIndices> aauiCommon(auiFirst.size() + 1, CIndices(auiSecond.size() + 1));
        for (size_t i = auiFirst.size(); i-- > 0;)
        {
            for (size_t j = auiSecond.size(); j-- > 0;)
            {
                aauiCommon[i][j] = AreEqual(auiFirst[i], auiSecond[j])
                                       ? aauiCommon[i + 1][j + 1] + 1
                                       : std::max(aauiCommon[i + 1][j], aauiCommon[i][j + 1]);
            }
        }
        CIndices auiLeft[2]; // since the last two that are equal
        size_t i = 0;
        size_t j = 0;
        while (i < auiFirst.size() || j < auiSecond.size())
        {
            const bool bBoth = i < auiFirst.size() && j < auiSecond.size();
            if (bBoth && AreEqual(auiFirst[i], auiSecond[j]))
            {
                PairAlike(auiLeft[0], auiLeft[1]);
                auiLeft[0].clear();
                auiLeft[1].clear();
                ++i;
                ++j;
            }
            else if (j == auiSecond.size() || (bBoth && aauiCommon[i + 1][j] >= aauiCommon[i][j + 1]))
            {
                auiLeft[0].push_back(auiFirst[i++]);
            }
            else
            {
                auiLeft[1].push_back(auiSecond[j++]);
            }
        }
        PairAlike(auiLeft[0], auiLeft[1]);
    }

    void PairInAnyOrder(const CIndices& auiFirst, const CIndices& auiSecond)
    {
        std::multimap<unsigned int, unsigned int> auiByKey; // of the second group
        for (const unsigned int uiSecond : auiSecond)
        {
            auiByKey.emplace(m_oSecond.GetKey(uiSecond), uiSecond);
        }
        CIndices auiLeft;
        for (const unsigned int uiFirst : auiFirst)
        {
            const auto itSecond = auiByKey.find(m_oFirst.GetKey(uiFirst));
            if (itSecond == auiByKey.end())
            {
                auiLeft.push_back(uiFirst);
            }
            else
            {
                auiByKey.erase(itSecond);
            }
        }
        CIndices auiOthers;
        for (const auto& [uiKey, uiSecond] : auiByKey)
        {
            auiOthers.push_back(uiSecond);
        }
        std::ranges::sort(auiOthers);
        PairSameThings(auiLeft, auiOthers);
        PairAlike(auiLeft, auiOthers);
    }

    // Compares and takes out the pairs that it finds.
    void PairSameThings(CIndices& auiFirst, CIndices& auiSecond)
    {
        std::erase_if(auiFirst, [&](unsigned int uiFirst) {
            const auto itSecond = std::ranges::find_if(auiSecond, [&](unsigned int uiSecond) {
                return m_oFirst.IsGroup(uiFirst) && AreAlike(uiFirst, uiSecond) && m_fnIsSameThing(uiFirst, uiSecond);
            });
            if (itSecond == auiSecond.end())
            {
                return false;
            }
            Compare(uiFirst, *itSecond);
            auiSecond.erase(itSecond);
            return true;
        });
    }

    bool AreAlike(unsigned int uiFirst, unsigned int uiSecond) const
    {
        const CZorEdidMap::SField& oFirst = m_oFirst.Get(uiFirst);
        const CZorEdidMap::SField& oSecond = m_oSecond.Get(uiSecond);
        return oFirst.m_eId == oSecond.m_eId && std::string_view(oFirst.m_pszName) == oSecond.m_pszName &&
               m_oFirst.IsGroup(uiFirst) == m_oSecond.IsGroup(uiSecond);
    }

    void PairAlike(const CIndices& auiFirst, CIndices auiSecond)
    {
        for (const unsigned int uiFirst : auiFirst)
        {
            const auto itSecond =
                std::ranges::find_if(auiSecond, [&](unsigned int uiSecond) { return AreAlike(uiFirst, uiSecond); });
            if (itSecond != auiSecond.end())
            {
                Compare(uiFirst, *itSecond);
                auiSecond.erase(itSecond);
            }
            else if (!m_oFirst.IsNothing(uiFirst))
            {
                m_aoDifferences.push_back({ uiFirst, gsc_uiNone });
            }
        }
        for (const unsigned int uiSecond : auiSecond)
        {
            if (!m_oSecond.IsNothing(uiSecond))
            {
                m_aoDifferences.push_back({ gsc_uiNone, uiSecond });
            }
        }
    }

    CTree m_oFirst;
    CTree m_oSecond;
    const CSameThing m_fnIsSameThing;
};
} // namespace

bool SMapPart::IsIn(unsigned int uiField, EZorEdidField eGroup) const
{
    return Get(uiField).m_uiGroup != gsc_uiNone && Is(Get(uiField).m_uiGroup, eGroup);
}

bool SMapPart::IsBits(unsigned int uiField) const
{
    constexpr unsigned char ui8WholeByte = 0xFF;
    return Get(uiField).m_uiPieces != 0 && m_oMap.GetPiece(Get(uiField).m_uiFirstPiece).m_ui8Mask != ui8WholeByte;
}

std::vector<unsigned char> SMapPart::GetBytes(unsigned int uiField) const
{
    const unsigned char* pui8First = m_oMap.GetData() + Get(uiField).m_uiOffset;
    return { pui8First, pui8First + Get(uiField).m_uiLength };
}

std::vector<unsigned int> SMapPart::ListBlock(size_t uiBlock) const
{
    CIndices auiFields;
    for (unsigned int uiGroup = 0; uiGroup < m_oMap.GetFieldCount(); uiGroup = Get(uiGroup).m_uiEnd) // block by block
    {
        const bool bBlock = Get(uiGroup).m_uiOffset / CEdidUtils::msc_uiBlockSize == uiBlock;
        for (unsigned int i = uiGroup; bBlock && i < Get(uiGroup).m_uiEnd; ++i)
        {
            auiFields.push_back(i);
        }
    }
    return auiFields;
}

std::vector<unsigned int> SMapPart::ListWithout(unsigned int uiGroup) const
{
    CIndices auiFields;
    for (auto it = m_oWithout.lower_bound(uiGroup); it != m_oWithout.end() && *it < Get(uiGroup).m_uiEnd; ++it)
    {
        auiFields.push_back(*it - uiGroup);
    }
    return auiFields;
}

unsigned int SMapPart::CountBytesWithout(unsigned int uiGroup, EZorEdidField eId) const
{
    unsigned int uiBytes = 0;
    for (unsigned int i = uiGroup + 1; i < Get(uiGroup).m_uiEnd; i = Get(i).m_uiEnd)
    {
        const unsigned int uiWhole = IsBits(i) ? 0 : Get(i).m_uiLength;
        const bool bCounts = eId == eZorEdidField_None || Is(i, eId);
        uiBytes += !bCounts ? 0 : m_oWithout.contains(i) ? uiWhole : CountBytesWithout(i, eZorEdidField_None);
    }
    return uiBytes;
}

// Formats and bits name codes by their places: those of the video data blocks, in a 4:2:0 map then those of HDMI.
void SMapPart::LeaveOutCodes(const std::vector<unsigned int>& auiBlock)
{
    std::vector<bool> abGone;
    size_t uiCodes = 0;
    for (const EZorEdidField eCode : { eZorEdidField_CtaVideoDescriptor, eZorEdidField_CtaHdmiVic })
    {
        uiCodes = abGone.size();
        for (const unsigned int i : auiBlock)
        {
            const bool bListed = eCode == eZorEdidField_CtaVideoDescriptor || Get(i).m_uiTimings != 0;
            if (Is(i, eCode) && bListed && !IsIn(i, eZorEdidField_Cta420Video))
            {
                abGone.push_back(m_oWithout.contains(i));
            }
        }
    }
    constexpr long long llMost3d = 16;
    const long long llFirst = std::find(abGone.begin(), abGone.end(), true) - abGone.begin();
    const bool bMoves =
        llFirst < llMost3d && uiCodes > size_t{ llMost3d }; // formats of all of the first codes get one more
    for (const unsigned int i : auiBlock)
    {
        const CZorEdidMap::SField& oField = Get(i);
        const bool bAll = bMoves && oField.m_eId == eZorEdidField_CtaHdmi3dMultiPresent && oField.m_llNumber == 1;
        const bool bFormat = oField.m_eId == eZorEdidField_CtaHdmi2dVicOrder;
        const bool bMask = oField.m_eId == eZorEdidField_CtaHdmi3dMaskPlace;
        size_t uiPlace = bFormat ? static_cast<size_t>(oField.m_llNumber) : abGone.size();
        if (IsOfCode(oField))
        {
            const unsigned int uiByte =
                oField.m_uiOffset - Get(oField.m_uiGroup).m_uiOffset; // of a map after 2 of head
            const unsigned int uiMask = m_oMap.GetPiece(oField.m_uiFirstPiece).m_ui8Mask;
            uiPlace = 8 * (bMask ? 1 - uiByte : uiByte - 2) + static_cast<size_t>(std::countr_zero(uiMask));
        }
        if (bAll || (uiPlace < (bMask || bFormat ? uiCodes : abGone.size()) && abGone[uiPlace]))
        {
            m_oWithout.insert(bFormat ? oField.m_uiGroup : i);
        }
    }
}

// A map without a bit would be taken for one of all codes when its zeros are cut off.
void SMapPart::LeaveOutEmptiedMaps()
{
    for (unsigned int i = 0; i < m_oMap.GetFieldCount(); ++i)
    {
        bool bAny = false;
        bool bAll = Is(i, eZorEdidField_Cta420Map);
        for (unsigned int j = i + 1; bAll && j < Get(i).m_uiEnd; ++j)
        {
            const bool bBit = Is(j, eZorEdidField_Cta420MapVic) && Get(j).m_llNumber != 0;
            bAny = bAny || bBit;
            bAll = !bBit || m_oWithout.contains(j);
        }
        if (bAny && bAll)
        {
            m_oWithout.insert(i);
        }
    }
}

void SMapPart::LeaveOutEmptied()
{
    for (unsigned int i = m_oMap.GetFieldCount(); i-- > 0;) // from the innermost groups on
    {
        bool bAny = false;
        bool bAll = Get(i).m_uiDepth != 0;
        for (unsigned int j = i + 1; j < Get(i).m_uiEnd; j = Get(j).m_uiEnd)
        {
            const bool bHeader = Get(j).m_uiPieces != 0 && Get(j).m_eArea == CZorEdidMap::eArea_Structure;
            bAny = bAny || (m_oWithout.contains(j) && !IsBits(j));
            bAll = bAll && (m_oWithout.contains(j) || bHeader);
        }
        if (bAny && bAll)
        {
            m_oWithout.insert(i);
        }
    }
}

std::vector<long long> SMapPart::LeaveOutRest()
{
    std::vector<long long> allCounts;
    for (size_t i = 0; i * CEdidUtils::msc_uiBlockSize < m_oMap.GetSize(); ++i)
    {
        LeaveOutCodes(ListBlock(i));
    }
    LeaveOutEmptiedMaps();
    LeaveOutEmptied();
    for (unsigned int i = 0; i < m_oMap.GetFieldCount(); i = m_oWithout.contains(i) ? Get(i).m_uiEnd : i + 1)
    {
        const auto* poCount = std::find_if(std::begin(gsc_aoCounts), std::end(gsc_aoCounts),
                                           [&](const SCount& oCount) { return Is(i, oCount.m_eId); });
        if (poCount != std::end(gsc_aoCounts) && !m_oWithout.contains(i))
        {
            allCounts.push_back(Get(i).m_llNumber - CountBytesWithout(Get(i).m_uiGroup, poCount->m_eCounted));
            m_oWithout.insert(i);
        }
    }
    return allCounts;
}

std::vector<SMapDifference> CompareMaps(const SMapPart& oFirst, const SMapPart& oSecond)
{
    return CComparison(oFirst, oSecond, nullptr).m_aoDifferences;
}

std::vector<SMapDifference> CompareMapsInAnyOrder(const SMapPart& oFirst, const SMapPart& oSecond,
                                                  const CSameThing& fnIsSameThing)
{
    return CComparison(oFirst, oSecond, fnIsSameThing).m_aoDifferences;
}
