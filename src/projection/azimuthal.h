#pragma once

/// Azimuthal projections: x and y from the centre of the map. Snyder 1987, pp. 141-202.

namespace quelmont {

void ForwardAzimuthal();

} // namespace quelmont
