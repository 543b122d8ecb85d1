#include "mainwindow/print_commands.h"

#include "core/print_units.h"
#include "dialogs/dialogs_state.h"
#include "mainwindow/commands.h"
#include "mainwindow/design_commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/settings.h"
#include "mainwindow/started_program.h"
#include "mainwindow/text_placing.h"
#include "output/output_state.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// The started program on a machine with an A4 printer of 300 dots without strips; the window is 1280 by 924
/// pixels of 15 twips.
class PrintCommands : public StartedProgram {
protected:
    PrintCommands() { machine.printers.any = true; }

    /// A person who accepts the page as it is proposed, or changes it first.
    void AcceptPage(ScriptedForms::Steps change = {}) {
        machine.forms.Script("PrintMap", [change](Form& form) {
            if (change) {
                change(form);
            }
            form.PressDefault();
        });
    }

    ScriptedPrinter& printer = machine.printers.printer;
    ScriptedPrinter& pdf = machine.printers.pdf;
};

// ---- Start.

TEST_F(PrintCommands, MapAtTheStartIsAsWideAsThePaperLeavesIt) {
    PreparePrinting();
    // 2480 dots less two inches; 13860 / 19200 of that in height.
    EXPECT_FLOAT_EQ(Design.PrintWidth, 2480.0F / 300.0F - 2.0F);
    EXPECT_FLOAT_EQ(Design.PrintHeight, (2480.0F / 300.0F - 2.0F) * 0.721875F);
    EXPECT_EQ(Design.PrintLeft, 1.0F);
}

TEST_F(PrintCommands, HeightOfTheMapAtTheStartIsLimited) {
    window.scaleHeight = 38400.0; // twice as high as wide
    PreparePrinting();
    // 3508 dots less two inches.
    EXPECT_FLOAT_EQ(Design.PrintHeight, 3508.0F / 300.0F - 2.0F);
    EXPECT_FLOAT_EQ(Design.PrintWidth, (3508.0F / 300.0F - 2.0F) / 2.0F);
}

TEST_F(PrintCommands, MapAtTheStartIsMeasuredInTheUnitOfTheSettings) {
    ChangePrintUnit(CentimetreTwips); // as the settings do
    PreparePrinting();
    EXPECT_FLOAT_EQ(Design.PrintWidth, (2480.0F / 300.0F - 2.0F) * 1440.0F / 567.0F);
    EXPECT_FLOAT_EQ(OutputNow.page.PaperWidth, 2480.0F * 4.8F / 567.0F);
}

TEST_F(PrintCommands, StartWithoutAPrinterLeavesTheMapAsItIs) {
    machine.printers.any = false;
    PreparePrinting();
    EXPECT_EQ(Design.PrintWidth, 6.5F);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(PrintCommands, SmallPaperAtTheStartIsNoReasonForABox) {
    printer.sheet = {0.04, 0.04};
    PreparePrinting();
    EXPECT_EQ(Design.PrintWidth, 6.5F);
    printer.dotsPerInch = 0;
    PreparePrinting();
    EXPECT_EQ(Design.PrintWidth, 6.5F);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(PrintCommands, PageOfTheStartIsNoChangeOfTheDesign) {
    PreparePrinting();
    ClickMenuItem(Menu::mnuBar, HelpTitle);
    EXPECT_THAT(machine.changes.accepted, IsEmpty());
}

// ---- "Print Map" and "Print Setup".

TEST_F(PrintCommands, ItemsThatPrintAreThereWhenThereIsAPrinter) {
    for (const bool any : {true, false, true}) {
        machine.printers.any = any;
        ClickMenuItem(Menu::mnuBar, FileTitle);
        EXPECT_EQ(window.MenuEnabled(Menu::mnuInput, 2), any);
        EXPECT_EQ(window.MenuEnabled(Menu::mnuInput, 3), any);
        EXPECT_TRUE(window.MenuEnabled(Menu::mnuInput, 18)) << "a file needs none";
    }
}

TEST_F(PrintCommands, PrintMapAsksForThePageAndPrints) {
    printer.name = "LaserJet";
    AcceptPage([](Form& form) {
        EXPECT_EQ(form.Caption(), "Print Map on LaserJet");
        form.Choose("Landscape");
    });
    mnuInput_Click(2);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuInput, 2));
    // 6.5 inches in the middle of 3508 dots, 4.6922 in the middle of 2480: 779 and 536.2.
    EXPECT_THAT(printer.log, ElementsAre("Open landscape", "SelectClip 779 536 2731 1946",
                                         "StartDoc Quelmont", "StartPage", "EndPage", "EndDoc", "Close"));
    EXPECT_FALSE(Design.DialogCancelled);
    ExpectIdle();
}

TEST_F(PrintCommands, CancelledPageIsNotPrinted) {
    machine.forms.Script("PrintMap", [](Form& form) { form.PressCancel(); });
    mnuInput_Click(2);
    EXPECT_THAT(printer.log, IsEmpty());
    EXPECT_FALSE(Design.DialogCancelled) << "it was read and cleared";
}

TEST_F(PrintCommands, WithoutAPrinterNothingHappens) {
    machine.printers.any = false;
    mnuInput_Click(2);
    mnuInput_Click(3);
    EXPECT_THAT(machine.forms.shown, IsEmpty());
    EXPECT_THAT(machine.printers.setUpOrientations, IsEmpty());
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(PrintCommands, BoundsThatTheProjectionRefusesAreSetRightFirst) {
    Design.ProjNum = ProjMercator; // whose poles cannot be drawn
    machine.forms.Script("LatLonBounds", [](Form& form) { form.PressCancel(); });
    mnuInput_Click(2);
    EXPECT_THAT(machine.forms.shown, ElementsAre("LatLonBounds"));
    EXPECT_THAT(printer.log, IsEmpty());
}

TEST_F(PrintCommands, TextThatIsBeingPlacedIsFixedFirstAndPrinted) {
    Design.CurrentText = "in hand";
    Design.CurrentLook = {.FontName = "Arial", .FontSize = 10};
    Design.TextPending = true;
    BeginPlacing();
    Form_MouseDown(1920.0, 1386.0);
    AcceptPage();
    ClickMenuItem(Menu::mnuInput, 2);
    ASSERT_THAT(printer.surface.Texts(), SizeIs(1));
    EXPECT_EQ(printer.surface.Texts()[0].text, "in hand");
    EXPECT_FALSE(Design.TextPending);
}

TEST_F(PrintCommands, SetUpPrinterIsTakenWithItsPaper) {
    machine.printers.onSetUp = [this](std::int16_t& orientation) {
        EXPECT_EQ(orientation, Portrait);
        orientation = Landscape;
        printer.sheet = SheetLetter;
        return true;
    };
    mnuInput_Click(3);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuInput, 3));
    EXPECT_EQ(Design.PrinterOrientation, Landscape);
    EXPECT_FLOAT_EQ(OutputNow.page.PaperWidth, 11.0F);
    EXPECT_FLOAT_EQ(OutputNow.page.PaperHeight, 8.5F);
}

TEST_F(PrintCommands, CancelledSetUpChangesNothing) {
    machine.printers.onSetUp = [](std::int16_t& orientation) {
        orientation = Landscape; // whatever it says
        return false;
    };
    mnuInput_Click(3);
    EXPECT_EQ(Design.PrinterOrientation, Portrait);
}

TEST_F(PrintCommands, RecalledPageIsPrintedAsItWasSaved) {
    TemporaryFolder folder;
    SetFileDeviceMaker(nullptr);
    Design.MapFileCount = 0;
    Design.InputFiles.clear();
    Design.CnfFileName = folder / "page.cnf";
    ChangePrintUnit(CentimetreTwips);
    Design.PrintWidth = 12.0F;
    Design.PrintLeft = 3.0F;
    Design.PrintTop = 4.0F;
    Design.CenterHorizontal = false;
    Design.CenterVertical = false;
    Design.PrinterOrientation = Landscape;
    ASSERT_TRUE(SaveDesign());
    ChangePrintUnit(InchTwips);
    Design.PrintWidth = 5.0F;
    Design.PrinterOrientation = Portrait;
    Design.CenterHorizontal = true;
    machine.boxes.Answer(BoxAnswer::Discard);
    ASSERT_TRUE(OpenDesign(Design.CnfFileName));
    EXPECT_EQ(Design.PrintUnitTwips, CentimetreTwips);
    AcceptPage([](Form& form) {
        EXPECT_EQ(form.At("Landscape").value, 1);
        EXPECT_EQ(form.At("Centimeters").value, 1);
        EXPECT_EQ(form.At("HorizontalMap").value, 0);
        EXPECT_EQ(form.At("WidthMap").text, "012.00");
        EXPECT_EQ(form.At("LeftMap").text, "003.00");
    });
    mnuInput_Click(2);
    // 3 cm of 567 twips are 354.4 dots, 4 cm 472.5 (2268 / 4.8), 12 cm 1417.5; the height is 4911.6 twips,
    // rounded 4912: 7180 / 4.8 is 1495.8.
    EXPECT_THAT(printer.log[0], "Open landscape");
    EXPECT_THAT(printer.log[1], "SelectClip 354 472 1774 1498");
}

// ---- "Save as PDF".

class SavePdf : public PrintCommands {
protected:
    SavePdf() { machine.printers.any = false; }
};

TEST_F(SavePdf, AsksForThePageThenForTheName) {
    MainWindowNow.PdfFileName = "/maps/old.pdf";
    AcceptPage([this](Form& form) {
        EXPECT_EQ(form.Caption(), "Print Map on PDF");
        EXPECT_THAT(machine.fileDialogs.asked, IsEmpty());
    });
    mnuInput_Click(18);
    ASSERT_THAT(machine.fileDialogs.asked, SizeIs(1));
    const FileDialogRequest& request = machine.fileDialogs.asked[0];
    EXPECT_EQ(request.title, "Save Map As PDF File");
    EXPECT_EQ(request.filter, "PDF Files (*.pdf)|*.pdf");
    EXPECT_EQ(request.filterIndex, 1);
    EXPECT_EQ(request.extension, "pdf");
    EXPECT_EQ(request.folder, "/maps");
    EXPECT_EQ(request.name, "old.pdf");
    EXPECT_TRUE(request.asksToReplace);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuInput, 18));
    EXPECT_THAT(pdf.log, IsEmpty()) << "the file dialog was cancelled";
}

TEST_F(SavePdf, PrintsOnThePaperIntoTheFile) {
    AcceptPage([](Form& form) { form.Choose("PaperList", 6); });
    machine.fileDialogs.Choose({"/maps/world"});
    mnuInput_Click(18);
    EXPECT_EQ(machine.printers.pdfRequests.back(),
              (ScriptedPrinters::PdfRequest{8.5, 11.0, "/maps/world.pdf"}));
    EXPECT_EQ(MainWindowNow.PdfFileName, "/maps/world.pdf");
    // 6.5 inches in the middle of 2550 dots, 6757 twips of height in the middle of 3300: 300 and 946.2.
    EXPECT_THAT(pdf.log, ElementsAre("Open portrait", "SelectClip 300 946 2252 2356", "StartDoc Quelmont",
                                     "StartPage", "EndPage", "EndDoc", "Close"));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    ExpectIdle();
}

TEST_F(SavePdf, CancelledPageAsksForNoName) {
    machine.forms.Script("PrintMap", [](Form& form) { form.PressCancel(); });
    mnuInput_Click(18);
    EXPECT_THAT(machine.fileDialogs.asked, IsEmpty());
    EXPECT_FALSE(Design.DialogCancelled);
}

TEST_F(SavePdf, FailureOfTheFileDialogIsReported) {
    AcceptPage();
    machine.fileDialogs.Fail(4);
    mnuInput_Click(18);
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"File Common Dialog Error", "Error 4 in Save as PDF"}));
    EXPECT_THAT(pdf.log, IsEmpty());
}

TEST_F(SavePdf, StopGivesTheFileUp) {
    AcceptPage();
    machine.fileDialogs.Choose({"/maps/world.pdf"});
    machine.pump.At(4, EscapeKey);
    mnuInput_Click(18);
    EXPECT_THAT(pdf.log, testing::Contains("Abort"));
    EXPECT_THAT(pdf.log, testing::Not(testing::Contains("EndDoc")));
    ExpectIdle();
}

TEST_F(SavePdf, FileThatCannotBeWrittenIsReported) {
    pdf.opens = false;
    AcceptPage();
    machine.fileDialogs.Choose({"/maps/world.pdf"});
    mnuInput_Click(18);
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "OpenPrinter(1) error in MapPrint"}));
    pdf.opens = true;
    pdf.FailAt(JobStep::EndDoc); // the disk is full
    AcceptPage();
    machine.fileDialogs.Choose({"/maps/world.pdf"});
    mnuInput_Click(18);
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "EndDoc(1) error in MapPrint"}));
    EXPECT_THAT(pdf.log, testing::Contains("Abort"));
}

TEST_F(SavePdf, MachineThatMakesNoPdfTellsIt) {
    machine.printers.makesPdf = false;
    PrintPdf();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "OpenPrinter(1) error in MapPrint"}));
}

TEST_F(SavePdf, PageOfTheWholePaperFitsOnEveryPaper) {
    for (std::size_t paper = 0; paper < Papers.size(); ++paper) {
        AcceptPage([paper](Form& form) {
            form.Choose("PaperList", static_cast<int>(paper));
            form.Type("WidthMap", "005.00");
        });
        machine.fileDialogs.Choose({"/maps/world.pdf"});
        pdf.dotsPerInch = PageResolution(Papers.at(paper).width, Papers.at(paper).height);
        mnuInput_Click(18);
        EXPECT_THAT(machine.boxes.Taken(), IsEmpty()) << Papers.at(paper).name;
    }
    EXPECT_THAT(machine.forms.shown, SizeIs(Papers.size()));
}

} // namespace
} // namespace quelmont
