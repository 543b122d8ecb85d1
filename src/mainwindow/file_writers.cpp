#include "mainwindow/file_writers.h"

#include "mainwindow/main_window_state.h"
#include "output/fan_out.h"
#include "output/map_surround.h"

namespace quelmont {

void InstallWriters() {
    ProgramWriters& writers = MainWindowNow.writers;
    writers = ProgramWriters{};
    Writers() = {&writers.ascii, &writers.cgm, &writers.dxf, &writers.wmf, &writers.svg};
    Surround() = &MainWindowNow.surround;
}

} // namespace quelmont
