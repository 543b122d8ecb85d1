#pragma once

#include "platform/draw_surface.h"

#include <optional>
#include <string>

namespace quelmont {

/// The distance between two places of the map: a click with Shift begins at the first, the next click is the
/// second. In between the great circle to the place under the mouse lies over the map; after that it stays,
/// with its distance and course in the status line, until something else is begun.

/// A click on a pixel of the picture with Shift, or a click while a distance is being measured. False where
/// the pixel has no place of the map, which then is no click. A click when both places are there begins anew.
bool MeasureFrom(SurfacePoint pixel);
/// The mouse is over a pixel of the picture, or over none.
void MeasureTo(std::optional<SurfacePoint> pixel);
/// Whether the second place is still to be clicked.
bool AwaitsSecondPlace();
/// Whether something of it is seen.
bool IsMeasuring();
/// Takes it off the map. False when there was none.
bool EndMeasuring();

/// What the status line tells of it; empty when nothing is being measured.
std::string MeasuredText();

/// A distance in kilometres, statute and nautical miles, and the course at its start: "5,570 km   3,461 mi
/// 3,006 nmi   course 051.4°". minutes: of arc; course: degrees. UTF-8.
std::string DistanceText(double minutes, double course);

} // namespace quelmont
