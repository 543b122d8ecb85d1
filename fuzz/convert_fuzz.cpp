// Feeds bytes as a map file through quelmont-convert into another format. What is written has to be
// whole: it is read back.
//
// The first two bytes choose the formats, the third how much is dropped, the fourth the habits of the file
// (see memory_file.h); the rest is the file.

#include "convert/line_encoder.h"
#include "convert/line_steps.h"
#include "convert/map_file_source.h"
#include "convert/simplify.h"
#include "convert/utm_zone.h"
#include "core/file_numbers.h"
#include "core/run_time_error.h"
#include "mapfiles/feature_rows.h"
#include "mapfiles/map_formats.h"
#include "memory_file.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

namespace quelmont {
namespace {

constexpr std::size_t HeaderSize = 4;
constexpr std::array Names = {"fuzz.map", "fuzz.pnt", "fuzz.pkv", "fuc.pkd",  "fuzz.grv", "fuzz.grf",
                              "fuzz.dat", "fuzz.mps", "fuzz.mp1", "fuzz.prn", "fuzz.utm"};

const MapFormat& FormatOf(const char* name) { return *MapFormatOfEnding(name); }

const UtmZone& Zone() {
    static const UtmZone zone({177.0, "WGS84 1984", 0.0}, 0.0);
    return zone;
}

/// Writes what comes into a text.
class Writer : public LineReceiver {
public:
    Writer(const char* name, int tolerance_)
        : rows(static_cast<std::int16_t>(FeatureRows(name).size())), tolerance(tolerance_),
          sink([this](std::span<const std::byte> block) {
              written.append(reinterpret_cast<const char*>(block.data()), block.size());
          }),
          encoder(NewMapFileEncoder(name, FormatOf(name), &Zone(), tally)) {
        encoder->Begin(true, sink);
    }

    void BeginFeature(const OGRFeature& record) override {
        const int number = record.GetFieldAsInteger(FeatureColumn);
        feature.Number = static_cast<std::int16_t>(std::clamp<int>(number, 1, rows));
        const int label = record.GetFieldIndex(LabelColumn);
        feature.Label = label >= 0 ? record.GetFieldAsString(label) : "";
    }
    void TakeLine(MapLine& line) override {
        CheckOnEarth(line);
        SplitAt180(line, [this](MapLine& piece) {
            if (tolerance > 0) {
                Simplify(piece, tolerance);
            }
            encoder->Encode(feature, piece, sink);
        });
    }
    const std::string& Written() {
        encoder->End(sink);
        sink.Flush();
        return written;
    }

private:
    std::int16_t rows;
    int tolerance;
    std::string written;
    ConvertTally tally;
    ByteSink sink;
    std::unique_ptr<LineEncoder> encoder;
    TargetFeature feature;
};

/// Whether a file could be read to its end.
bool Read(const char* name, std::span<const std::uint8_t> contents, const MemoryFileHabits& habits,
          LineReceiver& receiver) {
    SetMemoryFile(contents, habits);
    try {
        MapFileSource(name, FormatOf(name), std::nullopt, &Zone()).Read(receiver);
        return true;
    } catch (const ConvertError&) {
        return false;
    }
}

void Run(const char* from, const char* to, int tolerance, const MemoryFileHabits& habits,
         std::span<const std::uint8_t> contents) {
    Writer writer(to, tolerance);
    if (!Read(from, contents, habits, writer)) {
        return;
    }
    const std::string written = writer.Written();
    Writer back("fuzz.dat", 0);
    const bool whole =
        Read(to, {reinterpret_cast<const std::uint8_t*>(written.data()), written.size()}, {}, back);
    if (!whole || IsFileOpen(InputFileNumber)) {
        std::abort();
    }
}

} // namespace
} // namespace quelmont

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quelmont;
    if (size >= HeaderSize) {
        Run(Names[data[0] % Names.size()], Names[data[1] % Names.size()], data[2], HabitsOf(data[3]),
            std::span(data, size).subspan(HeaderSize));
    }
    return 0;
}
