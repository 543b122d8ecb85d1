#include "mainwindow/main_window_state.h"

namespace quelmont {

MainWindowState MainWindowNow;

void ResetMainWindow() { MainWindowNow = MainWindowState{}; }

} // namespace quelmont
