#pragma once

#include <QMetaObject>

class QDialog;
class QWidget;

namespace quelmont {

/// Gives the keyboard back to the window below when a dialog has closed, and waits a moment until it is
/// there. Window managers give it back themselves, but when that window closes too before they have done so,
/// they give it to a window that is gone, and no other has it.
///
/// It lives as long as the dialog is shown. Nothing is done when the keyboard was with another program.
class KeyboardReturn {
public:
    KeyboardReturn(QDialog& dialog, QWidget& below);
    ~KeyboardReturn();
    KeyboardReturn(const KeyboardReturn&) = delete;
    KeyboardReturn& operator=(const KeyboardReturn&) = delete;

private:
    QWidget& below;
    QMetaObject::Connection following;
    bool hadKeyboard = false;
};

} // namespace quelmont
