#include "mainwindow/map_draw.h"

#include "core/run_time_error.h"
#include "core/standard_colors.h"
#include "graticule/calc_graticule.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/started_program.h"
#include "projection/param_select.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quelmont {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr ColorValue Black = Rgb(0, 0, 0);
constexpr ColorValue CoastGreen = Rgb(0, 128, 0);

using MapDrawing = StartedProgram;

/// Where a colour's segments lie among all of them: first and one past the last.
std::pair<std::size_t, std::size_t> RangeOf(const std::vector<RecordedSegment>& segments, ColorValue color) {
    std::size_t first = segments.size();
    std::size_t last = 0;
    for (std::size_t i = 0; i < segments.size(); ++i) {
        if (ColorBits(segments[i].pen.color) == color) {
            first = std::min(first, i);
            last = i + 1;
        }
    }
    return {first, last};
}

TEST_F(MapDrawing, GridComesBeforeTheMapFiles) {
    MapDraw();
    const auto grid = RangeOf(surface.Segments(), Black);
    const auto coast = RangeOf(surface.Segments(), CoastGreen);
    EXPECT_EQ(grid.first, 0U);
    EXPECT_GT(grid.second, 0U);
    EXPECT_EQ(grid.second, coast.first);
    EXPECT_EQ(coast.second, surface.Segments().size());
    EXPECT_LT(coast.first, coast.second);
}

TEST_F(MapDrawing, BackgroundComesFirstAndGridIsShownBeforeTheFilesAreRead) {
    std::vector<SurfaceOp> seen;
    MapDraw();
    for (const SurfaceCall& call : surface.Calls()) {
        if (call.op == SurfaceOp::Rectangle || call.op == SurfaceOp::Refresh ||
            call.op == SurfaceOp::LineTo) {
            if (seen.empty() || seen.back() != call.op) {
                seen.push_back(call.op);
            }
        }
    }
    // The small file is read within one turn: the second refresh is that of the end.
    EXPECT_THAT(seen, ElementsAre(SurfaceOp::Rectangle, SurfaceOp::LineTo, SurfaceOp::Refresh,
                                  SurfaceOp::LineTo, SurfaceOp::Refresh));
}

TEST_F(MapDrawing, ShowsThePictureAfterTheLastStroke) {
    MapDraw();
    EXPECT_EQ(surface.Calls().back().op, SurfaceOp::Refresh);
}

TEST_F(MapDrawing, OnlyStopIsThereWhileItDraws) {
    std::vector<std::string_view> enabled;
    machine.pump.At(1, [&] {
        for (const MenuEntry& entry : MenuEntries(Menu::mnuBar)) {
            if (window.MenuEnabled(Menu::mnuBar, entry.index)) {
                enabled.push_back(entry.text);
            }
        }
        EXPECT_TRUE(MainWindowNow.MapDrawing);
        EXPECT_TRUE(window.autoRedraw);
    });
    MapDraw();
    EXPECT_THAT(enabled, ElementsAre("&Stop"));
    ExpectIdle();
}

TEST_F(MapDrawing, PointerIsAnHourglassUntilTheEnd) {
    MapDraw();
    EXPECT_THAT(window.pointers, ElementsAre(MousePointer::Hourglass, MousePointer::Normal));
}

TEST_F(MapDrawing, CaptionTellsHowToStopAndComesBack) {
    window.captions.clear();
    mnuDesign_Click(PixelSizeItem);
    MapDraw();
    EXPECT_THAT(window.captions[1], "Quelmont: click on Stop or press Esc to stop plotting");
    EXPECT_THAT(window.captions, Contains("Quelmont: click on Stop or press Esc to stop plotting Qmnt4.map"));
    ExpectIdle("1280,924 = x, y Pixels   |Quelmont: Equirectangular projection");
}

TEST_F(MapDrawing, PixelSizeIsRightAfterAResizeWhileItDraws) {
    mnuDesign_Click(PixelSizeItem);
    machine.pump.At(1, [&] {
        window.scaleWidth = 15000.0;
        ToggleCaption();
        EXPECT_EQ(window.caption, "Quelmont: click on Stop or press Esc to stop plotting");
    });
    MapDraw();
    ExpectIdle("1000,924 = x, y Pixels   |Quelmont: Equirectangular projection");
}

TEST_F(MapDrawing, PixelSizeIsRightAfterAResizeOfADrawThatIsStopped) {
    mnuDesign_Click(PixelSizeItem);
    machine.pump.At(2, [&] {
        EscapeKey();
        window.scaleHeight = 15000.0;
        ToggleCaption();
    });
    MapDraw();
    ExpectIdle("1280,1000 = x, y Pixels   |Quelmont: Equirectangular projection");
}

TEST_F(MapDrawing, OnePassBeepsOnce) {
    MapDraw();
    EXPECT_EQ(machine.clock.beeps, 1);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(MapDrawing, FitsTheWindowAsItIsNow) {
    window.scaleWidth = 7515.0;
    window.scaleHeight = 7515.0;
    MapDraw();
    EXPECT_EQ(Design.ClientWidth, 7500);
    // The map is twice as wide as high and fills the width of 500 pixels.
    std::int32_t right = 0;
    for (const RecordedSegment& segment : surface.Segments()) {
        right = std::max({right, segment.from.x, segment.to.x});
    }
    EXPECT_EQ(right, 500);
}

TEST_F(MapDrawing, SetsTheScaleOfTransformedOutput) {
    Design.XAxisLength = 10.0;
    Design.MapXMin = 1.0;
    Design.MapXMax = 6.0;
    MapDraw();
    EXPECT_DOUBLE_EQ(Design.AsciiScale, 2.0);
}

TEST_F(MapDrawing, ListOfOutputNamesGrowsAndKeepsWhatItHolds) {
    Design.AsciiFileName = {"grid.prn"};
    Design.MapFileCount = 1;
    Design.GridOutputCount = 2;
    MapDraw();
    EXPECT_THAT(Design.AsciiFileName, ElementsAre("grid.prn", "", ""));
    Design.GridOutputCount = 1;
    MapDraw();
    EXPECT_THAT(Design.AsciiFileName, SizeIs(3)) << "it never shrinks";
}

TEST_F(MapDrawing, TimesItself) {
    machine.clock.seconds = 1000.0;
    machine.pump.At(3, [&] { machine.clock.seconds = 1002.5; });
    MapDraw();
    EXPECT_DOUBLE_EQ(Design.PlotSeconds, 2.5);
}

TEST_F(MapDrawing, TimesItselfOverMidnight) {
    machine.clock.seconds = 86399.0;
    machine.pump.At(3, [&] { machine.clock.seconds = 1.25; });
    MapDraw();
    EXPECT_DOUBLE_EQ(Design.PlotSeconds, 2.25);
}

TEST_F(MapDrawing, SecondDrawInsideTheFirstDoesNothing) {
    MapDraw();
    const std::size_t segments = surface.Segments().size();
    surface.Forget();
    machine.clock.beeps = 0;
    machine.pump.At(machine.pump.calls + 2, [] { MapDraw(); });
    MapDraw();
    EXPECT_EQ(surface.Segments().size(), segments);
    EXPECT_EQ(machine.clock.beeps, 1);
    ExpectIdle();
}

TEST_F(MapDrawing, MapFileThatIsNotThereIsReportedOnceAndTheGridStays) {
    Design.InputFiles[0].MapFileName = "/program/nowhere.map";
    MapDraw();
    EXPECT_THAT(machine.boxes.asked, SizeIs(1));
    EXPECT_GT(surface.Segments().size(), 0U);
    EXPECT_EQ(machine.clock.beeps, 1);
    ExpectIdle();
}

TEST_F(MapDrawing, FileOfTheGridThatCannotBeOpenedEndsTheDrawInSilence) {
    files.FailOpening(70);
    Design.OutputAscii = true;
    Design.AsciiFileName = {"grid.prn", "map.prn"};
    MapDraw();
    EXPECT_THAT(Told(machine.boxes.asked), ElementsAre("Error in PlotGrid: Error: Permission denied"));
    EXPECT_EQ(machine.clock.beeps, 0);
    EXPECT_EQ(RangeOf(surface.Segments(), CoastGreen).second, 0U);
    ExpectIdle();
}

TEST_F(MapDrawing, MapWithoutExtentIsRefusedBeforeAnythingIsDisabled) {
    Design.MapXMax = Design.MapXMin;
    Design.OutputCgm = true;
    MapDraw();
    EXPECT_THAT(Told(machine.boxes.asked), ElementsAre("Error in MapDraw: Error: Division by zero"));
    EXPECT_THAT(surface.Calls(), IsEmpty());
    ExpectIdle();
}

TEST_F(MapDrawing, BackImageThatFindsNoMemoryLeavesNoMenuDisabled) {
    window.autoRedrawError = ErrorOutOfMemory;
    Design.OutputCgm = true;
    MapDraw();
    EXPECT_THAT(Told(machine.boxes.asked), ElementsAre("Error in MapDraw: Error: Out of memory"));
    EXPECT_EQ(machine.clock.beeps, 0);
    ExpectIdle();
    window.autoRedrawError = 0;
    MapDraw();
    EXPECT_EQ(machine.clock.beeps, 1);
}

class FailingSurface : public StartedProgram, public testing::WithParamInterface<SurfaceOp> {};

TEST_P(FailingSurface, DrawGoesOnToItsEndAndTellsEachFailureOnce) {
    Design.InputFiles[0].MapFileType = SymbolFilledCircle;
    surface.FailAt(GetParam(), 0);
    MapDraw();
    EXPECT_EQ(machine.clock.beeps, 1);
    std::vector<std::string> told = Told(machine.boxes.Taken());
    std::sort(told.begin(), told.end());
    EXPECT_EQ(std::adjacent_find(told.begin(), told.end()), told.end()) << "a box came twice";
    EXPECT_LE(told.size(), 8U);
    if (GetParam() != SurfaceOp::DeleteObject) {
        ExpectIdle();
    }
    EXPECT_FALSE(MainWindowNow.MapDrawing);
    EXPECT_TRUE(window.MenuEnabled(Menu::mnuBar, 3));
}

INSTANTIATE_TEST_SUITE_P(Operations, FailingSurface,
                         testing::Values(SurfaceOp::Polyline, SurfaceOp::Polygon, SurfaceOp::Rectangle,
                                         SurfaceOp::Ellipse, SurfaceOp::CreatePen,
                                         SurfaceOp::CreateSolidBrush, SurfaceOp::GetStockObject,
                                         SurfaceOp::SelectObject, SurfaceOp::DeleteObject,
                                         SurfaceOp::SetPolyFillMode),
                         [](const auto& operation) { return Name(operation.param); });

TEST_F(MapDrawing, FailingRectangleIsReported) {
    surface.FailAt(SurfaceOp::Rectangle, 0);
    MapDraw();
    EXPECT_THAT(Told(machine.boxes.asked), ElementsAre("Windows API Error: Rectangle(1) error in PlotGrid"));
}

TEST_F(MapDrawing, RepeatsOfABoxAreCountedInOneMore) {
    Design.InputFiles[0].MapFileType = SymbolFilledCircle;
    surface.FailAt(SurfaceOp::Ellipse, 0);
    MapDraw();
    // Eight points, the first of which tells it.
    EXPECT_THAT(
        Told(machine.boxes.asked),
        ElementsAre("Windows API Error: Ellipse(1) error in PrintToScreen",
                    "Errors while drawing: The messages shown while this map was drawn occurred 7 more "
                    "times."));
}

} // namespace
} // namespace quelmont
