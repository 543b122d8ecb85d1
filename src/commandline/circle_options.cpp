#include "commandline/circle_options.h"

#include "circles/small_circle.h"
#include "commandline/angle_value.h"
#include "commandline/option_values.h"

#include <CLI/CLI.hpp>

namespace quelmont {

namespace {

constexpr AngleFieldKind Latitude = AngleFieldKind::Latitude;
constexpr AngleFieldKind Longitude = AngleFieldKind::Longitude;
constexpr AngleFieldKind Arc = AngleFieldKind::Arc;

/// The line of a kind of circles.
void AddCircleLine(const AddOption& add, OptionsOfCircles& ofCircles, CLI::Option* circle,
                   const std::string& name, const char* table, CircleLine& line) {
    CLI::Option* const color = add("--" + name + "-color", "RRGGBB", "Its colour (0000FF)",
                                   [&line](const std::string& value) { line.color = ColorOf(value); });
    CLI::Option* const width =
        add("--" + name + "-width", "PX", "Its width (3)",
            [&line](const std::string& value) { line.width = NumberValue(value, 1, LargestPixels); });
    CLI::Option* const save = add("--save-" + name, "FILE", table, [&line](const std::string& value) {
        if (value.empty()) {
            throw BadValue("\"\" is no file");
        }
        line.table = value;
    });
    for (CLI::Option* const option : {color, width, save}) {
        ofCircles.emplace_back(option, circle);
    }
}

} // namespace

OptionsOfCircles AddCircleOptions(const AddOption& add, CircleOptions& circles) {
    OptionsOfCircles ofCircles;
    CLI::Option* const great =
        add("--great-circle", "A,A,A,A", "Latitude and longitude of a route's start, then of its end",
            [&circles](const std::string& value) {
                circles.greatCircle = AngleValues<4>({Latitude, Longitude, Latitude, Longitude}, value);
            });
    AddCircleLine(add, ofCircles, great, "great-circle", "Save the route as a text file (.prn)",
                  circles.greatCircleLine);
    CLI::Option* const small =
        add("--small-circle", "A,A,A", "Latitude, longitude and radius of a circle about a place",
            [&circles](const std::string& value) {
                circles.smallCircle = AngleValues<3>({Latitude, Longitude, Arc}, value);
            });
    CLI::Option* const count = add("--circles", "1..80", "So many circles, the others within it (3)",
                                   [&circles](const std::string& value) {
                                       circles.count =
                                           static_cast<std::int16_t>(NumberValue(value, 1, MostSmallCircles));
                                   });
    ofCircles.emplace_back(count, small);
    AddCircleLine(add, ofCircles, small, "small-circle", "Save the circles as a text file (.prn)",
                  circles.smallCircleLine);
    return ofCircles;
}

} // namespace quelmont
