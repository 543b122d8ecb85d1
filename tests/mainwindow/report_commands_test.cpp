// The reports by the menus, and the draws before and behind them.

#include "core/map_design.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "mainwindow/told_changes.h"
#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class ReportCommands : public StartedProgram {
protected:
    ReportCommands() { PutMap(20); }

    /// The lines of the report, a cell behind the other, as it is shown and closed.
    std::vector<std::string> Report(const char* form, int item) {
        std::vector<std::string> lines;
        machine.forms.Script(form, [&](Form& dialog) {
            for (const PageLine& line : dialog.At("ReportRtb").page) {
                std::string text;
                for (const std::string& cell : line.cells) {
                    text += text.empty() ? cell : " " + cell;
                }
                lines.push_back(text);
            }
            dialog.PressCancel();
        });
        ClickMenuItem(Menu::mnuDesign, item);
        return lines;
    }
    std::vector<std::string> ParameterReport() { return Report("ReportParam", ParameterReportItem); }
    std::vector<RecordedSegment> Drawn() {
        surface.Forget();
        MapDraw();
        return surface.Segments();
    }
};

TEST_F(ReportCommands, ParameterReportTellsOfTheDesign) {
    EXPECT_THAT(ParameterReport(), Contains("Projection Type: Equirectangular"));
    EXPECT_TRUE(window.MenuChecked(Menu::mnuDesign, ParameterReportItem));
    EXPECT_FALSE(Design.DialogCancelled);
}

TEST_F(ReportCommands, GreatCircleReportNeedsAGreatCircle) {
    ClickMenuItem(Menu::mnuDesign, GreatCircleReportItem);
    EXPECT_THAT(machine.forms.shown, IsEmpty());
    EXPECT_THAT(
        Told(machine.boxes.Taken()),
        ElementsAre("Great Circle Not Defined: You have not defined the endpoints\nof the great circle.\n"
                    "To define the endpoints, press OK,\nthen select the Great Circle option\n"
                    "from the Design Map menu."));
    machine.forms.Script("GCircleEnds", [](Form& dialog) { dialog.Press("OK"); });
    ClickMenuItem(Menu::mnuDesign, GreatCircleItem);
    EXPECT_THAT(Report("GcReport", GreatCircleReportItem), Contains("Starting latitude: 37 47 00 N"));
}

TEST_F(ReportCommands, EachProjectionTellsOfItselfWhateverWasReportedBefore) {
    for (const ProjectionEntry& before : Projections) {
        for (const ProjectionEntry& entry : {Projections[1], before, Projections[16], before}) {
            AcceptProjection(entry.ProjNum);
            EXPECT_THAT(ParameterReport(), Contains("Projection Type: " + std::string(entry.ProjName)));
        }
        EXPECT_THAT(Told(machine.boxes.Taken()), IsEmpty()) << before.ProjName;
    }
}

TEST_F(ReportCommands, DrawBehindAReportIsTheDrawBeforeIt) {
    for (const ProjectionEntry& entry : Projections) {
        AcceptProjection(entry.ProjNum);
        const std::vector<RecordedSegment> before = Drawn();
        ASSERT_FALSE(before.empty());
        ParameterReport();
        EXPECT_TRUE(Drawn() == before) << entry.ProjName;
    }
}

TEST_F(ReportCommands, ReportBehindADrawIsTheReportBeforeIt) {
    for (const ProjectionEntry& entry : Projections) {
        AcceptProjection(entry.ProjNum);
        const std::vector<std::string> before = ParameterReport();
        MapDraw();
        EXPECT_EQ(ParameterReport(), before) << entry.ProjName;
    }
}

TEST_F(ReportCommands, ReportIsNoChangeOfTheDesignAndItsFontIsOne) {
    NoteDesign();
    machine.changes.accepted.clear();
    ParameterReport();
    EXPECT_THAT(machine.changes.accepted, IsEmpty());
    machine.forms.Script("FontDialog", [](Form& fonts) {
        fonts.Type("comFontSize", "8");
        fonts.Press("OK");
    });
    machine.forms.Script("ReportParam", [](Form& dialog) {
        dialog.Choose("mnuOptions", 1);
        dialog.PressCancel();
    });
    ClickMenuItem(Menu::mnuDesign, ParameterReportItem);
    EXPECT_THAT(machine.changes.accepted, ElementsAre(Pair("Map Parameter Report", ChangeKind::Look)));
}

TEST_F(ReportCommands, EndsThePlacingOfAText) {
    machine.forms.Script("TextAdd", [](Form& dialog) {
        dialog.Type("TextStrings", "Here");
        dialog.Press("OK");
    });
    ClickMenuItem(Menu::mnuDesign, AddTextItem);
    ASSERT_TRUE(Design.TextPending);
    ParameterReport();
    EXPECT_FALSE(Design.TextPending);
    EXPECT_EQ(Design.CurrentText, "");
}

TEST_F(ReportCommands, ProjectionWhoseDialogWasCancelledIsReportedWithBoundsAcceptedForIt) {
    machine.forms.Script("LatLonBoundsAz", [](Form& dialog) { dialog.PressCancel(); });
    ClickMenuItem(Menu::mnuProj, 16);
    EXPECT_THAT(ParameterReport(), Contains("Projection Type: Azimuthal Equidistant"));
    EXPECT_EQ(Design.BoundsProjNum, Design.ProjNum);
}

} // namespace
} // namespace quelmont
