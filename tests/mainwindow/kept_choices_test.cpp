#include "mainwindow/kept_choices.h"

#include "core/map_design.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/profile_file.h"
#include "mainwindow/settings.h"
#include "mainwindow/start_up.h"
#include "mainwindow/started_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <random>
#include <set>

namespace quelmont {
namespace {

using testing::IsEmpty;

class Choices : public StartedProgram {
protected:
    Choices() {
        machine.places.programFolder = folder.Path() + "/";
        machine.places.settingsFolder.clear();
    }
    void Keep(std::string_view lines) const { WriteWholeFile(File(), "[Quelmont]\n" + std::string(lines)); }
    std::string File() const { return folder / "Qmnt.ini"; }
    std::optional<std::string> Kept(const char* key) const {
        return ReadProfileString(File(), "Quelmont", key);
    }
    void ClickStatusLine() { ClickMenuItem(Menu::mnuView, StatusLineItem); }
    bool HasStatusLine() const {
        EXPECT_EQ(window.statusLineShown, window.MenuChecked(Menu::mnuView, StatusLineItem));
        return window.statusLineShown;
    }

    TemporaryFolder folder;
};

TEST_F(Choices, StatusLineIsShownAtFirst) {
    window.statusLineShown = false;
    StartUp();
    EXPECT_TRUE(HasStatusLine());
}

TEST_F(Choices, ItemSwitchesTheStatusLine) {
    ClickStatusLine();
    EXPECT_FALSE(HasStatusLine());
    ClickStatusLine();
    EXPECT_TRUE(HasStatusLine());
}

TEST_F(Choices, LinesAreSmoothUntilThatIsSwitchedOff) {
    EXPECT_TRUE(Design.SmoothLines);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuView, SmoothLinesItem));
    ClickMenuItem(Menu::mnuView, SmoothLinesItem);
    EXPECT_FALSE(Design.SmoothLines);
    EXPECT_FALSE(window.MenuChecked(Menu::mnuView, SmoothLinesItem));
    EXPECT_EQ(Kept("SmoothLines"), "0");
    EXPECT_EQ(window.surface.Count(SurfaceOp::Cls), 0) << "there is no map to be drawn again";
    StartUp();
    EXPECT_TRUE(Design.SmoothLines);
    ReadSettings();
    EXPECT_FALSE(Design.SmoothLines);
    ClickMenuItem(Menu::mnuView, SmoothLinesItem);
    EXPECT_TRUE(Design.SmoothLines);
    EXPECT_EQ(Kept("SmoothLines"), "-1");
}

TEST_F(Choices, SmoothLinesDrawAMapOnTheWindowAgain) {
    Design.InputFiles.clear();
    Design.MapFileCount = 0;
    window.Cls();
    MapDraw();
    window.surface.Forget();
    ClickMenuItem(Menu::mnuView, SmoothLinesItem);
    EXPECT_EQ(window.surface.Count(SurfaceOp::Cls), 1);
    EXPECT_GT(window.surface.Count(SurfaceOp::LineTo), 100);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Choices, ChangedChoiceIsWrittenAtOnce) {
    ClickStatusLine();
    EXPECT_EQ(Kept("StatusLine"), "0");
    ClickStatusLine();
    EXPECT_EQ(Kept("StatusLine"), "-1");
}

TEST_F(Choices, UnchangedChoicesAreNotWritten) {
    ClickMenuItem(Menu::mnuDesign, PixelSizeItem);
    EXPECT_FALSE(std::filesystem::exists(File()));
    Keep("StatusLine=0\n");
    ReadSettings();
    Keep("StatusLine=-1\n"); // by another window of the program
    ClickMenuItem(Menu::mnuDesign, PixelSizeItem);
    EXPECT_EQ(Kept("StatusLine"), "-1");
}

TEST_F(Choices, ComeBackAtTheNextStart) {
    ClickStatusLine();
    StartUp();
    EXPECT_TRUE(HasStatusLine()) << "before the settings are read";
    ReadSettings();
    EXPECT_FALSE(HasStatusLine());
}

TEST_F(Choices, FlagsOfBothKindsAreKnown) {
    for (const auto& [text, on] : {std::pair{"0", false},
                                   {"False", false},
                                   {"false", false},
                                   {"-1", true},
                                   {"1", true},
                                   {"True", true}}) {
        StartUp();
        if (on) {
            ClickStatusLine();
        }
        Keep("StatusLine=" + std::string(text) + "\n");
        ReadSettings();
        EXPECT_EQ(HasStatusLine(), on) << text;
    }
}

TEST_F(Choices, NonsenseLeavesTheChoice) {
    for (const char* nonsense : {"", "yes", "\"\"", "--", "\xFF\xFE", "="}) {
        StartUp();
        Keep("StatusLine=" + std::string(nonsense) + "\n");
        ReadSettings();
        EXPECT_TRUE(HasStatusLine()) << nonsense;
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Choices, FillColorsAreKeptAndAnnouncedWhenTheDialogChangesThem) {
    machine.forms.Script("FillLandAndWater", [](Form& form) {
        form.Choose("FillLand", 1);
        form.PressDefault();
    });
    ClickMenuItem(Menu::mnuDesign, FillItem);
    EXPECT_EQ(Kept("Fill"), "FFFFCC,none,none");
    ASSERT_EQ(machine.changes.accepted.size(), 1U);
    EXPECT_EQ(machine.changes.accepted[0].first, "Fill Land and Water...");
    StartUp();
    Design.Fill = {};
    ReadSettings();
    EXPECT_EQ(Design.Fill.land, std::optional(SolidColor(Rgb(255, 255, 204))));
    machine.forms.Script("FillLandAndWater", [](Form& form) { form.PressDefault(); });
    ClickMenuItem(Menu::mnuDesign, FillItem);
    EXPECT_EQ(machine.changes.accepted.size(), 1U) << "nothing has changed";
}

TEST_F(Choices, NonsenseForFillColorsLeavesThem) {
    const FillChoice before = {Rgb(1, 2, 3), std::nullopt, Rgb(4, 5, 6)};
    for (const char* nonsense : {"none", "none,none", "12345,none,none", "1234567,none,none",
                                 "none,none,+12345", "none,none,none,none", "0x1234,none,none", ",,"}) {
        Design.Fill = before;
        Keep("Fill=" + std::string(nonsense) + "\n");
        ReadSettings();
        EXPECT_EQ(Design.Fill, before) << nonsense;
    }
}

TEST_F(Choices, RandomBytesBringNoChoiceOutOfItsRange) {
    std::mt19937 random(2);
    for (int round = 0; round < 200; ++round) {
        std::string lines;
        for (const KeptChoice& choice : KeptChoices()) {
            lines += std::string(choice.key) + "=";
            for (int i = 0; i < 40; ++i) {
                lines += static_cast<char>(random() % 256);
            }
            lines += '\n';
        }
        Keep(lines);
        ReadSettings();
        for (const KeptChoice& choice : KeptChoices()) {
            const std::string text = choice.text();
            choice.take(text);
            EXPECT_EQ(choice.text(), text) << choice.key << " comes back";
        }
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Choices, FrameAndScaleComeBack) {
    for (const FrameChoice& choice : {FrameChoice{true, ScaleBarUnit::NauticalMiles, -12.5},
                                      FrameChoice{false, ScaleBarUnit::Kilometres, {}},
                                      FrameChoice{true, ScaleBarUnit::None, 90.0}, FrameChoice{}}) {
        Design.Frame = choice;
        KeepChoices();
        StartUp();
        Design.Frame = {};
        ReadSettings();
        EXPECT_EQ(Design.Frame, choice);
    }
}

TEST_F(Choices, ALineThatIsNoFrameIsPassedOver) {
    for (const char* nonsense : {"-1", "-1 feet", "km -1", "-1 km 324001", "-1 km 5x", "-1 km 5 6", "x km"}) {
        StartUp();
        Design.Frame = {true, ScaleBarUnit::StatuteMiles, 10.0};
        Keep("Frame=" + std::string(nonsense) + "\n");
        ReadSettings();
        EXPECT_EQ(Design.Frame, (FrameChoice{true, ScaleBarUnit::StatuteMiles, 10.0})) << nonsense;
    }
}

TEST_F(Choices, DistortionIsKeptAndAnnouncedWhenItsDialogChangesIt) {
    machine.forms.Script("Distortion", [](Form& form) {
        form.Choose("Ellipses");
        form.Type("Radius", "002    30    00");
        form.PressDefault();
    });
    ClickMenuItem(Menu::mnuView, DistortionItem);
    EXPECT_EQ(Kept("Distortion"), "ellipses 9000 108000");
    ASSERT_EQ(machine.changes.accepted.size(), 1U);
    EXPECT_EQ(machine.changes.accepted[0].first, "Distortion...");
    for (const DistortionChoice& choice :
         {DistortionChoice{DistortionKind::Area, 5.0, 30.0},
          DistortionChoice{DistortionKind::Ellipses, 0.01, 90.0},
          DistortionChoice{DistortionKind::Angle, 45.0, 0.5}, DistortionChoice{}}) {
        Design.Distortion = choice;
        KeepChoices();
        Design.Distortion = {DistortionKind::Ellipses, 1.0, 2.0};
        ReadSettings();
        EXPECT_EQ(Design.Distortion, choice);
    }
}

TEST_F(Choices, ALineThatIsNoDistortionIsPassedOver) {
    for (const char* nonsense :
         {"area", "area 18000", "shades 18000 108000", "area 0 108000", "area 18000 324001", "area 18000 35",
          "area 162001 108000", "area 1e9 108000", "area 18000 108000 1", "18000 108000 area",
          "area 99999999999 108000", "area -18000 108000"}) {
        StartUp();
        Design.Distortion = {DistortionKind::Ellipses, 1.0, 2.0};
        Keep("Distortion=" + std::string(nonsense) + "\n");
        ReadSettings();
        EXPECT_EQ(Design.Distortion, (DistortionChoice{DistortionKind::Ellipses, 1.0, 2.0})) << nonsense;
    }
}

TEST_F(Choices, HaveKeysOfTheirOwn) {
    std::set<std::string> keys = {"PrinterUnits", "ScreenSize", "MainWindow", "WindowMaximized"};
    for (const KeptChoice& choice : KeptChoices()) {
        EXPECT_TRUE(keys.insert(choice.key).second) << choice.key;
        EXPECT_EQ(choice.text().find('\n'), std::string::npos) << choice.key;
    }
}

TEST_F(Choices, SettingsThatCannotBeWrittenAreNoReasonForABox) {
    machine.places.programFolder = folder / "gone/";
    ClickStatusLine();
    EXPECT_FALSE(HasStatusLine());
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

} // namespace
} // namespace quelmont
