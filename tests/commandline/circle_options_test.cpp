// Circles by the command line: quelmont-draw and what its options become.

#include "commandline/draw_options.h"

#include "core/map_design.h"
#include "draw_command_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAre;

constexpr const char* Route = "37:47N,122:26W,29:20N,47:59E";
constexpr const char* Rings = "52:31N,13:24E,15";

class CircleCommand : public DrawCommandTest {
protected:
    const std::string picture = folder / "a.png";
    const std::string table = folder / "a.prn";
};

TEST_F(CircleCommand, DrawsCirclesInTheirColoursAndWidths) {
    const Outcome outcome = Run({"--no-map", "--great-circle", Route, "--great-circle-color", "FF0000",
                                 "--great-circle-width", "5", "--small-circle", Rings, "--circles", "4",
                                 "--small-circle-color", "#008000", "--small-circle-width", "2", picture});
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.code, ExitDone);
    EXPECT_EQ(Design.GcColor, SolidColor(0x0000FF)) << "blue, green, red";
    EXPECT_EQ(Design.ScColor, SolidColor(0x008000));
    EXPECT_EQ(Design.GcLineWidth, 75.0F) << "15 twips to a pixel";
    EXPECT_EQ(Design.ScLineWidth, 30.0F);
    EXPECT_EQ(Design.GcText[1], "122    26    00    W");
    EXPECT_EQ(Design.GcTable.Rows.size(), 176U);
    EXPECT_EQ(Design.ScTable.ScRingEnd.size(), 4U);
    EXPECT_EQ(Design.ScRadiusDeg, 15.0);
    EXPECT_THAT(Files(), ElementsAre("a.png"));
}

TEST_F(CircleCommand, WithoutThemThereAreNone) {
    EXPECT_EQ(Run({"--no-map", picture}).code, ExitDone);
    EXPECT_FALSE(Design.GcDefined);
    EXPECT_FALSE(Design.ScDefined);
}

TEST_F(CircleCommand, SavesTablesWithoutDrawing) {
    const Outcome outcome =
        Run({"--great-circle", "50N,179E,50N,179W", "--save-great-circle", table, "--small-circle",
             "0N,20E,10", "--circles", "1", "--save-small-circle", folder / "rings.prn"});
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.code, ExitDone);
    EXPECT_THAT(Files(), UnorderedElementsAre("a.prn", "rings.prn"));
    EXPECT_EQ(ReadWholeFile(table), " 0   50.0000   179.0000\r\n"
                                    "-1   50.0043   180.0000\r\n"
                                    "-1   50.0000  -179.0000\r\n");
    EXPECT_THAT(ReadWholeFile(folder / "rings.prn"), StartsWith(" 0   10.0000   020.0000\r\n"));
}

TEST_F(CircleCommand, SavesTablesBesideThePicture) {
    EXPECT_EQ(Run({"--no-map", "--great-circle", Route, "--save-great-circle", table, picture}).code,
              ExitDone);
    EXPECT_THAT(Files(), UnorderedElementsAre("a.prn", "a.png"));
}

TEST_F(CircleCommand, SavedTableCanBeDrawnAsAMapFile) {
    ASSERT_EQ(Run({"--great-circle", Route, "--save-great-circle", table}).code, ExitDone);
    const Outcome outcome = Run({"--map", table, "--stats", picture});
    EXPECT_EQ(outcome.code, ExitDone);
    EXPECT_THAT(outcome.output, HasSubstr("\"points_read\":176"));
}

TEST_F(CircleCommand, RefusalsAreThoseOfTheDialogs) {
    struct Refused {
        const char* option;
        const char* value;
        const char* title;
        const char* text;
    };
    for (const Refused& refused : {
             Refused{"--great-circle", "91N,0E,10N,10E", "Error: Starting latitude", "Degrees must be <= 90"},
             Refused{"--great-circle", "10N,181W,10N,10E", "Error: Starting longitude",
                     "Degrees must be <= 180"},
             Refused{"--great-circle", "10N,0E,10:99N,10E", "Error: Ending latitude",
                     "Minutes must be <= 59"},
             Refused{"--great-circle", "10N,0E,10N,180:00:01E", "Error: Ending longitude",
                     "Longitude cannot be > 180  00  00"},
             Refused{"--great-circle", "90N,0E,10N,10E", "Error: Starting, ending longitudes must be equal",
                     "The LONGITUDES you have entered are NOT EQUAL."},
             Refused{"--small-circle", "91N,0E,10", "Error: Latitude of circle center",
                     "Degrees must be <= 90"},
             Refused{"--small-circle", "10N,0E,180:30", "Error: Radius of circle in degrees",
                     "Circle radius cannot be > 180  00  00"},
             Refused{"--small-circle", "10N,0E,99999", "Error: Radius of circle in degrees",
                     "Degrees must be <= 180"},
         }) {
        const Outcome outcome = Run({refused.option, refused.value, picture});
        EXPECT_EQ(outcome.code, ExitWrongUsage) << refused.value;
        EXPECT_THAT(outcome.errors, HasSubstr(refused.title));
        EXPECT_THAT(outcome.errors, HasSubstr(refused.text));
        EXPECT_THAT(Files(), IsEmpty());
    }
}

TEST_F(CircleCommand, PolesOnOneMeridianPass) {
    EXPECT_EQ(Run({"--no-map", "--great-circle", "90N,10E,10N,10E", picture}).code, ExitDone);
}

TEST_F(CircleCommand, WrongOptionsAreReported) {
    const auto fault = [](const std::vector<std::string>& arguments) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.code, ExitWrongUsage);
        return outcome.errors;
    };
    EXPECT_THAT(fault({"--great-circle", "10N,0E,10N", picture}), HasSubstr("is no list of 4 angles"));
    EXPECT_THAT(fault({"--small-circle", "10N,0E", picture}), HasSubstr("is no list of 3 angles"));
    EXPECT_THAT(fault({"--small-circle", "10N,0E,-5", picture}), HasSubstr("is no arc"));
    EXPECT_THAT(fault({"--great-circle", "10Q,0E,10N,5E", picture}), HasSubstr("\"10Q\" is no latitude"));
    for (const char* count : {"0", "81", "-1", "3.5", "99999999999"}) {
        EXPECT_THAT(fault({"--small-circle", Rings, "--circles", count, picture}),
                    HasSubstr("is no whole number from 1 to 80"));
    }
    for (const char* width : {"0", "601", "x"}) {
        EXPECT_THAT(fault({"--great-circle", Route, "--great-circle-width", width, picture}),
                    HasSubstr("is no whole number from 1 to 600"));
    }
    EXPECT_THAT(fault({"--great-circle", Route, "--great-circle-color", "red", picture}),
                HasSubstr("is no colour"));
    EXPECT_THAT(fault({"--save-great-circle", table, picture}), HasSubstr("--great-circle"));
    EXPECT_THAT(fault({"--circles", "3", picture}), HasSubstr("--small-circle"));
    EXPECT_THAT(fault({"--great-circle", Route, "--save-great-circle", "", picture}),
                HasSubstr("is no file"));
    EXPECT_THAT(fault({"--great-circle", Route}), HasSubstr("OUTPUT is required"));
}

TEST_F(CircleCommand, TableIsNeitherTheOutputNorAMapFileNorTheOtherTable) {
    const std::string map = folder / "towns.prn";
    WriteWholeFile(map, "-1 10 20\n");
    const auto fault = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--map", map, "--great-circle", Route, "--small-circle", Rings});
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.code, ExitWrongUsage);
        return outcome.errors;
    };
    EXPECT_THAT(fault({"--save-great-circle", picture, picture}), HasSubstr("are the same file"));
    EXPECT_THAT(fault({"--save-great-circle", table, "--save-small-circle", folder / "./a.prn"}),
                HasSubstr("are the same file"));
    EXPECT_THAT(fault({"--save-great-circle", folder / "a-grid.txt", folder / "a.txt"}),
                HasSubstr("are the same file"));
    EXPECT_THAT(fault({"--save-small-circle", map}), HasSubstr("it would replace the map file"));
    EXPECT_THAT(Files(), ElementsAre("towns.prn"));
    EXPECT_EQ(ReadWholeFile(map), "-1 10 20\n");
}

TEST_F(CircleCommand, TableThatCannotBeWrittenIsAFailure) {
    std::filesystem::create_directory(folder / "folder");
    const Outcome outcome = Run({"--great-circle", Route, "--save-great-circle", folder / "folder"});
    EXPECT_EQ(outcome.code, ExitFailed);
    EXPECT_THAT(outcome.errors, HasSubstr("Error in GcSave"));
    EXPECT_EQ(Run({"--small-circle", Rings, "--save-small-circle", folder / "missing/a.prn"}).code,
              ExitFailed);
    const Outcome full =
        Run({"--small-circle", Rings, "--circles", "80", "--save-small-circle", "/dev/full"});
    EXPECT_EQ(full.code, ExitFailed);
    EXPECT_THAT(Files(), ElementsAre("folder"));
}

TEST_F(CircleCommand, ColourWithoutANumberIsRefusedForDxf) {
    const Outcome outcome =
        Run({"--no-map", "--great-circle", Route, "--great-circle-color", "123456", folder / "a.dxf"});
    EXPECT_EQ(outcome.code, ExitWrongUsage);
    EXPECT_THAT(outcome.errors, HasSubstr("cannot have the colour 123456"));
}

} // namespace
} // namespace quelmont
