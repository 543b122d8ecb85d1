#pragma once

#include "platform/form.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QAbstractSpinBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace quelmont {

/// A dialog on the screen. It shows the controls of a form and calls its handlers; the form decides
/// everything. Each dialog's own view arranges the widgets.
///
/// Buttons get the focus by the tab key only. A change of the focus reaches the form from the event
/// queue: a box that is shown inside a focus event would swallow the click that caused it. Changes
/// that a box or another window brings are none of the form's.
class FormView : public QDialog {
public:
    FormView(Form& form, QWidget* parent);
    ~FormView() override;

    /// Escape and the close button.
    void reject() override;

protected:
    /// The widgets of the form's controls by their names; a parent owns them once they lie in its
    /// layout. An explanation wraps its text.
    QLabel* AddLabel(std::string_view name);
    QLabel* AddExplanation(std::string_view name);
    /// A spin box is named by the label beside it, whose mnemonic leads to it.
    QSpinBox* AddSpin(std::string_view name, QLabel* label);
    QPushButton* AddButton(std::string_view name);

    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Binding {
        std::string name;
        QWidget* widget;
        std::function<void(const Control&)> show;
    };

    void Bind(std::string_view name, QWidget* widget, std::function<void(const Control&)> show);
    const Binding* Of(const QObject* widget) const;
    void FromForm();
    void FocusArrived(const QObject* widget);
    void FollowFocus();
    void Press(const std::string& button);
    void MoveToMiddle();

    Form& form;
    std::vector<Binding> bindings;
    std::vector<QAbstractSpinBox*> spins;
    bool seen = false;
};

/// Shows forms as dialogs.
class DesktopForms final : public Forms {
public:
    explicit DesktopForms(QWidget& parent_) : parent(parent_) {}
    void Show(Form& form) override;

private:
    QWidget& parent;
};

} // namespace quelmont
