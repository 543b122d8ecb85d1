#pragma once

#include "view/round_steps.h"

namespace quelmont {

/// A longitude in seconds as one from -180 degrees up to, not including, 180.
std::int64_t WrappedLongitude(std::int64_t seconds);

/// Takes the interruptions of the interrupted map along to another frame. One of the same length takes them
/// with it. Of another one those are left that lie inside, at whole spacings from its western boundary: for
/// that the frame is moved by less than a spacing, and gets a smaller one where it must.
///
/// Returns the frame. Writes  LobeText.
MapAxis MoveInterruptions(const MapAxis& before, const MapAxis& after);

} // namespace quelmont
