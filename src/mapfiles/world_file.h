#pragma once

#include "core/rounding.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// World files: latitude and longitude in decimal degrees, without features.
///
/// .mp1  text of items that a comma or a line end closes. An item that begins with "-" or a digit is
///       a point, latitude, blank or tab, longitude, and columns of no concern; any other ends the line of
///       points.
/// .mps  records of little-endian floats: the latitude, the longitude, and bytes up to a line feed. The
///       marker 99 before the latitude begins a line, a byte of value 1 before the line feed lets the
///       next point begin one.

namespace quelmont {

/// Seconds of arc.
struct WorldPoint {
    std::int32_t Lat = 0, Lon = 0;
    bool operator==(const WorldPoint&) const = default;
};

/// Takes the next item and its delimiter off the front of a text; blanks before it are passed over.
/// A line ends in a carriage return, a line feed, or both.
std::string_view TakeWorldItem(std::string_view& text);

/// Latitude and longitude in degrees, as an item has them.
struct WorldDegrees {
    double Lat = 0.0, Lon = 0.0;
};

/// The degrees of an item, nothing for one that ends the line. Without a blank in it an item is the
/// longitude of a point on the equator. RunTimeError "Overflow" when a number is too large.
std::optional<WorldDegrees> DecodeWorldDegrees(std::string_view item);

/// The point of an item from its degrees. A longitude that is above 180 degrees when it is rounded has a
/// circle taken off. RunTimeError "Overflow" when one is too large.
WorldPoint WorldPointOf(const WorldDegrees& degrees);

/// The item of a point in degrees, to a millionth, with its line end. RunTimeError "Overflow" for
/// what is not finite.
std::string EncodeWorldItem(double lat, double lon);
/// The item that ends a line of points.
constexpr std::string_view WorldItemBreak = "\r\n";

constexpr std::size_t WorldFloatSize = 4;

/// Before the latitude of a point that begins a line: the bits of 99.0, which are what tells it.
constexpr std::array<std::byte, WorldFloatSize> WorldMarker = {std::byte{0x00}, std::byte{0x00},
                                                               std::byte{0xC6}, std::byte{0x42}};
constexpr std::byte WorldRecordEnd{10};
/// In the bytes before the end of a record: the next point begins a line.
constexpr std::byte WorldLineEnd{1};

constexpr std::uint32_t WorldFloatBits(std::span<const std::byte, WorldFloatSize> bytes) {
    return std::to_integer<std::uint32_t>(bytes[0]) | std::to_integer<std::uint32_t>(bytes[1]) << 8U |
           std::to_integer<std::uint32_t>(bytes[2]) << 16U | std::to_integer<std::uint32_t>(bytes[3]) << 24U;
}

constexpr bool IsWorldMarker(std::span<const std::byte, WorldFloatSize> bytes) {
    return WorldFloatBits(bytes) == WorldFloatBits(WorldMarker);
}

constexpr float DecodeWorldFloat(std::span<const std::byte, WorldFloatSize> bytes) {
    return std::bit_cast<float>(WorldFloatBits(bytes));
}

/// A point of an .mps file from its degrees; a longitude above 180 has a circle taken off.
/// RunTimeError "Overflow" when one is too large or no number.
inline WorldPoint WorldPointOf(float lat, float lon) {
    const float turned = lon > 180.0F ? lon - 360.0F : lon;
    return {RoundToInt32(static_cast<double>(lat) * 3600.0),
            RoundToInt32(static_cast<double>(turned) * 3600.0)};
}

/// A record of an .mps file in degrees; before one that begins a line stands the marker.
constexpr std::size_t WorldRecordSize = 2 * WorldFloatSize + 1;
constexpr std::array<std::byte, WorldRecordSize> EncodeWorldRecord(float lat, float lon) {
    std::array<std::byte, WorldRecordSize> record = {};
    const auto latBits = std::bit_cast<std::uint32_t>(lat);
    const auto lonBits = std::bit_cast<std::uint32_t>(lon);
    for (std::size_t i = 0; i < WorldFloatSize; ++i) {
        record[i] = static_cast<std::byte>(latBits >> 8U * i & 0xFFU);
        record[WorldFloatSize + i] = static_cast<std::byte>(lonBits >> 8U * i & 0xFFU);
    }
    record.back() = WorldRecordEnd;
    return record;
}

} // namespace quelmont
