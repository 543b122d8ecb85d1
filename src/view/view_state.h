#pragma once

#include "platform/draw_surface.h"

#include <optional>

namespace quelmont {

/// What the view of the map keeps between its calls.
struct ViewState {
    std::optional<SurfacePoint> pointer; ///< the pixel of the picture that the mouse is over
    bool older = false;                  ///< the picture is not one of the design as it is now
};

/// The state.
extern ViewState ViewNow;

/// Makes the state that of a program's start.
void ResetView();

} // namespace quelmont
