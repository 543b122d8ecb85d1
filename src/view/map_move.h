#pragma once

#include "core/map_design.h"
#include "output/area_rings.h"
#include "projection/inverse_utm.h"

#include <optional>

/// Moves of the map: new bounds for the design, written into its texts and accepted by the checks of the
/// dialogs as if they had been typed there, without a message box.
///
/// Angles are rounded to what makes no difference in the picture. A move changes the bounds of the design
/// (DesignBounds) and nothing else; one that is refused changes nothing. To be called while the projection in
/// force has its bounds accepted (BoundsProjNum is ProjNum) and no draw runs. Points of the map are those
/// that PlaceAt takes, metres on UTM.

namespace quelmont {

/// A hand that has taken hold of the map. Every move is worked out from the design as it was then, so that a
/// hand that comes back gives the same design.
///
/// Azimuthal maps turn so that the place stays under the hand, as far as there is a centre for that. On UTM
/// the bounds move. Maps round the whole globe get another central meridian, lobes and all; the others move
/// their bounds, and their standard parallels with them.
class MapDrag {
public:
    /// Takes hold of a point; off the map nothing is held.
    explicit MapDrag(PlanePoint point);

    bool Holds() const { return held.has_value(); }
    /// Moves what is held to a point of the map as it was then; it may lie off the map. False when nothing is
    /// held or the bounds that this takes are refused; then the design is as it was.
    bool To(PlanePoint point) const;
    /// Puts the design back as it was when the hand took hold.
    void Back() const { static_cast<DesignBounds&>(Design) = before; }

private:
    DesignBounds before = Design;
    PlanePoint from;
    std::optional<GlobePlace> held;
};

/// Shows factor times as much of the globe about a point, whose place stays there as far as it can: the range
/// of an azimuthal map, the height of a view point, or the bounds. factor is above 0. False when nothing
/// changed.
bool ZoomMap(PlanePoint about, double factor);
/// The same about the middle of the map, wherever that lies.
bool ZoomMap(double factor);

/// Shows what lies shares of the map's height to the north and of its width to the east, negative ones to the
/// south and west, as far as the bounds go. False when nothing changed.
bool StepMap(double north, double east);

/// Makes the place at a point the middle of the map. False off the map and when it cannot be.
bool CentreMap(PlanePoint point);

/// Makes the rectangle between two points the map: its bounds, or centre and range. False when none of it is
/// on the map, or it cannot be.
bool ShowRectangle(PlanePoint corner, PlanePoint opposite);

/// Shows all that the projection shows at first, about the centre that an azimuthal map has. False when
/// nothing changed.
bool ShowWhole();

} // namespace quelmont
