#pragma once

#include "platform/draw_surface.h"
#include "platform/place_picker.h"
#include "projection/inverse_utm.h"

#include <functional>
#include <optional>
#include <string>

namespace quelmont {

/// A distance that is being measured.
struct Measured {
    GlobePlace from;
    std::string fromText;               ///< as the status line wrote the place
    bool reached = false;               ///< minutes and course are those to a second place
    bool done = false;                  ///< the second place was clicked
    double minutes = 0.0, course = 0.0; ///< nautical miles; degrees clockwise from north
};

/// What the view of the map keeps between its calls.
struct ViewState {
    /// Of the place that a dialog waits for.
    struct Picking {
        std::string what;            ///< in words
        std::function<void()> ended; ///< empty when nobody waits
        std::optional<PickedPlace> picked = {};
    };

    std::optional<SurfacePoint> pointer; ///< the pixel of the picture that the mouse is over
    bool older = false;                  ///< the picture is not one of the design as it is now
    std::optional<Measured> measured;
    /// Seconds of the processor, above 0, that a picture of a map should take while it is moved: of a larger
    /// map it has every n-th line. After three times as much it is shown as far as it has come.
    double movingPictureSeconds = 0.05;
    Picking picking;
};

/// The state.
extern ViewState ViewNow;

/// Makes the state that of a program's start.
void ResetView();

} // namespace quelmont
