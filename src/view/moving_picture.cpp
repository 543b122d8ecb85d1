#include "view/moving_picture.h"

#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mapinput/line_choice.h"
#include "platform/machine.h"

#include <chrono>
#include <ctime>

namespace quelmont {

namespace {

/// Runs no events, and presses Escape when the time is over.
class LimitedPump final : public Pump {
public:
    explicit LimitedPump(double seconds_) : seconds(seconds_) {}

    void DoEvents() override {
        if (!over && IsTimeOver()) {
            over = true;
            EscapeKey();
        }
    }
    bool IsOver() const { return over; }

private:
    /// By the processor's time: on a machine that has other work, too, a small map is drawn whole. By the
    /// wall's, where a file is slow to come, only after some times as much.
    bool IsTimeOver() const {
        constexpr double wallTimes = 2.0;
        const double worked = static_cast<double>(std::clock() - workStart) / CLOCKS_PER_SEC;
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
        return worked >= seconds || passed.count() >= wallTimes * seconds;
    }

    double seconds;
    std::clock_t workStart = std::clock();
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
    bool over = false;
};

/// Every n-th line, as long as it lives.
class NthLines final : public LineChoice {
public:
    explicit NthLines(int nth_) : nth(nth_) { ChosenLines() = nth > 1 ? this : nullptr; }
    ~NthLines() override { ChosenLines() = nullptr; }
    NthLines(const NthLines&) = delete;
    NthLines& operator=(const NthLines&) = delete;

    bool TakesNext() override {
        line = line + 1 == nth ? 0 : line + 1;
        return line == 0;
    }

private:
    int nth;
    int line = 0;
};

} // namespace

MovingPicture DrawMovingPicture(double seconds, int nth) {
    Pump* const before = Machine().pump;
    LimitedPump pump(seconds);
    Machine().pump = &pump;
    const NthLines lines(nth);
    const bool whole = DrawPicture();
    Machine().pump = before;
    Machine().window->Refresh();
    auto& picture = MainWindowNow.Picture;
    if (nth > 1 && picture) {
        picture->whole = false;
    }
    if (whole) {
        return nth > 1 ? MovingPicture::Thinned : MovingPicture::Whole;
    }
    return pump.IsOver() ? MovingPicture::Cut : MovingPicture::Hindered;
}

} // namespace quelmont
