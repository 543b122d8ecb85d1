#include "dialogs/circles/circle_form.h"

#include "core/angle_text.h"
#include "core/color_table.h"
#include "core/rounding.h"
#include "dialogs/look/colors256.h"
#include "platform/machine.h"
#include "platform/place_picker.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace quelmont {

namespace {

constexpr int MinPixels = 1;
constexpr int MaxPixels = 600;
constexpr int LastCell = static_cast<int>(ColorCells) - 1;
constexpr const char* ShowControl = "ShowOnMap";
constexpr const char* PickControl = "PickOnMap";
/// Blanks between the columns of a field.
constexpr std::int16_t GroupGap = 4;

} // namespace

CircleForm::CircleForm(const char* className, const char* caption, const Line& line_)
    : DesignFields(className, caption), line(line_), colorBefore(Design.*line_.color),
      colorIndexBefore(Design.*line_.colorIndex) {
    Design.DialogCancelled = true;
}

void CircleForm::AddPick(std::span<const PlaceFields> places) {
    place = &places.front();
    for (const PlaceFields& one : places) {
        for (const std::string_view field : {one.lat, one.lon}) {
            On(field, ControlEvent::GotFocus, [this, &one] { place = &one; });
        }
    }
    Add({.name = PickControl,
         .kind = ControlKind::Button,
         .text = "&Pick on Map",
         .enabled = Picker() != nullptr && Picker()->CanPick()});
    On(PickControl, ControlEvent::Click, [this] { PickOnMap_Click(); });
}

void CircleForm::PickOnMap_Click() {
    const std::optional<PickedPlace> picked = Picker()->Pick(place->what);
    if (picked && !Closed()) {
        std::string lat;
        std::string lon;
        DegMinSec(picked->lat, lat, "LAT", GroupGap);
        DegMinSec(picked->lon, lon, "LON", GroupGap);
        SetText(place->lat, lat);
        SetText(place->lon, lon);
    }
    SetFocus(place->lat);
}

void CircleForm::AddWidth() {
    const double pixels = static_cast<double>(Design.*line.lineWidth) / Design.TwipsPerPixelY;
    Add({.name = line.width,
         .kind = ControlKind::Spin,
         .caption = line.widthCaption,
         .value = RoundToInt16(std::clamp<double>(pixels, MinPixels, MaxPixels)),
         .minimum = MinPixels,
         .maximum = MaxPixels});
}

void CircleForm::AddColor() {
    Add({.name = line.colorSpin,
         .kind = ControlKind::Spin,
         .caption = line.colorCaption,
         .value = std::clamp<int>(Design.*line.colorIndex, 0, LastCell),
         .minimum = 0,
         .maximum = LastCell});
    Add({.name = line.colorPicture,
         .kind = ControlKind::Button,
         .text = "Select Colo&r",
         .colors = {ColorBits(Design.*line.color)}});
    On(line.colorSpin, ControlEvent::Change, [this] { ColorSpin_Change(); });
    On(line.colorPicture, ControlEvent::Click, [this] { ColorPicture_Click(); });
}

void CircleForm::AddShowAndButtons(std::function<void()> ok) {
    Add({.name = ShowControl, .kind = ControlKind::Check, .text = "Show on &map", .value = 1});
    AddOkAndCancel(std::move(ok));
    Edit("Cancel").text = line.cancelText;
}

void CircleForm::ColorSpin_Change() {
    const int cell = At(line.colorSpin).value;
    Design.*line.color = SolidColor(ColorOfCell(static_cast<std::size_t>(cell)));
    Design.*line.colorIndex = static_cast<std::int16_t>(cell);
    ShowColor();
}

void CircleForm::ColorPicture_Click() {
    Design.ColorPurpose = line.purpose;
    Colors256 picker;
    Machine().forms->Show(picker);
    ShowColor();
}

void CircleForm::ShowColor() {
    Edit(line.colorSpin).value = std::clamp<int>(Design.*line.colorIndex, 0, LastCell);
    Edit(line.colorPicture).colors = {ColorBits(Design.*line.color)};
}

void CircleForm::StoreLine() const {
    Design.*line.lineWidth = static_cast<float>(At(line.width).value) * Design.TwipsPerPixelY;
    Design.*line.defined = At(ShowControl).value != 0;
}

void CircleForm::Cancel_Click() {
    Design.*line.color = colorBefore;
    Design.*line.colorIndex = colorIndexBefore;
    DesignFields::Cancel_Click();
}

} // namespace quelmont
