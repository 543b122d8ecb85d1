#include "mainwindow/commands.h"

#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "mainwindow/text_placing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Commands = StartedProgram;

TEST_F(Commands, DrawMapAsksForTheSizeClearsAndDraws) {
    machine.forms.Script("MapReduce", [](Form& form) {
        form.Spin("MapReduction", 50);
        form.Press("DrawMap");
    });
    mnuBar_Click(3);
    EXPECT_EQ(Design.MapReduce, 0.5);
    EXPECT_EQ(window.clears, 1);
    EXPECT_EQ(surface.Calls().front().op, SurfaceOp::Cls);
    EXPECT_EQ(machine.clock.beeps, 1);
    ExpectIdle();
}

TEST_F(Commands, CancelledSizeDrawsNothing) {
    machine.forms.Script("MapReduce", [](Form& form) {
        form.Spin("MapReduction", 50);
        form.Press("Cancel");
    });
    mnuBar_Click(3);
    EXPECT_EQ(Design.MapReduce, 1.0);
    EXPECT_FALSE(Design.DialogCancelled) << "it was read and cleared";
    EXPECT_EQ(window.clears, 0);
    EXPECT_EQ(machine.clock.beeps, 0);
}

TEST_F(Commands, TitlesOfMenusDoNothingElse) {
    for (const int title : {0, 1, 2, 4}) {
        mnuBar_Click(title);
    }
    EXPECT_THAT(machine.forms.shown, IsEmpty());
    EXPECT_THAT(surface.Calls(), IsEmpty());
}

TEST_F(Commands, MapFilesHaveTheirDialog) {
    machine.forms.Script("InputFileChoices", [](Form& form) {
        EXPECT_EQ(form.At("InputFilesOpen").items.size(), 2U) << "the default map and the blank line";
        form.PressCancel();
    });
    mnuInput_Click(0);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuInput, 0));
    EXPECT_EQ(Design.MapFileCount, 1);
}

TEST_F(Commands, ExitClosesTheWindow) {
    mnuInput_Click(17);
    EXPECT_EQ(window.closes, 1);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuInput, 17));
}

TEST_F(Commands, LastItemUsedStaysChecked) {
    mnuAbout_Click(4);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuAbout, 4));
    machine.forms.Script("AboutQMNT", [](Form& form) { form.PressCancel(); });
    mnuAbout_Click(3);
    EXPECT_FALSE(window.MenuChecked(Menu::mnuAbout, 4));
    EXPECT_TRUE(window.MenuChecked(Menu::mnuAbout, 3));
}

TEST_F(Commands, PlotTimeIsReportedInTenths) {
    const auto told = [&](double seconds) {
        Design.PlotSeconds = seconds;
        mnuAbout_Click(4);
        return machine.boxes.Taken();
    };
    const std::vector<AskedBox> boxes = told(1.25);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, "Time to plot map:  1.3 seconds");
    EXPECT_EQ(boxes[0].icon, BoxIcon::Information);
    EXPECT_EQ(boxes[0].buttons, BoxButtons::Ok);
    EXPECT_EQ(told(0.0)[0].text, "Time to plot map:  0.0 seconds");
    EXPECT_EQ(told(12345.678)[0].text, "Time to plot map:  12345.7 seconds");
}

TEST_F(Commands, PixelSizeStandsBeforeTheCaptionWhileItIsChecked) {
    mnuDesign_Click(10);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuDesign, 10));
    EXPECT_EQ(window.caption, "1280,924 = x, y Pixels   |Quelmont: Equirectangular projection");
    window.scaleWidth = 15012.0; // 1000.8 pixels of 15 twips
    ToggleCaption();
    EXPECT_EQ(window.caption, "1000.8,924 = x, y Pixels   |Quelmont: Equirectangular projection");
    mnuDesign_Click(10);
    EXPECT_FALSE(window.MenuChecked(Menu::mnuDesign, 10));
    EXPECT_EQ(window.caption, "Quelmont: Equirectangular projection");
}

TEST_F(Commands, OtherItemsLeaveTheMarkOfThePixelSize) {
    machine.forms.Script("ReportParam", [](Form& dialog) { dialog.PressCancel(); });
    mnuDesign_Click(10);
    mnuDesign_Click(12);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuDesign, 10));
    EXPECT_TRUE(window.MenuChecked(Menu::mnuDesign, 12));
}

TEST_F(Commands, ResizingWithoutTheMarkLeavesTheCaption) {
    ToggleCaption();
    EXPECT_EQ(window.caption, "Quelmont: Equirectangular projection");
}

TEST_F(Commands, CaptionWithAPixelSizeSurvivesADraw) {
    mnuDesign_Click(10);
    MapDraw();
    ExpectIdle("1280,924 = x, y Pixels   |Quelmont: Equirectangular projection");
}

TEST_F(Commands, MouseSetsTheTextCursor) {
    Form_MouseDown(150.5, 300.4);
    EXPECT_EQ(MainWindowNow.TextCursorX, 150) << "ties go to the even neighbour";
    EXPECT_EQ(MainWindowNow.TextCursorY, 300);
}

TEST_F(Commands, MouseIsIgnoredInADraw) {
    machine.pump.At(1, [] { Form_MouseDown(150.0, 300.0); });
    MapDraw();
    EXPECT_EQ(MainWindowNow.TextCursorX, 0);
    EXPECT_EQ(MainWindowNow.TextCursorY, 0);
}

TEST_F(Commands, BoundariesOpenTheDialogOfTheProjection) {
    AcceptProjection(ProjInterruptedMollweide);
    machine.forms.Script("LatLonBounds", [](Form& form) { form.PressCancel(); });
    mnuDesign_Click(0);
    AcceptProjection(ProjUtm);
    machine.forms.Script("UtmSpheroid", [](Form& form) { form.PressCancel(); });
    mnuDesign_Click(0);
    EXPECT_THAT(machine.forms.shown, ElementsAre("LatLonBounds", "UtmSpheroid"));
    EXPECT_TRUE(window.MenuChecked(Menu::mnuDesign, 0));
}

TEST_F(Commands, BackgroundColorOpensThePickerForIt) {
    machine.forms.Script("Colors256", [](Form& form) {
        EXPECT_EQ(form.At("Purpose").text, "Background Color");
        form.Choose("ColorSquare", 14);
    });
    mnuDesign_Click(7);
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(255, 255, 0)));
    EXPECT_EQ(Design.BackColorIndex, 14);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuDesign, 7));
}

TEST_F(Commands, GridAndLineWidthHaveTheirDialogs) {
    machine.forms.Script("SelectGridType", [](Form& form) { form.PressCancel(); });
    mnuDesign_Click(8);
    machine.forms.Script("LineWidthScale", [](Form& form) { form.PressCancel(); });
    mnuDesign_Click(9);
    EXPECT_THAT(machine.forms.shown, ElementsAre("SelectGridType", "LineWidthScale"));
    EXPECT_FALSE(window.MenuChecked(Menu::mnuDesign, 8));
    EXPECT_TRUE(window.MenuChecked(Menu::mnuDesign, 9));
}

TEST_F(Commands, FrameAndScaleHaveADialogWhoseChoiceIsAnnounced) {
    machine.forms.Script("MapFrame", [](Form& form) { form.PressDefault(); });
    ClickMenuItem(Menu::mnuDesign, FrameItem);
    EXPECT_TRUE(machine.changes.accepted.empty()) << "nothing was changed";
    machine.forms.Script("MapFrame", [](Form& form) {
        form.Choose("Frame");
        form.Choose("Kilometers");
        form.PressDefault();
    });
    ClickMenuItem(Menu::mnuDesign, FrameItem);
    EXPECT_EQ(Design.Frame, (FrameChoice{true, ScaleBarUnit::Kilometres, {}}));
    ASSERT_EQ(machine.changes.accepted.size(), 1U);
    EXPECT_EQ(machine.changes.accepted[0].first, "Frame and Scale...");
}

TEST_F(Commands, LabelsHaveTheirDialog) {
    machine.forms.Script("SelectLabelOption", [](Form& form) {
        form.Choose("LabelOption", 0);
        form.PressDefault();
    });
    mnuDesign_Click(5);
    EXPECT_THAT(machine.forms.shown, ElementsAre("SelectLabelOption"));
    EXPECT_FALSE(Design.LabelsVisible);
}

TEST_F(Commands, AboutTellsNameVersionLicenceAndSource) {
    machine.places.version = "3.07";
    Design.VersionText = "3.07";
    machine.forms.Script("AboutQMNT", [](Form& form) {
        EXPECT_EQ(form.At("Title").text, "Quelmont");
        EXPECT_EQ(form.At("Version").text, "Version 3.07");
        EXPECT_THAT(form.At("Licence").text, testing::HasSubstr("MIT"));
        EXPECT_THAT(form.At("WorldMap").text, testing::HasSubstr("Natural Earth"));
        form.PressDefault();
        EXPECT_TRUE(form.Closed());
    });
    mnuAbout_Click(3);
    machine.forms.Script("AboutQMNT", [](Form& form) {
        form.PressCancel();
        EXPECT_TRUE(form.Closed());
    });
    mnuAbout_Click(3);
}

TEST_F(Commands, PrintingIsThereWhenAPrinterIs) {
    for (const bool any : {false, true}) {
        machine.printers.any = any;
        mnuBar_Click(0);
        EXPECT_EQ(window.MenuEnabled(Menu::mnuInput, 2), any);
        EXPECT_EQ(window.MenuEnabled(Menu::mnuInput, 3), any);
    }
}

} // namespace
} // namespace quelmont
