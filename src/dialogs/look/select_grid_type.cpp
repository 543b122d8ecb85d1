#include "dialogs/look/select_grid_type.h"

#include "core/map_design.h"
#include "core/rounding.h"
#include "dialogs/look/colors256.h"
#include "graticule/grid_types.h"
#include "platform/machine.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr int MinPixels = 1;
constexpr int MaxPixels = 600;

std::vector<std::string> GridTypeTexts() {
    std::vector<std::string> lines;
    std::transform(GridTypes.begin(), GridTypes.end(), std::back_inserter(lines),
                   [](const GridType& type) { return std::string(type.text); });
    return lines;
}

} // namespace

SelectGridType::SelectGridType() : DesignDialog("SelectGridType", "Grid Color, Width, Type") {
    Design.DialogCancelled = true;
    Add({.name = "GridTypeList",
         .kind = ControlKind::List,
         .caption = "Grid &Type",
         .value = Design.GridTypeCode - 1,
         .items = GridTypeTexts()});
    const double pixels = static_cast<double>(Design.GridLineWidth) / Design.TwipsPerPixelY;
    Add({.name = "GridLineWidth",
         .kind = ControlKind::Spin,
         .caption = "Grid Line &Width",
         .value = RoundToInt16(std::clamp<double>(pixels, MinPixels, MaxPixels)),
         .minimum = MinPixels,
         .maximum = MaxPixels});
    Add({.name = "GridColor",
         .kind = ControlKind::Button,
         .text = "&Grid Color",
         .colors = {ColorBits(Design.GridColor)}});
    On("GridColor", ControlEvent::Click, [this] { GridColor_Click(); });
    AddOkAndCancel([this] { OK_Click(); });
}

void SelectGridType::GridColor_Click() {
    Design.ColorPurpose = PurposeGrid;
    Colors256 picker;
    Machine().forms->Show(picker);
    Edit("GridColor").colors = {ColorBits(Design.GridColor)};
}

void SelectGridType::Cancel_Click() {
    Design.GridColor = colorBefore;
    Design.GridColorIndex = colorIndexBefore;
    DesignDialog::Cancel_Click();
}

void SelectGridType::OK_Click() {
    const int line = At("GridTypeList").value;
    if (line >= 0) {
        StoreGridType(GridTypes[static_cast<std::size_t>(line)]);
    }
    Design.GridLineWidth = static_cast<float>(At("GridLineWidth").value) * Design.TwipsPerPixelY;
    CloseAccepted();
}

} // namespace quelmont
