// Fabs, Floor and Ceil: rows by hand where the layer departs from the C library, the C library for the rest.

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <stdint.h>

#include "OsServices.h"

namespace
{
constexpr double gsc_dTwo52 = 4503599627370496.0;
constexpr double gsc_dTwo53 = 2 * gsc_dTwo52;
constexpr double gsc_dTwo63 = 1024 * gsc_dTwo53;
constexpr double gsc_dTwo64 = 2 * gsc_dTwo63;
constexpr double gsc_dInfinity = std::numeric_limits<double>::infinity();

uint64_t Bits(double dValue) { return std::bit_cast<uint64_t>(dValue); }

struct SRoundingCase
{
    const char* m_szName;
    double m_dValue;
    double m_dFloor;
    double m_dCeil;
};

const SRoundingCase gsc_aoRoundingCases[] = {
    { "Fraction", 2.5, 2.0, 3.0 },
    { "NegativeFraction", -2.5, -3.0, -2.0 },
    { "Whole", 4.0, 4.0, 4.0 },
    { "NegativeWhole", -3.0, -3.0, -3.0 },
    { "Zero", 0.0, 0.0, 0.0 },
    { "MinusZeroLosesItsSign", -0.0, 0.0, 0.0 },
    { "CeilOfSmallNegativeIsPlusZero", -0.25, -1.0, 0.0 },
    { "JustBelowOne", 0x1.fffffffffffffp-1, 0.0, 1.0 },
    { "SmallestPositive", 0x1p-1074, 0.0, 1.0 },
    { "SmallestNegative", -0x1p-1074, -1.0, 0.0 },
    { "LastHalfBelowTwo52", gsc_dTwo52 - 0.5, gsc_dTwo52 - 1.0, gsc_dTwo52 },
    { "LastNegativeHalf", 0.5 - gsc_dTwo52, -gsc_dTwo52, 1.0 - gsc_dTwo52 },
    { "OutsideStaysAsItIs", gsc_dTwo64, gsc_dTwo64, gsc_dTwo64 },
    { "InfinityStaysAsItIs", -gsc_dInfinity, -gsc_dInfinity, -gsc_dInfinity },
};
}

TEST(Math, RoundsBitForBit)
{
    for (const SRoundingCase& oCase : gsc_aoRoundingCases)
    {
        EXPECT_EQ(Bits(oCase.m_dFloor), Bits(OsServices::Floor(oCase.m_dValue))) << oCase.m_szName;
        EXPECT_EQ(Bits(oCase.m_dCeil), Bits(OsServices::Ceil(oCase.m_dValue))) << oCase.m_szName;
    }
}

namespace
{
// Adding +0.0 turns the C library's -0.0 into the +0.0 of this layer and changes nothing else.
void ExpectLikeTheCLibrary(double dValue)
{
    EXPECT_EQ(Bits(std::floor(dValue) + 0.0), Bits(OsServices::Floor(dValue))) << dValue;
    EXPECT_EQ(Bits(std::ceil(dValue) + 0.0), Bits(OsServices::Ceil(dValue))) << dValue;
    EXPECT_EQ(Bits(std::fabs(dValue)), Bits(OsServices::Fabs(dValue))) << dValue;
}
}

TEST(Math, AgreesWithTheCLibraryAroundPowersOfTwo)
{
    const double adMiddles[] = { 1.0, 2.0, 4294967296.0, gsc_dTwo52, gsc_dTwo53, gsc_dTwo63 };
    for (const double dMiddle : adMiddles)
    {
        const double dBelow = std::nextafter(dMiddle, 0.0);
        const double dAbove = std::nextafter(dMiddle, gsc_dInfinity);
        for (const double dValue : { std::nextafter(dBelow, 0.0), dBelow, dMiddle, dAbove })
        {
            ExpectLikeTheCLibrary(dValue);
            ExpectLikeTheCLibrary(-dValue);
        }
    }
    ExpectLikeTheCLibrary(std::nextafter(gsc_dTwo64, 0.0));
    ExpectLikeTheCLibrary(-std::nextafter(gsc_dTwo64, 0.0));
}

TEST(Math, AgreesWithTheCLibraryOnRandomBitsInTheDomain)
{
    std::mt19937_64 oRandom(1);
    for (int i = 0; i < 20000; ++i)
    {
        // Sign and fraction at random, exponents from 2^-16 to below 2^64.
        const uint64_t uiExponent = 1023 - 16 + oRandom() % 80;
        const uint64_t uiRest = oRandom() & 0x800FFFFFFFFFFFFFU;
        ExpectLikeTheCLibrary(std::bit_cast<double>(uiExponent << 52 | uiRest));
    }
}

TEST(Math, FabsKeepsMinusZeroAndFlipsTheSignOfNaN)
{
    EXPECT_EQ(1.5, OsServices::Fabs(-1.5));
    EXPECT_EQ(Bits(-0.0), Bits(OsServices::Fabs(-0.0)));
    const double dNaN = std::numeric_limits<double>::quiet_NaN();
    const uint64_t uiSign = 1ULL << 63;
    EXPECT_EQ(Bits(dNaN) ^ uiSign, Bits(OsServices::Fabs(dNaN)));
    EXPECT_EQ(Bits(dNaN), Bits(OsServices::Fabs(std::bit_cast<double>(Bits(dNaN) ^ uiSign))));
    EXPECT_EQ(Bits(dNaN), Bits(OsServices::Floor(dNaN)));
}
