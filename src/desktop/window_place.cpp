#include "desktop/window_place.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace quelmont {

namespace {

constexpr QSize Designed(1024, 740);
constexpr double TwipsPerInch = 1440.0;
/// What must be seen of a window's upper edge to move it by the mouse.
constexpr int HandleWidth = 100;
constexpr int HandleHeight = 20;

int Measure(int designed, int available, int smallest) {
    return std::max(available < designed ? available * 4 / 5 : designed, smallest);
}

bool CanBeGrasped(const QRect& window) {
    const QRect edge(window.left(), window.top(), window.width(), HandleHeight);
    const QList<QScreen*> screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
        const QRect seen = screen->availableGeometry().intersected(edge);
        return seen.width() >= HandleWidth && seen.height() >= HandleHeight / 2;
    });
}

} // namespace

QSize DesignedSize(QSize available) {
    return {Measure(Designed.width(), available.width(), SmallestWindow.width()),
            Measure(Designed.height(), available.height(), SmallestWindow.height())};
}

double TwipsPerUnit(const QScreen& screen) { return TwipsPerInch / screen.logicalDotsPerInchX(); }

bool TellsPlaces() { return !QGuiApplication::platformName().startsWith(QLatin1String("wayland")); }

QRect BroughtBack(QRect window) {
    const QScreen* screen = QGuiApplication::screenAt(window.topLeft());
    if (!CanBeGrasped(window) || screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    const QRect available = screen->availableGeometry();
    window.setSize(window.size().boundedTo(available.size()).expandedTo(SmallestWindow));
    if (TellsPlaces() && !CanBeGrasped(window)) {
        window.moveCenter(available.center());
        window.moveTopLeft(
            {std::max(window.left(), available.left()), std::max(window.top(), available.top())});
    }
    return window;
}

} // namespace quelmont
