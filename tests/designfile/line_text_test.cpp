#include "designfile/line_text.h"

#include "support/run_time_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quelmont {
namespace {

using testing::ElementsAre;

TEST(LineText, SpacedFormHasTheZeroBeforeThePoint) {
    EXPECT_EQ(SpacedText(0.5), " 0.5");
    EXPECT_EQ(SpacedText(-0.25), "-0.25");
    EXPECT_EQ(SpacedText(45.0), " 45");
    EXPECT_EQ(SpacedText(std::sqrt(0.5)), " 0.707106781186548");
    EXPECT_EQ(SpacedText(-1.5707963267948966), "-1.5707963267949");
    EXPECT_EQ(SpacedText(0.0), " 0");
    EXPECT_EQ(SpacedText(-0.0), " 0");
}

TEST(LineText, SpacedFormTakesAnExponentWhereTheDigitsDoNotReach) {
    EXPECT_EQ(SpacedText(123456789012345.0), " 123456789012345");
    EXPECT_EQ(SpacedText(1e15), " 1E+15");
    EXPECT_EQ(SpacedText(0.0001), " 0.0001");
    EXPECT_EQ(SpacedText(0.00001), " 1E-05");
    EXPECT_EQ(SpacedText(-2.5e-300), "-2.5E-300");
}

TEST(LineText, SingleNumbersHaveSevenDigits) {
    EXPECT_EQ(SpacedText(13.0909090909F), " 13.09091");
    EXPECT_EQ(SpacedText(4.692187F), " 4.692187");
    EXPECT_EQ(SpacedText(1234567.0F), " 1234567");
    EXPECT_EQ(SpacedText(1e7F), " 1E+07");
}

TEST(LineText, WholeNumbersInASpacedLineHaveNoBlankBehind) {
    EXPECT_EQ(SpacedText(std::int32_t{6}), " 6");
    EXPECT_EQ(SpacedText(std::int32_t{-1}), "-1");
    EXPECT_EQ(SpacedText(std::numeric_limits<std::int32_t>::min()), "-2147483648");
}

TEST(LineText, WhatIsNotFiniteIsAnOverflow) {
    EXPECT_EQ(ErrorOf([] { SpacedText(std::numeric_limits<double>::infinity()); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { SpacedText(std::numeric_limits<float>::quiet_NaN()); }), ErrorOverflow);
}

TEST(LineText, QuotedTextLosesItsOuterQuotesOnly) {
    EXPECT_EQ(Quoted("Oslo, the \"old\" town"), "\"Oslo, the \"old\" town\"");
    EXPECT_EQ(Unquoted("\"Oslo, the \"old\" town\""), "Oslo, the \"old\" town");
    EXPECT_EQ(Unquoted("\" two blanks  \" "), " two blanks  ");
    EXPECT_EQ(Unquoted("\"\""), "");
    EXPECT_EQ(Unquoted("\"\"\"\""), "\"\"");
}

TEST(LineText, LineWithoutBothQuotesIsRefused) {
    for (const char* line : {"", "\"", "Oslo", "\"Oslo", "Oslo\""}) {
        EXPECT_EQ(ErrorOf([&] { Unquoted(line); }), ErrorTypeMismatch);
    }
}

TEST(LineText, NumbersAreSplitAtRunsOfBlanksCommasAndTabs) {
    EXPECT_THAT(NumberItems(" 15  3 ", 2), ElementsAre("15", "3"));
    EXPECT_THAT(NumberItems("-1 , 33587200 , 15 ,", 3), ElementsAre("-1", "33587200", "15"));
    EXPECT_THAT(NumberItems("\t1,,2\t \t3", 3), ElementsAre("1", "2", "3"));
    EXPECT_THAT(NumberItems(" 1  2  3 ", 2), ElementsAre("1", "2")) << "what is surplus is dropped";
    EXPECT_EQ(ErrorOf([] { NumberItems(" 15 ", 2); }), ErrorInputPastEnd);
    EXPECT_EQ(ErrorOf([] { NumberItems("", 1); }), ErrorInputPastEnd);
}

TEST(LineText, ListFromTheLeftBreaksAtItsFirstCommas) {
    EXPECT_THAT(ItemsFromLeft("a, b ,c,d", 3), ElementsAre("a", "b", "c"));
    EXPECT_THAT(ItemsFromLeft(",,", 3), ElementsAre("", "", ""));
    EXPECT_THAT(ItemsFromLeft("  whole  ", 1), ElementsAre("whole"));
    EXPECT_EQ(ErrorOf([] { ItemsFromLeft("a,b", 3); }), ErrorInputPastEnd);
}

TEST(LineText, ListFromTheRightLeavesCommasToItsFirstItem) {
    EXPECT_THAT(ItemsFromRight("C:\\maps\\one, two.map, 1 ", 2), ElementsAre("C:\\maps\\one, two.map", "1"));
    EXPECT_THAT(ItemsFromRight(", 0 , 0 ", 3), ElementsAre("", "0", "0"));
    EXPECT_EQ(ErrorOf([] { ItemsFromRight("no comma", 2); }), ErrorInputPastEnd);
}

TEST(LineText, NumberIsTheWholeOfItsText) {
    EXPECT_EQ(NumberOf("15"), 15.0);
    EXPECT_EQ(NumberOf(".5"), 0.5);
    EXPECT_EQ(NumberOf("-0.5"), -0.5);
    EXPECT_EQ(NumberOf("5."), 5.0);
    EXPECT_EQ(NumberOf("+2E-05"), 2e-05);
    EXPECT_EQ(NumberOf("1e20"), 1e20);
    EXPECT_EQ(NumberOf("1E-400"), 0.0);
    for (const char* text : {"", "text", "-", ".", "1x", "1.2.3", "1E", "1E+", "--1", "+-1", "nan", "NaN",
                             "inf", "infinity", "0x10", "E5", "1,5", "1 5"}) {
        EXPECT_EQ(ErrorOf([&] { NumberOf(text); }), ErrorTypeMismatch);
    }
    EXPECT_EQ(ErrorOf([] { NumberOf("1E400"); }), ErrorOverflow);
}

TEST(LineText, TextWithALineEndFitsNoLine) {
    EXPECT_TRUE(FitsLine("Oslo, \"the\" \t t\xC3\xB8wn"));
    EXPECT_FALSE(FitsLine("a\rb"));
    EXPECT_FALSE(FitsLine("a\n"));
    EXPECT_FALSE(FitsLine(std::string("a\0b", 3)));
    EXPECT_FALSE(FitsLine("a\x1A"));
}

TEST(LineText, AnyLineEndEndsALine) {
    LineReader lines("one\r\ntwo\nthree\r\r\n four \r\n");
    for (const char* line : {"one", "two", "three", "", " four "}) {
        EXPECT_EQ(lines.Next(), line);
    }
    EXPECT_EQ(ErrorOf([&] { lines.Next(); }), ErrorInputPastEnd);
}

TEST(LineText, LastLineNeedsNoEnd) {
    LineReader lines("one\ntwo");
    EXPECT_TRUE(lines.HasLeft(2));
    EXPECT_FALSE(lines.HasLeft(3));
    lines.Next();
    EXPECT_EQ(lines.Next(), "two");
    EXPECT_TRUE(lines.HasLeft(0));
    EXPECT_FALSE(lines.HasLeft(1));
}

} // namespace
} // namespace quelmont
