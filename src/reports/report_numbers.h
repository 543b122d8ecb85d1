#pragma once

#include "core/distance_units.h"

#include <string>
#include <string_view>

/// Numbers and names as the reports show them.

namespace quelmont {

/// An angle of degrees as "37 47 00 N", kind "LAT", "LON" or "ARC".
std::string AngleText(double degrees, std::string_view kind);

/// Nautical miles, which are minutes of arc, in other units.
constexpr double KilometresOf(double nauticalMiles) { return nauticalMiles * KilometresPerNauticalMile; }
constexpr double StatuteMilesOf(double nauticalMiles) { return nauticalMiles * StatuteMilesPerNauticalMile; }
constexpr double NauticalMilesOf(double kilometres) { return kilometres / KilometresPerNauticalMile; }

/// A value of the transformed map: whole with groups of thousands from 1000 on in size ("1,234,567"), else
/// in a picture of decimals.
std::string TransformedText(double value, std::string_view picture);

/// A name of a file on one line: control characters become blanks.
std::string NameText(std::string_view name);

} // namespace quelmont
