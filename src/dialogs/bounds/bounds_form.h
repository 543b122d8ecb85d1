#pragma once

#include "core/map_design.h"
#include "dialogs/design_dialog.h"

namespace quelmont {

/// A dialog of the map's boundaries. Cancel gives the design its bounds back, texts and numbers, as
/// they were when the dialog was made: refused answers and proposals that were not accepted leave
/// nothing behind.
class BoundsForm : public DesignDialog {
protected:
    using DesignDialog::DesignDialog;

    void Cancel_Click() override;

    static constexpr int HelpPageOfBoundaries = 110;

private:
    DesignBounds before = Design;
};

/// Shows the dialog that follows another one which has just stored its answers. When it was cancelled,
/// the bounds of the design become those given, from before that: no draw mixes the answers to one
/// with the lack of answers to the other.
void ShowFollowUp(Form& dialog, const DesignBounds& before);

} // namespace quelmont
