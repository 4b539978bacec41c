#include "MakerBase.h"

#include <string.h>

#include <algorithm>

#include "EdidBase.h"
#include "EdidUtils.h"
#include "Standards/Modes.h"

namespace ZorWrite
{
namespace
{
using namespace ZorStandards;

constexpr char gsc_szNeutralName[] = "Virtual";
constexpr unsigned char gsc_aui8Interfaces[] = { 2, 5, 1 }; // by SZorEdidWishes::EInterface

unsigned int GetMakerBits(const CMakerPlan& oPlan)
{
    constexpr unsigned int uiLetterBits = 5;
    constexpr unsigned int uiBeforeA = 0x40;
    unsigned int uiBits = 0;
    for (unsigned int i = 0; i < BaseBlock::gsc_uiManufacturerLetters; ++i)
    {
        uiBits = (uiBits << uiLetterBits) | (static_cast<unsigned char>(GetMaker(oPlan)[i]) - uiBeforeA);
    }
    return uiBits;
}

void MakeIdentity(const CMakerPlan& oPlan, const SDonor& oDonor, CBlockBytes& aui8Base)
{
    using namespace BaseBlock;
    Big16(gsc_uiManufacturerOffset).Write(aui8Base, GetMakerBits(oPlan));
    Little16(gsc_uiProductOffset).Write(aui8Base, GetProduct(oPlan));
    memcpy(aui8Base + gsc_uiSerialOffset, oDonor.m_aui8Serial, sizeof(oDonor.m_aui8Serial));
    const SZorEdidWishes& oWishes = oPlan.GetWishes();
    aui8Base[gsc_uiWeekOffset] = static_cast<unsigned char>(oWishes.m_uiYear != 0 ? oWishes.m_uiWeek : 0);
    aui8Base[gsc_uiYearOffset] =
        static_cast<unsigned char>((oWishes.m_uiYear != 0 ? oWishes.m_uiYear : gsc_uiNeutralYear) - gsc_uiFirstYear);
    if (oDonor.m_aui8Date[1] != 0)
    {
        memcpy(aui8Base + gsc_uiWeekOffset, oDonor.m_aui8Date, sizeof(oDonor.m_aui8Date));
    }
}

// HDMI asks for 1.3, which knows neither interface nor depth.
bool IsRevision3(const CMakerPlan& oPlan) { return oPlan.IsHdmi(); }

// Sources that know nothing of variable refresh but the range limits ask for this flag.
bool HasContinuousFrequency(const CMakerPlan& oPlan) { return oPlan.GetWishes().HasVrr() && !oPlan.IsHdmi(); }

void MakeInput(const CMakerPlan& oPlan, CBlockBytes& aui8Base)
{
    using namespace BaseBlock;
    constexpr unsigned int uiRgb = 1;          // color type before revision 4
    constexpr unsigned int uiAllEncodings = 3; // YCbCr 4:4:4 and 4:2:2
    aui8Base[gsc_uiVideoInputOffset] = gsc_uiDigitalMask;
    if (IsRevision3(oPlan))
    {
        gsc_oDisplayColorType.Write(aui8Base, uiRgb);
        aui8Base[gsc_uiFeaturesOffset] |= gsc_uiPreferredTimingMask;
        return;
    }
    gsc_oColorDepth.Write(aui8Base, GetColorDepthCode(oPlan.GetColorDepth()));
    gsc_oInterface.Write(aui8Base, gsc_aui8Interfaces[oPlan.GetWishes().m_eInterface]);
    gsc_oDisplayColorType.Write(aui8Base, oPlan.HasYCbCr() ? uiAllEncodings : 0);
    gsc_oPreferredIsNative.Write(aui8Base, oPlan.IsFirstNative() ? 1 : 0);
    gsc_oContinuousFrequency.Write(aui8Base, HasContinuousFrequency(oPlan) ? 1 : 0);
}

void MakeColors(const SDonor& oDonor, CBlockBytes& aui8Base)
{
    using namespace BaseBlock;
    gsc_oGamma.Write(aui8Base, oDonor.m_bRead ? oDonor.m_ui8Gamma : gsc_ui8SrgbGamma);
    gsc_oSrgbDefault.Write(aui8Base, !oDonor.m_bRead || oDonor.m_bSrgb ? 1 : 0);
    memcpy(aui8Base + gsc_uiChromaticitiesOffset, oDonor.m_bRead ? oDonor.m_aui8Chromaticities : gsc_aui8SrgbColors,
           sizeof(gsc_aui8SrgbColors));
}

void SetEstablished(CBlockBytes& aui8Base, unsigned int uiBit)
{
    constexpr unsigned int uiMostBits = 24;
    if (uiBit < uiMostBits)
    {
        aui8Base[BaseBlock::gsc_uiEstablishedOffset + uiBit / gsc_uiBits] |= 0x80U >> (uiBit % gsc_uiBits);
    }
}

// ---- Range limits ----

struct SRange
{
    unsigned int m_uiMinVertical; // Hz
    unsigned int m_uiMaxVertical;
    unsigned int m_uiMinHorizontal; // kHz
    unsigned int m_uiMaxHorizontal;
    unsigned int m_uiMaxClock; // 10 MHz

    bool NeedsOffsets() const
    {
        return m_uiMaxVertical > Descriptors::gsc_uiRateOffset || m_uiMaxHorizontal > Descriptors::gsc_uiRateOffset;
    }
    // The largest value means that or more.
    void Clip(unsigned int uiMostRate)
    {
        constexpr unsigned int uiMostByte = 255;
        m_uiMinVertical = std::min(m_uiMinVertical, uiMostByte);
        m_uiMinHorizontal = std::min(m_uiMinHorizontal, uiMostByte);
        m_uiMaxVertical = std::min(m_uiMaxVertical, uiMostRate);
        m_uiMaxHorizontal = std::min(m_uiMaxHorizontal, uiMostRate);
        m_uiMaxClock = std::min(m_uiMaxClock, uiMostByte);
    }
};

unsigned int DivideUp(unsigned long long ullValue, unsigned long long ullBy)
{
    return static_cast<unsigned int>((ullValue + ullBy - 1) / ullBy);
}

// Those of all modes, of codes also at 1000/1001 of the rate.
SRange FindRange(const CMakerPlan& oPlan)
{
    constexpr unsigned long long ullKilo = 1000;
    constexpr unsigned long long ullClockUnit = 10000000;
    SRange oRange = { ~0U, 0, ~0U, 0, 0 };
    for (unsigned int i = 0; i < oPlan.GetCount(); ++i)
    {
        const SZorMode& oTiming = oPlan.Get(i).m_oTiming;
        const bool bCode = oPlan.Get(i).m_uiCode != 0;
        const unsigned long long ullDown = bCode ? 1001 : ullKilo;
        const SZorMode::SRate& oRate = oTiming.m_oRate;
        const unsigned long long ullLine = ullKilo * oTiming.m_oHorizontal.m_uiTotal;
        const unsigned long long ullLeastLine = oTiming.m_ullClock * ullKilo / (ullLine * ullDown);
        const unsigned long long ullLeastRate = oRate.m_ullDividend * ullKilo / (oRate.m_ullDivisor * ullDown);
        oRange.m_uiMinVertical = std::min(oRange.m_uiMinVertical, static_cast<unsigned int>(ullLeastRate));
        oRange.m_uiMaxVertical = std::max(oRange.m_uiMaxVertical, DivideUp(oRate.m_ullDividend, oRate.m_ullDivisor));
        oRange.m_uiMinHorizontal = std::min(oRange.m_uiMinHorizontal, static_cast<unsigned int>(ullLeastLine));
        oRange.m_uiMaxHorizontal = std::max(oRange.m_uiMaxHorizontal, DivideUp(oTiming.m_ullClock, ullLine));
        oRange.m_uiMaxClock = std::max(oRange.m_uiMaxClock, DivideUp(oTiming.m_ullClock, ullClockUnit));
    }
    const SZorEdidWishes& oWishes = oPlan.GetWishes();
    if (oWishes.HasVrr())
    {
        const bool bIsRange = !oPlan.IsHdmi(); // of DisplayPort nothing else says the range
        oRange.m_uiMinVertical = bIsRange ? oWishes.m_uiVrrMin : std::min(oRange.m_uiMinVertical, oWishes.m_uiVrrMin);
        oRange.m_uiMaxVertical = bIsRange ? oWishes.m_uiVrrMax : std::max(oRange.m_uiMaxVertical, oWishes.m_uiVrrMax);
    }
    return oRange;
}

void WriteRange(const SRange& oRange, bool bRevision4, CDetailedBytes& aui8Bytes)
{
    using namespace Descriptors;
    WriteEmptyLimits(aui8Bytes, bRevision4);
    WriteRates(aui8Bytes, gsc_oVerticalRates, oRange.m_uiMinVertical, oRange.m_uiMaxVertical, true);
    WriteRates(aui8Bytes, gsc_oHorizontalRates, oRange.m_uiMinHorizontal, oRange.m_uiMaxHorizontal, true);
    gsc_oMaxPixelClock.Write(aui8Bytes, oRange.m_uiMaxClock);
}

void WriteText(unsigned char ui8Tag, const CMString& sText, CDetailedBytes& aui8Bytes)
{
    Descriptors::WriteText(aui8Bytes, ui8Tag, static_cast<const char*>(sText),
                           static_cast<unsigned int>(sText.GetLength()));
}
} // namespace

const char* GetMaker(const CMakerPlan& oPlan)
{
    const CMString& sMaker = oPlan.GetWishes().m_sMaker;
    return sMaker.GetLength() != 0 ? static_cast<const char*>(sMaker) : gsc_szNeutralMaker;
}

unsigned int GetProduct(const CMakerPlan& oPlan)
{
    return oPlan.GetWishes().m_uiProduct != 0 ? oPlan.GetWishes().m_uiProduct : 1;
}

SImageSizeInMm GetImageSize(const CMakerPlan& oPlan)
{
    return { oPlan.GetWishes().m_uiWidthInMm, oPlan.GetWishes().m_uiHeightInMm };
}

void MakeBaseBlock(const CMakerPlan& oPlan, const SDonor& oDonor, CBlockBytes& aui8Base)
{
    using namespace BaseBlock;
    constexpr unsigned int uiMmPerCm = 10;
    constexpr unsigned int uiVgaBit = 2; // 640 x 480 at 60 Hz
    memset(aui8Base, 0, sizeof(aui8Base));
    memcpy(aui8Base, EDID_V1_HEADER, sizeof(EDID_V1_HEADER));
    MakeIdentity(oPlan, oDonor, aui8Base);
    aui8Base[gsc_uiVersionOffset] = gsc_uiVersion;
    aui8Base[BaseBlock::gsc_uiRevisionOffset] = IsRevision3(oPlan) ? 3 : 4;
    MakeInput(oPlan, aui8Base);
    aui8Base[gsc_uiImageWidthOffset] =
        static_cast<unsigned char>((GetImageSize(oPlan).m_uiWidth + uiMmPerCm / 2) / uiMmPerCm);
    aui8Base[gsc_uiImageHeightOffset] =
        static_cast<unsigned char>((GetImageSize(oPlan).m_uiHeight + uiMmPerCm / 2) / uiMmPerCm);
    MakeColors(oDonor, aui8Base);
    SetEstablished(aui8Base, uiVgaBit);
    for (unsigned int i = 0; i < oPlan.GetCount(); ++i)
    {
        SetEstablished(aui8Base, oPlan.Get(i).m_uiEstablished);
    }
    memset(aui8Base + gsc_uiStandardsOffset, gsc_uiUnusedStandard, gsc_uiDescriptorsOffset - gsc_uiStandardsOffset);
    CDetailedBytes aui8First;
    WriteDetailed(oPlan.Get(oPlan.GetFirstDetailed()).m_oTiming, GetImageSize(oPlan), aui8First);
    memcpy(aui8Base + gsc_uiDescriptorsOffset, aui8First, sizeof(aui8First));
    for (unsigned int i = 1; i < gsc_uiDescriptors; ++i)
    {
        aui8Base[DescriptorOffset(i) + gsc_uiTagOffset] = gsc_ui8TagEmpty;
    }
    CEdidUtils::StoreChecksum(sizeof(aui8Base), aui8Base);
}

bool MakeRange(const CMakerPlan& oPlan, CDetailedBytes& aui8Bytes)
{
    constexpr unsigned int uiMostRate = 255;
    SRange oRange = FindRange(oPlan);
    if (!IsRevision3(oPlan) && oRange.NeedsOffsets() && !HasContinuousFrequency(oPlan))
    {
        return false;
    }
    oRange.Clip(IsRevision3(oPlan) ? uiMostRate : 2 * uiMostRate); // of 1.3, which has no offsets
    WriteRange(oRange, !IsRevision3(oPlan), aui8Bytes);
    return true;
}

void MakeName(const CMakerPlan& oPlan, CDetailedBytes& aui8Bytes)
{
    const CMString& sName = oPlan.GetWishes().m_sName;
    WriteText(Descriptors::gsc_ui8TagName, sName.GetLength() != 0 ? sName : CMString(gsc_szNeutralName), aui8Bytes);
}

void MakeSerial(const CMakerPlan& oPlan, CDetailedBytes& aui8Bytes)
{
    WriteText(Descriptors::gsc_ui8TagSerialNumber, oPlan.GetWishes().m_sSerial, aui8Bytes);
}
} // namespace ZorWrite
