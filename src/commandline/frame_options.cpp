#include "commandline/frame_options.h"

#include "commandline/angle_value.h"
#include "commandline/option_values.h"
#include "core/angle_field.h"
#include "core/angle_text.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "surround/scale_bar_place.h"
#include "surround/scale_bar_units.h"
#include "surround/surround_state.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <string_view>

namespace quelmont {

namespace {

double LatitudeValue(std::string_view value) {
    const AngleField rule{AngleFieldKind::Latitude, "", 90, "Latitude cannot be > 90  00  00"};
    const std::string text = AngleValue(AngleFieldKind::Latitude, value);
    if (const std::string fault = AngleFieldFault(rule, text); !fault.empty()) {
        throw BadValue("\"" + std::string(value) + "\": " + fault);
    }
    return DegreesOf(LatitudeSeconds(text));
}

void TakeBar(FrameOptions& frame, std::string_view value) {
    const std::size_t at = std::min(value.find('@'), value.size());
    const std::string_view word = value.substr(0, at);
    const std::optional<ScaleBarUnit> unit = ScaleBarUnitOf(word);
    if (!unit) {
        throw BadValue("\"" + std::string(word) + "\" is none of km, mi, nmi, none");
    }
    frame.unit = unit;
    frame.latitude.reset();
    if (at < value.size()) {
        frame.latitude = LatitudeValue(value.substr(at + 1));
    }
}

} // namespace

void AddFrameOptions(CLI::App& app, const std::string& group, const AddOption& add, FrameOptions& frame) {
    app.add_flag_callback(
           "--frame", [&frame] { frame.frame = true; },
           "A frame along the map's outline, with ticks at the grid")
        ->disable_flag_override()
        ->group(group);
    add("--scale-bar", "km|mi|nmi[@LAT]",
        "A scale bar in kilometres, statute or nautical miles, true where the\n"
        "map has its scale or at a latitude; it says where (none)",
        [&frame](const std::string& value) { TakeBar(frame, value); });
}

void TakeFrame(const FrameOptions& frame) {
    Design.Frame.frame = Design.Frame.frame || frame.frame;
    if (frame.unit) {
        Design.Frame.unit = *frame.unit;
        Design.Frame.latitude = frame.latitude;
    }
}

std::string BarLeftOut(const FrameOptions& frame) {
    const bool asked = frame.unit && *frame.unit != ScaleBarUnit::None;
    return asked && !PlaceOfScaleBar(frame.latitude) ? NoteOfScaleBar(frame.latitude) : "";
}

std::string BarWithoutRoom(const FrameOptions& frame) {
    const bool asked = frame.unit && *frame.unit != ScaleBarUnit::None;
    return asked && !SurroundNow.bar && PlaceOfScaleBar(frame.latitude)
               ? "The picture has no room for a scale bar that is true for all of its length."
               : "";
}

} // namespace quelmont
