#include "platform/form.h"

#include "platform/help_pages.h"
#include "platform/machine.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace quelmont {

namespace {

std::string Masked(std::string_view mask, std::string_view text) {
    MaskedText masked(mask);
    masked.SetText(text);
    return masked.Text();
}

/// How many lines or cells can be chosen in a control.
std::size_t Choices(const Control& control) {
    switch (control.kind) {
    case ControlKind::List:
    case ControlKind::Combo:
    case ControlKind::Menu:
        return control.items.size();
    case ControlKind::Grid:
        return control.cells.size();
    default:
        return control.colors.size();
    }
}

bool HasChoice(const Control& control, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < Choices(control);
}

} // namespace

Form::Form(std::string className, std::string caption)
    : formClass(std::move(className)), formCaption(std::move(caption)) {}

const Control& Form::At(std::string_view name) const {
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [&](const Control& control) { return control.name == name; });
    if (found == controls.end()) {
        throw std::out_of_range("no control " + std::string(name) + " in " + formClass);
    }
    return *found;
}

Control& Form::Edit(std::string_view name) { return const_cast<Control&>(std::as_const(*this).At(name)); }

Control& Form::Add(Control control) {
    const bool otherOption = control.kind == ControlKind::Option && control.value == 0;
    if (focus.empty() && control.enabled && CanHaveFocus(control.kind) && !otherOption) {
        focus = control.name;
    }
    if (control.kind == ControlKind::Edit) {
        control.text = Masked(control.mask, control.text);
    }
    return controls.emplace_back(std::move(control));
}

void Form::On(std::string_view name, ControlEvent event, std::function<void()> handler) {
    handlers[{std::string(name), event}] = std::move(handler);
}

bool Form::Handles(std::string_view name, ControlEvent event) const {
    return handlers.contains({std::string(name), event});
}

void Form::Run(std::string_view name, ControlEvent event) {
    const auto found = handlers.find({std::string(name), event});
    if (found != handlers.end()) {
        Handle(found->second);
    }
    Changed();
}

void Form::SetFocus(std::string_view name) { wanted = name; }

void Form::MoveFocus(std::string_view name) {
    if (closed || name == focus || !At(name).enabled) {
        return;
    }
    wanted.clear();
    Run(focus, ControlEvent::LostFocus);
    if (closed) {
        return;
    }
    focus = wanted.empty() ? std::string(name) : wanted;
    wanted.clear();
    Run(focus, ControlEvent::GotFocus);
    GiveWantedFocus();
}

void Form::GiveWantedFocus() {
    if (!wanted.empty()) {
        focus = std::exchange(wanted, {});
        Changed();
    }
}

void Form::Press(std::string_view button) {
    if (closed || !At(button).enabled) {
        return;
    }
    if (button == cancelButton && button != defaultButton) {
        PressCancel();
        return;
    }
    MoveFocus(button);
    if (!closed && focus == button) {
        Run(button, ControlEvent::Click);
        GiveWantedFocus();
    }
}

void Form::PressDefault() {
    if (!defaultButton.empty()) {
        Press(defaultButton);
    }
}

void Form::PressCancel() {
    if (!closed && !cancelButton.empty()) {
        Run(cancelButton, ControlEvent::Click);
    }
}

void Form::Spin(std::string_view name, int value) {
    Control& control = Edit(name);
    if (closed || !control.enabled) {
        return;
    }
    control.value = std::clamp(value, control.minimum, control.maximum);
    Run(name, ControlEvent::Change);
}

void Form::SetText(std::string_view name, std::string_view text) {
    Control& control = Edit(name);
    control.text = control.kind == ControlKind::Edit ? Masked(control.mask, text) : std::string(text);
}

void Form::Type(std::string_view name, std::string_view text) {
    const Control& control = At(name);
    if (!closed && control.enabled && text != control.text) {
        SetText(name, text);
        Run(name, ControlEvent::Change);
    }
}

void Form::Choose(std::string_view name, int index) {
    Control& control = Edit(name);
    if (closed || !control.enabled) {
        return;
    }
    if (control.kind == ControlKind::Option) {
        for (Control& other : controls) {
            if (other.kind == ControlKind::Option && other.frame == control.frame) {
                other.value = 0;
            }
        }
        control.value = 1;
    } else if (control.kind == ControlKind::Check) {
        control.value = index != 0 ? 1 : 0;
    } else {
        if (!HasChoice(control, index)) {
            return;
        }
        control.value = index;
        if (control.kind == ControlKind::Combo) {
            control.text = control.items[static_cast<std::size_t>(index)];
        }
    }
    Run(name, ControlEvent::Click);
    GiveWantedFocus();
}

void Form::DoubleClick(std::string_view name) {
    if (!Handles(name, ControlEvent::DoubleClick)) {
        PressDefault();
    } else if (!closed && At(name).enabled) {
        Run(name, ControlEvent::DoubleClick);
        GiveWantedFocus();
    }
}

void Form::MoveTo(std::string_view name, int cell) {
    Control& control = Edit(name);
    if (!closed && control.enabled && cell != control.value && HasChoice(control, cell)) {
        control.value = cell;
        Run(name, ControlEvent::Change);
        GiveWantedFocus();
    }
}

void Form::Drop(std::string_view name, int line, std::vector<std::string> files) {
    Control& control = Edit(name);
    if (closed || !control.enabled || files.empty()) {
        return;
    }
    control.value = HasChoice(control, line) ? line : static_cast<int>(control.items.size()) - 1;
    control.dropped = std::move(files);
    Run(name, ControlEvent::Drop);
    GiveWantedFocus();
}

void Form::Drag(std::string_view name, int line, int before) {
    Control& control = Edit(name);
    if (closed || !control.enabled || !HasChoice(control, line) || !HasChoice(control, before)) {
        return;
    }
    control.dragged = line;
    control.value = before;
    Run(name, ControlEvent::Drag);
    GiveWantedFocus();
}

void Form::PressDelete(std::string_view name) {
    if (!closed && At(name).enabled) {
        Run(name, ControlEvent::Delete);
        GiveWantedFocus();
    }
}

void Form::Hover(std::string_view name, int cell) {
    Control& control = Edit(name);
    if (!closed && cell != control.value && cell >= -1 && cell < static_cast<int>(control.colors.size())) {
        control.value = cell;
        Run(name, ControlEvent::MouseMove);
    }
}

void Form::PressF1() const {
    const int context = HelpContextOf(formClass, focus);
    Machine().help->Show(HelpContext, context != 0 ? context : helpPage);
}

void Form::Close() {
    closed = true;
    Changed();
}

void Form::Changed() const {
    if (changed) {
        changed();
    }
}

} // namespace quelmont
