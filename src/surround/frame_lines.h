#pragma once

#include "core/standard_colors.h"
#include "output/plane_strokes.h"
#include "surround/area_fit.h"

#include <vector>

namespace quelmont {

/// The colour of labels, frame and scale bar on a colour: that of the grid's labels, or where it can hardly
/// be told from the other black or white. Reads   the look of GridLabelFontSlot.
ColorValue InkOn(ColorValue paper);

/// The same on the background. Reads   the look of GridLabelFontSlot, BackColor.
ColorValue SurroundInk();

/// How far the frame reaches beyond the map's outline, with its ticks: twips. Without a frame half the width
/// of the grid's line. Reads   Frame, GridLineWidth, the look of GridLabelFontSlot, TwipsPerPixelY, the
/// machine's fonts.
double FrameReach();

/// The frame: a line along the outline, and ticks outward from it where the grid ends. Ticks that would merge
/// are left out, and those that would point at another part of the map. None without a frame. Reads   as
/// FrameReach.
std::vector<PlaneStroke> FrameStrokes(const MapOutline& outline, const AreaFit& fit);

} // namespace quelmont
