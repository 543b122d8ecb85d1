#include "core/map_design.h"
#include "core/run_time_error.h"
#include "graticule/grid_density.h"
#include "graticule/grid_pass.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

class GridDensity : public FreshProgramTest {
protected:
    /// A map of so many divisions of ten degrees each.
    static void Divisions(std::int16_t projNum, std::int32_t latitude, std::int32_t longitude) {
        Design.ProjNum = projNum;
        Design.LatGridCount = latitude;
        Design.LonGridCount = longitude;
        Design.LatNorth = latitude * 10.0;
        Design.LatSouth = 0.0;
        Design.LonZero = 0.0;
        Design.LonSpan = longitude * 10.0;
    }
};

TEST_F(GridDensity, StraightLinesHaveOneSegment) {
    for (const std::int16_t projNum :
         {ProjMercator, ProjEquirectangular, ProjUtm, ProjCylindricalEqualArea}) {
        Divisions(projNum, 3, 3);
        EXPECT_EQ(LatPointsPerMark(), 1) << projNum;
        EXPECT_EQ(LonPointsPerMark(), 1) << projNum;
    }
    for (const std::int16_t projNum : {ProjEquidistantConic, ProjConformalConic, ProjAlbers}) {
        Divisions(projNum, 3, 3);
        EXPECT_EQ(LatPointsPerMark(), 1) << "meridians of a cone, " << projNum;
    }
    for (const std::int16_t projNum : {ProjRobinson, ProjMollweide, ProjInterruptedMollweide}) {
        Divisions(projNum, 3, 3);
        EXPECT_EQ(LonPointsPerMark(), 1) << "parallels of an oval, " << projNum;
    }
}

TEST_F(GridDensity, ParallelsOfAConeHaveFortyEightSegmentsInAll) {
    struct Row {
        std::int32_t divisions;
        std::int16_t segments;
    };
    // 48 / 5 = 9.6, 48 / 7 = 6.9, 48 / 9 = 5.3, 48 / 11 = 4.4
    for (const Row& row :
         {Row{1, 48}, Row{2, 24}, Row{5, 10}, Row{7, 7}, Row{9, 5}, Row{11, 4}, Row{12, 4}, Row{100, 4}}) {
        for (const std::int16_t projNum : {ProjEquidistantConic, ProjConformalConic, ProjAlbers}) {
            Divisions(projNum, 3, row.divisions);
            EXPECT_EQ(LonPointsPerMark(), row.segments) << row.divisions;
        }
    }
}

TEST_F(GridDensity, CurvedLinesHaveTwentyFourSegmentsInAll) {
    struct Row {
        std::int32_t divisions;
        std::int16_t segments;
    };
    // 24 / 5 = 4.8
    for (const Row& row : {Row{1, 24}, Row{2, 12}, Row{3, 8}, Row{4, 6}, Row{5, 5}, Row{6, 4}, Row{7, 4}}) {
        Divisions(ProjHammer, row.divisions, 3);
        EXPECT_EQ(LatPointsPerMark(), row.segments) << row.divisions;
        Divisions(ProjRobinson, row.divisions, 3);
        EXPECT_EQ(LatPointsPerMark(), row.segments) << row.divisions;
        Divisions(ProjHammer, 3, row.divisions);
        EXPECT_EQ(LonPointsPerMark(), row.segments) << row.divisions;
    }
}

TEST_F(GridDensity, MeridiansOfTheMollweideHaveFortyEight) {
    struct Row {
        std::int32_t divisions;
        std::int16_t segments;
    };
    // 48 / 5 = 9.6
    for (const Row& row : {Row{1, 48}, Row{3, 16}, Row{5, 10}, Row{6, 8}, Row{20, 8}}) {
        for (const std::int16_t projNum : {ProjMollweide, ProjInterruptedMollweide}) {
            Divisions(projNum, row.divisions, 3);
            EXPECT_EQ(LatPointsPerMark(), row.segments) << row.divisions;
        }
    }
}

TEST_F(GridDensity, TinyMapsHaveTheFewestSegments) {
    for (const std::int16_t projNum : {ProjHammer, ProjRobinson, ProjMollweide}) {
        Divisions(projNum, 1, 1);
        Design.LatNorth = 0.0014;
        Design.LonSpan = 0.0014;
        const int fewest = projNum == ProjMollweide ? 8 : 4;
        EXPECT_EQ(LatPointsPerMark(), fewest) << projNum;
        Design.LatNorth = 0.00141;
        EXPECT_EQ(LatPointsPerMark(), fewest * 6) << projNum;
    }
    Divisions(ProjHammer, 1, 1);
    Design.LonSpan = 0.0014;
    EXPECT_EQ(LonPointsPerMark(), 4);
    Design.LonSpan = 0.00141;
    EXPECT_EQ(LonPointsPerMark(), 24);
}

/// 100 over the marks between the centre and the circle, the one beyond it counted, but on a whole
/// globe of the two that show it.
TEST_F(GridDensity, AzimuthalMapsHaveAHundredSegmentsToTheCircle) {
    struct Row {
        std::int16_t projNum;
        std::int32_t range, spacing; ///< degrees
        std::int16_t segments;
    };
    constexpr std::array<Row, 13> rows = {{{ProjOrthographic, 90, 30, 25},
                                           {ProjOrthographic, 90, 15, 14},          // 100 / 7 = 14.3
                                           {ProjGnomonic, 60, 45, 50},              // 60 / 45 is 1
                                           {ProjGnomonic, 60, 90, 100},             // one mark, the circle
                                           {ProjStereographic, 89, 30, 33},         // 100 / 3
                                           {ProjVerticalPerspective, 81, 10, 11},   // 100 / 9
                                           {ProjAzimuthalEquidistant, 180, 30, 17}, // 6 marks, not 7: 16.7
                                           {ProjAzimuthalEqualArea, 180, 45, 25},
                                           {ProjAzimuthalEquidistant, 179, 30, 17},
                                           {ProjAzimuthalEquidistant, 180, 180, 100},
                                           {ProjAzimuthalEquidistant, 180, 360, 100}, // never below one mark
                                           {ProjStereographic, 180, 30, 14},          // 7 marks: 14.3
                                           {ProjAzimuthalEqualArea, 120, 15, 11}}};   // 9 marks: 11.1
    for (const Row& row : rows) {
        Design.ProjNum = row.projNum;
        Design.RangeSec = row.range * 3600;
        Design.LatGridSec = row.spacing * 3600;
        Design.LonGridSec = 3600;
        EXPECT_EQ(LatPointsPerMark(), row.segments)
            << row.projNum << ": " << row.range << ", " << row.spacing;
        Design.LonGridSec = row.spacing * 3600;
        Design.LatGridSec = 3600;
        EXPECT_EQ(LonPointsPerMark(), row.segments)
            << row.projNum << ": " << row.range << ", " << row.spacing;
    }
}

TEST_F(GridDensity, FinestAzimuthalGridHasOneSegment) {
    Design.ProjNum = ProjOrthographic;
    Design.RangeSec = 90 * 3600;
    Design.LatGridSec = 90 * 18; // 200 marks and one: a half, which is even at 0
    EXPECT_EQ(LatPointsPerMark(), 1);
    Design.LatGridSec = 60;
    EXPECT_EQ(LatPointsPerMark(), 1);
}

TEST_F(GridDensity, NoDivisionsIsADivisionByZero) {
    for (const std::int16_t projNum : {ProjHammer, ProjRobinson, ProjMollweide}) {
        Divisions(projNum, 0, 3);
        Design.LatNorth = 10.0;
        EXPECT_THROW(LatPointsPerMark(), RunTimeError) << projNum;
    }
    Divisions(ProjAlbers, 3, 0);
    EXPECT_THROW(LonPointsPerMark(), RunTimeError);
    Design.ProjNum = ProjGnomonic;
    Design.LatGridSec = 0;
    EXPECT_THROW(LatPointsPerMark(), RunTimeError);
}

} // namespace
} // namespace quelmont
