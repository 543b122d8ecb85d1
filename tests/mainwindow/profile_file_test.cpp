#include "mainwindow/profile_file.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include <sys/stat.h>
#include <unistd.h>

namespace quelmont {
namespace {

class ProfileFile : public testing::Test {
protected:
    std::optional<std::string> Read(std::string_view key) const {
        return ReadProfileString(file, "Quelmont", key);
    }
    bool Write(std::string_view key, std::string_view value) const {
        return WriteProfileString(file, "Quelmont", key, value);
    }

    TemporaryFolder folder;
    std::string file = folder / "Qmnt.ini";
};

TEST_F(ProfileFile, MissingFileSectionOrKeyIsNothing) {
    EXPECT_EQ(Read("Key"), std::nullopt);
    WriteWholeFile(file, "[Other]\nKey=1\n");
    EXPECT_EQ(Read("Key"), std::nullopt);
    WriteWholeFile(file, "[Quelmont]\nOther=1\n");
    EXPECT_EQ(Read("Key"), std::nullopt);
}

TEST_F(ProfileFile, KeyWithoutAValueIsEmpty) {
    WriteWholeFile(file, "[Quelmont]\nKey=\n");
    EXPECT_EQ(Read("Key"), "");
}

TEST_F(ProfileFile, LetterCaseAndBlanksDoNotCount) {
    WriteWholeFile(file, "[ qUELMONT ]\r\n  wINDOWmAXIMIZED \t=  1 2 \r\n");
    EXPECT_EQ(Read("WindowMaximized"), "1 2");
}

TEST_F(ProfileFile, OnePairOfQuotesAroundAValueIsDropped) {
    const auto read = [&](const std::string& value) {
        WriteWholeFile(file, "[Quelmont]\nKey=" + value + "\n");
        return Read("Key");
    };
    EXPECT_EQ(read("\"1 2\""), "1 2");
    EXPECT_EQ(read("  '1 2'  "), "1 2");
    EXPECT_EQ(read("\"\"1\"\""), "\"1\"") << "one pair only";
    EXPECT_EQ(read("\" 1 \""), " 1 ") << "blanks inside are the value's";
    EXPECT_EQ(read("\"\""), "");
    EXPECT_EQ(read("\""), "\"") << "one quote is no pair";
    EXPECT_EQ(read("\"1'"), "\"1'") << "two kinds are no pair";
    EXPECT_EQ(read("1\" 2\""), "1\" 2\"") << "around the whole value only";
}

TEST_F(ProfileFile, ByteOrderMarkIsPassedOverAndKept) {
    WriteWholeFile(file, "\xEF\xBB\xBF[Quelmont]\r\nKey=1\r\n");
    EXPECT_EQ(Read("Key"), "1");
    EXPECT_TRUE(Write("Key", "2"));
    EXPECT_EQ(ReadWholeFile(file), "\xEF\xBB\xBF[Quelmont]\r\nKey=2\r\n");
    WriteWholeFile(file, "; mine\n\xEF\xBB\xBF[Quelmont]\nKey=1\n");
    EXPECT_EQ(Read("Key"), std::nullopt) << "before the first line only";
}

TEST_F(ProfileFile, WritingFollowsALink) {
    std::filesystem::create_directory(folder / "elsewhere");
    const std::string real = folder / "elsewhere/mine.ini";
    WriteWholeFile(real, "[Quelmont]\nOther=1\n");
    std::filesystem::create_symlink("elsewhere/mine.ini", file);
    EXPECT_TRUE(Write("Key", "2"));
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(ReadWholeFile(real), "[Quelmont]\r\nOther=1\r\nKey=2\r\n");

    std::filesystem::remove(real);
    EXPECT_TRUE(Write("Key", "3")) << "a link to a file that is not there yet makes it";
    EXPECT_EQ(ReadWholeFile(real), "[Quelmont]\r\nKey=3\r\n");
}

TEST_F(ProfileFile, WritingKeepsModeAndOwner) {
    WriteWholeFile(file, "[Quelmont]\n");
    constexpr auto mode = std::filesystem::perms::owner_read | std::filesystem::perms::owner_write |
                          std::filesystem::perms::group_read;
    std::filesystem::permissions(file, mode);
    constexpr uid_t other = 12345;
    const bool given = chown(file.c_str(), other, other) == 0; // as root only
    EXPECT_TRUE(Write("Key", "1"));
    EXPECT_EQ(std::filesystem::status(file).permissions(), mode);
    struct stat facts = {};
    ASSERT_EQ(stat(file.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_uid, given ? other : geteuid());
    EXPECT_EQ(facts.st_gid, given ? other : getegid());
}

TEST_F(ProfileFile, KeyOfAnotherSectionIsNotTaken) {
    WriteWholeFile(file, "[One]\nKey=1\n[Quelmont]\n[Two]\nKey=2\n");
    EXPECT_EQ(Read("Key"), std::nullopt);
}

TEST_F(ProfileFile, WritingMakesTheFile) {
    EXPECT_TRUE(Write("Key", "1"));
    EXPECT_EQ(ReadWholeFile(file), "[Quelmont]\r\nKey=1\r\n");
}

TEST_F(ProfileFile, WritingKeepsEveryOtherLine) {
    WriteWholeFile(file, "; mine\n[One]\nKey=1\n\n[quelmont]\nkey=2\nB=3\n\n[Two]\nKey=4\n");
    EXPECT_TRUE(Write("Key", "5"));
    EXPECT_TRUE(Write("New", "6"));
    EXPECT_EQ(ReadWholeFile(file),
              "; mine\r\n[One]\r\nKey=1\r\n\r\n[quelmont]\r\nKey=5\r\nB=3\r\nNew=6\r\n\r\n[Two]"
              "\r\nKey=4\r\n");
}

TEST_F(ProfileFile, WritingLeavesNoOtherFile) {
    EXPECT_TRUE(Write("Key", "1"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST_F(ProfileFile, WhatCannotBeWrittenIsReportedByTheAnswer) {
    EXPECT_FALSE(WriteProfileString(folder / "missing/Qmnt.ini", "Quelmont", "Key", "1"));
    std::filesystem::create_directory(file);
    EXPECT_FALSE(Write("Key", "1"));
    EXPECT_EQ(Read("Key"), std::nullopt);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1)
        << "nothing is left over";
}

TEST_F(ProfileFile, DamagedFileIsReadAsFarAsItGoes) {
    WriteWholeFile(file,
                   std::string("\0\xFF\xFE[[[]]=\n=\n[\n]\n[Quelmont\nKey=1\n[Quelmont]\nKey\nKey=2", 52));
    EXPECT_EQ(Read("Key"), "2");
}

TEST_F(ProfileFile, HugeFileIsNotRead) {
    WriteWholeFile(file, "[Quelmont]\nKey=1\n" + std::string(2 * 1024 * 1024, ' '));
    EXPECT_EQ(Read("Key"), std::nullopt);
}

} // namespace
} // namespace quelmont
