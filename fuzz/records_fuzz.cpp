// Walks bytes as the records of a map file, of each family, without drawing them. The walk has to end, and
// how many bytes a read gives must make no difference.
//
// The first byte chooses the format, the second the habits of the file (see memory_file.h); the rest is the
// file.

#include "core/file_numbers.h"
#include "core/run_time_error.h"
#include "mapfiles/ascii_points.h"
#include "mapfiles/fixed_records.h"
#include "mapfiles/map_formats.h"
#include "mapfiles/minute_grid_records.h"
#include "mapfiles/packed_segments.h"
#include "mapfiles/world_records.h"
#include "memory_file.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>

namespace quelmont {
namespace {

constexpr std::size_t HeaderSize = 2;

void Check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// What was seen of a file, in one number (FNV-1a), and how many records.
struct Walk {
    std::uint64_t sum = 14695981039346656037U;
    std::size_t records = 0;

    void Add(std::uint64_t number) { sum = (sum ^ number) * 1099511628211U; }
    void Add(std::int32_t number) { Add(static_cast<std::uint64_t>(static_cast<std::uint32_t>(number))); }
    void Add(double number) { Add(std::bit_cast<std::uint64_t>(number)); }
    void Add(float number) { Add(static_cast<std::uint64_t>(std::bit_cast<std::uint32_t>(number))); }
    void Add(bool flag) { Add(std::uint64_t{flag ? 1U : 2U}); }
    void Add(std::string_view text) {
        for (const char c : text) {
            Add(static_cast<std::uint64_t>(static_cast<unsigned char>(c)));
        }
    }
    bool operator==(const Walk&) const = default;
};

void WalkMinuteGrid(ByteReader& bytes, Walk& walk) {
    for (MinuteGridRecords records(bytes); records.Next(); ++walk.records) {
        walk.Add(records.BeginsLine());
        walk.Add(std::int32_t{records.Feature()});
        walk.Add(records.LatSec());
        walk.Add(records.LonSec());
        walk.Add(records.IsWhole());
    }
}

/// Every third segment is stepped over.
void WalkPacked(ByteReader& bytes, PackedRanks ranks, Walk& walk) {
    for (PackedSegments segments(bytes, ranks); segments.Next() && segments.IsWhole(); ++walk.records) {
        walk.Add(std::int32_t{segments.Feature()});
        if (walk.records % 3 == 2) {
            segments.StepOver();
            continue;
        }
        segments.VisitPoints([&](std::int32_t lat, std::int32_t lon, bool begins) {
            walk.Add(lat);
            walk.Add(lon);
            walk.Add(begins);
            return true;
        });
        walk.Add(segments.IsWhole());
    }
}

/// The points of every third header are stepped over.
void WalkFixedRecords(ByteReader& bytes, Walk& walk) {
    for (FixedRecords records(bytes); records.Next(); ++walk.records) {
        walk.Add(records.IsWhole());
        if (!records.IsHeader()) {
            const FixedRecordPoint point = records.Point();
            walk.Add(point.Lat);
            walk.Add(point.Lon);
            continue;
        }
        const LineGraphHeader header = records.Header();
        walk.Add(header.Code);
        walk.Add(header.Count);
        if (walk.records % 3 == 2) {
            records.StepOver(header.Count);
        }
    }
}

void WalkWorldText(ByteReader& bytes, Walk& walk) {
    for (WorldTextItems items(bytes); items.Next(); ++walk.records) {
        walk.Add(items.IsPoint());
        if (items.IsPoint()) {
            walk.Add(items.BeginsLine());
            walk.Add(items.Point().Lat);
            walk.Add(items.Point().Lon);
        }
    }
}

/// Points of the northern hemisphere are passed over where they lie ready, which changes nothing but how
/// the walk gets to the next one.
void WalkWorldFloats(ByteReader& bytes, Walk& walk) {
    for (WorldFloatPoints points(bytes);;) {
        walk.records += static_cast<std::size_t>(points.PassOver(
            5, [](float lat, float lon) { return lat >= 0.0F && lat < 98.0F && lon < 500.0F; }));
        if (!points.Next()) {
            return;
        }
        ++walk.records;
        if (!(points.Lat() >= 0.0F)) {
            walk.Add(points.Lat());
            walk.Add(points.Lon());
            walk.Add(points.BeginsLine());
        }
    }
}

void WalkAscii(ByteReader& bytes, Walk& walk) {
    for (AsciiPoints points(bytes); points.Find(); ++walk.records) {
        const AsciiMapPoint point = points.Take();
        walk.Add(point.Break);
        walk.Add(point.Second);
        walk.Add(point.Third);
        walk.Add(point.Label);
    }
}

void WalkRecords(const MapFormat& format, ByteReader& bytes, Walk& walk) {
    switch (format.form) {
    case MapFileForm::MinuteGrid:
        return WalkMinuteGrid(bytes, walk);
    case MapFileForm::PackedWhole:
        return WalkPacked(bytes, PackedRanks::Whole, walk);
    case MapFileForm::PackedPart:
        return WalkPacked(bytes, PackedRanks::River, walk);
    case MapFileForm::PackedLineGraph:
        return WalkPacked(bytes, PackedRanks::LineGraph, walk);
    case MapFileForm::FixedRecords:
    case MapFileForm::LineGraphText:
        return WalkFixedRecords(bytes, walk);
    case MapFileForm::WorldText:
        return WalkWorldText(bytes, walk);
    case MapFileForm::WorldFloats:
        return WalkWorldFloats(bytes, walk);
    case MapFileForm::AsciiDegrees:
    case MapFileForm::AsciiMetres:
        return WalkAscii(bytes, walk);
    }
}

Walk WalkFile(const MapFormat& format, std::span<const std::uint8_t> contents,
              const MemoryFileHabits& habits) {
    SetMemoryFile(contents, habits);
    OpenFile(InputFileNumber, "fuzz", OpenMode::Input);
    Walk walk;
    try {
        ByteReader bytes;
        WalkRecords(format, bytes, walk);
        Check(bytes.Position() >= 0);
    } catch (const RunTimeError& error) {
        walk.Add(std::int32_t{error.Number()});
    }
    CloseFile(InputFileNumber);
    Check(walk.records <= contents.size());
    return walk;
}

} // namespace
} // namespace quelmont

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quelmont;
    if (size < HeaderSize) {
        return 0;
    }
    const MapFormat& format = MapFormats()[data[0] % MapFormats().size()];
    const std::span<const std::uint8_t> contents = std::span(data, size).subspan(HeaderSize);
    const MemoryFileHabits habits = HabitsOf(data[1]);
    const Walk walk = WalkFile(format, contents, habits);
    if (habits.changePerRead == 0) {
        Check(walk == WalkFile(format, contents, {}));
    }
    return 0;
}
