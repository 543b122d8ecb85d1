#include "view/map_region.h"

#include "core/map_design.h"
#include "mainwindow/started_program.h"
#include "view/region_samples.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

using RegionOfMap = StartedProgram;

TEST_F(RegionOfMap, IsTheWholeWorldAtFirst) {
    const MapRegion region = RegionOfDesign();
    EXPECT_TRUE(IsWholeWorld(region));
    EXPECT_EQ(KindOf(region), RegionKind::World);
    EXPECT_EQ(RegionText(region), "The whole world");
}

TEST_F(RegionOfMap, IsTheBoxOfItsBoundsAndACircleThatHoldsIt) {
    AcceptBox(ProjAlbers, {"50", "N"}, {"25", "N"}, {"125", "W"}, {"065", "W"});
    const MapRegion region = RegionOfDesign();
    EXPECT_DOUBLE_EQ(region.south, 25.0);
    EXPECT_DOUBLE_EQ(region.north, 50.0);
    EXPECT_DOUBLE_EQ(region.west, -125.0);
    EXPECT_DOUBLE_EQ(region.span, 60.0);
    EXPECT_FALSE(region.isRound);
    EXPECT_DOUBLE_EQ(region.centre.lat, 38.0) << "37.5 to whole degrees";
    EXPECT_DOUBLE_EQ(region.centre.lon, -95.0);
    // The southern corners are the farthest: cos d = sin 38 sin 25 + cos 38 cos 25 cos 30.
    EXPECT_NEAR(region.radius, 28.515, 0.001);
    EXPECT_EQ(
        RegionText(region),
        "From 25\u00B0 00\u2032 N to 50\u00B0 00\u2032 N, from 125\u00B0 00\u2032 W to 65\u00B0 00\u2032 W");
}

TEST_F(RegionOfMap, GoesThroughThe180thMeridian) {
    AcceptBox(ProjMercator, {"60", "N"}, {"40", "N"}, {"160", "E"}, {"150", "W"});
    const MapRegion region = RegionOfDesign();
    EXPECT_DOUBLE_EQ(region.west, 160.0);
    EXPECT_DOUBLE_EQ(region.span, 50.0);
    EXPECT_DOUBLE_EQ(region.centre.lon, -175.0);
}

TEST_F(RegionOfMap, OfAnAzimuthalMapIsItsCircle) {
    AcceptCircle(ProjStereographic, {"50", "N"}, {"010", "E"}, "030");
    const MapRegion region = RegionOfDesign();
    EXPECT_TRUE(region.isRound);
    EXPECT_DOUBLE_EQ(region.radius, 30.0);
    EXPECT_DOUBLE_EQ(region.south, 20.0);
    EXPECT_DOUBLE_EQ(region.north, 80.0);
    // Half of the span has the sine sin 30 / cos 50 = 0.77786.
    EXPECT_NEAR(region.west, 10.0 - 51.065, 0.001);
    EXPECT_NEAR(region.span, 2.0 * 51.065, 0.002);
    EXPECT_EQ(RegionText(region), "Up to 30\u00B0 00\u2032 from 50\u00B0 00\u2032 N, 10\u00B0 00\u2032 E");
}

TEST_F(RegionOfMap, OfACircleOverAPoleGoesRoundTheAxis) {
    AcceptCircle(ProjStereographic, {"70", "S"}, {"010", "E"}, "030");
    const MapRegion region = RegionOfDesign();
    EXPECT_DOUBLE_EQ(region.south, -90.0);
    EXPECT_DOUBLE_EQ(region.north, -40.0);
    EXPECT_DOUBLE_EQ(region.span, 360.0);
    EXPECT_EQ(KindOf(region), RegionKind::Pole);
}

TEST_F(RegionOfMap, OfAZoneIsTheBoxOfDegreesThatHoldsItsMetres) {
    AcceptProjection(ProjUtm); // 300 to 800 km east and 5600 to 6200 km north on 9 W, Clarke 1866
    const MapRegion region = RegionOfDesign();
    // Inverse of PROJ's tmerc.
    EXPECT_NEAR(region.south, 50.477040, 1e-5);
    EXPECT_NEAR(region.north, 55.947298, 2e-5);
    EXPECT_NEAR(region.west, -12.199501, 1e-5);
    EXPECT_NEAR(region.west + region.span, -4.205995, 1e-5);
}

TEST_F(RegionOfMap, IsThatOfTheBoundsAndNotOfAProjectionWhoseDialogWasCancelled) {
    AcceptCircle(ProjStereographic, {"50", "N"}, {"010", "E"}, "030");
    Design.ProjNum = ProjRobinson;
    EXPECT_TRUE(RegionOfDesign().isRound);
}

TEST_F(RegionOfMap, WorldKeepsTheMiddleAndTheWesternBoundaryOfTheMap) {
    AcceptBox(ProjRobinson, {"90", "N"}, {"90", "S"}, {"030", "W"}, {"030", "W"});
    EXPECT_DOUBLE_EQ(WholeWorld().west, -30.0);
    EXPECT_DOUBLE_EQ(WholeWorld().centre.lon, 150.0);
    AcceptBox(ProjAlbers, {"50", "N"}, {"25", "N"}, {"125", "W"}, {"065", "W"});
    EXPECT_TRUE(IsWholeWorld(WholeWorld()));
    EXPECT_DOUBLE_EQ(WholeWorld().west, -180.0);
    EXPECT_DOUBLE_EQ(WholeWorld().centre.lon, -95.0);
}

TEST_F(RegionOfMap, KindsFollowPlaceSizeAndShape) {
    const auto kind = [](const char* north, const char* ns, const char* south, const char* ss,
                         const char* west, const char* ws, const char* east, const char* es) {
        AcceptBox(ProjEquirectangular, {north, ns}, {south, ss}, {west, ws}, {east, es});
        return KindOf(RegionOfDesign());
    };
    EXPECT_EQ(kind("50", "N", "25", "N", "125", "W", "065", "W"), RegionKind::Wide) << "the United States";
    EXPECT_EQ(kind("60", "N", "35", "N", "010", "W", "030", "E"), RegionKind::Compact) << "Europe";
    EXPECT_EQ(kind("37", "N", "35", "S", "020", "W", "050", "E"), RegionKind::Equator) << "Africa";
    EXPECT_EQ(kind("10", "N", "10", "S", "180", "W", "180", "E"), RegionKind::Equator) << "the tropics";
    EXPECT_EQ(kind("90", "N", "60", "N", "180", "W", "180", "E"), RegionKind::Pole) << "the Arctic";
    EXPECT_EQ(kind("70", "N", "30", "N", "180", "W", "180", "E"), RegionKind::Pole) << "a northern belt";
    EXPECT_EQ(kind("48", "N", "47", "N", "007", "E", "008", "E"), RegionKind::Zone) << "a canton";
    EXPECT_EQ(kind("80", "N", "60", "S", "180", "W", "020", "W"), RegionKind::Hemisphere) << "the Americas";
    EXPECT_EQ(kind("80", "N", "60", "S", "180", "W", "180", "E"), RegionKind::World);
}

} // namespace
} // namespace quelmont
