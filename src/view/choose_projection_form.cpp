#include "view/choose_projection_form.h"

#include "core/map_design.h"
#include "projection/projection_table.h"

#include <array>
#include <string>

namespace quelmont {

namespace {

struct PurposeOption {
    const char* name;
    const char* text;
    MapPurpose purpose;
};

constexpr std::array<PurposeOption, MapPurposes> PurposeOptions = {{
    {"PurposeAreas", "Comparing &areas", MapPurpose::Areas},
    {"PurposeDirections", "&Directions and routes", MapPurpose::Directions},
    {"PurposeShapes", "&Shapes of coasts and countries", MapPurpose::Shapes},
    {"PurposeDistances", "Distances &from one place", MapPurpose::Distances},
    {"PurposeLook", "A &look at the whole", MapPurpose::Look},
}};

} // namespace

ChooseProjectionForm::ChooseProjectionForm()
    : DesignDialog("ChooseProjection", "Help Me Choose a Projection"), ownRegion(RegionOfDesign()) {
    Design.DialogCancelled = true;
    AddPurposes();
    AddRegions();
    Add({.name = "Candidates", .kind = ControlKind::List, .caption = "&Projections, the best first"});
    AddOkAndCancel([this] {
        if (Chosen() != nullptr) {
            CloseAccepted();
        }
    });
    Answer();
}

void ChooseProjectionForm::AddPurposes() {
    Add({.name = "Purpose", .kind = ControlKind::Frame, .text = "The map is for"});
    for (const PurposeOption& option : PurposeOptions) {
        Add({.name = option.name,
             .kind = ControlKind::Option,
             .text = option.text,
             .value = option.purpose == MapPurpose::Areas ? 1 : 0,
             .frame = "Purpose"});
        On(option.name, ControlEvent::Click, [this] { Answer(); });
    }
}

void ChooseProjectionForm::AddRegions() {
    Add({.name = "Region", .kind = ControlKind::Frame, .text = "Region"});
    Add({.name = "RegionBounds",
         .kind = ControlKind::Option,
         .text = "The &bounds of the map as they are",
         .value = 1,
         .frame = "Region"});
    Add({.name = "RegionWorld", .kind = ControlKind::Option, .text = "The &whole world", .frame = "Region"});
    for (const char* const option : {"RegionBounds", "RegionWorld"}) {
        On(option, ControlEvent::Click, [this] { Answer(); });
    }
    Add({.name = "RegionText", .kind = ControlKind::Label});
}

const ProjectionCandidate* ChooseProjectionForm::Chosen() const {
    const int line = At("Candidates").value;
    return line >= 0 && static_cast<std::size_t>(line) < candidates.size()
               ? &candidates[static_cast<std::size_t>(line)]
               : nullptr;
}

void ChooseProjectionForm::Answer() {
    MapPurpose purpose = MapPurpose::Areas;
    for (const PurposeOption& option : PurposeOptions) {
        purpose = At(option.name).value != 0 ? option.purpose : purpose;
    }
    const MapRegion region = At("RegionWorld").value != 0 ? WholeWorld() : ownRegion;
    candidates = CandidatesFor(purpose, region);
    Control& list = Edit("Candidates");
    list.items.clear();
    for (const ProjectionCandidate& candidate : candidates) {
        list.items.push_back(std::string(PropertiesOf(candidate.projNum).ProjName) + "\n" +
                             std::string(candidate.reason) + "\n" + ErrorsText(candidate.errors));
    }
    list.value = candidates.empty() ? -1 : 0;
    Edit("RegionText").text = RegionText(region);
    Edit("OK").enabled = !candidates.empty();
}

} // namespace quelmont
