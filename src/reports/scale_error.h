#pragma once

#include <string>
#include <string_view>

/// Scale of a map at a point, by family of projections: how a short length on the map compares with the same
/// length on the globe, along the meridian (h) and along the parallel (k), and how areas compare. The
/// derivatives of the forward formulas. Source: Snyder 1987, chapters of the projections; Snyder 1990 for
/// Robinson.
///
/// All of them take the sample from ReportsNow and read the constants that ParamSelect left. RunTimeError
/// "Division by zero", "Overflow", "Invalid procedure call or argument" where a formula has no value.

namespace quelmont {

/// The three values as they are printed, "0.0000E+00".
struct ScaleError {
    std::string meridian, parallel, area;
};

/// What stands where a formula has no number.
constexpr std::string_view InfiniteScale = "Infinite";
constexpr std::string_view ZeroScale = "0.0000E+00";
constexpr std::string_view TrueScale = "1.0000E+00";

/// Latitudes from here on are a pole, degrees.
constexpr double PoleLatitude = 89.99994;

/// Numbers as they are printed; the area is their product times the sine of the angle at which meridian and
/// parallel cross on the map.
ScaleError Printed(double h, double k, double sine = 1.0);
/// One of the texts above for each.
ScaleError Printed(std::string_view h, std::string_view k, std::string_view area);

ScaleError MercatorScale();
ScaleError EquirectangularScale();
ScaleError CylindricalEqualAreaScale();
ScaleError HammerScale();
ScaleError MollweideScale();
ScaleError RobinsonScale();
ScaleError UtmScale();
/// Writes  ConicG, as ParamSelect does.
ScaleError EquidistantConicScale();
ScaleError ConformalConicScale();
ScaleError AlbersScale();
/// Of all azimuthal projections, by ProjNum.
ScaleError AzimuthalScale();

} // namespace quelmont
