#pragma once

#include "core/map_design.h"
#include "dialogs/design_fields.h"

#include <string_view>

namespace quelmont {

/// A dialog of the map's boundaries. Cancel gives the design its bounds back, texts and numbers, as
/// they were when the dialog was made: refused answers and proposals that were not accepted leave
/// nothing behind.
class BoundsForm : public DesignFields {
protected:
    using DesignFields::CheckWhenLeft;
    using DesignFields::DesignFields;

    /// The check of a field when the focus leaves it: that of the boundary fields of this dialog.
    void CheckWhenLeft(std::string_view name);
    /// Runs CalculateBounds and does what its refusal asks for. True when it refused nothing.
    bool BoundsCalculated();

    void Cancel_Click() override;

private:
    DesignBounds before = Design;
};

/// Shows the dialog that follows another one which has just stored its answers. When it was cancelled,
/// the bounds of the design become those given, from before that: no draw combines the answers of one
/// dialog with the missing ones of the other.
void ShowFollowUp(Form& dialog, const DesignBounds& before);

} // namespace quelmont
