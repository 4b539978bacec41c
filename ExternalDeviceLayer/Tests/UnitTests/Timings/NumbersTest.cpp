// The check of NumbersCheck.h over sizes and rates that reach both ends of the range, with random numbers beside them.

#include <gtest/gtest.h>

#include <random>

#include "NumbersCheck.h"

namespace
{
TEST(Numbers, AgreeWithTheSecondComputations)
{
    // Small sizes, real ones, and those that make a sum or 4, 5, 15 or 16 times a height wrap.
    const std::vector<unsigned int> auiSizes = { 0,          1,          3,          4,          7,          8,
                                                 9,          144,        176,        480,        640,        768,
                                                 1024,       1280,       1360,       1366,       1920,       16384,
                                                 65535,      65536,      0x15555556, 0x40000000, 0x55555550, 0x7FFFFFFF,
                                                 0x80000000, 0xFFFFFFF4, 0xFFFFFFFD, 0xFFFFFFFF };
    const std::vector<unsigned int> auiRates = { 0,   1,    20,   24,   30,   50,   60,     75,         120,
                                                 240, 1000, 1818, 1819, 2173, 2174, 100000, 0x7FFFFFFF, 0xFFFFFFFF };
    std::mt19937 oRandom(20240229);
    const auto AnyMagnitude = [&] { return static_cast<unsigned int>(oRandom()) >> oRandom() % 32; };
    for (size_t i = 0; i < auiSizes.size() * auiSizes.size() * auiRates.size(); ++i)
    {
        CNumbers aui;
        std::generate(aui.begin(), aui.end(), AnyMagnitude);
        ASSERT_STREQ(nullptr, CNumbersCheck().Run(aui)) << testing::PrintToString(aui);
        aui[0] = auiSizes[i % auiSizes.size()];
        aui[4] = auiSizes[i / auiSizes.size() % auiSizes.size()];
        aui[9] = auiRates[i / auiSizes.size() / auiSizes.size()];
        ASSERT_STREQ(nullptr, CNumbersCheck().Run(aui)) << testing::PrintToString(aui);
    }
}
}
