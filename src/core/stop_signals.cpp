#include "core/stop_signals.h"

#include <array>
#include <csignal>

namespace quelmont {

namespace {

constexpr std::array EndingSignals = {SIGINT, SIGTERM, SIGHUP};

using Handler = void (*)(int);

volatile std::sig_atomic_t ToldToEnd = 0;
std::array<Handler, EndingSignals.size()> HandlersBefore = {};

bool IsRoutine(Handler handler) {
    return handler != SIG_DFL && handler != SIG_IGN && handler != SIG_ERR && handler != nullptr;
}

void TakeSignal(int number) {
    ToldToEnd = 1;
    for (std::size_t i = 0; i < EndingSignals.size(); ++i) {
        if (EndingSignals[i] == number && IsRoutine(HandlersBefore[i])) {
            HandlersBefore[i](number);
        }
    }
    std::signal(number, SIG_DFL);
}

} // namespace

StopSignals::StopSignals() {
    ToldToEnd = 0;
    for (std::size_t i = 0; i < EndingSignals.size(); ++i) {
        HandlersBefore[i] = std::signal(EndingSignals[i], TakeSignal);
        if (HandlersBefore[i] == SIG_IGN) {
            std::signal(EndingSignals[i], SIG_IGN);
        }
    }
}

StopSignals::~StopSignals() {
    for (std::size_t i = 0; i < EndingSignals.size(); ++i) {
        // After a signal the next one still ends the process.
        if (std::signal(EndingSignals[i], SIG_DFL) != SIG_DFL) {
            std::signal(EndingSignals[i], HandlersBefore[i]);
        }
    }
}

bool StopSignals::Came() { return ToldToEnd != 0; }

void TakeFailedWritesAsErrors() {
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
}

} // namespace quelmont
