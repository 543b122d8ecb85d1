#include "reports/report_file.h"

#include "core/map_design.h"
#include "core/run_time_error.h"
#include "reports/report_fixture.h"
#include "support/failing_file.h"
#include "support/run_time_errors.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

class ReportFile : public ReportTest {
protected:
    TemporaryFolder folder;
    const Report report{{{"", {TextLines({"40° north"})}}}};
};

TEST_F(ReportFile, FormatFollowsTheEndingInAnyCase) {
    EXPECT_EQ(ReportFormatOf("/a/b.rtf"), ReportFormat::RichText);
    EXPECT_EQ(ReportFormatOf("b.TXT"), ReportFormat::PlainText);
    EXPECT_EQ(ReportFormatOf("b.txt.doc"), ReportFormat::Unknown);
    EXPECT_EQ(ReportFormatOf(""), ReportFormat::Unknown);
}

TEST_F(ReportFile, PlainTextIsUtf8) {
    SaveReport(report, folder / "a.txt");
    EXPECT_EQ(ReadWholeFile(folder / "a.txt"), "40° north\r\n\r\n");
}

TEST_F(ReportFile, RichTextReplacesAnEarlierFileAndLeavesNothingElse) {
    WriteWholeFile(folder / "a.rtf", "earlier");
    SaveReport(report, folder / "a.rtf");
    EXPECT_THAT(ReadWholeFile(folder / "a.rtf"), StartsWith("{\\rtf1"));
    EXPECT_THAT(folder.Names(), ElementsAre("a.rtf"));
}

TEST_F(ReportFile, FullDiskKeepsTheEarlierFile) {
    WriteWholeFile(folder / "a.rtf", "earlier");
    {
        FailingFiles disk;
        disk.FailWritingAfter(10, ErrorDiskFull);
        EXPECT_THAT([&] { SaveReport(report, folder / "a.rtf"); },
                    testing::Throws<RunTimeError>(testing::Property(&RunTimeError::Number, ErrorDiskFull)));
    }
    EXPECT_EQ(ReadWholeFile(folder / "a.rtf"), "earlier");
    EXPECT_THAT(folder.Names(), ElementsAre("a.rtf"));
    SaveReport(report, folder / "a.rtf");
    EXPECT_THAT(ReadWholeFile(folder / "a.rtf"), StartsWith("{\\rtf1"));
}

TEST_F(ReportFile, MapFileOfTheDesignIsNotReplaced) {
    WriteWholeFile(folder / "map.txt", "a map");
    Design.InputFiles.resize(1);
    Design.InputFiles[0].MapFileName = folder / "map.txt";
    EXPECT_THROW(SaveReport(report, folder / "map.txt"), RunTimeError);
    EXPECT_EQ(ReadWholeFile(folder / "map.txt"), "a map");
}

TEST_F(ReportFile, FolderThatIsNotThereIsAFailure) {
    EXPECT_THROW(SaveReport(report, folder / "none/a.rtf"), RunTimeError);
}

} // namespace
} // namespace quelmont
