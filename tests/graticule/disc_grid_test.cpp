// The grids of azimuthal maps: their circles, poles and antipodes.

#include "graticule/plot_grid.h"

#include "core/map_design.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_lines.h"
#include "graticule/grid_pass.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <set>

namespace quelmont {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

using Codes = std::initializer_list<std::int16_t>;

constexpr std::array<std::int16_t, 6> Azimuthals = {26, 27, 28, 29, 30, 31};

using DiscGrid = GridTest;

/// Points of a line that is laid on the map frame.
bool IsCircle(const std::vector<WrittenPoint>& line) {
    return line.size() == 121 && std::all_of(line.begin(), line.end(), [](const WrittenPoint& point) {
               return std::fabs(std::hypot(point.x, point.y) - Design.MapXMax) < 1e-12;
           });
}

TEST_F(DiscGrid, BoundaryOfADiscIsItsCircleAlone) {
    for (const std::int16_t projNum : Azimuthals) {
        for (const std::int16_t code : Codes{1, 2}) {
            Start(projNum, code);
            const int calls = machine.pump.calls;
            PlotRecorded();
            ASSERT_THAT(recorder.lines, SizeIs(1)) << projNum << ", " << code;
            EXPECT_TRUE(IsCircle(recorder.lines[0])) << projNum;
            EXPECT_EQ(recorder.dots.empty(), code == 2);
            if (code == 2) {
                EXPECT_EQ(machine.pump.calls, calls);
            }
        }
    }
}

/// Every third degree, anticlockwise from the east and back to it.
TEST_F(DiscGrid, CircleGoesRoundByThreeDegrees) {
    Start(ProjAzimuthalEqualArea, 2);
    PlotRecorded();
    ASSERT_THAT(recorder.lines, SizeIs(1));
    const auto& circle = recorder.lines[0];
    ASSERT_THAT(circle, SizeIs(121));
    EXPECT_EQ(circle[0].x, 2.0);
    EXPECT_EQ(circle[0].y, 0.0);
    EXPECT_NEAR(circle[10].x, std::sqrt(3.0), 1e-14);
    EXPECT_NEAR(circle[10].y, 1.0, 1e-14);
    EXPECT_NEAR(circle[30].y, 2.0, 1e-14);
    EXPECT_NEAR(circle[120].y, 0.0, 1e-13);
    EXPECT_EQ(surface.Count(SurfaceOp::MoveToEx), 1);
    EXPECT_EQ(surface.Count(SurfaceOp::LineTo), 121);
}

TEST_F(DiscGrid, DotsHaveTheirCircleAsDots) {
    for (const std::int16_t projNum : Azimuthals) {
        Start(projNum, 4);
        PlotRecorded();
        EXPECT_THAT(recorder.lines, IsEmpty());
        ASSERT_GT(recorder.dots.size(), 121U);
        EXPECT_TRUE(IsCircle({recorder.dots.begin(), recorder.dots.begin() + 121})) << projNum;
    }
}

TEST_F(DiscGrid, LinesOfADiscComeAfterItsCircle) {
    for (const std::int16_t projNum : Azimuthals) {
        Start(projNum, 3);
        PlotRecorded();
        ASSERT_GT(recorder.lines.size(), 10U);
        EXPECT_TRUE(IsCircle(recorder.lines[0])) << projNum;
        EXPECT_FALSE(IsCircle(recorder.lines[1])) << projNum;
    }
}

/// The outermost parallel serves when the range is a multiple of the spacing.
TEST_F(DiscGrid, PolarMapNeedsNoCircleOfItsOwn) {
    struct Row {
        std::int16_t projNum;
        const char* centre;
        const char* range;
        std::int16_t code;
        bool circle;
    };
    constexpr std::array<Row, 9> rows = {{{30, "90    00    00    N", "060    00    00", 3, false},
                                          {30, "90    00    00    S", "060    00    00", 3, false},
                                          {27, "90    00    00    N", "090    00    00", 3, false},
                                          {30, "90    00    00    N", "050    00    00", 3, true},
                                          {30, "90    00    00    N", "180    00    00", 3, true},
                                          {30, "89    59    59    N", "060    00    00", 3, true},
                                          {30, "90    00    00    N", "060    00    00", 2, true},
                                          {30, "90    00    00    N", "060    00    00", 4, true},
                                          {29, "90    00    00    N", "060    00    00", 3, true}}};
    for (const Row& row : rows) {
        Start(row.projNum, row.code);
        Design.GridText[GridTextCentralLat] = row.centre;
        Design.GridText[GridTextRange] = row.range;
        Design.GridText[GridTextHeight] = "00006371"; // whose horizon is 60 degrees away
        PrepareDesign();
        PlotRecorded();
        auto points = recorder.lines.empty() ? recorder.dots : recorder.lines[0];
        points.resize(std::min<std::size_t>(points.size(), 121));
        // A parallel of the same radius begins in the south, where longitude 0 lies.
        const bool circle = IsCircle(points) && points[0].x > 0.9 * Design.MapXMax;
        EXPECT_EQ(circle, row.circle)
            << row.projNum << ", " << row.centre << ", " << row.range << ", " << row.code;
    }
}

TEST_F(DiscGrid, PolarMapEndsWithItsOutermostParallel) {
    Start(ProjAzimuthalEquidistant);
    Design.GridText[GridTextCentralLat] = "90    00    00    N";
    Design.GridText[GridTextRange] = "060    00    00";
    PrepareDesign();
    PlotRecorded();
    // Parallels 30, 60, 90 (a dot at the centre), meridians every 45 degrees and 360.
    ASSERT_THAT(recorder.lines, SizeIs(3 + 9));
    EXPECT_NEAR(std::hypot(recorder.lines[0][0].x, recorder.lines[0][0].y), Design.MapXMax, 1e-14);
    for (std::size_t i = 3; i < 12; ++i) {
        EXPECT_EQ(recorder.lines[i].front().lat, 30.0);
        EXPECT_EQ(recorder.lines[i].back().lat, 90.0);
    }
}

TEST_F(DiscGrid, AntipodeIsNeverPlotted) {
    Start(ProjAzimuthalEquidistant);
    Design.GridText[GridTextLatSpacing] = "010    00    00"; // 40 S is a parallel
    PrepareDesign();
    ASSERT_EQ(Design.LatCentral, 40.0);
    PlotRecorded();
    int nearest = 0;
    for (const auto& line : recorder.lines) {
        for (const WrittenPoint& point : line) {
            const bool onEdge = point.lon == 0.0 || point.lon == 360.0;
            EXPECT_FALSE(onEdge && point.lat == -40.0);
            nearest += onEdge && std::fabs(point.lat + 40.0) <= 3.1e-05 ? 1 : 0;
        }
    }
    // Both pieces of the edge meridian, the southern one's end and the northern one's start twice,
    // once for the dot of a line's first point.
    EXPECT_EQ(nearest, 3);
}

TEST_F(DiscGrid, EdgeMeridianStartsBesideTheAntipode) {
    Start(ProjAzimuthalEquidistant);
    PlotRecorded();
    const auto edge = std::find_if(recorder.lines.begin() + 1, recorder.lines.end(), [](const auto& line) {
        return line.front().lon == 360.0 && line.front().lat == -40.0 + 3e-05;
    });
    ASSERT_NE(edge, recorder.lines.end());
    EXPECT_EQ(edge->back().lat, 90.0);
    // It runs from the rim, below the centre, up to the pole 50 degrees above it.
    EXPECT_NEAR(edge->front().y, Pi, 0.01);
    EXPECT_NEAR(edge->back().y, 50.0 * DegToRad, 1e-12);
}

TEST_F(DiscGrid, MeridianOppositeTheCentreIsOnePixelOnTheCentreLine) {
    for (const std::int16_t projNum : {ProjGnomonic, ProjStereographic, ProjOrthographic}) {
        for (const int width : {800, 801, 802, 803}) {
            for (const int height : {600, 601}) {
                machine.window.scaleWidth = width * 15.0;
                machine.window.scaleHeight = height * 15.0;
                Start(projNum);
                surface.Forget();
                PlotGrid();
                // The map is centred: its middle is half of the width less one pixel, 399.5 of 800.
                const double middle = (width - 1) / 2.0;
                std::set<std::int32_t> columns;
                int pieces = 0;
                for (const RecordedSegment& segment : surface.Segments()) {
                    if (segment.from.y != segment.to.y && std::abs(segment.from.x - segment.to.x) <= 1 &&
                        std::fabs(segment.from.x - middle) <= 1.0) {
                        columns.insert({segment.from.x, segment.to.x});
                        ++pieces;
                    }
                }
                EXPECT_THAT(columns, SizeIs(1)) << projNum << ", " << width << " x " << height;
                EXPECT_LE(std::fabs(*columns.begin() - middle), 0.5);
                EXPECT_GT(pieces, 2) << "both ends of the opposite meridian and the central one";
            }
        }
    }
}

TEST_F(DiscGrid, OppositeMeridianOfAWholeGlobeBreaksAtTheAntipode) {
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        for (const char* centre : {"40    00    00    N", "25    00    00    S"}) {
            Start(projNum);
            Design.GridText[GridTextCentralLat] = centre;
            Design.GridText[GridTextLatSpacing] = "005    00    00";
            PrepareDesign();
            PlotRecorded();
            int pieces = 0;
            for (const auto& line : recorder.lines) {
                const bool opposite = std::all_of(line.begin(), line.end(), [](const WrittenPoint& point) {
                    return point.lon == 0.0 || point.lon == 360.0;
                });
                if (!opposite || line.front().lat == line.back().lat) {
                    continue;
                }
                ++pieces;
                const auto [south, north] = std::minmax(line.front().lat, line.back().lat);
                EXPECT_TRUE(south > -Design.LatCentral || north < -Design.LatCentral)
                    << projNum << ": " << south << " to " << north;
                EXPECT_GT(line.front().y * line.back().y, 0.0) << "on one side of the centre";
            }
            EXPECT_EQ(pieces, 2) << projNum << ' ' << centre;
        }
    }
}

/// Longitude, off the antipode, at which the parallel of the antipode begins.
double StartOfAntipodalParallel(const LineRecorder& recorder) {
    for (const auto& line : recorder.lines) {
        const WrittenPoint& first = line.front();
        if (std::fabs(first.lat + Design.LatCentral) < 1e-9 &&
            std::fabs(line.back().lat - first.lat) < 1e-9) {
            return first.lon;
        }
    }
    return -1.0;
}

TEST_F(DiscGrid, ParallelOfTheAntipodeBeginsFurtherOffNearThePoles) {
    struct Row {
        const char* centre;
        double off; ///< the greater of 0.00056 and 8.2e-05 / cos of the centre
    };
    // cos 40 = 0.766, cos 81 = 0.1564, cos 82 = 0.139173, cos 89 = 0.0174524.
    for (const Row& row : {Row{"40    00    00    N", 0.00056}, Row{"81    00    00    N", 0.00056},
                           Row{"82    00    00    N", 0.00058919}, Row{"89    00    00    N", 0.00469849},
                           Row{"89    00    00    S", 0.00469849}}) {
        for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
            Start(projNum);
            Design.GridText[GridTextCentralLat] = row.centre;
            Design.GridText[GridTextLatSpacing] = "001    00    00";
            Design.GridText[GridTextLonSpacing] = "090    00    00";
            PrepareDesign();
            PlotRecorded();
            EXPECT_NEAR(StartOfAntipodalParallel(recorder), row.off, 1e-8) << row.centre;
        }
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(DiscGrid, OpenLineOfAnExportIsBrokenBeforeThePointBehindAGap) {
    Start(ProjOrthographic);
    Design.OutputWmf = true;
    Design.CurrentSymbolType = SymbolLine;
    Design.Surface = &surface;
    GridPass pass;
    pass.DiskOut = true;
    const auto plot = [&](double lat) {
        Design.ProjLat = lat;
        Design.ProjLon = 180.0;
        PlotPoint(pass);
        Design.PointCount =
            static_cast<std::int32_t>(recorder.lines.empty() ? 0 : recorder.lines.back().size());
    };
    plot(30.0);
    plot(40.0);
    EXPECT_EQ(recorder.breaks, 0);
    plot(-80.0); // 120 degrees from the centre
    EXPECT_EQ(recorder.breaks, 0) << "nothing was plotted";
    plot(50.0);
    EXPECT_EQ(recorder.breaks, 1);
    plot(60.0);
    EXPECT_EQ(recorder.breaks, 1);
    ASSERT_THAT(recorder.lines, SizeIs(2));
    // What comes behind the gap keeps its place: 10 degrees from the centre, 40 N, and 20.
    EXPECT_NEAR(recorder.lines[1].front().y, std::sin(10.0 * DegToRad), 1e-12);
    EXPECT_NEAR(recorder.lines[1].back().y, std::sin(20.0 * DegToRad), 1e-12);
}

TEST_F(DiscGrid, HemisphereAboutTheEquatorDrawsItsRimOnce) {
    Start(ProjOrthographic);
    Design.GridText[GridTextCentralLat] = "00    00    00    N";
    PrepareDesign();
    PlotRecorded();
    for (std::size_t i = 1; i < recorder.lines.size(); ++i) {
        const auto& line = recorder.lines[i];
        const bool rim = std::all_of(line.begin(), line.end(), [](const WrittenPoint& point) {
            return std::fabs(std::hypot(point.x, point.y) - 1.0) < 1e-9;
        });
        EXPECT_FALSE(rim && line.size() > 3) << "the meridians at right angles are the circle";
    }
    // Parallels at 30 and 60 and the equator, of the poles none; meridians 45 degrees from the
    // central one and that itself.
    EXPECT_THAT(recorder.lines, SizeIs(1 + 5 + 3));
}

} // namespace
} // namespace quelmont
