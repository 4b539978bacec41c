// Runs edits of an EDID and compares what they left with what they promise.

#include "EditRunner.h"

#include <iterator>

#include "EditedBytes.h"

namespace
{
using CBlock = CEdidExtBlock;
using CCea = CEdidExtBlockCEA861;

enum class EKind
{
    eOther,
    eRemove, // takes the entry at the index out of the list
    eSet,    // writes the entry at the index
    eAdd,    // puts an entry in
    eFree,   // what the lists hold afterwards depends on too much
    eRaw,    // may do anything to its block
};

struct SRow
{
    EKind m_eKind;
    EList m_eList;               // that it removes from, sets in, adds to
    SEditedBytes m_oNamed;       // of the base block
    bool m_bLooksFirst;          // leaves a wrong checksum when there is nothing to change
    unsigned int m_uiIndexCount; // how many are worth trying; 0 for the length of the list and two more
    int (*m_pfnRun)(CEdid& oEdid, const SEditStep& oStep);
    // Writes into the base block what must stand there afterwards; may be null. False when the edit must refuse.
    bool (*m_pfnStore)(CBytes& aui8Base, const SEditStep& oStep) = nullptr;
};

// The block that an index falls into changes, or the block whose number the step gives; else the base block.
bool IsMerged(unsigned int uiOperation) { return uiOperation <= CEditRunner::eEdit_RemoveDetailed; }

bool IsOfBlock(unsigned int uiOperation)
{
    return uiOperation >= CEditRunner::eEdit_BlockRemoveStandard && uiOperation != CEditRunner::eEdit_Reload;
}

int GetFlag(const SEditStep& oStep) { return static_cast<int>(oStep.m_uiValue & 1); }

int UpdatesChecksum(const SEditStep& oStep) { return (oStep.m_uiValue & 4) == 0 ? 1 : 0; }

CCea::SAudioDescriptor MakeAudio(unsigned int uiValue)
{
    return { static_cast<CCea::EAudioFormat>(uiValue & 0x1F), (uiValue >> 5) & 0x0F,
             static_cast<CCea::EAudioSamplingFreq>((uiValue >> 9) & 0xFF), uiValue >> 17 };
}

// What the list holds for a stored value.
CListEntry MakeStored(EList eList, unsigned int uiValue)
{
    const CCea::SAudioDescriptor oAudio = MakeAudio(uiValue);
    return eList == eList_Speaker ? CListEntry{ uiValue & 0x7FF }
                                  : CListEntry{ oAudio.m_eFormat & 0x0FU, ((oAudio.m_uiChannels - 1) & 7) + 1,
                                                oAudio.m_eSamplingFreq & 0x7FU, oAudio.m_uiExtra & 0xFF };
}

CVidParamTimingGeneric MakeTiming(const CEdid& oEdid, const SEditStep& oStep)
{
    CVidParamTimingGeneric oTiming;
    if (oEdid.GetStandard(oStep.m_uiIndex, &oTiming, nullptr) == 0 && oEdid.GetDetailed(oStep.m_uiIndex, &oTiming) == 0)
    {
        oTiming.SetHorizontalActive(oStep.m_uiIndex);
        oTiming.SetVerticalActive(oStep.m_uiValue >> 8);
        oTiming.SetPixelClockInHz(oStep.m_uiValue);
        oTiming.SetHorizontalSync(oStep.m_uiValue & 0xFFF);
        oTiming.SetVerticalSync(oStep.m_uiValue & 0xFF);
        oTiming.SetInterlaced(GetFlag(oStep));
    }
    return oTiming;
}

// Calls EDIT of the step's block with these members of the step; 0 where the block is not there or of another kind.
template <class BLOCK, auto EDIT, auto... ARGUMENTS>
int OnBlock(CEdid& oEdid, const SEditStep& oStep)
{
    auto* poBlock = dynamic_cast<BLOCK*>(oEdid.GetExtension(oStep.m_uiBlock));
    return poBlock != nullptr ? (poBlock->*EDIT)((oStep.*ARGUMENTS)...) : 0;
}

template <auto EDIT, auto... ARGUMENTS>
int WithAudio(CEdid& oEdid, const SEditStep& oStep)
{
    auto* poBlock = dynamic_cast<CCea*>(oEdid.GetExtension(oStep.m_uiBlock));
    const CCea::SAudioDescriptor oAudio = MakeAudio(oStep.m_uiValue);
    return poBlock != nullptr ? (poBlock->*EDIT)((oStep.*ARGUMENTS)..., oStep.m_uiValue == 0 ? nullptr : &oAudio) : 0;
}

// A raw step may take anything out of its block, the tag included; the lists are derived all the same.
template <auto EDIT>
int RunRaw(CEdid& oEdid, const SEditStep& oStep)
{
    auto* poBlock = dynamic_cast<CCea*>(oEdid.GetExtension(oStep.m_uiBlock));
    if (poBlock != nullptr)
    {
        (poBlock->*EDIT)(oStep.m_uiIndex, oStep.m_uiValue);
        poBlock->ExtractStandardTimings();
        poBlock->ExtractDetailedTimings();
        poBlock->ExtractAudioInfo();
        poBlock->ExtractSpeakerInfo();
        poBlock->UpdateChecksum();
    }
    return poBlock != nullptr ? 1 : 0;
}

constexpr auto gsc_puiIndex = &SEditStep::m_uiIndex;
constexpr auto gsc_puiValue = &SEditStep::m_uiValue;

// clang-format off
constexpr SRow gsc_aoRows[] = {
    // kind, list, named bytes of the base block, looks first, indexes, what runs it, what it stores
    { EKind::eRemove, eList_Table, { 38, 16 }, false, 0,
      [](CEdid& oEdid, const SEditStep& oStep) { return oEdid.RemoveStandard(oStep.m_uiIndex); } },
    { EKind::eRemove, eList_Detailed, { 54, 72 }, false, 0,
      [](CEdid& oEdid, const SEditStep& oStep) { return oEdid.RemoveDetailed(oStep.m_uiIndex); } },
    { EKind::eOther, eList_Count, { 35, 3 }, false, 19,
      [](CEdid& oEdid, const SEditStep& oStep) {
          return oEdid.SetEstablished(oStep.m_uiIndex, GetFlag(oStep), UpdatesChecksum(oStep)); } },
    { EKind::eOther, eList_Count, { 35, 3 }, false, 26,
      [](CEdid& oEdid, const SEditStep& oStep) {
          return oEdid.SetEstablishedFromId(static_cast<CEdidBase::EEstablishedTiming>(1U << (oStep.m_uiIndex % 32)),
                                            GetFlag(oStep), UpdatesChecksum(oStep)); },
      [](CBytes& aui8Base, const SEditStep& oStep) {
          const unsigned int uiBit = oStep.m_uiIndex % 32; // 16 to 22 and 24 on name no timing
          unsigned char& ui8Byte = aui8Base[35 + uiBit / 8];
          const unsigned int uiMask = 1U << uiBit % 8;
          ui8Byte = static_cast<unsigned char>(GetFlag(oStep) != 0 ? ui8Byte | uiMask : ui8Byte & ~uiMask);
          return uiBit < 16 || uiBit == 23; } },
    { EKind::eOther, eList_Count, { 12, 4 }, true, 1,
      [](CEdid& oEdid, const SEditStep& oStep) { oEdid.SetSerialNumber(oStep.m_uiValue); return 1; },
      [](CBytes& aui8Base, const SEditStep& oStep) {
          for (unsigned int i = 0; i < 4; ++i)
          {
              aui8Base[12 + i] = static_cast<unsigned char>(oStep.m_uiValue >> (8 * i));
          }
          return true; } },
    { EKind::eOther, eList_Count, { 20, 1 }, true, 1,
      [](CEdid& oEdid, const SEditStep& oStep) {
          return oEdid.SetColorBitDepth(static_cast<CEdidBase::EColorBitDepth>(oStep.m_uiValue % 10)); },
      [](CBytes& aui8Base, const SEditStep& oStep) {
          aui8Base[20] = static_cast<unsigned char>((aui8Base[20] & 0x8FU) | (oStep.m_uiValue % 10) << 4);
          return oStep.m_uiValue % 10 < 8; } },
    { EKind::eFree, eList_Detailed, { 54, 72 }, false, 4,
      [](CEdid& oEdid, const SEditStep& oStep) {
          const CVidParamTimingGeneric oTiming = MakeTiming(oEdid, oStep);
          return oEdid.SetPreferredMode(oStep.m_uiValue % 64 == 0 ? nullptr : &oTiming); } },
    { EKind::eOther, eList_Table, { 38, 16 }, true, 1,
      [](CEdid& oEdid, const SEditStep&) {
          oEdid.RePackStandards();
          oEdid.ExtractStandardTimings(); // what it leaves behind the bytes
          return 1; } },
    { EKind::eOther, eList_Count, { 0, 0 }, false, 1,
      [](CEdid& oEdid, const SEditStep&) { oEdid.UpdateChecksum(); return 1; } },
    { EKind::eRemove, eList_Table, {}, false, 0, OnBlock<CBlock, &CBlock::RemoveStandard, gsc_puiIndex> },
    { EKind::eRemove, eList_Detailed, {}, false, 0, OnBlock<CBlock, &CBlock::RemoveDetailed, gsc_puiIndex> },
    { EKind::eOther, eList_Count, {}, false, 1, OnBlock<CBlock, &CBlock::SetColorBitDepthSupport, gsc_puiValue> },
    { EKind::eAdd, eList_Audio, {}, false, 1, WithAudio<&CCea::AddAudioDescriptor> },
    { EKind::eSet, eList_Audio, {}, false, 0, WithAudio<&CCea::SetAudioDescriptor, gsc_puiIndex> },
    { EKind::eRemove, eList_Audio, {}, false, 0, OnBlock<CCea, &CCea::RemoveAudioDescriptor, gsc_puiIndex> },
    { EKind::eAdd, eList_Speaker, {}, false, 1, OnBlock<CCea, &CCea::AddSpeakerDescriptor, gsc_puiValue> },
    { EKind::eSet, eList_Speaker, {}, false, 0,
      OnBlock<CCea, &CCea::SetSpeakerDescriptor, gsc_puiIndex, gsc_puiValue> },
    { EKind::eRemove, eList_Speaker, {}, false, 0, OnBlock<CCea, &CCea::RemoveSpeakerDescriptor, gsc_puiIndex> },
    { EKind::eOther, eList_Count, {}, false, 1, OnBlock<CCea, &CCea::AddVendorSpecific> },
    { EKind::eRaw, eList_Count, {}, false, 1, RunRaw<&CCea::RemoveDataRange> },
    { EKind::eRaw, eList_Count, {}, false, 1, RunRaw<&CCea::PadDataRange> },
    { EKind::eFree, eList_Count, { 0, 0 }, true, 1,
      [](CEdid& oEdid, const SEditStep&) {
          const auto aui8Bytes = oEdid.GetEdidBuffer();
          return oEdid.GetSize() != 0 ? oEdid.SetEdidBuffer(aui8Bytes.GetData(), aui8Bytes.GetCount(), 0) : 0; } },
};
// clang-format on
static_assert(std::size(gsc_aoRows) == CEditRunner::msc_uiOperationCount, "a row for each edit, in their order");

const SRow& GetRow(unsigned int uiOperation) { return gsc_aoRows[uiOperation % CEditRunner::msc_uiOperationCount]; }

// A removed table timing takes its 1000/1001 twin with it, native or not, out of the list of ordinary timings.
bool IsWithoutCode(const CList& aoBefore, const CList& aoAfter, const CListEntry& auiNamed)
{
    bool bRemoved = Is420(auiNamed); // its code may stand elsewhere or not
    auto itAfter = aoAfter.begin();
    for (const CListEntry& auiTiming : aoBefore)
    {
        if (Is420(auiTiming))
        {
            break;
        }
        if (itAfter != aoAfter.end() && *itAfter == auiTiming)
        {
            ++itAfter;
            continue;
        }
        if (auiTiming[0] != auiNamed[0] || auiTiming[1] != auiNamed[1]) // width and height
        {
            return false;
        }
        bRemoved = true;
    }
    return bRemoved && (itAfter == aoAfter.end() || Is420(*itAfter));
}
} // namespace

int CEditRunner::Load(const unsigned char* pui8Data, unsigned int uiSize)
{
    m_oBehind.reset();
    return m_oEdid.SetEdidBuffer(pui8Data, uiSize, 0);
}

int CEditRunner::Run(const SEditStep& oStep)
{
    if (oStep.m_uiOperation % msc_uiOperationCount == eEdit_Reload)
    {
        m_oBehind.reset();
    }
    return GetRow(oStep.m_uiOperation).m_pfnRun(m_oEdid, oStep);
}

const char* CEditRunner::Apply(const SEditStep& oStep)
{
    const CBytes aui8Before = Serialise(m_oEdid);
    const std::vector<SPlace> aoPlaces = FindPlaces(oStep, aui8Before);
    const bool bDone = Run(oStep) != 0;
    m_uiSuccessCount += bDone ? 1U : 0U;
    m_sBroken.clear();
    const CBytes aui8After = Serialise(m_oEdid);
    // Of two blocks that changed CheckBytes sees the other.
    const auto itChanged =
        std::mismatch(aui8Before.begin(), aui8Before.end(), aui8After.begin(), aui8After.end()).first;
    const SPlace* poPlace = aoPlaces.empty() ? nullptr : &aoPlaces.front();
    for (const SPlace& oPlace : aoPlaces)
    {
        const bool bChanged = static_cast<size_t>(itChanged - aui8Before.begin()) / gsc_uiBlockSize == oPlace.m_uiBlock;
        poPlace = bChanged ? &oPlace : poPlace;
        if (!bDone)
        {
            CheckRefusal(oStep, oPlace);
        }
    }
    Require(bDone || aui8After == aui8Before, "a refusal changed bytes");
    Require(!bDone || poPlace != nullptr, "an edit succeeded where there is nothing to edit");
    Require(aui8After.size() == aui8Before.size(), "the size changed");
    if (bDone && m_sBroken.empty())
    {
        CheckBytes(oStep, *poPlace, aui8Before, aui8After);
        if (GetRow(oStep.m_uiOperation).m_eKind == EKind::eRaw)
        {
            Load(aui8After.data(), static_cast<unsigned int>(aui8After.size()));
        }
        else
        {
            CheckEffect(oStep, *poPlace, aui8Before, aui8After);
            CompareWithFreshLoad(aui8After);
        }
    }
    return m_sBroken.empty() ? nullptr : m_sBroken.c_str();
}

bool CEditRunner::UsesValue(unsigned int uiOperation) { return GetRow(uiOperation).m_eKind != EKind::eRemove; }

unsigned int CEditRunner::GetIndexCount(unsigned int uiOperation) const
{
    const SRow& oRow = GetRow(uiOperation);
    return oRow.m_uiIndexCount != 0         ? oRow.m_uiIndexCount
           : oRow.m_eList == eList_Table    ? m_oEdid.GetStandardCount() + 2
           : oRow.m_eList == eList_Detailed ? m_oEdid.GetDetailedCount() + 2
                                            : 12;
}

// In the order in which the edit asks: for a timing the block that its number falls into, and those that it is handed
// on to when that one refuses.
std::vector<CEditRunner::SPlace> CEditRunner::FindPlaces(const SEditStep& oStep, const CBytes& aui8Bytes) const
{
    const unsigned int uiOperation = oStep.m_uiOperation % msc_uiOperationCount;
    const bool bMerged = IsMerged(uiOperation);
    const size_t uiOnly = IsOfBlock(uiOperation) ? oStep.m_uiBlock + 1U : 0;
    std::vector<SPlace> aoPlaces;
    unsigned int uiRest = oStep.m_uiIndex;
    for (size_t i = 0; i <= m_oEdid.GetExtensionCount() && (aoPlaces.empty() || aoPlaces[0].m_uiBlock != 0); ++i)
    {
        if (!bMerged && i != uiOnly)
        {
            continue;
        }
        const bool bIsSure = i == 0 || (!m_oBehind[i] && IsTidy(&aui8Bytes[gsc_uiBlockSize * i]));
        SPlace oPlace = { i, uiRest, GetLists(m_oEdid, i), bIsSure };
        const size_t uiCount = bMerged ? oPlace.m_aoLists[GetRow(uiOperation).m_eList].size() : 0;
        if (bMerged && uiRest >= uiCount)
        {
            uiRest -= static_cast<unsigned int>(uiCount);
            continue;
        }
        aoPlaces.push_back(std::move(oPlace));
    }
    return aoPlaces;
}

void CEditRunner::Require(bool bHolds, const char* pszPromise)
{
    if (!bHolds && m_sBroken.empty())
    {
        m_sBroken = pszPromise;
    }
}

// What stands in a list can be removed, except for a timing that has no code of its own and a preferred one.
void CEditRunner::CheckRefusal(const SEditStep& oStep, const SPlace& oPlace)
{
    const SRow& oRow = GetRow(oStep.m_uiOperation);
    Require(oPlace.m_aoLists == GetLists(m_oEdid, oPlace.m_uiBlock), "a refusal changed a list");
    if (oRow.m_eKind == EKind::eRemove && oPlace.m_uiIndex < oPlace.m_aoLists[oRow.m_eList].size())
    {
        const bool bMust = oRow.m_eList == eList_Table ? !Is420(oPlace.m_aoLists[eList_Table][oPlace.m_uiIndex])
                                                       : oPlace.m_bIsSure && oPlace.m_uiBlock + oPlace.m_uiIndex != 0;
        Require(!bMust, "what stands in a list was not removed");
    }
}

void CEditRunner::CheckBytes(const SEditStep& oStep, const SPlace& oPlace, const CBytes& aui8Before,
                             const CBytes& aui8After)
{
    const SRow& oRow = GetRow(oStep.m_uiOperation);
    const bool bSame = aui8After == aui8Before;
    Require(!bSame || (oRow.m_eKind != EKind::eRemove && oRow.m_eKind != EKind::eAdd),
            "a removal or an addition changed no byte");
    CBytes aui8Stored = aui8Before;
    Require(oRow.m_pfnStore == nullptr || (oRow.m_pfnStore(aui8Stored, oStep) &&
                                           std::equal(aui8Stored.begin(), aui8Stored.begin() + 127, aui8After.begin())),
            "a value of the base block is not what was to be set, or was to be refused");
    const unsigned int uiStart = static_cast<unsigned int>(gsc_uiBlockSize * oPlace.m_uiBlock);
    const SEditedBytes oNamed = uiStart == 0 ? oRow.m_oNamed : SEditedBytes{ uiStart, gsc_uiBlockSize };
    if (oNamed.m_uiOffset == 35 && UpdatesChecksum(oStep) == 0)
    {
        const bool bOnlyNamed = std::equal(aui8Before.begin(), aui8Before.begin() + 35, aui8After.begin()) &&
                                std::equal(aui8Before.begin() + 38, aui8Before.end(), aui8After.begin() + 38);
        Require(bOnlyNamed, "a checksum changed that was not to, or another byte");
    }
    else if (!bSame || !oRow.m_bLooksFirst)
    {
        const std::string sBroken = CheckEditedBytes(aui8Before, aui8After, { oNamed });
        Require(sBroken.empty(), sBroken.c_str());
    }
}

void CEditRunner::CheckEffect(const SEditStep& oStep, const SPlace& oPlace, const CBytes& aui8Before,
                              const CBytes& aui8After)
{
    const SRow& oRow = GetRow(oStep.m_uiOperation);
    const unsigned char* pui8Before = &aui8Before[gsc_uiBlockSize * oPlace.m_uiBlock];
    const unsigned int uiIndex = oPlace.m_uiIndex;
    const CLists aoNow = GetLists(m_oEdid, oPlace.m_uiBlock);
    CLists aoExpected = oPlace.m_aoLists;
    CList& aoList = aoExpected[oRow.m_eList % eList_Count];
    const CList& aoNowList = aoNow[oRow.m_eList % eList_Count];
    if ((oRow.m_eKind == EKind::eRemove || oRow.m_eKind == EKind::eSet) && uiIndex >= aoList.size())
    {
        return Require(false, "an edit succeeded at an index that is not there");
    }

    // The removal of a table timing moves what stands behind it, and derives the list of table timings alone.
    const bool bWasBehind = m_oBehind[oPlace.m_uiBlock];
    const bool bMoves = oRow.m_eKind == EKind::eRemove && oRow.m_eList == eList_Table && oPlace.m_uiBlock != 0;
    m_oBehind[oPlace.m_uiBlock] = bMoves;
    if (bMoves)
    {
        Require(!IsTidy(pui8Before, true) || IsWithoutCode(aoList, aoNowList, aoList[uiIndex]),
                "a table timing was not removed, or another one was");
        return Require(aoExpected[eList_Audio] == aoNow[eList_Audio] &&
                           aoExpected[eList_Speaker] == aoNow[eList_Speaker],
                       "the removal of a table timing changed another list");
    }

    const CListEntry auiStored = MakeStored(oRow.m_eList, oStep.m_uiValue);
    if (oRow.m_eKind == EKind::eRemove)
    {
        aoList.erase(aoList.begin() + uiIndex);
    }
    else if (oRow.m_eKind == EKind::eSet)
    {
        aoList[uiIndex] = auiStored;
        Require(bWasBehind || (uiIndex < aoNowList.size() && aoNowList[uiIndex] == auiStored),
                "a value was not stored");
    }
    else if (oRow.m_eKind == EKind::eAdd && pui8Before[1] == 3) // others list no data blocks
    {
        // At the end of the first data block or of the last.
        const auto itNew = std::mismatch(aoList.begin(), aoList.end(), aoNowList.begin(), aoNowList.end()).first;
        aoList.insert(itNew, auiStored);
    }
    Require(!oPlace.m_bIsSure || oRow.m_eKind == EKind::eFree || aoNow == aoExpected,
            "the lists are not what they were to become");
    Require(!oPlace.m_bIsSure || oPlace.m_uiBlock == 0 || IsTidy(&aui8After[gsc_uiBlockSize * oPlace.m_uiBlock]),
            "data blocks do not end where they say, or bytes stand behind the content");
    if (oStep.m_uiOperation % msc_uiOperationCount == eEdit_BlockSetColorBitDepthSupport)
    {
        unsigned int uiBits = 0;
        m_oEdid.GetExtension(oStep.m_uiBlock)->GetColorBitDepthSupport(uiBits);
        Require(uiBits == 0 || uiBits == (oStep.m_uiValue & 7), "the depths are not those that were set"); // 0: no HDMI
    }
}

void CEditRunner::CompareWithFreshLoad(const CBytes& aui8Bytes)
{
    CEdid oFresh;
    oFresh.SetEdidBuffer(aui8Bytes.data(), static_cast<unsigned int>(aui8Bytes.size()), 0);
    if (Serialise(oFresh) != aui8Bytes)
    {
        return Require(false, "the bytes do not load again");
    }
    for (size_t i = 0; i <= m_oEdid.GetExtensionCount(); ++i)
    {
        const CLists aoHeld = GetLists(m_oEdid, i);
        const CLists aoOfBytes = GetLists(oFresh, i);
        // Up to the detailed timings where the others are behind.
        Require(std::equal(aoHeld.begin(), aoHeld.begin() + (m_oBehind[i] ? eList_Detailed : eList_Count),
                           aoOfBytes.begin()),
                "the lists of a block are not those of its bytes");
    }
}
