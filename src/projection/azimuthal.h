#pragma once

#include "projection/project_select.h"

/// Azimuthal projections: x and y from the centre of the map. Snyder 1987, pp. 141-202.

namespace quelmont {

/// tested as ProjectSelect has it.
void ForwardAzimuthal(AzimuthalTerms* tested);

} // namespace quelmont
