#pragma once

#include "core/angle_field.h"

#include <string>
#include <string_view>

namespace quelmont {

/// The fixed-column text of an angle. A value is
///  - degrees, minutes, seconds, joined by ":", the last two perhaps missing: 40N, 122:26:00W, 30:30;
///  - decimal degrees: 37.5, rounded to the second;
///  - the fixed-column text itself, taken as it stands.
/// The first two may have a sign before them or one of the letters N, S, E, W behind them, in any
/// case; without either they are north or east. An arc has neither. A number with more digits than
/// its columns becomes the largest that they hold, which the check of no field lets pass.
std::string AngleValue(AngleFieldKind kind, std::string_view value);

} // namespace quelmont
