#include "view/view_status.h"

#include "core/map_design.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "platform/machine.h"
#include "view/redraw.h"
#include "view/view_state.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>

namespace quelmont {
namespace {

using testing::IsEmpty;
using testing::StartsWith;

const std::string Older = "The picture is older than the design: F5 draws it";

class ViewStatus : public StartedProgram {
protected:
    std::string TextAfterCommand() const {
        ShowViewStatus();
        return window.statusText;
    }
};

TEST_F(ViewStatus, TellsThePlaceUnderTheMouse) {
    PointerMoved(SurfacePoint{640, 461});
    EXPECT_EQ(window.statusText, "") << "there is no picture yet";
    MapDraw();
    EXPECT_THAT(TextAfterCommand(), StartsWith("0\u00B0 06\u2032 N   0\u00B0 08\u2032 E"));
    PointerMoved(SurfacePoint{640, 5});
    EXPECT_EQ(window.statusText, "");
    PointerMoved(SurfacePoint{0, 461});
    EXPECT_THAT(window.statusText, StartsWith("0\u00B0 06\u2032 N   180\u00B0"));
    PointerMoved(std::nullopt);
    EXPECT_EQ(window.statusText, "");
}

TEST_F(ViewStatus, TellsTheScaleOfAreasAndTheErrorOfAnglesBehindThePlace) {
    MapDraw();
    // The world is true at 45 degrees: at the equator parallels have a scale of the root of one half, and the
    // sine of half the angle is (1 - 0.7071) / (1 + 0.7071).
    PointerMoved(SurfacePoint{640, 461});
    EXPECT_EQ(window.statusText,
              "0\u00B0 06\u2032 N   0\u00B0 08\u2032 E   area \u00D7 0.707   angle 19.8\u00B0");
    // Row 60 lies at 79.911 N, whose cosine is 0.17518: 0.70711 / 0.17518, and (4.0364 - 1) / (4.0364 + 1).
    PointerMoved(SurfacePoint{640, 60});
    EXPECT_THAT(window.statusText, testing::EndsWith("E   area \u00D7 4.036   angle 74.2\u00B0"));
}

TEST_F(ViewStatus, LeavesTheLineToADraw) {
    std::string text;
    machine.pump.At(3, [&] {
        PointerMoved(SurfacePoint{640, 461});
        text = window.statusText;
    });
    MapDraw();
    EXPECT_THAT(text, StartsWith("Drawing"));
}

TEST_F(ViewStatus, PictureIsOlderThanAChangedDesignUntilTheNextDraw) {
    const std::array<std::function<void()>, 8> changes = {
        [] { Design.BackColor = 0x00FF0000; },
        [] { Design.GridTypeCode = 4; },
        [] { Design.GridLineWidth = 45.0F; },
        [] { AcceptProjection(ProjRobinson); },
        [] { Design.GridText[GridTextNorth] = "60    00    00    N"; },
        [] { Design.InputFiles[0].Features[1].Shown = !Design.InputFiles[0].Features[1].Shown; },
        [] { Design.InputFiles.push_back(Design.InputFiles[0]); },
        [] { Design.GcDefined = true; },
    };
    for (const auto& change : changes) {
        MapDraw();
        EXPECT_EQ(TextAfterCommand(), "");
        change();
        EXPECT_EQ(TextAfterCommand(), Older);
        PointerMoved(SurfacePoint{640, 461});
        EXPECT_EQ(window.statusText, Older);
        PointerMoved(std::nullopt);
        Design.GcDefined = false;
    }
    MapDraw();
    EXPECT_EQ(TextAfterCommand(), "");
}

TEST_F(ViewStatus, WhatIsShownWithoutADrawMakesNoPictureOlder) {
    MapDraw();
    Design.TextItems.emplace_back();
    Design.LabelsVisible = false;
    Design.PrintLeft = 3.0F;
    Design.ReportTop = 3.0F;
    Design.PrinterOrientation = 2;
    Design.LineWidthsScaled = !Design.LineWidthsScaled;
    Design.TextScalePercent = 50;
    Design.CnfFileName = "/maps/world.cnf";
    Design.DxfFileName = "/maps/world.dxf";
    Design.AsciiFileName = {"a.prn", "b.prn"};
    Design.GridOutputCount = 1;
    window.scaleWidth = 9000.0;
    EXPECT_EQ(TextAfterCommand(), "");
}

TEST_F(ViewStatus, ChangeThatIsTakenBackLeavesThePicture) {
    MapDraw();
    const auto before = Design.GridColor;
    Design.GridColor = 0x00123456;
    EXPECT_EQ(TextAfterCommand(), Older);
    Design.GridColor = before;
    EXPECT_EQ(TextAfterCommand(), "");
}

TEST_F(ViewStatus, BeforeTheFirstDrawNothingIsOlder) {
    Design.GridColor = 0x00123456;
    EXPECT_EQ(TextAfterCommand(), "");
}

// ---- Redraw by itself.

class Redraw : public StartedProgram {
protected:
    /// A draw that takes so long, and then a change of the design.
    void DrawAndChange(double seconds) {
        machine.clock.secondsPerReading = 0.0;
        machine.pump.At(machine.pump.calls + 1, [&, seconds] { machine.clock.seconds += seconds; });
        MapDraw();
        Change();
    }
    void Change() {
        Design.GridColor = Design.GridColor == 0 ? 0x00123456 : 0;
        ShowViewStatus();
    }
};

TEST_F(Redraw, IsDueAfterAChangeWhenTheLastDrawTookLessThanHalfASecond) {
    EXPECT_FALSE(IsRedrawDue(true)) << "before the first draw";
    Change();
    EXPECT_FALSE(IsRedrawDue(true)) << "before the first draw";
    DrawAndChange(0.49);
    EXPECT_TRUE(IsRedrawDue(false));
    DrawAndChange(0.5);
    EXPECT_FALSE(IsRedrawDue(true));
}

TEST_F(Redraw, IsNotDueWithoutAChange) {
    MapDraw();
    ShowViewStatus();
    EXPECT_FALSE(IsRedrawDue(true));
}

TEST_F(Redraw, IsDueForAnotherSize) {
    MapDraw();
    ShowViewStatus();
    window.scaleHeight -= 150.0;
    EXPECT_FALSE(IsRedrawDue(false));
    EXPECT_TRUE(IsRedrawDue(true));
    RedrawByItself();
    EXPECT_FALSE(IsRedrawDue(true));
}

TEST_F(Redraw, IsNotDueWhenItIsSwitchedOff) {
    DrawAndChange(0.1);
    RunMenuItem(Menu::mnuView, RedrawItem);
    EXPECT_FALSE(IsRedrawDue(true));
    RunMenuItem(Menu::mnuView, RedrawItem);
    EXPECT_TRUE(IsRedrawDue(true));
}

TEST_F(Redraw, IsNotDueWhileATextIsPlaced) {
    DrawAndChange(0.1);
    Design.TextPending = true;
    EXPECT_FALSE(IsRedrawDue(true));
    Design.TextPending = false;
    EXPECT_TRUE(IsRedrawDue(true));
}

TEST_F(Redraw, IsNotDueAfterADrawThatWasStopped) {
    machine.pump.At(3, [] { EscapeKey(); });
    DrawAndChange(0.0);
    EXPECT_FALSE(IsRedrawDue(true));
}

TEST_F(Redraw, IsNotDueAfterADrawThatFailed) {
    Design.InputFiles[0].MapFileName = "/program/gone.map";
    Design.MapFileCount = 1;
    DrawAndChange(0.0);
    EXPECT_EQ(machine.boxes.Taken().size(), 1U);
    EXPECT_FALSE(IsRedrawDue(true)) << "its message box would come again and again";
}

TEST_F(Redraw, IsNotDueWithBoundsOfAnotherProjection) {
    DrawAndChange(0.0);
    Design.ProjNum = ProjAlbers;
    EXPECT_FALSE(IsRedrawDue(true));
}

TEST_F(Redraw, DrawsAtTheLastSizeWithoutADialogAndWithoutABeep) {
    Design.MapReduce = 0.4;
    DrawAndChange(0.0);
    const int beeps = machine.clock.beeps;
    RedrawByItself();
    ShowViewStatus();
    EXPECT_EQ(machine.clock.beeps, beeps);
    EXPECT_THAT(machine.forms.shown, IsEmpty());
    EXPECT_EQ(Design.MapReduce, 0.4);
    EXPECT_EQ(window.statusText, "");
    EXPECT_FALSE(IsRedrawDue(true));
    MapDraw();
    EXPECT_EQ(machine.clock.beeps, beeps + 1) << "one that was asked for beeps";
}

} // namespace
} // namespace quelmont
