#include "commandline/angle_value.h"
#include "commandline/option_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr AngleFieldKind Latitude = AngleFieldKind::Latitude;
constexpr AngleFieldKind Longitude = AngleFieldKind::Longitude;
constexpr AngleFieldKind Arc = AngleFieldKind::Arc;

struct AngleCase {
    AngleFieldKind kind;
    const char* value;
    const char* text;
};

class AngleValues : public testing::TestWithParam<AngleCase> {};

TEST_P(AngleValues, BecomeTheTextOfTheField) {
    EXPECT_EQ(AngleValue(GetParam().kind, GetParam().value), GetParam().text);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Forms, AngleValues, testing::Values(
    AngleCase{Latitude,  "40N",                  "40    00    00    N"},
    AngleCase{Latitude,  "40",                   "40    00    00    N"},
    AngleCase{Latitude,  "+40",                  "40    00    00    N"},
    AngleCase{Latitude,  "-40",                  "40    00    00    S"},
    AngleCase{Latitude,  "40s",                  "40    00    00    S"},
    AngleCase{Latitude,  "0",                    "00    00    00    N"},
    AngleCase{Latitude,  "7:5",                  "07    05    00    N"},
    AngleCase{Latitude,  "37:47:09S",            "37    47    09    S"},
    AngleCase{Latitude,  "-37.5",                "37    30    00    S"},
    AngleCase{Latitude,  "37.5S",                "37    30    00    S"},
    AngleCase{Latitude,  ".5",                   "00    30    00    N"},
    AngleCase{Latitude,  "-.5",                  "00    30    00    S"},
    AngleCase{Latitude,  "12.",                  "12    00    00    N"},
    AngleCase{Latitude,  "89.99999",             "90    00    00    N"}, // rounds up to 60 seconds
    AngleCase{Latitude,  "0.0001N",              "00    00    00    N"},
    AngleCase{Latitude,  "-0.0001",              "00    00    00    S"},
    AngleCase{Longitude, "122:26:00W",           "122    26    00    W"},
    AngleCase{Longitude, "-7.5",                 "007    30    00    W"},
    AngleCase{Longitude, "180",                  "180    00    00    E"},
    AngleCase{Longitude, "13:24e",               "013    24    00    E"},
    AngleCase{Arc,       "30",                   "030    00    00"},
    AngleCase{Arc,       "22:30",                "022    30    00"},
    AngleCase{Arc,       "7.5",                  "007    30    00"},
    AngleCase{Arc,       "0",                    "000    00    00"},
    // The text itself, taken as it stands.
    AngleCase{Latitude,  "37    47    00    N",  "37    47    00    N"},
    AngleCase{Latitude,  "37    47    00    Q",  "37    47    00    Q"},
    AngleCase{Latitude,  "37                S",  "37                S"},
    AngleCase{Longitude, "122    26    00    w", "122    26    00    w"},
    AngleCase{Arc,       "030    00    00",      "030    00    00"},
    // What the field's check is to refuse: a wrong letter, and numbers too large.
    AngleCase{Latitude,  "40W",                  "40    00    00    W"},
    AngleCase{Longitude, "40N",                  "040    00    00    N"},
    AngleCase{Latitude,  "95",                   "95    00    00    N"},
    AngleCase{Latitude,  "100",                  "99    00    00    N"},
    AngleCase{Latitude,  "100.5S",               "99    00    00    S"},
    AngleCase{Longitude, "1234W",                "999    00    00    W"},
    AngleCase{Latitude,  "40:60",                "40    60    00    N"},
    AngleCase{Latitude,  "40:123:00099999",      "40    99    99    N"},
    AngleCase{Latitude,  "0000000000000000000040", "40    00    00    N"},
    AngleCase{Arc,       "99999999999999999999.5", "999    00    00"}));
// clang-format on

class BadAngles : public testing::TestWithParam<std::pair<AngleFieldKind, const char*>> {};

TEST_P(BadAngles, AreRefused) { EXPECT_THROW(AngleValue(GetParam().first, GetParam().second), BadValue); }

INSTANTIATE_TEST_SUITE_P(
    Values, BadAngles,
    testing::Values(std::pair{Latitude, ""}, std::pair{Latitude, "N"}, std::pair{Latitude, "-"},
                    std::pair{Latitude, "abc"}, std::pair{Latitude, "40Q"}, std::pair{Latitude, "-40N"},
                    std::pair{Latitude, "+40S"}, std::pair{Latitude, "--40"}, std::pair{Latitude, "40NN"},
                    std::pair{Latitude, "40:"}, std::pair{Latitude, ":40"}, std::pair{Latitude, "40::30"},
                    std::pair{Latitude, "1:2:3:4"}, std::pair{Latitude, "40.5:30"},
                    std::pair{Latitude, "40:30.5"}, std::pair{Latitude, "."}, std::pair{Latitude, "1.2.3"},
                    std::pair{Latitude, "4e1"}, std::pair{Latitude, " 40"}, std::pair{Latitude, "40 N"},
                    std::pair{Latitude, "nan"}, std::pair{Latitude, "40,5"},
                    std::pair{Latitude, "37 47 00 N"}, std::pair{Latitude, "037    47    00    N"},
                    std::pair{Longitude, "37    47    00    E"}, std::pair{Arc, "-30"}, std::pair{Arc, "30N"},
                    std::pair{Arc, "030    00    00    E"}));

TEST(BadAngle, IsQuotedWithWhatWasExpected) {
    try {
        AngleValue(Latitude, "40Q");
        FAIL();
    } catch (const BadValue& bad) {
        EXPECT_STREQ(bad.what(), "\"40Q\" is no latitude such as 40N, -37.5 or 37:47:00S");
    }
}

TEST(Interruptions, AreUpToThreeLongitudes) {
    EXPECT_THAT(InterruptionsValue("100E"), ElementsAre("100    00    00    E"));
    EXPECT_THAT(InterruptionsValue("100E,-100,0"),
                ElementsAre("100    00    00    E", "100    00    00    W", "000    00    00    E"));
    EXPECT_THAT(InterruptionsValue("none"), IsEmpty());
    EXPECT_THAT(InterruptionsValue("None"), IsEmpty());
    EXPECT_THROW(InterruptionsValue("1,2,3,4"), BadValue);
    EXPECT_THROW(InterruptionsValue("1,,3"), BadValue);
    EXPECT_THROW(InterruptionsValue("1,"), BadValue);
    EXPECT_THROW(InterruptionsValue(""), BadValue);
}

TEST(Digits, AreFilledUpWithZeros) {
    EXPECT_EQ(DigitsValue("500000", 7), "0500000");
    EXPECT_EQ(DigitsValue("12345678", 8), "12345678");
    for (const char* bad : {"", "123456789", "-5", "+5", "1.5", "5m", " 5"}) {
        EXPECT_THROW(DigitsValue(bad, 8), BadValue) << bad;
    }
}

TEST(ScaleFactor, IsAPlainNumberAboveZero) {
    EXPECT_EQ(ScaleFactorValue("0.9996"), "0.9996");
    EXPECT_EQ(ScaleFactorValue("1"), "1");
    for (const char* bad : {"", "0", "0.0", "-1", "1e3", ".", "1.2.3", "inf", "12345678901234567"}) {
        EXPECT_THROW(ScaleFactorValue(bad), BadValue) << bad;
    }
}

TEST(Numbers, LieWithinTheirLimits) {
    EXPECT_EQ(NumberValue("10", 10, 100), 10);
    EXPECT_EQ(NumberValue("100", 10, 100), 100);
    for (const char* bad : {"9", "101", "", "ten", "10.0", "50%", "99999999999999999999"}) {
        EXPECT_THROW(NumberValue(bad, 10, 100), BadValue) << bad;
    }
    EXPECT_THAT(NumbersValue("3,4,10", 1, 10), ElementsAre(3, 4, 10));
    EXPECT_THROW(NumbersValue("3,11", 1, 10), BadValue);
    EXPECT_THROW(NumbersValue("3,", 1, 10), BadValue);
}

TEST(Colours, AreStoredBlueFirstWithTheirFlag) {
    EXPECT_EQ(ColorOf("FF8001"), 0x020180FFU);
    EXPECT_EQ(ColorOf("#ff8001"), 0x020180FFU);
    for (const char* bad : {"", "FFF", "FF80011", "GG0000", "red", "-F8001", "#", "##F8001", "0xFF80"}) {
        EXPECT_THROW(ColorOf(bad), BadValue) << bad;
    }
}

TEST(Sizes, AreTwoNumbers) {
    EXPECT_EQ(SizeValue("1280x924"), (SurfacePoint{1280, 924}));
    EXPECT_EQ(SizeValue("16x32767"), (SurfacePoint{16, 32767}));
    for (const char* bad : {"", "x", "1280", "1280x", "x924", "15x924", "1280x15", "1280x32768", "-5x5",
                            "1280X924", "1280x924x3", "1280 x 924"}) {
        EXPECT_THROW(SizeValue(bad), BadValue) << bad;
    }
}

TEST(ProjectionNames, AreNumbersNamesOrTheirFirstWords) {
    EXPECT_EQ(ProjectionValue("16"), 16);
    EXPECT_EQ(ProjectionValue("Robinson"), 16);
    EXPECT_EQ(ProjectionValue("rObInSoN"), 16);
    EXPECT_EQ(ProjectionValue("interrupted mollweide equal-area"), 42);
    EXPECT_EQ(ProjectionValue("mollweide"), 41);
    EXPECT_EQ(ProjectionValue("vertical perspective"), 29);
    EXPECT_EQ(ProjectionValue("azimuthal equidistant"), 30);
    // Two begin with it; no word; unknown numbers.
    for (const char* bad : {"azimuthal", "", "robin", "gall", "3", "0", "-2", "2.0", "16 "}) {
        EXPECT_THROW(ProjectionValue(bad), BadValue) << bad;
    }
}

TEST(SpheroidNames, ComeInAnyCase) {
    EXPECT_EQ(SpheroidValue("wgs84 1984"), "WGS84 1984");
    EXPECT_THROW(SpheroidValue("wgs84"), BadValue);
    EXPECT_THROW(SpheroidValue(""), BadValue);
}

} // namespace
} // namespace quelmont
