// The 8-bit checksum of a block, and the 18-byte detailed timing descriptor in both directions.
// The hex dump is in EdidUtilsDump.cpp.

#include "EdidUtils.h"

#include "EdidDetailedTiming.h"
#include "Standards/BaseBlock.h"
#include "VidParamTiming.h"

using namespace ZorCore;
using namespace ZorStandards;
using namespace ZorStandards::Descriptors;

static_assert(CEdidUtils::msc_uiBlockSize == gsc_uiBlockSize);
static_assert(sizeof(CEdidUtils::SEdidDetailedRaw) == gsc_uiDescriptorSize);

namespace
{
constexpr unsigned int gsc_uiFieldsPerFrame = 2;

constexpr unsigned int FlagOf(int bFlag) { return bFlag != 0 ? 1 : 0; }
} // namespace

unsigned int CEdidUtils::SEdidDetailedRaw::GetPixelClockIn10KiloHz() const { return gsc_oPixelClock.Read(m_aui8Data); }

unsigned int CEdidUtils::SEdidDetailedRaw::GetHorizontalActive() const
{
    return gsc_oHorizontalActive.Read(m_aui8Data);
}

unsigned int CEdidUtils::SEdidDetailedRaw::GetHorizontalBlanking() const
{
    return gsc_oHorizontalBlanking.Read(m_aui8Data);
}

unsigned int CEdidUtils::SEdidDetailedRaw::GetHorizontalFrontPorch() const
{
    return gsc_oHorizontalFrontPorch.Read(m_aui8Data);
}

unsigned int CEdidUtils::SEdidDetailedRaw::GetHorizontalSync() const { return gsc_oHorizontalSync.Read(m_aui8Data); }

unsigned int CEdidUtils::SEdidDetailedRaw::GetVerticalActive() const { return gsc_oVerticalActive.Read(m_aui8Data); }

unsigned int CEdidUtils::SEdidDetailedRaw::GetVerticalBlanking() const
{
    return gsc_oVerticalBlanking.Read(m_aui8Data);
}

unsigned int CEdidUtils::SEdidDetailedRaw::GetVerticalFrontPorch() const
{
    return gsc_oVerticalFrontPorch.Read(m_aui8Data);
}

unsigned int CEdidUtils::SEdidDetailedRaw::GetVerticalSync() const { return gsc_oVerticalSync.Read(m_aui8Data); }

unsigned int CEdidUtils::SEdidDetailedRaw::GetImageWidth() const { return gsc_oImageWidth.Read(m_aui8Data); }

unsigned int CEdidUtils::SEdidDetailedRaw::GetImageHeight() const { return gsc_oImageHeight.Read(m_aui8Data); }

int CEdidUtils::SEdidDetailedRaw::IsInterlaced() const { return static_cast<int>(gsc_oInterlaced.Read(m_aui8Data)); }

int CEdidUtils::SEdidDetailedRaw::IsDigitalSeparateSync() const
{
    return gsc_oSyncType.Read(m_aui8Data) == gsc_uiDigitalSeparateSync ? 1 : 0;
}

int CEdidUtils::SEdidDetailedRaw::IsHorizontalPolarityPositive() const
{
    return static_cast<int>(gsc_oHorizontalPositive.Read(m_aui8Data));
}

int CEdidUtils::SEdidDetailedRaw::IsVerticalPolarityPositive() const
{
    return static_cast<int>(gsc_oVerticalPositive.Read(m_aui8Data));
}

void CEdidUtils::SEdidDetailedRaw::SetPixelClockIn10KiloHz(unsigned int uiClock)
{
    gsc_oPixelClock.Write(m_aui8Data, uiClock);
}

void CEdidUtils::SEdidDetailedRaw::SetHorizontalActive(unsigned int uiPixels)
{
    gsc_oHorizontalActive.Write(m_aui8Data, uiPixels);
}

void CEdidUtils::SEdidDetailedRaw::SetHorizontalBlanking(unsigned int uiPixels)
{
    gsc_oHorizontalBlanking.Write(m_aui8Data, uiPixels);
}

void CEdidUtils::SEdidDetailedRaw::SetHorizontalFrontPorch(unsigned int uiPixels)
{
    gsc_oHorizontalFrontPorch.Write(m_aui8Data, uiPixels);
}

void CEdidUtils::SEdidDetailedRaw::SetHorizontalSync(unsigned int uiPixels)
{
    gsc_oHorizontalSync.Write(m_aui8Data, uiPixels);
}

void CEdidUtils::SEdidDetailedRaw::SetVerticalActive(unsigned int uiLines)
{
    gsc_oVerticalActive.Write(m_aui8Data, uiLines);
}

void CEdidUtils::SEdidDetailedRaw::SetVerticalBlanking(unsigned int uiLines)
{
    gsc_oVerticalBlanking.Write(m_aui8Data, uiLines);
}

void CEdidUtils::SEdidDetailedRaw::SetVerticalFrontPorch(unsigned int uiLines)
{
    gsc_oVerticalFrontPorch.Write(m_aui8Data, uiLines);
}

void CEdidUtils::SEdidDetailedRaw::SetVerticalSync(unsigned int uiLines)
{
    gsc_oVerticalSync.Write(m_aui8Data, uiLines);
}

void CEdidUtils::SEdidDetailedRaw::SetImageSize(const SImageSize& oSize)
{
    gsc_oImageWidth.Write(m_aui8Data, oSize.m_uiWidth);
    gsc_oImageHeight.Write(m_aui8Data, oSize.m_uiHeight);
}

void CEdidUtils::SEdidDetailedRaw::SetInterlaced(int bInterlaced)
{
    gsc_oInterlaced.Write(m_aui8Data, FlagOf(bInterlaced));
}

void CEdidUtils::SEdidDetailedRaw::SetDigitalSeparateSync(int bHorizontalPositive, int bVerticalPositive)
{
    gsc_oSyncType.Write(m_aui8Data, gsc_uiDigitalSeparateSync);
    gsc_oHorizontalPositive.Write(m_aui8Data, FlagOf(bHorizontalPositive));
    gsc_oVerticalPositive.Write(m_aui8Data, FlagOf(bVerticalPositive));
}

int CEdidUtils::Is8BitsChecksumValid(unsigned int uiSize, const unsigned char* pui8Data)
{
    return pui8Data != nullptr && SumOf(uiSize, pui8Data) == 0 ? 1 : 0;
}

int CEdidUtils::Compute8BitsChecksum(unsigned int uiSize, const unsigned char* pui8Data)
{
    return pui8Data != nullptr ? -static_cast<int>(SumOf(uiSize, pui8Data)) : 0;
}

void CEdidUtils::StoreChecksum(unsigned int uiSize, unsigned char* pui8Data)
{
    if (pui8Data == nullptr || uiSize == 0)
    {
        return;
    }
    unsigned char& ui8Checksum = pui8Data[uiSize - 1];
    ui8Checksum = 0;
    ui8Checksum = LowByte(static_cast<unsigned int>(Compute8BitsChecksum(uiSize, pui8Data)));
}

int CEdidUtils::ConvertDetailedDescriptorToVidParam(const SEdidDetailedRaw& oRaw, CVidParamTiming* poTiming)
{
    const unsigned int uiVerticalActive =
        oRaw.GetVerticalActive() * (oRaw.IsInterlaced() != 0 ? gsc_uiFieldsPerFrame : 1);
    if (oRaw.GetPixelClockIn10KiloHz() == 0 || oRaw.GetHorizontalActive() == 0 || uiVerticalActive == 0)
    {
        return 0;
    }
    if (poTiming == nullptr)
    {
        return 1;
    }

    // The blanking is that of one field, as in the timing: only the active lines count twice.
    const SDetailedTiming oDetailed = {
        oRaw.GetPixelClockIn10KiloHz() * gsc_uiKiloHzPerClockUnit,
        oRaw.IsInterlaced() != 0,
        oRaw.IsDigitalSeparateSync() != 0,
        { oRaw.GetHorizontalActive(), oRaw.GetHorizontalBlanking(), oRaw.GetHorizontalFrontPorch(),
          oRaw.GetHorizontalSync(), oRaw.IsHorizontalPolarityPositive() != 0 },
        { uiVerticalActive, oRaw.GetVerticalBlanking(), oRaw.GetVerticalFrontPorch(), oRaw.GetVerticalSync(),
          oRaw.IsVerticalPolarityPositive() != 0 },
    };
    poTiming->ClearData();
    StoreDetailedTiming(oDetailed, *poTiming);
    return 1;
}

int CEdidUtils::ConvertVidParamToDetailedDescriptor(const CVidParamTiming* poTiming, SEdidDetailedRaw* poRaw,
                                                    const SImageSize* poSize)
{
    if (poTiming == nullptr || poRaw == nullptr)
    {
        return 0;
    }

    SEdidDetailedRaw oRaw = {}; // what is not set below is 0
    oRaw.SetHorizontalActive(poTiming->GetHorizontalActive());
    oRaw.SetVerticalActive(poTiming->GetVerticalActive() / (poTiming->IsInterlaced() != 0 ? gsc_uiFieldsPerFrame : 1));
    oRaw.SetPixelClockIn10KiloHz(poTiming->GetPixelClockInKiloHz() / gsc_uiKiloHzPerClockUnit);
    oRaw.SetInterlaced(poTiming->IsInterlaced());
    oRaw.SetHorizontalFrontPorch(poTiming->GetHorizontalFrontPorch());
    oRaw.SetHorizontalSync(poTiming->GetHorizontalSync());
    oRaw.SetHorizontalBlanking(poTiming->GetHorizontalFrontPorch() + poTiming->GetHorizontalSync() +
                               poTiming->GetHorizontalBackPorch());
    oRaw.SetVerticalFrontPorch(poTiming->GetVerticalFrontPorch());
    oRaw.SetVerticalSync(poTiming->GetVerticalSync());
    oRaw.SetVerticalBlanking(poTiming->GetVerticalFrontPorch() + poTiming->GetVerticalSync() +
                             poTiming->GetVerticalBackPorch());
    oRaw.SetDigitalSeparateSync(poTiming->IsHorizontalPolarityPositive(), poTiming->IsVerticalPolarityPositive());
    if (poSize != nullptr)
    {
        oRaw.SetImageSize(*poSize);
    }
    *poRaw = oRaw;
    return 1;
}
