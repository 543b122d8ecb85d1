#pragma once

#include "core/map_file_entry.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

/// What the features of a map file are: a table of rows per family of formats. The number of a row,
/// counted from 1, is the feature number of the readers and the index of an entry's styles.

namespace quelmont {

struct FeatureRow {
    std::string_view name;
    ColorValue color; ///< proposed for a new file
};

namespace feature_colors {
constexpr ColorValue Red = Rgb(255, 0, 0);
constexpr ColorValue DarkRed = Rgb(128, 0, 0);
constexpr ColorValue Green = Rgb(0, 128, 0);
constexpr ColorValue Blue = Rgb(0, 0, 255);
constexpr ColorValue Magenta = Rgb(255, 0, 255);
/// Looks black, but stays apart from 0, by which the grids of the dialogs mean no colour at all.
constexpr ColorValue NearBlack = Rgb(1, 0, 0);
} // namespace feature_colors

namespace feature_rows {

using namespace feature_colors;

// clang-format off

/// Minute-grid files: .all, .cci, .map.
constexpr std::array MinuteGrid = std::to_array<FeatureRow>({
    // name                    color
    {"Coastlines",             Green},    //  1
    {"Islands",                Green},    //  2
    {"Lakes",                  Blue},     //  3
    {"Rivers",                 Blue},     //  4
    {"Countries",              Red},      //  5
    {"Australia",              Magenta},  //  6
    {"Canada",                 Magenta},  //  7
    {"Mexico",                 Magenta},  //  8
    {"United States",          DarkRed},  //  9
    {"Other Provinces/States", DarkRed},  // 10
});

/// World data bank files: .pkv, .pkd.
constexpr std::array WorldDataBank = std::to_array<FeatureRow>({
    // name                              color
    {"International Boundaries",        Red},      //  1
    {"Indefinite or in dispute",        Red},      //  2
    {"Separation line, land",           Red},      //  3
    {"Separation line, sea",            Red},      //  4
    {"Separation line, islands",        Red},      //  5
    {"Continental Shelf, Persian Gulf", Red},      //  6
    {"Demilitarized zone, Israel",      Red},      //  7
    {"No defined boundary",             Red},      //  8
    {"Coastlines, Islands, Lakes",      Green},    //  9
    {"Islands and lakes, large",        Green},    // 10
    {"Islands and lakes, medium",       Green},    // 11
    {"Islands and lakes, small",        Green},    // 12
    {"Intermittent lakes, large",       Green},    // 13
    {"Intermittent lakes, small",       Green},    // 14
    {"Reefs",                           Green},    // 15
    {"Salt pans, large",                Green},    // 16
    {"Salt pans, small",                Green},    // 17
    {"Ice shelves, large",              Green},    // 18
    {"Ice shelves, small",              Green},    // 19
    {"Glaciers",                        Green},    // 20
    {"Rivers",                          Blue},     // 21
    {"Rivers, large",                   Blue},     // 22
    {"Rivers, medium",                  Blue},     // 23
    {"Rivers, small",                   Blue},     // 24
    {"Rivers, double lined",            Blue},     // 25
    {"Intermittent rivers, large",      Blue},     // 26
    {"Intermittent rivers, medium",     Blue},     // 27
    {"Intermittent rivers, small",      Blue},     // 28
    {"Canals",                          Blue},     // 29
    {"Canals, small",                   Blue},     // 30
    {"Canals, irrigation",              Blue},     // 31
    {"U.S. States",                     Magenta},  // 32
    {"Canadian Provinces",              Magenta},  // 33
    {"Boundaries in Great Lakes",       Magenta},  // 34
    {"Australian States",               Magenta},  // 35
    {"Scotland and Wales",              Magenta},  // 36
});

/// Digital line graphs: .grv, .grf. The blanks inside a name line up the sizes in a list.
constexpr std::array LineGraph = std::to_array<FeatureRow>({
    // name                              color
    {"River, double line, shoreline",   Blue},     //  1
    {"River, double line, centerline",  Blue},     //  2
    {"River, perennial,        <30 km", Blue},     //  3
    {"River, perennial,       <100 km", Blue},     //  4
    {"River, perennial,       <350 km", Blue},     //  5
    {"River, perennial,      >=350 km", Blue},     //  6
    {"River, intermittent,     <30 km", Blue},     //  7
    {"River, intermittent,    <100 km", Blue},     //  8
    {"River, intermittent,    <350 km", Blue},     //  9
    {"River, intermittent,   >=350 km", Blue},     // 10
    {"River in lake, perenn.   <30 km", Blue},     // 11
    {"River in lake, perenn.   <80 km", Blue},     // 12
    {"River in lake, perenn.  >=80 km", Blue},     // 13
    {"River in lake, interm.   <30 km", Blue},     // 14
    {"River in lake, interm.  >=30 km", Blue},     // 15
    {"Braided stream",                  Blue},     // 16
    {"Canal, navigable,        <20 km", Blue},     // 17
    {"Canal, navigable,        <80 km", Blue},     // 18
    {"Canal, navigable,       >=80 km", Blue},     // 19
    {"Canal, other,            <20 km", Blue},     // 20
    {"Canal, other,            <80 km", Blue},     // 21
    {"Canal, other,           >=80 km", Blue},     // 22
    {"Ditch",                           Blue},     // 23
    {"Intercoastal waterway",           Blue},     // 24
    {"U.S. coastline and Great Lakes",  Green},    // 25
    {"Lake, island, perennial  <30 km", Green},    // 26
    {"Lake, island, perennial  <80 km", Green},    // 27
    {"Lake, island, perennial >=80 km", Green},    // 28
    {"Lake, intermittent       <30 km", Green},    // 29
    {"Lake, intermittent       <80 km", Green},    // 30
    {"Lake, intermittent      >=80 km", Green},    // 31
    {"Marsh, swamp,            <50 km", Green},    // 32
    {"Marsh, swamp,           >=50 km", Green},    // 33
    {"Dry lake, alkali flat",           Green},    // 34
    {"Glacier,                 <50 km", Green},    // 35
    {"Glacier,                >=50 km", Green},    // 36
    {"Interstate highway",              NearBlack}, // 37
    {"Interstate, proposed",            NearBlack}, // 38
    {"Divided highway, limited access", NearBlack}, // 39
    {"Other hwy, limited access",       NearBlack}, // 40
    {"Other hwy, non-limited access",   NearBlack}, // 41
    {"Other hwy <10 km from major hwy", NearBlack}, // 42
    {"State secondary, all weather",    NearBlack}, // 43
    {"Light duty, all weather",         NearBlack}, // 44
    {"Unimproved, fair or dry weather", NearBlack}, // 45
    {"Highway, tunnel",                 NearBlack}, // 46
    {"Auto, ferry",                     NearBlack}, // 47
    {"Railroad, main line",             Magenta},  // 48
    {"Railroad, branch line",           Magenta},  // 49
    {"Railroad, other",                 Magenta},  // 50
    {"Railroad, tunnel",                Magenta},  // 51
    {"Railroad, ferry",                 Magenta},  // 52
    {"International treaty line",       Red},      // 53
    {"National boundary, land",         Red},      // 54
    {"National boundary, water",        Red},      // 55
    {"State boundary, land",            Red},      // 56
    {"State boundary, water",           Red},      // 57
    {"County, large city, land",        Red},      // 58
    {"County, large city, water",       Red},      // 59
    {"City boundary,     >1.0 million", Red},      // 60
    {"City boundary,     >0.5 million", Red},      // 61
    {"City boundary,            small", Red},      // 62
    {"National park            <20 km", DarkRed},  // 63
    {"National park           >=20 km", DarkRed},  // 64
    {"National park closure line",      DarkRed},  // 65
    {"Indian reservation       <20 km", DarkRed},  // 66
    {"Indian reservation      >=20 km", DarkRed},  // 67
    {"Indian reservation closure line", DarkRed},  // 68
    {"Military reservation    <405 ha", DarkRed},  // 69
    {"Military reservation   >=405 ha", DarkRed},  // 70
    {"Mil. reservation closure line",   DarkRed},  // 71
    {"Alaska pipeline",                 DarkRed},  // 72
});

/// Every other format has one style for the whole file.
constexpr std::array WholeFile = std::to_array<FeatureRow>({
    {"All features", NearBlack}, //  1
});

// clang-format on

static_assert(MinuteGrid.size() == 10);
static_assert(WorldDataBank.size() == 36);
static_assert(LineGraph.size() == MaxFeatureRows);
static_assert(WholeFile.size() == 1);

} // namespace feature_rows

// Sizes proposed for a new file, in pixels.
constexpr double LinePixels = 1.0;
constexpr double SymbolPixels = 3.0; ///< radius
constexpr double BorderPixels = 1.0;

/// A width or radius of pixels in twips, as styles hold it. Reads TwipsPerPixelY; RunTimeError "Overflow"
/// above 32767.
std::int16_t TwipsOf(double pixels);

/// The rows of a file, by the last three letters of its name in any case.
std::span<const FeatureRow> FeatureRows(std::string_view fileName);

/// The entry of a file that is put into the list: all its rows are shown in their proposed colours,
/// with lines of one pixel, symbols of three pixels radius and outlines of one pixel.
///
/// Reads   TwipsPerPixelY. The path is taken as it stands; the file need not exist.
/// RunTimeError "Overflow" when a pixel measures more twips than a style can hold.
InputFileEntry NewMapFileEntry(std::string_view fileName);

} // namespace quelmont
