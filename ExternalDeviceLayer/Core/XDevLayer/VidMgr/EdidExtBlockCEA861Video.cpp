// Video codes of a CTA-861 block: short video descriptors, HDMI codes and the YCbCr 4:2:0 blocks gathered into one list
// of table timings, a timing taken out of the bytes again, and the deep colour bits of the HDMI vendor blocks. The
// timings of the codes come from VidParamCea, the inside of an HDMI vendor block from Hdmi1xVsdb.

#include "EdidExtBlockCEA861.h"

#include <bit>

#include "Cea861Bytes.h"
#include "Hdmi1xVsdb.h"
#include "ListFill.h"
#include "Standards/HdmiBlocks.h"
#include "Standards/Ouis.h"
#include "Standards/VideoCodes.h"
#include "VidParamCea.h"
#include "ZorAssert.h"
#include "ZorTools.h"

using namespace ZorCore;
using namespace ZorStandards::Cta;

namespace
{
constexpr SDataBlockKind gsc_oVideoBlocks = { CEdidExtBlockCEA861::eCea861Tag_Video, false };
constexpr SDataBlockKind gsc_oVendorBlocks = { CEdidExtBlockCEA861::eCea861Tag_VendorSpecific, false };
constexpr SDataBlockKind gsc_oVendorVideoBlocks = { CEdidExtBlockCEA861::eCea861ExtTag_VendorVideo, true };
constexpr SDataBlockKind gsc_oVideo420Blocks = { CEdidExtBlockCEA861::eCea861ExtTag_Yuv420Video, true };
constexpr SDataBlockKind gsc_oCapabilityMaps = { CEdidExtBlockCEA861::eCea861ExtTag_Yuv420CapabilityMap, true };

constexpr unsigned int gsc_uiBitsPerByte = 8;

// The key of the 1000/1001 variant of a code, in the table and in the lists; a block never holds it.
constexpr unsigned int gsc_uiVariantOffset = CVidParamCea::msc_uiVariantKey;

using SVicCodeEntry = CEdidExtBlockCEA861::SVicCodeEntry;
using SVicCodeEntryLookUp = CEdidExtBlockCEA861::SVicCodeEntryLookUp;

// The one or two timings of a code: the code itself and, where the table has one, its 1000/1001 variant.
struct SCodeTimings
{
    SVicCodeEntry m_aoEntry[2];
    unsigned int m_uiCount;
};

SCodeTimings GetCodeTimings(unsigned int uiCode)
{
    SCodeTimings oTimings = {};
    if (CEdidExtBlockCEA861::IsSupportedSvd(uiCode) == 0)
    {
        return oTimings;
    }
    SVicCodeEntry& oEntry = oTimings.m_aoEntry[0];
    CEdidExtBlockCEA861::ExtractSvdCodeInfo(uiCode, &oEntry.m_uiVic, &oEntry.m_bNative);
    oTimings.m_aoEntry[1] = { oEntry.m_uiVic + gsc_uiVariantOffset, oEntry.m_bNative };
    oTimings.m_uiCount = CVidParamCea::IsVicSupported(oTimings.m_aoEntry[1].m_uiVic) != 0 ? 2 : 1;
    return oTimings;
}

// Which timings a list holds: a bit for each code and each 1000/1001 variant, native or not. A search through the list
// for repeats would make loading quadratic in the codes (it took 10 % of the instructions of a load).
class CHeldTimings
{
public:
    static constexpr unsigned int msc_uiBits = 4 * ZorStandards::gsc_uiNativeBit; // codes lie below the native bit

    static unsigned int GetBit(const SVicCodeEntry& oEntry)
    {
        const bool bVariant = oEntry.m_uiVic >= gsc_uiVariantOffset;
        const unsigned int uiCode = oEntry.m_uiVic - (bVariant ? gsc_uiVariantOffset : 0);
        return 4 * uiCode + (bVariant ? 2U : 0U) + (oEntry.m_bNative != 0 ? 1U : 0U);
    }

    // False when the list holds the timing already.
    bool Add(const SVicCodeEntry& oEntry)
    {
        const unsigned int uiBit = GetBit(oEntry);
        const unsigned long long ullMask = 1ULL << (uiBit % 64);
        const bool bNew = (m_aullBits[uiBit / 64] & ullMask) == 0;
        m_aullBits[uiBit / 64] |= ullMask;
        return bNew;
    }

private:
    unsigned long long m_aullBits[msc_uiBits / 64] = {};
};

// Calls fnVisit with each timing of a code.
template <class VISIT>
void VisitCode(unsigned int uiCode, VISIT fnVisit)
{
    const SCodeTimings oTimings = GetCodeTimings(uiCode);
    for (unsigned int i = 0; i < oTimings.m_uiCount; ++i)
    {
        fnVisit(oTimings.m_aoEntry[i]);
    }
}

// Two timings for each code at most: what is put together here takes no memory.
template <class ENTRY>
struct SDraft
{
    ENTRY m_aoEntry[2 * gsc_uiBlockSize];
    unsigned int m_uiCount = 0;

    void Add(const ENTRY& oEntry) { m_aoEntry[m_uiCount++] = oEntry; }
};

// The bit of a capability map for code number uiIndex.
bool IsMapped(const CDataBlockWalk& oMap, unsigned int uiIndex)
{
    return ((oMap.GetByte(uiIndex / gsc_uiBitsPerByte) >> (uiIndex % gsc_uiBitsPerByte)) & 1U) != 0;
}

// ---- Gathering the codes ----

// A code, usable or not, and its place; see SVicCodeEntryLookUp.
struct SCode
{
    unsigned int m_uiCode;
    SDataBlockKind m_oKind;
    unsigned int m_uiBlockIndex;
    unsigned int m_uiPosition;
    unsigned int m_uiOffset; // of its byte, in the CTA-861 block
};

// Every code of the block in the order that the capability map counts them. Each comes from a byte of its own after a
// header, so they all fit.
struct SAllCodes
{
    SCode m_aoCode[gsc_uiBlockSize];
    unsigned int m_uiCount;

    void Add(const SCode& oCode) { m_aoCode[m_uiCount++] = oCode; }
};

// The short video descriptors of all blocks of one kind.
void AddVideoCodes(const CCea861Bytes& oBytes, const SDataBlockKind& oKind, SAllCodes& oCodes)
{
    unsigned int uiBlock = 0;
    for (CDataBlockWalk oWalk = oBytes.Walk(); oWalk.Next(oKind); ++uiBlock)
    {
        for (unsigned int i = 0; i < oWalk.GetLength(); ++i)
        {
            oCodes.Add({ oWalk.GetByte(i), oKind, uiBlock, i, oWalk.GetPayload().m_uiOffset + i });
        }
    }
}

// The payload of the data block that the walk has reached, when that is an HDMI vendor block; else null.
unsigned char* GetHdmiPayload(const CCea861Editor& oEditor, const CDataBlockWalk& oWalk)
{
    unsigned char* pui8Payload = oEditor.GetAt(oWalk.GetPayload().m_uiOffset);
    return CHdmi1xVsdb::IsSupported(oWalk.GetLength(), pui8Payload) != 0 ? pui8Payload : nullptr;
}

// The codes of all HDMI vendor blocks of one kind.
void AddHdmiCodes(const CCea861Bytes& oBytes, const SDataBlockKind& oKind, SAllCodes& oCodes)
{
    unsigned int uiBlock = 0;
    for (CDataBlockWalk oWalk = oBytes.Walk(); oWalk.Next(oKind); ++uiBlock)
    {
        const unsigned char* pui8Payload = oBytes.GetAt(oWalk.GetPayload().m_uiOffset);
        if (CHdmi1xVsdb::IsSupported(oWalk.GetLength(), pui8Payload) == 0)
        {
            continue;
        }
        const CHdmi1xVsdb::SVics oVics = CHdmi1xVsdb::FindVics(oWalk.GetLength(), pui8Payload);
        for (unsigned int i = 0; i < oVics.m_uiCount; ++i)
        {
            unsigned char ui8CeaVic = 0;
            if (CHdmi1xVsdb::ConvertHdmiVicToCeaVic(pui8Payload[oVics.m_uiVicsOffset + i], ui8CeaVic) != 0)
            {
                oCodes.Add({ ui8CeaVic, oKind, uiBlock, 0, oWalk.GetPayload().m_uiOffset + oVics.m_uiVicsOffset + i });
            }
        }
    }
}

// ---- Listing the timings ----

// All codes of the block, in the order that the capability map counts them.
void GatherCodes(const CCea861Bytes& oBytes, SAllCodes& oCodes)
{
    oCodes.m_uiCount = 0;
    AddVideoCodes(oBytes, gsc_oVideoBlocks, oCodes);
    AddHdmiCodes(oBytes, gsc_oVendorBlocks, oCodes);
    AddHdmiCodes(oBytes, gsc_oVendorVideoBlocks, oCodes);
}

// The walks that lists and origins share. fnVisit gets each timing that a place names, repeats included.

// fnVisit(timing, its code)
template <class VISIT>
void VisitOrdinary(const SAllCodes& oCodes, VISIT fnVisit)
{
    for (unsigned int i = 0; i < oCodes.m_uiCount; ++i)
    {
        VisitCode(oCodes.m_aoCode[i].m_uiCode,
                  [&](const SVicCodeEntry& oEntry) { fnVisit(oEntry, oCodes.m_aoCode[i]); });
    }
}

// A place that names a timing in YCbCr 4:2:0: a bit of a capability map, or a short video descriptor.
struct S420Place
{
    unsigned int m_uiOffset;
    unsigned int m_uiBit;      // STimingOrigin::msc_uiNoBit for a descriptor
    unsigned int m_uiCodeByte; // of the code that the map selects; the descriptor itself
};

// The timings of the codes that a capability map selects; fnMissing() is called for a bit without a code.
template <class VISIT, class MISSING>
void VisitMapped(const CDataBlockWalk& oMap, const SAllCodes& oCodes, VISIT fnVisit, MISSING fnMissing)
{
    for (unsigned int i = 0; i < gsc_uiBitsPerByte * oMap.GetLength(); ++i)
    {
        if (!IsMapped(oMap, i))
        {
            continue;
        }
        if (i >= oCodes.m_uiCount)
        {
            fnMissing();
            continue;
        }
        const SCode& oCode = oCodes.m_aoCode[i];
        const S420Place oPlace = { oMap.GetPayload().m_uiOffset + i / gsc_uiBitsPerByte, i % gsc_uiBitsPerByte,
                                   oCode.m_uiOffset };
        VisitCode(oCode.m_uiCode, [&](const SVicCodeEntry& oEntry) { fnVisit(oEntry, oPlace); });
    }
}

// Capability maps first, then the 4:2:0 video blocks. fnVisit(timing, place); an empty map, which selects all codes, is
// left to fnVisitAll(offset after its extended tag).
template <class VISIT, class VISIT_ALL, class MISSING>
void Visit420(const CCea861Bytes& oBytes, const SAllCodes& oCodes, VISIT fnVisit, VISIT_ALL fnVisitAll,
              MISSING fnMissing)
{
    for (CDataBlockWalk oWalk = oBytes.Walk(); oWalk.Next(gsc_oCapabilityMaps);)
    {
        if (oWalk.GetLength() != 0)
        {
            VisitMapped(oWalk, oCodes, fnVisit, fnMissing);
        }
        else
        {
            fnVisitAll(oWalk.GetPayload().m_uiOffset);
        }
    }
    for (CDataBlockWalk oWalk = oBytes.Walk(); oWalk.Next(gsc_oVideo420Blocks);)
    {
        for (unsigned int i = 0; i < oWalk.GetLength(); ++i)
        {
            const unsigned int uiOffset = oWalk.GetPayload().m_uiOffset + i;
            const S420Place oPlace = { uiOffset, STimingOrigin::msc_uiNoBit, uiOffset };
            VisitCode(oWalk.GetByte(i), [&](const SVicCodeEntry& oEntry) { fnVisit(oEntry, oPlace); });
        }
    }
}

// The ordinary timings, each once. They are drafted first, so that the list takes memory once and no more than it
// needs (a list that grows and is cut took 17 % of the instructions of a load).
void ListTimings(const SAllCodes& oCodes, CMArray<SVicCodeEntry, const SVicCodeEntry&>& aoTimings)
{
    SDraft<SVicCodeEntry> oDraft;
    CHeldTimings oHeld;
    VisitOrdinary(oCodes, [&](const SVicCodeEntry& oEntry, const SCode& /*oCode*/) {
        if (oHeld.Add(oEntry))
        {
            oDraft.Add(oEntry);
        }
    });
    CopyList(oDraft.m_aoEntry, oDraft.m_uiCount, aoTimings);
}

// An entry for each occurrence of a timing.
void ListPlaces(const SAllCodes& oCodes, CMArray<SVicCodeEntryLookUp, const SVicCodeEntryLookUp&>& aoLookUp)
{
    SDraft<SVicCodeEntryLookUp> oDraft;
    for (unsigned int i = 0; i < oCodes.m_uiCount; ++i)
    {
        const SCode& oCode = oCodes.m_aoCode[i];
        const SCodeTimings oTimings = GetCodeTimings(oCode.m_uiCode);
        for (unsigned int j = 0; j < oTimings.m_uiCount; ++j)
        {
            oDraft.Add({ oTimings.m_aoEntry[j].m_uiVic, oCode.m_uiBlockIndex, oCode.m_oKind.m_bExtended ? 1U : 0U,
                         oCode.m_oKind.m_uiTag, oCode.m_uiPosition });
        }
    }
    CopyList(oDraft.m_aoEntry, oDraft.m_uiCount, aoLookUp);
}

// As many timings in YCbCr 4:2:0 as there can be: two for each bit set and for each short video descriptor, and the
// ordinary ones, uiOrdinary of them, for each empty map.
unsigned int GetMost420Timings(const CCea861Bytes& oBytes, unsigned int uiOrdinary)
{
    unsigned int uiCodes = 0;
    unsigned int uiCopies = 0;
    for (CDataBlockWalk oWalk = oBytes.Walk(); oWalk.Next(gsc_oCapabilityMaps);)
    {
        uiCopies += oWalk.GetLength() == 0 ? 1U : 0U;
        for (unsigned int i = 0; i < oWalk.GetLength(); ++i)
        {
            uiCodes += static_cast<unsigned int>(std::popcount(oWalk.GetByte(i)));
        }
    }
    for (CDataBlockWalk oWalk = oBytes.Walk(); oWalk.Next(gsc_oVideo420Blocks);)
    {
        uiCodes += oWalk.GetLength();
    }
    return uiCopies * uiOrdinary + 2 * uiCodes;
}

// The timings in YCbCr 4:2:0: capability maps first, then the 4:2:0 video blocks.
void List420Timings(const CCea861Bytes& oBytes, const SAllCodes& oCodes,
                    const CMArray<SVicCodeEntry, const SVicCodeEntry&>& aoOrdinary,
                    CMArray<SVicCodeEntry, const SVicCodeEntry&>& aoTimings)
{
    CListFill<SVicCodeEntry> oFill(aoTimings, GetMost420Timings(oBytes, aoOrdinary.GetCount()));
    CHeldTimings oHeld;
    Visit420(
        oBytes, oCodes,
        [&](const SVicCodeEntry& oEntry, const S420Place& /*oPlace*/) {
            if (oHeld.Add(oEntry))
            {
                oFill.Add(oEntry);
            }
        },
        [&](unsigned int /*uiOffset*/) {
            for (unsigned int i = 0; i < aoOrdinary.GetCount(); ++i) // all of them, uncompared
            {
                oHeld.Add(aoOrdinary[i]);
                oFill.Add(aoOrdinary[i]);
            }
        },
        [] { MASSERT_FAILED(); });
}

// ---- Where the timings come from ----

// A block holds the code itself, whichever timing of the pair is meant.
unsigned int CodeOf(unsigned int uiVic) { return uiVic > gsc_uiVariantOffset ? uiVic - gsc_uiVariantOffset : uiVic; }

// Gives the timings their indexes again: each the next one, unless the list that it belongs to holds the same.
class COriginFill
{
public:
    COriginFill(unsigned int uiBlock, CTimingOrigins& aoOrigins) : m_uiBlock(uiBlock), m_aoOrigins(aoOrigins) {}

    // The next timings make a list of their own.
    void BeginList() { ZorTools_memset(m_auiIndexes, 0, sizeof(m_auiIndexes)); }

    void Add(const SVicCodeEntry& oEntry, const S420Place& oPlace, STimingOrigin::E420 e420)
    {
        unsigned int& uiIndex = m_auiIndexes[CHeldTimings::GetBit(oEntry)]; // plus 1: 0 is none yet
        const bool bRepeated = uiIndex != 0;
        uiIndex = bRepeated ? uiIndex : ++m_uiNext;
        m_aoOrigins.Add({ uiIndex - 1, m_uiBlock, oPlace.m_uiOffset, 1, oPlace.m_uiBit, CodeOf(oEntry.m_uiVic),
                          oPlace.m_uiCodeByte, oEntry.m_uiVic > gsc_uiVariantOffset ? 1 : 0, bRepeated ? 1 : 0, e420 });
    }
    // Takes the next index, whatever the list holds.
    void AddUncompared(const SVicCodeEntry& oEntry, STimingOrigin oOrigin)
    {
        unsigned int& uiIndex = m_auiIndexes[CHeldTimings::GetBit(oEntry)];
        oOrigin.m_uiIndex = m_uiNext++;
        uiIndex = uiIndex != 0 ? uiIndex : m_uiNext;
        m_aoOrigins.Add(oOrigin);
    }

private:
    unsigned int m_uiBlock;
    unsigned int m_uiNext = 0;
    CTimingOrigins& m_aoOrigins;
    unsigned int m_auiIndexes[CHeldTimings::msc_uiBits] = {};
};

// ---- Removing a timing ----

SDataBlockKind KindOf(const SVicCodeEntryLookUp& oLookUp) { return { oLookUp.m_uiTag, oLookUp.m_bExtended != 0 }; }

// What one RemoveStandard has taken out of the video blocks so far.
struct SRemovedSvds
{
    unsigned int m_uiBlockIndex; // the block that the last one came from, as it was numbered before anything moved
    unsigned int m_uiInBlock;    // taken from that block
    unsigned int m_uiBlocks;     // emptied blocks, which have lost their header
};

// Takes one short video descriptor out of its block, and the header of a block that empties. oRemoved holds what
// earlier calls of the same removal took out, and is brought up to date. False when the block is not there.
bool RemoveSvd(CCea861Editor& oEditor, const SVicCodeEntryLookUp& oLookUp, SRemovedSvds& oRemoved)
{
    if (oLookUp.m_uiBlockIndex != oRemoved.m_uiBlockIndex)
    {
        oRemoved.m_uiBlockIndex = oLookUp.m_uiBlockIndex;
        oRemoved.m_uiInBlock = 0;
    }
    const SPayload oBlock = oEditor.FindDataBlock(gsc_oVideoBlocks, oLookUp.m_uiBlockIndex - oRemoved.m_uiBlocks);
    const unsigned int uiPosition = oLookUp.m_uiPosition - oRemoved.m_uiInBlock;
    if (oBlock.m_uiOffset == 0 || uiPosition >= oBlock.m_uiLength)
    {
        return false;
    }
    oEditor.ShrinkDataBlock(oBlock, oBlock.m_uiOffset + uiPosition, 1);
    ++oRemoved.m_uiInBlock;
    if (oBlock.m_uiLength == 1)
    {
        oEditor.RemoveRange(oBlock.m_uiOffset - gsc_uiHeaderSize, gsc_uiHeaderSize);
        ++oRemoved.m_uiBlocks;
    }
    return true;
}

// Takes one HDMI code out of its vendor block, which keeps its length. False when the block is not there.
bool RemoveHdmiVic(const CCea861Editor& oEditor, const SVicCodeEntryLookUp& oLookUp)
{
    const SPayload oBlock = oEditor.FindDataBlock(KindOf(oLookUp), oLookUp.m_uiBlockIndex);
    if (oBlock.m_uiOffset == 0)
    {
        return false;
    }
    CHdmi1xVsdb oVsdb(oBlock.m_uiLength, oEditor.GetAt(oBlock.m_uiOffset));
    oVsdb.RemoveCea861Vic(CodeOf(oLookUp.m_uiVic));
    return true;
}

bool RemoveOccurrence(CCea861Editor& oEditor, const SVicCodeEntryLookUp& oLookUp, SRemovedSvds& oRemoved)
{
    const bool bSvd = oLookUp.m_bExtended == 0 && oLookUp.m_uiTag == gsc_oVideoBlocks.m_uiTag;
    return bSvd ? RemoveSvd(oEditor, oLookUp, oRemoved) : RemoveHdmiVic(oEditor, oLookUp);
}

// ---- Removing a timing and keeping the rest in step ----

bool IsVideoCode(const SCode& oCode)
{
    return !oCode.m_oKind.m_bExtended && oCode.m_oKind.m_uiTag == gsc_oVideoBlocks.m_uiTag;
}

bool IsHdmiCode(const SCode& oCode)
{
    return oCode.m_oKind.m_uiTag == (oCode.m_oKind.m_bExtended ? gsc_oVendorVideoBlocks : gsc_oVendorBlocks).m_uiTag;
}

// The byte of a code: a short video descriptor, or the zero that an HDMI code leaves after the last one.
unsigned int FreeCode(const CCea861Editor& oEditor, const SCode& oCode, const SPayload& oBlock)
{
    if (!IsHdmiCode(oCode))
    {
        return oBlock.m_uiOffset + oCode.m_uiPosition;
    }
    unsigned char* pui8Payload = oEditor.GetAt(oBlock.m_uiOffset);
    CHdmi1xVsdb(oBlock.m_uiLength, pui8Payload).RemoveCea861Vic(oCode.m_uiCode);
    const CHdmi1xVsdb::SVics oLeft = CHdmi1xVsdb::FindVics(oBlock.m_uiLength, pui8Payload);
    return oBlock.m_uiOffset + oLeft.m_uiVicsOffset + oLeft.m_uiCount;
}

// Takes a code out, its block with it when that is left empty, and lowers byte 2 by as much. The places of codes in
// front, in its own block and in others, stay as they were.
void TakeOut(CCea861Editor& oEditor, const SCode& oCode)
{
    const SPayload oBlock = oEditor.FindDataBlock(oCode.m_oKind, oCode.m_uiBlockIndex);
    const unsigned int uiTagSize = oCode.m_oKind.m_bExtended ? 1 : 0;
    const SPayload oWhole = { oBlock.m_uiOffset - uiTagSize, oBlock.m_uiLength + uiTagSize };
    oEditor.ShrinkDataBlock(oWhole, FreeCode(oEditor, oCode, oBlock), 1);
    oEditor.LowerDetailedStart(1);
    if (oBlock.m_uiLength == 1)
    {
        oEditor.RemoveDataBlock({ oWhole.m_uiOffset, uiTagSize });
    }
}

// Takes video code number uiPosition of uiCodes out of the 3D fields of all HDMI vendor blocks of a kind, which get
// shorter by the entries that they lose. False when the fields of one cannot be adapted.
bool TakeOutOf3d(CCea861Editor& oEditor, const SDataBlockKind& oKind, unsigned int uiPosition, unsigned int uiCodes)
{
    const unsigned int uiTagSize = oKind.m_bExtended ? 1 : 0;
    SPayload oBlock = oEditor.FindDataBlock(oKind, 0);
    for (unsigned int i = 1; oBlock.m_uiOffset != 0; ++i)
    {
        unsigned char* pui8Payload = oEditor.GetAt(oBlock.m_uiOffset);
        unsigned int uiFreed = 0;
        if (CHdmi1xVsdb::IsSupported(oBlock.m_uiLength, pui8Payload) != 0 &&
            CHdmi1xVsdb::RemoveFrom3d(oBlock.m_uiLength, pui8Payload, uiPosition, uiCodes, uiFreed) == 0)
        {
            return false;
        }
        if (uiFreed != 0)
        {
            const SPayload oWhole = { oBlock.m_uiOffset - uiTagSize, oBlock.m_uiLength + uiTagSize };
            oEditor.ShrinkDataBlock(oWhole, oBlock.m_uiOffset + oBlock.m_uiLength - uiFreed, uiFreed);
            oEditor.LowerDetailedStart(uiFreed);
        }
        oBlock = oEditor.FindDataBlock(oKind, i);
    }
    return true;
}

// Takes the bit of a code out of all capability maps; the following bits move down.
void TakeOutOfMaps(const CCea861Editor& oEditor, unsigned int uiIndex)
{
    for (CDataBlockWalk oWalk = oEditor.Walk(); oWalk.Next(gsc_oCapabilityMaps);)
    {
        const unsigned int uiBits = gsc_uiBitsPerByte * oWalk.GetLength();
        for (unsigned int i = uiIndex; i < uiBits; ++i)
        {
            ZorStandards::Bit(i / gsc_uiBitsPerByte, i % gsc_uiBitsPerByte)
                .Write(oEditor.GetAt(oWalk.GetPayload().m_uiOffset), i + 1 < uiBits && IsMapped(oWalk, i + 1) ? 1 : 0);
        }
    }
}

// Whether the bit of a code is the only one of a capability map.
bool IsOnlyBit(const CDataBlockWalk& oMap, unsigned int uiIndex)
{
    bool bOnly = uiIndex / gsc_uiBitsPerByte < oMap.GetLength();
    for (unsigned int i = 0; bOnly && i < gsc_uiBitsPerByte * oMap.GetLength(); ++i)
    {
        bOnly = IsMapped(oMap, i) == (i == uiIndex);
    }
    return bOnly;
}

// Removes the capability maps that would be left without a bit: cut short, such a map would select all codes.
void RemoveMapsOf(CCea861Editor& oEditor, unsigned int uiIndex)
{
    CDataBlockWalk oWalk = oEditor.Walk();
    while (oWalk.Next(gsc_oCapabilityMaps))
    {
        if (IsOnlyBit(oWalk, uiIndex))
        {
            oEditor.RemoveDataBlock({ oWalk.GetPayload().m_uiOffset - 1, oWalk.GetLength() + 1 });
            oWalk = oEditor.Walk(); // from the first one again
        }
    }
}

unsigned int CountVideoCodes(const SAllCodes& oCodes) // which come first
{
    unsigned int uiVideoCodes = 0;
    while (uiVideoCodes < oCodes.m_uiCount && IsVideoCode(oCodes.m_aoCode[uiVideoCodes]))
    {
        ++uiVideoCodes;
    }
    return uiVideoCodes;
}

// Takes code number uiIndex out, with what counts codes by their places. False when 3D fields cannot be adapted.
bool TakeOutCounted(CCea861Editor& oEditor, const SCode& oCode, unsigned int uiIndex, unsigned int uiVideoCodes)
{
    if (IsVideoCode(oCode) && (!TakeOutOf3d(oEditor, gsc_oVendorBlocks, uiIndex, uiVideoCodes) ||
                               !TakeOutOf3d(oEditor, gsc_oVendorVideoBlocks, uiIndex, uiVideoCodes)))
    {
        return false;
    }
    TakeOut(oEditor, oCode);
    TakeOutOfMaps(oEditor, uiIndex);
    return true;
}

// Takes out the codes that fnIsMeant(code) names: with bAll420 also those of YCbCr 4:2:0 blocks, and capability maps
// that would be left without a bit. From the last one back, so that no place has to be corrected. uiTaken becomes
// their number. After a refusal the bytes are good for nothing.
template <class IS_MEANT>
CEdidExtBlockCEA861::ERemoval RunRemoval(CCea861Editor& oEditor, bool bAll420, IS_MEANT fnIsMeant,
                                         unsigned int& uiTaken)
{
    uiTaken = 0;
    if (!oEditor.AreDataBlocksExact())
    {
        return CEdidExtBlockCEA861::eRemoval_Damaged;
    }
    const unsigned int uiDetailed = oEditor.CountDetailed();
    SAllCodes oCodes;
    GatherCodes(oEditor, oCodes);
    const unsigned int uiCounted = oCodes.m_uiCount; // by maps and 3D fields
    unsigned int uiVideoCodes = CountVideoCodes(oCodes);
    if (bAll420)
    {
        AddVideoCodes(oEditor, gsc_oVideo420Blocks, oCodes);
    }
    for (unsigned int i = oCodes.m_uiCount; i > 0; --i)
    {
        const SCode& oCode = oCodes.m_aoCode[i - 1];
        if (!fnIsMeant(oCode))
        {
            continue;
        }
        ++uiTaken;
        if (i > uiCounted)
        {
            TakeOut(oEditor, oCode);
            continue;
        }
        if (bAll420)
        {
            RemoveMapsOf(oEditor, i - 1);
        }
        if (!TakeOutCounted(oEditor, oCode, i - 1, uiVideoCodes))
        {
            return CEdidExtBlockCEA861::eRemoval_3dFields;
        }
        uiVideoCodes -= IsVideoCode(oCode) ? 1U : 0U;
    }
    return uiTaken == 0                            ? CEdidExtBlockCEA861::eRemoval_NoCode
           : oEditor.CountDetailed() != uiDetailed ? CEdidExtBlockCEA861::eRemoval_Descriptors
                                                   : CEdidExtBlockCEA861::eRemoval_Possible;
}

// Every occurrence of a code. Maps keep their length, and those in YCbCr 4:2:0 blocks stay.
CEdidExtBlockCEA861::ERemoval TakeOutAll(CCea861Editor& oEditor, unsigned int uiVic)
{
    unsigned int uiTaken = 0;
    const auto fnIsMeant = [uiVic](const SCode& oCode) {
        const SCodeTimings oTimings = GetCodeTimings(oCode.m_uiCode);
        return oTimings.m_uiCount != 0 && oTimings.m_aoEntry[0].m_uiVic == uiVic;
    };
    return RunRemoval(oEditor, false, fnIsMeant, uiTaken);
}

// The codes of these bytes.
CEdidExtBlockCEA861::ERemoval TakeOutAt(CCea861Editor& oEditor, const unsigned int* puiOffsets, unsigned int uiCount)
{
    bool abMeant[gsc_uiBlockSize] = {};
    unsigned int uiBytes = 0;
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        if (puiOffsets[i] >= gsc_uiBlockSize)
        {
            return CEdidExtBlockCEA861::eRemoval_NoCode;
        }
        uiBytes += abMeant[puiOffsets[i]] ? 0U : 1U;
        abMeant[puiOffsets[i]] = true;
    }
    unsigned int uiTaken = 0;
    const auto fnIsMeant = [&abMeant](const SCode& oCode) { return abMeant[oCode.m_uiOffset]; };
    const CEdidExtBlockCEA861::ERemoval eRemoval = RunRemoval(oEditor, true, fnIsMeant, uiTaken);
    return eRemoval == CEdidExtBlockCEA861::eRemoval_Possible && uiTaken != uiBytes
               ? CEdidExtBlockCEA861::eRemoval_NoCode
               : eRemoval;
}
} // namespace

unsigned int CEdidExtBlockCEA861::GetStandardCount() const
{
    return m_aoVicCode.GetCount() + m_aoVicCode420.GetCount();
}

int CEdidExtBlockCEA861::GetStandard(unsigned int uiIndex, CVidParamTiming* poTiming, int* piNative) const
{
    if (uiIndex >= GetStandardCount() || poTiming == nullptr)
    {
        return 0;
    }
    poTiming->ClearData();
    const SVicCodeEntry& oEntry = GetVicCodeEntry(uiIndex);
    if (piNative != nullptr)
    {
        *piNative = oEntry.m_bNative;
    }
    if (oEntry.m_uiVic == 0)
    {
        MASSERT_FAILED();
        return 0;
    }
    const int iResult = CVidParamCea::GetVidParamFromVic(oEntry.m_uiVic, poTiming);
    poTiming->Set420ColorSpace(uiIndex >= m_aoVicCode.GetCount() ? 1 : 0);
    return iResult;
}

int CEdidExtBlockCEA861::RemoveStandard(unsigned int uiIndex)
{
    if (uiIndex >= GetStandardCount())
    {
        return 0;
    }
    const unsigned int uiVic = GetVicCodeEntry(uiIndex).m_uiVic;
    if (uiVic == 0)
    {
        MASSERT_FAILED();
        return 0;
    }
    // The entries hold the places before anything moved; they come in block order, and in a block in rising position.
    // From the last one back no place would have to be corrected, and it would be wrong: a removal ends at the first
    // block that is gone and keeps what it took out before, so that the order decides which bytes go.
    KeepPlaces();
    bool bRemoved = false;
    SRemovedSvds oRemoved = {};
    CCea861Editor oEditor = EditBytes();
    CCea861Undo oUndo(m_aui8Raw.GetData());
    for (unsigned int i = 0; i < m_aoVicLookUp.GetCount(); ++i)
    {
        if (m_aoVicLookUp[i].m_uiVic != uiVic)
        {
            continue;
        }
        if (!RemoveOccurrence(oEditor, m_aoVicLookUp[i], oRemoved))
        {
            MASSERT_FAILED();
            break;
        }
        bRemoved = true;
    }
    oUndo.Complete();
    if (!bRemoved)
    {
        return 0;
    }
    oEditor.UpdateChecksum();
    m_bListsBehind = 1; // the other lists and byte 2 stay, on purpose
    ExtractStandardTimings();
    return 1;
}

int CEdidExtBlockCEA861::RemoveStandardKeepingDescriptors(unsigned int uiIndex)
{
    CCea861Editor oEditor = EditBytes();
    CCea861Undo oUndo(m_aui8Raw.GetData());
    if (uiIndex >= GetStandardCount() ||
        TakeOutAll(oEditor, CodeOf(GetVicCodeEntry(uiIndex).m_uiVic)) != eRemoval_Possible)
    {
        return 0;
    }
    oUndo.Complete();
    FinishEdit(eList_All);
    return 1;
}

CEdidExtBlockCEA861::ERemoval CEdidExtBlockCEA861::TryRemoval(unsigned int uiIndex) const
{
    if (uiIndex >= GetStandardCount())
    {
        return eRemoval_NoCode;
    }
    unsigned char aui8Copy[gsc_uiBlockSize];
    ZorTools_memcpy(aui8Copy, GetData(), sizeof(aui8Copy));
    CCea861Editor oEditor(aui8Copy, GetRevision());
    return TakeOutAll(oEditor, CodeOf(GetVicCodeEntry(uiIndex).m_uiVic));
}

CEdidExtBlockCEA861::ERemoval CEdidExtBlockCEA861::RemoveCodesAt(const unsigned int* puiOffsets, unsigned int uiCount)
{
    CCea861Editor oEditor = EditBytes();
    CCea861Undo oUndo(m_aui8Raw.GetData());
    const ERemoval eRemoval = TakeOutAt(oEditor, puiOffsets, uiCount);
    if (eRemoval == eRemoval_Possible)
    {
        oUndo.Complete();
        FinishEdit(eList_All);
    }
    return eRemoval;
}

void CEdidExtBlockCEA861::ListCodePlaces(CCodePlaces& aoPlaces) const
{
    SAllCodes oCodes;
    GatherCodes(GetBytes(), oCodes);
    AddVideoCodes(GetBytes(), gsc_oVideo420Blocks, oCodes);
    aoPlaces.RemoveAll();
    for (unsigned int i = 0; i < oCodes.m_uiCount; ++i)
    {
        const SCode& oCode = oCodes.m_aoCode[i];
        aoPlaces.Add({ oCode.m_uiOffset, IsHdmiCode(oCode) });
    }
}

// Derives m_aoVicLookUp unless it is there.
void CEdidExtBlockCEA861::ListOccurrences()
{
    if (m_bOccurrencesListed != 0)
    {
        return;
    }
    SAllCodes oCodes;
    GatherCodes(GetBytes(), oCodes);
    ListPlaces(oCodes, m_aoVicLookUp);
    m_bOccurrencesListed = 1;
}

unsigned int CEdidExtBlockCEA861::ExtractStandardTimings()
{
    // Empty before memory may run out: places that no longer hold would let a removal take out another code.
    m_aoVicCode.RemoveAll();
    m_aoVicLookUp.RemoveAll();
    m_aoVicCode420.RemoveAll();

    m_bOccurrencesListed = 0;
    SAllCodes oCodes;
    GatherCodes(GetBytes(), oCodes);
    ListTimings(oCodes, m_aoVicCode);
    List420Timings(GetBytes(), oCodes, m_aoVicCode, m_aoVicCode420);
    return CEdidExtBlockCEA861::GetStandardCount(); // qualified: also runs while the object is being made
}

void CEdidExtBlockCEA861::ListStandardOrigins(CTimingOrigins& aoOrigins) const
{
    aoOrigins.RemoveAll();
    SAllCodes oCodes;
    GatherCodes(GetBytes(), oCodes);
    COriginFill oFill(GetImageBlock(), aoOrigins);
    VisitOrdinary(oCodes, [&](const SVicCodeEntry& oEntry, const SCode& oCode) {
        oFill.Add(oEntry, { oCode.m_uiOffset, STimingOrigin::msc_uiNoBit, oCode.m_uiOffset }, STimingOrigin::e420_No);
    });
    oFill.BeginList();
    const unsigned int uiOrdinary = aoOrigins.GetCount();
    Visit420(
        GetBytes(), oCodes,
        [&](const SVicCodeEntry& oEntry, const S420Place& oPlace) {
            const bool bMapped = oPlace.m_uiBit != STimingOrigin::msc_uiNoBit;
            oFill.Add(oEntry, oPlace, bMapped ? STimingOrigin::e420_Also : STimingOrigin::e420_Only);
        },
        [&](unsigned int uiOffset) {
            for (unsigned int i = 0; i < uiOrdinary; ++i)
            {
                STimingOrigin oOrigin = aoOrigins[i];
                if (oOrigin.m_bRepeated == 0)
                {
                    oOrigin.m_uiOffset = uiOffset;
                    oOrigin.m_uiLength = 0;
                    oOrigin.m_e420 = STimingOrigin::e420_Also;
                    oFill.AddUncompared(GetVicCodeEntry(oOrigin.m_uiIndex), oOrigin);
                }
            }
        },
        [] {}); // loading has reported it
}

// An entry of GetStandard's numbering; the caller has tested the index.
const CEdidExtBlockCEA861::SVicCodeEntry& CEdidExtBlockCEA861::GetVicCodeEntry(unsigned int uiIndex) const
{
    const unsigned int uiOrdinary = m_aoVicCode.GetCount();
    return uiIndex < uiOrdinary ? m_aoVicCode[uiIndex] : m_aoVicCode420[uiIndex - uiOrdinary];
}

int CEdidExtBlockCEA861::ExtractSvdCodeInfo(unsigned int uiCode, unsigned int* puiVic, int* piNative)
{
    const ZorStandards::SShortVideo oVideo = ZorStandards::ReadListedShortVideo(uiCode);
    if (puiVic != nullptr)
    {
        *puiVic = oVideo.m_uiCode;
    }
    if (piNative != nullptr)
    {
        *piNative = oVideo.m_bNative ? 1 : 0;
    }
    return oVideo.m_uiCode != 0 ? 1 : 0;
}

int CEdidExtBlockCEA861::IsSupportedSvd(unsigned int uiCode)
{
    unsigned int uiVic = 0;
    return ExtractSvdCodeInfo(uiCode, &uiVic, nullptr) != 0 ? CVidParamCea::IsVicSupported(uiVic) : 0;
}

// ---- Colour depth ----

int CEdidExtBlockCEA861::GetColorBitDepthSupport(unsigned int& uiBits)
{
    uiBits = 0;
    const CCea861Editor oEditor = EditBytes();
    for (CDataBlockWalk oWalk = oEditor.Walk(); oWalk.Next(gsc_oVendorBlocks);)
    {
        unsigned char* pui8Payload = GetHdmiPayload(oEditor, oWalk);
        if (pui8Payload == nullptr)
        {
            continue;
        }
        CHdmi1xVsdb oVsdb(oWalk.GetLength(), pui8Payload);
        unsigned int uiBlockBits = 0;
        if (oVsdb.GetColorBitDepthSupport(uiBlockBits) == 0)
        {
            MASSERT_FAILED();
            return 0;
        }
        uiBits |= uiBlockBits;
    }
    return 1;
}

int CEdidExtBlockCEA861::SetColorBitDepthSupport(unsigned int uiBits)
{
    const unsigned int uiLists = GetTouchedLists(0);
    const CCea861Editor oEditor = EditBytes();
    CCea861Undo oUndo(m_aui8Raw.GetData());
    for (CDataBlockWalk oWalk = oEditor.Walk(); oWalk.Next(gsc_oVendorBlocks);)
    {
        unsigned char* pui8Payload = GetHdmiPayload(oEditor, oWalk);
        if (pui8Payload == nullptr)
        {
            continue;
        }
        CHdmi1xVsdb oVsdb(oWalk.GetLength(), pui8Payload);
        if (oVsdb.SetColorBitDepthSupport(uiBits) == 0)
        {
            MASSERT_FAILED();
            return 0;
        }
    }
    oUndo.Complete();
    FinishEdit(uiLists);
    return 1;
}

unsigned int CEdidExtBlockCEA861::SetDeepColors(unsigned int uiBits)
{
    using namespace ZorStandards;
    const unsigned int uiLists = GetTouchedLists(0);
    const CCea861Editor oEditor = EditBytes();
    unsigned int uiCount = 0;
    for (CDataBlockWalk oWalk = oEditor.Walk(); oWalk.Next(gsc_oVendorBlocks);)
    {
        unsigned char* pui8Payload = oEditor.GetAt(oWalk.GetPayload().m_uiOffset);
        if (oWalk.GetLength() >= gsc_uiOuiSize + Hdmi::gsc_oDeepColours.GetEnd() &&
            ReadLittle24(pui8Payload) == gsc_uiOuiHdmi)
        {
            Hdmi::gsc_oDeepColours.Write(pui8Payload + gsc_uiOuiSize, uiBits);
            ++uiCount;
        }
    }
    if (uiCount != 0)
    {
        FinishEdit(uiLists);
    }
    return uiCount;
}
