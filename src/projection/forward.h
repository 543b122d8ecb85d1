#pragma once

#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/map_design.h"

#include <cmath>

/// The forward formulas behind ProjectSelect, a family per file, each on the point cell of Design:
/// they read ProjLat and ProjLon and write ProjX and ProjY, on the unit sphere.
///
/// Singular points fail as a run-time error inside the statement concerned. The usual point takes
/// one finiteness test for both coordinates; only a point that does not pass it is taken apart.

namespace quelmont {

/// Stores a coordinate, or shows the error box when it is not finite.
void StoreX(double x);
void StoreY(double y);

/// Stores both coordinates: the end of every formula.
inline void StoreProjected(double x, double y) {
    if (std::isfinite(x) && std::isfinite(y)) {
        Design.ProjX = x;
        Design.ProjY = y;
    } else {
        StoreX(x);
        StoreY(y);
    }
}

/// Shows the box of a failed statement of ProjectSelect.
inline void ReportProjectSelect(int errorNumber) { ShowErrorBox("ProjectSelect", RunTimeError(errorNumber)); }

// Cylindrical: x from the western boundary. Snyder 1987, pp. 38-47, 90-91, 76-85.
void ForwardMercator();
void ForwardEquirectangular();
void ForwardCylindricalEqualArea();

// Pseudocylindrical and oval: x from the central meridian.
void ForwardHammer();
void ForwardMollweide();
void ForwardRobinson();

// Conic: y from LatCentral on the central meridian. Snyder 1987, pp. 98-115.
void ForwardConic();

// Azimuthal: both from the centre of the map. Snyder 1987, pp. 141-202.
void ForwardAzimuthal();

} // namespace quelmont
