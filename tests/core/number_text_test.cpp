#include "core/number_text.h"

#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quelmont {
namespace {

TEST(ValueOf, ReadsTheNumberAtTheFront) {
    EXPECT_EQ(ValueOf("37"), 37.0);
    EXPECT_EQ(ValueOf("-12.25"), -12.25);
    EXPECT_EQ(ValueOf("+5"), 5.0);
    EXPECT_EQ(ValueOf(".5"), 0.5);
    EXPECT_EQ(ValueOf("5."), 5.0);
    EXPECT_EQ(ValueOf("0.9996"), 0.9996);
    EXPECT_EQ(ValueOf("00035840"), 35840.0);
}

TEST(ValueOf, PassesOverBlanksAnywhere) {
    EXPECT_EQ(ValueOf("   7"), 7.0);
    EXPECT_EQ(ValueOf("12 34"), 1234.0);
    EXPECT_EQ(ValueOf("- 1 . 5"), -1.5);
    EXPECT_EQ(ValueOf("\t2"), 2.0);
}

TEST(ValueOf, StopsAtTheFirstCharacterThatDoesNotBelong) {
    EXPECT_EQ(ValueOf("12 34x5"), 1234.0);
    EXPECT_EQ(ValueOf("1.2.3"), 1.2);
    EXPECT_EQ(ValueOf("3,5"), 3.0);
    EXPECT_EQ(ValueOf("45N"), 45.0);
    EXPECT_EQ(ValueOf("1-2"), 1.0);
    EXPECT_EQ(ValueOf("0x10"), 0.0);
}

TEST(ValueOf, ReadsAnExponentOnlyWhenItHasDigits) {
    EXPECT_EQ(ValueOf("1.5E3"), 1500.0);
    EXPECT_EQ(ValueOf("1e-2"), 0.01);
    EXPECT_EQ(ValueOf("2E+2"), 200.0);
    EXPECT_EQ(ValueOf("1E"), 1.0);
    EXPECT_EQ(ValueOf("1E+"), 1.0);
    EXPECT_EQ(ValueOf("12E"), 12.0);
    EXPECT_EQ(ValueOf("E5"), 0.0);
}

TEST(ValueOf, TextWithoutANumberIsZero) {
    for (const char* const text : {"", "   ", "&", "-", ".", "N", "nan", "inf", "-.E3"}) {
        EXPECT_EQ(ValueOf(text), 0.0) << text;
    }
}

TEST(ValueOf, ManyDigitsAreReadToTheNearestDouble) {
    EXPECT_EQ(ValueOf("123456789012345"), 123456789012345.0);
    EXPECT_EQ(ValueOf("9007199254740993"), 9007199254740992.0) << "2^53 + 1 lies between two doubles";
    EXPECT_EQ(ValueOf("3.14159265358979"), 3.14159265358979);
    EXPECT_EQ(ValueOf(std::string(400, '0') + "7"), 7.0);
}

TEST(ValueOf, TooLargeANumberOverflowsATooSmallOneIsZero) {
    EXPECT_EQ(ErrorOf([] { ValueOf("1E400"); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { ValueOf("-1E400"); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { ValueOf(std::string(400, '9')); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { ValueOf("1E99999999999999999999"); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { ValueOf("3E09223372036854775807"); }), ErrorOverflow) << "the largest exponent";
    EXPECT_EQ(ValueOf("3E-9223372036854775807"), 0.0);
    EXPECT_EQ(ValueOf("0E9223372036854775807"), 0.0);
    EXPECT_EQ(ValueOf("1E-400"), 0.0);
    EXPECT_EQ(ValueOf("1E-99999999999999999999"), 0.0);
    EXPECT_EQ(ValueOf("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(ValueOf("0E999"), 0.0);
}

struct PictureCase {
    double value;
    const char* picture;
    const char* text;
};

void PrintTo(const PictureCase& example, std::ostream* stream) {
    *stream << example.value << " in \"" << example.picture << '"';
}

class Pictures : public testing::TestWithParam<PictureCase> {};

TEST_P(Pictures, GiveTheText) {
    EXPECT_EQ(FormatNumber(GetParam().value, GetParam().picture), GetParam().text);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(TransformedCoordinates, Pictures, testing::Values(
    PictureCase{ 0.5,          "0.0000000  ", "0.5000000  "},
    PictureCase{ 0.25,         "00.0000000",  "00.2500000"},
    PictureCase{ 5.0,          "00.0000000",  "05.0000000"},
    PictureCase{ 12.5,         "00.0000000",  "12.5000000"},
    PictureCase{ 123.5,        "00.0000000",  "123.5000000"},
    PictureCase{ 1.0 / 3.0,    "0.0000000  ", "0.3333333  "},
    PictureCase{ 2.0 / 3.0,    "0.0000000  ", "0.6666667  "},
    PictureCase{ 0.99999995,   "0.0000000  ", "1.0000000  "},
    PictureCase{ 9.99999995,   "00.0000000",  "10.0000000"},
    PictureCase{ 0.0,          "0.0000000  ", "0.0000000  "}));

INSTANTIATE_TEST_SUITE_P(Ties, Pictures, testing::Values(
    PictureCase{ 0.125,        "0.00",        "0.13"},
    PictureCase{ 2.5,          "0",           "3"},
    PictureCase{ 0.5,          "0",           "1"},
    PictureCase{-2.5,          "0",           "-3"},
    PictureCase{ 0.05,         "####0.0",     "0.1"},
    PictureCase{ 2.675,        "0.00",        "2.68"},  // the double is a little less than 2.675
    PictureCase{ 1.005,        "0.00",        "1.01"},
    PictureCase{ 0.1 + 0.2,    "0.0",         "0.3"},
    PictureCase{ 2.4999999,    "0",           "2"}));

INSTANTIATE_TEST_SUITE_P(NegativeValues, Pictures, testing::Values(
    PictureCase{-5.25,         "00.0000",     "-05.2500"},
    PictureCase{-0.00000001,   "0.0000000  ", "-0.0000000  "},
    PictureCase{-0.4,          "00",          "-00"},
    PictureCase{-5.25,         " 00.0000",    "- 05.2500"},
    PictureCase{-0.0,          "0.0",         "0.0"},
    PictureCase{-1234567.0,    "#,###,###",   "-1,234,567"}));

INSTANTIATE_TEST_SUITE_P(Groups, Pictures, testing::Values(
    PictureCase{ 6378206.4,    "#,###,###",   "6,378,206"},
    PictureCase{ 12.0,         "#,###,###",   "12"},
    PictureCase{ 1000.0,       "#,###,###",   "1,000"},
    PictureCase{ 0.0,          "#,###,###",   ""},
    PictureCase{ 5600000.0,    "00,000,000",  "05,600,000"},
    PictureCase{ 19352.0,      "00,000,000",  "00,019,352"},
    PictureCase{ 123456789.0,  "00,000,000",  "123,456,789"},
    PictureCase{ 500000.0,     "0,000,000",   "0,500,000"},
    PictureCase{ 999.95,       "00,000.0",    "01,000.0"},
    PictureCase{ 500.0,        "0,000.0",     "0,500.0"},
    PictureCase{ 35840.0,      "##,###,###",  "35,840"}));

INSTANTIATE_TEST_SUITE_P(PlacesThatMayStayEmpty, Pictures, testing::Values(
    PictureCase{ 294.9786982,  "###.0000",    "294.9787"},
    PictureCase{ 0.5,          "###.0000",    ".5000"},
    PictureCase{ 12.34,        "####0.0",     "12.3"},
    PictureCase{ 0.0,          "####0.0",     "0.0"},
    PictureCase{ 8.5,          "##0.00 ",     "8.50 "},
    PictureCase{ 1.5,          "0.0##",       "1.5"},
    PictureCase{ 1.2345,       "0.0##",       "1.235"},
    PictureCase{ 12.5,         ".00",         "12.50"},
    PictureCase{ 6226000.125,  "#########0.0000", "6226000.1250"}));

INSTANTIATE_TEST_SUITE_P(OtherCharacters, Pictures, testing::Values(
    PictureCase{ 7.0,          " 00",         " 07"},
    PictureCase{ 7.0,          "000",         "007"},
    PictureCase{ 2.5,          " 000.0000",   " 002.5000"},
    PictureCase{ 3.0,          "0 km",        "3 km"}));

INSTANTIATE_TEST_SUITE_P(Exponents, Pictures, testing::Values(
    PictureCase{ 1.0,          "0.0000E+00",  "1.0000E+00"},
    PictureCase{ 0.0,          "0.0000E+00",  "0.0000E+00"},
    PictureCase{ 0.00012345,   "0.0000E+00",  "1.2345E-04"},
    PictureCase{ 9.99995,      "0.0000E+00",  "1.0000E+01"},
    PictureCase{ 9.99994,      "0.0000E+00",  "9.9999E+00"},
    PictureCase{-123456.0,     "0.0000E+00",  "-1.2346E+05"},
    PictureCase{ 1e100,        "0.0000E+00",  "1.0000E+100"},
    PictureCase{ 1e-300,       "0.0000E+00",  "1.0000E-300"},
    PictureCase{ 1234.0,       "0.0E-00",     "1.2E03"}));
// clang-format on

TEST(Pictures, LargeValuesHaveAllTheirPlaces) {
    EXPECT_EQ(FormatNumber(1e20, "0"), "100000000000000000000");
    EXPECT_EQ(FormatNumber(123456789012345678.0, "0.0"), "123456789012346000.0")
        << "fifteen significant digits";
}

TEST(Pictures, WhatIsNotFiniteOverflows) {
    EXPECT_EQ(ErrorOf([] { FormatNumber(std::numeric_limits<double>::infinity(), "0"); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { FormatNumber(std::nan(""), "0"); }), ErrorOverflow);
}

TEST(GeneralText, HasALeadingBlankOrAMinusSign) {
    EXPECT_EQ(GeneralText(1.5), " 1.5");
    EXPECT_EQ(GeneralText(-1.5), "-1.5");
    EXPECT_EQ(GeneralText(0.0), " 0");
    EXPECT_EQ(GeneralText(-0.0), " 0");
    EXPECT_EQ(GeneralText(100.0), " 100");
}

TEST(GeneralText, NeedsNoZeroBeforeThePoint) {
    EXPECT_EQ(GeneralText(0.25), " .25");
    EXPECT_EQ(GeneralText(-0.25), "-.25");
}

TEST(GeneralText, HasUpToFifteenDigits) {
    EXPECT_EQ(GeneralText(1.0 / 3.0), " .333333333333333");
    EXPECT_EQ(GeneralText(200.0 / 3.0), " 66.6666666666667");
    EXPECT_EQ(GeneralText(0.1 + 0.2), " .3");
    EXPECT_EQ(GeneralText(123456789012345.0), " 123456789012345");
}

TEST(GeneralText, TakesAnExponentWhereThePlacesEnd) {
    EXPECT_EQ(GeneralText(1e14), " 100000000000000");
    EXPECT_EQ(GeneralText(1e15), " 1E+15");
    EXPECT_EQ(GeneralText(-1.25e20), "-1.25E+20");
    EXPECT_EQ(GeneralText(1e-15), " .000000000000001");
    EXPECT_EQ(GeneralText(1e-16), " 1E-16");
    EXPECT_EQ(GeneralText(1.0 / 3000.0), " 3.33333333333333E-04");
    EXPECT_EQ(GeneralText(1e200), " 1E+200");
}

TEST(GeneralText, SinglePrecisionHasSevenDigits) {
    EXPECT_EQ(GeneralText(0.1F), " .1");
    EXPECT_EQ(GeneralText(7.5F), " 7.5");
    EXPECT_EQ(GeneralText(1.0F / 3.0F), " .3333333");
    EXPECT_EQ(GeneralText(1234567.0F), " 1234567");
    EXPECT_EQ(GeneralText(1e7F), " 1E+07");
}

TEST(GeneralText, IsReadBackAsItWas) {
    for (const double value : {0.9996, -37.7833, 6378206.4, 1e-20, -2.5e17, 0.0067686579972}) {
        EXPECT_EQ(ValueOf(GeneralText(value)), value);
    }
}

std::string Fixed(double value, int whole, int decimals) {
    std::string text = "x";
    AppendFixed(text, value, whole, decimals);
    return text;
}

TEST(AppendFixed, WritesZerosBeforeAndBehindThePoint) {
    EXPECT_EQ(Fixed(0.5, 1, 7), "x0.5000000");
    EXPECT_EQ(Fixed(-2.5, 2, 7), "x-02.5000000");
    EXPECT_EQ(Fixed(123.0, 2, 3), "x123.000");
    EXPECT_EQ(Fixed(-0.0, 1, 2), "x0.00");
}

TEST(AppendFixed, IsWhatThePictureGivesNearTiesAndFarFromThem) {
    for (int i = -40000; i <= 40000; ++i) {
        // Multiples of a 512th of the last digit: each 256th is a tie.
        const double value = i / 512.0 / 1e7 + (i % 7) * 3.0;
        ASSERT_EQ(Fixed(value, 2, 7), "x" + FormatNumber(value, "00.0000000")) << i;
    }
    for (const double value : {0.34999995, 1.00000005, 999.99999995, 1e9, 123456789012.345, 1e-300, -1e-9}) {
        EXPECT_EQ(Fixed(value, 1, 7), "x" + FormatNumber(value, "0.0000000"));
    }
}

TEST(AppendFixed, WhatIsNotFiniteOverflows) {
    std::string text;
    EXPECT_EQ(ErrorOf([&] { AppendFixed(text, std::numeric_limits<double>::quiet_NaN(), 1, 7); }),
              ErrorOverflow);
    EXPECT_EQ(ErrorOf([&] { AppendFixed(text, std::numeric_limits<double>::infinity(), 1, 7); }),
              ErrorOverflow);
}

} // namespace
} // namespace quelmont
