#include "mainwindow/design_commands.h"

#include "designfile/cnf_save.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/settings.h"
#include "mainwindow/started_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The started program, its files and its settings in a folder of the system.
class DesignCommands : public StartedProgram {
protected:
    DesignCommands() {
        SetFileDeviceMaker(nullptr);
        machine.places.programFolder = folder / "";
        window.scaleWidth = 12000.0;
        window.scaleHeight = 9000.0;
    }

    void Save(const std::string& title) {
        machine.fileDialogs.Choose({folder / title});
        ClickMenuItem(Menu::mnuInput, SaveDesignItem);
    }
    void Recall(const std::string& title) {
        machine.fileDialogs.Choose({folder / title});
        ClickMenuItem(Menu::mnuInput, RecallDesignItem);
    }

    TemporaryFolder folder;
};

const AskedBox ExtensionBox = {"File Extension Error", "File extension must be CNF"};

AskedBox QuestionAbout(const std::string& title, BoxAnswer answer) {
    return {"Save Map Design", "The map design " + title + " has changed.\n\nSave the changes?",
            BoxButtons::SaveDiscardCancel, BoxIcon::Exclamation, answer};
}

TEST_F(DesignCommands, SavingAsksForANameAndPutsTheExtensionBehindIt) {
    Design.CnfFileName = "/maps/old.cnf";
    Save("europe");
    ASSERT_THAT(machine.fileDialogs.asked, SizeIs(1));
    const FileDialogRequest& request = machine.fileDialogs.asked[0];
    EXPECT_EQ(request.title, "Save Map Design");
    EXPECT_EQ(request.filter, "Configuration (*.cnf)|*.cnf");
    EXPECT_EQ(request.extension, "cnf");
    EXPECT_EQ(request.folder, "/maps");
    EXPECT_EQ(request.name, "old.cnf");
    EXPECT_EQ(Design.CnfFileName, folder / "europe.cnf");
    EXPECT_TRUE(
        ReadWholeFile(folder / "europe.cnf").starts_with("Quelmont configuration file version 3.00\r\n"));
    EXPECT_TRUE(window.MenuChecked(Menu::mnuInput, SaveDesignItem));
    EXPECT_EQ(machine.clock.beeps, 0) << "nothing is drawn";
}

TEST_F(DesignCommands, RecallingPutsTheTickWhereItBelongs) {
    for (const std::int16_t projNum : {ProjMercator, ProjMollweide, ProjInterruptedMollweide, ProjUtm}) {
        AcceptProjection(projNum);
        Save("map.cnf");
        AcceptProjection(ProjRobinson);
        MainWindowNow.DesignHasFile = false;
        Recall("map.cnf");
        EXPECT_EQ(Design.ProjNum, projNum);
        EXPECT_TRUE(Design.ProjGridSet[static_cast<std::size_t>(projNum)]);
        EXPECT_EQ(window.MenuChecked(Menu::mnuProj, 0), projNum == ProjMercator);
        EXPECT_FALSE(window.MenuChecked(Menu::mnuProj, 1));
        EXPECT_EQ(window.MenuChecked(Menu::mnuProj, 19), projNum == ProjUtm);
        EXPECT_EQ(window.MenuChecked(Menu::mnuProjMollweide, 0), projNum == ProjMollweide);
        EXPECT_EQ(window.MenuChecked(Menu::mnuProjMollweide, 1), projNum == ProjInterruptedMollweide);
        EXPECT_TRUE(window.MenuChecked(Menu::mnuInput, RecallDesignItem));
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(DesignCommands, NameWithAnotherEndingIsRefusedAndTheDialogComesAgain) {
    Save("map.cnf");
    machine.fileDialogs.Choose({folder / "map.txt"});
    machine.fileDialogs.Choose({folder / "mapcnf"});
    Recall("MAP.CNF"); // the third answer; no such file
    EXPECT_EQ(machine.fileDialogs.asked.size(), 4U);
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(ExtensionBox, ExtensionBox,
                                                   AskedBox{"Error in CnfRead", "Error: File not found"}));
    EXPECT_EQ(Design.CnfFileName, folder / "map.cnf") << "the design's file is still that one";
}

TEST_F(DesignCommands, CancelledDialogDoesNothingAndAFailedOneIsReported) {
    ClickMenuItem(Menu::mnuInput, RecallDesignItem);
    ClickMenuItem(Menu::mnuInput, SaveDesignItem);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    machine.fileDialogs.Fail(4);
    ClickMenuItem(Menu::mnuInput, RecallDesignItem);
    machine.fileDialogs.Fail(5);
    ClickMenuItem(Menu::mnuInput, SaveDesignItem);
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"File Common Dialog Error", "Error 4 in Recall Map Design"},
                            AskedBox{"File Common Dialog Error", "Error 5 in Save Map Design"}));
    EXPECT_EQ(Design.CnfFileName, "");
}

TEST_F(DesignCommands, MapThatNeverHadAFileIsLeftWithoutAQuestion) {
    Design.BackColor = 0;
    EXPECT_TRUE(MayLeaveDesign());
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(DesignCommands, UnchangedDesignIsLeftWithoutAQuestion) {
    Save("map.cnf");
    EXPECT_TRUE(MayLeaveDesign());
    window.scaleWidth = 9000.0;
    window.zoomed = true;
    Design.ScreenScaleX = 17.0;
    EXPECT_TRUE(MayLeaveDesign()) << "a window of another size is no change";
    Recall("map.cnf");
    EXPECT_TRUE(MayLeaveDesign());
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(DesignCommands, ChangedDesignAsksBeforeItIsLeft) {
    Save("map.cnf");
    const std::string saved = ReadWholeFile(folder / "map.cnf");
    Design.BackColor = SolidColor(Rgb(1, 2, 3));
    EXPECT_FALSE(MayLeaveDesign()) << "closed without a button";
    machine.boxes.Answer(BoxAnswer::Discard);
    EXPECT_TRUE(MayLeaveDesign());
    EXPECT_EQ(ReadWholeFile(folder / "map.cnf"), saved);
    machine.boxes.Answer(BoxAnswer::Save);
    EXPECT_TRUE(MayLeaveDesign());
    EXPECT_NE(ReadWholeFile(folder / "map.cnf"), saved);
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(QuestionAbout("map.cnf", BoxAnswer::Cancel),
                                                   QuestionAbout("map.cnf", BoxAnswer::Discard),
                                                   QuestionAbout("map.cnf", BoxAnswer::Save)));
    EXPECT_TRUE(MayLeaveDesign()) << "it is saved now";
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(DesignCommands, DesignThatCannotBeSavedIsNotLeft) {
    Save("map.cnf");
    Design.CnfFileName = folder / "missing/map.cnf";
    machine.boxes.Answer(BoxAnswer::Save);
    EXPECT_FALSE(MayLeaveDesign());
    ASSERT_THAT(machine.boxes.asked, SizeIs(2));
    EXPECT_EQ(machine.boxes.asked[1].title, "Error in CnfSave");
}

TEST_F(DesignCommands, RecallingAnotherDesignAsksFirst) {
    Save("one.cnf");
    Save("two.cnf");
    Design.BackColor = SolidColor(Rgb(1, 2, 3));
    Recall("one.cnf");
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(1, 2, 3))) << "cancelled";
    machine.boxes.Answer(BoxAnswer::Discard);
    Recall("one.cnf");
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(255, 255, 255)));
    EXPECT_EQ(Design.CnfFileName, folder / "one.cnf");
}

TEST_F(DesignCommands, LastEightDesignsAreListedTheLastOneFirst) {
    ShowRecentDesigns();
    EXPECT_FALSE(window.MenuEnabled(Menu::mnuInput, RecentDesignsItem));
    for (int i = 1; i <= 10; ++i) {
        Save("map" + std::to_string(i) + ".cnf");
    }
    Save("map5.cnf");
    const std::vector<std::string> titles = {"map5.cnf", "map10.cnf", "map9.cnf", "map8.cnf",
                                             "map7.cnf", "map6.cnf",  "map4.cnf", "map3.cnf"};
    std::vector<std::string> names;
    for (const std::string& title : titles) {
        names.push_back(folder / title);
    }
    EXPECT_EQ(RecentDesigns(), names);
    EXPECT_TRUE(window.MenuEnabled(Menu::mnuInput, RecentDesignsItem));
    EXPECT_TRUE((window.menuTexts[{Menu::mnuRecent, 0}].starts_with("&1 ")));
    EXPECT_TRUE((window.menuTexts[{Menu::mnuRecent, 7}].ends_with("map3.cnf")));
    ClickMenuItem(Menu::mnuRecent, 1);
    EXPECT_EQ(Design.CnfFileName, folder / "map10.cnf");
    EXPECT_EQ(RecentDesigns().front(), folder / "map10.cnf");
}

TEST_F(DesignCommands, RecentDesignsShowTheirAmpersands) {
    Save("you & me.cnf");
    EXPECT_TRUE((window.menuTexts[{Menu::mnuRecent, 0}].ends_with("you && me.cnf")));
}

TEST_F(DesignCommands, RecentDesignThatIsGoneIsReported) {
    Save("map.cnf");
    std::filesystem::remove(folder / "map.cnf");
    ClickMenuItem(Menu::mnuRecent, 0);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in CnfRead", "Error: File not found"}));
}

TEST_F(DesignCommands, FileOfAnotherEndingIsNoDesignToOpen) {
    EXPECT_FALSE(OpenDesign(folder / "map.map"));
    EXPECT_THAT(machine.boxes.asked, ElementsAre(ExtensionBox));
}

TEST_F(DesignCommands, PictureOfTheDesignBeforeIsCleared) {
    Save("map.cnf");
    Recall("map.cnf");
    EXPECT_EQ(window.clears, 0) << "there is none";
    window.pixels = {1, 1, {0}};
    Recall("map.cnf");
    EXPECT_EQ(window.clears, 1);
}

TEST_F(DesignCommands, AcceptedChangeIsReportedUnderTheNameOfItsItem) {
    machine.changes.accepted.clear();
    machine.forms.Script("LineWidthScale", [](Form& form) { form.PressCancel(); });
    ClickMenuItem(Menu::mnuDesign, LineWidthItem);
    EXPECT_THAT(machine.changes.accepted, IsEmpty());
    machine.forms.Script("Colors256", [](Form& form) {
        form.Choose("ColorSquare", 3);
        if (!form.Closed()) {
            form.PressDefault();
        }
    });
    ClickMenuItem(Menu::mnuDesign, BackgroundItem);
    EXPECT_THAT(machine.changes.accepted,
                ElementsAre(std::pair(std::string("Background Color"), ChangeKind::Look)));
    Save("map.cnf");
    Recall("map.cnf");
    ClickMenuItem(Menu::mnuBar, FileTitle);
    EXPECT_THAT(machine.changes.accepted, SizeIs(1)) << "saved and recalled designs are no changes";
}

} // namespace
} // namespace quelmont
