// Fabs, Floor and Ceil: values by hand where the layer departs from the C library, the C library for the rest.

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <stdint.h>

#include "OsServices.h"

namespace
{
uint64_t Bits(double dValue) { return std::bit_cast<uint64_t>(dValue); }
}

TEST(Math, AgreesWithTheCLibraryAroundAndBetweenAllPowersOfTwo)
{
    constexpr double dInfinity = std::numeric_limits<double>::infinity();
    for (const int iExponent : { -1074, -3, -2, -1, 0, 1, 2, 20, 31, 32, 51, 52, 53, 54, 62, 63, 64, 1024 })
    {
        const double dPower = std::ldexp(1.0, iExponent);
        for (const double d : { std::nextafter(dPower, 0.0), dPower, std::nextafter(dPower, dInfinity), 1.3 * dPower })
        {
            for (const double dValue : { d, -d })
            {
                // Adding +0.0 turns the C library's -0.0 into the +0.0 of this layer and changes nothing else.
                EXPECT_EQ(Bits(std::floor(dValue) + 0.0), Bits(OsServices::Floor(dValue))) << dValue;
                EXPECT_EQ(Bits(std::ceil(dValue) + 0.0), Bits(OsServices::Ceil(dValue))) << dValue;
                EXPECT_EQ(d != 0.0 ? Bits(d) : Bits(dValue), Bits(OsServices::Fabs(dValue))) << dValue;
            }
        }
    }
    EXPECT_EQ(Bits(-0.0), Bits(OsServices::Fabs(-0.0)));
}

TEST(Math, OnlyFabsFlipsTheSignOfNaN)
{
    const double dNaN = std::numeric_limits<double>::quiet_NaN();
    for (const double dEither : { dNaN, -dNaN })
    {
        EXPECT_EQ(Bits(-dEither), Bits(OsServices::Fabs(dEither)));
        EXPECT_EQ(Bits(dEither), Bits(OsServices::Floor(dEither)));
        EXPECT_EQ(Bits(dEither), Bits(OsServices::Ceil(dEither)));
    }
}
