#pragma once

#include "mapfiles/map_formats.h"

#include <cstdint>

namespace quelmont {

/// What an area is.
enum class AreaClass : std::uint8_t { Sea, Land, Lake };

/// What the closed lines of a row of a map file bound.
enum class AreaRow : std::uint8_t {
    None,   ///< nothing: borders, rivers, roads
    Land,   ///< land, wherever they lie: coasts, islands
    Lake,   ///< water, wherever they lie
    Shore,  ///< coasts, islands and lakes in one row: what is inside is land in water, and water in land
    Inland, ///< lakes and their islands in one row: water, but land in a lake
};

/// Of a row of a format, as its reader numbers them from 1; of a file that knows no rows all closed lines
/// are shores.
AreaRow AreaRowOf(const MapFormat& format, std::int16_t feature);

/// What the inside of a line is that lies in an area of a class.
constexpr AreaClass InsideOf(AreaRow row, AreaClass around) {
    switch (row) {
    case AreaRow::Land:
        return AreaClass::Land;
    case AreaRow::Lake:
        return AreaClass::Lake;
    case AreaRow::Shore:
        return around == AreaClass::Land ? AreaClass::Lake : AreaClass::Land;
    case AreaRow::Inland:
        return around == AreaClass::Lake ? AreaClass::Land : AreaClass::Lake;
    case AreaRow::None:
        break;
    }
    return around;
}

} // namespace quelmont
