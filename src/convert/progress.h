#pragma once

#include "core/stop_signals.h"

#include <chrono>
#include <cstdint>
#include <iosfwd>

namespace quelmont {

/// Shows on a terminal how far a long conversion is, and stops it on a signal to end.
class Progress {
public:
    /// Nothing is shown before half a second has passed, and nothing at all unless errors is a terminal.
    Progress(std::ostream& errors, bool terminal);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Counts points from 0.
    void Begin() { points = 0; }
    /// So many points more; the share of the whole is 0 to 1, below 0 when that is not known.
    /// ConvertError when the process got a signal to end.
    void Add(std::int64_t points, double share);
    /// Clears what is shown.
    void Clear();

private:
    using Timer = std::chrono::steady_clock;

    StopSignals stopSignals;
    std::ostream& errors;
    bool terminal;
    bool shown = false;
    std::int64_t points = 0;
    Timer::time_point next;
};

} // namespace quelmont
