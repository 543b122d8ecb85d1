#include "output/export_file.h"

#include "core/file_numbers.h"
#include "export_fixture.h"
#include "support/failing_file.h"
#include "support/hard_times.h"
#include "support/run_time_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <sys/stat.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ExportFile : public ExportTest {
protected:
    void ExpectNothingLeft() {
        EXPECT_THAT(Files(), IsEmpty());
        EXPECT_FALSE(IsFileOpen(OutputFileNumber));
    }

    /// The only stretch of a file.
    static void Write(const std::string& name, std::string_view text) {
        BeginExport(name);
        WriteExport(text);
        CloseExport();
    }
};

TEST_F(ExportFile, IsWrittenInStretchesAndTakesItsPlaceWhenWhole) {
    WriteWholeFile(target, "earlier");
    EXPECT_FALSE(ExportBegun(target));
    BeginExport(target);
    EXPECT_TRUE(ExportBegun(target));
    WriteExport("one ");
    CloseExport();
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
    EXPECT_EQ(ReadWholeFile(target), "earlier");
    ResumeExport(target);
    EXPECT_EQ(ExportLength(), 4);
    WriteExport("two");
    EXPECT_EQ(ExportLength(), 7);
    CloseExport();
    EXPECT_EQ(ReadWholeFile(target), "earlier");
    FinishExports();
    EXPECT_EQ(ReadWholeFile(target), "one two");
    EXPECT_FALSE(ExportBegun(target));
    EXPECT_THAT(Files(), ElementsAre("map"));
}

TEST_F(ExportFile, PatchesWhatIsCollectedAndWhatIsWritten) {
    BeginExport(target);
    WriteExport("abcdef");
    PatchExport(1, "XY");
    CloseExport();
    ResumeExport(target);
    WriteExport("ghi");
    PatchExport(4, "ZW");                  // written in the first stretch
    PatchExport(7, "V");                   // written out by that patch
    WriteExport(std::string(200000, '-')); // goes out at once
    PatchExport(8, "U");
    WriteExport("end");
    CloseExport();
    FinishExports();
    EXPECT_EQ(ReadWholeFile(target), "aXYdZWgVU" + std::string(200000, '-') + "end");
}

TEST_F(ExportFile, PatchAcrossTheEndOfWhatIsWritten) {
    BeginExport(target);
    WriteExport(std::string(65535, '-'));
    WriteExport("a"); // the block is full and goes out
    WriteExport("bc");
    PatchExport(65535, "XY");
    CloseExport();
    FinishExports();
    EXPECT_EQ(ReadWholeFile(target), std::string(65535, '-') + "XYc");
}

TEST_F(ExportFile, DroppedOnesLeaveNothing) {
    BeginExport(target);
    WriteExport("one");
    CloseExport();
    BeginExport(folder / "other");
    WriteExport("two");
    DropExports();
    ExpectNothingLeft();
    EXPECT_FALSE(ExportBegun(target));
    DropExports();
}

TEST_F(ExportFile, BegunAgainBeginsAnew) {
    BeginExport(target);
    WriteExport("one");
    CloseExport();
    BeginExport(target);
    WriteExport("two");
    CloseExport();
    FinishExports();
    EXPECT_EQ(ReadWholeFile(target), "two");
    EXPECT_THAT(Files(), ElementsAre("map"));
}

TEST_F(ExportFile, WithoutABeginningNothingGoesOn) {
    EXPECT_EQ(ErrorOf([&] { ResumeExport(target); }), ErrorFileNotFound);
    EXPECT_EQ(ErrorOf([] { WriteExport("a"); }), ErrorBadFileNumber);
    EXPECT_EQ(ErrorOf([] { ExportLength(); }), ErrorBadFileNumber);
    CloseExport();
    FinishExports();
    ExpectNothingLeft();
}

TEST_F(ExportFile, LinkLeadsToTheFileThatIsReplaced) {
    WriteWholeFile(folder / "real", "earlier");
    std::filesystem::create_symlink(folder / "real", target);
    BeginExport(target);
    WriteExport("new");
    CloseExport();
    FinishExports();
    EXPECT_TRUE(std::filesystem::is_symlink(target));
    EXPECT_EQ(ReadWholeFile(folder / "real"), "new");
}

TEST_F(ExportFile, LinksToOneFileAreTwoExportsAndTheLaterOneStays) {
    WriteWholeFile(folder / "real", "earlier");
    std::filesystem::create_symlink(folder / "real", folder / "a");
    std::filesystem::create_symlink("real", folder / "b");
    Write(folder / "a", "of a");
    Write(folder / "b", "of b");
    EXPECT_THAT(Files(), SizeIs(5)) << "each has a temporary file of its own";
    EXPECT_EQ(ReadWholeFile(folder / "real"), "earlier");
    FinishExports();
    EXPECT_EQ(ReadWholeFile(folder / "real"), "of b");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "a"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "b"));
    EXPECT_THAT(Files(), SizeIs(3));
}

TEST_F(ExportFile, NameMayBeAsLongAsTheSystemAllows) {
    for (std::size_t length = 240; length <= 255; ++length) {
        const std::string title(length, 'm');
        Write(folder / title, "new");
        FinishExports();
        EXPECT_EQ(ReadWholeFile(folder / title), "new") << length;
        EXPECT_THAT(Files(), ElementsAre(title));
        std::filesystem::remove(folder / title);
    }
    const std::string tooLong = folder / std::string(256, 'm');
    EXPECT_EQ(ErrorOf([&] { BeginExport(tooLong); }), ErrorBadFileNumber);
    ExpectNothingLeft();
}

TEST_F(ExportFile, SeveralTakeTheirPlacesTogether) {
    WriteWholeFile(folder / "b", "earlier");
    for (const char* name : {"a", "b", "c"}) {
        Write(folder / name, name);
    }
    FinishExports();
    EXPECT_EQ(ReadWholeFile(folder / "a"), "a");
    EXPECT_EQ(ReadWholeFile(folder / "b"), "b");
    EXPECT_EQ(ReadWholeFile(folder / "c"), "c");
    EXPECT_THAT(Files(), SizeIs(3));
}

TEST_F(ExportFile, NoneTakesItsPlaceWhenTheLastOneCannot) {
    WriteWholeFile(folder / "b", "earlier");
    for (const char* name : {"a", "b", "c"}) {
        Write(folder / name, name);
    }
    // Its temporary file has vanished.
    for (const std::string& name : Files()) {
        if (name.starts_with("c.")) {
            std::filesystem::remove(folder / name);
        }
    }
    EXPECT_EQ(ErrorOf(FinishExports), ErrorPathFileAccess);
    EXPECT_EQ(ReadWholeFile(folder / "b"), "earlier");
    EXPECT_THAT(Files(), ElementsAre("b"));
}

TEST_F(ExportFile, EarlierFileKeepsItsModeWhenItIsPutBack) {
    WriteWholeFile(folder / "a", "earlier");
    chmod((folder / "a").c_str(), 0640);
    Write(folder / "a", "a");
    Write(folder / "b", "b");
    std::filesystem::create_directory(folder / "b");
    EXPECT_EQ(ErrorOf(FinishExports), ErrorPathFileAccess);
    struct stat facts = {};
    ASSERT_EQ(stat((folder / "a").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777U, 0640U);
}

TEST_F(ExportFile, MapFileOfTheDesignIsNotReplaced) {
    WriteWholeFile(target, "points");
    std::filesystem::create_symlink(target, folder / "link");
    Design.InputFiles.emplace_back().MapFileName = target;
    EXPECT_EQ(ErrorOf([&] { BeginExport(target); }), ErrorPathFileAccess);
    EXPECT_EQ(ErrorOf([&] { BeginExport(folder / "link"); }), ErrorPathFileAccess);
    EXPECT_EQ(ReadWholeFile(target), "points");
    EXPECT_EQ(Files().size(), 2U);
}

TEST_F(ExportFile, FolderOrDeviceCannotBeReplaced) {
    EXPECT_EQ(ErrorOf([&] { BeginExport(folder.Path()); }), ErrorPathFileAccess);
    EXPECT_EQ(ErrorOf([] { BeginExport("/dev/full"); }), ErrorPathFileAccess);
    EXPECT_FALSE(ExportBegun("/dev/full"));
    ExpectNothingLeft();
}

TEST_F(ExportFile, FolderThatDoesNotExist) {
    EXPECT_EQ(ErrorOf([&] { BeginExport(folder / "none/map"); }), ErrorPathNotFound);
    EXPECT_FALSE(ExportBegun(folder / "none/map"));
}

TEST_F(ExportFile, FolderThatMayNotBeWritten) {
    chmod(folder.Path().c_str(), 0555);
    {
        const WithoutPrivilege nobody;
        EXPECT_EQ(ErrorOf([&] { BeginExport(target); }), ErrorPermissionDenied);
    }
    chmod(folder.Path().c_str(), 0700);
    EXPECT_FALSE(ExportBegun(target));
    ExpectNothingLeft();
}

TEST_F(ExportFile, FolderInItsPlaceBeforeTheEndIsKept) {
    BeginExport(target);
    WriteExport("a");
    CloseExport();
    std::filesystem::create_directory(target);
    EXPECT_EQ(ErrorOf(FinishExports), ErrorPathFileAccess);
    EXPECT_TRUE(std::filesystem::is_directory(target));
    EXPECT_THAT(Files(), ElementsAre("map"));
}

TEST_F(ExportFile, FullDiskIsReportedOnceAndTheFileIsLost) {
    WriteWholeFile(target, "earlier");
    FailingFiles disk;
    disk.FailWritingAfter(10, ErrorDiskFull);
    BeginExport(target);
    EXPECT_EQ(ErrorOf([] { WriteExport(std::string(100000, 'a')); }), ErrorDiskFull);
    WriteExport("more");
    PatchExport(0, "b");
    CloseExport();
    ResumeExport(target);
    WriteExport("more");
    CloseExport();
    FinishExports();
    EXPECT_EQ(ReadWholeFile(target), "earlier");
    EXPECT_THAT(Files(), ElementsAre("map"));
}

TEST_F(ExportFile, FullDiskMayShowWhenItIsClosed) {
    FailingFiles disk;
    disk.FailWritingAfter(2, ErrorDiskFull);
    BeginExport(target);
    WriteExport("abc");
    EXPECT_EQ(ErrorOf(CloseExport), ErrorDiskFull);
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
    FinishExports();
    ExpectNothingLeft();
}

TEST_F(ExportFile, FailureOfThePatchLosesTheFile) {
    FailingFiles disk;
    BeginExport(target);
    WriteExport("abc");
    CloseExport();
    ResumeExport(target);
    disk.FailSeeking(ErrorDeviceIo);
    EXPECT_EQ(ErrorOf([] { PatchExport(0, "x"); }), ErrorDeviceIo);
    CloseExport();
    FinishExports();
    ExpectNothingLeft();
}

TEST_F(ExportFile, FailureOfClosingLosesTheFile) {
    FailingFiles disk;
    BeginExport(target);
    WriteExport("abc");
    disk.FailClosing(ErrorDeviceIo);
    EXPECT_EQ(ErrorOf(CloseExport), ErrorDeviceIo);
    FinishExports();
    ExpectNothingLeft();
}

} // namespace
} // namespace quelmont
