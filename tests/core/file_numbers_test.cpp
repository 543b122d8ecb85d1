#include "core/file_numbers.h"

#include "support/failing_file.h"
#include "support/fresh_program.h"
#include "support/hard_times.h"
#include "support/run_time_errors.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quelmont {
namespace {

void Write(std::string_view text) { WriteFile(OutputFileNumber, std::as_bytes(std::span(text))); }

std::string Read(int number, std::size_t count) {
    std::vector<std::byte> bytes(count);
    bytes.resize(ReadFile(number, bytes));
    std::string text(bytes.size(), '\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](std::byte b) { return static_cast<char>(b); });
    return text;
}

int ErrorOfOpening(const std::string& name, OpenMode mode) {
    const int error = ErrorOf([&] { OpenFile(InputFileNumber, name, mode); });
    EXPECT_EQ(IsFileOpen(InputFileNumber), error == 0);
    CloseFile(InputFileNumber);
    return error;
}

class FileNumbers : public FreshProgramTest {
protected:
    TemporaryFolder folder;
    std::string name = folder / "file";
};

TEST_F(FileNumbers, MissingFileIsNotFound) {
    EXPECT_EQ(ErrorOfOpening(name, OpenMode::Input), ErrorFileNotFound);
    EXPECT_EQ(ErrorOfOpening("no such file", OpenMode::Input), ErrorFileNotFound);
    EXPECT_EQ(ErrorOfOpening("", OpenMode::Input), ErrorFileNotFound);
}

TEST_F(FileNumbers, MissingFolderIsAPathNotFound) {
    for (const OpenMode mode : {OpenMode::Input, OpenMode::Output, OpenMode::Append, OpenMode::Binary}) {
        EXPECT_EQ(ErrorOfOpening(folder / "no/such/file", mode), ErrorPathNotFound);
    }
    WriteWholeFile(name, "x");
    EXPECT_EQ(ErrorOfOpening(name + "/file", OpenMode::Input), ErrorPathNotFound) << "a file is no folder";
}

std::optional<FileStamp> StampOf(const std::string& name) {
    OpenFile(InputFileNumber, name, OpenMode::Input);
    const auto stamp = StampOfFile(InputFileNumber);
    CloseFile(InputFileNumber);
    return stamp;
}

TEST_F(FileNumbers, StampIsTheSameForTheSameFileByAnyName) {
    const std::string ours = std::filesystem::read_symlink("/proc/self/exe");
    const auto stamp = StampOf(ours);
    ASSERT_TRUE(stamp) << "this program was built more than two seconds ago";
    EXPECT_EQ(stamp->bytes, static_cast<std::int64_t>(std::filesystem::file_size(ours)));
    std::filesystem::create_symlink(ours, name);
    EXPECT_EQ(StampOf(name), stamp);
}

TEST_F(FileNumbers, FileThatWasJustWrittenHasNoStamp) {
    WriteWholeFile(name, "x");
    EXPECT_EQ(StampOf(name), std::nullopt) << "it may be written again at the same time of its clock";
    const std::array<timespec, 2> longAgo{timespec{1000, 0}, timespec{1000, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, name.c_str(), longAgo.data(), 0), 0);
    EXPECT_EQ(StampOf(name), std::nullopt) << "somebody has put its time back";
}

TEST_F(FileNumbers, FolderIsNoFile) {
    for (const OpenMode mode : {OpenMode::Input, OpenMode::Output, OpenMode::Append, OpenMode::Binary}) {
        EXPECT_EQ(ErrorOfOpening(folder.Path(), mode), ErrorPathFileAccess);
    }
}

TEST_F(FileNumbers, PipeOrDeviceIsNoFileAndDoesNotBlock) {
    ASSERT_EQ(mkfifo(name.c_str(), 0600), 0);
    EXPECT_EQ(ErrorOfOpening(name, OpenMode::Input), ErrorPathFileAccess);
    EXPECT_EQ(ErrorOfOpening(name, OpenMode::Output), ErrorPathFileAccess);
    EXPECT_EQ(ErrorOfOpening("/dev/full", OpenMode::Output), ErrorPathFileAccess);
}

TEST_F(FileNumbers, FileOfAnotherUserIsDenied) {
    WriteWholeFile(name, "private");
    chmod(name.c_str(), 0);
    const WithoutPrivilege nobody;
    EXPECT_EQ(ErrorOfOpening(name, OpenMode::Input), ErrorPermissionDenied);
    EXPECT_EQ(ErrorOfOpening(name, OpenMode::Output), ErrorPermissionDenied);
}

TEST_F(FileNumbers, FolderThatCannotBeWrittenIsDenied) {
    chmod(folder.Path().c_str(), 0555);
    const WithoutPrivilege nobody;
    EXPECT_EQ(ErrorOfOpening(name, OpenMode::Output), ErrorPermissionDenied);
}

TEST_F(FileNumbers, NameThatNoSystemTakesIsBad) {
    EXPECT_EQ(ErrorOfOpening(std::string(5000, 'x'), OpenMode::Input), ErrorBadFileNumber);
    EXPECT_EQ(ErrorOfOpening(name + '\0' + "tail", OpenMode::Output), ErrorBadFileNumber);
}

TEST_F(FileNumbers, OnlyOneAndTwoExist) {
    EXPECT_EQ(ErrorOf([&] { OpenFile(0, name, OpenMode::Output); }), ErrorBadFileNumber);
    EXPECT_EQ(ErrorOf([&] { OpenFile(3, name, OpenMode::Output); }), ErrorBadFileNumber);
    EXPECT_FALSE(std::filesystem::exists(name));
    EXPECT_FALSE(IsFileOpen(0));
    EXPECT_FALSE(IsFileOpen(-1));
    CloseFile(3);
}

TEST_F(FileNumbers, NumberThatIsNotOpenCannotBeUsed) {
    EXPECT_EQ(ErrorOf([] { Read(InputFileNumber, 1); }), ErrorBadFileNumber);
    EXPECT_EQ(ErrorOf([] { Write("x"); }), ErrorBadFileNumber);
    EXPECT_EQ(ErrorOf([] { SeekFile(OutputFileNumber, 0); }), ErrorBadFileNumber);
    EXPECT_EQ(ErrorOf([] { FileLength(InputFileNumber); }), ErrorBadFileNumber);
    EXPECT_EQ(ErrorOf([] { CloseFile(OutputFileNumber); }), 0) << "but it can be closed";
}

TEST_F(FileNumbers, NumberInUseIsNotOpenedAgain) {
    OpenFile(OutputFileNumber, name, OpenMode::Output);
    EXPECT_EQ(ErrorOf([&] { OpenFile(OutputFileNumber, folder / "other", OpenMode::Output); }),
              ErrorFileAlreadyOpen);
    Write("kept");
    CloseFile(OutputFileNumber);
    EXPECT_EQ(ReadWholeFile(name), "kept");
}

TEST_F(FileNumbers, FileThatIsReadIsNotWritten) {
    WriteWholeFile(name, "the map");
    OpenFile(InputFileNumber, name, OpenMode::Input);
    EXPECT_EQ(ErrorOf([&] {
                  OpenFile(OutputFileNumber,
                           (folder / "../") + std::filesystem::path(folder.Path()).filename().string() +
                               "/file",
                           OpenMode::Output);
              }),
              ErrorFileAlreadyOpen)
        << "by whatever name";
    EXPECT_EQ(Read(InputFileNumber, 100), "the map");
}

TEST_F(FileNumbers, OutputReplacesWhatTheFileHeld) {
    WriteWholeFile(name, "a long old text");
    OpenFile(OutputFileNumber, name, OpenMode::Output);
    Write("new");
    CloseFile(OutputFileNumber);
    EXPECT_EQ(ReadWholeFile(name), "new");
}

TEST_F(FileNumbers, AppendWritesBehindIt) {
    OpenFile(OutputFileNumber, name, OpenMode::Append);
    Write("one");
    CloseFile(OutputFileNumber);
    OpenFile(OutputFileNumber, name, OpenMode::Append);
    Write("two");
    EXPECT_EQ(FileLength(OutputFileNumber), 6) << "what waits to be written counts";
    CloseFile(OutputFileNumber);
    EXPECT_EQ(ReadWholeFile(name), "onetwo");
}

TEST_F(FileNumbers, BinaryWritesAnywhereAndKeepsTheRest) {
    WriteWholeFile(name, "0123456789");
    OpenFile(OutputFileNumber, name, OpenMode::Binary);
    SeekFile(OutputFileNumber, 3);
    Write("abc");
    SeekFile(OutputFileNumber, 9);
    Write("XY");
    SeekFile(OutputFileNumber, 0);
    EXPECT_EQ(Read(OutputFileNumber, 100), "012abc678XY");
    CloseFile(OutputFileNumber);
    EXPECT_EQ(ReadWholeFile(name), "012abc678XY");
}

TEST_F(FileNumbers, ManySmallWritesKeepTheirOrder) {
    std::string expected;
    OpenFile(OutputFileNumber, name, OpenMode::Output);
    for (int i = 0; i < 30000; ++i) {
        const std::string item = std::to_string(i) + "\r\n";
        expected += item;
        Write(item);
    }
    const std::string block(200000, 'b');
    Write(block);
    Write("end");
    CloseFile(OutputFileNumber);
    EXPECT_EQ(ReadWholeFile(name), expected + block + "end");
}

TEST_F(FileNumbers, ReadingGivesLessOnlyAtTheEnd) {
    const std::string contents(150000, 'q');
    WriteWholeFile(name, contents);
    OpenFile(InputFileNumber, name, OpenMode::Input);
    EXPECT_EQ(FileLength(InputFileNumber), 150000);
    EXPECT_EQ(Read(InputFileNumber, 65536).size(), 65536U);
    EXPECT_EQ(Read(InputFileNumber, 65536).size(), 65536U);
    EXPECT_EQ(Read(InputFileNumber, 65536).size(), 150000U - 131072U);
    EXPECT_EQ(Read(InputFileNumber, 65536).size(), 0U);
    SeekFile(InputFileNumber, 149998);
    EXPECT_EQ(Read(InputFileNumber, 10), "qq");
}

TEST_F(FileNumbers, BothNumbersAreOpenAtATime) {
    WriteWholeFile(name, "in");
    OpenFile(InputFileNumber, name, OpenMode::Input);
    OpenFile(OutputFileNumber, folder / "out", OpenMode::Output);
    Write(Read(InputFileNumber, 2));
    CloseFile(InputFileNumber);
    EXPECT_TRUE(IsFileOpen(OutputFileNumber));
    CloseFile(OutputFileNumber);
    EXPECT_EQ(ReadWholeFile(folder / "out"), "in");
}

TEST_F(FileNumbers, ModeForbidsTheOtherDirection) {
    WriteWholeFile(name, "x");
    OpenFile(OutputFileNumber, name, OpenMode::Input);
    EXPECT_EQ(ErrorOf([] { Write("y"); }), ErrorBadFileMode);
    CloseFile(OutputFileNumber);
    OpenFile(OutputFileNumber, name, OpenMode::Append);
    EXPECT_EQ(ErrorOf([] { Read(OutputFileNumber, 1); }), ErrorBadFileMode);
}

TEST_F(FileNumbers, NoPlaceLiesBeforeTheFile) {
    OpenFile(OutputFileNumber, name, OpenMode::Binary);
    EXPECT_EQ(ErrorOf([] { SeekFile(OutputFileNumber, -1); }), ErrorInvalidCall);
}

TEST_F(FileNumbers, FullDiskFailsTheWrite) {
    OpenFile(OutputFileNumber, name, OpenMode::Output);
    const FullDisk full(1000);
    const std::string block(100000, 'b');
    EXPECT_EQ(ErrorOf([&] { Write(block); }), ErrorDiskFull);
    EXPECT_EQ(ErrorOf([] { CloseFile(OutputFileNumber); }), 0) << "the failure was reported";
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
}

TEST_F(FileNumbers, FullDiskFailsTheCloseOfWhatWaits) {
    OpenFile(OutputFileNumber, name, OpenMode::Output);
    const FullDisk full(1000);
    Write(std::string(5000, 'b'));
    EXPECT_EQ(ErrorOf([] { CloseFile(OutputFileNumber); }), ErrorDiskFull);
    EXPECT_FALSE(IsFileOpen(OutputFileNumber)) << "the number is free all the same";
}

TEST_F(FileNumbers, FailureIsReportedOnce) {
    OpenFile(OutputFileNumber, name, OpenMode::Output);
    const FullDisk full(1000);
    Write(std::string(5000, 'b'));
    EXPECT_EQ(ErrorOf([] { FileLength(OutputFileNumber); }), ErrorDiskFull);
    EXPECT_EQ(ErrorOf([] { CloseFile(OutputFileNumber); }), 0);
}

TEST_F(FileNumbers, DeviceThatFailsToCloseFreesItsNumber) {
    FailingFiles files;
    files.FailClosing(ErrorDeviceIo);
    OpenFile(OutputFileNumber, "out", OpenMode::Output);
    EXPECT_EQ(ErrorOf([] { CloseFile(OutputFileNumber); }), ErrorDeviceIo);
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
    EXPECT_EQ(ErrorOf([] { OpenFile(OutputFileNumber, "out", OpenMode::Output); }), 0);
}

TEST_F(FileNumbers, WithoutAMakerTheyAreTheSystemsFilesAgain) {
    { const FailingFiles files; }
    OpenFile(OutputFileNumber, name, OpenMode::Output);
    CloseFile(OutputFileNumber);
    EXPECT_TRUE(std::filesystem::exists(name));
}

} // namespace
} // namespace quelmont
