#include "convert/line_steps.h"

#include "convert_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quelmont {

namespace {

using testing::ElementsAre;
using Lines = std::vector<MapLine>;

Lines Split(MapLine line) {
    Lines pieces;
    SplitAt180(line, [&](MapLine& piece) { pieces.push_back(piece); });
    return pieces;
}

Lines Cut(MapLine line, const LonLatBounds& bounds) {
    Lines pieces;
    CutToBounds(line, bounds, [&](MapLine& piece) { pieces.push_back(piece); });
    return pieces;
}

TEST(SplittingAt180, LeavesOtherLinesAlone) {
    const MapLine line{{170, 0}, {180, 1}, {170, 2}};
    EXPECT_THAT(Split(line), ElementsAre(line));
    EXPECT_THAT(Split({{5, 5}}), ElementsAre(MapLine{{5, 5}}));
}

TEST(SplittingAt180, CutsTheShorterWayEastward) {
    // 4 degrees east of 179, a quarter of the way at 180.
    EXPECT_THAT(Split({{179, 10}, {-177, 18}}),
                ElementsAre(MapLine{{179, 10}, {180, 12}}, MapLine{{-180, 12}, {-177, 18}}));
}

TEST(SplittingAt180, CutsTheShorterWayWestward) {
    EXPECT_THAT(Split({{-178, 0}, {178, -8}, {170, -8}}),
                ElementsAre(MapLine{{-178, 0}, {-180, -4}}, MapLine{{180, -4}, {178, -8}, {170, -8}}));
}

TEST(SplittingAt180, CutsLongitudesBeyond180) {
    EXPECT_THAT(Split({{170, 0}, {190, 10}, {200, 10}}),
                ElementsAre(MapLine{{170, 0}, {180, 5}}, MapLine{{-180, 5}, {-170, 10}, {-160, 10}}));
    EXPECT_THAT(Split({{200, 3}}), ElementsAre(MapLine{{-160, 3}}));
}

TEST(SplittingAt180, CutsAgainWhereALineReturns) {
    EXPECT_THAT(Split({{179, 0}, {-179, 0}, {179, 2}}),
                ElementsAre(MapLine{{179, 0}, {180, 0}}, MapLine{{-180, 0}, {-179, 0}, {-180, 1}},
                            MapLine{{180, 1}, {179, 2}}));
}

TEST(SplittingAt180, EndOnTheMeridianIsNoCrossing) {
    EXPECT_THAT(Split({{170, 0}, {-180, 0}}), ElementsAre(MapLine{{170, 0}, {180, 0}}));
    EXPECT_THAT(Split({{170, 0}, {-180, 0}, {-180, 5}, {170, 5}}),
                ElementsAre(MapLine{{170, 0}, {180, 0}, {180, 5}, {170, 5}}));
}

TEST(SplittingAt180, BeginningOnTheFarSideLeavesNoPointBehind) {
    EXPECT_THAT(Split({{-180, 3}, {170, 4}}), ElementsAre(MapLine{{180, 3}, {170, 4}}));
}

TEST(SplittingAt180, PointOfALineOnTheMeridianIsTheCut) {
    EXPECT_THAT(Split({{179, 0}, {180, 1}, {-179, 2}}),
                ElementsAre(MapLine{{179, 0}, {180, 1}}, MapLine{{-180, 1}, {-179, 2}}));
}

TEST(SplittingAt180, WholeParallelStays) {
    const MapLine parallel{{-180, -90}, {180, -90}};
    EXPECT_THAT(Split(parallel), ElementsAre(parallel));
    EXPECT_THAT(Split({{0, 5}, {360, 5}}),
                ElementsAre(MapLine{{0, 5}, {180, 5}}, MapLine{{-180, 5}, {0, 5}}));
}

TEST(SplittingAt180, LongWayOfHalfACircleStays) {
    const MapLine line{{-90, 0}, {90, 0}};
    EXPECT_THAT(Split(line), ElementsAre(line));
}

TEST(SplittingAt180, PointsBehindTheCutAreExact) {
    const Lines pieces = Split({{179.7, 0}, {-179.9, 0}, {-179.3, 0.1}, {-12.3, 0.1}});
    ASSERT_EQ(pieces.size(), 2U);
    EXPECT_EQ(pieces[1][1], (LonLat{-179.9, 0}));
    EXPECT_EQ(pieces[1][2], (LonLat{-179.3, 0.1}));
    EXPECT_EQ(pieces[1][3], (LonLat{-12.3, 0.1}));
}

TEST(PlaceOnEarth, IsCheckedAndReported) {
    MapLine good{{-360, 90}, {360, -90}};
    CheckOnEarth(good);
    for (const LonLat bad : {LonLat{0, 90.1}, LonLat{360.1, 0}, LonLat{-400, 0}, LonLat{0, -91},
                             LonLat{std::nan(""), 0}, LonLat{0, std::numeric_limits<double>::infinity()}}) {
        MapLine line{{0, 0}, bad};
        EXPECT_THROW(CheckOnEarth(line), BadFeature) << bad.Lon << ' ' << bad.Lat;
    }
    try {
        MapLine line{{10.5, 95}};
        CheckOnEarth(line);
        FAIL();
    } catch (const BadFeature& bad) {
        EXPECT_STREQ(bad.what(), "a point lies outside the earth, at longitude 10.5, latitude 95");
    }
}

TEST(PlaceOnEarth, ComputedEdgesAreMet) {
    MapLine line{{180.0000000001, 90.0000000001}, {-179.9999999999, -90.0000000001}};
    CheckOnEarth(line);
    EXPECT_EQ(line, (MapLine{{180, 90}, {-180, -90}}));
}

constexpr LonLatBounds Box{0, 0, 10, 10};

TEST(CuttingToBounds, KeepsWhatIsInside) {
    const MapLine line{{0, 0}, {10, 10}, {5, 0}};
    EXPECT_THAT(Cut(line, Box), ElementsAre(line));
    EXPECT_THAT(Cut({{5, 5}}, Box), ElementsAre(MapLine{{5, 5}}));
}

TEST(CuttingToBounds, DropsWhatIsOutside) {
    EXPECT_THAT(Cut({{-1, 5}, {-1, 6}, {-5, 6}}, Box), ElementsAre());
    EXPECT_THAT(Cut({{11, 5}}, Box), ElementsAre());
    EXPECT_THAT(Cut({{-1, 9}, {1, 11}, {1, 12}}, Box), ElementsAre()); // past the corner
}

TEST(CuttingToBounds, CutsAtTheEdges) {
    // Leaves over the north edge, passes outside, and comes back over the east edge.
    EXPECT_THAT(Cut({{5, 5}, {9, 13}, {15, 13}, {8, 6}}, Box),
                ElementsAre(MapLine{{5, 5}, {7.5, 10}}, MapLine{{10, 8}, {8, 6}}));
}

TEST(CuttingToBounds, CutsALongSegmentAtBothEnds) {
    EXPECT_THAT(Cut({{-5, 2}, {15, 2}}, Box), ElementsAre(MapLine{{0, 2}, {10, 2}}));
}

TEST(CuttingToBounds, TouchWithoutEntryIsNothing) {
    EXPECT_THAT(Cut({{-2, 5}, {0, 6}, {-2, 7}}, Box), ElementsAre());
}

TEST(CuttingToBounds, ReachAcross180WhenWestIsEastOfEast) {
    const LonLatBounds pacific{170, -10, -170, 10};
    EXPECT_THAT(Cut({{160, 0}, {180, 0}}, pacific), ElementsAre(MapLine{{170, 0}, {180, 0}}));
    EXPECT_THAT(Cut({{-180, 0}, {-160, 0}}, pacific), ElementsAre(MapLine{{-180, 0}, {-170, 0}}));
    EXPECT_THAT(Cut({{0, 0}, {100, 0}}, pacific), ElementsAre());
}

TEST(ShorteningSteps, PutsPointsEvenlyIntoLongOnes) {
    MapLine line{{0, 0}, {20, 5}, {-25, 50}, {-25, -50}};
    EXPECT_EQ(ShortenSteps(line, 20), 2);
    EXPECT_EQ(line, (MapLine{{0, 0}, {20, 5}, {5, 20}, {-10, 35}, {-25, 50}, {-25, -50}}));
}

TEST(ShorteningSteps, LeavesShortOnesAlone) {
    MapLine line{{0, 0}, {20, 0}, {0, 0}};
    EXPECT_EQ(ShortenSteps(line, 20), 0);
    EXPECT_EQ(line, (MapLine{{0, 0}, {20, 0}, {0, 0}}));
    MapLine point{{5, 5}};
    EXPECT_EQ(ShortenSteps(point, 20), 0);
    MapLine nothing;
    EXPECT_EQ(ShortenSteps(nothing, 20), 0);
}

} // namespace
} // namespace quelmont
