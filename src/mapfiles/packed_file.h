#pragma once

#include "core/run_time_error.h"
#include "mapfiles/line_graph_codes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

/// Packed files (.pkv, .pkd, .grv): a bare run of segments. A segment is a header with a rank, a count
/// of points, the box around them and the first point, and two bytes for each further point: its
/// distance from the one before, in seconds of arc. All bytes but rank and counts are signed.

namespace quelmont {

struct PackedHeader {
    std::uint8_t Rank = 0;
    std::int32_t Count = 0; ///< points, the first included; 0 to MaxPackedCount
    // Seconds of arc.
    std::int32_t BoxWest = 0, BoxSouth = 0, BoxEast = 0, BoxNorth = 0;
    std::int32_t FirstLon = 0, FirstLat = 0;
    bool operator==(const PackedHeader&) const = default;
};

/// From one point to the next, seconds of arc.
struct PackedStep {
    std::int8_t Lon = 0;
    std::int8_t Lat = 0;
    bool operator==(const PackedStep&) const = default;
};

constexpr std::size_t PackedHeaderSize = 24;
constexpr std::size_t PackedStepSize = 2;
/// The count is a pair of bytes, the first of which stands for hundreds.
constexpr std::int32_t MaxPackedCount = 255 * 100 + 255;

/// From the first byte of a segment to the first byte of the next one. A count of 0 has less than a
/// header.
constexpr std::int64_t PackedSegmentSize(std::int32_t count) {
    return static_cast<std::int64_t>(PackedHeaderSize) + 2 * (std::int64_t{count} - 1);
}

constexpr std::int8_t SignedByte(std::byte byte) { return static_cast<std::int8_t>(byte); }

/// Degrees, minutes and seconds.
constexpr std::int32_t DecodeShortCoordinate(std::span<const std::byte, 3> bytes) {
    return SignedByte(bytes[0]) * 3600 + SignedByte(bytes[1]) * 60 + SignedByte(bytes[2]);
}

/// Half the degrees, the rest of them, minutes and seconds: 180 degrees do not fit a signed byte.
constexpr std::int32_t DecodeLongCoordinate(std::span<const std::byte, 4> bytes) {
    return (SignedByte(bytes[0]) * 2 + SignedByte(bytes[1])) * 3600 + SignedByte(bytes[2]) * 60 +
           SignedByte(bytes[3]);
}

constexpr PackedHeader DecodePackedHeader(std::span<const std::byte, PackedHeaderSize> bytes) {
    PackedHeader header;
    header.Rank = std::to_integer<std::uint8_t>(bytes[0]);
    header.Count = std::to_integer<std::int32_t>(bytes[1]) * 100 + std::to_integer<std::int32_t>(bytes[2]);
    header.BoxWest = DecodeLongCoordinate(bytes.subspan<3, 4>());
    header.BoxSouth = DecodeShortCoordinate(bytes.subspan<7, 3>());
    header.BoxEast = DecodeLongCoordinate(bytes.subspan<10, 4>());
    header.BoxNorth = DecodeShortCoordinate(bytes.subspan<14, 3>());
    header.FirstLon = DecodeLongCoordinate(bytes.subspan<17, 4>());
    header.FirstLat = DecodeShortCoordinate(bytes.subspan<21, 3>());
    return header;
}

constexpr PackedStep DecodePackedStep(std::span<const std::byte, PackedStepSize> bytes) {
    return {SignedByte(bytes[0]), SignedByte(bytes[1])};
}

/// RunTimeError "Overflow" beyond 127 degrees 59 minutes 59 seconds.
constexpr std::array<std::byte, 3> EncodeShortCoordinate(std::int32_t seconds) {
    const std::int32_t degrees = seconds / 3600;
    if (degrees < -127 || degrees > 127) {
        throw RunTimeError(ErrorOverflow);
    }
    return {static_cast<std::byte>(degrees), static_cast<std::byte>(seconds / 60 % 60),
            static_cast<std::byte>(seconds % 60)};
}

/// RunTimeError "Overflow" beyond 255 degrees 59 minutes 59 seconds.
constexpr std::array<std::byte, 4> EncodeLongCoordinate(std::int32_t seconds) {
    const std::int32_t degrees = seconds / 3600;
    if (degrees < -255 || degrees > 255) {
        throw RunTimeError(ErrorOverflow);
    }
    return {static_cast<std::byte>(degrees / 2), static_cast<std::byte>(degrees % 2),
            static_cast<std::byte>(seconds / 60 % 60), static_cast<std::byte>(seconds % 60)};
}

/// RunTimeError "Overflow" when a count or coordinate does not fit.
constexpr std::array<std::byte, PackedHeaderSize> EncodePackedHeader(const PackedHeader& header) {
    if (header.Count < 0 || header.Count > MaxPackedCount) {
        throw RunTimeError(ErrorOverflow);
    }
    std::array<std::byte, PackedHeaderSize> bytes = {};
    std::size_t next = 0;
    const auto put = [&](const auto& piece) {
        for (const std::byte byte : piece) {
            bytes[next++] = byte;
        }
    };
    const std::int32_t hundreds = header.Count / 100 < 255 ? header.Count / 100 : 255;
    put(std::array{static_cast<std::byte>(header.Rank), static_cast<std::byte>(hundreds),
                   static_cast<std::byte>(header.Count - hundreds * 100)});
    put(EncodeLongCoordinate(header.BoxWest));
    put(EncodeShortCoordinate(header.BoxSouth));
    put(EncodeLongCoordinate(header.BoxEast));
    put(EncodeShortCoordinate(header.BoxNorth));
    put(EncodeLongCoordinate(header.FirstLon));
    put(EncodeShortCoordinate(header.FirstLat));
    return bytes;
}

constexpr std::array<std::byte, PackedStepSize> EncodePackedStep(PackedStep step) {
    return {static_cast<std::byte>(step.Lon), static_cast<std::byte>(step.Lat)};
}

/// What the ranks of a packed file mean.
enum class PackedRanks {
    Whole,     ///< .pkv: all ranks of the world data bank
    Coast,     ///< .pkd: the ranks of one of its parts
    River,     ///< .pkd
    Political, ///< .pkd
    LineGraph, ///< .grv
};

/// By the ending of a name, in any case; of a .pkd file by the third letter of its title, C, R or P.
PackedRanks PackedRanksOf(std::string_view fileName);

/// The row of the features that a rank stands for. The rows are numbered without the gaps of the
/// ranks; a rank in a gap keeps its number, so that some rows have two. 0 for a byte of no line
/// graph's feature; rows beyond those of the format occur, up to 291.
constexpr std::int16_t FeatureOfPackedRank(std::uint8_t rank, PackedRanks ranks) {
    int row = rank;
    switch (ranks) {
    case PackedRanks::LineGraph:
        return LineGraphFeatureOfByte[rank];
    case PackedRanks::Coast:
        row += 8;
        break;
    case PackedRanks::River:
        row += 23;
        break;
    case PackedRanks::Political:
        row += 36;
        break;
    case PackedRanks::Whole:
        break;
    }
    if (row >= 14 && row <= 18) {
        row -= 1;
    } else if (row >= 21 && row <= 31) {
        row -= 3;
    } else if (row == 33 || row == 34) {
        row -= 4;
    } else if (row >= 36 && row <= 41) {
        row -= 5;
    }
    return static_cast<std::int16_t>(row);
}

/// The rank that stands for a row of the features, of two the higher, which is the one outside the
/// gaps; of the bytes of a line graph's row the first. Nothing when the file cannot hold that row.
constexpr std::optional<std::uint8_t> PackedRankOf(std::int16_t feature, PackedRanks ranks) {
    if (ranks == PackedRanks::LineGraph) {
        return feature >= 1 && feature <= MaxFeatureRows
                   ? std::optional(static_cast<std::uint8_t>(LineGraphCodesOf(feature).byteFirst))
                   : std::nullopt;
    }
    for (int rank = 255; rank >= 1; --rank) {
        if (FeatureOfPackedRank(static_cast<std::uint8_t>(rank), ranks) == feature) {
            return static_cast<std::uint8_t>(rank);
        }
    }
    return std::nullopt;
}

} // namespace quelmont
