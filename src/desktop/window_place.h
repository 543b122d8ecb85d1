#pragma once

#include <QRect>
#include <QSize>

class QScreen;

namespace quelmont {

/// The window's sizes in units of the screen, a unit being as many device pixels as its ratio.
constexpr QSize SmallestWindow(480, 340);

/// The size of a window that was never moved: 1024 x 740; four fifths of a screen that is smaller,
/// each way for itself; never below the smallest.
QSize DesignedSize(QSize available);

/// Twips (1/1440 inch) per unit of a screen: 15 at 96 units an inch.
double TwipsPerUnit(const QScreen& screen);

/// True when windows know and choose their place; under Wayland they do not.
bool TellsPlaces();

/// A window's rectangle that fits on a screen and whose upper edge can be grasped: as it is if so,
/// else in the middle of the first screen.
QRect BroughtBack(QRect window);

} // namespace quelmont
