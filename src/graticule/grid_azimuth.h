#pragma once

#include "graticule/grid_pass.h"

/// Grid lines of azimuthal maps that are walked by the azimuth at the map's centre.

namespace quelmont {

/// Plots the parallel ProjLat with steps that turn the azimuth at the map's centre by about one
/// degree each, for whole-globe maps near the antipode.
void AntipodalParallel(GridPass& pass);

/// Plots the meridian ProjLon, from ClipLatMin to ClipLatMax, one degree of azimuth at a time.
void MeridianByAzimuth(GridPass& pass);

} // namespace quelmont
