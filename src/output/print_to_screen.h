#pragma once

namespace quelmont {

/// Draws the point in ProjX, ProjY on the surface in use, as CurrentSymbolType says.
///
/// Reads   ProjX, ProjY, the fit of ScaleScreen, DevicePixelX, DevicePixelY, Surface, PointStatus,
///         LineStart, CurrentSymbolType, PenColor, SymbolRadius.
/// Writes  LineStart (emptied by a move).
/// A line moves to its point when PointStatus is 1 or LineStart is 3, else it goes on from the point
/// before. A device coordinate outside int16 shows "Error in PrintToScreen" and the point is lost;
/// a surface operation that fails shows its own message box under "Windows API Error".
void PrintToScreen();

} // namespace quelmont
