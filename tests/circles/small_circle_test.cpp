#include "circles/small_circle.h"

#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SmallCircles : public FreshProgramTest {
protected:
    static const SmallCircleTable& About(double lat, double lon, double radius, int circles = 1) {
        Design.ScCenterLat = lat;
        Design.ScCenterLon = lon;
        Design.ScRadiusDeg = radius;
        Design.ScSymbolCount = static_cast<std::int16_t>(circles);
        ScCalc();
        return Design.ScTable;
    }
    static std::size_t Count() { return Design.ScTable.Points.size(); }

    /// Point i of the list, counted from 1.
    static void ExpectPoint(std::size_t i, double lat, double lon) {
        SCOPED_TRACE(i);
        ASSERT_LE(i, Count());
        EXPECT_NEAR(Design.ScTable.Points[i - 1].ScLat, lat, 1e-6);
        EXPECT_NEAR(Design.ScTable.Points[i - 1].ScLon, lon, 1e-6);
    }
    /// Of two neighbours in longitude, the short way round.
    static double LargestStep() {
        double largest = 0.0;
        for (std::size_t i = 1; i < Count(); ++i) {
            const double step =
                std::fabs(Design.ScTable.Points[i].ScLon - Design.ScTable.Points[i - 1].ScLon);
            largest = std::max(largest, std::min(step, 360.0 - step));
        }
        return largest;
    }
};

TEST_F(SmallCircles, AreConcentricAndTheInnermostComesFirst) {
    About(37.0 + 47.0 / 60.0, -(122.0 + 26.0 / 60.0), 15.0, 3);
    EXPECT_THAT(Design.ScTable.ScRingEnd, ElementsAre(361, 722, 1083));
    ExpectPoint(1, 42.783333, -122.433333);
    ExpectPoint(91, 37.614508, -116.116498);
    ExpectPoint(452, 37.111585, -109.856358);
    ExpectPoint(813, 36.284897, -103.704970);
    ExpectPoint(993, 36.284897, -141.161697);
}

TEST_F(SmallCircles, EndWhereTheyBegan) {
    About(37.0, -122.0, 15.0, 3);
    std::size_t first = 0;
    for (const std::int16_t end : Design.ScTable.ScRingEnd) {
        const auto last = static_cast<std::size_t>(end) - 1;
        EXPECT_NEAR(Design.ScTable.Points[first].ScLat, Design.ScTable.Points[last].ScLat, 1e-9);
        EXPECT_NEAR(Design.ScTable.Points[first].ScLon, Design.ScTable.Points[last].ScLon, 1e-9);
        first = last + 1;
    }
}

TEST_F(SmallCircles, GoOnBeyondThePole) {
    About(80.0, 170.0, 15.0);
    EXPECT_EQ(Count(), 361U);
    ExpectPoint(1, 85.0, -10.0);
    ExpectPoint(46, 79.429854, -96.092361);
    ExpectPoint(91, 72.036140, -132.945813);
    About(-60.0, 20.0, 40.0);
    ExpectPoint(91, -41.560763, 79.210267);
    ExpectPoint(181, -80.0, -160.0);
}

TEST_F(SmallCircles, ThroughAPoleAreFilledBesideIt) {
    About(75.0, 10.0, 15.0);
    EXPECT_EQ(Count(), 369U) << "361, and four on either side of the pole";
    ExpectPoint(1, 90.0, 10.0);
    ExpectPoint(2, 89.948237, 27.903407);
    ExpectPoint(6, 89.741184, 99.517036);
    EXPECT_LE(LargestStep(), 20.0);
}

TEST_F(SmallCircles, OfAQuarterOfTheGlobeFromTheEquatorRunThroughBothPoles) {
    About(0.0, 0.0, 90.0);
    EXPECT_EQ(Count(), 377U);
    ExpectPoint(2, 89.8, 18.0);
    EXPECT_LE(LargestStep(), 20.0);
}

TEST_F(SmallCircles, ThatCrossTheMeridianAQuarterToEastOrWestAreNotFilled) {
    for (const auto& [lat, radius] :
         {std::pair{45.0, 91.0}, std::pair{54.0, 122.0}, std::pair{58.0, 126.0}, std::pair{89.0, 135.0}}) {
        SCOPED_TRACE(lat);
        About(lat, 0.0, radius);
        EXPECT_EQ(Count(), 361U);
    }
    About(1.0, 0.0, 91.0);
    EXPECT_EQ(Count(), 371U) << "this one passes through the south pole";
}

TEST_F(SmallCircles, ThatPassBehindAPoleAreFilledTheShortWay) {
    // One degree before the pole, at a right angle to its meridian: 45 degrees of longitude to the
    // neighbours on both sides, at both poles.
    About(0.0, 30.0, 91.0);
    EXPECT_EQ(Count(), 361U + 4U * 2U);
    EXPECT_LE(LargestStep(), 20.0);
}

TEST_F(SmallCircles, AboutAPoleAreParallels) {
    About(90.0, 20.0, 30.0);
    EXPECT_EQ(Count(), 361U);
    for (const SmallCirclePoint& point : Design.ScTable.Points) {
        EXPECT_NEAR(point.ScLat, 60.0, 1e-9);
    }
    EXPECT_NEAR(LargestStep(), 1.0, 1e-6);
    About(-90.0, 20.0, 30.0);
    EXPECT_EQ(Count(), 361U);
    EXPECT_NEAR(LargestStep(), 1.0, 1e-6);
    ExpectPoint(1, -60.0, 20.0);
}

TEST_F(SmallCircles, OfRadiusZeroAreTheirCentre) {
    for (const double lat : {0.0, 45.0, 90.0, -90.0}) {
        About(lat, -60.0, 0.0, 2);
        EXPECT_THAT(Design.ScTable.ScRingEnd, ElementsAre(361, 722));
        for (const SmallCirclePoint& point : Design.ScTable.Points) {
            EXPECT_EQ(point.ScLat, lat);
            EXPECT_EQ(point.ScLon, -60.0);
        }
    }
}

TEST_F(SmallCircles, OfHalfTheGlobeAreTheAntipode) {
    About(40.0, 30.0, 180.0);
    EXPECT_EQ(Count(), 361U);
    for (const SmallCirclePoint& point : Design.ScTable.Points) {
        EXPECT_NEAR(point.ScLat, -40.0, 1e-9);
        EXPECT_NEAR(point.ScLon, -150.0, 1e-9);
    }
}

TEST_F(SmallCircles, LieBetween180WestAnd180East) {
    for (const double lon : {180.0, -180.0, 175.0}) {
        About(60.0, lon, 50.0);
        for (const SmallCirclePoint& point : Design.ScTable.Points) {
            EXPECT_LE(std::fabs(point.ScLon), 180.0);
        }
    }
}

TEST_F(SmallCircles, CountsAreThoseOfTheNewCircles) {
    About(10.0, 0.0, 10.0, 80);
    EXPECT_EQ(Design.ScTable.ScRingEnd.size(), 80U);
    EXPECT_EQ(Design.ScTable.ScRingEnd.back(), 80 * 361);
    About(10.0, 0.0, 10.0, 1);
    EXPECT_EQ(Count(), 361U);
}

TEST_F(SmallCircles, OfNumbersThatAreNoneFail) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    struct Case {
        double lat, lon, radius;
        int circles;
    };
    for (const Case& c : {Case{none, 0.0, 1.0, 1}, Case{0.0, 181.0, 1.0, 1}, Case{0.0, 0.0, 180.1, 1},
                          Case{0.0, 0.0, -1.0, 1}, Case{0.0, 0.0, 1.0, 0}}) {
        About(c.lat, c.lon, c.radius, c.circles);
        EXPECT_EQ(Count(), 0U);
        EXPECT_THAT(Design.ScTable.ScRingEnd, IsEmpty());
        EXPECT_THAT(machine.boxes.Taken(),
                    ElementsAre(AskedBox{"Error in ScCalc", "Error: Invalid procedure call or argument",
                                         BoxButtons::Ok, BoxIcon::Exclamation, BoxAnswer::Ok}));
    }
}

TEST_F(SmallCircles, BeyondThirtyTwoThousandPointsFail) {
    About(10.0, 0.0, 10.0, 91);
    EXPECT_EQ(Count(), 0U);
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Error in ScCalc", "Error: Overflow", BoxButtons::Ok,
                                     BoxIcon::Exclamation, BoxAnswer::Ok}));
}

} // namespace
} // namespace quelmont
