#pragma once

namespace quelmont {

/// Projects the point of the point cell.
///
/// Reads   ProjNum, ProjLat, ProjLon (degrees, relative longitude; metres on UTM), ProjTestMode, and
///         the constants of the projection that ParamSelect and CalcGraticule left.
/// Writes  ProjX, ProjY (earth radii; metres on UTM), ProjOffMap, and in a test PointStatus.
///
/// An unknown ProjNum leaves ProjX and ProjY as they were. ProjOffMap is set, and nothing projected,
/// for the pole at infinity of the conformal conic and for what lies beyond the horizon of an
/// azimuthal projection.
///
/// A run-time failure shows "Error in ProjectSelect"; the coordinate that failed keeps its value
/// and the other is computed all the same.
void ProjectSelect();

} // namespace quelmont
