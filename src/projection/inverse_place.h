#pragma once

#include "projection/inverse_utm.h"

#include <optional>

namespace quelmont {

/// The place on the globe of a point of the map, in true degrees, the longitude from -180 to 180.
///
/// x, y: projection units, as ProjectSelect leaves them in ProjX, ProjY: earth radii, x from the western
/// boundary on the cylindrical projections; on UTM easting and northing in metres.
/// Reads   ProjNum, BoundsProjNum and the numbers of the map: LatNorth, LatSouth, LonZero, LonSpan, LonWest,
///         LonCentral, MapXMax (azimuthal), and what InverseSelect and UtmInverse read. On the interrupted
///         projection none of these, since a draw leaves those of a lobe, but GridText 0 and 1, LobeText 0
///         and 1, LobeLonDeg and LobeCentral.
/// Writes nothing, shows no message box and throws nothing, so that it may be asked in the midst of a draw.
///
/// Nothing off the map: beyond its bounds, its range or its horizon, or outside the outline of the world; in
/// a gap between lobes; for numbers that are not finite; and before ParamSelect has run for ProjNum. The
/// bounds themselves belong to the map, within 1e-9 degrees. On a cut the point belongs to the lobe to its
/// west, on the equator of the interrupted map to a northern lobe if the map has any.
std::optional<GlobePlace> PlaceAt(double x, double y);

} // namespace quelmont
