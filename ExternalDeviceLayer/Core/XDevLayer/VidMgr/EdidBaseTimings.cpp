// The timings of the base block: established, standard, detailed. Loading and identity are in EdidBase.cpp.

#include "EdidBase.h"

#include <algorithm>
#include <bit>
#include <iterator>

#include "ListFill.h"
#include "Standards/BaseBlock.h"
#include "Standards/ByteFields.h"
#include "Standards/Place.h"
#include "Standards/VesaModes.h"
#include "VidParamDmt.h"
#include "VidParamGtf.h"
#include "VidParamTiming.h"
#include "ZorTools.h"

using namespace ZorCore;
using namespace ZorStandards;
using namespace ZorStandards::BaseBlock;

namespace
{
// ---- Established timings ----

static_assert(gsc_uiEstablishedModes == CEdidBase::msc_uiEstablishedCount);

// The modes are numbered in the order of the list walk: byte 35 from bit 7 down, byte 36, byte 37 bit 7.
constexpr unsigned int GetEstablishedMask(unsigned int uiMode)
{
    return 1U << (uiMode / gsc_uiBits * gsc_uiBits + gsc_uiBits - 1 - uiMode % gsc_uiBits);
}

// Null for what is not exactly one bit with a mode.
constexpr const SEstablishedMode* FindEstablishedMode(unsigned int uiMask)
{
    const unsigned int uiBit = static_cast<unsigned int>(std::countr_zero(uiMask));
    const unsigned int uiMode = uiBit / gsc_uiBits * gsc_uiBits + gsc_uiBits - 1 - uiBit % gsc_uiBits;
    return std::has_single_bit(uiMask) && uiMode < gsc_uiEstablishedModes ? &gsc_aoEstablishedModes[uiMode] : nullptr;
}
static_assert(FindEstablishedMode(CEdidBase::eEstablished640x480At60)->m_ui8Dmt == 0x04);
static_assert(FindEstablishedMode(CEdidBase::eEstablished1152x870At75)->m_ui16Width == 1152);

// Listed when only VESA's own modes are asked for. The interlaced 1024 x 768 is a DMT mode, yet not counted.
constexpr bool IsVesa(const SEstablishedMode& oMode)
{
    const SDmtMode* poDmt = FindDmtMode(oMode.m_ui8Dmt);
    return poDmt != nullptr && !poDmt->m_oTiming.IsInterlaced();
}

// The mode of a bit, where the bits declare it and the list has it; else null. Counting and listing both ask here: a
// mode always gives a timing, so that none need be computed to count.
const SEstablishedMode* FindListedMode(unsigned int uiDeclared, unsigned int uiMask, int bVesaOnly)
{
    const SEstablishedMode* poMode = (uiDeclared & uiMask) != 0 ? FindEstablishedMode(uiMask) : nullptr;
    return poMode != nullptr && (bVesaOnly == 0 || IsVesa(*poMode)) ? poMode : nullptr;
}

// By formula where no DMT mode is meant.
int GetEstablishedTiming(const SEstablishedMode& oMode, CVidParamTiming* poTiming)
{
    const SDmtMode* poDmt = FindDmtMode(oMode.m_ui8Dmt);
    if (poDmt == nullptr)
    {
        return CVidParamGtf::GetVidParam(oMode.m_ui16Width, oMode.m_ui16Height, oMode.m_ui8Rate, poTiming);
    }
    const unsigned int uiFrameRate = poDmt->m_oTiming.IsInterlaced() ? oMode.m_ui8Rate / 2U : oMode.m_ui8Rate;
    return CVidParamDmt::GetVidParam(0, poTiming, oMode.m_ui16Width, oMode.m_ui16Height, uiFrameRate,
                                     CVidParamDmt::eModeListAll);
}

// ---- Standard timings ----

constexpr unsigned int gsc_uiPairSize = sizeof(CEdidBase::SStandard);
static_assert(gsc_uiStandardsOffset + CEdidBase::msc_uiStandardSlotCount * gsc_uiPairSize == gsc_uiDescriptorsOffset,
              "the slots reach up to the descriptors");

constexpr unsigned int gsc_uiFirstUsedCode = 2; // a first byte below it is an empty slot

constexpr CEdidBase::SStandard gsc_oEmptyPair = { 0x01, 0x01 };

constexpr unsigned int gsc_uiExtraPairsPerDescriptor = 6;

struct SStdByteCodeOverride
{
    CEdidBase::SStandard m_oPair;
    unsigned int m_uiVerticalActive; // lines
    CVidParamDmt::EModeListType m_eListType;
};

// Pairs that mean a mode which the aspect code does not give, or which exists in several forms.
// clang-format off
constexpr SStdByteCodeOverride gsc_aoStdByteCodeOverrides[] = {
    { { 0x31, 0xD9 },  350, CVidParamDmt::eModeListAll             }, //  640 at  85
    { { 0x3B, 0xD9 },  400, CVidParamDmt::eModeListAll             }, //  720 at  85
    { { 0x4B, 0xC0 },  480, CVidParamDmt::eModeListAll             }, //  848 at  60
    { { 0x8B, 0xC0 },  768, CVidParamDmt::eModeListAll             }, // 1360 at  60
    { { 0x8B, 0xFC },  768, CVidParamDmt::eModeListAll             }, // 1360 at 120
    { { 0x81, 0x00 },  800, CVidParamDmt::eModeListStandard        }, // 1280 at  60
    { { 0x90, 0x40 }, 1050, CVidParamDmt::eModeListStandard        }, // 1400 at  60
    { { 0x95, 0x00 },  900, CVidParamDmt::eModeListStandard        }, // 1440 at  60
    { { 0xB3, 0x00 }, 1050, CVidParamDmt::eModeListStandard        }, // 1680 at  60
    { { 0xD1, 0x00 }, 1200, CVidParamDmt::eModeListReducedBlanking }, // 1920 at  60
    { { 0xA9, 0xC0 },  900, CVidParamDmt::eModeListReducedBlanking }, // 1600 at  60
};
// clang-format on
static_assert(std::size(gsc_aoStdByteCodeOverrides) == 11);

const SStdByteCodeOverride* FindOverride(const CEdidBase::SStandard& oPair)
{
    for (const SStdByteCodeOverride& oOverride : gsc_aoStdByteCodeOverrides)
    {
        if (oOverride.m_oPair.m_ui8Code1 == oPair.m_ui8Code1 && oOverride.m_oPair.m_ui8Code2 == oPair.m_ui8Code2)
        {
            return &oOverride;
        }
    }
    return nullptr;
}

STimingOrigin MakeOrigin(unsigned int uiIndex, unsigned int uiOffset, unsigned int uiLength,
                         unsigned int uiBit = STimingOrigin::msc_uiNoBit)
{
    return { uiIndex, 0, uiOffset, uiLength, uiBit, 0, 0, 0, 0, STimingOrigin::e420_No };
}

void SetNotNative(int* piNative)
{
    if (piNative != nullptr)
    {
        *piNative = 0;
    }
}
} // namespace

void CEdidBase::FillEstablishedMask()
{
    for (unsigned int i = 0; i < msc_uiEstablishedCount; ++i)
    {
        m_auiEstablishedMask[i] = GetEstablishedMask(i);
    }
}

int CEdidBase::GetEstablishedFromId(EEstablishedTiming eId, CVidParamTiming* poTiming, int bVesaOnly) const
{
    const unsigned int uiDeclared = ReadLittle24(m_aui8Edid + gsc_uiEstablishedOffset);
    const SEstablishedMode* poMode = FindListedMode(uiDeclared, eId, bVesaOnly);
    return poMode != nullptr ? GetEstablishedTiming(*poMode, poTiming) : 0;
}

int CEdidBase::GetEstablished(unsigned int uiIndex, CVidParamTiming* poTiming, int bVesaOnly) const
{
    return FindEstablished(uiIndex, poTiming, bVesaOnly) != 0 ? 1 : 0;
}

unsigned int CEdidBase::GetEstablishedCount(int bVesaOnly) const
{
    const unsigned int uiDeclared = ReadLittle24(m_aui8Edid + gsc_uiEstablishedOffset);
    unsigned int uiCount = 0;
    for (const unsigned int uiMask : m_auiEstablishedMask)
    {
        uiCount += FindListedMode(uiDeclared, uiMask, bVesaOnly) != nullptr ? 1U : 0U;
    }
    return uiCount;
}

int CEdidBase::SetEstablishedFromId(EEstablishedTiming eId, int bSet, int bUpdateChecksum)
{
    if (FindEstablishedMode(eId) == nullptr)
    {
        return 0;
    }
    unsigned char* pui8Bits = m_aui8Edid + gsc_uiEstablishedOffset;
    const unsigned int uiDeclared = ReadLittle24(pui8Bits);
    WriteLittle24(pui8Bits, bSet != 0 ? uiDeclared | eId : uiDeclared & ~eId);
    if (bUpdateChecksum != 0)
    {
        UpdateChecksum();
    }
    return 1;
}

int CEdidBase::SetEstablished(unsigned int uiIndex, int bSet, int bUpdateChecksum)
{
    // 0, when the list ends before the index, names no timing and is refused.
    return SetEstablishedFromId(static_cast<EEstablishedTiming>(FindEstablished(uiIndex, nullptr, 1)), bSet,
                                bUpdateChecksum);
}

unsigned int CEdidBase::GetStandardCount() const { return m_aoStandardSlots.GetCount(); }

int CEdidBase::GetStandardTiming(const SStandard* poStandard, CVidParamTiming* poTiming) const
{
    if (poStandard == nullptr || IsInvalidStandard(*poStandard) != 0)
    {
        return 0;
    }
    const SStandardTiming oTiming = ReadStandardTiming(poStandard->m_ui8Code1, poStandard->m_ui8Code2,
                                                       m_aui8Edid[gsc_uiRevisionOffset] < gsc_ui16To10Revision);
    const SStdByteCodeOverride* poOverride = FindOverride(*poStandard);
    const unsigned int uiVerticalActive = poOverride != nullptr ? poOverride->m_uiVerticalActive : oTiming.m_uiHeight;
    const CVidParamDmt::EModeListType eListType =
        poOverride != nullptr ? poOverride->m_eListType : CVidParamDmt::eModeListStandard;

    const int iFound =
        CVidParamDmt::GetVidParam(0, poTiming, oTiming.m_uiWidth, uiVerticalActive, oTiming.m_uiRate, eListType);
    return iFound != 0 ? iFound
                       : CVidParamGtf::GetVidParam(oTiming.m_uiWidth, uiVerticalActive, oTiming.m_uiRate, poTiming);
}

int CEdidBase::GetStandard(EStandardSlotIndex eSlot, CVidParamTiming* poTiming, int* piNative) const
{
    int iResult = 0;
    if (eSlot <= eStandardSlot7)
    {
        const SStandard oStandard = ReadStandard(eSlot);
        iResult = GetStandardTiming(&oStandard, poTiming);
    }
    SetNotNative(piNative);
    return iResult;
}

int CEdidBase::GetStandard(unsigned int uiIndex, CVidParamTiming* poTiming, int* piNative) const
{
    SetNotNative(piNative);
    if (uiIndex >= m_aoStandardSlots.GetCount())
    {
        return 0;
    }
    const SStandard oStandard = ReadStandard(m_aoStandardSlots[uiIndex]);
    return GetStandardTiming(&oStandard, poTiming);
}

int CEdidBase::GetExtraStdTiming(unsigned int uiIndex, CVidParamTiming& oTiming) const
{
    const unsigned char* pui8Descriptor =
        FindDisplayDescriptor(gsc_ui8TagExtraStandards, uiIndex / gsc_uiExtraPairsPerDescriptor);
    if (pui8Descriptor == nullptr)
    {
        return 0;
    }
    const unsigned char* pui8Pair =
        pui8Descriptor + gsc_uiContentsOffset + gsc_uiPairSize * (uiIndex % gsc_uiExtraPairsPerDescriptor);
    const SStandard oStandard = { pui8Pair[0], pui8Pair[1] };
    return GetStandardTiming(&oStandard, &oTiming);
}

unsigned int CEdidBase::ExtractStandardTimings()
{
    unsigned int auiSlots[msc_uiStandardSlotCount];
    unsigned int uiCount = 0;
    for (unsigned int uiSlot = 0; uiSlot < msc_uiStandardSlotCount; ++uiSlot)
    {
        const SStandard oStandard = ReadStandard(uiSlot);
        if (GetStandardTiming(&oStandard, nullptr) != 0)
        {
            auiSlots[uiCount++] = uiSlot;
        }
    }
    m_aoStandardSlots.RemoveAll();
    CopyList(auiSlots, uiCount, m_aoStandardSlots);
    return uiCount;
}

void CEdidBase::RePackStandards()
{
    // Judged by the first byte alone: a pair in use that no mode resolves moves too.
    bool bMoved = false;
    unsigned int uiWrite = 0;
    for (unsigned int uiSlot = 0; uiSlot < msc_uiStandardSlotCount; ++uiSlot)
    {
        const SStandard oStandard = ReadStandard(uiSlot);
        if (IsInvalidStandard(oStandard) != 0)
        {
            continue;
        }
        if (uiSlot != uiWrite)
        {
            WriteStandard(uiWrite, oStandard);
            WriteStandard(uiSlot, gsc_oEmptyPair);
            bMoved = true;
        }
        ++uiWrite;
    }
    if (bMoved)
    {
        UpdateChecksum();
    }
}

int CEdidBase::IsInvalidStandard(const SStandard& oStandard)
{
    return oStandard.m_ui8Code1 < gsc_uiFirstUsedCode ? 1 : 0;
}

void CEdidBase::InvalidateStandard(SStandard& oStandard) { oStandard = gsc_oEmptyPair; }

int CEdidBase::RemoveStandard(unsigned int uiIndex)
{
    if (uiIndex >= m_aoStandardSlots.GetCount())
    {
        return 0;
    }
    const unsigned int uiSlot = m_aoStandardSlots[uiIndex];
    SStandard oStandard = ReadStandard(uiSlot);
    if (IsInvalidStandard(oStandard) != 0)
    {
        return 0;
    }
    InvalidateStandard(oStandard);
    WriteStandard(uiSlot, oStandard);
    RePackStandards();
    UpdateChecksum();
    ExtractStandardTimings();
    return 1;
}

int CEdidBase::GetDetailed(unsigned int uiIndex, CVidParamTiming* poTiming) const
{
    const unsigned int uiOffset = FindDetailed(uiIndex);
    if (uiOffset == 0)
    {
        return 0;
    }
    return CEdidUtils::ConvertDetailedDescriptorToVidParam(ReadDescriptor(uiOffset), poTiming) != 0 ? 1 : 0;
}

unsigned int CEdidBase::GetDetailedCount() const
{
    unsigned int uiCount = 0;
    while (uiCount < msc_uiDescriptorCount && CEdidBase::GetDetailed(uiCount, nullptr) != 0)
    {
        ++uiCount;
    }
    return uiCount;
}

int CEdidBase::RemoveDetailed(unsigned int uiIndex)
{
    if (uiIndex == 0 && IsPreferredTimingDeclared(m_aui8Edid))
    {
        return 0;
    }
    const unsigned int uiOffset = FindDetailed(uiIndex);
    if (uiOffset == 0)
    {
        return 0;
    }
    CEdidUtils::SEdidDetailedRaw oEmpty = {};
    oEmpty.m_aui8Data[gsc_uiTagOffset] = gsc_ui8TagEmpty;
    WriteDescriptor(uiOffset, oEmpty);
    UpdateChecksum();
    return 1;
}

int CEdidBase::SetPreferredMode(const CVidParamTiming* poTiming)
{
    if (!IsPreferredTimingDeclared(m_aui8Edid))
    {
        return 0;
    }
    const unsigned int uiOffset = FindDetailed(0);
    if (uiOffset == 0)
    {
        return 0;
    }
    // The descriptor's unit would be the millimetre; the centimetres are written as they are.
    const CEdidUtils::SImageSize oSize = { m_aui8Edid[gsc_uiImageWidthOffset], m_aui8Edid[gsc_uiImageHeightOffset] };
    const bool bKnowsSize = oSize.m_uiWidth != 0 && oSize.m_uiHeight != 0;
    CEdidUtils::SEdidDetailedRaw oRaw;
    if (CEdidUtils::ConvertVidParamToDetailedDescriptor(poTiming, &oRaw, bKnowsSize ? &oSize : nullptr) == 0)
    {
        return 0;
    }
    WriteDescriptor(uiOffset, oRaw);
    UpdateChecksum();
    return 1;
}

void CEdidBase::ListEstablishedOrigins(CTimingOrigins& aoOrigins) const
{
    aoOrigins.RemoveAll();
    const unsigned int uiDeclared = ReadLittle24(m_aui8Edid + gsc_uiEstablishedOffset);
    for (const unsigned int uiMask : m_auiEstablishedMask)
    {
        if (FindListedMode(uiDeclared, uiMask, 0) != nullptr)
        {
            const unsigned int uiBit = static_cast<unsigned int>(std::countr_zero(uiMask));
            aoOrigins.Add(
                MakeOrigin(aoOrigins.GetCount(), gsc_uiEstablishedOffset + uiBit / gsc_uiBits, 1, uiBit % gsc_uiBits));
        }
    }
}

void CEdidBase::ListStandardOrigins(CTimingOrigins& aoOrigins) const
{
    aoOrigins.RemoveAll();
    for (unsigned int i = 0; i < m_aoStandardSlots.GetCount(); ++i)
    {
        if (CEdidBase::GetStandard(i, nullptr, nullptr) != 0)
        {
            aoOrigins.Add(MakeOrigin(i, gsc_uiStandardsOffset + m_aoStandardSlots[i] * gsc_uiPairSize, gsc_uiPairSize));
        }
    }
}

void CEdidBase::ListDetailedOrigins(CTimingOrigins& aoOrigins) const
{
    aoOrigins.RemoveAll();
    for (unsigned int i = 0; i < CEdidBase::GetDetailedCount(); ++i)
    {
        aoOrigins.Add(MakeOrigin(i, FindDetailed(i), gsc_uiDescriptorSize));
    }
}

unsigned int CEdidBase::FindEstablished(unsigned int uiIndex, CVidParamTiming* poTiming, int bVesaOnly) const
{
    if (uiIndex >= msc_uiEstablishedCount)
    {
        return 0;
    }
    const unsigned int uiDeclared = ReadLittle24(m_aui8Edid + gsc_uiEstablishedOffset);
    const SEstablishedMode* poLast = nullptr;
    unsigned int uiListed = 0;
    for (const unsigned int uiMask : m_auiEstablishedMask)
    {
        const SEstablishedMode* poMode = FindListedMode(uiDeclared, uiMask, bVesaOnly);
        if (poMode == nullptr)
        {
            continue;
        }
        if (uiListed++ == uiIndex)
        {
            return GetEstablishedTiming(*poMode, poTiming) != 0 ? uiMask : 0;
        }
        poLast = poMode;
    }
    if (poLast != nullptr)
    {
        GetEstablishedTiming(*poLast, poTiming); // an index beyond the list leaves the last timing listed
    }
    return 0;
}

CEdidBase::SStandard CEdidBase::ReadStandard(unsigned int uiSlot) const
{
    const unsigned char* pui8Pair = m_aui8Edid + gsc_uiStandardsOffset + uiSlot * gsc_uiPairSize;
    return { pui8Pair[0], pui8Pair[1] };
}

void CEdidBase::WriteStandard(unsigned int uiSlot, const SStandard& oStandard)
{
    unsigned char* pui8Pair = m_aui8Edid + gsc_uiStandardsOffset + uiSlot * gsc_uiPairSize;
    pui8Pair[0] = oStandard.m_ui8Code1;
    pui8Pair[1] = oStandard.m_ui8Code2;
}

unsigned int CEdidBase::FindDetailed(unsigned int uiRank) const
{
    for (unsigned int i = 0; i < msc_uiDescriptorCount; ++i)
    {
        const unsigned char* pui8Descriptor = m_aui8Edid + DescriptorOffset(i);
        if (IsTimingCandidate(pui8Descriptor) && uiRank-- == 0)
        {
            return DescriptorOffset(i);
        }
    }
    return 0;
}

CEdidUtils::SEdidDetailedRaw CEdidBase::ReadDescriptor(unsigned int uiOffset) const
{
    CEdidUtils::SEdidDetailedRaw oRaw;
    ZorTools_memcpy(oRaw.m_aui8Data, m_aui8Edid + uiOffset, sizeof(oRaw));
    return oRaw;
}

void CEdidBase::WriteDescriptor(unsigned int uiOffset, const CEdidUtils::SEdidDetailedRaw& oRaw)
{
    ZorTools_memcpy(m_aui8Edid + uiOffset, oRaw.m_aui8Data, sizeof(oRaw));
}
