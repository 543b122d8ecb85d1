#include "desktop/desktop_fixture.h"

#include "core/map_design.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <gtest/gtest.h>

namespace quelmont {
namespace {

/// The first screen has ratio 1, the second ratio 2 and lies right of it.
class TwoScreens : public DesktopTest {
protected:
    TwoScreens() {
        Start();
        Window().resize(600, 400);
        QCoreApplication::processEvents();
    }
    void MoveToSecond() {
        QScreen* second = QGuiApplication::screens().at(1);
        Window().windowHandle()->setScreen(second);
        Window().move(second->geometry().topLeft() + QPoint(50, 50));
        QCoreApplication::processEvents();
        ASSERT_EQ(Window().devicePixelRatioF(), 2.0);
    }
};

TEST_F(TwoScreens, PictureOfTheFirstIsShownScaledOnTheSecond) {
    Window().Cls();
    Window().SetAutoRedraw(true);
    // Four quarters of one colour each.
    const int width = Area().Surface().Width();
    const int height = Area().Surface().Height();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            Area().Surface().SetPixel(x, y, x < width / 2 ? (y < height / 2 ? 0xFFU : 0xFF00U) : 0xFF0000U);
        }
    }
    MoveToSecond();
    EXPECT_EQ(Picture().size(), QSize(width, height)) << "the picture stays as it is";
    const QImage seen = SeenOfArea();
    ASSERT_GE(seen.width(), width * 2 - 2);
    EXPECT_EQ(seen.pixel(10, 10), qRgb(255, 0, 0));
    EXPECT_EQ(seen.pixel(width - 10, height + 10), qRgb(0, 255, 0));
    EXPECT_EQ(seen.pixel(width + 10, height + 10), qRgb(0, 0, 255));
}

TEST_F(TwoScreens, NextDrawIsSharpOnTheSecond) {
    DrawByKeys();
    MoveToSecond();
    DrawByKeys();
    EXPECT_EQ(Picture().size(), Area().DeviceSize());
    EXPECT_EQ(Picture().width(), Area().width() * 2);
    EXPECT_EQ(SeenOfArea(), Picture());
    EXPECT_TRUE(FillsTheWindow(Picture()));
}

} // namespace
} // namespace quelmont
