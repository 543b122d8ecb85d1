#include "mainwindow/settings.h"

#include "mainwindow/profile_file.h"
#include "mainwindow/started_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Settings : public StartedProgram {
protected:
    Settings() {
        std::filesystem::create_directory(folder / "program");
        machine.places.programFolder = folder / "program/";
        machine.places.settingsFolder = folder / "user/quelmont/";
        window.place = designed;
    }

    void Keep(std::string_view lines) const {
        WriteWholeFile(ProgramFile(), "[Quelmont]\n" + std::string(lines));
    }
    void KeepForUser(std::string_view lines) const {
        std::filesystem::create_directories(machine.places.settingsFolder);
        WriteWholeFile(UserFile(), "[Quelmont]\n" + std::string(lines));
    }
    std::string ProgramFile() const { return machine.places.programFolder + "Qmnt.ini"; }
    std::string UserFile() const { return machine.places.settingsFolder + "Qmnt.ini"; }
    /// The program's folder is gone, so that nothing can be written there, whoever runs the test.
    void LoseProgramFolder() { machine.places.programFolder = folder / "gone/"; }

    static constexpr WindowPlace designed{1.0, 2.0, 3.0, 4.0};
    TemporaryFolder folder;
};

TEST_F(Settings, MissingFileLeavesTheDefaults) {
    ReadSettings();
    EXPECT_EQ(window.place, designed);
    EXPECT_FALSE(window.zoomed);
    EXPECT_EQ(Design.PrintUnitTwips, 1440);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Settings, FourKeysAreRead) {
    Keep("PrinterUnits=567\nScreenSize=19200 15360\nMainWindow=300 450.5 12000 9000\nWindowMaximized=-1\n");
    ReadSettings();
    EXPECT_EQ(Design.PrintUnitTwips, 567);
    EXPECT_EQ(window.place, (WindowPlace{300.0, 450.5, 12000.0, 9000.0}));
    EXPECT_TRUE(window.zoomed);
}

TEST_F(Settings, LetterCaseDoesNotCount) {
    Keep("PRINTERUNITS=567\nscreensize=19200 15360\nmainWindow=300 450 12000 9000\nwindowmaximized=-1\n");
    ReadSettings();
    EXPECT_EQ(Design.PrintUnitTwips, 567);
    EXPECT_EQ(window.place.width, 12000.0);
    EXPECT_TRUE(window.zoomed);
}

TEST_F(Settings, PlaceOnASmallerScreenIsNotRead) {
    for (const std::string screen : {"19215 15360", "19200 15375"}) {
        Keep("ScreenSize=" + screen +
             "\nMainWindow=300 450 12000 9000\nWindowMaximized=-1\nPrinterUnits=567\n");
        ReadSettings();
        EXPECT_EQ(window.place, designed) << screen;
        EXPECT_FALSE(window.zoomed) << screen;
        EXPECT_EQ(Design.PrintUnitTwips, 567) << "this one counts on any screen";
    }
}

TEST_F(Settings, PlaceOnALargerScreenIsRead) {
    Keep("ScreenSize=15360 11520\nMainWindow=300 450 12000 9000\n");
    ReadSettings();
    EXPECT_EQ(window.place.width, 12000.0);
}

TEST_F(Settings, MissingKeyCountsAsZero) {
    Keep("MainWindow=300 450 12000 9000\n");
    ReadSettings();
    EXPECT_EQ(window.place.width, 12000.0) << "a screen of size 0 was not larger";
    EXPECT_FALSE(window.zoomed);
    EXPECT_EQ(Design.PrintUnitTwips, 1440);
}

TEST_F(Settings, FlagsOfBothKindsAreKnown) {
    const auto zoomed = [&](const std::string& value) {
        window.zoomed = false;
        Keep("WindowMaximized=" + value + "\n");
        ReadSettings();
        return window.zoomed;
    };
    EXPECT_TRUE(zoomed("-1"));
    EXPECT_TRUE(zoomed("1"));
    EXPECT_TRUE(zoomed("True"));
    EXPECT_FALSE(zoomed("0"));
    EXPECT_FALSE(zoomed("False"));
    EXPECT_FALSE(zoomed(""));
    EXPECT_FALSE(zoomed("yes"));
}

TEST_F(Settings, PlacesOutOfReasonAreIgnored) {
    for (const std::string place : {"300 450 12000", "0 0 0 0", "300 450 -12000 9000", "300 450 12000 1e300",
                                    "1E999 0 12000 9000", "300 450 1e7 9000", "-1e7 450 12000 9000",
                                    "a b c d", "300,450,12000,9000", "nan nan nan nan", "inf 0 12000 9000"}) {
        Keep("MainWindow=" + place + "\n");
        window.place = designed;
        ReadSettings();
        if (place == "1E999 0 12000 9000" || place == "inf 0 12000 9000") {
            EXPECT_EQ(window.place.left, 0.0) << place;
        } else {
            EXPECT_EQ(window.place, designed) << place;
        }
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Settings, LengthsOfPagesAreTakenAlongIntoTheUnit) {
    Keep("PrinterUnits=567\n");
    ReadSettings();
    // An inch is 1440 / 567 cm.
    EXPECT_FLOAT_EQ(Design.PrintLeft, 2.5396825F);
    EXPECT_FLOAT_EQ(Design.PrintWidth, 16.507936F);
    EXPECT_FLOAT_EQ(Design.ReportBottom, 2.5396825F);
}

TEST_F(Settings, PrintingUnitThatIsNoInchAndNoCentimetreIsIgnored) {
    for (const std::string unit : {"0", "-5", "1e12", "1E999", "x", "", "1", "566", "1439", "2880"}) {
        Keep("PrinterUnits=" + unit + "\n");
        ReadSettings();
        EXPECT_EQ(Design.PrintUnitTwips, 1440) << unit;
    }
}

TEST_F(Settings, RandomBytesAreNoReasonForABox) {
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        std::string bytes = "[Quelmont]\nMainWindow=";
        for (int i = 0; i < 200; ++i) {
            bytes += static_cast<char>(random() % 256);
        }
        bytes += "\nScreenSize=" + bytes + "\nPrinterUnits=" + bytes;
        WriteWholeFile(ProgramFile(), bytes);
        ReadSettings();
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_GE(Design.PrintUnitTwips, 1);
}

TEST_F(Settings, AreWrittenInTheirOrder) {
    window.place = {300.0, 450.5, 12000.0, 9000.0};
    window.zoomed = true;
    WriteSettings();
    EXPECT_EQ(
        ReadWholeFile(ProgramFile()),
        "[Quelmont]\r\nPrinterUnits=1440\r\nScreenSize=19200 15360\r\nMainWindow=300 450.5 12000 9000\r\n"
        "WindowMaximized=-1\r\n");
    EXPECT_FALSE(std::filesystem::exists(UserFile()));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Settings, ComeBackAsTheyWere) {
    Design.PrintUnitTwips = 567;
    window.place = {-7.5, 450.25, 12000.0, 9000.0};
    window.zoomed = true;
    WriteSettings();
    Design.PrintUnitTwips = 1440;
    window.place = designed;
    window.zoomed = false;
    ReadSettings();
    EXPECT_EQ(Design.PrintUnitTwips, 567);
    EXPECT_EQ(window.place, (WindowPlace{-7.5, 450.25, 12000.0, 9000.0}));
    EXPECT_TRUE(window.zoomed);
}

TEST_F(Settings, GoToTheUserWhenTheProgramsFolderCannotBeWritten) {
    LoseProgramFolder();
    WriteSettings();
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_EQ(ReadProfileString(UserFile(), "Quelmont", "PrinterUnits"), "1440");
    EXPECT_EQ(ReadProfileString(UserFile(), "Quelmont", "WindowMaximized"), "0");
}

TEST_F(Settings, OfTheUserAreReadFirst) {
    Keep("PrinterUnits=1440\nMainWindow=300 450 12000 9000\n");
    KeepForUser("PrinterUnits=567\n");
    ReadSettings();
    EXPECT_EQ(Design.PrintUnitTwips, 567);
    EXPECT_EQ(window.place.width, 12000.0) << "what the user's file does not have";
}

TEST_F(Settings, OnceWithTheUserAreWrittenThere) {
    // A folder that could not be written may be writable today; the user's file is read first.
    KeepForUser("PrinterUnits=1440\n");
    Design.PrintUnitTwips = 567;
    WriteSettings();
    Design.PrintUnitTwips = 1440;
    ReadSettings();
    EXPECT_EQ(Design.PrintUnitTwips, 567);
}

TEST_F(Settings, WithoutAnyFolderEachKeyIsReported) {
    LoseProgramFolder();
    machine.places.settingsFolder.clear();
    WriteSettings();
    const std::string title = "Windows API Error: ";
    EXPECT_THAT(Told(machine.boxes.asked),
                ElementsAre(title + "WritePrivateProfileString(1) error in Quelmont: Form_Unload",
                            title + "WritePrivateProfileString(2) error in Quelmont: Form_Unload",
                            title + "WritePrivateProfileString(3) error in Quelmont: Form_Unload",
                            title + "WritePrivateProfileString(4) error in Quelmont: Form_Unload"));
}

TEST_F(Settings, FolderOfTheUserThatCannotBeMadeIsReportedToo) {
    LoseProgramFolder();
    WriteWholeFile(folder / "user", "a file where a folder should be");
    WriteSettings();
    EXPECT_EQ(machine.boxes.asked.size(), 4U);
}

} // namespace
} // namespace quelmont
