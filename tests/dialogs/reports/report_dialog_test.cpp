#include "dialogs/reports/report_dialog.h"

#include "core/map_design.h"
#include "core/run_time_error.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/dialogs_state.h"
#include "reports/report_page.h"
#include "support/failing_file.h"
#include "support/fresh_program.h"
#include "support/temporary_folder.h"

#include "circles/great_circle.h"
#include "core/constant_defs.h"
#include "graticule/calc_graticule.h"

#include <gmock/gmock.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class ReportBox : public FreshProgramTest {
protected:
    enum Item { Print, SelectFont, Save };

    ReportBox() {
        ConstantDefs();
        ConstantGrid();
        AcceptProjection();
    }
    static std::string TextOf(const Form& form) {
        std::string text;
        for (const PageLine& line : form.At("ReportRtb").page) {
            for (const std::string& cell : line.cells) {
                text += cell + "|";
            }
            text += "\n";
        }
        return text;
    }

    TemporaryFolder folder;
};

TEST_F(ReportBox, ShowsTheParameterReportInTheFontOfReports) {
    Design.Fonts[ReportFontSlot] = {.FontName = "Times", .FontSize = 12, .FontItalic = true};
    const ReportParam dialog;
    EXPECT_EQ(dialog.Caption(), "Map Parameter Report");
    EXPECT_THAT(TextOf(dialog), HasSubstr("Projection Type: Equirectangular|\n"));
    const SampleLetters& letters = dialog.At("ReportRtb").letters;
    EXPECT_EQ(letters.fontName, "Times");
    EXPECT_EQ(letters.points, 12);
    EXPECT_TRUE(letters.italic);
    EXPECT_EQ(letters.background, 0xFFFFFFU);
}

TEST_F(ReportBox, ShowsThePointsOfTheGreatCircle) {
    Design.GcDefined = true;
    GcCalc();
    const GcReport dialog;
    EXPECT_EQ(dialog.Caption(), "Great Circle Report");
    EXPECT_THAT(TextOf(dialog), HasSubstr("Starting latitude:|37 47 00 N|\n"));
}

TEST_F(ReportBox, TakesNoFocus) {
    ReportParam dialog;
    EXPECT_EQ(dialog.Focus(), "Close");
    dialog.MoveFocus("ReportRtb");
    EXPECT_EQ(dialog.Focus(), "Close");
}

TEST_F(ReportBox, FontThatIsChosenLaysTheReportOutAnew) {
    ReportParam dialog;
    const std::vector<PageLine> before = dialog.At("ReportRtb").page;
    machine.forms.Script("FontDialog", [](Form& fonts) {
        fonts.Type("comFontSize", "20");
        fonts.Press("OK");
    });
    dialog.Choose("mnuOptions", SelectFont);
    EXPECT_EQ(Design.Fonts[ReportFontSlot].FontSize, 20);
    EXPECT_EQ(dialog.At("ReportRtb").letters.points, 20);
    const std::vector<PageLine>& after = dialog.At("ReportRtb").page;
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < after.size(); ++i) {
        for (std::size_t k = 0; k < after[i].stops.size(); ++k) {
            EXPECT_EQ(after[i].stops[k], 2 * before[i].stops[k]) << i;
        }
    }
    EXPECT_FALSE(Design.DialogCancelled);
}

TEST_F(ReportBox, CancelledFontLeavesReportAndSlot) {
    ReportParam dialog;
    machine.forms.Script("FontDialog", [](Form& fonts) {
        fonts.Type("comFontSize", "20");
        fonts.PressCancel();
    });
    dialog.Choose("mnuOptions", SelectFont);
    EXPECT_EQ(dialog.At("ReportRtb").letters.points, 10);
    EXPECT_FALSE(Design.DialogCancelled);
}

TEST_F(ReportBox, SavesWithTheExtensionOfTheFilter) {
    ReportParam dialog;
    machine.fileDialogs.Choose({folder / "a"}, 1);
    dialog.Choose("mnuOptions", Save);
    EXPECT_THAT(ReadWholeFile(folder / "a.rtf"), StartsWith("{\\rtf1"));
    machine.fileDialogs.Choose({folder / "b"}, 2);
    dialog.Choose("mnuOptions", Save);
    EXPECT_THAT(ReadWholeFile(folder / "b.txt"), StartsWith("Quelmont Version "));
    machine.fileDialogs.Choose({folder / "c.TXT"}, 2);
    dialog.Choose("mnuOptions", Save);
    EXPECT_THAT(folder.Names(), testing::UnorderedElementsAre("a.rtf", "b.txt", "c.TXT"));
    const std::vector<FileDialogRequest>& asked = machine.fileDialogs.asked;
    ASSERT_THAT(asked, SizeIs(3));
    EXPECT_EQ(asked[0].title, "Save Report As Rich Text File");
    EXPECT_EQ(asked[0].filter, "RTF Files (*.rtf)|*.rtf|Text Files (*.txt)|*.txt");
    EXPECT_EQ(asked[0].filterIndex, 1);
    EXPECT_TRUE(asked[0].asksToReplace);
    EXPECT_EQ(asked[1].name, "a.rtf") << "the last name is proposed";
    EXPECT_EQ(asked[1].folder, folder.Path());
    EXPECT_EQ(asked[2].filterIndex, 2) << "with the filter of the last name";
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(ReportBox, FailedFileDialogIsReportedAndACancelledOneIsNot) {
    ReportParam dialog;
    machine.fileDialogs.Fail(12);
    dialog.Choose("mnuOptions", Save);
    dialog.Choose("mnuOptions", Save);
    const std::vector<AskedBox> boxes = machine.boxes.Taken();
    ASSERT_THAT(boxes, SizeIs(1));
    EXPECT_EQ(boxes[0].title, "File Common Dialog Error");
    EXPECT_EQ(boxes[0].text, "Error 12 in Save Report As Rich Text File");
}

TEST_F(ReportBox, FullDiskKeepsTheEarlierFileAndItsName) {
    ReportParam dialog;
    WriteWholeFile(folder / "a.rtf", "earlier");
    machine.fileDialogs.Choose({folder / "a.rtf"});
    {
        FailingFiles disk;
        disk.FailWritingAfter(100, ErrorDiskFull);
        dialog.Choose("mnuOptions", Save);
    }
    EXPECT_EQ(ReadWholeFile(folder / "a.rtf"), "earlier");
    EXPECT_THAT(folder.Names(), ElementsAre("a.rtf"));
    EXPECT_EQ(machine.boxes.Taken().at(0).text, "Error: Disk full");
    EXPECT_EQ(DialogsNow.ReportFileName, "");
}

TEST_F(ReportBox, PrintsWhatItShowsOnceTheMarginsAreAccepted) {
    machine.printers.any = true;
    ReportParam dialog;
    machine.forms.Script("ReportMargins", [](Form& margins) {
        EXPECT_EQ(margins.Caption(), "Print Report on Scripted printer");
        margins.Press("OK");
    });
    dialog.Choose("mnuOptions", Print);
    ASSERT_FALSE(machine.printers.printer.pages.empty());
    std::vector<std::string> printed;
    for (const PrintedPage& page : machine.printers.printer.pages) {
        for (const RecordedText& text : page.texts) {
            printed.push_back(text.text);
        }
    }
    std::vector<std::string> shown;
    for (const PageLine& line : dialog.At("ReportRtb").page) {
        std::copy_if(line.cells.begin(), line.cells.end(), std::back_inserter(shown),
                     [](const std::string& cell) { return !cell.empty(); });
    }
    EXPECT_EQ(printed, shown);
    EXPECT_FALSE(Design.DialogCancelled);
}

TEST_F(ReportBox, FontThatIsChosenIsPrinted) {
    machine.printers.any = true;
    ReportParam dialog;
    machine.forms.Script("FontDialog", [](Form& fonts) {
        fonts.Type("comFontSize", "6");
        fonts.Press("OK");
    });
    dialog.Choose("mnuOptions", SelectFont);
    machine.forms.Script("ReportMargins", [](Form& margins) { margins.Press("OK"); });
    dialog.Choose("mnuOptions", Print);
    // 6 points at 300 dots an inch.
    EXPECT_EQ(machine.printers.printer.pages.at(0).texts.at(0).font.font.height, -25);
}

TEST_F(ReportBox, CancelledMarginsPrintNothing) {
    machine.printers.any = true;
    ReportParam dialog;
    machine.forms.Script("ReportMargins", [](Form& margins) { margins.PressCancel(); });
    dialog.Choose("mnuOptions", Print);
    EXPECT_THAT(machine.printers.printer.log, IsEmpty());
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_FALSE(dialog.Closed());
}

TEST_F(ReportBox, WithoutAPrinterItSaysSo) {
    ReportParam dialog;
    dialog.Choose("mnuOptions", Print);
    EXPECT_EQ(machine.boxes.Taken().at(0).text,
              "There is no printer.\n\nThe Save item writes the report to a file.");
}

TEST_F(ReportBox, ClosesByItsButtonAndByEscape) {
    ReportParam one;
    one.PressDefault();
    EXPECT_TRUE(one.Closed());
    ReportParam two;
    two.PressCancel();
    EXPECT_TRUE(two.Closed());
}

TEST_F(ReportBox, ReportThatFailsShowsItsBoxAndAnEmptyPage) {
    Design.MapXMax = Design.MapXMin;
    const ReportParam dialog;
    EXPECT_EQ(machine.boxes.Taken().at(0).title, "Error in ReportParam");
    EXPECT_THAT(dialog.At("ReportRtb").page, IsEmpty());
}

} // namespace
} // namespace quelmont
