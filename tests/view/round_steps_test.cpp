#include "view/round_steps.h"

#include <gtest/gtest.h>

#include <ostream>

namespace quelmont {

std::ostream& operator<<(std::ostream& stream, const MapAxis& axis) {
    return stream << axis.low << " to " << axis.high << " by " << axis.spacing;
}

namespace {

constexpr std::int64_t Degree = 3600;
constexpr AxisLimits Globe{-90 * Degree, 90 * Degree};
constexpr AxisLimits Metric{0, 99'999'999};

TEST(RoundSteps, AreThoseThatPeopleTake) {
    EXPECT_EQ(RoundStepBelow(0.2, StepUnit::Seconds), 1) << "none is smaller";
    EXPECT_EQ(RoundStepBelow(29.9, StepUnit::Seconds), 15);
    EXPECT_EQ(RoundStepBelow(30.0, StepUnit::Seconds), 30);
    EXPECT_EQ(RoundStepBelow(59.0 * 60.0, StepUnit::Seconds), 30 * 60);
    EXPECT_EQ(RoundStepBelow(1e9, StepUnit::Seconds), 90 * Degree);
    EXPECT_EQ(RoundStepNear(26.0 * 3600.0, StepUnit::Seconds), 30 * Degree)
        << "26/30 is nearer to 1 than 15/26";
    EXPECT_EQ(RoundStepNear(4200.0, StepUnit::Metres), 5000);
    EXPECT_EQ(RoundStepBelow(4999.0, StepUnit::Metres), 2000);
    EXPECT_EQ(RoundStepBelow(1e9, StepUnit::Metres), 10'000'000);
}

TEST(ShiftedAxis, KeepsItsLengthAndRoundsTheDistance) {
    // 80 degrees: 360 seconds are a 800th, of which 5 minutes are the round part.
    const MapAxis axis{-40 * Degree, 40 * Degree, 10 * Degree};
    EXPECT_EQ(Shifted(axis, 7.0 * 3600.0 + 130.0, Globe, StepUnit::Seconds),
              (MapAxis{-33 * Degree, 47 * Degree, 10 * Degree}));
    EXPECT_EQ(Shifted(axis, 0.0, Globe, StepUnit::Seconds), axis);
}

TEST(ShiftedAxis, StopsAtItsLimits) {
    const MapAxis axis{20 * Degree, 60 * Degree, 10 * Degree};
    EXPECT_EQ(Shifted(axis, 50.0 * 3600.0, Globe, StepUnit::Seconds),
              (MapAxis{50 * Degree, 90 * Degree, 10 * Degree}));
    EXPECT_EQ(Shifted({100'000, 900'000, 100'000}, -5e5, Metric, StepUnit::Metres),
              (MapAxis{0, 800'000, 100'000}));
}

TEST(ScaledAxis, KeepsItsSpacingWhileThereAreThreeToTwelveDivisions) {
    const MapAxis axis{0, 60 * Degree, 10 * Degree};
    EXPECT_EQ(Scaled(axis, 30.0 * 3600.0, 0.8, Globe, StepUnit::Seconds),
              (MapAxis{5 * Degree, 55 * Degree, 10 * Degree}))
        << "48 degrees are nearest to 5 divisions";
    EXPECT_EQ(Scaled(axis, 0.0, 0.5, Globe, StepUnit::Seconds), (MapAxis{0, 30 * Degree, 10 * Degree}))
        << "the place about which it is scaled stays";
}

TEST(ScaledAxis, TakesARoundSpacingBeyond) {
    const MapAxis axis{0, 60 * Degree, 10 * Degree};
    EXPECT_EQ(Scaled(axis, 0.0, 0.2, Globe, StepUnit::Seconds), (MapAxis{0, 12 * Degree, 2 * Degree}));
    const MapAxis metres{200'000, 800'000, 100'000};
    EXPECT_EQ(Scaled(metres, 500'000.0, 0.1, Metric, StepUnit::Metres), (MapAxis{470'000, 530'000, 10'000}));
}

TEST(ScaledAxis, NeverLeavesItsLimitsAndNeverVanishes) {
    MapAxis axis{-10 * Degree, 10 * Degree, 5 * Degree};
    for (int i = 0; i < 40; ++i) {
        axis = Scaled(axis, 0.0, 1.25, Globe, StepUnit::Seconds);
        EXPECT_GE(axis.low, Globe.low);
        EXPECT_LE(axis.high, Globe.high);
        EXPECT_EQ((axis.high - axis.low) % axis.spacing, 0);
    }
    EXPECT_EQ(axis.high - axis.low, 180 * Degree);
    for (int i = 0; i < 100; ++i) {
        axis = Scaled(axis, 0.0, 0.8, Globe, StepUnit::Seconds);
        EXPECT_LT(axis.low, axis.high);
        EXPECT_EQ((axis.high - axis.low) % axis.spacing, 0);
    }
    EXPECT_EQ(axis.high - axis.low, 3);
}

} // namespace
} // namespace quelmont
