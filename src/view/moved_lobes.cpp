#include "view/moved_lobes.h"

#include "core/angle_text.h"
#include "core/map_design.h"
#include "core/number_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <string>
#include <vector>

namespace quelmont {

namespace {

constexpr std::int64_t HalfCircle = std::int64_t{180} * 3600;
constexpr std::int64_t FullCircle = 2 * HalfCircle;
constexpr std::size_t PerHemisphere = LobeTextSouth - LobeTextNorth;
constexpr std::array<std::size_t, 2> Firsts = {LobeTextNorth, LobeTextSouth};

std::string LongitudeTextOf(std::int64_t seconds) {
    constexpr double perDegree = 3600.0;
    constexpr std::int16_t gap = 4;
    std::string text;
    DegMinSec(static_cast<double>(WrappedLongitude(seconds)) / perDegree, text, "LON", gap);
    return text;
}

/// A longitude as one that is not west of another by a full circle or east of it.
std::int64_t EastOf(std::int64_t low, std::int64_t seconds) {
    const std::int64_t way = (seconds - low) % FullCircle;
    return low + (way < 0 ? way + FullCircle : way);
}

/// Those of a hemisphere that lie inside a frame, from the west.
std::vector<std::int64_t> InterruptionsInside(std::size_t hemisphere, const MapAxis& frame) {
    const auto count = static_cast<std::size_t>(
        std::clamp(ValueOf(Design.LobeText[hemisphere]), 0.0, static_cast<double>(PerHemisphere)));
    std::vector<std::int64_t> inside;
    for (std::size_t i = 0; i < count; ++i) {
        const std::int64_t lon = EastOf(frame.low, LongitudeSeconds(Design.LobeText[Firsts[hemisphere] + i]));
        if (lon > frame.low && lon < frame.high) {
            inside.push_back(lon);
        }
    }
    std::sort(inside.begin(), inside.end());
    return inside;
}

void ShiftInterruptions(std::int64_t east) {
    for (std::size_t i = LobeTextNorth; i < LobeTextCount; ++i) {
        std::string& text = Design.LobeText[i];
        if (!text.empty()) {
            text = LongitudeTextOf(LongitudeSeconds(text) + east);
        }
    }
}

/// The frame with a spacing and a boundary from which all of them are whole spacings away.
MapAxis Aligned(MapAxis frame, const std::vector<std::int64_t>& interruptions) {
    if (interruptions.empty()) {
        return frame;
    }
    for (const std::int64_t lon : interruptions) {
        frame.spacing = std::gcd(frame.spacing, lon - interruptions.front());
    }
    const std::int64_t off = (interruptions.front() - frame.low) % frame.spacing;
    const std::int64_t move = 2 * off <= frame.spacing ? off : off - frame.spacing;
    return {frame.low + move, frame.high + move, frame.spacing};
}

/// Writes those of a hemisphere that lie inside a frame.
void WriteInterruptions(std::size_t hemisphere, const std::vector<std::int64_t>& interruptions,
                        const MapAxis& frame) {
    std::size_t count = 0;
    for (const std::int64_t lon : interruptions) {
        if (lon > frame.low && lon < frame.high) {
            Design.LobeText[Firsts[hemisphere] + count++] = LongitudeTextOf(lon);
        }
    }
    Design.LobeText[hemisphere] = std::to_string(count);
}

} // namespace

std::int64_t WrappedLongitude(std::int64_t seconds) { return EastOf(-HalfCircle, seconds); }

MapAxis MoveInterruptions(const MapAxis& before, const MapAxis& after) {
    if (before.high - before.low == after.high - after.low) {
        ShiftInterruptions(after.low - before.low);
        return after;
    }
    const std::array<std::vector<std::int64_t>, 2> inside = {InterruptionsInside(0, after),
                                                             InterruptionsInside(1, after)};
    std::vector<std::int64_t> all = inside[0];
    all.insert(all.end(), inside[1].begin(), inside[1].end());
    const MapAxis frame = Aligned(after, all);
    // Those that it was moved over are outside now.
    WriteInterruptions(0, inside[0], frame);
    WriteInterruptions(1, inside[1], frame);
    return frame;
}

} // namespace quelmont
