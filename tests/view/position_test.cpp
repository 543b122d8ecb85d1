#include "view/position.h"

#include "mainwindow/drawn_picture.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "projection/projection_table.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quelmont {
namespace {

/// The window has 1280 x 924 pixels. The world is drawn true at 45 degrees, so that its height is the square
/// root of a half of its width, and not a half. It reaches from the first to the last of the 1280 columns,
/// and stands in the middle of the 924 rows.
class Position : public StartedProgram {
protected:
    static constexpr double degreesPerPixel = 360.0 / 1279.0;
    static constexpr double degreesPerRow = degreesPerPixel * 0.70710678118654752;
};

TEST_F(Position, PixelsOfAWorldMapHaveTheirDegrees) {
    MapDraw();
    const auto left = PositionAt({0, 461});
    ASSERT_TRUE(left);
    EXPECT_NEAR(left->place.lon, -180.0, 1e-9);
    EXPECT_NEAR(left->place.lat, 0.5 * degreesPerRow, 1e-9) << "the equator is half a pixel lower";
    const auto right = PositionAt({1279, 462});
    ASSERT_TRUE(right);
    EXPECT_NEAR(right->place.lon, 180.0, 1e-9);
    EXPECT_NEAR(right->place.lat, -0.5 * degreesPerRow, 1e-9);
    EXPECT_NEAR(PositionAt({640, 200})->place.lon, 0.5 * degreesPerPixel, 1e-9);
    EXPECT_NEAR(PositionAt({640, 200})->place.lat, 261.5 * degreesPerRow, 1e-9);
    EXPECT_EQ(PositionText(*left), "0\u00B0 06\u2032 N   180\u00B0 00\u2032 W");
}

TEST_F(Position, ScalesOfAreasAreWrittenWithAsManyDigitsAsMeanSomething) {
    const auto textOf = [](double area, double angle) {
        MapPosition position;
        position.distortion = Distortion{1.0, 1.0, area, angle};
        return DistortionText(position);
    };
    EXPECT_EQ(textOf(1.0, 0.0), "area \u00D7 1.000   angle 0.0\u00B0");
    EXPECT_EQ(textOf(0.0625, 179.95), "area \u00D7 0.063   angle 180.0\u00B0");
    EXPECT_EQ(textOf(12.34, 5.0), "area \u00D7 12.3   angle 5.0\u00B0");
    EXPECT_EQ(textOf(12345.6, 5.0), "area \u00D7 12,346   angle 5.0\u00B0");
    EXPECT_EQ(DistortionText({}), "") << "at a pole";
}

TEST_F(Position, NothingStandsBesideTheMap) {
    MapDraw();
    // The map is 904.4 pixels high, about row 461.5: its rows are 10 to 913.
    EXPECT_FALSE(PositionAt({640, 9}));
    EXPECT_TRUE(PositionAt({640, 10}));
    EXPECT_TRUE(PositionAt({640, 913}));
    EXPECT_FALSE(PositionAt({640, 914}));
    EXPECT_FALSE(PositionAt({-1, 461}));
    EXPECT_FALSE(PositionAt({1280, 461}));
}

TEST_F(Position, ThereIsNoneBeforeADrawNorAfterThePictureIsGone) {
    EXPECT_FALSE(PositionAt({640, 461}));
    MapDraw();
    EXPECT_TRUE(PositionAt({640, 461}));
    ForgetPicture();
    EXPECT_FALSE(PositionAt({640, 461}));
}

TEST_F(Position, ThereIsNoneInADraw) {
    MapDraw();
    bool found = true;
    machine.pump.At(machine.pump.calls + 3, [&] { found = PositionAt({640, 461}).has_value(); });
    MapDraw();
    EXPECT_FALSE(found);
}

TEST_F(Position, StoppedDrawHasItsPositions) {
    machine.pump.At(3, [] { EscapeKey(); });
    MapDraw();
    EXPECT_TRUE(PositionAt({640, 461}));
}

TEST_F(Position, IsThatOfThePictureWhenTheDesignHasChanged) {
    MapDraw();
    const auto before = PositionAt({900, 300});
    for (const std::int16_t projection : {ProjOrthographic, ProjUtm, ProjInterruptedMollweide, ProjAlbers}) {
        AcceptProjection(projection);
        const double west = Design.LonWest;
        const std::string north = Design.LatNorthText;
        const auto now = PositionAt({900, 300});
        ASSERT_TRUE(now);
        EXPECT_EQ(now->place.lat, before->place.lat);
        EXPECT_EQ(now->place.lon, before->place.lon);
        EXPECT_FALSE(now->metres);
        EXPECT_EQ(Design.ProjNum, projection) << "asking changes nothing";
        EXPECT_EQ(Design.LonWest, west);
        EXPECT_EQ(Design.LatNorthText, north);
    }
    Design.MapReduce = 0.5;
    window.scaleWidth /= 2.0;
    EXPECT_EQ(PositionAt({900, 300})->place.lon, before->place.lon);
}

TEST_F(Position, EveryProjectionHasThem) {
    for (const ProjectionEntry& entry : Projections) {
        SCOPED_TRACE(entry.ProjName);
        AcceptProjection(entry.ProjNum);
        MapDraw();
        int found = 0;
        int missing = 0;
        double least = 1e300;
        double most = -1e300;
        for (std::int32_t y = 2; y < 924; y += 10) {
            for (std::int32_t x = 2; x < 1280; x += 10) {
                const auto position = PositionAt({x, y});
                (position ? found : missing) += 1;
                if (position) {
                    least = std::min(least, position->place.lat);
                    most = std::max(most, position->place.lat);
                    EXPECT_EQ(position->metres, entry.ProjNum == ProjUtm);
                }
            }
        }
        // The map fills the window in one direction.
        EXPECT_GT(found, 128 * 92 / 50) << "a zone is narrow";
        EXPECT_GT(missing, 0);
        EXPECT_LT(least, most);
    }
}

TEST_F(Position, GapsBetweenLobesAreNoPlaces) {
    AcceptProjection(ProjInterruptedMollweide); // northern lobes from 20 E to 100 E, to 100 W, to 20 E
    MapDraw();
    // A row near the northern edge of the map goes through three lobes.
    int lobes = 0;
    bool inside = false;
    const int top =
        static_cast<int>((Design.ScreenOriginY - (Design.MapYMax - Design.MapYMin) * Design.ScreenScaleY) /
                         Design.TwipsPerPixelY);
    for (std::int32_t x = 0; x < 1280; ++x) {
        const auto position = PositionAt({x, top + 40});
        lobes += position && !inside ? 1 : 0;
        inside = position.has_value();
        EXPECT_TRUE(!position || position->place.lat > 45.0);
    }
    EXPECT_EQ(lobes, 3);
}

TEST_F(Position, ZoneHasNorthingAndEasting) {
    AcceptProjection(ProjUtm);
    MapDraw();
    const auto position = PositionAt({640, 462});
    ASSERT_TRUE(position);
    EXPECT_TRUE(position->metres);
    EXPECT_GE(position->y, Design.LatSouth);
    EXPECT_LE(position->y, Design.LatNorth);
    EXPECT_EQ(
        PositionText({.place = {}, .x = 500123.4, .y = 4649776.6, .unitsPerPixel = 30.0, .metres = true}),
        "Northing 4649777 m   Easting 500123 m");
    EXPECT_EQ(
        PositionText({.place = {}, .x = 500123.4, .y = 4649776.6, .unitsPerPixel = 0.2, .metres = true}),
        "Northing 4649776.6 m   Easting 500123.4 m");
}

TEST(PlaceText, IsAsFineAsTheMap) {
    const GlobePlace place{47.123456, -122.987654};
    EXPECT_EQ(PlaceText(place, 1.0), "47\u00B0 N   123\u00B0 W");
    EXPECT_EQ(PlaceText(place, 0.5), "47\u00B0 07\u2032 N   122\u00B0 59\u2032 W");
    EXPECT_EQ(PlaceText(place, 0.005), "47\u00B0 07\u2032 24\u2033 N   122\u00B0 59\u2032 16\u2033 W");
    EXPECT_EQ(PlaceText(place, 1e-4), "47\u00B0 07\u2032 24.4\u2033 N   122\u00B0 59\u2032 15.6\u2033 W");
    EXPECT_EQ(PlaceText(place, 1e-9), "47\u00B0 07\u2032 24.44\u2033 N   122\u00B0 59\u2032 15.55\u2033 W");
}

TEST(PlaceText, SixtyOfAUnitAreOneOfTheNext) {
    EXPECT_EQ(PlaceText({59.9999, 179.9999}, 0.3), "60\u00B0 00\u2032 N   180\u00B0 00\u2032 E");
    EXPECT_EQ(PlaceText({-9.99999, 0.99999}, 0.001),
              "10\u00B0 00\u2032 00\u2033 S   1\u00B0 00\u2032 00\u2033 E");
}

TEST(PlaceText, ZeroIsNorthAndEast) {
    EXPECT_EQ(PlaceText({-0.001, -0.001}, 0.3), "0\u00B0 00\u2032 N   0\u00B0 00\u2032 E");
    EXPECT_EQ(PlaceText({-0.1, -0.1}, 0.3), "0\u00B0 06\u2032 S   0\u00B0 06\u2032 W");
}

} // namespace
} // namespace quelmont
