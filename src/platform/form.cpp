#include "platform/form.h"

#include "platform/machine.h"

#include <algorithm>
#include <stdexcept>

namespace quelmont {

Form::Form(std::string className_, std::string caption_)
    : className(std::move(className_)), caption(std::move(caption_)) {}

const Control& Form::At(std::string_view name) const {
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [&](const Control& control) { return control.name == name; });
    if (found == controls.end()) {
        throw std::out_of_range("no control " + std::string(name) + " in " + className);
    }
    return *found;
}

Control& Form::Edit(std::string_view name) { return const_cast<Control&>(std::as_const(*this).At(name)); }

Control& Form::Add(Control control) {
    if (focus.empty() && control.kind != ControlKind::Label) {
        focus = control.name;
    }
    return controls.emplace_back(std::move(control));
}

void Form::On(std::string_view name, ControlEvent event, std::function<void()> handler) {
    handlers[{std::string(name), event}] = std::move(handler);
}

void Form::Run(std::string_view name, ControlEvent event) {
    const auto found = handlers.find({std::string(name), event});
    if (found != handlers.end()) {
        found->second();
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
    if (!wanted.empty()) {
        focus = std::exchange(wanted, {});
        Changed();
    }
}

void Form::Press(std::string_view button) {
    if (closed || !At(button).enabled) {
        return;
    }
    MoveFocus(button);
    if (!closed && focus == button) {
        Run(button, ControlEvent::Click);
        if (!wanted.empty()) {
            focus = std::exchange(wanted, {});
            Changed();
        }
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

void Form::PressF1() const { Machine().help->Show(HelpContext, helpPage); }

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
