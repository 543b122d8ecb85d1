#include "projection/interval.h"

#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <random>

namespace quelmont {
namespace {

/// Intervals with points of theirs, in radians within a full turn.
class IntervalTest : public ::testing::Test {
protected:
    double Between(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    }
    Interval Any() {
        const double low = Between(-6.28, 6.28);
        return {low, Between(low, 6.28)};
    }
    double In(Interval a) { return Between(a.low, a.high); }
    static void ExpectHolds(Interval a, double value) {
        EXPECT_LE(a.low, value + 1e-12);
        EXPECT_GE(a.high, value - 1e-12);
    }
    std::mt19937 random{1234};
};

TEST_F(IntervalTest, HoldsWhatIsComputedOfItsNumbers) {
    for (int i = 0; i < 10'000; ++i) {
        const Interval a = Any();
        const Interval b = Any();
        const double x = In(a);
        const double y = In(b);
        ExpectHolds(a + b, x + y);
        ExpectHolds(a - b, x - y);
        ExpectHolds(a * b, x * y);
        ExpectHolds(a / 3.0, x / 3.0);
        ExpectHolds(sin(a), std::sin(x));
        ExpectHolds(cos(a), std::cos(x));
    }
}

TEST_F(IntervalTest, SineAndCosineReachTheirExtremes) {
    EXPECT_EQ(sin(Interval(1.0, 2.0)).high, 1.0);
    EXPECT_EQ(sin(Interval(1.0, 2.0)).low, std::sin(1.0));
    EXPECT_EQ(sin(Interval(-2.0, -1.0)).low, -1.0);
    EXPECT_EQ(cos(Interval(-1.0, 0.5)).high, 1.0);
    EXPECT_EQ(cos(Interval(-1.0, 0.5)).low, std::cos(-1.0));
    EXPECT_EQ(cos(Interval(3.0, 4.0)).low, -1.0);
}

TEST_F(IntervalTest, TangentGrowsBetweenThePoles) {
    EXPECT_EQ(tan(Interval(-1.0, 0.5)).low, std::tan(-1.0));
    EXPECT_EQ(tan(Interval(-1.0, 0.5)).high, std::tan(0.5));
}

TEST_F(IntervalTest, QuotientsAndRootsFailLikeThoseOfNumbers) {
    const Interval quotient = Divide(6.0, Interval(2.0, 3.0));
    EXPECT_NEAR(quotient.low, 2.0, 1e-12);
    EXPECT_NEAR(quotient.high, 3.0, 1e-12);
    EXPECT_EQ(ErrorOf([] { Divide(1.0, Interval(-1.0, 1.0)); }), ErrorDivisionByZero);
    EXPECT_EQ(SquareRoot(Interval(4.0, 9.0)).high, 3.0);
    EXPECT_EQ(ErrorOf([] { SquareRoot(Interval(-1.0, 1.0)); }), ErrorInvalidCall);
}

} // namespace
} // namespace quelmont
