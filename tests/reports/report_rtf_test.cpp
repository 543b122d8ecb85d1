#include "reports/report_rtf.h"

#include "core/map_design.h"
#include "core/standard_colors.h"
#include "reports/report_fixture.h"

#include <gmock/gmock.h>

namespace quelmont {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class RichTextTest : public ReportTest {
protected:
    TextLook& font = Design.Fonts[ReportFontSlot];
    static std::string Of(const std::string& text) { return RichText({{{"", {TextLines({text})}}}}); }
};

TEST_F(RichTextTest, BeginsWithFontColourAndMargins) {
    font.FontName = "Times";
    font.FontSize = 11;
    font.FontColour = Rgb(255, 128, 1);
    Design.ReportLeft = 0.5F;
    Design.ReportBottom = 2.0F;
    EXPECT_THAT(Of("x"), StartsWith("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Times;}}\r\n"
                                    "{\\colortbl ;\\red255\\green128\\blue1;}\r\n"
                                    "\\margl720\\margr1440\\margt1440\\margb2880\r\n"
                                    "\\pard\\plain\\f0\\fs22\\cf1\r\n"));
}

TEST_F(RichTextTest, HasTheStyleOfTheFont) {
    font.FontBold = font.FontItalic = font.FontUnderline = font.FontStrikeout = true;
    EXPECT_THAT(Of("x"), HasSubstr("\\fs20\\b\\i\\ul\\strike\\cf1\r\n"));
}

TEST_F(RichTextTest, HasATabStopForEachColumn) {
    EXPECT_THAT(RichText({{{"",
                            {ReportBlock{{ReportRow{"ab:", "cd", "e"}, ReportRow{"f:", "g", "h"}}},
                             TextLines({"alone"})}}}}),
                EndsWith("\\pard\\tx500\\tx1100\r\nab:\\tab cd\\tab e\\par\r\nf:\\tab g\\tab h\\par\r\n"
                         "\\pard\r\n\\par\r\nalone\\par\r\n\\par\r\n}\r\n"));
}

TEST_F(RichTextTest, EscapesWhatItUsesItself) {
    EXPECT_THAT(Of("C:\\{a}\\b.map"), HasSubstr("C:\\\\\\{a\\}\\\\b.map\\par"));
    EXPECT_THAT(Of("40°44' über €?"), HasSubstr("40\\'b044' \\'fcber \\'80?\\par"));
}

TEST_F(RichTextTest, WritesOtherLettersAsUnicode) {
    // Greek alpha 945, the Japanese sun 26085, U+FFFD as a negative number, and a character of two units.
    EXPECT_THAT(Of("α日\uFFFD\U0001F600"), HasSubstr("\\u945?\\u26085?\\u-3?\\u-10179?\\u-8704?\\par"));
}

TEST_F(RichTextTest, FontNameCannotEndTheTableOfFonts) {
    font.FontName = "Evil;}{\\b";
    EXPECT_THAT(Of("x"), HasSubstr("{\\f0\\fnil Evil\\}\\{\\\\b;}}"));
}

TEST_F(RichTextTest, IsAsciiAndBalanced) {
    const std::string text = Of("{{{\\ ü 日 }");
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        EXPECT_LT(static_cast<unsigned char>(text[i]), 0x80);
        if (text[i] == '\\') {
            ++i;
        } else {
            depth += text[i] == '{' ? 1 : text[i] == '}' ? -1 : 0;
        }
    }
    EXPECT_EQ(depth, 0);
}

} // namespace
} // namespace quelmont
