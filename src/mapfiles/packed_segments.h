#pragma once

#include "mapfiles/byte_reader.h"
#include "mapfiles/packed_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace quelmont {

/// Walks the segments of the packed file that is open under file number 1. Of each the points are visited,
/// or it is stepped over:
///
///     for (PackedSegments segments(bytes, ranks); segments.Next();)
///         if (!segments.IsWhole()) break;
///         else if (wanted) segments.VisitPoints(...);
///         else segments.StepOver();
class PackedSegments {
public:
    PackedSegments(ByteReader& bytes_, PackedRanks ranks_) : bytes(bytes_), ranks(ranks_) {
        static_assert(PackedStepSize * MaxPackedCount <= ByteReader::BlockSize);
    }

    /// Comes before the next segment; false at the end of the file. RunTimeError when the file cannot be
    /// read.
    bool Next() {
        const std::span<const std::byte> ready = bytes.Ahead(PackedHeaderSize);
        if (ready.empty()) {
            return false;
        }
        feature = FeatureOfPackedRank(std::to_integer<std::uint8_t>(ready[0]), ranks);
        whole = ready.size() >= PackedHeaderSize;
        if (whole) {
            header = DecodePackedHeader(ready.first<PackedHeaderSize>());
        }
        return true;
    }

    /// As FeatureOfPackedRank.
    std::int16_t Feature() const { return feature; }
    /// Of the segment before which it stands. That of a segment whose header is cut short means nothing.
    const PackedHeader& Header() const { return header; }
    /// Whether the file holds all bytes of the header and, once they were visited, of the points.
    bool IsWhole() const { return whole; }

    /// Steps over the segment. RunTimeError when the file cannot be sought.
    void StepOver() { bytes.Skip(PackedSegmentSize(header.Count)); }

    /// Calls visit(lat, lon, begins) for the points of the segment, in seconds of arc, as far as the file
    /// has them; begins is true for the first. A visit that answers false ends it, and this is the answer
    /// then. There is a first point even if the count is 0.
    template <typename Visit>
    bool VisitPoints(Visit&& visit) {
        bytes.Skip(PackedHeaderSize);
        std::int32_t lat = header.FirstLat;
        std::int32_t lon = header.FirstLon;
        if (!visit(lat, lon, true)) {
            return false;
        }
        const std::size_t size = PackedStepSize * static_cast<std::size_t>(std::max(header.Count - 1, 0));
        const std::span<const std::byte> ready = bytes.Ahead(size);
        const std::size_t there = std::min(ready.size(), size) / PackedStepSize * PackedStepSize;
        for (std::size_t place = 0; place < there; place += PackedStepSize) {
            const PackedStep step = DecodePackedStep(ready.subspan(place).first<PackedStepSize>());
            lon += step.Lon;
            lat += step.Lat;
            if (!visit(lat, lon, false)) {
                return false;
            }
        }
        whole = there == size;
        bytes.Skip(static_cast<std::int64_t>(std::min(ready.size(), size)));
        return true;
    }

private:
    ByteReader& bytes;
    PackedRanks ranks;
    PackedHeader header;
    std::int16_t feature = 0;
    bool whole = true;
};

} // namespace quelmont
