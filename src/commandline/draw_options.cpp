#include "commandline/draw_options.h"

#include "commandline/angle_value.h"
#include "commandline/draw_help.h"
#include "commandline/export_output.h"
#include "commandline/option_values.h"
#include "core/file_names.h"
#include "projection/projection_table.h"
#include "projection/utm.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <memory>
#include <span>
#include <string_view>

namespace quelmont {

namespace {

constexpr AngleFieldKind Latitude = AngleFieldKind::Latitude;
constexpr AngleFieldKind Longitude = AngleFieldKind::Longitude;
constexpr AngleFieldKind Arc = AngleFieldKind::Arc;

/// An option whose value is the text of a field, by the field's index in its array of the design.
struct AngleOption {
    std::size_t index;
    const char* name;
    AngleFieldKind kind;
    const char* description;
};
struct DigitsOption {
    std::size_t index;
    const char* name;
    std::size_t width;
    const char* description;
};

// clang-format off
constexpr std::array GridAngles = std::to_array<AngleOption>({
    {0, "--north",       Latitude,  "Northernmost latitude"},
    {1, "--south",       Latitude,  "Southernmost latitude"},
    {2, "--lat-grid",    Arc,       "Degrees of latitude between grid lines"},
    {3, "--west",        Longitude, "Westernmost longitude"},
    {4, "--east",        Longitude, "Easternmost longitude"},
    {5, "--lon-grid",    Arc,       "Degrees of longitude between grid lines"},
    {6, "--central-lat", Latitude,  "Centre of an azimuthal map"},
    {7, "--central-lon", Longitude, "Centre of an azimuthal map"},
    {8, "--range",       Arc,       "Radius of an azimuthal map, degrees of arc"},
});
constexpr DigitsOption Height{9, "--height-km", 8, "Height of a vertical perspective's view point"};

constexpr std::array StdParAngles = std::to_array<AngleOption>({
    {0, "--std-north", Latitude, "Northern standard parallel"},
    {1, "--std-south", Latitude, "Southern standard parallel (conics)"},
});

constexpr std::array UtmAngles = std::to_array<AngleOption>({
    {0, "--utm-central-lon", Longitude, "Central longitude of the zone"},
    {1, "--utm-origin-lat",  Latitude,  "Latitude of origin"},
});
constexpr std::array UtmDigits = std::to_array<DigitsOption>({
    { 2, "--utm-false-easting",  7, "False easting"},
    { 3, "--utm-false-northing", 8, "False northing"},
    { 5, "--utm-north",          8, "Northing of the northern boundary"},
    { 6, "--utm-south",          8, "Northing of the southern boundary"},
    { 7, "--utm-lat-grid",       8, "Metres between grid lines, south to north"},
    { 8, "--utm-west",           7, "Easting of the western boundary"},
    { 9, "--utm-east",           7, "Easting of the eastern boundary"},
    {10, "--utm-lon-grid",       7, "Metres between grid lines, west to east"},
});
constexpr std::size_t UtmScale = 4;
constexpr const char* UtmScaleName = "--utm-scale";
constexpr const char* SpheroidName = "--spheroid";
constexpr const char* DesignEnding = "cnf";
constexpr std::array<const char*, 2> LobeNames = {"--lobes-north", "--lobes-south"};
// clang-format on

/// The help without what the parser knows about each option beside its name and its values.
class PlainFormatter : public CLI::Formatter {
public:
    std::string make_option_opts(const CLI::Option* option) const override {
        return option->get_type_name().empty() ? "" : " " + option->get_type_name();
    }
};

std::string DesignName(const std::string& value) {
    if (Capitals(value).ends_with("." + Capitals(DesignEnding))) {
        return value;
    }
    throw BadValue("\"" + value + "\" does not end in .cnf");
}

/// The options, group by group, bound to one DrawOptions.
class OptionTable {
public:
    OptionTable(DrawOptions& options_, const std::string& version);
    void Read(std::vector<std::string> arguments);
    std::string Help() const;
    std::string Version() const { return app.version(); }
    /// What was given for a circle or a label that is not there; empty for nothing. A design has its own.
    std::string OptionWithoutObject() const;

private:
    using Take = std::function<void(const std::string& value)>;

    CLI::Option* Add(const std::string& name, const char* type, const char* description, Take take);
    /// What adds an option to the group in hand.
    AddOption Adder();
    template <std::size_t Size>
    void AddAngles(std::span<const AngleOption> table, std::array<std::optional<std::string>, Size>& texts);
    template <std::size_t Size>
    void AddDigits(const DigitsOption& option, const char* type,
                   std::array<std::optional<std::string>, Size>& texts);
    void AddProjection();
    void AddUtm();
    void AddGrid();
    void AddFills();
    void AddDistortion();
    void AddCircles();
    void AddMaps();
    void AddTexts();
    void AddReports();
    void AddPicture();
    void AddPage();
    void AddDesign();

    DrawOptions& options;
    OptionsOfCircles ofCircles;
    CLI::App app{"Draws a map without a window: coastlines, borders, rivers and a grid.", "quelmont-draw"};
    const char* group = "";
};

OptionTable::OptionTable(DrawOptions& options_, const std::string& version) : options(options_) {
    constexpr std::size_t columns = 32;
    app.formatter(std::make_shared<PlainFormatter>());
    app.get_formatter()->column_width(columns);
    app.get_formatter()->label("Positionals", "Argument");
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.set_version_flag("--version", "quelmont-draw " + version, "Print the version and exit");
    app.footer(HelpBelowOptions());
    AddPicture();
    AddPage();
    AddDesign();
    AddProjection();
    AddUtm();
    AddGrid();
    AddFills();
    AddDistortion();
    AddCircles();
    AddMaps();
    AddTexts();
    AddReports();
}

std::string OptionTable::OptionWithoutObject() const {
    if (options.design) {
        return "";
    }
    for (const auto& [option, circle] : ofCircles) {
        if (option->count() > 0 && circle->count() == 0) {
            return option->get_name() + " requires " + circle->get_name();
        }
    }
    for (const std::string& name : options.map.namesOfDefaultMap) {
        if (name.rfind("--label-", 0) == 0) {
            return name + ": the points of " + options.map.defaultMap.file + " have no labels";
        }
    }
    return "";
}

std::string OptionTable::Help() const {
    std::string help = app.help();
    for (std::size_t gap = help.find("\n\n\n"); gap != std::string::npos; gap = help.find("\n\n\n", gap)) {
        help.erase(gap, 1);
    }
    return help;
}

CLI::Option* OptionTable::Add(const std::string& name, const char* type, const char* description, Take take) {
    const auto takeOrTell = [name, take = std::move(take)](const std::string& value) {
        try {
            take(value);
        } catch (const BadValue& bad) {
            throw CLI::ValidationError(name, bad.what());
        }
    };
    return app.add_option_function<std::string>(name, takeOrTell, description)->type_name(type)->group(group);
}

AddOption OptionTable::Adder() {
    return [this](const std::string& name, const char* type, const char* description, Take take) {
        return Add(name, type, description, std::move(take));
    };
}

template <std::size_t Size>
void OptionTable::AddAngles(std::span<const AngleOption> table,
                            std::array<std::optional<std::string>, Size>& texts) {
    for (const AngleOption& option : table) {
        Add(option.name, "A", option.description, [&texts, option](const std::string& value) {
            texts[option.index] = AngleValue(option.kind, value);
        });
    }
}

template <std::size_t Size>
void OptionTable::AddDigits(const DigitsOption& option, const char* type,
                            std::array<std::optional<std::string>, Size>& texts) {
    Add(option.name, type, option.description, [&texts, option](const std::string& value) {
        texts[option.index] = DigitsValue(value, option.width);
    });
}

void OptionTable::AddPicture() {
    group = "Picture";
    Add("OUTPUT", "",
        "The file to write, by its ending: .png .bmp .cgm .dxf .wmf .svg .pdf, or .txt for a text\n"
        "file of each part of the map; nothing is drawn when it is left out and tables,\n"
        "reports or the design are saved",
        [this](const std::string& value) {
            if (OutputFormatOf(value) == OutputFormat::Unknown) {
                throw BadValue("\"" + value +
                               "\" does not end in .png, .bmp, .cgm, .dxf, .wmf, .svg, .pdf or .txt");
            }
            options.output = value;
        });
    Add("--window", "WxH", "Size of the picture in pixels (1280x924, or the design's)",
        [this](const std::string& value) {
            options.window = SizeValue(value);
            options.windowGiven = true;
        });
    Add("--screen", "WxH", "Size of a maximised window (as --window)",
        [this](const std::string& value) { options.screen = SizeValue(value); });
    Add("--percent", "10..100", "Share of the picture that the map fills (100)",
        [this](const std::string& value) {
            options.percent = NumberValue(value, 10, 100);
            options.percentGiven = true;
        });
    const auto addSmooth = [this](const char* name, bool smooth, const char* description) {
        app.add_flag_callback(
               name, [this, smooth] { options.smooth = smooth; }, description)
            ->trigger_on_parse()
            ->group(group);
    };
    addSmooth("--smooth", true, "Antialiased lines, symbols and circles in .png and .bmp");
    addSmooth("--no-smooth", false, "Lines of whole pixels in .png and .bmp (as without --smooth)");
    app.add_flag("--no-line-scaling", options.noLineScaling,
                 "Narrowest lines in .cgm, .dxf, .wmf, lines of as many\ndots as pixels in .pdf, not a share "
                 "of the map")
        ->disable_flag_override()
        ->group(group);
    Add("--text-scale", "1..1000", "Size of text in .cgm and .dxf, percent (100)",
        [this](const std::string& value) { options.textScale = NumberValue(value, 1, 1000); });
    app.add_flag("--stats", options.stats, "Print points and seconds as a line of JSON")->group(group);
}

void OptionTable::AddPage() {
    group = "Page of a PDF file";
    AddPageOptions(app, group, Adder(), options.page);
}

void OptionTable::AddDesign() {
    group = "Map design";
    Add("--design", "FILE.cnf", "Begin with this map design instead of the default map",
        [this](const std::string& value) { options.design = DesignName(value); });
    Add("--save-design", "FILE.cnf", "Write the map design; OUTPUT may then be left out",
        [this](const std::string& value) { options.saveDesign = DesignName(value); });
}

void OptionTable::AddProjection() {
    group = "Projection and bounds";
    Add("--projection", "NUM|NAME", "See the list below (2)", [this](const std::string& value) {
        options.ProjNum = ProjectionValue(value);
        options.projectionGiven = true;
    });
    AddAngles(GridAngles, options.grid);
    AddDigits(Height, "KM", options.grid);
    AddAngles(StdParAngles, options.stdPar);
    for (const std::size_t hemisphere : {0U, 1U}) {
        Add(LobeNames[hemisphere], "A[,A[,A]]",
            hemisphere == 0 ? "Interruptions of the interrupted projection, or none"
                            : "The same in the south",
            [this, hemisphere](const std::string& value) {
                options.lobes[hemisphere] = InterruptionsValue(value);
            });
    }
}

void OptionTable::AddUtm() {
    group = "UTM, in metres";
    Add(SpheroidName, "NAME", "See the list below (Clarke 1866)",
        [this](const std::string& value) { options.spheroid = SpheroidValue(value); });
    AddAngles(UtmAngles, options.utm);
    for (const DigitsOption& option : UtmDigits) {
        AddDigits(option, "M", options.utm);
    }
    Add(UtmScaleName, "K", "Scale factor of the central longitude",
        [this](const std::string& value) { options.utm[UtmScale] = ScaleFactorValue(value); });
}

void OptionTable::AddGrid() {
    group = "Grid and background";
    Add("--grid-type", "1..5", "1 boundary and points, 2 boundary, 3 lines, 4 points, 5 none (3)",
        [this](const std::string& value) {
            options.gridType = static_cast<std::int16_t>(NumberValue(value, 1, 5));
        });
    Add("--grid-color", "RRGGBB", "Colour of the grid (000000)",
        [this](const std::string& value) { options.gridColor = ColorOf(value); });
    Add("--grid-width", "PX", "Width of its lines (1)",
        [this](const std::string& value) { options.gridWidth = NumberValue(value, 1, LargestPixels); });
    Add("--background", "RRGGBB", "Colour of the background (FFFFFF)",
        [this](const std::string& value) { options.background = ColorOf(value); });
    AddGridLabelOptions(Adder(), options.gridLabels);
    AddFrameOptions(app, group, Adder(), options.frame);
}

void OptionTable::AddFills() {
    group = "Land and water";
    Add("--fill-land", "RRGGBB", "Fill the land that closed lines of coasts and islands bound",
        [this](const std::string& value) { options.fill.land = ColorOf(value); });
    Add("--fill-lakes", "RRGGBB", "Fill the lakes",
        [this](const std::string& value) { options.fill.lakes = ColorOf(value); });
    Add("--fill-sea", "RRGGBB", "Fill the rest of the map",
        [this](const std::string& value) { options.fill.sea = ColorOf(value); });
}

void OptionTable::AddDistortion() {
    group = "Distortion";
    AddDistortionOptions([this](const std::string& name, const char* type, const char* description,
                                Take take) { return Add(name, type, description, std::move(take)); },
                         options.distortion);
}

void OptionTable::AddCircles() {
    group = "Circles";
    ofCircles = AddCircleOptions(Adder(), options.circles);
}

void OptionTable::AddMaps() {
    group = "Map files, in their order; the others belong to the --map before, or the default map";
    AddMapOptions(app, group, Adder(), options.map);
}

void OptionTable::AddTexts() {
    group = "Text, over everything; the others belong to the --text before";
    AddTextOptions(app, group, Adder(), options.texts);
}

void OptionTable::AddReports() {
    group = "Reports; OUTPUT may then be left out";
    AddReportOptions(Adder(), options.reports);
}

void OptionTable::Read(std::vector<std::string> arguments) {
    // The parser takes them from the back.
    std::reverse(arguments.begin(), arguments.end());
    app.parse(std::move(arguments));
}

} // namespace

std::variant<DrawOptions, TextAnswer, WrongUsage> ReadDrawOptions(const std::vector<std::string>& arguments,
                                                                  const std::string& version) {
    DrawOptions options;
    OptionTable table(options, version);
    try {
        table.Read(arguments);
    } catch (const CLI::CallForHelp&) {
        return TextAnswer{table.Help()};
    } catch (const CLI::CallForVersion&) {
        return TextAnswer{table.Version() + "\n"};
    } catch (const CLI::ParseError& error) {
        return WrongUsage{error.what()};
    }
    if (const std::string fault = table.OptionWithoutObject(); !fault.empty()) {
        return WrongUsage{fault};
    }
    if (const std::string fault = FaultOf(options.texts); !fault.empty()) {
        return WrongUsage{fault};
    }
    if (options.page.Any() && OutputFormatOf(options.output) != OutputFormat::Pdf) {
        return WrongUsage{
            "--paper, --landscape, --map-width, --left and --top are for an OUTPUT that ends in .pdf"};
    }
    const bool savesTables = !options.circles.greatCircleLine.table.empty() ||
                             !options.circles.smallCircleLine.table.empty() ||
                             !FilesOf(options.reports).empty();
    if (options.output.empty() && !savesTables && !options.saveDesign) {
        return WrongUsage{"OUTPUT is required"};
    }
    if (options.screen && (!options.design || options.windowGiven) &&
        (options.screen->x < options.window.x || options.screen->y < options.window.y)) {
        return WrongUsage{"--window: the picture is larger than the --screen"};
    }
    return options;
}

std::vector<std::string> OptionsOfUndrawnMap(const DrawOptions& options) {
    return options.map.noMap || !options.map.files.empty() ? options.map.namesOfDefaultMap
                                                           : std::vector<std::string>();
}

std::vector<std::string> OptionsWithoutMeaning(const DrawOptions& options) {
    const bool utm = options.ProjNum == ProjUtm;
    const bool azimuthal = IsAzimuthal(options.ProjNum);
    const bool perspective = options.ProjNum == ProjVerticalPerspective;
    std::vector<std::string> names;
    const auto unless = [&](bool meaning, bool given, const char* name) {
        if (given && !meaning) {
            names.emplace_back(name);
        }
    };
    for (const AngleOption& option : GridAngles) {
        const bool spacing = option.index == 2 || option.index == 5;
        const bool bound = option.index < 6;
        const bool range = option.index == 8;
        unless(azimuthal ? (spacing || !bound) && !(range && perspective) : bound && !utm,
               options.grid[option.index].has_value(), option.name);
    }
    unless(perspective, options.grid[Height.index].has_value(), Height.name);
    const int parallels = PropertiesOf(options.ProjNum).standardParallels;
    for (const std::size_t parallel : {0U, 1U}) {
        unless(static_cast<std::size_t>(parallels) > parallel, options.stdPar[parallel].has_value(),
               StdParAngles[parallel].name);
    }
    for (const std::size_t hemisphere : {0U, 1U}) {
        unless(options.ProjNum == ProjInterruptedMollweide, options.lobes[hemisphere].has_value(),
               LobeNames[hemisphere]);
    }
    unless(utm, options.spheroid.has_value(), SpheroidName);
    for (const AngleOption& option : UtmAngles) {
        unless(utm, options.utm[option.index].has_value(), option.name);
    }
    for (const DigitsOption& option : UtmDigits) {
        unless(utm, options.utm[option.index].has_value(), option.name);
    }
    unless(utm, options.utm[UtmScale].has_value(), UtmScaleName);
    return names;
}

} // namespace quelmont
