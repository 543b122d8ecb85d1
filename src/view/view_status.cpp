#include "view/view_status.h"

#include "mainwindow/drawn_picture.h"
#include "mainwindow/main_window_state.h"
#include "platform/machine.h"
#include "view/measuring.h"
#include "view/place_picking.h"
#include "view/position.h"
#include "view/view_state.h"

#include <string>

namespace quelmont {

namespace {

constexpr const char* OlderText = "The picture is older than the design: F5 draws it";

std::string TextOf(const MapPosition& position) {
    const std::string distortion = DistortionText(position);
    return distortion.empty() ? PositionText(position) : PositionText(position) + "   " + distortion;
}

void ShowText() {
    if (IsPlotting()) {
        return; // the line is the draw's
    }
    if (IsPicking() || IsMeasuring()) {
        Machine().window->SetStatusText(IsPicking() ? PickingText() : MeasuredText());
        return;
    }
    if (ViewNow.older) {
        Machine().window->SetStatusText(OlderText);
        return;
    }
    const auto position = ViewNow.pointer ? PositionAt(*ViewNow.pointer) : std::nullopt;
    Machine().window->SetStatusText(position ? TextOf(*position) : std::string());
}

} // namespace

void PointerMoved(std::optional<SurfacePoint> pixel) {
    ViewNow.pointer = pixel;
    ShowText();
}

void ShowViewStatus() {
    ViewNow.older = MainWindowNow.Picture && MainWindowNow.Picture->design != DrawnDesign();
    ShowText();
}

} // namespace quelmont
