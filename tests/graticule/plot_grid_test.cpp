#include "graticule/plot_grid.h"

#include "core/map_design.h"
#include "core/run_time_error.h"
#include "graticule/grid_fixture.h"
#include "graticule/lobes.h"
#include "output/draw_target.h"
#include "output/output_state.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <initializer_list>

namespace quelmont {
namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;

using Codes = std::initializer_list<std::int16_t>;

using PlotGridTest = GridTest;

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

} // namespace
} // namespace quelmont
