#include "mainwindow/map_reduce.h"

#include "core/map_design.h"
#include "core/rounding.h"

namespace quelmont {

namespace {

constexpr const char* Explanation =
    "The Percent Full Screen spin button allows you to reduce the size of the map displayed on the "
    "screen.\n\nSelecting 100 Percent Full Screen plots the largest possible map on the "
    "screen.\n\nSelecting less than 100 Percent Full Screen draws a map with empty margins around all "
    "sides of the map.  The margins allow text to be added to the map without writing over the map "
    "itself.";

constexpr int HelpPageOfMapSize = 100;

} // namespace

MapReduceForm::MapReduceForm() : Form("MapReduce", "Select Map Size") {
    Add({.name = "Label2", .kind = ControlKind::Label, .text = Explanation});
    Add({.name = "Label1", .kind = ControlKind::Label, .text = "&Percent Full Screen:"});
    Add({.name = "MapReduction",
         .kind = ControlKind::Spin,
         .text = "",
         .value = RoundToInt16(Design.MapReduce * 100.0),
         .minimum = 10,
         .maximum = 100});
    Add({.name = "DrawMap", .kind = ControlKind::Button, .text = "&Draw Map"});
    Add({.name = "Cancel", .kind = ControlKind::Button, .text = "&Cancel"});
    On("DrawMap", ControlEvent::Click, [this] { DrawMap_Click(); });
    On("Cancel", ControlEvent::Click, [this] { Cancel_Click(); });
    SetDefaultButton("DrawMap");
    SetCancelButton("Cancel");
    SetHelpPage(HelpPageOfMapSize);
}

void MapReduceForm::DrawMap_Click() {
    Design.MapReduce = At("MapReduction").value / 100.0;
    Design.DialogCancelled = false;
    Close();
}

void MapReduceForm::Cancel_Click() {
    Design.DialogCancelled = true;
    Close();
}

} // namespace quelmont
