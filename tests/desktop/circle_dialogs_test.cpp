// Great and small circles by keys and by mouse, in the real window.

#include "desktop/desktop_fixture.h"

#include "core/color_table.h"
#include "core/map_design.h"
#include "mainwindow/main_menu.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::IsEmpty;

class CircleDialogs : public DesktopTest {
protected:
    CircleDialogs() { Start(); }

    /// Opens a dialog of the Design Map menu, acts in it, and closes it unless the action did.
    void Open(int item, std::function<void(QDialog&)> action) {
        InDialog([action = std::move(action)](QDialog& dialog) {
            action(dialog);
            if (dialog.isVisible()) {
                dialog.reject();
            }
        });
        Window().Action(Menu::mnuDesign, item)->trigger();
    }
    static void Type(QDialog& dialog, const char* text) {
        QTest::keyClicks(dialog.focusWidget(), QString::fromLatin1(text));
        Key(dialog, Qt::Key_Tab);
    }
    static void Key(QDialog& dialog, Qt::Key key) {
        QTest::keyClick(dialog.focusWidget(), key);
        QCoreApplication::processEvents();
    }
    static QPushButton& Button(QDialog& dialog, const char* name) {
        return *dialog.findChild<QPushButton*>(QLatin1String(name));
    }
    static QCheckBox& Check(QDialog& dialog) { return *dialog.findChild<QCheckBox*>("ShowOnMap"); }

    /// Pixels of a colour, 0x00BBGGRR.
    int Count(std::uint32_t color) {
        const QRgb wanted = qRgb(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                                 static_cast<int>(color >> 16 & 0xFF));
        const QImage picture = Picture().convertToFormat(QImage::Format_RGB32);
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                count += picture.pixel(x, y) == wanted ? 1 : 0;
            }
        }
        return count;
    }
};

TEST_F(CircleDialogs, RouteIsTypedAndDrawn) {
    Open(GreatCircleItem, [](QDialog& dialog) {
        Type(dialog, "51 30 N");
        Type(dialog, "0 7 30 W");
        Type(dialog, "33 55 S");
        Type(dialog, "18 25 E");
        Type(dialog, "5");
        QTest::keyClicks(dialog.focusWidget(), QStringLiteral("200"));
        Key(dialog, Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }));
    });
    EXPECT_EQ(Design.GcText[0], "51    30    00    N");
    EXPECT_EQ(Design.GcText[1], "000    07    30    W");
    EXPECT_EQ(Design.GcText[2], "33    55    00    S");
    EXPECT_EQ(Design.GcText[3], "018    25    00    E");
    EXPECT_EQ(Design.GcLineWidth, 5.0F * Design.TwipsPerPixelY);
    EXPECT_EQ(Design.GcColor, SolidColor(ColorOfCell(200)));
    EXPECT_TRUE(Design.GcDefined);
    EXPECT_FALSE(Design.GcTable.Rows.empty());
    EXPECT_EQ(Count(ColorOfCell(200)), 0);
    DrawByKeys();
    EXPECT_GT(Count(ColorOfCell(200)), 500);
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(CircleDialogs, CheckTakesTheRingsOffByKeyAndByMouse) {
    for (const bool byKey : {true, false}) {
        Open(SmallCircleItem, [&](QDialog& dialog) {
            EXPECT_TRUE(Check(dialog).isChecked());
            if (byKey) {
                QTest::keyClick(&dialog, Qt::Key_M, Qt::AltModifier);
            } else {
                QTest::mouseClick(&Check(dialog), Qt::LeftButton, {}, QPoint(8, Check(dialog).height() / 2));
            }
            // A key shows the box pressed for a moment.
            EXPECT_TRUE(QTest::qWaitFor([&] { return !Check(dialog).isChecked(); }));
            QTest::mouseClick(&Button(dialog, "OK"), Qt::LeftButton);
        });
        EXPECT_FALSE(Design.ScDefined);
        EXPECT_EQ(Design.ScTable.ScRingEnd.size(), 3U);
        Open(SmallCircleItem,
             [](QDialog& dialog) { QTest::mouseClick(&Button(dialog, "OK"), Qt::LeftButton); });
        EXPECT_TRUE(Design.ScDefined);
    }
}

TEST_F(CircleDialogs, UnitsFollowTheTyping) {
    Open(SmallCircleItem, [](QDialog& dialog) {
        const auto* miles = dialog.findChild<QLabel*>("RadiusNM");
        EXPECT_EQ(miles->text(), QStringLiteral("00900.0"));
        Key(dialog, Qt::Key_Tab);
        Key(dialog, Qt::Key_Tab);
        Type(dialog, "90");
        EXPECT_EQ(miles->text(), QStringLiteral("05400.0"));
    });
}

TEST_F(CircleDialogs, PictureOpensThePickerByMouse) {
    Open(SmallCircleItem, [](QDialog& dialog) {
        InDialog([](QDialog& picker) {
            EXPECT_EQ(picker.windowTitle(), QStringLiteral("Select Color"));
            auto* cells = picker.findChild<QWidget*>("ColorSquare");
            QTest::mouseClick(cells, Qt::LeftButton, {}, QPoint(cells->width() - 8, cells->height() - 8));
        });
        QTest::mouseClick(&Button(dialog, "ScColorPicture"), Qt::LeftButton);
        QTest::mouseClick(&Button(dialog, "OK"), Qt::LeftButton);
    });
    EXPECT_EQ(Design.ScColorIndex, 255);
    EXPECT_EQ(Design.ScColor, SolidColor(ColorOfCell(255)));
}

TEST_F(CircleDialogs, PoleWithAnotherLongitudeIsRefusedAtItsField) {
    Open(GreatCircleItem, [&](QDialog& dialog) {
        Type(dialog, "90 N");
        ASSERT_EQ(boxes.asked.size(), 1U);
        EXPECT_EQ(boxes.asked[0].title, "Error: Starting, ending longitudes must be equal");
        QTest::mouseClick(&Button(dialog, "OK"), Qt::LeftButton);
    });
    EXPECT_EQ(Design.GcText[0], "37    47    00    N");
    EXPECT_TRUE(Design.GcDefined);
}

TEST_F(CircleDialogs, CancelButtonsOnlyClose) {
    for (const int item : {GreatCircleItem, SmallCircleItem}) {
        Open(item, [](QDialog& dialog) {
            Type(dialog, "10 N");
            QTest::keyClick(&dialog, Qt::Key_C, Qt::AltModifier);
            EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }));
        });
    }
    EXPECT_FALSE(Design.GcDefined || Design.ScDefined);
    EXPECT_EQ(Design.GcText[0], "37    47    00    N");
    EXPECT_EQ(Design.ScText[0], "37    47    00    N");
}

} // namespace
} // namespace quelmont
