#include "dialogs/bounds/bounds_form.h"

#include "platform/machine.h"

namespace quelmont {

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
