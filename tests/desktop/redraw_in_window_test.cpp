#include "desktop/desktop_fixture.h"

#include "core/map_design.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"

#include <QAbstractButton>
#include <QAction>
#include <QMenu>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quelmont {
namespace {

using testing::IsEmpty;
using testing::StartsWith;

/// Longer than a window has to keep its size.
constexpr int RestOver = 600;

/// The map drawn again by itself, and the line below it.
class RedrawInWindow : public DesktopTest {
protected:
    RedrawInWindow() { Start(); }

    std::string Line() { return Window().Status().Text().toStdString(); }
    /// Opens the dialog of an item of the Design Map menu and ends it.
    void InDesignDialog(int item, const std::function<void(QDialog&)>& action) {
        Activate();
        InDialog(action);
        Window().Action(Menu::mnuDesign, item)->trigger();
    }
    static void Accept(QDialog& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Return); }
    static void Cancel(QDialog& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape); }
    /// Another projection, accepted as its dialogs propose it.
    void ChooseRobinson() {
        Activate();
        InDialog(Accept);
        Window().Action(Menu::mnuProj, 6)->trigger();
        ASSERT_EQ(Design.ProjNum, ProjRobinson);
    }
    void Move(QPoint place) { QTest::mouseMove(&Area(), place); }
};

TEST_F(RedrawInWindow, ComesAfterADialogThatChangedTheDesign) {
    DrawByKeys();
    const QImage before = Picture();
    ChooseRobinson();
    QTest::qWait(50);
    EXPECT_NE(Picture(), before);
    EXPECT_EQ(MainWindowNow.Picture->projNum, ProjRobinson);
    EXPECT_EQ(clock.beeps, 1) << "it comes without a sound";
    EXPECT_EQ(Line(), "");
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(RedrawInWindow, DoesNotComeAfterACancelledDialog) {
    DrawByKeys();
    const int calls = pump->calls;
    InDesignDialog(GridItem, Cancel);
    QTest::qWait(RestOver);
    EXPECT_EQ(pump->calls, calls);
    EXPECT_EQ(Line(), "");
}

TEST_F(RedrawInWindow, DoesNotComeBeforeTheFirstDraw) {
    ChooseRobinson();
    Window().resize(900, 600);
    QTest::qWait(RestOver);
    EXPECT_EQ(pump->calls, 0);
    EXPECT_FALSE(Area().HasPicture());
}

TEST_F(RedrawInWindow, DoesNotComeAfterASlowDraw) {
    pump->At(1, [&] { clock.seconds += 0.5; });
    DrawByKeys();
    const QImage before = Picture();
    ChooseRobinson();
    EXPECT_EQ(Line(), "The picture is older than the design: F5 draws it");
    Window().resize(900, 600);
    QTest::qWait(RestOver);
    EXPECT_EQ(Picture(), before);
    QTest::keyClick(&Window(), Qt::Key_F5);
    EXPECT_NE(Picture(), before);
    EXPECT_EQ(Line(), "");
    EXPECT_EQ(clock.beeps, 2);
}

TEST_F(RedrawInWindow, CanBeSwitchedOff) {
    DrawByKeys();
    Window().Action(Menu::mnuView, RedrawItem)->trigger();
    EXPECT_FALSE(Window().Action(Menu::mnuView, RedrawItem)->isChecked());
    const QImage before = Picture();
    ChooseRobinson();
    QTest::qWait(RestOver);
    EXPECT_EQ(Picture(), before);
    EXPECT_EQ(Line(), "The picture is older than the design: F5 draws it");
    Window().Action(Menu::mnuView, RedrawItem)->trigger();
    QTest::qWait(50);
    EXPECT_NE(Picture(), before);
}

TEST_F(RedrawInWindow, ComesWhenAResizedWindowHasComeToRest) {
    DrawByKeys();
    const int calls = pump->calls;
    for (const int width : {1000, 950, 900}) {
        Window().resize(width, 600);
        QTest::qWait(20);
    }
    EXPECT_EQ(pump->calls, calls) << "the hand still pulls";
    QTest::qWait(RestOver);
    EXPECT_GT(pump->calls, calls);
    EXPECT_EQ(Picture().size(), Area().DeviceSize());
    EXPECT_TRUE(FillsTheWindow(Picture()));
}

TEST_F(RedrawInWindow, WaitsForTheEndOfADialog) {
    DrawByKeys();
    QSize during;
    InDesignDialog(GridItem, [&](QDialog& dialog) {
        Window().resize(900, 600);
        QTest::qWait(RestOver);
        during = Picture().size();
        Cancel(dialog);
    });
    EXPECT_NE(during, Area().DeviceSize());
    QTest::qWait(RestOver);
    EXPECT_EQ(Picture().size(), Area().DeviceSize());
}

TEST_F(RedrawInWindow, WaitsForTheEndOfThePlacingOfAText) {
    DrawByKeys();
    Design.CurrentText = "Atlantic";
    Design.CurrentTextAngle = "0";
    Design.CurrentLook = Design.Fonts[TextFontSlot];
    Design.TextPending = true;
    Window().resize(900, 600);
    QTest::qWait(RestOver);
    EXPECT_NE(Picture().size(), Area().DeviceSize());
    QTest::keyClick(&Window(), Qt::Key_Escape);
    EXPECT_FALSE(Design.TextPending);
    QTest::qWait(RestOver);
    EXPECT_EQ(Picture().size(), Area().DeviceSize());
}

TEST_F(RedrawInWindow, ComesAfterADrawInWhichTheWindowWasResized) {
    pump->At(3, [&] { Window().resize(900, 600); });
    DrawByKeys();
    QTest::qWait(RestOver);
    EXPECT_EQ(Picture().size(), Area().DeviceSize());
}

TEST_F(RedrawInWindow, DoesNotComeAfterAStoppedDraw) {
    pump->At(3, [&] { QTest::keyClick(&Window(), Qt::Key_Escape); });
    DrawByKeys();
    ChooseRobinson();
    QTest::qWait(RestOver);
    EXPECT_EQ(MainWindowNow.Picture->projNum, ProjEquirectangular);
    EXPECT_EQ(Line(), "The picture is older than the design: F5 draws it");
}

TEST_F(RedrawInWindow, StatusLineSwitchedInAMaximisedWindowDrawsItAgain) {
    Window().showMaximized();
    QCoreApplication::processEvents();
    DrawByKeys();
    Window().Action(Menu::mnuView, StatusLineItem)->trigger();
    QTest::qWait(RestOver);
    EXPECT_EQ(Picture().size(), Area().DeviceSize());
}

// ---- The place under the mouse.

TEST_F(RedrawInWindow, LineTellsThePlaceUnderTheMouse) {
    Move({500, 300});
    EXPECT_EQ(Line(), "");
    DrawByKeys();
    const QSize area = Area().size();
    Move({area.width() / 2, area.height() / 2});
    EXPECT_THAT(Line(), StartsWith("0\u00B0 "));
    EXPECT_THAT(Line(), testing::HasSubstr("   0\u00B0 "));
    // The world is a little higher than the area is for its width.
    Move({0, area.height() / 2});
    EXPECT_EQ(Line(), "") << "beside the map";
    Move({500, 300});
    EXPECT_NE(Line(), "");
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&Area(), &leave);
    EXPECT_EQ(Line(), "");
}

TEST_F(RedrawInWindow, PlaceComesBackAfterADraw) {
    DrawByKeys();
    Move({500, 300});
    const std::string place = Line();
    EXPECT_NE(place, "");
    QTest::keyClick(&Window(), Qt::Key_F5);
    EXPECT_EQ(Line(), place);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&Area(), &leave);
    QEnterEvent enter({500.0, 300.0}, {500.0, 300.0}, {500.0, 300.0});
    QCoreApplication::sendEvent(&Area(), &enter);
    EXPECT_EQ(Line(), place) << "a dialog that lay over it is closed";
}

} // namespace
} // namespace quelmont
