#include "core/map_design.h"
#include "desktop/desktop.h"
#include "mainwindow/map_draw.h"
#include "platform/machine.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QProcess>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <vector>

/// From the start of the process to an idle window, and the default map in it from the command to
/// the last beep. On the display if there is one, else on the offscreen platform.
///
/// The program runs itself as often as it takes: a start is from the making of the process to the
/// first time that its event loop has nothing to do and its window has been painted.

namespace {

using Clock = std::chrono::steady_clock;

constexpr int Starts = 10;
constexpr int Draws = 10;
constexpr int StartMilliseconds = 60000;
constexpr const char* StartOnly = "start-only";

double MillisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void Print(const char* what, std::vector<double> milliseconds) {
    std::sort(milliseconds.begin(), milliseconds.end());
    std::printf("%-40s median %7.1f ms, best %7.1f ms, worst %7.1f ms of %zu\n", what,
                milliseconds[milliseconds.size() / 2], milliseconds.front(), milliseconds.back(),
                milliseconds.size());
}

/// Calls the action when the event loop is idle behind the first paint of the window.
void WhenIdle(quelmont::DesktopWindow& window, const std::function<void()>& action) {
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &window,
                     [&window, action, done = false]() mutable {
                         if (!done && window.windowHandle()->isExposed()) {
                             done = true;
                             action();
                         }
                     });
}

int StartOnce(int argc, char** argv) {
    const QApplication application(argc, argv);
    quelmont::Desktop desktop;
    desktop.Start();
    WhenIdle(desktop.Window(), [] {
        std::puts("idle");
        std::fflush(stdout);
        QCoreApplication::exit();
    });
    return QApplication::exec();
}

void MeasureStarts() {
    std::vector<double> milliseconds;
    for (int i = 0; i < Starts; ++i) {
        QProcess process;
        const Clock::time_point start = Clock::now();
        process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(StartOnly)});
        if (!process.waitForReadyRead(StartMilliseconds)) {
            std::fputs("the window did not come\n", stderr);
            return;
        }
        milliseconds.push_back(MillisecondsSince(start));
        process.waitForFinished(StartMilliseconds);
    }
    Print("start to idle window", milliseconds);
}

void MeasureDraws() {
    std::vector<double> milliseconds;
    for (int i = 0; i < Draws; ++i) {
        const Clock::time_point start = Clock::now();
        quelmont::Machine().window->Cls();
        quelmont::MapDraw();
        milliseconds.push_back(MillisecondsSince(start));
    }
    Print("default map, command to last beep", milliseconds);
}

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    if (argc > 1 && std::strcmp(argv[1], StartOnly) == 0) {
        return StartOnce(argc, argv);
    }
    const QApplication application(argc, argv);
    MeasureStarts();
    quelmont::Desktop desktop;
    desktop.Start();
    WhenIdle(desktop.Window(), [] {
        QTimer::singleShot(0, qApp, [] {
            MeasureDraws();
            QCoreApplication::exit();
        });
    });
    return QApplication::exec();
}
