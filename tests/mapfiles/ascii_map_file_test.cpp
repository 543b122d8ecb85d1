#include "mapfiles/ascii_map_file.h"

#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <charconv>
#include <random>

#include <limits>
#include <ostream>

namespace quelmont {

std::ostream& operator<<(std::ostream& stream, const AsciiMapPoint& point) {
    return stream << point.Break << ", " << point.Second << ", " << point.Third << ", " << point.Label;
}

namespace {

AsciiMapPoint First(std::string_view text) { return TakeAsciiMapPoint(text); }
std::string_view Behind(std::string_view text) {
    TakeAsciiMapPoint(text);
    return text;
}

TEST(AsciiMapFile, NumbersStandBetweenCommasOrBlanks) {
    const AsciiMapPoint point{1, -10.5, 20.25, ""};
    for (const std::string_view text : {"1,-10.5,20.25\r\n", "1 -10.5 20.25\n", "1\t-10.5   20.25",
                                        " 1 , -10.5 , 20.25 \r", "1,-10.5 20.25,"}) {
        EXPECT_EQ(First(text), point) << text;
    }
}

TEST(AsciiMapFile, NumbersOfAPointMayStandOnSeveralLines) {
    EXPECT_EQ(First("1\r\n-10.5\n\n20.25\n"), (AsciiMapPoint{1, -10.5, 20.25, ""}));
}

TEST(AsciiMapFile, NothingBetweenTwoCommasIs0) {
    EXPECT_EQ(First(",,,\n"), (AsciiMapPoint{0, 0.0, 0.0, ""}));
    EXPECT_EQ(First("5,,7\n"), (AsciiMapPoint{5, 0.0, 7.0, ""}));
}

TEST(AsciiMapFile, WordsAre0) { EXPECT_EQ(First("break,lat,lon\n"), (AsciiMapPoint{0, 0.0, 0.0, ""})); }

/// Whatever the number of digits, a number is the double nearest to it, the one that the C++ library reads.
TEST(AsciiMapFile, NumbersAreTheNearestDoubles) {
    std::mt19937 generator(5);
    const auto digits = [&](int count) {
        std::string text;
        for (int i = 0; i < count; ++i) {
            text += static_cast<char>('0' + generator() % 10);
        }
        return text;
    };
    for (int i = 0; i < 100'000; ++i) {
        std::string number = generator() % 2 == 0 ? "-" : "";
        number += digits(1 + static_cast<int>(generator() % 6));
        if (generator() % 4 != 0) {
            number += "." + digits(static_cast<int>(generator() % 14));
        }
        double expected = 0.0;
        std::from_chars(number.data(), number.data() + number.size(), expected);
        const AsciiMapPoint point = First("1," + number + ",7.25\n");
        ASSERT_EQ(point.Second, expected) << number;
        ASSERT_EQ(point.Third, 7.25) << number;
    }
}

TEST(AsciiMapFile, SignsPointsAndExponentsMayStandAlone) {
    EXPECT_EQ(First("1 +5 .5\n"), (AsciiMapPoint{1, 5.0, 0.5, ""}));
    EXPECT_EQ(First("1 -.25 5.\n"), (AsciiMapPoint{1, -0.25, 5.0, ""}));
    EXPECT_EQ(First("1 - .\n"), (AsciiMapPoint{1, 0.0, 0.0, ""}));
    EXPECT_EQ(First("1 1e1 -2.5E-1\n"), (AsciiMapPoint{1, 10.0, -0.25, ""}));
    EXPECT_EQ(First("1 1.2.3 4-5\n"), (AsciiMapPoint{1, 1.2, 4.0, ""}));
    EXPECT_EQ(First("1 0000000000000000000012.5 1234567890123456\n"),
              (AsciiMapPoint{1, 12.5, 1234567890123456.0, ""}));
}

TEST(AsciiMapFile, FirstNumberIsWhole) {
    EXPECT_EQ(First("-1,0,0\n").Break, -1);
    EXPECT_EQ(First("0.5,0,0\n").Break, 0) << "a half goes to the even number";
    EXPECT_EQ(First("0.6,0,0\n").Break, 1);
    EXPECT_TRUE(First("0.6,0,0\n").BreakRounded);
    EXPECT_FALSE(First("1.0,0,0\n").BreakRounded);
    EXPECT_EQ(ErrorOf([] { First("1E10,0,0\n"); }), ErrorOverflow);
}

TEST(AsciiMapFile, NextPointBeginsBehindTheLine) {
    EXPECT_EQ(Behind("1,2,3\r\n4,5,6"), "4,5,6");
    EXPECT_EQ(Behind("1,2,3 \n4,5,6"), "4,5,6");
    EXPECT_EQ(Behind("1,2,3 4,5,6"), "4,5,6") << "even when there is no line end";
    EXPECT_EQ(Behind("1,2,3"), "");
}

TEST(AsciiMapFile, LabelStandsInDoubleQuotes) {
    EXPECT_EQ(First("1,2,3,\"New York, N.Y.\"\r\n").Label, "New York, N.Y.");
    EXPECT_EQ(First("1,2,3,   \"Oslo\"\n").Label, "Oslo") << "blanks after the comma are passed over";
    EXPECT_EQ(First("1 2 3 \"Oslo\"").Label, "Oslo");
    EXPECT_EQ(First("1,2,3,\"\"\n").Label, "");
    EXPECT_EQ(First("1,2,3,Oslo\n").Label, "") << "no quotes, no label";
}

TEST(AsciiMapFile, RestOfALabelsLineMeansNothing) {
    EXPECT_EQ(Behind("1,2,3,\"Oslo\" 17, \"capital\"\r\n4,5,6"), "4,5,6");
    EXPECT_EQ(Behind("1,2,3,\"Oslo\"\r4,5,6"), "4,5,6");
}

TEST(AsciiMapFile, LabelWithoutAClosingQuoteIsAnError) {
    EXPECT_EQ(ErrorOf([] { First("1,2,3,\"Oslo\n4,5,6,\"\n"); }), ErrorInvalidCall);
    EXPECT_EQ(ErrorOf([] { First("1,2,3,\""); }), ErrorInvalidCall);
}

TEST(AsciiMapFile, PointThatIsCutOffIsAnError) {
    for (const std::string_view text : {"1", "1,", "1,2", "1,2,", "1,2,  \r\n\r\n"}) {
        EXPECT_EQ(ErrorOf([&] { First(text); }), ErrorInputPastEnd) << text;
    }
}

TEST(AsciiMapFile, LineIsEncodedWithItsEnd) {
    EXPECT_EQ(EncodeAsciiMapPoint({1, -0.5, 179.123456, ""}, 6), "1,-0.500000,179.123456\r\n");
    EXPECT_EQ(EncodeAsciiMapPoint({0, 500'000.26, 5'700'000, "Oslo"}, 1),
              "0,500000.3,5700000.0,\"Oslo\"\r\n");
    EXPECT_EQ(EncodeAsciiMapPoint({0, 1.4, 2, ""}, 0), "0,1,2\r\n");
    EXPECT_EQ(ErrorOf([] {
                  EncodeAsciiMapPoint({0, std::numeric_limits<double>::quiet_NaN(), 0, ""}, 6);
              }),
              ErrorOverflow);
}

TEST(AsciiMapFile, LabelIsReadBackAsFarAsTheFormatCanHoldIt) {
    const std::string line = EncodeAsciiMapPoint({1, 0, 0, "\"The Hague\"\r\nS\xC3\xA3o Paulo"}, 6);
    EXPECT_EQ(First(line).Label, "'The Hague'  S\xC3\xA3o Paulo");
}

} // namespace
} // namespace quelmont
