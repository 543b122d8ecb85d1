#include "projection/whole_minutes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

namespace quelmont {
namespace {

class MinutesOfLatitude : public ::testing::Test {
protected:
    /// The answer is the latitude, with its sign.
    double Ask(double latitude) {
        return minutes->Of(latitude, [&] {
            ++worked;
            return latitude;
        });
    }
    std::unique_ptr<WholeMinutes<double>> minutes = std::make_unique<WholeMinutes<double>>();
    int worked = 0;
};

TEST_F(MinutesOfLatitude, EachIsWorkedOutOnce) {
    for (int round = 0; round < 2; ++round) {
        for (int minute = -5400; minute <= 5400; ++minute) {
            ASSERT_EQ(Ask(minute / 60.0), minute / 60.0);
            ASSERT_EQ(Ask(minute * 60 / 3600.0), minute / 60.0);
        }
    }
    EXPECT_EQ(worked, 10801);
}

TEST_F(MinutesOfLatitude, OtherLatitudesHaveTheirOwnAnswers) {
    for (const double latitude : {30.0, -30.0, 90.0, -90.0, 0.25}) {
        const double next = std::nextafter(latitude, 0.0);
        EXPECT_EQ(Ask(latitude), latitude);
        EXPECT_EQ(Ask(next), next);
        EXPECT_EQ(Ask(latitude), latitude);
    }
    EXPECT_EQ(Ask(30.001), 30.001);
    EXPECT_EQ(Ask(30.0 + 1.0 / 3600.0), 30.0 + 1.0 / 3600.0);
}

TEST_F(MinutesOfLatitude, BothZerosKeepTheirSigns) {
    EXPECT_FALSE(std::signbit(Ask(0.0)));
    EXPECT_TRUE(std::signbit(Ask(-0.0)));
    EXPECT_FALSE(std::signbit(Ask(0.0)));
}

TEST_F(MinutesOfLatitude, NumbersBeyondThePolesAreWorkedOutEachTime) {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinite = std::numeric_limits<double>::infinity();
    for (const double latitude : {91.0, -91.0, 1e300, infinite, -infinite}) {
        EXPECT_EQ(Ask(latitude), latitude);
    }
    EXPECT_TRUE(std::isnan(Ask(none)));
    EXPECT_EQ(worked, 6);
}

TEST(SinesOfLatitude, AreThoseOfTheAngle) {
    for (int round = 0; round < 2; ++round) {
        for (int second = -90 * 3600; second <= 90 * 3600; second += 20) {
            const double latitude = second / 3600.0;
            const SineCosine expected = SineCosineOf(latitude * DegToRad);
            const SineCosine answer = SineCosineOfLatitude(latitude);
            ASSERT_EQ(answer.sine, expected.sine) << latitude;
            ASSERT_EQ(answer.cosine, expected.cosine) << latitude;
        }
    }
}

} // namespace
} // namespace quelmont
