#include "dialogs/printing/print_map.h"

#include "core/map_design.h"
#include "core/print_units.h"
#include "dialogs/dialogs_state.h"
#include "output/output_state.h"
#include "output/print/printer_params.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A window of 16 by 10, and an A4 printer of 300 dots that cannot reach 71 of them at each side.
///
/// Across, of 2480 dots 71 to 2409 can be printed on: 8.2667 inches, 0.2367 to 8.03. Down, of 3508 dots 71 to
/// 3437: 11.6933 inches, 0.2367 to 11.4567. The area has 2338 by 3366 dots: 7.7933 by 11.22 inches.
class PrintMapDialog : public FreshProgramTest {
protected:
    PrintMapDialog() {
        machine.window.scaleWidth = 19200.0;
        machine.window.scaleHeight = 12000.0;
        printer.stripMillimetres = 6.0;
        printer.name = "LaserJet";
        Design.PrintUnitTwips = InchTwips;
        Design.PrintLeft = 1.0F;
        Design.PrintTop = 1.0F;
        Design.PrintWidth = 6.4F;
        Design.ReportLeft = Design.ReportRight = Design.ReportTop = Design.ReportBottom = 1.0F;
        Design.CenterHorizontal = false;
        Design.CenterVertical = false;
        Design.PrinterOrientation = Portrait;
    }

    static std::string Fields(const Form& form) {
        std::string texts;
        for (const char* const name : {"LeftMap", "TopMap", "WidthMap", "HeightMap"}) {
            texts += (texts.empty() ? "" : " ") + form.At(name).text;
        }
        return texts;
    }
    /// What OK says, and that the dialog stays open.
    void ExpectRefused(Form& form, const char* title, const std::string& text, const char* focus) {
        form.PressDefault();
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{title, text}));
        EXPECT_FALSE(form.Closed());
        EXPECT_EQ(form.Focus(), focus);
    }
    void ExpectAccepted(Form& form) {
        form.PressDefault();
        EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
        EXPECT_TRUE(form.Closed());
        EXPECT_FALSE(Design.DialogCancelled);
    }

    ScriptedPrinter& printer = machine.printers.printer;
};

TEST_F(PrintMapDialog, NamesThePrinterAndShowsThePage) {
    const PrintMap form(printer);
    EXPECT_EQ(form.ClassName(), "PrintMap");
    EXPECT_EQ(form.Caption(), "Print Map on LaserJet");
    EXPECT_EQ(form.At("Help").text,
              "The Print Map option prints the entire area of the screen beneath the Menu Bar.\n\n"
              "Map Height is controlled by Map Width.  The Map Margins are automatically calculated when the "
              "Center Map items are checked.");
    EXPECT_EQ(form.At("MapOrientation").text, "Paper Orientation");
    EXPECT_EQ(form.At("MapMargins").text, "Map Margins (inch)");
    EXPECT_EQ(form.At("MapSize").text, "Map Size (inch)");
    EXPECT_EQ(form.At("Portrait").value, 1);
    EXPECT_EQ(form.At("Inches").value, 1);
    EXPECT_EQ(form.At("LeftMap").mask, "%%%.%%");
    EXPECT_EQ(Fields(form), "001.00 001.00 006.40 004.00");
    EXPECT_FLOAT_EQ(Design.PrintHeight, 4.0F);
}

TEST_F(PrintMapDialog, ShowsWhatTheDesignHas) {
    Design.PrintUnitTwips = CentimetreTwips;
    Design.PrintWidth = 16.0F;
    Design.PrinterOrientation = Landscape;
    Design.CenterVertical = true;
    const PrintMap form(printer);
    EXPECT_EQ(form.At("Landscape").value, 1);
    EXPECT_EQ(form.At("Portrait").value, 0);
    EXPECT_EQ(form.At("Centimeters").value, 1);
    EXPECT_EQ(form.At("MapMargins").text, "Map Margins (cm)");
    EXPECT_EQ(form.At("MapSize").text, "Map Size (cm)");
    EXPECT_EQ(form.At("HorizontalMap").value, 0);
    EXPECT_EQ(form.At("VerticalMap").value, 1);
    EXPECT_TRUE(form.At("LeftMap").enabled);
    EXPECT_FALSE(form.At("TopMap").enabled) << "it follows the height";
    // 2480 dots of 4.8 twips are 20.995 cm; the map is 10 high.
    EXPECT_EQ(Fields(form), "001.00 005.50 016.00 010.00");
}

TEST_F(PrintMapDialog, HeightFollowsTheWidthAndTheWidthTheHeight) {
    PrintMap form(printer);
    form.Type("WidthMap", "004.80");
    EXPECT_EQ(Fields(form), "001.00 001.00 004.80 003.00");
    EXPECT_FLOAT_EQ(Design.PrintWidth, 4.8F);
    EXPECT_FLOAT_EQ(Design.PrintHeight, 3.0F);
    form.Type("HeightMap", "002.00");
    EXPECT_EQ(Fields(form), "001.00 001.00 003.20 002.00");
    ExpectAccepted(form);
    EXPECT_FLOAT_EQ(Design.PrintWidth, 3.2F);
}

TEST_F(PrintMapDialog, MarginsAreTakenAsTheyAreTyped) {
    PrintMap form(printer);
    form.Type("LeftMap", "000.75");
    form.Type("TopMap", "002.25");
    ExpectAccepted(form);
    EXPECT_EQ(Design.PrintLeft, 0.75F);
    EXPECT_EQ(Design.PrintTop, 2.25F);
}

// ---- The middle of the paper.

TEST_F(PrintMapDialog, CenteredMarginsFollowTheSize) {
    PrintMap form(printer);
    form.Choose("HorizontalMap");
    form.Choose("VerticalMap");
    EXPECT_FALSE(form.At("LeftMap").enabled);
    // (8.2667 - 6.4) / 2 and (11.6933 - 4) / 2.
    EXPECT_EQ(Fields(form), "000.93 003.85 006.40 004.00");
    form.Type("WidthMap", "004.80");
    EXPECT_EQ(Fields(form), "001.73 004.35 004.80 003.00");
    form.Type("HeightMap", "002.50");
    EXPECT_EQ(Fields(form), "002.13 004.60 004.00 002.50");
    ExpectAccepted(form);
    EXPECT_TRUE(Design.CenterHorizontal);
    EXPECT_TRUE(Design.CenterVertical);
    EXPECT_FLOAT_EQ(Design.PrintLeft, (2480.0F / 300.0F - 4.0F) / 2.0F) << "unrounded";
}

TEST_F(PrintMapDialog, TakenOffTheMarginsStayAndCanBeTyped) {
    Design.CenterHorizontal = true;
    PrintMap form(printer);
    form.Choose("HorizontalMap", 0);
    EXPECT_TRUE(form.At("LeftMap").enabled);
    EXPECT_EQ(form.At("LeftMap").text, "000.93");
    form.Type("LeftMap", "000.50");
    ExpectAccepted(form);
    EXPECT_FALSE(Design.CenterHorizontal);
    EXPECT_EQ(Design.PrintLeft, 0.5F);
}

TEST_F(PrintMapDialog, MapThatIsTooWideIsNotCentered) {
    PrintMap form(printer);
    form.Type("WidthMap", "007.80"); // 7.7933 can be printed on
    form.Choose("HorizontalMap");
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{
                    "Error: Map cannot be centered horizontally",
                    "The map cannot be centered horizontally, because the map width is too large.\n\n"
                    "To center the map horizontally, reduce the map width!"}));
    EXPECT_EQ(form.At("HorizontalMap").value, 0);
    EXPECT_FALSE(Design.CenterHorizontal);
    EXPECT_TRUE(form.At("LeftMap").enabled);
    form.Type("WidthMap", "007.79");
    form.Choose("HorizontalMap");
    EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
    EXPECT_EQ(form.At("HorizontalMap").value, 1);
}

TEST_F(PrintMapDialog, MapThatIsTooHighIsNotCentered) {
    machine.window.scaleHeight = 38400.0; // twice as high as wide
    PrintMap form(printer);
    form.Type("HeightMap", "011.23"); // 11.22 can be printed on
    form.Choose("VerticalMap");
    EXPECT_THAT(
        machine.boxes.Taken(),
        ElementsAre(AskedBox{"Error: Map cannot be centered vertically",
                             "The map cannot be centered vertically, because the map height is too large.\n\n"
                             "To center the map vertically, reduce the map width!"}));
    EXPECT_EQ(form.At("VerticalMap").value, 0);
    EXPECT_FALSE(Design.CenterVertical);
    form.Type("HeightMap", "011.21");
    form.Choose("VerticalMap");
    EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
    EXPECT_TRUE(Design.CenterVertical);
}

TEST_F(PrintMapDialog, WhatIsBeingTypedLeavesTheOtherMargins) {
    PrintMap form(printer);
    form.Type("LeftMap", "001.50");
    form.Type("WidthMap", "606.40"); // on the way to 006.00
    form.Type("WidthMap", "006.00");
    EXPECT_EQ(Fields(form), "001.50 001.00 006.00 003.75");
    ExpectAccepted(form);
    EXPECT_EQ(Design.PrintLeft, 1.5F);
}

// ---- What does not fit, each at its border.

TEST_F(PrintMapDialog, WidthMayBeThatOfThePrintableAreaButNotMore) {
    PrintMap form(printer);
    Design.PrintLeft = OutputNow.page.PrinterOffsetX;
    form.Type("WidthMap", "007.80");
    ExpectRefused(form, "Error: Map width too large", "The map width cannot exceed 7.79 inches.", "WidthMap");
    Design.PrintWidth = OutputNow.page.PrintableWidth;
    ExpectAccepted(form);
}

TEST_F(PrintMapDialog, MapHasAWidth) {
    PrintMap form(printer);
    form.Type("WidthMap", "000.00");
    ExpectRefused(form, "Error: Map width too small", "The map width must be greater than 0.00 inches.",
                  "WidthMap");
}

TEST_F(PrintMapDialog, WidthAndLeftMarginMayReachTheEndOfThePrintableArea) {
    printer.dotsPerInch = 1200;
    printer.stripMillimetres = 0.0;
    printer.sheet = {8.0, 11.0};
    PrintMap form(printer);
    form.Type("WidthMap", "006.00");
    form.Type("LeftMap", "002.01");
    ExpectRefused(form, "Error: (Map width + left margin) too large",
                  "The sum (map width + left margin) cannot exceed 8.00 inches.\n\n"
                  "Reduce the map width and/or the left margin!",
                  "LeftMap");
    form.Type("LeftMap", "002.00");
    ExpectAccepted(form);
}

TEST_F(PrintMapDialog, LeftMarginMayBeTheStripButNotLess) {
    printer.sheet = {8.0, 11.0};
    printer.stripMillimetres = 6.35; // a quarter of an inch
    PrintMap form(printer);
    form.Type("LeftMap", "000.24");
    ExpectRefused(form, "Error: Left margin too small", "The left margin must be greater than 0.25 inches.",
                  "LeftMap");
    form.Type("LeftMap", "000.25");
    ExpectAccepted(form);
}

TEST_F(PrintMapDialog, HeightCanBeTooLargeThoughTheWidthIsFine) {
    machine.window.scaleHeight = 38400.0; // twice as high as wide
    printer.sheet = {8.0, 11.0};
    printer.stripMillimetres = 0.0;
    Design.PrintTop = 0.0F;
    PrintMap form(printer);
    form.Type("WidthMap", "005.51");
    ExpectRefused(form, "Error: Map height too large",
                  "The map height cannot exceed 11.00 inches.\n\n"
                  "Reduce the map width to reduce the map height!",
                  "WidthMap");
    form.Type("WidthMap", "005.50");
    form.Type("TopMap", "000.00");
    ExpectAccepted(form);
}

TEST_F(PrintMapDialog, HeightAndTopMarginMayReachTheEndOfThePrintableArea) {
    printer.sheet = {8.0, 11.0};
    printer.stripMillimetres = 0.0;
    PrintMap form(printer); // 4 inches high
    form.Type("TopMap", "007.01");
    ExpectRefused(form, "Error: (Map height + top margin) too large",
                  "The sum (map height + top margin)  cannot exceed 11.00 inches.\n\n"
                  "Reduce the map width and/or the top margin!",
                  "TopMap");
    form.Type("TopMap", "007.00");
    ExpectAccepted(form);
}

TEST_F(PrintMapDialog, TopMarginMayBeTheStripButNotLess) {
    printer.sheet = {8.0, 11.0};
    printer.stripMillimetres = 6.35;
    PrintMap form(printer);
    form.Type("TopMap", "000.24");
    ExpectRefused(form, "Error: Top margin too small", "The top margin must be greater than 0.25 inches.",
                  "TopMap");
    form.Type("TopMap", "000.25");
    ExpectAccepted(form);
}

TEST_F(PrintMapDialog, LimitsAreShownInCentimetresToo) {
    PrintMap form(printer);
    form.Choose("Centimeters");
    form.Type("WidthMap", "019.80"); // 2338 dots of 4.8 twips are 19.7926
    ExpectRefused(form, "Error: Map width too large", "The map width cannot exceed 19.79 cm.", "WidthMap");
}

TEST_F(PrintMapDialog, RefusalOfAMarginThatIsNotTypedAsksForTheWidth) {
    Design.CenterHorizontal = true;
    PrintMap form(printer);
    printer.stripMillimetres = 70.0; // set up anew while the dialog was open
    form.PressDefault();
    EXPECT_EQ(machine.boxes.Taken()[0].title, "Error: Map width too large");
    form.Type("WidthMap", "002.00");
    form.Type("TopMap", "003.00");
    ExpectAccepted(form);
}

TEST_F(PrintMapDialog, PrinterThatTellsNothingHoldsNoMap) {
    printer.dotsPerInch = 0;
    PrintMap form(printer);
    ExpectRefused(form, "Error: Map width too large", "The map width cannot exceed 0.00 inches.", "WidthMap");
    EXPECT_EQ(Design.PrintLeft, 1.0F);
}

// ---- Units.

TEST_F(PrintMapDialog, ChangeOfUnitLeavesThePrintedSizeTheSame) {
    PrintMap form(printer);
    form.Choose("Centimeters");
    EXPECT_EQ(form.At("MapMargins").text, "Map Margins (cm)");
    EXPECT_EQ(form.At("MapSize").text, "Map Size (cm)");
    // An inch is 1440 / 567 = 2.539683 cm.
    EXPECT_EQ(Fields(form), "002.54 002.54 016.25 010.16");
    EXPECT_FLOAT_EQ(Design.PrintWidth, 6.4F * 1440.0F / 567.0F);
    EXPECT_FLOAT_EQ(Design.ReportLeft, 1440.0F / 567.0F);
    EXPECT_FLOAT_EQ(Design.ReportBottom, 1440.0F / 567.0F);
    form.Choose("Inches");
    EXPECT_EQ(Fields(form), "001.00 001.00 006.40 004.00");
    EXPECT_EQ(form.At("MapSize").text, "Map Size (inch)");
    form.Choose("Inches");
    EXPECT_EQ(Fields(form), "001.00 001.00 006.40 004.00");
    ExpectAccepted(form);
    EXPECT_FLOAT_EQ(Design.PrintWidth, 6.4F);
    EXPECT_FLOAT_EQ(Design.ReportTop, 1.0F);
}

TEST_F(PrintMapDialog, MapOfTheWholePrintableAreaFitsInEitherUnit) {
    Design.CenterHorizontal = true;
    Design.CenterVertical = true;
    for (const int dots : {300, 600, 1200}) {
        for (const double strip : {0.0, 6.0}) {
            for (const PaperSheet& sheet : {SheetA4, SheetLetter}) {
                printer.dotsPerInch = dots;
                printer.stripMillimetres = strip;
                printer.sheet = sheet;
                GetPrinterParams(printer);
                Design.PrintWidth = OutputNow.page.PrintableWidth;
                PrintMap form(printer);
                form.Choose("Centimeters");
                form.Choose("Inches");
                form.Choose("Centimeters");
                ExpectAccepted(form);
            }
        }
    }
}

TEST_F(PrintMapDialog, LengthThatTheProgramWroteIsNotCutToTwoDecimals) {
    // A centred margin is the strip of 0.1647 inches, shown as 000.16.
    printer.stripMillimetres = 0.1647 * 25.4;
    printer.dotsPerInch = 10000;
    machine.window.scaleHeight = 38400.0;
    Design.CenterVertical = true;
    PrintMap form(printer);
    Design.PrintWidth = OutputNow.page.PrintableHeight / 2.0F;
    form.Choose("Portrait"); // shows it
    form.Choose("VerticalMap", 0);
    EXPECT_EQ(form.At("TopMap").text, "000.16");
    form.Type("LeftMap", "000.50");
    form.Type("TopMap", "000.17");
    form.Type("TopMap", "000.16"); // back to what the program wrote
    EXPECT_FLOAT_EQ(Design.PrintTop, 0.1647F);
    form.Type("TopMap", "000.15");
    EXPECT_EQ(Design.PrintTop, 0.15F);
}

// ---- Orientation, Cancel.

TEST_F(PrintMapDialog, TurnedPaperHasOtherLimits) {
    Design.CenterHorizontal = true;
    PrintMap form(printer);
    form.Choose("Landscape");
    // (11.6933 - 6.4) / 2
    EXPECT_EQ(Fields(form), "002.65 001.00 006.40 004.00");
    form.Type("WidthMap", "011.00");
    ExpectAccepted(form);
    EXPECT_EQ(Design.PrinterOrientation, Landscape);
}

TEST_F(PrintMapDialog, MarginThatWouldRunOffTheTurnedPaperIsReduced) {
    Design.PrintTop = 7.0F;
    PrintMap form(printer);
    EXPECT_EQ(form.At("TopMap").text, "007.00");
    form.Choose("Landscape");
    // 2480 - 71 dots are 8.03 inches.
    EXPECT_EQ(form.At("TopMap").text, "004.03");
    ExpectAccepted(form);
}

TEST_F(PrintMapDialog, CancelGivesEverythingBack) {
    Design.PrintTop = 0.1647F;
    Design.PrintHeight = 3.0F; // of another window
    PrintMap form(printer);
    form.Choose("Landscape");
    form.Choose("Centimeters");
    form.Choose("HorizontalMap");
    form.Choose("VerticalMap");
    form.Type("WidthMap", "010.00");
    form.PressCancel();
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(Design.PrintUnitTwips, InchTwips);
    EXPECT_EQ(Design.PrintLeft, 1.0F);
    EXPECT_EQ(Design.PrintTop, 0.1647F);
    EXPECT_EQ(Design.PrintWidth, 6.4F);
    EXPECT_EQ(Design.PrintHeight, 3.0F);
    EXPECT_EQ(Design.ReportLeft, 1.0F);
    EXPECT_EQ(Design.ReportBottom, 1.0F);
    EXPECT_EQ(Design.PrinterOrientation, Portrait);
    EXPECT_FALSE(Design.CenterHorizontal);
    EXPECT_FALSE(Design.CenterVertical);
}

TEST_F(PrintMapDialog, WindowWithoutAnAreaIsReported) {
    machine.window.scaleWidth = 0.0;
    PrintMap form(printer);
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Error in PrintMap", "Error: Division by zero"}));
    form.PressCancel();
    EXPECT_TRUE(Design.DialogCancelled);
}

TEST_F(PrintMapDialog, LengthBeyondItsColumnsIsShownAsTheLargest) {
    machine.window.scaleHeight = 192000.0; // ten times as high as wide
    PrintMap form(printer);
    form.Type("WidthMap", "500.00");
    EXPECT_EQ(form.At("HeightMap").text, "999.99");
    EXPECT_FLOAT_EQ(Design.PrintHeight, 5000.0F);
}

// ---- PDF.

TEST_F(PrintMapDialog, PdfHasAListOfPapersAndBeginsWithA4) {
    const PrintMapOnPdf form;
    EXPECT_EQ(form.Caption(), "Print Map on PDF");
    EXPECT_THAT(form.At("PaperList").items,
                ElementsAre("A5", "A4", "A3", "A2", "A1", "A0", "Letter", "Legal", "Tabloid"));
    EXPECT_EQ(form.At("PaperList").value, 1);
    EXPECT_NEAR(OutputNow.page.PaperWidth, 8.2677, 0.002);
    EXPECT_EQ(machine.printers.pdfRequests.back().fileName, "") << "limits alone are asked";
}

TEST_F(PrintMapDialog, AnotherPaperHasOtherLimitsAndIsProposedTheNextTime) {
    Design.CenterHorizontal = true;
    PrintMapOnPdf form;
    form.Choose("PaperList", 6);
    EXPECT_EQ(machine.printers.pdfRequests.back(), (ScriptedPrinters::PdfRequest{8.5, 11.0, ""}));
    EXPECT_EQ(form.At("LeftMap").text, "001.05");
    form.Type("WidthMap", "008.51");
    ExpectRefused(form, "Error: Map width too large", "The map width cannot exceed 8.50 inches.", "WidthMap");
    form.Type("WidthMap", "008.50");
    ExpectAccepted(form);
    EXPECT_EQ(PrintMapOnPdf().At("PaperList").value, 6);
}

TEST_F(PrintMapDialog, CancelledPdfKeepsThePaperBefore) {
    PrintMapOnPdf form;
    form.Choose("PaperList", 5);
    form.PressCancel();
    EXPECT_EQ(PrintMapOnPdf().At("PaperList").value, 1);
    EXPECT_EQ(Design.PrintLeft, 1.0F);
}

TEST_F(PrintMapDialog, MachineThatMakesNoPdfHoldsNoMap) {
    machine.printers.makesPdf = false;
    PrintMapOnPdf form;
    form.Choose("Landscape");
    ExpectRefused(form, "Error: Map width too large", "The map width cannot exceed 0.00 inches.", "WidthMap");
}

} // namespace
} // namespace quelmont
