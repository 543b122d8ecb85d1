#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>

#include <cstdlib>
#include <filesystem>
#include <string>

#include <sys/wait.h>

namespace quelmont {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Program : public testing::Test {
protected:
    /// Runs the program through the shell in the folder; its streams go to the files out and err
    /// unless the line says otherwise. Gives the exit code, or -1 when it was killed.
    int Run(const std::string& line) const {
        const std::string command =
            "cd '" + folder.Path() + "' && >out 2>err '" + QUELMONT_DRAW + "' " + line;
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    std::string Output() const { return ReadWholeFile(folder / "out"); }
    std::string Errors() const { return ReadWholeFile(folder / "err"); }

    TemporaryFolder folder;
};

TEST_F(Program, DrawsTheWorldInSilence) {
    EXPECT_EQ(Run("world.png"), 0);
    EXPECT_EQ(Output(), "");
    EXPECT_EQ(Errors(), "");
    EXPECT_EQ(QImage(QString::fromStdString(folder / "world.png")).size(), QSize(1280, 924));
}

TEST_F(Program, DrawsTheSameBytesAgain) {
    EXPECT_EQ(Run("--projection robinson a.png"), 0);
    EXPECT_EQ(Run("b.png --projection Robinson"), 0);
    EXPECT_EQ(ReadWholeFile(folder / "a.png"), ReadWholeFile(folder / "b.png"));
}

TEST_F(Program, FindsItsMapThroughALink) {
    std::filesystem::create_symlink(QUELMONT_DRAW, folder / "draw");
    const std::string command = "cd '" + folder.Path() + "' && ./draw world.png";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_TRUE(std::filesystem::exists(folder / "world.png"));
}

TEST_F(Program, WithoutItsMapDrawsTheGridAndSaysSo) {
    std::filesystem::copy_file(QUELMONT_DRAW, folder / "alone");
    const std::string command = "cd '" + folder.Path() + "' && ./alone world.png >out 2>err";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(Output(), "");
    EXPECT_THAT(Errors(), StartsWith("File not found error in MapPlot\n"));
    EXPECT_THAT(Errors(), HasSubstr("/Qmnt4.map\n"));
    EXPECT_TRUE(std::filesystem::exists(folder / "world.png"));
}

TEST_F(Program, TellsARefusedDesignOnTheErrorStream) {
    EXPECT_EQ(Run("--projection mercator --north 90N a.png"), 1);
    EXPECT_EQ(Output(), "");
    EXPECT_EQ(Errors(), "Error: Mercator Projection\nYou have included the North Pole (90\u00B0N) in your "
                        "grid.  The poles cannot be plotted on a Mercator projection because they project "
                        "to infinity.\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "a.png"));
}

TEST_F(Program, TellsWrongUsage) {
    for (const char* line : {"", "--projection nonsense a.png", "--north 40Q a.png", "--grid-color red a.png",
                             "a.png --unknown", "a.jpg", "a.png b.png", "--symbol 3 a.png"}) {
        EXPECT_EQ(Run(line), 2) << line;
        EXPECT_EQ(Output(), "") << line;
        EXPECT_THAT(Errors(), StartsWith("quelmont-draw: ")) << line;
        EXPECT_FALSE(std::filesystem::exists(folder / "a.png")) << line;
    }
}

TEST_F(Program, PrintsHelpAndVersionWhenAsked) {
    EXPECT_EQ(Run("--help"), 0);
    EXPECT_THAT(Output(), HasSubstr("--projection"));
    EXPECT_EQ(Errors(), "");
    EXPECT_EQ(Run("--version"), 0);
    EXPECT_EQ(Output(), "quelmont-draw 3.00\n");
}

TEST_F(Program, PrintsStatisticsAloneWhenAsked) {
    EXPECT_EQ(Run("--stats --no-map a.png"), 0);
    EXPECT_THAT(Output(), StartsWith("{\""));
    EXPECT_EQ(Output().back(), '\n');
    EXPECT_EQ(Errors(), "");
}

TEST_F(Program, FailsWhenWhatWasAskedForCannotBePrinted) {
    for (const char* line :
         {"--help >/dev/full", "--version >/dev/full", "--stats --no-map a.png >/dev/full", "--help >&-"}) {
        EXPECT_EQ(Run(line), 1) << line;
        EXPECT_EQ(Errors(), "quelmont-draw: The standard output cannot be written.\n") << line;
    }
}

TEST_F(Program, NeedsNoStandardOutputToDraw) {
    EXPECT_EQ(Run("--no-map a.png >&-"), 0);
    EXPECT_TRUE(std::filesystem::exists(folder / "a.png"));
    EXPECT_EQ(Run("--no-map b.png >/dev/full"), 0);
    EXPECT_TRUE(std::filesystem::exists(folder / "b.png"));
}

TEST_F(Program, FailsWhenThePictureCannotBeWritten) {
    EXPECT_EQ(Run("--no-map missing/a.png"), 1);
    EXPECT_EQ(Errors(), "quelmont-draw: missing/a.png: Path not found\n");
    std::filesystem::create_symlink("/dev/full", folder / "full.png");
    EXPECT_EQ(Run("--no-map full.png"), 1);
    EXPECT_EQ(Errors(), "quelmont-draw: full.png: Path/File access error\n");
}

TEST_F(Program, WritesTheSameUnderAGermanLocaleAndWithoutAHome) {
    EXPECT_EQ(Run("--no-map a.png"), 0);
    const std::string environment = "env -i LC_ALL=de_DE.UTF-8 LANG=de_DE.UTF-8 ";
    const std::string command =
        "cd '" + folder.Path() + "' && " + environment + "'" + QUELMONT_DRAW + "' --no-map b.png 2>err";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(Errors(), "");
    EXPECT_EQ(ReadWholeFile(folder / "a.png"), ReadWholeFile(folder / "b.png"));
}

} // namespace
} // namespace quelmont
