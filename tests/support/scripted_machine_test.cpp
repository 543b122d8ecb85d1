#include "support/scripted_machine.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <optional>

namespace quelmont {
namespace {

using testing::ElementsAre;

/// A form with one button each to accept and to give up, and one that shows another form.
class Question : public Form {
public:
    explicit Question(std::string name) : Form(std::move(name), "A question") {
        Add({.name = "OK", .kind = ControlKind::Button, .text = "OK"});
        Add({.name = "Cancel", .kind = ControlKind::Button, .text = "Cancel"});
        Add({.name = "More", .kind = ControlKind::Button, .text = "More"});
        On("OK", ControlEvent::Click, [this] { Close(); });
        On("Cancel", ControlEvent::Click, [this] {
            cancelled = true;
            Close();
        });
        On("More", ControlEvent::Click, [] {
            Question inner("Inner");
            Machine().forms->Show(inner);
        });
        SetCancelButton("Cancel");
    }
    bool cancelled = false;
};

TEST(ScriptedMachine, StandsInMachineAsLongAsItLives) {
    Boxes* const before = Machine().boxes;
    {
        const ScriptedMachine machine;
        EXPECT_EQ(Machine().boxes, &machine.boxes);
        EXPECT_EQ(Machine().help, &machine.help);
    }
    EXPECT_EQ(Machine().boxes, before);
}

TEST(ScriptedBoxes, AnswersAsScriptedThenAsIfClosed) {
    ScriptedBoxes boxes;
    boxes.Answer(BoxAnswer::Retry);
    EXPECT_EQ(boxes.Ask("T", "x", BoxButtons::RetryCancel, BoxIcon::Exclamation), BoxAnswer::Retry);
    EXPECT_EQ(boxes.Ask("T", "x", BoxButtons::RetryCancel, BoxIcon::Exclamation), BoxAnswer::Cancel);
    EXPECT_EQ(boxes.Ask("U", "y", BoxButtons::Ok, BoxIcon::Information), BoxAnswer::Ok);
    EXPECT_EQ(boxes.Ask("V", "z", BoxButtons::YesNo, BoxIcon::Exclamation), BoxAnswer::No);
    EXPECT_THAT(
        boxes.Taken(),
        ElementsAre(AskedBox{"T", "x", BoxButtons::RetryCancel, BoxIcon::Exclamation, BoxAnswer::Retry},
                    AskedBox{"T", "x", BoxButtons::RetryCancel, BoxIcon::Exclamation, BoxAnswer::Cancel},
                    AskedBox{"U", "y", BoxButtons::Ok, BoxIcon::Information, BoxAnswer::Ok},
                    AskedBox{"V", "z", BoxButtons::YesNo, BoxIcon::Exclamation, BoxAnswer::No}));
    EXPECT_TRUE(boxes.asked.empty());
}

TEST(ScriptedBoxes, AnswerThatTheBoxDoesNotOfferFailsTheTest) {
    ScriptedBoxes boxes;
    boxes.Answer(BoxAnswer::Retry);
    EXPECT_NONFATAL_FAILURE(boxes.Ask("T", "x", BoxButtons::Ok, BoxIcon::Exclamation), "has no button Retry");
}

TEST(ScriptedBoxes, AnswerLeftOverFailsTheTest) {
    std::optional<ScriptedBoxes> boxes(std::in_place);
    boxes->Answer(BoxAnswer::Ok);
    EXPECT_NONFATAL_FAILURE(boxes.reset(), "boxes that never came");
}

TEST(ScriptedForms, FormWithoutAScriptFailsTheTestAndIsCancelled) {
    ScriptedForms forms;
    Question question("Question");
    EXPECT_NONFATAL_FAILURE(forms.Show(question), "Question was shown without a script");
    EXPECT_TRUE(question.cancelled);
}

TEST(ScriptedForms, ScriptsOfOneClassFollowEachOther) {
    ScriptedForms forms;
    forms.Script("Question", [](Form& form) { form.Press("OK"); });
    forms.Script("Question", [](Form& form) { form.PressCancel(); });
    Question first("Question");
    forms.Show(first);
    Question second("Question");
    forms.Show(second);
    EXPECT_FALSE(first.cancelled);
    EXPECT_TRUE(second.cancelled);
}

TEST(ScriptedForms, ChainsNest) {
    ScriptedMachine machine;
    machine.forms.Script("Outer", [](Form& form) {
        form.Press("More");
        form.Press("OK");
    });
    machine.forms.Script("Inner", [](Form& form) { form.Press("OK"); });
    Question outer("Outer");
    Machine().forms->Show(outer);
    EXPECT_THAT(machine.forms.shown, ElementsAre("Outer", "Inner"));
    EXPECT_TRUE(outer.Closed());
}

TEST(ScriptedForms, ScriptThatLeavesTheFormOpenFailsTheTest) {
    ScriptedForms forms;
    forms.Script("Question", [](Form&) {});
    Question question("Question");
    EXPECT_NONFATAL_FAILURE(forms.Show(question), "left Question open");
}

TEST(ScriptedForms, ScriptLeftOverFailsTheTest) {
    std::optional<ScriptedForms> forms(std::in_place);
    forms->Script("Question", [](Form&) {});
    EXPECT_NONFATAL_FAILURE(forms.reset(), "Question were never used");
}

TEST(ScriptedFileDialogs, AnswersAsScriptedThenAsIfCancelled) {
    ScriptedFileDialogs dialogs;
    dialogs.Choose({"/a.map", "/b.map"});
    dialogs.Fail(12);
    EXPECT_THAT(dialogs.Open({.title = "One"}).names, ElementsAre("/a.map", "/b.map"));
    EXPECT_EQ(dialogs.Open({.title = "Two"}).error, 12);
    EXPECT_EQ(dialogs.Open({.title = "Three"}).error, FileDialogCancelled);
    ASSERT_EQ(dialogs.asked.size(), 3U);
    EXPECT_EQ(dialogs.asked[2].title, "Three");
}

TEST(ScriptedFileDialogs, AnswerLeftOverFailsTheTest) {
    std::optional<ScriptedFileDialogs> dialogs(std::in_place);
    dialogs->Choose({"/a.map"});
    EXPECT_NONFATAL_FAILURE(dialogs.reset(), "1 answers were scripted for file dialogs");
}

TEST(ScriptedPump, RunsAnActionInsideTheNamedCall) {
    ScriptedPump pump;
    int seen = 0;
    pump.At(3, [&] { seen = pump.calls; });
    for (int i = 0; i < 5; ++i) {
        pump.DoEvents();
    }
    EXPECT_EQ(seen, 3);
    EXPECT_EQ(pump.calls, 5);
}

TEST(ScriptedWindow, MenuIsEnabledUntilItIsDisabled) {
    ScriptedWindow window;
    EXPECT_TRUE(window.MenuEnabled(Menu::mnuBar, 2));
    window.SetMenuEnabled(Menu::mnuBar, 2, false);
    EXPECT_FALSE(window.MenuEnabled(Menu::mnuBar, 2));
    EXPECT_TRUE(window.MenuEnabled(Menu::mnuBar, 1));
    window.SetMenuChecked(Menu::mnuProj, 4, true);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuProj, 4));
    EXPECT_FALSE(window.MenuChecked(Menu::mnuProjMollweide, 4));
}

TEST(ScriptedWindow, ClearingStandsAmongTheOperations) {
    ScriptedWindow window;
    window.Cls();
    window.Surface().MoveToEx(0, 0);
    window.Refresh();
    EXPECT_EQ(window.surface.Text(), "Cls()\nMoveToEx(0, 0)\nRefresh()\n");
}

TEST(ScriptedClock, EachReadingIsLater) {
    ScriptedClock clock;
    clock.seconds = 86399.0;
    clock.secondsPerReading = 0.5;
    EXPECT_EQ(clock.SecondsSinceMidnight(), 86399.0);
    EXPECT_EQ(clock.SecondsSinceMidnight(), 86399.5);
}

} // namespace
} // namespace quelmont
