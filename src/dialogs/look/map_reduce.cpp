#include "dialogs/look/map_reduce.h"

#include "core/map_design.h"
#include "core/rounding.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr const char* Explanation =
    "The Percent Full Screen spin button allows you to reduce the size of the map displayed on the "
    "screen.\n\nSelecting 100 Percent Full Screen plots the largest possible map on the "
    "screen.\n\nSelecting less than 100 Percent Full Screen draws a map with empty margins around all "
    "sides of the map.  The margins allow text to be added to the map without writing over the map "
    "itself.";

/// A design that was recalled on another screen can be smaller.
constexpr int SmallestPercent = 10;
constexpr int LargestPercent = 100;

} // namespace

MapReduceForm::MapReduceForm() : DesignDialog("MapReduce", "Select Map Size") {
    Add({.name = "Label2", .kind = ControlKind::Label, .text = Explanation});
    Add({.name = "MapReduction",
         .kind = ControlKind::Spin,
         .caption = "&Percent Full Screen:",
         .value = std::clamp<int>(RoundToInt16(Design.MapReduce * 100.0), SmallestPercent, LargestPercent),
         .minimum = SmallestPercent,
         .maximum = LargestPercent});
    Add({.name = "DrawMap", .kind = ControlKind::Button, .text = "&Draw Map"});
    AddCancel();
    On("DrawMap", ControlEvent::Click, [this] { DrawMap_Click(); });
    SetDefaultButton("DrawMap");
}

void MapReduceForm::DrawMap_Click() {
    Design.MapReduce = At("MapReduction").value / 100.0;
    CloseAccepted();
}

} // namespace quelmont
