#include "dialogs/look/distortion_form.h"

#include "areas/equal_circles.h"
#include "core/angle_field.h"
#include "core/angle_text.h"
#include "core/degrees.h"
#include "core/map_design.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace quelmont {

namespace {

struct KindOption {
    const char* name;
    const char* text;
    DistortionKind kind;
};

constexpr std::array Kinds = std::to_array<KindOption>({
    {"NoDistortion", "&Nothing", DistortionKind::None},
    {"Ellipses", "Images of &equal circles", DistortionKind::Ellipses},
    {"AreaScale", "Shades of the scale of &areas", DistortionKind::Area},
    {"AngleError", "Shades of the error of an&gles", DistortionKind::Angle},
});

const AngleField RadiusRule{AngleFieldKind::Arc, "Error: Radius of circles", 45,
                            "Radius cannot be > 45  00  00", "Radius cannot be 0"};
const AngleField SpacingRule{AngleFieldKind::Arc, "Error: Spacing of circles", 90,
                             "Spacing cannot be > 90  00  00", "Spacing cannot be 0"};

} // namespace

DistortionForm::DistortionForm() : DesignFields("Distortion", "Distortion") {
    Design.DialogCancelled = true;
    AddKinds();
    AddCircles();
    Add({.name = "Note", .kind = ControlKind::Label, .text = ""});
    AddOkAndCancel([this] { OK_Click(); });
    ShowNote();
}

void DistortionForm::AddKinds() {
    Add({.name = "Kind", .kind = ControlKind::Frame, .text = "Show on the Map"});
    for (const KindOption& kind : Kinds) {
        Add({.name = kind.name,
             .kind = ControlKind::Option,
             .text = kind.text,
             .value = Design.Distortion.kind == kind.kind ? 1 : 0,
             .frame = "Kind"});
        On(kind.name, ControlEvent::Click, [this] { ShowNote(); });
    }
}

void DistortionForm::AddCircles() {
    constexpr std::int16_t gap = 4;
    DegMinSec(Design.Distortion.radius, radius, "ARC", gap);
    DegMinSec(Design.Distortion.spacing, spacing, "ARC", gap);
    AddField("Radius", "&Radius of circles", ArcMask, radius);
    AddField("Spacing", "&Spacing of circles", ArcMask, spacing);
    CheckWhenLeft("Radius", [this] { return CheckAngleField("Radius", RadiusRule, TextOf("Radius")); });
    CheckWhenLeft("Spacing", [this] { return CheckAngleField("Spacing", SpacingRule, TextOf("Spacing")); });
    On("Radius", ControlEvent::Change, [this] { ShowNote(); });
    On("Spacing", ControlEvent::Change, [this] { ShowNote(); });
}

DistortionChoice DistortionForm::Chosen() const {
    const auto* const chosen = std::find_if(
        Kinds.begin(), Kinds.end(), [this](const KindOption& kind) { return At(kind.name).value != 0; });
    return {chosen == Kinds.end() ? DistortionKind::None : chosen->kind,
            DegreesOf(ArcSeconds(TextOf("Radius"))), DegreesOf(ArcSeconds(TextOf("Spacing")))};
}

void DistortionForm::ShowNote() {
    const DistortionChoice choice = Chosen();
    const bool circles = choice.kind == DistortionKind::Ellipses;
    Edit("Radius").enabled = circles;
    Edit("Spacing").enabled = circles;
    const std::optional<std::size_t> count =
        circles && IsCircleRadius(choice.radius) && IsCircleSpacing(choice.spacing) ? CountCircles(choice)
                                                                                    : std::nullopt;
    Edit("Note").text = !count        ? ""
                        : *count == 0 ? "No circle lies on this map: a smaller spacing has more."
                        : *count == 1 ? "One circle lies on this map."
                        : *count > MostEqualCircles ? "More circles than a map can show."
                                                    : std::to_string(*count) + " circles lie on this map.";
}

void DistortionForm::OK_Click() {
    const DistortionChoice choice = Chosen();
    if (choice.kind != DistortionKind::Ellipses) {
        // The fields are not used now and need not be valid.
        Design.Distortion.kind = choice.kind;
        CloseAccepted();
        return;
    }
    if (!IsCircleRadius(choice.radius)) {
        Allowed(RefuseAcceptance("Radius", RadiusRule.title, "Radius cannot be < 00  00  36"));
        return;
    }
    if (!IsCircleSpacing(choice.spacing)) {
        Allowed(RefuseAcceptance("Spacing", SpacingRule.title, "Spacing cannot be < 00  00  36"));
        return;
    }
    if (CountCircles(choice).value_or(0) > MostEqualCircles) {
        Allowed(RefuseAcceptance("Spacing", SpacingRule.title,
                                 "A map can show " + std::to_string(MostEqualCircles) +
                                     " circles. Choose a larger spacing."));
        return;
    }
    Design.Distortion = choice;
    CloseAccepted();
}

} // namespace quelmont
