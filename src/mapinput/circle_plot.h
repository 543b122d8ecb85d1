#pragma once

namespace quelmont {

class MapPoint;

/// Plots the small circles, then the great circle, each if it is defined, on the surface in use and into the
/// file that is armed; a text file of points has no circles.
///
/// Reads   ScDefined, ScTable, ScColor, ScLineWidth, the same of the great circle, and what MapPoint
///         reads.  Writes  CurrentSymbolType, PenColor, PenWidth, and what MapPoint writes.
/// The pole that a great circle crosses is plotted on both its meridians: it ends one line and begins the
/// next. Where a disc shows the whole globe, lines beside the antipode of its centre follow the rim.
/// False when Escape was pressed. RunTimeError as MapPoint and ResumeExport. A pen that cannot be made or
/// deleted shows its message box and the plot goes on.
bool PlotCircles(MapPoint& point);

} // namespace quelmont
