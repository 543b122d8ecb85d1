#include "dialogs/exports/vector_scale.h"

#include "core/map_design.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr const char* Explanation =
    "Text in CGM and DXF files exported from Quelmont, and viewed in other applications is often larger than "
    "the original text displayed by Quelmont.\n\n"
    "The Scale Factor spin button allows you to decrease (or increase) the length of text displayed by your "
    "application.\n\n"
    "To decrease the width of text displayed by your application, reduce the value of the spin button to "
    "less than 100%.\n\n"
    "To increase the width of text displayed by your application, increase the value of the spin button to "
    "more than 100%.";

constexpr int MinPercent = 1;
constexpr int MaxPercent = 1000;

} // namespace

VectorScale::VectorScale() : DesignDialog("VectorScale", "Scale Factor for Text in CGM & DXF Files") {
    Add({.name = "Label1", .kind = ControlKind::Label, .text = Explanation});
    Add({.name = "VecScale",
         .kind = ControlKind::Spin,
         .caption = "&Scale Factor (%):",
         .value = std::clamp<int>(Design.TextScalePercent, MinPercent, MaxPercent),
         .minimum = MinPercent,
         .maximum = MaxPercent});
    AddOkAndCancel([this] { OK_Click(); });
}

void VectorScale::OK_Click() {
    Design.TextScalePercent = static_cast<std::int16_t>(At("VecScale").value);
    CloseAccepted();
}

} // namespace quelmont
