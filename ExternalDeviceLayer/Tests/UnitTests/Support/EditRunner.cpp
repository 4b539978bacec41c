// Runs edits of an EDID and compares what they left with what they promise.

#include "EditRunner.h"

#include <stddef.h>

#include <algorithm>
#include <iterator>

#include "CompareLists.h"
#include "EdidExtBlockCEA861.h"
#include "EdidUtils.h"
#include "VidParamTimingGeneric.h"

namespace
{
constexpr unsigned int gsc_uiCeaTag = 2;
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;

using CBlock = std::vector<unsigned char>;

bool IsSumZero(const CBlock& aui8Block)
{
    unsigned int uiSum = 0;
    for (unsigned char ui8Byte : aui8Block)
    {
        uiSum += ui8Byte;
    }
    return uiSum % 256 == 0;
}

// The bytes of the base block that an edit of it may change besides the checksum.
struct SNamedBytes
{
    size_t m_uiFirst;
    size_t m_uiEnd;
};

constexpr SNamedBytes gsc_aoNamedBytes[] = {
    { 38, 54 },  // eEdit_RemoveStandard
    { 54, 126 }, // eEdit_RemoveDetailed
    { 35, 38 },  // eEdit_SetEstablished
    { 35, 38 },  // eEdit_SetEstablishedFromId
    { 12, 16 },  // eEdit_SetSerialNumber
    { 20, 21 },  // eEdit_SetColorBitDepth
    { 54, 126 }, // eEdit_SetPreferredMode
    { 38, 54 },  // eEdit_RePackStandards
    { 0, 0 },    // eEdit_UpdateChecksum
};
static_assert(std::size(gsc_aoNamedBytes) == CEditRunner::eEdit_BlockRemoveStandard, "a row for each edit of CEdid");

bool ChangesOnlyNamedBytes(unsigned int uiOperation, const CBlock& aui8Before, const CBlock& aui8After)
{
    const SNamedBytes& oNamed = gsc_aoNamedBytes[uiOperation];
    for (size_t i = 0; i < CEdidUtils::msc_uiChecksumOffset; ++i)
    {
        if ((i < oNamed.m_uiFirst || i >= oNamed.m_uiEnd) && aui8Before[i] != aui8After[i])
        {
            return false;
        }
    }
    return true;
}

bool IsEstablished(unsigned int uiOperation)
{
    return uiOperation == CEditRunner::eEdit_SetEstablished || uiOperation == CEditRunner::eEdit_SetEstablishedFromId;
}

int GetFlag(const SEditStep& oStep) { return static_cast<int>(oStep.m_uiValue & 1); }

bool UpdatesChecksum(const SEditStep& oStep) { return (oStep.m_uiValue & 4) == 0; }

// Edits that leave a wrong checksum when there is nothing to change.
bool LooksFirst(unsigned int uiOperation)
{
    return uiOperation == CEditRunner::eEdit_SetSerialNumber || uiOperation == CEditRunner::eEdit_SetColorBitDepth ||
           uiOperation == CEditRunner::eEdit_RePackStandards;
}

// The removal of a table timing moves what stands behind it, and derives the list of table timings alone.
bool IsRemovalOfStandard(unsigned int uiOperation)
{
    return uiOperation == CEditRunner::eEdit_BlockRemoveStandard || uiOperation == CEditRunner::eEdit_RemoveStandard;
}

bool IsRemovalOfDetailed(unsigned int uiOperation)
{
    return uiOperation == CEditRunner::eEdit_BlockRemoveDetailed || uiOperation == CEditRunner::eEdit_RemoveDetailed;
}

// Edits whose success takes something out of a list.
bool IsRemoval(const SEditStep& oStep, unsigned int uiOperation)
{
    return IsRemovalOfStandard(uiOperation) || IsRemovalOfDetailed(uiOperation) ||
           uiOperation == CEditRunner::eEdit_RemoveAudio || uiOperation == CEditRunner::eEdit_RemoveSpeaker ||
           (uiOperation == CEditRunner::eEdit_SetEstablished && GetFlag(oStep) == 0);
}

bool IsAddition(unsigned int uiOperation)
{
    return uiOperation == CEditRunner::eEdit_AddAudio || uiOperation == CEditRunner::eEdit_AddSpeaker ||
           uiOperation == CEditRunner::eEdit_AddVendorSpecific;
}

bool IsZeroFrom(const CBlock& aui8Block, size_t uiFirst)
{
    return std::all_of(aui8Block.begin() + static_cast<ptrdiff_t>(uiFirst), aui8Block.end() - 1,
                       [](unsigned char ui8Byte) { return ui8Byte == 0; });
}

// Where the descriptors of a CEA-861 block begin, if its data blocks end there and only zeros stand behind the
// descriptors; else 0. In other blocks a removal may uncover bytes that then read as something else.
unsigned int GetTidyStart(const CBlock& aui8Block)
{
    const unsigned int uiStart = aui8Block[2];
    if (aui8Block[0] != gsc_uiCeaTag || aui8Block[1] < 3 || uiStart < 4 || uiStart > CEdidUtils::msc_uiChecksumOffset)
    {
        return 0;
    }
    unsigned int uiAt = 4;
    while (uiAt < uiStart)
    {
        uiAt += 1U + (aui8Block[uiAt] & 0x1F);
    }
    if (uiAt != uiStart)
    {
        return 0;
    }
    while (uiAt + 18 <= CEdidUtils::msc_uiChecksumOffset && (aui8Block[uiAt] != 0 || aui8Block[uiAt + 1] != 0))
    {
        uiAt += 18;
    }
    return IsZeroFrom(aui8Block, uiAt) ? uiStart : 0;
}

// The same where no descriptor follows, whose bytes would move into the data blocks with a table timing's removal.
bool IsTidyWithoutDescriptors(const CBlock& aui8Block)
{
    const unsigned int uiStart = GetTidyStart(aui8Block);
    return uiStart != 0 && IsZeroFrom(aui8Block, uiStart);
}

// Timings of the block that are the same as this one; 0 for one in YCbCr 4:2:0, whose code may stand elsewhere.
unsigned int CountOrdinary(const CEdidExtBlock& oBlock, const CVidParamTimingGeneric& oTiming)
{
    unsigned int uiCount = 0;
    for (unsigned int i = 0; i < oBlock.GetStandardCount() && oTiming.Is420ColorSpace() == 0; ++i)
    {
        CVidParamTimingGeneric oOther;
        oBlock.GetStandard(i, &oOther, nullptr);
        uiCount += IsSameTiming(oOther, oTiming) ? 1U : 0U;
    }
    return uiCount;
}

CEdidExtBlockCEA861::SAudioDescriptor MakeAudio(unsigned int uiValue)
{
    return { static_cast<CEdidExtBlockCEA861::EAudioFormat>(uiValue & 0x1F), uiValue >> 5 & 0x0F,
             static_cast<CEdidExtBlockCEA861::EAudioSamplingFreq>(uiValue >> 9 & 0xFF), uiValue >> 17 };
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
        oTiming.SetInterlaced(static_cast<int>(oStep.m_uiValue & 1));
    }
    return oTiming;
}

bool IsRawStep(unsigned int uiOperation)
{
    return uiOperation == CEditRunner::eEdit_RemoveDataRange || uiOperation == CEditRunner::eEdit_PadDataRange;
}

bool IsBlockEdit(unsigned int uiOperation)
{
    return uiOperation >= CEditRunner::eEdit_BlockRemoveStandard && uiOperation < CEditRunner::eEdit_Reload;
}
}

int CEditRunner::Load(const unsigned char* pui8Data, unsigned int uiSize)
{
    m_abBehind.clear();
    return m_oEdid.SetEdidBuffer(pui8Data, uiSize, 0);
}

const char* CEditRunner::Apply(const SEditStep& oStep)
{
    const unsigned int uiOperation = oStep.m_uiOperation % msc_uiOperationCount;
    const SBefore oBefore = { CopyBlocks(), FindPlaces(oStep, uiOperation) };
    const int iResult = Run(oStep);
    if (iResult != 0)
    {
        ++m_uiSuccessCount;
    }
    if (IsRawStep(uiOperation))
    {
        return CheckAfterRawStep(oStep, oBefore.m_aaui8Blocks);
    }
    const SPlace* poPlace = nullptr;
    if (const char* pszBroken = CheckBytes(oStep, iResult, oBefore, poPlace))
    {
        return pszBroken;
    }
    if (poPlace != nullptr)
    {
        const char* pszBroken = iResult != 0 ? CheckEffect(oStep, oBefore, *poPlace) : CheckRefusal(oStep, oBefore);
        if (pszBroken != nullptr)
        {
            return pszBroken;
        }
    }
    if (iResult != 0 && poPlace != nullptr)
    {
        m_abBehind.resize(std::max(m_abBehind.size(), poPlace->m_uiBlock + 1));
        m_abBehind[poPlace->m_uiBlock] = poPlace->m_uiBlock != 0 && IsRemovalOfStandard(uiOperation);
    }
    // Where no byte changed the lists are hardly ever worth the time.
    const bool bIsLikelySame = iResult == 0 && oStep.m_uiValue % 16 != 0;
    return bIsLikelySame ? nullptr : CheckLists();
}

int CEditRunner::Run(const SEditStep& oStep)
{
    const unsigned int uiOperation = oStep.m_uiOperation % msc_uiOperationCount;
    const int bChecksum = UpdatesChecksum(oStep) ? 1 : 0;
    switch (uiOperation)
    {
    case eEdit_RemoveStandard:
        return m_oEdid.RemoveStandard(oStep.m_uiIndex);
    case eEdit_RemoveDetailed:
        return m_oEdid.RemoveDetailed(oStep.m_uiIndex);
    case eEdit_SetEstablished:
        return m_oEdid.SetEstablished(oStep.m_uiIndex, GetFlag(oStep), bChecksum);
    case eEdit_SetEstablishedFromId:
        return m_oEdid.SetEstablishedFromId(static_cast<CEdidBase::EEstablishedTiming>(1U << (oStep.m_uiIndex % 32)),
                                            GetFlag(oStep), bChecksum);
    case eEdit_SetSerialNumber:
        m_oEdid.SetSerialNumber(oStep.m_uiValue);
        return 1;
    case eEdit_SetColorBitDepth:
        return m_oEdid.SetColorBitDepth(static_cast<CEdidBase::EColorBitDepth>(oStep.m_uiValue % 10));
    case eEdit_SetPreferredMode: {
        const CVidParamTimingGeneric oTiming = MakeTiming(m_oEdid, oStep);
        return m_oEdid.SetPreferredMode(oStep.m_uiValue % 64 == 0 ? nullptr : &oTiming);
    }
    case eEdit_RePackStandards:
        m_oEdid.RePackStandards();
        m_oEdid.ExtractStandardTimings(); // what it leaves behind the bytes
        return 1;
    case eEdit_UpdateChecksum:
        m_oEdid.UpdateChecksum();
        return 1;
    case eEdit_Reload: {
        const auto aui8Bytes = m_oEdid.GetEdidBuffer();
        return m_oEdid.GetSize() != 0 ? Load(aui8Bytes.GetData(), aui8Bytes.GetCount()) : 0;
    }
    default:
        return RunOnBlock(oStep, uiOperation);
    }
}

int CEditRunner::RunOnBlock(const SEditStep& oStep, unsigned int uiOperation)
{
    CEdidExtBlock* poBlock = m_oEdid.GetExtension(oStep.m_uiBlock);
    if (poBlock == nullptr)
    {
        return 0;
    }
    switch (uiOperation)
    {
    case eEdit_BlockRemoveStandard:
        return poBlock->RemoveStandard(oStep.m_uiIndex);
    case eEdit_BlockRemoveDetailed:
        return poBlock->RemoveDetailed(oStep.m_uiIndex);
    case eEdit_BlockSetColorBitDepthSupport:
        return poBlock->SetColorBitDepthSupport(oStep.m_uiValue);
    default:
        break;
    }
    if (poBlock->GetExtensionType() != gsc_uiCeaTag)
    {
        return 0;
    }

    CEdidExtBlockCEA861& oCea = static_cast<CEdidExtBlockCEA861&>(*poBlock);
    const CEdidExtBlockCEA861::SAudioDescriptor oAudio = MakeAudio(oStep.m_uiValue);
    switch (uiOperation)
    {
    case eEdit_AddAudio:
        return oCea.AddAudioDescriptor(oStep.m_uiValue == 0 ? nullptr : &oAudio);
    case eEdit_SetAudio:
        return oCea.SetAudioDescriptor(oStep.m_uiIndex, oStep.m_uiValue == 0 ? nullptr : &oAudio);
    case eEdit_RemoveAudio:
        return oCea.RemoveAudioDescriptor(oStep.m_uiIndex);
    case eEdit_AddSpeaker:
        return oCea.AddSpeakerDescriptor(oStep.m_uiValue);
    case eEdit_SetSpeaker:
        return oCea.SetSpeakerDescriptor(oStep.m_uiIndex, oStep.m_uiValue);
    case eEdit_RemoveSpeaker:
        return oCea.RemoveSpeakerDescriptor(oStep.m_uiIndex);
    case eEdit_AddVendorSpecific:
        return oCea.AddVendorSpecific();
    case eEdit_RemoveDataRange:
        oCea.RemoveDataRange(oStep.m_uiIndex, oStep.m_uiValue);
        return 1;
    default:
        oCea.PadDataRange(oStep.m_uiIndex, oStep.m_uiValue);
        return 1;
    }
}

// A raw step may take anything out of its block, the tag included: the lists are derived, then what is left is loaded.
const char* CEditRunner::CheckAfterRawStep(const SEditStep& oStep, const CBlocks& aaui8Before)
{
    CEdidExtBlock* poBlock = m_oEdid.GetExtension(oStep.m_uiBlock);
    if (poBlock != nullptr && poBlock->GetExtensionType() == gsc_uiCeaTag)
    {
        CEdidExtBlockCEA861& oCea = static_cast<CEdidExtBlockCEA861&>(*poBlock);
        oCea.ExtractStandardTimings();
        oCea.ExtractDetailedTimings();
        oCea.ExtractAudioInfo();
        oCea.ExtractSpeakerInfo();
        oCea.UpdateChecksum();
        if (oCea.IsChecksumValid() == 0)
        {
            return "the checksum is wrong after UpdateChecksum";
        }
    }
    const CBlocks aaui8After = CopyBlocks();
    if (aaui8After.size() != aaui8Before.size())
    {
        return "a raw step changed the size";
    }
    for (size_t i = 0; i < aaui8After.size(); ++i)
    {
        const bool bIsNamed = oStep.m_uiBlock < aaui8After.size() - 1 && i == oStep.m_uiBlock + 1U;
        if (!bIsNamed && aaui8After[i] != aaui8Before[i])
        {
            return "a raw step changed another block";
        }
    }
    const auto aui8Bytes = m_oEdid.GetEdidBuffer();
    if (m_oEdid.GetSize() != 0)
    {
        Load(aui8Bytes.GetData(), aui8Bytes.GetCount());
    }
    return nullptr;
}

// In the order in which the edit asks: for a timing the block that its number falls into, and those that it is handed
// on to when that one refuses.
CEditRunner::CPlaces CEditRunner::FindPlaces(const SEditStep& oStep, unsigned int uiOperation) const
{
    if (uiOperation == eEdit_Reload || (IsBlockEdit(uiOperation) && oStep.m_uiBlock >= m_oEdid.GetExtensionCount()))
    {
        return {};
    }
    if (IsBlockEdit(uiOperation))
    {
        return { MakePlace(uiOperation, oStep.m_uiBlock + 1U, oStep.m_uiIndex) };
    }
    if (uiOperation != eEdit_RemoveStandard && uiOperation != eEdit_RemoveDetailed)
    {
        return { MakePlace(uiOperation, 0, oStep.m_uiIndex) };
    }
    CPlaces aoPlaces;
    unsigned int uiRest = oStep.m_uiIndex;
    for (size_t uiBlock = 0; uiBlock <= m_oEdid.GetExtensionCount(); ++uiBlock)
    {
        const unsigned int uiCount = CountTimings(uiOperation, uiBlock);
        if (uiRest >= uiCount)
        {
            uiRest -= uiCount;
            continue;
        }
        aoPlaces.push_back(MakePlace(uiOperation, uiBlock, uiRest));
        if (uiBlock == 0)
        {
            break; // the base block's answer is final
        }
    }
    return aoPlaces;
}

unsigned int CEditRunner::CountTimings(unsigned int uiOperation, size_t uiBlock) const
{
    const bool bDetailed = IsRemovalOfDetailed(uiOperation);
    if (uiBlock == 0)
    {
        return bDetailed ? m_oEdid.GetBaseDetailedCount() : m_oEdid.GetBaseStandardCount();
    }
    const CEdidExtBlock& oBlock = *m_oEdid.GetExtension(static_cast<unsigned int>(uiBlock - 1));
    return bDetailed ? oBlock.GetDetailedCount() : oBlock.GetStandardCount();
}

CEditRunner::SPlace CEditRunner::MakePlace(unsigned int uiOperation, size_t uiBlock, unsigned int uiIndex) const
{
    SPlace oPlace = { uiBlock, uiIndex, {}, 0 };
    if (uiBlock != 0 && IsRemovalOfStandard(uiOperation))
    {
        m_oEdid.GetExtension(static_cast<unsigned int>(uiBlock - 1))->GetStandard(uiIndex, &oPlace.m_oTiming, nullptr);
    }
    oPlace.m_uiCount = Count(uiOperation, oPlace);
    return oPlace;
}

// How many there are of what the operation removes.
unsigned int CEditRunner::Count(unsigned int uiOperation, const SPlace& oPlace) const
{
    if (uiOperation == eEdit_SetEstablished)
    {
        return m_oEdid.GetEstablishedCount(1);
    }
    if (IsRemovalOfDetailed(uiOperation) || (IsRemovalOfStandard(uiOperation) && oPlace.m_uiBlock == 0))
    {
        return CountTimings(uiOperation, oPlace.m_uiBlock);
    }
    if (oPlace.m_uiBlock == 0)
    {
        return 0;
    }
    const CEdidExtBlock& oBlock = *m_oEdid.GetExtension(static_cast<unsigned int>(oPlace.m_uiBlock - 1));
    if (IsRemovalOfStandard(uiOperation))
    {
        return CountOrdinary(oBlock, oPlace.m_oTiming);
    }
    if (oBlock.GetExtensionType() != gsc_uiCeaTag)
    {
        return 0;
    }
    const CEdidExtBlockCEA861& oCea = static_cast<const CEdidExtBlockCEA861&>(oBlock);
    return uiOperation == eEdit_RemoveAudio ? oCea.GetAudioDescriptorCount() : oCea.GetSpeakerDescriptorCount();
}

// poPlace receives the place that changed, or the first one where nothing did; null when the edit has none.
const char* CEditRunner::CheckBytes(const SEditStep& oStep, int iResult, const SBefore& oBefore,
                                    const SPlace*& poPlace) const
{
    const unsigned int uiOperation = oStep.m_uiOperation % msc_uiOperationCount;
    const CBlocks aaui8After = CopyBlocks();
    if (aaui8After.size() != oBefore.m_aaui8Blocks.size())
    {
        return "the number of blocks changed";
    }
    poPlace = oBefore.m_aoPlaces.empty() ? nullptr : &oBefore.m_aoPlaces.front();
    unsigned int uiChanged = 0;
    for (size_t i = 0; i < aaui8After.size(); ++i)
    {
        if (aaui8After[i].size() != oBefore.m_aaui8Blocks[i].size())
        {
            return "the size of a block changed";
        }
        if (aaui8After[i] == oBefore.m_aaui8Blocks[i])
        {
            continue;
        }
        ++uiChanged;
        const auto itPlace = std::find_if(oBefore.m_aoPlaces.begin(), oBefore.m_aoPlaces.end(),
                                          [&](const SPlace& oPlace) { return oPlace.m_uiBlock == i; });
        if (itPlace == oBefore.m_aoPlaces.end())
        {
            return "an edit changed a block that it does not name";
        }
        poPlace = &*itPlace;
    }
    if (iResult == 0 || uiChanged > 1 || poPlace == nullptr)
    {
        return uiChanged == 0 ? nullptr
               : iResult == 0 ? "a refusal changed bytes"
                              : "an edit changed more than one block";
    }
    const CBlock& aui8Before = oBefore.m_aaui8Blocks[poPlace->m_uiBlock];
    const CBlock& aui8After = aaui8After[poPlace->m_uiBlock];
    if (poPlace->m_uiBlock == 0 && !ChangesOnlyNamedBytes(uiOperation, aui8Before, aui8After))
    {
        return "an edit changed bytes of the base block that it does not name";
    }
    if (uiChanged == 0 && (IsRemoval(oStep, uiOperation) || IsAddition(uiOperation)))
    {
        return "a removal or an addition changed no byte";
    }
    if (IsEstablished(uiOperation) && !UpdatesChecksum(oStep))
    {
        return aui8Before.back() == aui8After.back() ? nullptr : "a checksum changed that was not to";
    }
    const bool bMayStayWrong = uiChanged == 0 && LooksFirst(uiOperation);
    return bMayStayWrong || IsSumZero(aui8After) ? nullptr : "the checksum of the named block is wrong";
}

// What a success has left, where it is cheap to read.
const char* CEditRunner::CheckEffect(const SEditStep& oStep, const SBefore& oBefore, const SPlace& oPlace)
{
    const unsigned int uiOperation = oStep.m_uiOperation % msc_uiOperationCount;
    const CBlock& aui8Before = oBefore.m_aaui8Blocks[oPlace.m_uiBlock];
    if (!IsRemoval(oStep, uiOperation))
    {
        return oPlace.m_uiBlock == 0 ? CheckStoredInBase(oStep, aui8Before) : CheckStoredInBlock(oStep, oPlace);
    }
    bool bSure = true;
    if (oPlace.m_uiBlock != 0)
    {
        bSure = IsRemovalOfStandard(uiOperation) ? oPlace.m_uiCount != 0 && IsTidyWithoutDescriptors(aui8Before)
                                                 : !IsBehind(oPlace.m_uiBlock) && GetTidyStart(aui8Before) != 0;
    }
    return !bSure || Count(uiOperation, oPlace) < oPlace.m_uiCount ? nullptr : "a removal left the count as it was";
}

// A timing that stands in a list can be removed, except for one that has no code of its own.
const char* CEditRunner::CheckRefusal(const SEditStep& oStep, const SBefore& oBefore) const
{
    const unsigned int uiOperation = oStep.m_uiOperation % msc_uiOperationCount;
    const SPlace& oPlace = oBefore.m_aoPlaces.front();
    const bool bMustRemove = IsRemovalOfStandard(uiOperation) && oPlace.m_uiCount != 0 && oPlace.m_uiBlock != 0 &&
                             IsTidyWithoutDescriptors(oBefore.m_aaui8Blocks[oPlace.m_uiBlock]);
    return bMustRemove ? "a table timing was not removed" : nullptr;
}

const char* CEditRunner::CheckStoredInBase(const SEditStep& oStep, const CBlock& aui8Before) const
{
    const unsigned char* pui8Base = m_oEdid.GetBaseBlock();
    bool bStored = true;
    switch (oStep.m_uiOperation % msc_uiOperationCount)
    {
    case eEdit_SetEstablishedFromId: {
        const unsigned int uiBit = oStep.m_uiIndex % 32;
        bStored = (pui8Base[35 + uiBit / 8] >> uiBit % 8 & 1) == GetFlag(oStep);
        break;
    }
    case eEdit_SetSerialNumber:
        for (unsigned int i = 0; i < 4; ++i)
        {
            bStored = bStored && pui8Base[12 + i] == (oStep.m_uiValue >> 8 * i & 0xFF);
        }
        break;
    case eEdit_SetColorBitDepth:
        bStored = pui8Base[20] == ((aui8Before[20] & 0x8FU) | oStep.m_uiValue % 10 << 4);
        break;
    default:
        break;
    }
    return bStored ? nullptr : "a value of the base block is not what was set";
}

const char* CEditRunner::CheckStoredInBlock(const SEditStep& oStep, const SPlace& oPlace)
{
    CEdidExtBlock& oBlock = *m_oEdid.GetExtension(static_cast<unsigned int>(oPlace.m_uiBlock - 1));
    if (oBlock.GetExtensionType() != gsc_uiCeaTag || IsBehind(oPlace.m_uiBlock))
    {
        return nullptr;
    }
    const CEdidExtBlockCEA861& oCea = static_cast<const CEdidExtBlockCEA861&>(oBlock);
    bool bStored = true;
    switch (oStep.m_uiOperation % msc_uiOperationCount)
    {
    case eEdit_BlockSetColorBitDepthSupport: {
        unsigned int uiBits = 0;
        oBlock.GetColorBitDepthSupport(uiBits);
        bStored = uiBits == (oStep.m_uiValue & 7) || uiBits == 0; // 0 without an HDMI block
        break;
    }
    case eEdit_SetAudio: {
        const CEdidExtBlockCEA861::SAudioDescriptor oSet = MakeAudio(oStep.m_uiValue);
        CEdidExtBlockCEA861::SAudioDescriptor oRead = {};
        oCea.GetAudioDescriptor(oPlace.m_uiIndex, &oRead);
        bStored = oRead.m_eFormat == (oSet.m_eFormat & 0x0FU) &&
                  oRead.m_uiChannels == ((oSet.m_uiChannels - 1) & 7) + 1 &&
                  oRead.m_eSamplingFreq == (oSet.m_eSamplingFreq & 0x7FU) && oRead.m_uiExtra == (oSet.m_uiExtra & 0xFF);
        break;
    }
    case eEdit_SetSpeaker: {
        unsigned int uiMask = 0;
        oCea.GetSpeakerDescriptor(oPlace.m_uiIndex, &uiMask);
        bStored = uiMask == (oStep.m_uiValue & 0x7FF);
        break;
    }
    default:
        break;
    }
    return bStored ? nullptr : "a value of a block is not what was set";
}

bool CEditRunner::IsBehind(size_t uiBlock) const { return uiBlock < m_abBehind.size() && m_abBehind[uiBlock]; }

const char* CEditRunner::CheckLists() const
{
    if (m_oEdid.GetSize() == 0)
    {
        return nullptr;
    }
    const auto aui8Bytes = m_oEdid.GetEdidBuffer();
    CEdid oFresh;
    if (oFresh.SetEdidBuffer(aui8Bytes.GetData(), aui8Bytes.GetCount(), 0) == 0)
    {
        return "the bytes do not load again";
    }
    if (oFresh.GetExtensionCount() != m_oEdid.GetExtensionCount() || (oFresh == m_oEdid) == 0)
    {
        return "a block does not load again";
    }
    if (oFresh.GetBaseStandardCount() != m_oEdid.GetBaseStandardCount())
    {
        return "the number of standard timings of the base block is not that of its bytes";
    }
    for (unsigned int i = 0; i < m_oEdid.GetBaseStandardCount(); ++i)
    {
        CVidParamTimingGeneric aoTimings[2];
        m_oEdid.GetBaseStandard(i, &aoTimings[0], nullptr);
        oFresh.GetBaseStandard(i, &aoTimings[1], nullptr);
        if (!IsSameTiming(aoTimings[0], aoTimings[1]))
        {
            return "the standard timings of the base block are not those of its bytes";
        }
    }
    for (unsigned int i = 0; i < m_oEdid.GetExtensionCount(); ++i)
    {
        if (m_oEdid.GetExtension(i)->GetExtensionType() != gsc_uiCeaTag)
        {
            continue;
        }
        const auto& oBlock = static_cast<const CEdidExtBlockCEA861&>(*m_oEdid.GetExtension(i));
        const auto& oOfBytes = static_cast<const CEdidExtBlockCEA861&>(*oFresh.GetExtension(i));
        const char* pszBroken = CompareTableTimings(oBlock, oOfBytes);
        if (pszBroken == nullptr && !IsBehind(i + 1))
        {
            pszBroken = CompareOtherLists(oBlock, oOfBytes);
        }
        if (pszBroken != nullptr)
        {
            return pszBroken;
        }
    }
    return nullptr;
}

CEditRunner::CBlocks CEditRunner::CopyBlocks() const
{
    const unsigned char* pui8Base = m_oEdid.GetBaseBlock();
    CBlocks aaui8Blocks = { CBlock(pui8Base, pui8Base + gsc_uiBlockSize) };
    for (unsigned int i = 0; i < m_oEdid.GetExtensionCount(); ++i)
    {
        const CEdidExtBlock* poBlock = m_oEdid.GetExtension(i);
        aaui8Blocks.emplace_back(poBlock->GetData(), poBlock->GetData() + poBlock->GetSize());
    }
    return aaui8Blocks;
}
