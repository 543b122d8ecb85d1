#include "desktop/session_end.h"

#include "mainwindow/settings.h"

#include <QApplication>
#include <QEvent>
#include <QScopedValueRollback>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QWidget>

#include <array>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace quelmont {

namespace {

constexpr std::array EndingSignals = {SIGINT, SIGTERM, SIGHUP};

bool ending = false;

/// A signal writes a byte into one end, the event loop reads it at the other.
std::array<int, 2> signalPipe = {-1, -1};

void WakeBySignal(int number) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(signalPipe[1], &byte, 1);
    std::signal(number, SIG_DFL);
}

void HandleEnding(void (*handler)(int)) {
    for (const int number : EndingSignals) {
        if (std::signal(number, handler) == SIG_IGN) {
            std::signal(number, SIG_IGN);
        }
    }
}

} // namespace

SessionEnd::SessionEnd(QWidget& window_) : window(window_) {
    ending = false;
    if (pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) == 0) {
        notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, [this] {
            notifier->setEnabled(false);
            End();
        });
        HandleEnding(WakeBySignal);
    }
    connect(qApp, &QGuiApplication::commitDataRequest, this, &SessionEnd::Save, Qt::DirectConnection);
    qApp->installEventFilter(this);
}

SessionEnd::~SessionEnd() {
    if (notifier != nullptr) {
        HandleEnding(SIG_DFL);
        close(signalPipe[0]);
        close(signalPipe[1]);
    }
    ending = false;
}

bool SessionEnd::IsEnding() { return ending; }

void SessionEnd::End() {
    ending = true;
    while (QWidget* popup = QApplication::activePopupWidget()) {
        if (!popup->close()) {
            break;
        }
    }
    while (QWidget* modal = QApplication::activeModalWidget()) {
        if (!modal->close() || modal->isVisible()) {
            break;
        }
    }
    window.close();
}

void SessionEnd::Save() {
    const QScopedValueRollback quiet(ending, true);
    WriteSettings();
}

bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
    // The session manager lets the program end; the program itself ends by closing its window.
    if (watched == qApp && event->type() == QEvent::Quit && window.isVisible()) {
        End();
        return window.isVisible();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace quelmont
