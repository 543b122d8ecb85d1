#include "core/file_numbers.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "output/export_file.h"
#include "output/fan_out.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <span>

namespace quelmont {
namespace {

using testing::IsEmpty;

using Stopping = StartedProgram;

class StoppingAt : public StartedProgram, public testing::WithParamInterface<int> {};

TEST_P(StoppingAt, TurnLeavesEverythingAsItWas) {
    // Sixteen grid lines, then a turn every 800 records.
    PutMap(800 * 100);
    const SurfaceHandle pen = surface.CurrentPenHandle();
    const SurfaceHandle brush = surface.CurrentBrushHandle();
    machine.pump.At(GetParam(), EscapeKey);
    MapDraw();
    EXPECT_EQ(machine.pump.calls, GetParam()) << "the loops leave at the test after the turn";
    EXPECT_EQ(machine.clock.beeps, 0);
    EXPECT_EQ(surface.CurrentPenHandle(), pen);
    EXPECT_EQ(surface.CurrentBrushHandle(), brush);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    ExpectIdle();
}

INSTANTIATE_TEST_SUITE_P(FirstHundred, StoppingAt, testing::Range(1, 101));

TEST_F(Stopping, MenuItemStopsLikeTheKey) {
    PutMap(800 * 3);
    machine.pump.At(17, [&] {
        mnuBar_Click(5);
        EXPECT_FALSE(window.autoRedraw) << "at once";
    });
    MapDraw();
    EXPECT_EQ(machine.pump.calls, 17);
    EXPECT_EQ(machine.clock.beeps, 0);
    ExpectIdle();
}

TEST_F(Stopping, TimeUntilTheStopIsKept) {
    machine.clock.seconds = 100.0;
    machine.pump.At(2, [&] {
        machine.clock.seconds = 101.5;
        EscapeKey();
    });
    MapDraw();
    EXPECT_DOUBLE_EQ(Design.PlotSeconds, 1.5);
}

TEST_F(Stopping, BeforeTheFirstLineIsShownKeepsTheBackground) {
    window.Cls();
    machine.clock.seconds = 100.0;
    machine.pump.At(1, [&] {
        EXPECT_EQ(window.refreshes, 0);
        machine.clock.seconds = 100.25;
        EscapeKey();
    });
    MapDraw();
    EXPECT_EQ(surface.Count(SurfaceOp::Rectangle), 1);
    // The parallel of 90 S, whose nine points are all at the lower edge.
    EXPECT_EQ(surface.Segments().size(), static_cast<std::size_t>(Design.LonGridCount));
    EXPECT_EQ(window.refreshes, 1);
    EXPECT_DOUBLE_EQ(Design.PlotSeconds, 0.25);
    ExpectIdle();
}

TEST_F(Stopping, NextDrawIsWhole) {
    MapDraw();
    const std::vector<RecordedSegment> whole = surface.Segments();
    surface.Forget();
    machine.pump.At(machine.pump.calls + 4, EscapeKey);
    MapDraw();
    EXPECT_LT(surface.Segments().size(), whole.size());
    surface.Forget();
    MapDraw();
    EXPECT_EQ(surface.Segments(), whole);
    EXPECT_EQ(machine.clock.beeps, 2);
}

TEST_F(Stopping, KeyInIdleOnlyDisarmsTheExports) {
    Design.OutputAscii = true;
    Design.OutputCgm = true;
    Design.OutputDxf = true;
    Design.OutputWmf = true;
    Design.OutputGc = true;
    Design.OutputSc = true;
    Design.OutputFileName = "kept";
    files.Put("input", "x");
    OpenFile(InputFileNumber, "input", OpenMode::Input);
    EscapeKey();
    EXPECT_FALSE(Design.OutputAscii || Design.OutputCgm || Design.OutputDxf || Design.OutputWmf ||
                 Design.OutputGc || Design.OutputSc);
    EXPECT_EQ(Design.OutputFileName, "kept");
    EXPECT_EQ(Design.PlotStopReason, StopReason::None);
    EXPECT_TRUE(IsFileOpen(InputFileNumber));
    EXPECT_THAT(surface.Calls(), IsEmpty());
}

TEST_F(Stopping, KeyWhileAPageEndsOnlyAbortsThePrint) {
    Design.PrintingNow = true;
    MainWindowNow.PageEnding = true;
    Design.OutputCgm = true;
    EscapeKey();
    EXPECT_TRUE(Design.PrintAbort);
    EXPECT_TRUE(Design.OutputCgm);
    EXPECT_EQ(Design.PlotStopReason, StopReason::None);
}

TEST_F(Stopping, KeyWhilePrintingAbortsThePrint) {
    Design.PrintingNow = true;
    EscapeKey();
    EXPECT_TRUE(Design.PrintAbort);
    EXPECT_EQ(Design.PlotStopReason, StopReason::Escape);
}

/// Writes a file as an export does: its header at the first pass.
class SmallWriter : public FileWriter {
public:
    void Header() override {
        Design.OutputFileName = Design.CgmFileName;
        BeginExport(Design.CgmFileName);
        WriteExport("header");
        CloseExport();
    }
    void OpenStretch(std::size_t /*slot*/) override { ResumeExport(Design.CgmFileName); }
    void Point() override { WriteExport("point"); }
    void LineBreak() override {}
    void Finish() override { FinishExports(); }
};

/// An export to a real file, for which the world map of the memory is left aside.
class StoppedExport : public StartedProgram {
protected:
    StoppedExport() {
        SetFileDeviceMaker(nullptr);
        Design.MapFileCount = 0;
        Design.CgmFileName = folder / "map.cgm";
        Design.OutputCgm = true;
        Writers().cgm = &writer;
    }
    ~StoppedExport() override { Writers() = {}; }

    TemporaryFolder folder;
    SmallWriter writer;
};

TEST_F(StoppedExport, FileStaysWhenNothingStopsIt) {
    MapDraw();
    EXPECT_TRUE(std::filesystem::exists(Design.CgmFileName));
}

TEST_F(StoppedExport, LeavesNoPartialFile) {
    bool written = false;
    machine.pump.At(5, [&] {
        written = !std::filesystem::is_empty(folder.Path());
        EscapeKey();
    });
    MapDraw();
    EXPECT_TRUE(written);
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    EXPECT_EQ(Design.OutputFileName, "");
    ExpectIdle();
}

TEST_F(StoppedExport, NextDrawWritesNoFile) {
    machine.pump.At(5, EscapeKey);
    MapDraw();
    MapDraw();
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    EXPECT_EQ(machine.clock.beeps, 1);
}

} // namespace
} // namespace quelmont
