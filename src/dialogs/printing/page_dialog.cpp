#include "dialogs/printing/page_dialog.h"

#include "core/map_design.h"
#include "core/number_text.h"
#include "core/print_units.h"
#include "platform/printers.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quelmont {

namespace {

constexpr const char* LengthMask = "%%%.%%";
constexpr const char* LengthPicture = "000.00";
constexpr float LargestShown = 999.99F;

std::array<float*, 8> Lengths() {
    return {&Design.PrintLeft,  &Design.PrintTop,    &Design.PrintWidth, &Design.PrintHeight,
            &Design.ReportLeft, &Design.ReportRight, &Design.ReportTop,  &Design.ReportBottom};
}

} // namespace

PageDialog::PageDialog(std::string className, std::string caption)
    : DesignDialog(std::move(className), std::move(caption)) {
    Design.DialogCancelled = true;
}

PageDialog::Before PageDialog::BeforeNow() {
    Before now{
        Design.PrintUnitTwips, {}, Design.PrinterOrientation, Design.CenterHorizontal, Design.CenterVertical};
    const auto lengths = Lengths();
    std::transform(lengths.begin(), lengths.end(), now.lengths.begin(),
                   [](const float* length) { return *length; });
    return now;
}

bool PageDialog::InCentimetres() { return Design.PrintUnitTwips == CentimetreTwips; }

void PageDialog::AddPageOptions(std::string_view orientationFrame, std::string_view unitsFrame) {
    const auto add = [this](const char* name, const char* text, std::string_view frame, bool chosen) {
        Add({.name = name,
             .kind = ControlKind::Option,
             .text = text,
             .value = chosen ? 1 : 0,
             .frame = std::string(frame)});
    };
    Add({.name = std::string(orientationFrame), .kind = ControlKind::Frame, .text = "Paper Orientation"});
    const bool turned = Design.PrinterOrientation == Landscape;
    add("Portrait", "&Portrait", orientationFrame, !turned);
    add("Landscape", "L&andscape", orientationFrame, turned);
    Add({.name = std::string(unitsFrame), .kind = ControlKind::Frame, .text = "Units"});
    add("Inches", "&Inches", unitsFrame, !InCentimetres());
    add("Centimeters", "Centi&meters", unitsFrame, InCentimetres());
    On("Portrait", ControlEvent::Click, [this] { TakeOrientation(Portrait); });
    On("Landscape", ControlEvent::Click, [this] { TakeOrientation(Landscape); });
    On("Inches", ControlEvent::Click, [this] { TakeUnit(InchTwips); });
    On("Centimeters", ControlEvent::Click, [this] { TakeUnit(CentimetreTwips); });
}

void PageDialog::AddLength(std::string_view name, std::string_view caption) {
    Add({.name = std::string(name),
         .kind = ControlKind::Edit,
         .caption = std::string(caption),
         .mask = LengthMask});
}

const std::string& PageDialog::ShowLength(std::string_view name, float length) {
    SetText(name, FormatNumber(std::clamp(length, 0.0F, LargestShown), LengthPicture));
    return At(name).text;
}

void PageDialog::TakeOrientation(std::int16_t orientation) { Design.PrinterOrientation = orientation; }

void PageDialog::TakeUnit(std::int32_t twips) { ChangePrintUnit(twips); }

void PageDialog::Cancel_Click() {
    Design.PrintUnitTwips = before.unit;
    const auto lengths = Lengths();
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        *lengths[i] = before.lengths[i];
    }
    Design.PrinterOrientation = before.orientation;
    Design.CenterHorizontal = before.centerHorizontal;
    Design.CenterVertical = before.centerVertical;
    DesignDialog::Cancel_Click();
}

} // namespace quelmont
