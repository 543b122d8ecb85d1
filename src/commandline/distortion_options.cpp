#include "commandline/distortion_options.h"

#include "areas/equal_circles.h"
#include "commandline/angle_value.h"
#include "commandline/option_values.h"
#include "core/angle_field.h"
#include "core/angle_text.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "mainwindow/distortion_commands.h"

#include <string>
#include <string_view>

namespace quelmont {

namespace {

/// An arc in degrees from 36 seconds, the least of both circles and their spacing.
double ArcValue(std::string_view value, const AngleField& rule) {
    const std::string text = AngleValue(AngleFieldKind::Arc, value);
    const std::string fault = AngleFieldFault(rule, text);
    if (!fault.empty()) {
        throw BadValue("\"" + std::string(value) + "\": " + fault);
    }
    const double degrees = DegreesOf(ArcSeconds(text));
    if (!IsCircleRadius(degrees) && !IsCircleSpacing(degrees)) {
        throw BadValue("\"" + std::string(value) + "\" is less than 36 seconds");
    }
    return degrees;
}

const AngleField RadiusRule{AngleFieldKind::Arc, "", 45, "Radius cannot be > 45  00  00"};
const AngleField SpacingRule{AngleFieldKind::Arc, "", 90, "Spacing cannot be > 90  00  00"};

} // namespace

void AddDistortionOptions(const AddOption& add, DistortionOptions& distortion) {
    add("--distortion", "ellipses|area|angle",
        "What shows how far the map distorts the globe: images of equal\n"
        "circles, or shades of the scale of areas or the error of angles (none)",
        [&distortion](const std::string& value) {
            distortion.kind = DistortionKindOf(value);
            if (!distortion.kind) {
                throw BadValue("\"" + value + "\" is none of ellipses, area, angle, none");
            }
        });
    add("--distortion-radius", "A", "Radius of the circles, degrees of arc (5)",
        [&distortion](const std::string& value) { distortion.radius = ArcValue(value, RadiusRule); });
    add("--distortion-spacing", "A", "Degrees between their centres (30)",
        [&distortion](const std::string& value) { distortion.spacing = ArcValue(value, SpacingRule); });
}

void TakeDistortion(const DistortionOptions& distortion) {
    const DistortionChoice proposal;
    Design.Distortion = {distortion.kind.value_or(proposal.kind), distortion.radius.value_or(proposal.radius),
                         distortion.spacing.value_or(proposal.spacing)};
}

} // namespace quelmont
