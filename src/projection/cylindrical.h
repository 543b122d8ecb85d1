#pragma once

/// Cylindrical projections: x from the western boundary. Snyder 1987, pp. 38-47, 90-91, 76-85.

namespace quelmont {

void ForwardMercator();
void ForwardEquirectangular();
void ForwardCylindricalEqualArea();

} // namespace quelmont
