// The image is loaded again and compared with the image as it was read, block by block: timings, audio descriptors and
// speaker masks by their lists, everything else by its bytes. What an edit named must be there, too.

#include "EditVerify.h"

#include <string.h>

#include <algorithm>

#include "EdidBase.h"
#include "EdidUtils.h"
#include "Hdmi1xVsdb.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;
constexpr unsigned int gsc_uiChecksum = CEdidUtils::msc_uiChecksumOffset;

// Entries as bytes, so that lists are compared, sorted and shortened alike, whatever they hold.
using CList = std::vector<CBytes>;

CBytes EncodeTiming(const CVidParamTimingGeneric& oTiming, int iNative = 0)
{
    CBytes aui8Entry(sizeof(SVidParamGenericData));
    memcpy(aui8Entry.data(), &oTiming.GetData(), aui8Entry.size());
    aui8Entry.push_back(static_cast<unsigned char>(iNative));
    return aui8Entry;
}

CList Without(const CList& oList, const CNumbers& oNumbers)
{
    CList oLeft;
    for (unsigned int i = 0; i < oList.size(); ++i)
    {
        if (!oNumbers.contains(i))
        {
            oLeft.push_back(oList[i]);
        }
    }
    return oLeft;
}

CList Sorted(CList oList)
{
    std::sort(oList.begin(), oList.end());
    return oList;
}

template <class LIST>
bool IsSubsequence(const LIST& oPart, const LIST& oWhole)
{
    size_t uiFound = 0;
    for (const auto& oEntry : oWhole)
    {
        uiFound += uiFound < oPart.size() && oPart[uiFound] == oEntry ? 1U : 0U;
    }
    return uiFound == oPart.size();
}

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

// The pairs in use, resolved to a mode or not.
CList ListPairs(const CBytes& aui8Base)
{
    constexpr unsigned int uiPairs = 38;
    constexpr unsigned int uiPairsEnd = 54;
    CList oList;
    for (unsigned int i = uiPairs; i < uiPairsEnd; i += 2)
    {
        const CEdidBase::SStandard oPair = { aui8Base[i], aui8Base[i + 1] };
        if (CEdidBase::IsInvalidStandard(oPair) == 0)
        {
            oList.push_back({ aui8Base[i], aui8Base[i + 1] });
        }
    }
    return oList;
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
        return (oEdits.m_uiEstablished >> (8 * (uiOffset - 35))) & uiAllBits;
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
    CBytes aui8Empty(gsc_uiDetailedSize);
    aui8Empty[3] = 0x10; // the tag of an empty descriptor
    size_t uiEmptied = 0;
    size_t uiReplaced = 0;
    for (unsigned int i = uiDescriptors; i < uiDescriptorsEnd; i += gsc_uiDetailedSize)
    {
        const auto fnSlot = [i](const CBytes& aui8Base) {
            return CBytes(aui8Base.begin() + i, aui8Base.begin() + i + gsc_uiDetailedSize);
        };
        const bool bChanged = fnSlot(aui8Read) != fnSlot(aui8Edited);
        uiEmptied += bChanged && fnSlot(aui8Edited) == aui8Empty ? 1U : 0U;
        uiReplaced += bChanged && fnSlot(aui8Edited) != aui8Empty ? 1U : 0U;
    }
    return uiEmptied <= oEdits.m_oDetailed.size() && uiReplaced <= (oEdits.m_bPreferred ? 1U : 0U) ? ""
                                                                                                   : "a descriptor";
}

std::string VerifyBase(const CEdid& oRead, const CEdid& oEdited, const SBlockEdits& oEdits)
{
    const CBytes aui8Read(oRead.GetBaseBlock(), oRead.GetBaseBlock() + gsc_uiBlockSize);
    const CBytes aui8Edited(oEdited.GetBaseBlock(), oEdited.GetBaseBlock() + gsc_uiBlockSize);
    const std::string sProblem = VerifyBaseBytes(aui8Read, aui8Edited, oEdits);
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
        !IsSubsequence(ListPairs(aui8Edited), ListPairs(aui8Read)) ||
        ListPairs(aui8Edited).size() + oEdits.m_oStandard.size() != ListPairs(aui8Read).size())
    {
        return "a standard timing";
    }
    CList oDetaileds = ListBaseDetaileds(oRead);
    CList oEditedDetaileds = ListBaseDetaileds(oEdited);
    if (oEdits.m_bPreferred && !oDetaileds.empty() && !oEditedDetaileds.empty())
    {
        oDetaileds.front() = oEditedDetaileds.front(); // compared with the wish when it was set
    }
    if (oEditedDetaileds != Without(oDetaileds, oEdits.m_oDetailed))
    {
        return "a detailed timing";
    }
    return "";
}

// ---- CEA-861 blocks ----

struct SStandards
{
    CList m_oOrdinary;
    CList m_o420;
};

SStandards ListStandards(const CEdidExtBlockCEA861& oCea, const CNumbers& oWithout)
{
    SStandards oStandards;
    for (unsigned int i = 0; i < oCea.GetStandardCount(); ++i)
    {
        CVidParamTimingGeneric oTiming;
        int iNative = 0;
        oCea.GetStandard(i, &oTiming, &iNative);
        CList& oList = oTiming.Is420ColorSpace() != 0 ? oStandards.m_o420 : oStandards.m_oOrdinary;
        if (!oWithout.contains(i))
        {
            oList.push_back(EncodeTiming(oTiming, iNative));
        }
    }
    return oStandards;
}

// Timings that go together are one code: the same picture, with at most its 1000/1001 variant.
bool AreNamedGroupsAlike(const CEdidExtBlockCEA861& oRead, const SEditedBlock& oBlock)
{
    for (const unsigned int uiNumber : oBlock.m_oEdits.m_oStandard)
    {
        CVidParamTimingGeneric oTiming;
        CVidParamTimingGeneric oFirst;
        oRead.GetStandard(uiNumber, &oTiming, nullptr);
        oRead.GetStandard(static_cast<unsigned int>(oBlock.m_aiGroups[uiNumber]), &oFirst, nullptr);
        if (oTiming.GetHorizontalActive() != oFirst.GetHorizontalActive() ||
            oTiming.GetVerticalActive() != oFirst.GetVerticalActive() ||
            oTiming.GetHorizontalTotal() != oFirst.GetHorizontalTotal())
        {
            return false;
        }
    }
    return true;
}

// A timing in 4:2:0 that was named may stay, where a 4:2:0 data block names it, and stand elsewhere.
bool AreStandardsKept(const CEdidExtBlockCEA861& oRead, const CEdidExtBlockCEA861& oEdited, const SEditedBlock& oBlock)
{
    const SStandards oAll = ListStandards(oRead, {});
    const SStandards oKept = ListStandards(oRead, oBlock.m_oEdits.m_oStandard);
    const SStandards oNow = ListStandards(oEdited, {});
    const CList oNow420 = Sorted(oNow.m_o420);
    return AreNamedGroupsAlike(oRead, oBlock) && oNow.m_oOrdinary == oKept.m_oOrdinary &&
           IsSubsequence(Sorted(oKept.m_o420), oNow420) && IsSubsequence(oNow420, Sorted(oAll.m_o420));
}

// The short video descriptors, those that no timing comes from included: only bytes of the removed codes are gone, and
// all of these.
bool AreVideoCodesKept(const CBytes& aui8Read, const CBytes& aui8Edited, const SEditedBlock& oBlock)
{
    CNumbers oGroups;
    for (const unsigned int uiNumber : oBlock.m_oEdits.m_oStandard)
    {
        oGroups.insert(static_cast<unsigned int>(oBlock.m_aiGroups[uiNumber]));
    }
    CNumbers oGone;
    size_t uiNext = 0;
    for (const unsigned char ui8Svd : aui8Read)
    {
        if (uiNext < aui8Edited.size() && aui8Edited[uiNext] == ui8Svd)
        {
            ++uiNext;
            continue;
        }
        unsigned int uiVic = 0;
        CEdidExtBlockCEA861::ExtractSvdCodeInfo(ui8Svd, &uiVic, nullptr);
        oGone.insert(uiVic);
    }
    const bool bAllGone = std::none_of(aui8Edited.begin(), aui8Edited.end(), [&](unsigned char ui8Svd) {
        unsigned int uiVic = 0;
        CEdidExtBlockCEA861::ExtractSvdCodeInfo(ui8Svd, &uiVic, nullptr);
        return uiVic != 0 && oGone.contains(uiVic);
    });
    return uiNext == aui8Edited.size() && bAllGone && !oGone.contains(0) && oGone.size() <= oGroups.size();
}

// What is left of an HDMI payload without its codes and their number.
void CutHdmiCodes(CBytes& aui8Payload, size_t uiTagSize)
{
    constexpr unsigned int ui3dLengthMask = 0x1F;
    unsigned char* pui8Payload = aui8Payload.data() + uiTagSize;
    const unsigned int uiLength = static_cast<unsigned int>(aui8Payload.size() - uiTagSize);
    if (CHdmi1xVsdb::IsSupported(uiLength, pui8Payload) == 0)
    {
        return;
    }
    const CHdmi1xVsdb::SVics oVics = CHdmi1xVsdb::FindVics(uiLength, pui8Payload);
    if (oVics.m_uiVicsOffset != 0)
    {
        pui8Payload[oVics.m_uiVideoOffset + 1] &= ui3dLengthMask;
        const auto oFirst = aui8Payload.begin() + static_cast<std::ptrdiff_t>(uiTagSize + oVics.m_uiVicsOffset);
        aui8Payload.erase(oFirst, oFirst + oVics.m_uiCount);
    }
}

// The data blocks without what the edits named.
CList ListUnnamed(const CEdidExtBlockCEA861& oCea, const SBlockEdits& oEdits, CBytes& aui8Svds)
{
    using Cea = CEdidExtBlockCEA861;
    constexpr unsigned char ui8DeepColorMask = 0x70; // of payload byte 5 of an HDMI block
    const bool bStandards = !oEdits.m_oStandard.empty();
    CList oList;
    for (const SCeaDataBlock& oBlock : ListDataBlocks(oCea))
    {
        CBytes aui8Payload = oBlock.m_aui8Payload;
        const bool bExtended = oBlock.m_uiTag == Cea::eCea861Tag_Extended && !aui8Payload.empty();
        if (oBlock.m_uiTag == Cea::eCea861Tag_Video && bStandards)
        {
            aui8Svds.insert(aui8Svds.end(), aui8Payload.begin(), aui8Payload.end());
            continue;
        }
        if ((oBlock.m_uiTag == Cea::eCea861Tag_Audio && oEdits.IsAudioNamed()) ||
            (oBlock.m_uiTag == Cea::eCea861Tag_Speaker && oEdits.m_bSpeakers))
        {
            continue;
        }
        if (oBlock.m_uiTag == Cea::eCea861Tag_VendorSpecific)
        {
            if (oEdits.m_bDeepColor &&
                CHdmi1xVsdb::IsSupported(static_cast<unsigned int>(aui8Payload.size()), aui8Payload.data()) != 0)
            {
                aui8Payload[5] &= static_cast<unsigned char>(~ui8DeepColorMask);
            }
            if (bStandards)
            {
                CutHdmiCodes(aui8Payload, 0);
            }
        }
        if (bExtended && bStandards && aui8Payload[0] == Cea::eCea861ExtTag_VendorVideo)
        {
            CutHdmiCodes(aui8Payload, 1);
        }
        if (bExtended && bStandards && aui8Payload[0] == Cea::eCea861ExtTag_Yuv420CapabilityMap)
        {
            std::fill(aui8Payload.begin() + 1, aui8Payload.end(), static_cast<unsigned char>(0)); // see the timings
        }
        aui8Payload.push_back(static_cast<unsigned char>(oBlock.m_uiTag));
        oList.push_back(aui8Payload);
    }
    return oList;
}

CList ListAudioBytes(const CEdidExtBlockCEA861& oCea)
{
    constexpr size_t uiSize = 3;
    CList oList;
    for (const SCeaDataBlock& oBlock : ListDataBlocks(oCea))
    {
        for (size_t i = 0;
             oBlock.m_uiTag == CEdidExtBlockCEA861::eCea861Tag_Audio && i + uiSize <= oBlock.m_aui8Payload.size();
             i += uiSize)
        {
            oList.push_back({ oBlock.m_aui8Payload[i], oBlock.m_aui8Payload[i + 1], oBlock.m_aui8Payload[i + 2] });
        }
    }
    return oList;
}

// Bit 7 of the first two bytes is reserved and stays.
CBytes EncodeAudio(const CAudio& oAudio, const CBytes& aui8Before)
{
    return { static_cast<unsigned char>((aui8Before[0] & 0x80U) | (oAudio.m_eFormat << 3) | (oAudio.m_uiChannels - 1)),
             static_cast<unsigned char>((aui8Before[1] & 0x80U) | oAudio.m_eSamplingFreq),
             static_cast<unsigned char>(oAudio.m_uiExtra) };
}

bool AreAudiosKept(const CEdidExtBlockCEA861& oRead, const CEdidExtBlockCEA861& oEdited, const SBlockEdits& oEdits)
{
    CList oKept = ListAudioBytes(oRead);
    for (const auto& [uiNumber, oAudio] : oEdits.m_oAudioSet)
    {
        oKept[uiNumber] = EncodeAudio(oAudio, oKept[uiNumber]);
    }
    oKept = Without(oKept, oEdits.m_oAudioRemoved);
    const CList oNow = ListAudioBytes(oEdited);
    CList oAll = oKept;
    for (const CAudio& oAudio : oEdits.m_aoAudioAdded)
    {
        oAll.push_back(EncodeAudio(oAudio, CBytes(2)));
    }
    return IsSubsequence(oKept, oNow) && Sorted(oAll) == Sorted(oNow) &&
           oEdited.GetAudioDescriptorCount() == oNow.size();
}

bool AreSpeakersRight(const CEdidExtBlockCEA861& oEdited, const SBlockEdits& oEdits)
{
    std::vector<unsigned int> auiMasks(oEdited.GetSpeakerDescriptorCount());
    for (unsigned int i = 0; i < auiMasks.size(); ++i)
    {
        oEdited.GetSpeakerDescriptor(i, &auiMasks[i]);
    }
    return auiMasks == oEdits.m_auiSpeakers;
}

// The descriptors and what stands behind them, without those that were removed.
bool AreDescriptorsKept(const CEdidExtBlockCEA861& oRead, const CEdidExtBlockCEA861& oEdited, const CNumbers& oRemoved)
{
    CBytes aui8Kept = GetDescriptorArea(oRead);
    aui8Kept.resize(std::max<size_t>(aui8Kept.size(), oRead.GetDetailedCount() * size_t{ gsc_uiDetailedSize }));
    for (auto oNumber = oRemoved.rbegin(); oNumber != oRemoved.rend(); ++oNumber)
    {
        const auto oFirst = aui8Kept.begin() + *oNumber * gsc_uiDetailedSize;
        aui8Kept.erase(oFirst, oFirst + gsc_uiDetailedSize);
    }
    while (!aui8Kept.empty() && aui8Kept.back() == 0)
    {
        aui8Kept.pop_back();
    }
    return aui8Kept == GetDescriptorArea(oEdited) &&
           oEdited.GetDetailedCount() + oRemoved.size() == oRead.GetDetailedCount();
}

std::string VerifyCea(const CBytes& aui8Read, const CBytes& aui8Edited, const SEditedBlock& oBlock)
{
    constexpr unsigned int uiBasicAudio = 0x40;
    const SBlockEdits& oEdits = oBlock.m_oEdits;
    if (CEdidExtBlockCEA861::IsSupported(gsc_uiBlockSize, aui8Edited.data()) == 0)
    {
        return "the block as a whole";
    }
    CEdidExtBlockCEA861 oRead(gsc_uiBlockSize, aui8Read.data(), 0);
    CEdidExtBlockCEA861 oEdited(gsc_uiBlockSize, aui8Edited.data(), 0);
    const unsigned int uiNamedFlags = oEdits.IsAudioNamed() || oEdits.m_bSpeakers ? uiBasicAudio : 0;
    if (aui8Read[0] != aui8Edited[0] || aui8Read[1] != aui8Edited[1] ||
        ((aui8Read[gsc_uiCeaFlags] ^ aui8Edited[gsc_uiCeaFlags]) & ~uiNamedFlags) != 0)
    {
        return "the header";
    }
    if (!AreDescriptorsKept(oRead, oEdited, oEdits.m_oDetailed))
    {
        return "a detailed timing, or what stands behind them";
    }
    if (!AreStandardsKept(oRead, oEdited, oBlock))
    {
        return "a standard timing";
    }
    if (oEdits.IsAudioNamed() && !AreAudiosKept(oRead, oEdited, oEdits))
    {
        return "an audio descriptor";
    }
    if (oEdits.m_bSpeakers && !AreSpeakersRight(oEdited, oEdits))
    {
        return "the speakers";
    }
    unsigned int uiDeepColor = 0;
    if (oEdits.m_bDeepColor &&
        (oEdited.GetColorBitDepthSupport(uiDeepColor) == 0 || uiDeepColor != oEdits.m_uiDeepColor))
    {
        return "the deep colours";
    }
    CBytes aui8ReadSvds;
    CBytes aui8EditedSvds;
    if (!AreDataBlocksExact(oEdited) ||
        ListUnnamed(oRead, oEdits, aui8ReadSvds) != ListUnnamed(oEdited, oEdits, aui8EditedSvds) ||
        !AreVideoCodesKept(aui8ReadSvds, aui8EditedSvds, oBlock))
    {
        return "a data block";
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
    for (size_t i = 0; i < aoBlocks.size(); ++i)
    {
        const auto fnCut = [i](const CBytes& aui8Image) {
            const auto oFirst = aui8Image.begin() + static_cast<std::ptrdiff_t>(i * gsc_uiBlockSize);
            return CBytes(oFirst, oFirst + gsc_uiBlockSize);
        };
        const CBytes aui8ReadBlock = fnCut(aui8Read);
        const CBytes aui8EditedBlock = fnCut(aui8Edited);
        const SBlockEdits& oEdits = aoBlocks[i].m_oEdits;
        const std::string sProblem = !oEdits.IsNamed() ? VerifyBytes(aui8ReadBlock, aui8EditedBlock, oEdits.m_bChecksum)
                                     : i == 0          ? VerifyBase(oRead, oEdited, oEdits)
                                                       : VerifyCea(aui8ReadBlock, aui8EditedBlock, aoBlocks[i]);
        const bool bSumNamed = oEdits.m_bChecksum || aui8ReadBlock != aui8EditedBlock;
        if (!sProblem.empty() || (bSumNamed && !HasGoodChecksum(aui8EditedBlock)))
        {
            return "block " + std::to_string(i) + ": " + (sProblem.empty() ? "the checksum" : sProblem) +
                   " would read differently";
        }
    }
    return "";
}
