#include "mainwindow/kept_design.h"

#include "designfile/cnf_save.h"
#include "mainwindow/design_commands.h"
#include "mainwindow/kept_file.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/start_up.h"
#include "mainwindow/started_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include <sys/wait.h>
#include <unistd.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

class KeptDesigns : public StartedProgram {
protected:
    KeptDesigns() {
        SetFileDeviceMaker(nullptr);
        machine.places.programFolder = folder / "";
        window.scaleWidth = 12000.0;
        window.scaleHeight = 9000.0;
    }

    /// A process that keeps the design in force and then dies.
    static void LetAProcessDieWithTheDesign() {
        const pid_t child = fork();
        if (child == 0) {
            KeepDesign();
            kill(getpid(), SIGKILL);
        }
        int status = 0;
        waitpid(child, &status, 0);
    }

    std::vector<std::string> Answer(BoxAnswer answer) {
        machine.boxes.Answer(answer);
        OfferKeptDesigns();
        std::vector<std::string> titles;
        for (const AskedBox& box : machine.boxes.Taken()) {
            titles.push_back(box.title);
        }
        return titles;
    }

    TemporaryFolder folder;
};

TEST_F(KeptDesigns, DesignLiesBesideTheSettingsUntilItIsForgotten) {
    KeepDesign();
    EXPECT_THAT(folder.Names(), UnorderedElementsAre("Qmnt-kept-1.cnf", "Qmnt-kept-1.lock"));
    EXPECT_EQ(ReadWholeFile(folder / "Qmnt-kept-1.cnf"), DesignFileText());
    Design.BackColor = 0;
    KeepDesign();
    EXPECT_EQ(ReadWholeFile(folder / "Qmnt-kept-1.cnf"), DesignFileText());
    ForgetKeptDesign();
    EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(KeptDesigns, DesignOfALivingProcessIsNotOffered) {
    std::array<int, 2> toChild = {};
    std::array<int, 2> toParent = {};
    ASSERT_EQ(pipe(toChild.data()) + pipe(toParent.data()), 0);
    const pid_t child = fork();
    char byte = 0;
    if (child == 0) {
        KeepDesign();
        [[maybe_unused]] const auto told = write(toParent[1], &byte, 1);
        [[maybe_unused]] const auto waited = read(toChild[0], &byte, 1);
        _exit(0);
    }
    ASSERT_EQ(read(toParent[0], &byte, 1), 1);
    OfferKeptDesigns();
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    KeepDesign();
    EXPECT_TRUE(std::filesystem::exists(folder / "Qmnt-kept-2.cnf")) << "a file of its own";
    ASSERT_EQ(write(toChild[1], &byte, 1), 1);
    int status = 0;
    waitpid(child, &status, 0);
    OfferKeptDesigns();
    EXPECT_THAT(machine.boxes.Taken(), SizeIs(1)) << "now it is dead";
    for (const int end : {toChild[0], toChild[1], toParent[0], toParent[1]}) {
        close(end);
    }
}

TEST_F(KeptDesigns, DesignOfADeadProcessIsRecalled) {
    AcceptProjection(ProjRobinson);
    Design.BackColor = SolidColor(Rgb(1, 2, 3));
    LetAProcessDieWithTheDesign();
    Design = MapDesign{};
    StartUp();
    EXPECT_THAT(Answer(BoxAnswer::Recall), ElementsAre("Recall Map Design"));
    EXPECT_EQ(Design.ProjNum, ProjRobinson);
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(1, 2, 3)));
    EXPECT_TRUE(window.MenuChecked(Menu::mnuProj, 6));
    EXPECT_THAT(folder.Names(), SizeIs(2)) << "it is this process's now";
    OfferKeptDesigns();
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_TRUE(MayLeaveDesign()) << "it never had a file";
}

TEST_F(KeptDesigns, RecalledDesignKeepsItsNameAndCountsAsChanged) {
    Design.CnfFileName = folder / "map.cnf";
    LetAProcessDieWithTheDesign();
    Design = MapDesign{};
    StartUp();
    Answer(BoxAnswer::Recall);
    EXPECT_EQ(Design.CnfFileName, folder / "map.cnf");
    EXPECT_FALSE(MayLeaveDesign());
    EXPECT_THAT(machine.boxes.Taken(), SizeIs(1));
}

TEST_F(KeptDesigns, DiscardedDesignIsGone) {
    LetAProcessDieWithTheDesign();
    Answer(BoxAnswer::Discard);
    EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(KeptDesigns, BoxThatIsClosedLeavesTheDesignForTheNextStart) {
    LetAProcessDieWithTheDesign();
    for (int start = 0; start < 2; ++start) {
        OfferKeptDesigns();
        ASSERT_THAT(machine.boxes.asked, SizeIs(1));
        EXPECT_EQ(machine.boxes.Taken()[0].buttons, BoxButtons::RecallDiscard);
        KeepDesign();
        EXPECT_TRUE(std::filesystem::exists(folder / "Qmnt-kept-1.cnf")) << "is not written over";
        ForgetKeptDesign();
    }
}

TEST_F(KeptDesigns, SavedDesignNeedsNotBeKept) {
    KeepDesign();
    Design.CnfFileName = folder / "map.cnf";
    EXPECT_TRUE(SaveDesign());
    EXPECT_FALSE(std::filesystem::exists(folder / "Qmnt-kept-1.cnf"));
    EXPECT_FALSE(MainWindowNow.Kept.has_value());
}

TEST_F(KeptDesigns, WhereNothingCanBeWrittenNothingIsReported) {
    machine.places.programFolder = "/missing/";
    KeepDesign();
    OfferKeptDesigns();
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(KeptDesigns, ProjectionWithoutBoundsOfItsOwnCanBeRecalled) {
    // The dialog of a projection was cancelled: it is in force with the numbers of another.
    Design.ProjNum = ProjMercator;
    Design.ProjName = "Mercator";
    KeepDesign();
    EXPECT_EQ(Design.ProjNum, ProjMercator);
    EXPECT_EQ(Design.BoundsProjNum, ProjEquirectangular);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    const std::string kept = folder / "Qmnt-kept-1.cnf";
    EXPECT_TRUE(RecallKeptDesign(kept));
    EXPECT_EQ(Design.ProjNum, ProjEquirectangular) << "the poles cannot be drawn on the other";
    EXPECT_EQ(Design.LatNorth, 90.0);
}

} // namespace
} // namespace quelmont
