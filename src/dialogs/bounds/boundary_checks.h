#pragma once

#include "core/angle_field.h"

#include <span>
#include <string_view>

/// What the dialogs of the map's boundaries refuse: each field when the focus leaves it, and the
/// whole dialog when it is accepted. A check shows the message box of its first fault and answers which
/// control is concerned and which button was pressed; nothing is written back and no focus moves
/// here. The dialogs are named by their classes, the fields by their controls.

namespace quelmont {

/// A field that obeys the rule of angle fields, in its dialog.
struct BoundaryField {
    std::string_view dialog;
    std::string_view control;
    AngleField rule;
};

/// All of them, dialog by dialog, in the order of their fields.
std::span<const BoundaryField> BoundaryFields();

/// The projections whose map has standard parallels, and those of them where one parallel and its
/// mirror image stand for both: the cylinders.
bool HasStandardParallels();
bool HasOneStandardParallel();

/// The check of a field when it is left: the rule of its kind, then what its dialog adds to it:
///  - LatLonBounds LatN, LatS: no pole on the Mercator projection;
///  - LatLonBoundsAz AzRangeDist: above 0, and what the projection can show;
///  - LatLonBoundsVp VpDistanceKM, a number: at least 1;
///  - LatLonStdPar LatNorthStdPar, LatSouthStdPar: inside the map and no pole where the projection
///    has none.
/// Reads ProjNum, ProjName, LatNorth, LatSouth. std::out_of_range for a field that has no check.
Refusal CheckBoundaryField(std::string_view dialog, std::string_view control, std::string_view text);

/// Northern and southern boundary of a map bounded by parallels, when LatLonBounds is accepted: no
/// pole on the Mercator projection, not both on the conformal conic.
Refusal AcceptLatLonBounds(std::string_view latN, std::string_view latS);

/// The range of an azimuthal map, when LatLonBoundsAz is accepted: below 90 degrees on the gnomonic,
/// at most 90 on the stereographic and the orthographic projection.
Refusal AcceptLatLonBoundsAz(std::string_view azRangeDist);

/// Both standard parallels, when LatLonStdPar is accepted: what is checked as each is left, then
/// how they lie to each other: on a cone neither equal nor symmetric about the equator. Where there
/// is one parallel, it is north, and the southern text is its mirror image.
Refusal AcceptLatLonStdPar(std::string_view north, std::string_view south);

} // namespace quelmont
