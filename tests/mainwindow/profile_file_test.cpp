#include "mainwindow/profile_file.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

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

TEST_F(ProfileFile, WhatCannotBeWrittenIsToldByTheAnswer) {
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
