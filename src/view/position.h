#pragma once

#include "areas/distortion.h"
#include "output/area_rings.h"
#include "platform/draw_surface.h"
#include "projection/inverse_utm.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quelmont {

/// A place of the map that is seen in the window.
struct MapPosition {
    GlobePlace place;           ///< true degrees
    double x = 0.0, y = 0.0;    ///< projection units: earth radii; on UTM easting and northing, metres
    double unitsPerPixel = 0.0; ///< how many of them a pixel of the window is wide
    bool metres = false;        ///< the map is one of UTM
    std::optional<Distortion> distortion = {}; ///< of the map there
};

/// The point of the plane, in projection units, that the picture in the window has at one of its pixels,
/// counted from its upper left corner; it may lie off the map. Nothing where there is no picture, and while a
/// draw runs.
std::optional<PlanePoint> PointAt(SurfacePoint pixel);

/// The place that the picture in the window has at one of its pixels, counted from its upper left corner. It
/// is asked of the picture, whatever became of the design since it was drawn.
/// Nothing where the picture has no map, where there is no picture, and while a draw runs. Writes nothing.
std::optional<MapPosition> PositionAt(SurfacePoint pixel);

/// The place as people write it, as exactly as a pixel of the map tells it, UTF-8: 45° 30′ N  7° 05′ E, with
/// seconds on maps of regions; northing and easting in metres on UTM.
std::string PositionText(const MapPosition& position);

/// What the map does to areas and angles there, UTF-8: area × 2.000   angle 38.9°. Empty at poles and other
/// places where that has no value.
std::string DistortionText(const MapPosition& position);

/// How much of the globe a pixel of the map is wide, degrees.
double DegreesPerPixel(const MapPosition& position);

/// The place in whole degrees, minutes or seconds: what PlaceText tells of it, but nothing finer than
/// seconds.
GlobePlace RoundedPlace(const GlobePlace& place, double step);

/// A latitude and a longitude in whole degrees, minutes or seconds, or in tenths or hundredths of a second:
/// what is as fine as a step of so many degrees.
std::string PlaceText(const GlobePlace& place, double step);

} // namespace quelmont
