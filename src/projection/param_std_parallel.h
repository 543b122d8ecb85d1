#pragma once

namespace quelmont {

/// Proposes standard parallels for the bounds of the map.
///
/// Reads   ProjNum, LatNorth, LatSouth (degrees).
/// Writes  StdParNorth, StdParSouth (degrees), StdParNorthText, StdParSouthText, StdParText.
/// A failed statement shows "Error in ParamStdParallel" and is passed over.
void ParamStdParallel();

} // namespace quelmont
