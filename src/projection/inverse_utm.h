#pragma once

#include <optional>

namespace quelmont {

/// A place on the globe, degrees.
struct GlobePlace {
    double lat = 0.0;
    double lon = 0.0; ///< -180 to 180
};

/// The place that UtmForward turns into an easting and a northing, to 1e-6 metres: Newton's rule on the
/// forward series itself.
///
/// Reads   LonCentral, the spheroid and the constants of the zone (CalcUtmZone), as UtmForward.
/// Writes nothing and throws nothing.
/// Nothing further than 90 degrees from the central meridian: within, the series gives no two places the same
/// metres; further off it does, and its metres mean nothing. Nothing for numbers that are not finite, and for
/// a zone without constants or with a scale of 0.
std::optional<GlobePlace> UtmInverse(double easting, double northing);

} // namespace quelmont
