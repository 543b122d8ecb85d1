#include "view/place_picking.h"

#include "mainwindow/drawn_picture.h"
#include "mainwindow/main_window_state.h"
#include "platform/machine.h"
#include "view/position.h"
#include "view/view_state.h"

#include <utility>

namespace quelmont {

namespace {

void End() {
    Machine().window->SetMousePointer(MousePointer::Normal);
    const std::function<void()> ended = std::exchange(ViewNow.picking.ended, nullptr);
    ViewNow.picking.what.clear();
    ended();
}

} // namespace

bool CanPickPlace() { return MainWindowNow.Picture && !IsPlotting(); }

void BeginPicking(std::string_view what, std::function<void()> ended) {
    ViewNow.picking = {std::string(what), std::move(ended), std::nullopt};
    Machine().window->SetMousePointer(MousePointer::Cross);
}

bool IsPicking() { return ViewNow.picking.ended != nullptr; }

void PickPlace(SurfacePoint pixel) {
    const auto position = IsPicking() ? PositionAt(pixel) : std::nullopt;
    if (position) {
        const GlobePlace place = RoundedPlace(position->place, DegreesPerPixel(*position));
        ViewNow.picking.picked = PickedPlace{place.lat, place.lon};
        End();
    }
}

bool GiveUpPicking() {
    const bool waits = IsPicking();
    if (waits) {
        End();
    }
    return waits;
}

std::optional<PickedPlace> TakePicked() { return std::exchange(ViewNow.picking.picked, std::nullopt); }

std::string PickingText() {
    if (!IsPicking()) {
        return {};
    }
    const auto position = ViewNow.pointer ? PositionAt(*ViewNow.pointer) : std::nullopt;
    return "Click " + ViewNow.picking.what + " on the map; Esc goes back to the dialog" +
           (position ? "   " + PositionText(*position) : "");
}

} // namespace quelmont
