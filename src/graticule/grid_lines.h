#pragma once

#include "graticule/grid_pass.h"

/// The lines of the grid, and how a point of them is drawn.

namespace quelmont {

/// Projects ProjLat, ProjLon and draws to it, breaking the line where the map does.
void PlotPoint(GridPass& pass);

/// Draws ProjX, ProjY on the surface and into the export file.
void PlotProjected(const GridPass& pass);

/// All parallels, all meridians. False when Escape was pressed.
bool Parallels(GridPass& pass);
bool Meridians(GridPass& pass);

/// -LatCentral, the latitude of the antipode, within rounding.
bool IsAntipodalLatitude(double latitude);

} // namespace quelmont
