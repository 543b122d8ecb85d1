// What holds of every format: the same picture, and a sound end whatever the file is.

#include "core/file_numbers.h"
#include "core/run_time_error.h"
#include "map_fixture.h"
#include "mapfiles/ascii_map_file.h"
#include "mapfiles/fixed_record_file.h"
#include "mapfiles/minute_grid_file.h"
#include "mapfiles/world_file.h"
#include "mapinput/map_plot.h"
#include "packed_segments.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include <sys/stat.h>
#include <unistd.h>

namespace quelmont {
namespace {

using testing::IsEmpty;
using Lines = std::vector<std::vector<TruePlace>>;

std::string AsText(const FixedRecord& record) { return {record.data(), record.size()}; }

// Each takes lines on whole minutes, up to two minutes a step.

std::string MinuteGrid(const Lines& lines) {
    std::string file;
    for (const auto& line : lines) {
        auto code = static_cast<std::int16_t>(RankOfFeature(1) * 1000);
        for (const TruePlace& place : line) {
            file += Text(EncodeMinuteGrid({std::exchange(code, std::int16_t{0}),
                                           static_cast<std::int16_t>(place.lat / 60),
                                           static_cast<std::int16_t>(place.lon / 60)}));
        }
    }
    return file;
}

std::string Packed(const Lines& lines, int rank) {
    std::string file;
    for (const auto& line : lines) {
        file += Segment(rank, line);
    }
    return file;
}
std::string DataBank(const Lines& lines) { return Packed(lines, 9); }
std::string Coast(const Lines& lines) { return Packed(lines, 1); }
std::string PackedGraph(const Lines& lines) { return Packed(lines, 76); }

std::string Records(const Lines& lines, bool graph) {
    std::string file;
    for (const auto& line : lines) {
        file += graph ? AsText(EncodeLineGraphHeader({4000, static_cast<std::int32_t>(line.size())}))
                      : AsText(EncodeFixedRecordBreak());
        for (const TruePlace& place : line) {
            file += AsText(EncodeFixedRecordPoint({place.lat, place.lon}));
        }
    }
    return file;
}
std::string FixedRecords(const Lines& lines) { return Records(lines, false); }
std::string TextGraph(const Lines& lines) { return Records(lines, true); }

std::string WorldText(const Lines& lines) {
    std::string file;
    for (const auto& line : lines) {
        file += WorldItemBreak;
        for (const TruePlace& place : line) {
            file += EncodeWorldItem(place.lat / 3600.0, place.lon / 3600.0);
        }
    }
    return file;
}

std::string WorldBinary(const Lines& lines) {
    std::string file;
    for (const auto& line : lines) {
        file += Text(WorldMarker);
        for (const TruePlace& place : line) {
            file += Text(EncodeWorldRecord(static_cast<float>(place.lat) / 3600.0F,
                                           static_cast<float>(place.lon) / 3600.0F));
        }
    }
    return file;
}

std::string Ascii(const Lines& lines) {
    std::string file;
    for (const auto& line : lines) {
        std::int32_t start = 1;
        for (const TruePlace& place : line) {
            file += EncodeAsciiMapPoint(
                {std::exchange(start, 0), place.lat / 3600.0, place.lon / 3600.0, start == 0 ? "" : "here"},
                6);
        }
    }
    return file;
}

/// Metres from a place of the zone, a metre for a second.
std::string Metres(const Lines& lines) {
    std::string file;
    for (const auto& line : lines) {
        std::int32_t start = 1;
        for (const TruePlace& place : line) {
            file += EncodeAsciiMapPoint(
                {std::exchange(start, 0), 500'000.0 + place.lon, 5'900'000.0 + place.lat, ""}, 0);
        }
    }
    return file;
}

struct Format {
    const char* name;
    std::string (*make)(const Lines& lines);
    bool text;              ///< lines that end in CR, LF or both
    int missingFolderError; ///< of a file in a folder that is not there
};
std::ostream& operator<<(std::ostream& stream, const Format& format) { return stream << format.name; }

// clang-format off
const Format Formats[] = {
    // name      make          text   missing folder
    {"a.map",    MinuteGrid,   false, ErrorFileNotFound},
    {"a.all",    MinuteGrid,   false, ErrorFileNotFound},
    {"a.cci",    MinuteGrid,   false, ErrorFileNotFound},
    {"a.pnt",    MinuteGrid,   false, ErrorFileNotFound},
    {"a.pkv",    DataBank,     false, ErrorFileNotFound},
    {"euc.pkd",  Coast,        false, ErrorFileNotFound},
    {"a.grv",    PackedGraph,  false, ErrorFileNotFound},
    {"a.dat",    FixedRecords, false, ErrorPathNotFound},
    {"a.grf",    TextGraph,    false, ErrorPathNotFound},
    {"a.mp1",    WorldText,    true,  ErrorPathNotFound},
    {"a.mps",    WorldBinary,  false, ErrorFileNotFound},
    {"a.prn",    Ascii,        true,  ErrorPathNotFound},
    {"a.utm",    Metres,       true,  ErrorPathNotFound},
    {"a.other",  Ascii,        true,  ErrorPathNotFound},
};
// clang-format on

class EveryReader : public ReaderTest, public testing::WithParamInterface<Format> {
protected:
    EveryReader() {
        if (InMetres()) {
            Zone(6'200'000, 5'600'000, 300'000, 800'000);
        }
    }
    static bool InMetres() { return GetParam().make == Metres; }

    /// Two lines, of four and of three points, on minutes.
    static Lines TwoLines() {
        return {{{600, 1200}, {660, 1260}, {720, 1260}, {780, 1200}},
                {{-600, -1200}, {-660, -1320}, {-720, -1200}}};
    }
    static std::string Contents() { return GetParam().make(TwoLines()); }
    void Plot(const std::string& contents) { ReaderTest::Plot(GetParam().name, contents); }

    /// A line of so many points. Packed segments hold no more than a thousand of them here.
    static std::string LongFile(int points) {
        Lines lines;
        for (int left = points; left > 0; left -= 1000) {
            lines.push_back(Eastward({600, 600}, 60, std::min(left, 1000)));
        }
        return GetParam().make(lines);
    }

    /// Nothing is left open and every stroke lies on the drawing area; at most one box was shown.
    void ExpectSoundEnd(const std::string& what) {
        EXPECT_LE(machine.boxes.Taken().size(), 1U) << what;
        ExpectCleanEnd();
        for (const RecordedSegment& segment : surface.Segments()) {
            for (const SurfacePoint& end : {segment.from, segment.to}) {
                ASSERT_GE(end.x, -1) << what;
                ASSERT_LE(end.x, 1280) << what;
                ASSERT_GE(end.y, -1) << what;
                ASSERT_LE(end.y, 924) << what;
            }
        }
    }
};

TEST_P(EveryReader, DrawsTheSamePicture) {
    Plot(Contents());
    std::vector<TruePlace> expected;
    for (const auto& line : TwoLines()) {
        expected.insert(expected.end(), line.begin(), line.end());
    }
    std::vector<TruePlace> plotted;
    for (const PlottedPoint& point : recorder.points) {
        plotted.push_back(InMetres() ? TruePlace{static_cast<std::int32_t>(point.lat - 5'900'000.0),
                                                 static_cast<std::int32_t>(point.lon - 500'000.0)}
                                     : Degrees(point.lat, point.lon - 180.0));
    }
    EXPECT_EQ(plotted, expected);
    EXPECT_EQ(Moves(), 2U);
    EXPECT_TRUE(recorder.points.at(4).move);
    EXPECT_EQ(Counted().PointsPlotted, 7);
    // The headers of fixed records count, too.
    EXPECT_EQ(Counted().PointsRead, GetParam().make == FixedRecords || GetParam().make == TextGraph ? 9 : 7);
    ExpectCleanEnd();
}

TEST_P(EveryReader, EmptyFileDrawsNothing) {
    Plot("");
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_EQ(Counted().PointsRead, 0);
    ExpectCleanEnd();
}

TEST_P(EveryReader, FileIsReadToItsEndWhateverLengthItTells) {
    Plot(Contents());
    const std::vector<PlottedPoint> expected = recorder.points;
    const auto size = static_cast<std::int64_t>(Contents().size());
    for (const std::int64_t told : {std::int64_t{0}, std::int64_t{1}, std::int64_t{5}, size / 2, size * 3}) {
        files.TellLength(told);
        Plot(Contents());
        EXPECT_EQ(recorder.points, expected) << "told " << told;
        ExpectCleanEnd();
    }
}

TEST_P(EveryReader, FileThatComesInSmallPiecesDrawsTheSame) {
    Plot(Contents());
    const std::vector<PlottedPoint> expected = recorder.points;
    for (const std::size_t most : {1U, 2U, 3U, 17U}) {
        files.ReadAtMost(most);
        Plot(Contents());
        EXPECT_EQ(recorder.points, expected) << most << " bytes at once";
        ExpectCleanEnd();
    }
}

TEST_P(EveryReader, FileOfTheSystemThatTellsNoLengthIsReadAsItsCopy) {
    const TemporaryFolder folder;
    const std::string name = folder / GetParam().name;
    ASSERT_EQ(symlink("/proc/version", name.c_str()), 0);
    AddFile(name, ReadWholeFile("/proc/version"));
    PlotList();
    const std::vector<PlottedPoint> expected = recorder.points;
    const std::int64_t read = Counted().PointsRead;
    const std::vector<AskedBox> boxes = machine.boxes.Taken();
    SetFileDeviceMaker(nullptr);
    PlotList();
    EXPECT_EQ(recorder.points, expected);
    EXPECT_EQ(Counted().PointsRead, read);
    EXPECT_EQ(machine.boxes.Taken(), boxes);
}

TEST_P(EveryReader, PipeIsRefusedAndNotDrawnAsEmpty) {
    const TemporaryFolder folder;
    const std::string name = folder / GetParam().name;
    ASSERT_EQ(mkfifo(name.c_str(), 0600), 0);
    AddFile(name, "");
    SetFileDeviceMaker(nullptr);
    Design.OutputWmf = false;
    MapPlot();
    ExpectError("Path/File access error");
}

TEST_P(EveryReader, FileThatIsNotThereIsReported) {
    AddFile("other", "");
    Design.InputFiles[0].MapFileName = GetParam().name;
    PlotList();
    EXPECT_EQ(machine.boxes.asked.at(0).title, "File not found error in MapPlot");
    machine.boxes.Taken();
    ExpectCleanEnd();
}

TEST_P(EveryReader, FolderThatIsNotThereIsReportedByTheFormatsOwnError) {
    files.FailOpening(ErrorPathNotFound);
    AddFile(GetParam().name, "");
    Design.OutputWmf = false;
    MapPlot();
    if (GetParam().missingFolderError == ErrorFileNotFound) {
        EXPECT_EQ(machine.boxes.Taken().at(0).title, "File not found error in MapPlot");
    } else {
        ExpectError("Path not found");
    }
}

TEST_P(EveryReader, FileWithNothingShownDrawsNothing) {
    InputFileEntry& entry = AddFile(GetParam().name, Contents());
    for (FeatureStyle& style : entry.Features) {
        style.Shown = false;
    }
    PlotList();
    EXPECT_THAT(recorder.points, IsEmpty());
    ExpectCleanEnd();
}

TEST_P(EveryReader, NextFileFollows) {
    AddFile(GetParam().name, Contents());
    AddFile("b.prn", "1,0,0\n");
    AddFile(std::string("next_") + GetParam().name, Contents());
    PlotList();
    EXPECT_EQ(recorder.points.size(), InMetres() ? 14U : 15U) << "Greenwich is not in the zone";
    ExpectCleanEnd();
}

TEST_P(EveryReader, FileCutOffAnywhereEndsSoundly) {
    const std::string whole = Contents();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        Plot(whole.substr(0, size));
        // Numbers that are cut off are other numbers, and zeros beyond the end are places, too.
        EXPECT_LE(recorder.points.size(), 8U) << size;
        EXPECT_LE(Counted().PointsRead, 10) << size;
        ExpectSoundEnd("cut off at " + std::to_string(size));
    }
}

TEST_P(EveryReader, FileThatFailsAnywhereIsReportedOnce) {
    const std::string whole = Contents();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        files.FailReadingAfter(static_cast<std::int64_t>(size), ErrorDeviceIo);
        Plot(whole);
        ExpectError("Device I/O error");
    }
}

TEST_P(EveryReader, FileThatCannotBeOpenedIsReported) {
    files.FailOpening(ErrorPermissionDenied);
    AddFile(GetParam().name, "");
    Design.OutputWmf = false;
    MapPlot();
    ExpectError("Permission denied");
}

TEST_P(EveryReader, OneByteOverAndOverEndsSoundly) {
    for (const int byte : {0x00, 0x01, 0x0A, 0x0D, 0x1A, 0x20, 0x22, 0x2C, 0x2D, 0x2E, 0x30, 0x39, 0x45, 0x4E,
                           0x7F, 0x80, 0x99, 0xC6, 0xFF}) {
        Plot(std::string(5000, static_cast<char>(byte)));
        ExpectSoundEnd("byte " + std::to_string(byte));
    }
}

TEST_P(EveryReader, RandomBytesEndSoundly) {
    std::mt19937 random(20251121);
    for (int round = 0; round < 30; ++round) {
        std::string bytes(3001, '\0');
        std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random() & 0xFFU); });
        Plot(bytes);
        ExpectSoundEnd("round " + std::to_string(round));
    }
}

TEST_P(EveryReader, FileWithWrongBytesEndsSoundly) {
    std::mt19937 random(1);
    const std::string whole = Contents();
    for (std::size_t place = 0; place < whole.size(); ++place) {
        std::string wrong = whole;
        wrong[place] = static_cast<char>(random() & 0xFFU);
        Plot(wrong);
        ExpectSoundEnd("wrong byte at " + std::to_string(place));
    }
}

class EveryTextReader : public EveryReader {};

TEST_P(EveryTextReader, LineEndsOfAllKindsMeanTheSame) {
    Plot(Contents());
    const std::vector<PlottedPoint> expected = recorder.points;
    for (const std::string end : {"\n", "\r"}) {
        std::string contents = Contents();
        for (std::size_t at = contents.find("\r\n"); at != std::string::npos;
             at = contents.find("\r\n", at)) {
            contents.replace(at, 2, end);
        }
        Plot(contents);
        EXPECT_EQ(recorder.points, expected);
        Plot(contents.substr(0, contents.size() - 1));
        EXPECT_EQ(recorder.points, expected) << "the last line without its end";
        ExpectCleanEnd();
    }
}

class EveryBinaryReader : public EveryReader {};

TEST_P(EveryBinaryReader, BytesOfLineEndsAreData) {
    // 10, 13 and 26 minutes: files that were read as text would lose them.
    Plot(GetParam().make({{{600, 780}, {660, 780}, {780, 780}, {780, 840}}, {{1560, 1560}, {1560, 1620}}}));
    ASSERT_EQ(recorder.points.size(), 6U);
    EXPECT_NEAR(LonSeconds(recorder.points[0]) - 648'000.0, 780.0, 1e-6);
    EXPECT_NEAR(LatSeconds(recorder.points[4]), 1560.0, 1e-6);
    ExpectCleanEnd();
}

TEST_P(EveryReader, EscapeAtAnyTurnEndsSoundly) {
    const std::string contents = LongFile(4000);
    for (int turn = 1; turn <= 5; ++turn) {
        machine.pump = {};
        Design.PlotStopReason = StopReason::None;
        machine.pump.At(turn, [] { PressEscape(); });
        Plot(contents);
        EXPECT_EQ(machine.pump.calls, turn);
        EXPECT_EQ(Counted().PointsRead, turn * 800);
        EXPECT_LT(recorder.points.size(), static_cast<std::size_t>(turn) * 800)
            << "the full count is not plotted";
        ExpectCleanEnd();
    }
}

TEST_P(EveryReader, PenThatCannotBeMadeDoesNotStopTheMap) {
    surface.FailAt(SurfaceOp::CreatePen, 0);
    Plot(Contents());
    EXPECT_EQ(recorder.points.size(), 7U);
    EXPECT_FALSE(machine.boxes.Taken().empty());
    ExpectCleanEnd();
}

TEST_P(EveryReader, SymbolsTakeTheSizesOfTheirRow) {
    InputFileEntry& entry = AddFile(GetParam().name, Contents());
    entry.MapFileType = SymbolFilledSquare;
    for (FeatureStyle& style : entry.Features) {
        style.SymbolSize = 60;
    }
    PlotList();
    ASSERT_EQ(surface.Count(SurfaceOp::Rectangle), 7);
    const std::vector<std::int64_t> box = surface.CallsOf(SurfaceOp::Rectangle).at(0).numbers;
    EXPECT_EQ(box[2] - box[0], 8) << "twice 60 twips";
}

std::vector<Format> FormatsOf(bool text) {
    std::vector<Format> formats;
    std::copy_if(std::begin(Formats), std::end(Formats), std::back_inserter(formats),
                 [&](const Format& format) { return format.text == text; });
    return formats;
}

std::string NameOf(const testing::TestParamInfo<Format>& format) {
    std::string name = format.param.name;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Formats, EveryReader, testing::ValuesIn(Formats), NameOf);
INSTANTIATE_TEST_SUITE_P(Formats, EveryTextReader, testing::ValuesIn(FormatsOf(true)), NameOf);
INSTANTIATE_TEST_SUITE_P(Formats, EveryBinaryReader, testing::ValuesIn(FormatsOf(false)), NameOf);

} // namespace
} // namespace quelmont
