#pragma once

#include <cstdint>

namespace quelmont {

/// A place in logical units, y upward from the lower left corner: what CGM, DXF and WMF files hold.
struct LogicalPoint {
    std::int16_t x = 0;
    std::int16_t y = 0;
};

/// The place of ProjX, ProjY.
/// Reads   ProjX, ProjY, MapXMin, MapYMin, LogicalScale, LogicalOriginX, LogicalOriginY.
/// RunTimeError "Overflow" when it does not fit 16 bits.
LogicalPoint LogicalPointOfCell();

/// Width of lines in a file: a share of the drawing in logical units, or PenWidth as it stands.
/// Reads   LineWidthsScaled, PenWidth, TwipsPerPixelY, LogicalWidth, ClientWidth.
/// RunTimeError "Division by zero" on a window without a width.
double FileLineWidth();

} // namespace quelmont
