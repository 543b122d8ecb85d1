#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quelmont {
namespace {

using testing::AllOf;
using testing::AnyOf;
using testing::HasSubstr;
using testing::StartsWith;

class ConvertProgram : public testing::Test {
protected:
    ConvertProgram() {
        WriteWholeFile(folder / "in.geojson",
                       R"({"type":"LineString","coordinates":[[10,50],[10.5,50.25]]})");
    }

    /// Runs the shell in the folder, where $convert is the program; its streams go to the files out and
    /// err unless the line says otherwise. Gives the exit code, or -1 when it was killed.
    int Shell(const std::string& line) const {
        const std::string command =
            "cd '" + folder.Path() + "' && convert='" + QUELMONT_CONVERT + "' && " + line;
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    int Run(const std::string& line) const { return Shell(">out 2>err $convert " + line); }
    std::string Output() const { return ReadWholeFile(folder / "out"); }
    std::string Errors() const { return ReadWholeFile(folder / "err"); }
    bool Has(const std::string& name) const { return std::filesystem::exists(folder / name); }

    TemporaryFolder folder;
};

TEST_F(ConvertProgram, ConvertsInSilence) {
    EXPECT_EQ(Run("in.geojson out.dat"), 0);
    EXPECT_EQ(Output(), "");
    EXPECT_EQ(Errors(), "");
    EXPECT_EQ(ReadWholeFile(folder / "out.dat"),
              "                  \r\n500000N0100000E   \r\n501500N0103000E   \r\n");
}

TEST_F(ConvertProgram, PrintsStatisticsAsALineOfJson) {
    EXPECT_EQ(Run("--stats in.geojson out.map --feature Rivers --bounds=-20,40,20,60"), 0);
    EXPECT_EQ(Output(),
              R"({"points":2,"lines":1,"features":[{"feature":4,"name":"Rivers","lines":1,"points":2}],)"
              "\"bounds\":[10.0,50.0,10.5,50.25]}\n");
    EXPECT_EQ(Errors(), "");
}

TEST_F(ConvertProgram, BoundsMayBeginWithAMinus) {
    EXPECT_EQ(Run("in.geojson out.dat --bounds -20,40,20,60"), 0);
    EXPECT_EQ(Errors(), "");
}

TEST_F(ConvertProgram, PrintsHelpAndVersionWhenAsked) {
    EXPECT_EQ(Run("--help"), 0);
    EXPECT_THAT(Output(), HasSubstr("--simplify"));
    EXPECT_EQ(Errors(), "");
    EXPECT_EQ(Run("--version"), 0);
    EXPECT_EQ(Output(), "quelmont-convert 3.00\n");
}

TEST_F(ConvertProgram, TellsWrongUsage) {
    for (const char* line :
         {"", "in.geojson", "in.geojson out.xyz", "in.geojson out.gpkg", "in.geojson out.dat --nonsense",
          "in.geojson out.utm", "in.geojson out.dat --simplify x"}) {
        EXPECT_EQ(Run(line), 2) << line;
        EXPECT_EQ(Output(), "") << line;
        EXPECT_THAT(Errors(), AllOf(StartsWith("quelmont-convert: "),
                                    HasSubstr("\nquelmont-convert --help tells the options.\n")))
            << line;
    }
}

TEST_F(ConvertProgram, TellsAFailureOnTheErrorStream) {
    EXPECT_EQ(Run("none.shp out.dat"), 1);
    EXPECT_EQ(Output(), "");
    EXPECT_EQ(Errors(), "quelmont-convert: none.shp: No such file or directory\n");
    EXPECT_FALSE(Has("out.dat"));
}

TEST_F(ConvertProgram, FailsWhenWhatWasAskedForCannotBePrinted) {
    for (const char* line :
         {"--help >/dev/full", "--version >/dev/full", "--stats in.geojson out.dat >/dev/full"}) {
        EXPECT_EQ(Run(line), 1) << line;
        EXPECT_EQ(Errors(), "quelmont-convert: The standard output cannot be written.\n") << line;
    }
}

TEST_F(ConvertProgram, NeverWritesThroughALinkToADevice) {
    std::filesystem::create_symlink("/dev/full", folder / "full.map");
    EXPECT_EQ(Run("in.geojson full.map --feature 1"), 1);
    EXPECT_EQ(Errors(), "quelmont-convert: full.map: Path/File access error\n");
}

TEST_F(ConvertProgram, WritesTheSameUnderAGermanLocaleAndWithoutAHome) {
    EXPECT_EQ(Run("in.geojson a.prn && $convert a.prn a.geojson"), 0);
    EXPECT_EQ(Shell("env -i LC_ALL=de_DE.UTF-8 $convert in.geojson b.prn --bounds 0.5,0.5,60.5,60.5 "
                    "&& env -i LC_ALL=de_DE.UTF-8 $convert b.prn b.geojson"),
              0);
    EXPECT_EQ(ReadWholeFile(folder / "a.prn"), ReadWholeFile(folder / "b.prn"));
    EXPECT_EQ(ReadWholeFile(folder / "a.geojson"), ReadWholeFile(folder / "b.geojson"));
}

/// Makes a text map so large that its conversion takes a few seconds.
constexpr const char* MakeLarge =
    "awk 'BEGIN { for (i = 0; i < 2000000; ++i) print i % 10 == 0, i % 80, i % 170 }' >large.prn";

TEST_F(ConvertProgram, StoppedOneLeavesNothingBehind) {
    ASSERT_EQ(Shell(MakeLarge), 0);
    // Waits until the temporary file is there; a shell without job control lets its background ignore SIGINT.
    WriteWholeFile(folder / "stop", "set -m\n"
                                    "$1 large.prn $2 2>err &\n"
                                    "while kill -0 $! && ! ls *.tmp; do sleep 0.01; done >shown 2>&1\n"
                                    "kill -$3 $!\n"
                                    "wait $!\n");
    for (const char* output : {"large.mp1", "large.gpkg"}) {
        for (const char* signal : {"INT", "TERM", "HUP"}) {
            EXPECT_EQ(Shell("bash ./stop $convert " + std::string(output) + " " + signal), 1) << signal;
            EXPECT_EQ(Errors(), "quelmont-convert: stopped\n") << signal;
            for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
                EXPECT_THAT(entry.path().filename().string(),
                            AnyOf("large.prn", "err", "in.geojson", "stop", "shown"));
            }
        }
    }
}

TEST_F(ConvertProgram, AppendedBySeveralAtOnceAFileHoldsAllOfThem) {
    for (const char* earlier : {"rm -f out.dat", "$convert in.geojson out.dat"}) {
        ASSERT_EQ(Shell(earlier), 0);
        const std::size_t before = Has("out.dat") ? ReadWholeFile(folder / "out.dat").size() : 0;
        EXPECT_EQ(Shell("for i in 1 2 3 4 5 6 7 8 9 10; do $convert --append in.geojson out.dat 2>>err & "
                        "done; wait"),
                  0);
        EXPECT_EQ(ReadWholeFile(folder / "out.dat").size(), before + 10U * 60U) << earlier;
    }
}

TEST_F(ConvertProgram, TellsThatItWaitsForAnotherToAppend) {
    WriteWholeFile(folder / "out.dat", "");
    // The other one holds the lock until something is reported.
    EXPECT_EQ(Shell("{ >err; flock out.dat sh -c 'touch held; until [ -s err ]; do sleep 0.02; done' & "
                    "until [ -e held ]; do sleep 0.02; done; $convert --append in.geojson out.dat 2>err; }"),
              0);
    EXPECT_EQ(Errors(), "quelmont-convert: out.dat: waiting for another program that adds to it\n");
    EXPECT_EQ(ReadWholeFile(folder / "out.dat").size(), 60U);
}

TEST_F(ConvertProgram, RefusesHugePiecesOfTextBeforeItReadsThem) {
    // 70 million bytes, within an address space that could hold them once more, but not ten times. The
    // address sanitizer takes more than that for itself.
    const std::string limit = QUELMONT_SANITIZED ? "" : "ulimit -v 800000; ";
    const auto refuse = [&](const std::string& head, const std::string& name) {
        const std::string make = "(printf '" + head + "'; head -c 70000000 /dev/zero | tr '\\0' 1) >" + name;
        ASSERT_EQ(Shell(make), 0);
        EXPECT_EQ(Shell("(" + limit + "$convert " + name + " out.map --feature 1 >out 2>err)"), 1);
        std::filesystem::remove(folder / name);
    };
    refuse(R"({"type":"LineString","coordinates":[[)", "bare.geojson");
    EXPECT_EQ(Errors(), "quelmont-convert: bare.geojson: there is a feature of more than 64 MB in it, too "
                        "much to read at once\n");
    refuse(R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{"n":)", "all.geojson");
    EXPECT_THAT(Errors(), HasSubstr("a feature of more than 64 MB"));
    refuse("WKT,n\\n", "lines.csv");
    EXPECT_THAT(Errors(), HasSubstr("a line of more than 64 MB"));
}

TEST_F(ConvertProgram, SouthernUtmFileIsDrawnAsThePointsInDegreesAre) {
    // Whole seconds, so that both are rounded to metres alone.
    WriteWholeFile(folder / "south.geojson",
                   R"({"type":"LineString","coordinates":[[146.5,-43],[147,-41.25],[148.5,-42.125]]})");
    ASSERT_EQ(Run("south.geojson a.prn && $convert south.geojson b.utm --utm 147 2>err"), 0);
    EXPECT_THAT(Errors(), HasSubstr("the false northing is 10000000 metres"));
    for (const char* name : {"a.prn", "b.utm"}) {
        ASSERT_EQ(Shell(std::string("QT_QPA_PLATFORM=offscreen '") + QUELMONT_DRAW +
                        "' --projection 17 --utm-central-lon 147E --utm-false-northing 10000000 "
                        "--utm-north 5600000 --utm-south 5100000 --utm-west 200000 --utm-east 700000 "
                        "--grid-type 5 --map " +
                        name + " " + name + ".png 2>err"),
                  0)
            << Errors();
    }
    const std::string drawn = ReadWholeFile(folder / "a.prn.png");
    EXPECT_EQ(ReadWholeFile(folder / "b.utm.png"), drawn);
    ASSERT_EQ(Shell(std::string("QT_QPA_PLATFORM=offscreen '") + QUELMONT_DRAW +
                    "' --projection 17 --utm-central-lon 147E --utm-false-northing 10000000 "
                    "--utm-north 5600000 --utm-south 5100000 --utm-west 200000 --utm-east 700000 "
                    "--grid-type 5 --no-map none.png 2>err"),
              0);
    EXPECT_NE(ReadWholeFile(folder / "none.png"), drawn) << "there is something on it";
}

TEST_F(ConvertProgram, TellsHowFarItIsOnATerminalAlone) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0) {
        GTEST_SKIP() << "this machine has no terminals";
    }
    close(terminal);
    ASSERT_EQ(Shell(MakeLarge), 0);
    EXPECT_EQ(Shell("script -qec \"$convert large.prn large.mp1\" typescript >/dev/null </dev/null"), 0);
    const std::string told = ReadWholeFile(folder / "typescript");
    EXPECT_THAT(told, HasSubstr(" points, "));
    EXPECT_THAT(told, HasSubstr(" %\x1B[K"));
    EXPECT_EQ(Run("large.prn large.mp1"), 0);
    EXPECT_EQ(Errors(), "");
}

} // namespace
} // namespace quelmont
