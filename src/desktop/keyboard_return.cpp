#include "desktop/keyboard_return.h"

#include <QDialog>
#include <QEventLoop>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

namespace quelmont {

namespace {

/// How often a window manager is asked, and how long each answer is waited for.
constexpr int Requests = 3;
constexpr int Milliseconds = 100;

/// A request for the keyboard bears the time of the last event that came from the window system; one from
/// before the moment when the window manager took the keyboard away counts as outdated. A property
/// that is set brings an event with the time of now, for the next request.
void AskForTheTime(const QWidget& window) {
    if (QWindow* handle = window.windowHandle()) {
        handle->setTitle(handle->title());
    }
}

/// Lets the window system's events in, but no key and no click, until the window has the keyboard.
bool HasKeyboardSoon(const QWidget& window) {
    if (!window.isActiveWindow()) {
        QEventLoop loop;
        QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &loop, [&loop](const QWindow* focus) {
            if (focus != nullptr) {
                loop.quit();
            }
        });
        QTimer::singleShot(Milliseconds, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    return window.isActiveWindow();
}

/// A dialog's keyboard did not arrive at the window below; the next one below must have it.
bool owed = false;

} // namespace

KeyboardReturn::KeyboardReturn(QDialog& dialog, QWidget& below_) : below(below_) {
    owed = false;
    following = QObject::connect(
        qGuiApp, &QGuiApplication::focusWindowChanged, &dialog, [this, &dialog](const QWindow* focus) {
            if (focus != nullptr) {
                hadKeyboard = focus == dialog.windowHandle();
            } else if (!dialog.isHidden()) {
                hadKeyboard = false; // it went to another program, not away with the dialog
            }
        });
}

KeyboardReturn::~KeyboardReturn() {
    QObject::disconnect(following);
    owed = owed || hadKeyboard;
    for (int request = 0; owed && request < Requests; ++request) {
        below.activateWindow();
        AskForTheTime(below);
        owed = !HasKeyboardSoon(below);
    }
}

} // namespace quelmont
