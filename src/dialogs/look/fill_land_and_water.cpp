#include "dialogs/look/fill_land_and_water.h"

#include "core/color_table.h"
#include "core/map_design.h"
#include "dialogs/dialogs_state.h"
#include "dialogs/look/colors256.h"
#include "platform/machine.h"

namespace quelmont {

// clang-format off
const std::array<FillLandAndWater::Area, 3> FillLandAndWater::Areas = {{
    {"FillLand",  "Fill &Land",  "LandColor",  "L&and Color",  &FillChoice::land,  FromRedGreenBlue(0xFFFFCC)},
    {"FillLakes", "Fill La&kes", "LakesColor", "Lak&es Color", &FillChoice::lakes, FromRedGreenBlue(0x99CCFF)},
    {"FillSea",   "Fill &Sea",   "SeaColor",   "Sea Colo&r",   &FillChoice::sea,   FromRedGreenBlue(0xCCE6FF)},
}};
// clang-format on

FillLandAndWater::FillLandAndWater() : DesignDialog("FillLandAndWater", "Fill Land and Water") {
    Design.DialogCancelled = true;
    for (const Area& area : Areas) {
        const std::optional<ColorValue>& color = Design.Fill.*area.color;
        Add({.name = area.check, .kind = ControlKind::Check, .text = area.checkText, .value = color ? 1 : 0});
        Add({.name = area.button,
             .kind = ControlKind::Button,
             .text = area.buttonText,
             .colors = {ColorBits(color.value_or(area.proposal))}});
        On(area.button, ControlEvent::Click, [this, &area] { Color_Click(area); });
    }
    AddOkAndCancel([this] { OK_Click(); });
}

void FillLandAndWater::Color_Click(const Area& area) {
    DialogsNow.FeatureColor = At(area.button).colors.front();
    DialogsNow.FeatureColorIndex = 0;
    Design.ColorPurpose = PurposeArea;
    Colors256 picker;
    Machine().forms->Show(picker);
    if (!Design.DialogCancelled) {
        Edit(area.button).colors = {ColorBits(DialogsNow.FeatureColor)};
        Edit(area.check).value = 1;
    }
    Design.DialogCancelled = true;
}

void FillLandAndWater::OK_Click() {
    for (const Area& area : Areas) {
        Design.Fill.*area.color = At(area.check).value != 0
                                      ? std::optional(SolidColor(At(area.button).colors.front()))
                                      : std::nullopt;
    }
    CloseAccepted();
}

} // namespace quelmont
