#pragma once

#include "core/map_design.h"
#include "dialogs/design_dialog.h"

namespace quelmont {

/// Where the labels of the grid stand, how they show the hemisphere, and their font.
///
/// "Font and Color" opens the font dialog for their slot, whose choice is shown at once; Cancel gives the old
/// look back. OK stores the rest.
/// Writes  GridLabels, the look of GridLabelFontSlot, DialogCancelled.
class GridLabelsForm : public DesignDialog {
public:
    GridLabelsForm();

private:
    void GridLabelFont_Click();
    void ShowSample();
    void OK_Click();
    void Cancel_Click() override;

    TextLook lookBefore = Design.Fonts[GridLabelFontSlot];
};

} // namespace quelmont
