#include "MakerDonor.h"

#include <string.h>

#include <algorithm>

#include "EdidBase.h"
#include "EdidUtils.h"
#include "MakerBase.h"
#include "Standards/CtaBlocks.h"
#include "Standards/ExtensionBlocks.h"
#include "ZorEdidCheck.h"

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

// Whether the rules of check have nothing against such a data block above a note.
bool IsSound(unsigned int uiTag, unsigned int uiLength, const unsigned char* pui8Payload)
{
    constexpr unsigned int uiHeader = gsc_uiBlockSize + Cta::gsc_uiDataBlocksOffset;
    constexpr unsigned int uiTagShift = 5;
    unsigned char aui8Image[2 * gsc_uiBlockSize] = {};
    unsigned char* const pui8Block = aui8Image + gsc_uiBlockSize;
    memcpy(aui8Image, EDID_V1_HEADER, sizeof(EDID_V1_HEADER));
    aui8Image[gsc_uiExtensionCountOffset] = 1;
    pui8Block[Cta::gsc_uiTagOffset] = Cta::gsc_uiTag;
    pui8Block[Cta::gsc_uiRevisionOffset] = Cta::gsc_uiHighestRevision;
    pui8Block[Cta::gsc_uiDetailedStartOffset] = static_cast<unsigned char>(Cta::gsc_uiDataBlocksOffset + 1 + uiLength);
    Cta::gsc_oBasicAudio.Write(pui8Block, 1); // without it every audio is suspect
    aui8Image[uiHeader] = static_cast<unsigned char>(uiTag << uiTagShift | uiLength);
    memcpy(aui8Image + uiHeader + 1, pui8Payload, uiLength);
    CEdidUtils::StoreChecksum(gsc_uiBlockSize, aui8Image);
    CEdidUtils::StoreChecksum(gsc_uiBlockSize, pui8Block);
    CZorEdidMap oMap;
    CZorEdidCheck oCheck;
    oMap.Read(sizeof(aui8Image), aui8Image);
    oCheck.Read(oMap, gsc_uiNeutralYear);
    for (unsigned int i = 0; i < oCheck.GetCount(); ++i)
    {
        const unsigned int uiOffset = oCheck.Get(i).m_uiOffset;
        if (oCheck.Get(i).HasWeight() && uiOffset >= uiHeader && uiOffset <= uiHeader + uiLength)
        {
            return false;
        }
    }
    return true;
}

// The descriptors of an audio data block, or the first speaker allocation.
void ReadAudioBlock(const Cta::CDataBlockWalk& oWalk, SDonor& oDonor)
{
    constexpr unsigned int uiSize = 3; // of either
    const bool bSpeakers = oWalk.GetTag() == Cta::gsc_uiSpeakersTag;
    CByteArray& aui8Bytes = bSpeakers ? oDonor.m_aui8Speakers : oDonor.m_aui8Audio;
    for (unsigned int i = 0; i + uiSize <= oWalk.GetLength() && !(bSpeakers && aui8Bytes.GetCount() != 0); i += uiSize)
    {
        const unsigned char aui8Item[uiSize] = { oWalk.GetByte(i), oWalk.GetByte(i + 1), oWalk.GetByte(i + 2) };
        if (!IsSound(oWalk.GetTag(), uiSize, aui8Item))
        {
            oDonor.m_asNotes.Add(bSpeakers ? "its speakers are left out, as their bytes are not sound"
                                           : "an audio format of it is left out, as its bytes are not sound");
            continue;
        }
        for (const unsigned char ui8Byte : aui8Item)
        {
            aui8Bytes.Add(ui8Byte);
        }
    }
}

// Of the CTA-861 blocks.
void ReadAudio(const unsigned char* pui8Image, unsigned int uiSize, SDonor& oDonor)
{
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
            if (oWalk.GetTag() == Cta::gsc_uiAudioTag || oWalk.GetTag() == Cta::gsc_uiSpeakersTag)
            {
                ReadAudioBlock(oWalk, oDonor);
            }
        }
    }
}

// E-EDID 1.4 begins with 2006. The last year of the byte is rather filler than a date.
void ReadDate(const unsigned char* pui8Base, const SZorEdidWishes& oWishes, SDonor& oDonor)
{
    constexpr unsigned int uiFirst = 2006;
    constexpr unsigned int uiLast = gsc_uiFirstYear + 0xFE;
    const bool bRevision3 = oWishes.m_eInterface == SZorEdidWishes::eInterface_Hdmi;
    constexpr unsigned int uiLastWeek = 53;
    const unsigned int uiYear = pui8Base[gsc_uiYearOffset] + gsc_uiFirstYear;
    const unsigned int uiWeek = pui8Base[gsc_uiWeekOffset];
    const bool bModelYear = uiWeek == gsc_uiModelYearWeek && !bRevision3;
    CMString sNote;
    if (uiYear < uiFirst || uiYear > (oWishes.m_uiThisYear != 0 ? oWishes.m_uiThisYear : uiLast))
    {
        sNote.Format("its year %u is replaced by %u", uiYear, gsc_uiNeutralYear);
        oDonor.m_asNotes.Add(sNote);
        return;
    }
    oDonor.m_aui8Date[1] = pui8Base[gsc_uiYearOffset];
    if (uiWeek <= uiLastWeek || bModelYear)
    {
        oDonor.m_aui8Date[0] = pui8Base[gsc_uiWeekOffset];
        return;
    }
    sNote = uiWeek == gsc_uiModelYearWeek ? "its year is that of the model, which E-EDID 1.3 cannot say"
                                          : "its week is left out, as a year has none of that number";
    oDonor.m_asNotes.Add(sNote);
}

// The flag of sRGB goes with its primaries and its gamma.
void ReadColors(const unsigned char* pui8Base, SDonor& oDonor)
{
    oDonor.m_ui8Gamma = pui8Base[gsc_uiGammaOffset];
    memcpy(oDonor.m_aui8Chromaticities, pui8Base + gsc_uiChromaticitiesOffset, sizeof(oDonor.m_aui8Chromaticities));
    oDonor.m_bSrgb = memcmp(oDonor.m_aui8Chromaticities, gsc_aui8SrgbColors, sizeof(gsc_aui8SrgbColors)) == 0;
    if (oDonor.m_bSrgb && oDonor.m_ui8Gamma != gsc_ui8SrgbGamma)
    {
        oDonor.m_ui8Gamma = gsc_ui8SrgbGamma;
        oDonor.m_asNotes.Add("its gamma is replaced by 2.20, as its primaries are those of sRGB");
    }
    if (oDonor.m_bSrgb != gsc_oSrgbDefault.IsSet(pui8Base))
    {
        oDonor.m_asNotes.Add(oDonor.m_bSrgb ? "sRGB is the default, as its primaries say"
                                            : "its flag of sRGB is left out, as its primaries are others");
    }
}

void ReadTexts(const unsigned char* pui8Base, SZorEdidWishes& oWishes, SDonor& oDonor)
{
    if (oWishes.m_sName.GetLength() == 0)
    {
        oWishes.m_sName = ReadText(pui8Base, gsc_ui8TagName);
        if (oWishes.m_sName.GetLength() == 0)
        {
            oDonor.m_asNotes.Add("it has no name of printable characters");
        }
    }
    if (oWishes.m_sSerial.GetLength() == 0)
    {
        oWishes.m_sSerial = ReadText(pui8Base, gsc_ui8TagSerialNumber);
    }
}

void ReadCodes(const unsigned char* pui8Base, SZorEdidWishes& oWishes, SDonor& oDonor)
{
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
        if (oWishes.m_uiProduct == 0)
        {
            oDonor.m_asNotes.Add("its product code 0 is replaced by 1");
        }
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
    if (oWishes.m_uiYear == 0)
    {
        ReadDate(pui8Base, oWishes, oDonor);
    }
    ReadColors(pui8Base, oDonor);
    ReadTexts(pui8Base, oWishes, oDonor);
    ReadCodes(pui8Base, oWishes, oDonor);
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
