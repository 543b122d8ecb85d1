#include "core/run_time_error.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

TEST(RunTimeError, HasTheSystemsPhraseForItsNumber) {
    EXPECT_EQ(RunTimeError(6).Description(), "Overflow");
    EXPECT_EQ(RunTimeError(11).Description(), "Division by zero");
    EXPECT_EQ(RunTimeError(9).Description(), "Subscript out of range");
    EXPECT_EQ(RunTimeError(5).Description(), "Invalid procedure call or argument");
    EXPECT_EQ(RunTimeError(13).Description(), "Type mismatch");
    EXPECT_EQ(RunTimeError(53).Description(), "File not found");
    EXPECT_EQ(RunTimeError(61).Description(), "Disk full");
    EXPECT_EQ(RunTimeError(62).Description(), "Input past end of file");
    EXPECT_EQ(RunTimeError(70).Description(), "Permission denied");
    EXPECT_EQ(RunTimeError(75).Description(), "Path/File access error");
    EXPECT_EQ(RunTimeError(76).Description(), "Path not found");
}

TEST(RunTimeError, UnknownNumberHasAPhraseToo) {
    EXPECT_EQ(RunTimeError(12345).Description(), "Application-defined or object-defined error");
}

TEST(RunTimeError, IsAStandardExceptionWithTheSamePhrase) {
    try {
        throw RunTimeError(ErrorDiskFull);
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "Disk full");
    }
}

} // namespace
} // namespace quelmont
