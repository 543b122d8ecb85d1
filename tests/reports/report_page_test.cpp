#include "reports/report_page.h"

#include "reports/report_fixture.h"

#include <gmock/gmock.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

/// Letters are as wide as their place in the alphabet, everything else is 5 wide.
double Proportional(std::string_view text) {
    double width = 0.0;
    for (const char c : text) {
        width += c >= 'a' && c <= 'z' ? c - 'a' + 1 : 5;
    }
    return width;
}

Report Sample() {
    return {{{" Title ",
              {ReportBlock{{ReportRow{"Short:", "1", "Other label:", "2"},
                            ReportRow{"A longer label:", "30000", "Label:", "4"}}},
               TextLines({"A line by itself that is longer than any column"})}}}};
}

TEST(ReportPage, PlainTextPadsColumnsWithBlanks) {
    EXPECT_EQ(PlainText(Sample()), "-------\r\n"
                                   " Title \r\n"
                                   "-------\r\n"
                                   "Short:           1        Other label:  2\r\n"
                                   "A longer label:  30000    Label:        4\r\n"
                                   "\r\n"
                                   "A line by itself that is longer than any column\r\n"
                                   "\r\n");
}

TEST(ReportPage, PlainTextCountsCharactersAndNotBytes) {
    EXPECT_EQ(PlainText({{{"", {ReportBlock{{ReportRow{"40°:", "1"}, ReportRow{"4000:", "2"}}}}}}}),
              "40°:   1\r\n4000:  2\r\n\r\n");
}

TEST(ReportPage, PlainTextHasNoBlanksAtTheEndOfALine) {
    EXPECT_EQ(PlainText({{{"", {ReportBlock{{ReportRow{"a", "", "c"}, ReportRow{"long", "b", ""}}}}}}}),
              "a            c\r\nlong    b\r\n\r\n");
}

TEST(ReportPage, StopsAreWholeUnitsThatTheWidestCellFits) {
    const std::vector<PageLine> lines =
        LayOutReport({{{"", {ReportBlock{{ReportRow{"ab:", "zz", "x"}, ReportRow{"z:", "a", "y"}}}}}}},
                     {Proportional, 10.0});
    // "z:" with two blanks is 26 + 5 + 10 = 41 wide, "zz" with four 52 + 20 = 72.
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_THAT(lines[0].stops, ElementsAre(50, 130));
    EXPECT_EQ(lines[1].stops, lines[0].stops);
    EXPECT_EQ(lines[2], PageLine{});
}

TEST(ReportPage, LastCellOfARowPushesNoColumn) {
    const std::vector<PageLine> lines =
        LayOutReport({{{"", {ReportBlock{{ReportRow{"", "zzzzzzzzzz"}, ReportRow{"a", "a", "a"}}}}}}},
                     {Proportional, 1.0});
    EXPECT_THAT(lines[1].stops, ElementsAre(21, 42));
}

TEST(ReportPage, RuleIsAsLongAsItsHeading) {
    const std::vector<PageLine> lines = LayOutReport({{{"zz", {}}}}, {Proportional, 1.0});
    // 52 wide, in dashes of 5.
    EXPECT_THAT(
        lines, ElementsAre(PageLine{{"----------"}, {}}, PageLine{{"zz"}, {}}, PageLine{{"----------"}, {}}));
}

class ReportInAFont : public ReportTest {};

TEST_F(ReportInAFont, IsMeasuredInTwips) {
    // Characters of the scripted fonts are half as wide as the font is high: 10 points are 200 twips.
    const ReportMeasure measure = InFont({.FontName = "Arial", .FontSize = 10});
    EXPECT_EQ(measure.unit, 100.0);
    EXPECT_EQ(measure.width("four"), 400.0);
    const std::vector<PageLine> lines = LayOutReport(Sample(), measure);
    EXPECT_THAT(lines[3].stops, ElementsAre(1700, 2600, 4000));
    EXPECT_EQ(WidthOfPage(lines, measure), 4700.0) << "the line by itself";
}

TEST_F(ReportInAFont, ThatCannotBeMadeIsEstimated) {
    machine.fonts.extentFails = true;
    const ReportMeasure measure = InFont({.FontName = "Arial", .FontSize = 10});
    EXPECT_EQ(measure.width("four"), 400.0);
}

} // namespace
} // namespace quelmont
