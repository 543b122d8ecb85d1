#include "view/map_move.h"

#include "core/map_design.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "mainwindow/start_up.h"
#include "projection/inverse_place.h"
#include "projection/projection_table.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

namespace quelmont {
namespace {

class MapMoves : public FreshProgramTest {
protected:
    /// The projection's own bounds, accepted.
    static void Take(std::int16_t projNum) {
        Design.ProjNum = projNum;
        Design.ProjName = std::string(FindProjection(projNum)->ProjName);
        if (projNum != ProjUtm) {
            ProposeBounds();
        }
        ASSERT_TRUE(AcceptProjection()) << projNum;
    }

    static void TakeBounds(const char* north, const char* south, const char* west, const char* east,
                           const char* spacing) {
        Design.GridText[GridTextNorth] = north;
        Design.GridText[GridTextSouth] = south;
        Design.GridText[GridTextWest] = west;
        Design.GridText[GridTextEast] = east;
        Design.GridText[GridTextLatSpacing] = spacing;
        Design.GridText[GridTextLonSpacing] = spacing;
        ASSERT_TRUE(AcceptProjection());
    }

    MapMoves() { StartUp(); }

    /// The point at shares of the map's width and height.
    static PlanePoint At(double x, double y) {
        return {Design.MapXMin + x * (Design.MapXMax - Design.MapXMin),
                Design.MapYMin + y * (Design.MapYMax - Design.MapYMin)};
    }
};

TEST_F(MapMoves, WorldGetsAnotherCentralMeridian) {
    Take(ProjEquirectangular);
    const MapDrag drag(At(0.5, 0.5));
    ASSERT_TRUE(drag.To(At(0.625, 0.6)));
    EXPECT_EQ(Design.GridText[GridTextWest], "135    00    00    E");
    EXPECT_EQ(Design.GridText[GridTextEast], "135    00    00    E");
    EXPECT_EQ(Design.GridText[GridTextNorth], "90    00    00    N") << "the world has no other latitudes";
    EXPECT_DOUBLE_EQ(Design.LonMiddle, -45.0);
}

TEST_F(MapMoves, HandThatComesBackGivesTheSameDesign) {
    for (const ProjectionEntry& entry : Projections) {
        SCOPED_TRACE(entry.ProjName);
        Take(entry.ProjNum);
        const DesignBounds before = Design;
        const PlanePoint pressed = At(0.55, 0.6);
        const PlanePoint near = At(0.6, 0.62);
        const PlanePoint far = At(0.1, 0.62);
        const MapDrag drag(pressed);
        ASSERT_TRUE(drag.Holds());
        EXPECT_TRUE(drag.To(near));
        EXPECT_TRUE(drag.To(far));
        EXPECT_TRUE(drag.To(pressed));
        EXPECT_EQ(Design.GridText, before.GridText);
        EXPECT_EQ(Design.UtmText, before.UtmText);
        EXPECT_EQ(Design.LobeText, before.LobeText);
        EXPECT_EQ(Design.StdParText, before.StdParText);
        EXPECT_EQ(Design.MapXMax, before.MapXMax);
    }
}

TEST_F(MapMoves, AzimuthalMapTurnsWithThePlaceUnderTheHand) {
    for (const ProjectionEntry& entry : Projections) {
        if (entry.family != ProjectionFamily::Azimuthal) {
            continue;
        }
        SCOPED_TRACE(entry.ProjName);
        Take(entry.ProjNum);
        const PlanePoint from = At(0.55, 0.45);
        const PlanePoint to = At(0.62, 0.58);
        const auto held = PlaceAt(from.x, from.y);
        ASSERT_TRUE(held);
        ASSERT_TRUE(MapDrag(from).To(to));
        const auto now = PlaceAt(to.x, to.y);
        ASSERT_TRUE(now);
        // The centre is rounded to a 400th of the range: 27 minutes of 180 degrees, less on others.
        EXPECT_NEAR(now->lat, held->lat, 0.5);
        EXPECT_NEAR(std::remainder(now->lon - held->lon, 360.0) * std::cos(held->lat * 0.01745), 0.0, 0.7);
    }
}

TEST_F(MapMoves, RegionMovesItsBoundsAndStopsAtThePole) {
    Take(ProjEquirectangular);
    TakeBounds("60    00    00    N", "20    00    00    N", "020    00    00    W", "020    00    00    E",
               "010    00    00");
    ASSERT_TRUE(MapDrag(At(0.5, 0.75)).To(At(0.25, 0.5)));
    EXPECT_EQ(Design.GridText[GridTextNorth], "70    00    00    N");
    EXPECT_EQ(Design.GridText[GridTextSouth], "30    00    00    N");
    EXPECT_EQ(Design.GridText[GridTextWest], "010    00    00    W");
    EXPECT_EQ(Design.GridText[GridTextEast], "030    00    00    E");
    ASSERT_TRUE(MapDrag(At(0.5, 1.0)).To(At(0.5, 0.0)));
    EXPECT_EQ(Design.GridText[GridTextNorth], "90    00    00    N");
    EXPECT_EQ(Design.GridText[GridTextSouth], "50    00    00    N");
}

TEST_F(MapMoves, RegionCrossesTheDateLine) {
    Take(ProjEquirectangular);
    TakeBounds("20    00    00    N", "20    00    00    S", "140    00    00    E", "180    00    00    E",
               "010    00    00");
    ASSERT_TRUE(MapDrag(At(0.5, 0.5)).To(At(0.0, 0.5)));
    EXPECT_EQ(Design.GridText[GridTextWest], "160    00    00    E");
    EXPECT_EQ(Design.GridText[GridTextEast], "160    00    00    W");
    ASSERT_TRUE(MapDrag(At(0.5, 0.5)).To(At(0.0, 0.5)));
    EXPECT_EQ(Design.GridText[GridTextWest], "180    00    00    W");
    EXPECT_EQ(Design.GridText[GridTextEast], "140    00    00    W");
}

TEST_F(MapMoves, ParallelsOfAConeGoWithItsBounds) {
    Take(ProjAlbers);
    TakeBounds("60    00    00    N", "20    00    00    N", "020    00    00    W", "020    00    00    E",
               "010    00    00");
    ASSERT_TRUE(AcceptStandardParallels("50    00    00    N", "30    00    00    N"));
    FinishAcceptance();
    const PlanePoint at = At(0.5, 0.5);
    const auto held = PlaceAt(at.x, at.y);
    ASSERT_TRUE(held);
    // Its central meridian is straight: what lies 10 degrees north of the middle is on it.
    PlanePoint north = at;
    while (PlaceAt(north.x, north.y)->lat < held->lat + 10.0) {
        north.y += 1e-4;
    }
    ASSERT_TRUE(MapDrag(north).To(at));
    EXPECT_EQ(Design.GridText[GridTextSouth], "30    00    00    N");
    EXPECT_EQ(Design.GridText[GridTextNorth], "70    00    00    N");
    EXPECT_EQ(Design.StdParText[0], "60    00    00    N");
    EXPECT_EQ(Design.StdParText[1], "40    00    00    N");
    EXPECT_EQ(Design.StdParSouth, 40.0);
}

TEST_F(MapMoves, InterruptionsGoWithTheFrame) {
    Take(ProjInterruptedMollweide);
    const std::string before = Design.LobeText[LobeTextNorth];
    const auto held = PlaceAt(0.1, 0.5);
    ASSERT_TRUE(held);
    const MapDrag drag({0.1, 0.5});
    ASSERT_TRUE(drag.To({0.4, 0.5}));
    EXPECT_NE(Design.LobeText[LobeTextNorth], before);
    EXPECT_EQ(Design.LobeText[LobeTextLeft], Design.GridText[GridTextWest]);
    EXPECT_EQ(Design.LobeText[9], "") << "a text without a longitude stays empty";
}

TEST_F(MapMoves, ZoomOfTheInterruptedMapKeepsTheInterruptionsInside) {
    Take(ProjInterruptedMollweide);
    // From 20 E round the world, interrupted in the north at 100 E and 100 W, in the south at 140 E and 70 W.
    // Half of it about 160 W, its middle: from 110 E to 70 W.
    ASSERT_TRUE(ZoomMap({0.0, 0.1}, 0.5));
    EXPECT_EQ(Design.GridText[GridTextWest], "110    00    00    E");
    EXPECT_EQ(Design.GridText[GridTextEast], "070    00    00    W");
    EXPECT_EQ(Design.LobeText[0], "1") << "100 E lies outside";
    EXPECT_EQ(Design.LobeText[LobeTextNorth], "100    00    00    W");
    EXPECT_EQ(Design.LobeText[1], "1") << "70 W is the edge";
    EXPECT_EQ(Design.LobeText[LobeTextSouth], "140    00    00    E");
    EXPECT_TRUE(WouldAccept(AcceptChain));
}

TEST_F(MapMoves, UtmMovesItsMetres) {
    Take(ProjUtm);
    // 300 to 800 km east, 5600 to 6200 km north
    ASSERT_TRUE(MapDrag({500000.0, 5900000.0}).To({600000.0, 5800000.0}));
    EXPECT_EQ(Design.UtmText[UtmTextWest], "0200000");
    EXPECT_EQ(Design.UtmText[UtmTextEast], "0700000");
    EXPECT_EQ(Design.UtmText[UtmTextNorth], "06300000");
    EXPECT_EQ(Design.UtmText[UtmTextSouth], "05700000");
}

TEST_F(MapMoves, ZoomShowsLessAboutThePointer) {
    Take(ProjEquirectangular);
    TakeBounds("60    00    00    N", "00    00    00    N", "030    00    00    W", "030    00    00    E",
               "010    00    00");
    ASSERT_TRUE(ZoomMap(At(0.5, 0.5), 0.5));
    EXPECT_EQ(Design.GridText[GridTextNorth], "45    00    00    N");
    EXPECT_EQ(Design.GridText[GridTextSouth], "15    00    00    N");
    EXPECT_EQ(Design.GridText[GridTextWest], "015    00    00    W");
    EXPECT_EQ(Design.GridText[GridTextEast], "015    00    00    E");
}

TEST_F(MapMoves, MeridiansOfASmallRegionDoNotCoverTheWorldThatItIsZoomedOutTo) {
    Take(ProjEquirectangular);
    TakeBounds("20    00    30    N", "20    00    00    N", "010    00    00    E", "010    00    30    E",
               "000    00    05");
    ASSERT_TRUE(ZoomMap(At(0.5, 0.5), 1e5));
    EXPECT_EQ(Design.LonSpan, 360.0);
    EXPECT_EQ(Design.GridText[GridTextLonSpacing], "045    00    00");
    EXPECT_LE(Design.LatGridCount, 12);
}

TEST_F(MapMoves, WorldKeepsTheSpacingThatItHas) {
    Take(ProjEquirectangular);
    TakeBounds("60    00    00    N", "60    00    00    S", "180    00    00    W", "180    00    00    E",
               "005    00    00");
    ASSERT_TRUE(ZoomMap(At(0.5, 0.5), 1.25));
    EXPECT_EQ(Design.GridText[GridTextLonSpacing], "005    00    00");
}

TEST_F(MapMoves, GridOfAnAzimuthalMapIsSeenHoweverFarItIsZoomed) {
    Take(ProjAzimuthalEqualArea);
    Design.GridText[GridTextRange] = "001    00    00";
    Design.GridText[GridTextLatSpacing] = "000    10    00";
    Design.GridText[GridTextLonSpacing] = "000    10    00";
    ASSERT_TRUE(AcceptProjection());
    ASSERT_TRUE(ZoomMap(PlanePoint{0.0, 0.0}, 5.0));
    EXPECT_EQ(Design.GridText[GridTextLatSpacing], "000    10    00") << "60 of them";
    ASSERT_TRUE(ZoomMap(PlanePoint{0.0, 0.0}, 100.0));
    EXPECT_EQ(Design.GridText[GridTextRange], "180    00    00");
    EXPECT_EQ(Design.GridText[GridTextLatSpacing], "030    00    00") << "a sixth of 180 degrees";
    EXPECT_EQ(Design.GridText[GridTextLonSpacing], "045    00    00") << "about a sixth of 360 degrees";
    ASSERT_TRUE(ZoomMap(1.0 / 1800.0));
    EXPECT_EQ(Design.GridText[GridTextRange], "000    06    00");
    EXPECT_EQ(Design.GridText[GridTextLatSpacing], "000    02    00") << "a sixth of 12 minutes";
}

TEST_F(MapMoves, DenseGridOfAGlobeStaysWhenItIsTurned) {
    Take(ProjOrthographic);
    Design.GridText[GridTextCentralLat] = "50    00    00    N";
    Design.GridText[GridTextLatSpacing] = "000    30    00";
    Design.GridText[GridTextLonSpacing] = "000    30    00";
    ASSERT_TRUE(AcceptProjection());
    ASSERT_TRUE(StepMap(0.1, 0.1));
    EXPECT_EQ(Design.GridText[GridTextLatSpacing], "000    30    00");
    EXPECT_EQ(Design.GridText[GridTextLonSpacing], "000    30    00");
}

TEST_F(MapMoves, ZoomChangesRangeAndHeight) {
    Take(ProjOrthographic);
    ASSERT_TRUE(ZoomMap({0.0, 0.0}, 0.8));
    EXPECT_EQ(Design.GridText[GridTextRange], "072    00    00");
    EXPECT_FALSE(ZoomMap({0.0, 0.0}, 1.25) && ZoomMap({0.0, 0.0}, 1.25)) << "90 degrees is all there is";
    EXPECT_EQ(Design.GridText[GridTextRange], "090    00    00");
    Take(ProjVerticalPerspective);
    ASSERT_TRUE(ZoomMap({0.0, 0.0}, 0.5));
    EXPECT_EQ(Design.GridText[GridTextHeight], "00018000") << "17920 to the nearest 200";
}

TEST_F(MapMoves, ZoomKeepsThePlaceUnderThePointer) {
    for (const std::int16_t projNum : {ProjOrthographic, ProjAzimuthalEqualArea, ProjGnomonic}) {
        SCOPED_TRACE(projNum);
        Take(projNum);
        const PlanePoint at = At(0.6, 0.62);
        const double share = at.x / Design.MapXMax;
        const double shareY = at.y / Design.MapXMax;
        const auto place = PlaceAt(at.x, at.y);
        ASSERT_TRUE(ZoomMap(at, 0.7));
        const auto now = PlaceAt(share * Design.MapXMax, shareY * Design.MapXMax);
        ASSERT_TRUE(place && now);
        EXPECT_NEAR(now->lat, place->lat, 0.4);
        EXPECT_NEAR(now->lon, place->lon, 0.5);
    }
}

TEST_F(MapMoves, WholeWorldComesBackFromARegion) {
    Take(ProjRobinson);
    TakeBounds("60    00    00    N", "20    00    00    N", "020    00    00    W", "020    00    00    E",
               "010    00    00");
    ASSERT_TRUE(ShowWhole());
    EXPECT_EQ(Design.GridText[GridTextNorth], "90    00    00    N");
    EXPECT_EQ(Design.GridText[GridTextWest], "180    00    00    W");
    EXPECT_FALSE(ShowWhole()) << "nothing changes any more";
    Take(ProjOrthographic);
    ASSERT_TRUE(CentreMap(At(0.6, 0.3)));
    const std::string centre = Design.GridText[GridTextCentralLat];
    ASSERT_TRUE(ZoomMap({0.0, 0.0}, 0.3));
    ASSERT_TRUE(ShowWhole());
    EXPECT_EQ(Design.GridText[GridTextCentralLat], centre);
    EXPECT_EQ(Design.GridText[GridTextRange], "090    00    00");
}

TEST_F(MapMoves, RectangleBecomesTheMap) {
    Take(ProjEquirectangular);
    // A world of 360 by 180 degrees: from 0 to 90 E and from 0 to 45 N.
    ASSERT_TRUE(ShowRectangle(At(0.5, 0.5), At(0.75, 0.75)));
    EXPECT_NEAR(Design.LonWest, 0.0, 3.0);
    EXPECT_NEAR(Design.LonEast, 90.0, 3.0);
    EXPECT_NEAR(Design.LatSouth, 0.0, 3.0);
    EXPECT_NEAR(Design.LatNorth, 45.0, 3.0);
    Take(ProjAzimuthalEquidistant);
    ASSERT_TRUE(ShowRectangle(At(0.45, 0.5), At(0.55, 0.5)));
    EXPECT_NEAR(Design.RangeSec, 18.0 * 3600.0, 1800.0)
        << "a tenth of the whole on either side of the centre";
}

TEST_F(MapMoves, RandomMovesAlwaysLeaveAMapThatItsDialogsAccept) {
    std::mt19937 random(42);
    std::uniform_real_distribution<double> share(-0.2, 1.2);
    for (const ProjectionEntry& entry : Projections) {
        SCOPED_TRACE(entry.ProjName);
        Take(entry.ProjNum);
        for (int i = 0; i < 300; ++i) {
            const PlanePoint a = At(share(random), share(random));
            const PlanePoint b = At(share(random), share(random));
            switch (random() % 6) {
            case 0:
                ZoomMap(a, 0.8);
                break;
            case 1:
                ZoomMap(a, 1.25);
                break;
            case 2:
                CentreMap(a);
                break;
            case 3:
                ShowRectangle(a, b);
                break;
            case 4:
                if (i % 10 == 0) {
                    ShowWhole();
                }
                break;
            default:
                MapDrag(a).To(b);
            }
            ASSERT_EQ(Design.BoundsProjNum, entry.ProjNum);
            ASSERT_TRUE(WouldAccept(AcceptChain)) << i;
            ASSERT_LT(Design.MapXMin, Design.MapXMax);
            ASSERT_LT(Design.MapYMin, Design.MapYMax);
        }
    }
    EXPECT_TRUE(machine.boxes.Taken().empty());
}

} // namespace
} // namespace quelmont
