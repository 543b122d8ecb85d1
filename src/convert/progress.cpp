#include "convert/progress.h"

#include "convert/map_line.h"

#include <ostream>

namespace quelmont {

Progress::Progress(std::ostream& errors_, bool terminal_)
    : errors(errors_), terminal(terminal_), next(Timer::now() + std::chrono::milliseconds(500)) {}

Progress::~Progress() { Clear(); }

void Progress::Add(std::int64_t more, double share) {
    points += more;
    if (StopSignals::Came()) {
        throw ConvertError("stopped");
    }
    if (!terminal || Timer::now() < next) {
        return;
    }
    next = Timer::now() + std::chrono::milliseconds(200);
    shown = true;
    errors << '\r' << points << " points";
    if (share >= 0.0) {
        errors << ", " << static_cast<int>(share * 100.0) << " %";
    }
    errors << "\x1B[K" << std::flush;
}

void Progress::Clear() {
    if (shown) {
        errors << "\r\x1B[K" << std::flush;
        shown = false;
    }
}

} // namespace quelmont
