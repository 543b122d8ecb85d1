#include "output/cgm/cgm_words.h"

#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <string>

namespace quelmont {
namespace {

using namespace std::string_literals;

TEST(CgmWords, NumbersAreTwosComplementHighByteFirst) {
    CgmWords words;
    words.Word(0).Word(1).Word(-1).Word(32767).Word(-32768).Bits(0xFF01);
    EXPECT_EQ(words.Bytes(), "\x00\x00\x00\x01\xFF\xFF\x7F\xFF\x80\x00\xFF\x01"s);
}

TEST(CgmWords, NumbersBeyondSixteenBitsOverflow) {
    CgmWords words;
    EXPECT_EQ(ErrorOf([&] { words.Word(32768); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([&] { words.Word(-32769); }), ErrorOverflow);
    EXPECT_EQ(words.Bytes(), "");
}

TEST(CgmWords, ElementIsItsHeaderAndItsParameters) {
    EXPECT_EQ(CgmWords(0x10A6, {1, 16, -16}).Bytes(), "\x10\xA6\x00\x01\x00\x10\xFF\xF0"s);
    EXPECT_EQ(CgmWords(0x0080, {}).Bytes(), "\x00\x80"s);
}

TEST(CgmWords, ColorIsRedGreenBlueWithoutTheFlagOfThePalette) {
    CgmWords words;
    words.Color(0x02123456); // blue 12, green 34, red 56
    EXPECT_EQ(words.Bytes(), "\x00\x56\x00\x34\x00\x12"s);
}

TEST(CgmWords, StringStandsBehindItsLength) {
    CgmWords words;
    words.String("abc").String("");
    EXPECT_EQ(words.Bytes(), "\x03"
                             "abc\x00"s);
}

TEST(CgmWords, OddCountIsPaddedAndAnEvenOneIsNot) {
    CgmWords words;
    words.String("ab");
    EXPECT_EQ(words.PadToEven().Bytes(), "\x02"
                                         "ab\x00"s);
    EXPECT_EQ(words.PadToEven().Bytes().size(), 4U);
    EXPECT_EQ(words.Append(CgmWords(0x0040, {})).Bytes(), "\x02"
                                                          "ab\x00\x00\x40"s);
}

} // namespace
} // namespace quelmont
