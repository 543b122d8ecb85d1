#include "mapinput/kept_lines.h"

#include "core/run_time_error.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/minute_grid_file.h"

#include <optional>
#include <utility>

namespace quelmont {

namespace {

std::shared_ptr<const MinuteGridLines> Read(const FileStamp& stamp) {
    std::shared_ptr<const MinuteGridLines> read;
    try {
        ByteReader bytes;
        MinuteGridLines taken = TakeMinuteGridLines(bytes);
        const auto length = static_cast<std::int64_t>(taken.places.size() * MinuteGridRecordSize);
        if (length == stamp.bytes && StampOfFile(InputFileNumber) == stamp) {
            read = std::make_shared<const MinuteGridLines>(std::move(taken));
        }
    } catch (const RunTimeError&) {
        // Whoever reads its records comes to it, too, and what is before it is drawn.
    }
    SeekFile(InputFileNumber, 0);
    return read;
}

} // namespace

std::shared_ptr<const MinuteGridLines> KeptLines::OfOpenFile() {
    const std::optional<FileStamp> stamp = StampOfFile(InputFileNumber);
    if (!stamp || stamp->bytes > LongestFile) {
        return nullptr;
    }
    if (auto kept = lines.Find(*stamp)) {
        return kept;
    }
    auto read = Read(*stamp);
    if (read) {
        lines.Keep(*stamp, read, read->Bytes());
    }
    return read;
}

KeptLines*& KeptMapLines() {
    static KeptLines* lines = nullptr;
    return lines;
}

} // namespace quelmont
