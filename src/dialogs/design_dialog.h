#pragma once

#include "platform/form.h"

#include <functional>
#include <string_view>

namespace quelmont {

/// A dialog that works on the design and can be cancelled: every way out but its acceptance leaves
/// DialogCancelled true.
class DesignDialog : public Form {
protected:
    using Form::Form;

    /// The buttons "OK", which Enter presses, and "Cancel".
    void AddOkAndCancel(std::function<void()> ok);
    /// The button "Cancel".
    void AddCancel();

    /// Sets DialogCancelled and closes. A dialog that has changed the design undoes that first.
    virtual void Cancel_Click();
    /// Clears DialogCancelled and closes.
    void CloseAccepted();

    /// A run-time error of a handler shows its message box under the dialog's name.
    void Handle(const std::function<void()>& handler) override;
};

} // namespace quelmont
