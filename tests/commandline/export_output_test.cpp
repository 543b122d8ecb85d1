#include "commandline/export_output.h"

#include "core/map_design.h"
#include "draw_command_fixture.h"
#include "mapfiles/feature_rows.h"
#include "output/export_file.h"
#include "support/cgm_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

using namespace std::string_literals;

TEST(OutputFormat, IsReportedByTheEndingInAnyCase) {
    EXPECT_EQ(OutputFormatOf("a.png"), OutputFormat::Png);
    EXPECT_EQ(OutputFormatOf("A.PNG"), OutputFormat::Png);
    EXPECT_EQ(OutputFormatOf("a.cgm"), OutputFormat::Cgm);
    EXPECT_EQ(OutputFormatOf("a.Cgm"), OutputFormat::Cgm);
    EXPECT_EQ(OutputFormatOf("a.dxf"), OutputFormat::Dxf);
    EXPECT_EQ(OutputFormatOf("a.wmF"), OutputFormat::Wmf);
    EXPECT_EQ(OutputFormatOf("a.b.bmp"), OutputFormat::Bmp);
    EXPECT_EQ(OutputFormatOf("maps/a.TXT"), OutputFormat::Ascii);
    EXPECT_EQ(OutputFormatOf(".txt"), OutputFormat::Ascii);
}

const std::vector<std::string> NamesWithoutEnding = {"",     "t",    "txt",    "png",    "bmp",      "a.b",
                                                     "a.tx", "atxt", "maps/a", "a.png/", "a.cgm/txt"};

TEST(OutputFormat, NeedsAnEnding) {
    for (const std::string& name : NamesWithoutEnding) {
        EXPECT_EQ(OutputFormatOf(name), OutputFormat::Unknown) << name;
    }
}

class TextFileNames : public FreshProgramTest {
protected:
    TextFileNames() {
        Design.GridTypeCode = 3;
        Design.GridOutputCount = 1;
    }
    static std::vector<std::string> NamesFor(const std::vector<std::string>& maps) {
        Design.InputFiles.clear();
        for (const std::string& map : maps) {
            Design.InputFiles.emplace_back().MapFileName = map;
        }
        return AsciiOutputs("maps/out.TXT");
    }
};

TEST_F(TextFileNames, GridThenEachMapFileByItsTitle) {
    EXPECT_THAT(NamesFor({"/world/coast.map", "towns.prn"}),
                ElementsAre("maps/out-grid.TXT", "maps/out-coast.map.TXT", "maps/out-towns.prn.TXT"));
    Design.GridTypeCode = 1;
    EXPECT_THAT(NamesFor({}), ElementsAre("maps/out-grid-points.TXT", "maps/out-grid-lines.TXT"));
    Design.GridTypeCode = 5;
    Design.GridOutputCount = 0;
    EXPECT_THAT(NamesFor({"a"}), ElementsAre("maps/out-a.TXT"));
    EXPECT_THAT(NamesFor({}), IsEmpty());
}

TEST_F(TextFileNames, EqualTitlesAreNumbered) {
    EXPECT_THAT(NamesFor({"a", "folder/a", "a"}),
                ElementsAre("maps/out-grid.TXT", "maps/out-a.TXT", "maps/out-a-2.TXT", "maps/out-a-3.TXT"));
}

TEST_F(TextFileNames, NumbersPassOverNamesThatAreTaken) {
    EXPECT_THAT(NamesFor({"x", "x", "x-2"}),
                ElementsAre("maps/out-grid.TXT", "maps/out-x.TXT", "maps/out-x-2.TXT", "maps/out-x-2-2.TXT"));
    EXPECT_THAT(NamesFor({"x-2", "x", "x"}),
                ElementsAre("maps/out-grid.TXT", "maps/out-x-2.TXT", "maps/out-x.TXT", "maps/out-x-3.TXT"));
}

TEST_F(TextFileNames, ManyEqualTitlesAreNumberedThrough) {
    const std::vector<std::string> names = NamesFor(std::vector<std::string>(5000, "x"));
    EXPECT_EQ(names[1], "maps/out-x.TXT");
    EXPECT_EQ(names[2], "maps/out-x-2.TXT");
    EXPECT_EQ(names.back(), "maps/out-x-5000.TXT");
}

TEST_F(TextFileNames, MapFileMayBeCalledGrid) {
    EXPECT_THAT(NamesFor({"grid"}), ElementsAre("maps/out-grid.TXT", "maps/out-grid-2.TXT"));
    Design.GridTypeCode = 1;
    EXPECT_THAT(NamesFor({"grid-lines"}), ElementsAre("maps/out-grid-points.TXT", "maps/out-grid-lines.TXT",
                                                      "maps/out-grid-lines-2.TXT"));
}

class ExportCommand : public DrawCommandTest {
protected:
    /// Elements of a CGM file that have a name, each text once.
    std::set<std::string> Elements(const std::string& title, const std::string& name) const {
        std::set<std::string> texts;
        for (const std::string& text : CgmBody(ReadWholeFile(folder / title))) {
            if (text.starts_with(name)) {
                texts.insert(text);
            }
        }
        return texts;
    }
};

TEST_F(ExportCommand, NameWithoutAnEndingIsWrongUsage) {
    for (const std::string& name : NamesWithoutEnding) {
        const Outcome outcome = Run({"--no-map", name});
        EXPECT_EQ(outcome.code, ExitWrongUsage) << name;
        EXPECT_THAT(outcome.errors, StartsWith("quelmont-draw: ")) << name;
        EXPECT_EQ(outcome.output, "") << name;
    }
}

TEST_F(ExportCommand, CapitalEndingsWriteTheirFormats) {
    const std::vector<std::pair<std::string, std::string>> beginnings = {
        {"PNG", "\x89PNG"},          {"BMP", "BM"},
        {"CGM", "\x00\x3F"s},        {"DXF", "  0\r\nSECTION\r\n"},
        {"WMF", "\xD7\xCD\xC6\x9A"}, {"TXT", "0.0000000  00.0000000\r\n"},
    };
    for (const auto& [ending, beginning] : beginnings) {
        const Outcome outcome = Run({"--no-map", "--window", "200x150", folder / ("A." + ending)});
        EXPECT_EQ(outcome.code, ExitDone) << ending;
        EXPECT_EQ(outcome.errors, "") << ending;
        EXPECT_THAT(ReadWholeFile(folder / (ending == "TXT" ? "A-grid.TXT" : "A." + ending)),
                    StartsWith(beginning))
            << ending;
    }
    EXPECT_EQ(Files().size(), beginnings.size());
}

TEST_F(ExportCommand, TextFilesOfNothingAreRefused) {
    const std::string name = folder / "x.txt";
    const Outcome outcome = Run({"--grid-type", "5", "--no-map", name});
    EXPECT_EQ(outcome.code, ExitWrongUsage);
    EXPECT_EQ(outcome.errors,
              "quelmont-draw: " + name + ": there is no grid and there are no map files to be written.\n");
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(ExportCommand, ColourThatADxfFileLacksIsRefusedAndTheNearestIsNamed) {
    const std::string name = folder / "a.dxf";
    // One step of red away from FF0000, which has the number 1.
    const Outcome grid = Run({"--no-map", "--grid-color", "FE0000", name});
    EXPECT_EQ(grid.code, ExitWrongUsage);
    EXPECT_EQ(grid.errors, "quelmont-draw: " + name +
                               ": a DXF file cannot have the colour FE0000; the nearest that it can have is "
                               "FF0000.\n");
    // 18, 1 and 16 away from 003366.
    const Outcome features = Run({"--map", World(), "--feature-color", "123456", name});
    EXPECT_EQ(features.code, ExitWrongUsage);
    EXPECT_THAT(features.errors, HasSubstr("the colour 123456; the nearest that it can have is 003366."));
    EXPECT_THAT(Files(), IsEmpty());
    EXPECT_EQ(Run({"--no-map", "--grid-color", "003366", name}).code, ExitDone);
    EXPECT_THAT(Files(), ElementsAre("a.dxf"));
}

TEST_F(ExportCommand, ColourThatHasANumberIsTakenWhereThePickerLacksIt) {
    // A shade of black that is not in the picker's table.
    EXPECT_EQ(Run({"--no-map", "--grid-color", "010000", folder / "a.dxf"}).code, ExitDone);
    EXPECT_THAT(ReadWholeFile(folder / "a.dxf"), HasSubstr(" 62\r\n7\r\n"));
}

TEST_F(ExportCommand, ProposedColoursOfEveryMapFileAreTakenByADxfFile) {
    for (const std::string ending :
         {"all", "cci", "map", "pnt", "pkd", "pkv", "grv", "grf", "dat", "mp1", "mps", "prn", "utm", "txt"}) {
        ResetCore();
        Design.GridTypeCode = 5;
        Design.InputFiles = {NewMapFileEntry("a." + ending)};
        EXPECT_EQ(ArmExport(folder / "a.dxf"), "") << ending;
    }
}

TEST_F(ExportCommand, MapFileThatIsDrawnIsNotReplaced) {
    const std::string map = folder / "y-grid.txt";
    const std::string points = "1 10 10\n0 20 20\n0 20 30\n";
    WriteWholeFile(map, points);
    const Outcome text = Run({"--map", map, folder / "y.txt"});
    EXPECT_EQ(text.code, ExitWrongUsage);
    EXPECT_EQ(text.errors,
              "quelmont-draw: " + (folder / "y.txt") + ": it would replace the map file " + map + ".\n");
    std::filesystem::create_symlink(map, folder / "link.cgm");
    EXPECT_EQ(Run({"--map", map, folder / "link.cgm"}).code, ExitWrongUsage);
    EXPECT_EQ(ReadWholeFile(map), points);
}

TEST_F(ExportCommand, TextFilesThatAreOneFileAreRefused) {
    WriteWholeFile(folder / "b", "1 10 10\n0 20 20\n");
    std::filesystem::create_symlink("one", folder / "x-grid.txt");
    std::filesystem::create_symlink("one", folder / "x-b.txt");
    const Outcome outcome = Run({"--map", folder / "b", folder / "x.txt"});
    EXPECT_EQ(outcome.code, ExitWrongUsage);
    EXPECT_EQ(outcome.errors, "quelmont-draw: " + (folder / "x.txt") + ": " + (folder / "x-grid.txt") +
                                  " and " + (folder / "x-b.txt") + " are the same file.\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "one"));
}

TEST_F(ExportCommand, ColourThatIsNotDrawnIsNotRefused) {
    EXPECT_EQ(Run({"--map", World(), "--feature-color", "123456", "--hide", "1,2,3,4,5,6,7,8,9,10",
                   "--background", "123456", folder / "a.dxf"})
                  .code,
              ExitDone);
    EXPECT_EQ(Run({"--no-map", "--grid-type", "5", "--grid-color", "123456", folder / "b.dxf"}).code,
              ExitDone);
}

TEST_F(ExportCommand, AnyColourIsTakenElsewhere) {
    EXPECT_EQ(Run({"--no-map", "--grid-color", "123456", folder / "a.cgm"}).code, ExitDone);
    EXPECT_THAT(Elements("a.cgm", "LINE COLOUR"), ElementsAre("LINE COLOUR 18 52 86"));
    EXPECT_EQ(Run({"--no-map", "--grid-color", "123456", folder / "a.wmf"}).code, ExitDone);
}

TEST_F(ExportCommand, WindowMayNotExceedTheScreen) {
    for (const char* screen : {"639x480", "640x479"}) {
        const Outcome outcome =
            Run({"--no-map", "--window", "640x480", "--screen", screen, folder / "a.cgm"});
        EXPECT_EQ(outcome.code, ExitWrongUsage) << screen;
        EXPECT_THAT(outcome.errors, StartsWith("quelmont-draw: --window: ")) << screen;
    }
    EXPECT_THAT(Files(), IsEmpty());
    EXPECT_EQ(Run({"--no-map", "--window", "640x480", "--screen", "640x480", folder / "a.cgm"}).code,
              ExitDone);
}

TEST_F(ExportCommand, LineWidthsAreAShareOfTheMapUnlessAnOptionSaysOtherwise) {
    // A window that is the whole screen is 32000 units wide, and a pixel less in twips: 3 pixels of 15
    // twips are 45 * 32000 / 19185 = 75.06 and 45 * 32000 / 9585 = 150.2 units.
    EXPECT_EQ(Run({"--no-map", "--grid-width", "3", "--window", "1280x924", folder / "a.cgm"}).code,
              ExitDone);
    EXPECT_THAT(Elements("a.cgm", "LINE WIDTH"), ElementsAre("LINE WIDTH 75"));
    EXPECT_EQ(Run({"--no-map", "--grid-width", "3", "--window", "640x462", folder / "b.cgm"}).code, ExitDone);
    EXPECT_THAT(Elements("b.cgm", "LINE WIDTH"), ElementsAre("LINE WIDTH 150"));
    for (const char* window : {"1280x924", "640x462"}) {
        EXPECT_EQ(
            Run({"--no-map", "--grid-width", "3", "--window", window, "--no-line-scaling", folder / "c.cgm"})
                .code,
            ExitDone);
        EXPECT_THAT(Elements("c.cgm", "LINE WIDTH"), ElementsAre("LINE WIDTH 3"));
    }
}

TEST_F(ExportCommand, TextScaleIsAShareOfTheHeightOfTexts) {
    // The drawing is 13845 twips and round(32000 * 13845 / 19185) = 23093 units high.
    const std::vector<std::pair<std::string, std::string>> heights = {
        {"100", "CHARACTER HEIGHT 500"},  // 300 * 23093 / 13845 = 500.4
        {"50", "CHARACTER HEIGHT 250"},   // 250.2
        {"200", "CHARACTER HEIGHT 1001"}, // 1000.8
    };
    for (const auto& [scale, height] : heights) {
        ResetCore();
        TextItem item;
        item.TextString = "Nuuk";
        item.TextHeight = 300;
        Design.TextItems = {item};
        EXPECT_EQ(RunOn({"--no-map", "--text-scale", scale, folder / "a.cgm"}).code, ExitDone);
        EXPECT_THAT(Elements("a.cgm", "CHARACTER HEIGHT"), ElementsAre(height));
    }
}

TEST_F(ExportCommand, FolderThatDoesNotExistFailsAndLeavesNothing) {
    for (const std::string ending : {"cgm", "dxf", "wmf", "svg", "bmp", "txt", "png"}) {
        const Outcome outcome = Run({"--no-map", folder / ("none/a." + ending)});
        EXPECT_EQ(outcome.code, ExitFailed) << ending;
        EXPECT_EQ(outcome.output, "") << ending;
        EXPECT_THAT(outcome.errors, EndsWith(": Path not found\n")) << ending;
        EXPECT_THAT(Files(), IsEmpty()) << ending;
    }
}

TEST_F(ExportCommand, FolderInPlaceOfTheFileFailsAndStays) {
    for (const std::string ending : {"cgm", "dxf", "wmf", "svg", "bmp", "png"}) {
        const std::string name = folder / ("a." + ending);
        std::filesystem::create_directory(name);
        const Outcome outcome = Run({"--no-map", name});
        EXPECT_EQ(outcome.code, ExitFailed) << ending;
        EXPECT_THAT(outcome.errors, EndsWith(": Path/File access error\n")) << ending;
        EXPECT_THAT(Files(), ElementsAre("a." + ending));
        std::filesystem::remove(name);
    }
}

} // namespace
} // namespace quelmont
