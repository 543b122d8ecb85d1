#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quelmont {

/// What the maps of a projection have in common: how they are bounded, gridded and clipped.
enum class ProjectionFamily {
    None,
    Cylindrical,
    Pseudocylindrical,
    Conic,
    Azimuthal,  ///< bounded by a circle about the centre
    MetricGrid, ///< bounded in metres
};

/// What is told of a projection once: its place in the menu, its names, its properties.
struct ProjectionEntry {
    std::int16_t ProjNum = 0;
    std::int16_t menuIndex = -1;      ///< of mnuProj; 5 is the parent of the Mollweide sub-menu
    std::int16_t mollweideIndex = -1; ///< of mnuProjMollweide, else -1
    ProjectionFamily family = ProjectionFamily::None;
    int standardParallels = 0; ///< 2, or 1 that its mirror image goes with, or none
    bool wholeGlobe = false;   ///< a disc can show it all; its rim is the antipode of the centre
    bool antipode = false;     ///< every point but the antipode has a place
    std::string_view menuText;
    std::string_view ProjName;
    std::string_view caption; ///< of the window
};

// clang-format off
constexpr std::array<ProjectionEntry, 17> Projections = [] {
    using Family = ProjectionFamily;
    return std::array<ProjectionEntry, 17>{{
  // No. menu       family                 parallels globe antipode
    { 1,  0, -1, Family::Cylindrical,       0, false, false, "&Mercator",                "Mercator",                         "Quelmont: Mercator projection"},
    { 2,  1, -1, Family::Cylindrical,       1, false, false, "&Equirectangular",         "Equirectangular",                  "Quelmont: Equirectangular projection"},
    {40,  2, -1, Family::Cylindrical,       1, false, false, "C&ylindrical equal-area",  "Cylindrical Equal-Area",           "Quelmont: Cylindrical Equal-Area projection"},
    {12,  4, -1, Family::Pseudocylindrical, 0, false, false, "&Hammer equal-area",       "Hammer Equal-Area",                "Quelmont: Hammer Equal-Area projection"},
    {41,  5,  0, Family::Pseudocylindrical, 0, false, false, "&Normal",                  "Mollweide Equal-Area",             "Quelmont: Mollweide Equal-Area projection"},
    {42,  5,  1, Family::Pseudocylindrical, 0, false, false, "&Interrupted",             "Interrupted Mollweide Equal-Area", "Quelmont: Interrupted Mollweide Equal-Area projection"},
    {16,  6, -1, Family::Pseudocylindrical, 0, false, false, "&Robinson",                "Robinson",                         "Quelmont: Robinson projection"},
    { 6,  8, -1, Family::Conic,             2, false, false, "Equi&distant conic",       "Equidistant Conic",                "Quelmont: Equidistant Conic projection"},
    { 7,  9, -1, Family::Conic,             2, false, false, "&Conformal conic",         "Conformal Conic",                  "Quelmont: Conformal Conic projection"},
    { 8, 10, -1, Family::Conic,             2, false, false, "&Albers equal-area",       "Albers Equal-Area",                "Quelmont: Albers Equal-Area conic projection"},
    {26, 12, -1, Family::Azimuthal,         0, false, false, "&Gnomonic",                "Gnomonic Azimuthal",               "Quelmont: Gnomonic Azimuthal projection"},
    {27, 13, -1, Family::Azimuthal,         0, false, true,  "&Stereographic",           "Stereographic Azimuthal",          "Quelmont: Stereographic Azimuthal projection"},
    {28, 14, -1, Family::Azimuthal,         0, false, false, "&Orthographic",            "Orthographic Azimuthal",           "Quelmont: Orthographic Azimuthal projection"},
    {29, 15, -1, Family::Azimuthal,         0, false, false, "&Vertical Perspective",    "Vertical Perspective Azimuthal",   "Quelmont: Vertical Perspective Azimuthal projection"},
    {30, 16, -1, Family::Azimuthal,         0, true,  true,  "Azimu&thal equidistant",   "Azimuthal Equidistant",            "Quelmont: Azimuthal Equidistant projection"},
    {31, 17, -1, Family::Azimuthal,         0, true,  true,  "A&zimuthal equal-area",    "Azimuthal Equal-Area",             "Quelmont: Azimuthal Equal-Area projection"},
    {17, 19, -1, Family::MetricGrid,        0, false, false, "&UTM",                     "UTM",                              "Quelmont: UTM projection"},
    }};
}();
// clang-format on

/// Rows of the table by ProjNum, -1 where there is none.
constexpr std::array<int, 43> ProjectionRows = [] {
    std::array<int, 43> rows{};
    rows.fill(-1);
    for (std::size_t row = 0; row < Projections.size(); ++row) {
        rows[static_cast<std::size_t>(Projections[row].ProjNum)] = static_cast<int>(row);
    }
    return rows;
}();

/// The entry of a projection number, nullptr when there is none.
constexpr const ProjectionEntry* FindProjection(std::int16_t projNum) {
    const auto number = static_cast<std::size_t>(projNum);
    if (number >= ProjectionRows.size() || ProjectionRows[number] < 0) {
        return nullptr;
    }
    return &Projections[static_cast<std::size_t>(ProjectionRows[number])];
}

/// The same for whoever asks for a property; a number without an entry has none.
constexpr ProjectionEntry NoProjection{};
constexpr const ProjectionEntry& PropertiesOf(std::int16_t projNum) {
    const ProjectionEntry* const entry = FindProjection(projNum);
    return entry == nullptr ? NoProjection : *entry;
}

constexpr bool IsAzimuthal(std::int16_t projNum) {
    return PropertiesOf(projNum).family == ProjectionFamily::Azimuthal;
}

constexpr bool IsConic(std::int16_t projNum) {
    return PropertiesOf(projNum).family == ProjectionFamily::Conic;
}

} // namespace quelmont
