#include "designfile/design_reader.h"

#include "core/rounding.h"
#include "core/run_time_error.h"
#include "designfile/read_bounds.h"
#include "designfile/record_lines.h"
#include "mapfiles/feature_rows.h"

#include <algorithm>
#include <utility>

namespace quelmont {

namespace {

constexpr int RecordProjNum = 3;
/// The last record that a zone is made of.
constexpr int RecordZoneTexts = 48;

using Records = std::span<const Record>;

/// The records from the first on that repeat as it does.
Records Block(Records records) {
    const auto last = std::find_if(records.begin(), records.end(), [&](const Record& record) {
        return record.repeat != records.front().repeat;
    });
    return records.first(static_cast<std::size_t>(last - records.begin()));
}

/// The fields that are stored together with the bounds.
struct Bounds {
    DesignBounds bounds = Design;
    double originX = Design.ScreenOriginX, originY = Design.ScreenOriginY;
    double scaleX = Design.ScreenScaleX, scaleY = Design.ScreenScaleY;

    void Restore() const {
        static_cast<DesignBounds&>(Design) = bounds;
        Design.ScreenOriginX = originX;
        Design.ScreenOriginY = originY;
        Design.ScreenScaleX = scaleX;
        Design.ScreenScaleY = scaleY;
    }
};

class Reader {
public:
    Reader(LineReader& lines_, DesignFile& file_, const TextPlacing& placing_)
        : lines(lines_), file(file_), placing(placing_) {}

    void Read(Records records) {
        while (!records.empty()) {
            Records block = Block(records);
            if (block.front().repeat == Repeat::PerMapFile) {
                ReadMapFiles(block);
            } else if (block.front().repeat == Repeat::PerTextItem) {
                ReadTexts(block);
            } else {
                ReadOnce(block);
            }
            records = records.subspan(block.size());
        }
    }

private:
    void ReadOnce(Records block) {
        while (!block.empty()) {
            std::size_t count = 1;
            if (block.front().number == RecordFirstBound) {
                while (block[count - 1].number != RecordLastBound) {
                    ++count;
                }
                ReadBounds(block.first(count));
            } else {
                ReadRecord(lines, block.front(), file, 0);
                After(block.front().number);
            }
            block = block.subspan(count);
        }
    }

    void After(int number) {
        switch (number) {
        case RecordProjNum:
            Design.BoundsProjNum = 0;
            break;
        case RecordCounts:
            PrepareMapFiles();
            break;
        case RecordZoneTexts:
            if (Design.ProjNum == ProjUtm) {
                DeriveReadBounds();
                Design.BoundsProjNum = Design.ProjNum;
            }
            break;
        default:
            break;
        }
    }

    void PrepareMapFiles() {
        constexpr std::int64_t linesPerFile = 4; // its records and the name of its text output
        if (!lines.HasLeft(file.MapFileCount * linesPerFile + Design.GridOutputCount)) {
            throw RunTimeError(ErrorInputPastEnd);
        }
        Design.InputFiles.clear();
        Design.MapFileCount = 0;
        Design.AsciiFileName.assign(static_cast<std::size_t>(Design.GridOutputCount + file.MapFileCount), {});
    }

    void ReadMapFiles(Records block) {
        for (std::int16_t i = 0; i < file.MapFileCount; ++i) {
            for (const Record& record : block) {
                if (record.number == RecordMapFile) {
                    ReadMapFile(record);
                } else {
                    ReadRecord(lines, record, file, static_cast<std::size_t>(i));
                }
            }
        }
    }

    /// The entry has the proposed styles until its own are read.
    void ReadMapFile(const Record& record) {
        std::vector<InputFileEntry>& entries = Design.InputFiles;
        entries.emplace_back();
        try {
            ReadRecord(lines, record, file, entries.size() - 1);
            const std::int16_t type = entries.back().MapFileType;
            entries.back() = NewMapFileEntry(entries.back().MapFileName);
            entries.back().MapFileType = type;
        } catch (const RunTimeError&) {
            entries.pop_back();
            throw;
        }
        Design.MapFileCount = RoundToInt16(static_cast<double>(entries.size()));
    }

    void ReadBounds(Records block) {
        const Bounds before;
        try {
            for (const Record& record : block) {
                ReadRecord(lines, record, file, 0);
            }
            TestReadBounds();
            if (Design.ProjNum != ProjUtm) {
                DeriveReadBounds();
                Design.BoundsProjNum = Design.ProjNum;
            }
        } catch (const RunTimeError&) {
            before.Restore();
            throw;
        }
    }

    void ReadTexts(Records block) {
        if (!lines.HasLeft(std::int64_t{file.TextCount} * static_cast<std::int64_t>(block.size()))) {
            throw RunTimeError(ErrorInputPastEnd);
        }
        placing.begin(file.window);
        Design.TextItems.clear();
        for (std::int32_t i = 0; i < file.TextCount; ++i) {
            Design.TextItems.emplace_back();
            try {
                for (const Record& record : block) {
                    ReadRecord(lines, record, file, static_cast<std::size_t>(i));
                }
                placing.place(Design.TextItems.back());
            } catch (const RunTimeError&) {
                Design.TextItems.pop_back();
                throw;
            }
        }
    }

    LineReader& lines;
    DesignFile& file;
    const TextPlacing& placing;
};

} // namespace

void ReadDesign(LineReader& lines, std::span<const Record> records, DesignFile& file,
                const TextPlacing& placing) {
    Reader(lines, file, placing).Read(records);
}

} // namespace quelmont
