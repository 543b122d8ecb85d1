#pragma once

namespace quelmont {

/// A true longitude, -180 to 180 degrees, of one at most a full turn beyond. Both names of the antimeridian
/// stay as they are.
constexpr double TrueLongitude(double degrees) {
    return degrees > 180.0 ? degrees - 360.0 : degrees < -180.0 ? degrees + 360.0 : degrees;
}

} // namespace quelmont
