#pragma once

#include "core/run_time_error.h"
#include "mapfiles/byte_reader.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// Minute-grid files (.all, .pnt, .cci, .map): a bare run of records of three signed 16-bit
/// numbers, low byte first, on a grid of one minute of arc.

namespace quelmont {

struct MinuteGridRecord {
    std::int16_t Code = 0; ///< its thousands are the rank; the rest means nothing
    std::int16_t Lat = 0;  ///< minutes, north positive
    std::int16_t Lon = 0;  ///< minutes, east positive
    bool operator==(const MinuteGridRecord&) const = default;
};

constexpr std::size_t MinuteGridRecordSize = 6;

constexpr MinuteGridRecord DecodeMinuteGrid(std::span<const std::byte, MinuteGridRecordSize> bytes) {
    return {LittleInt16(bytes[0], bytes[1]), LittleInt16(bytes[2], bytes[3]),
            LittleInt16(bytes[4], bytes[5])};
}

constexpr std::array<std::byte, MinuteGridRecordSize> EncodeMinuteGrid(const MinuteGridRecord& record) {
    const auto code = LittleBytes(record.Code);
    const auto lat = LittleBytes(record.Lat);
    const auto lon = LittleBytes(record.Lon);
    return {code[0], code[1], lat[0], lat[1], lon[0], lon[1]};
}

/// 0 continues a line, any other rank starts a new line of that rank. -32 to 32.
constexpr int RankOf(std::int16_t code) { return code / 1000; }

struct RankFeature {
    int rank;
    std::int16_t feature; ///< row of the minute-grid features
};

// clang-format off
/// Ranks that have a feature. The other ranks of the span stand for feature 0, which is never shown.
constexpr std::array RankFeatures = std::to_array<RankFeature>({
    // rank feature
    { 1,  1}, // Coastlines
    { 2,  5}, // Countries
    { 3,  7}, // Canada
    { 4,  9}, // United States
    { 5,  2}, // Islands
    { 6,  3}, // Lakes
    { 7,  4}, // Rivers
    { 8,  6}, // Australia
    { 9,  8}, // Mexico
    {10, 10}, // Other Provinces/States
});
// clang-format on

/// The rank that stands for a feature, 1 to 10; RunTimeError "Subscript out of range" for any other.
constexpr int RankOfFeature(std::int16_t feature) {
    for (const RankFeature& entry : RankFeatures) {
        if (entry.feature == feature) {
            return entry.rank;
        }
    }
    throw RunTimeError(ErrorSubscript);
}

/// The whole span of ranks, -RankSpan to RankSpan, by rank + RankSpan.
constexpr int RankSpan = 32;
constexpr auto RankFeatureMap = [] {
    std::array<std::int16_t, 2 * RankSpan + 1> map = {};
    for (const RankFeature& entry : RankFeatures) {
        map[static_cast<std::size_t>(entry.rank + RankSpan)] = entry.feature;
    }
    return map;
}();

/// The feature that a rank stands for; RunTimeError "Subscript out of range" outside the span.
constexpr std::int16_t FeatureOfRank(int rank) {
    if (rank < -RankSpan || rank > RankSpan) {
        throw RunTimeError(ErrorSubscript);
    }
    return RankFeatureMap[static_cast<std::size_t>(rank + RankSpan)];
}

} // namespace quelmont
