#include "mainwindow/main_window_state.h"

#include "core/map_design.h"

namespace quelmont {

MainWindowState MainWindowNow;

bool IsPlotting() { return MainWindowNow.MapDrawing || Design.PrintingNow; }

void ResetMainWindow() {
    if (MainWindowNow.Kept) {
        MainWindowNow.Kept->Remove();
    }
    MainWindowNow = MainWindowState{};
}

} // namespace quelmont
