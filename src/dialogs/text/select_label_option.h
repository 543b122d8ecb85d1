#pragma once

#include "dialogs/design_dialog.h"

namespace quelmont {

/// "Select Label Option": whether labels are drawn, become text items, or are taken off the text items again.
///
/// The window shows what was chosen without a draw of the map. Labels are converted at the places of the last
/// draw, in the place of those that were converted before. Writes  on OK LabelsVisible, and for the last two
/// lines TextItems and what LabelConvert writes;
///         DialogCancelled, which is true unless OK was pressed.
class SelectLabelOption : public DesignDialog {
public:
    SelectLabelOption();

private:
    void OK_Click();
};

} // namespace quelmont
