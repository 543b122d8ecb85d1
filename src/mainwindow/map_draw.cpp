#include "mainwindow/map_draw.h"

#include "core/error_box.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "core/stop_signals.h"
#include "core/unseen_boxes.h"
#include "mainwindow/drawn_picture.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/picture_window.h"
#include "mainwindow/plot_stages.h"
#include "mainwindow/text_placing.h"
#include "output/draw_target.h"
#include "output/export_file.h"
#include "output/fan_out.h"
#include "output/map_surround.h"
#include "output/print_text.h"
#include "output/scale_screen.h"
#include "platform/machine.h"

#include <utility>

namespace quelmont {

namespace {

constexpr const char* Routine = "MapDraw";
constexpr const char* StopCaption = "Quelmont: click on Stop or press Esc to stop plotting";

void Fit() {
    ScaleAscii();
    ScaleScreen();
}

/// From here on End has to follow, whatever fails.
void Begin() {
    BeginStages();
    MainWindowNow.MapDrawing = true;
    Machine().window->SetAutoRedraw(true);
}

/// The texts about the map and those of the design, over everything.
void PrintTextOnWindow() {
    SelectDevice();
    if (Surround() != nullptr) {
        Surround()->DrawTexts();
    }
    PrintText();
}

void End() {
    EndStages(Routine);
    MainWindow& window = *Machine().window;
    window.Refresh();
    window.SetAutoRedraw(false);
    MainWindowNow.MapDrawing = false;
    GiveWindowBack(Routine);
}

/// A draw on the window, in the boxes of a draw. True when the picture is whole.
bool Draw() {
    const double width = Machine().window->ScaleWidth(); // it may have another size at the end
    const double height = Machine().window->ScaleHeight();
    if (!Guarded(Routine, Fit)) {
        ForgetPicture();
        DisarmExports();
        return false;
    }
    bool whole = false;
    Guarded(Routine, [&] {
        Begin();
        whole = RunStages(StopCaption);
        if (whole) {
            PrintTextOnWindow();
        }
    });
    End();
    whole = whole && !DrawBoxesShown();
    NotePicture(whole, width, height);
    return whole;
}

} // namespace

bool DrawPicture() {
    if (IsPlotting() || Design.TextPending) {
        return false;
    }
    MainWindow& before = *Machine().window;
    PictureWindow window(before);
    Machine().window = &window;
    const bool quiet = std::exchange(MainWindowNow.Quiet, true);
    bool whole = false;
    {
        const UnseenBoxes boxes;
        BeginDrawBoxes();
        window.Cls();
        whole = Draw();
        ResetDrawBoxes();
    }
    MainWindowNow.Quiet = quiet;
    Machine().window = &before;
    return whole;
}

void MapDraw() {
    if (IsPlotting()) {
        return;
    }
    if (Design.TextPending) {
        DisarmExports();
        return; // the text in hand is the draw's own
    }
    BeginDrawBoxes();
    const StopSignals stopSignals;
    Draw();
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
    if (!IsPlotting()) {
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
