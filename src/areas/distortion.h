#pragma once

#include <optional>

namespace quelmont {

/// How a map distorts the globe about a place: what short ways there are longer on the map than on the globe,
/// by Tissot's theory (Snyder 1987, chapter 4). Of a map in earth radii, on UTM in metres of its spheroid.
struct Distortion {
    double meridian = 1.0; ///< scale along the meridian, h
    double parallel = 1.0; ///< scale along the parallel, k
    double area = 1.0;     ///< scale of areas, s
    double angle = 0.0;    ///< by so much an angle can be wrong at most, omega: degrees, 0 to 180
};

/// The distortion at a place, from central differences of the forward projection.
///
/// lat, lon: degrees, as ProjectSelect takes them; on UTM true ones. Reads   what ProjectSelect reads, on UTM
/// what UtmForward reads. Writes  the point cell.
/// To nine digits, fewer beside a singular point. Nothing within 0.002 degrees of a pole, and where the
/// forward has no value: beyond the horizon and beside it.
std::optional<Distortion> DistortionAt(double lat, double lon);

/// The distortion of the map at a place in its plane, projection units. On the interrupted projection it is
/// that of the lobe about the place.
///
/// Reads   what DistortionAt and InverseSelect read, on the interrupted projection the whole map. Writes
/// nothing, shows no message box and throws nothing. Nothing where the place has none on the globe, beside
/// poles, horizon and the outline of the world.
std::optional<Distortion> DistortionOfPoint(double x, double y);

} // namespace quelmont
