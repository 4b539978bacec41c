// Prints what an EDID in a .bin or .dat file says of its monitor, one fact a line: a word for its kind, then values.
// scripts/compare-with-edid-decode reads this output.
//
//     name TEXT                              monitor name
//     serial NUMBER                          the binary serial number
//     detailed WxH[i] KHZ h F S B POL v F S B POL   front porch, sync, back porch and polarity of each direction
//     vic CODE[ native]                      a code of the video data blocks
//     vic-row CODE WxH[i] KHZ                the library's row of that code, 1000 and 1001 / 1000 of the rate each
//     audio FORMAT CHANNELS RATES EXTRA      format code, channel count, rates in kHz, third byte
//     tile COLUMNSxROWS at X,Y size WxH

#include <stdio.h>

#include "EdidExtBlockCEA861.h"
#include "VidParamCea.h"
#include "ZorEdidUtils.h"

namespace
{
using CCea = CEdidExtBlockCEA861;

constexpr unsigned int gsc_uiSerialOffset = 12;   // in the base block: four bytes, little-endian
constexpr unsigned int gsc_uiCeaExtensionTag = 2; // CEdidExtBlock::GetExtensionType of a CTA-861 block
constexpr unsigned int gsc_uiVariantKey = 1000;   // added to a code: its row of 1000/1001 of the rate

void PrintIdentity(const CEdid& oEdid)
{
    char szName[64] = {};
    oEdid.GetMonitorName(szName, sizeof(szName));
    printf("name %s\n", szName);

    const unsigned char* pui8Serial = oEdid.GetBaseBlock() + gsc_uiSerialOffset;
    printf("serial %u\n", pui8Serial[0] | static_cast<unsigned int>(pui8Serial[1]) << 8 |
                              static_cast<unsigned int>(pui8Serial[2]) << 16 |
                              static_cast<unsigned int>(pui8Serial[3]) << 24);
}

char PolarityOf(int bPositive) { return bPositive != 0 ? 'P' : 'N'; }

void PrintSizeAndClock(const CVidParamTiming& oTiming)
{
    printf("%ux%u%s %u", oTiming.GetHorizontalActive(), oTiming.GetVerticalActive(),
           oTiming.IsInterlaced() != 0 ? "i" : "", oTiming.GetPixelClockInKiloHz());
}

void PrintDetailed(const CVidParamTiming& oTiming)
{
    printf("detailed ");
    PrintSizeAndClock(oTiming);
    printf(" h %u %u %u %c v %u %u %u %c\n", oTiming.GetHorizontalFrontPorch(), oTiming.GetHorizontalSync(),
           oTiming.GetHorizontalBackPorch(), PolarityOf(oTiming.IsHorizontalPolarityPositive()),
           oTiming.GetVerticalFrontPorch(), oTiming.GetVerticalSync(), oTiming.GetVerticalBackPorch(),
           PolarityOf(oTiming.IsVerticalPolarityPositive()));
}

// Block by block: where a block refuses an index, the numbering over all blocks would go on to the next block.
void PrintAllDetailed(const CEdid& oEdid)
{
    CVidParamTimingGeneric oTiming;
    for (unsigned int i = 0; i < oEdid.GetBaseDetailedCount(); ++i)
    {
        if (oEdid.GetBaseDetailed(i, &oTiming) != 0)
        {
            PrintDetailed(oTiming);
        }
    }
    for (unsigned int i = 0; i < oEdid.GetExtensionCount(); ++i)
    {
        const CEdidExtBlock* poBlock = oEdid.GetExtension(i);
        for (unsigned int j = 0; j < poBlock->GetDetailedCount(); ++j)
        {
            if (poBlock->GetDetailed(j, &oTiming) != 0)
            {
                PrintDetailed(oTiming);
            }
        }
    }
}

// The row of a code and of its 1000/1001 variant, where the table has them.
void PrintRows(unsigned int uiVic)
{
    const unsigned int auiKeys[] = { uiVic, uiVic + gsc_uiVariantKey };
    for (unsigned int uiKey : auiKeys)
    {
        CVidParamTimingGeneric oTiming;
        if (CVidParamCea::IsVicSupported(uiKey) != 0 && CVidParamCea::GetVidParamFromVic(uiKey, &oTiming) != 0)
        {
            printf("vic-row %u ", uiVic);
            PrintSizeAndClock(oTiming);
            printf("\n");
        }
    }
}

void PrintCode(unsigned char ui8Descriptor)
{
    unsigned int uiVic = 0;
    int bNative = 0;
    if (CCea::ExtractSvdCodeInfo(ui8Descriptor, &uiVic, &bNative) != 0)
    {
        printf("vic %u%s\n", uiVic, bNative != 0 ? " native" : "");
        PrintRows(uiVic);
    }
}

void PrintCodes(const CCea& oBlock)
{
    for (unsigned int i = 0;; ++i)
    {
        unsigned int uiLength = 0;
        const unsigned int uiOffset = oBlock.GetDataBlockOffset(CCea::eCea861Tag_Video, i, &uiLength);
        if (uiOffset == 0)
        {
            return;
        }
        for (unsigned int j = 0; j < uiLength; ++j)
        {
            PrintCode(oBlock.GetData()[uiOffset + j]);
        }
    }
}

void PrintAudio(const CCea& oBlock)
{
    for (unsigned int i = 0; i < oBlock.GetAudioDescriptorCount(); ++i)
    {
        CCea::SAudioDescriptor oDescriptor = {};
        oBlock.GetAudioDescriptor(i, &oDescriptor);
        printf("audio %u %u ", oDescriptor.m_eFormat, oDescriptor.m_uiChannels);
        const char* pszSeparator = "";
        for (unsigned int uiBit = CCea::eAudioSamplingFreq_32KHz; uiBit <= CCea::eAudioSamplingFreq_192KHz; uiBit <<= 1)
        {
            if ((oDescriptor.m_eSamplingFreq & uiBit) != 0)
            {
                const CMString oRate = CCea::GetAudioSamplingFreqStr(static_cast<CCea::EAudioSamplingFreq>(uiBit));
                printf("%s%s", pszSeparator, static_cast<const char*>(oRate));
                pszSeparator = ",";
            }
        }
        printf(" %u\n", oDescriptor.m_uiExtra);
    }
}

void PrintExtensions(const CEdid& oEdid)
{
    for (unsigned int i = 0; i < oEdid.GetExtensionCount(); ++i)
    {
        const CEdidExtBlock* poBlock = oEdid.GetExtension(i);
        if (poBlock->GetExtensionType() == gsc_uiCeaExtensionTag)
        {
            PrintCodes(static_cast<const CCea&>(*poBlock));
            PrintAudio(static_cast<const CCea&>(*poBlock));
        }
    }
}

void PrintTile(const CEdid& oEdid)
{
    unsigned int uiX = 0;
    unsigned int uiY = 0;
    unsigned int uiColumns = 0;
    unsigned int uiRows = 0;
    unsigned int uiWidth = 0;
    unsigned int uiHeight = 0;
    if (oEdid.GetTopologyDescription(uiX, uiY, uiColumns, uiRows, uiWidth, uiHeight) != 0)
    {
        printf("tile %ux%u at %u,%u size %ux%u\n", uiColumns, uiRows, uiX, uiY, uiWidth, uiHeight);
    }
}
} // namespace

int main(int iCount, char** ppszArguments)
{
    CZorEdidUtils::CByteArray aui8Image;
    CEdid oEdid;
    if (iCount != 2 || CZorEdidUtils::ExtractEdidFromFile(CMString(ppszArguments[1]), aui8Image) == 0 ||
        oEdid.SetEdidBuffer(aui8Image.GetData(), aui8Image.GetCount(), 0) == 0)
    {
        return 1;
    }
    PrintIdentity(oEdid);
    PrintAllDetailed(oEdid);
    PrintExtensions(oEdid);
    PrintTile(oEdid);
    return 0;
}
