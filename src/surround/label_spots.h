#pragma once

#include "core/map_extras.h"

#include <string>
#include <vector>

namespace quelmont {

/// A place in the plane of the projection where a label of a grid line can stand. y grows northward.
struct LabelSpot {
    double x = 0.0, y = 0.0; ///< projection units
    /// Unit vector. At the frame: away from the map, across its outline; on a line: along the line.
    double alongX = 0.0, alongY = 0.0;
    /// Curvature of the outline, or of the line, 1 / projection unit: above 0 where it bends to the side to
    /// which the vector points; on a line, to the left of the vector.
    double bend = 0.0;
};

/// A line of the grid and the spots of its label.
struct LabelledLine {
    std::string text;
    double outerness = 0.0;            ///< 0 in the middle of the map, 1 at its edges
    bool atFrame = false;              ///< each spot gets a label; otherwise the first one that has room
    std::vector<LabelSpot> spots = {}; ///< on a line: the best one first
};

/// The lines of the design's grid with the places of their labels, over all lobes of an interrupted map.
///
/// At the frame a label belongs to each end of a line on the map's outline: the edges of a rectangle, the
/// sides and arcs of a cone, the oval of the world, the circle of range, the outline of each lobe. A line
/// without such an end (a meridian that goes from pole to pole, a parallel inside a circle) has its label on
/// the line, as all lines have with GridLabelPlace::Lines: midway between two lines that cross it.
///
/// Reads   the bounds, the grid and the constants of the projection; on the interrupted one also GridText,
///         LobeText, LobeLonText, LobeCentral.
/// Writes nothing that lasts, and shows no message box. Nothing without a map (BoundsProjNum), for
/// GridLabelPlace::None, and for texts of lobes that no dialog has accepted.
std::vector<LabelledLine> LabelledLines(const GridLabelChoice& choice);

/// Whether a place in the plane lies on the map. Projection units.
/// Reads   what PlaceAt reads; MapXMin to MapYMax on maps with straight edges.
bool IsOnMap(double x, double y);

} // namespace quelmont
