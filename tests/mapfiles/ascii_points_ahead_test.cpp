#include "mapfiles/ascii_points_ahead.h"

#include "core/file_numbers.h"
#include "mapfiles/ascii_points.h"
#include "mapfiles/byte_reader.h"
#include "support/failing_file.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quelmont {
namespace {

/// What a walk gave: points with labels of their own, and how it ended.
struct Walk {
    struct Place {
        std::int32_t begins;
        double second, third;
        std::string label;
        bool operator==(const Place&) const = default;
    };
    std::vector<Place> places;
    std::optional<int> failure;
    bool operator==(const Walk&) const = default;
};

template <typename Points>
Walk WalkOver(Points& points) {
    Walk walk;
    try {
        while (points.Find()) {
            const AsciiMapPoint point = points.Take();
            walk.places.push_back({point.Break, point.Second, point.Third, std::string(point.Label)});
        }
    } catch (const RunTimeError& error) {
        walk.failure = error.Number();
    }
    return walk;
}

class PointsAhead : public FreshProgramTest {
protected:
    void Open(const std::string& contents) {
        CloseFile(InputFileNumber);
        files.Put("input", contents);
        OpenFile(InputFileNumber, "input", OpenMode::Input);
    }
    Walk Ahead(const std::string& contents) {
        Open(contents);
        AsciiPointsAhead points;
        return WalkOver(points);
    }
    Walk OneByOne(const std::string& contents) {
        Open(contents);
        ByteReader bytes;
        AsciiPoints points(bytes);
        return WalkOver(points);
    }

    FailingFiles files;
};

/// Several blocks of each queue, some points with labels, some over two lines.
std::string ManyPoints() {
    std::string text;
    for (int i = 0; i < 120'000; ++i) {
        text += std::to_string(i % 50 == 0 ? 1 : 0) + (i % 7 == 0 ? "\r\n" : ",") + std::to_string(i % 90) +
                ".25,-" + std::to_string(i % 180) + ".5";
        text += i % 1000 == 0 ? ",\"Place " + std::to_string(i) + "\"\r\n" : "\r\n";
        text += i % 333 == 0 ? "\r\n \r\n" : "";
    }
    return text;
}

TEST_F(PointsAhead, AreThoseThatAreReadOneByOne) {
    const Walk ahead = Ahead(ManyPoints());
    ASSERT_EQ(ahead.places.size(), 120'000U);
    EXPECT_EQ(ahead.failure, std::nullopt);
    EXPECT_EQ(ahead.places[0], (Walk::Place{1, 0.25, -0.5, "Place 0"}));
    EXPECT_EQ(ahead.places[119'000], (Walk::Place{1, 20.25, -20.5, "Place 119000"}));
    EXPECT_TRUE(ahead == OneByOne(ManyPoints()));
}

TEST_F(PointsAhead, OfAnEmptyFileAreNone) {
    EXPECT_TRUE(Ahead("") == Walk{});
    EXPECT_TRUE(Ahead("\r\n \r\n") == Walk{});
}

/// More blank lines than the queues hold give no points for which the walk could wait.
TEST_F(PointsAhead, WaitForNothingInAFileOfBlankLines) {
    std::string blank;
    blank.resize(std::size_t{4} * 1024 * 1024, '\n');
    EXPECT_TRUE(Ahead(blank) == Walk{});
    EXPECT_EQ(Ahead(blank + "1,2,3\n").places.size(), 1U);
}

TEST_F(PointsAhead, ComeBeforeTheFailureBehindThem) {
    const Walk ahead = Ahead(ManyPoints() + "0,1,1,\"no end\r\n0,1,2\r\n");
    EXPECT_EQ(ahead.places.size(), 120'000U);
    EXPECT_EQ(ahead.failure, ErrorInvalidCall);
    EXPECT_EQ(Ahead("1,1,1\n0,2").failure, ErrorInputPastEnd);
}

TEST_F(PointsAhead, ComeBeforeTheFailureOfTheFileBehindThem) {
    files.ReadAtMost(1000); // what a failing read has begun to read is lost
    files.FailReadingAfter(1'000'000, ErrorDeviceIo);
    const Walk ahead = Ahead(ManyPoints());
    EXPECT_EQ(ahead.failure, ErrorDeviceIo);
    EXPECT_TRUE(ahead == OneByOne(ManyPoints()));
}

TEST_F(PointsAhead, MayBeLeftAnywhere) {
    for (const int taken : {0, 1, 5000, 70'000}) {
        Open(ManyPoints());
        AsciiPointsAhead points;
        for (int i = 0; i < taken; ++i) {
            ASSERT_TRUE(points.Find());
            points.Take();
        }
    }
}

} // namespace
} // namespace quelmont
