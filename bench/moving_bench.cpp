#include "core/map_design.h"
#include "desktop/desktop.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/view_commands.h"
#include "platform/machine.h"
#include "projection/projection_table.h"
#include "view/map_hand.h"

#include <QApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "process_clock.h" // behind the headers whose clocks it replaces

/// Pictures a second of the default map while it is dragged, on each projection, in a drawing area of 1280 by
/// 924 pixels: from the move of the mouse to the painted window. On the offscreen platform, unless
/// QT_QPA_PLATFORM names another.
///
/// Times are those of the processor.
///
///     moving_bench [--projection NUMBER] [--filled] [MAPFILE]
///
/// NUMBER is that of quelmont-draw; without it all of them. Filled: land, lakes and sea in colours. MAPFILE
/// is drawn instead of the default map.

namespace {

using Clock = std::chrono::process_clock;
using namespace quelmont; // NOLINT(google-build-using-namespace): a program of one file

constexpr int Width = 1280;
constexpr int Height = 924;
constexpr int Pictures = 60;
constexpr int PixelsPerPicture = 3;

bool Draw(const ProjectionEntry& entry) {
    Design.ProjNum = entry.ProjNum;
    Design.ProjName = std::string(entry.ProjName);
    if (entry.ProjNum != ProjUtm) {
        ProposeBounds();
    }
    if (!AcceptProjection()) {
        return false;
    }
    Machine().window->Cls();
    MapDraw();
    return true;
}

/// Seconds of each picture of a drag that goes to the lower right and back.
std::vector<double> DragTimes() {
    MapHand hand;
    std::int32_t off = 0;
    hand.Press({Width / 2, Height / 2}, false);
    std::vector<double> seconds;
    for (int i = 0; i < Pictures; ++i) {
        off += i < Pictures / 2 ? PixelsPerPicture : -PixelsPerPicture;
        const Clock::time_point start = Clock::now();
        hand.Drag({Width / 2 + off + MapHand::DragPixels, Height / 2 + off / 2});
        seconds.push_back(std::chrono::duration<double>(Clock::now() - start).count());
    }
    hand.GiveUp();
    std::sort(seconds.begin(), seconds.end());
    return seconds;
}

void Measure(const ProjectionEntry& entry) {
    std::printf("| %-24s |", std::string(entry.ProjName).c_str());
    for (const bool smooth : {true, false}) {
        SwitchSmoothLines(smooth);
        if (!Draw(entry)) {
            std::printf(" refused |");
            continue;
        }
        const std::vector<double> seconds = DragTimes();
        const double median = seconds[seconds.size() / 2];
        const double slow = seconds[seconds.size() * 9 / 10];
        std::printf(" %.0f (%.0f) |", 1.0 / median, 1.0 / slow);
    }
    std::printf("\n");
}

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    Desktop desktop;
    desktop.Start();
    desktop.Window().SetAreaSize(Width, Height);
    QApplication::processEvents();
    QStringList arguments = QApplication::arguments().mid(1);
    if (arguments.removeAll("--filled") > 0) {
        Design.Fill = {.land = Rgb(233, 226, 200), .lakes = Rgb(190, 216, 230), .sea = Rgb(214, 232, 243)};
    }
    int only = 0;
    if (const auto at = arguments.indexOf("--projection"); at >= 0) {
        only = arguments.value(at + 1).toInt();
        arguments.remove(at, 2);
    }
    if (!arguments.isEmpty()) {
        Design.InputFiles.at(0).MapFileName = arguments[0].toStdString();
    }
    const QSize size = desktop.Window().Area().DeviceSize();
    std::printf("Pictures a second, median (slowest tenth), %d x %d pixels\n\n", size.width(), size.height());
    std::printf("| projection | smooth | plain |\n|---|---:|---:|\n");
    for (const ProjectionEntry& entry : Projections) {
        if (only == 0 || entry.ProjNum == only) {
            Measure(entry);
        }
    }
    return 0;
}
