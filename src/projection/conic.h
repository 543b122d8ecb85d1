#pragma once

/// Conic projections: y from LatCentral on the central meridian. Snyder 1987, pp. 98-115.

namespace quelmont {

void ForwardConic();

} // namespace quelmont
