#include "desktop/desktop_fixture.h"

#include "core/map_design.h"
#include "desktop/window_place.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/profile_file.h"

#include <QAccessible>
#include <QAction>
#include <QMenu>
#include <QProgressBar>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StatusLineInWindow : public DesktopTest {
protected:
    StatusLineInWindow() { Start(); }

    QAction& Item() { return *Window().Action(Menu::mnuView, StatusLineItem); }
    void Switch() {
        Item().trigger();
        QCoreApplication::processEvents();
    }
    int LineHeight() { return Window().Status().height(); }
};

TEST_F(StatusLineInWindow, LiesUnderTheMapAtFirst) {
    EXPECT_TRUE(Item().isChecked());
    EXPECT_TRUE(Window().Status().isVisible());
    EXPECT_EQ(Window().Status().mapTo(&Window(), QPoint(0, 0)),
              Area().mapTo(&Window(), QPoint(0, Area().height())));
    EXPECT_EQ(Window().size(), QSize(1024, 740 + LineHeight()));
}

TEST_F(StatusLineInWindow, SwitchingLeavesTheDrawingArea) {
    const QSize area = Area().size();
    const QSize window = Window().size();
    const QPoint corner = Window().pos();
    const int fullScreen = Design.FullScreenY;
    Switch();
    EXPECT_FALSE(Item().isChecked());
    EXPECT_FALSE(Window().Status().isVisible());
    EXPECT_EQ(Area().size(), area);
    EXPECT_EQ(Window().size(), window - QSize(0, LineHeight()));
    Switch();
    EXPECT_TRUE(Window().Status().isVisible());
    EXPECT_EQ(Area().size(), area);
    EXPECT_EQ(Window().size(), window);
    EXPECT_EQ(Window().pos(), corner);
    EXPECT_EQ(Machine().screen->FullScreenY(), fullScreen);
}

TEST_F(StatusLineInWindow, SwitchingLeavesTheSmallestDrawingArea) {
    Window().resize(1, 1);
    const QSize area = Area().size();
    EXPECT_EQ(Window().size(), SmallestWindow + QSize(0, LineHeight()));
    Switch();
    EXPECT_EQ(Area().size(), area);
    EXPECT_EQ(Window().size(), SmallestWindow);
    Switch();
    EXPECT_EQ(Area().size(), area);
}

TEST_F(StatusLineInWindow, MaximisedWindowGivesItAPartOfTheArea) {
    const QSize normal = Area().size();
    Window().showMaximized();
    QCoreApplication::processEvents();
    const QSize window = Window().size();
    const QSize area = Area().size();
    Switch();
    EXPECT_EQ(Window().size(), window);
    EXPECT_EQ(Area().size(), area + QSize(0, LineHeight()));
    EXPECT_TRUE(Window().IsZoomed());
    Window().showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(Area().size(), normal) << "the area is as it was before";
    EXPECT_EQ(Window().size(), QSize(1024, 740));
}

TEST_F(StatusLineInWindow, SwitchedTwiceInAMaximisedWindowLeavesItsSize) {
    const QSize normal = Window().size();
    Window().showMaximized();
    QCoreApplication::processEvents();
    Switch();
    Switch();
    Window().showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(Window().size(), normal);
}

TEST_F(StatusLineInWindow, ComesBackAsItWasWithTheSameDrawingArea) {
    Window().resize(811, 607);
    QCoreApplication::processEvents();
    const QSize area = Area().size();
    for (const bool shown : {false, true}) {
        Switch();
        EXPECT_TRUE(Window().close());
        EXPECT_EQ(ReadProfileString(folder / "Qmnt.ini", "Quelmont", "StatusLine"), shown ? "-1" : "0");
        Restart();
        EXPECT_EQ(Item().isChecked(), shown);
        EXPECT_EQ(Window().Status().isVisible(), shown);
        EXPECT_EQ(Area().size(), area);
    }
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(StatusLineInWindow, PlaceOfTheWindowIsThatWithoutIt) {
    const WindowPlace with = Window().Place();
    Switch();
    EXPECT_EQ(Window().Place(), with);
    Switch();
    Window().showMaximized();
    QCoreApplication::processEvents();
    EXPECT_EQ(Window().Place(), with);
    Switch();
    EXPECT_EQ(Window().Place(), with);
}

TEST_F(StatusLineInWindow, WindowAtTheLowerEdgeOfTheScreenGrowsUpwards) {
    Switch();
    const QRect screen = Window().screen()->availableGeometry();
    Window().move(0, screen.bottom() + 1 - Window().frameGeometry().height());
    QCoreApplication::processEvents();
    const QSize area = Area().size();
    Switch();
    EXPECT_EQ(Area().size(), area);
    EXPECT_LE(Window().frameGeometry().bottom(), screen.bottom());
}

TEST_F(StatusLineInWindow, TellsOfTheDrawAndThenNothing) {
    std::vector<std::string> texts;
    std::vector<int> percents;
    for (int turn = 1; turn <= 400; ++turn) {
        pump->At(turn, [&] {
            const std::string text = Window().Status().Text().toStdString();
            if (texts.empty() || texts.back() != text) {
                texts.push_back(text);
            }
            if (const auto percent = Window().Status().Percent()) {
                percents.push_back(*percent);
            }
        });
    }
    DrawByKeys();
    EXPECT_THAT(texts, ElementsAre("Drawing the grid", "Drawing Qmnt4.map"));
    EXPECT_FALSE(percents.empty());
    EXPECT_TRUE(std::is_sorted(percents.begin(), percents.end()));
    EXPECT_EQ(Window().Status().Text(), QString());
    EXPECT_EQ(Window().Status().Percent(), std::nullopt);
}

TEST_F(StatusLineInWindow, ProgressLeavesItsHeight) {
    const int height = LineHeight();
    const QSize area = Area().size();
    Window().SetProgress(0.5);
    QCoreApplication::processEvents();
    EXPECT_EQ(Window().Status().Percent(), 50);
    EXPECT_EQ(LineHeight(), height);
    Window().SetProgress(std::nullopt);
    QCoreApplication::processEvents();
    EXPECT_EQ(Window().Status().Percent(), std::nullopt);
    EXPECT_EQ(Area().size(), area);
}

TEST_F(StatusLineInWindow, LongTextLeavesTheWindowItsWidth) {
    Window().SetStatusText(std::string(2000, 'W'));
    QCoreApplication::processEvents();
    Window().resize(SmallestWindow);
    QCoreApplication::processEvents();
    EXPECT_EQ(Window().width(), SmallestWindow.width());
}

TEST_F(StatusLineInWindow, ViewMenuIsNotToBeHadInADraw) {
    bool enabled = true;
    pump->At(3, [&] {
        enabled = Window().Action(Menu::mnuBar, ViewTitle)->isEnabled();
        Item().trigger(); // even so
    });
    DrawByKeys();
    EXPECT_FALSE(enabled);
    EXPECT_TRUE(Item().isChecked());
    EXPECT_TRUE(Window().Status().isVisible());
    ExpectIdle();
}

TEST_F(StatusLineInWindow, OtherItemsKeepItsMark) {
    Window().Action(Menu::mnuAbout, PlotTimeItem)->trigger();
    Window().Action(Menu::mnuDesign, PixelSizeItem)->trigger();
    EXPECT_TRUE(Item().isChecked());
}

TEST_F(StatusLineInWindow, HasAnAccessibleName) {
    Window().SetStatusText("Drawing the grid");
    QAccessibleInterface* line = QAccessible::queryAccessibleInterface(&Window().Status());
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->text(QAccessible::Name), QStringLiteral("Status Line"));
    const auto* bar = Window().Status().findChild<QProgressBar*>();
    EXPECT_FALSE(bar->accessibleName().isEmpty());
}

} // namespace
} // namespace quelmont
