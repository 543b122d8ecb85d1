#include "mapfiles/minute_grid_lines.h"

#include "core/file_numbers.h"
#include "core/run_time_error.h"
#include "mapfiles/minute_grid_file.h"
#include "support/byte_text.h"
#include "support/failing_file.h"
#include "support/fresh_program.h"
#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <string>

namespace quelmont {
namespace {

class LinesOfMinuteGrid : public FreshProgramTest {
protected:
    MinuteGridLines Take(const std::string& contents) {
        CloseFile(InputFileNumber);
        files.Put("input", contents);
        OpenFile(InputFileNumber, "input", OpenMode::Input);
        ByteReader bytes;
        return TakeMinuteGridLines(bytes);
    }
    static std::string Record(std::int16_t code, std::int16_t lat, std::int16_t lon) {
        return Text(EncodeMinuteGrid({code, lat, lon}));
    }
    FailingFiles files;
};

TEST_F(LinesOfMinuteGrid, EachHasItsPlacesItsFeatureAndItsBox) {
    const MinuteGridLines taken =
        Take(Record(1000, 60, -120) + Record(0, -30, 180) + Record(0, 10, 20) + Record(7000, 5400, 10800));
    ASSERT_EQ(taken.lines.size(), 2U);
    ASSERT_EQ(taken.places.size(), 4U);
    const MinuteGridLines::Line& coast = taken.lines[0];
    EXPECT_EQ(coast.feature, 1);
    EXPECT_TRUE(coast.begins);
    EXPECT_EQ(coast.first, 0U);
    EXPECT_EQ(coast.end, 3U);
    EXPECT_EQ(coast.south, -30);
    EXPECT_EQ(coast.north, 60);
    EXPECT_EQ(coast.west, -120);
    EXPECT_EQ(coast.east, 180);
    const MinuteGridLines::Line& river = taken.lines[1];
    EXPECT_EQ(river.feature, 4);
    EXPECT_EQ(river.first, 3U);
    EXPECT_EQ(river.south, 5400);
    EXPECT_EQ(river.west, 10800);
    EXPECT_EQ(taken.places[1].lat, -30);
    EXPECT_EQ(taken.places[1].lon, 180);
}

TEST_F(LinesOfMinuteGrid, RecordsBeforeTheFirstLineBeginNone) {
    const MinuteGridLines taken = Take(Record(0, 1, 2) + Record(999, 3, 4) + Record(2000, 5, 6));
    ASSERT_EQ(taken.lines.size(), 2U);
    EXPECT_FALSE(taken.lines[0].begins);
    EXPECT_EQ(taken.lines[0].end, 2U);
    EXPECT_TRUE(taken.lines[1].begins);
}

TEST_F(LinesOfMinuteGrid, EmptyFileHasNone) { EXPECT_TRUE(Take("").lines.empty()); }

TEST_F(LinesOfMinuteGrid, FileThatCannotBeReadIsAnError) {
    files.FailReadingAfter(7, ErrorDeviceIo);
    EXPECT_EQ(ErrorOf([&] { Take(Record(1000, 0, 0) + Record(0, 0, 0)); }), ErrorDeviceIo);
}

} // namespace
} // namespace quelmont
