#pragma once

#include "platform/draw_surface.h"
#include "platform/place_picker.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quelmont {

/// A click on the map that a dialog waits for.

/// Whether the window has a map whose places can be clicked.
bool CanPickPlace();

/// Begins to wait. what: the place that is wanted, in words; ended is called once, when a place was clicked
/// or the waiting was given up.
void BeginPicking(std::string_view what, std::function<void()> ended);
bool IsPicking();
/// A pixel of the picture was clicked. One without a place of the map goes on waiting.
void PickPlace(SurfacePoint pixel);
/// Gives it up. False when nobody waits.
bool GiveUpPicking();
/// What was clicked last, once; nothing when it was given up.
std::optional<PickedPlace> TakePicked();

/// What the status line tells meanwhile; empty when nobody waits.
std::string PickingText();

} // namespace quelmont
