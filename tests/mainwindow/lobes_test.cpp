#include "graticule/calc_graticule.h"
#include "graticule/lobes.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "projection/param_select.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct SeenPass {
    double offset = 0.0;
    bool first = false;
    bool last = false;
};

class LobePasses : public StartedProgram {
protected:
    LobePasses() { AcceptProjection(ProjInterruptedMollweide); }

    /// Draws and looks around at each turn: every pass has its own place.
    std::vector<SeenPass> Seen() {
        std::vector<SeenPass> passes;
        for (int call = 1; call <= 1000; ++call) {
            machine.pump.At(call, [&] {
                if (passes.empty() || passes.back().offset != Design.LobeOffsetX) {
                    passes.push_back({Design.LobeOffsetX, Design.LobeFirst, Design.LobeLast});
                }
            });
        }
        MapDraw();
        return passes;
    }
};

TEST_F(LobePasses, EachLobeBeeps) {
    // Two interruptions in each hemisphere: three lobes and three.
    MapDraw();
    EXPECT_EQ(machine.clock.beeps, 6);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    ExpectIdle();
    EXPECT_TRUE(Design.LobeLast);
}

TEST_F(LobePasses, HemisphereWithoutInterruptionsIsOneLobe) {
    Design.LobeText[LobeTextCountNorth] = "0";
    Design.LobeText[LobeTextCountSouth] = "1";
    // One lobe in the north; in the south number 0 + 3 and the one behind it.
    MapDraw();
    EXPECT_EQ(machine.clock.beeps, 3);
}

TEST_F(LobePasses, BackgroundIsPaintedOnce) {
    MapDraw();
    EXPECT_EQ(surface.Count(SurfaceOp::Rectangle), 1);
}

TEST_F(LobePasses, LobeWithoutHeightIsPassedOver) {
    Design.GridText[GridTextSouth] = "00    00    00    S";
    MapDraw();
    EXPECT_EQ(machine.clock.beeps, 3);
    EXPECT_EQ(surface.Count(SurfaceOp::Rectangle), 1);
}

TEST_F(LobePasses, MapOfTheSouthHasABackgroundToo) {
    Design.GridText[GridTextNorth] = "00    00    00    N";
    MapDraw();
    EXPECT_EQ(machine.clock.beeps, 3);
    EXPECT_EQ(surface.Count(SurfaceOp::Rectangle), 1);
}

TEST_F(LobePasses, MapOfOneHemisphereIsItsLobesAndNothingElseWholeInTheWindow) {
    const std::array<std::array<const char*, 2>, 4> bounds = {
        {{"60    00    00    N", "30    00    00    N"},
         {"90    00    00    N", "60    00    00    N"},
         {"30    00    00    S", "60    00    00    S"},
         {"10    00    00    S", "90    00    00    S"}}};
    for (const auto& [north, south] : bounds) {
        Design.GridText[GridTextNorth] = north;
        Design.GridText[GridTextSouth] = south;
        CalcGraticule();
        LonInterruptOffset();
        ParamSelect();
        machine.clock.beeps = 0;
        surface.Forget();
        MapDraw();
        EXPECT_EQ(machine.clock.beeps, 3) << "the lobes of one hemisphere";
        EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
        SurfacePoint least{10000, 10000};
        SurfacePoint most{-10000, -10000};
        for (const RecordedSegment& segment : surface.Segments()) {
            for (const SurfacePoint& point : {segment.from, segment.to}) {
                least = {std::min(least.x, point.x), std::min(least.y, point.y)};
                most = {std::max(most.x, point.x), std::max(most.y, point.y)};
            }
        }
        // The drawing area measures 1280 by 924 pixels; one of its measures is filled.
        EXPECT_GE(least.x, 0) << north;
        EXPECT_GE(least.y, 0) << north;
        EXPECT_LE(most.x, 1279) << north;
        EXPECT_LE(most.y, 923) << north;
        EXPECT_TRUE(most.x - least.x >= 1277 || most.y - least.y >= 921) << north;
    }
}

TEST_F(LobePasses, LobeLowerThanTheSpacingIsDrawn) {
    Design.GridText[GridTextNorth] = "69    00    00    N";
    Design.GridText[GridTextSouth] = "06    00    00    S";
    Design.GridText[GridTextLatSpacing] = "015    00    00";
    CalcGraticule();
    ParamSelect();
    MapDraw();
    EXPECT_EQ(machine.clock.beeps, 6) << "both hemispheres";
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(LobePasses, StandAtTheirPlaces) {
    // Number 4 is left free between the hemispheres.
    const std::vector<std::size_t> lobes = {1, 2, 3, 5, 6, 7};
    const std::vector<SeenPass> passes = Seen();
    ASSERT_EQ(passes.size(), lobes.size());
    for (std::size_t i = 0; i < lobes.size(); ++i) {
        EXPECT_EQ(passes[i].offset, Design.LobeCentral[lobes[i]]) << i;
    }
}

TEST_F(LobePasses, OnlyTheFirstIsFirstAndOnlyTheLastIsLast) {
    const std::vector<SeenPass> passes = Seen();
    ASSERT_EQ(passes.size(), 6U);
    for (std::size_t i = 0; i < passes.size(); ++i) {
        EXPECT_EQ(passes[i].first, i == 0) << i;
        EXPECT_EQ(passes[i].last, i == 5) << i;
    }
}

TEST_F(LobePasses, CountThatIsNoneIsReported) {
    Design.LobeText[LobeTextCountNorth] = "7";
    MapDraw();
    EXPECT_THAT(Told(machine.boxes.asked), ElementsAre("Error in MapDraw: Error: Subscript out of range"));
    EXPECT_EQ(machine.clock.beeps, 0);
    ExpectIdle();
}

TEST_F(LobePasses, EscapeEndsThemAll) {
    machine.pump.At(30, EscapeKey);
    MapDraw();
    EXPECT_LT(machine.clock.beeps, 6);
    EXPECT_EQ(machine.pump.calls, 30);
    ExpectIdle();
}

} // namespace
} // namespace quelmont
