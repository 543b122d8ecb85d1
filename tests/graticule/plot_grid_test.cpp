#include "graticule/plot_grid.h"

#include "core/file_numbers.h"
#include "core/map_design.h"
#include "core/run_time_error.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_lines.h"
#include "graticule/grid_pass.h"
#include "graticule/lobes.h"
#include "output/device_pen.h"
#include "output/draw_target.h"
#include "output/export_file.h"
#include "output/output_state.h"
#include "output/scale_screen.h"
#include "projection/param_select.h"
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

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;

using Codes = std::initializer_list<std::int16_t>;

constexpr std::array<std::int16_t, 6> Azimuthals = {26, 27, 28, 29, 30, 31};

using PlotGridTest = GridTest;

std::vector<SurfaceOp> OpsOf(const RecordingSurface& surface) {
    std::vector<SurfaceOp> ops;
    for (const SurfaceCall& call : surface.Calls()) {
        ops.push_back(call.op);
    }
    return ops;
}

AskedBox ApiError(const char* text) { return {"Windows API Error", text}; }

// ---- Background and pens.

TEST_F(PlotGridTest, BackgroundComesFirst) {
    Start(ProjEquirectangular, 5);
    Design.BackColor = SolidColor(Rgb(1, 2, 3));
    Design.GridColor = SolidColor(Rgb(4, 5, 6));
    Design.GridLineWidth = 40.0F; // 2.67 pixels
    PlotGrid();
    // The drawing area is 1280 by 924 pixels of a screen of that size, 32000 by 23100 logical units;
    // the rectangle has a margin of 320 to each side.
    EXPECT_EQ(surface.Text(), "CreateSolidBrush(197121, 4)\n"
                              "SelectObject(4)\n"
                              "CreatePen(5, 1, 197121, 5)\n"
                              "SelectObject(5)\n"
                              "Rectangle(-320, -320, 32320, " +
                                  std::to_string(Design.LogicalHeight + 320) +
                                  ")\n"
                                  "SelectObject(2)\n"
                                  "DeleteObject(4)\n"
                                  "SelectObject(1)\n"
                                  "DeleteObject(5)\n"
                                  "CreatePen(0, 3, 394500, 6)\n"
                                  "SelectObject(6)\n"
                                  "SelectObject(1)\n"
                                  "DeleteObject(6)\n");
    EXPECT_EQ(Design.PenColor, Design.GridColor);
    EXPECT_EQ(Design.PenWidth, 3);
    EXPECT_EQ(surface.LiveObjects(), 0);
    EXPECT_EQ(machine.pump.calls, 0);
}

TEST_F(PlotGridTest, OnlyTheFirstLobePaintsTheBackground) {
    Start(ProjEquirectangular, 5);
    Design.LobeFirst = false;
    Design.OutputFileName = "kept";
    PlotGrid();
    EXPECT_EQ(surface.Count(SurfaceOp::Rectangle), 0);
    EXPECT_EQ(surface.Count(SurfaceOp::CreatePen), 2) << "its pen and the grid's are made all the same";
    EXPECT_EQ(Design.OutputFileName, "kept");
    Design.LobeFirst = true;
    Design.UtmPointPath = true;
    PlotGrid();
    EXPECT_EQ(Design.OutputFileName, "");
    EXPECT_FALSE(Design.UtmPointPath);
}

TEST_F(PlotGridTest, TakesTheWindowAsItsDevice) {
    Start(ProjEquirectangular, 5);
    machine.screen.twipsPerPixelX = 7.5F;
    Design.TwipsPerPixelX = 7.5F;
    Design.TwipsPerPixelY = 6.0F;
    PlotGrid();
    EXPECT_EQ(Design.Surface, &surface);
    EXPECT_EQ(OutputNow.DevicePixelX, 7.5F);
    EXPECT_EQ(OutputNow.DevicePixelY, 6.0F);
}

struct FailingOperation {
    SurfaceOp op;
    int nth;
    const char* text;
};

TEST_F(PlotGridTest, EachFailingOperationIsNamedAndPlottingGoesOn) {
    Start(ProjEquirectangular);
    PlotGrid();
    const int lines = surface.Count(SurfaceOp::LineTo);
    ASSERT_GT(lines, 0);
    constexpr std::array<FailingOperation, 7> rows = {{
        {SurfaceOp::CreateSolidBrush, 1, "CreateSolidBrush(1) error in PlotGrid"},
        {SurfaceOp::CreatePen, 1, "CreatePen(1) error in PlotGrid"},
        {SurfaceOp::Rectangle, 1, "Rectangle(1) error in PlotGrid"},
        {SurfaceOp::DeleteObject, 1, "DeleteObject(0) error in PlotGrid"},
        {SurfaceOp::DeleteObject, 2, "DeleteObject(1) error in PlotGrid"},
        {SurfaceOp::CreatePen, 2, "CreatePen(2) error in PlotGrid"},
        {SurfaceOp::DeleteObject, 3, "DeleteObject(3) error in PlotGrid"},
    }};
    for (const FailingOperation& row : rows) {
        surface.Forget();
        surface.FailAt(row.op, row.nth);
        PlotGrid();
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(ApiError(row.text)));
        EXPECT_EQ(surface.Count(SurfaceOp::LineTo), lines) << row.text;
        EXPECT_EQ(Design.PlotStopReason, StopReason::None) << row.text;
    }
}

TEST_F(PlotGridTest, NoPenOrBrushIsLost) {
    Start(ProjEquirectangular);
    for (const SurfaceOp op : {SurfaceOp::CreateSolidBrush, SurfaceOp::CreatePen, SurfaceOp::Rectangle}) {
        for (const int nth : {1, 2}) {
            surface.FailAt(op, nth);
            PlotGrid();
            PlotGrid(); // the second call of an operation that is called once
            EXPECT_EQ(surface.LiveObjects(), 0) << Name(op);
        }
    }
}

// ---- The passes.

/// The default map has 7 parallels and 9 meridians, all of them straight.
TEST_F(PlotGridTest, AllLinesOfTheWorld) {
    Start(ProjEquirectangular);
    PlotRecorded();
    ASSERT_THAT(recorder.lines, SizeIs(16));
    for (std::size_t i = 0; i < 7; ++i) {
        ASSERT_THAT(recorder.lines[i], SizeIs(9));
        for (std::size_t j = 0; j < 9; ++j) {
            EXPECT_EQ(recorder.lines[i][j].lat, -90.0 + 30.0 * static_cast<double>(i));
            EXPECT_EQ(recorder.lines[i][j].lon, 45.0 * static_cast<double>(j));
        }
    }
    for (std::size_t i = 0; i < 9; ++i) {
        const auto& meridian = recorder.lines[7 + i];
        ASSERT_THAT(meridian, SizeIs(7));
        for (std::size_t j = 0; j < 7; ++j) {
            EXPECT_EQ(meridian[j].lon, 45.0 * static_cast<double>(i));
            EXPECT_EQ(meridian[j].lat, -90.0 + 30.0 * static_cast<double>(j));
        }
    }
    EXPECT_EQ(recorder.breaks, 16);
    EXPECT_EQ(recorder.headers, 1);
    EXPECT_THAT(recorder.dots, IsEmpty());
    EXPECT_EQ(machine.pump.calls, 16) << "events run after every line";
    EXPECT_EQ(Design.Statistics.GridPointsPlotted, 16 + 7 * 8 + 9 * 6);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

/// On the surface each line is one move and a line to every vertex, the first included. The map
/// fits the width: 19185 twips of 15 to a pixel, 1279 pixels from edge to edge.
TEST_F(PlotGridTest, LinesRunFromEdgeToEdgeOfTheWindow) {
    Start(ProjEquirectangular);
    PlotGrid();
    EXPECT_EQ(surface.Count(SurfaceOp::MoveToEx), 16);
    EXPECT_EQ(surface.Count(SurfaceOp::LineTo), 7 * 9 + 9 * 7);
    EXPECT_THAT(surface.Segments(), SizeIs(7 * 8 + 9 * 6));
    for (const RecordedSegment& segment : surface.Segments()) {
        EXPECT_TRUE(segment.from.x == segment.to.x || segment.from.y == segment.to.y);
        EXPECT_EQ(segment.pen, (RecordedPen{PenStyleSolid, 1, 0}));
    }
    EXPECT_EQ(surface.Segments().front().from.x, 0);
    EXPECT_EQ(surface.Segments()[7].to.x, 1279);
    // pi high and 2 pi cos 45 wide: sqrt(1/2) of 1279 pixels is 904.4, each end rounded.
    EXPECT_NEAR(surface.Segments()[0].from.y - surface.Segments()[8 * 6].from.y, 904.4, 1.0);
}

TEST_F(PlotGridTest, BoundaryAlone) {
    Start(ProjEquirectangular, 2);
    PlotRecorded();
    ASSERT_THAT(recorder.lines, SizeIs(4));
    EXPECT_THAT(recorder.lines[0], AllOf(SizeIs(9), Each(Field(&WrittenPoint::lat, -90.0))));
    EXPECT_THAT(recorder.lines[1], AllOf(SizeIs(9), Each(Field(&WrittenPoint::lat, 90.0))));
    EXPECT_THAT(recorder.lines[2], AllOf(SizeIs(7), Each(Field(&WrittenPoint::lon, 0.0))));
    EXPECT_THAT(recorder.lines[3], AllOf(SizeIs(7), Each(Field(&WrittenPoint::lon, 360.0))));
    EXPECT_THAT(recorder.dots, IsEmpty());
    EXPECT_EQ(surface.Count(SurfaceOp::SetPixel), 0);
}

TEST_F(PlotGridTest, BoundaryAndPointsInside) {
    Start(ProjEquirectangular, 1);
    PlotRecorded();
    EXPECT_THAT(recorder.lines, SizeIs(4));
    EXPECT_THAT(recorder.dots, SizeIs(126)) << "from its parallel and from its meridian, each twice";
    EXPECT_EQ(surface.Count(SurfaceOp::SetPixel), 126);
    EXPECT_EQ(Design.CurrentSymbolType, SymbolDot);
    EXPECT_EQ(machine.pump.calls, 4 + 16);
}

TEST_F(PlotGridTest, PointsAlone) {
    Start(ProjEquirectangular, 4);
    Design.GridColor = SolidColor(Rgb(10, 20, 30));
    PlotRecorded();
    EXPECT_THAT(recorder.lines, IsEmpty());
    ASSERT_THAT(recorder.dots, SizeIs(126));
    EXPECT_EQ(surface.Count(SurfaceOp::LineTo), 0);
    for (const SurfaceCall& pixel : surface.CallsOf(SurfaceOp::SetPixel)) {
        EXPECT_EQ(pixel.numbers[2], Rgb(10, 20, 30)) << "without the flag of a stored colour";
    }
}

TEST_F(PlotGridTest, NoGridIsBackgroundAndHeader) {
    Start(ProjHammer, 5);
    PlotRecorded();
    EXPECT_EQ(recorder.headers, 1);
    EXPECT_THAT(recorder.lines, IsEmpty());
    EXPECT_THAT(recorder.dots, IsEmpty());
    EXPECT_EQ(surface.Count(SurfaceOp::Rectangle), 1);
    EXPECT_EQ(surface.Count(SurfaceOp::LineTo) + surface.Count(SurfaceOp::SetPixel), 0);
}

TEST_F(PlotGridTest, CurvesHaveTheirDensity) {
    // Six divisions of latitude, eight of longitude: four segments each on the Hammer; eight along
    // a meridian of the Mollweide; 48 / 8 along a parallel of a cone.
    Start(ProjHammer);
    PlotRecorded();
    EXPECT_THAT(recorder.lines.front(), SizeIs(8 * 4 + 1));
    EXPECT_THAT(recorder.lines.back(), SizeIs(6 * 4 + 1));
    Start(ProjMollweide);
    PlotRecorded();
    EXPECT_THAT(recorder.lines.front(), SizeIs(8 + 1));
    EXPECT_THAT(recorder.lines.back(), SizeIs(6 * 8 + 1));
    Start(ProjAlbers);
    PlotRecorded();
    EXPECT_THAT(recorder.lines.front(), SizeIs(8 * 6 + 1));
    EXPECT_THAT(recorder.lines.back(), SizeIs(6 + 1));
}

TEST_F(PlotGridTest, MetresAreGriddedAsTheyStand) {
    Start(ProjUtm);
    PlotRecorded();
    ASSERT_THAT(recorder.lines, SizeIs(7 + 6));
    EXPECT_EQ(recorder.lines[0][0].x, 300000.0);
    EXPECT_EQ(recorder.lines[0][0].y, 5600000.0);
    EXPECT_EQ(recorder.lines[0].back().x, 800000.0);
    EXPECT_EQ(recorder.lines.back().back().x, 800000.0);
    EXPECT_EQ(recorder.lines.back().back().y, 6200000.0);
}

TEST_F(PlotGridTest, LobeIsGriddedWithinItsBounds) {
    Start(ProjInterruptedMollweide);
    Design.GridText[GridTextLatSpacing] = "010    00    00";
    Design.GridText[GridTextLonSpacing] = "010    00    00";
    Design.LobeText = {"1", "0"};
    Design.LobeLonText = {"180    00    00    W", "060    00    00    W", "180    00    00    E",
                          "180    00    00    W", "180    00    00    E"};
    CalcGraticuleInterrupt(2);
    Design.LobeOffsetX = 1.5;
    PlotRecorded();
    ASSERT_THAT(recorder.lines, SizeIs(10 + 25)) << "0 to 90 N, 60 W to 180 E";
    for (const auto& line : recorder.lines) {
        for (const WrittenPoint& point : line) {
            EXPECT_GE(point.lat, 0.0);
            // x of the equator is sqrt 8 / 180 a degree; the lobe is 120 degrees wide to either side.
            EXPECT_LE(std::fabs(point.x - 1.5), std::sqrt(8.0) / 180.0 * 120.0 + 1e-12);
        }
    }
}

/// The latitude of each parallel that was plotted, in their order.
std::vector<double> ParallelsOf(const std::vector<std::vector<WrittenPoint>>& lines) {
    std::vector<double> latitudes;
    for (const auto& line : lines) {
        if (line.front().lat == line.back().lat) {
            latitudes.push_back(line.front().lat);
        }
    }
    return latitudes;
}

TEST_F(PlotGridTest, LobeThatTheSpacingDoesNotDivideHasBothItsEdges) {
    struct Row {
        const char* north;
        const char* south;
        std::int16_t lobe;
        std::vector<double> parallels;
    };
    // Grid lines count from the lobe's southern edge, every 15 degrees. Each height of the whole map
    // is a number of spacings: 75, 75, 120.
    const std::array<Row, 4> rows = {{
        {"69    00    00    N", "06    00    00    S", 3, {-6.0, 0.0}},
        {"69    00    00    N", "06    00    00    S", 1, {0.0, 15.0, 30.0, 45.0, 60.0, 69.0}},
        {"66    00    00    N", "09    00    00    S", 1, {0.0, 15.0, 30.0, 45.0, 60.0, 66.0}},
        {"70    00    00    N", "50    00    00    S", 3, {-50.0, -35.0, -20.0, -5.0, 0.0}},
    }};
    for (const Row& row : rows) {
        Start(ProjInterruptedMollweide);
        Design.GridText[GridTextNorth] = row.north;
        Design.GridText[GridTextSouth] = row.south;
        Design.GridText[GridTextLatSpacing] = "015    00    00";
        Design.LobeText = {"0", "0"};
        Design.LobeLonText = {"180    00    00    W", "180    00    00    E", "180    00    00    W",
                              "180    00    00    E"};
        CalcGraticuleInterrupt(row.lobe);
        PlotRecorded();
        EXPECT_EQ(ParallelsOf(recorder.lines), row.parallels) << row.north << " lobe " << row.lobe;
        // The meridians reach from edge to edge.
        EXPECT_EQ(recorder.lines.back().front().lat, row.parallels.front());
        EXPECT_EQ(recorder.lines.back().back().lat, row.parallels.back());
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(PlotGridTest, ConformalConicBreaksAtThePoleAtInfinity) {
    Start(ProjConformalConic);
    ASSERT_GT(Design.ConeConstant, 0.0);
    Design.LatSouth = -90.0; // a map that was left as it is when its dialog was cancelled
    PlotRecorded();
    for (const auto& line : recorder.lines) {
        for (const WrittenPoint& point : line) {
            EXPECT_NE(point.lat, -90.0);
        }
    }
    // The parallel of the pole has no line; every meridian begins at 60 S.
    EXPECT_THAT(recorder.lines, SizeIs(6 + 9));
    EXPECT_EQ(recorder.lines.back().front().lat, -60.0);
    EXPECT_EQ(surface.Count(SurfaceOp::MoveToEx), 15);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(PlotGridTest, LinesEndOnTheBoundsWhateverTheStep) {
    Start(ProjEquirectangular);
    Design.GridText[GridTextNorth] = "10    00    00    N";
    Design.GridText[GridTextSouth] = "09    59    30    N";
    Design.GridText[GridTextLatSpacing] = "000    00    10";
    Design.GridText[GridTextWest] = "000    00    01    E";
    Design.GridText[GridTextEast] = "000    00    22    E";
    Design.GridText[GridTextLonSpacing] = "000    00    07";
    PrepareDesign();
    PlotRecorded();
    ASSERT_THAT(recorder.lines, SizeIs(4 + 4));
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(recorder.lines[i].front().lon, 0.0);
        EXPECT_EQ(recorder.lines[i].back().lon, Design.LonSpan);
        EXPECT_EQ(recorder.lines[4 + i].front().lat, Design.LatSouth);
        EXPECT_EQ(recorder.lines[4 + i].back().lat, Design.LatNorth);
    }
    EXPECT_EQ(recorder.lines[3].front().lat, Design.LatNorth);
    EXPECT_DOUBLE_EQ(recorder.lines[7].front().lon, Design.LonSpan);
}

TEST_F(PlotGridTest, NarrowMapOfOneDivisionHasFourSegments) {
    Start(ProjHammer);
    Design.GridText = {"10    00    05    N",  "10    00    00    N",  "000    00    05",
                       "000    00    00    E", "000    00    05    E", "000    00    05"};
    PrepareDesign();
    PlotRecorded();
    for (const auto& line : recorder.lines) {
        EXPECT_THAT(line, SizeIs(5)) << "5 seconds are less than 0.0014 degrees";
    }
}

// ---- Azimuthal maps.

/// Points of a line that is laid on the map frame.
bool IsCircle(const std::vector<WrittenPoint>& line) {
    return line.size() == 121 && std::all_of(line.begin(), line.end(), [](const WrittenPoint& point) {
               return std::fabs(std::hypot(point.x, point.y) - Design.MapXMax) < 1e-12;
           });
}

TEST_F(PlotGridTest, BoundaryOfADiscIsItsCircleAlone) {
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
TEST_F(PlotGridTest, CircleGoesRoundByThreeDegrees) {
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

TEST_F(PlotGridTest, DotsHaveTheirCircleAsDots) {
    for (const std::int16_t projNum : Azimuthals) {
        Start(projNum, 4);
        PlotRecorded();
        EXPECT_THAT(recorder.lines, IsEmpty());
        ASSERT_GT(recorder.dots.size(), 121U);
        EXPECT_TRUE(IsCircle({recorder.dots.begin(), recorder.dots.begin() + 121})) << projNum;
    }
}

TEST_F(PlotGridTest, LinesOfADiscComeAfterItsCircle) {
    for (const std::int16_t projNum : Azimuthals) {
        Start(projNum, 3);
        PlotRecorded();
        ASSERT_GT(recorder.lines.size(), 10U);
        EXPECT_TRUE(IsCircle(recorder.lines[0])) << projNum;
        EXPECT_FALSE(IsCircle(recorder.lines[1])) << projNum;
    }
}

/// The outermost parallel serves when the range is a multiple of the spacing.
TEST_F(PlotGridTest, PolarMapNeedsNoCircleOfItsOwn) {
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

TEST_F(PlotGridTest, PolarMapEndsWithItsOutermostParallel) {
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

TEST_F(PlotGridTest, AntipodeIsNeverPlotted) {
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

TEST_F(PlotGridTest, EdgeMeridianStartsBesideTheAntipode) {
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

TEST_F(PlotGridTest, MeridianOppositeTheCentreIsOnePixelOnTheCentreLine) {
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

TEST_F(PlotGridTest, OppositeMeridianOfAWholeGlobeBreaksAtTheAntipode) {
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

TEST_F(PlotGridTest, ParallelOfTheAntipodeBeginsFurtherOffNearThePoles) {
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

TEST_F(PlotGridTest, OpenLineOfAnExportIsBrokenBeforeThePointBehindAGap) {
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

TEST_F(PlotGridTest, HemisphereAboutTheEquatorDrawsItsRimOnce) {
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

// ---- Files.

class GridFiles : public GridTest {
protected:
    GridFiles() { Writers().ascii = &recorder; }
    ~GridFiles() override {
        DropExports();
        Writers() = FileWriters{};
    }

    TemporaryFolder folder;
};

/// The boundary goes to the second name and the points, which come later, to the first.
TEST_F(GridFiles, AsciiPassesHaveFilesOfTheirOwn) {
    Start(ProjEquirectangular, 1);
    Design.OutputAscii = true;
    Design.AsciiFileName = {folder / "points.prn", folder / "lines.prn"};
    std::vector<std::string> names;
    for (const int call : {1, 5}) {
        machine.pump.At(call, [&] { names.push_back(Design.OutputFileName); });
    }
    PlotGrid();
    EXPECT_THAT(names, ElementsAre(folder / "lines.prn", folder / "points.prn"));
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
    EXPECT_TRUE(ExportBegun(folder / "lines.prn"));
    EXPECT_TRUE(ExportBegun(folder / "points.prn"));
    EXPECT_THAT(recorder.dots, SizeIs(126));
}

TEST_F(GridFiles, OtherTypesTakeTheFirstName) {
    for (const std::int16_t code : Codes{2, 3, 4}) {
        Start(ProjEquirectangular, code);
        Design.OutputAscii = true;
        Design.AsciiFileName = {folder / "grid.prn"};
        PlotGrid();
        EXPECT_EQ(Design.OutputFileName, folder / "grid.prn") << code;
        EXPECT_THAT(machine.boxes.asked, IsEmpty());
    }
}

TEST_F(GridFiles, PointsGoToTheSurfaceToo) {
    Start(ProjRobinson);
    PlotGrid();
    const std::string without = surface.Text();
    surface.Forget();
    PlotRecorded();
    std::string with = surface.Text();
    // Handles are never given twice; the rest is the same.
    EXPECT_EQ(std::count(with.begin(), with.end(), '\n'), std::count(without.begin(), without.end(), '\n'));
    std::size_t points = 0;
    for (const auto& line : recorder.lines) {
        points += line.size();
    }
    EXPECT_EQ(points, static_cast<std::size_t>(surface.Count(SurfaceOp::LineTo)));
}

TEST_F(GridFiles, FileThatCannotBeOpenedStopsTheDraw) {
    Start(ProjEquirectangular);
    Design.OutputAscii = true;
    Design.AsciiFileName = {folder / "missing/map.txt"};
    surface.FailAt(SurfaceOp::DeleteObject, 3);
    PlotGrid();
    EXPECT_EQ(Design.PlotStopReason, StopReason::GridDiskError);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in PlotGrid", "Error: Path not found"},
                                                 ApiError("DeleteObject(4) error in PlotGrid")));
    EXPECT_EQ(surface.Count(SurfaceOp::LineTo), 0);
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
}

TEST_F(GridFiles, NameThatIsMissingIsASubscriptOutOfRange) {
    Start(ProjEquirectangular, 1);
    Design.OutputAscii = true;
    Design.AsciiFileName = {folder / "one.prn"};
    PlotGrid();
    EXPECT_EQ(Design.PlotStopReason, StopReason::GridDiskError);
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in PlotGrid", "Error: Subscript out of range"}));
    EXPECT_EQ(surface.LiveObjects(), 0);
}

/// A writer whose header fails.
class NoHeader : public LineRecorder {
public:
    void Header() override { throw RunTimeError(ErrorDiskFull); }
};

TEST_F(GridFiles, HeaderThatFailsDrawsNothing) {
    Start(ProjEquirectangular);
    NoHeader writer;
    Design.OutputWmf = true;
    PlotGrid();
    EXPECT_EQ(Design.PlotStopReason, StopReason::GridDiskError);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in PrintFileHeader", "Error: Disk full"}));
    EXPECT_THAT(OpsOf(surface), IsEmpty());
}

TEST_F(GridFiles, PenOfAnEarlierStageIsReleasedAllTheSame) {
    Start(ProjEquirectangular);
    Design.Surface = &surface;
    MakeDevicePen(PenStyleSolid, 1, 0, 1, "MapDraw");
    NoHeader writer;
    Design.OutputWmf = true;
    PlotGrid();
    EXPECT_EQ(surface.LiveObjects(), 0);
}

TEST_F(GridFiles, FailureOfTheRoutineClosesItsFile) {
    Start(ProjGnomonic);
    Design.OutputDxf = true;
    Design.DxfFileName = folder / "map.dxf";
    BeginExport(Design.DxfFileName);
    CloseExport();
    Design.LatNorth = 1e12; // more parallels than can be counted
    PlotGrid();
    EXPECT_EQ(Design.PlotStopReason, StopReason::GridDiskError);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in PlotGrid", "Error: Overflow"}));
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
    EXPECT_EQ(surface.LiveObjects(), 0);
}

// ---- Counting beforehand, and small pixels.

class GridPoints : public GridTest {};

TEST_F(GridPoints, EstimateIsWhatIsPlottedBetweenParallelsAndMeridians) {
    for (const std::int16_t projNum : {ProjEquirectangular, ProjRobinson, ProjUtm}) {
        for (const std::int16_t code : Codes{1, 2, 3, 4, 5}) {
            Start(projNum, code);
            Design.Statistics = {};
            PlotGrid();
            EXPECT_EQ(GridPointEstimate(), static_cast<double>(Design.Statistics.GridPointsPlotted))
                << projNum << ' ' << code;
        }
    }
}

TEST_F(GridPoints, EstimateOfADiscIsNoLessThanWhatIsPlotted) {
    Start(ProjOrthographic);
    Design.Statistics = {};
    PlotGrid();
    EXPECT_GE(GridPointEstimate() * 1.5, static_cast<double>(Design.Statistics.GridPointsPlotted));
}

TEST_F(GridPoints, PointIsALogicalPixelWhateverThePixelsOfTheScreen) {
    for (const std::int16_t code : Codes{1, 4}) {
        Start(ProjEquirectangular, code);
        surface.Forget();
        PlotGrid();
        const int points = surface.Count(SurfaceOp::SetPixel);
        ASSERT_GT(points, 0);
        surface.Forget();
        machine.screen.pixelRatio = 2.0;
        PlotGrid();
        EXPECT_EQ(surface.Count(SurfaceOp::SetPixel), 4 * points);
        surface.Forget();
        machine.screen.pixelRatio = 1.25; // is nearer to one pixel than to two
        PlotGrid();
        EXPECT_EQ(surface.Count(SurfaceOp::SetPixel), points);
        machine.screen.pixelRatio = 1.0;
    }
}

TEST_F(GridPoints, DotsOfMapFilesStayPixelsOfTheDevice) {
    machine.screen.pixelRatio = 2.0;
    Start(ProjEquirectangular, 4);
    PlotGrid();
    EXPECT_EQ(Design.DotPixels, 2);
    SelectDevice();
    EXPECT_EQ(Design.DotPixels, 1);
}

// ---- Escape.

class GridEscape : public GridFiles {
protected:
    /// Presses Escape at a call of the event pump, counted from now.
    void EscapeAt(int call) {
        machine.pump = ScriptedPump();
        machine.pump.At(call, [] { Design.PlotStopReason = StopReason::Escape; });
        Design.PlotStopReason = StopReason::None;
    }
};

/// The first hundred chances to stop. A grid of 5 by 5 degrees has 37 parallels and 73 meridians.
TEST_F(GridEscape, StopsAfterTheLineAtHand) {
    Start(ProjEquirectangular);
    Design.GridText[GridTextLatSpacing] = "005    00    00";
    Design.GridText[GridTextLonSpacing] = "005    00    00";
    PrepareDesign();
    for (int call = 1; call <= 100; ++call) {
        EscapeAt(call);
        PlotRecorded();
        EXPECT_EQ(machine.pump.calls, call);
        EXPECT_THAT(recorder.lines, SizeIs(static_cast<std::size_t>(call)));
        EXPECT_EQ(surface.Count(SurfaceOp::MoveToEx), call);
        EXPECT_EQ(surface.LiveObjects(), 0);
        EXPECT_EQ(Design.PlotStopReason, StopReason::Escape);
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(GridEscape, StopsADiscToo) {
    Start(ProjAzimuthalEquidistant);
    Design.GridText[GridTextLatSpacing] = "005    00    00";
    Design.GridText[GridTextLonSpacing] = "005    00    00";
    PrepareDesign();
    for (int call = 1; call <= 100; ++call) {
        EscapeAt(call);
        PlotRecorded();
        EXPECT_EQ(machine.pump.calls, call);
        EXPECT_EQ(surface.LiveObjects(), 0);
        // The circle and a line to a call, one more where the edge meridian has two pieces.
        EXPECT_LE(recorder.lines.size(), static_cast<std::size_t>(call) + 2U);
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(GridEscape, InTheBoundaryLeavesThePointsOut) {
    Start(ProjEquirectangular, 1);
    for (const int call : {1, 2, 3, 4}) {
        EscapeAt(call);
        PlotRecorded();
        EXPECT_THAT(recorder.dots, IsEmpty()) << call;
        EXPECT_THAT(recorder.lines, SizeIs(static_cast<std::size_t>(call)));
    }
}

TEST_F(GridEscape, InTheParallelsLeavesTheMeridiansOut) {
    Start(ProjEquirectangular);
    EscapeAt(7);
    PlotRecorded();
    for (const auto& line : recorder.lines) {
        EXPECT_EQ(line.front().lat, line.back().lat);
    }
}

TEST_F(GridEscape, LeavesTheFileToTheDrawCycle) {
    Start(ProjEquirectangular);
    Design.OutputAscii = true;
    Design.AsciiFileName = {folder / "grid.prn"};
    machine.pump.At(3, [] { Design.PlotStopReason = StopReason::Escape; });
    PlotGrid();
    EXPECT_TRUE(IsFileOpen(OutputFileNumber)) << "the handler of a real Escape has closed it before";
    EXPECT_EQ(surface.LiveObjects(), 0);
}

} // namespace
} // namespace quelmont
