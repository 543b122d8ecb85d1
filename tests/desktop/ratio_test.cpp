#include "desktop/desktop_fixture.h"

#include "annotation/text_picture.h"
#include "core/map_design.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/text_placing.h"

#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace quelmont {
namespace {

/// Runs once per ratio: QT_SCALE_FACTOR is read when a process starts.
class ScreenRatio : public DesktopTest {
protected:
    ScreenRatio() { Start(); }

    /// Single pixels of every kind of neighbour, which no scaling would leave alone.
    void PaintPattern() {
        Window().Cls();
        Window().SetAutoRedraw(true);
        for (int y = 0; y < Area().Surface().Height(); ++y) {
            for (int x = 0; x < Area().Surface().Width(); ++x) {
                if ((x * 7 + y * 13 + x * y) % 3 == 0) {
                    Area().Surface().SetPixel(x, y, static_cast<std::uint32_t>(x * 31 + y * 517) & 0xFFFFFFU);
                }
            }
        }
    }

    const double ratio = qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble();
};

TEST_F(ScreenRatio, IsThatOfTheTest) { EXPECT_DOUBLE_EQ(Window().devicePixelRatioF(), ratio); }

TEST_F(ScreenRatio, TwipsStandAgainstDevicePixels) {
    EXPECT_FLOAT_EQ(Design.TwipsPerPixelX, static_cast<float>(15.0 / ratio));
    EXPECT_EQ(Design.ScreenPixelsX, 1600);
    EXPECT_EQ(Design.ScreenPixelsY, 1200);
}

TEST_F(ScreenRatio, DrawingAreaMeasuresItsDevicePixels) {
    // Its left edge is that of the window, its upper one may lie inside a pixel.
    EXPECT_EQ(Area().DeviceSize().width(), qFloor(Area().width() * ratio + 1e-6));
    EXPECT_NEAR(Area().DeviceSize().height(), Area().height() * ratio, 1.0);
    EXPECT_NEAR(Window().ScaleWidth(), Area().width() * 15.0, 15.0);
}

TEST_F(ScreenRatio, PictureIsShownPixelForPixel) {
    // Sizes for which the edges of the area lie everywhere between two pixels.
    for (int size = 600; size < 604; ++size) {
        Window().resize(size, size - 100);
        QCoreApplication::processEvents();
        PaintPattern();
        EXPECT_EQ(Picture().size(), Area().DeviceSize());
        EXPECT_EQ(SeenOfArea(), Picture()) << size;
    }
}

TEST_F(ScreenRatio, DrawnMapIsShownPixelForPixel) {
    DrawByKeys();
    EXPECT_EQ(Picture().size(), Area().DeviceSize());
    EXPECT_EQ(SeenOfArea(), Picture());
    EXPECT_TRUE(FillsTheWindow(Picture()));
}

TEST_F(ScreenRatio, PreviewOfATextIsWhatIsDrawnThereAfterwards) {
    DrawByKeys();
    const QImage map = Picture();
    for (const char* const angle : {"000", "030"}) {
        Design.CurrentText = "Atlantis";
        Design.CurrentTextAngle = angle;
        Design.CurrentLook = {.FontName = "Arial", .FontSize = 20};
        Design.TextPending = true;
        BeginPlacing();
        QTest::mouseMove(&Area(), QPoint(101, 203));
        QTest::mouseClick(&Area(), Qt::LeftButton, {}, QPoint(101, 203));
        const QImage seen = SeenOfArea();
        EXPECT_EQ(Picture(), map);
        // The text begins where the mouse is.
        int left = seen.width();
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < left; ++x) {
                left = seen.pixel(x, y) == map.pixel(x, y) ? left : x;
            }
        }
        EXPECT_NEAR(left, 101 * ratio, 8 * ratio);
        TextDone();
        EXPECT_EQ(Picture(), seen);
        EXPECT_EQ(SeenOfArea(), seen);
        Design.TextItems.clear();
        ShowTexts();
        EXPECT_EQ(Picture(), map);
    }
}

TEST_F(ScreenRatio, MouseIsMeasuredInTwips) {
    QTest::mouseClick(&Area(), Qt::LeftButton, {}, QPoint(10, 20));
    // A unit of the screen is 15 twips, whatever its pixels.
    EXPECT_EQ(MainWindowNow.TextCursorX, 150);
    EXPECT_EQ(MainWindowNow.TextCursorY, 300);
}

} // namespace
} // namespace quelmont
