#include "exports/whole_draw.h"
#include "projection/projection_table.h"
#include "support/dxf_file.h"
#include "support/svg_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// Circles and shades, drawn on the window and into each kind of file.
class DistortionInFiles : public WholeDraw {
protected:
    static Arguments Showing(const char* kind, std::int16_t projNum = ProjRobinson) {
        return {
            "--projection", std::to_string(projNum), "--no-map", "--grid-type", "5", "--distortion", kind};
    }
};

TEST_F(DistortionInFiles, EachProjectionHasTheOutlinesOfCirclesInDxfAndSvg) {
    for (const ProjectionEntry& entry : Projections) {
        SCOPED_TRACE(entry.ProjName);
        Arguments arguments = Showing("ellipses", entry.ProjNum);
        if (entry.ProjNum == ProjUtm) {
            arguments.insert(arguments.end(), {"--distortion-radius", "0:24", "--distortion-spacing", "1"});
        }
        Draw(arguments, "dxf");
        const std::vector<std::string> entities = DxfEntities(File("map.dxf"));
        const auto outlines = std::count_if(entities.begin(), entities.end(), [](const std::string& entity) {
            return entity.rfind("POLYLINE", 0) == 0 && entity.find(" 62=32") != std::string::npos;
        });
        EXPECT_GE(outlines, 9);
        Draw(arguments, "svg");
        const std::vector<SvgElement> paths = SvgElements(File("map.svg"), "path");
        EXPECT_EQ(outlines, std::count_if(paths.begin(), paths.end(), [](const SvgElement& path) {
                      return path.At("stroke") == "#B35900";
                  }));
        if (entry.ProjNum == ProjRobinson) {
            EXPECT_EQ(outlines, 67)
                << "twelve on five parallels, five of them cut by the seam, and two poles";
        }
    }
}

TEST_F(DistortionInFiles, SvgHasAGroupOfItsOwnForEachShadeWithItsWords) {
    Draw(Showing("area"), "svg");
    const std::string svg = File("map.svg");
    EXPECT_THAT(svg, HasSubstr("<g id=\"distortion-1\">\n<title>Area scale</title>\n"
                               "<g id=\"feature-1\" fill=\"#DFEDF9\">\n<title>0.8\u20130.95</title>\n"));
    EXPECT_THAT(svg, HasSubstr("<g id=\"distortion-2\">\n<title>Key</title>\n"));
    EXPECT_THAT(svg, HasSubstr(">Area scale</text>"));
    EXPECT_THAT(svg, HasSubstr(">above 10</text>"));
    Draw(Showing("ellipses"), "svg");
    EXPECT_THAT(File("map.svg"),
                HasSubstr("<g id=\"distortion-1\">\n<title>Equal circles</title>\n"
                          "<g id=\"feature-1\" fill=\"#FFE4C4\">\n<title>Circles</title>\n"));
    EXPECT_THAT(File("map.svg"), Not(HasSubstr("Key")));
}

TEST_F(DistortionInFiles, CgmAndWmfHaveTheWordsOfTheKey) {
    for (const char* const ending : {"cgm", "wmf"}) {
        Draw(Showing("angle"), ending);
        EXPECT_THAT(File("map." + std::string(ending)), HasSubstr("Angle error"));
        EXPECT_THAT(File("map." + std::string(ending)), HasSubstr("above 60\xB0"));
    }
    EXPECT_TRUE(Design.TextItems.empty()) << "the design has none of its own";
}

TEST_F(DistortionInFiles, TextFilesHaveTheMapAlone) {
    const Arguments plain = {"--no-map", "--projection", "1"};
    Draw(plain, "txt");
    const std::string without = File("map-grid.txt");
    for (const char* const kind : {"ellipses", "area"}) {
        Arguments shown = plain;
        shown.insert(shown.end(), {"--distortion", kind});
        Draw(shown, "txt");
        EXPECT_EQ(File("map-grid.txt"), without);
        EXPECT_THAT(Files(), ElementsAre("map-grid.txt"));
    }
}

TEST_F(DistortionInFiles, SwitchedOffTheFileIsTheOneOfBefore) {
    for (const char* const ending : {"svg", "cgm", "wmf", "dxf"}) {
        const std::string name = "map." + std::string(ending);
        Draw({"--no-map", "--projection", "16"}, ending);
        const std::string plain = File(name);
        Draw({"--no-map", "--projection", "16", "--distortion", "none"}, ending);
        EXPECT_EQ(File(name), plain);
        EXPECT_THAT(plain, Not(HasSubstr("istortion")));
    }
}

} // namespace
} // namespace quelmont
