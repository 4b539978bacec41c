// Removal of timings: by their numbers in the lists, by mode and by code.

#include <algorithm>
#include <tuple>

#include "EdidUtils.h"
#include "EditDisplayId.h"
#include "EditImage.h"
#include "EditPlaces.h"
#include "EditPositions.h"
#include "ExactTimings.h"
#include "ImageModes.h"
#include "LoadedImage.h"
#include "MapText.h"
#include "Standards/BaseBlock.h"
#include "Standards/ExtensionBlocks.h"
#include "Standards/HdmiBlocks.h"
#include "Standards/Modes.h"
#include "Standards/Ouis.h"
#include "Standards/VideoCodes.h"
#include "ZorEdidRules.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;

// Short video references of detailed timings, the first one of the image first.
constexpr unsigned int gsc_uiFirstReference = 129;
constexpr unsigned int gsc_uiReferencesEnd = 145;

constexpr const char* gsc_pszReferred =
    "a video format preference or native resolution data block refers to its video code";
constexpr const char* gsc_pszDisputedHdmi =
    "HDMI codes at different places for different readers; --set cta.hdmi.i-latency-fields-present=no makes it one";
constexpr const char* gsc_pszPreferred = "the preferred timing can only be replaced, by --preferred";

void Erase(CPresent& aiPresent, unsigned int uiPlace) { aiPresent.erase(aiPresent.begin() + uiPlace); }

// The first place of a timing that the image had when it was read; null without one.
const STimingOrigin* FindOrigin(const SEditedBlock& oBlock, unsigned int uiNumber)
{
    for (unsigned int i = 0; i < oBlock.m_aoOrigins.GetCount(); ++i)
    {
        if (oBlock.m_aoOrigins[i].m_uiIndex == uiNumber)
        {
            return &oBlock.m_aoOrigins[i];
        }
    }
    return nullptr;
}

// Whether a video data block or an HDMI data block names the code of a timing.
bool IsOrdinary(const SEditedBlock& oBlock, unsigned int uiNumber)
{
    const STimingOrigin* poOrigin = FindOrigin(oBlock, uiNumber);
    for (unsigned int i = 0; poOrigin != nullptr && i < oBlock.m_aoOrigins.GetCount(); ++i)
    {
        const STimingOrigin& oOther = oBlock.m_aoOrigins[i];
        if (oOther.m_uiCode == poOrigin->m_uiCode && oOther.m_e420 == STimingOrigin::e420_No)
        {
            return true;
        }
    }
    return false;
}

// Whether the library and the map read the video fields of an HDMI data block at different places.
bool HasDisputedHdmi(const CEdidExtBlockCEA861& oCea)
{
    using namespace ZorStandards;
    const Cta::SPayload oCollection = Cta::FindCollection(oCea.GetData(), gsc_uiBlockSize);
    Cta::CDataBlockWalk oWalk(oCea.GetData(), oCollection.m_uiOffset + oCollection.m_uiLength);
    bool bDisputed = false;
    while (!bDisputed && oWalk.Next({ Cta::gsc_uiVendorTag, false }))
    {
        const CRecordBytes oPayload(oCea.GetData() + oWalk.GetPayload().m_uiOffset, oWalk.GetLength());
        bDisputed = oPayload.Get(Cta::gsc_oOui) == gsc_uiOuiHdmi &&
                    Hdmi::IsVideoOffsetDisputed(oPayload.GetPart(Cta::gsc_uiOuiSize, oPayload.GetSize()));
    }
    return bDisputed;
}

// The bytes that the library lists as a code, but for those of 4:2:0 data blocks.
CCodes FindListedCodes(const CEdidExtBlockCEA861& oCea, unsigned int uiCode, bool bAsListed)
{
    CCodes oCodes;
    CTimingOrigins aoOrigins;
    oCea.ListStandardOrigins(aoOrigins);
    for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
    {
        const STimingOrigin& oOrigin = aoOrigins[i];
        const unsigned int uiByte = oCea.GetData()[oOrigin.m_uiCodeByte];
        const bool bOther = ZorStandards::IsListedAsOther(uiByte);
        if (oOrigin.m_uiCode == uiCode && oOrigin.m_e420 == STimingOrigin::e420_No && (bAsListed || !bOther))
        {
            oCodes[oOrigin.m_uiCodeByte] = bOther ? uiByte : uiCode;
        }
    }
    return oCodes;
}

// What distinguishes the ordinary timings of a block, in their order: code, whether at 1000/1001, native.
using CKeys = std::vector<std::tuple<unsigned int, int, int>>;

CKeys ListKeys(const CEdidExtBlockCEA861& oCea)
{
    CKeys aoKeys;
    CTimingOrigins aoOrigins;
    oCea.ListStandardOrigins(aoOrigins);
    for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
    {
        const STimingOrigin& oOrigin = aoOrigins[i];
        if (oOrigin.m_e420 == STimingOrigin::e420_No && oOrigin.m_bRepeated == 0)
        {
            CVidParamTimingGeneric oTiming;
            int iNative = 0;
            oCea.GetStandard(oOrigin.m_uiIndex, &oTiming, &iNative);
            aoKeys.emplace_back(oOrigin.m_uiCode, oOrigin.m_bVariant, iNative);
        }
    }
    return aoKeys;
}

CPresent FindNumbers(const CKeys& aoRead, const CKeys& aoPresent)
{
    CPresent aiNumbers;
    for (const auto& oKey : aoPresent)
    {
        aiNumbers.push_back(static_cast<int>(std::find(aoRead.begin(), aoRead.end(), oKey) - aoRead.begin()));
    }
    return aiNumbers;
}

// Whether the timing is of a 4:2:0 data block, and not of a map that selects codes.
bool IsNamedBy420(const SEditedBlock& oBlock, unsigned int uiNumber)
{
    for (unsigned int i = 0; i < oBlock.m_aoOrigins.GetCount(); ++i)
    {
        const STimingOrigin& oOrigin = oBlock.m_aoOrigins[i];
        if (oOrigin.m_uiIndex == uiNumber && oOrigin.m_e420 == STimingOrigin::e420_Only)
        {
            return true;
        }
    }
    return false;
}

// Whether bytes after the descriptors of a block and past a gap look like timings.
bool HasLostTimings(const CBytes& aui8Block)
{
    CZorEdidMap oMap;
    CBytes aui8Image(gsc_uiBlockSize);
    aui8Image.insert(aui8Image.end(), aui8Block.begin(), aui8Block.end());
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
    {
        if (oMap.GetNote(i).m_eRule == eZorEdidRule_CtaLostTimings)
        {
            return true;
        }
    }
    return false;
}

bool IsFirstDescriptor(const SZorImageMode& oPlace)
{
    return oPlace.m_uiOffset == ZorStandards::BaseBlock::gsc_uiDescriptorsOffset;
}

bool IsInDescriptor(const SZorImageMode& oPlace)
{
    return oPlace.m_uiOffset >= ZorStandards::BaseBlock::gsc_uiDescriptorsOffset && oPlace.m_uiOffset < gsc_uiBlockSize;
}
} // namespace

// ---- Numbers of the lists ----

std::string CEditImage::RemoveStandard(unsigned int uiNumber)
{
    const SPlace oPlace = Find(&SEditedBlock::m_uiStandards, uiNumber);
    if (oPlace.m_poBlock == nullptr)
    {
        return NameRange(&SEditedBlock::m_uiStandards, "standard timings");
    }
    SEditedBlock& oBlock = *oPlace.m_poBlock;
    if (oBlock.m_iExtension >= 0)
    {
        return RemoveCode(oBlock, oPlace.m_uiNumber);
    }
    unsigned int uiPlace = 0;
    if (FindPresent(oBlock.m_aiStandards, oPlace.m_uiNumber, uiPlace))
    {
        if (m_oEdid.RemoveStandardKeepingDescriptors(uiPlace) == 0)
        {
            return "the library refuses it";
        }
        Erase(oBlock.m_aiStandards, uiPlace);
        oBlock.m_oEdits.m_oStandard.insert(oPlace.m_uiNumber);
    }
    return "";
}

// Why the code of a timing can never go.
std::string CEditImage::NameRefusal(const SEditedBlock& oBlock, CEdidExtBlockCEA861::ERemoval eRemoval) const
{
    switch (eRemoval)
    {
    case CEdidExtBlockCEA861::eRemoval_Damaged:
        return NameBlock(oBlock) + " " + msc_pszDamaged;
    case CEdidExtBlockCEA861::eRemoval_NoCode:
        return "it is in a YCbCr 4:2:0 video data block, which --remove-vic and --remove edit";
    case CEdidExtBlockCEA861::eRemoval_3dFields:
        return NameBlock(oBlock) + " has 3D formats for all of its first 16 video codes, or damaged ones";
    default:
        return NameBlock(oBlock) + " " + msc_pszInUse;
    }
}

// Whether a block that prefers timings, or names the native one, has a short video reference in this range.
bool CEditImage::IsReferred(unsigned int uiFirst, unsigned int uiEnd) const
{
    const auto itFirst = m_oReferences.lower_bound(uiFirst);
    return itFirst != m_oReferences.end() && *itFirst < uiEnd;
}

// Takes out the bytes of the present block that fnFind lists.
std::string CEditImage::RemoveCodes(SEditedBlock& oBlock, const CCodeSearch& fnFind)
{
    const auto poRead = CopyCea(oBlock.m_aui8Bytes.data());
    const CCodes oRead = fnFind(*poRead);
    for (const auto& [uiOffset, uiCode] : oRead)
    {
        if (IsReferred(uiCode, uiCode + 1))
        {
            return gsc_pszReferred;
        }
    }
    if (fnFind(*GetCea(oBlock)).empty())
    {
        return "";
    }
    if (HasDisputedHdmi(*GetCea(oBlock)))
    {
        return NameBlock(oBlock) + " has " + gsc_pszDisputedHdmi;
    }
    std::string sReason = EditCea(oBlock, [&](CEdidExtBlockCEA861& oCea) {
        std::vector<unsigned int> auiOffsets;
        for (const auto& [uiOffset, uiCode] : fnFind(oCea))
        {
            auiOffsets.push_back(uiOffset);
        }
        const CEdidExtBlockCEA861::ERemoval eRemoval =
            oCea.RemoveCodesAt(auiOffsets.data(), static_cast<unsigned int>(auiOffsets.size()));
        return eRemoval == CEdidExtBlockCEA861::eRemoval_Possible ? "" : NameRefusal(oBlock, eRemoval);
    });
    if (sReason.empty())
    {
        for (const auto& [uiOffset, uiCode] : oRead)
        {
            oBlock.m_oEdits.m_oCodes.insert(uiOffset);
        }
        oBlock.m_aiStandards = FindNumbers(ListKeys(*poRead), ListKeys(*GetCea(oBlock)));
    }
    return sReason;
}

// Without m_bAsListed, bytes that the library lists as another code do not count as that code, and have to be named by
// their own.
std::string CEditImage::RemoveCode(SEditedBlock& oBlock, unsigned int uiNumber)
{
    const STimingOrigin* poOrigin = FindOrigin(oBlock, uiNumber);
    const unsigned int uiByte = poOrigin != nullptr ? oBlock.m_aui8Bytes[poOrigin->m_uiCodeByte] : 0;
    if (!m_bAsListed && ZorStandards::IsListedAsOther(uiByte))
    {
        const std::string sByte = std::to_string(uiByte);
        return DescribeOtherCode(uiByte) + (ZorStandards::FindVideoCode(uiByte) != nullptr
                                                ? ", by CTA-861-H it is VIC " + sByte + ", which --remove-vic " +
                                                      sByte + " removes; --as-listed removes it as the list has it"
                                                : "; CTA-861-H has no code " + sByte + "; --remove-vic " + sByte +
                                                      " or --as-listed removes the byte");
    }
    if (!IsOrdinary(oBlock, uiNumber))
    {
        return NameRefusal(oBlock, CopyCea(oBlock.m_aui8Bytes.data())->TryRemoval(uiNumber));
    }
    std::string sReason = RemoveCodes(oBlock, [&](const CEdidExtBlockCEA861& oCea) {
        return FindListedCodes(oCea, poOrigin->m_uiCode, m_bAsListed);
    });
    return !sReason.empty() ? sReason
           : IsNamedBy420(oBlock, uiNumber)
               ? "a YCbCr 4:2:0 video data block has it as well, which --remove-vic and --remove edit"
               : "";
}

// The base block's descriptors and those of the CTA-861 blocks are counted together, those of DisplayID blocks are not.
unsigned int CEditImage::CountDetailedAhead(const SEditedBlock& oBlock)
{
    unsigned int uiCount = 0;
    for (const SEditedBlock* poAhead = m_aoBlocks.data(); poAhead != &oBlock; ++poAhead)
    {
        const bool bCounts = poAhead == m_aoBlocks.data() || GetCea(*poAhead) != nullptr;
        uiCount += bCounts ? static_cast<unsigned int>(poAhead->m_aiDetaileds.size()) : 0;
    }
    return uiCount;
}

// Every CTA-861 block counts how many of the first detailed timings are native: one less if the removed one was.
void CEditImage::LowerNatives(unsigned int uiPlace)
{
    for (const SEditedBlock& oBlock : m_aoBlocks)
    {
        CEdidExtBlockCEA861* poCea = GetCea(oBlock);
        const unsigned int uiNatives =
            poCea != nullptr ? ZorStandards::Cta::gsc_oNativeCount.Read(poCea->GetData()) : 0;
        if (uiPlace < uiNatives)
        {
            poCea->SetNativeDetailedCount(uiNatives - 1); // gives 0 below revision 2, which has no such number
        }
    }
}

// Moves the timings of the base block that follow an emptied descriptor up, each to the place of the one before it:
// no detailed timing may follow another descriptor. aoOrigins are the places before the removal; display descriptors
// stay where they are.
void CEditImage::CloseGap(const CTimingOrigins& aoOrigins, unsigned int uiPlace)
{
    const unsigned char* pui8Base = m_oEdid.GetBaseBlock();
    CBytes aui8Base(pui8Base, pui8Base + gsc_uiBlockSize);
    for (unsigned int i = uiPlace; i + 1 < aoOrigins.GetCount(); ++i)
    {
        const auto itDescriptor = aui8Base.begin() + aoOrigins[i].m_uiOffset;
        std::swap_ranges(itDescriptor, itDescriptor + ZorStandards::BaseBlock::gsc_uiDescriptorSize,
                         aui8Base.begin() + aoOrigins[i + 1].m_uiOffset);
    }
    SetBase(aui8Base);
}

// Without it, the removal of the listed timings could leave another descriptor before the rest, and the library, and
// others that end there, would list none. The numbers of the timings change, which nothing may refer to.
std::string CEditImage::MoveTimingsFirst(SEditedBlock& oBlock)
{
    const CEdidExtBlockCEA861& oCea = *GetCea(oBlock);
    CBytes aui8Block = GetWithTimingsFirst(oCea);
    const unsigned int uiListed = oCea.GetDetailedCount();
    const unsigned int uiCount = CopyCea(aui8Block.data())->GetDetailedCount();
    if (uiCount == uiListed)
    {
        return "";
    }
    const unsigned int uiFirst = CountDetailedAhead(oBlock) + uiListed;
    const auto fnCounts = [&](const SEditedBlock& oOther) {
        const CEdidExtBlockCEA861* poCea = GetCea(oOther);
        return poCea != nullptr && ZorStandards::Cta::gsc_oNativeCount.Read(poCea->GetData()) > uiFirst;
    };
    if (std::ranges::any_of(m_aoBlocks, fnCounts) || IsReferred(gsc_uiFirstReference + uiFirst, gsc_uiReferencesEnd))
    {
        return NameBlock(oBlock) +
               " has timings that follow another descriptor, and native timings or those of a video "
               "format preference are counted past them";
    }
    CBytes aui8Image = GetBytes();
    CEdidUtils::StoreChecksum(gsc_uiBlockSize, aui8Block.data());
    std::copy(aui8Block.begin(), aui8Block.end(),
              aui8Image.begin() + (&oBlock - m_aoBlocks.data()) * static_cast<std::ptrdiff_t>(gsc_uiBlockSize));
    m_oEdid.SetEdidBuffer(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()), 0);
    for (unsigned int i = uiListed; i < uiCount; ++i)
    {
        oBlock.m_aiDetaileds.push_back(static_cast<int>(oBlock.m_uiDetaileds + i - uiListed));
    }
    m_asNotes.push_back(NameBlock(oBlock) + ": the timings that followed another descriptor are now before it");
    return "";
}

std::string CEditImage::RemoveDetailed(unsigned int uiNumber)
{
    const SPlace oPlace = Find(&SEditedBlock::m_uiDetaileds, uiNumber);
    if (oPlace.m_poBlock == nullptr)
    {
        return NameRange(&SEditedBlock::m_uiDetaileds, "detailed timings");
    }
    return RemoveDetailedOf(*oPlace.m_poBlock, oPlace.m_uiNumber);
}

// One of a CTA-861 block that has no number in the lists, because it comes after another descriptor.
std::string CEditImage::RemoveUnlisted(const SZorImageMode& oPlace)
{
    SEditedBlock& oBlock = m_aoBlocks[oPlace.m_uiOffset / gsc_uiBlockSize];
    const auto poRead = CopyCea(oBlock.m_aui8Bytes.data());
    const unsigned char* pui8Start =
        poRead->GetData() + poRead->GetData()[ZorStandards::Cta::gsc_uiDetailedStartOffset];
    const unsigned char* pui8Timing = poRead->GetData() + oPlace.m_uiOffset % gsc_uiBlockSize;
    unsigned int uiNumber = 0;
    for (; pui8Start < pui8Timing; pui8Start += ZorStandards::Cta::gsc_uiDetailedSize)
    {
        uiNumber += ZorStandards::Descriptors::HasPixelClock(pui8Start) ? 1U : 0U;
    }
    return RemoveDetailedOf(oBlock, uiNumber);
}

// The number is the block's own.
std::string CEditImage::RemoveDetailedOf(SEditedBlock& oBlock, unsigned int uiNumber)
{
    if (oBlock.m_oEdits.m_oDetailed.contains(uiNumber))
    {
        return "";
    }
    CEdidExtBlockCEA861* poCea = GetCea(oBlock);
    if (oBlock.m_iExtension >= 0 && poCea == nullptr)
    {
        return ""; // of a DisplayID block, and goes later, by RemoveTiming
    }
    if (poCea != nullptr && !AreDataBlocksExact(*poCea))
    {
        return NameBlock(oBlock) + " " + msc_pszDamaged;
    }
    if (poCea != nullptr && HasLostTimings(oBlock.m_aui8Bytes))
    {
        return NameBlock(oBlock) + " has bytes past a gap after its detailed timings that look like timings, and that "
                                   "would move";
    }
    if (std::string sReason = poCea != nullptr ? MoveTimingsFirst(oBlock) : ""; !sReason.empty())
    {
        return sReason;
    }
    poCea = GetCea(oBlock);
    unsigned int uiPlace = 0;
    if (!FindPresent(oBlock.m_aiDetaileds, uiNumber, uiPlace))
    {
        return "the library refuses it";
    }
    const unsigned int uiPlaceOfAll = CountDetailedAhead(oBlock) + uiPlace;
    if (IsReferred(gsc_uiFirstReference + uiPlaceOfAll, gsc_uiReferencesEnd))
    {
        return gsc_szReferredByPosition;
    }
    CTimingOrigins aoOrigins;
    m_oEdid.CEdidBase::ListDetailedOrigins(aoOrigins);
    const bool bRemoved = (poCea != nullptr ? poCea->RemoveDetailed(uiPlace) : m_oEdid.RemoveDetailed(uiPlace)) != 0;
    if (!bRemoved)
    {
        return poCea == nullptr && uiPlace == 0 ? gsc_pszPreferred : "the library refuses it";
    }
    if (poCea == nullptr)
    {
        CloseGap(aoOrigins, uiPlace);
    }
    LowerNatives(uiPlaceOfAll);
    Erase(oBlock.m_aiDetaileds, uiPlace);
    oBlock.m_oEdits.m_oDetailed.insert(uiNumber);
    const size_t uiLeft = poCea != nullptr ? poCea->GetDetailedCount() : m_oEdid.GetBaseDetailedCount();
    return uiLeft == oBlock.m_aiDetaileds.size() ? "" : NameBlock(oBlock) + " " + msc_pszInUse;
}

std::string CEditImage::RemoveEstablished(unsigned int uiNumber)
{
    if (uiNumber >= m_auiEstablished.size())
    {
        return m_auiEstablished.empty()
                   ? "the image has no established timings"
                   : "the image has established timings 0 to " + std::to_string(m_auiEstablished.size() - 1);
    }
    m_oEdid.SetEstablishedFromId(static_cast<CEdidBase::EEstablishedTiming>(m_auiEstablished[uiNumber]), 0, 1);
    for (unsigned int i = 0; i < 3; ++i)
    {
        const unsigned int uiRemoved = m_auiEstablished[uiNumber] >> (8 * i) & 0xFFU;
        m_aoBlocks.front().m_oEdits.m_oBits[ZorStandards::BaseBlock::gsc_uiEstablishedOffset + i].m_uiMask |= uiRemoved;
    }
    return "";
}

// ---- Modes and codes ----

// Those in display descriptors of the base block, which stay where they are.
std::string CEditImage::RemoveFromDescriptors(const CPlaces& aoPlaces)
{
    const unsigned char* pui8Base = m_oEdid.GetBaseBlock();
    CBytes aui8Base(pui8Base, pui8Base + gsc_uiBlockSize);
    unsigned int uiDone = 0; // the rates of a CVT code go together
    for (const SZorImageMode& oPlace : aoPlaces)
    {
        if (!IsInDescriptor(oPlace) || oPlace.m_uiOffset == uiDone)
        {
            continue;
        }
        unsigned char* pui8Field = aui8Base.data() + oPlace.m_uiOffset;
        if (oPlace.m_eField == eZorEdidField_BaseStandard)
        {
            pui8Field[0] = pui8Field[1] = ZorStandards::gsc_uiUnusedStandard;
        }
        else if (oPlace.m_eField == eZorEdidField_BaseEstablished3Mode)
        {
            *pui8Field = static_cast<unsigned char>(*pui8Field & ~(1U << oPlace.m_uiBit));
        }
        else if (oPlace.m_eField == eZorEdidField_BaseCvtCode &&
                 !RemoveCvtRates(pui8Field, oPlace.m_uiOffset, aoPlaces))
        {
            return NamePlaces(GetBytes(), { oPlace }) + " prefers this rate and has others";
        }
        uiDone = oPlace.m_eField == eZorEdidField_BaseCvtCode ? oPlace.m_uiOffset : uiDone;
    }
    for (unsigned int i = 0; i < gsc_uiBlockSize; ++i)
    {
        const unsigned int uiChanged = static_cast<unsigned int>(pui8Base[i] ^ aui8Base[i]);
        if (uiChanged != 0)
        {
            SBits& oBits = m_aoBlocks.front().m_oEdits.m_oBits[i];
            oBits.m_uiMask |= uiChanged;
            oBits.m_uiBits = aui8Base[i] & oBits.m_uiMask;
        }
    }
    if (!std::equal(aui8Base.begin(), aui8Base.end(), pui8Base)) // else a wrong checksum stays
    {
        SetBase(aui8Base);
    }
    return "";
}

// What has a number in the lists, but for codes, and detailed timings that lack one.
std::string CEditImage::RemoveListed(const SZorImageMode& oPlace)
{
    const SBlockEdits& oBase = m_aoBlocks.front().m_oEdits;
    if (oPlace.m_eList == SZorImageMode::eList_Established)
    {
        return RemoveEstablished(oPlace.m_uiNumber);
    }
    if (oPlace.m_eList == SZorImageMode::eList_Detailed && !(IsFirstDescriptor(oPlace) && oBase.m_bPreferred))
    {
        return RemoveDetailed(oPlace.m_uiNumber);
    }
    if (oPlace.m_eList == SZorImageMode::eList_None && oPlace.m_eField == eZorEdidField_BaseDetailed &&
        GetCea(m_aoBlocks[oPlace.m_uiOffset / gsc_uiBlockSize]) != nullptr)
    {
        return RemoveUnlisted(oPlace);
    }
    return oPlace.m_eList == SZorImageMode::eList_Standard && oPlace.m_uiOffset < gsc_uiBlockSize
               ? RemoveStandard(oPlace.m_uiNumber)
               : "";
}

// From all places but the timings of DisplayID, which go later, by RemoveDisplayIdTimings; or the reasons of those that
// keep it.
std::string CEditImage::Remove(const SWanted& oWanted)
{
    const CPlaces aoRead = FindPlaces(m_aui8Read, oWanted);
    const CPlaces aoPresent = FindPlaces(GetBytes(), oWanted);
    const auto fnFind = [&](const CEdidExtBlockCEA861& oCea) { return FindCodes(oCea, oWanted); };
    bool bFound = !aoRead.empty() || !aoPresent.empty();
    std::string sReasons;
    const auto fnAdd = [&sReasons](const std::string& sReason) {
        sReasons += (sReasons.empty() || sReason.empty() ? "" : "; ") + sReason;
    };
    for (const SZorImageMode& oPlace : aoRead)
    {
        const std::string sReason = IsDisplayIdTiming(m_aui8Read, oPlace) ? "" : RemoveListed(oPlace);
        fnAdd(sReason.empty() ? "" : NamePlaces(m_aui8Read, { oPlace }) + ": " + sReason);
    }
    fnAdd(RemoveFromDescriptors(aoPresent));
    for (SEditedBlock& oBlock : m_aoBlocks)
    {
        if (GetCea(oBlock) != nullptr && !fnFind(*CopyCea(oBlock.m_aui8Bytes.data())).empty())
        {
            fnAdd(RemoveCodes(oBlock, fnFind));
            bFound = true;
        }
    }
    if (!bFound)
    {
        return RefuseMissing(m_aui8Read, oWanted);
    }
    CPlaces aoLeft = FindPlaces(GetBytes(), oWanted);
    std::erase_if(aoLeft, [this](const SZorImageMode& oPlace) { return IsDisplayIdTiming(m_aui8Read, oPlace); });
    if (sReasons.empty() && !aoLeft.empty())
    {
        const bool bPreferred = std::ranges::any_of(aoLeft, IsFirstDescriptor);
        sReasons = NamePlaces(GetBytes(), aoLeft) + ": " + (bPreferred ? gsc_pszPreferred : NameKeeper(aoLeft.front()));
    }
    if (sReasons.empty())
    {
        NoteWhole(oWanted, aoRead);
        NoteLeft(oWanted);
    }
    return sReasons;
}

// Why no edit reaches a place.
std::string CEditImage::NameKeeper(const SZorImageMode& oPlace)
{
    const SEditedBlock& oBlock = m_aoBlocks[oPlace.m_uiOffset / gsc_uiBlockSize];
    const unsigned int uiTag = oBlock.m_aui8Bytes.front();
    return uiTag == ZorStandards::Vtb::gsc_uiTag ? "edits do not reach video timing blocks"
           : uiTag == gsc_uiDisplayIdTag         ? "only --set reaches CTA-861 data blocks in a DisplayID block"
           : GetCea(oBlock) == nullptr           ? "the library does not read " + NameBlock(oBlock)
                                                 : "only --remove-part and --set reach timings of this data block";
}

// A code at the rate and at 1000/1001 of it is one byte: the nominal rate goes when the other one is named.
void CEditImage::NoteWhole(const SWanted& oWanted, const CPlaces& aoRemoved)
{
    const SZorMode::SRate& oRate = oWanted.m_oMode.m_oNominalRate;
    CNumbers oNamed;
    for (const SZorImageMode& oPlace : aoRemoved)
    {
        SZorMode oPartner = {};
        const SZorMode& oMode = oPlace.m_oMode;
        const bool bVic = oMode.m_eKind == SZorMode::eModeKind_Vic;
        const bool bCode = bVic || oMode.m_eKind == SZorMode::eModeKind_HdmiVic;
        if (bCode && oWanted.m_uiCode == 0 && oRate.m_ullDivisor != 1 && CZorEdidModes::GetPartner(oMode, oPartner) &&
            oNamed.insert(2 * oMode.m_uiCode + (bVic ? 1 : 0)).second)
        {
            m_asNotes.push_back((bVic ? "VIC " : "HDMI code ") + std::to_string(oMode.m_uiCode) + " also declares " +
                                GetModeName(oMode) + ", which goes with it");
        }
    }
}

// What is easily overlooked: of a whole rate a mode of its own at 1000/1001 of it, which is not meant, and of a code
// its mode, which other places may declare.
void CEditImage::NoteLeft(const SWanted& oWanted)
{
    SWanted oLeft = {};
    const bool bAsked = oWanted.m_uiCode != 0 ? ZorStandards::MakeVideoMode(oLeft.m_oMode, oWanted.m_uiCode)
                                              : GetWantedFraction(oWanted.m_oMode, oLeft.m_oMode);
    CPlaces aoLeft = bAsked ? FindPlaces(GetBytes(), oLeft) : CPlaces();
    std::erase_if(aoLeft, [&](const SZorImageMode& oPlace) { return IsPlaceOf(oPlace.m_oMode, oWanted); });
    if (!aoLeft.empty())
    {
        m_asNotes.push_back(GetWantedName(oLeft) + " stays: " + NamePlaces(GetBytes(), aoLeft));
    }
}
