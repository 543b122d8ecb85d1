#pragma once

#include "core/map_design.h"
#include "surround/label_spots.h"
#include "surround/text_box.h"

#include <vector>

namespace quelmont {

/// A label of the grid where it stands.
struct GridLabel {
    TextItem item;   ///< its place belongs to the window
    TextBox letters; ///< what its letters fill: capitals and digits, which do not go below the baseline
};

/// What a label of the grid may not cover, twips of the window: the text items, and the labels of map files
/// that are shown.
/// Reads   TextItems, MapLabels, LabelsVisible, and the machine's fonts.
std::vector<TextBox> TextsOnMap();

/// Gives each line of the grid the labels that have room.
///
/// A label at the frame stands upright outside the outline, level with the end of its line; one on a line
/// runs along it, never upside down, above it, or below it where there is no room above. No label covers
/// another one, one of the boxes given or the edge of the drawing area; a label at the frame does not reach
/// over the map, one on a line not beyond it. Of those that cannot stand side by side the one further out is
/// left out.
///
/// clearance: twips from the outline to what stands outside it already.
/// Reads   the fit of ScaleScreen to the window, the look of GridLabelFontSlot, the machine's fonts, and as
///         IsOnMap. Writes nothing.
/// None for a font without measures. RunTimeError "Overflow" for a look whose numbers no text item holds.
std::vector<GridLabel> PlaceGridLabels(const std::vector<LabelledLine>& lines,
                                       const std::vector<TextBox>& taken, double clearance);

/// The share of the drawing area that the map may fill, at most share, so that its labels at the frame have
/// room beside it; never less than half of share, below which labels are left out instead.
///
/// width, height: of the drawing area, twips. Reads  MapXMin to MapYMax, the look of GridLabelFontSlot.
double ShareBesideLabels(const std::vector<LabelledLine>& lines, double share, double width, double height,
                         double clearance);

} // namespace quelmont
