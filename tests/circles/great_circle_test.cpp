#include "circles/great_circle.h"

#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quelmont {
namespace {

using testing::DoubleNear;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Lt;
using testing::Pointwise;

constexpr double NoCourse = -1.0; ///< of a row whose course is not given

constexpr double Angle(int degrees, int minutes) { return degrees + minutes / 60.0; }

class GreatCircle : public FreshProgramTest {
protected:
    GreatCircle() { Design.GcText = {"sLat", "sLon", "eLat", "eLon"}; }

    static const GreatCircleTable& Between(double startLat, double startLon, double endLat, double endLon) {
        Design.GcStartLat = startLat;
        Design.GcStartLon = startLon;
        Design.GcEndLat = endLat;
        Design.GcEndLon = endLon;
        GcCalc();
        return Design.GcTable;
    }
    static std::size_t Count() { return Design.GcTable.Rows.size(); }

    /// Row i of the table, counted from 1.
    static void ExpectRow(std::int16_t i, double lat, double lon, double distance, double course = NoCourse) {
        SCOPED_TRACE(i);
        ASSERT_LE(i, static_cast<std::int16_t>(Count()));
        const GreatCirclePoint& row = Design.GcTable.Row(i);
        EXPECT_NEAR(row.GcLat, lat, 1e-6);
        EXPECT_NEAR(row.GcLon, lon, 1e-6);
        EXPECT_NEAR(row.GcDist, distance, 1e-6);
        if (course != NoCourse) {
            EXPECT_NEAR(row.GcAzimuth, course, 1e-6);
        }
        EXPECT_NEAR(row.GcLatRad * 180.0 / M_PI, row.GcLat, 1e-9);
    }
    /// Of all rows, in their order.
    static std::vector<double> Latitudes() {
        std::vector<double> values;
        for (const GreatCirclePoint& row : Design.GcTable.Rows) {
            values.push_back(row.GcLat);
        }
        return values;
    }
    static std::vector<double> Longitudes() {
        std::vector<double> values;
        for (const GreatCirclePoint& row : Design.GcTable.Rows) {
            values.push_back(row.GcLon);
        }
        return values;
    }
    static double LargestGap() {
        double largest = 0.0;
        for (std::size_t i = 1; i < Count(); ++i) {
            largest = std::max(largest,
                               std::fabs(Design.GcTable.Rows[i].GcDist - Design.GcTable.Rows[i - 1].GcDist));
        }
        return largest;
    }
};

// ---- The general route.

TEST_F(GreatCircle, FromSanFranciscoToKuwaitLeadsOverTheArctic) {
    Between(Angle(37, 47), -Angle(122, 26), Angle(29, 20), Angle(47, 59));
    EXPECT_EQ(Count(), 176U) << "172 whole degrees, and four near the pole";
    ExpectRow(1, Angle(37, 47), -Angle(122, 26), 0.0, 9.024316);
    ExpectRow(2, 39.876897, -122.0, 127.235724, 9.296068);
    ExpectRow(3, 42.141404, -121.5, 264.978357, 9.624223);
    ExpectRow(176, Angle(29, 20), Angle(47, 59), 6737.199221, 171.824903);
    EXPECT_EQ(Design.GcTable.GcFirst, 1);
    EXPECT_EQ(Design.GcTable.GcLast, 176);
    EXPECT_EQ(Design.GcTable.GcStep, 1);
}

TEST_F(GreatCircle, ReversedIsWalkedFromItsLastRow) {
    Between(Angle(29, 20), Angle(47, 59), Angle(37, 47), -Angle(122, 26));
    EXPECT_EQ(Count(), 176U);
    EXPECT_EQ(Design.GcTable.GcFirst, 176);
    EXPECT_EQ(Design.GcTable.GcLast, 1);
    EXPECT_EQ(Design.GcTable.GcStep, -1);
    ExpectRow(1, Angle(37, 47), -Angle(122, 26), 6737.199221, 189.024316);
    ExpectRow(176, Angle(29, 20), Angle(47, 59), 0.0, 351.824903);
}

TEST_F(GreatCircle, InTheSouthItsVertexIsSouth) {
    Between(-34.0, 18.0, -33.0, 151.0);
    EXPECT_EQ(Count(), 134U);
    ExpectRow(1, -34.0, 18.0, 0.0, 141.509541);
    ExpectRow(68, -58.933373, 85.0, 2984.900382, 89.167114);
    ExpectRow(134, -33.0, 151.0, 5985.971298, 37.969040);
}

TEST_F(GreatCircle, CrossesTheEquator) {
    Between(10.0, 0.0, -10.0, 40.0);
    ExpectRow(1, 10.0, 0.0, 0.0, 115.505550);
    ExpectRow(2, 9.528011, 1.0, 65.562342, 115.675146);
    ExpectRow(21, 0.0, 20.0, 1336.124670, 117.273170);
    EXPECT_NEAR(Design.GcTable.Rows.back().GcDist, 2672.249339, 1e-6);
}

TEST_F(GreatCircle, RunsEastwardAcrossThe180thMeridian) {
    Between(40.0, -74.0, -33.0, 151.0);
    EXPECT_EQ(Design.GcTable.GcStep, -1) << "east of Australia lies America";
    ExpectRow(1, -33.0, 151.0, 8612.992206, 245.744488);
    ExpectRow(69, 14.298290, -141.0, Design.GcTable.Row(69).GcDist);
    ExpectRow(136, 40.0, -74.0, 0.0, 266.523646);
}

TEST_F(GreatCircle, NearlyAlongAMeridianHasMoreRows) {
    Between(51.5, 0.0, -34.0, 18.4);
    EXPECT_EQ(Count(), 33U) << "20 whole degrees";
    ExpectRow(1, 51.5, 0.0, 0.0, 164.808830);
    ExpectRow(3, 46.395486, 2.0, 316.215241);
    EXPECT_NEAR(Design.GcTable.Rows.back().GcDist, 5220.899643, 1e-6);
    EXPECT_LE(LargestGap(), 240.0);
}

TEST_F(GreatCircle, ShortWayAcrossThe180thMeridianIsTwoDegrees) {
    Between(50.0, 179.0, 50.0, -179.0);
    EXPECT_EQ(Count(), 3U);
    ExpectRow(2, 50.004297, 180.0, 38.566108, 90.0);
    EXPECT_THAT(Longitudes(), ElementsAre(179.0, 180.0, -179.0));
}

TEST_F(GreatCircle, WithinADegreeOfLongitudeItIsDividedIntoEqualParts) {
    Between(51.5, -Angle(0, 7), Angle(5, 33), -Angle(0, 12));
    EXPECT_EQ(Count(), 15U) << "whole minutes of longitude give six rows with gaps of 347 to 760 minutes";
    EXPECT_LE(LargestGap(), 240.0);
    EXPECT_GT(LargestGap(), 160.0) << "the fewest parts";
}

TEST_F(GreatCircle, BothDirectionsHaveTheSameRows) {
    for (const auto& [lat1, lon1, lat2, lon2] :
         {std::array{51.5, -0.1, 5.55, -0.2}, std::array{51.5, 0.0, -34.0, 18.4},
          std::array{80.0, 10.0, 75.0, -170.5}}) {
        Between(lat1, lon1, lat2, lon2);
        const std::vector<double> there = Latitudes();
        Between(lat2, lon2, lat1, lon1);
        EXPECT_THAT(Latitudes(), Pointwise(DoubleNear(1e-9), there));
    }
}

TEST_F(GreatCircle, BetweenWholeDegreesOfLongitudeTheFirstRowComesToTheNext) {
    Between(20.0, 10.5, 22.0, 13.0);
    EXPECT_THAT(Longitudes(), ElementsAre(10.5, 11.0, 12.0, 13.0));
}

TEST_F(GreatCircle, FromAWholeDegreeTheFirstStepIsAFullOne) {
    Between(20.0, 10.0, 22.0, 12.5);
    EXPECT_THAT(Longitudes(), ElementsAre(10.0, 11.0, 12.0, 12.5));
}

TEST_F(GreatCircle, EndOnTheEquatorIsNextToIt) {
    Between(0.0, 0.0, -80.0, 10.0);
    EXPECT_EQ(Design.GcStartLat, 0.0) << "the design keeps its angles";
    EXPECT_EQ(Design.GcTable.Row(1).GcLat, 1e-05);
    EXPECT_LT(Design.GcTable.Row(2).GcLat, 0.0) << "and on the way to the other end";
    Between(-80.0, 10.0, 0.0, 0.0);
    EXPECT_EQ(Design.GcStartLon, 10.0);
    EXPECT_EQ(Design.GcEndLat, 0.0);
}

// ---- Along the equator.

TEST_F(GreatCircle, AlongTheEquatorRunsTheShortWay) {
    struct Case {
        double start, end, course, total;
        std::size_t rows;
    };
    for (const Case& c : {Case{10.0, 20.0, 90.0, 600.0, 11}, Case{20.0, 10.0, 270.0, 600.0, 11},
                          Case{-170.0, 170.0, 270.0, 1200.0, 21}, Case{170.0, -170.0, 90.0, 1200.0, 21},
                          Case{0.0, 180.0, 90.0, 10800.0, 181}, Case{180.0, 0.0, 270.0, 10800.0, 181},
                          Case{-180.0, 0.0, 90.0, 10800.0, 181}}) {
        SCOPED_TRACE(testing::Message() << c.start << " to " << c.end);
        Between(0.0, c.start, 0.0, c.end);
        EXPECT_EQ(Count(), c.rows);
        EXPECT_EQ(Design.GcTable.Rows.front().GcLon, c.start);
        EXPECT_EQ(Design.GcTable.Rows.back().GcLon, c.end);
        EXPECT_NEAR(Design.GcTable.Rows.back().GcDist, c.total, 1e-9);
        EXPECT_EQ(Design.GcTable.GcStep, 1);
        for (const GreatCirclePoint& row : Design.GcTable.Rows) {
            EXPECT_EQ(row.GcAzimuth, c.course);
            EXPECT_EQ(row.GcLat, 0.0);
        }
    }
}

TEST_F(GreatCircle, AlongTheEquatorHasOneRowAtThe180thMeridian) {
    Between(0.0, 178.5, 0.0, -178.0);
    EXPECT_THAT(Longitudes(), ElementsAre(178.5, 179.0, 180.0, -179.0, -178.0));
    EXPECT_EQ(Design.GcTable.Row(2).GcDist, 30.0);
    Between(0.0, -178.5, 0.0, 178.0);
    EXPECT_THAT(Longitudes(), ElementsAre(-178.5, -179.0, -180.0, 179.0, 178.0));
    Between(0.0, -178.0, 0.0, 180.0);
    EXPECT_THAT(Longitudes(), ElementsAre(-178.0, -179.0, 180.0)) << "and ends there without a leap";
    Between(0.0, 180.0, 0.0, -178.0);
    EXPECT_THAT(Longitudes(), ElementsAre(180.0, -179.0, -178.0));
}

TEST_F(GreatCircle, LongitudesOnTheEquatorAreCountedFromTheWesternEnd) {
    Between(0.0, 10.0, 0.0, 12.0);
    EXPECT_NEAR(Design.GcTable.Row(1).GcLonDiff, 0.0, 1e-12);
    EXPECT_NEAR(Design.GcTable.Row(3).GcLonDiff, 2.0 * M_PI / 180.0, 1e-12);
    Between(0.0, 12.0, 0.0, 10.0);
    EXPECT_NEAR(Design.GcTable.Row(1).GcLonDiff, 2.0 * M_PI / 180.0, 1e-12);
    EXPECT_NEAR(Design.GcTable.Row(3).GcLonDiff, 0.0, 1e-12);
}

// ---- Along a meridian.

TEST_F(GreatCircle, AlongAMeridianStepsToWholeDegreesOfLatitude) {
    Between(9.5, 30.0, 12.25, 30.0);
    EXPECT_THAT(Latitudes(), ElementsAre(9.5, 10.0, 11.0, 12.0, 12.25));
    EXPECT_EQ(Design.GcTable.Row(2).GcDist, 30.0);
    EXPECT_EQ(Design.GcTable.Row(5).GcDist, 165.0);
    EXPECT_EQ(Design.GcTable.Row(5).GcAzimuth, 0.0);
    Between(0.5, -30.0, -1.5, -30.0);
    EXPECT_THAT(Latitudes(), ElementsAre(0.5, 0.0, -1.0, -1.5));
    EXPECT_EQ(Design.GcTable.Row(1).GcAzimuth, 180.0);
}

TEST_F(GreatCircle, HalfACircleApartLeadsOverTheNearerPole) {
    Between(88.5, 20.0, 89.0, -160.0);
    EXPECT_THAT(Latitudes(), ElementsAre(88.5, 89.0, 90.0, 89.0));
    EXPECT_THAT(Longitudes(), ElementsAre(20.0, 20.0, -160.0, -160.0));
    EXPECT_EQ(Design.GcTable.Row(2).GcAzimuth, 0.0);
    EXPECT_EQ(Design.GcTable.Row(3).GcAzimuth, 180.0) << "the pole is one row, with what follows";
    EXPECT_NEAR(Design.GcTable.Row(4).GcDist, 150.0, 1e-9);

    Between(-89.0, -160.0, -88.5, 20.0);
    EXPECT_THAT(Latitudes(), ElementsAre(-89.0, -90.0, -89.0, -88.5));
    EXPECT_THAT(Longitudes(), ElementsAre(-160.0, 20.0, 20.0, 20.0));
    EXPECT_EQ(Design.GcTable.Row(1).GcAzimuth, 180.0);
    EXPECT_EQ(Design.GcTable.Row(2).GcAzimuth, 0.0);
    EXPECT_NEAR(Design.GcTable.Row(4).GcDist, 150.0, 1e-9);
}

TEST_F(GreatCircle, OverAPoleLongitudesAreCountedFromTheWesternEnd) {
    Between(89.0, -160.0, 89.0, 20.0);
    EXPECT_NEAR(Design.GcTable.Row(1).GcLonDiff, 0.0, 1e-12);
    EXPECT_NEAR(Design.GcTable.Row(3).GcLonDiff, M_PI, 1e-12);
    Between(89.0, 20.0, 89.0, -160.0);
    EXPECT_NEAR(Design.GcTable.Row(1).GcLonDiff, M_PI, 1e-12);
    EXPECT_NEAR(Design.GcTable.Row(3).GcLonDiff, 0.0, 1e-12);
}

TEST_F(GreatCircle, HalfACircleApartNeedNotBeExact) {
    Between(60.0, 0.0, 60.0, 179.999991);
    EXPECT_EQ(Design.GcTable.Row(31).GcLat, 90.0);
    EXPECT_EQ(Count(), 61U);
    Between(60.0, 0.0, 60.0, 179.99998);
    EXPECT_THAT(Latitudes(), Each(Lt(90.0))) << "beside the pole";
}

TEST_F(GreatCircle, AntipodesLieOverTheNorthPole) {
    Between(40.0, 30.0, -40.0, -150.0);
    EXPECT_NEAR(Design.GcTable.Rows.back().GcDist, 10800.0, 1e-9);
    EXPECT_EQ(Design.GcTable.Row(51).GcLat, 90.0);
}

TEST_F(GreatCircle, ThatEndsAtAPoleKeepsItsCourse) {
    Between(88.0, 30.0, 90.0, 30.0);
    EXPECT_THAT(Latitudes(), ElementsAre(88.0, 89.0, 90.0));
    EXPECT_EQ(Design.GcTable.Row(3).GcAzimuth, 0.0);
    Between(-88.5, 30.0, -90.0, 30.0);
    EXPECT_THAT(Latitudes(), ElementsAre(-88.5, -89.0, -90.0));
    EXPECT_EQ(Design.GcTable.Row(3).GcAzimuth, 180.0);
    Between(90.0, 30.0, 89.0, 30.0);
    EXPECT_EQ(Design.GcTable.Row(1).GcAzimuth, 180.0);
}

TEST_F(GreatCircle, PoleHasTheLongitudeOfTheOtherEnd) {
    Between(90.0, 100.0, 88.0, 30.0);
    EXPECT_THAT(Longitudes(), ElementsAre(30.0, 30.0, 30.0));
    EXPECT_EQ(Design.GcStartLon, 100.0) << "the design keeps its angles";
    Between(88.0, 30.0, 89.999995, -100.0);
    EXPECT_THAT(Longitudes(), ElementsAre(30.0, 30.0, 30.0)) << "so close is a pole too";
    Between(-90.0, 10.0, 90.0, -20.0);
    EXPECT_EQ(Count(), 181U);
    EXPECT_EQ(Design.GcTable.Row(1).GcLon, -20.0) << "of two poles the first has the other's";
}

// ---- Equal ends.

TEST_F(GreatCircle, BetweenEqualEndsIsOneRow) {
    Between(40.0, 30.0, 40.0, 30.0);
    EXPECT_EQ(Count(), 1U);
    ExpectRow(1, 40.0, 30.0, 0.0, 180.0);
    EXPECT_EQ(Design.GcTable.GcFirst, 1);
    EXPECT_EQ(Design.GcTable.GcLast, 1);
    Between(0.0, 30.0, 0.0, 30.0);
    EXPECT_EQ(Count(), 1U);
    ExpectRow(1, 0.0, 30.0, 0.0, 90.0);
}

TEST_F(GreatCircle, The180thMeridianHasTwoNames) {
    Between(40.0, 180.0, 50.0, -180.0);
    EXPECT_EQ(Count(), 11U);
    EXPECT_EQ(Design.GcTable.Rows.back().GcLon, 180.0);
    EXPECT_EQ(Design.GcTable.Rows.back().GcAzimuth, 0.0);
    Between(0.0, -180.0, 0.0, 180.0);
    EXPECT_EQ(Count(), 1U);
}

// ---- Failures.

TEST_F(GreatCircle, IsCutAtTheLimitAndSaysSo) {
    Design.GcStartLat = 10.0;
    Design.GcStartLon = 0.0;
    Design.GcEndLat = 20.0;
    Design.GcEndLon = 40.0;
    GcCalc(20);
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Error in GcCalc: NumGc% = 20",
                                     "GcStartLat\tGcStartLon\nsLat\tsLon\n\nGcEndLat\t\tGcEndLon\neLat\teLon",
                                     BoxButtons::Ok, BoxIcon::Exclamation, BoxAnswer::Ok}));
    EXPECT_EQ(Count(), 20U) << "what was walked stays";
    EXPECT_EQ(Design.GcTable.Rows.back().GcLon, 19.0);
    EXPECT_EQ(Design.GcTable.GcLast, 20);
}

TEST_F(GreatCircle, OfExactlyTheLimitIsWhole) {
    Design.GcEndLat = 10.0;
    Design.GcEndLon = 2.0;
    Design.GcStartLat = 10.0;
    GcCalc(3);
    EXPECT_EQ(Count(), 3U);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(GreatCircle, LongestWalksStayFarBelowTheLimit) {
    Between(0.5, -0.5, 0.5, 179.49);
    Between(-60.0, 0.5, 60.0, -179.51);
    Between(60.0, 0.5, 0.0, 180.0);
    GcCalc(182);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(GreatCircle, OfAnglesThatAreNoneFails) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    const double endless = std::numeric_limits<double>::infinity();
    for (const auto& [lat1, lon1, lat2, lon2] :
         {std::array{none, 0.0, 0.0, 0.0}, std::array{0.0, endless, 0.0, 0.0},
          std::array{10.0, 0.0, 91.0, 0.0}, std::array{10.0, 0.0, 20.0, -180.5}}) {
        Between(lat1, lon1, lat2, lon2);
        EXPECT_EQ(Count(), 0U);
        EXPECT_THAT(machine.boxes.Taken(),
                    ElementsAre(AskedBox{"Error in GcCalc", "Error: Invalid procedure call or argument",
                                         BoxButtons::Ok, BoxIcon::Exclamation, BoxAnswer::Ok}));
    }
}

} // namespace
} // namespace quelmont
