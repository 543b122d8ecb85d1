#include "desktop/message_box.h"

#include "desktop/desktop_fixture.h"

#include "core/map_design.h"

#include <QAction>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace quelmont {
namespace {

constexpr QRect Screen(0, 0, 1000, 800);
constexpr QSize Box(300, 150);

TEST(PlaceOfAMessageBox, IsRightOfTheDialogAtTheHeightOfTheField) {
    EXPECT_EQ(BesidePart(Box, QRect(250, 320, 200, 30), QRect(200, 200, 400, 400), Screen), QPoint(600, 320));
}

TEST(PlaceOfAMessageBox, IsLeftOfADialogAtTheRightEdge) {
    EXPECT_EQ(BesidePart(Box, QRect(650, 320, 200, 30), QRect(600, 200, 400, 400), Screen), QPoint(300, 320));
}

TEST(PlaceOfAMessageBox, StaysOnTheScreenBesideALowField) {
    EXPECT_EQ(BesidePart(Box, QRect(250, 720, 200, 30), QRect(200, 400, 400, 400), Screen), QPoint(600, 650));
}

TEST(PlaceOfAMessageBox, IsUnderTheFieldOfAWideDialogAndAboveALowOne) {
    const QRect wide(100, 100, 800, 600);
    EXPECT_EQ(BesidePart(Box, QRect(150, 200, 200, 30), wide, Screen), QPoint(150, 238));
    EXPECT_EQ(BesidePart(Box, QRect(150, 650, 200, 30), wide, Screen), QPoint(150, 492));
    EXPECT_EQ(BesidePart(Box, QRect(800, 200, 90, 30), wide, Screen), QPoint(700, 238)) << "on the screen";
}

TEST(PlaceOfAMessageBox, IsBesideTheFieldOnALowScreen) {
    const QRect low(0, 0, 1000, 200);
    const QRect dialog(0, 0, 1000, 200);
    EXPECT_EQ(BesidePart(Box, QRect(100, 90, 200, 30), dialog, low), QPoint(308, 50));
    EXPECT_EQ(BesidePart(Box, QRect(700, 90, 200, 30), dialog, low), QPoint(392, 50));
}

TEST(PlaceOfAMessageBox, IsWhereMoreRoomIsWhenThereIsNotEnough) {
    const QRect screen(0, 0, 320, 200);
    EXPECT_EQ(BesidePart(Box, QRect(10, 20, 300, 30), screen, screen), QPoint(10, 50));
    EXPECT_EQ(BesidePart(Box, QRect(10, 150, 300, 30), screen, screen), QPoint(10, 0));
}

TEST(PlaceOfAMessageBox, CoversTheFieldNowhereIfItCanBeHelped) {
    const QRect dialog(250, 150, 500, 500);
    for (int x = 250; x <= 550; x += 50) {
        for (int y = 150; y <= 620; y += 10) {
            const QRect field(x, y, 200, 30);
            EXPECT_FALSE(QRect(BesidePart(Box, field, dialog, Screen), Box).intersects(field))
                << x << ", " << y;
        }
    }
}

class PlacedBox : public DesktopTest {
protected:
    PlacedBox() {
        Start();
        real.emplace(Window());
        Machine().boxes = &*real;
    }

    /// Leaves a field with a bad text, and looks at the box that comes.
    void LookAtBoxOf(const QString& field, const QString& keys,
                     const std::function<void(QDialog& box, QDialog& dialog)>& look) {
        InDialog([&](QDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>(field);
            edit->setFocus(Qt::TabFocusReason);
            QCoreApplication::processEvents();
            QTest::keyClicks(edit, keys);
            InDialog([&](QDialog& box) {
                look(box, dialog);
                box.reject();
            });
            QTest::keyClick(edit, Qt::Key_Tab);
            EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeModalWidget() == &dialog; }));
            QCoreApplication::processEvents();
            dialog.reject();
        });
        Window().Action(Menu::mnuDesign, 0)->trigger();
    }

    std::optional<DesktopBoxes> real;
};

TEST_F(PlacedBox, LeavesEachFieldToBeSeenAndItsCaptionToo) {
    for (const char* const name : {"LatN", "LatS", "LonW", "LonE"}) {
        SCOPED_TRACE(name);
        bool looked = false;
        LookAtBoxOf(QString::fromLatin1(name), "999999", [&](QDialog& box, QDialog& dialog) {
            looked = true;
            const auto place = [](const QWidget& widget) {
                return QRect(widget.mapToGlobal(QPoint(0, 0)), widget.size());
            };
            const QRect covered = box.frameGeometry();
            const auto* edit = dialog.findChild<QLineEdit*>(QString::fromLatin1(name));
            EXPECT_FALSE(covered.intersects(place(*edit)));
            EXPECT_FALSE(
                covered.intersects(place(*dialog.findChild<QLabel*>(QString::fromLatin1(name) + "Caption"))));
            EXPECT_TRUE(Window().screen()->availableGeometry().contains(covered));
        });
        EXPECT_TRUE(looked);
    }
}

TEST_F(PlacedBox, IsWideEnoughForItsTitle) {
    for (const char* const title : {"Error: Northernmost standard parallel",
                                    "Error: Conformal Conic standard parallels", "Plot Time"}) {
        InDialog([&](QDialog& box) {
            QFont bold = QApplication::font();
            bold.setBold(true);
            constexpr int iconAndButtons = 100;
            EXPECT_GE(box.width(), QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + iconAndButtons);
            box.reject();
        });
        Machine().boxes->Ask(title, "No.", BoxButtons::Ok, BoxIcon::Exclamation);
    }
}

} // namespace
} // namespace quelmont
