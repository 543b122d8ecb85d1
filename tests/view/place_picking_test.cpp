#include "view/place_picking.h"

#include "core/map_design.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "view/map_clicks.h"
#include "view/position.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::StartsWith;

class PlacePicking : public StartedProgram {
protected:
    void Begin() {
        BeginPicking("the start of the great circle", [this] { ++ended; });
    }

    int ended = 0;
};

TEST_F(PlacePicking, NeedsAMap) {
    EXPECT_FALSE(CanPickPlace());
    MapDraw();
    EXPECT_TRUE(CanPickPlace());
}

TEST_F(PlacePicking, GivesThePlaceAsFineAsTheMap) {
    MapDraw();
    Begin();
    EXPECT_EQ(window.pointer, MousePointer::Cross);
    // Column 640 is half a column of 360 / 1279 degrees east of the middle: 8.4 minutes. Row 200 is 261.5
    // rows of 0.70710678 times as much north of the equator: 52.0465 degrees, which is 52 degrees 2.8
    // minutes.
    TakeClick({640, 200}, false);
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE(IsPicking());
    EXPECT_EQ(window.pointer, MousePointer::Normal);
    const auto picked = TakePicked();
    ASSERT_TRUE(picked);
    EXPECT_NEAR(picked->lat, 52.0 + 3.0 / 60.0, 1e-9) << "whole minutes";
    EXPECT_NEAR(picked->lon, 8.0 / 60.0, 1e-9);
    EXPECT_FALSE(TakePicked()) << "once";
}

TEST_F(PlacePicking, ClickBesideTheMapGoesOnWaiting) {
    MapDraw();
    Begin();
    TakeClick({640, 2}, false);
    EXPECT_EQ(ended, 0);
    EXPECT_TRUE(IsPicking());
    EXPECT_TRUE(GiveUpPicking());
    EXPECT_EQ(ended, 1);
}

TEST_F(PlacePicking, EscapeGivesUp) {
    MapDraw();
    Begin();
    EXPECT_TRUE(EscapeClicks());
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE(TakePicked());
    EXPECT_FALSE(GiveUpPicking()) << "nobody waits any more";
}

TEST_F(PlacePicking, StatusLineTellsWhatIsWantedAndWhereTheMouseIs) {
    MapDraw();
    Begin();
    PointAtMap({{640, 2}});
    EXPECT_EQ(window.statusText,
              "Click the start of the great circle on the map; Esc goes back to the dialog");
    PointAtMap({{640, 200}});
    EXPECT_EQ(window.statusText,
              "Click the start of the great circle on the map; Esc goes back to the dialog   "
              "52\u00B0 03\u2032 N   0\u00B0 08\u2032 E");
    GiveUpPicking();
}

TEST_F(PlacePicking, RoundedPlaceIsWhatTheStatusLineWrites) {
    const GlobePlace place{47.123456, -122.987654};
    EXPECT_NEAR(RoundedPlace(place, 0.5).lat, 47.0 + 7.0 / 60.0, 1e-12);
    EXPECT_NEAR(RoundedPlace(place, 0.5).lon, -122.0 - 59.0 / 60.0, 1e-12);
    EXPECT_NEAR(RoundedPlace(place, 1e-9).lat, 47.0 + (7.0 * 60.0 + 24.0) / 3600.0, 1e-12)
        << "seconds at most, which is what a field holds";
}

} // namespace
} // namespace quelmont
