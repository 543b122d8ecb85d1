#include "dialogs/reports/report_margins.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "support/fresh_program.h"
#include "support/scripted_printer.h"

#include <gmock/gmock.h>

namespace quelmont {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

constexpr double TwipsPerInch = 1440.0;

class Margins : public FreshProgramTest {
protected:
    Margins() {
        ConstantDefs();
        printer.sheet = SheetLetter;
    }
    static std::string Text(const Form& form, const char* name) { return form.At(name).text; }

    ScriptedPrinter printer;
};

TEST_F(Margins, OpenWithThoseOfTheDesign) {
    Design.ReportLeft = 0.75F;
    Design.PrinterOrientation = Landscape;
    const ReportMargins dialog(printer, 1.0);
    EXPECT_EQ(dialog.Caption(), "Print Report on Scripted printer");
    EXPECT_EQ(Text(dialog, "ReportFrame"), "Margins (inch)");
    EXPECT_EQ(Text(dialog, "RptTbLeft"), "000.75");
    EXPECT_EQ(Text(dialog, "RptTbBottom"), "001.00");
    EXPECT_EQ(dialog.At("Landscape").value, 1);
    EXPECT_EQ(dialog.At("Inches").value, 1);
}

TEST_F(Margins, ChangeOfUnitConvertsAllLengthsAndKeepsThemUnrounded) {
    Design.ReportLeft = 0.1647F;
    ReportMargins dialog(printer, 1.0);
    dialog.Choose("Centimeters");
    EXPECT_EQ(Text(dialog, "ReportFrame"), "Margins (cm)");
    // 0.1647 * 1440 / 567 = 0.41829, an inch 2.53968.
    EXPECT_EQ(Text(dialog, "RptTbLeft"), "000.42");
    EXPECT_EQ(Text(dialog, "RptTbTop"), "002.54");
    EXPECT_NEAR(Design.ReportLeft, 0.418286, 1e-6);
    EXPECT_NEAR(Design.PrintWidth, 6.5 * 1440 / 567, 1e-5) << "lengths of the map go with it";
    dialog.Choose("Inches");
    dialog.Press("OK");
    EXPECT_NEAR(Design.ReportLeft, 0.1647F, 1e-7) << "what nobody typed was not rounded";
    EXPECT_FALSE(Design.DialogCancelled);
}

TEST_F(Margins, TypedOneIsTakenIntoTheNewUnit) {
    ReportMargins dialog(printer, 1.0);
    dialog.Type("RptTbRight", "000.50");
    dialog.Choose("Centimeters");
    EXPECT_EQ(Text(dialog, "RptTbRight"), "001.27");
    dialog.Press("OK");
    EXPECT_NEAR(Design.ReportRight, 0.5 * 1440 / 567, 1e-6);
}

TEST_F(Margins, CancelGivesUnitOrientationAndLengthsBack) {
    ReportMargins dialog(printer, 1.0);
    dialog.Choose("Centimeters");
    dialog.Choose("Landscape");
    dialog.Type("RptTbTop", "009.00");
    dialog.Choose("Inches");
    dialog.Choose("Centimeters");
    dialog.PressCancel();
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(Design.PrintUnitTwips, 1440);
    EXPECT_EQ(Design.PrinterOrientation, Portrait);
    EXPECT_EQ(Design.ReportTop, 1.0F);
    EXPECT_EQ(Design.PrintWidth, 6.5F);
}

TEST_F(Margins, ReportThatFitsExactlyIsAccepted) {
    ReportMargins dialog(printer, 6.5 * TwipsPerInch);
    dialog.Press("OK");
    EXPECT_TRUE(dialog.Closed());
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Margins, WideReportIsAskedAbout) {
    ReportMargins dialog(printer, 7.0 * TwipsPerInch);
    machine.boxes.Answer(BoxAnswer::Retry);
    dialog.Press("OK");
    const std::vector<AskedBox> boxes = machine.boxes.Taken();
    ASSERT_THAT(boxes, SizeIs(1));
    EXPECT_EQ(boxes[0].title, "Information: Font too large, or margins too wide.");
    EXPECT_EQ(boxes[0].text, "The width of the report (about 7.00 inches.) may be greater than the\n"
                             "available width (6.50 inches.) between the left and right margins.\n\n"
                             "You can decrease the margins, or reduce the font size.\n\n"
                             "Press Abort to cancel printing the report.\n"
                             "Press Retry to change the report margins.\n"
                             "Press Ignore to continue printing the report.");
    EXPECT_EQ(boxes[0].buttons, BoxButtons::AbortRetryIgnore);
}

TEST_F(Margins, RetryKeepsTheDialogAndItsValues) {
    ReportMargins dialog(printer, 7.0 * TwipsPerInch);
    dialog.Type("RptTbLeft", "001.25");
    machine.boxes.Answer(BoxAnswer::Retry);
    dialog.Press("OK");
    EXPECT_FALSE(dialog.Closed());
    EXPECT_EQ(Text(dialog, "RptTbLeft"), "001.25");
    EXPECT_EQ(dialog.Focus(), "RptTbLeft");
    dialog.Type("RptTbLeft", "000.50");
    dialog.Press("OK");
    EXPECT_TRUE(dialog.Closed());
}

TEST_F(Margins, IgnoreAcceptsAndAbortCancels) {
    ReportMargins wide(printer, 7.0 * TwipsPerInch);
    machine.boxes.Answer(BoxAnswer::Ignore);
    wide.Press("OK");
    EXPECT_TRUE(wide.Closed());
    EXPECT_FALSE(Design.DialogCancelled);
    ReportMargins other(printer, 7.0 * TwipsPerInch);
    other.Type("RptTbTop", "003.00");
    machine.boxes.Answer(BoxAnswer::Abort);
    other.Press("OK");
    EXPECT_TRUE(other.Closed());
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(Design.ReportTop, 1.0F);
}

TEST_F(Margins, LandscapeHasMoreRoom) {
    ReportMargins dialog(printer, 8.9 * TwipsPerInch);
    dialog.Choose("Landscape");
    dialog.Press("OK");
    EXPECT_TRUE(dialog.Closed());
    EXPECT_EQ(Design.PrinterOrientation, Landscape);
}

TEST_F(Margins, ThatLeaveNoWidthHaveNoneInTheQuestion) {
    ReportMargins dialog(printer, 7.0 * TwipsPerInch);
    dialog.Choose("Centimeters");
    dialog.Type("RptTbLeft", "015.00");
    dialog.Type("RptTbRight", "015.00");
    machine.boxes.Answer(BoxAnswer::Retry);
    dialog.Press("OK");
    // Seven inches of 1440 twips are 17.78 units of 567.
    EXPECT_THAT(machine.boxes.Taken().at(0).text,
                testing::AllOf(testing::HasSubstr("(about 17.78 cm.)"), testing::HasSubstr("(0.00 cm.)")));
}

TEST_F(Margins, PrinterWithoutAResolutionLeavesNoRoom) {
    printer.dotsPerInch = 0;
    ReportMargins dialog(printer, TwipsPerInch);
    machine.boxes.Answer(BoxAnswer::Retry);
    dialog.Press("OK");
    EXPECT_THAT(machine.boxes.Taken().at(0).text, testing::HasSubstr("(0.00 inches.)"));
    EXPECT_FALSE(dialog.Closed());
}

} // namespace
} // namespace quelmont
