#include "convert/convert_options.h"

#include "convert/file_kind.h"
#include "core/file_names.h"
#include "core/split_text.h"
#include "mapfiles/map_formats.h"
#include "platform/system.h"
#include "projection/utm.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <functional>
#include <string_view>

namespace quelmont {

namespace {

constexpr const char* HelpText =
    R"(Turns geographic data into map files of Quelmont, and map files into modern data.

Usage: quelmont-convert [OPTIONS] INPUT OUTPUT

  INPUT     A map file of Quelmont, or anything that GDAL opens: Shapefile,
            GeoPackage, GeoJSON, KML, GPX, FlatGeobuf...
  OUTPUT    The ending chooses the format:
              .all .cci .map .pnt   whole minutes of arc, ten features
              .pkv .pkd             seconds of arc, 36 features
              .grv .grf             seconds of arc, 72 features
              .dat                  seconds of arc
              .mps .mp1 .prn        decimal degrees; labels in .prn
              .utm                  metres of a UTM zone; labels
              .gpkg .geojson .json .shp
                                    from a map file, with the columns feature
                                    (number), name, and of .prn and .utm label

Options:
  --layer NAME              The layer of INPUT, when it has several
  --where EXPRESSION        Only what fits, such as "scalerank <= 4 AND name <> ''"
  --bounds W,S,E,N          Only what lies inside, cut there; degrees. W > E reaches
                            across 180
  --feature N|NAME|@COLUMN  The row of OUTPUT's features by number or name, or the
                            column of INPUT that tells it; a wrong one lists the
                            rows. Without it: the row that INPUT names, if it is
                            a map file or was made from one, else row 1
  --label COLUMN            Labels for .prn and .utm
  --simplify ARCSECONDS     Drop points where the line moves no more than this
  --utm LON[,SPHEROID[,NORTHING]]
                            Zone of a .utm file: its central longitude, its
                            spheroid (Clarke 1866) and its false northing in
                            metres, 0 to 10000000. Without that it is 10000000 in
                            an OUTPUT that lies south of the equator as a whole,
                            else 0
  --append                  Add to OUTPUT, a map file, if it is there. Several may
                            add to one file at once: each waits for its turn
  --stats                   Print what was written as a line of JSON
  -h, --help                Print this help and exit
  --version                 Print the version and exit

Coordinates of any reference system become latitude and longitude on WGS84, and
stay as they are where there is none; what is straight in a projected system gets
points in between where it is curved in degrees. Polygons become closed lines;
lines that cross 180 degrees are cut there, and steps of more than 20 degrees of
longitude get points in between. Each point of a feature of several points has the
label, of several lines the first one. Lines whose rank or code means nothing are
left out. Whatever is lost, added or changed is told on the error stream.

Examples:
  quelmont-convert ne_10m_coastline.shp coast.pkv --feature 9
  quelmont-convert roads.gpkg roads.grf --layer roads --feature @class \
      --bounds 5,45,16,48
  quelmont-convert towns.geojson towns.prn --label name --where "pop > 100000"
  quelmont-convert tasmania.shp tasmania.utm --utm "147,WGS84 1984,10000000"
  quelmont-convert world.map world.gpkg

Exit status: 0 done; 1 something failed, as the message tells, and OUTPUT is as it
was; 2 the command line is wrong.
)";

/// A whole text as a finite number.
std::optional<double> NumberOf(std::string_view text) {
    double number = 0.0;
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stopped == end && std::isfinite(number) ? std::optional(number)
                                                                           : std::nullopt;
}

/// Decimal degrees, with a sign before or a letter behind: -122.5, 122.5W.
std::optional<double> AngleOf(std::string_view text, char positive, char negative, double most) {
    std::string capitals = Capitals(text);
    double sign = 1.0;
    if (!capitals.empty() && (capitals.back() == positive || capitals.back() == negative)) {
        sign = capitals.back() == negative ? -1.0 : 1.0;
        capitals.pop_back();
        if (capitals.starts_with('-')) {
            return std::nullopt;
        }
    }
    const std::optional<double> number = NumberOf(capitals);
    return number && std::fabs(*number) <= most ? std::optional(sign * *number) : std::nullopt;
}

std::optional<double> LongitudeOf(std::string_view text) { return AngleOf(text, 'E', 'W', 180.0); }
std::optional<double> LatitudeOf(std::string_view text) { return AngleOf(text, 'N', 'S', 90.0); }

[[noreturn]] void RefuseOption(const std::string& option, std::string_view value,
                               const std::string& expected) {
    throw WrongConvertUsage(option + ": \"" + std::string(value) + "\" is no " + expected);
}

LonLatBounds BoundsOf(const std::string& value) {
    const std::vector<std::string_view> parts = SplitAtCommas(value);
    if (parts.size() == 4) {
        const auto west = LongitudeOf(parts[0]);
        const auto south = LatitudeOf(parts[1]);
        const auto east = LongitudeOf(parts[2]);
        const auto north = LatitudeOf(parts[3]);
        if (west && south && east && north && *west != *east && *south < *north) {
            return {*west, *south, *east, *north};
        }
    }
    RefuseOption("--bounds", value, "west, south, east and north in degrees, such as -10,35,30,60");
}

double ToleranceOf(const std::string& value) {
    const std::optional<double> number = NumberOf(value);
    if (!number || !(*number > 0.0)) {
        RefuseOption("--simplify", value, "number of seconds above 0");
    }
    return *number;
}

std::string SpheroidNameOf(std::string_view wanted) {
    std::string names;
    for (const Spheroid& spheroid : Spheroids) {
        if (Capitals(spheroid.name) == Capitals(wanted)) {
            return std::string(spheroid.name);
        }
        names += (names.empty() ? "" : ", ") + std::string(spheroid.name);
    }
    RefuseOption("--utm", wanted, "spheroid; there are " + names);
}

UtmZoneChoice ZoneOf(const std::string& value) {
    const std::vector<std::string_view> parts = SplitAtCommas(value);
    const std::optional<double> lon = parts.empty() ? std::nullopt : LongitudeOf(parts[0]);
    if (!lon || parts.size() > 3) {
        RefuseOption(
            "--utm", value,
            "longitude such as 9 or 93W, perhaps with a spheroid and a false northing behind commas");
    }
    UtmZoneChoice zone;
    zone.CentralLon = *lon;
    if (parts.size() > 1) {
        zone.Spheroid = SpheroidNameOf(parts[1]);
    }
    if (parts.size() > 2) {
        zone.Northing = NumberOf(parts[2]);
        if (!zone.Northing || !(*zone.Northing >= 0.0 && *zone.Northing <= SouthernNorthing)) {
            RefuseOption("--utm", parts[2], "false northing of 0 to 10000000 metres");
        }
    }
    return zone;
}

/// What of the options does not go with the two files.
void CheckFiles(const ConvertOptions& options) {
    const MapFormat* const from = MapFormatOfEnding(options.input);
    const MapFormat* const to = MapFormatOfEnding(options.output);
    if (to == nullptr && VectorFileKindOf(options.output) == nullptr) {
        RefuseOption("OUTPUT", options.output,
                     "name with one of the endings " + MapFileEndings() + ", " + VectorFileEndings());
    }
    if (from == nullptr && to == nullptr) {
        throw WrongConvertUsage("Neither INPUT nor OUTPUT is a map file, which ends in " + MapFileEndings());
    }
    if ((IsMetres(from) || IsMetres(to)) && !options.utm) {
        throw WrongConvertUsage("A .utm file needs --utm, the central longitude of its zone");
    }
    if (options.append && to == nullptr) {
        throw WrongConvertUsage("--append: OUTPUT is no map file");
    }
    if (options.feature && to == nullptr) {
        throw WrongConvertUsage("--feature: OUTPUT is no map file and has no features of its own");
    }
}

void ReadInto(ConvertOptions& options, std::vector<std::string> arguments) {
    CLI::App app("", "quelmont-convert");
    app.set_help_flag("-h,--help", "");
    app.set_version_flag("--version", std::string("quelmont-convert ") + ProgramVersion, "");
    const auto add = [&](const char* name, const std::function<void(const std::string&)>& take) {
        return app.add_option_function<std::string>(name, take, "");
    };
    const auto addText = [&](const char* name, std::optional<std::string>& text) {
        add(name, [&text](const std::string& value) { text = value; });
    };
    add("INPUT", [&](const std::string& value) { options.input = value; })->required();
    add("OUTPUT", [&](const std::string& value) { options.output = value; })->required();
    addText("--layer", options.layer);
    addText("--where", options.where);
    addText("--feature", options.feature);
    addText("--label", options.label);
    add("--bounds", [&](const std::string& value) { options.bounds = BoundsOf(value); });
    add("--simplify", [&](const std::string& value) { options.simplify = ToleranceOf(value); });
    add("--utm", [&](const std::string& value) { options.utm = ZoneOf(value); });
    app.add_flag("--append", options.append, "");
    app.add_flag("--stats", options.stats, "");
    // The parser takes them from the back.
    std::reverse(arguments.begin(), arguments.end());
    app.parse(std::move(arguments));
}

} // namespace

std::variant<ConvertOptions, ConvertAnswer> ReadConvertOptions(const std::vector<std::string>& arguments) {
    ConvertOptions options;
    try {
        ReadInto(options, arguments);
    } catch (const CLI::CallForHelp&) {
        return ConvertAnswer{HelpText};
    } catch (const CLI::CallForVersion& version) {
        return ConvertAnswer{std::string(version.what()) + "\n"};
    } catch (const CLI::ParseError& error) {
        throw WrongConvertUsage(error.what());
    }
    CheckFiles(options);
    return options;
}

} // namespace quelmont
