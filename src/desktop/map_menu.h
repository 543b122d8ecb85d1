#pragma once

#include "platform/draw_surface.h"

#include <QPoint>

namespace quelmont {

class DesktopWindow;

/// Shows the menu of the map, about one of its pixels, at a place of the screen, and does what is chosen: the
/// place at that pixel goes to the clipboard as the status line writes it, or the map as by the Edit menu.
void ShowMapMenu(DesktopWindow& window, SurfacePoint pixel, QPoint place);

} // namespace quelmont
