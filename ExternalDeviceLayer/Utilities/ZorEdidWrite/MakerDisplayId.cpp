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

// By SZorEdidWishes::EInterface.
struct SInterfaceCodes
{
    unsigned char m_ui8Type;
    unsigned char m_ui8Version; // of the interface's standard: 1.4 is 14h
};
constexpr SInterfaceCodes gsc_aoInterfaces[] = { { 7, 0x14 }, { 10, 0x12 }, { 4, 0x10 } };

// Each begins a data block and returns where the next one begins.
unsigned char* BeginDataBlock(unsigned char* pui8Block, unsigned int uiTag, unsigned int uiLength)
{
    pui8Block[0] = static_cast<unsigned char>(uiTag);
    pui8Block[DisplayId::gsc_uiHeaderLengthOffset] = static_cast<unsigned char>(uiLength);
    return pui8Block + DisplayId::gsc_uiHeaderSize + uiLength;
}

unsigned char* MakeProduct(const CMakerPlan& oPlan, const CBlockBytes& aui8Base, unsigned char* pui8Block)
{
    constexpr unsigned int uiSize = 12;
    constexpr unsigned int uiFirstYear = 2000;
    unsigned char* const pui8End = BeginDataBlock(pui8Block, DisplayId::gsc_uiProduct1Tag, uiSize);
    memcpy(pui8Block + DisplayId::gsc_uiPayloadOffset, GetMaker(oPlan), BaseBlock::gsc_uiManufacturerLetters);
    DisplayId::gsc_oProductCode.Write(pui8Block, GetProduct(oPlan));
    DisplayId::gsc_oProductSerial.Write(pui8Block, BaseBlock::ReadSerialNumber(aui8Base));
    DisplayId::gsc_oProductWeek.Write(pui8Block, aui8Base[BaseBlock::gsc_uiWeekOffset]);
    DisplayId::gsc_oProductYear.Write(pui8Block,
                                      aui8Base[BaseBlock::gsc_uiYearOffset] + BaseBlock::gsc_uiFirstYear - uiFirstYear);
    return pui8End;
}

unsigned char* MakeParameters(const CMakerPlan& oPlan, const CBlockBytes& aui8Base, unsigned char* pui8Block)
{
    constexpr unsigned int uiSize = 12;
    constexpr unsigned int uiTenths = 10;
    constexpr unsigned int uiRatioScale = 100;
    const SZorMode& oNative = oPlan.Get(0).m_oTiming;
    unsigned char* const pui8End = BeginDataBlock(pui8Block, DisplayId::gsc_uiParameters1Tag, uiSize);
    DisplayId::gsc_oImageWidth.Write(pui8Block, GetImageSize(oPlan).m_uiWidth * uiTenths);
    DisplayId::gsc_oImageHeight.Write(pui8Block, GetImageSize(oPlan).m_uiHeight * uiTenths);
    DisplayId::gsc_oHorizontalPixels.Write(pui8Block, oNative.m_uiWidth);
    DisplayId::gsc_oVerticalPixels.Write(pui8Block, oNative.m_uiHeight);
    DisplayId::gsc_oAudioSupport.Write(pui8Block, oPlan.HasAudio() ? 1 : 0);
    DisplayId::gsc_oGamma.Write(pui8Block, aui8Base[BaseBlock::gsc_uiGammaOffset]);
    const unsigned int uiLong = std::max(oNative.m_uiWidth, oNative.m_uiHeight);
    const unsigned int uiShort = std::min(oNative.m_uiWidth, oNative.m_uiHeight);
    const unsigned int uiRatio = (uiLong * uiRatioScale + uiShort / 2) / uiShort - uiRatioScale;
    DisplayId::gsc_oAspectRatio.Write(pui8Block, std::min(uiRatio, 0xFFU));
    DisplayId::gsc_oOverallBitDepth.Write(pui8Block, oPlan.GetColorDepth() - 1);
    DisplayId::gsc_oNativeBitDepth.Write(pui8Block, oPlan.GetColorDepth() - 1);
    return pui8End;
}

unsigned char* MakeInterface(const CMakerPlan& oPlan, unsigned char* pui8Block)
{
    constexpr unsigned int uiSize = 10;
    constexpr unsigned int ui8Bits = 0x02;
    constexpr unsigned int ui10Bits = 0x04;
    constexpr unsigned int ui12Bits = 0x08;
    unsigned char* const pui8End = BeginDataBlock(pui8Block, DisplayId::gsc_uiInterfaceTag, uiSize);
    const SInterfaceCodes& oInterface = gsc_aoInterfaces[oPlan.GetWishes().m_eInterface];
    DisplayId::gsc_oInterfaceType.Write(pui8Block, oInterface.m_ui8Type);
    DisplayId::gsc_oInterfaceLinks.Write(pui8Block, 1);
    Byte(0x04).Write(pui8Block, oInterface.m_ui8Version);
    const unsigned int uiDepths =
        ui8Bits | (oPlan.GetColorDepth() >= 10 ? ui10Bits : 0) | (oPlan.GetColorDepth() >= 12 ? ui12Bits : 0);
    pui8Block[DisplayId::gsc_uiDepthsOffset1] = static_cast<unsigned char>(uiDepths);
    if (oPlan.HasYCbCr())
    {
        pui8Block[DisplayId::gsc_uiDepthsOffset1 + 1] = static_cast<unsigned char>(uiDepths);
        pui8Block[DisplayId::gsc_uiDepthsOffset1 + 2] = static_cast<unsigned char>(uiDepths >> 1);
    }
    return pui8End;
}
} // namespace

void MakeDisplayIdBlock(const CMakerPlan& oPlan, const CBlockBytes& aui8Base, CBlockBytes& aui8Block)
{
    constexpr unsigned int uiVersion = 0x12;
    constexpr unsigned int uiStandalone = 3;
    memset(aui8Block, 0, sizeof(aui8Block));
    unsigned char* const pui8First = aui8Block + DisplayId::gsc_uiDataBlocksOffset;
    unsigned char* pui8Next = MakeProduct(oPlan, aui8Base, pui8First);
    pui8Next = MakeParameters(oPlan, aui8Base, pui8Next);
    pui8Next = MakeInterface(oPlan, pui8Next);
    aui8Block[0] = DisplayId::gsc_uiTag;
    aui8Block[DisplayId::gsc_uiVersionOffset] = uiVersion;
    aui8Block[DisplayId::gsc_uiSectionLengthOffset] = static_cast<unsigned char>(pui8Next - pui8First);
    aui8Block[DisplayId::gsc_uiProductTypeOffset] = uiStandalone;
    CEdidUtils::StoreChecksum(DisplayId::GetSectionSize(aui8Block), aui8Block + DisplayId::gsc_uiSectionOffset);
    CEdidUtils::StoreChecksum(sizeof(aui8Block), aui8Block);
}
} // namespace ZorWrite
