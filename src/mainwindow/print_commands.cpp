#include "mainwindow/print_commands.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "dialogs/dialogs_state.h"
#include "dialogs/printing/print_map.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_print.h"
#include "mainwindow/ready_to_draw.h"
#include "mainwindow/told_changes.h"
#include "output/print/page_layout.h"
#include "output/print/papers.h"
#include "output/print/printer_params.h"
#include "platform/machine.h"

#include <memory>
#include <utility>

namespace quelmont {

namespace {

/// The chosen printer, if the machine has any.
Printer* ChosenPrinter() { return Machine().printers->Any() ? Machine().printers->Chosen() : nullptr; }

/// False after Cancel.
bool Accepted(PrintMap& dialog) {
    Machine().forms->Show(dialog);
    return !std::exchange(Design.DialogCancelled, false);
}

} // namespace

void PreparePrinting() {
    if (const Printer* const printer = ChosenPrinter()) {
        Guarded("Form_Load", [&] {
            if (GetPrinterParams(*printer)) {
                FitPrintToPaper();
            }
        });
    }
    NoteDesign(); // none of this is a change that somebody made
}

void AskPageAndPrint(int /*index*/) {
    Printer* const printer = ChosenPrinter();
    if (printer == nullptr || !ReadyToDraw()) {
        return;
    }
    PrintMap dialog(*printer);
    if (Accepted(dialog)) {
        MapPrint(*printer);
    }
}

void SetUpPrinter(int /*index*/) {
    std::int16_t orientation = Design.PrinterOrientation;
    if (!Machine().printers->Any() || !Machine().printers->SetUp(orientation)) {
        return;
    }
    Design.PrinterOrientation = orientation;
    if (const Printer* const printer = ChosenPrinter()) {
        GetPrinterParams(*printer);
    }
}

bool AskPdfPage() {
    PrintMapOnPdf dialog;
    return Accepted(dialog);
}

void PrintPdf() {
    const Paper& paper = Papers.at(DialogsNow.PdfPaper);
    const std::unique_ptr<Printer> printer =
        Machine().printers->Pdf(paper.width, paper.height, MainWindowNow.PdfFileName);
    ReportUnless(printer != nullptr, "OpenPrinter(1) error in MapPrint");
    if (printer) {
        MapPrint(*printer);
    }
}

} // namespace quelmont
