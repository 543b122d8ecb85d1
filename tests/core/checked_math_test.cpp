#include "core/checked_math.h"

#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <limits>

namespace quelmont {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Largest = std::numeric_limits<double>::max();

TEST(CheckedMath, FiniteValuesPass) {
    EXPECT_EQ(Finite(Largest), Largest);
    EXPECT_EQ(Finite(-Largest), -Largest);
    EXPECT_EQ(ErrorOf([] { Finite(Infinity); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { Finite(-Infinity); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { Finite(NotANumber); }), ErrorOverflow);
}

TEST(CheckedMath, DivisionByZeroFailsWhateverTheDividend) {
    EXPECT_EQ(Divide(7.0, 2.0), 3.5);
    EXPECT_EQ(ErrorOf([] { Divide(1.0, 0.0); }), ErrorDivisionByZero);
    EXPECT_EQ(ErrorOf([] { Divide(0.0, 0.0); }), ErrorDivisionByZero);
    EXPECT_EQ(ErrorOf([] { Divide(1.0, -0.0); }), ErrorDivisionByZero);
}

TEST(CheckedMath, QuotientBeyondTheRangeOverflows) {
    EXPECT_EQ(ErrorOf([] { Divide(1e300, 1e-300); }), ErrorOverflow);
}

TEST(CheckedMath, RemainderHasTheSignOfTheDividend) {
    EXPECT_EQ(Remainder(7, 3), 1);
    EXPECT_EQ(Remainder(-7, 3), -1);
    EXPECT_EQ(Remainder(7, -3), 1);
    EXPECT_EQ(Remainder(std::numeric_limits<std::int32_t>::min(), -1), 0);
    EXPECT_EQ(ErrorOf([] { Remainder(648000, 0); }), ErrorDivisionByZero);
}

TEST(CheckedMath, LogarithmNeedsAPositiveNumber) {
    EXPECT_EQ(Logarithm(1.0), 0.0);
    for (const double value : {0.0, -1.0, NotANumber}) {
        EXPECT_EQ(ErrorOf([=] { Logarithm(value); }), ErrorInvalidCall);
    }
}

TEST(CheckedMath, SquareRootNeedsANumberThatIsNotNegative) {
    EXPECT_EQ(SquareRoot(0.0), 0.0);
    EXPECT_EQ(SquareRoot(6.25), 2.5);
    EXPECT_EQ(ErrorOf([] { SquareRoot(-1e-300); }), ErrorInvalidCall);
    EXPECT_EQ(ErrorOf([] { SquareRoot(NotANumber); }), ErrorInvalidCall);
}

TEST(CheckedMath, PowerFailsWhereItHasNoValue) {
    EXPECT_EQ(Power(2.0, 10.0), 1024.0);
    EXPECT_EQ(Power(-2.0, 3.0), -8.0);
    EXPECT_EQ(Power(0.0, 0.0), 1.0);
    EXPECT_EQ(ErrorOf([] { Power(-2.0, 0.5); }), ErrorInvalidCall);
    EXPECT_EQ(ErrorOf([] { Power(0.0, -1.0); }), ErrorInvalidCall);
    EXPECT_EQ(ErrorOf([] { Power(10.0, 400.0); }), ErrorOverflow);
}

TEST(CheckedMath, SignTellsTheThreeCases) {
    EXPECT_EQ(Sign(-3.5), -1.0);
    EXPECT_EQ(Sign(0.0), 0.0);
    EXPECT_EQ(Sign(1e-300), 1.0);
}

} // namespace
} // namespace quelmont
