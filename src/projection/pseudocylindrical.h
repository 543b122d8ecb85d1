#pragma once

/// Pseudocylindrical and oval projections: x from the central meridian.

namespace quelmont {

void ForwardHammer();
void ForwardMollweide();
void ForwardRobinson();

} // namespace quelmont
