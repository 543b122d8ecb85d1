#pragma once

#include "platform/draw_surface.h"

#include <optional>

/// Clicks on the map that ask for places: of a dialog that waits for one, then of a distance that is
/// measured.

namespace quelmont {

/// The left button was pressed on a pixel of the picture, and no text is being placed. True when the click
/// was one of these; any other takes a measured distance off the map.
bool TakeClick(SurfacePoint pixel, bool shift);
/// The second press of a double click. True when it belongs to a distance.
bool TakeSecondClick();
/// The mouse is over a pixel of the picture, or over none.
void PointAtMap(std::optional<SurfacePoint> pixel);

/// A command or a move of the map begins, which takes a distance off the map.
void EndClicks();
/// Escape was pressed. False when it ends nothing here.
bool EscapeClicks();

} // namespace quelmont
