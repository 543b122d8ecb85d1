#include "reports/report_print.h"

#include "core/map_design.h"
#include "core/standard_colors.h"
#include "reports/report_fixture.h"
#include "support/scripted_printer.h"

#include <gmock/gmock.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class PrintedReport : public ReportTest {
protected:
    PrintedReport() { printer.sheet = SheetLetter; }

    static std::vector<PageLine> Lines(int count) {
        std::vector<PageLine> lines;
        for (int i = 1; i <= count; ++i) {
            lines.push_back({{std::to_string(i), "value"}, {1440}});
        }
        return lines;
    }
    std::string BoxText() {
        const std::vector<AskedBox> boxes = machine.boxes.Taken();
        EXPECT_EQ(boxes.size(), 1U);
        return boxes.empty() ? "" : boxes[0].text;
    }

    ScriptedPrinter printer;
};

TEST_F(PrintedReport, StandsBetweenTheMarginsWithItsTabStops) {
    printer.stripMillimetres = 25.4 / 3.0; // 100 dots
    Design.ReportLeft = 0.5F;
    Design.ReportTop = 2.0F;
    EXPECT_TRUE(PrintReport(Lines(2), printer));
    ASSERT_THAT(printer.pages, SizeIs(1));
    const std::vector<RecordedText>& texts = printer.pages[0].texts;
    ASSERT_THAT(texts, SizeIs(4));
    EXPECT_EQ(texts[0].anchor, (SurfacePoint{50, 500}));
    EXPECT_EQ(texts[1].anchor, (SurfacePoint{350, 500}));
    // 10 points are 41.7 dots at 300 an inch; a line takes the font's 42 and a quarter of it.
    EXPECT_EQ(texts[0].font.font.height, -42);
    EXPECT_EQ(texts[2].anchor, (SurfacePoint{50, 552}));
    EXPECT_EQ(texts[3].text, "value");
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(PrintedReport, IsClippedToTheMargins) {
    PrintReport(Lines(1), printer);
    // Letter at 300 dots is 2550 by 3300; an inch on all sides.
    EXPECT_THAT(printer.log, ElementsAre("Open portrait", "SelectClip 300 300 2250 3000", "StartDoc Quelmont",
                                         "StartPage", "EndPage", "EndDoc", "Close"));
}

TEST_F(PrintedReport, LiesAsTheDesignSays) {
    Design.PrinterOrientation = Landscape;
    PrintReport(Lines(1), printer);
    EXPECT_EQ(printer.log[0], "Open landscape");
    EXPECT_EQ(printer.log[1], "SelectClip 300 300 3000 2250");
}

TEST_F(PrintedReport, MarginsInCentimetres) {
    Design.PrintUnitTwips = 567;
    Design.ReportLeft = 2.54F;
    PrintReport(Lines(1), printer);
    // 2.54 * 567 twips are 1440.18.
    EXPECT_EQ(printer.pages.at(0).texts.at(0).anchor.x, 300);
}

TEST_F(PrintedReport, PagesHoldAsManyLinesAsFit) {
    // 2700 dots between the margins, 52 for a line: 51 lines and a rest.
    PrintReport(Lines(120), printer);
    ASSERT_THAT(printer.pages, SizeIs(3));
    EXPECT_THAT(printer.pages[0].texts, SizeIs(102));
    EXPECT_THAT(printer.pages[1].texts, SizeIs(102));
    EXPECT_THAT(printer.pages[2].texts, SizeIs(36));
    EXPECT_EQ(printer.pages[1].texts[0].text, "52");
    EXPECT_EQ(printer.pages[1].texts[0].anchor.y, 300);
}

TEST_F(PrintedReport, HasTheFontAndColourOfReports) {
    Design.Fonts[ReportFontSlot] = {.FontName = "Times",
                                    .FontSize = 12,
                                    .FontColour = Rgb(0, 0, 128),
                                    .FontBold = true,
                                    .FontItalic = true};
    PrintReport(Lines(1), printer);
    const RecordedText& text = printer.pages.at(0).texts.at(0);
    EXPECT_EQ(text.font.face, "Times");
    EXPECT_EQ(text.font.font.height, -50);
    EXPECT_EQ(text.font.font.weight, 700);
    EXPECT_TRUE(text.font.font.italic);
    EXPECT_EQ(text.color, Rgb(0, 0, 128));
    EXPECT_EQ(text.align, AlignTop);
}

TEST_F(PrintedReport, LettersOf200PointsOnAPaperOfAMillimetreHaveAPageForEachLine) {
    Design.Fonts[ReportFontSlot].FontSize = 200;
    printer.sheet = {1.0 / 25.4, 1.0 / 25.4};
    Design.ReportLeft = Design.ReportRight = Design.ReportTop = Design.ReportBottom = 0.0F;
    EXPECT_TRUE(PrintReport(Lines(3), printer));
    EXPECT_THAT(printer.pages, SizeIs(3));
}

TEST_F(PrintedReport, MarginsThatLeaveNoRoomPrintNothing) {
    Design.ReportLeft = 5.0F;
    Design.ReportRight = 3.5F;
    EXPECT_FALSE(PrintReport(Lines(1), printer));
    EXPECT_EQ(BoxText(), "Error printing \n\nThe margins leave no room on the paper.");
    Design.ReportRight = 1.0F;
    Design.ReportBottom = 10.0F;
    EXPECT_FALSE(PrintReport(Lines(1), printer));
    EXPECT_EQ(BoxText(), "Error printing \n\nThe margins leave no room on the paper.");
    EXPECT_THAT(printer.log, ElementsAre("Open portrait", "Close", "Open portrait", "Close"));
}

TEST_F(PrintedReport, EachFailureHasItsBoxAndNothingIsPrinted) {
    for (const auto& [step, text] : {std::pair{JobStep::SelectClip, "Error in SelectClipRgn"},
                                     {JobStep::StartDoc, "Error in StartDoc"},
                                     {JobStep::StartPage, "Error in EM_FORMATRANGE"},
                                     {JobStep::EndPage, "Error in EM_FORMATRANGE"},
                                     {JobStep::EndDoc, "Error in EndDoc"}}) {
        printer.log.clear();
        printer.FailAt(step);
        EXPECT_FALSE(PrintReport(Lines(1), printer));
        EXPECT_EQ(BoxText(), "Error printing \n\n" + std::string(text));
        EXPECT_EQ(printer.log.back(), "Close");
        EXPECT_EQ(printer.openJobs, 0);
        const bool begun = step == JobStep::StartPage || step == JobStep::EndPage;
        EXPECT_EQ(std::count(printer.log.begin(), printer.log.end(), "Abort"), begun ? 1 : 0) << text;
    }
}

TEST_F(PrintedReport, TextThatIsRefusedEndsItsPageAndTheJob) {
    printer.surface.FailAt(SurfaceOp::TextOutA, 3);
    EXPECT_FALSE(PrintReport(Lines(2), printer));
    EXPECT_EQ(BoxText(), "Error printing \n\nError in EM_FORMATRANGE");
    EXPECT_THAT(printer.log, ElementsAre("Open portrait", "SelectClip 300 300 2250 3000", "StartDoc Quelmont",
                                         "StartPage", "EndPage", "Abort", "Close"));
}

TEST_F(PrintedReport, PrinterThatDoesNotAnswerIsReported) {
    printer.opens = false;
    EXPECT_FALSE(PrintReport(Lines(1), printer));
    EXPECT_EQ(BoxText(), "Error printing \n\nError in OpenPrinter");
}

TEST_F(PrintedReport, NumberWithoutPixelsIsReportedAsAnError) {
    Design.ReportLeft = 1e30F;
    EXPECT_FALSE(PrintReport(Lines(1), printer));
    EXPECT_EQ(BoxText(), "Error printing \n\nError: Overflow");
}

TEST_F(PrintedReport, LeavesNoFontBehind) {
    const int before = printer.surface.LiveObjects();
    PrintReport(Lines(120), printer);
    EXPECT_EQ(printer.surface.LiveObjects(), before);
}

} // namespace
} // namespace quelmont
