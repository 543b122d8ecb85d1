#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quelmont {

enum class ControlKind { Label, Spin, Button };

enum class ControlEvent { Click, Change, GotFocus, LostFocus };

/// One control of a dialog as plain values; which of them mean something depends on the kind.
struct Control {
    std::string name;
    ControlKind kind = ControlKind::Label;
    std::string text = {}; ///< a label's or a button's text; "&" stands before the mnemonic
    int value = 0;         ///< a spin's number, within minimum and maximum
    int minimum = 0;
    int maximum = 0;
    bool enabled = true;
};

/// A modal dialog without a picture: its controls, the handlers of their events, and the focus.
///
/// The form owns the focus. Moving it runs LostFocus of the control that loses it, then GotFocus of
/// the one that gets it, unless a handler has called for the focus meanwhile (SetFocus): then it
/// goes where the handler wanted it. A handler that closes the form ends the move. A button that is
/// pressed first gets the focus, and is clicked only if it got it, so that the field left last is
/// checked. Cancelling (Escape, the close button) moves no focus and checks no field.
class Form {
public:
    Form(std::string className, std::string caption);
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& ClassName() const { return className; }
    const std::string& Caption() const { return caption; }
    const std::vector<Control>& Controls() const { return controls; }
    /// The control of that name; std::out_of_range when the form has none.
    const Control& At(std::string_view name) const;
    const std::string& Focus() const { return focus; }
    /// The button that Enter presses; empty when there is none.
    const std::string& DefaultButton() const { return defaultButton; }
    bool Closed() const { return closed; }
    /// The page of the help that F1 opens.
    int HelpPage() const { return helpPage; }

    /// What a person can do. A disabled control ignores all of it.
    void MoveFocus(std::string_view name);
    void Press(std::string_view button);
    void PressDefault();
    void PressCancel();
    /// Turns a spin to a number, limited to its range, and runs its Change.
    void Spin(std::string_view name, int value);
    void PressF1() const;

    /// Called by the view when a control's values may have changed behind its back.
    void SetWatcher(std::function<void()> watcher) { changed = std::move(watcher); }

protected:
    Control& Add(Control control);
    Control& Edit(std::string_view name);
    void On(std::string_view name, ControlEvent event, std::function<void()> handler);
    void SetFocus(std::string_view name);
    void SetDefaultButton(std::string_view name) { defaultButton = name; }
    void SetCancelButton(std::string_view name) { cancelButton = name; }
    void SetHelpPage(int page) { helpPage = page; }
    void Close();

private:
    void Run(std::string_view name, ControlEvent event);
    void Changed() const;

    std::string className;
    std::string caption;
    std::vector<Control> controls;
    std::map<std::pair<std::string, ControlEvent>, std::function<void()>> handlers;
    std::function<void()> changed;
    std::string focus;
    std::string wanted; ///< where a handler wants the focus while it is being moved
    std::string defaultButton;
    std::string cancelButton;
    int helpPage = 0;
    bool closed = false;
};

/// Shows forms.
class Forms {
public:
    virtual ~Forms() = default;
    /// Shows a form modally and returns when it has closed.
    virtual void Show(Form& form) = 0;
};

} // namespace quelmont
