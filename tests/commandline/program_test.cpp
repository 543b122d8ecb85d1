#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quelmont {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
using testing::UnorderedElementsAre;

class Program : public testing::Test {
protected:
    /// Runs the program through the shell in the folder; its streams go to the files out and err
    /// unless the line says otherwise. Gives the exit code, or -1 when it was killed. Something else
    /// may come before it in the shell.
    int Run(const std::string& line, const std::string& before = "") const {
        const std::string command =
            "cd '" + folder.Path() + "' && " + before + ">out 2>err '" + QUELMONT_DRAW + "' " + line;
        return ExitCode(std::system(command.c_str()));
    }
    static int ExitCode(int status) { return WIFEXITED(status) ? WEXITSTATUS(status) : -1; }
    std::string Output() const { return ReadWholeFile(folder / "out"); }
    std::string Errors() const { return ReadWholeFile(folder / "err"); }

    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    TemporaryFolder folder;
};

TEST_F(Program, TextsAreTheSameWhateverTheUserHasSetForLetters) {
    const std::string text =
        "--no-map --window 400x200 --text 'Quelmont \u0416' --at 20,150 --rotate 20 --text-size 20 ";
    ASSERT_EQ(Run(text + "plain.png"), 0);
    EXPECT_EQ(Errors(), "");
    std::filesystem::create_directories(folder / "settings/fontconfig");
    std::ofstream(folder / "settings/fontconfig/fonts.conf")
        << "<fontconfig><match target='font'>"
           "<edit name='antialias' mode='assign'><bool>false</bool></edit>"
           "<edit name='hintstyle' mode='assign'><const>hintfull</const></edit>"
           "<edit name='autohint' mode='assign'><bool>true</bool></edit>"
           "<edit name='rgba' mode='assign'><const>rgb</const></edit></match></fontconfig>";
    ASSERT_EQ(Run(text + "set.png", "XDG_CONFIG_HOME=\"$PWD/settings\" QT_SCALE_FACTOR=2 QT_FONT_DPI=200 "
                                    "LC_ALL=C "),
              0);
    EXPECT_EQ(Errors(), "");
    const QImage plain(QString::fromStdString(folder / "plain.png"));
    EXPECT_EQ(QImage(QString::fromStdString(folder / "set.png")), plain);
}

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

TEST_F(Program, WritesTheSamePagesInEveryRun) {
    // Fonts of three families: their order in the file is the same, too.
    const std::string line =
        "--text One --at 10%,10% --font 'Liberation Sans' --text Two --at 20%,20% --font "
        "'Liberation Serif' --text Three --at 30%,30% --font 'DejaVu Sans' ";
    ASSERT_EQ(Run(line + "a.pdf"), 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(1100)); // another second
    ASSERT_EQ(Run(line + "b.pdf"), 0);
    EXPECT_TRUE(ReadWholeFile(folder / "a.pdf") == ReadWholeFile(folder / "b.pdf"));
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
                             "a.png --unknown", "a.jpg", "a.png b.png", "--symbol 13 a.png"}) {
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

TEST_F(Program, PipeWithoutAReaderIsAFailedWrite) {
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        dup2(open((folder / "err").c_str(), O_WRONLY | O_CREAT, 0666), STDERR_FILENO);
        std::signal(SIGPIPE, SIG_DFL);
        execl(QUELMONT_DRAW, QUELMONT_DRAW, "--help", nullptr);
        _exit(127);
    }
    close(ends[1]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(ExitCode(status), 1);
    EXPECT_EQ(Errors(), "quelmont-draw: The standard output cannot be written.\n");
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

TEST_F(Program, FileThatOutgrowsItsLimitIsAFullDisk) {
    const std::vector<std::pair<std::string, std::string>> failures = {
        {"cgm", "Error: Disk full\n"},
        {"dxf", "Error: Disk full\n"},
        {"wmf", "Windows API Error\nhwrite error in SaveMetafileToDisk\n"},
        {"svg", "Error: Disk full\n"},
        {"bmp", "Error in BmpSave\nError: Disk full\n"},
        {"png", "quelmont-draw: a.png: Disk full\n"},
        {"pdf", "quelmont-draw: a.pdf: not written\n"},
    };
    for (const auto& [ending, failure] : failures) {
        EXPECT_EQ(Run("a." + ending, "ulimit -f 8 && "), 1) << ending; // 4 or 8 kB, by the shell
        EXPECT_THAT(Errors(), EndsWith(failure)) << ending;
        EXPECT_THAT(Files(), UnorderedElementsAre("out", "err")) << ending;
    }
    EXPECT_EQ(Run("a.txt", "ulimit -f 8 && "), 1);
    EXPECT_EQ(Errors(), "Error in ScaleXY\nError: Disk full\n");
    EXPECT_THAT(Files(), UnorderedElementsAre("out", "err")) << "the whole text of the grid neither";
}

/// The program with a map file on which it draws far longer than a signal can take, on a busy machine too.
class LongDraw : public Program, public testing::WithParamInterface<std::pair<const char*, const char*>> {
protected:
    LongDraw() {
        // Records of a code (1000: a coastline begins, 0: it goes on) and two angles in minutes, low
        // byte first. All but the first are a hole in the file: a hundred million points at one place.
        WriteWholeFile(folder / "big.map", std::string("\xE8\x03\0\0\0\0", 6));
        std::filesystem::resize_file(folder / "big.map", 600'000'000);
    }

    /// Runs the program in the folder and sends it a signal as soon as it writes what shall become a file.
    /// Gives the exit code.
    int RunUntilItWrites(const char* output, const std::string& file, int signal) const {
        const pid_t child = fork();
        if (child == 0) {
            const int errors = open((folder / "err").c_str(), O_WRONLY | O_CREAT, 0666);
            dup2(errors, STDERR_FILENO);
            if (chdir(folder.Path().c_str()) == 0) {
                execl(QUELMONT_DRAW, QUELMONT_DRAW, "--map", "big.map", output, nullptr);
            }
            _exit(127);
        }
        const std::string temporary = folder / (file + "." + std::to_string(child) + ".tmp");
        int status = 0;
        while (!std::filesystem::exists(temporary)) {
            if (waitpid(child, &status, WNOHANG) != 0) {
                ADD_FAILURE() << "the program ended without a trace of " << temporary;
                return ExitCode(status);
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        kill(child, signal);
        waitpid(child, &status, 0);
        return ExitCode(status);
    }
};

TEST_P(LongDraw, SignalStopsItAndLeavesTheEarlierFile) {
    const auto& [output, file] = GetParam();
    WriteWholeFile(folder / file, "earlier");
    EXPECT_EQ(RunUntilItWrites(output, file, SIGTERM), 1);
    EXPECT_EQ(Errors(), "quelmont-draw: stopped\n");
    EXPECT_TRUE(ReadWholeFile(folder / file) == "earlier") << "a whole file is too long to be printed";
    EXPECT_THAT(Files(), UnorderedElementsAre("err", "big.map", file));
}

INSTANTIATE_TEST_SUITE_P(Exports, LongDraw,
                         testing::Values(std::pair("a.cgm", "a.cgm"), std::pair("a.dxf", "a.dxf"),
                                         std::pair("a.wmf", "a.wmf"), std::pair("a.svg", "a.svg"),
                                         std::pair("a.pdf", "a.pdf"), std::pair("a.txt", "a-big.map.txt")),
                         [](const auto& test) { return std::string(test.param.first).substr(2); });

TEST_F(Program, LargeGridIsNotedBeforeItIsDrawnAndCanBeStopped) {
    const pid_t child = fork();
    if (child == 0) {
        dup2(open((folder / "err").c_str(), O_WRONLY | O_CREAT, 0666), STDERR_FILENO);
        // A point for each second of arc: twice 648001 * 1296001.
        execl(QUELMONT_DRAW, QUELMONT_DRAW, "--no-map", "--grid-type", "4", "--lat-grid", "0:0:1",
              "--lon-grid", "0:0:1", (folder / "a.png").c_str(), nullptr);
        _exit(127);
    }
    const std::string note = "quelmont-draw: note: the grid has some 1,679,620 million points; Ctrl+C stops "
                             "the draw.\n";
    int status = 0;
    while (!std::filesystem::exists(folder / "err") || Errors().size() < note.size()) {
        ASSERT_EQ(waitpid(child, &status, WNOHANG), 0) << "it ended before its note: " << Errors();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_EQ(Errors(), note);
    std::this_thread::sleep_for(std::chrono::milliseconds(50)); // until it draws
    kill(child, SIGINT);
    waitpid(child, &status, 0);
    EXPECT_EQ(ExitCode(status), 1);
    EXPECT_EQ(Errors(), note + "quelmont-draw: stopped\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "a.png"));
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
