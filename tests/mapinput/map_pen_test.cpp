#include "mapinput/map_pen.h"

#include "map_fixture.h"
#include "output/output_state.h"
#include "support/run_time_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

class MapPen : public MapTest {
protected:
    MapPen() {
        InputFileEntry& entry = AddFile("a.map", "");
        entry.Features[3] = {.Shown = true,
                             .Color = SolidColor(0x112233),
                             .LineWidth = 60,
                             .SymbolSize = 90,
                             .BorderWidth = 30};
    }
    RecordedPen PenOf(SymbolType type) {
        Design.CurrentSymbolType = type;
        TakeFeaturePen(3, 1, SitesMinuteGridLine);
        return surface.CurrentPen();
    }
};

TEST_F(MapPen, LinesDotsAndFilledSymbolsTakeTheLineWidth) {
    for (const SymbolType type : {SymbolLine, SymbolDot, SymbolFilledSquare, SymbolFilledDiamond,
                                  SymbolFilledTriangle, SymbolFilledCircle}) {
        EXPECT_EQ(PenOf(type), (RecordedPen{PenStyleSolid, 4, 0x112233})) << type;
    }
    EXPECT_EQ(Design.PenWidth, 4);
}

TEST_F(MapPen, OpenSymbolsTakeTheBorderWidth) {
    for (const SymbolType type : {SymbolPlus, SymbolCross, SymbolOpenSquare, SymbolOpenDiamond,
                                  SymbolOpenTriangle, SymbolOpenCircle}) {
        EXPECT_EQ(PenOf(type), (RecordedPen{PenStyleSolid, 2, 0x112233})) << type;
    }
    EXPECT_EQ(Design.PenWidth, 2);
}

TEST_F(MapPen, ColourKeepsItsFlagInTheDesign) {
    PenOf(SymbolLine);
    EXPECT_EQ(Design.PenColor, SolidColor(0x112233));
}

TEST_F(MapPen, SymbolSizesComeWithIt) {
    PenOf(SymbolOpenSquare);
    EXPECT_EQ(OutputNow.SymbolRadius, 75); // 90 - 30 / 2
}

TEST_F(MapPen, NewPenReplacesTheOldOne) {
    PenOf(SymbolLine);
    PenOf(SymbolPlus);
    EXPECT_EQ(surface.LiveObjects(), 1);
    DeleteMapPen(SiteEndOfMap);
    EXPECT_EQ(surface.LiveObjects(), 0);
}

TEST_F(MapPen, FailuresNameTheirSites) {
    PenOf(SymbolLine);
    surface.FailAt(SurfaceOp::DeleteObject, 1);
    surface.FailAt(SurfaceOp::CreatePen, 1);
    PenOf(SymbolLine);
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Windows API Error", "DeleteObject(3) error in MapPlot"},
                            AskedBox{"Windows API Error", "CreatePen(1) error in MapPlot"}));
}

TEST_F(MapPen, FileOrFeatureThatIsNotThereIsASubscriptError) {
    EXPECT_EQ(ErrorOf([] { TakeFeaturePen(3, 2, SitesMinuteGridLine); }), ErrorSubscript);
    EXPECT_EQ(ErrorOf([] { TakeFeaturePen(73, 1, SitesMinuteGridLine); }), ErrorSubscript);
}

} // namespace
} // namespace quelmont
