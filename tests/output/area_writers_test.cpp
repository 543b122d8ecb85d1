#include "export_fixture.h"
#include "output/area_output.h"
#include "output/cgm/cgm_writer.h"
#include "output/svg/svg_writer.h"
#include "output/wmf/wmf_writer.h"
#include "support/cgm_file.h"
#include "support/svg_file.h"
#include "support/wmf_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::Contains;
using testing::ElementsAre;

/// A square with a hole, and a point on the way along one of its sides.
const PlaneRings Frame = {{{0, 0}, {50, 0}, {100, 0}, {100, 100}, {0, 100}},
                          {{40, 40}, {60, 40}, {60, 60}, {40, 60}}};

/// A star of so many rays: no three of its points lie on a line.
PlaneRings Star(int rays) {
    PlaneRing ring;
    for (int i = 0; i < 2 * rays; ++i) {
        const double angle = 3.14159265358979 * i / rays;
        const double radius = i % 2 == 0 ? 11000.0 : 9000.0;
        ring.push_back({16000.0 + radius * std::cos(angle), 11550.0 + radius * std::sin(angle)});
    }
    return {ring};
}

/// Twice the area of an outline, above 0 when it turns to the left.
double TwiceArea(const std::vector<std::int32_t>& numbers, std::size_t first, std::size_t count,
                 std::size_t stride) {
    double area = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t a = first + i * stride;
        const std::size_t b = first + (i + 1) % count * stride;
        area += static_cast<double>(numbers[a]) * numbers[b + 1] -
                static_cast<double>(numbers[b]) * numbers[a + 1];
    }
    return area;
}

class AreaWriters : public ExportTest {
protected:
    void FillWith(const PlaneRings& rings) {
        ResetLineState();
        PrintFileHeader();
        {
            AreaOutput areas;
            areas.Fill(Rgb(1, 2, 3), rings);
        }
        FinishFile();
    }
    std::string Written() const { return ReadWholeFile(target); }

    void SetUp() override { SelectDevice(); }
};

TEST_F(AreaWriters, WmfHasOneRecordOfAllOutlines) {
    WmfWriter writer;
    Writers().wmf = &writer;
    Design.WmfFileName = target;
    Design.OutputWmf = true;
    FillWith(Frame);
    const std::vector<std::string> records = ReadWmf(Written()).Texts();
    EXPECT_THAT(records, Contains("PolyPolygon 2 4 4 0 0 100 0 100 100 0 100 40 40 60 40 60 60 40 60"));
}

TEST_F(AreaWriters, WmfCutsLargeAreasIntoPiecesThatMakeUpTheWhole) {
    WmfWriter writer;
    Writers().wmf = &writer;
    Design.WmfFileName = target;
    Design.OutputWmf = true;
    FillWith(Star(20000));
    double area = 0.0;
    int pieces = 0;
    for (const WmfRecord& record : ReadWmf(Written()).records) {
        if (record.name == "PolyPolygon") {
            ++pieces;
            std::size_t first = 1 + static_cast<std::size_t>(record.numbers[0]);
            for (std::int32_t outline = 1; outline <= record.numbers[0]; ++outline) {
                const auto count =
                    static_cast<std::size_t>(record.numbers[static_cast<std::size_t>(outline)]);
                area += TwiceArea(record.numbers, first, count, 2);
                first += 2 * count;
            }
        }
    }
    EXPECT_GT(pieces, 2);
    // Of a star: rays times the product of both radii and the sine of half the angle between rays.
    const double whole = 2.0 * 20000 * 11000.0 * 9000.0 * std::sin(3.14159265358979 / 20000);
    EXPECT_NEAR(area, whole, whole * 0.002);
}

TEST_F(AreaWriters, CgmHasAPolygonSetWithoutEdges) {
    CgmWriter writer;
    Writers().cgm = &writer;
    Design.CgmFileName = target;
    Design.OutputCgm = true;
    FillWith(Frame);
    EXPECT_THAT(CgmBody(Written()),
                ElementsAre("FILL COLOUR 1 2 3", "EDGE VISIBILITY 0",
                            "POLYGON SET 0 0 0 100 0 0 100 100 0 0 100 2 40 40 0 60 40 0 60 60 0 40 60 2",
                            "EDGE VISIBILITY 1"));
}

TEST_F(AreaWriters, CgmCutsLargeAreasIntoPieces) {
    CgmWriter writer;
    Writers().cgm = &writer;
    Design.CgmFileName = target;
    Design.OutputCgm = true;
    FillWith(Star(10000));
    int pieces = 0;
    for (const CgmElement& element : ReadCgm(Written())) {
        pieces += element.name == "POLYGON SET" ? 1 : 0;
        EXPECT_LT(element.length, 32768);
    }
    EXPECT_GT(pieces, 3);
}

TEST_F(AreaWriters, SvgHasAPathByTheRuleOfOddAndEven) {
    SvgWriter writer;
    Writers().svg = &writer;
    Design.SvgFileName = target;
    Design.OutputSvg = true;
    FillWith(Frame);
    const std::vector<SvgElement> paths = SvgElements(Written(), "path");
    ASSERT_EQ(paths.size(), 1U);
    // Two units are a pixel; the lower edge of the map is the middle of pixel 11550.
    EXPECT_EQ(paths[0].At("d"), "M0.5,11550.5 50.5,11550.5 50.5,11500.5 0.5,11500.5Z"
                                "M20.5,11530.5 30.5,11530.5 30.5,11520.5 20.5,11520.5Z");
    EXPECT_EQ(paths[0].At("fill"), "#010203");
    EXPECT_EQ(paths[0].At("fill-rule"), "evenodd");
    EXPECT_EQ(paths[0].group, "area-1");
}

} // namespace
} // namespace quelmont
