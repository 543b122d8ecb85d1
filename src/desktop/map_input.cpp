#include "desktop/map_input.h"

#include "core/map_design.h"
#include "desktop/desktop_window.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/text_placing.h"
#include "view/map_clicks.h"
#include "view/place_picking.h"
#include "view/view_status.h"

#include <QKeyEvent>

#include <optional>
#include <utility>

namespace quelmont {

namespace {

constexpr int RestMilliseconds = 400;
/// A step of the wheel, eighths of a degree.
constexpr int WheelStep = 120;

std::optional<MapHand::Key> MovingKey(const QKeyEvent& event) {
    // Where + is on the upper half of its key, it comes with Shift.
    const bool sign = event.key() == Qt::Key_Plus || event.key() == Qt::Key_Minus;
    const Qt::KeyboardModifiers meaningless =
        sign ? Qt::KeypadModifier | Qt::ShiftModifier : Qt::KeypadModifier;
    if (event.modifiers() & ~meaningless) {
        return std::nullopt;
    }
    switch (event.key()) {
    case Qt::Key_Left:
        return MapHand::Key::Left;
    case Qt::Key_Up:
        return MapHand::Key::Up;
    case Qt::Key_Right:
        return MapHand::Key::Right;
    case Qt::Key_Down:
        return MapHand::Key::Down;
    case Qt::Key_Plus:
        return MapHand::Key::In;
    case Qt::Key_Minus:
        return MapHand::Key::Out;
    case Qt::Key_Home:
        return MapHand::Key::Whole;
    default:
        return std::nullopt;
    }
}

bool BeginsMove(const AreaMouse& mouse) {
    return mouse.kind == AreaMouse::Kind::Wheel ||
           ((mouse.kind == AreaMouse::Kind::Press || mouse.kind == AreaMouse::Kind::DoubleClick) &&
            mouse.button == Qt::LeftButton);
}

} // namespace

MapInput::MapInput(DesktopWindow& window_) : window(window_) {
    rest.setSingleShot(true);
    QObject::connect(&rest, &QTimer::timeout, &rest, [this] { Rest(); });
}

void MapInput::Take(const AreaMouse& mouse) {
    if (IsPicking()) { // for a dialog, which is part of the command that runs
        TakenByClick(mouse);
        return;
    }
    if (window.Busy()) {
        if (fillingIn && Interrupts(mouse)) {
            Interrupt([this, mouse] { Take(mouse); });
        }
        return;
    }
    if (!TakenByText(mouse) && !TakenByClick(mouse)) {
        TakenByMove(mouse);
    }
}

bool MapInput::Take(const QKeyEvent& event) {
    if (window.Busy()) {
        const auto key = fillingIn ? MovingKey(event) : std::nullopt;
        if (key) {
            Interrupt([this, key] {
                hand.Press(*key);
                WaitForRest();
            });
        }
        return key.has_value();
    }
    return TakenByText(event) || TakenByMove(event);
}

bool MapInput::TakenByText(const AreaMouse& mouse) {
    const bool pending = Design.TextPending;
    const double x = mouse.place.x() * Design.TwipsPerPixelX;
    const double y = mouse.place.y() * Design.TwipsPerPixelY;
    if (mouse.kind == AreaMouse::Kind::Press && mouse.button == Qt::LeftButton) {
        Form_MouseDown(x, y);
    } else if (mouse.kind == AreaMouse::Kind::Move) {
        Form_MouseMove(x, y);
    }
    return pending;
}

bool MapInput::TakenByText(const QKeyEvent& event) {
    if (event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) {
        return false;
    }
    switch (event.key()) {
    case Qt::Key_Space:
        return event.isAutoRepeat() || Form_KeyDown(BlankKey);
    case Qt::Key_Left:
        return Form_KeyDown(LeftKey);
    case Qt::Key_Up:
        return Form_KeyDown(UpKey);
    case Qt::Key_Right:
        return Form_KeyDown(RightKey);
    case Qt::Key_Down:
        return Form_KeyDown(DownKey);
    case Qt::Key_1:
    case Qt::Key_2:
    case Qt::Key_3:
        return Form_KeyDown(event.key());
    default:
        return false;
    }
}

bool MapInput::TakenByClick(const AreaMouse& mouse) {
    const bool left = mouse.button == Qt::LeftButton;
    switch (mouse.kind) {
    case AreaMouse::Kind::Press:
        return left && TakeClick(mouse.pixel, mouse.modifiers.testFlag(Qt::ShiftModifier));
    case AreaMouse::Kind::DoubleClick:
        return left && TakeSecondClick();
    case AreaMouse::Kind::Wheel:
        EndClicks(); // the picture becomes another one
        return false;
    case AreaMouse::Kind::Move:
    case AreaMouse::Kind::Release:
        break;
    }
    return false;
}

bool MapInput::TakenByMove(const AreaMouse& mouse) {
    bool taken = false;
    switch (mouse.kind) {
    case AreaMouse::Kind::Press:
        if (mouse.button == Qt::LeftButton) {
            hand.Press(mouse.pixel, mouse.modifiers.testFlag(Qt::ControlModifier));
        }
        return false; // it may become a click
    case AreaMouse::Kind::Move:
        taken = hand.Drag(mouse.pixel);
        if (taken && hand.LacksLines()) {
            rest.start(RestMilliseconds);
        }
        return taken;
    case AreaMouse::Kind::Release:
        taken = mouse.button == Qt::LeftButton && hand.Release(mouse.pixel);
        break;
    case AreaMouse::Kind::DoubleClick:
        taken = mouse.button == Qt::LeftButton && !mouse.modifiers && hand.Centre(mouse.pixel);
        break;
    case AreaMouse::Kind::Wheel:
        TurnWheel(mouse);
        taken = true;
        break;
    }
    WaitForRest();
    return taken;
}

bool MapInput::TakenByMove(const QKeyEvent& event) {
    const auto key = MovingKey(event);
    if (!key || !MapHand::IsFree()) {
        return false;
    }
    EndClicks();
    hand.Press(*key);
    WaitForRest();
    return true;
}

void MapInput::TurnWheel(const AreaMouse& mouse) {
    turned += mouse.turned;
    if (const int steps = turned / WheelStep; steps != 0) {
        turned -= steps * WheelStep;
        hand.Wheel(mouse.pixel, steps);
    }
}

bool MapInput::GiveUp() {
    if (fillingIn && hand.IsDragging()) {
        Interrupt([this] { GiveUp(); });
        return true;
    }
    const bool dragged = hand.GiveUp();
    if (dragged) {
        WaitForRest();
    }
    return dragged;
}

void MapInput::End() {
    hand.GiveUp();
    hand.Finish();
}

bool MapInput::Interrupts(const AreaMouse& mouse) const {
    return hand.IsDragging() || BeginsMove(mouse) || !waiting.empty();
}

void MapInput::Interrupt(std::function<void()> move) {
    waiting.push_back(std::move(move));
    EscapeKey();
}

void MapInput::WaitForRest() {
    ShowViewStatus(); // another place may be under the mouse
    if (hand.IsUnfinished() || hand.LacksLines()) {
        rest.start(hand.IsUnfinished() ? RestMilliseconds : 0);
    }
}

void MapInput::Rest() {
    if (window.Busy()) {
        rest.start(RestMilliseconds);
        return;
    }
    if (hand.IsDragging() && hand.LacksLines()) {
        FillIn();
    }
    if (hand.IsHolding()) {
        return; // the release asks again
    }
    window.Run([] {}); // with which what was moved is accepted
    if (hand.LacksLines()) {
        FillIn();
    }
}

void MapInput::FillIn() {
    const auto fillIn = [this] {
        fillingIn = true;
        window.Area().Hold();
        hand.FillIn();
        window.Area().LetGo();
        fillingIn = false;
    };
    if (hand.IsDragging()) {
        window.RunInDrag(fillIn);
    } else {
        window.Run(fillIn);
    }
    const auto moves = std::exchange(waiting, {});
    if (moves.empty()) {
        hand.LeaveAsItIs();
    }
    for (const auto& move : moves) {
        move();
    }
}

} // namespace quelmont
