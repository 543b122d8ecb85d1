#pragma once

#include "core/coordinates.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/minute_grid_file.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace quelmont {

/// Walks the records of the minute-grid file that is open under file number 1.
///
///     for (MinuteGridRecords records(bytes); records.Next();) ...
class MinuteGridRecords {
public:
    explicit MinuteGridRecords(ByteReader& bytes_) : bytes(bytes_) {}

    /// Goes to the next record; false at the end of the file. The end is looked for behind the code of a
    /// continuing record alone: whatever else lies beyond it reads as zero. RunTimeError "Subscript out of
    /// range" for a rank outside the span, and when the file cannot be read.
    bool Next() {
        if (bytes.Has(MinuteGridRecordSize)) [[likely]] {
            record = DecodeMinuteGrid(bytes.Take<MinuteGridRecordSize>());
        } else if (const std::optional<MinuteGridRecord> rest = TakeRest(bytes)) {
            record = *rest;
            whole = false;
        } else {
            return false;
        }
        const int rank = RankOf(record.Code);
        begins = rank != 0;
        if (begins) {
            feature = FeatureOfRank(rank);
        }
        return true;
    }

    /// Whether the record begins a line; others continue it.
    bool BeginsLine() const { return begins; }
    /// Row of the minute-grid features, or 0, which the line of the record has.
    std::int16_t Feature() const { return feature; }
    std::int16_t LatMinutes() const { return record.Lat; }
    std::int16_t LonMinutes() const { return record.Lon; }
    std::int32_t LatSec() const { return record.Lat * SecPerMinute; }
    std::int32_t LonSec() const { return record.Lon * SecPerMinute; }
    /// Whether the file holds all bytes of the record.
    bool IsWhole() const { return whole; }

private:
    /// Takes fewer bytes than a record has; nothing, of which none is taken, at the end of the file.
    static std::optional<MinuteGridRecord> TakeRest(ByteReader& bytes) {
        std::array<std::byte, MinuteGridRecordSize> rest = {};
        const std::span<const std::byte> ready = bytes.Ahead(rest.size());
        const std::size_t count = std::min(ready.size(), rest.size());
        std::copy_n(ready.begin(), count, rest.begin());
        const MinuteGridRecord record = DecodeMinuteGrid(rest);
        if (RankOf(record.Code) == 0 && count <= sizeof record.Code) {
            return std::nullopt;
        }
        bytes.Skip(static_cast<std::int64_t>(count));
        return record;
    }

    ByteReader& bytes;
    MinuteGridRecord record;
    std::int16_t feature = 0;
    bool begins = false;
    bool whole = true;
};

} // namespace quelmont
