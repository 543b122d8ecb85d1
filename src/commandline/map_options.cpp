#include "commandline/map_options.h"

#include "commandline/option_values.h"
#include "mainwindow/start_up.h"
#include "mapfiles/feature_rows.h"
#include "mapfiles/map_formats.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <utility>

namespace quelmont {

namespace {

/// The options of map files, bound to one MapOptions.
class MapOptionTable {
public:
    MapOptionTable(CLI::App& app_, const std::string& group_, const AddOption& add_, MapOptions& maps_)
        : app(app_), group(group_), add(add_), maps(maps_) {}
    void AddMaps();

private:
    using TakeOfMap = std::function<void(MapFileOptions& map, const std::string& value)>;

    void AddOfMap(const std::string& name, const char* type, const char* description, TakeOfMap take);
    void AddOfLabels(const std::string& name, const char* type, const char* description, TakeOfMap take);
    void AddLabels();

    CLI::App& app;
    const std::string& group;
    const AddOption& add;
    MapOptions& maps; ///< outlives the table, which is gone when the parser fills it
};

/// An option that belongs to the --map before it, and to the default map before the first. It is taken when
/// it is read, not at the end.
void MapOptionTable::AddOfMap(const std::string& name, const char* type, const char* description,
                              TakeOfMap take) {
    add(name, type, description, [&list = maps, name, take = std::move(take)](const std::string& value) {
        if (list.files.empty()) {
            take(list.defaultMap, value);
            list.namesOfDefaultMap.push_back(name);
        } else {
            take(list.files.back(), value);
        }
    })->trigger_on_parse();
}

/// An option of the labels that the points of a map file may have.
void MapOptionTable::AddOfLabels(const std::string& name, const char* type, const char* description,
                                 TakeOfMap take) {
    AddOfMap(name, type, description,
             [&list = maps, take = std::move(take)](MapFileOptions& map, const std::string& value) {
                 // Before the first --map they may be for the files of a design, which is yet to be read.
                 if (!list.files.empty() && !MayHaveLabels(map.file)) {
                     throw BadValue("the points of " + map.file + " have no labels");
                 }
                 take(map, value);
             });
}

void MapOptionTable::AddLabels() {
    app.add_flag("--no-labels", maps.noLabels, "No labels beside the points of any map")->group(group);
    AddOfLabels("--label-font", "NAME", "Font of its labels (Arial)",
                [](MapFileOptions& file, const std::string& value) {
                    if (value.empty()) {
                        throw BadValue("\"\" is no font");
                    }
                    file.labelFont = value;
                });
    AddOfLabels("--label-size", "4..200", "Their size in points (10)",
                [](MapFileOptions& file, const std::string& value) {
                    file.labelSize = NumberValue(value, SmallestFontSize, LargestFontSize);
                });
    AddOfLabels("--label-color", "RRGGBB", "Their colour (000000)",
                [](MapFileOptions& file, const std::string& value) { file.labelColor = ColorOf(value); });
}

void MapOptionTable::AddMaps() {
    maps.defaultMap.file = DefaultMapTitle;
    CLI::Option* const map =
        add("--map", "FILE", "A map file, instead of the default map",
            [&list = maps](const std::string& value) { list.files.emplace_back().file = value; });
    map->trigger_on_parse();
    app.add_flag("--no-map", maps.noMap, "No map file at all")->group(group)->excludes(map);
    AddOfMap("--symbol", "1..12",
             "1 lines, 2 dots, 3 plus, 4 cross, 5/6 square, 7/8 diamond, 9/10\n"
             "triangle, 11/12 circle, open/filled (1)",
             [](MapFileOptions& file, const std::string& value) {
                 file.symbol = static_cast<std::int16_t>(NumberValue(value, 1, 12));
             });
    AddOfMap("--feature-color", "RRGGBB", "One colour for all its features",
             [](MapFileOptions& file, const std::string& value) { file.color = ColorOf(value); });
    AddOfMap("--line-width", "PX", "Width of lines (1)", [](MapFileOptions& file, const std::string& value) {
        file.lineWidth = NumberValue(value, 1, LargestPixels);
    });
    AddOfMap("--symbol-size", "PX", "Radius of symbols (3)",
             [](MapFileOptions& file, const std::string& value) {
                 file.symbolSize = NumberValue(value, 1, LargestPixels);
             });
    AddOfMap("--border-width", "PX", "Outline of open symbols (1)",
             [](MapFileOptions& file, const std::string& value) {
                 file.borderWidth = NumberValue(value, 1, LargestPixels);
             });
    AddOfMap("--hide", "N[,N...]", "Feature rows not to draw",
             [](MapFileOptions& file, const std::string& value) {
                 const std::vector<int> rows =
                     NumbersValue(value, 1, static_cast<int>(FeatureRows(file.file).size()));
                 file.hidden.insert(file.hidden.end(), rows.begin(), rows.end());
             });
    AddLabels();
}

} // namespace

void AddMapOptions(CLI::App& app, const std::string& group, const AddOption& add, MapOptions& maps) {
    MapOptionTable(app, group, add, maps).AddMaps();
}

} // namespace quelmont
