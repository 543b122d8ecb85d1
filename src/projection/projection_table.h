#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace quelmont {

/// One entry of the projection menu.
struct ProjectionEntry {
    std::int16_t ProjNum;
    std::int16_t menuIndex;      ///< of mnuProj; 5 is the parent of the Mollweide sub-menu
    std::int16_t mollweideIndex; ///< of mnuProjMollweide, else -1
    std::string_view menuText;
    std::string_view ProjName;
    std::string_view caption; ///< of the window
};

// clang-format off
constexpr std::array<ProjectionEntry, 17> Projections = {{
    { 1,  0, -1, "&Mercator",                "Mercator",                         "Quelmont: Mercator projection"},
    { 2,  1, -1, "&Equirectangular",         "Equirectangular",                  "Quelmont: Equirectangular projection"},
    {40,  2, -1, "C&ylindrical equal-area",  "Cylindrical Equal-Area",           "Quelmont: Cylindrical Equal-Area projection"},
    {12,  4, -1, "&Hammer equal-area",       "Hammer Equal-Area",                "Quelmont: Hammer Equal-Area projection"},
    {41,  5,  0, "&Normal",                  "Mollweide Equal-Area",             "Quelmont: Mollweide Equal-Area projection"},
    {42,  5,  1, "&Interrupted",             "Interrupted Mollweide Equal-Area", "Quelmont: Interrupted Mollweide Equal-Area projection"},
    {16,  6, -1, "&Robinson",                "Robinson",                         "Quelmont: Robinson projection"},
    { 6,  8, -1, "Equi&distant conic",       "Equidistant Conic",                "Quelmont: Equidistant Conic projection"},
    { 7,  9, -1, "&Conformal conic",         "Conformal Conic",                  "Quelmont: Conformal Conic projection"},
    { 8, 10, -1, "&Albers equal-area",       "Albers Equal-Area",                "Quelmont: Albers Equal-Area conic projection"},
    {26, 12, -1, "&Gnomonic",                "Gnomonic Azimuthal",               "Quelmont: Gnomonic Azimuthal projection"},
    {27, 13, -1, "&Stereographic",           "Stereographic Azimuthal",          "Quelmont: Stereographic Azimuthal projection"},
    {28, 14, -1, "&Orthographic",            "Orthographic Azimuthal",           "Quelmont: Orthographic Azimuthal projection"},
    {29, 15, -1, "&Vertical Perspective",    "Vertical Perspective Azimuthal",   "Quelmont: Vertical Perspective Azimuthal projection"},
    {30, 16, -1, "Azimu&thal equidistant",   "Azimuthal Equidistant",            "Quelmont: Azimuthal Equidistant projection"},
    {31, 17, -1, "A&zimuthal equal-area",    "Azimuthal Equal-Area",             "Quelmont: Azimuthal Equal-Area projection"},
    {17, 19, -1, "&UTM",                     "UTM",                              "Quelmont: UTM projection"},
}};
// clang-format on

/// The entry of a projection number, nullptr when there is none.
constexpr const ProjectionEntry* FindProjection(std::int16_t projNum) {
    for (const ProjectionEntry& entry : Projections) {
        if (entry.ProjNum == projNum) {
            return &entry;
        }
    }
    return nullptr;
}

} // namespace quelmont
