#include "mainwindow/commands.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A map with two text items.
class MapText : public StartedProgram {
protected:
    MapText() { Design.TextItems = {Item("Title"), Item("Legend")}; }

    static TextItem Item(const std::string& text) {
        TextItem item;
        item.TextString = text;
        item.TextFont = "Arial";
        item.TextSize = 12;
        item.TextX = 1500;
        item.TextY = 750;
        item.TextHeight = 100;
        return item;
    }

    std::vector<std::string> Printed() const {
        std::vector<std::string> texts;
        for (const RecordedText& text : surface.Texts()) {
            texts.push_back(text.text);
        }
        return texts;
    }
};

TEST_F(MapText, TextsComeOnceAfterEverythingElse) {
    MapDraw();
    EXPECT_THAT(Printed(), ElementsAre("Title", "Legend"));
    const std::vector<SurfaceCall>& calls = surface.Calls();
    const auto firstText = std::find_if(calls.begin(), calls.end(), [](const SurfaceCall& call) {
        return call.op == SurfaceOp::CreateFontIndirectA;
    });
    const auto stroke = std::find_if(firstText, calls.end(), [](const SurfaceCall& call) {
        return call.op == SurfaceOp::LineTo || call.op == SurfaceOp::Rectangle;
    });
    EXPECT_TRUE(stroke == calls.end()) << *stroke;
    EXPECT_EQ(surface.Texts()[0].anchor, (SurfacePoint{100, 50}));
    EXPECT_EQ(surface.Texts()[0].font.font.height, -16);
    EXPECT_EQ(calls.back().op, SurfaceOp::Refresh);
    EXPECT_EQ(Design.CurrentText, "");
    ExpectIdle();
}

TEST_F(MapText, InterruptedMapHasThemOnceAfterTheLastPass) {
    AcceptProjection(ProjInterruptedMollweide);
    MapDraw();
    EXPECT_GT(machine.clock.beeps, 1);
    EXPECT_THAT(Printed(), ElementsAre("Title", "Legend"));
}

TEST_F(MapText, StoppedDrawHasNone) {
    machine.pump.At(1, EscapeKey);
    MapDraw();
    EXPECT_THAT(Printed(), IsEmpty());
    machine.pump.At(machine.pump.calls + 17, EscapeKey); // behind the grid's sixteen lines
    PutMap(800 * 3);
    MapDraw();
    EXPECT_THAT(Printed(), IsEmpty());
    ExpectIdle();
}

TEST_F(MapText, DrawWhoseGridFailedHasNone) {
    files.FailOpening(70);
    Design.OutputAscii = true;
    Design.AsciiFileName = {"grid.prn", "map.prn"};
    MapDraw();
    EXPECT_THAT(Printed(), IsEmpty());
}

TEST_F(MapText, StandWhereTheyWereWhenTheWindowHasAnotherSize) {
    MapDraw();
    window.scaleWidth /= 2.0;
    surface.Forget();
    MapDraw();
    ASSERT_EQ(surface.Texts().size(), 2U);
    EXPECT_EQ(surface.Texts()[0].anchor, (SurfacePoint{100, 50})) << "twips of the window, not of the map";
}

} // namespace
} // namespace quelmont
