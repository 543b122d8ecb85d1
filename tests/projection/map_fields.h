#pragma once

#include <cstdint>

namespace quelmont {

/// Sets the fields of a map bounded by parallels and meridians as the graticule leaves them: the
/// bounds in degrees and seconds with their texts' letters, the relative frame, the centre.
/// Degrees; span is the width eastward from the western boundary.
void SetRectangle(std::int16_t projNum, double north, double south, double span);

/// The same for an azimuthal map about a centre: the whole globe, 360 degrees from the meridian
/// opposite, and a range.
void SetDisc(std::int16_t projNum, double latCentral, double range);

/// Projects a point of the relative frame.
void ProjectAt(double lat, double lon);

} // namespace quelmont
