#pragma once

#include <functional>

namespace quelmont {

/// Paints the background (at the first pass of a draw) and plots the grid, on the surface in use
/// and into the file that is armed, in the passes that GridTypeCode calls for.
///
/// Reads   the bounds, the grid and the centre of the map, GridTypeCode, GridLineWidth, GridColor,
///         BackColor, LobeFirst, the output flags.
/// Writes  Surface, DevicePixelX, DevicePixelY, PenColor, PenWidth, CurrentSymbolType, LineStart,
///         PointStatus, the point cell, OutputFileName, UtmPointPath.
/// Lets events run after each line and leaves at once when PlotStopReason is StopReason::Escape. A run-time
/// failure shows "Error in PlotGrid" and sets PlotStopReason to StopReason::GridDiskError.
///
/// ground paints what lies between the background and the grid; nothing if there is none.
void PlotGrid(const std::function<void()>& ground = nullptr);

/// Points that PlotGrid plots, about: without what the map's circle cuts off and what bends lines near the
/// antipode.
///
/// Reads   ProjNum, GridTypeCode, the bounds and the spacings.
/// RunTimeError "Division by zero" for a design that no dialog has accepted.
double GridPointEstimate();

} // namespace quelmont
