#pragma once

namespace quelmont {

/// Fills Design with the defaults that hold for every map, and takes the screen's measures and the
/// version from Machine(). Called once, before any dialog can open. Fields without a default keep
/// zero, false or the empty text.
void ConstantDefs();

} // namespace quelmont
