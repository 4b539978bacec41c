// Runs edits of an EDID and compares what they left with what they promise.

#include "EditRunner.h"

#include <stddef.h>

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

bool IsSameTiming(const CVidParamTimingGeneric& oFirst, const CVidParamTimingGeneric& oSecond)
{
    const SVidParamGenericData& oA = oFirst.GetData();
    const SVidParamGenericData& oB = oSecond.GetData();
    return oA.uiHorizontalActive == oB.uiHorizontalActive && oA.uiVerticalActive == oB.uiVerticalActive &&
           oA.uiVerticalRateInHz == oB.uiVerticalRateInHz && oA.uiHorizontalRateInHz == oB.uiHorizontalRateInHz &&
           oA.uiPixelClockInHz == oB.uiPixelClockInHz && oA.uiHorizontalFrontPorch == oB.uiHorizontalFrontPorch &&
           oA.uiHorizontalSync == oB.uiHorizontalSync && oA.uiHorizontalBackPorch == oB.uiHorizontalBackPorch &&
           oA.uiVerticalFrontPorch == oB.uiVerticalFrontPorch && oA.uiVerticalSync == oB.uiVerticalSync &&
           oA.uiVerticalBackPorch == oB.uiVerticalBackPorch && oA.uiFlags == oB.uiFlags &&
           oA.eVideoFamilyType == oB.eVideoFamilyType;
}

// The lists of a CEdid or of a block, against those of another one.
template <class SOURCE>
bool HasSameStandards(const SOURCE& oFirst, const SOURCE& oSecond)
{
    if (oFirst.GetStandardCount() != oSecond.GetStandardCount())
    {
        return false;
    }
    for (unsigned int i = 0; i < oFirst.GetStandardCount(); ++i)
    {
        CVidParamTimingGeneric aoTimings[2];
        int aiNative[2] = {};
        if (oFirst.GetStandard(i, &aoTimings[0], &aiNative[0]) != oSecond.GetStandard(i, &aoTimings[1], &aiNative[1]) ||
            aiNative[0] != aiNative[1] || !IsSameTiming(aoTimings[0], aoTimings[1]))
        {
            return false;
        }
    }
    return true;
}

template <class SOURCE>
bool HasSameDetailed(const SOURCE& oFirst, const SOURCE& oSecond)
{
    if (oFirst.GetDetailedCount() != oSecond.GetDetailedCount())
    {
        return false;
    }
    for (unsigned int i = 0; i < oFirst.GetDetailedCount(); ++i)
    {
        CVidParamTimingGeneric aoTimings[2];
        if (oFirst.GetDetailed(i, &aoTimings[0]) != oSecond.GetDetailed(i, &aoTimings[1]) ||
            !IsSameTiming(aoTimings[0], aoTimings[1]))
        {
            return false;
        }
    }
    return true;
}

bool HasSameAudio(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond)
{
    if (oFirst.GetAudioDescriptorCount() != oSecond.GetAudioDescriptorCount())
    {
        return false;
    }
    for (unsigned int i = 0; i < oFirst.GetAudioDescriptorCount(); ++i)
    {
        CEdidExtBlockCEA861::SAudioDescriptor oA = {};
        CEdidExtBlockCEA861::SAudioDescriptor oB = {};
        oFirst.GetAudioDescriptor(i, &oA);
        oSecond.GetAudioDescriptor(i, &oB);
        if (oA.m_eFormat != oB.m_eFormat || oA.m_uiChannels != oB.m_uiChannels ||
            oA.m_eSamplingFreq != oB.m_eSamplingFreq || oA.m_uiExtra != oB.m_uiExtra)
        {
            return false;
        }
    }
    return true;
}

bool HasSameSpeakers(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond)
{
    if (oFirst.GetSpeakerDescriptorCount() != oSecond.GetSpeakerDescriptorCount())
    {
        return false;
    }
    for (unsigned int i = 0; i < oFirst.GetSpeakerDescriptorCount(); ++i)
    {
        unsigned int uiFirst = 0;
        unsigned int uiSecond = 0;
        oFirst.GetSpeakerDescriptor(i, &uiFirst);
        oSecond.GetSpeakerDescriptor(i, &uiSecond);
        if (uiFirst != uiSecond)
        {
            return false;
        }
    }
    return true;
}

// The removal of a table timing moves what stands behind it, and derives the list of table timings alone.
bool IsRemovalOfStandard(unsigned int uiOperation)
{
    return uiOperation == CEditRunner::eEdit_BlockRemoveStandard || uiOperation == CEditRunner::eEdit_RemoveStandard;
}

const char* CompareCea(const CEdidExtBlockCEA861& oBlock, const CEdidExtBlockCEA861& oFresh, bool bOnlyStandard)
{
    if (!HasSameStandards(oBlock, oFresh))
    {
        return "the standard timings of a block are not those of its bytes";
    }
    if (bOnlyStandard)
    {
        return nullptr;
    }
    if (!HasSameDetailed(oBlock, oFresh))
    {
        return "the detailed timings of a block are not those of its bytes";
    }
    if (!HasSameAudio(oBlock, oFresh))
    {
        return "the audio descriptors of a block are not those of its bytes";
    }
    return HasSameSpeakers(oBlock, oFresh) ? nullptr : "the speaker masks of a block are not those of its bytes";
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
    m_abListsMayBeOld.reset();
    return m_oEdid.SetEdidBuffer(pui8Data, uiSize, 0);
}

const char* CEditRunner::Apply(const SEditStep& oStep)
{
    const unsigned int uiOperation = oStep.m_uiOperation % msc_uiOperationCount;
    const CBlocks aaui8Before = CopyBlocks();
    const int iResult = Run(oStep);
    if (iResult != 0)
    {
        ++m_uiSuccessCount;
    }
    if (IsRawStep(uiOperation))
    {
        return CheckAfterRawStep(oStep, aaui8Before);
    }
    if (const char* pszBroken = CheckBytes(oStep, uiOperation, iResult, aaui8Before))
    {
        return pszBroken;
    }
    if (iResult != 0)
    {
        NoteOldLists(oStep, uiOperation, aaui8Before);
    }
    // Where no byte changed the lists are hardly ever worth the time.
    const bool bIsLikelySame = iResult == 0 && oStep.m_uiValue % 16 != 0;
    return bIsLikelySame ? nullptr : CheckLists();
}

int CEditRunner::Run(const SEditStep& oStep)
{
    const unsigned int uiOperation = oStep.m_uiOperation % msc_uiOperationCount;
    const int iValue = static_cast<int>(oStep.m_uiValue & 1);
    switch (uiOperation)
    {
    case eEdit_RemoveStandard:
        return m_oEdid.RemoveStandard(oStep.m_uiIndex);
    case eEdit_RemoveDetailed:
        return m_oEdid.RemoveDetailed(oStep.m_uiIndex);
    case eEdit_SetEstablished:
        return m_oEdid.SetEstablished(oStep.m_uiIndex, iValue, 1);
    case eEdit_SetEstablishedFromId:
        return m_oEdid.SetEstablishedFromId(static_cast<CEdidBase::EEstablishedTiming>(1U << (oStep.m_uiIndex % 32)),
                                            iValue, 1);
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
        m_oEdid.ExtractStandardTimings();
        m_oEdid.UpdateChecksum();
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

const char* CEditRunner::CheckBytes(const SEditStep& oStep, unsigned int uiOperation, int iResult,
                                    const CBlocks& aaui8Before)
{
    const CBlocks aaui8After = CopyBlocks();
    if (aaui8After.size() != aaui8Before.size())
    {
        return "the number of blocks changed";
    }
    unsigned int uiChanged = 0;
    for (size_t i = 0; i < aaui8After.size(); ++i)
    {
        if (aaui8After[i].size() != aaui8Before[i].size())
        {
            return "the size of a block changed";
        }
        if (aaui8After[i] == aaui8Before[i])
        {
            continue;
        }
        ++uiChanged;
        if (IsBlockEdit(uiOperation) && i != oStep.m_uiBlock + 1U)
        {
            return "an edit of a block changed another block";
        }
        if (!IsSumZero(aaui8After[i]))
        {
            return "the checksum of the changed block is wrong";
        }
    }
    if (iResult == 0 && uiChanged != 0)
    {
        return "a refusal changed bytes";
    }
    return uiChanged > 1 ? "an edit changed more than one block" : nullptr;
}

// After an edit that succeeded. An edit of the EDID tells by the bytes which block it went to.
void CEditRunner::NoteOldLists(const SEditStep& oStep, unsigned int uiOperation, const CBlocks& aaui8Before)
{
    const CBlocks aaui8After = CopyBlocks();
    for (unsigned int i = 0; i < m_oEdid.GetExtensionCount(); ++i)
    {
        if (IsBlockEdit(uiOperation) ? i == oStep.m_uiBlock : aaui8After[i + 1] != aaui8Before[i + 1])
        {
            m_abListsMayBeOld[i] = IsRemovalOfStandard(uiOperation);
        }
    }
}

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
    if (oFresh.GetBaseStandardCount() != m_oEdid.GetBaseStandardCount())
    {
        return "the number of standard timings of the base block is not that of its bytes";
    }

    for (unsigned int i = 0; i < m_oEdid.GetExtensionCount(); ++i)
    {
        const CEdidExtBlock* poBlock = m_oEdid.GetExtension(i);
        if (poBlock->GetExtensionType() != gsc_uiCeaTag)
        {
            continue;
        }
        if (const char* pszBroken =
                CompareCea(static_cast<const CEdidExtBlockCEA861&>(*poBlock),
                           static_cast<const CEdidExtBlockCEA861&>(*oFresh.GetExtension(i)), m_abListsMayBeOld[i]))
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
