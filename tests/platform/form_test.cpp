#include "platform/form.h"

#include "platform/help_pages.h"

#include "support/scripted_machine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// A form with a heading, two fields to turn and two buttons, which writes down every handler that
/// runs. A test may hang something more on a handler.
class Recorder : public Form {
public:
    Recorder() : Form("Recorder", "Recorder of handlers") {
        Add({.name = "Heading", .kind = ControlKind::Label, .text = "Percent"});
        Add({.name = "First", .kind = ControlKind::Spin, .value = 50, .minimum = 10, .maximum = 100});
        Add({.name = "Second", .kind = ControlKind::Spin, .value = 1, .minimum = 1, .maximum = 9});
        Add({.name = "OK", .kind = ControlKind::Button, .text = "OK"});
        Add({.name = "Cancel", .kind = ControlKind::Button, .text = "Cancel"});
        for (const char* const name : {"First", "Second", "OK", "Cancel"}) {
            Note(name, ControlEvent::GotFocus, "GotFocus");
            Note(name, ControlEvent::LostFocus, "LostFocus");
            Note(name, ControlEvent::Click, "Click");
            Note(name, ControlEvent::Change, "Change");
        }
        SetDefaultButton("OK");
        SetCancelButton("Cancel");
        SetHelpPage(42);
    }

    void Also(const std::string& handler, std::function<void()> action) { also[handler] = std::move(action); }
    void Disable(std::string_view name) { Edit(name).enabled = false; }
    using Form::Close;
    using Form::SetFocus;

    std::vector<std::string> ran;

private:
    void Note(const char* name, ControlEvent event, const char* eventName) {
        const std::string handler = std::string(name) + "_" + eventName;
        On(name, event, [this, handler] {
            ran.push_back(handler);
            if (also.contains(handler)) {
                also[handler]();
            }
        });
    }

    std::map<std::string, std::function<void()>> also;
};

TEST(FormFocus, BeginsAtTheFirstControlThatCanHaveIt) {
    const Recorder form;
    EXPECT_EQ(form.Focus(), "First");
}

TEST(FormFocus, MovesWithBothHandlers) {
    Recorder form;
    form.MoveFocus("Second");
    EXPECT_EQ(form.Focus(), "Second");
    EXPECT_THAT(form.ran, ElementsAre("First_LostFocus", "Second_GotFocus"));
}

TEST(FormFocus, MoveToWhereItIsDoesNothing) {
    Recorder form;
    form.MoveFocus("First");
    EXPECT_THAT(form.ran, IsEmpty());
}

TEST(FormFocus, HandlerMayCallItBack) {
    Recorder form;
    form.Also("First_LostFocus", [&] { form.SetFocus("First"); });
    form.MoveFocus("Second");
    EXPECT_EQ(form.Focus(), "First");
    EXPECT_THAT(form.ran, ElementsAre("First_LostFocus", "First_GotFocus"));
}

TEST(FormFocus, ControlThatGetsItMayPassItOn) {
    Recorder form;
    form.Also("OK_GotFocus", [&] { form.SetFocus("Second"); });
    form.MoveFocus("OK");
    EXPECT_EQ(form.Focus(), "Second");
}

TEST(FormFocus, DisabledControlDoesNotGetIt) {
    Recorder form;
    form.Disable("Second");
    form.MoveFocus("Second");
    EXPECT_EQ(form.Focus(), "First");
    EXPECT_THAT(form.ran, IsEmpty());
}

TEST(FormFocus, FormClosedByTheFieldLeftGivesItToNobody) {
    Recorder form;
    form.Also("First_LostFocus", [&] { form.Close(); });
    form.MoveFocus("Second");
    EXPECT_THAT(form.ran, ElementsAre("First_LostFocus"));
}

TEST(FormButtons, PressMovesTheFocusThenClicks) {
    Recorder form;
    form.Press("OK");
    EXPECT_THAT(form.ran, ElementsAre("First_LostFocus", "OK_GotFocus", "OK_Click"));
}

TEST(FormButtons, FieldThatKeepsTheFocusSwallowsTheClick) {
    Recorder form;
    form.Also("First_LostFocus", [&] { form.SetFocus("First"); });
    form.Press("OK");
    EXPECT_THAT(form.ran, ElementsAre("First_LostFocus", "First_GotFocus"));
    EXPECT_EQ(form.Focus(), "First");
}

TEST(FormButtons, ButtonWithTheFocusIsClickedWithoutMoving) {
    Recorder form;
    form.MoveFocus("OK");
    form.ran.clear();
    form.Press("OK");
    EXPECT_THAT(form.ran, ElementsAre("OK_Click"));
}

TEST(FormButtons, ButtonThatClosesTheFormAsItGetsTheFocusIsNotClicked) {
    Recorder form;
    form.Also("OK_GotFocus", [&] { form.Close(); });
    form.Press("OK");
    EXPECT_THAT(form.ran, ElementsAre("First_LostFocus", "OK_GotFocus"));
}

TEST(FormButtons, ClickMaySendTheFocusElsewhere) {
    Recorder form;
    form.Also("OK_Click", [&] { form.SetFocus("Second"); });
    form.Press("OK");
    EXPECT_EQ(form.Focus(), "Second");
}

TEST(FormButtons, DisabledButtonIsNotPressed) {
    Recorder form;
    form.Disable("OK");
    form.Press("OK");
    EXPECT_THAT(form.ran, IsEmpty());
}

TEST(FormButtons, ReturnPressesTheDefaultButton) {
    Recorder form;
    form.PressDefault();
    EXPECT_THAT(form.ran, ElementsAre("First_LostFocus", "OK_GotFocus", "OK_Click"));
}

TEST(FormCancel, ChecksNoField) {
    Recorder form;
    form.Also("Cancel_Click", [&] { form.Close(); });
    form.PressCancel();
    EXPECT_THAT(form.ran, ElementsAre("Cancel_Click"));
    EXPECT_TRUE(form.Closed());
}

TEST(FormCancel, PressedButtonChecksNoFieldEither) {
    Recorder form;
    form.Press("Cancel");
    EXPECT_THAT(form.ran, ElementsAre("Cancel_Click"));
    EXPECT_EQ(form.Focus(), "First");
}

TEST(FormCancel, ClosedFormHearsNothingMore) {
    Recorder form;
    form.Close();
    form.PressCancel();
    form.Press("OK");
    form.MoveFocus("Second");
    form.Spin("First", 60);
    EXPECT_THAT(form.ran, IsEmpty());
    EXPECT_EQ(form.At("First").value, 50);
}

TEST(FormSpin, StaysWithinItsRange) {
    Recorder form;
    form.Spin("First", 60);
    EXPECT_EQ(form.At("First").value, 60);
    form.Spin("First", 101);
    EXPECT_EQ(form.At("First").value, 100);
    form.Spin("First", -5);
    EXPECT_EQ(form.At("First").value, 10);
    EXPECT_THAT(form.ran, ElementsAre("First_Change", "First_Change", "First_Change"));
}

TEST(FormSpin, DisabledOneDoesNotTurn) {
    Recorder form;
    form.Disable("First");
    form.Spin("First", 60);
    EXPECT_EQ(form.At("First").value, 50);
}

TEST(FormHelp, OpensThePageOfTheDialog) {
    ScriptedMachine machine;
    const Recorder form;
    form.PressF1();
    EXPECT_THAT(machine.help.shown, ElementsAre(Pair(HelpContext, 42)));
}

/// As the dialog of the map's size, of which the help tells.
class SizeOfMap : public Form {
public:
    SizeOfMap() : Form("MapReduce", "Select Map Size") {
        Add({.name = "MapReduction", .kind = ControlKind::Spin, .minimum = 10, .maximum = 100});
        Add({.name = "DrawMap", .kind = ControlKind::Button});
    }
};

TEST(FormHelp, OpensThePageOfTheControlThatHasTheFocus) {
    ScriptedMachine machine;
    SizeOfMap form;
    form.PressF1();
    form.MoveFocus("DrawMap");
    form.PressF1();
    ASSERT_EQ(machine.help.shown.size(), 2U);
    EXPECT_EQ(PlaceOfHelp(machine.help.shown[0].second).section, "percent-full-screen");
    EXPECT_EQ(PlaceOfHelp(machine.help.shown[1].second).page, "draw-map");
    EXPECT_EQ(PlaceOfHelp(machine.help.shown[1].second).section, "");
}

TEST(FormControls, UnknownNameIsAMistake) {
    Recorder form;
    EXPECT_THROW(static_cast<void>(form.At("Nowhere")), std::out_of_range);
    EXPECT_THROW(form.Press("Nowhere"), std::out_of_range);
}

TEST(FormWatcher, HearsOfEveryHandlerAndOfTheClose) {
    Recorder form;
    int heard = 0;
    bool seenClosed = false;
    form.SetWatcher([&] {
        ++heard;
        seenClosed = form.Closed();
    });
    form.Spin("First", 60);
    EXPECT_EQ(heard, 1);
    form.Close();
    EXPECT_EQ(heard, 2);
    EXPECT_TRUE(seenClosed);
}

/// A form with one control of each kind that has more to it than a button.
class Kinds : public Form {
public:
    Kinds() : Form("Kinds", "Kinds of controls") {
        Add({.name = "Frame", .kind = ControlKind::Frame, .text = "Heading"});
        Add({.name = "Off", .kind = ControlKind::Edit, .enabled = false, .mask = "%%"});
        Add({.name = "Edit", .kind = ControlKind::Edit, .text = "7", .mask = "%,%%%"});
        Add({.name = "A", .kind = ControlKind::Option, .value = 1, .frame = "Frame"});
        Add({.name = "B", .kind = ControlKind::Option, .frame = "Frame"});
        Add({.name = "Other", .kind = ControlKind::Option, .value = 1, .frame = "Another"});
        Add({.name = "Check", .kind = ControlKind::Check, .value = 1});
        Add({.name = "List", .kind = ControlKind::List, .items = {"one", "two"}});
        Add({.name = "Cells", .kind = ControlKind::Palette, .value = -1, .colors = {0, 255}, .columns = 1});
        Add({.name = "Combo", .kind = ControlKind::Combo, .text = "typed", .value = -1, .items = {"x", "y"}});
        Add({.name = "Menu", .kind = ControlKind::Menu, .text = "Title", .value = -1, .items = {"p", "q"}});
        for (const char* const name : {"Edit", "A", "B", "Check", "List", "Cells", "Combo", "Menu"}) {
            for (const ControlEvent event :
                 {ControlEvent::Click, ControlEvent::Change, ControlEvent::MouseMove}) {
                On(name, event, [this, name] { ran.emplace_back(name); });
            }
        }
    }
    void Disable(std::string_view name) { Edit(name).enabled = false; }
    using Form::Close;
    using Form::SetText;

    std::vector<std::string> ran;
};

TEST(FormFocus, PassesOverHeadingsAndWhatIsDisabled) { EXPECT_EQ(Kinds().Focus(), "Edit"); }

TEST(FormFocus, BeginsAtTheOptionThatIsChosen) {
    class Options : public Form {
    public:
        Options() : Form("Options", "Options") {
            Add({.name = "A", .kind = ControlKind::Option, .frame = "F"});
            Add({.name = "B", .kind = ControlKind::Option, .value = 1, .frame = "F"});
        }
    };
    EXPECT_EQ(Options().Focus(), "B");
}

TEST(FormEdit, KeepsItsColumns) {
    Kinds form;
    EXPECT_EQ(form.At("Edit").text, "0,007");
    form.Type("Edit", "1234");
    EXPECT_EQ(form.At("Edit").text, "1,234");
    EXPECT_THAT(form.ran, ElementsAre("Edit"));
}

TEST(FormEdit, SameTextIsNoChange) {
    Kinds form;
    form.Type("Edit", "0,007");
    EXPECT_THAT(form.ran, IsEmpty());
}

TEST(FormEdit, TextOfTheProgramRunsNoHandler) {
    Kinds form;
    form.SetText("Edit", "55");
    EXPECT_EQ(form.At("Edit").text, "0,055");
    EXPECT_THAT(form.ran, IsEmpty());
}

TEST(FormEdit, DisabledOneTakesNoText) {
    Kinds form;
    form.Type("Off", "12");
    EXPECT_EQ(form.At("Off").text, "00");
}

TEST(FormOption, ChoosingOneReleasesTheOthersOfItsFrame) {
    Kinds form;
    form.Choose("B");
    EXPECT_EQ(form.At("A").value, 0);
    EXPECT_EQ(form.At("B").value, 1);
    EXPECT_EQ(form.At("Other").value, 1);
    EXPECT_THAT(form.ran, ElementsAre("B"));
}

TEST(FormCheck, IsTurnedOffAndOn) {
    Kinds form;
    EXPECT_EQ(form.At("Check").value, 1);
    form.Choose("Check", 0);
    EXPECT_EQ(form.At("Check").value, 0);
    EXPECT_EQ(form.At("A").value, 1) << "the options stay";
    form.Choose("Check");
    EXPECT_EQ(form.At("Check").value, 1);
    EXPECT_THAT(form.ran, ElementsAre("Check", "Check"));
}

TEST(FormCheck, DisabledOneStandsStill) {
    Kinds form;
    form.Disable("Check");
    form.Choose("Check", 0);
    EXPECT_EQ(form.At("Check").value, 1);
    EXPECT_THAT(form.ran, IsEmpty());
}

TEST(FormCheck, TakesTheFocusWhenItIsTheFirst) {
    class Checked : public Form {
    public:
        Checked() : Form("Checked", "Checked") {
            Add({.name = "Heading", .kind = ControlKind::Label});
            Add({.name = "Check", .kind = ControlKind::Check});
        }
    };
    EXPECT_EQ(Checked().Focus(), "Check");
}

TEST(FormCombo, KeepsATextAsItWasTyped) {
    Kinds form;
    form.Type("Combo", "anything, 12");
    EXPECT_EQ(form.At("Combo").text, "anything, 12");
    EXPECT_THAT(form.ran, ElementsAre("Combo"));
    form.Type("Combo", "anything, 12");
    EXPECT_THAT(form.ran, ElementsAre("Combo")) << "no other text";
}

TEST(FormCombo, TakesTheTextOfALineThatIsThereAndRemembersTheLine) {
    Kinds form;
    form.Choose("Combo", 1);
    EXPECT_EQ(form.At("Combo").text, "y");
    EXPECT_EQ(form.At("Combo").value, 1);
    form.Type("Combo", "yes");
    EXPECT_EQ(form.At("Combo").value, 1) << "it is the text of that line that was changed";
    form.Choose("Combo", 2);
    EXPECT_EQ(form.At("Combo").text, "yes");
    EXPECT_THAT(form.ran, ElementsAre("Combo", "Combo"));
}

TEST(FormCombo, DisabledOneStandsStill) {
    Kinds form;
    form.Disable("Combo");
    form.Type("Combo", "x");
    form.Choose("Combo", 0);
    EXPECT_EQ(form.At("Combo").text, "typed");
    EXPECT_THAT(form.ran, IsEmpty());
}

TEST(FormMenu, RunsTheItemThatIsThereAndLeavesTheFocus) {
    Kinds form;
    form.Choose("Menu", 1);
    EXPECT_EQ(form.At("Menu").value, 1);
    EXPECT_EQ(form.At("Menu").text, "Title");
    form.Choose("Menu", 2);
    EXPECT_EQ(form.At("Menu").value, 1);
    EXPECT_EQ(form.Focus(), "Edit");
    EXPECT_THAT(form.ran, ElementsAre("Menu"));
}

TEST(FormFocus, PassesOverMenusAndSamples) {
    class Sampled : public Form {
    public:
        Sampled() : Form("Sampled", "Sampled") {
            Add({.name = "Menu", .kind = ControlKind::Menu, .items = {"p"}});
            Add({.name = "Sample", .kind = ControlKind::Sample, .text = "x"});
            Add({.name = "Combo", .kind = ControlKind::Combo});
        }
    };
    EXPECT_EQ(Sampled().Focus(), "Combo");
}

TEST(FormList, TakesALineThatIsThere) {
    Kinds form;
    form.Choose("List", 1);
    EXPECT_EQ(form.At("List").value, 1);
    form.Choose("List", 2);
    form.Choose("List", -1);
    EXPECT_EQ(form.At("List").value, 1);
    EXPECT_THAT(form.ran, ElementsAre("List"));
}

TEST(FormPalette, FollowsTheMouseAndTakesTheCellThatIsChosen) {
    Kinds form;
    form.Hover("Cells", 1);
    form.Hover("Cells", 1);
    EXPECT_EQ(form.At("Cells").value, 1);
    form.Hover("Cells", 2);
    EXPECT_EQ(form.At("Cells").value, 1) << "no such cell";
    form.Hover("Cells", -1);
    EXPECT_EQ(form.At("Cells").value, -1);
    form.Choose("Cells", 0);
    EXPECT_EQ(form.At("Cells").value, 0);
    EXPECT_THAT(form.ran, ElementsAre("Cells", "Cells", "Cells")) << "in, out, chosen";
}

/// A list that files can be dropped on and a grid, which write down what happened to them.
class Tables : public Form {
public:
    Tables() : Form("Tables", "A list and a grid") {
        Add({.name = "List", .kind = ControlKind::List, .items = {"one", "two", ""}});
        Add({.name = "Plain", .kind = ControlKind::List, .items = {"one"}});
        Add({.name = "Grid", .kind = ControlKind::Grid, .columns = 2, .cells = {{"a"}, {"b"}, {"c"}, {"d"}}});
        Add({.name = "OK", .kind = ControlKind::Button, .text = "OK"});
        SetDefaultButton("OK");
        Note("List", ControlEvent::DoubleClick, "DoubleClick");
        Note("List", ControlEvent::Drop, "Drop");
        Note("List", ControlEvent::Drag, "Drag");
        Note("List", ControlEvent::Delete, "Delete");
        Note("Grid", ControlEvent::Click, "Click");
        Note("Grid", ControlEvent::Change, "Change");
        Note("OK", ControlEvent::Click, "Click");
    }
    void Disable(std::string_view name) { Edit(name).enabled = false; }
    using Form::Close;

    std::vector<std::string> ran; ///< control, event, value

private:
    void Note(const char* name, ControlEvent event, const char* eventName) {
        On(name, event, [this, name, eventName] {
            ran.push_back(std::string(name) + " " + eventName + " " + std::to_string(At(name).value));
        });
    }
};

TEST(FormGrid, CellThatIsPressedIsTheCurrentOne) {
    Tables form;
    form.Choose("Grid", 3);
    EXPECT_EQ(form.At("Grid").value, 3);
    form.Choose("Grid", 3);
    form.Choose("Grid", 4);
    form.Choose("Grid", -1);
    EXPECT_THAT(form.ran, ElementsAre("Grid Click 3", "Grid Click 3")) << "each press counts, on a cell";
}

TEST(FormGrid, MovingTellsOnlyOfAnotherCell) {
    Tables form;
    form.MoveTo("Grid", 2);
    form.MoveTo("Grid", 2);
    form.MoveTo("Grid", 4);
    form.MoveTo("Grid", -1);
    EXPECT_EQ(form.At("Grid").value, 2);
    EXPECT_THAT(form.ran, ElementsAre("Grid Change 2"));
}

TEST(FormList, DoubleClickHasItsHandlerOrPressesTheDefaultButton) {
    Tables form;
    form.DoubleClick("List");
    EXPECT_THAT(form.ran, ElementsAre("List DoubleClick 0"));
    form.ran.clear();
    form.DoubleClick("Plain");
    EXPECT_THAT(form.ran, ElementsAre("OK Click 0"));
}

TEST(FormList, FilesAreDroppedOnALine) {
    Tables form;
    form.Drop("List", 1, {"/x", "/y"});
    EXPECT_THAT(form.At("List").dropped, ElementsAre("/x", "/y"));
    form.Drop("List", -1, {"/z"});
    EXPECT_THAT(form.At("List").dropped, ElementsAre("/z"));
    form.Drop("List", 0, {});
    EXPECT_THAT(form.ran, ElementsAre("List Drop 1", "List Drop 2")) << "below the lines is the last one";
}

TEST(FormList, LinesAreDraggedToBeforeAnother) {
    Tables form;
    form.Drag("List", 0, 2);
    EXPECT_EQ(form.At("List").dragged, 0);
    form.Drag("List", 3, 0);
    form.Drag("List", -1, 0);
    form.Drag("List", 0, 3);
    EXPECT_EQ(form.At("List").dragged, 0);
    EXPECT_THAT(form.ran, ElementsAre("List Drag 2")) << "there are three lines";
}

TEST(FormList, DeleteKeyRunsItsHandler) {
    Tables form;
    form.Choose("List", 1);
    form.PressDelete("List");
    form.PressDelete("Plain");
    EXPECT_THAT(form.ran, ElementsAre("List Delete 1"));
}

TEST(FormKinds, ClosedOrDisabledTablesStandStill) {
    Tables form;
    form.Disable("List");
    form.Disable("Grid");
    form.DoubleClick("List");
    form.Drop("List", 1, {"/x"});
    form.Drag("List", 0, 1);
    form.PressDelete("List");
    form.MoveTo("Grid", 1);
    form.Choose("Grid", 1);
    EXPECT_THAT(form.ran, IsEmpty());
    Tables closed;
    closed.Close();
    closed.DoubleClick("List");
    closed.Drop("List", 1, {"/x"});
    closed.Drag("List", 0, 1);
    closed.PressDelete("List");
    closed.MoveTo("Grid", 1);
    EXPECT_THAT(closed.ran, IsEmpty());
}

TEST(FormKinds, ClosedOrDisabledControlsStandStill) {
    Kinds form;
    form.Disable("List");
    form.Choose("List", 1);
    form.Close();
    form.Choose("B");
    form.Hover("Cells", 1);
    form.Type("Edit", "1234");
    EXPECT_THAT(form.ran, IsEmpty());
    EXPECT_EQ(form.At("B").value, 0);
}

} // namespace
} // namespace quelmont
