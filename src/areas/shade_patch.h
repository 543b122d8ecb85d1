#pragma once

#include "areas/distortion.h"
#include "output/area_rings.h"
#include "projection/inverse_utm.h"

#include <memory>
#include <optional>

namespace quelmont {

/// A part of the map without seams, laid on a square: u and v from 0 to 1 reach all of it, v = 0 and 1 and u
/// = 0 and 1 are its edges. All of a map but an interrupted one, of which it is the lobe whose bounds are in
/// force.
///
/// Reads   the bounds of the design when it is made, and what the projection reads whenever it is asked.
/// Writes  the point cell.
class ShadePatch {
public:
    ShadePatch() = default;
    virtual ~ShadePatch() = default;
    ShadePatch(const ShadePatch&) = delete;
    ShadePatch& operator=(const ShadePatch&) = delete;

    /// The place on the map, projection units.
    virtual std::optional<PlanePoint> PointAt(double u, double v) const = 0;
    /// The place on the globe, true degrees; longitudes may lie a turn farther.
    virtual std::optional<GlobePlace> PlaceAt(double u, double v) const = 0;
    /// The distortion there; of an edge that is a pole, a horizon or an antipode a little inside of it.
    virtual std::optional<Distortion> DistortionOf(double u, double v) const = 0;

    /// In so many steps distortion changes little, and curves of the map are seen as such.
    int columns = 180, rows = 180;
};

/// The patch of the map, of a lobe on the interrupted projection. Null on an unknown projection.
std::unique_ptr<ShadePatch> PatchOfMap();

} // namespace quelmont
