#include "view/map_hand.h"

#include "core/map_design.h"
#include "designfile/cnf_save.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/quiet_window.h"
#include "mainwindow/started_program.h"
#include "mainwindow/told_changes.h"
#include "platform/machine.h"
#include "projection/projection_table.h"
#include "view/undo.h"
#include "view/view_state.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Key = MapHand::Key;

/// Changes by their names, which can be undone.
class NamedChanges : public Changes {
public:
    void Accepted(std::string_view name, ChangeKind kind) override {
        names.emplace_back(name);
        kinds.push_back(kind);
        steps.Accepted(name);
    }
    void Noted() override { steps.Noted(); }
    void Undo() override { steps.Undo(); }
    void Redo() override { steps.Redo(); }

    std::vector<std::string> names;
    std::vector<ChangeKind> kinds;
    UndoSteps steps;
};

/// The default map, the world from 180 W on, in a window of 1280 by 924 pixels: an equirectangular map, true
/// at 45 degrees, that fills the width.
class HandOnMap : public StartedProgram {
protected:
    HandOnMap() {
        Machine().changes = &changes;
        NoteDesign();
        MapDraw();
    }
    ~HandOnMap() override { Machine().changes = nullptr; }

    void DrawProjection(std::int16_t projNum) {
        Design.ProjNum = projNum;
        Design.ProjName = std::string(FindProjection(projNum)->ProjName);
        if (projNum != ProjUtm) {
            ProposeBounds();
        }
        ASSERT_TRUE(AcceptProjection());
        NoteDesign();
        MapDraw();
    }
    void Drag(SurfacePoint from, SurfacePoint to) {
        hand.Press(from, false);
        hand.Drag(to);
        hand.Release(to);
    }
    std::size_t Strokes() { return surface.Segments().size(); }

    static constexpr SurfacePoint Middle{640, 461};
    static constexpr SurfacePoint East{800, 461}; ///< an eighth of the map, 45 degrees

    NamedChanges changes;
    MapHand hand;
};

TEST_F(HandOnMap, DragShowsTheMapWhileItMovesAndIsOneChange) {
    hand.Press(Middle, false);
    surface.Forget();
    ASSERT_TRUE(hand.Drag({720, 461}));
    EXPECT_GT(Strokes(), 0U) << "the picture follows";
    EXPECT_EQ(Design.GridText[GridTextWest], "157    30    00    E");
    ASSERT_TRUE(hand.Drag(East));
    EXPECT_THAT(changes.names, IsEmpty()) << "before the button is released";
    EXPECT_TRUE(hand.Release(East));
    EXPECT_EQ(Design.GridText[GridTextWest], "135    00    00    E");
    EXPECT_EQ(Design.GridText[GridTextEast], "135    00    00    E");
    EXPECT_THAT(changes.names, ElementsAre("Move"));
    EXPECT_THAT(changes.kinds, ElementsAre(ChangeKind::Bounds));
}

TEST_F(HandOnMap, ClickIsNoMove) {
    hand.Press(Middle, false);
    EXPECT_FALSE(hand.Drag({643, 463}));
    EXPECT_FALSE(hand.Release({643, 463}));
    EXPECT_THAT(changes.names, IsEmpty());
    EXPECT_FALSE(hand.Drag(East)) << "the button is up";
}

TEST_F(HandOnMap, DragThatComesBackIsNoChange) {
    const std::string before = DesignTextWithoutNames();
    hand.Press(Middle, false);
    hand.Drag(East);
    hand.Drag(Middle);
    hand.Release(Middle);
    EXPECT_EQ(DesignTextWithoutNames(), before);
    EXPECT_THAT(changes.names, IsEmpty());
}

TEST_F(HandOnMap, GivenUpDragPutsDesignAndPictureBack) {
    const std::string before = DesignTextWithoutNames();
    hand.Press(Middle, false);
    hand.Drag(East);
    surface.Forget();
    EXPECT_TRUE(hand.GiveUp());
    EXPECT_EQ(DesignTextWithoutNames(), before);
    EXPECT_GT(Strokes(), 0U);
    EXPECT_FALSE(hand.Release(East));
    EXPECT_THAT(changes.names, IsEmpty());
    EXPECT_FALSE(hand.GiveUp()) << "there is none";
}

TEST_F(HandOnMap, NextPressGivesUpADragWhoseReleaseNeverCame) {
    const std::string before = DesignTextNow();
    hand.Press(Middle, false);
    hand.Drag(East);
    hand.Press(Middle, false);
    EXPECT_EQ(DesignTextNow(), before);
    EXPECT_EQ(machine.window.pointer, MousePointer::Normal);
    hand.Drag(East);
    hand.Centre({-100, -100}); // which is no place
    EXPECT_EQ(DesignTextNow(), before);
    EXPECT_EQ(machine.window.pointer, MousePointer::Normal);
    EXPECT_FALSE(hand.Release(Middle));
    EXPECT_THAT(changes.names, IsEmpty());
}

TEST_F(HandOnMap, UndoTakesAWholeDragBack) {
    const std::string before = DesignTextWithoutNames();
    hand.Press(Middle, false);
    hand.Drag({700, 461});
    hand.Drag({750, 461});
    hand.Drag(East);
    hand.Release(East);
    EXPECT_EQ(window.menuTexts.at({Menu::mnuEdit, UndoItem}), "&Undo Move");
    ClickMenuItem(Menu::mnuEdit, UndoItem);
    EXPECT_EQ(DesignTextWithoutNames(), before);
    EXPECT_EQ(changes.steps.StepsBack(), 0U);
}

TEST_F(HandOnMap, PictureOfAMoveIsThatOfADraw) {
    for (const std::int16_t projNum :
         {ProjEquirectangular, ProjInterruptedMollweide, ProjOrthographic, ProjUtm}) {
        SCOPED_TRACE(projNum);
        DrawProjection(projNum);
        hand.Press({600, 420}, false);
        surface.Forget();
        ASSERT_TRUE(hand.Drag({620, 440}));
        const auto moved = surface.Segments();
        hand.Release({620, 440});
        surface.Forget();
        MapDraw();
        const auto drawn = surface.Segments();
        ASSERT_EQ(moved.size(), drawn.size());
        for (std::size_t i = 0; i < drawn.size(); ++i) {
            ASSERT_EQ(moved[i], drawn[i]) << i;
        }
    }
}

TEST_F(HandOnMap, MoveTellsOfNoDraw) {
    const int beeps = machine.clock.beeps;
    const std::size_t captions = window.captions.size();
    const std::size_t pointers = window.pointers.size();
    const std::size_t texts = window.statusTexts.size();
    const auto menus = window.menusEnabled;
    hand.Wheel(Middle, 1);
    EXPECT_EQ(machine.clock.beeps, beeps);
    EXPECT_EQ(window.captions.size(), captions);
    EXPECT_EQ(window.pointers.size(), pointers);
    EXPECT_EQ(window.statusTexts.size(), texts);
    EXPECT_EQ(window.menusEnabled, menus);
    ExpectIdle();
}

TEST_F(HandOnMap, PictureIsShownOnceForEachStepOfADrag) {
    hand.Press(Middle, false);
    hand.Drag(East);
    const int refreshes = window.refreshes;
    hand.Drag({810, 461});
    EXPECT_EQ(window.refreshes, refreshes + 1) << "one that was begun would flicker";
}

TEST_F(HandOnMap, FailureOfAFileShowsNoBoxWhileTheMapMoves) {
    Design.InputFiles.at(0).MapFileName = "/program/gone.map";
    EXPECT_TRUE(hand.Wheel(Middle, 1));
    EXPECT_THAT(Told(machine.boxes.Taken()), IsEmpty());
    EXPECT_FALSE(hand.LacksLines()) << "another draw would not help";
    EXPECT_FALSE(MainWindowNow.Picture->whole);
}

TEST_F(HandOnMap, WheelStepsInARowAreOneChange) {
    hand.Wheel(Middle, 1);
    hand.Wheel({641, 462}, 1);
    hand.Wheel(Middle, 1);
    EXPECT_TRUE(hand.IsUnfinished());
    EXPECT_THAT(changes.names, IsEmpty());
    hand.Finish();
    EXPECT_THAT(changes.names, ElementsAre("Zoom"));
    EXPECT_FALSE(hand.IsUnfinished());
}

TEST_F(HandOnMap, EqualWheelStepsBackLeadToTheSameDesign) {
    for (const ProjectionEntry& entry : Projections) {
        SCOPED_TRACE(entry.ProjName);
        DrawProjection(entry.ProjNum);
        const std::string before = DesignTextWithoutNames();
        int inward = 0;
        for (int i = 0; i < 7; ++i) {
            inward += hand.Wheel({600, 420}, 1) ? 1 : 0;
            hand.Finish(); // they need not follow at once
        }
        EXPECT_NE(DesignTextWithoutNames(), before);
        for (int i = 0; i < inward; ++i) {
            EXPECT_TRUE(hand.Wheel({601, 421}, -1)) << i;
        }
        EXPECT_EQ(DesignTextWithoutNames(), before);
    }
}

TEST_F(HandOnMap, StepsOfDifferentKindsAreChangesOfTheirOwn) {
    hand.Press(Key::In);
    hand.Press(Key::In);
    hand.Press(Key::Right);
    hand.Press(Key::Up);
    hand.Press(Key::Whole);
    hand.Finish();
    EXPECT_THAT(changes.names, ElementsAre("Zoom", "Move", "Show the Whole"));
}

TEST_F(HandOnMap, CursorKeysShowWhatLiesBesideTheMap) {
    DrawProjection(ProjOrthographic);
    hand.Press(Key::Right);
    // An eighth of the 180 degrees that are seen are 22.5; at 40 N they are 29.37 degrees of longitude.
    EXPECT_EQ(Design.GridText[GridTextCentralLon], "029    20    00    E");
    hand.Press(Key::Up);
    EXPECT_EQ(Design.GridText[GridTextCentralLat], "62    30    00    N");
    hand.Press(Key::Down);
    EXPECT_EQ(Design.GridText[GridTextCentralLat], "40    00    00    N");
    hand.Press(Key::Left);
    EXPECT_EQ(Design.GridText[GridTextCentralLon], "000    00    00    E");
}

TEST_F(HandOnMap, RectangleIsShownWhileItIsDraggedAndBecomesTheMap) {
    const std::string before = DesignTextWithoutNames();
    hand.Press(Middle, true);
    surface.Forget();
    EXPECT_TRUE(hand.Drag({960, 361}));
    EXPECT_TRUE(window.previewShown);
    EXPECT_EQ(window.previewBox, (PixelBox{640, 361, 321, 101}));
    EXPECT_EQ(Strokes(), 0U) << "the map stays";
    EXPECT_EQ(DesignTextWithoutNames(), before);
    EXPECT_TRUE(hand.Release({960, 361}));
    EXPECT_FALSE(window.previewShown);
    EXPECT_NEAR(Design.LonWest, 0.0, 0.3); // a pixel's width
    EXPECT_EQ(Design.LonSpan, 90.0);
    EXPECT_THAT(changes.names, ElementsAre("Zoom"));
}

TEST_F(HandOnMap, RectangleThatIsGivenUpIsGone) {
    hand.Press(Middle, true);
    hand.Drag(East);
    EXPECT_TRUE(hand.GiveUp());
    EXPECT_FALSE(window.previewShown);
    EXPECT_THAT(changes.names, IsEmpty());
}

TEST_F(HandOnMap, PlaceUnderADoubleClickBecomesTheMiddle) {
    DrawProjection(ProjAzimuthalEquidistant);
    const SurfacePoint pixel{640, 231}; // half way to the rim: 90 degrees north of 40 N, beyond the pole
    EXPECT_TRUE(hand.Centre(pixel));
    EXPECT_NEAR(Design.LatCentral, 50.0, 0.5);
    EXPECT_NEAR(std::fabs(Design.LonCentralSec), 180.0 * 3600.0, 3600.0);
    EXPECT_THAT(changes.names, ElementsAre("Center"));
}

TEST_F(HandOnMap, NothingMovesWhileItIsSwitchedOff) {
    ClickMenuItem(Menu::mnuView, MoveItem);
    Drag(Middle, East);
    hand.Wheel(Middle, 1);
    hand.Press(Key::In);
    hand.Centre(East);
    EXPECT_THAT(changes.names, IsEmpty());
    ClickMenuItem(Menu::mnuView, MoveItem);
    Drag(Middle, East);
    EXPECT_THAT(changes.names, ElementsAre("Move"));
}

TEST_F(HandOnMap, NothingMovesWhileATextIsPlaced) {
    Design.TextPending = true;
    Drag(Middle, East);
    hand.Press(Key::In);
    Design.TextPending = false;
    EXPECT_THAT(changes.names, IsEmpty());
}

TEST_F(HandOnMap, NothingMovesWithoutAPictureOfTheBounds) {
    Design.ProjNum = ProjMercator;
    EXPECT_FALSE(MapHand::IsFree()) << "the picture is another projection's";
    DrawProjection(ProjMercator);
    EXPECT_TRUE(MapHand::IsFree());
    Design.GridText[GridTextNorth] = "70    00    00    N";
    EXPECT_FALSE(MapHand::IsFree()) << "the bounds are others";
}

TEST_F(HandOnMap, LongPictureIsCutAndFilledInAtRest) {
    PutMap(200000);
    MapDraw();
    const std::size_t whole = Strokes();
    surface.Forget();
    EXPECT_EQ(DrawMovingPicture(0.0), MovingPicture::Cut);
    EXPECT_LT(Strokes(), whole);
    EXPECT_FALSE(MainWindowNow.Picture->whole);
    ExpectIdle();
    surface.Forget();
    EXPECT_TRUE(hand.FillIn());
    EXPECT_TRUE(MainWindowNow.Picture->whole);
}

TEST_F(HandOnMap, PictureThatWasCutIsFilledInWhileTheButtonIsHeld) {
    ViewNow.movingPictureSeconds = 1e-9;
    hand.Press(Middle, false);
    ASSERT_TRUE(hand.Drag(East));
    ASSERT_TRUE(hand.LacksLines());
    const int beeps = machine.clock.beeps;
    const auto menus = window.menusEnabled;
    EXPECT_TRUE(hand.FillIn());
    EXPECT_TRUE(MainWindowNow.Picture->whole);
    EXPECT_FALSE(hand.LacksLines());
    EXPECT_TRUE(hand.IsDragging()) << "the drag goes on";
    EXPECT_EQ(machine.clock.beeps, beeps);
    EXPECT_EQ(window.menusEnabled, menus);
    EXPECT_THAT(changes.names, IsEmpty());
    hand.Drag(Middle);
    EXPECT_TRUE(hand.Release(Middle));
    EXPECT_EQ(Design.GridText[GridTextWest], "180    00    00    W");
    EXPECT_THAT(changes.names, IsEmpty()) << "it came back";
}

TEST_F(HandOnMap, ThinnedPictureHasEveryNthLine) {
    PutMap(36 * 30); // 30 lines of the same 36 places
    surface.Forget();
    Design.MapFileCount = 0;
    MapDraw();
    const std::size_t grid = Strokes();
    Design.MapFileCount = 1;
    surface.Forget();
    EXPECT_EQ(DrawMovingPicture(10.0), MovingPicture::Whole);
    const std::size_t whole = Strokes();
    surface.Forget();
    EXPECT_EQ(DrawMovingPicture(10.0, 10), MovingPicture::Thinned);
    EXPECT_EQ((Strokes() - grid) * 10, whole - grid);
    EXPECT_FALSE(MainWindowNow.Picture->whole) << "no copy may be made of it";
    surface.Forget();
    MapDraw();
    EXPECT_EQ(Strokes(), whole) << "the choice was for that picture";
}

/// Nothing is painted: a great many moves are tried.
class ManyMoves : public HandOnMap {
protected:
    ManyMoves() { Machine().window = &quiet; }
    ~ManyMoves() override { Machine().window = &window; }

    SurfacePoint Anywhere() {
        std::uniform_int_distribution<std::int32_t> x(-50, 1330);
        std::uniform_int_distribution<std::int32_t> y(-50, 974);
        return {x(random), y(random)};
    }
    void Drag();
    void Wheel();
    void MoveSomehow(int i);

    QuietWindow quiet{window};
    std::mt19937 random{20261122};
};

void ManyMoves::Drag() {
    const std::string before = DesignTextWithoutNames();
    const SurfacePoint pressed = Anywhere();
    const bool rectangle = random() % 8 == 0;
    hand.Press(pressed, rectangle);
    hand.Drag(Anywhere());
    hand.Drag(Anywhere());
    switch (random() % 4) {
    case 0:
        hand.GiveUp();
        ASSERT_EQ(DesignTextWithoutNames(), before);
        break;
    case 1:
        hand.Drag(pressed);
        hand.Release(pressed);
        ASSERT_EQ(DesignTextWithoutNames(), before);
        break;
    default:
        hand.Release(Anywhere());
    }
}

void ManyMoves::Wheel() {
    const std::string before = DesignTextWithoutNames();
    const SurfacePoint at = Anywhere();
    const int way = random() % 2 == 0 ? 1 : -1;
    int done = 0;
    for (unsigned i = 0; i < 1 + random() % 4; ++i) {
        done += hand.Wheel(at, way) ? 1 : 0;
    }
    if (random() % 2 == 0) {
        for (int i = 0; i < done; ++i) {
            hand.Wheel(at, -way);
        }
        if (done > 0) {
            ASSERT_EQ(DesignTextWithoutNames(), before);
        }
    }
    hand.Finish();
}

void ManyMoves::MoveSomehow(int i) {
    switch (random() % 8) {
    case 0:
    case 1:
    case 2:
        Drag();
        break;
    case 3:
    case 4:
        Wheel();
        break;
    case 5:
        hand.Press(static_cast<Key>(random() % 7));
        hand.Finish();
        break;
    case 6:
        hand.Centre(Anywhere());
        break;
    default:
        if (changes.steps.StepsBack() > 0) {
            const std::string before = DesignTextWithoutNames();
            changes.Undo();
            changes.Redo();
            ASSERT_EQ(DesignTextWithoutNames(), before);
            if (i % 2 == 0) {
                changes.Undo();
            }
        }
    }
}

TEST_F(ManyMoves, EachLeavesADesignThatItsDialogsAcceptAndNoneDrifts) {
#ifdef __SANITIZE_ADDRESS__
    constexpr int moves = 1000;
#else
    constexpr int moves = 10000;
#endif
    constexpr int movesOfAMap = 50;
    std::vector<std::int16_t> numbers;
    for (const ProjectionEntry& entry : Projections) {
        numbers.push_back(entry.ProjNum);
    }
    for (int i = 0; i < moves; ++i) {
        if (i % movesOfAMap == 0) {
            DrawProjection(numbers.at(static_cast<std::size_t>(i / movesOfAMap) % numbers.size()));
        }
        SCOPED_TRACE(Design.ProjName + ", move " + std::to_string(i));
        MoveSomehow(i);
        ASSERT_TRUE(WouldAccept(AcceptChain));
        ASSERT_EQ(Design.BoundsProjNum, Design.ProjNum);
        ASSERT_FALSE(HasFatalFailure());
    }
    EXPECT_THAT(Told(machine.boxes.Taken()), IsEmpty());
}

} // namespace
} // namespace quelmont
