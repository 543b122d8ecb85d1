#pragma once

/// Distances on the globe. A nautical mile is a minute of arc on a sphere of 6371.0 kilometres.

namespace quelmont {

constexpr double KilometresPerNauticalMile = 1.8532488;
/// Of 1.609344 kilometres.
constexpr double StatuteMilesPerNauticalMile = 1.1515554159285697;

} // namespace quelmont
