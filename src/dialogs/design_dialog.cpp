#include "dialogs/design_dialog.h"

#include "core/error_box.h"
#include "core/map_design.h"

#include <utility>

namespace quelmont {

void DesignDialog::AddOkAndCancel(std::function<void()> ok) {
    Add({.name = "OK", .kind = ControlKind::Button, .text = "&OK"});
    On("OK", ControlEvent::Click, std::move(ok));
    SetDefaultButton("OK");
    AddCancel();
}

void DesignDialog::AddCancel() {
    Add({.name = "Cancel", .kind = ControlKind::Button, .text = "&Cancel"});
    On("Cancel", ControlEvent::Click, [this] { Cancel_Click(); });
    SetCancelButton("Cancel");
}

void DesignDialog::Cancel_Click() {
    Design.DialogCancelled = true;
    Close();
}

void DesignDialog::CloseAccepted() {
    Design.DialogCancelled = false;
    Close();
}

void DesignDialog::Handle(const std::function<void()>& handler) { Guarded(ClassName(), handler); }

} // namespace quelmont
