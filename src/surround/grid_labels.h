#pragma once

#include "output/map_surround.h"
#include "surround/label_layout.h"

#include <vector>

namespace quelmont {

/// The labels of the design's grid, placed for the window; on a page in print as well.
///
/// Reads   GridLabels, the look of GridLabelFontSlot, GridLineWidth, TextItems, MapLabels, LabelsVisible, and
///         what LabelledLines and PlaceGridLabels read.
/// None with GridLabelPlace::None. RunTimeError as PlaceGridLabels.
std::vector<GridLabel> GridLabelsOfDesign();

/// What stands about the map: the labels of the grid. A failure shows "Error in GridLabels".
class GridSurround : public MapSurround {
public:
    double ShareOfArea(double share) override;
    double RiseOfMap(double share) override;
    void PlotLines() override;
    void AddTexts() override;
    void DrawTexts() override;
    void ForgetTexts() override;
    void DrawTextsAgain() override;
};

} // namespace quelmont
