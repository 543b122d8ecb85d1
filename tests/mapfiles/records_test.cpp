// The records of each family, one by one, as every reader of such files sees them.

#include "core/file_numbers.h"
#include "core/run_time_error.h"
#include "mapfiles/ascii_points.h"
#include "mapfiles/fixed_records.h"
#include "mapfiles/minute_grid_records.h"
#include "mapfiles/packed_segments.h"
#include "mapfiles/world_records.h"
#include "support/byte_text.h"
#include "support/failing_file.h"
#include "support/fresh_program.h"
#include "support/run_time_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RecordsTest : public FreshProgramTest {
protected:
    /// The file is closed and forgotten first.
    ByteReader& Open(const std::string& contents) {
        CloseFile(InputFileNumber);
        files.Put("input", contents);
        OpenFile(InputFileNumber, "input", OpenMode::Input);
        bytes.emplace();
        return *bytes;
    }
    FailingFiles files;
    std::optional<ByteReader> bytes;
};

// ---- Minute grid.

class MinuteGridRecordsTest : public RecordsTest {
protected:
    static std::string Record(int code, int lat, int lon) {
        return Text(EncodeMinuteGrid({static_cast<std::int16_t>(code), static_cast<std::int16_t>(lat),
                                      static_cast<std::int16_t>(lon)}));
    }
    using Seen = std::tuple<bool, int, int, int>; ///< begins, feature, seconds of latitude and longitude
    std::vector<Seen> Walk(const std::string& contents) {
        std::vector<Seen> seen;
        for (MinuteGridRecords records(Open(contents)); records.Next();) {
            seen.emplace_back(records.BeginsLine(), records.Feature(), records.LatSec(), records.LonSec());
            whole = records.IsWhole();
        }
        return seen;
    }
    bool whole = true; ///< the record seen last
};

TEST_F(MinuteGridRecordsTest, RankBeginsALineAndItsFeatureLasts) {
    EXPECT_THAT(Walk(Record(0, 1, 2) + Record(2000, 3, 4) + Record(-999, -5, 6) + Record(-3500, 7, 8)),
                ElementsAre(Seen{false, 0, 60, 120}, Seen{true, 5, 180, 240}, Seen{false, 5, -300, 360},
                            Seen{true, 0, 420, 480}));
    EXPECT_TRUE(whole);
}

TEST_F(MinuteGridRecordsTest, WhatIsMissingBehindARankReadsAsZero) {
    EXPECT_THAT(Walk(Record(1000, 1, 2).substr(0, 4)), ElementsAre(Seen{true, 1, 60, 0}));
    EXPECT_FALSE(whole);
    EXPECT_THAT(Walk(Record(0, 1, 2).substr(0, 3)), ElementsAre(Seen{false, 0, 60, 0}));
    EXPECT_FALSE(whole);
    EXPECT_THAT(Walk(Record(1000, 1, 2).substr(0, 2)), ElementsAre(Seen{true, 1, 0, 0}));
}

TEST_F(MinuteGridRecordsTest, CodeOfAContinuingRecordAloneEndsTheFile) {
    EXPECT_THAT(Walk(Record(1000, 1, 2) + Record(0, 1, 2).substr(0, 2)), ElementsAre(Seen{true, 1, 60, 120}));
    EXPECT_THAT(Walk("x"), IsEmpty());
    EXPECT_THAT(Walk(""), IsEmpty());
}

TEST_F(MinuteGridRecordsTest, EveryCodeHasARankOfTheSpan) {
    EXPECT_THAT(Walk(Record(32'767, 0, 0) + Record(-32'768, 0, 0)),
                ElementsAre(Seen{true, 0, 0, 0}, Seen{true, 0, 0, 0}));
}

// ---- Packed.

class PackedSegmentsTest : public RecordsTest {
protected:
    static std::string Segment(int rank, int count, const std::vector<PackedStep>& steps) {
        PackedHeader header;
        header.Rank = static_cast<std::uint8_t>(rank);
        header.Count = count;
        header.FirstLat = 3600;
        header.FirstLon = -7200;
        std::string segment = Text(EncodePackedHeader(header));
        for (const PackedStep& step : steps) {
            segment += Text(EncodePackedStep(step));
        }
        return segment;
    }
    using Seen = std::tuple<int, int, bool>; ///< seconds of latitude and longitude, begins
    static std::vector<Seen> PointsOf(PackedSegments& segments) {
        std::vector<Seen> seen;
        EXPECT_TRUE(segments.VisitPoints([&](std::int32_t lat, std::int32_t lon, bool begins) {
            seen.emplace_back(lat, lon, begins);
            return true;
        }));
        return seen;
    }
};

TEST_F(PackedSegmentsTest, PointsFollowTheirSteps) {
    PackedSegments segments(Open(Segment(9, 3, {{10, -20}, {-128, 127}}) + Segment(1, 1, {})),
                            PackedRanks::Whole);
    ASSERT_TRUE(segments.Next());
    EXPECT_EQ(segments.Feature(), 9);
    EXPECT_EQ(segments.Header().Count, 3);
    EXPECT_THAT(PointsOf(segments),
                ElementsAre(Seen{3600, -7200, true}, Seen{3580, -7190, false}, Seen{3707, -7318, false}));
    EXPECT_TRUE(segments.IsWhole());
    ASSERT_TRUE(segments.Next());
    EXPECT_EQ(segments.Feature(), 1);
    EXPECT_THAT(PointsOf(segments), ElementsAre(Seen{3600, -7200, true}));
    EXPECT_FALSE(segments.Next());
}

TEST_F(PackedSegmentsTest, SegmentCanBeSteppedOver) {
    PackedSegments segments(Open(Segment(1, 3, {{1, 1}, {1, 1}}) + Segment(2, 1, {})), PackedRanks::Whole);
    ASSERT_TRUE(segments.Next());
    segments.StepOver();
    ASSERT_TRUE(segments.Next());
    EXPECT_EQ(segments.Feature(), 2);
}

TEST_F(PackedSegmentsTest, VisitEndsWhereItIsReportedTo) {
    for (int most = 1; most <= 3; ++most) {
        PackedSegments again(Open(Segment(1, 3, {{1, 1}, {1, 1}})), PackedRanks::Whole);
        ASSERT_TRUE(again.Next());
        int visited = 0;
        EXPECT_FALSE(again.VisitPoints([&](std::int32_t, std::int32_t, bool) { return ++visited < most; }));
        EXPECT_EQ(visited, most);
    }
}

TEST_F(PackedSegmentsTest, SegmentThatIsCutShortHasThePointsThatAreThere) {
    const std::string whole = Segment(1, 4, {{1, 2}, {3, 4}, {5, 6}});
    // The header alone, then half a step, a step and a half.
    const std::vector<std::pair<std::size_t, std::size_t>> cuts = {{24, 1}, {25, 1}, {26, 2}, {29, 3}};
    for (const auto& [size, points] : cuts) {
        PackedSegments segments(Open(whole.substr(0, size)), PackedRanks::Whole);
        ASSERT_TRUE(segments.Next());
        EXPECT_TRUE(segments.IsWhole()) << "the header is";
        EXPECT_EQ(PointsOf(segments).size(), points) << size;
        EXPECT_FALSE(segments.IsWhole()) << size;
        EXPECT_FALSE(segments.Next()) << size;
    }
}

TEST_F(PackedSegmentsTest, HeaderThatIsCutShortIsReportedWithItsFeature) {
    PackedSegments segments(Open(Segment(9, 1, {}).substr(0, 23)), PackedRanks::Whole);
    ASSERT_TRUE(segments.Next());
    EXPECT_EQ(segments.Feature(), 9);
    EXPECT_FALSE(segments.IsWhole());
}

// ---- Fixed records.

using FixedRecordsTest = RecordsTest;

TEST_F(FixedRecordsTest, HeadersAndPointsAlternate) {
    FixedRecords records(Open("       01     2   30"
                              "010000N0020000W   \r\n"
                              "010000S0020000E"));
    ASSERT_TRUE(records.Next());
    ASSERT_TRUE(records.IsHeader());
    EXPECT_EQ(records.Header(), (LineGraphHeader{3001, 2}));
    ASSERT_TRUE(records.Next());
    ASSERT_FALSE(records.IsHeader());
    EXPECT_EQ(records.Point(), (FixedRecordPoint{3600, -7200}));
    ASSERT_TRUE(records.Next());
    EXPECT_EQ(records.Point(), (FixedRecordPoint{-3600, 7200}));
    EXPECT_TRUE(records.IsWhole()) << "all of it that means something";
    EXPECT_FALSE(records.Next());
}

TEST_F(FixedRecordsTest, RecordsCanBeSteppedOver) {
    const std::string point = "010000N0020000W   \r\n";
    FixedRecords records(Open(point + point + "020000N0020000W   \r\n"));
    records.StepOver(2);
    ASSERT_TRUE(records.Next());
    EXPECT_EQ(records.Point().Lat, 7200);
    EXPECT_EQ(ErrorOf([&] { records.StepOver(-1); }), ErrorInvalidCall);
}

TEST_F(FixedRecordsTest, LineEndsBehindTheLastRecordAreNone) {
    for (const char* const end : {"", "\n", "\r\n", "\r\n\r\n\r\n"}) {
        FixedRecords records(Open(std::string("010000N0020000W   \r\n") + end));
        EXPECT_TRUE(records.Next());
        EXPECT_FALSE(records.Next());
    }
}

TEST_F(FixedRecordsTest, RecordWithoutAllItsCharactersIsNotWhole) {
    FixedRecords records(Open("010000N0020"));
    ASSERT_TRUE(records.Next());
    EXPECT_FALSE(records.IsWhole());
    FixedRecords blanks(Open("   \x1A"));
    ASSERT_TRUE(blanks.Next());
    EXPECT_TRUE(blanks.IsWhole()) << "nothing that means something is missing";
}

// ---- World files.

using WorldTextItemsTest = RecordsTest;

TEST_F(WorldTextItemsTest, PointsBeginLinesBehindOtherItems) {
    std::vector<std::tuple<double, double, bool>> seen;
    int others = 0;
    for (WorldTextItems items(Open("\xEF\xBB\xBF"
                                   "1 2\n3 4\n\nland\n5 6,7 8"));
         items.Next();) {
        if (items.IsPoint()) {
            seen.emplace_back(items.Point().Lat, items.Point().Lon, items.BeginsLine());
        } else {
            ++others;
        }
    }
    EXPECT_THAT(seen, ElementsAre(std::tuple{1, 2, true}, std::tuple{3, 4, false}, std::tuple{5, 6, true},
                                  std::tuple{7, 8, false}));
    EXPECT_EQ(others, 2);
}

class WorldFloatPointsTest : public RecordsTest {
protected:
    using Seen = std::tuple<float, float, bool>;
    std::vector<Seen> Walk(const std::string& contents) {
        std::vector<Seen> seen;
        for (WorldFloatPoints points(Open(contents)); points.Next();) {
            seen.emplace_back(points.Lat(), points.Lon(), points.BeginsLine());
        }
        return seen;
    }
    static std::string Record(float lat, float lon) { return Text(EncodeWorldRecord(lat, lon)); }
};

TEST_F(WorldFloatPointsTest, PointsBeginLinesBehindMarkersAndEndsOfLines) {
    std::string tail = Record(5, 6);
    tail.insert(8, "a\x01");
    EXPECT_THAT(Walk(Record(1, 2) + Record(3, 4) + Text(WorldMarker) + tail + Record(7, 200)),
                ElementsAre(Seen{1, 2, true}, Seen{3, 4, false}, Seen{5, 6, true}, Seen{7, 200, true}));
}

TEST_F(WorldFloatPointsTest, EndWithinARecordIsAnErrorButNotWithinItsFirstBytes) {
    const std::string record = Record(1, 2);
    for (std::size_t size = 0; size < record.size(); ++size) {
        EXPECT_EQ(ErrorOf([&] { Walk(record + record.substr(0, size)); }), size < 4 ? 0 : ErrorInputPastEnd)
            << size;
    }
}

TEST_F(WorldFloatPointsTest, PlainRecordsCanBePassedOver) {
    const std::string out = Record(0, 0);
    const std::string in = Record(15, 180);
    const auto isOut = [](float lat, float lon) { return lat < 1.0F && lon < 1.0F; };
    const auto run = [&](const std::string& contents, std::int64_t most) {
        WorldFloatPoints points(Open(in + contents));
        EXPECT_EQ(points.PassOver(most, isOut), 0) << "the first begins a line";
        EXPECT_TRUE(points.Next());
        return points.PassOver(most, isOut);
    };
    EXPECT_EQ(run(out + out + out, 100), 3);
    EXPECT_EQ(run(out + out + out, 2), 2);
    EXPECT_EQ(run(out + out + out, 0), 0);
    EXPECT_EQ(run(out + in + out, 100), 1);
    EXPECT_EQ(run(out + out.substr(0, 8), 100), 1) << "a whole record";
    EXPECT_EQ(run(out + Text(WorldMarker) + out, 100), 1);
    EXPECT_EQ(run(out + out.substr(0, 8) + "x\n" + out, 100), 1) << "bytes before the line feed";
    std::string last = out;
    last.insert(8, "\x01");
    EXPECT_EQ(run(last + out, 100), 0);
}

TEST_F(WorldFloatPointsTest, LastPointThatWasPassedOverIsTheCurrentOne) {
    WorldFloatPoints points(Open(Record(1, 2) + Record(3, 4) + Record(5, 6) + Record(7, 8)));
    ASSERT_TRUE(points.Next());
    EXPECT_EQ(points.PassOver(2, [](float, float) { return true; }), 2);
    EXPECT_EQ(points.Lat(), 5.0F);
    EXPECT_EQ(points.Lon(), 6.0F);
    ASSERT_TRUE(points.Next());
    EXPECT_EQ(points.Lat(), 7.0F);
    EXPECT_FALSE(points.BeginsLine());
}

// ---- ASCII.

using AsciiPointsTest = RecordsTest;

TEST_F(AsciiPointsTest, PointsAreFoundBehindBlankLines) {
    AsciiPoints points(Open("\xEF\xBB\xBF\n  \n1,2,3,\"Oslo\"\r\n\n0 4 5\n\n\x1A"));
    ASSERT_TRUE(points.Find());
    EXPECT_EQ(points.Take(), (AsciiMapPoint{1, 2.0, 3.0, "Oslo"}));
    ASSERT_TRUE(points.Find());
    EXPECT_EQ(points.Take(), (AsciiMapPoint{0, 4.0, 5.0, ""}));
    EXPECT_FALSE(points.Find());
}

} // namespace
} // namespace quelmont
