#pragma once

#include <optional>

namespace quelmont {

/// A point as ProjectSelect takes it: degrees, relative longitude; metres on UTM.
struct RelativePlace {
    double lat = 0.0;
    double lon = 0.0;
};

/// The point that ProjectSelect projects to a place in the plane, the whole of the projection and not only
/// the map's part of it; PlaceAt (inverse_place.h) minds the map's bounds.
///
/// x, y: projection units, as ProjectSelect leaves them in ProjX, ProjY.
/// Reads   ProjNum and what the forward of that projection reads: LonZero, LonCentral, LatCentral's sine and
///         cosine, and the constants of ParamSelect; LobeOffsetX on the Mollweide projections, so that on the
///         interrupted one it is the inverse of the lobe being drawn.
/// Writes nothing, shows no message box and throws nothing, so that it may be asked in the midst of a draw.
///
/// The longitude lies within 180 degrees of LonCentral, the latitude between the poles. At a pole that is a
/// point any longitude may come back. The forward of the result lies within 1e-12 earth radii of the place,
/// except where the forward itself cannot tell places apart: where it stretches so much that neighbouring
/// numbers of degrees are further apart, near the antipode of an azimuthal centre and within a tenth of a
/// degree of the Mollweide poles, where roundings outweigh that, and within 1e-8 earth radii of the circle
/// at 90 degrees on the azimuthal equidistant, which the forward takes for one line.
///
/// Nothing for what the forward reaches from no point: outside the outline of the world, further around the
/// apex of a cone than half a turn of longitude goes, beyond the horizon, at the antipode and beyond; nothing
/// for an unknown ProjNum, for numbers that are not finite, and where the constants make no map (a cone
/// constant of 0, no cosine of the standard parallel). What lies outside an outline by a rounding is
/// taken as on it.
std::optional<RelativePlace> InverseSelect(double x, double y);

} // namespace quelmont
