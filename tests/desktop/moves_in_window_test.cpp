#include "areas/file_areas.h"
#include "core/map_design.h"
#include "designfile/cnf_save.h"
#include "desktop_fixture.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/text_placing.h"
#include "mainwindow/view_commands.h"
#include "mapinput/kept_lines.h"
#include "projection/projection_table.h"
#include "view/map_hand.h"
#include "view/redraw.h"
#include "view/view_state.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace quelmont {
namespace {

/// Milliseconds after which wheel and keys count as resting.
constexpr int RestOver = 600;

/// The map of the world under mouse and keys.
class MovesInWindow : public DesktopTest {
protected:
    MovesInWindow() {
        Start();
        Activate();
    }

    QPoint Middle() { return Area().rect().center(); }
    void Press(Qt::KeyboardModifiers keys = {}) {
        QTest::mousePress(&Area(), Qt::LeftButton, keys, Middle());
    }
    void Move(QPoint by) { QTest::mouseMove(&Area(), Middle() + by); }
    void Release(QPoint by, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseRelease(&Area(), Qt::LeftButton, keys, Middle() + by);
    }
    void Drag(QPoint by, Qt::KeyboardModifiers keys = {}) {
        Press(keys);
        Move(by / 2);
        Move(by);
        Release(by, keys);
    }
    void Wheel(int angle) {
        QWheelEvent event(Middle(), Area().mapToGlobal(Middle()), {}, {0, angle}, {}, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&Area(), &event);
    }
    QString UndoText() { return Window().Action(Menu::mnuEdit, UndoItem)->text(); }
    /// Pictures are whole while the map moves, whatever slows the program down.
    static void TakeWhatTimeItNeeds() { ViewNow.movingPictureSeconds = 60.0; }
    static std::string West() { return Design.GridText[GridTextWest]; }

    const std::string westBefore = "180    00    00    W";
};

TEST_F(MovesInWindow, MapFollowsTheMouseAndTheRestIsWhatDrawMapDraws) {
    TakeWhatTimeItNeeds();
    DrawByKeys();
    const QImage before = Picture();
    Press();
    Move({100, 0});
    const QImage moving = Picture();
    EXPECT_NE(moving, before);
    Release({100, 0});
    EXPECT_NE(West(), westBefore);
    EXPECT_EQ(UndoText(), "&Undo Move");
    QTest::qWait(RestOver);
    const QImage rest = Picture();
    EXPECT_EQ(rest, moving);
    DrawByKeys();
    EXPECT_EQ(Picture(), rest);
    ExpectIdle();
}

TEST_F(MovesInWindow, EscapePutsTheMapBack) {
    TakeWhatTimeItNeeds();
    DrawByKeys();
    const QImage before = Picture();
    Press();
    Move({100, 0});
    QTest::keyClick(&Window(), Qt::Key_Escape);
    EXPECT_EQ(Picture(), before);
    EXPECT_EQ(West(), westBefore);
    Move({120, 0});
    Release({120, 0});
    EXPECT_EQ(Picture(), before);
    EXPECT_EQ(UndoText(), "&Undo");
}

TEST_F(MovesInWindow, ClicksAndDragsWithTheShiftKeyOrAnotherButtonMoveNothing) {
    DrawByKeys();
    Drag({2, 1});
    Drag({100, 0}, Qt::ShiftModifier);
    QTest::mousePress(&Area(), Qt::RightButton, {}, Middle());
    Move({100, 0});
    QTest::mouseRelease(&Area(), Qt::RightButton, {}, Middle());
    EXPECT_EQ(West(), westBefore);
}

TEST_F(MovesInWindow, WheelStepsAreOneChangeWhenTheHandRests) {
    DrawByKeys();
    Wheel(120);
    Wheel(60); // half a step
    Wheel(60);
    EXPECT_EQ(UndoText(), "&Undo");
    QTest::qWait(RestOver);
    EXPECT_EQ(UndoText(), "&Undo Zoom");
    QTest::keyClick(&Window(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(West(), westBefore);
    EXPECT_EQ(UndoText(), "&Undo") << "it was one";
}

TEST_F(MovesInWindow, CommandTellsOfAMoveBeforeItsOwnChange) {
    DrawByKeys();
    Wheel(120);
    Window().Action(Menu::mnuDesign, PixelSizeItem)->trigger();
    EXPECT_EQ(UndoText(), "&Undo Zoom");
}

TEST_F(MovesInWindow, KeysMoveZoomAndGoBackToTheWhole) {
    DrawByKeys();
    QTest::keyClick(&Window(), Qt::Key_Right);
    EXPECT_EQ(West(), "135    00    00    W");
    QTest::keyClick(&Window(), Qt::Key_Plus, Qt::ShiftModifier);
    QTest::keyClick(&Window(), Qt::Key_Plus, Qt::KeypadModifier);
    EXPECT_LT(Design.LonSpan, 300.0);
    const double span = Design.LonSpan;
    QTest::keyClick(&Window(), Qt::Key_Minus);
    EXPECT_GT(Design.LonSpan, span);
    QTest::keyClick(&Window(), Qt::Key_Home);
    EXPECT_EQ(West(), westBefore);
    EXPECT_EQ(Design.LonSpan, 360.0);
}

TEST_F(MovesInWindow, RectangleWithCtrlBecomesTheMap) {
    DrawByKeys();
    Press(Qt::ControlModifier);
    Move({100, -60});
    EXPECT_NE(SeenOfArea(), Picture()) << "it is seen over the map";
    Release({100, -60}, Qt::ControlModifier);
    EXPECT_GE(Design.LonWest, -5.0);
    EXPECT_LT(Design.LonSpan, 60.0);
    EXPECT_EQ(SeenOfArea(), Picture());
}

TEST_F(MovesInWindow, DoubleClickCentres) {
    DrawByKeys();
    const QPoint right = Middle() + QPoint(Area().width() / 8, 0);
    QTest::mouseDClick(&Area(), Qt::LeftButton, {}, right);
    EXPECT_EQ(West(), "135    00    00    W");
    EXPECT_EQ(UndoText(), "&Undo Center");
}

TEST_F(MovesInWindow, SwitchTurnsMouseAndKeysOff) {
    DrawByKeys();
    QAction* const item = Window().Action(Menu::mnuView, MoveItem);
    EXPECT_TRUE(item->isChecked());
    item->trigger();
    Drag({100, 0});
    Wheel(120);
    QTest::keyClick(&Window(), Qt::Key_Right);
    EXPECT_EQ(West(), westBefore);
    Restart();
    EXPECT_FALSE(Window().Action(Menu::mnuView, MoveItem)->isChecked()) << "it is kept";
}

TEST_F(MovesInWindow, TextThatIsPlacedHasMouseAndKeys) {
    DrawByKeys();
    Design.CurrentText = "Text";
    Design.TextPending = true;
    BeginPlacing();
    Drag({100, 0});
    Wheel(120);
    QTest::keyClick(&Window(), Qt::Key_Right);
    EXPECT_EQ(West(), westBefore);
    TextDone();
}

TEST_F(MovesInWindow, MapOfManyLinesIsFilledInAtRestAndTheNextMoveStopsThat) {
    DrawByKeys();
    MainWindowNow.Picture->seconds = 10.0; // as of a large file
    Drag({100, 0});
    EXPECT_FALSE(MainWindowNow.Picture->whole);
    const QImage thin = Picture();
    pump->At(1, [&] { Press(); });
    QTest::qWait(50);
    EXPECT_FALSE(MainWindowNow.Picture->whole) << "it was stopped";
    EXPECT_FALSE(Window().Busy());
    Move({50, 0});
    Release({50, 0});
    QTest::qWait(RestOver);
    EXPECT_TRUE(MainWindowNow.Picture->whole);
    const QImage rest = Picture();
    EXPECT_NE(rest, thin);
    DrawByKeys();
    EXPECT_EQ(Picture(), rest);
}

TEST_F(MovesInWindow, MapOfManyLinesIsFilledInWhileTheButtonIsHeldStill) {
    DrawByKeys();
    MainWindowNow.Picture->seconds = 10.0;
    Press();
    Move({50, 0});
    Move({100, 0});
    EXPECT_FALSE(MainWindowNow.Picture->whole);
    const std::string west = West();
    pump->At(1, [&] { Move({60, 0}); });
    QTest::qWait(RestOver);
    EXPECT_NE(West(), west) << "the next move stopped it";
    EXPECT_FALSE(Window().Busy());
    QTest::qWait(RestOver);
    EXPECT_TRUE(MainWindowNow.Picture->whole);
    EXPECT_EQ(UndoText(), "&Undo") << "nothing has been accepted yet";
    const QImage held = Picture();
    Release({60, 0});
    EXPECT_EQ(UndoText(), "&Undo Move");
    QTest::qWait(RestOver);
    EXPECT_EQ(Picture(), held);
    DrawByKeys();
    EXPECT_EQ(Picture(), held);
}

TEST_F(MovesInWindow, EscapeWhileAHeldMapIsFilledInPutsItBack) {
    DrawByKeys();
    const QImage before = Picture();
    MainWindowNow.Picture->seconds = 10.0;
    Press();
    Move({50, 0});
    Move({100, 0});
    ASSERT_NE(West(), westBefore);
    pump->At(1, [&] { QTest::keyClick(&Window(), Qt::Key_Escape); });
    QTest::qWait(RestOver);
    EXPECT_EQ(West(), westBefore);
    Release({100, 0});
    QTest::qWait(RestOver);
    EXPECT_TRUE(MainWindowNow.Picture->whole);
    EXPECT_EQ(Picture(), before);
    EXPECT_EQ(UndoText(), "&Undo");
}

TEST_F(MovesInWindow, ButtonThatIsHeldBehindTheWheelStillDrags) {
    DrawByKeys();
    Wheel(120);
    Press();
    QTest::qWait(RestOver);
    const std::string west = West();
    Move({50, 0});
    Move({100, 0});
    EXPECT_NE(West(), west);
    Release({100, 0});
    EXPECT_EQ(UndoText(), "&Undo Move");
}

TEST_F(MovesInWindow, WhatWasReadOfMapFilesIsKeptAsLongAsTheProgramRuns) {
    ASSERT_NE(KeptMapLines(), nullptr);
    ASSERT_NE(KeptMapAreas(), nullptr);
    pump.reset();
    desktop.reset();
    EXPECT_EQ(KeptMapLines(), nullptr);
    EXPECT_EQ(KeptMapAreas(), nullptr);
}

TEST_F(MovesInWindow, EscapeLeavesAMapAsFarAsItIsFilledIn) {
    DrawByKeys();
    MainWindowNow.Picture->seconds = 10.0;
    Drag({100, 0});
    pump->At(1, [&] { QTest::keyClick(&Window(), Qt::Key_Escape); });
    QTest::qWait(RestOver);
    EXPECT_FALSE(MainWindowNow.Picture->whole);
}

TEST_F(MovesInWindow, TwoHundredRandomMovesOfTheDefaultMapEndInDesignsThatAreDrawn) {
    constexpr int moves = 200;
    constexpr int movesOfAMap = 12;
    SwitchSmoothLines(false);
    Window().resize(600, 480);
    MapHand hand;
    std::mt19937 random{416};
    const auto anywhere = [&] {
        return SurfacePoint{static_cast<std::int32_t>(random() % 620) - 10,
                            static_cast<std::int32_t>(random() % 420) - 10};
    };
    for (int i = 0; i < moves; ++i) {
        if (i % movesOfAMap == 0) {
            const ProjectionEntry& entry = Projections[static_cast<std::size_t>(i / movesOfAMap)];
            Design.ProjNum = entry.ProjNum;
            Design.ProjName = std::string(entry.ProjName);
            if (entry.ProjNum != ProjUtm) {
                ProposeBounds();
            }
            ASSERT_TRUE(AcceptProjection());
            RedrawByItself();
        }
        SCOPED_TRACE(Design.ProjName + ", move " + std::to_string(i));
        const SurfacePoint from = anywhere();
        const std::string before = DesignTextWithoutNames();
        switch (random() % 4) {
        case 0:
            hand.Wheel(from, random() % 3 == 0 ? -1 : 1);
            break;
        case 1:
            hand.Press(static_cast<MapHand::Key>(random() % 7));
            break;
        default:
            hand.Press(from, random() % 4 == 0);
            hand.Drag(anywhere());
            if (i % 3 == 0) {
                hand.Drag(from);
                hand.Release(from);
                ASSERT_EQ(DesignTextWithoutNames(), before);
            } else {
                hand.Release(anywhere());
            }
        }
        hand.Finish();
        ASSERT_TRUE(MainWindowNow.Picture->whole || hand.LacksLines());
    }
    EXPECT_TRUE(boxes.asked.empty());
}

TEST_F(MovesInWindow, ButtonThatIsHeldStillForAWhileAfterTheWheelCanStillDrag) {
    DrawByKeys();
    Wheel(120);
    const std::string zoomed = West();
    Press();
    QTest::qWait(RestOver);
    Move({60, 0});
    Release({120, 0});
    EXPECT_NE(West(), zoomed);
    EXPECT_EQ(UndoText(), "&Undo Move");
}

TEST_F(MovesInWindow, ButtonThatIsHeldStillForAWhileAfterAResizeCanStillDrag) {
    DrawByKeys();
    Window().resize(Window().width() - 50, Window().height() - 50);
    Press();
    QTest::qWait(RestOver);
    Move({60, 0});
    Release({120, 0});
    EXPECT_NE(West(), westBefore);
}

TEST_F(MovesInWindow, MenuOfTheMapDoesNotComeWhileTheMapIsHeld) {
    DrawByKeys();
    const auto wantMenu = [this] {
        bool came = false;
        QTimer::singleShot(0, &Window(), [&came] {
            if (QWidget* const menu = QApplication::activePopupWidget()) {
                came = true;
                menu->close();
            }
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, Middle(), Area().mapToGlobal(Middle()));
        QApplication::sendEvent(&Area(), &event);
        QTest::qWait(1);
        return came;
    };
    Press();
    EXPECT_FALSE(wantMenu()) << "the release would be the menu's";
    Move({100, 0});
    EXPECT_FALSE(wantMenu());
    Release({100, 0});
    EXPECT_EQ(UndoText(), "&Undo Move");
    EXPECT_TRUE(wantMenu());
}

TEST_F(MovesInWindow, NothingMovesBeforeTheFirstDraw) {
    Drag({100, 0});
    Wheel(120);
    QTest::keyClick(&Window(), Qt::Key_Home);
    EXPECT_EQ(West(), westBefore);
    EXPECT_FALSE(Area().HasPicture());
}

} // namespace
} // namespace quelmont
