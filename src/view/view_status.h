#pragma once

#include "platform/draw_surface.h"

#include <optional>

namespace quelmont {

/// What the status line tells outside of a draw: what is to be clicked, or the distance that was measured;
/// that the picture is older than the design; or else the place under the mouse, and what the map does to
/// areas and angles there; nothing where the mouse is not over the map.

/// The mouse is over a pixel of the picture, or over none.
void PointerMoved(std::optional<SurfacePoint> pixel);

/// A command has ended, and may have changed the design or the picture.
void ShowViewStatus();

} // namespace quelmont
