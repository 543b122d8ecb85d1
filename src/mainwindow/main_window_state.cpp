#include "mainwindow/main_window_state.h"

namespace quelmont {

MainWindowState MainWindowNow;

void ResetMainWindow() {
    if (MainWindowNow.Kept) {
        MainWindowNow.Kept->Remove();
    }
    MainWindowNow = MainWindowState{};
}

} // namespace quelmont
