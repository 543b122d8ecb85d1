#pragma once

#include "surround/text_box.h"

#include <vector>

/// The frame and the scale bar in a draw. What they need of the labels of the grid is the room that those
/// take beside the map; the labels themselves keep off the bar.

namespace quelmont {

/// The share of the drawing area that the map may fill, at most share, so that the ticks of its frame are on
/// the area, and its scale bar has a place (PlanScaleBar). Where that would be less than three fifths of
/// share the bar is left out, and where the ticks need more than half of it they are cut off.
///
/// Reads   Frame, GridLabels, TextItems, and as FrameStrokes, PlanScaleBar. Throws nothing and writes
/// nothing.
double ShareBesideFrame(double share);

/// How far the map is moved up from the middle of the area, as a share of the area's height, so that its
/// scale bar has a place below it: 0 where the bar has a place beside a map in the middle.
///
/// share: as ShareBesideFrame gave it. Reads, throws and writes as that.
double RiseBesideFrame(double share);

/// Plots the lines of the frame and of the scale bar, on the surface in use and into the file that is armed;
/// not into text files, which hold the map alone. Plans the bar for the draw.
///
/// Writes  Surface, PenColor, PenWidth, CurrentSymbolType, LineStart, PointStatus, ProjX, ProjY.
/// A failure shows "Error in MapFrame".
void PlotFrame();

/// What the scale bar of the last PlotFrame covers; empty without one.
std::vector<TextBox> BoxesOfBar();

/// Puts the texts of that bar behind the text items; draws them on the surface in use; draws those of the
/// last draw on the window again.
void AddTextsOfBar();
void DrawTextsOfBar();
void DrawTextsOfBarAgain();

} // namespace quelmont
