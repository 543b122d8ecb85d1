#include "core/stop_signals.h"

#include <csignal>

namespace quelmont {

namespace {

volatile std::sig_atomic_t ToldToEnd = 0;

void TakeSignal(int number) {
    ToldToEnd = 1;
    std::signal(number, SIG_DFL);
}

constexpr int EndingSignals[] = {SIGINT, SIGTERM, SIGHUP};

void HandleEnding(void (*handler)(int)) {
    for (const int number : EndingSignals) {
        if (std::signal(number, handler) == SIG_IGN) {
            std::signal(number, SIG_IGN);
        }
    }
}

} // namespace

StopSignals::StopSignals() {
    ToldToEnd = 0;
    HandleEnding(TakeSignal);
}

StopSignals::~StopSignals() { HandleEnding(SIG_DFL); }

bool StopSignals::Came() { return ToldToEnd != 0; }

void TakeFileLimitsAsErrors() { std::signal(SIGXFSZ, SIG_IGN); }

} // namespace quelmont
