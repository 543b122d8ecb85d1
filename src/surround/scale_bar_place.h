#pragma once

#include "graticule/map_outline.h"

#include <optional>
#include <string>

namespace quelmont {

/// Where on the map a scale bar is true.
struct ScaleBarPlace {
    PlanePlace at;           ///< projection units; in the middle of the bar
    double unitsPerKm = 0.0; ///< projection units, along the bar
    /// The scale is the same however long the bar; otherwise it changes with the distance from the place.
    bool sameAlongBar = false;
    std::string words; ///< "Scale at 45°N"; UTF-8
};

/// The place at which a bar tells the scale of the map, and the local scale there, from differences of the
/// forward projection.
///
/// latitude: the one that the bar is to be true at, degrees; otherwise it is chosen:
///  - The scale of a cylindrical or conic projection, of the Mollweide and the Robinson is the same all along
///  a
///    parallel, the bar true on all of it. The parallel is the equator if the map goes half round the globe,
///    or as far south as north; otherwise one near the middle of the map, as round as the map is high.
///  - UTM is true to a thousandth everywhere: the bar belongs to the centre.
///  - From the centre of the azimuthal equidistant all distances are true.
///  - The scale of the other azimuthal projections and of the Hammer is true at the centre alone. A map at
///    whose edge it is another one by more than a quarter, in any direction, has no bar: whole worlds,
///    hemispheres, and views from above, whose scale vanishes at the horizon.
/// A latitude that is given lies, on projections whose scale changes along a parallel, on the central
/// meridian.
///
/// Reads   what ProjectSelect and PlotGrid read of the map; on the interrupted projection the whole map, also
/// in
///         the midst of a draw. Writes nothing, shows no message box.
/// Nothing where no bar would be honest, for a latitude off the map or next to a pole, and where the
/// projection has no scale.
std::optional<ScaleBarPlace> PlaceOfScaleBar(std::optional<double> latitude);

/// The note about the bar on the map as it is: where it is true, or why there is none. A sentence
/// or two.
std::string NoteOfScaleBar(std::optional<double> latitude);

/// How far the ends of a bar about its place are apart on the globe, kilometres; nothing when one has no
/// place on the globe. km: what the bar is to measure. Reads as InverseSelect.
std::optional<double> DistanceUnderBar(const ScaleBarPlace& place, double km);

} // namespace quelmont
