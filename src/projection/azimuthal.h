#pragma once

#include "projection/project_select.h"

/// Azimuthal projections: x and y from the centre of the map. Snyder 1987, pp. 141-202.

namespace quelmont {

/// A cosine of the distance from the centre this near to -1 is the antipode itself: rounding puts it to
/// either side of -1, and at -1 exactly the scale of the three whole-globe projections has no value.
constexpr double AntipodeCosine = -1.0 + 1e-12;

/// tested as ProjectSelect has it.
void ForwardAzimuthal(AzimuthalTerms* tested);

} // namespace quelmont
