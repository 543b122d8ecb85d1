#pragma once

#include "core/map_extras.h"
#include "core/standard_colors.h"
#include "dialogs/design_dialog.h"

#include <array>
#include <optional>

namespace quelmont {

/// Colours of land, lakes and sea; each may have none.
///
/// A button opens the colour picker; a colour that is chosen there is filled at once. What is not filled
/// keeps the colour that its button shows until the dialog is left. Writes  Fill, on OK alone;
/// DialogCancelled, the picker's colour.
class FillLandAndWater : public DesignDialog {
public:
    FillLandAndWater();

private:
    /// Of an area: the controls, what the design has, and what is proposed if that is nothing.
    struct Area {
        const char* check;
        const char* checkText;
        const char* button;
        const char* buttonText;
        std::optional<ColorValue> FillChoice::*color;
        ColorValue proposal;
    };
    static const std::array<Area, 3> Areas;

    void Color_Click(const Area& area);
    void OK_Click();
};

} // namespace quelmont
