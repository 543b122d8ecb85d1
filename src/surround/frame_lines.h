#pragma once

#include "core/standard_colors.h"
#include "surround/area_fit.h"

#include <vector>

namespace quelmont {

/// A line about the map.
struct SurroundStroke {
    std::vector<PlanePlace> points; ///< projection units
    bool closed = false;            ///< the last point is joined to the first
    double width = 0.0;             ///< twips of the window
};

/// The colour of the frame and the scale bar: that of the grid's labels, or where it can hardly be told from
/// the background black or white. Reads   the look of GridLabelFontSlot, BackColor.
ColorValue SurroundInk();
/// The same of the grid's labels themselves, which keep a colour that can just be told from the background.
ColorValue GridLabelInk();

/// How far the frame reaches beyond the map's outline, with its ticks: twips. Without a frame half the width
/// of the grid's line. Reads   Frame, GridLineWidth, the look of GridLabelFontSlot, TwipsPerPixelY, the
/// machine's fonts.
double FrameReach();

/// The frame: a line along the outline, and ticks outward from it where the grid ends. Ticks that would merge
/// are left out, and those that would point at another part of the map. None without a frame. Reads   as
/// FrameReach.
std::vector<SurroundStroke> FrameStrokes(const MapOutline& outline, const AreaFit& fit);

} // namespace quelmont
