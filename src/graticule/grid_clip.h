#pragma once

#include "graticule/grid_pass.h"

/// How the circle that bounds an azimuthal map cuts the lines of the grid.

namespace quelmont {

/// Where the circle that bounds an azimuthal map reaches on the globe: the clipping fields of the pass.
void CalcCircleReach(GridPass& pass);

/// Where the parallel ProjLat meets the circle: ClipLonMin, ClipLonMax. RunTimeError where the
/// parallel does not meet it.
void CutParallel(GridPass& pass);

/// Where the meridian ProjLon meets the circle: ClipLatMin, ClipLatMax, and SecondPiece with
/// SecondLatMax when it leaves the circle in its middle.
void CutMeridian(GridPass& pass);

} // namespace quelmont
