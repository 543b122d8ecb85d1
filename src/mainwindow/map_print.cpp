#include "mainwindow/map_print.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "core/stop_signals.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/plot_stages.h"
#include "output/device_pen.h"
#include "output/draw_target.h"
#include "output/map_surround.h"
#include "output/output_state.h"
#include "output/print/printer_params.h"
#include "output/print/scale_printer.h"
#include "output/print_text.h"
#include "output/scale_screen.h"
#include "platform/machine.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quelmont {

namespace {

constexpr const char* Routine = "MapPrint";
constexpr const char* StopCaption = "Quelmont: click on Stop or press Esc to stop printing";
constexpr const char* DocumentName = "Quelmont";
/// The clip reaches a little beyond the map, so that the lines on its border are seen whole.
constexpr int ClipBeyond = 2;

/// A step of the job; one that was not done shows its message box.
bool Done(bool done, std::string_view failure) {
    ReportUnless(done, failure);
    return done;
}

/// The page in the place of the window, as long as it lives.
class PageInUse {
public:
    explicit PageInUse(PrintJob& job) { OutputNow.PrinterSurface = &job.Surface(); }
    ~PageInUse() {
        ReleaseDevicePen(1, Routine);
        OutputNow.PrinterSurface = nullptr;
        Design.Surface = surfaceBefore;
    }
    PageInUse(const PageInUse&) = delete;
    PageInUse& operator=(const PageInUse&) = delete;

private:
    DrawSurface* surfaceBefore = Design.Surface;
};

bool BeginPage(PrintJob& job) {
    const MapOnPage map = BoxOfMapOnPage();
    const int right = map.right + ClipBeyond;
    const int bottom = map.bottom + ClipBeyond;
    return Done(right > map.left && bottom > map.top, "CreateRectRgn error(1) in MapPrint") &&
           Done(job.SelectClip(map.left, map.top, right, bottom), "SelectClipRgn error(1) in MapPrint") &&
           Done(job.StartDoc(DocumentName), "StartDoc error(1) in MapPrint");
}

/// Lets events run while the printer takes the page; whether printing may go on then.
bool AbortProc() {
    Machine().pump->DoEvents();
    return !Design.PrintAbort;
}

/// Ends a page that was started. Only one that is whole is handed over.
bool EndPage(PrintJob& job, bool whole) {
    MainWindowNow.PageEnding = true;
    const int ended = job.EndPage();
    const bool goesOn = AbortProc();
    MainWindowNow.PageEnding = false;
    return whole && goesOn && Done(ended >= 0, "EndPage(1) error in MapPrint: " + std::to_string(ended)) &&
           Done(job.EndDoc(), "EndDoc(1) error in MapPrint");
}

/// The map and its texts. False when that was stopped.
bool PlotPage() {
    if (!RunStages(StopCaption)) {
        return false;
    }
    SelectDevice();
    if (Surround() != nullptr) {
        Surround()->DrawTexts();
    }
    PrintText();
    return true;
}

/// Everything between StartDoc and EndDoc.
bool PrintPage(PrintJob& job) {
    if (!Done(job.StartPage(), "StartPage error(1) in MapPrint")) {
        return false;
    }
    bool whole = false;
    Guarded(Routine, [&] {
        const PageInUse page(job);
        whole = PlotPage();
    });
    return EndPage(job, whole);
}

bool Print(Printer& printer) {
    const std::unique_ptr<PrintJob> job = printer.Open(Design.PrinterOrientation);
    if (!Done(job != nullptr, "OpenPrinter(1) error in MapPrint") ||
        !Done(GetPrinterParams(printer), "DocumentProperties(1) error in MapPrint") || !BeginPage(*job)) {
        return false;
    }
    const bool printed = PrintPage(*job);
    if (!printed) {
        job->Abort();
    }
    return printed;
}

/// Puts the run state of a print in force. End has to follow, whatever fails.
void Begin() {
    Design.PrintingNow = true;
    Design.PrintAbort = false;
    Design.PenColor = Design.GridColor;
    BeginStages();
}

void End() {
    EndStages(Routine);
    Design.PrintingNow = false;
    Design.PrintAbort = false;
    GiveWindowBack(Routine);
}

} // namespace

bool MapPrint(Printer& printer) {
    if (IsPlotting() || Design.TextPending) {
        return false;
    }
    BeginDrawBoxes();
    const StopSignals stopSignals;
    // Those of the picture in the window, which keeps its own.
    std::vector<MapLabel> labelsOnWindow = std::exchange(Design.MapLabels, {});
    bool printed = false;
    if (Guarded(Routine, ScaleAscii) && ScalePrinter()) {
        Guarded(Routine, [&] {
            Begin();
            printed = Print(printer);
        });
        End();
    }
    Design.MapLabels = std::move(labelsOnWindow);
    ScaleScreen();
    EndDrawBoxes();
    if (StopSignals::Came()) {
        Machine().window->Close();
    }
    return printed;
}

} // namespace quelmont
