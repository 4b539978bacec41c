// Each edit: the number at reading turned into the present one, a trial where an edit of the library could move bytes
// that are not named, the edit itself, and the reason when it is refused.

#include "EditImage.h"

#include <algorithm>
#include <memory>

#include "BlockParts.h"
#include "EdidUtils.h"
#include "LoadedImage.h"
#include "MapText.h"
#include "Standards/BaseBlock.h"
#include "Standards/ExtensionBlocks.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;

CPresent MakeNumbers(unsigned int uiCount)
{
    CPresent aiNumbers(uiCount);
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        aiNumbers[i] = static_cast<int>(i);
    }
    return aiNumbers;
}

} // namespace

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

bool CEditImage::Load(const CBytes& aui8Image, bool bAsListed)
{
    m_aoBlocks.clear();
    m_auiEstablished.clear();
    m_oReferences.clear();
    m_asNotes.clear();
    m_aui8Read = aui8Image;
    m_bAsListed = bAsListed;
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
            const CBytes aui8References = ListReferences(*poCea);
            m_oReferences.insert(aui8References.begin(), aui8References.end());
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

// The extension blocks stay.
void CEditImage::SetBase(CBytes& aui8Base)
{
    CEdidUtils::StoreChecksum(gsc_uiBlockSize, aui8Base.data());
    static_cast<CEdidBase&>(m_oEdid).SetEdidBuffer(aui8Base.data(), gsc_uiBlockSize, 0);
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
    return uiCount == 0   ? "the image has no " + sWhat
           : uiCount == 1 ? "the image has only number 0 of " + sWhat
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
        return NameBlock(oBlock) + " " + msc_pszDamaged;
    }
    const auto poCopy = CopyCea(poCea->GetData());
    std::string sReason = fnEdit(*poCopy);
    if (sReason.empty() && (GetDescriptorArea(*poCopy) != GetDescriptorArea(*poCea) ||
                            poCopy->GetDetailedCount() != poCea->GetDetailedCount()))
    {
        sReason = NameBlock(oBlock) + " " + msc_pszInUse;
    }
    return sReason.empty() ? fnEdit(*poCea) : sReason;
}

// Tries the CTA-861 blocks with data blocks in their order until one takes the edit; else the first one's reason.
std::string CEditImage::EditFirst(const std::function<std::string(SEditedBlock& oBlock)>& fnEdit)
{
    std::string sReason = "the library reads no CTA-861 block that can hold data blocks; --add cta.audio=HEX and "
                          "--add cta.speakers=HEX also make one";
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

// ---- Colours ----

std::string CEditImage::SetColorDepth(unsigned int uiDepth)
{
    if (m_oEdid.SetColorBitDepth(static_cast<CEdidBase::EColorBitDepth>(uiDepth)) == 0)
    {
        return "only a digital input of EDID 1.4 or later has a colour depth";
    }
    m_aoBlocks.front().m_oEdits.m_oValues[eZorEdidField_BaseDisplayColorBitDepth] = uiDepth;
    return "";
}

std::string CEditImage::SetDeepColor(unsigned int uiBits)
{
    constexpr EZorEdidField aeFlags[] = { eZorEdidField_CtaHdmiDc30bit, eZorEdidField_CtaHdmiDc36bit,
                                          eZorEdidField_CtaHdmiDc48bit };
    bool bFound = false;
    for (SEditedBlock& oBlock : m_aoBlocks)
    {
        const CEdidExtBlockCEA861* poCea = GetCea(oBlock);
        if (poCea == nullptr || CopyCea(poCea->GetData())->SetDeepColors(uiBits) == 0)
        {
            continue;
        }
        std::string sReason = EditCea(oBlock, [&](CEdidExtBlockCEA861& oCea) {
            return std::string(oCea.SetDeepColors(uiBits) != 0 ? "" : "the library refuses it");
        });
        if (!sReason.empty())
        {
            return sReason;
        }
        for (unsigned int i = 0; i < std::size(aeFlags); ++i)
        {
            oBlock.m_oEdits.m_oValues[aeFlags[i]] = uiBits >> i & 1U;
        }
        bFound = true;
    }
    return bFound ? "" : "the image has no HDMI data block with deep colour flags";
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
        ZorWrite::StoreBlockChecksums(oBlock.m_aui8Bytes.data());
    }
}

std::string CEditImage::Apply(const SEdit& oEdit)
{
    const size_t uiNotes = m_asNotes.size();
    std::string sReason = ApplyOne(oEdit);
    for (size_t i = uiNotes; i < m_asNotes.size(); ++i)
    {
        m_asNotes[i] = oEdit.m_sText + ": " + m_asNotes[i];
    }
    return sReason;
}

std::string CEditImage::ApplyOne(const SEdit& oEdit)
{
    switch (oEdit.m_eKind)
    {
    case eEdit_Serial:
        m_oEdid.SetSerialNumber(oEdit.m_uiNumber);
        m_aoBlocks.front().m_oEdits.m_oValues[eZorEdidField_BaseIdentitySerialNumber] = oEdit.m_uiNumber;
        return "";
    case eEdit_Remove:
    case eEdit_RemoveCode:
        return Remove(oEdit.m_oWanted);
    case eEdit_RemoveStandard:
        return RemoveStandard(oEdit.m_uiNumber);
    case eEdit_RemoveDetailed:
        return RemoveDetailed(oEdit.m_uiNumber);
    case eEdit_RemoveEstablished:
        return RemoveEstablished(oEdit.m_uiNumber);
    case eEdit_Preferred:
        return SetPreferred(oEdit);
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
    case eEdit_Named:
    case eEdit_Set: // of the command, when all others are done
        return "";
    }
    return "";
}
