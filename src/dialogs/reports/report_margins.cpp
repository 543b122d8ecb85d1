#include "dialogs/reports/report_margins.h"

#include "core/checked_math.h"
#include "core/number_text.h"
#include "core/print_units.h"
#include "dialogs/printing/page_checks.h"
#include "output/output_state.h"
#include "output/print/page_layout.h"
#include "output/print/printer_params.h"
#include "platform/machine.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr const char* Explanation = "Reports printed with font sizes larger than about 13 points may be too "
                                    "wide to fit on the printed page.";
constexpr const char* LengthMask = "%%%.%%";
constexpr const char* LengthPicture = "000.00";
constexpr float LargestShown = 999.99F;

bool InCentimetres() { return Design.PrintUnitTwips == CentimetreTwips; }

} // namespace

ReportMargins::ReportMargins(const Printer& printer_, double reportWidth_)
    : DesignDialog("ReportMargins", "Print Report on " + printer_.Name()), printer(printer_),
      reportWidth(reportWidth_), margins{{{"RptTbLeft", "&Left:", &Design.ReportLeft},
                                          {"RptTbRight", "&Right:", &Design.ReportRight},
                                          {"RptTbTop", "&Top:", &Design.ReportTop},
                                          {"RptTbBottom", "&Bottom:", &Design.ReportBottom}}} {
    Form_Load();
}

void ReportMargins::Form_Load() {
    Design.DialogCancelled = true;
    Add({.name = "Help", .kind = ControlKind::Label, .text = Explanation});
    AddOptions();
    Add({.name = "ReportFrame", .kind = ControlKind::Frame});
    for (const Margin& margin : margins) {
        Add({.name = margin.name, .kind = ControlKind::Edit, .caption = margin.caption, .mask = LengthMask});
    }
    AddOkAndCancel([this] { OK_Click(); });
    ShowMargins();
}

void ReportMargins::AddOptions() {
    const auto add = [this](const char* name, const char* text, const char* frame, bool chosen) {
        Add({.name = name,
             .kind = ControlKind::Option,
             .text = text,
             .value = chosen ? 1 : 0,
             .frame = frame});
    };
    Add({.name = "ReportOrientation", .kind = ControlKind::Frame, .text = "Paper Orientation"});
    const bool turned = Design.PrinterOrientation == Landscape;
    add("Portrait", "&Portrait", "ReportOrientation", !turned);
    add("Landscape", "L&andscape", "ReportOrientation", turned);
    Add({.name = "ReportUnits", .kind = ControlKind::Frame, .text = "Units"});
    add("Inches", "&Inches", "ReportUnits", !InCentimetres());
    add("Centimeters", "Centi&meters", "ReportUnits", InCentimetres());
    On("Portrait", ControlEvent::Click, [] { Design.PrinterOrientation = Portrait; });
    On("Landscape", ControlEvent::Click, [] { Design.PrinterOrientation = Landscape; });
    On("Inches", ControlEvent::Click, [this] { TakeUnit(InchTwips); });
    On("Centimeters", ControlEvent::Click, [this] { TakeUnit(CentimetreTwips); });
}

void ReportMargins::ShowMargins() {
    Edit("ReportFrame").text = InCentimetres() ? "Margins (cm)" : "Margins (inch)";
    for (Margin& margin : margins) {
        SetText(margin.name, FormatNumber(std::clamp(*margin.length, 0.0F, LargestShown), LengthPicture));
        margin.written = At(margin.name).text;
    }
}

void ReportMargins::TakeMargins() {
    for (Margin& margin : margins) {
        const std::string& text = At(margin.name).text;
        if (text != margin.written) {
            *margin.length = static_cast<float>(ValueOf(text));
            margin.written = text;
        }
    }
}

void ReportMargins::TakeUnit(std::int32_t twips) {
    TakeMargins();
    ChangePrintUnit(twips);
    ShowMargins();
}

double ReportMargins::AvailableWidth() const {
    GetPrinterParams(printer); // as it lies now; it may have been set up anew meanwhile
    const double paper = OutputNow.page.PaperWidth;
    return std::max(0.0, paper - Design.ReportLeft - Design.ReportRight);
}

void ReportMargins::OK_Click() {
    TakeMargins();
    const double width = Divide(reportWidth, Design.PrintUnitTwips);
    const double available = AvailableWidth();
    if (width <= available + PageSlack) {
        CloseAccepted();
        return;
    }
    const BoxAnswer answer = Machine().boxes->AskAbout(
        "RptTbLeft", "Information: Font too large, or margins too wide.",
        "The width of the report (about " + LengthInWords(width) +
            ") may be greater than the\navailable width (" + LengthInWords(available) +
            ") between the left and right margins.\n\nYou can decrease the margins, or reduce the font "
            "size.\n\nPress Abort to cancel printing the report.\nPress Retry to change the report "
            "margins.\nPress Ignore to continue printing the report.",
        BoxButtons::AbortRetryIgnore, BoxIcon::Information);
    if (answer == BoxAnswer::Ignore) {
        CloseAccepted();
    } else if (answer == BoxAnswer::Retry) {
        SetFocus("RptTbLeft");
    } else {
        Cancel_Click();
    }
}

void ReportMargins::Cancel_Click() {
    Design.PrintUnitTwips = before.unit;
    std::size_t i = 0;
    for (float* const length :
         {&Design.PrintLeft, &Design.PrintTop, &Design.PrintWidth, &Design.PrintHeight}) {
        *length = before.map[i++];
    }
    for (i = 0; i < margins.size(); ++i) {
        *margins[i].length = before.report[i];
    }
    Design.PrinterOrientation = before.orientation;
    DesignDialog::Cancel_Click();
}

} // namespace quelmont
