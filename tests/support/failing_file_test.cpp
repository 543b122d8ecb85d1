#include "support/failing_file.h"

#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>

namespace quelmont {
namespace {

std::span<const std::byte> Bytes(std::string_view text) { return std::as_bytes(std::span(text)); }

TEST(FailingFiles, HoldWhatWasWritten) {
    FailingFiles files;
    OpenFile(OutputFileNumber, "out", OpenMode::Output);
    WriteFile(OutputFileNumber, Bytes("one"));
    CloseFile(OutputFileNumber);
    OpenFile(OutputFileNumber, "out", OpenMode::Append);
    WriteFile(OutputFileNumber, Bytes("two"));
    CloseFile(OutputFileNumber);
    EXPECT_EQ(files.Contents("out"), "onetwo");
    EXPECT_EQ(files.Contents("other"), std::nullopt);
    EXPECT_EQ(files.opens, 2);
    EXPECT_EQ(files.closes, 2);
}

TEST(FailingFiles, ReadsGiveAsFewBytesAsTheyAreReported) {
    FailingFiles files;
    files.Put("in", "abcde");
    files.ReadAtMost(3);
    files.TellLength(1);
    OpenFile(InputFileNumber, "in", OpenMode::Input);
    EXPECT_EQ(FileLength(InputFileNumber), 1);
    std::array<std::byte, 9> bytes;
    EXPECT_EQ(ReadFile(InputFileNumber, bytes), 3U);
    EXPECT_EQ(ReadFile(InputFileNumber, bytes), 2U);
    EXPECT_EQ(ReadFile(InputFileNumber, bytes), 0U);
}

TEST(FailingFiles, WritingFailsBehindItsLimit) {
    FailingFiles files;
    files.FailWritingAfter(4, ErrorDiskFull);
    OpenFile(OutputFileNumber, "out", OpenMode::Output);
    WriteFile(OutputFileNumber, Bytes("abc"));
    EXPECT_EQ(ErrorOf([] { WriteFile(OutputFileNumber, Bytes("def")); }), ErrorDiskFull);
    EXPECT_EQ(files.Contents("out"), "abcd");
    EXPECT_EQ(ErrorOf([] { WriteFile(OutputFileNumber, Bytes("g")); }), ErrorDiskFull);
}

TEST(FailingFiles, ReadingFailsBehindItsLimit) {
    FailingFiles files;
    files.Put("in", "abcdef");
    files.FailReadingAfter(5, ErrorDeviceIo);
    OpenFile(InputFileNumber, "in", OpenMode::Input);
    std::array<std::byte, 3> block = {};
    EXPECT_EQ(ReadFile(InputFileNumber, block), 3U);
    EXPECT_EQ(ErrorOf([&] { ReadFile(InputFileNumber, block); }), ErrorDeviceIo);
}

TEST(FailingFiles, FileThatEndsAtTheLimitIsReadWhole) {
    FailingFiles files;
    files.Put("in", "abc");
    files.FailReadingAfter(3, ErrorDeviceIo);
    OpenFile(InputFileNumber, "in", OpenMode::Input);
    std::array<std::byte, 8> block = {};
    EXPECT_EQ(ReadFile(InputFileNumber, block), 3U);
    EXPECT_EQ(ReadFile(InputFileNumber, block), 0U);
}

TEST(FailingFiles, OpeningSeekingAndClosingFailAsAsked) {
    FailingFiles files;
    files.FailOpening(ErrorPermissionDenied);
    EXPECT_EQ(ErrorOf([] { OpenFile(OutputFileNumber, "out", OpenMode::Output); }), ErrorPermissionDenied);
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
    files.FailOpening(0);
    OpenFile(OutputFileNumber, "out", OpenMode::Output);
    files.FailSeeking(ErrorDeviceIo);
    EXPECT_EQ(ErrorOf([] { SeekFile(OutputFileNumber, 0); }), ErrorDeviceIo);
    files.FailClosing(ErrorDiskFull);
    EXPECT_EQ(ErrorOf([] { CloseFile(OutputFileNumber); }), ErrorDiskFull);
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
}

TEST(FailingFiles, MissingFileIsNotFound) {
    FailingFiles files;
    EXPECT_EQ(ErrorOf([] { OpenFile(InputFileNumber, "in", OpenMode::Input); }), ErrorFileNotFound);
}

} // namespace
} // namespace quelmont
