#pragma once

#include "core/map_design.h"

#include <cstddef>

namespace quelmont {

/// How a label looks.
TextLook LookOf(const MapLabel& label);

/// Places the labels of MapLabels from one on, each beside the symbol of its point, and draws them when
/// LabelsVisible; those of an interrupted map in print are placed alone.
///
/// A label stands to the right of its symbol, its upper edge level with the point; where it would leave the
/// drawing area on the right, to the left of its symbol, but never beyond the left edge, and where it would
/// leave it below, higher by its height. Places are in twips of the window on every device.
///
/// Reads   InputFiles, and what ProjectSelect and ScaleScreen left for the map and its lobe.
/// Writes  of each label LabelX, LabelY (its anchor on the baseline), LabelWidth, LabelAscent, LabelDescent,
///         LabelCellHeight; the point cell, CurrentSymbolType and the symbol sizes; CurrentLook, CurrentX,
///         CurrentY, CurrentTextAngle; CurrentText, which is empty at the end.
/// Labels whose point has no place on the map are taken out of MapLabels.
///
/// Lets events run every 800 labels that it draws, and leaves when PlotStopReason is StopReason::Escape. A
/// font without measures shows "GetTextMetrics error in LabelPrint", and the label has none. Any other
/// failure shows "Error in LabelPrint" and ends the routine; that label and the ones behind it are taken out.
void LabelPrint(std::size_t first = 0);

/// Draws the labels from one on where they were placed, if they are to be shown, and writes and ends as
/// LabelPrint. Outside of a draw no events run meanwhile.
void DrawLabels(std::size_t first = 0, bool eventsRun = true);

} // namespace quelmont
