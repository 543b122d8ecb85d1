#pragma once

#include "core/standard_colors.h"
#include "output/area_rings.h"

#include <string_view>
#include <vector>

namespace quelmont {

/// A line of its own in the plane of the map.
struct PlaneStroke {
    PlaneRing points;    ///< projection units
    bool closed = false; ///< the last point is joined to the first
    double width = 0.0;  ///< twips of the window
};

/// Plots strokes in a colour, on the surface in use and into the file that is armed; not into text files,
/// which hold the grid and the map files alone. To which part of the map they belong has been told to the
/// file before (BeginFilePart).
///
/// routine: what messages about pens name. Writes  Surface, PenColor, PenWidth, CurrentSymbolType, LineStart,
/// PointStatus, ProjX, ProjY. RunTimeError as OpenExport.
void PlotStrokes(const std::vector<PlaneStroke>& strokes, ColorValue color, std::string_view routine);

} // namespace quelmont
