#include "dialogs/design_fields.h"

#include "core/angle_field.h"

#include <algorithm>
#include <utility>

namespace quelmont {

void DesignFields::AddField(std::string_view name, std::string_view caption, std::string_view mask,
                            std::string& stored, Stores what) {
    Add({.name = std::string(name),
         .kind = ControlKind::Edit,
         .text = stored,
         .caption = std::string(caption),
         .mask = std::string(mask)});
    fields.push_back({std::string(name), &stored, what});
}

void DesignFields::CheckWhenLeft(std::string_view name, std::function<Refusal()> check) {
    On(name, ControlEvent::LostFocus, [this, check = std::move(check)] { Allowed(check()); });
}

void DesignFields::FillFields() {
    for (const Field& field : fields) {
        SetText(field.name, *field.stored);
    }
}

void DesignFields::StoreFields() const {
    for (const Field& field : fields) {
        *field.stored = field.what == Stores::Text ? TextOf(field.name) : BareDigits(TextOf(field.name));
    }
}

bool DesignFields::Allowed(const Refusal& refusal) {
    if (!IsRefused(refusal)) {
        return true;
    }
    if (refusal.Retry) {
        SetFocus(refusal.Field);
        return false;
    }
    for (const Field& field : fields) {
        if (std::find(refusal.Restored.begin(), refusal.Restored.end(), field.name) !=
            refusal.Restored.end()) {
            Type(field.name, *field.stored);
        }
    }
    return false;
}

} // namespace quelmont
