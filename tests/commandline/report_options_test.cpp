#include "commandline/draw_command_fixture.h"

#include <gmock/gmock.h>

namespace quelmont {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAre;

constexpr const char* Route = "50N,179E,50N,179W";

class ReportCommand : public DrawCommandTest {
protected:
    std::string text = folder / "a.txt";
    std::string rich = folder / "a.rtf";
};

TEST_F(ReportCommand, WritesAReportWithoutAPicture) {
    const Outcome outcome = Run({"--projection", "robinson", "--report", text});
    EXPECT_EQ(outcome.code, ExitDone) << outcome.errors;
    EXPECT_THAT(ReadWholeFile(text),
                AllOf(StartsWith("Quelmont Version "), HasSubstr("\r\nProjection Type: Robinson\r\n"),
                      HasSubstr("\r\nHorizontal pixel size:  1280\r\n")));
    EXPECT_THAT(Files(), UnorderedElementsAre("a.txt"));
}

TEST_F(ReportCommand, EndingChoosesTheFormat) {
    const Outcome outcome = Run({"--report", rich, "--great-circle", Route, "--great-circle-report", text});
    EXPECT_EQ(outcome.code, ExitDone) << outcome.errors;
    EXPECT_THAT(ReadWholeFile(rich), AllOf(StartsWith("{\\rtf1"), HasSubstr(" Great Circle Information ")));
    EXPECT_THAT(ReadWholeFile(text), HasSubstr("\r\nStarting longitude:  179 00 00 E\r\n"));
}

TEST_F(ReportCommand, OtherEndingsAreRefused) {
    for (const char* const option : {"--report", "--great-circle-report"}) {
        for (const std::string& name : {folder / "a.doc", folder / "a", std::string()}) {
            const Outcome outcome = Run({option, name, "--great-circle", Route});
            EXPECT_EQ(outcome.code, ExitWrongUsage) << name;
            EXPECT_THAT(outcome.errors, HasSubstr("\"" + name + "\" ends neither in .txt nor in .rtf"));
        }
    }
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(ReportCommand, GreatCircleThatIsNotThereIsRefused) {
    const Outcome outcome = Run({"--great-circle-report", text});
    EXPECT_EQ(outcome.code, ExitWrongUsage);
    EXPECT_THAT(outcome.errors, HasSubstr("there is no great circle"));
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(ReportCommand, ReportsReplaceNeitherEachOtherNorAnythingElse) {
    EXPECT_EQ(Run({"--report", text, "--great-circle", Route, "--great-circle-report", text}).code,
              ExitWrongUsage);
    EXPECT_EQ(Run({"--report", text, "--great-circle", Route, "--save-great-circle", text}).code,
              ExitWrongUsage);
    WriteWholeFile(text, "-1 10 10\r\n 0 20 20\r\n");
    EXPECT_EQ(Run({"--map", text, "--report", text}).code, ExitWrongUsage);
    EXPECT_EQ(ReadWholeFile(text), "-1 10 10\r\n 0 20 20\r\n");
}

TEST_F(ReportCommand, FailedReportIsNamed) {
    const Outcome outcome = Run({"--report", folder / "none/a.txt"});
    EXPECT_EQ(outcome.code, ExitFailed);
    EXPECT_THAT(outcome.errors, HasSubstr("none/a.txt: Path not found"));
}

TEST_F(ReportCommand, PictureBesideAReportIsThePictureWithoutOne) {
    for (const char* const projection : {"equirectangular", "equidistant conic", "interrupted", "utm"}) {
        ASSERT_EQ(Run({"--no-map", "--projection", projection, folder / "one.png"}).code, ExitDone);
        ASSERT_EQ(Run({"--no-map", "--projection", projection, "--report", text, folder / "two.png"}).code,
                  ExitDone);
        EXPECT_EQ(ReadWholeFile(folder / "one.png"), ReadWholeFile(folder / "two.png")) << projection;
    }
}

TEST_F(ReportCommand, DesignIsNamedAndReported) {
    ASSERT_EQ(Run({"--projection", "mercator", "--save-design", folder / "d.cnf"}).code, ExitDone);
    ASSERT_EQ(Run({"--design", folder / "d.cnf", "--report", text}).code, ExitDone);
    EXPECT_THAT(ReadWholeFile(text),
                AllOf(HasSubstr("Projection Type: Mercator"), HasSubstr("\r\n" + folder / "d.cnf" + "\r\n")));
}

TEST_F(ReportCommand, FilesWithoutMapsAndWithFortyAreListed) {
    ASSERT_EQ(Run({"--no-map", "--report", text}).code, ExitDone);
    EXPECT_THAT(ReadWholeFile(text), HasSubstr("There are no digital map input files!\r\n"));
    std::vector<std::string> arguments = {"--report", text};
    for (int i = 1; i <= 40; ++i) {
        const std::string name = folder / ("{map} \\ " + std::to_string(i) + " \u65e5\u672c.prn");
        WriteWholeFile(name, "-1 10 10\r\n 0 20 20\r\n");
        arguments.insert(arguments.end(), {"--map", name});
    }
    ASSERT_EQ(Run(arguments).code, ExitDone);
    EXPECT_THAT(ReadWholeFile(text), AllOf(HasSubstr("/{map} \\ 1 \u65e5\u672c.prn\r\n"),
                                           HasSubstr("/{map} \\ 40 \u65e5\u672c.prn\r\n")));
    arguments[1] = rich;
    ASSERT_EQ(Run(arguments).code, ExitDone);
    EXPECT_THAT(ReadWholeFile(rich), HasSubstr("/\\{map\\} \\\\ 40 \\u26085?\\u26412?.prn\\par\r\n"));
}

} // namespace
} // namespace quelmont
