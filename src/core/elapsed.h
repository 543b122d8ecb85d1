#pragma once

namespace quelmont {

/// Seconds between two readings of the clock, which counts from midnight and starts again there.
inline double ElapsedSeconds(double start, double end) {
    constexpr double secondsPerDay = 86400.0;
    const double seconds = end - start;
    return seconds < 0.0 ? seconds + secondsPerDay : seconds;
}

} // namespace quelmont
