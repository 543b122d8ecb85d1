#include "desktop/desktop_fixture.h"
#include "desktop/window_place.h"

#include "core/map_design.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/profile_file.h"
#include "mainwindow/settings.h"

#include <QAccessible>
#include <QAction>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

namespace quelmont {
namespace {

using testing::IsEmpty;

class MainWindowOnScreen : public DesktopTest {
protected:
    MainWindowOnScreen() { Start(); }
};

TEST_F(MainWindowOnScreen, OpensInItsDesignedSizeWithoutABox) {
    const QSize line(0, Window().Status().height());
    EXPECT_EQ(Window().size(), QSize(1024, 740) + line);
    EXPECT_EQ(Window().minimumSize(), QSize(480, 340) + line);
    EXPECT_FALSE(Window().windowIcon().isNull());
    EXPECT_FALSE(Window().windowIcon().availableSizes().isEmpty());
    EXPECT_EQ(Window().Caption(), "Quelmont: Equirectangular projection");
    EXPECT_THAT(boxes.asked, IsEmpty());
    ExpectIdle();
}

TEST(DesignedSizeOfTheWindow, IsFourFifthsOfASmallerScreen) {
    EXPECT_EQ(DesignedSize({1920, 1080}), QSize(1024, 740));
    EXPECT_EQ(DesignedSize({1024, 740}), QSize(1024, 740));
    EXPECT_EQ(DesignedSize({1000, 700}), QSize(800, 560));
    EXPECT_EQ(DesignedSize({1280, 600}), QSize(1024, 480)) << "each way for itself";
    EXPECT_EQ(DesignedSize({320, 240}), QSize(480, 340));
}

TEST_F(MainWindowOnScreen, MenuBarLiesInsideTheWindow) {
    EXPECT_FALSE(Window().menuBar()->isNativeMenuBar());
    EXPECT_EQ(Window().menuBar()->mapTo(&Window(), QPoint(0, 0)), QPoint(0, 0));
    EXPECT_TRUE(Window().menuBar()->isVisible());
    EXPECT_EQ(Area().mapTo(&Window(), QPoint(0, 0)), QPoint(0, Window().menuBar()->height()));
    EXPECT_EQ(Area().height(), Window().height() - Window().menuBar()->height() - Window().Status().height());
}

/// The items of a menu on the screen against the table, lower menus included.
void ExpectItems(DesktopWindow& window, const QMenu& shown, Menu menu) {
    const auto entries = MenuEntries(menu);
    const QList<QAction*> actions = shown.actions();
    ASSERT_EQ(static_cast<std::size_t>(actions.size()), entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const QAction& action = *actions[static_cast<qsizetype>(i)];
        EXPECT_EQ(action.isSeparator(), entries[i].IsSeparator());
        EXPECT_EQ(action.text().toStdString(), entries[i].text);
        // There are no recent designs yet, and nothing to take back.
        const bool step = menu == Menu::mnuEdit && entries[i].index <= RedoItem;
        const bool ready = entries[i].Ready() && entries[i].below != Menu::mnuRecent && !step;
        if (!action.isSeparator()) {
            EXPECT_EQ(action.isEnabled(), ready) << entries[i].text;
            EXPECT_EQ(&action, window.Action(menu, entries[i].index));
        }
        if (action.menu() != nullptr && entries[i].below != Menu::mnuRecent) {
            ExpectItems(window, *action.menu(), *entries[i].below);
        }
    }
}

TEST_F(MainWindowOnScreen, MenusAreThoseOfTheTable) {
    const QList<QAction*> titles = Window().menuBar()->actions();
    const auto entries = MenuEntries(Menu::mnuBar);
    ASSERT_EQ(static_cast<std::size_t>(titles.size()), entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const MenuEntry& entry = entries[i];
        const QAction& title = *titles[static_cast<qsizetype>(i)];
        EXPECT_EQ(title.text().toStdString(), entry.text);
        EXPECT_EQ(title.menu() != nullptr, entry.below.has_value()) << entry.text;
        if (title.menu() != nullptr) {
            ExpectItems(Window(), *title.menu(), *entry.below);
        }
    }
}

TEST_F(MainWindowOnScreen, CurrentProjectionIsMarked) {
    EXPECT_TRUE(Window().Action(Menu::mnuProj, 1)->isChecked());
    EXPECT_FALSE(Window().Action(Menu::mnuProj, 0)->isChecked());
}

TEST_F(MainWindowOnScreen, UsedItemIsMarkedAndStaysSo) {
    QAction* time = Window().Action(Menu::mnuAbout, 4);
    EXPECT_FALSE(time->isChecked());
    time->trigger();
    EXPECT_TRUE(time->isChecked());
    time->trigger();
    EXPECT_TRUE(time->isChecked()) << "a mark is no switch";
    EXPECT_EQ(boxes.asked.size(), 2U);
}

TEST_F(MainWindowOnScreen, PixelSizeIsASwitchAndFollowsTheWindow) {
    QAction* item = Window().Action(Menu::mnuDesign, 10);
    EXPECT_TRUE(item->isCheckable());
    item->trigger();
    EXPECT_TRUE(item->isChecked());
    const auto caption = [&] {
        return std::to_string(Area().width()) + "," + std::to_string(Area().height()) +
               " = x, y Pixels   |Quelmont: Equirectangular projection";
    };
    EXPECT_EQ(Window().Caption(), caption());
    Window().resize(700, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(Area().width(), 700);
    EXPECT_EQ(Window().Caption(), caption());
    item->trigger();
    EXPECT_FALSE(item->isChecked());
    EXPECT_EQ(Window().Caption(), "Quelmont: Equirectangular projection");
}

TEST_F(MainWindowOnScreen, MapHasAnAccessibleName) {
    QAccessibleInterface* map = QAccessible::queryAccessibleInterface(&Area());
    ASSERT_NE(map, nullptr);
    EXPECT_FALSE(map->text(QAccessible::Name).isEmpty());
    EXPECT_EQ(map->text(QAccessible::Description),
              QStringLiteral("Choose a projection, then Draw Map (Alt+D)"));
    Window().Cls();
    EXPECT_EQ(map->text(QAccessible::Description), QStringLiteral("Draw Map (Alt+D) draws the map"));
    Window().SetAutoRedraw(true);
    EXPECT_TRUE(map->text(QAccessible::Description).isEmpty());
}

TEST_F(MainWindowOnScreen, KeyboardIsWithTheMap) { EXPECT_TRUE(Area().hasFocus()); }

TEST_F(MainWindowOnScreen, F1AndEscapeAreHarmless) {
    Design.OutputCgm = true;
    QTest::keyClick(Window().focusWidget(), Qt::Key_F1);
    EXPECT_TRUE(Design.OutputCgm);
    QTest::keyClick(Window().focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(Design.OutputCgm);
    EXPECT_TRUE(Window().isVisible());
    ASSERT_EQ(boxes.asked.size(), 1U) << "there is no help file in the tests' folder";
    EXPECT_EQ(boxes.asked[0].title, "Help");
}

TEST_F(MainWindowOnScreen, MouseOnTheMapSetsTheTextCursorInTwips) {
    QTest::mouseClick(&Area(), Qt::LeftButton, {}, QPoint(10, 20));
    EXPECT_EQ(MainWindowNow.TextCursorX, 150);
    EXPECT_EQ(MainWindowNow.TextCursorY, 300);
}

TEST_F(MainWindowOnScreen, TwipsAreFifteenToAPixel) {
    EXPECT_EQ(Design.TwipsPerPixelX, 15.0F);
    EXPECT_EQ(Design.TwipsPerPixelY, 15.0F);
    EXPECT_EQ(Window().ScaleWidth(), 1024 * 15.0);
    EXPECT_EQ(Window().ScaleHeight(), Area().height() * 15.0);
    EXPECT_EQ(Design.ScreenPixelsX, 1600);
    EXPECT_EQ(Design.ScreenPixelsY, 1200);
}

TEST_F(MainWindowOnScreen, MaximisedDrawingAreaIsThatOfTheDesign) {
    EXPECT_EQ(Design.FullScreenX, 1600);
    // The title bar and the menu bar are taken off.
    EXPECT_LT(Design.FullScreenY, 1200 - Window().menuBar()->height());
    EXPECT_GT(Design.FullScreenY, 1200 - Window().menuBar()->height() - 60);
}

// ---- Place and settings.

TEST_F(MainWindowOnScreen, ComesBackToItsPlaceAndSize) {
    Window().move(123, 77);
    Window().resize(811, 607);
    QCoreApplication::processEvents();
    EXPECT_TRUE(Window().close());
    for (int i = 0; i < 3; ++i) {
        Restart();
        EXPECT_EQ(Window().pos(), QPoint(123, 77)) << "start " << i;
        EXPECT_EQ(Window().size(), QSize(811, 607)) << "start " << i;
        EXPECT_TRUE(Window().close());
    }
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(MainWindowOnScreen, ComesBackMaximisedAndThenToItsSize) {
    Window().resize(811, 607);
    QCoreApplication::processEvents();
    Window().showMaximized();
    QCoreApplication::processEvents();
    ASSERT_TRUE(Window().IsZoomed());
    EXPECT_TRUE(Window().close());
    Restart();
    EXPECT_TRUE(Window().IsZoomed());
    Window().showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(Window().size(), QSize(811, 607));
}

TEST_F(MainWindowOnScreen, IsBroughtBackFromBeyondTheScreen) {
    const std::string file = folder / "Qmnt.ini";
    for (const std::string place : {"90000 90000 12000 9000", "-90000 0 12000 9000", "0 -90000 12000 9000",
                                    "300000 300000 900000 900000"}) {
        WriteProfileString(file, "Quelmont", "MainWindow", place);
        Restart();
        const QRect screen = Window().screen()->availableGeometry();
        EXPECT_TRUE(screen.contains(Window().pos())) << place;
        EXPECT_LE(Window().width(), screen.width()) << place;
        EXPECT_LE(Window().height(), screen.height()) << place;
    }
}

TEST_F(MainWindowOnScreen, IsNeverSmallerThanItsMinimum) {
    WriteProfileString(folder / "Qmnt.ini", "Quelmont", "MainWindow", "1500 1500 1500 1500");
    Restart();
    EXPECT_EQ(Window().size(), QSize(480, 340) + QSize(0, Window().Status().height()));
}

TEST_F(MainWindowOnScreen, ClosedWindowSavesOnce) {
    const std::string file = folder / "Qmnt.ini";
    EXPECT_TRUE(Window().close());
    EXPECT_TRUE(std::filesystem::exists(file));
    std::filesystem::remove(file);
    Window().close();
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(MainWindowOnScreen, ExitSavesAndCloses) {
    Window().Action(Menu::mnuInput, 17)->trigger();
    EXPECT_FALSE(Window().isVisible());
    EXPECT_EQ(ReadProfileString(folder / "Qmnt.ini", "Quelmont", "WindowMaximized"), "0");
}

TEST_F(MainWindowOnScreen, FailedSavingIsReported) {
    program.machine.places.programFolder = folder / "gone/";
    EXPECT_TRUE(Window().close());
    EXPECT_EQ(boxes.asked.size(), 4U);
}

} // namespace
} // namespace quelmont
