#include "dialogs/files/symbol_size_spin.h"

#include "core/map_design.h"
#include "core/rounding.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr int MinPixels = 1;
constexpr int MaxPixels = 600;

struct Texts {
    const char* caption;
    const char* label;
};

Texts TextsOf(SymbolSizeKind kind) {
    switch (kind) {
    case SymbolSizeKind::LineWidth:
        return {"Line Width", "Line &Width:"};
    case SymbolSizeKind::SymbolRadius:
        return {"Symbol Radius", "Symbol &Radius:"};
    case SymbolSizeKind::BorderWidth:
        break;
    }
    return {"Border Width of Symbol", "Border &Width:"};
}

} // namespace

SymbolSizeSpin::SymbolSizeSpin(SymbolSizeKind kind, double pixels)
    : DesignDialog("SymbolSizeSpin", TextsOf(kind).caption) {
    Design.DialogCancelled = true;
    Add({.name = "SymbolSize",
         .kind = ControlKind::Spin,
         .caption = TextsOf(kind).label,
         .value = RoundToInt16(std::clamp<double>(pixels, MinPixels, MaxPixels)),
         .minimum = MinPixels,
         .maximum = MaxPixels});
    Add({.name = "SizeUnit", .kind = ControlKind::Label, .text = "Size in pixels"});
    Add({.name = "ButtonOK", .kind = ControlKind::Button, .text = "&OK"});
    On("ButtonOK", ControlEvent::Click, [this] { CloseAccepted(); });
    SetDefaultButton("ButtonOK");
    // There is no button for it: Escape and the close button leave the number as it was.
    On("Cancel", ControlEvent::Click, [this] { Cancel_Click(); });
    SetCancelButton("Cancel");
}

} // namespace quelmont
