#pragma once

namespace quelmont {

/// What a test of an azimuthal projection computes and the call that resumes it needs again.
struct AzimuthalTerms {
    double cosLat = 0.0;
    double sinLat = 0.0;
    double cosDLon = 0.0;
    double sinDLon = 0.0;
    double cosC = 0.0; ///< cosine of the distance from the centre
};

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
///
/// tested takes the terms of a test, of a point beyond the horizon too, and gives them to the call that
/// resumes it (ProjTestMode 2). That call does not read the point; without tested it computes the terms
/// anew.
void ProjectSelect(AzimuthalTerms* tested = nullptr);

} // namespace quelmont
