#include "commandline/headless_machine.h"
#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

#include <ctime>
#include <filesystem>
#include <sstream>

namespace quelmont {
namespace {

class HeadlessForm : public Form {
public:
    HeadlessForm() : Form("HeadlessForm", "A form") {
        Add({.name = "Cancel", .kind = ControlKind::Button, .text = "Cancel"});
        SetCancelButton("Cancel");
        On("Cancel", ControlEvent::Click, [this] { Close(); });
    }
};

class Headless : public FreshProgramTest {
protected:
    std::ostringstream errors;
    HeadlessMachine headless{{40, 30}, {80, 60}, errors};
};

TEST_F(Headless, BoxesAreWrittenAndAnsweredWithoutConsent) {
    Boxes& boxes = *Machine().boxes;
    EXPECT_EQ(boxes.Ask("A title", "A text\nof two lines", BoxButtons::RetryCancel, BoxIcon::Exclamation),
              BoxAnswer::Cancel);
    EXPECT_EQ(boxes.Ask("B", "b", BoxButtons::YesNo, BoxIcon::Information), BoxAnswer::No);
    EXPECT_EQ(boxes.Ask("C", "c", BoxButtons::Ok, BoxIcon::Information), BoxAnswer::Ok);
    EXPECT_EQ(errors.str(), "A title\nA text\nof two lines\nB\nb\nC\nc\n");
    EXPECT_EQ(headless.boxes.Count(), 3);
}

TEST_F(Headless, FormsAreCancelled) {
    HeadlessForm form;
    Machine().forms->Show(form);
    EXPECT_TRUE(form.Closed());
}

TEST_F(Headless, FileDialogsAreCancelled) {
    const FileDialogAnswer answer = Machine().fileDialogs->Open({.title = "A title"});
    EXPECT_EQ(answer.error, FileDialogCancelled);
    EXPECT_TRUE(answer.names.empty());
}

TEST_F(Headless, WindowIsItsPicture) {
    EXPECT_EQ(Machine().window->ScaleWidth(), 600.0);
    EXPECT_EQ(Machine().window->ScaleHeight(), 450.0);
    EXPECT_EQ(headless.window.Picture().Width(), 40);
    Design.BackColor = SolidColor(Rgb(255, 0, 0));
    Machine().window->Cls();
    EXPECT_EQ(headless.window.Picture().Image().pixel(39, 29), 0xFFFF0000);
    EXPECT_FALSE(Machine().window->MenuChecked(Menu::mnuProj, 1));
    Machine().window->SetMenuChecked(Menu::mnuProj, 1, true);
    EXPECT_TRUE(Machine().window->MenuChecked(Menu::mnuProj, 1));
}

TEST_F(Headless, ScreenHasTheSizeOfAMaximisedWindow) {
    EXPECT_EQ(Machine().screen->FullScreenX(), 80);
    EXPECT_EQ(Machine().screen->FullScreenY(), 60);
    EXPECT_EQ(Machine().screen->TwipsPerPixelX(), 15.0F);
    EXPECT_FALSE(Machine().printers->Any());
}

TEST_F(Headless, ProgramLiesInTheFolderOfItsExecutable) {
    const std::string folder = Machine().places->ProgramFolder();
    EXPECT_EQ(folder.back(), '/');
    EXPECT_TRUE(std::filesystem::exists(folder + "commandline_test"));
    EXPECT_EQ(Machine().places->Version(), "3.00");
}

TEST_F(Headless, ClockTellsTheTimeOfDay) {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    const double seconds = local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec;
    const double told = Machine().clock->SecondsSinceMidnight();
    // Unless midnight falls between the two readings.
    if (told >= seconds) {
        EXPECT_LT(told - seconds, 5.0);
    }
    EXPECT_LT(told, 86401.0);
}

TEST(HeadlessMachine, PutsTheMachineBeforeItBack) {
    Boxes* const before = Machine().boxes;
    {
        std::ostringstream errors;
        const HeadlessMachine headless({4, 4}, {4, 4}, errors);
        EXPECT_EQ(Machine().boxes, &headless.boxes);
    }
    EXPECT_EQ(Machine().boxes, before);
}

} // namespace
} // namespace quelmont
