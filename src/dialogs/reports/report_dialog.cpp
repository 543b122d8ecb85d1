#include "dialogs/reports/report_dialog.h"

#include "core/error_box.h"
#include "core/file_names.h"
#include "core/map_design.h"
#include "dialogs/dialogs_state.h"
#include "dialogs/file_questions.h"
#include "dialogs/reports/report_margins.h"
#include "dialogs/text/font_dialog.h"
#include "dialogs/text/font_words.h"
#include "platform/machine.h"
#include "reports/great_circle_report.h"
#include "reports/parameter_report.h"
#include "reports/report_file.h"
#include "reports/report_page.h"
#include "reports/report_print.h"

namespace quelmont {

namespace {

enum OptionsItem : int { PrintItem = 0, SelectFontItem = 1, SaveItem = 2 };

constexpr int PlainTextFilter = 2;

} // namespace

ReportDialog::ReportDialog(const char* className, const char* caption, Report (*make)())
    : DesignDialog(className, caption) {
    Form_Load();
    Guarded(className, [&] {
        report = make();
        ShowReport();
    });
}

void ReportDialog::Form_Load() {
    Add({.name = "mnuOptions",
         .kind = ControlKind::Menu,
         .text = "&Report Options",
         .value = -1,
         .items = {"&Print", "Select Report &Font", "&Save"}});
    Add({.name = "Close", .kind = ControlKind::Button, .text = "&Close"});
    Add({.name = "ReportRtb", .kind = ControlKind::Page});
    On("mnuOptions", ControlEvent::Click, [this] { mnuOptions_Click(); });
    On("Close", ControlEvent::Click, [this] { Close(); });
    On("ReportRtb", ControlEvent::GotFocus, [this] { SetFocus("Close"); }); // nothing is typed there
    SetDefaultButton("Close");
    SetCancelButton("Close");
}

void ReportDialog::ShowReport() {
    const TextLook& look = Design.Fonts[ReportFontSlot];
    Control& box = Edit("ReportRtb");
    box.page = LayOutReport(report);
    box.letters = LettersOf(look, 0xFFFFFFU);
}

void ReportDialog::mnuOptions_Click() {
    switch (At("mnuOptions").value) {
    case PrintItem:
        Print();
        break;
    case SelectFontItem:
        SelectFont();
        break;
    case SaveItem:
        Save();
        break;
    default:
        break;
    }
    Design.DialogCancelled = false;
}

void ReportDialog::Print() {
    Printer* const printer = Machine().printers->Any() ? Machine().printers->Chosen() : nullptr;
    if (printer == nullptr) {
        Machine().boxes->Ask("Print Report",
                             "There is no printer.\n\nThe Save item writes the report to a file.",
                             BoxButtons::Ok, BoxIcon::Exclamation);
        return;
    }
    const std::vector<PageLine>& lines = At("ReportRtb").page;
    ReportMargins margins(*printer, WidthOfPage(lines, InFont(Design.Fonts[ReportFontSlot])));
    Machine().forms->Show(margins);
    if (!Design.DialogCancelled) {
        PrintReport(lines, *printer);
    }
}

void ReportDialog::SelectFont() {
    Design.FontSlot = ReportFontSlot;
    FontDialog fonts;
    Machine().forms->Show(fonts);
    if (!Design.DialogCancelled) {
        ShowReport();
    }
}

void ReportDialog::Save() const {
    const std::string& last = DialogsNow.ReportFileName;
    FileDialogRequest request{.title = "Save Report As Rich Text File",
                              .filter = "RTF Files (*.rtf)|*.rtf|Text Files (*.txt)|*.txt",
                              .extension = "rtf|txt"};
    request.filterIndex = ReportFormatOf(last) == ReportFormat::PlainText ? PlainTextFilter : 1;
    ParseFileName(last, request);
    const FileDialogAnswer answer = Machine().fileDialogs->Save(request);
    if (answer.error != 0) {
        ShowFileDialogError(answer.error, " in Save Report As Rich Text File");
        return;
    }
    const std::string name = WithExtension(answer.names.front(), ExtensionOf(request, answer.filterIndex));
    Guarded("mnuOptions_Click", [&] {
        SaveReport(report, name);
        DialogsNow.ReportFileName = name;
    });
}

ReportParam::ReportParam() : ReportDialog("ReportParam", "Map Parameter Report", ParameterReport) {}

GcReport::GcReport() : ReportDialog("GcReport", "Great Circle Report", GreatCircleReport) {}

} // namespace quelmont
