#pragma once

#include <cstdint>

namespace quelmont {

/// How many times larger a map is on paper than in the window; 1 on the screen.
/// Reads   PrintingNow, PrintWidth, PrintUnitTwips, the window's drawing area.
/// RunTimeError "Division by zero" for a window without a width.
double PageScale();

/// Takes the width of the next pen, twips.
/// Reads   TwipsPerPixelY. Writes  PenWidth, in whole pixels, and PenPixels. RunTimeError "Division by zero",
///         "Overflow".
void TakePenWidth(double twips);

/// PenWidth in pixels of the device in use: as it stands on the screen, and on a printer without line
/// scaling; otherwise a line on paper has the window's share of the map.
/// Reads   PrintingNow, LineWidthsScaled, PenWidth, TwipsPerPixelY, PrinterTwipsPerPixelY.
std::int32_t DevicePenWidth();

/// The side of a dot of so many pixels of the window in pixels of the device in use, at least one. On paper a
/// dot has the window's share of the map: where pixels are small, one alone could hardly be seen. On a
/// printer without line scaling it is one pixel.
/// Reads   PrintingNow, LineWidthsScaled, TwipsPerPixelY, PrinterTwipsPerPixelY.
std::int32_t DeviceDotPixels(double windowPixels);

/// A place in device pixels, moved to where the map lies on the page; as it stands on the screen.
/// Reads   PrintingNow, PrintLeft, PrintTop, PrinterOffsetX, PrinterOffsetY, PrintUnitTwips,
///         DevicePixelX, DevicePixelY.
/// RunTimeError "Overflow" beyond 32 bits.
std::int32_t PageX(std::int32_t x);
std::int32_t PageY(std::int32_t y);

} // namespace quelmont
