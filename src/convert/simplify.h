#pragma once

#include "convert/map_line.h"

#include <functional>

namespace quelmont {

/// Drops points where the line moves no more than so many seconds of arc, a second of longitude
/// counting by its length at that latitude. The ends stay. The time is at most in proportion to n log n:
/// a line on which the farthest points lie at the ends of what is left again and again, as ripples on a
/// long straight line do, is divided nearer to its middle after a while, and keeps a few points more than
/// it had to.
///
/// pump is called every few thousand distances, so that a signal to end or a sign of life does not wait
/// for a long line; what it throws ends the work, and the line is as it was.
/// Source: Douglas and Peucker 1973, with distances from the segment rather than its straight line.
void Simplify(MapLine& line, double arcSeconds, const std::function<void()>& pump = {});

} // namespace quelmont
