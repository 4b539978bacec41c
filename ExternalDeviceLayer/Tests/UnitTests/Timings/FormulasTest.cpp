// The formulas of the standards against what the standards publish.

#include <gtest/gtest.h>

#include <array>

#include "Standards/Formulas.h"
#include "Standards/VesaModes.h"

using namespace ZorStandards;

namespace
{
using EBlankingOf = SZorMode::EBlanking;

SZorMode Ask(unsigned int uiWidth, unsigned int uiHeight, const SZorMode::SRate& oRate, bool bInterlaced = false)
{
    SZorMode oMode = {};
    oMode.m_uiWidth = uiWidth;
    oMode.m_uiHeight = uiHeight;
    oMode.m_bInterlaced = bInterlaced;
    oMode.m_oNominalRate = oRate;
    return oMode;
}

template <EBlankingOf eBlanking>
bool Cvt(SZorMode& oMode)
{
    oMode.m_eBlanking = eBlanking;
    return ComputeCvt(oMode);
}

bool (*const gsc_apfnAll[])(SZorMode& oMode) = {
    [](SZorMode& oMode) { return ComputeGtf(oMode); },
    [](SZorMode& oMode) {
        return ComputeGtf(oMode, { 80, 500, 100, 60 });
    },
    Cvt<SZorMode::eBlanking_Standard>,
    Cvt<SZorMode::eBlanking_Reduced1>,
    Cvt<SZorMode::eBlanking_Reduced2>,
    [](SZorMode& oMode) {
        oMode.m_eBlanking = SZorMode::eBlanking_Reduced2;
        return ComputeCvt(oMode, { .m_bVideo = true });
    },
    Cvt<SZorMode::eBlanking_Reduced3>,
    [](SZorMode& oMode) {
        oMode.m_eBlanking = SZorMode::eBlanking_Reduced3;
        return ComputeCvt(oMode, { 120, 600, true });
    },
    ComputeOvt,
};

// Horizontal front porch, sync, total; vertical ones; clock in Hz.
using CNumbers = std::array<unsigned long long, 7>;

CNumbers GetNumbers(const SZorMode& oMode)
{
    return { oMode.m_oHorizontal.m_uiFront,
             oMode.m_oHorizontal.m_uiSync,
             oMode.m_oHorizontal.m_uiTotal,
             oMode.m_oVertical.m_uiFront,
             oMode.m_oVertical.m_uiSync,
             oMode.m_oVertical.m_uiTotal,
             oMode.m_ullClock };
}
} // namespace

TEST(Formulas, KnownModes)
{
    constexpr CNumbers aoNumbers[] = {
        { 120, 208, 2576, 1, 3, 1118, 172798080 }, { 208, 224, 2784, 1, 3, 1118, 186750720 },
        { 128, 200, 2576, 3, 5, 1120, 173000000 }, { 48, 32, 2080, 3, 5, 1111, 138500000 },
        { 8, 32, 2000, 17, 8, 1111, 133320000 },   { 8, 32, 2000, 17, 8, 1111, 133186000 },
        { 8, 32, 2000, 17, 8, 1111, 133320000 },   { 8, 32, 2040, 13, 8, 1121, 137211000 },
        { 96, 32, 2080, 13, 8, 1120, 139776000 },
    };
    for (size_t i = 0; i < std::size(gsc_apfnAll); ++i)
    {
        SZorMode oMode = Ask(1920, 1080, { 60, 1 });
        ASSERT_TRUE(gsc_apfnAll[i](oMode)) << i;
        EXPECT_EQ(GetNumbers(oMode), aoNumbers[i]) << i;
    }
    // Interlaced frames have a line more than two fields of whole lines.
    SZorMode oMode = Ask(1920, 1080, { 60, 1 }, true);
    ASSERT_TRUE(Cvt<SZorMode::eBlanking_Standard>(oMode));
    EXPECT_EQ(GetNumbers(oMode), (CNumbers{ 64, 192, 2432, 3, 5, 1125, 82000000 }));
    EXPECT_EQ(oMode.m_oRate.m_ullDividend, 2 * oMode.m_ullClock);
    // Rates of a group of OVT share the clock; a clock above 590 MHz has wider blanking.
    oMode = Ask(3840, 2160, { 144000, 1001 });
    ASSERT_TRUE(ComputeOvt(oMode));
    EXPECT_EQ(GetNumbers(oMode), (CNumbers{ 96, 32, 4000, 20, 8, 2314, 1331532468 }));
    oMode = Ask(1920, 1080, { 24, 1 });
    ASSERT_TRUE(ComputeOvt(oMode));
    EXPECT_EQ(GetNumbers(oMode), (CNumbers{ 160, 32, 2144, 281, 8, 1375, 70752000 }));
}

// Rows of DMT with reduced blanking, but for those that it publishes with other porches.
TEST(Formulas, ReducedBlankingOfDmt)
{
    unsigned int uiRows = 0;
    for (const SDmtMode& oRow : gsc_aoDmtModes)
    {
        const SPublishedTiming& oTiming = oRow.m_oTiming;
        if (oRow.m_eBlanking == EBlanking::eNormal || oTiming.m_eSync != ESync::ePN)
        {
            continue;
        }
        SZorMode oMode = Ask(oTiming.m_ui16Width, oTiming.m_ui16Height, { oTiming.m_ui8Rate, 1 });
        oMode.m_eBlanking =
            oRow.m_eBlanking == EBlanking::eReduced1 ? SZorMode::eBlanking_Reduced1 : SZorMode::eBlanking_Reduced2;
        ASSERT_TRUE(ComputeCvt(oMode, { .m_bVideo = oRow.m_bFraction }));
        EXPECT_EQ(GetNumbers(oMode),
                  (CNumbers{ oTiming.m_ui16HorizontalFront, oTiming.m_ui16HorizontalSync, oTiming.GetTotalWidth(),
                             oTiming.m_ui8VerticalFront, oTiming.m_ui8VerticalSync, oTiming.GetTotalHeight(),
                             1000ULL * oTiming.m_uiClock }))
            << oTiming.m_ui16Width << "x" << oTiming.m_ui16Height << "@" << +oTiming.m_ui8Rate;
        ++uiRows;
    }
    EXPECT_EQ(uiRows, 25U);
}

// No answer leaves the mode as it was; each answer is a timing within the totals and near the rate.
TEST(Formulas, ExtremesAreRefusedOrFit)
{
    constexpr unsigned int auiSizes[] = { 0, 1, 8, 161, 1080, 65528, 65535, 65536, 65537, 0xFFFFFFFF };
    constexpr SZorMode::SRate aoRates[] = { { 60, 0 },
                                            { 0, 1 },
                                            { 999, 1000 },
                                            { 1, 1 },
                                            { 1000, 1 },
                                            { 1001, 1 },
                                            { 24000, 1001 },
                                            { ~0ULL, ~0ULL - 1 },
                                            { 1ULL << 43, (1ULL << 34) - 1 } };
    for (const auto pfnCompute : gsc_apfnAll)
    {
        for (unsigned int i = 0; i < 2 * 10 * 10 * 9; ++i)
        {
            SZorMode oMode = Ask(auiSizes[i / 2 % 10], auiSizes[i / 20 % 10], aoRates[i / 200], i % 2 != 0);
            if (!pfnCompute(oMode))
            {
                EXPECT_TRUE(!oMode.m_bTiming && oMode.m_ullClock == 0 && oMode.m_oHorizontal.m_uiTotal == 0);
                continue;
            }
            const auto fnFits = [](const SZorMode::SAxis& oAxis) {
                return oAxis.m_uiActive != 0 && oAxis.m_uiSync != 0 &&
                       0ULL + oAxis.m_uiActive + oAxis.m_uiFront + oAxis.m_uiSync <= oAxis.m_uiTotal;
            };
            EXPECT_TRUE(fnFits(oMode.m_oHorizontal) && fnFits(oMode.m_oVertical) && oMode.m_ullClock != 0);
            EXPECT_LE(oMode.m_uiWidth, 65536U);
            EXPECT_LE(oMode.m_oNominalRate.m_ullDividend, 1000 * oMode.m_oNominalRate.m_ullDivisor);
        }
    }
}
