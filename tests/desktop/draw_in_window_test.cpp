#include "desktop/desktop_fixture.h"

#include "core/file_numbers.h"
#include "core/map_design.h"
#include "core/standard_colors.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/profile_file.h"
#include "qtsurface/image_surface.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPalette>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>

namespace quelmont {
namespace {

using testing::IsEmpty;

class DrawInWindow : public DesktopTest {
protected:
    DrawInWindow() { Start(); }

    /// Leaves a key for the event loop, as the window system does.
    void LeaveKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* receiver = Window().focusWidget();
        QCoreApplication::postEvent(receiver, new QKeyEvent(QEvent::KeyPress, key, modifiers));
        QCoreApplication::postEvent(receiver, new QKeyEvent(QEvent::KeyRelease, key, modifiers));
    }
    void ClickTitle(int title) {
        QMenuBar* bar = Window().menuBar();
        QTest::mouseClick(bar, Qt::LeftButton, {},
                          bar->actionGeometry(Window().Action(Menu::mnuBar, title)).center());
    }
};

/// A window that is only measures and a picture.
class PictureWindow : public ScriptedWindow {
public:
    PictureWindow(int width, int height) : picture(width, height) { picture.Clear(0xFFFFFF); }
    DrawSurface& Surface() override { return picture; }
    ImageSurface picture;
};

TEST_F(DrawInWindow, KeysBringTheWorldMap) {
    std::string asked;
    InDialog([&](QDialog& dialog) {
        asked = dialog.windowTitle().toStdString();
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    });
    QTest::keyClick(&Window(), Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(asked, "Select Map Size");
    EXPECT_EQ(clock.beeps, 1);
    EXPECT_THAT(boxes.asked, IsEmpty());
    ExpectIdle();

    // The same draw on a picture of the same size.
    const QImage drawn = Picture();
    PictureWindow other(drawn.width(), drawn.height());
    other.scaleWidth = Window().ScaleWidth();
    other.scaleHeight = Window().ScaleHeight();
    Machine().window = &other;
    MapDraw();
    Machine().window = &Window();
    EXPECT_EQ(drawn, other.picture.Image());
    EXPECT_EQ(SeenOfArea(), drawn) << "what is seen is the picture";
    EXPECT_TRUE(FillsTheWindow(drawn));
}

TEST_F(DrawInWindow, SmoothLinesAreSwitchedByTheirItemWhichDrawsTheMapAgain) {
    const auto shades = [&] {
        const QImage picture = Picture();
        std::set<QRgb> colors;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                colors.insert(picture.pixel(x, y));
            }
        }
        return colors.size();
    };
    DrawByKeys();
    const QImage smooth = Picture();
    EXPECT_GT(shades(), 100U);
    Window().Action(Menu::mnuView, SmoothLinesItem)->trigger();
    EXPECT_EQ(clock.beeps, 2);
    EXPECT_LT(shades(), 10U);
    EXPECT_FALSE(Window().Action(Menu::mnuView, SmoothLinesItem)->isChecked());
    Restart();
    DrawByKeys();
    EXPECT_LT(shades(), 10U) << "kept with the settings";
    Window().Action(Menu::mnuView, SmoothLinesItem)->trigger();
    EXPECT_EQ(Picture(), smooth);
}

TEST_F(DrawInWindow, ClickOnTheBarBringsIt) {
    InDialog([](QDialog& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Return); });
    ClickTitle(3);
    EXPECT_EQ(clock.beeps, 1);
    ExpectIdle();
}

TEST_F(DrawInWindow, CancelledSizeLeavesTheHint) {
    InDialog([](QDialog& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape); });
    ClickTitle(3);
    EXPECT_FALSE(Area().HasPicture());
    EXPECT_EQ(clock.beeps, 0);
    ExpectIdle();
}

TEST_F(DrawInWindow, TitleOfTheCommandDoesNotStayLit) {
    InDialog([&](QDialog& dialog) {
        EXPECT_EQ(Window().menuBar()->activeAction(), nullptr);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
    });
    QTest::keyClick(&Window(), Qt::Key_D, Qt::AltModifier);
}

TEST_F(DrawInWindow, EscapeStopsAtOnce) {
    int atKey = 0;
    pump->At(3, [&] {
        atKey = pump->calls;
        EXPECT_EQ(Area().cursor().shape(), Qt::WaitCursor);
        LeaveKey(Qt::Key_Escape);
    });
    DrawByKeys();
    EXPECT_EQ(clock.beeps, 0);
    // The event loop is entered every five milliseconds at the latest, which is far fewer turns than
    // the map has: 16 of the grid, and one for each 800 of some 300 000 records.
    EXPECT_GT(atKey, 0);
    EXPECT_LT(pump->calls, 200);
    ExpectIdle();
    DrawByKeys();
    EXPECT_EQ(clock.beeps, 1) << "the next draw is whole";
}

TEST_F(DrawInWindow, EscapeAtTheMenuBarStopsToo) {
    pump->At(3, [&] {
        Window().menuBar()->setActiveAction(Window().Action(Menu::mnuBar, 5));
        QTest::keyClick(Window().menuBar(), Qt::Key_Escape);
    });
    DrawByKeys();
    EXPECT_EQ(clock.beeps, 0);
    EXPECT_EQ(pump->calls, 3);
    ExpectIdle();
}

TEST_F(DrawInWindow, StopIsReachedByMouse) {
    pump->At(5, [&] { ClickTitle(5); });
    DrawByKeys();
    EXPECT_EQ(clock.beeps, 0);
    EXPECT_EQ(pump->calls, 5);
    ExpectIdle();
}

TEST_F(DrawInWindow, StopIsReachedByItsKey) {
    pump->At(5, [&] {
        Activate();
        QTest::keyClick(&Window(), Qt::Key_S, Qt::AltModifier);
    });
    DrawByKeys();
    EXPECT_EQ(clock.beeps, 0);
    EXPECT_EQ(pump->calls, 5);
    ExpectIdle();
}

TEST_F(DrawInWindow, StoppedPictureStays) {
    pump->At(30, [&] { ClickTitle(5); });
    DrawByKeys();
    EXPECT_EQ(SeenOfArea(), Picture());
    // The grid is there.
    QImage empty = Picture();
    empty.fill(Qt::white);
    EXPECT_NE(Picture(), empty);
}

TEST_F(DrawInWindow, ClosingInADrawStopsItAndClosesAfterwards) {
    pump->At(5, [&] {
        EXPECT_FALSE(Window().close());
        EXPECT_TRUE(Window().isVisible());
        EXPECT_FALSE(std::filesystem::exists(folder / "Qmnt.ini"));
        EXPECT_EQ(Design.PlotStopReason, StopReason::Escape);
    });
    DrawByKeys();
    EXPECT_EQ(pump->calls, 5);
    EXPECT_EQ(clock.beeps, 0);
    EXPECT_FALSE(Window().isVisible());
    EXPECT_TRUE(std::filesystem::exists(folder / "Qmnt.ini"));
    EXPECT_FALSE(IsFileOpen(InputFileNumber));
}

TEST_F(DrawInWindow, MouseOnTheMapIsIgnoredAndNoMenuOpens) {
    pump->At(5, [&] {
        QTest::mouseClick(&Area(), Qt::LeftButton, {}, QPoint(10, 20));
        ClickTitle(0);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        ClickTitle(3);
        Activate();
        QTest::keyClick(&Window(), Qt::Key_D, Qt::AltModifier);
        QTest::keyClick(&Window(), Qt::Key_F, Qt::AltModifier);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    });
    DrawByKeys();
    EXPECT_EQ(MainWindowNow.TextCursorX, 0);
    EXPECT_EQ(clock.beeps, 1);
    ExpectIdle();
}

TEST_F(DrawInWindow, MapGrowsWhileItIsRead) {
    // A turn far behind the grid: the picture then holds more than the grid, and the screen shows
    // some of it.
    QImage atGrid, later;
    pump->At(17, [&] { atGrid = Picture(); });
    pump->At(200, [&] {
        QTest::qSleep(40);
        Machine().window->Refresh();
        later = Picture();
        EXPECT_EQ(SeenOfArea(), later);
    });
    DrawByKeys();
    EXPECT_NE(atGrid, later);
    EXPECT_NE(later, Picture());
}

// ---- The back image.

TEST_F(DrawInWindow, HintIsPaintedButNotIntoThePicture) {
    EXPECT_FALSE(Area().HasPicture());
    const QImage hinted = SeenOfArea();
    const QColor theme = Window().palette().color(QPalette::Window);
    QImage plain(hinted.size(), hinted.format());
    plain.fill(theme);
    EXPECT_NE(hinted, plain);
    // It stands in the middle: a frame about it is free.
    const QRect middle(hinted.width() / 4, hinted.height() / 2 - 20, hinted.width() / 2, 40);
    for (int y = 0; y < hinted.height(); ++y) {
        for (int x = 0; x < hinted.width(); ++x) {
            if (!middle.contains(x, y)) {
                ASSERT_EQ(hinted.pixelColor(x, y), theme) << x << ' ' << y;
            }
        }
    }
    Window().Cls();
    QImage white(Picture().size(), QImage::Format_RGB32);
    white.fill(Qt::white);
    EXPECT_EQ(Picture(), white);
    EXPECT_NE(SeenOfArea(), white);
    Window().SetAutoRedraw(true);
    EXPECT_EQ(SeenOfArea(), white);
}

TEST_F(DrawInWindow, BlankPictureSaysHowTheMapIsDrawnOnLightAndDark) {
    for (const unsigned grey : {0U, 255U}) {
        Design.BackColor = SolidColor(Rgb(grey, grey, grey));
        Window().Cls();
        const QImage seen = SeenOfArea();
        int farthest = 0;
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < seen.width(); ++x) {
                farthest = std::max(farthest, std::abs(qGray(seen.pixel(x, y)) - static_cast<int>(grey)));
            }
        }
        EXPECT_GT(farthest, 100) << grey;
        EXPECT_EQ(Area().accessibleDescription(), QString("Draw Map (Alt+D) draws the map"));
    }
}

TEST_F(DrawInWindow, DrawnMapHasNoHint) {
    DrawByKeys();
    EXPECT_EQ(SeenOfArea(), Picture());
}

TEST_F(DrawInWindow, DrawnMapTellsAScreenReaderItsProjectionAndBounds) {
    DrawByKeys();
    const QString world =
        "Equirectangular projection, latitude 90\u00B0 N to 90\u00B0 S, longitude 180\u00B0 W "
        "to 180\u00B0 E";
    EXPECT_EQ(Area().accessibleDescription(), world);
    Design.GridText[GridTextNorth] = "30    00    00    N";
    Window().PutBackPicture();
    EXPECT_EQ(Area().accessibleDescription(), world) << "the picture is the same";
    DrawByKeys();
    EXPECT_EQ(Area().accessibleDescription(), QString(world).replace("90\u00B0 N", "30\u00B0 N"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&Area())->role(), QAccessible::Graphic);
}

TEST_F(DrawInWindow, ClsTakesTheBackgroundColourAndTheSize) {
    Design.BackColor = SolidColor(Rgb(10, 20, 30));
    Window().resize(600, 500);
    QCoreApplication::processEvents();
    Window().Cls();
    EXPECT_EQ(Picture().size(), Area().size());
    EXPECT_EQ(Picture().pixelColor(5, 5), QColor(10, 20, 30));
    EXPECT_EQ(SeenOfArea().pixelColor(5, 5), QColor(10, 20, 30));
}

TEST_F(DrawInWindow, LargerWindowShowsTheThemeBesideThePicture) {
    DrawByKeys();
    const QImage drawn = Picture();
    Window().resize(1200, 900);
    QCoreApplication::processEvents();
    EXPECT_EQ(Picture(), drawn);
    const QImage seen = SeenOfArea();
    EXPECT_EQ(seen.copy(drawn.rect()), drawn);
    const QColor theme = Window().palette().color(QPalette::Window);
    EXPECT_EQ(seen.pixelColor(drawn.width(), 10), theme);
    EXPECT_EQ(seen.pixelColor(10, drawn.height()), theme);
    EXPECT_EQ(seen.pixelColor(seen.width() - 1, seen.height() - 1), theme);
}

TEST_F(DrawInWindow, SmallerWindowShowsAPartOfThePicture) {
    DrawByKeys();
    const QImage drawn = Picture();
    Window().resize(500, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(Picture(), drawn);
    const QImage seen = SeenOfArea();
    EXPECT_EQ(seen, drawn.copy(seen.rect()));
    Window().resize(QSize(1024, 740) + QSize(0, Window().Status().height()));
    QCoreApplication::processEvents();
    EXPECT_EQ(SeenOfArea(), drawn) << "nothing of it was lost";
}

TEST_F(DrawInWindow, NextDrawFitsTheNewSize) {
    DrawByKeys();
    Window().resize(700, 600);
    QCoreApplication::processEvents();
    DrawByKeys();
    EXPECT_EQ(Picture().size(), Area().size());
}

TEST_F(DrawInWindow, ResizingInADrawKeepsThePictureOfItsStart) {
    const QSize before = Area().size();
    pump->At(20, [&] { Window().resize(1200, 900); });
    DrawByKeys();
    EXPECT_EQ(Picture().size(), before);
    EXPECT_EQ(clock.beeps, 1);
    ExpectIdle();
}

TEST_F(DrawInWindow, DrawWithoutClearingBringsItsOwnPicture) {
    MapDraw();
    EXPECT_EQ(Picture().size(), Area().size());
    EXPECT_EQ(clock.beeps, 1);
}

TEST_F(DrawInWindow, DarkThemeLeavesThePaperWhite) {
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    QCoreApplication::processEvents();
    Window().resize(900, 700);
    DrawByKeys();
    EXPECT_EQ(SeenOfArea().pixelColor(3, 3), QColor(Qt::white));
    Window().resize(1000, 740);
    QCoreApplication::processEvents();
    EXPECT_LT(SeenOfArea().pixelColor(990, 3).lightness(), 100);
    QApplication::setPalette(before);
}

TEST_F(DrawInWindow, SecondDrawCannotBeginInsideTheFirst) {
    pump->At(5, [&] { Window().Action(Menu::mnuBar, 3)->trigger(); });
    DrawByKeys();
    EXPECT_EQ(clock.beeps, 1);
    ExpectIdle();
}

} // namespace
} // namespace quelmont
