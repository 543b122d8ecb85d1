#include "mainwindow/map_draw.h"

#include "annotation/label_convert.h"
#include "annotation/label_print.h"
#include "core/checked_math.h"
#include "core/elapsed.h"
#include "core/error_box.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "core/stop_signals.h"
#include "graticule/lobes.h"
#include "graticule/plot_grid.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/text_placing.h"
#include "mapinput/map_plot.h"
#include "output/device_pen.h"
#include "output/draw_target.h"
#include "output/export_file.h"
#include "output/fan_out.h"
#include "output/print_text.h"
#include "output/scale_screen.h"
#include "platform/machine.h"
#include "projection/lobe_row.h"

#include <vector>

namespace quelmont {

namespace {

constexpr const char* StopCaption = "Quelmont: click on Stop or press Esc to stop plotting";

double Now() { return Machine().clock->SecondsSinceMidnight(); }

double ClockSecondsSince(double start) { return ElapsedSeconds(start, Now()); }

void DisarmExports() {
    DisarmWriters();
    Design.OutputGc = false;
}

void Fit() {
    Design.PenWidth = 1;
    Design.AsciiScale = Divide(Design.XAxisLength, Design.MapXMax - Design.MapXMin);
    ScaleScreen();
}

/// From here on End has to follow, whatever fails.
void Begin() {
    MainWindowNow.SavedCaption = Machine().window->Caption();
    const auto outputs = static_cast<std::size_t>(Design.MapFileCount + Design.GridOutputCount);
    if (Design.AsciiFileName.size() < outputs) {
        Design.AsciiFileName.resize(outputs);
    }
    ResetLineState();
    Design.MapLabels.clear(); // those of the draw before
    Design.Statistics = {};
    Design.PlotSeconds = Now();
    MainWindowNow.MapDrawing = true;
    EnableMenuBar(true);
    Machine().window->SetAutoRedraw(true);
    Design.LobeOffsetX = 0.0;
    Design.LobeFirst = true;
    Design.LobeLast = true;
    Machine().window->SetMousePointer(MousePointer::Hourglass);
}

void PlotGridTimed() {
    const double start = Now();
    PlotGrid();
    Design.Statistics.GridSeconds += ClockSecondsSince(start);
}

/// True when a stage was stopped; the draw then ends, and the reason is taken off.
bool Stopped(bool gridFailed) {
    if (Design.PlotStopReason == StopReason::Escape ||
        (gridFailed && Design.PlotStopReason == StopReason::GridDiskError)) {
        Design.PlotStopReason = StopReason::None;
        return true;
    }
    return false;
}

/// One pass over the grid and the map files. False when the draw was stopped.
bool Pass() {
    Machine().window->SetCaption(StopCaption);
    PlotGridTimed();
    if (Stopped(true)) {
        Machine().window->KeepPicture();
        return false;
    }
    Machine().window->Refresh();
    MapPlot();
    if (Stopped(false)) {
        return false;
    }
    Machine().clock->Beep();
    return true;
}

/// The lobes that have a height: northern ones, then southern ones.
std::vector<std::int16_t> LobesToDraw() {
    std::vector<std::int16_t> lobes;
    for (const LobeRow& row : {LobesOf(0), LobesOf(1)}) {
        for (std::size_t number = row.first; number <= row.last; ++number) {
            const auto lobe = static_cast<std::int16_t>(number);
            CalcGraticuleInterrupt(lobe);
            if (Design.LatNorthSec > Design.LatSouthSec) {
                lobes.push_back(lobe);
            }
        }
    }
    return lobes;
}

/// The lobes so far without their labels, which lie over all of them.
void PutBackLobes() {
    if (Design.LabelsVisible && !Design.MapLabels.empty()) {
        Machine().window->PutBackPicture();
    }
}

void ShowLabelsOfLobes() {
    PutBackLobes();
    SelectDevice();
    DrawLabels(0, false);
}

/// False when the draw was stopped.
bool LobePasses() {
    const std::vector<std::int16_t> lobes = LobesToDraw();
    bool whole = true;
    for (std::size_t i = 0; whole && i < lobes.size(); ++i) {
        const std::int16_t lobe = lobes[i];
        if (i > 0) {
            PutBackLobes();
        }
        Design.LobeFirst = lobe == lobes.front();
        Design.LobeLast = lobe == lobes.back();
        CalcGraticuleInterrupt(lobe);
        Design.LobeOffsetX = Design.LobeCentral[static_cast<std::size_t>(lobe)];
        whole = Pass();
    }
    ShowLabelsOfLobes();
    return whole;
}

/// The texts of the design, over everything.
void PrintTextOnWindow() {
    SelectDevice();
    PrintText();
}

void End() {
    Design.PlotSeconds = ClockSecondsSince(Design.PlotSeconds);
    Design.LobeOffsetX = 0.0;
    Design.LobeLast = true;
    ReleaseDevicePen(1, "MapDraw");
    DropExports(); // what is whole has taken its place
    DisarmExports();
    GiveBackTextItems();
    Design.OutputFileName.clear();
    ResetLineState();
    MainWindow& window = *Machine().window;
    window.Refresh();
    window.SetAutoRedraw(false);
    Design.PenWidth = 1;
    MainWindowNow.MapDrawing = false;
    window.SetMousePointer(MousePointer::Normal);
    window.SetCaption(MainWindowNow.SavedCaption);
    ToggleCaption(); // the window may have another size now
    EnableMenuBar(false);
    ReleaseDevicePen(2, "MapDraw");
    Design.PlotStopReason = StopReason::None;
}

} // namespace

void MapDraw() {
    if (MainWindowNow.MapDrawing) {
        return;
    }
    if (Design.TextPending) {
        DisarmExports();
        return; // the text in hand is the draw's own
    }
    BeginDrawBoxes();
    const StopSignals stopSignals;
    if (Guarded("MapDraw", Fit)) {
        Guarded("MapDraw", [] {
            Begin();
            if (Design.ProjNum == ProjInterruptedMollweide ? LobePasses() : Pass()) {
                PrintTextOnWindow();
            }
        });
        End();
    } else {
        DisarmExports();
    }
    EndDrawBoxes();
    if (StopSignals::Came()) {
        Machine().window->Close();
    }
}

void EscapeKey() {
    if (Design.PrintingNow && MainWindowNow.PageEnding) {
        Design.PrintAbort = true;
        return;
    }
    DisarmExports();
    Design.OutputSc = false;
    if (Design.TextPending) {
        TextDone();
        return;
    }
    if (!MainWindowNow.MapDrawing && !Design.PrintingNow) {
        return;
    }
    Guarded("Form_KeyDown", [] { CloseFile(InputFileNumber); });
    DropExports();
    Guarded("Form_KeyDown", [] { CloseFile(OutputFileNumber); });
    Design.OutputFileName.clear();
    Design.PlotStopReason = StopReason::Escape;
    MainWindowNow.MapDrawing = false;
    if (Design.PrintingNow) {
        Design.PrintAbort = true;
    }
    ResetLineState();
}

void StopDrawing() {
    Machine().window->Refresh();
    Machine().window->SetAutoRedraw(false);
    EscapeKey();
}

} // namespace quelmont
