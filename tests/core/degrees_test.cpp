#include "core/degrees.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace quelmont {
namespace {

TEST(Degrees, OfWholeSecondsAreTheNearestDoublesToTheQuotient) {
    for (std::int32_t seconds = -SecPerCircle; seconds <= SecPerCircle; ++seconds) {
        ASSERT_EQ(DegreesOf(seconds), seconds / 3600.0) << seconds;
    }
}

/// A map file may hold any number.
TEST(Degrees, OfSecondsBeyondTheCircleAreTheNearestDoublesToo) {
    std::mt19937 generator(5);
    std::uniform_int_distribution<std::int32_t> any(std::numeric_limits<std::int32_t>::min(),
                                                    std::numeric_limits<std::int32_t>::max());
    for (int i = 0; i < 1'000'000; ++i) {
        const std::int32_t seconds = any(generator);
        ASSERT_EQ(DegreesOf(seconds), seconds / 3600.0) << seconds;
    }
    EXPECT_EQ(DegreesOf(std::numeric_limits<std::int32_t>::min()), -2147483648.0 / 3600.0);
    EXPECT_EQ(DegreesOf(std::numeric_limits<std::int32_t>::max()), 2147483647.0 / 3600.0);
}

} // namespace
} // namespace quelmont
