#include "dialogs/reports/report_margins.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "core/number_text.h"
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

} // namespace

ReportMargins::ReportMargins(const Printer& printer_, double reportWidth_)
    : PageDialog("ReportMargins", "Print Report on " + printer_.Name()), printer(printer_),
      reportWidth(reportWidth_), margins{{{"RptTbLeft", "&Left:", &Design.ReportLeft},
                                          {"RptTbRight", "&Right:", &Design.ReportRight},
                                          {"RptTbTop", "&Top:", &Design.ReportTop},
                                          {"RptTbBottom", "&Bottom:", &Design.ReportBottom}}} {
    Form_Load();
}

void ReportMargins::Form_Load() {
    Add({.name = "Help", .kind = ControlKind::Label, .text = Explanation});
    AddPageOptions("ReportOrientation", "ReportUnits");
    Add({.name = "ReportFrame", .kind = ControlKind::Frame});
    for (const Margin& margin : margins) {
        AddLength(margin.name, margin.caption);
    }
    AddOkAndCancel([this] { OK_Click(); });
    ShowMargins();
}

void ReportMargins::ShowMargins() {
    Edit("ReportFrame").text = InCentimetres() ? "Margins (cm)" : "Margins (inch)";
    for (Margin& margin : margins) {
        margin.written = ShowLength(margin.name, *margin.length);
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
    PageDialog::TakeUnit(twips);
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

} // namespace quelmont
