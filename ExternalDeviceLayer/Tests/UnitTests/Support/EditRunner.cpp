// Runs edits of an EDID and compares what they left with what they promise.

#include "EditRunner.h"

#include <functional>
#include <iterator>

namespace
{
using CCea = CEdidExtBlockCEA861;

enum class EKind
{
    eOther,
    eRemove,     // takes the entry at the index out of the list
    eRemoveCode, // of an extension block the code of the entry at the index, and leaves all other lists as they are
    eSet,        // writes the entry at the index
    eAdd,        // puts an entry in
    eFree,       // what the lists hold afterwards depends on too much
    eRaw,        // may do anything to its block
};

// Bytes of the EDID, all in one block; of no bytes the block counts for its checksum alone.
struct SEditedBytes
{
    unsigned int m_uiOffset;
    unsigned int m_uiCount;
};

struct SRow
{
    EKind m_eKind;
    EBlockList m_eList;          // that it removes from, sets in, adds to
    SEditedBytes m_oNamed;       // of the base block
    bool m_bLooksFirst;          // leaves a wrong checksum when there is nothing to change
    unsigned int m_uiIndexCount; // how many are worth trying; 0 for the length of the list and two more
    int (*m_pfnRun)(CEdid& oEdid, const SEditStep& oStep);
};

// A block that an edit may change, counted from 0, the base block.
struct SPlace
{
    size_t m_uiBlock;
    size_t m_uiIndex; // there
    bool m_bIsBehind; // whether its lists are out of date
    bool m_bIsSure;   // whether the edit does to the lists what it says and to nothing else
};

// Arguments of the edits, made of the step.
constexpr auto gsc_puiIndex = &SEditStep::m_uiIndex;
constexpr auto gsc_puiValue = &SEditStep::m_uiValue;

int GetFlag(const SEditStep& oStep) { return static_cast<int>(oStep.m_uiValue & 1); }

int UpdatesChecksum(const SEditStep& oStep) { return (oStep.m_uiValue & 4) == 0 ? 1 : 0; }

// Indexes 16 to 22 and 24 on name no timing.
CEdidBase::EEstablishedTiming GetId(const SEditStep& oStep)
{
    return static_cast<CEdidBase::EEstablishedTiming>(1U << (oStep.m_uiIndex % 32));
}

// Those from 8 on are refused.
CEdidBase::EColorBitDepth GetDepth(const SEditStep& oStep)
{
    return static_cast<CEdidBase::EColorBitDepth>(oStep.m_uiValue % 10);
}

const CCea::SAudioDescriptor* GetAudio(const SEditStep& oStep)
{
    static thread_local CCea::SAudioDescriptor s_oAudio;
    const unsigned int uiValue = oStep.m_uiValue;
    s_oAudio = { static_cast<CCea::EAudioFormat>(uiValue & 0x1F), (uiValue >> 5) & 0x0F,
                 static_cast<CCea::EAudioSamplingFreq>((uiValue >> 9) & 0xFF), uiValue >> 17 };
    return uiValue != 0 ? &s_oAudio : nullptr;
}

// What the list holds for a stored value.
CListEntry MakeStored(EBlockList eList, const SEditStep& oStep)
{
    const CCea::SAudioDescriptor* poAudio = eList == eBlockList_Audio ? GetAudio(oStep) : nullptr;
    return poAudio == nullptr ? CListEntry{ oStep.m_uiValue & 0x7FF }
                              : CListEntry{ poAudio->m_eFormat & 0x0FU, ((poAudio->m_uiChannels - 1) & 7) + 1,
                                            poAudio->m_eSamplingFreq & 0x7FU, poAudio->m_uiExtra & 0xFF };
}

// On the EDID or on the step's block; 0 where the block is not there or of another kind.
template <class TARGET, class... PARAMETERS, class... VALUES>
int CallOn(int (TARGET::*pfnEdit)(PARAMETERS...), CEdid& oEdid, const SEditStep& oStep, const VALUES&... aValues)
{
    if constexpr (std::is_base_of_v<TARGET, CEdid>)
    {
        return (oEdid.*pfnEdit)(aValues...);
    }
    else
    {
        auto* poBlock = dynamic_cast<TARGET*>(oEdid.GetExtension(oStep.m_uiBlock));
        return poBlock != nullptr ? (poBlock->*pfnEdit)(aValues...) : 0;
    }
}

template <auto EDIT, auto... ARGUMENTS>
int Call(CEdid& oEdid, const SEditStep& oStep)
{
    return CallOn(EDIT, oEdid, oStep, std::invoke(ARGUMENTS, oStep)...);
}

int RemoveCodeAt(CEdid& oEdid, const SEditStep& oStep)
{
    auto* poBlock = dynamic_cast<CCea*>(oEdid.GetExtension(oStep.m_uiBlock));
    return poBlock != nullptr && poBlock->RemoveCodeAt(oStep.m_uiIndex) == CCea::eRemoval_Possible ? 1 : 0;
}

int SetDeepColors(CEdid& oEdid, const SEditStep& oStep)
{
    auto* poBlock = dynamic_cast<CCea*>(oEdid.GetExtension(oStep.m_uiBlock));
    return poBlock != nullptr && poBlock->SetDeepColors(oStep.m_uiValue) != 0 ? 1 : 0;
}

int SetPreferredMode(CEdid& oEdid, const SEditStep& oStep)
{
    CVidParamTimingGeneric oTiming;
    oTiming.SetPixelClockInHz(oStep.m_uiValue); // without a timing to take, this one does not fit
    oEdid.GetDetailed(oStep.m_uiIndex, &oTiming);
    return oEdid.SetPreferredMode(oStep.m_uiValue % 64 == 0 ? nullptr : &oTiming);
}

int RePackStandards(CEdid& oEdid, const SEditStep& /*oStep*/)
{
    oEdid.RePackStandards();
    oEdid.ExtractStandardTimings(); // what it does not bring up to date
    return 1;
}

// A raw step may take anything out of its block, the tag included.
template <auto EDIT>
int CallRaw(CEdid& oEdid, const SEditStep& oStep)
{
    auto* poBlock = dynamic_cast<CCea*>(oEdid.GetExtension(oStep.m_uiBlock));
    if (poBlock != nullptr)
    {
        (poBlock->*EDIT)(oStep.m_uiIndex, oStep.m_uiValue);
        poBlock->UpdateChecksum();
    }
    return poBlock != nullptr ? 1 : 0;
}

int Reload(CEdid& oEdid, const SEditStep& /*oStep*/)
{
    const auto aui8Bytes = oEdid.GetEdidBuffer();
    return oEdid.GetSize() != 0 ? oEdid.SetEdidBuffer(aui8Bytes.GetData(), aui8Bytes.GetCount(), 0) : 0;
}

// clang-format off
constexpr SRow gsc_aoRows[] = {
    // kind, list, named bytes of the base block, looks first, indexes, what runs it
    { EKind::eRemove, eBlockList_Table,    { 38, 16 }, false, 0,  Call<&CEdid::RemoveStandard, gsc_puiIndex> },
    { EKind::eRemove, eBlockList_Detailed, { 54, 72 }, false, 0,  Call<&CEdid::RemoveDetailed, gsc_puiIndex> },
    { EKind::eRemoveCode, eBlockList_Table, { 38, 16 }, false, 0, Call<&CEdid::RemoveStandardKeepingDescriptors, gsc_puiIndex> },
    { EKind::eOther,  eBlockList_Count,    { 35, 3 },  false, 19, Call<&CEdid::SetEstablished, gsc_puiIndex, GetFlag, UpdatesChecksum> },
    { EKind::eOther,  eBlockList_Count,    { 35, 3 },  false, 26, Call<&CEdid::SetEstablishedFromId, GetId, GetFlag, UpdatesChecksum> },
    { EKind::eOther,  eBlockList_Count,    { 12, 4 },  true,  1,  [](CEdid& o, const SEditStep& oStep) { o.SetSerialNumber(oStep.m_uiValue); return 1; } },
    { EKind::eOther,  eBlockList_Count,    { 20, 1 },  true,  1,  Call<&CEdid::SetColorBitDepth, GetDepth> },
    { EKind::eFree,   eBlockList_Detailed, { 54, 72 }, false, 4,  SetPreferredMode },
    { EKind::eOther,  eBlockList_Table,    { 38, 16 }, true,  1,  RePackStandards },
    { EKind::eOther,  eBlockList_Count,    { 0, 0 },   false, 1,  [](CEdid& o, const SEditStep&) { o.UpdateChecksum(); return 1; } },
    { EKind::eRemove, eBlockList_Table,    {},         false, 0,  Call<&CEdidExtBlock::RemoveStandard, gsc_puiIndex> },
    { EKind::eRemove, eBlockList_Detailed, {},         false, 0,  Call<&CEdidExtBlock::RemoveDetailed, gsc_puiIndex> },
    { EKind::eOther,  eBlockList_Count,    {},         false, 1,  Call<&CEdidExtBlock::SetColorBitDepthSupport, gsc_puiValue> },
    { EKind::eAdd,    eBlockList_Audio,    {},         false, 1,  Call<&CCea::AddAudioDescriptor, GetAudio> },
    { EKind::eSet,    eBlockList_Audio,    {},         false, 0,  Call<&CCea::SetAudioDescriptor, gsc_puiIndex, GetAudio> },
    { EKind::eRemove, eBlockList_Audio,    {},         false, 0,  Call<&CCea::RemoveAudioDescriptor, gsc_puiIndex> },
    { EKind::eAdd,    eBlockList_Speaker,  {},         false, 1,  Call<&CCea::AddSpeakerDescriptor, gsc_puiValue> },
    { EKind::eSet,    eBlockList_Speaker,  {},         false, 0,  Call<&CCea::SetSpeakerDescriptor, gsc_puiIndex, gsc_puiValue> },
    { EKind::eRemove, eBlockList_Speaker,  {},         false, 0,  Call<&CCea::RemoveSpeakerDescriptor, gsc_puiIndex> },
    { EKind::eOther,  eBlockList_Count,    {},         false, 1,  Call<&CCea::AddVendorSpecific> },
    { EKind::eRemoveCode, eBlockList_Table, {},        false, 0,  Call<&CEdidExtBlock::RemoveStandardKeepingDescriptors, gsc_puiIndex> },
    { EKind::eFree,   eBlockList_Count,    {},         false, 128, RemoveCodeAt },
    { EKind::eOther,  eBlockList_Count,    {},         false, 1,  SetDeepColors },
    { EKind::eRaw,    eBlockList_Count,    {},         false, 1,  CallRaw<&CCea::RemoveDataRange> },
    { EKind::eRaw,    eBlockList_Count,    {},         false, 1,  CallRaw<&CCea::PadDataRange> },
    { EKind::eFree,   eBlockList_Count,    { 0, 0 },   true,  1,  Reload },
};
// clang-format on
static_assert(std::size(gsc_aoRows) == CEditRunner::msc_uiOperationCount, "a row for each edit, in their order");

const SRow& GetRow(unsigned int uiOperation) { return gsc_aoRows[uiOperation % CEditRunner::msc_uiOperationCount]; }

// 3D formats that break off, or hold for all of the first 16 codes, keep a removal from bringing them in step.
bool HoldsHdmi(const unsigned char* pui8Block)
{
    constexpr unsigned char aui8Hdmi[] = { 0x03, 0x0C, 0x00 };
    const unsigned char* const pui8End = pui8Block + gsc_uiBlockSize;
    return std::search(pui8Block, pui8End, std::begin(aui8Hdmi), std::end(aui8Hdmi)) != pui8End;
}

bool IsRemoval(const SRow& oRow) { return oRow.m_eKind == EKind::eRemove || oRow.m_eKind == EKind::eRemoveCode; }

std::string CheckBytes(const SEditStep& oStep, size_t uiBlock, const CBytes& aui8Before, const CBytes& aui8After)
{
    const SRow& oRow = GetRow(oStep.m_uiOperation);
    const bool bSame = aui8After == aui8Before;
    if (bSame && (IsRemoval(oRow) || oRow.m_eKind == EKind::eAdd))
    {
        return "a removal or an addition changed no byte; ";
    }
    const unsigned int uiStart = static_cast<unsigned int>(gsc_uiBlockSize * uiBlock);
    const SEditedBytes oNamed = uiStart == 0 ? oRow.m_oNamed : SEditedBytes{ uiStart, gsc_uiBlockSize };
    if (oNamed.m_uiOffset == 35 && UpdatesChecksum(oStep) == 0)
    {
        const bool bOthersSame = std::equal(aui8Before.begin(), aui8Before.begin() + 35, aui8After.begin()) &&
                                 std::equal(aui8Before.begin() + 38, aui8Before.end(), aui8After.begin() + 38);
        return bOthersSame ? "" : "a checksum changed that was not to, or another byte; ";
    }
    CBytes aui8Expected = aui8Before;
    std::copy_n(&aui8After[oNamed.m_uiOffset], oNamed.m_uiCount, &aui8Expected[oNamed.m_uiOffset]);
    FixBlockSum(aui8Expected, uiBlock);
    return (bSame && oRow.m_bLooksFirst) || aui8After == aui8Expected
               ? ""
               : "a byte changed that is not the edit's, or the checksum is wrong; ";
}

// A removed table timing takes its 1000/1001 twin with it, native or not: some of those of its size are gone, and no
// other one. 4:2:0 timings have no part in it, as their codes may be elsewhere or nowhere.
bool IsWithoutCode(CList aoBefore, CList aoAfter, const CListEntry& auiNamed)
{
    const auto IsOfSize = [&](const CListEntry& auiTiming) {
        return std::equal(auiTiming.begin(), auiTiming.begin() + 2, auiNamed.begin()); // width and height
    };
    std::erase_if(aoBefore, Is420);
    std::erase_if(aoAfter, Is420);
    const size_t uiGone = std::erase_if(aoBefore, IsOfSize);
    const size_t uiLeft = std::erase_if(aoAfter, IsOfSize);
    return aoBefore == aoAfter && (uiLeft < uiGone || (Is420(auiNamed) && uiLeft == uiGone));
}

// The same when all else is to stay: what is left keeps its order, and what is gone has the size and the rate, give
// or take the twin's hertz. The last condition of the other one holds here, too.
bool IsOnlyWithoutCode(const CList& aoBefore, const CList& aoAfter, const CListEntry& auiNamed)
{
    constexpr size_t uiRate = 2;
    auto itLeft = aoAfter.begin();
    for (const CListEntry& auiTiming : aoBefore)
    {
        const bool bMayGo = std::equal(auiTiming.begin(), auiTiming.begin() + 2, auiNamed.begin()) &&
                            auiTiming[uiRate] + 1 >= auiNamed[uiRate] && auiTiming[uiRate] <= auiNamed[uiRate] + 1;
        if (itLeft != aoAfter.end() && *itLeft == auiTiming)
        {
            ++itLeft;
        }
        else if (!bMayGo)
        {
            return false;
        }
    }
    return itLeft == aoAfter.end() && IsWithoutCode(aoBefore, aoAfter, auiNamed);
}

// The blocks that an edit may change, in the order in which it asks: for a timing the block that its number falls into,
// and those that it is handed on to when that one refuses.
std::vector<SPlace> FindPlaces(const SEditStep& oStep, const std::vector<CLists>& aoLists, const CBytes& aui8Bytes,
                               const std::bitset<256>& oBehind)
{
    const unsigned int uiOperation = oStep.m_uiOperation % CEditRunner::msc_uiOperationCount;
    const bool bMerged = uiOperation <= CEditRunner::eEdit_LastThroughBlocks;
    const bool bOfBlock = uiOperation >= CEditRunner::eEdit_FirstOfBlock && uiOperation != CEditRunner::eEdit_Reload;
    std::vector<SPlace> aoPlaces;
    size_t uiIndex = oStep.m_uiIndex;
    for (size_t i = 0; i < aoLists.size() && (aoPlaces.empty() || aoPlaces[0].m_uiBlock != 0); ++i)
    {
        const size_t uiCount = bMerged ? aoLists[i][GetRow(uiOperation).m_eList].size() : 0;
        if (bMerged ? uiIndex < uiCount : i == (bOfBlock ? oStep.m_uiBlock + size_t{ 1 } : 0))
        {
            const bool bIsSure = i == 0 || (!oBehind[i] && IsTidy(&aui8Bytes[gsc_uiBlockSize * i]));
            aoPlaces.push_back({ i, uiIndex, oBehind[i], bIsSure });
            continue;
        }
        uiIndex -= uiCount;
    }
    return aoPlaces;
}

// The removal of a table timing moves what follows it, and derives the list of table timings alone.
bool Moves(const SRow& oRow, const SPlace& oPlace)
{
    return oRow.m_eKind == EKind::eRemove && oRow.m_eList == eBlockList_Table && oPlace.m_uiBlock != 0;
}

std::string CheckLists(const SEditStep& oStep, const SPlace& oPlace, CLists aoExpected, const CLists& aoNow,
                       const CBytes& aui8Before, const CBytes& aui8After)
{
    const SRow& oRow = GetRow(oStep.m_uiOperation);
    const size_t uiStart = gsc_uiBlockSize * oPlace.m_uiBlock;
    CList& aoList = aoExpected[oRow.m_eList % eBlockList_Count];
    const CList& aoNowList = aoNow[oRow.m_eList % eBlockList_Count];
    const auto itEntry = aoList.begin() + static_cast<ptrdiff_t>(std::min(oPlace.m_uiIndex, aoList.size()));
    if ((IsRemoval(oRow) || oRow.m_eKind == EKind::eSet) && itEntry == aoList.end())
    {
        return "an edit succeeded at an index that is not there; ";
    }

    if (Moves(oRow, oPlace))
    {
        return (!IsTidy(&aui8Before[uiStart], true) || IsWithoutCode(aoList, aoNowList, *itEntry)) &&
                       std::equal(aoNow.begin() + eBlockList_Audio, aoNow.end(), aoExpected.begin() + eBlockList_Audio)
                   ? ""
                   : "a table timing was not removed, or another one was, or another list changed; ";
    }

    if (oRow.m_eKind == EKind::eRemoveCode && oPlace.m_uiBlock != 0)
    {
        const bool bOnly = IsOnlyWithoutCode(aoList, aoNowList, *itEntry);
        aoList = aoNowList;
        return !bOnly                                             ? "a code was not removed, or another timing was; "
               : aoNow != aoExpected && !oPlace.m_bIsBehind       ? "another list than the table timings changed; "
               : oPlace.m_bIsSure && !IsTidy(&aui8After[uiStart]) ? "the block is no longer in order; "
                                                                  : "";
    }
    if (IsRemoval(oRow))
    {
        aoList.erase(itEntry);
    }
    else if (oRow.m_eKind == EKind::eSet)
    {
        *itEntry = MakeStored(oRow.m_eList, oStep);
    }
    else if (oRow.m_eKind == EKind::eAdd && aui8Before[uiStart + 1] == 3) // others list no data blocks
    {
        // At the end of the first data block or of the last.
        const auto itNew = std::mismatch(aoList.begin(), aoList.end(), aoNowList.begin(), aoNowList.end()).first;
        aoList.insert(itNew, MakeStored(oRow.m_eList, oStep));
    }
    return oPlace.m_bIsSure && oRow.m_eKind != EKind::eFree && aoNow != aoExpected
               ? "the lists are not what they were to become; "
           : oPlace.m_bIsSure && oPlace.m_uiBlock != 0 && !IsTidy(&aui8After[uiStart])
               ? "data blocks do not end where they say, or bytes follow the content; "
               : "";
}
} // namespace

int CEditRunner::Load(const CBytes& aui8Image)
{
    m_oBehind.reset();
    return m_oEdid.SetEdidBuffer(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()), 0);
}

int CEditRunner::Run(const SEditStep& oStep)
{
    if (oStep.m_uiOperation % msc_uiOperationCount == eEdit_Reload)
    {
        m_oBehind.reset();
    }
    return GetRow(oStep.m_uiOperation).m_pfnRun(m_oEdid, oStep);
}

std::string CEditRunner::Apply(const SEditStep& oStep)
{
    const SRow& oRow = GetRow(oStep.m_uiOperation);
    const CBytes aui8Before = Serialise(m_oEdid);
    const std::vector<CLists> aoBefore = GetLists(m_oEdid);
    const std::vector<SPlace> aoPlaces = FindPlaces(oStep, aoBefore, aui8Before, m_oBehind);
    const bool bDone = Run(oStep) != 0;
    const CBytes aui8After = Serialise(m_oEdid);
    if (!bDone)
    {
        // What a list holds can be removed, except for a timing that has no code of its own and a preferred one.
        const bool bRefuses = std::all_of(aoPlaces.begin(), aoPlaces.end(), [&](const SPlace& oPlace) {
            const CList& aoList = aoBefore[oPlace.m_uiBlock][oRow.m_eList % eBlockList_Count];
            return !IsRemoval(oRow) || oPlace.m_uiIndex >= aoList.size() ||
                   (oRow.m_eKind == EKind::eRemoveCode &&
                    (!oPlace.m_bIsSure || HoldsHdmi(&aui8Before[gsc_uiBlockSize * oPlace.m_uiBlock]))) ||
                   (oRow.m_eList == eBlockList_Table ? Is420(aoList[oPlace.m_uiIndex])
                                                     : !oPlace.m_bIsSure || oPlace.m_uiBlock + oPlace.m_uiIndex == 0);
        });
        return !bRefuses                                                  ? "a listed timing was not removed"
               : aui8After == aui8Before && GetLists(m_oEdid) == aoBefore ? ""
                                                                          : "a refusal changed bytes or lists";
    }
    m_uiChangeCount += aui8After != aui8Before ? 1U : 0U;
    if (aoPlaces.empty() || aui8After.size() != aui8Before.size())
    {
        return "an edit succeeded where there is nothing to edit, or changed the size";
    }
    // Of two blocks that changed CheckBytes sees the other.
    const auto itChanged = std::mismatch(aui8Before.begin(), aui8Before.end(), aui8After.begin()).first;
    const auto itPlace = std::find_if(aoPlaces.begin(), aoPlaces.end(), [&](const SPlace& oPlace) {
        return oPlace.m_uiBlock == static_cast<size_t>(itChanged - aui8Before.begin()) / gsc_uiBlockSize;
    });
    const SPlace& oPlace = itPlace != aoPlaces.end() ? *itPlace : aoPlaces.front();
    std::string sBroken = CheckBytes(oStep, oPlace.m_uiBlock, aui8Before, aui8After);
    if (oRow.m_eKind == EKind::eRaw)
    {
        Load(aui8After);
        return sBroken;
    }
    m_oBehind[oPlace.m_uiBlock] = Moves(oRow, oPlace);
    const std::vector<CLists> aoHeld = GetLists(m_oEdid);
    const size_t uiBlock = oPlace.m_uiBlock;
    sBroken += CheckLists(oStep, oPlace, aoBefore[uiBlock], aoHeld[uiBlock], aui8Before, aui8After);
    CEdid oFresh;
    LoadExact(oFresh, aui8After);
    const std::vector<CLists> aoOfBytes = GetLists(oFresh);
    bool bSame = Serialise(oFresh) == aui8After;
    for (size_t i = 0; bSame && i < aoHeld.size(); ++i)
    {
        // Up to the detailed timings where the others are out of date.
        const auto itEnd = aoHeld[i].begin() + (m_oBehind[i] ? eBlockList_Detailed : eBlockList_Count);
        bSame = std::equal(aoHeld[i].begin(), itEnd, aoOfBytes[i].begin());
    }
    return sBroken + (bSame ? "" : "the bytes do not load again, or the lists are not theirs");
}

bool CEditRunner::UsesValue(unsigned int uiOperation) { return !IsRemoval(GetRow(uiOperation)); }

unsigned int CEditRunner::GetIndexCount(unsigned int uiOperation) const
{
    const SRow& oRow = GetRow(uiOperation);
    return oRow.m_uiIndexCount != 0              ? oRow.m_uiIndexCount
           : oRow.m_eList == eBlockList_Table    ? m_oEdid.GetStandardCount() + 2
           : oRow.m_eList == eBlockList_Detailed ? m_oEdid.GetDetailedCount() + 2
                                                 : 12;
}
