#include "view/undo.h"

#include "core/map_design.h"
#include "designfile/cnf_save.h"
#include "mainwindow/commands.h"
#include "mainwindow/design_commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "mainwindow/told_changes.h"
#include "platform/machine.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

namespace quelmont {
namespace {

/// Who is told of changes and hands them on, as the desktop does.
class UndoChanges : public Changes {
public:
    void Accepted(std::string_view name, ChangeKind /*kind*/) override { steps.Accepted(name); }
    void Noted() override { steps.Noted(); }
    void Recalled() override { steps.Recalled(); }
    void Undo() override { steps.Undo(); }
    void Redo() override { steps.Redo(); }

    UndoSteps steps;
};

class Undoing : public StartedProgram {
protected:
    Undoing() {
        Machine().changes = &changes;
        NoteDesign();
    }
    ~Undoing() override { Machine().changes = nullptr; }

    static void Change(const char* name, const std::function<void()>& change) {
        change();
        TellChange(name, ChangeKind::Look);
    }
    static void ChangeGrid(ColorValue color) {
        Change("&Grid Color, Width, Type", [&] { Design.GridColor = color; });
    }
    static void Undo() { ClickMenuItem(Menu::mnuEdit, UndoItem); }
    static void Redo() { ClickMenuItem(Menu::mnuEdit, RedoItem); }
    std::string UndoText() const { return window.menuTexts.at({Menu::mnuEdit, UndoItem}); }
    std::string RedoText() const { return window.menuTexts.at({Menu::mnuEdit, RedoItem}); }

    UndoChanges changes;
};

/// A change of each part of the design.
const std::vector<std::function<void(int)>> EachChange = {
    [](int n) { AcceptProjection(n % 2 == 0 ? ProjRobinson : ProjStereographic); },
    [](int n) { AcceptProjection(n % 2 == 0 ? ProjUtm : ProjInterruptedMollweide); },
    [](int n) { Design.GridTypeCode = static_cast<std::int16_t>(1 + n % 5); },
    [](int n) { Design.GridLineWidth = static_cast<float>(15 * (n % 7)); },
    [](int n) { Design.LineWidthsScaled = n % 2 == 0; },
    [](int n) { Design.MapReduce = 0.1 + (n % 90) / 100.0; },
    [](int n) { Design.BackColor = Rgb(static_cast<unsigned>(n % 256), 1, 2); },
    [](int n) { Design.LabelsVisible = n % 2 == 0; },
    [](int n) { Design.PrintLeft = static_cast<float>(n % 10); },
    [](int n) { Design.ReportTop = static_cast<float>(n % 10); },
    [](int n) { Design.Fonts[ReportFontSlot].FontSize = 8 + n % 20; },
    [](int /*n*/) {
        Design.InputFiles.push_back(Design.InputFiles.at(0));
        Design.InputFiles.back().MapFileType = SymbolPlus;
        Design.MapFileCount = static_cast<std::int16_t>(Design.InputFiles.size());
        Design.AsciiFileName.resize(Design.InputFiles.size() + 2);
    },
    [](int n) { Design.InputFiles.at(0).Features[1].Color = static_cast<ColorValue>(n); },
    [](int n) { Design.GridText[GridTextNorth] = "8" + std::to_string(n % 10) + "    00    00    N"; },
    [](int n) { Design.StdParText[0] = std::to_string(n); },
    [](int n) { Design.LobeLonText[3] = std::to_string(n); },
    [](int n) { Design.GcText[1] = std::to_string(n); },
    [](int n) { Design.GcDefined = n % 2 == 0; },
    [](int n) { Design.ScRadiusDeg = n; },
    [](int n) { Design.TextScalePercent = static_cast<std::int16_t>(1 + n % 900); },
    [](int n) {
        TextItem item;
        item.TextString = "text " + std::to_string(n);
        item.TextFont = "Arial";
        Design.TextItems.push_back(item);
    },
    [](int n) {
        if (!Design.TextItems.empty()) {
            Design.TextItems[0].TextX = n;
        }
    },
};

TEST_F(Undoing, SmoothLinesAreNoStep) {
    ChangeGrid(Rgb(1, 2, 3));
    ASSERT_EQ(changes.steps.StepsBack(), 1U);
    const bool smooth = Design.SmoothLines;
    ClickMenuItem(Menu::mnuView, SmoothLinesItem);
    EXPECT_EQ(Design.SmoothLines, !smooth);
    EXPECT_EQ(changes.steps.StepsBack(), 1U) << "it says how the map is looked at";
    EXPECT_EQ(UndoText(), "&Undo Grid Color, Width, Type");
    Undo();
    EXPECT_EQ(Design.SmoothLines, !smooth) << "and stays";
    EXPECT_EQ(changes.steps.StepsForward(), 1U);
    ClickMenuItem(Menu::mnuView, SmoothLinesItem);
    EXPECT_EQ(changes.steps.StepsForward(), 1U) << "what was taken back can be brought back";
}

TEST_F(Undoing, DesignsComeBackByteForByteOneAfterTheOtherBothWays) {
    std::mt19937 random(16);
    std::vector<std::string> designs = {DesignFileText()};
    for (int n = 0; designs.size() < 181; ++n) {
        Change("Change", [&] { EachChange[random() % EachChange.size()](n); });
        if (changes.steps.StepsBack() == designs.size()) {
            designs.push_back(DesignFileText());
        }
    }
    for (std::size_t back = designs.size() - 1; back > 0; --back) {
        Undo();
        ASSERT_EQ(DesignFileText(), designs[back - 1]) << back;
    }
    EXPECT_FALSE(window.MenuEnabled(Menu::mnuEdit, UndoItem));
    for (std::size_t forth = 1; forth < designs.size(); ++forth) {
        Redo();
        ASSERT_EQ(DesignFileText(), designs[forth]) << forth;
    }
    EXPECT_FALSE(window.MenuEnabled(Menu::mnuEdit, RedoItem));
    EXPECT_TRUE(machine.boxes.Taken().empty());
}

TEST_F(Undoing, ItemsNameWhatTheyTakeBack) {
    EXPECT_EQ(UndoText(), "&Undo");
    EXPECT_FALSE(window.MenuEnabled(Menu::mnuEdit, UndoItem));
    ChangeGrid(0x0000FF);
    EXPECT_EQ(UndoText(), "&Undo Grid Color, Width, Type");
    EXPECT_TRUE(window.MenuEnabled(Menu::mnuEdit, UndoItem));
    EXPECT_FALSE(window.MenuEnabled(Menu::mnuEdit, RedoItem));
    Undo();
    EXPECT_EQ(UndoText(), "&Undo");
    EXPECT_EQ(RedoText(), "&Redo Grid Color, Width, Type");
    EXPECT_FALSE(window.MenuEnabled(Menu::mnuEdit, UndoItem));
    EXPECT_TRUE(window.MenuEnabled(Menu::mnuEdit, RedoItem));
    Undo(); // nothing is left
    Redo();
    EXPECT_EQ(Design.GridColor, 0x0000FFU);
    EXPECT_EQ(UndoText(), "&Undo Grid Color, Width, Type");
}

TEST_F(Undoing, NewChangeForgetsWhatWasTakenBack) {
    ChangeGrid(1);
    ChangeGrid(2);
    Undo();
    ChangeGrid(3);
    EXPECT_EQ(changes.steps.StepsForward(), 0U);
    Undo();
    EXPECT_EQ(Design.GridColor, 1U);
}

TEST_F(Undoing, TwoHundredStepsAreKept) {
    for (ColorValue color = 1; color <= 250; ++color) {
        ChangeGrid(color);
    }
    EXPECT_EQ(changes.steps.StepsBack(), 200U);
    for (int i = 0; i < 250; ++i) {
        Undo();
    }
    EXPECT_EQ(Design.GridColor, 50U);
}

TEST_F(Undoing, ExportIsNoChange) {
    ChangeGrid(1);
    Change("Save as CGM", [] { Design.CgmFileName = "/maps/a.cgm"; });
    EXPECT_EQ(UndoText(), "&Undo Grid Color, Width, Type");
    EXPECT_EQ(changes.steps.StepsBack(), 1U);
}

TEST_F(Undoing, UndoingIsNoChangeItself) {
    ChangeGrid(1);
    Undo();
    EXPECT_EQ(changes.steps.StepsBack(), 0U);
    EXPECT_EQ(changes.steps.StepsForward(), 1U);
}

TEST_F(Undoing, PictureFollows) {
    ChangeGrid(0x0000FF);
    Undo();
    EXPECT_EQ(window.clears, 0) << "nothing was drawn yet";
    ChangeGrid(0x00FF00);
    MapDraw();
    const int beeps = machine.clock.beeps;
    Undo();
    EXPECT_EQ(window.clears, 1);
    Redo();
    EXPECT_EQ(window.clears, 2);
    EXPECT_EQ(machine.clock.beeps, beeps);
}

TEST_F(Undoing, DistortionThatIsShownIsTakenBackByTheNameOfItsItem) {
    machine.forms.Script("Distortion", [](Form& form) {
        form.Choose("AngleError");
        form.PressDefault();
    });
    ClickMenuItem(Menu::mnuView, DistortionItem);
    EXPECT_EQ(Design.Distortion.kind, DistortionKind::Angle);
    EXPECT_EQ(UndoText(), "&Undo Distortion");
    Undo();
    EXPECT_EQ(Design.Distortion, DistortionChoice{});
    Redo();
    EXPECT_EQ(Design.Distortion.kind, DistortionKind::Angle);
}

TEST_F(Undoing, TextsComeAndGoWithoutADraw) {
    MapDraw();
    const int beeps = machine.clock.beeps;
    Change("Add &Text to Map", [] {
        TextItem item;
        item.TextString = "Sea";
        item.TextFont = "Arial";
        Design.TextItems = {item};
    });
    Undo();
    EXPECT_TRUE(Design.TextItems.empty());
    EXPECT_TRUE(window.surface.Texts().empty());
    Redo();
    ASSERT_EQ(window.surface.Texts().size(), 1U);
    EXPECT_EQ(window.surface.Texts()[0].text, "Sea");
    EXPECT_EQ(machine.clock.beeps, beeps);
}

TEST_F(Undoing, TextTakenBackAfterADrawLeavesTheFitOfThePictureToTheSavedDesign) {
    Change("&Stereographic", [] { AcceptProjection(ProjStereographic); });
    MapDraw(); // which is no change, though the file has the fit
    const std::string drawn = DesignFileText();
    Change("Add &Text to Map", [] {
        TextItem item;
        item.TextString = "Sea";
        item.TextFont = "Arial";
        Design.TextItems = {item};
    });
    const std::string withText = DesignFileText();
    Undo();
    EXPECT_EQ(DesignFileText(), drawn);
    Redo();
    EXPECT_EQ(DesignFileText(), withText);
}

TEST_F(Undoing, ProjectionComesBackWithItsMarkAndItsCaption) {
    Change("&Robinson", [] { AcceptProjection(ProjRobinson); });
    Undo();
    EXPECT_EQ(window.Caption(), "Quelmont: Equirectangular projection");
    EXPECT_TRUE(window.MenuChecked(Menu::mnuProj, 1));
    EXPECT_FALSE(window.MenuChecked(Menu::mnuProj, 6));
    Redo();
    EXPECT_EQ(window.Caption(), "Quelmont: Robinson projection");
    EXPECT_TRUE(window.MenuChecked(Menu::mnuProj, 6));
}

TEST_F(Undoing, RecallIsTakenBackWithTheNameOfTheFile) {
    SetFileDeviceMaker(nullptr); // files of the system
    const TemporaryFolder folder;
    const std::string first = folder / "first.cnf";
    const std::string second = folder / "second.cnf";
    machine.places.programFolder = folder / "";
    Design.MapFileCount = 0;
    Design.InputFiles.clear();
    MapDraw();
    Design.CnfFileName = first;
    ASSERT_TRUE(SaveDesign());
    Change("&Grid", [] { Design.GridColor = 7; });
    Design.CnfFileName = second;
    ASSERT_TRUE(SaveDesign());
    EXPECT_EQ(changes.steps.StepsBack(), 1U) << "saving is no change";
    const std::string before = DesignFileText();
    ASSERT_TRUE(OpenDesign(first));
    EXPECT_EQ(UndoText(), "&Undo Recall Map Design");
    Undo();
    machine.window.zoomed = false; // the window stays as the recalled design made it
    EXPECT_EQ(DesignFileText(), before);
    EXPECT_EQ(Design.CnfFileName, second);
    EXPECT_EQ(Design.GridColor, 7U);
    Undo();
    EXPECT_NE(Design.GridColor, 7U);
    EXPECT_EQ(Design.CnfFileName, second) << "the change was made in that design";
    Redo();
    Redo();
    EXPECT_EQ(Design.CnfFileName, first);
    EXPECT_TRUE(machine.boxes.Taken().empty());
}

} // namespace
} // namespace quelmont
