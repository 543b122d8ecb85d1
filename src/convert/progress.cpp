#include "convert/progress.h"

#include "convert/map_line.h"

#include <csignal>
#include <ostream>

namespace quelmont {

namespace {

volatile std::sig_atomic_t ToldToEnd = 0;

/// A second signal ends the process at once.
void TakeSignal(int number) {
    ToldToEnd = 1;
    std::signal(number, SIG_DFL);
}

constexpr int EndingSignals[] = {SIGINT, SIGTERM, SIGHUP};

} // namespace

Progress::Progress(std::ostream& errors_, bool terminal_)
    : errors(errors_), terminal(terminal_), next(Timer::now() + std::chrono::milliseconds(500)) {
    ToldToEnd = 0;
    for (const int number : EndingSignals) {
        // What is to be ignored, by nohup say, stays so.
        if (std::signal(number, TakeSignal) == SIG_IGN) {
            std::signal(number, SIG_IGN);
        }
    }
}

Progress::~Progress() {
    Clear();
    for (const int number : EndingSignals) {
        if (std::signal(number, SIG_DFL) == SIG_IGN) {
            std::signal(number, SIG_IGN);
        }
    }
}

void Progress::Add(std::int64_t more, double share) {
    points += more;
    if (ToldToEnd != 0) {
        throw ConvertError("stopped");
    }
    if (!terminal || Timer::now() < next) {
        return;
    }
    next = Timer::now() + std::chrono::milliseconds(200);
    told = true;
    errors << '\r' << points << " points";
    if (share >= 0.0) {
        errors << ", " << static_cast<int>(share * 100.0) << " %";
    }
    errors << "\x1B[K" << std::flush;
}

void Progress::Clear() {
    if (told) {
        errors << "\r\x1B[K" << std::flush;
        told = false;
    }
}

} // namespace quelmont
