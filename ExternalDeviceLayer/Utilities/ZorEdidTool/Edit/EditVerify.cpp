// The image as it was read gets what the edits named: new values in their places, while what is gone is left out of its
// map. That must then equal the map of the edited image without what was added. How the library edits plays no part,
// but for range limits, which have one writer.

#include "EditVerify.h"

#include <algorithm>
#include <bit>

#include "EdidUtils.h"
#include "EditLimits.h"
#include "MapDiff.h"
#include "MapText.h"
#include "Standards/AudioBlocks.h"
#include "Standards/BaseBlock.h"
#include "Standards/CtaBlocks.h"

namespace
{
using CField = CZorEdidMap::SField;

constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;
bool IsCea(const SEditedBlock& oBlock) { return oBlock.m_iExtension >= 0 && oBlock.m_aui8Bytes[0] == 2; }

// The descriptor that was there, of which reserved bits stay, with other contents.
CBytes EncodeAudio(const CAudio& oAudio, CBytes aui8Descriptor)
{
    constexpr unsigned int uiFrequencies = 0x7F; // of the second byte
    ZorStandards::Audio::gsc_oFormat.Write(aui8Descriptor.data(), oAudio.m_eFormat);
    ZorStandards::Audio::gsc_oChannels.Write(aui8Descriptor.data(), oAudio.m_uiChannels - 1);
    aui8Descriptor[1] = static_cast<unsigned char>((aui8Descriptor[1] & ~uiFrequencies) | oAudio.m_eSamplingFreq);
    aui8Descriptor[2] = static_cast<unsigned char>(oAudio.m_uiExtra);
    return aui8Descriptor;
}

bool IsEntry(const SMapPart& oPart, unsigned int uiField)
{
    return oPart.Is(uiField, eZorEdidField_CtaAudioDescriptor) || oPart.Is(uiField, eZorEdidField_CtaSpeakers);
}

// A pair of the base block that is not a standard timing.
bool IsUnusedPair(const SMapPart& oPart, unsigned int uiField)
{
    const CBytes aui8Pair = oPart.Is(uiField, eZorEdidField_BaseStandard) ? oPart.GetBytes(uiField) : CBytes();
    return !aui8Pair.empty() && CEdidBase::IsInvalidStandard({ aui8Pair[0], aui8Pair[1] }) != 0;
}

// Whether the field is the timing of these numbers, which are the block's own. uiBefore is the first one of the block.
bool IsNamed(const CField& oField, CZorEdidMap::EList eList, const CNumbers& oNumbers, unsigned int uiBefore)
{
    bool bNamed = oField.m_eList == eList && oField.m_uiTimings != 0;
    for (unsigned int i = 0; i < oField.m_uiTimings; ++i)
    {
        bNamed = bNamed && oNumbers.contains(oField.m_uiTiming + i - uiBefore);
    }
    return bNamed;
}

class CVerification
{
public:
    CVerification(const CEdid& oEdited, const CBytes& aui8Read, const CBytes& aui8Edited,
                  const std::vector<SEditedBlock>& aoBlocks)
        : m_oEdid(oEdited), m_aoBlocks(aoBlocks), m_aui8Expected(aui8Read)
    {
        m_oRead.m_oMap.Read(static_cast<unsigned int>(aui8Read.size()), aui8Read.data());
        m_oEdited.m_oMap.Read(static_cast<unsigned int>(aui8Edited.size()), aui8Edited.data());
        for (size_t i = 0; i < aoBlocks.size(); ++i)
        {
            Expect(i);
        }
        m_oExpected.m_oMap.Read(static_cast<unsigned int>(m_aui8Expected.size()), m_aui8Expected.data());
    }

    // Empty, or the fault.
    std::string Run()
    {
        std::string sFault;
        for (size_t i = 0; i < m_aoBlocks.size(); ++i)
        {
            std::string sOfBlock = LeaveOut(i);
            sFault = sFault.empty() ? sOfBlock : sFault;
        }
        const bool bCountsRight = m_oExpected.LeaveOutRest() == m_oEdited.LeaveOutRest();
        const std::vector<SMapDifference> aoDifferences = CompareMaps(m_oExpected, m_oEdited);
        if (!aoDifferences.empty())
        {
            const auto& [uiFirst, uiSecond] = aoDifferences.front();
            const bool bEdited = uiSecond != CZorEdidMap::msc_uiNone;
            return Name(bEdited ? m_oEdited : m_oExpected, bEdited ? uiSecond : uiFirst);
        }
        return bCountsRight ? sFault : "a length";
    }

private:
    static std::string Name(const SMapPart& oPart, unsigned int uiField)
    {
        return "block " + std::to_string(oPart.Get(uiField).m_uiOffset / gsc_uiBlockSize) + ": " +
               GetPath(oPart.m_oMap, uiField);
    }

    // ---- What must have become of a block ----

    void Put(size_t uiOffset, unsigned int uiMask, unsigned int uiBits)
    {
        unsigned char& ui8Byte = m_aui8Expected[uiOffset];
        ui8Byte = static_cast<unsigned char>((ui8Byte & ~uiMask) | (uiBits & uiMask));
    }

    void Put(size_t uiOffset, const CBytes& aui8Bytes)
    {
        std::copy(aui8Bytes.begin(), aui8Bytes.end(), m_aui8Expected.begin() + static_cast<std::ptrdiff_t>(uiOffset));
    }

    // The field's bits from the lowest one on.
    void PutValue(unsigned int uiField, unsigned int uiValue)
    {
        for (const SFieldByte& oByte : GetFieldBytes(m_oRead.m_oMap, uiField))
        {
            Put(oByte.m_uiOffset, oByte.m_uiMask, uiValue << std::countr_zero(oByte.m_uiMask));
            uiValue >>= std::popcount(oByte.m_uiMask);
        }
    }

    void Expect(size_t uiBlock)
    {
        const SBlockEdits& oEdits = m_aoBlocks[uiBlock].m_oEdits;
        for (const auto& [uiOffset, oBits] : oEdits.m_oBits)
        {
            Put(uiOffset, oBits.m_uiMask, oBits.m_uiBits);
        }
        // Basic audio is set by an addition and cleared with the last descriptor or data block.
        const std::vector<unsigned int> auiEdited = m_oEdited.ListBlock(uiBlock);
        const bool bAudio = std::ranges::any_of(auiEdited, [this](unsigned int i) { return IsEntry(m_oEdited, i); });
        const bool bAdded = !oEdits.m_aoAudioAdded.empty() || oEdits.m_bSpeakersAdded;
        CNumbers oEmptied;                                           // offsets of descriptors
        unsigned int uiUnlisted = m_aoBlocks[uiBlock].m_uiDetaileds; // timings after another descriptor count on
        bool bLimits = false;                                        // seen; the first ones count
        unsigned int uiAudios = 0;
        unsigned int uiSpeakers = 0;
        for (const unsigned int i : m_oRead.ListBlock(uiBlock))
        {
            const CField& oField = m_oRead.Get(i);
            const bool bCode =
                m_oRead.Is(i, eZorEdidField_CtaVideoDescriptor) || m_oRead.Is(i, eZorEdidField_CtaHdmiVic);
            bool bGone = bCode ? oEdits.m_oCodes.contains(oField.m_uiOffset % gsc_uiBlockSize)
                               : IsNamed(oField, CZorEdidMap::eList_Standard, oEdits.m_oStandard, 0);
            const bool bUnlisted =
                IsCea(m_aoBlocks[uiBlock]) && m_oRead.Is(i, eZorEdidField_BaseDetailed) && oField.m_uiTimings == 0;
            if (bUnlisted ? oEdits.m_oDetailed.contains(uiUnlisted++)
                          : IsNamed(oField, CZorEdidMap::eList_Detailed, oEdits.m_oDetailed, m_uiDetaileds))
            {
                CBytes aui8Empty(oField.m_uiLength);
                aui8Empty[3] = 0x10; // the tag of an empty descriptor
                Put(oField.m_uiOffset, uiBlock == 0 ? aui8Empty : CBytes());
                oEmptied.insert(oField.m_uiOffset);
            }
            else if (IsNamed(oField, CZorEdidMap::eList_Detailed, { 0 }, 0) && oEdits.m_bPreferred)
            {
                ExpectPreferred(oField.m_uiOffset, oEdits);
            }
            else if (uiBlock == 0 && m_oRead.Is(i, eZorEdidField_BaseRange) && oEdits.m_bLimits && !bLimits)
            {
                bLimits = true;
                ExpectLimits(oField, oEdits.m_oLimits);
            }
            else if (m_oRead.Is(i, eZorEdidField_CtaAudioDescriptor))
            {
                const auto itSet = oEdits.m_oAudioSet.find(uiAudios);
                Put(oField.m_uiOffset,
                    itSet != oEdits.m_oAudioSet.end() ? EncodeAudio(itSet->second, m_oRead.GetBytes(i)) : CBytes());
                bGone = oEdits.m_oAudioRemoved.contains(uiAudios++);
            }
            else if (m_oRead.Is(i, eZorEdidField_CtaSpeakers) && oEdits.m_bSpeakers)
            {
                bGone = oEdits.m_bReadSpeakersGone;
                Put(oField.m_uiOffset + 1, uiSpeakers == 0 ? 0xFF : 0, oEdits.m_uiSpeakers);
                Put(oField.m_uiOffset + 2, uiSpeakers++ == 0 ? 0x07 : 0, oEdits.m_uiSpeakers >> 8);
            }
            const unsigned int uiRead = static_cast<unsigned int>(oField.m_llNumber);
            const auto itValue = oEdits.m_oValues.find(oField.m_eId);
            if (itValue != oEdits.m_oValues.end())
            {
                PutValue(i, itValue->second);
            }
            else if (m_oRead.Is(i, eZorEdidField_CtaNativeCount) && IsCea(m_aoBlocks[uiBlock]))
            {
                PutValue(i, uiRead - CountRemoved(uiRead));
            }
            else if (m_oRead.Is(i, eZorEdidField_CtaBasicAudio) && (oEdits.IsAudioNamed() || oEdits.m_bSpeakers))
            {
                PutValue(i, bAudio && (uiRead != 0 || bAdded) ? 1 : 0);
            }
            if (bGone)
            {
                m_oGone.insert({ oField.m_uiOffset, oField.m_uiDepth });
            }
        }
        if (!oEmptied.empty())
        {
            ExpectDescriptors(uiBlock, oEmptied);
        }
        m_uiDetaileds += m_aoBlocks[uiBlock].m_uiDetaileds;
    }

    // The places of the base block's timings then hold those that are left, in their order, and after them empty ones.
    // In a CTA-861 block the timings, of which the removed ones are left out, are before its other descriptors.
    void ExpectDescriptors(size_t uiBlock, const CNumbers& oEmptied)
    {
        std::vector<unsigned int> auiPlaces;
        std::vector<unsigned int> auiLast;
        std::vector<unsigned int> auiSorted;
        const unsigned int uiDepth = m_oRead.Get(m_oRead.ListBlock(uiBlock).front()).m_uiDepth + 1;
        for (const unsigned int i : m_oRead.ListBlock(uiBlock))
        {
            const CField& oField = m_oRead.Get(i);
            const bool bTiming = m_oRead.Is(i, eZorEdidField_BaseDetailed);
            const bool bBase = oField.m_eList == CZorEdidMap::eList_Detailed && oField.m_uiTimings != 0;
            const bool bCta = oField.m_uiDepth == uiDepth && oField.m_uiEnd > i + 1 && IsBehindDataBlocks(oField);
            if (uiBlock == 0 ? bBase : bCta)
            {
                auiPlaces.push_back(oField.m_uiOffset);
                const bool bLast = uiBlock == 0 ? oEmptied.contains(oField.m_uiOffset) : !bTiming;
                (bLast ? auiLast : auiSorted).push_back(oField.m_uiOffset);
            }
        }
        auiSorted.insert(auiSorted.end(), auiLast.begin(), auiLast.end());
        const CBytes aui8Before = m_aui8Expected;
        for (size_t i = 0; i < auiPlaces.size(); ++i)
        {
            const auto itBytes = aui8Before.begin() + static_cast<std::ptrdiff_t>(auiSorted[i]);
            Put(auiPlaces[i], CBytes(itBytes, itBytes + ZorStandards::BaseBlock::gsc_uiDescriptorSize));
            if (uiBlock != 0 && oEmptied.contains(auiSorted[i]))
            {
                m_oGone.insert({ auiPlaces[i], uiDepth });
            }
        }
    }

    bool IsBehindDataBlocks(const CField& oField) const
    {
        const unsigned int uiBlock = oField.m_uiOffset / gsc_uiBlockSize * gsc_uiBlockSize;
        return oField.m_uiOffset >= uiBlock + m_aui8Expected[uiBlock + ZorStandards::Cta::gsc_uiDetailedStartOffset];
    }

    // As the edits write them, which must say what is wanted. Of the 18 bytes only rates, the flags of their offsets,
    // the clock, and its precision with CVT can have changed.
    void ExpectLimits(const CField& oField, const SLimits& oLimits)
    {
        using namespace ZorStandards::Descriptors;
        unsigned char* pui8Expected = m_aui8Expected.data() + oField.m_uiOffset;
        CBytes aui8Limits(pui8Expected, pui8Expected + oField.m_uiLength);
        const unsigned int uiRevision = ZorStandards::BaseBlock::ReadRevision(m_aui8Expected.data());
        if (!WriteLimits(aui8Limits.data(), uiRevision, oLimits) ||
            ReadRangeLimits(aui8Limits.data(), uiRevision) != oLimits)
        {
            return;
        }
        const bool bRevision4 = uiRevision >= ZorStandards::BaseBlock::gsc_uiVideoInputRevision;
        const bool bCvt = bRevision4 && gsc_oFormula.Read(pui8Expected) == gsc_uiCvtFormula;
        const auto fnTake = [&](const ZorStandards::SPlace& oPlace, bool bMayChange) {
            oPlace.Write(pui8Expected, oPlace.Read(bMayChange ? aui8Limits.data() : pui8Expected));
        };
        for (const SRatePlaces& oRates : { gsc_oVerticalRates, gsc_oHorizontalRates })
        {
            fnTake(oRates.m_oMinimum, true);
            fnTake(oRates.m_oMaximum, true);
            fnTake(oRates.m_oOffsets, bRevision4);
        }
        fnTake(gsc_oMaxPixelClock, true);
        fnTake(gsc_oClockPrecision, bCvt);
    }

    // The image size stays, and the stereo viewing unless it is cleared; borders are 0, and the syncs are separate
    // digital ones.
    void ExpectPreferred(size_t uiOffset, const SBlockEdits& oEdits)
    {
        constexpr size_t uiImageSize = 12; // of 18 bytes: three, then two of borders, and the flags
        constexpr size_t uiFlags = 17;
        constexpr unsigned int uiModeFlags = 0x86; // interlaced, polarities
        const unsigned int uiStereo = oEdits.m_bStereoCleared ? 0 : m_aui8Expected[uiOffset + uiFlags] & 0x61U;
        CVidParamTimingGeneric oTiming;
        if (m_oEdid.GetBaseDetailed(0, &oTiming) != 0 && IsSameMode(oTiming, oEdits.m_oPreferred))
        {
            const unsigned char* pui8Edited = m_oEdid.GetBaseBlock() + uiOffset;
            Put(uiOffset, CBytes(pui8Edited, pui8Edited + uiImageSize));
            Put(uiOffset + uiImageSize + 3,
                { 0, 0, static_cast<unsigned char>((pui8Edited[uiFlags] & uiModeFlags) | uiStereo | 0x18) });
        }
    }

    // How many are gone of the first detailed timings of the base block and then the CTA-861 blocks: the native ones.
    unsigned int CountRemoved(unsigned int uiNatives) const
    {
        unsigned int uiRemoved = 0;
        unsigned int uiBefore = 0;
        for (const SEditedBlock& oBlock : m_aoBlocks)
        {
            for (const unsigned int uiNumber : oBlock.m_oEdits.m_oDetailed)
            {
                uiRemoved += uiBefore + uiNumber < uiNatives ? 1U : 0U;
            }
            uiBefore += &oBlock == m_aoBlocks.data() || IsCea(oBlock) ? oBlock.m_uiDetaileds : 0;
        }
        return uiRemoved;
    }

    // ---- What the comparison leaves out ----

    static bool TakeOut(const CBytes& aui8Bytes, std::vector<CBytes>& aaui8From)
    {
        const auto itFound = std::ranges::find(aaui8From, aui8Bytes);
        const bool bFound = itFound != aaui8From.end();
        aaui8From.erase(itFound, itFound + (bFound ? 1 : 0));
        return bFound;
    }

    // Empty, or what is missing or wrong there.
    std::string LeaveOut(size_t uiBlock)
    {
        const SBlockEdits& oEdits = m_aoBlocks[uiBlock].m_oEdits;
        const std::vector<unsigned int> auiExpected = m_oExpected.ListBlock(uiBlock);
        const std::vector<unsigned int> auiEdited = m_oEdited.ListBlock(uiBlock);
        const bool bPairs = uiBlock == 0 && !oEdits.m_oStandard.empty();
        // Natives are lowered in blocks that no edit names, too. Without a change a wrong checksum stays.
        const CBytes aui8Read = m_oRead.GetBytes(m_oRead.ListBlock(uiBlock)[0]);
        const bool bNamed = oEdits.IsNamed() || m_oExpected.GetBytes(auiExpected[0]) != aui8Read;
        const bool bSum = oEdits.m_bChecksum || (bNamed && m_oEdited.GetBytes(auiEdited[0]) != aui8Read);
        std::vector<CBytes> aaui8Kept; // audio descriptors and speaker data blocks
        std::vector<CBytes> aaui8Unused = { { 1, 1 } };
        std::vector<CBytes> aaui8Added;
        std::string sFault;
        for (const unsigned int i : auiExpected)
        {
            const CField& oField = m_oExpected.Get(i);
            const bool bUnused = bPairs && IsUnusedPair(m_oExpected, i);
            aaui8Unused.resize(aaui8Unused.size() + (bUnused ? 1 : 0), m_oExpected.GetBytes(i));
            if (bUnused || m_oGone.contains({ oField.m_uiOffset, oField.m_uiDepth }) ||
                (bSum && oField.m_eKind == CZorEdidMap::eKind_Checksum))
            {
                m_oExpected.m_oWithout.insert(i);
            }
            else if (IsEntry(m_oExpected, i))
            {
                aaui8Kept.push_back(m_oExpected.GetBytes(i));
            }
        }
        for (const CAudio& oAudio : oEdits.m_aoAudioAdded)
        {
            aaui8Added.push_back(EncodeAudio(oAudio, CBytes(ZorStandards::Audio::gsc_uiDescriptorSize)));
        }
        if (oEdits.m_uiSpeakers != 0 && oEdits.m_bSpeakersAdded)
        {
            aaui8Added.push_back({ 0x83, static_cast<unsigned char>(oEdits.m_uiSpeakers),
                                   static_cast<unsigned char>(oEdits.m_uiSpeakers >> 8), 0 });
        }
        size_t uiKept = 0;
        for (const unsigned int i : auiEdited)
        {
            const bool bSeal = bSum && m_oEdited.Get(i).m_eKind == CZorEdidMap::eKind_Checksum;
            const bool bKept =
                IsEntry(m_oEdited, i) && uiKept < aaui8Kept.size() && aaui8Kept[uiKept] == m_oEdited.GetBytes(i);
            uiKept += bKept ? 1 : 0;
            sFault = bSeal && m_oEdited.Get(i).m_uiNotes != 0 ? Name(m_oEdited, i) : sFault;
            if (bSeal ||
                (bPairs && IsUnusedPair(m_oEdited, i) &&
                 std::ranges::find(aaui8Unused, m_oEdited.GetBytes(i)) != aaui8Unused.end()) ||
                (!bKept && IsEntry(m_oEdited, i) && TakeOut(m_oEdited.GetBytes(i), aaui8Added)))
            {
                m_oEdited.m_oWithout.insert(i);
            }
        }
        return aaui8Added.empty() ? sFault : Name(m_oExpected, auiExpected.front());
    }

    const CEdid& m_oEdid; // the edited image
    const std::vector<SEditedBlock>& m_aoBlocks;
    CBytes m_aui8Expected;
    SMapPart m_oRead;
    SMapPart m_oExpected;
    SMapPart m_oEdited;
    std::set<std::pair<unsigned int, unsigned int>> m_oGone; // offsets and depths
    unsigned int m_uiDetaileds = 0;                          // of the blocks before
};
} // namespace

std::string VerifyEdits(const CBytes& aui8Read, const CBytes& aui8Edited, const std::vector<SEditedBlock>& aoBlocks)
{
    CEdid oEdited;
    if (aui8Read.size() != aui8Edited.size() ||
        oEdited.SetEdidBuffer(aui8Edited.data(), static_cast<unsigned int>(aui8Edited.size()), 0) == 0)
    {
        return "the edited image cannot be loaded";
    }
    const std::string sFault = CVerification(oEdited, aui8Read, aui8Edited, aoBlocks).Run();
    return sFault.empty() ? "" : sFault + " would read differently";
}
