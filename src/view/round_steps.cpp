#include "view/round_steps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace quelmont {

namespace {

constexpr std::int64_t Minute = 60;
constexpr std::int64_t Degree = 3600;
constexpr std::array<std::int64_t, 20> Arcs = {
    1,          2,           5,           10,          15,          30,         Minute,
    2 * Minute, 5 * Minute,  10 * Minute, 15 * Minute, 30 * Minute, Degree,     2 * Degree,
    5 * Degree, 10 * Degree, 15 * Degree, 30 * Degree, 45 * Degree, 90 * Degree};

constexpr std::array<std::int64_t, 22> Lengths = [] {
    std::array<std::int64_t, 22> lengths{};
    std::int64_t power = 1;
    for (std::size_t i = 0; i < lengths.size(); i += 3) {
        lengths[i] = power;
        if (i + 2 < lengths.size()) {
            lengths[i + 1] = 2 * power;
            lengths[i + 2] = 5 * power;
        }
        power *= 10;
    }
    return lengths;
}();

/// The first step above a value, and the one past the last where all are below.
template <typename Steps>
std::int64_t Below(const Steps& steps, double value) {
    const auto above = std::find_if(steps.begin(), steps.end(),
                                    [&](std::int64_t step) { return static_cast<double>(step) > value; });
    return above == steps.begin() ? *above : *(above - 1);
}

template <typename Steps>
std::int64_t Near(const Steps& steps, double value) {
    const auto distance = [&](std::int64_t step) {
        return std::fabs(std::log(static_cast<double>(step) / value));
    };
    return *std::min_element(steps.begin(), steps.end(),
                             [&](std::int64_t a, std::int64_t b) { return distance(a) < distance(b); });
}

std::int64_t Rounded(double value, std::int64_t step) {
    return std::llround(value / static_cast<double>(step)) * step;
}

/// What is less of an axis than this cannot be seen.
double Unseen(std::int64_t length) {
    constexpr double parts = 800.0;
    return static_cast<double>(length) / parts;
}

/// Moves an axis of that length in between its limits.
MapAxis Inside(std::int64_t low, std::int64_t length, std::int64_t spacing, const AxisLimits& limits) {
    low = std::clamp(low, limits.low, std::max(limits.low, limits.high - length));
    return {low, low + length, spacing};
}

} // namespace

std::int64_t RoundStepBelow(double value, StepUnit unit) {
    return unit == StepUnit::Seconds ? Below(Arcs, value) : Below(Lengths, value);
}

std::int64_t RoundStepNear(double value, StepUnit unit) {
    return unit == StepUnit::Seconds ? Near(Arcs, value) : Near(Lengths, value);
}

MapAxis Shifted(const MapAxis& axis, double distance, const AxisLimits& limits, StepUnit unit) {
    const std::int64_t length = axis.high - axis.low;
    return Inside(axis.low + Rounded(distance, RoundStepBelow(Unseen(length), unit)), length, axis.spacing,
                  limits);
}

MapAxis Scaled(const MapAxis& axis, double about, double factor, const AxisLimits& limits, StepUnit unit) {
    constexpr double fewest = 3.0;
    constexpr double most = 12.0;
    constexpr double usual = 6.0;
    const auto before = static_cast<double>(axis.high - axis.low);
    const auto room = static_cast<double>(limits.high - limits.low);
    const double wanted = std::clamp(before * factor, fewest, room);
    const double divisions = wanted / static_cast<double>(axis.spacing);
    const std::int64_t spacing =
        divisions >= fewest && divisions <= most ? axis.spacing : RoundStepNear(wanted / usual, unit);
    std::int64_t length = std::max<std::int64_t>(spacing, Rounded(wanted, spacing));
    if (length > limits.high - limits.low) {
        length -= spacing;
    }
    const double share = (about - static_cast<double>(axis.low)) / before;
    const double low = about - share * static_cast<double>(length);
    return Inside(Rounded(low, RoundStepBelow(Unseen(length), unit)), length, spacing, limits);
}

} // namespace quelmont
