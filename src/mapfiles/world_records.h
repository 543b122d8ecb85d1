#pragma once

#include "core/run_time_error.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/text_reader.h"
#include "mapfiles/world_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>

namespace quelmont {

/// Walks the items of the world file in text (.mp1) that is open under file number 1.
///
///     for (WorldTextItems items(bytes); items.Next();)
///         if (items.IsPoint()) ...
class WorldTextItems {
public:
    explicit WorldTextItems(ByteReader& bytes_) : bytes(bytes_) { SkipByteOrderMark(bytes); }

    /// Goes to the next item; false at the end of the file. RunTimeError "Overflow" when a number is too
    /// large, as TakeText, and when the file cannot be read.
    bool Next() {
        if (!bytes.Has(1)) {
            return false;
        }
        begins = pendingBreak;
        point = DecodeWorldDegrees(TakeText(bytes, TakeWorldItem));
        pendingBreak = !point;
        return true;
    }

    /// Whether the item is a point; any other ends the line of points.
    bool IsPoint() const { return point.has_value(); }
    /// Whether the point begins a line, as the first of the file does.
    bool BeginsLine() const { return begins; }
    /// Degrees, as the item has them.
    const WorldDegrees& Point() const { return *point; }

private:
    ByteReader& bytes;
    std::optional<WorldDegrees> point;
    bool begins = false;
    bool pendingBreak = true;
};

/// Walks the points of the binary world file (.mps) that is open under file number 1. The first of the
/// file begins a line, and so does one behind a marker or an end of line.
class WorldFloatPoints {
public:
    explicit WorldFloatPoints(ByteReader& bytes_) : bytes(bytes_) {}

    /// Goes to the next point; false at the end of the file, for which up to three bytes stand too.
    /// RunTimeError "Input past end of file" when the file ends within a record, or the record does not end
    /// within MaxFilling bytes behind its point, and when the file cannot be read.
    bool Next() {
        if (!bytes.Has(WorldFloatSize)) {
            return false;
        }
        begins = std::exchange(pendingBreak, false);
        auto floats = bytes.Take<WorldFloatSize>();
        if (IsWorldMarker(floats)) {
            begins = true;
            floats = bytes.Take<WorldFloatSize>();
        }
        lat = DecodeWorldFloat(floats);
        lon = DecodeWorldFloat(bytes.Take<WorldFloatSize>());
        pendingBreak = TakeTail();
        return true;
    }

    bool BeginsLine() const { return begins; }
    // Degrees, as the record has them.
    float Lat() const { return lat; }
    float Lon() const { return lon; }

    /// Passes over points that continue the line, up to so many, as long as holds(lat, lon) is true of
    /// them; the last of them is the current point then. Their number, of those that lie ready: there may
    /// be more. A marker looks like a latitude of 99 here, for which holds has to be false.
    template <typename Holds>
    std::int64_t PassOver(std::int64_t most, Holds&& holds) {
        if (pendingBreak || most <= 0) {
            return 0;
        }
        const std::span<const std::byte> ready = bytes.Ahead(WorldRecordSize);
        const std::size_t place = RunAtFront(ready, most, holds);
        if (place > 0) {
            const auto last = ready.first(place).last<WorldRecordSize>();
            lat = DecodeWorldFloat(last.first<WorldFloatSize>());
            lon = DecodeWorldFloat(last.subspan<WorldFloatSize, WorldFloatSize>());
        }
        bytes.Skip(static_cast<std::int64_t>(place));
        return static_cast<std::int64_t>(place / WorldRecordSize);
    }

private:
    /// The bytes of the plain records at the front of which holds is true, up to so many records. A function
    /// of its own, whose loop keeps everything in registers.
    template <typename Holds>
    [[gnu::noinline]] static std::size_t RunAtFront(std::span<const std::byte> ready, std::int64_t most,
                                                    Holds holds) {
        const std::size_t size =
            std::min(ready.size() / WorldRecordSize, static_cast<std::size_t>(most)) * WorldRecordSize;
        std::size_t place = 0;
        while (place < size) {
            const auto record = ready.subspan(place).first<WorldRecordSize>();
            const float nextLat = DecodeWorldFloat(record.first<WorldFloatSize>());
            const float nextLon = DecodeWorldFloat(record.subspan<WorldFloatSize, WorldFloatSize>());
            if (record.back() != WorldRecordEnd || !holds(nextLat, nextLon)) {
                break;
            }
            place += WorldRecordSize;
        }
        return place;
    }

    /// Takes the bytes up to the end of the record. Whether the next point begins a line.
    bool TakeTail() {
        bool lineEnd = false;
        for (std::size_t taken = 0; taken < MaxFilling; ++taken) {
            const std::byte byte = bytes.Take<1>()[0];
            if (byte == WorldRecordEnd) [[likely]] {
                return lineEnd;
            }
            lineEnd = lineEnd || byte == WorldLineEnd;
        }
        throw RunTimeError(ErrorInputPastEnd);
    }

    ByteReader& bytes;
    float lat = 0.0F, lon = 0.0F;
    bool begins = false;
    bool pendingBreak = true;
};

} // namespace quelmont
