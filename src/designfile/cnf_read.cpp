#include "designfile/cnf_read.h"

#include "circles/great_circle.h"
#include "circles/small_circle.h"
#include "core/error_box.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "core/text_encoding.h"
#include "designfile/design_reader.h"
#include "designfile/older_designs.h"
#include "designfile/read_bounds.h"
#include "designfile/record_lines.h"
#include "designfile/shown_caption.h"
#include "platform/machine.h"

#include <algorithm>

namespace quelmont {

namespace {

// Versions in hundredths.
constexpr int FirstOfTable = 300;
constexpr int FirstOfOlderForm = 200;
constexpr int WithoutVersionLine = 120;
constexpr int LastWithoutCellHeight = 203;

constexpr const char* TooLarge = "Error: The file has more than 64 MB, which no map design has.";

/// A file that no map design can be.
class LargeFile {};

struct OpenInput {
    explicit OpenInput(const std::string& name) { OpenFile(InputFileNumber, name, OpenMode::Input); }
    ~OpenInput() {
        try {
            CloseFile(InputFileNumber);
        } catch (const RunTimeError&) {
            // All of it has been read.
        }
    }
    OpenInput(const OpenInput&) = delete;
    OpenInput& operator=(const OpenInput&) = delete;
};

std::string BytesOf(const std::string& name) {
    constexpr std::size_t block = std::size_t{1} << 20U;
    const OpenInput input(name);
    std::string bytes;
    for (;;) {
        const std::size_t before = bytes.size();
        bytes.resize(before + block);
        const std::size_t count =
            ReadFile(InputFileNumber, std::as_writable_bytes(std::span(bytes.data() + before, block)));
        bytes.resize(before + count);
        if (count == 0) {
            return bytes;
        }
        if (bytes.size() > LargestDesignFile) {
            throw LargeFile();
        }
    }
}

std::string TextOf(const std::string& name) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    std::string bytes = BytesOf(name);
    if (bytes.starts_with(byteOrderMark)) {
        bytes.erase(0, byteOrderMark.size());
    }
    return ToUtf8(bytes);
}

/// The version of a file, and its lines behind the one that tells it.
struct VersionedLines {
    int version;
    LineReader lines;
};

VersionedLines TakeVersion(std::string_view text) {
    constexpr std::size_t digits = 4;
    LineReader lines(text);
    std::string_view first = lines.Next();
    if (!first.starts_with("Configuration") && !first.starts_with("Quelmont")) {
        return {WithoutVersionLine, LineReader(text)};
    }
    first = first.substr(0, first.find_last_not_of(' ') + 1);
    const double version = ValueOf(first.substr(first.size() - digits));
    return {RoundToInt32(version * 100.0), lines};
}

std::vector<Record> RecordsOf(int version) {
    if (version >= FirstOfTable) {
        const std::span<const Record> records = DesignRecords();
        return {records.begin(), records.end()};
    }
    return OlderDesignRecords(std::max(version, FirstOfOlderForm));
}

/// Reads all lines into Design and gives the window that they were saved for.
SavedWindow ReadLines(const VersionedLines& source, const TextPlacing& placing) {
    DesignFile file{Design};
    LineReader lines = source.lines;
    const std::vector<Record> records = RecordsOf(source.version);
    ReadDesign(lines, records, file, placing);
    if (source.version <= LastWithoutCellHeight) {
        DeriveCellHeights();
    }
    if (source.version < FirstOfOlderForm) {
        RenameOldest();
    }
    if (source.version < FirstOfTable) {
        RemakeMinuteGridStyles();
    }
    return file.window;
}

/// Fits window and texts while a file is read.
TextPlacing PlacingOnScreen(TextFit& fit) {
    return {[&fit](const SavedWindow& saved) {
                FitWindow(saved);
                fit = FitOfTexts(saved);
            },
            [&fit](TextItem& text) { FitText(text, fit); }};
}

/// Files whose layout is guessed at are tried first: either all of one is stored or nothing.
SavedWindow ReadGuessed(const VersionedLines& source, const TextPlacing& placing) {
    const MapDesign before = Design;
    try {
        ReadLines(source, {[](const SavedWindow& /*saved*/) {}, [](TextItem& /*text*/) {}});
        Design = before;
        return ReadLines(source, placing);
    } catch (const RunTimeError&) {
        Design = before;
        throw;
    }
}

/// A spheroid under the name that it has here.
void RenameSpheroid() {
    if (Design.SpheroidName == "GRS80 1980") {
        Design.SpheroidName = "WGS84 1984";
    }
}

/// The tables of the circles that are shown.
void ComputeCircles() {
    Design.GcTable = {};
    Design.ScTable = {};
    if (Design.GcDefined) {
        GcCalc();
    }
    if (Design.ScDefined) {
        ScCalc();
    }
}

void Read(const std::string& name) {
    const std::string text = TextOf(name);
    const VersionedLines source = TakeVersion(text);
    TextFit fit;
    const TextPlacing placing = PlacingOnScreen(fit);
    Design.MapLabels.clear();
    const SavedWindow saved =
        source.version < FirstOfOlderForm ? ReadGuessed(source, placing) : ReadLines(source, placing);
    RenameSpheroid();
    RestoreLastDigits();
    ComputeCircles();
    Design.MapReduce *= MapReduceFactor(saved);
    Design.ProjNumPrev = Design.ProjNum;
}

} // namespace

bool ReadDesignFile(const std::string& name) {
    bool done = false;
    {
        const ShownCaption caption("Quelmont: reading configuration file");
        try {
            done = Guarded("CnfRead", [&] { Read(name); });
        } catch (const LargeFile&) {
            ShowDrawBox("Error in CnfRead", TooLarge);
        }
    }
    if (done) {
        Machine().window->SetCaption("Quelmont: " + Design.ProjName + " projection");
    }
    return done;
}

bool CnfRead() {
    const std::string name = Design.CnfFileName;
    const bool done = ReadDesignFile(name);
    Design.CnfFileName = name;
    return done;
}

std::optional<AreaPixels> AreaOfDesignFile(const std::string& name) {
    try {
        const std::string text = TextOf(name);
        VersionedLines source = TakeVersion(text);
        MapDesign unused;
        DesignFile file{unused};
        for (const Record& record : RecordsOf(source.version)) {
            if (record.number == RecordCounts) {
                break;
            }
            ReadRecord(source.lines, record, file, 0);
        }
        return SavedPixels(file.window);
    } catch (const RunTimeError&) {
        return std::nullopt;
    } catch (const LargeFile&) {
        return std::nullopt;
    }
}

} // namespace quelmont
