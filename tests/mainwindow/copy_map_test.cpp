#include "mainwindow/copy_map.h"

#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "mainwindow/told_changes.h"
#include "support/svg_file.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <string>

namespace quelmont {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// The started program on a map without map files, its files in the folders of the system; temporary ones in
/// a folder of its own, since other tests run at the same time.
class CopiedMap : public StartedProgram {
protected:
    CopiedMap() {
        SetFileDeviceMaker(nullptr);
        Design.MapFileCount = 0;
        Design.InputFiles.clear();
        window.pixels = {2, 1, {0x0000FFU, 0xFF0000U}};
        setenv("TMPDIR", temporary.Path().c_str(), 1);
    }
    ~CopiedMap() override {
        if (folderBefore.empty()) {
            unsetenv("TMPDIR");
        } else {
            setenv("TMPDIR", folderBefore.c_str(), 1);
        }
    }

    static void Copy() { ClickMenuItem(Menu::mnuEdit, CopyMapItem); }
    const std::vector<std::pair<std::string, std::string>>& Copied() const { return machine.pictures.copied; }
    /// Files of copies that were left over.
    std::ptrdiff_t FilesLeft() const {
        return std::distance(std::filesystem::directory_iterator(temporary.Path()), {});
    }
    std::string folderBefore = std::getenv("TMPDIR") == nullptr ? "" : std::getenv("TMPDIR");
    TemporaryFolder temporary;
};

TEST_F(CopiedMap, IsThePictureAndTheSameMapAsADrawing) {
    MapDraw();
    Copy();
    ASSERT_THAT(Copied(), SizeIs(1));
    EXPECT_EQ(Copied()[0].first, "PNG 2x1, 3780x3780 in a metre, Outline map, Quelmont 3.00");
    EXPECT_GT(SvgElements(Copied()[0].second, "path").size(), 5U);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_EQ(FilesLeft(), 0);
}

TEST_F(CopiedMap, LeavesThePictureTheLastDrawAndTheBellAlone) {
    machine.clock.secondsPerReading = 1.0;
    MapDraw();
    NoteDesign();
    const std::size_t calls = window.surface.Calls().size();
    const double seconds = Design.PlotSeconds;
    const std::int64_t points = Design.Statistics.GridPointsPlotted;
    const std::string design = MainWindowNow.Picture->design;
    const int beeps = machine.clock.beeps;
    const int refreshes = window.refreshes;
    const int clears = window.clears;
    Design.SvgFileName = "/maps/mine.svg";
    Copy();
    EXPECT_EQ(window.surface.Calls().size(), calls);
    EXPECT_EQ(window.refreshes, refreshes);
    EXPECT_EQ(window.clears, clears);
    EXPECT_EQ(machine.clock.beeps, beeps);
    EXPECT_EQ(Design.PlotSeconds, seconds);
    EXPECT_EQ(Design.Statistics.GridPointsPlotted, points);
    EXPECT_EQ(MainWindowNow.Picture->design, design);
    EXPECT_EQ(Design.Surface, &window.surface);
    EXPECT_EQ(Design.SvgFileName, "/maps/mine.svg");
    EXPECT_EQ(Machine().window, &window);
    EXPECT_EQ(Machine().clock, &machine.clock);
    EXPECT_THAT(Copied(), SizeIs(1));
    EXPECT_THAT(machine.changes.accepted, IsEmpty());
    ExpectIdle();
}

TEST_F(CopiedMap, OlderPictureIsDrawnAnew) {
    Copy(); // nothing was drawn yet
    EXPECT_EQ(window.clears, 1);
    EXPECT_EQ(machine.clock.beeps, 1);
    Design.GridColor = 0x0000FF;
    Copy();
    EXPECT_EQ(window.clears, 2);
    EXPECT_EQ(machine.clock.beeps, 2);
    window.scaleWidth -= 150.0;
    Copy();
    EXPECT_EQ(machine.clock.beeps, 3);
    Copy();
    EXPECT_EQ(machine.clock.beeps, 3) << "now the picture is that of the design";
    ASSERT_THAT(Copied(), SizeIs(4));
    EXPECT_EQ(Copied()[2].second, Copied()[3].second) << "the same drawing, seen or not";
    EXPECT_THAT(Copied()[1].second, HasSubstr("stroke=\"#FF0000\""));
}

TEST_F(CopiedMap, StoppedCopyLeavesTheClipboard) {
    MapDraw();
    machine.pump.At(machine.pump.calls + 2, EscapeKey);
    Copy();
    EXPECT_THAT(Copied(), IsEmpty());
    EXPECT_EQ(FilesLeft(), 0);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    ExpectIdle();
    Copy();
    EXPECT_THAT(Copied(), SizeIs(1));
}

TEST_F(CopiedMap, FailureIsReportedAndLeavesTheClipboard) {
    MapDraw();
    Design.LonGrid = 0.0;
    Copy();
    EXPECT_THAT(Told(machine.boxes.Taken()),
                testing::ElementsAre("Error in PlotGrid: Error: Division by zero"));
    EXPECT_THAT(Copied(), IsEmpty());
    ExpectIdle();
}

} // namespace
} // namespace quelmont
