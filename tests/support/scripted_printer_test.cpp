#include "support/scripted_printer.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

TEST(ScriptedPrinter, MeasuresItsPaperInWholePixelsAndTurnsIt) {
    ScriptedPrinter printer;
    printer.stripMillimetres = 6.0;
    // 210 mm are 2480.3 pixels, 297 mm 3507.9, 6 mm 70.9.
    const PrinterLimits upright = printer.Limits(Portrait);
    EXPECT_EQ(upright.pixelsPerInchX, 300);
    EXPECT_EQ(upright.paperWidth, 2480);
    EXPECT_EQ(upright.paperHeight, 3508);
    EXPECT_EQ(upright.stripLeft, 71);
    EXPECT_EQ(upright.printableWidth, 2338);
    EXPECT_EQ(upright.printableHeight, 3366);
    const PrinterLimits turned = printer.Limits(Landscape);
    EXPECT_EQ(turned.paperWidth, 3508);
    EXPECT_EQ(turned.printableHeight, 2338);
}

TEST(ScriptedPrinter, KeepsTheStepsOfAJobAndWhatStandsOnEachPage) {
    ScriptedPrinter printer;
    {
        const auto job = printer.Open(Landscape);
        EXPECT_EQ(printer.openJobs, 1);
        EXPECT_TRUE(job->SelectClip(1, 2, 3, 4));
        EXPECT_TRUE(job->StartDoc("Pages"));
        EXPECT_TRUE(job->StartPage());
        job->Surface().TextOutA(5, 6, "one");
        EXPECT_GE(job->EndPage(), 0);
        EXPECT_TRUE(job->StartPage());
        job->Surface().TextOutA(5, 6, "two");
        EXPECT_GE(job->EndPage(), 0);
        EXPECT_TRUE(job->EndDoc());
    }
    EXPECT_EQ(printer.openJobs, 0);
    EXPECT_EQ(printer.log,
              (std::vector<std::string>{"Open landscape", "SelectClip 1 2 3 4", "StartDoc Pages", "StartPage",
                                        "EndPage", "StartPage", "EndPage", "EndDoc", "Close"}));
    ASSERT_EQ(printer.pages.size(), 2U);
    ASSERT_EQ(printer.pages[1].texts.size(), 1U);
    EXPECT_EQ(printer.pages[1].texts[0].text, "two");
}

TEST(ScriptedPrinter, FailsAtTheCallThatWasScripted) {
    ScriptedPrinter printer;
    printer.FailAt(JobStep::EndPage, 2);
    printer.failureCode = -4;
    const auto job = printer.Open(Portrait);
    EXPECT_EQ(job->EndPage(), 1);
    EXPECT_EQ(job->EndPage(), -4);
    EXPECT_EQ(job->EndPage(), 1);
    printer.opens = false;
    EXPECT_EQ(printer.Open(Portrait), nullptr);
    EXPECT_EQ(printer.log.back(), "Open portrait failed");
}

TEST(ScriptedPrinters, MakePagesOfAFileOnThePaperThatWasAskedFor) {
    ScriptedPrinters printers;
    EXPECT_EQ(printers.Chosen(), nullptr);
    const auto pdf = printers.Pdf(8.5, 11.0, "map.pdf");
    EXPECT_EQ(pdf->Limits(Portrait).paperHeight, 3300);
    pdf->Open(Portrait);
    EXPECT_EQ(printers.pdf.log, (std::vector<std::string>{"Open portrait", "Close"}));
    EXPECT_EQ(printers.pdfRequests, (std::vector<ScriptedPrinters::PdfRequest>{{8.5, 11.0, "map.pdf"}}));
}

} // namespace
} // namespace quelmont
