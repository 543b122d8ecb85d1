#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
    Design.LobeText[0] = "0";
    Design.LobeText[1] = "1";
    // One lobe in the north; in the south number 0 + 3 and the one behind it.
    MapDraw();
    EXPECT_EQ(machine.clock.beeps, 3);
}

TEST_F(LobePasses, BackgroundIsPaintedOnce) {
    MapDraw();
    EXPECT_EQ(surface.Count(SurfaceOp::Rectangle), 1);
}

TEST_F(LobePasses, LobeWithoutHeightIsPassedOver) {
    Design.GridText[1] = "00    00    00    S";
    MapDraw();
    EXPECT_EQ(machine.clock.beeps, 3);
    EXPECT_EQ(surface.Count(SurfaceOp::Rectangle), 1);
}

TEST_F(LobePasses, MapOfTheSouthHasABackgroundToo) {
    Design.GridText[0] = "00    00    00    N";
    MapDraw();
    EXPECT_EQ(machine.clock.beeps, 3);
    EXPECT_EQ(surface.Count(SurfaceOp::Rectangle), 1);
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

TEST_F(LobePasses, CountThatIsNoneIsTold) {
    Design.LobeText[0] = "7";
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
