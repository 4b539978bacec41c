// The image is loaded again and compared with the image as it was read, block by block: timings, audio descriptors and
// speaker masks by their lists, everything else by its bytes. What an edit named must be there, too.

#include "EditVerify.h"

#include "EdidBase.h"
#include "EdidUtils.h"
#include "EditVerifyParts.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;
constexpr unsigned int gsc_uiChecksum = CEdidUtils::msc_uiChecksumOffset;

bool IsInRange(unsigned int uiOffset, unsigned int uiStart, unsigned int uiCount)
{
    return uiOffset >= uiStart && uiOffset - uiStart < uiCount;
}

bool HasGoodChecksum(const CBytes& aui8Block)
{
    return CEdidUtils::Is8BitsChecksumValid(gsc_uiBlockSize, aui8Block.data()) != 0;
}

// ---- Base block ----

CList ListBaseStandards(const CEdid& oEdid)
{
    CList oList;
    for (unsigned int i = 0; i < oEdid.GetBaseStandardCount(); ++i)
    {
        CVidParamTimingGeneric oTiming;
        oEdid.GetBaseStandard(i, &oTiming, nullptr);
        oList.push_back(EncodeTiming(oTiming));
    }
    return oList;
}

CList ListBaseDetaileds(const CEdid& oEdid)
{
    CList oList;
    for (unsigned int i = 0; i < oEdid.GetBaseDetailedCount(); ++i)
    {
        CVidParamTimingGeneric oTiming;
        oEdid.GetBaseDetailed(i, &oTiming);
        oList.push_back(EncodeTiming(oTiming));
    }
    return oList;
}

// The pairs in use, resolved to a mode or not, or those that are not in use.
CList ListPairs(const CBytes& aui8Base, bool bInUse)
{
    constexpr unsigned int uiPairs = 38;
    constexpr unsigned int uiPairsEnd = 54;
    CList oList;
    for (unsigned int i = uiPairs; i < uiPairsEnd; i += 2)
    {
        const CEdidBase::SStandard oPair = { aui8Base[i], aui8Base[i + 1] };
        if ((CEdidBase::IsInvalidStandard(oPair) == 0) == bInUse)
        {
            oList.push_back({ aui8Base[i], aui8Base[i + 1] });
        }
    }
    return oList;
}

// As many pairs are gone as were named, and those not in use are as before or 01 01.
bool ArePairsKept(const CBytes& aui8Read, const CBytes& aui8Edited, size_t uiRemoved)
{
    const CList oRead = ListPairs(aui8Read, true);
    const CList oEdited = ListPairs(aui8Edited, true);
    CList oUnused = ListPairs(aui8Edited, false);
    std::erase(oUnused, CBytes{ 1, 1 });
    return IsSubsequence(oEdited, oRead) && oEdited.size() + uiRemoved == oRead.size() &&
           IsSubsequence(Sorted(oUnused), Sorted(ListPairs(aui8Read, false)));
}

// Bits of a byte that the edits may change, descriptors aside.
unsigned int GetNamedBits(unsigned int uiOffset, const SBlockEdits& oEdits)
{
    constexpr unsigned int uiAllBits = 0xFF;
    if (IsInRange(uiOffset, 12, 4))
    {
        return oEdits.m_bSerial ? uiAllBits : 0;
    }
    if (uiOffset == 20)
    {
        return oEdits.m_bColorDepth ? 0x70 : 0;
    }
    if (IsInRange(uiOffset, 35, 3))
    {
        return (oEdits.m_uiEstablished >> (8 * ((uiOffset - 35) & 3U))) & uiAllBits;
    }
    if (IsInRange(uiOffset, 38, 16))
    {
        return oEdits.m_oStandard.empty() ? 0 : uiAllBits;
    }
    return 0;
}

std::string VerifyBaseBytes(const CBytes& aui8Read, const CBytes& aui8Edited, const SBlockEdits& oEdits)
{
    constexpr unsigned int uiDescriptors = 54;
    constexpr unsigned int uiDescriptorsEnd = 126;
    for (unsigned int i = 0; i < gsc_uiChecksum; ++i)
    {
        const unsigned int uiChanged = aui8Read[i] ^ aui8Edited[i];
        if (!IsInRange(i, uiDescriptors, uiDescriptorsEnd - uiDescriptors) &&
            (uiChanged & ~GetNamedBits(i, oEdits)) != 0)
        {
            return "byte " + std::to_string(i);
        }
    }
    CBytes aui8Empty(ZorStandards::Cta::gsc_uiDetailedSize);
    aui8Empty[3] = 0x10; // the tag of an empty descriptor
    size_t uiEmptied = 0;
    size_t uiReplaced = 0;
    for (unsigned int i = uiDescriptors; i < uiDescriptorsEnd; i += ZorStandards::Cta::gsc_uiDetailedSize)
    {
        const auto fnSlot = [i](const CBytes& aui8Base) {
            return CBytes(aui8Base.begin() + i, aui8Base.begin() + i + ZorStandards::Cta::gsc_uiDetailedSize);
        };
        const bool bChanged = fnSlot(aui8Read) != fnSlot(aui8Edited);
        uiEmptied += bChanged && fnSlot(aui8Edited) == aui8Empty ? 1U : 0U;
        uiReplaced += bChanged && fnSlot(aui8Edited) != aui8Empty ? 1U : 0U;
    }
    return uiEmptied <= oEdits.m_oDetailed.size() && uiReplaced <= (oEdits.m_bPreferred ? 1U : 0U) ? ""
                                                                                                   : "a descriptor";
}

// The first descriptor that is a timing: its image size is kept, its borders are 0, it is not in stereo, and its syncs
// are separate digital ones.
bool IsPreferredRight(const CEdid& oRead, const CEdid& oEdited, const CVidParamTimingGeneric& oWanted)
{
    constexpr unsigned int uiDescriptors = 54;
    constexpr unsigned int uiImageSize = 12; // three bytes, then two of borders, and the flags
    constexpr unsigned int uiBorders = 15;
    constexpr unsigned int uiFlags = 17;
    constexpr unsigned int uiModeFlags = 0x86; // interlaced, polarities
    constexpr unsigned int uiSeparateSyncs = 0x18;
    const unsigned char* pui8Edited = oEdited.GetBaseBlock() + uiDescriptors;
    const unsigned char* pui8Read = oRead.GetBaseBlock() + uiDescriptors;
    while (pui8Edited[0] == 0 && pui8Edited[1] == 0) // there is one
    {
        pui8Edited += ZorStandards::Cta::gsc_uiDetailedSize;
        pui8Read += ZorStandards::Cta::gsc_uiDetailedSize;
    }
    CVidParamTimingGeneric oTiming;
    return oEdited.GetBaseDetailed(0, &oTiming) != 0 && IsSameMode(oTiming, oWanted) &&
           memcmp(pui8Read + uiImageSize, pui8Edited + uiImageSize, 3) == 0 && pui8Edited[uiBorders] == 0 &&
           pui8Edited[uiBorders + 1] == 0 && (pui8Edited[uiFlags] & ~uiModeFlags) == uiSeparateSyncs;
}

std::string VerifyBase(const CEdid& oRead, const CEdid& oEdited, const SBlockEdits& oEdits)
{
    const CBytes aui8Read(oRead.GetBaseBlock(), oRead.GetBaseBlock() + gsc_uiBlockSize);
    const CBytes aui8Edited(oEdited.GetBaseBlock(), oEdited.GetBaseBlock() + gsc_uiBlockSize);
    std::string sProblem = VerifyBaseBytes(aui8Read, aui8Edited, oEdits);
    if (!sProblem.empty())
    {
        return sProblem;
    }
    const unsigned int uiSerial = aui8Edited[12] | (static_cast<unsigned int>(aui8Edited[13]) << 8) |
                                  (static_cast<unsigned int>(aui8Edited[14]) << 16) |
                                  (static_cast<unsigned int>(aui8Edited[15]) << 24);
    CEdidBase::EColorBitDepth eDepth = CEdidBase::eColorBitDepthReserved;
    const unsigned int uiEstablished = aui8Edited[35] | (static_cast<unsigned int>(aui8Edited[36]) << 8) |
                                       (static_cast<unsigned int>(aui8Edited[37]) << 16);
    if ((oEdits.m_bSerial && uiSerial != oEdits.m_uiSerial) || (uiEstablished & oEdits.m_uiEstablished) != 0 ||
        (oEdits.m_bColorDepth && (oEdited.GetColorBitDepth(eDepth) == 0 || eDepth != oEdits.m_uiColorDepth)))
    {
        return "the value that was to be set";
    }
    if (ListBaseStandards(oEdited) != Without(ListBaseStandards(oRead), oEdits.m_oStandard) ||
        !ArePairsKept(aui8Read, aui8Edited, oEdits.m_oStandard.size()))
    {
        return "a standard timing";
    }
    CList oDetaileds = ListBaseDetaileds(oRead);
    CList oEditedDetaileds = ListBaseDetaileds(oEdited);
    if (oEdits.m_bPreferred && !oDetaileds.empty() && !oEditedDetaileds.empty())
    {
        if (!IsPreferredRight(oRead, oEdited, oEdits.m_oPreferred))
        {
            return "the value that was to be set";
        }
        oDetaileds.front() = oEditedDetaileds.front();
    }
    if (oEditedDetaileds != Without(oDetaileds, oEdits.m_oDetailed))
    {
        return "a detailed timing";
    }
    return "";
}

// ---- Other blocks ----

// All bytes are the same, but for checksums that were repaired.
std::string VerifyBytes(const CBytes& aui8Read, const CBytes& aui8Edited, bool bRepaired)
{
    constexpr unsigned char ui8DisplayIdTag = 0x70;
    constexpr unsigned int uiSectionOverhead = 5;
    for (unsigned int i = 0; i < gsc_uiBlockSize; ++i)
    {
        const bool bSectionChecksum = aui8Read[0] == ui8DisplayIdTag && i == aui8Read[2] + uiSectionOverhead;
        const bool bNamed = bRepaired && (i == gsc_uiChecksum || bSectionChecksum);
        if (aui8Read[i] != aui8Edited[i] && !bNamed)
        {
            return "byte " + std::to_string(i);
        }
    }
    return "";
}
bool IsCea(const SEditedBlock& oBlock) { return oBlock.m_iExtension >= 0 && oBlock.m_aui8Bytes[0] == 2; }

// Places of the removed detailed timings in the image as it was read, counted over the base block and then the CEA-861
// blocks.
CNumbers ListRemovedDetaileds(const std::vector<SEditedBlock>& aoBlocks)
{
    CNumbers oRemoved;
    unsigned int uiAhead = 0;
    for (const SEditedBlock& oBlock : aoBlocks)
    {
        for (const unsigned int uiNumber : oBlock.m_oEdits.m_oDetailed)
        {
            oRemoved.insert(uiAhead + uiNumber);
        }
        uiAhead += &oBlock == aoBlocks.data() || IsCea(oBlock) ? oBlock.m_uiDetaileds : 0;
    }
    return oRemoved;
}

// How many detailed timings a CEA-861 block must call native: the first ones of the image, less those removed.
unsigned int CountNatives(const CBytes& aui8Read, const CNumbers& oRemoved)
{
    const unsigned int uiNatives =
        aui8Read[ZorStandards::Cta::gsc_uiFlagsOffset] & ZorStandards::Cta::gsc_oNativeCount.GetMask();
    const auto nRemoved = std::distance(oRemoved.begin(), oRemoved.lower_bound(uiNatives));
    const bool bCounts = aui8Read[1] >= ZorStandards::Cta::gsc_uiNativeCountRevision;
    return uiNatives - (bCounts ? static_cast<unsigned int>(nRemoved) : 0);
}

std::string VerifyBlock(const CEdid& oRead, const CEdid& oEdited, const CBytes& aui8Read, const CBytes& aui8Edited,
                        const SEditedBlock& oBlock, const CNumbers& oRemoved)
{
    const SBlockEdits& oEdits = oBlock.m_oEdits;
    const unsigned int uiNatives = IsCea(oBlock) ? CountNatives(aui8Read, oRemoved) : 0;
    std::string sProblem;
    if (!oEdits.IsNamed())
    {
        CBytes aui8Expected = aui8Read; // a detailed timing that went elsewhere may have been a native one
        if (IsCea(oBlock) && uiNatives != (aui8Read[ZorStandards::Cta::gsc_uiFlagsOffset] &
                                           ZorStandards::Cta::gsc_oNativeCount.GetMask()))
        {
            aui8Expected[ZorStandards::Cta::gsc_uiFlagsOffset] = static_cast<unsigned char>(
                (aui8Read[ZorStandards::Cta::gsc_uiFlagsOffset] & ~ZorStandards::Cta::gsc_oNativeCount.GetMask()) |
                uiNatives);
            CEdidUtils::StoreChecksum(gsc_uiBlockSize, aui8Expected.data());
        }
        sProblem = VerifyBytes(aui8Expected, aui8Edited, oEdits.m_bChecksum);
    }
    else
    {
        sProblem =
            IsCea(oBlock) ? VerifyCea(aui8Read, aui8Edited, oBlock, uiNatives) : VerifyBase(oRead, oEdited, oEdits);
    }
    const bool bSumNamed = oEdits.m_bChecksum || aui8Read != aui8Edited;
    return sProblem.empty() && bSumNamed && !HasGoodChecksum(aui8Edited) ? "the checksum" : sProblem;
}
} // namespace

std::string VerifyEdits(const CBytes& aui8Read, const CBytes& aui8Edited, const std::vector<SEditedBlock>& aoBlocks)
{
    CEdid oRead;
    CEdid oEdited;
    if (aui8Read.size() != aui8Edited.size() ||
        oRead.SetEdidBuffer(aui8Read.data(), static_cast<unsigned int>(aui8Read.size()), 0) == 0 ||
        oEdited.SetEdidBuffer(aui8Edited.data(), static_cast<unsigned int>(aui8Edited.size()), 0) == 0)
    {
        return "the edited image cannot be loaded";
    }
    const CNumbers oRemoved = ListRemovedDetaileds(aoBlocks);
    for (size_t i = 0; i < aoBlocks.size(); ++i)
    {
        const auto fnCut = [i](const CBytes& aui8Image) {
            const auto oFirst = aui8Image.begin() + static_cast<std::ptrdiff_t>(i * gsc_uiBlockSize);
            return CBytes(oFirst, oFirst + gsc_uiBlockSize);
        };
        const std::string sProblem =
            VerifyBlock(oRead, oEdited, fnCut(aui8Read), fnCut(aui8Edited), aoBlocks[i], oRemoved);
        if (!sProblem.empty())
        {
            return "block " + std::to_string(i) + ": " + sProblem + " would read differently";
        }
    }
    return "";
}
