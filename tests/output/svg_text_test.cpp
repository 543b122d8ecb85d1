#include "output/svg/svg_text.h"

#include "core/run_time_error.h"
#include "core/text_encoding.h"
#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace quelmont {
namespace {

using namespace std::string_literals;

TEST(XmlText, MarkupStandsAsReferences) {
    EXPECT_EQ(XmlText("a < b && \"c\" > d"), "a &lt; b &amp;&amp; &quot;c&quot; &gt; d");
}

TEST(XmlText, LettersOfEveryScriptStay) {
    EXPECT_EQ(XmlText("Køge Ж 東 \U0001F30D"), "Køge Ж 東 \U0001F30D");
}

TEST(XmlText, WhatNoDocumentMayHoldIsABlank) {
    EXPECT_EQ(XmlText("a\0b\x1B\tc\r\nd\x7F"s), "a b  c  d ");
    EXPECT_EQ(XmlText("\xC2\x80|\xC2\x9F|\xC2\xA0|"), " | |\xC2\xA0|");
    EXPECT_EQ(XmlText("\xEF\xBF\xBD|\xEF\xBF\xBE|\xEF\xBF\xBF|"), "\xEF\xBF\xBD| | |");
}

TEST(XmlText, BytesThatAreNoUtf8AreLettersOfWindows) {
    EXPECT_EQ(XmlText("K\xF8ge <\xFF\x81>"), "Køge &lt;ÿ &gt;");
    EXPECT_EQ(XmlText("\xED\xA0\x80"), "í\u00A0€") << "half of a pair is no character";
}

TEST(XmlText, AnyBytesBecomeTextThatADocumentMayHold) {
    std::mt19937 random(5);
    for (int i = 0; i < 2000; ++i) {
        std::string bytes;
        for (int length = 0; length < 12; ++length) {
            bytes += static_cast<char>(random());
        }
        const std::string text = XmlText(bytes);
        ASSERT_TRUE(IsUtf8(text));
        for (const char letter : text) {
            ASSERT_GE(static_cast<unsigned char>(letter), 0x20U);
        }
        ASSERT_EQ(text.find_first_of("<>\""), std::string::npos);
    }
}

TEST(FontFamily, NameIsAStringAndAnotherFontOfItsKindStandsBehindIt) {
    EXPECT_EQ(FontFamily("Arial"), "'Arial', sans-serif");
    EXPECT_EQ(FontFamily("Times New Roman"), "'Times New Roman', serif");
    EXPECT_EQ(FontFamily("Liberation Serif"), "'Liberation Serif', serif");
    EXPECT_EQ(FontFamily("DejaVu Sans Mono"), "'DejaVu Sans Mono', monospace");
    EXPECT_EQ(FontFamily("courier new"), "'courier new', monospace");
    EXPECT_EQ(FontFamily("MS Sans Serif"), "'MS Sans Serif', sans-serif");
}

TEST(FontFamily, QuotesInANameDoNotEndIt) { EXPECT_EQ(FontFamily(R"(a'b\c)"), R"('a\'b\\c', sans-serif)"); }

TEST(Hundredths, NumbersHaveTheDigitsThatTheyNeed) {
    const auto text = [](std::int32_t number) {
        std::string written;
        AppendHundredths(written, number);
        return written;
    };
    EXPECT_EQ(text(0), "0");
    EXPECT_EQ(text(5), "0.05");
    EXPECT_EQ(text(-5), "-0.05");
    EXPECT_EQ(text(150), "1.5");
    EXPECT_EQ(text(-12345), "-123.45");
    EXPECT_EQ(text(100000), "1000");
    EXPECT_EQ(text(std::numeric_limits<std::int32_t>::min()), "-21474836.48");
}

TEST(Hundredths, ValuesAreRounded) {
    EXPECT_EQ(HundredthsText(1.0 / 3.0), "0.33");
    EXPECT_EQ(HundredthsText(-2.0 / 3.0), "-0.67");
    EXPECT_EQ(HundredthsText(-0.001), "0");
    EXPECT_EQ(ErrorOf([] { HundredthsText(1e9); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { HundredthsText(std::numeric_limits<double>::quiet_NaN()); }), ErrorOverflow);
}

} // namespace
} // namespace quelmont
