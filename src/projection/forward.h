#pragma once

#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/map_design.h"

#include <cmath>

/// What the forward formulas behind ProjectSelect share. There is a family per file (azimuthal.h, conic.h,
/// cylindrical.h, pseudocylindrical.h); each formula reads ProjLat and ProjLon of the point cell of Design
/// (degrees, relative longitude) and writes ProjX and ProjY (earth radii).
///
/// Singular points fail as a run-time error inside the statement concerned. The usual point takes
/// one finiteness test for both coordinates; only a point that does not pass it is taken apart.

namespace quelmont {

/// Stores a coordinate, or shows a message box when it is not finite.
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

/// Shows the message box of a failed statement of ProjectSelect.
inline void ReportProjectSelect(int errorNumber) { ShowErrorBox("ProjectSelect", RunTimeError(errorNumber)); }

} // namespace quelmont
