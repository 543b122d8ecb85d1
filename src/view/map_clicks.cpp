#include "view/map_clicks.h"

#include "mainwindow/main_window_state.h"
#include "view/measuring.h"
#include "view/place_picking.h"
#include "view/view_status.h"

namespace quelmont {

bool TakeClick(SurfacePoint pixel, bool shift) {
    bool taken = true;
    if (IsPicking()) {
        PickPlace(pixel);
    } else if (!IsPlotting() && (shift || AwaitsSecondPlace())) {
        MeasureFrom(pixel);
    } else {
        EndMeasuring();
        taken = false;
    }
    PointerMoved(pixel);
    return taken;
}

bool TakeSecondClick() { return IsPicking() || IsMeasuring(); }

void PointAtMap(std::optional<SurfacePoint> pixel) {
    if (!IsPlotting()) {
        MeasureTo(pixel);
    }
    PointerMoved(pixel);
}

void EndClicks() { EndMeasuring(); }

bool EscapeClicks() {
    const bool ended = GiveUpPicking() || EndMeasuring();
    if (ended) {
        ShowViewStatus();
    }
    return ended;
}

} // namespace quelmont
