#include "view/redraw.h"

#include "core/map_design.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/view_commands.h"
#include "platform/machine.h"
#include "view/view_state.h"

namespace quelmont {

namespace {

/// Seconds that a draw may have taken for another to come unasked.
constexpr double ShortDraw = 0.5;

} // namespace

bool HasOtherSize() {
    const auto& picture = MainWindowNow.Picture;
    const MainWindow& window = *Machine().window;
    return picture && (picture->width != window.ScaleWidth() || picture->height != window.ScaleHeight());
}

bool IsRedrawDue(bool sizeCounts) {
    const auto& picture = MainWindowNow.Picture;
    return picture && picture->whole && picture->seconds < ShortDraw && IsSwitchedOn(RedrawItem) &&
           !IsPlotting() && !Design.TextPending && Design.BoundsProjNum == Design.ProjNum &&
           (ViewNow.older || (sizeCounts && HasOtherSize()));
}

void RedrawByItself() {
    MainWindowNow.Quiet = true;
    Machine().window->Cls();
    MapDraw();
    MainWindowNow.Quiet = false;
}

} // namespace quelmont
