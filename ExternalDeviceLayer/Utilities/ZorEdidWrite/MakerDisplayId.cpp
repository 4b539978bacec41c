#include "MakerDisplayId.h"

#include <string.h>

#include <algorithm>

#include "EdidUtils.h"
#include "Standards/DisplayIdBlocks.h"

namespace ZorWrite
{
namespace
{
using namespace ZorStandards;

// By SDisplayIdFacts::EInterface.
struct SInterfaceCodes
{
    unsigned char m_ui8Type;
    unsigned char m_ui8Version; // of the interface's standard, as is the revision
    unsigned char m_ui8Revision;
    unsigned char m_ui8Links; // of DisplayPort lanes
};
constexpr SInterfaceCodes gsc_aoInterfaces[] = { { 7, 1, 4, 1 }, { 10, 1, 2, 4 }, { 4, 1, 0, 1 }, { 0, 0, 0, 1 } };

// Each begins a data block and returns where the next one begins.
unsigned char* BeginDataBlock(unsigned char* pui8Block, unsigned int uiTag, unsigned int uiLength)
{
    pui8Block[0] = static_cast<unsigned char>(uiTag);
    pui8Block[DisplayId::gsc_uiHeaderLengthOffset] = static_cast<unsigned char>(uiLength);
    return pui8Block + DisplayId::gsc_uiHeaderSize + uiLength;
}

unsigned char* MakeProduct(const unsigned char* pui8Base, unsigned char* pui8Block)
{
    constexpr unsigned int uiSize = 12;
    unsigned char* const pui8End = BeginDataBlock(pui8Block, DisplayId::gsc_uiProduct1Tag, uiSize);
    const unsigned int uiYear = pui8Base[BaseBlock::gsc_uiYearOffset] + BaseBlock::gsc_uiFirstYear;
    memcpy(pui8Block + DisplayId::gsc_uiPayloadOffset, BaseBlock::ReadManufacturerCode(pui8Base).m_szCode,
           BaseBlock::gsc_uiManufacturerLetters);
    DisplayId::gsc_oProductCode.Write(pui8Block, BaseBlock::ReadProductCode(pui8Base));
    DisplayId::gsc_oProductSerial.Write(pui8Block, BaseBlock::ReadSerialNumber(pui8Base));
    if (uiYear >= gsc_uiFirstDisplayIdYear)
    {
        DisplayId::gsc_oProductWeek.Write(pui8Block, pui8Base[BaseBlock::gsc_uiWeekOffset]);
        DisplayId::gsc_oProductYear.Write(pui8Block, uiYear - gsc_uiFirstDisplayIdYear);
    }
    return pui8End;
}

unsigned char* MakeParameters(const SDisplayIdFacts& oFacts, const unsigned char* pui8Base, unsigned char* pui8Block)
{
    constexpr unsigned int uiSize = 12;
    constexpr unsigned int uiTenths = 10;
    constexpr unsigned int uiSquare = 100;
    unsigned char* const pui8End = BeginDataBlock(pui8Block, DisplayId::gsc_uiParameters1Tag, uiSize);
    DisplayId::gsc_oImageWidth.Write(pui8Block, oFacts.m_oSize.m_uiWidth * uiTenths);
    DisplayId::gsc_oImageHeight.Write(pui8Block, oFacts.m_oSize.m_uiHeight * uiTenths);
    DisplayId::gsc_oHorizontalPixels.Write(pui8Block, oFacts.m_uiWidth);
    DisplayId::gsc_oVerticalPixels.Write(pui8Block, oFacts.m_uiHeight);
    DisplayId::gsc_oAudioSupport.Write(pui8Block, oFacts.m_bAudio ? 1 : 0);
    DisplayId::gsc_oGamma.Write(pui8Block, pui8Base[BaseBlock::gsc_uiGammaOffset]);
    DisplayId::gsc_oAspectRatio.Write(pui8Block, std::min(std::max(oFacts.m_uiRatio, uiSquare) - uiSquare, 0xFFU));
    DisplayId::gsc_oOverallBitDepth.Write(pui8Block, oFacts.m_uiBitsPerColor - 1);
    DisplayId::gsc_oNativeBitDepth.Write(pui8Block, oFacts.m_uiBitsPerColor - 1);
    return pui8End;
}

unsigned char* MakeInterface(const SDisplayIdFacts& oFacts, unsigned char* pui8Block)
{
    constexpr unsigned int uiSize = 10;
    unsigned char* const pui8End = BeginDataBlock(pui8Block, DisplayId::gsc_uiInterfaceTag, uiSize);
    const SInterfaceCodes& oInterface = gsc_aoInterfaces[oFacts.m_eInterface];
    DisplayId::gsc_oInterfaceType.Write(pui8Block, oInterface.m_ui8Type);
    DisplayId::gsc_oInterfaceLinks.Write(pui8Block, oInterface.m_ui8Links);
    DisplayId::gsc_oInterfaceVersion.Write(pui8Block, oInterface.m_ui8Version);
    DisplayId::gsc_oInterfaceRevision.Write(pui8Block, oInterface.m_ui8Revision);
    pui8Block[DisplayId::gsc_uiDepthsOffset1] = static_cast<unsigned char>(oFacts.m_uiRgbDepths);
    pui8Block[DisplayId::gsc_uiDepthsOffset1 + 1] = static_cast<unsigned char>(oFacts.m_ui444Depths);
    pui8Block[DisplayId::gsc_uiDepthsOffset1 + 2] = static_cast<unsigned char>(oFacts.m_ui422Depths >> 1); // from 8 on
    return pui8End;
}
} // namespace

void MakeDisplayIdBlock(const SDisplayIdFacts& oFacts, const unsigned char* pui8Base,
                        unsigned char (&aui8Block)[gsc_uiBlockSize])
{
    constexpr unsigned int uiStandalone = 3;
    memset(aui8Block, 0, sizeof(aui8Block));
    unsigned char* const pui8First = aui8Block + DisplayId::gsc_uiDataBlocksOffset;
    unsigned char* pui8Next = MakeProduct(pui8Base, pui8First);
    pui8Next = MakeParameters(oFacts, pui8Base, pui8Next);
    pui8Next = MakeInterface(oFacts, pui8Next);
    aui8Block[0] = DisplayId::gsc_uiTag;
    aui8Block[DisplayId::gsc_uiVersionOffset] = DisplayId::gsc_uiHighestVersion;
    aui8Block[DisplayId::gsc_uiSectionLengthOffset] = static_cast<unsigned char>(pui8Next - pui8First);
    aui8Block[DisplayId::gsc_uiProductTypeOffset] = uiStandalone;
    CEdidUtils::StoreChecksum(DisplayId::GetSectionSize(aui8Block), aui8Block + DisplayId::gsc_uiSectionOffset);
    CEdidUtils::StoreChecksum(sizeof(aui8Block), aui8Block);
}
} // namespace ZorWrite
