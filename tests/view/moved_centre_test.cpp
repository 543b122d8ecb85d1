#include "view/moved_centre.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace quelmont {
namespace {

TEST(SeenFrom, DistanceAndAzimuthOfPlacesAQuarterAway) {
    const PolarPlace pole = SeenFrom({0.0, 20.0}, {90.0, -70.0});
    EXPECT_NEAR(pole.distance, 90.0, 1e-12);
    EXPECT_NEAR(pole.azimuth, 0.0, 1e-12);
    const PolarPlace west = SeenFrom({0.0, -170.0}, {0.0, 100.0});
    EXPECT_NEAR(west.distance, 90.0, 1e-12);
    EXPECT_NEAR(west.azimuth, -90.0, 1e-12);
    EXPECT_EQ(SeenFrom({50.0, 8.0}, {50.0, 8.0}).distance, 0.0);
}

TEST(SeenFrom, HandMadeTriangle) {
    // 60 N seen from 30 N on the opposite meridian: over the pole, 60 and 30 degrees from it.
    const PolarPlace over = SeenFrom({30.0, 10.0}, {60.0, -170.0});
    EXPECT_NEAR(over.distance, 90.0, 1e-12);
    EXPECT_NEAR(over.azimuth, 0.0, 1e-12);
}

TEST(CentreThatSees, FindsTheCentreAgain) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> lat(-89.0, 89.0);
    std::uniform_real_distribution<double> lon(-180.0, 180.0);
    for (int i = 0; i < 20000; ++i) {
        const GlobePlace centre{lat(random), lon(random)};
        const GlobePlace place{lat(random), lon(random)};
        const PolarPlace seen = SeenFrom(centre, place);
        const GlobePlace found = CentreThatSees(place, seen, centre.lat);
        EXPECT_NEAR(found.lat, centre.lat, 1e-4);
        EXPECT_NEAR(std::remainder(found.lon - centre.lon, 360.0) * std::cos(centre.lat * 0.0174532925), 0.0,
                    1e-4);
    }
}

TEST(CentreThatSees, TakesTheNearerOfTwoLatitudes) {
    // The equator's 0 E, 40 degrees away to the east or west of north by 60: mirror images are 180 - x apart.
    const PolarPlace seen{120.0, 0.0};
    // Straight north: from 30 S the place 90 N is 120 away; from 30 N over the pole 0 N is 150 away.
    EXPECT_NEAR(CentreThatSees({90.0, 0.0}, seen, -20.0).lat, -30.0, 1e-6);
    // 30 N, 120 degrees to the north: from 90 S straight, from 30 N over the pole.
    EXPECT_NEAR(CentreThatSees({30.0, 0.0}, seen, -80.0).lat, -90.0, 1e-6);
    EXPECT_NEAR(CentreThatSees({30.0, 0.0}, seen, 40.0).lat, 30.0, 1e-6);
}

TEST(CentreThatSees, ComesAsNearAsCanBeWhereThereIsNone) {
    // A pole is never seen to the east: nearest is the pole itself as the centre.
    EXPECT_NEAR(CentreThatSees({90.0, 0.0}, {30.0, 90.0}, 40.0).lat, 90.0, 1e-6);
    EXPECT_NEAR(CentreThatSees({-90.0, 0.0}, {30.0, 90.0}, 40.0).lat, -90.0, 1e-6);
}

} // namespace
} // namespace quelmont
