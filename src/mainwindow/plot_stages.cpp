#include "mainwindow/plot_stages.h"

#include "annotation/label_convert.h"
#include "annotation/label_print.h"
#include "areas/fill_areas.h"
#include "areas/plot_distortion.h"
#include "core/checked_math.h"
#include "core/elapsed.h"
#include "core/map_design.h"
#include "graticule/lobes.h"
#include "graticule/plot_grid.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mapinput/map_plot.h"
#include "mapinput/plot_progress.h"
#include "output/device_pen.h"
#include "output/draw_target.h"
#include "output/export_file.h"
#include "output/fan_out.h"
#include "output/map_surround.h"
#include "platform/machine.h"
#include "reports/map_description.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quelmont {

namespace {

double Now() { return Machine().clock->SecondsSinceMidnight(); }

double ClockSecondsSince(double start) { return ElapsedSeconds(start, Now()); }

/// What lies beneath the grid. Shades would cover what is filled.
void PlotGround() {
    if (!HasShades()) {
        FillAreas();
    }
    if (Design.PlotStopReason == StopReason::None) {
        PlotDistortion();
    }
}

void PlotGridTimed() {
    const double start = Now();
    PlotGrid(HasFilledAreas() || HasDistortion() ? PlotGround : nullptr);
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

/// What the window shows between the stages of a draw on it.
void ShowGrid(bool stopped) {
    if (Design.PrintingNow) {
        return;
    }
    if (stopped) {
        Machine().window->KeepPicture();
    } else {
        Machine().window->Refresh();
    }
}

/// One pass over the grid and the map files. False when it was stopped.
bool Pass(std::string_view stopCaption) {
    Machine().window->SetCaption(stopCaption);
    Machine().window->SetStatusText(Design.PrintingNow ? "Printing the grid" : "Drawing the grid");
    PlotGridTimed();
    const bool stopped = Stopped(true);
    ShowGrid(stopped);
    if (stopped) {
        return false;
    }
    MapPlot();
    if (Stopped(false)) {
        return false;
    }
    if (!Design.PrintingNow && !MainWindowNow.Quiet) {
        Machine().clock->Beep();
    }
    return true;
}

/// The lobes so far without their labels, which lie over all of them.
void PutBackLobes() {
    if (!Design.PrintingNow && Design.LabelsVisible && !Design.MapLabels.empty()) {
        Machine().window->PutBackPicture();
    }
}

void ShowLabelsOfLobes() {
    PutBackLobes();
    SelectDevice();
    DrawLabels(0, false);
}

/// False when the draw was stopped.
bool LobePasses(std::string_view stopCaption) {
    const std::vector<std::int16_t> lobes = LobesWithHeight();
    BeginProgress(lobes.size());
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
        whole = Pass(stopCaption);
    }
    ShowLabelsOfLobes();
    return whole;
}

} // namespace

void DisarmExports() {
    DisarmWriters();
    Design.OutputGc = false;
}

void ScaleAscii() {
    Design.PenWidth = 1;
    Design.AsciiScale = Divide(Design.XAxisLength, Design.MapXMax - Design.MapXMin);
}

void BeginStages() {
    MainWindowNow.SavedCaption = Machine().window->Caption();
    const auto outputs = static_cast<std::size_t>(Design.MapFileCount + Design.GridOutputCount);
    if (Design.AsciiFileName.size() < outputs) {
        Design.AsciiFileName.resize(outputs);
    }
    ResetLineState();
    // Those of the draw before.
    Design.MapLabels.clear();
    if (Surround() != nullptr && !Design.PrintingNow) {
        Surround()->ForgetTexts();
    }
    Design.Statistics = {};
    if (Design.OutputSvg) {
        Design.MapTitle = MapTitleText();
        Design.MapDescription = MapDescriptionText();
    }
    Design.PlotSeconds = Now();
    EnableMenuBar(true);
    Design.LobeOffsetX = 0.0;
    Design.LobeFirst = true;
    Design.LobeLast = true;
    Machine().window->SetMousePointer(MousePointer::Hourglass);
}

bool RunStages(std::string_view stopCaption) {
    if (Design.ProjNum == ProjInterruptedMollweide) {
        return LobePasses(stopCaption);
    }
    BeginProgress(1);
    return Pass(stopCaption);
}

void EndStages(std::string_view routine) {
    Design.PlotSeconds = ClockSecondsSince(Design.PlotSeconds);
    Design.LobeOffsetX = 0.0;
    Design.LobeLast = true;
    ReleaseDevicePen(1, routine);
    DropExports(); // what is whole has taken its place
    DisarmExports();
    GiveBackTextItems();
    Design.OutputFileName.clear();
    ResetLineState();
}

void GiveWindowBack(std::string_view routine) {
    MainWindow& window = *Machine().window;
    EndProgress();
    window.SetStatusText({});
    Design.PenWidth = 1;
    window.SetMousePointer(MousePointer::Normal);
    window.SetCaption(MainWindowNow.SavedCaption);
    ToggleCaption(); // the window may have another size now
    EnableMenuBar(false);
    ReleaseDevicePen(2, routine);
    Design.PlotStopReason = StopReason::None;
}

} // namespace quelmont
