// Shared between the files of the DisplayID map: the row of the table of data blocks, forms of values, texts of modes.
// Private to this folder; MapOther.cpp uses the forms as well.
//
// A data block has three header bytes: tag; revision in bits 2 to 0 with flags of the block in bits 7 to 3; payload
// length. All tables of data blocks count offsets from the tag, so that the payload begins at 3.

#pragma once

#include <array>

#include "MapWriter.h"

// Positions in a data block.
inline constexpr unsigned int gsc_uiDataBlockFlagsOffset = 1;
inline constexpr unsigned int gsc_uiPayloadOffset = 3;
inline constexpr unsigned int gsc_uiMostPayload = 248;

// Payload lengths that are right: from m_uiLeast to m_uiMost; beyond m_uiLeast in steps of m_uiStep, unless it is 0.
struct SPayloadRule
{
    unsigned int m_uiLeast;
    unsigned int m_uiMost;
    unsigned int m_uiStep = 0;
    bool m_bExtraBytes = false; // bits 6 to 4 of the flags make each item, and so least and step, longer
};

constexpr SPayloadRule Exactly(unsigned int uiBytes) { return { uiBytes, uiBytes }; }
constexpr SPayloadRule AtLeast(unsigned int uiBytes) { return { uiBytes, gsc_uiMostPayload }; }
constexpr SPayloadRule ItemsOf(unsigned int uiBytes) { return { uiBytes, gsc_uiMostPayload, uiBytes }; }
constexpr SPayloadRule ItemsWithExtraBytes(unsigned int uiBytes)
{
    return { uiBytes, gsc_uiMostPayload, uiBytes, true };
}

// One kind of data block.
struct SDisplayIdBlock
{
    unsigned int m_uiTag;
    STable m_oGroup;
    SPayloadRule m_oPayload;
    const STable* m_poFlags = nullptr; // of bits 7 to 3 of byte 1; null: they are reserved
    const STable* m_apoTables[2] = {}; // over the whole data block; two where it is of two areas
    // What tables alone cannot say, behind them. The record is the data block as far as it lies in its section.
    void (*m_pfnWalk)(CMapWriter&, const CRecord& oBlock, unsigned int uiOffset) = nullptr;
};

// The group of a data block.
constexpr STable Group(const char* pszName, CZorEdidMap::EArea eArea, CMString (*pfnSummary)(const CRecord&) = nullptr)
{
    return { pszName, eArea, {}, pfnSummary };
}

// The kinds of data blocks of each version of the structure, topic by topic. No tag is in two of them.
extern const std::span<const SDisplayIdBlock> g_aoDisplayId1ProductBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayId1TimingBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayId1InterfaceBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayId2ProductBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayId2TimingBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayId2InterfaceBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayId2HeadMountedBlocks;
extern const std::span<const SDisplayIdBlock> g_aoDisplayIdCtaBlocks; // of both versions

// A code of one or two bytes for a mode; uiType as in bits 7 and 6 of Type IV and Type VIII data blocks.
void MapTimingCode(CMapWriter& oWriter, unsigned int uiType, unsigned int uiOffset, unsigned int uiLength);

// Revision of the data block, bits 2 to 0 of its byte 1.
inline unsigned int GetRevision(const CRecord& oBlock) { return oBlock.GetBits(gsc_uiDataBlockFlagsOffset, 2, 0); }
inline unsigned int GetPayloadLength(const CRecord& oBlock)
{
    return oBlock.GetSize() > gsc_uiPayloadOffset ? oBlock.GetSize() - gsc_uiPayloadOffset : 0;
}

// ---- Names that count from 0 ----

template <unsigned int N>
constexpr std::array<SMeaning, N> Listed(const char* const (&apszNames)[N])
{
    std::array<SMeaning, N> aoMeanings = {};
    for (unsigned int i = 0; i < N; ++i)
    {
        aoMeanings[i] = { i, i, apszNames[i] };
    }
    return aoMeanings;
}

// The same, with all values behind them up to uiLast reserved.
template <unsigned int N>
constexpr std::array<SMeaning, N + 1> ListedTo(unsigned int uiLast, const char* const (&apszNames)[N])
{
    std::array<SMeaning, N + 1> aoMeanings = {};
    for (unsigned int i = 0; i < N; ++i)
    {
        aoMeanings[i] = { i, i, apszNames[i] };
    }
    aoMeanings[N] = { N, uiLast, gsc_szReserved };
    return aoMeanings;
}

// ---- Forms of values ----

inline constexpr SMeaning gsc_aoZeroNotGiven[] = { { 0, 0, "not given" } };
inline constexpr SMeaning gsc_aoFFNotGiven[] = { { 0xFF, 0xFF, "not given" } };

// Stored minus 1.
constexpr SForm NumberFrom1(const char* pszUnit = nullptr) { return Number(pszUnit).Times(1, 1); }

// Stored as 100 times the value, minus 100: gamma and aspect ratios, 1.00 to 3.55.
constexpr SForm HundredthsFrom1() { return Number().Times(1, 100).Decimals(2); }

// Stored as a multiple of 1 / uiDenominator; four decimals.
constexpr SForm Fraction(const char* pszUnit, unsigned int uiDenominator)
{
    return Number(pszUnit).Times(10000).Over(uiDenominator).Decimals(4);
}

// CIE coordinates of 12 bits.
constexpr SForm Chromaticity() { return Fraction(nullptr, 4096); }

// Three bytes, as the standard stores a company's identifier; "3A-02-92".
constexpr SPlace Big24(unsigned int uiOffset)
{
    return Split(
        { { PlaceByte(uiOffset), 7, 0 }, { PlaceByte(uiOffset + 1), 7, 0 }, { PlaceByte(uiOffset + 2), 7, 0 } });
}
CMString OuiText(const CRecord& oRecord, unsigned int uiValue);
constexpr SForm Oui() { return MakeForm(CZorEdidMap::eKind_Name).Text(OuiText); }
