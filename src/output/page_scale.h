#pragma once

#include <cstdint>

namespace quelmont {

/// How many times larger a map is on paper than in the window; 1 on the screen.
/// Reads   PrintingNow, PrintWidth, PrintUnitTwips, the window's drawing area.
/// RunTimeError "Division by zero" for a window without a width.
double PageScale();

/// PenWidth in pixels of the device in use: as it stands on the screen, and on a printer without line
/// scaling; otherwise a line on paper has the window's share of the map.
/// Reads   PrintingNow, LineWidthsScaled, PenWidth, TwipsPerPixelY, PrinterTwipsPerPixelY.
std::int32_t DevicePenWidth();

/// A place in device pixels, moved to where the map lies on the page; as it stands on the screen.
/// Reads   PrintingNow, PrintLeft, PrintTop, PrinterOffsetX, PrinterOffsetY, PrintUnitTwips,
///         DevicePixelX, DevicePixelY.
/// RunTimeError "Overflow" beyond 32 bits.
std::int32_t PageX(std::int32_t x);
std::int32_t PageY(std::int32_t y);

} // namespace quelmont
