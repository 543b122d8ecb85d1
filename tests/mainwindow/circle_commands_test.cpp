// Great and small circles by the menus, and the draws that follow.

#include "core/file_numbers.h"
#include "core/map_design.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Circles in colours that nothing else on the map has.
constexpr std::uint32_t GreatColor = 0x4D0026;
constexpr std::uint32_t SmallColor = 0x264D00;

class CircleCommands : public StartedProgram {
protected:
    CircleCommands() {
        SetFileDeviceMaker(nullptr);
        Design.MapFileCount = 0;
        Design.InputFiles.clear();
        Design.GcColor = SolidColor(GreatColor);
        Design.ScColor = SolidColor(SmallColor);
    }
    void Accept(const char* form) {
        machine.forms.Script(form, [](Form& dialog) { dialog.Press("OK"); });
    }
    void Choose(const char* form, int item) {
        Accept(form);
        mnuDesign_Click(item);
    }
    void Cancel(const char* form, int item) {
        machine.forms.Script(form, [](Form& dialog) { dialog.PressCancel(); });
        mnuDesign_Click(item);
    }
    std::size_t Drawn(std::uint32_t color) const {
        const auto& segments = surface.Segments();
        return static_cast<std::size_t>(
            std::count_if(segments.begin(), segments.end(),
                          [color](const RecordedSegment& segment) { return segment.pen.color == color; }));
    }
    void Draw() {
        surface.Forget();
        MapDraw();
    }

    TemporaryFolder folder;
};

TEST_F(CircleCommands, GreatCircleIsComputedWhenItsDialogWasAccepted) {
    Choose("GCircleEnds", GreatCircleItem);
    EXPECT_EQ(Design.GcTable.Rows.size(), 176U);
    EXPECT_TRUE(Design.GcDefined);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuDesign, GreatCircleItem));
    EXPECT_THAT(surface.Segments(), IsEmpty()) << "nothing is drawn until it is asked for";
    Draw();
    EXPECT_GT(Drawn(GreatColor), 170U);
    EXPECT_EQ(Drawn(SmallColor), 0U);
}

TEST_F(CircleCommands, SmallCirclesComeFromTheirDialog) {
    Choose("SmallCircle", SmallCircleItem);
    EXPECT_EQ(Design.ScTable.ScRingEnd.size(), 3U);
    Draw();
    EXPECT_GT(Drawn(SmallColor), 500U);
}

TEST_F(CircleCommands, CancelledDialogLeavesADrawWithoutACircle) {
    Cancel("GCircleEnds", GreatCircleItem);
    Cancel("SmallCircle", SmallCircleItem);
    EXPECT_THAT(Design.GcTable.Rows, IsEmpty());
    Draw();
    EXPECT_EQ(Drawn(GreatColor) + Drawn(SmallColor), 0U);
}

TEST_F(CircleCommands, CancelledDialogLeavesTheCircleOfBefore) {
    Choose("GCircleEnds", GreatCircleItem);
    Draw();
    const std::size_t before = Drawn(GreatColor);
    Cancel("GCircleEnds", GreatCircleItem);
    Draw();
    EXPECT_EQ(Drawn(GreatColor), before);
}

TEST_F(CircleCommands, CircleIsTakenOffTheMap) {
    Choose("GCircleEnds", GreatCircleItem);
    machine.forms.Script("GCircleEnds", [](Form& dialog) {
        dialog.Choose("ShowOnMap", 0);
        dialog.Press("OK");
    });
    mnuDesign_Click(GreatCircleItem);
    Draw();
    EXPECT_EQ(Drawn(GreatColor), 0U);
    EXPECT_EQ(Design.GcTable.Rows.size(), 176U);
}

TEST_F(CircleCommands, CirclesStayOnEveryOtherProjection) {
    Choose("GCircleEnds", GreatCircleItem);
    Choose("SmallCircle", SmallCircleItem);
    for (const std::int16_t projNum :
         {ProjMercator, ProjAlbers, ProjOrthographic, ProjMollweide, ProjInterruptedMollweide,
          ProjAzimuthalEquidistant, ProjEquirectangular}) {
        SCOPED_TRACE(projNum);
        AcceptProjection(projNum);
        Draw();
        EXPECT_GT(Drawn(GreatColor), 20U);
        EXPECT_GT(Drawn(SmallColor), 100U);
        EXPECT_THAT(machine.boxes.asked, IsEmpty());
    }
}

TEST_F(CircleCommands, EscapeStopsADrawOfCirclesAndTheNextOneIsWhole) {
    Choose("SmallCircle", SmallCircleItem);
    Draw();
    const std::size_t whole = Drawn(SmallColor);
    const int calls = machine.pump.calls;
    const int last = calls + calls;
    machine.pump.At(last, [] { EscapeKey(); });
    Draw();
    EXPECT_LT(Drawn(SmallColor), whole);
    ExpectIdle();
    Draw();
    EXPECT_EQ(Drawn(SmallColor), whole);
    ExpectIdle();
}

// ---- Tables.

struct Table {
    int item;
    const char* form;
    int designItem;
    const char* title;
    const char* routine;
    std::string MapDesign::*name;
    const char* undefined;
};
const std::array Tables = std::to_array<Table>({
    {SaveGreatCircleItem, "GCircleEnds", GreatCircleItem, "Save Great Circle As ASCII File",
     " in Save Great Circle", &MapDesign::GcFileName, "Great Circle Not Defined"},
    {SaveSmallCircleItem, "SmallCircle", SmallCircleItem, "Save Small Circle As ASCII File",
     " in Save Small Circle", &MapDesign::ScFileName, "Small Circle Not Defined"},
});

TEST_F(CircleCommands, TablesAreSavedByTheNameOfAFileDialog) {
    for (const Table& table : Tables) {
        Choose(table.form, table.designItem);
        machine.fileDialogs.Choose({folder / "circle"});
        mnuInput_Click(table.item);
        EXPECT_EQ(machine.fileDialogs.asked.back().title, table.title);
        EXPECT_EQ(machine.fileDialogs.asked.back().filter, "PRN Files (*.prn)|*.prn");
        EXPECT_EQ(machine.fileDialogs.asked.back().extension, "prn");
        EXPECT_EQ(Design.*table.name, folder / "circle.prn") << "with its ending";
        EXPECT_EQ(ReadWholeFile(folder / "circle.prn").substr(0, 2), " 0");
        EXPECT_FALSE(Design.OutputGc || Design.OutputSc);
        EXPECT_EQ(window.caption, "Quelmont: Equirectangular projection");
    }
    EXPECT_THAT(surface.Segments(), IsEmpty()) << "nothing is drawn for it";
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(CircleCommands, UndefinedTablesAreRefused) {
    for (const Table& table : Tables) {
        machine.fileDialogs.Choose({folder / "circle.prn"});
        mnuInput_Click(table.item);
        const std::vector<AskedBox> boxes = machine.boxes.Taken();
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes[0].title, table.undefined);
        EXPECT_FALSE(Design.OutputGc || Design.OutputSc);
    }
    EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(CircleCommands, CancelledFileDialogDoesNothingAndAFailedOneIsReported) {
    for (const Table& table : Tables) {
        Choose(table.form, table.designItem);
        mnuInput_Click(table.item);
        EXPECT_THAT(machine.boxes.asked, IsEmpty());
        machine.fileDialogs.Fail(4);
        mnuInput_Click(table.item);
        EXPECT_THAT(Told(machine.boxes.Taken()),
                    ElementsAre("File Common Dialog Error: Error 4" + std::string(table.routine)));
    }
    EXPECT_THAT(folder.Names(), IsEmpty());
}

} // namespace
} // namespace quelmont
