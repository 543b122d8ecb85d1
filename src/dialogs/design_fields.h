#pragma once

#include "core/map_design.h"
#include "dialogs/design_dialog.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

// Columns of the fields (masked_text.h).
constexpr std::string_view LatitudeMask = "%%    %%    %%    ?";
constexpr std::string_view LongitudeMask = "%%%    %%    %%    ?";
constexpr std::string_view ArcMask = "%%%    %%    %%";

/// A dialog whose fields show and store texts of the design. A field that is left with a bad text
/// keeps the focus or gets the design's text back, as the message box was answered.
class DesignFields : public DesignDialog {
protected:
    using DesignDialog::DesignDialog;

    /// What of a field's text is stored.
    enum class Stores { Text, BareDigits };

    /// A field for a text of the design, which outlives the dialog.
    void AddField(std::string_view name, std::string_view caption, std::string_view mask, std::string& stored,
                  Stores what = Stores::Text);
    /// The check of a field when the focus leaves it.
    void CheckWhenLeft(std::string_view name, std::function<Refusal()> check);

    /// Fields from the design, and back.
    void FillFields();
    void StoreFields() const;
    const std::string& TextOf(std::string_view name) const { return At(name).text; }

    /// Does what a message box's answer asks for: the focus to the field, or the design's texts into the
    /// fields named. True when nothing was refused.
    bool Allowed(const Refusal& refusal);

private:
    struct Field {
        std::string name;
        std::string* stored;
        Stores what;
    };
    std::vector<Field> fields;
};

} // namespace quelmont
