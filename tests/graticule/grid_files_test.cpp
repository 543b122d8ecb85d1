// The export files of a grid, and a grid that Escape stops.

#include "graticule/plot_grid.h"

#include "core/file_numbers.h"
#include "core/map_design.h"
#include "core/run_time_error.h"
#include "graticule/grid_fixture.h"
#include "output/device_pen.h"
#include "output/export_file.h"
#include "output/output_state.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Codes = std::initializer_list<std::int16_t>;

std::vector<SurfaceOp> OpsOf(const RecordingSurface& surface) {
    std::vector<SurfaceOp> ops;
    for (const SurfaceCall& call : surface.Calls()) {
        ops.push_back(call.op);
    }
    return ops;
}

AskedBox ApiError(const char* text) { return {"Windows API Error", text}; }

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
