#include "core/core_state.h"
#include "core/error_box.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "designfile/cnf_read.h"
#include "designfile/cnf_save.h"
#include "graticule/plot_grid.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/ready_to_draw.h"
#include "mainwindow/start_up.h"
#include "memory_file.h"
#include "output/output_state.h"
#include "support/silent_machine.h"

#include <cmath>
#include <cstdlib>
#include <string>

/// Recalls the input as a map design file, and draws what became of the design on a surface that paints
/// nothing; then saves it, and recalls that.

namespace quelmont {
namespace {

/// A draw lets events run once for each line of the grid and some hundred records of a map file.
constexpr int MostTurns = 300;
constexpr double MostGridPoints = 1e6;

void Check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

NullSurface Surface;

bool Recall(const std::string& file) {
    SetMemoryFile({reinterpret_cast<const std::uint8_t*>(file.data()), file.size()});
    Design.CnfFileName = "design.cnf";
    const bool done = CnfRead();
    Check(!IsFileOpen(InputFileNumber) && !IsFileOpen(OutputFileNumber));
    Check(Design.InputFiles.size() == static_cast<std::size_t>(Design.MapFileCount));
    Check(!done || Design.BoundsProjNum == Design.ProjNum);
    return done;
}

bool IsSmallGrid() {
    try {
        return GridPointEstimate() < MostGridPoints;
    } catch (const RunTimeError&) {
        return true;
    }
}

void Draw(SilentMachine& machine) {
    int turn = 0;
    machine.onEvents = [&] {
        if (++turn == MostTurns) {
            EscapeKey();
        }
    };
    if (ReadyToDraw() && IsSmallGrid()) {
        MapDraw();
    }
    machine.onEvents = {};
    Check(Surface.objects == 0);
    Check(std::isfinite(Design.ProjX) && std::isfinite(Design.ProjY));
}

/// A design that was recalled can be saved, and is the same when it is recalled again.
void SaveAndRecall() {
    std::string saved;
    try {
        saved = DesignFileText();
    } catch (const RunTimeError&) {
        return; // a draw can leave numbers that a file does not hold
    }
    if (Recall(saved)) {
        Check(DesignFileText() == saved);
    }
}

void Run(const std::string& file) {
    ResetCore();
    ResetMainWindow();
    SilentMachine machine(Surface);
    StartUp();
    const bool done = Recall(file);
    if (done) {
        SaveAndRecall();
    }
    SetMemoryFile({reinterpret_cast<const std::uint8_t*>(file.data()), file.size()}); // for every map file
    Draw(machine);
    ResetOutput();
    ResetDrawBoxes();
}

} // namespace
} // namespace quelmont

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quelmont::Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
