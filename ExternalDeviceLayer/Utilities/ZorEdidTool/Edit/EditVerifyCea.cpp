// The verification of a CEA-861 block. What the block as it was read must have become is worked out from its bytes and
// from what the edits named, and compared; how the library edits plays no part in it.

#include "EdidUtils.h"
#include "EditVerifyParts.h"
#include "Hdmi1xVsdb.h"

namespace
{
using Cea = CEdidExtBlockCEA861;

constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;

// ---- Timings ----

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
        oRead.GetStandard(*ListTimingsOfCode(oBlock, uiNumber).begin(), &oFirst, nullptr);
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

// The descriptors and what stands behind them, without those that were removed.
bool AreDescriptorsKept(const CEdidExtBlockCEA861& oRead, const CEdidExtBlockCEA861& oEdited, const CNumbers& oRemoved)
{
    CBytes aui8Kept = GetDescriptorArea(oRead);
    aui8Kept.resize(
        std::max<size_t>(aui8Kept.size(), oRead.GetDetailedCount() * size_t{ ZorStandards::Cta::gsc_uiDetailedSize }));
    for (auto oNumber = oRemoved.rbegin(); oNumber != oRemoved.rend(); ++oNumber)
    {
        const auto oFirst = aui8Kept.begin() + *oNumber * ZorStandards::Cta::gsc_uiDetailedSize;
        aui8Kept.erase(oFirst, oFirst + ZorStandards::Cta::gsc_uiDetailedSize);
    }
    while (!aui8Kept.empty() && aui8Kept.back() == 0)
    {
        aui8Kept.pop_back();
    }
    return aui8Kept == GetDescriptorArea(oEdited) &&
           oEdited.GetDetailedCount() + oRemoved.size() == oRead.GetDetailedCount();
}

// ---- Audio and speakers ----

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

// The bits of the mask in the first data block are new, and everything else there and in the others is as it was.
bool AreSpeakersRight(const CEdidExtBlockCEA861& oRead, const CEdidExtBlockCEA861& oEdited, const SBlockEdits& oEdits)
{
    constexpr unsigned int uiNamed = 0x7FF; // 8 bits in the first byte, 3 in the second
    CList oExpected = oEdits.m_bReadSpeakersGone ? CList() : ListPayloads(oRead, Cea::eCea861Tag_Speaker);
    if (oEdits.m_uiSpeakers != 0)
    {
        oExpected.resize(std::max<size_t>(oExpected.size(), 1), CBytes(3));
        for (const unsigned int i : { 0U, 1U })
        {
            const unsigned int uiKept = oExpected[0][i] & ~(uiNamed >> (8 * i));
            oExpected[0][i] = static_cast<unsigned char>(uiKept | (oEdits.m_uiSpeakers >> (8 * i)));
        }
    }
    return ListPayloads(oEdited, Cea::eCea861Tag_Speaker) == oExpected;
}

// Basic audio is set by an addition and cleared with the last descriptor or data block.
unsigned int GetFlags(const CBytes& aui8Read, const CEdidExtBlockCEA861& oEdited, const SBlockEdits& oEdits,
                      unsigned int uiNatives)
{
    constexpr unsigned int uiBasicAudio = 0x40;
    const unsigned int uiKept =
        (aui8Read[ZorStandards::Cta::gsc_uiFlagsOffset] & ~ZorStandards::Cta::gsc_oNativeCount.GetMask()) | uiNatives;
    if (!oEdits.IsAudioNamed() && !oEdits.m_bSpeakers)
    {
        return uiKept;
    }
    if (oEdited.GetAudioDescriptorCount() == 0 && oEdited.GetSpeakerDescriptorCount() == 0)
    {
        return uiKept & ~uiBasicAudio;
    }
    return oEdits.m_aoAudioAdded.empty() && !oEdits.m_bSpeakersAdded ? uiKept : uiKept | uiBasicAudio;
}

// ---- Data blocks ----

unsigned int GetVic(unsigned int uiSvd)
{
    unsigned int uiVic = 0;
    Cea::ExtractSvdCodeInfo(uiSvd, &uiVic, nullptr);
    return uiVic;
}

CBytes ListSvds(const CEdidExtBlockCEA861& oCea)
{
    CBytes aui8Svds;
    for (const CBytes& aui8Payload : ListPayloads(oCea, Cea::eCea861Tag_Video))
    {
        aui8Svds.insert(aui8Svds.end(), aui8Payload.begin(), aui8Payload.end());
    }
    return aui8Svds;
}

// The codes that the bits of a capability map stand for: those of the video blocks, of the HDMI vendor blocks, and of
// those with an extended tag. 0 for what is none.
std::vector<unsigned int> ListVics(const CEdidExtBlockCEA861& oCea)
{
    std::vector<unsigned int> auiVics;
    for (const unsigned int uiSvd : ListSvds(oCea))
    {
        auiVics.push_back(GetVic(uiSvd));
    }
    for (const unsigned int uiTag : { Cea::eCea861Tag_VendorSpecific, Cea::eCea861Tag_Extended })
    {
        for (const SCeaDataBlock& oBlock : ListDataBlocks(oCea))
        {
            const std::span<const unsigned char> oHdmi =
                oBlock.m_uiTag == uiTag ? GetHdmiPayload(oBlock) : std::span<const unsigned char>();
            const auto oVics = CHdmi1xVsdb::FindVics(static_cast<unsigned int>(oHdmi.size()), oHdmi.data());
            for (unsigned int i = 0; i < oVics.m_uiCount; ++i)
            {
                unsigned char ui8Vic = 0;
                if (CHdmi1xVsdb::ConvertHdmiVicToCeaVic(oHdmi[oVics.m_uiVicsOffset + i], ui8Vic) != 0)
                {
                    auiVics.push_back(ui8Vic);
                }
            }
        }
    }
    return auiVics;
}

// A 3D format with the codes that it holds for, not their places; codes that are gone are left out, and formats of
// these alone.
void AddFormat(CBytes aui8Format, const CBytes& aui8Svds, unsigned int uiPlaces, const CNumbers& oGone, CList& oFormats)
{
    bool bAny = false;
    for (unsigned int i = 0; i < 16; ++i)
    {
        const bool bNone = i >= aui8Svds.size();
        if ((uiPlaces >> i & 1U) != 0 && (bNone || !oGone.contains(GetVic(aui8Svds[i]))))
        {
            aui8Format.push_back(bNone ? 0 : aui8Svds[i]);
            bAny = true;
        }
    }
    if (bAny)
    {
        oFormats.push_back(aui8Format);
    }
}

// Takes the 3D fields out of an HDMI payload and lists what they say. Those that break off or are reserved stay.
void Resolve3d(CBytes& aui8Payload, size_t uiTagSize, const CBytes& aui8Svds, const CNumbers& oGone, CList& oFormats)
{
    const auto oVics = CHdmi1xVsdb::FindVics(static_cast<unsigned int>(aui8Payload.size() - uiTagSize),
                                             aui8Payload.data() + uiTagSize);
    const size_t uiVideo = uiTagSize + oVics.m_uiVideoOffset;
    const size_t uiStart = uiTagSize + oVics.m_uiVicsOffset + (aui8Payload[uiVideo + 1] >> 5);
    const size_t uiEnd = uiStart + (aui8Payload[uiVideo + 1] & 0x1F);
    const unsigned int uiMulti = (aui8Payload[uiVideo] >> 5) & 3U;
    const size_t uiEntries = uiStart + (uiMulti == 0 ? 0 : 2 * uiMulti); // a pair of bytes for all, one of the mask
    if (oVics.m_uiVideoOffset == 0 || uiEnd == uiStart || uiEnd > aui8Payload.size() || uiMulti == 3 ||
        uiEntries > uiEnd)
    {
        return;
    }
    CList oFound;
    if (uiMulti != 0)
    {
        const size_t uiCodes = std::min<size_t>(aui8Svds.size(), 16);
        const unsigned int uiAll = (1U << uiCodes) - 1;
        const unsigned int uiMask =
            uiMulti == 1 ? uiAll
                         : (static_cast<unsigned int>(aui8Payload[uiEntries - 2]) << 8) | aui8Payload[uiEntries - 1];
        const unsigned int uiRest = uiMask >> uiCodes; // bits that no code has
        oFound.push_back({ aui8Payload[uiStart], aui8Payload[uiStart + 1], static_cast<unsigned char>(uiRest >> 8),
                           static_cast<unsigned char>(uiRest) });
        AddFormat({}, aui8Svds, uiMask & uiAll, oGone, oFound);
    }
    size_t uiSize = 0;
    for (size_t i = uiEntries; i < uiEnd; i += uiSize)
    {
        uiSize = (aui8Payload[i] & 0x0F) >= 8 ? 2 : 1;
        if (i + uiSize > uiEnd)
        {
            return;
        }
        CBytes aui8Format(aui8Payload.begin() + static_cast<std::ptrdiff_t>(i),
                          aui8Payload.begin() + static_cast<std::ptrdiff_t>(i + uiSize));
        aui8Format[0] &= 0x0F;
        AddFormat(aui8Format, aui8Svds, 1U << (aui8Payload[i] >> 4), oGone, oFound);
    }
    aui8Payload[uiVideo + 1] &= 0xE0;
    aui8Payload.erase(aui8Payload.begin() + static_cast<std::ptrdiff_t>(uiStart),
                      aui8Payload.begin() + static_cast<std::ptrdiff_t>(uiEnd));
    oFormats.insert(oFormats.end(), oFound.begin(), oFound.end());
}

// Takes the HDMI codes out that are gone.
void RemoveHdmiCodes(CBytes& aui8Payload, size_t uiTagSize, const CNumbers& oGone)
{
    const auto oVics = CHdmi1xVsdb::FindVics(static_cast<unsigned int>(aui8Payload.size() - uiTagSize),
                                             aui8Payload.data() + uiTagSize);
    for (unsigned int i = oVics.m_uiCount; i > 0; --i)
    {
        const auto oCode = aui8Payload.begin() + static_cast<std::ptrdiff_t>(uiTagSize + oVics.m_uiVicsOffset + i - 1);
        unsigned char ui8Vic = 0;
        CHdmi1xVsdb::ConvertHdmiVicToCeaVic(*oCode, ui8Vic);
        if (ui8Vic != 0 && oGone.contains(ui8Vic))
        {
            aui8Payload.erase(oCode);
            aui8Payload[uiTagSize + oVics.m_uiVideoOffset + 1] -= 0x20;
        }
    }
}

// A capability map without the bits of the codes that are gone; those behind move down, and zeros fill the end.
void RemoveMapBits(CBytes& aui8Map, const std::vector<unsigned int>& auiVics, const CNumbers& oGone)
{
    CBytes aui8Kept(aui8Map.size());
    aui8Kept[0] = aui8Map[0]; // the extended tag
    unsigned int uiTo = 8;
    for (unsigned int uiFrom = 8; uiFrom < 8 * aui8Map.size(); ++uiFrom)
    {
        if (uiFrom - 8 >= auiVics.size() || !oGone.contains(auiVics[uiFrom - 8]))
        {
            const unsigned int uiBit = (aui8Map[uiFrom / 8] >> (uiFrom % 8)) & 1U;
            aui8Kept[uiTo / 8] |= static_cast<unsigned char>(uiBit << (uiTo % 8));
            ++uiTo;
        }
    }
    aui8Map = aui8Kept;
}

// The payload of a data block as the edits must have left it, but for 3D formats: oGone are the codes that went.
CBytes GetExpected(const CEdidExtBlockCEA861& oCea, const SCeaDataBlock& oBlock, const SBlockEdits& oEdits,
                   const CNumbers& oGone)
{
    constexpr unsigned int uiDeepColors = 5; // byte of an HDMI block, bits 6 to 4
    CBytes aui8Payload = oBlock.m_aui8Payload;
    const size_t uiTagSize = aui8Payload.size() - GetHdmiPayload(oBlock).size();
    const bool bHdmi = uiTagSize < aui8Payload.size();
    if (oBlock.m_uiTag == Cea::eCea861Tag_Video)
    {
        std::erase_if(aui8Payload, [&](unsigned char ui8Svd) { return oGone.contains(GetVic(ui8Svd)); });
    }
    else if (oBlock.m_uiTag == Cea::eCea861Tag_Extended && !aui8Payload.empty() &&
             aui8Payload[0] == Cea::eCea861ExtTag_Yuv420CapabilityMap)
    {
        RemoveMapBits(aui8Payload, ListVics(oCea), oGone);
    }
    if (bHdmi && uiTagSize == 0 && oEdits.m_bDeepColor)
    {
        aui8Payload[uiDeepColors] =
            static_cast<unsigned char>((aui8Payload[uiDeepColors] & 0x8FU) | (oEdits.m_uiDeepColor << 4));
    }
    if (bHdmi)
    {
        RemoveHdmiCodes(aui8Payload, uiTagSize, oGone);
    }
    return aui8Payload;
}

// The data blocks, each with its tag at the end, but for the kinds that are compared by themselves. With poGone as the
// edits must have left them, else as they are.
CList ListRest(const CEdidExtBlockCEA861& oCea, const SBlockEdits& oEdits, const CNumbers* poGone)
{
    const CBytes aui8Svds = ListSvds(oCea);
    CList oList;
    for (const SCeaDataBlock& oBlock : ListDataBlocks(oCea))
    {
        if ((oBlock.m_uiTag == Cea::eCea861Tag_Audio && oEdits.IsAudioNamed()) ||
            (oBlock.m_uiTag == Cea::eCea861Tag_Speaker && oEdits.m_bSpeakers))
        {
            continue;
        }
        CBytes aui8Payload = poGone != nullptr ? GetExpected(oCea, oBlock, oEdits, *poGone) : oBlock.m_aui8Payload;
        if (aui8Payload.empty() && !oBlock.m_aui8Payload.empty())
        {
            continue; // the block went with its last code
        }
        if (const size_t uiHdmi = GetHdmiPayload(oBlock).size(); uiHdmi != 0)
        {
            Resolve3d(aui8Payload, oBlock.m_aui8Payload.size() - uiHdmi, aui8Svds,
                      poGone != nullptr ? *poGone : CNumbers(), oList);
        }
        aui8Payload.push_back(static_cast<unsigned char>(oBlock.m_uiTag));
        oList.push_back(aui8Payload);
    }
    return oList;
}

// Not more codes are gone than were named, and nothing but what these leave behind has changed.
bool AreDataBlocksKept(const CEdidExtBlockCEA861& oRead, const CEdidExtBlockCEA861& oEdited, const SEditedBlock& oBlock)
{
    CNumbers oNamed;
    for (const unsigned int uiNumber : oBlock.m_oEdits.m_oStandard)
    {
        oNamed.insert(*ListTimingsOfCode(oBlock, uiNumber).begin());
    }
    const std::vector<unsigned int> auiRead = ListVics(oRead);
    const std::vector<unsigned int> auiEdited = ListVics(oEdited);
    CNumbers oGone(auiRead.begin(), auiRead.end());
    for (const unsigned int uiVic : auiEdited)
    {
        oGone.erase(uiVic);
    }
    return oGone.size() == oNamed.size() && !oGone.contains(0) && AreDataBlocksExact(oEdited) &&
           ListRest(oRead, oBlock.m_oEdits, &oGone) == ListRest(oEdited, oBlock.m_oEdits, nullptr);
}
} // namespace

std::string VerifyCea(const CBytes& aui8Read, const CBytes& aui8Edited, const SEditedBlock& oBlock,
                      unsigned int uiNatives)
{
    const SBlockEdits& oEdits = oBlock.m_oEdits;
    if (CEdidExtBlockCEA861::IsSupported(gsc_uiBlockSize, aui8Edited.data()) == 0)
    {
        return "the block as a whole";
    }
    const CEdidExtBlockCEA861 oRead(gsc_uiBlockSize, aui8Read.data(), 0);
    const CEdidExtBlockCEA861 oEdited(gsc_uiBlockSize, aui8Edited.data(), 0);
    if (aui8Read[0] != aui8Edited[0] || aui8Read[1] != aui8Edited[1] ||
        aui8Edited[ZorStandards::Cta::gsc_uiFlagsOffset] != GetFlags(aui8Read, oEdited, oEdits, uiNatives))
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
    if (oEdits.m_bSpeakers && !AreSpeakersRight(oRead, oEdited, oEdits))
    {
        return "the speakers";
    }
    return AreDataBlocksKept(oRead, oEdited, oBlock) ? "" : "a data block";
}
