#include "core/number_text.h"
#include "export_fixture.h"
#include "output/area_output.h"
#include "output/cgm/cgm_writer.h"
#include "output/dxf/dxf_writer.h"
#include "output/svg/svg_writer.h"
#include "output/wmf/wmf_writer.h"
#include "support/cgm_file.h"
#include "support/dxf_file.h"
#include "support/svg_file.h"
#include "support/wmf_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
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
            areas.Begin(LandTitle);
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
    EXPECT_NE(Written().find("<title>Land</title>"), std::string::npos);
}

class DxfAreas : public AreaWriters {
protected:
    DxfAreas() {
        Writers().dxf = &writer;
        Design.DxfFileName = target;
        Design.OutputDxf = true;
    }

    struct Corner {
        double x = 0.0, y = 0.0;
    };
    /// The corners of each solid in the order in which they are walked round: the third and the fourth of a
    /// solid stand in the file the other way round.
    std::vector<std::array<Corner, 4>> Solids() const {
        std::vector<std::array<Corner, 4>> solids;
        constexpr std::array<std::size_t, 4> order = {0, 1, 3, 2};
        for (const DxfGroup& group : ReadDxf(Written())) {
            if (group.code == 0 && group.value == "SOLID") {
                solids.emplace_back();
            } else if (!solids.empty() && group.code >= 10 && group.code <= 13) {
                solids.back().at(order.at(static_cast<std::size_t>(group.code - 10))).x =
                    ValueOf(group.value);
            } else if (!solids.empty() && group.code >= 20 && group.code <= 23) {
                solids.back().at(order.at(static_cast<std::size_t>(group.code - 20))).y =
                    ValueOf(group.value);
            }
        }
        return solids;
    }
    static double AreaOf(const std::array<Corner, 4>& solid) {
        double twice = 0.0;
        for (std::size_t i = 0; i < solid.size(); ++i) {
            const Corner& a = solid.at(i);
            const Corner& b = solid.at((i + 1) % solid.size());
            twice += a.x * b.y - b.x * a.y;
        }
        return twice / 2.0;
    }
    double WholeArea() const {
        double area = 0.0;
        for (const auto& solid : Solids()) {
            area += AreaOf(solid);
        }
        return area;
    }

    DxfWriter writer;
};

TEST_F(DxfAreas, AreSolidsOnTheLayerOfTheirKind) {
    Design.Fill.land = Rgb(255, 255, 204);
    FillWith(Frame);
    // The square is cut where its hole begins and ends.
    EXPECT_THAT(DxfEntities(Written()),
                ElementsAre("SOLID 8=LAND 62=250 10=0 20=0 11=100 21=0 12=0 22=40 13=100 23=40",
                            "SOLID 8=LAND 62=250 10=0 20=40 11=40 21=40 12=0 22=60 13=40 23=60",
                            "SOLID 8=LAND 62=250 10=60 20=40 11=100 21=40 12=60 22=60 13=100 23=60",
                            "SOLID 8=LAND 62=250 10=0 20=60 11=100 21=60 12=0 22=100 13=100 23=100"));
    EXPECT_DOUBLE_EQ(WholeArea(), 100.0 * 100.0 - 20.0 * 20.0);
}

TEST_F(DxfAreas, LayersStandInTheTableOfAFileThatHasThem) {
    const auto layers = [this] {
        std::vector<std::string> names;
        const std::vector<DxfGroup> groups = ReadDxf(Written());
        for (std::size_t i = 1; i + 1 < groups.size(); ++i) {
            if (groups[i] == DxfGroup{0, "LAYER"}) {
                names.push_back(groups[i + 1].value + " " + groups[i + 3].value);
            }
        }
        return names;
    };
    FillWith({});
    EXPECT_THAT(layers(), ElementsAre("0 8"));
    Design.Fill = {.land = Rgb(255, 255, 204), .lakes = Rgb(153, 204, 255), .sea = Rgb(204, 230, 255)};
    Design.OutputDxf = true;
    FillWith({});
    EXPECT_THAT(layers(), ElementsAre("0 8", "SEA 151", "LAND 51", "LAKES 151"));
    Design.Fill = {};
    Design.Distortion.kind = DistortionKind::Area;
    Design.OutputDxf = true;
    FillWith({});
    EXPECT_THAT(layers(), ElementsAre("0 8", "DISTORTION 8"));
}

TEST_F(DxfAreas, ShadesOfDistortionLieOnTheirOwnLayer) {
    ResetLineState();
    PrintFileHeader();
    {
        AreaOutput areas;
        BeginFilePart(MapPart::Distortion, "Distortion");
        areas.Fill(Rgb(255, 0, 0), Frame);
    }
    FinishFile();
    EXPECT_EQ(DxfEntities(Written()).front().substr(0, 24), "SOLID 8=DISTORTION 62=1 ");
}

TEST_F(DxfAreas, MakeUpTheWholeOfALargeArea) {
    FillWith(Star(20000));
    const double whole = 20000 * 11000.0 * 9000.0 * std::sin(3.14159265358979 / 20000);
    EXPECT_NEAR(WholeArea(), whole, whole * 0.002);
    for (const auto& solid : Solids()) {
        ASSERT_GE(AreaOf(solid), 0.0) << "none is turned over";
    }
}

TEST_F(DxfAreas, LinesBehindThemLieOnTheirOwnLayer) {
    ResetLineState();
    PrintFileHeader();
    {
        AreaOutput areas;
        areas.Begin(SeaTitle);
        areas.Fill(Rgb(0, 0, 255), Frame);
    }
    BeginFilePart(MapPart::Grid, "Grid");
    {
        AreaOutput areas;
        areas.Fill(Rgb(0, 0, 255), Frame);
    }
    FinishFile();
    const std::vector<std::string> entities = DxfEntities(Written());
    EXPECT_EQ(entities.front().substr(0, 11), "SOLID 8=SEA");
    EXPECT_EQ(entities.back().substr(0, 9), "SOLID 8=0");
}

} // namespace
} // namespace quelmont
