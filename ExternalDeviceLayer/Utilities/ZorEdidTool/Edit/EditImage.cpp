// Each edit: the number at reading turned into the present one, a trial where an edit of the library could move bytes
// that are not named, the edit itself, and the reason when it is refused.

#include "EditImage.h"

#include <algorithm>
#include <memory>

#include "EdidUtils.h"
#include "LoadedImage.h"
#include "Standards/BaseBlock.h"
#include "Standards/DisplayIdSection.h"
#include "Standards/VideoCodes.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;

constexpr const char* gsc_pszDamaged = "is damaged: its data blocks do not end where its descriptors begin";
constexpr const char* gsc_pszReferred =
    "a data block that prefers timings, or names the native one, has its video code";
constexpr const char* gsc_pszInUse = "has bytes after its detailed timings that would read differently";

CPresent MakeNumbers(unsigned int uiCount)
{
    CPresent aiNumbers(uiCount);
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        aiNumbers[i] = static_cast<int>(i);
    }
    return aiNumbers;
}

void Erase(CPresent& aiPresent, unsigned int uiPlace) { aiPresent.erase(aiPresent.begin() + uiPlace); }

unsigned int FindCode(const SEditedBlock& oBlock, unsigned int uiNumber)
{
    for (unsigned int i = 0; i < oBlock.m_aoOrigins.GetCount(); ++i)
    {
        if (oBlock.m_aoOrigins[i].m_uiIndex == uiNumber)
        {
            return oBlock.m_aoOrigins[i].m_uiCode;
        }
    }
    return 0;
}

// Short video references of the blocks that prefer a timing or name the native one. 1 to 127 and 193 to 253 are video
// codes; 129 to 144 are the detailed timings 1 to 16, counted over the base block and then all CTA-861 blocks.
CBytes ListReferences(const CEdidExtBlockCEA861& oCea)
{
    using namespace ZorStandards::Cta;
    CBytes aui8References;
    ZorStandards::Cta::CDataBlockWalk oWalk = WalkDataBlocks(oCea);
    while (oWalk.Next({ CEdidExtBlockCEA861::eCea861Tag_Extended, false }))
    {
        const unsigned int uiTag = oWalk.GetLength() != 0 ? oWalk.GetByte(0) : 0;
        const unsigned int uiEnd = uiTag == gsc_uiExtendedPreference ? oWalk.GetLength()
                                   : uiTag == gsc_uiExtendedNative   ? std::min(2U, oWalk.GetLength())
                                                                     : 0;
        for (unsigned int i = 1; i < uiEnd; ++i)
        {
            aui8References.push_back(oWalk.GetByte(i));
        }
    }
    return aui8References;
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

std::unique_ptr<CEdidExtBlockCEA861> CopyCea(const unsigned char* pui8Bytes)
{
    return std::make_unique<CEdidExtBlockCEA861>(gsc_uiBlockSize, pui8Bytes, 0);
}

bool HasHdmiBlock(const CEdidExtBlockCEA861& oCea)
{
    constexpr unsigned int uiAllDepths = 7;
    const auto poCopy = CopyCea(oCea.GetData());
    unsigned int uiBits = 0;
    return poCopy->SetColorBitDepthSupport(uiAllDepths) != 0 && poCopy->GetColorBitDepthSupport(uiBits) != 0 &&
           uiBits == uiAllDepths;
}
} // namespace

CNumbers ListTimingsOfCode(const SEditedBlock& oBlock, unsigned int uiNumber)
{
    const unsigned int uiCode = FindCode(oBlock, uiNumber);
    CNumbers oTimings;
    bool bOrdinary = false;
    for (unsigned int i = 0; i < oBlock.m_aoOrigins.GetCount(); ++i)
    {
        const STimingOrigin& oOrigin = oBlock.m_aoOrigins[i];
        if (oOrigin.m_uiCode == uiCode)
        {
            oTimings.insert(oOrigin.m_uiIndex);
            bOrdinary = bOrdinary || oOrigin.m_e420 == STimingOrigin::e420_No;
        }
    }
    return bOrdinary ? oTimings : CNumbers();
}

bool FindPresent(const CPresent& aiPresent, unsigned int uiNumber, unsigned int& uiPlace)
{
    const auto oFound = std::find(aiPresent.begin(), aiPresent.end(), static_cast<int>(uiNumber));
    uiPlace = static_cast<unsigned int>(oFound - aiPresent.begin());
    return oFound != aiPresent.end();
}

// The clock of a descriptor counts in 10 kHz.
bool IsSameMode(const CVidParamTiming& oRead, const CVidParamTiming& oWanted)
{
    constexpr unsigned int uiClockUnit = 10;
    return oRead.GetHorizontalActive() == oWanted.GetHorizontalActive() &&
           oRead.GetVerticalActive() == oWanted.GetVerticalActive() &&
           oRead.GetHorizontalFrontPorch() == oWanted.GetHorizontalFrontPorch() &&
           oRead.GetHorizontalSync() == oWanted.GetHorizontalSync() &&
           oRead.GetHorizontalBackPorch() == oWanted.GetHorizontalBackPorch() &&
           oRead.GetVerticalFrontPorch() == oWanted.GetVerticalFrontPorch() &&
           oRead.GetVerticalSync() == oWanted.GetVerticalSync() &&
           oRead.GetVerticalBackPorch() == oWanted.GetVerticalBackPorch() &&
           (oRead.IsInterlaced() != 0) == (oWanted.IsInterlaced() != 0) &&
           (oRead.IsHorizontalPolarityPositive() != 0) == (oWanted.IsHorizontalPolarityPositive() != 0) &&
           (oRead.IsVerticalPolarityPositive() != 0) == (oWanted.IsVerticalPolarityPositive() != 0) &&
           oRead.GetPixelClockInKiloHz() / uiClockUnit == oWanted.GetPixelClockInKiloHz() / uiClockUnit;
}

// ---- Loading and writing back ----

bool CEditImage::Load(const CBytes& aui8Image)
{
    m_aoBlocks.clear();
    m_auiEstablished.clear();
    if (aui8Image.empty() ||
        m_oEdid.SetEdidBuffer(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()), 0) == 0)
    {
        return false;
    }
    for (size_t uiOffset = 0; uiOffset < aui8Image.size(); uiOffset += gsc_uiBlockSize)
    {
        const int iExtension = FindExtension(m_oEdid, static_cast<unsigned int>(m_aoBlocks.size()));
        SEditedBlock oBlock;
        oBlock.m_aui8Bytes.assign(aui8Image.begin() + static_cast<std::ptrdiff_t>(uiOffset),
                                  aui8Image.begin() + static_cast<std::ptrdiff_t>(uiOffset + gsc_uiBlockSize));
        if (iExtension >= 0)
        {
            const CEdidExtBlock* poExtension = m_oEdid.GetExtension(static_cast<unsigned int>(iExtension));
            oBlock.m_iExtension = iExtension;
            oBlock.m_uiStandards = poExtension->GetStandardCount();
            oBlock.m_uiDetaileds = poExtension->GetDetailedCount();
            poExtension->ListStandardOrigins(oBlock.m_aoOrigins);
        }
        m_aoBlocks.push_back(oBlock);
    }
    CountBase();
    for (SEditedBlock& oBlock : m_aoBlocks)
    {
        if (const CEdidExtBlockCEA861* poCea = GetCea(oBlock); poCea != nullptr)
        {
            CountCea(oBlock, *poCea);
        }
        oBlock.m_aiDetaileds = MakeNumbers(oBlock.m_uiDetaileds);
    }
    return true;
}

void CEditImage::CountBase()
{
    SEditedBlock& oBase = m_aoBlocks.front();
    oBase.m_uiStandards = m_oEdid.GetBaseStandardCount();
    oBase.m_uiDetaileds = m_oEdid.GetBaseDetailedCount();
    oBase.m_aiStandards = MakeNumbers(oBase.m_uiStandards);
    CTimingOrigins aoOrigins;
    m_oEdid.ListEstablishedOrigins(aoOrigins);
    for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
    {
        const unsigned int uiByte = aoOrigins[i].m_uiOffset - ZorStandards::BaseBlock::gsc_uiEstablishedOffset;
        m_auiEstablished.push_back(1U << (uiByte * ZorStandards::gsc_uiBits + aoOrigins[i].m_uiBit));
    }
}

void CEditImage::CountCea(SEditedBlock& oBlock, const CEdidExtBlockCEA861& oCea)
{
    oBlock.m_uiAudios = oCea.GetAudioDescriptorCount();
    oBlock.m_aiAudios = MakeNumbers(oBlock.m_uiAudios);
    oBlock.m_aiStandards = MakeNumbers(oBlock.m_uiStandards);
}

CBytes CEditImage::GetBytes() const
{
    CBytes aui8Image(m_oEdid.GetBaseBlock(), m_oEdid.GetBaseBlock() + gsc_uiBlockSize);
    for (size_t i = 1; i < m_aoBlocks.size(); ++i)
    {
        const SEditedBlock& oBlock = m_aoBlocks[i];
        const unsigned char* pui8Bytes =
            oBlock.m_iExtension < 0 ? oBlock.m_aui8Bytes.data()
                                    : m_oEdid.GetExtension(static_cast<unsigned int>(oBlock.m_iExtension))->GetData();
        aui8Image.insert(aui8Image.end(), pui8Bytes, pui8Bytes + gsc_uiBlockSize);
    }
    return aui8Image;
}

// ---- Numbers ----

CEditImage::SPlace CEditImage::Find(unsigned int SEditedBlock::*puiCount, unsigned int uiNumber)
{
    for (SEditedBlock& oBlock : m_aoBlocks)
    {
        if (uiNumber < oBlock.*puiCount)
        {
            return { &oBlock, uiNumber };
        }
        uiNumber -= oBlock.*puiCount;
    }
    return { nullptr, 0 };
}

std::string CEditImage::NameRange(unsigned int SEditedBlock::*puiCount, const char* pszWhat) const
{
    unsigned int uiCount = 0;
    for (const SEditedBlock& oBlock : m_aoBlocks)
    {
        uiCount += oBlock.*puiCount;
    }
    const std::string sWhat = pszWhat;
    return uiCount == 0 ? "the image has no " + sWhat
                        : "the image has " + sWhat + " 0 to " + std::to_string(uiCount - 1);
}

std::string CEditImage::NameBlock(const SEditedBlock& oBlock) const
{
    return "block " + std::to_string(&oBlock - m_aoBlocks.data());
}

CEdidExtBlockCEA861* CEditImage::GetCea(const SEditedBlock& oBlock)
{
    return oBlock.m_iExtension < 0 ? nullptr
                                   : AsCea(m_oEdid.GetExtension(static_cast<unsigned int>(oBlock.m_iExtension)));
}

// ---- CTA-861 blocks ----

// Lets fnEdit change the block, which it does on a copy first: there it must leave the descriptors as they are and give
// an empty result; else its result is the reason of the refusal.
std::string CEditImage::EditCea(SEditedBlock& oBlock, const CCeaEdit& fnEdit)
{
    CEdidExtBlockCEA861* poCea = GetCea(oBlock);
    if (!AreDataBlocksExact(*poCea))
    {
        return NameBlock(oBlock) + " " + gsc_pszDamaged;
    }
    const auto poCopy = CopyCea(poCea->GetData());
    std::string sReason = fnEdit(*poCopy);
    if (sReason.empty() && (GetDescriptorArea(*poCopy) != GetDescriptorArea(*poCea) ||
                            poCopy->GetDetailedCount() != poCea->GetDetailedCount()))
    {
        sReason = NameBlock(oBlock) + " " + gsc_pszInUse;
    }
    return sReason.empty() ? fnEdit(*poCea) : sReason;
}

// Tries the CTA-861 blocks with data blocks in their order until one takes the edit; else the first one's reason.
std::string CEditImage::EditFirst(const std::function<std::string(SEditedBlock& oBlock)>& fnEdit)
{
    std::string sReason = "the library reads no CTA-861 block that can hold data blocks";
    bool bFirst = true;
    for (SEditedBlock& oBlock : m_aoBlocks)
    {
        const CEdidExtBlockCEA861* poCea = GetCea(oBlock);
        if (poCea == nullptr || poCea->GetRevision() < ZorStandards::Cta::gsc_uiDataBlocksRevision)
        {
            continue;
        }
        const bool bCanHold = poCea->GetData()[ZorStandards::Cta::gsc_uiDetailedStartOffset] != 0;
        const std::string sProblem =
            bCanHold ? fnEdit(oBlock) : NameBlock(oBlock) + " says that it holds no data blocks (byte 2 is 0)";
        if (sProblem.empty())
        {
            return "";
        }
        sReason = bFirst ? sProblem : sReason;
        bFirst = false;
    }
    return sReason;
}

// ---- Timings ----

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
        return NameBlock(oBlock) + " " + gsc_pszDamaged;
    case CEdidExtBlockCEA861::eRemoval_NoCode:
        return "only a YCbCr 4:2:0 data block names it, which cannot be edited";
    case CEdidExtBlockCEA861::eRemoval_3dFields:
        return NameBlock(oBlock) + " has 3D formats for all of its first 16 video codes, or damaged ones";
    default:
        return NameBlock(oBlock) + " " + gsc_pszInUse;
    }
}

// Whether a block that prefers timings, or names the native one, has a short video reference in this range.
bool CEditImage::IsReferred(unsigned int uiFirst, unsigned int uiEnd)
{
    for (const SEditedBlock& oBlock : m_aoBlocks)
    {
        const CEdidExtBlockCEA861* poCea = GetCea(oBlock);
        const CBytes aui8References = poCea != nullptr ? ListReferences(*poCea) : CBytes();
        if (std::any_of(aui8References.begin(), aui8References.end(),
                        [&](unsigned int uiReference) { return uiReference >= uiFirst && uiReference < uiEnd; }))
        {
            return true;
        }
    }
    return false;
}

// Goes through the first timing of the code, which is an ordinary one: 4:2:0 maps only repeat those.
std::string CEditImage::RemoveCode(SEditedBlock& oBlock, unsigned int uiNumber)
{
    const CNumbers oTimings = ListTimingsOfCode(oBlock, uiNumber);
    unsigned int uiPlace = 0;
    if (oTimings.empty())
    {
        return NameRefusal(oBlock, CopyCea(oBlock.m_aui8Bytes.data())->TryRemoval(uiNumber));
    }
    if (FindPresent(oBlock.m_aiStandards, *oTimings.begin(), uiPlace))
    {
        std::string sReason = EditCea(oBlock, [&](CEdidExtBlockCEA861& oCea) {
            const CEdidExtBlockCEA861::ERemoval eRemoval = oCea.TryRemoval(uiPlace);
            if (eRemoval != CEdidExtBlockCEA861::eRemoval_Possible)
            {
                return NameRefusal(oBlock, eRemoval);
            }
            oCea.RemoveStandardKeepingDescriptors(uiPlace);
            return std::string(IsCodeReferred(oBlock, *oTimings.begin()) ? gsc_pszReferred : "");
        });
        if (!sReason.empty())
        {
            return sReason;
        }
        for (const unsigned int uiTiming : oTimings)
        {
            std::erase(oBlock.m_aiStandards, static_cast<int>(uiTiming));
            oBlock.m_oEdits.m_oStandard.insert(uiTiming);
        }
    }
    return IsNamedBy420(oBlock, uiNumber) ? "a YCbCr 4:2:0 data block names it too, which cannot be edited" : "";
}

// Whether a block that prefers timings, or names the native one, has the code of this ordinary timing. References have
// 193 to 253 as codes of their own, which the library lists as native forms of lower ones.
bool CEditImage::IsCodeReferred(const SEditedBlock& oBlock, unsigned int uiNumber)
{
    const unsigned int uiCode = FindCode(oBlock, uiNumber);
    for (unsigned int i = 0; i < oBlock.m_aoOrigins.GetCount(); ++i)
    {
        const STimingOrigin& oOrigin = oBlock.m_aoOrigins[i];
        const unsigned int uiByte = oBlock.m_aui8Bytes[oOrigin.m_uiCodeByte];
        const unsigned int uiReference = ZorStandards::IsListedAsOther(uiByte) ? uiByte : uiCode;
        if (oOrigin.m_uiCode == uiCode && oOrigin.m_e420 != STimingOrigin::e420_Only &&
            IsReferred(uiReference, uiReference + 1))
        {
            return true;
        }
    }
    return false;
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

std::string CEditImage::RemoveDetailed(unsigned int uiNumber)
{
    constexpr unsigned int uiFirstReference = 129;
    constexpr unsigned int uiReferencesEnd = 145;
    const SPlace oPlace = Find(&SEditedBlock::m_uiDetaileds, uiNumber);
    if (oPlace.m_poBlock == nullptr)
    {
        return NameRange(&SEditedBlock::m_uiDetaileds, "detailed timings");
    }
    SEditedBlock& oBlock = *oPlace.m_poBlock;
    unsigned int uiPlace = 0;
    if (!FindPresent(oBlock.m_aiDetaileds, oPlace.m_uiNumber, uiPlace))
    {
        return "";
    }
    CEdidExtBlockCEA861* poCea = GetCea(oBlock);
    if (oBlock.m_iExtension >= 0 && poCea == nullptr)
    {
        return NameBlock(oBlock) + " is a DisplayID block, which cannot be edited";
    }
    if (poCea != nullptr && !AreDataBlocksExact(*poCea))
    {
        return NameBlock(oBlock) + " " + gsc_pszDamaged;
    }
    const unsigned int uiPlaceOfAll = CountDetailedAhead(oBlock) + uiPlace;
    if (IsReferred(uiFirstReference + uiPlaceOfAll, uiReferencesEnd))
    {
        return "a data block that prefers timings, or names the native one, counts it or a later one";
    }
    const bool bRemoved = (poCea != nullptr ? poCea->RemoveDetailed(uiPlace) : m_oEdid.RemoveDetailed(uiPlace)) != 0;
    if (!bRemoved)
    {
        return poCea == nullptr && uiPlace == 0 ? "the preferred timing can only be replaced"
                                                : "the library refuses it";
    }
    LowerNatives(uiPlaceOfAll);
    Erase(oBlock.m_aiDetaileds, uiPlace);
    oBlock.m_oEdits.m_oDetailed.insert(oPlace.m_uiNumber);
    const size_t uiLeft = poCea != nullptr ? poCea->GetDetailedCount() : m_oEdid.GetBaseDetailedCount();
    return uiLeft == oBlock.m_aiDetaileds.size() ? "" : NameBlock(oBlock) + " " + gsc_pszInUse;
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
    m_aoBlocks.front().m_oEdits.m_uiEstablished |= m_auiEstablished[uiNumber];
    return "";
}

// The image size in the descriptor is not part of the timing: the library fills it anew, in centimetres, so what was
// there is put back.
std::string CEditImage::SetPreferred(const CVidParamTimingGeneric& oTiming)
{
    constexpr unsigned int uiImageSize = 12; // in the descriptor, three bytes
    constexpr unsigned int uiImageSizeEnd = 15;
    CBytes aui8Base(m_oEdid.GetBaseBlock(), m_oEdid.GetBaseBlock() + gsc_uiBlockSize);
    const unsigned int uiCount = m_oEdid.GetBaseDetailedCount();
    if (uiCount == 0 || m_oEdid.SetPreferredMode(&oTiming) == 0)
    {
        return "the image has no preferred timing that could be replaced";
    }
    const unsigned char* pui8Edited = m_oEdid.GetBaseBlock();
    for (unsigned int uiSlot = ZorStandards::BaseBlock::gsc_uiDescriptorsOffset;
         uiSlot < ZorStandards::BaseBlock::gsc_uiExtensionCountOffset; uiSlot += ZorStandards::Cta::gsc_uiDetailedSize)
    {
        for (unsigned int i = 0; i < ZorStandards::Cta::gsc_uiDetailedSize; ++i)
        {
            const bool bKept = i >= uiImageSize && i < uiImageSizeEnd;
            aui8Base[uiSlot + i] = bKept ? aui8Base[uiSlot + i] : pui8Edited[uiSlot + i];
        }
    }
    CEdidUtils::StoreChecksum(gsc_uiBlockSize, aui8Base.data());
    static_cast<CEdidBase&>(m_oEdid).SetEdidBuffer(aui8Base.data(), gsc_uiBlockSize, 0); // the extension blocks stay

    CVidParamTimingGeneric oRead;
    if (m_oEdid.GetBaseDetailed(0, &oRead) == 0 || m_oEdid.GetBaseDetailedCount() != uiCount ||
        !IsSameMode(oRead, oTiming))
    {
        return "the timing does not fit into a detailed descriptor";
    }
    SBlockEdits& oEdits = m_aoBlocks.front().m_oEdits;
    oEdits.m_bPreferred = true;
    oEdits.m_oPreferred = oTiming;
    return "";
}

// ---- Colours ----

std::string CEditImage::SetColorDepth(unsigned int uiDepth)
{
    if (m_oEdid.SetColorBitDepth(static_cast<CEdidBase::EColorBitDepth>(uiDepth)) == 0)
    {
        return "only a digital input of EDID 1.4 or later has a colour depth";
    }
    SBlockEdits& oEdits = m_aoBlocks.front().m_oEdits;
    oEdits.m_bColorDepth = true;
    oEdits.m_uiColorDepth = uiDepth;
    return "";
}

std::string CEditImage::SetDeepColor(unsigned int uiBits)
{
    bool bFound = false;
    for (SEditedBlock& oBlock : m_aoBlocks)
    {
        const CEdidExtBlockCEA861* poCea = GetCea(oBlock);
        if (poCea == nullptr || !HasHdmiBlock(*poCea))
        {
            continue;
        }
        std::string sReason = EditCea(oBlock, [&](CEdidExtBlockCEA861& oCea) {
            return std::string(oCea.SetColorBitDepthSupport(uiBits) != 0 ? "" : "the library refuses it");
        });
        if (!sReason.empty())
        {
            return sReason;
        }
        oBlock.m_oEdits.m_bDeepColor = true;
        oBlock.m_oEdits.m_uiDeepColor = uiBits;
        bFound = true;
    }
    return bFound || uiBits == 0 ? "" : "the image has no HDMI data block for deep colours";
}

// ---- Checksums ----

// Blocks that the library reads have right ones already, except for the base block.
void CEditImage::RepairChecksums()
{
    m_oEdid.UpdateChecksum();
    for (SEditedBlock& oBlock : m_aoBlocks)
    {
        oBlock.m_oEdits.m_bChecksum = true;
        if (oBlock.m_iExtension >= 0 || &oBlock == m_aoBlocks.data())
        {
            continue;
        }
        const unsigned int uiSection = ZorStandards::DisplayId::GetSectionSize(oBlock.m_aui8Bytes.data());
        if (oBlock.m_aui8Bytes[0] == gsc_uiDisplayIdTag && uiSection < CEdidUtils::msc_uiChecksumOffset)
        {
            CEdidUtils::StoreChecksum(uiSection,
                                      oBlock.m_aui8Bytes.data() + ZorStandards::DisplayId::gsc_uiSectionOffset);
        }
        CEdidUtils::StoreChecksum(gsc_uiBlockSize, oBlock.m_aui8Bytes.data());
    }
}

std::string CEditImage::Apply(const SEdit& oEdit)
{
    switch (oEdit.m_eKind)
    {
    case eEdit_Serial:
        m_oEdid.SetSerialNumber(oEdit.m_uiNumber);
        m_aoBlocks.front().m_oEdits.m_bSerial = true;
        m_aoBlocks.front().m_oEdits.m_uiSerial = oEdit.m_uiNumber;
        return "";
    case eEdit_RemoveStandard:
        return RemoveStandard(oEdit.m_uiNumber);
    case eEdit_RemoveDetailed:
        return RemoveDetailed(oEdit.m_uiNumber);
    case eEdit_RemoveEstablished:
        return RemoveEstablished(oEdit.m_uiNumber);
    case eEdit_Preferred:
        return SetPreferred(oEdit.m_oTiming);
    case eEdit_ColorDepth:
        return SetColorDepth(oEdit.m_uiNumber);
    case eEdit_DeepColor:
        return SetDeepColor(oEdit.m_uiNumber);
    case eEdit_AudioAdd:
        return AddAudio(oEdit.m_oAudio);
    case eEdit_AudioSet:
        return SetAudio(oEdit.m_uiNumber, oEdit.m_oAudio);
    case eEdit_AudioRemove:
        return RemoveAudio(oEdit.m_uiNumber);
    case eEdit_Speakers:
        return SetSpeakers(oEdit.m_uiNumber);
    case eEdit_RepairChecksums:
        RepairChecksums();
        return "";
    }
    return "";
}
