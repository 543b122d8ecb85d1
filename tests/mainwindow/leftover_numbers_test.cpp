#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "projection/param_select.h"
#include "projection/projection_table.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

/// A projection that was chosen while its dialogs were cancelled: it is in force with the numbers
/// that the design had on another one.
class LeftoverNumbers : public StartedProgram, public testing::WithParamInterface<ProjectionEntry> {
protected:
    /// More turns than any whole world takes: the draw is then stopped, and the test fails.
    static constexpr int TooManyTurns = 20000;

    void DrawOn(const ProjectionEntry& entry) {
        Design.ProjNum = entry.ProjNum;
        surface.Forget();
        const int turns = machine.pump.calls;
        bool stopped = false;
        machine.pump.At(turns + TooManyTurns, [&] {
            stopped = true;
            EscapeKey();
        });
        MapDraw();
        EXPECT_FALSE(stopped) << "no end on " << entry.ProjName;
        ExpectIdle();
        const std::vector<AskedBox> boxes = machine.boxes.Taken();
        EXPECT_LE(boxes.size(), 12U) << "on " << entry.ProjName;
        machine.pump.calls = turns + TooManyTurns;
    }
};

TEST_P(LeftoverNumbers, NeverCrashOrHangAnother) {
    for (const ProjectionEntry& entry : Projections) {
        AcceptProjection(GetParam().ProjNum);
        machine.boxes.asked.clear();
        DrawOn(entry);
    }
}

TEST_P(LeftoverNumbers, NeverCrashOrHangAnotherWithItsOwnConstants) {
    for (const ProjectionEntry& entry : Projections) {
        AcceptProjection(GetParam().ProjNum);
        Design.ProjNum = entry.ProjNum;
        ParamSelect();
        machine.boxes.asked.clear();
        DrawOn(entry);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, LeftoverNumbers, testing::ValuesIn(Projections),
                         [](const auto& entry) { return "ProjNum" + std::to_string(entry.param.ProjNum); });

class AcceptedNumbers : public StartedProgram, public testing::WithParamInterface<ProjectionEntry> {};

TEST_P(AcceptedNumbers, DrawWithoutABox) {
    AcceptProjection(GetParam().ProjNum);
    MapDraw();
    for (const std::string& told : Told(machine.boxes.asked)) {
        ADD_FAILURE() << told;
    }
    EXPECT_GT(surface.Segments().size(), 10U);
    ExpectIdle();
}

INSTANTIATE_TEST_SUITE_P(Of, AcceptedNumbers, testing::ValuesIn(Projections),
                         [](const auto& entry) { return "ProjNum" + std::to_string(entry.param.ProjNum); });

} // namespace
} // namespace quelmont
