#pragma once

namespace quelmont {

/// Paints the background (at the first pass of a draw) and plots the grid, on the surface in use
/// and into the file that is armed, in the passes that GridTypeCode calls for.
///
/// Reads   the bounds, the grid and the centre of the map, GridTypeCode, GridLineWidth, GridColor,
///         BackColor, LobeFirst, the output flags.
/// Writes  Surface, DevicePixelX, DevicePixelY, PenColor, PenWidth, CurrentSymbolType, LineStart,
///         PointStatus, the point cell, OutputFileName, UtmPointPath.
/// Lets events run after each line and leaves at once when PlotStopReason is "Escape". A run-time
/// failure shows "Error in PlotGrid" and sets PlotStopReason to "GridDiskError".
void PlotGrid();

} // namespace quelmont
