#include "dialogs/bounds/bounds_form.h"

#include "dialogs/bounds/boundary_checks.h"
#include "graticule/calculate_bounds.h"
#include "platform/machine.h"

#include <string>

namespace quelmont {

void BoundsForm::CheckWhenLeft(std::string_view name) {
    CheckWhenLeft(name, [this, field = std::string(name)] {
        return CheckBoundaryField(ClassName(), field, TextOf(field));
    });
}

bool BoundsForm::BoundsCalculated() { return CalculateBounds() || Allowed(Design.LastRefusal); }

void BoundsForm::Cancel_Click() {
    static_cast<DesignBounds&>(Design) = before;
    DesignDialog::Cancel_Click();
}

void ShowFollowUp(Form& dialog, const DesignBounds& before) {
    Machine().forms->Show(dialog);
    if (Design.DialogCancelled) {
        static_cast<DesignBounds&>(Design) = before;
    }
}

} // namespace quelmont
