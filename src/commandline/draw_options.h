#pragma once

#include "commandline/circle_options.h"
#include "commandline/distortion_options.h"
#include "commandline/frame_options.h"
#include "commandline/grid_label_options.h"
#include "commandline/map_options.h"
#include "commandline/page_options.h"
#include "commandline/report_options.h"
#include "commandline/text_options.h"
#include "core/map_design.h"
#include "core/standard_colors.h"
#include "platform/draw_surface.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace quelmont {

/// The command line of quelmont-draw. Angles and metres are the texts of the fields that they stand
/// for, as far as they were given; nothing of it is checked against the projection yet.
struct DrawOptions {
    std::string output;                    ///< empty: nothing is drawn
    std::optional<std::string> design;     ///< the map design file that the other options change
    std::optional<std::string> saveDesign; ///< the one to write
    std::int16_t ProjNum = ProjEquirectangular;
    bool projectionGiven = false;
    std::array<std::optional<std::string>, 10> grid = {};              ///< by index of GridText
    std::array<std::optional<std::string>, 2> stdPar = {};             ///< of StdParText
    std::optional<std::string> spheroid;                               ///< SpheroidName
    std::array<std::optional<std::string>, 11> utm = {};               ///< of UtmText
    std::array<std::optional<std::vector<std::string>>, 2> lobes = {}; ///< north, south
    std::optional<std::int16_t> gridType;
    std::optional<ColorValue> gridColor;
    std::optional<int> gridWidth; ///< pixels
    std::optional<ColorValue> background;
    FillChoice fill;
    GridLabelOptions gridLabels;
    FrameOptions frame;
    DistortionOptions distortion;
    CircleOptions circles;
    ReportOptions reports;
    MapOptions map;
    std::vector<PlacedTextOptions> texts; ///< each with its place
    PageOptions page;                     ///< of a PDF file
    SurfacePoint window{1280, 924};       ///< drawing area, pixels
    bool windowGiven = false;
    std::optional<SurfacePoint> screen;
    int percent = 100;
    bool percentGiven = false;
    bool smooth = false; ///< antialiased lines
    bool stats = false;
    bool noLineScaling = false;
    std::optional<int> textScale; ///< percent
};

/// A command line that asks for a text, and what it is: --help, --version.
struct TextAnswer {
    std::string text;
};
/// A command line that cannot be understood, and why.
struct WrongUsage {
    std::string reason;
};

/// Reads a command line without the program's name.
std::variant<DrawOptions, TextAnswer, WrongUsage> ReadDrawOptions(const std::vector<std::string>& arguments,
                                                                  const std::string& version);

/// The options that were given for the default map, if that is not drawn.
std::vector<std::string> OptionsOfUndrawnMap(const DrawOptions& options);

/// The options that were given and mean nothing on the projection chosen.
std::vector<std::string> OptionsWithoutMeaning(const DrawOptions& options);

} // namespace quelmont
