#include "dialogs/look/map_frame.h"

#include "core/angle_field.h"
#include "core/angle_text.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "surround/scale_bar_place.h"

#include <algorithm>
#include <array>

namespace quelmont {

namespace {

struct UnitOption {
    const char* name;
    const char* text;
    ScaleBarUnit unit;
};

constexpr std::array Units = std::to_array<UnitOption>({
    {"NoBar", "No &bar", ScaleBarUnit::None},
    {"Kilometers", "&Kilometers", ScaleBarUnit::Kilometres},
    {"StatuteMiles", "Statute &miles", ScaleBarUnit::StatuteMiles},
    {"NauticalMiles", "&Nautical miles", ScaleBarUnit::NauticalMiles},
});

const AngleField LatitudeRule{AngleFieldKind::Latitude, "Error: Latitude of scale bar", 90,
                              "Latitude cannot be > 90  00  00"};

} // namespace

MapFrame::MapFrame() : DesignFields("MapFrame", "Frame and Scale") {
    Design.DialogCancelled = true;
    Add({.name = "Frame",
         .kind = ControlKind::Check,
         .text = "&Frame along the outline of the map, with ticks at the grid",
         .value = Design.Frame.frame ? 1 : 0});
    AddUnits();
    AddLatitude();
    Add({.name = "Note", .kind = ControlKind::Label, .text = ""});
    AddOkAndCancel([this] { OK_Click(); });
    ShowNote();
}

void MapFrame::AddUnits() {
    Add({.name = "ScaleBar", .kind = ControlKind::Frame, .text = "Scale Bar"});
    for (const UnitOption& unit : Units) {
        Add({.name = unit.name,
             .kind = ControlKind::Option,
             .text = unit.text,
             .value = Design.Frame.unit == unit.unit ? 1 : 0,
             .frame = "ScaleBar"});
        On(unit.name, ControlEvent::Click, [this] { ShowNote(); });
    }
}

void MapFrame::AddLatitude() {
    Add({.name = "OwnLatitude",
         .kind = ControlKind::Check,
         .text = "True at a latitude of &your choice",
         .value = Design.Frame.latitude ? 1 : 0});
    On("OwnLatitude", ControlEvent::Click, [this] { ShowNote(); });
    DegMinSec(Design.Frame.latitude.value_or(0.0), latitude, "LAT", 4);
    AddField("Latitude", "&Latitude", LatitudeMask, latitude);
    CheckWhenLeft("Latitude",
                  [this] { return CheckAngleField("Latitude", LatitudeRule, TextOf("Latitude")); });
    On("Latitude", ControlEvent::Change, [this] { ShowNote(); });
}

FrameChoice MapFrame::Chosen() const {
    FrameChoice choice;
    choice.frame = At("Frame").value != 0;
    const auto* const chosen = std::find_if(
        Units.begin(), Units.end(), [this](const UnitOption& unit) { return At(unit.name).value != 0; });
    choice.unit = chosen == Units.end() ? ScaleBarUnit::None : chosen->unit;
    if (At("OwnLatitude").value != 0) {
        choice.latitude = DegreesOf(LatitudeSeconds(TextOf("Latitude")));
    }
    return choice;
}

void MapFrame::ShowNote() {
    const FrameChoice choice = Chosen();
    const bool bar = choice.unit != ScaleBarUnit::None;
    Edit("OwnLatitude").enabled = bar;
    Edit("Latitude").enabled = bar && choice.latitude.has_value();
    Edit("Note").text = bar ? NoteOfScaleBar(choice.latitude) : "";
}

void MapFrame::OK_Click() {
    Design.Frame = Chosen();
    CloseAccepted();
}

} // namespace quelmont
