#include "view/moving_picture.h"

#include "mainwindow/map_draw.h"
#include "platform/machine.h"

#include <chrono>

namespace quelmont {

namespace {

/// Runs no events, and presses Escape when the time is over.
class LimitedPump final : public Pump {
public:
    explicit LimitedPump(double seconds_) : seconds(seconds_) {}

    void DoEvents() override {
        if (!over && std::chrono::steady_clock::now() - start >= seconds) {
            over = true;
            EscapeKey();
        }
    }
    bool IsOver() const { return over; }

private:
    std::chrono::duration<double> seconds;
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
    bool over = false;
};

} // namespace

MovingPicture DrawMovingPicture(double seconds) {
    Pump* const before = Machine().pump;
    LimitedPump pump(seconds);
    Machine().pump = &pump;
    const bool whole = DrawPicture();
    Machine().pump = before;
    Machine().window->Refresh();
    if (whole) {
        return MovingPicture::Whole;
    }
    return pump.IsOver() ? MovingPicture::Cut : MovingPicture::Hindered;
}

} // namespace quelmont
