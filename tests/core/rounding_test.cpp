#include "core/rounding.h"

#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <limits>

namespace quelmont {
namespace {

TEST(Rounding, TiesGoToTheEvenNeighbour) {
    EXPECT_EQ(RoundToInt16(0.5), 0);
    EXPECT_EQ(RoundToInt16(1.5), 2);
    EXPECT_EQ(RoundToInt16(2.5), 2);
    EXPECT_EQ(RoundToInt16(-0.5), 0);
    EXPECT_EQ(RoundToInt16(-1.5), -2);
    EXPECT_EQ(RoundToInt32(2.5), 2);
    EXPECT_EQ(RoundToInt32(-3.5), -4);
    EXPECT_EQ(RoundToInt32(1000000.5), 1000000);
}

TEST(Rounding, OtherValuesGoToTheNearest) {
    EXPECT_EQ(RoundToInt16(0.49999999999999994), 0) << "adding a half and cutting would give 1";
    EXPECT_EQ(RoundToInt16(2.5000000001), 3);
    EXPECT_EQ(RoundToInt32(-2.4999999), -2);
    EXPECT_EQ(RoundToInt32(-2.5000001), -3);
}

TEST(Rounding, TheEndsOfTheRangeAreReachedByRounding) {
    EXPECT_EQ(RoundToInt16(32767.49), 32767);
    EXPECT_EQ(RoundToInt16(-32768.5), -32768) << "the tie goes to the even neighbour, which is inside";
    EXPECT_EQ(RoundToInt32(2147483647.49), 2147483647);
    EXPECT_EQ(RoundToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
}

TEST(Rounding, BeyondTheRangeIsAnOverflowNeverAClippedValue) {
    EXPECT_EQ(ErrorOf([] { RoundToInt16(32767.5); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { RoundToInt16(-32768.51); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { RoundToInt32(2147483647.5); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { RoundToInt32(-2147483648.51); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { RoundToInt16(1e300); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { RoundToInt32(-1e300); }), ErrorOverflow);
}

TEST(Rounding, InfinityAndNoNumberOverflow) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    for (const double value : {infinity, -infinity, none}) {
        EXPECT_EQ(ErrorOf([=] { RoundToInt16(value); }), ErrorOverflow);
        EXPECT_EQ(ErrorOf([=] { RoundToInt32(value); }), ErrorOverflow);
    }
}

} // namespace
} // namespace quelmont
