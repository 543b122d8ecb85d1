#include "dialogs/look/colors256.h"

#include "core/color_table.h"
#include "core/map_design.h"
#include "dialogs/dialogs_state.h"

#include <stdexcept>

namespace quelmont {

namespace {

constexpr const char* HelpOfMap = "Click on a color to select.  Redraw\nthe map to display the new color.";
constexpr const char* HelpOfFeature = "     Click on a color to select.";

/// What the picker shows and changes for a purpose.
struct Target {
    const char* label;
    const char* help;
    ColorValue* color;
    std::int16_t* cell;
};

Target TargetOf(std::int16_t purpose) {
    switch (purpose) {
    case PurposeGreatCircle:
        return {"Great Circle Color", HelpOfMap, &Design.GcColor, &Design.GcColorIndex};
    case PurposeSmallCircle:
        return {"Small Circle Color", HelpOfMap, &Design.ScColor, &Design.ScColorIndex};
    case PurposeBackground:
        return {"Background Color", HelpOfMap, &Design.BackColor, &Design.BackColorIndex};
    case PurposeGrid:
        return {"Grid Color", HelpOfMap, &Design.GridColor, &Design.GridColorIndex};
    case PurposeFeature:
        return {"Geofeature Color", HelpOfFeature, &DialogsNow.FeatureColor, &DialogsNow.FeatureColorIndex};
    case PurposeArea:
        return {"Fill Color", HelpOfFeature, &DialogsNow.FeatureColor, &DialogsNow.FeatureColorIndex};
    default:
        throw std::out_of_range("no purpose of a colour");
    }
}

std::vector<std::uint32_t> AllColors() {
    std::vector<std::uint32_t> colors;
    for (std::size_t cell = 0; cell < ColorCells; ++cell) {
        colors.push_back(ColorOfCell(cell));
    }
    return colors;
}

} // namespace

Colors256::Colors256() : DesignDialog("Colors256", "Select Color") {
    Form_Load();
    On("ColorSquare", ControlEvent::MouseMove, [this] { ColorSquare_MouseMove(); });
    On("ColorSquare", ControlEvent::Click, [this] { ColorSquare_Click(); });
}

void Colors256::Form_Load() {
    Design.DialogCancelled = true;
    const Target target = TargetOf(Design.ColorPurpose);
    Add({.name = "Purpose", .kind = ControlKind::Label, .text = target.label});
    Add({.name = "ColorSquare",
         .kind = ControlKind::Palette,
         .caption = target.label,
         .value = -1,
         .colors = AllColors(),
         .columns = ColorColumns,
         .marked = CellOfColor(*target.color, *target.cell)});
    Add({.name = "HelpText", .kind = ControlKind::Label, .text = target.help});
    AddCancel();
}

void Colors256::ColorSquare_MouseMove() {
    const int cell = At("ColorSquare").value;
    Edit("ColorSquare").text = cell < 0 ? "" : CellInWords(static_cast<std::size_t>(cell));
}

void Colors256::ColorSquare_Click() {
    const Target target = TargetOf(Design.ColorPurpose);
    const int cell = At("ColorSquare").value;
    *target.color = SolidColor(ColorOfCell(static_cast<std::size_t>(cell)));
    *target.cell = static_cast<std::int16_t>(cell);
    CloseAccepted();
}

} // namespace quelmont
