#pragma once

#include "platform/form.h"

class QWidget;

namespace quelmont {

/// Shows forms as dialogs above the window that is in use.
class DesktopForms final : public Forms {
public:
    explicit DesktopForms(QWidget& window_) : window(window_) {}
    void Show(Form& form) override;

private:
    QWidget& window;
};

/// The dialog or window that a new one must stand above.
QWidget* WindowInUse(QWidget& window);

} // namespace quelmont
