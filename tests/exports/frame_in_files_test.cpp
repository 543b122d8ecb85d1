#include "exports/whole_draw.h"
#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// The frame and the scale bar, drawn on the window and into each kind of file.
class FrameInFiles : public WholeDraw {
protected:
    static Arguments Framed(std::int16_t projNum) {
        return {"--projection", std::to_string(projNum), "--no-map",  "--grid-type", "5",
                "--frame",      "--scale-bar",           "nmi@10:30N"};
    }
};

TEST_F(FrameInFiles, EachProjectionHasThemInEachFormat) {
    for (const ProjectionEntry& entry : Projections) {
        SCOPED_TRACE(entry.ProjName);
        const DrawnMap screen = ExpectSameInEachFormat(
            {"--projection", std::to_string(entry.ProjNum), "--no-map", "--grid-type", "5", "--frame"});
        EXPECT_GE(screen.lines.size(), 1U);
    }
}

TEST_F(FrameInFiles, FilesHaveTheTextsOfTheBar) {
    for (const char* const ending : {"cgm", "wmf"}) {
        Draw(Framed(ProjMercator), ending);
        EXPECT_THAT(File("map." + std::string(ending)), HasSubstr("Scale at 10\xB0"
                                                                  "30'N"));
    }
    Draw(Framed(ProjMercator), "dxf");
    EXPECT_THAT(File("map.dxf"), HasSubstr("Scale at 10\\U+00B030'N"));
    EXPECT_THAT(File("map.dxf"), HasSubstr(" nmi"));
    EXPECT_TRUE(Design.TextItems.empty()) << "the design has none of its own";
}

TEST_F(FrameInFiles, TextFilesHaveTheMapAlone) {
    const Arguments plain = {"--no-map", "--projection", "1"};
    Draw(plain, "txt");
    const std::string without = File("map-grid.txt");
    Arguments framed = plain;
    framed.insert(framed.end(), {"--frame"});
    Draw(framed, "txt");
    EXPECT_EQ(File("map-grid.txt"), without);
    EXPECT_THAT(Files(), ElementsAre("map-grid.txt"));
}

TEST_F(FrameInFiles, SwitchedOffTheFileIsTheOneOfBefore) {
    Draw({"--no-map", "--projection", "16"}, "cgm");
    const std::string plain = File("map.cgm");
    Draw({"--no-map", "--projection", "16", "--scale-bar", "none"}, "cgm");
    EXPECT_EQ(File("map.cgm"), plain);
    EXPECT_THAT(plain, Not(HasSubstr("Scale")));
}

} // namespace
} // namespace quelmont
