// Fabs, Floor and Ceil: values by hand where the layer departs from the C library, the C library for the rest.

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <stdint.h>

#include "OsServices.h"

namespace
{
constexpr double gsc_dInfinity = std::numeric_limits<double>::infinity();

uint64_t Bits(double dValue) { return std::bit_cast<uint64_t>(dValue); }

// Adding +0.0 turns the C library's -0.0 into the +0.0 of this layer and changes nothing else.
void ExpectLikeTheCLibrary(double dValue)
{
    EXPECT_EQ(Bits(std::floor(dValue) + 0.0), Bits(OsServices::Floor(dValue))) << dValue;
    EXPECT_EQ(Bits(std::ceil(dValue) + 0.0), Bits(OsServices::Ceil(dValue))) << dValue;
    EXPECT_EQ(Bits(std::fabs(dValue)), Bits(OsServices::Fabs(dValue))) << dValue;
}
}

TEST(Math, AgreesWithTheCLibraryAroundAndBetweenAllPowersOfTwo)
{
    for (int iExponent = -3; iExponent < 64; ++iExponent)
    {
        const double dPower = std::ldexp(1.0, iExponent);
        const double adValues[] = { std::nextafter(dPower, 0.0), dPower, std::nextafter(dPower, gsc_dInfinity),
                                    1.3 * dPower };
        for (const double dValue : adValues)
        {
            ExpectLikeTheCLibrary(dValue);
            ExpectLikeTheCLibrary(-dValue);
        }
    }
}

TEST(Math, EndsOfTheDomainAndBeyond)
{
    const double dSmallest = 0x1p-1074;
    for (const double dValue : { dSmallest, std::nextafter(0x1p64, 0.0), 0x1p64, gsc_dInfinity })
    {
        ExpectLikeTheCLibrary(dValue);
        ExpectLikeTheCLibrary(-dValue);
    }
    EXPECT_EQ(Bits(0.0), Bits(OsServices::Floor(-0.0)));
    EXPECT_EQ(Bits(0.0), Bits(OsServices::Ceil(-0.0)));
    EXPECT_EQ(Bits(0.0), Bits(OsServices::Ceil(-0.25)));
}

TEST(Math, OnlyFabsFlipsTheSignOfNaN)
{
    EXPECT_EQ(Bits(-0.0), Bits(OsServices::Fabs(-0.0)));
    const double dNaN = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Bits(-dNaN), Bits(OsServices::Fabs(dNaN)));
    EXPECT_EQ(Bits(dNaN), Bits(OsServices::Fabs(-dNaN)));
    for (const double dEither : { dNaN, -dNaN })
    {
        EXPECT_EQ(Bits(dEither), Bits(OsServices::Floor(dEither)));
        EXPECT_EQ(Bits(dEither), Bits(OsServices::Ceil(dEither)));
    }
}
