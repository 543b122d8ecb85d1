#include "exports/whole_draw.h"
#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quelmont {
namespace {

using testing::ElementsAre;

/// Great and small circles, drawn on the window and into each kind of file.
class CirclesInFiles : public WholeDraw {
protected:
    static Arguments Circles(std::int16_t projNum) {
        return {"--projection",
                std::to_string(projNum),
                "--no-map",
                "--great-circle",
                "37:47N,122:26W,29:20N,47:59E",
                "--great-circle-color",
                "FF0000",
                "--great-circle-width",
                "5",
                "--small-circle",
                "40N,0E,120",
                "--circles",
                "4",
                "--small-circle-color",
                "008000"};
    }
    static std::size_t Lines(const DrawnMap& map, std::uint32_t color) {
        return static_cast<std::size_t>(
            std::count_if(map.lines.begin(), map.lines.end(),
                          [color](const DrawnLine& line) { return line.color.bits == color; }));
    }
};

TEST_F(CirclesInFiles, EachProjectionHasThemInEachFormat) {
    for (const ProjectionEntry& entry : Projections) {
        SCOPED_TRACE(entry.ProjName);
        const DrawnMap screen = ExpectSameInEachFormat(Circles(entry.ProjNum));
        if (entry.ProjNum != ProjUtm) {
            EXPECT_GE(Lines(screen, 0x0000FF), 1U);
            EXPECT_GE(Lines(screen, 0x008000), 2U);
        }
    }
}

TEST_F(CirclesInFiles, CgmHasTheColourOfEachKindBeforeItsLines) {
    Draw(Circles(ProjEquirectangular), "cgm");
    const std::string bytes = File("map.cgm");
    // LINE COLOUR of the small circles, then of the great circle, each again with its first line.
    const std::string green("\x50\x86\x00\x00\x00\x80\x00\x00", 8);
    const std::string red("\x50\x86\x00\xFF\x00\x00\x00\x00", 8);
    const std::size_t firstGreen = bytes.find(green);
    const std::size_t firstRed = bytes.find(red);
    ASSERT_NE(firstGreen, std::string::npos);
    ASSERT_NE(firstRed, std::string::npos);
    EXPECT_LT(firstGreen, firstRed);
    EXPECT_EQ(bytes.compare(firstGreen + 8, 8, green), 0) << "no great circle's colour between";
    EXPECT_EQ(bytes.compare(firstRed + 8, 8, red), 0);
    EXPECT_EQ(bytes.find(green, firstRed), std::string::npos);
}

TEST_F(CirclesInFiles, TextFilesHaveNone) {
    for (const std::int16_t projNum : {ProjEquirectangular, ProjInterruptedMollweide}) {
        Draw({"--no-map", "--projection", std::to_string(projNum)}, "txt");
        const std::string without = File("map-grid.txt");
        Draw(Circles(projNum), "txt");
        EXPECT_EQ(File("map-grid.txt"), without);
        EXPECT_THAT(Files(), ElementsAre("map-grid.txt"));
        EXPECT_GT(Lines(Screen(), 0x0000FF), 0U) << "the window has them";
    }
}

} // namespace
} // namespace quelmont
