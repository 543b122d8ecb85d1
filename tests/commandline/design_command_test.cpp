#include "commandline/draw_command_fixture.h"

#include "core/map_design.h"
#include "designfile/cnf_save.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Map designs on the command line.
class DesignCommand : public DrawCommandTest {
protected:
    /// Runs a command that must do its work without a word.
    void Do(std::vector<std::string> arguments) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.code, ExitDone);
        EXPECT_EQ(outcome.errors, "");
    }
    QImage Picture(const std::string& title) const { return QImage(QString::fromStdString(folder / title)); }

    const std::string design = folder / "map.cnf";
};

TEST_F(DesignCommand, DesignThatTheOptionsMakeDrawsTheSameMap) {
    const std::vector<std::string> options = {
        "--projection",   "orthographic", "--central-lat",  "20S",
        "--central-lon",  "60W",          "--window",       "400x300",
        "--percent",      "80",           "--background",   "E0F0FF",
        "--grid-color",   "FF0000",       "--great-circle", "37:47N,122:26W,29:20N,47:59E",
        "--small-circle", "10S,60W,20",   "--text",         "Rio, the town",
        "--at",           "50%,40%",      "--line-width",   "3"};
    std::vector<std::string> both = options;
    both.insert(both.end(), {"--save-design", design, folder / "before.png"});
    Do(both);
    Do({"--design", design, folder / "after.png"});
    EXPECT_EQ(Picture("after.png").size(), QSize(400, 300)) << "the design's window";
    EXPECT_EQ(Picture("after.png"), Picture("before.png"));
}

TEST_F(DesignCommand, PictureMayBeLeftOutWhereADesignIsSaved) {
    Do({"--projection", "mercator", "--save-design", design});
    EXPECT_THAT(Files(), ElementsAre("map.cnf"));
    EXPECT_EQ(Run({}).code, ExitWrongUsage);
    EXPECT_THAT(Run({"--design", design}).errors, HasSubstr("OUTPUT is required"));
}

TEST_F(DesignCommand, OptionsChangeWhatTheyName) {
    Do({"--projection", "robinson", "--lat-grid", "10", "--percent", "50", "--no-line-scaling", "--grid-type",
        "1", "--window", "640x480", "--line-width", "4", "--save-design", design});
    Do({"--design", design, "--background", "102030", "--east", "90E", "--save-design",
        folder / "other.cnf"});
    EXPECT_EQ(Design.ProjNum, ProjRobinson);
    EXPECT_EQ(Design.GridText[GridTextLatSpacing], "010    00    00");
    EXPECT_EQ(Design.GridText[GridTextEast], "090    00    00    E");
    EXPECT_EQ(Design.LonSpanSec, 270 * 3600);
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(0x10, 0x20, 0x30)));
    EXPECT_EQ(Design.MapReduce, 0.5);
    EXPECT_FALSE(Design.LineWidthsScaled);
    EXPECT_EQ(Design.GridTypeCode, 1);
    EXPECT_EQ(Design.InputFiles[0].Features[1].LineWidth, 60);
    EXPECT_EQ(Design.CnfFileName, folder / "other.cnf");
    // The second design is the first one but for that.
    Do({"--design", folder / "other.cnf", "--line-width", "2", "--percent", "100", "--save-design", design});
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(0x10, 0x20, 0x30)));
    EXPECT_EQ(Design.InputFiles[0].Features[1].LineWidth, 30);
    EXPECT_EQ(Design.MapReduce, 1.0);
}

TEST_F(DesignCommand, LabelsOfADesignKeepTheirLook) {
    const std::string towns = folder / "towns.prn";
    WriteWholeFile(towns, "1,48.85,2.35,\"Paris\"\r\n1,41.9,12.5,\"Rome\"\r\n");
    Do({"--window", "500x400", "--map", towns, "--symbol", "12", "--label-size", "14", "--label-color",
        "FF0000", "--save-design", design, folder / "before.png"});
    Do({"--design", design, folder / "after.png"});
    EXPECT_EQ(Picture("after.png"), Picture("before.png"));
    EXPECT_EQ(Design.InputFiles[0].LabelFontSize, 14);
    Do({"--design", design, "--label-size", "20", folder / "larger.png"});
    EXPECT_EQ(Design.InputFiles[0].LabelFontSize, 20);
    EXPECT_EQ(ColorBits(Design.InputFiles[0].LabelColor), 0x0000FFU) << "still red";

    Do({"--design", design, "--no-labels", "--save-design", folder / "hidden.cnf"});
    Do({"--design", folder / "hidden.cnf", folder / "hidden.png"});
    EXPECT_FALSE(Design.LabelsVisible) << "hidden in the design";
    EXPECT_NE(Picture("hidden.png"), Picture("before.png"));
}

TEST_F(DesignCommand, CirclesOfADesignTakeOptions) {
    Do({"--great-circle", "10,10,20,20", "--small-circle", "10,10,30", "--circles", "7", "--save-design",
        design});
    Do({"--design", design, "--circles", "2", "--great-circle-color", "FF0000", "--small-circle-width", "5",
        "--save-great-circle", folder / "route.prn"});
    EXPECT_EQ(Design.ScSymbolCount, 2);
    EXPECT_EQ(Design.ScTable.ScRingEnd.size(), 2U);
    EXPECT_EQ(ColorBits(Design.GcColor), 0x0000FFU) << "red";
    EXPECT_EQ(Design.ScLineWidth, 5.0F * Design.TwipsPerPixelY);
    EXPECT_TRUE(std::filesystem::exists(folder / "route.prn"));
}

TEST_F(DesignCommand, NoFileReplacesAnotherOfTheSameCommand) {
    const auto refused = [&](std::vector<std::string> arguments) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.code, ExitWrongUsage);
        return outcome.errors;
    };
    EXPECT_THAT(
        refused({"--great-circle", "0,0,10,10", "--save-great-circle", design, "--save-design", design}),
        HasSubstr("are the same file"));
    EXPECT_THAT(Files(), IsEmpty());
    Do({"--save-design", design});
    EXPECT_THAT(refused({"--design", design, "--great-circle", "0,0,10,10", "--save-great-circle", design}),
                HasSubstr("it would replace the map design"));
    Do({"--design", design, "--background", "102030", "--save-design", design}); // it may be saved again
    const std::string map = folder / "towns.cnf";
    WriteWholeFile(map, "1 10 10\r\n");
    EXPECT_THAT(refused({"--map", map, "--save-design", map}), HasSubstr("it would replace the map file"));
}

TEST_F(DesignCommand, AnotherProjectionBeginsWithItsOwnBounds) {
    Do({"--projection", "robinson", "--north", "40N", "--lat-grid", "10", "--save-design", design});
    Do({"--design", design, "--projection", "orthographic", "--save-design", design});
    EXPECT_EQ(Design.ProjNum, ProjOrthographic);
    EXPECT_EQ(Design.BoundsProjNum, ProjOrthographic);
}

TEST_F(DesignCommand, WindowIsTheDesignsUnlessItIsGiven) {
    Do({"--window", "400x300", "--save-design", design});
    Do({"--design", design, "--window", "200x100", folder / "map.png"});
    EXPECT_EQ(Picture("map.png").size(), QSize(200, 100));
}

TEST_F(DesignCommand, MapFilesHaveFullNamesInADesign) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::copy_file(World(), folder / "rivers.map");
    std::filesystem::current_path(folder.Path());
    Do({"--map", "rivers.map", "--save-design", design});
    std::filesystem::current_path(before);
    EXPECT_THAT(ReadWholeFile(design), HasSubstr("\r\n" + folder / "rivers.map" + ", 1 \r\n"));
}

TEST_F(DesignCommand, FaultOfADesignIsReportedAndNothingIsDrawn) {
    WriteWholeFile(design, "Quelmont configuration file version 3.00\r\nMercator\r\n");
    const Outcome outcome = Run({"--design", design, folder / "map.png"});
    EXPECT_EQ(outcome.code, ExitFailed);
    EXPECT_EQ(outcome.errors, "Error in CnfRead\nError: Input past end of file\n");
    EXPECT_THAT(Files(), ElementsAre("map.cnf"));
    EXPECT_EQ(Run({"--design", folder / "missing.cnf", folder / "map.png"}).errors,
              "Error in CnfRead\nError: File not found\n");
    EXPECT_EQ(Run({"--save-design", folder / "missing/map.cnf"}).errors,
              "Error in CnfSave\nError: Path not found\n");
}

TEST_F(DesignCommand, NameOfADesignHasItsEnding) {
    for (const char* option : {"--design", "--save-design"}) {
        const Outcome outcome = Run({option, "map.txt", folder / "map.png"});
        EXPECT_EQ(outcome.code, ExitWrongUsage);
        EXPECT_THAT(outcome.errors, HasSubstr("\"map.txt\" does not end in .cnf"));
    }
    Do({"--save-design", folder / "MAP.CNF"});
}

} // namespace
} // namespace quelmont
