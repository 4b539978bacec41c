#include "MakerDonor.h"

#include <string.h>

#include <algorithm>

#include "EdidBase.h"
#include "Standards/CtaBlocks.h"
#include "Standards/ExtensionBlocks.h"

namespace ZorWrite
{
namespace
{
using namespace ZorStandards;
using namespace ZorStandards::BaseBlock;

// The text of a descriptor, up to its line feed, without blanks around it. Empty where it has other characters than
// those that a new one may have.
CMString ReadText(const unsigned char* pui8Base, unsigned char ui8Tag)
{
    for (unsigned int i = 0; i < gsc_uiDescriptors; ++i)
    {
        const unsigned char* pui8Descriptor = pui8Base + DescriptorOffset(i);
        if (!HasTag(pui8Descriptor, ui8Tag))
        {
            continue;
        }
        CMString sText;
        for (unsigned int k = gsc_uiContentsOffset; k < gsc_uiDescriptorSize && pui8Descriptor[k] != '\n'; ++k)
        {
            if (pui8Descriptor[k] < ' ' || pui8Descriptor[k] > '~')
            {
                return "";
            }
            sText += static_cast<char>(pui8Descriptor[k]);
        }
        return sText.Trim(" ");
    }
    return "";
}

// That of the first detailed timing, in whole millimetres, where it goes with the one in centimetres.
void ReadSize(const unsigned char* pui8Base, SZorEdidWishes& oWishes)
{
    constexpr unsigned int uiMmPerCm = 10;
    const unsigned int uiWidth = pui8Base[gsc_uiImageWidthOffset] * uiMmPerCm;
    const unsigned int uiHeight = pui8Base[gsc_uiImageHeightOffset] * uiMmPerCm;
    if (uiWidth == 0 || uiHeight == 0)
    {
        return; // none, or a ratio
    }
    const unsigned char* pui8Timing = pui8Base + gsc_uiDescriptorsOffset;
    const unsigned int uiFineWidth = HasPixelClock(pui8Timing) ? gsc_oImageWidth.Read(pui8Timing) : 0;
    const unsigned int uiFineHeight = HasPixelClock(pui8Timing) ? gsc_oImageHeight.Read(pui8Timing) : 0;
    const auto fnIsNear = [](unsigned int uiOne, unsigned int uiOther) {
        return uiOne + uiMmPerCm > uiOther && uiOther + uiMmPerCm > uiOne;
    };
    const bool bFine = fnIsNear(uiFineWidth, uiWidth) && fnIsNear(uiFineHeight, uiHeight);
    oWishes.m_uiWidthInMm = bFine ? uiFineWidth : uiWidth;
    oWishes.m_uiHeightInMm = bFine ? uiFineHeight : uiHeight;
}

// Of the CTA-861 blocks.
void ReadAudio(const unsigned char* pui8Image, unsigned int uiSize, SDonor& oDonor)
{
    constexpr unsigned int uiDescriptorSize = 3;
    for (CBlockWalk oBlocks(pui8Image, uiSize); oBlocks.Next();)
    {
        const unsigned char* pui8Block = oBlocks.GetData();
        if (!oBlocks.IsWhole() || !oBlocks.IsAnnounced() || pui8Block[0] != gsc_uiCtaTag)
        {
            continue;
        }
        const unsigned int uiEnd =
            Cta::GetDataBlocksEnd(pui8Block[Cta::gsc_uiRevisionOffset], pui8Block[Cta::gsc_uiDetailedStartOffset]);
        for (Cta::CDataBlockWalk oWalk(pui8Block, uiEnd); oWalk.Next();)
        {
            CByteArray* const paui8Bytes = oWalk.GetTag() == Cta::gsc_uiAudioTag      ? &oDonor.m_aui8Audio
                                           : oWalk.GetTag() == Cta::gsc_uiSpeakersTag ? &oDonor.m_aui8Speakers
                                                                                      : nullptr;
            const unsigned int uiLength = oWalk.GetLength() / uiDescriptorSize * uiDescriptorSize;
            const bool bOnce = paui8Bytes == &oDonor.m_aui8Speakers && paui8Bytes->GetCount() != 0;
            for (unsigned int i = 0; paui8Bytes != nullptr && !bOnce && i < uiLength; ++i)
            {
                paui8Bytes->Add(oWalk.GetByte(i));
            }
        }
    }
}

// A year that 1.4 has no room for, and week 0, say that no date is given.
void ReadDate(const unsigned char* pui8Base, SDonor& oDonor)
{
    constexpr unsigned int uiFirst = 2006 - gsc_uiFirstYear;
    if (pui8Base[gsc_uiYearOffset] >= uiFirst)
    {
        oDonor.m_aui8Date[0] = pui8Base[gsc_uiWeekOffset];
        oDonor.m_aui8Date[1] = pui8Base[gsc_uiYearOffset];
    }
}
} // namespace

CMString ReadDonor(SZorEdidWishes& oWishes, SDonor& oDonor)
{
    const unsigned char* const pui8Base = oWishes.m_pui8Donor;
    if (pui8Base == nullptr)
    {
        return "";
    }
    if (oWishes.m_uiDonorSize < gsc_uiBlockSize || memcmp(pui8Base, EDID_V1_HEADER, sizeof(EDID_V1_HEADER)) != 0)
    {
        return "the image that identity and size are to be taken of has no base block";
    }
    oDonor.m_bRead = true;
    memcpy(oDonor.m_aui8Serial, pui8Base + gsc_uiSerialOffset, sizeof(oDonor.m_aui8Serial));
    ReadDate(pui8Base, oDonor);
    oDonor.m_ui8Gamma = pui8Base[gsc_uiGammaOffset];
    memcpy(oDonor.m_aui8Chromaticities, pui8Base + gsc_oRedX.GetFirst(), sizeof(oDonor.m_aui8Chromaticities));
    oDonor.m_bSrgb = gsc_oSrgbDefault.IsSet(pui8Base);
    if (oWishes.m_sName.GetLength() == 0)
    {
        oWishes.m_sName = ReadText(pui8Base, gsc_ui8TagName);
    }
    if (oWishes.m_sSerial.GetLength() == 0)
    {
        oWishes.m_sSerial = ReadText(pui8Base, gsc_ui8TagSerialNumber);
    }
    if (oWishes.m_sMaker.GetLength() == 0)
    {
        const SManufacturerCode oCode = ReadManufacturerCode(pui8Base);
        const bool bLetters =
            std::all_of(oCode.m_szCode, oCode.m_szCode + 3, [](char c) { return c >= 'A' && c <= 'Z'; });
        oWishes.m_sMaker = bLetters ? oCode.m_szCode : "";
    }
    if (oWishes.m_uiProduct == 0)
    {
        oWishes.m_uiProduct = ReadProductCode(pui8Base);
    }
    if (oWishes.m_uiWidthInMm == 0 && oWishes.m_uiHeightInMm == 0)
    {
        ReadSize(pui8Base, oWishes);
    }
    const bool bDvi = oWishes.m_eInterface == SZorEdidWishes::eInterface_Dvi;
    if (oWishes.m_eAudio == SZorEdidWishes::eAudio_None && !bDvi)
    {
        ReadAudio(pui8Base, oWishes.m_uiDonorSize, oDonor);
    }
    return "";
}
} // namespace ZorWrite
