#pragma once

#include "core/map_design.h"

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

/// The anchor of a text item.
/// Reads   ClientWidth, ClientHeight, LogicalWidth, LogicalHeight.
/// RunTimeError "Overflow" when it does not fit 16 bits, "Division by zero" on a window without a size.
LogicalPoint LogicalPointOfText(const TextItem& text);

/// Height of a text item's characters in CGM and DXF files, logical units.
/// Reads   TextScalePercent, LogicalHeight, ClientHeight.
/// RunTimeError "Division by zero" on a window without a height.
double FileTextHeight(const TextItem& text);

/// Width of lines in a file: a share of the drawing in logical units, or PenWidth as it stands.
/// Reads   LineWidthsScaled, PenWidth, TwipsPerPixelY, LogicalWidth, ClientWidth.
/// RunTimeError "Division by zero" on a window without a width.
double FileLineWidth();

} // namespace quelmont
