#pragma once

#include <cstdint>

/// Numbers that people take for bounds and spacings: 1, 2, 5, 10, 15 and 30 seconds, minutes and degrees, 45
/// and 90 degrees; in metres 1, 2 and 5 times a power of ten.

namespace quelmont {

enum class StepUnit : std::uint8_t { Seconds, Metres };

/// The largest of them that is not above a value; the smallest one, 1, where all are.
std::int64_t RoundStepBelow(double value, StepUnit unit);
/// The one whose ratio to a value above 0 is nearest to 1.
std::int64_t RoundStepNear(double value, StepUnit unit);

/// One axis of a map: its ends and the spacing of its grid, seconds of arc or metres.
struct MapAxis {
    std::int64_t low = 0;
    std::int64_t high = 0;
    std::int64_t spacing = 1; ///< divides high - low
    bool operator==(const MapAxis&) const = default;
};

/// How far an axis may reach.
struct AxisLimits {
    std::int64_t low = 0;
    std::int64_t high = 0;
};

/// The axis moved by a distance, rounded to what makes no difference in the picture, as far as its limits
/// let it.
MapAxis Shifted(const MapAxis& axis, double distance, const AxisLimits& limits, StepUnit unit);

/// The axis factor times as long about a place on it, as nearly as whole divisions let it: the spacing stays
/// while there are 3 to 12 of them, else it becomes a round one. Not below 3 seconds or metres; what would be
/// longer than the limits becomes as long.
MapAxis Scaled(const MapAxis& axis, double about, double factor, const AxisLimits& limits, StepUnit unit);

} // namespace quelmont
