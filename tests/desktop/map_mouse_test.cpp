// The mouse on the map in the window: places picked for a dialog, distances measured, the map's own menu.

#include "desktop/desktop_fixture.h"

#include "core/map_design.h"
#include "mainwindow/main_menu.h"
#include "view/measuring.h"
#include "view/place_picking.h"
#include "view/position.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class MapMouse : public DesktopTest {
protected:
    MapMouse() { Start(); }

    void Click(QPoint place, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(&Area(), Qt::LeftButton, keys, place);
    }
    std::string PositionTextAt(QPoint place) {
        const auto position = PositionAt({place.x(), place.y()});
        return position ? PositionText(*position) : "";
    }
    static QString FieldText(QDialog& dialog, const char* name) {
        return dialog.findChild<QWidget*>(QLatin1String(name))->property("text").toString();
    }
    /// Acts as soon as a dialog waits for a click.
    static void WhilePicking(std::function<void()> action) {
        auto* timer = new QTimer(qApp);
        QObject::connect(timer, &QTimer::timeout, timer,
                         [timer, action = std::move(action), polls = 0]() mutable {
                             if (IsPicking() || ++polls > 2500) {
                                 timer->stop();
                                 timer->deleteLater();
                                 EXPECT_TRUE(IsPicking());
                                 action();
                             }
                         });
        timer->start(2);
    }
    /// Acts in the map's menu as soon as it is open, and closes it.
    static void InMenu(std::function<void(QMenu&)> action) {
        auto* timer = new QTimer(qApp);
        QObject::connect(timer, &QTimer::timeout, timer,
                         [timer, action = std::move(action), polls = 0]() mutable {
                             auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                             if (menu != nullptr || ++polls > 2500) {
                                 timer->stop();
                                 timer->deleteLater();
                                 ASSERT_NE(menu, nullptr);
                                 action(*menu);
                                 if (menu->isVisible()) {
                                     menu->close();
                                 }
                             }
                         });
        timer->start(2);
    }
    void OpenGreatCircle(std::function<void(QDialog&)> action) {
        Activate();
        InDialog(std::move(action));
        Window().Action(Menu::mnuDesign, GreatCircleItem)->trigger();
    }
    static void PressPick(QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_P, Qt::AltModifier); }
};

TEST_F(MapMouse, DialogHidesForAClickOnTheMapAndComesBackWithThePlace) {
    DrawByKeys();
    const QPoint place(600, 200);
    bool hidden = false;
    QString lat;
    QString lon;
    QPoint before;
    QPoint after;
    OpenGreatCircle([&](QDialog& dialog) {
        before = dialog.pos();
        WhilePicking([&] {
            hidden = !dialog.isVisible() && QApplication::activeModalWidget() == nullptr;
            EXPECT_EQ(Area().cursor().shape(), Qt::CrossCursor);
            EXPECT_THAT(Window().Status().Text().toStdString(), HasSubstr("the start of the great circle"));
            InDialog([&](QDialog& again) {
                EXPECT_EQ(&again, &dialog);
                after = again.pos();
                EXPECT_EQ(again.focusWidget()->objectName(), QStringLiteral("LatN"));
                QTest::keyClick(&again, Qt::Key_O, Qt::AltModifier);
            });
            Click(place);
        });
        PressPick(dialog);
    });
    EXPECT_TRUE(hidden);
    EXPECT_EQ(after, before);
    EXPECT_FALSE(Window().Busy());
    EXPECT_TRUE(Design.GcDefined);
    const auto picked = PositionAt({place.x(), place.y()});
    ASSERT_TRUE(picked);
    EXPECT_NEAR(Design.GcStartLat, picked->place.lat, 0.5 / 60.0 + 1e-9) << "rounded to minutes";
    EXPECT_NEAR(Design.GcStartLon, picked->place.lon, 0.5 / 60.0 + 1e-9);
    EXPECT_EQ(Area().cursor().shape(), Qt::ArrowCursor);
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(MapMouse, EscapeBringsTheDialogBackAsItWas) {
    DrawByKeys();
    bool back = false;
    const std::string before = Design.GcText[0];
    OpenGreatCircle([&](QDialog& dialog) {
        WhilePicking([&] {
            InDialog([&](QDialog& again) {
                back = true;
                QTest::keyClick(&again, Qt::Key_Escape);
            });
            QTest::keyClick(&Window(), Qt::Key_Escape);
        });
        PressPick(dialog);
    });
    EXPECT_TRUE(back);
    EXPECT_FALSE(Window().Busy());
    EXPECT_EQ(Design.GcText[0], before);
    EXPECT_FALSE(Design.GcDefined);
}

TEST_F(MapMouse, MenuGivesUpAndDoesNothingElse) {
    DrawByKeys();
    const QImage map = Picture();
    bool back = false;
    OpenGreatCircle([&](QDialog& dialog) {
        WhilePicking([&] {
            InDialog([&](QDialog& again) {
                back = true;
                QTest::keyClick(&again, Qt::Key_Escape);
            });
            Window().Action(Menu::mnuBar, DrawTitle)->trigger();
        });
        PressPick(dialog);
    });
    EXPECT_TRUE(back);
    EXPECT_EQ(Picture(), map);
    EXPECT_EQ(clock.beeps, 1) << "of the draw at the beginning";
}

TEST_F(MapMouse, ClosingTheWindowMeanwhileEndsTheProgram) {
    DrawByKeys();
    OpenGreatCircle([&](QDialog& dialog) {
        WhilePicking([&] { Window().close(); });
        PressPick(dialog);
    });
    QCoreApplication::processEvents();
    EXPECT_FALSE(Window().isVisible());
    EXPECT_FALSE(Window().Busy());
    EXPECT_FALSE(Design.GcDefined) << "the dialog was cancelled";
}

TEST_F(MapMouse, NoPlaceCanBePickedBeforeTheFirstDraw) {
    OpenGreatCircle([](QDialog& dialog) {
        EXPECT_FALSE(dialog.findChild<QPushButton*>(QStringLiteral("PickOnMap"))->isEnabled());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

TEST_F(MapMouse, ShiftAndTwoClicksMeasure) {
    DrawByKeys();
    const QImage map = Picture();
    Activate();
    Click({400, 200}, Qt::ShiftModifier);
    QTest::mouseMove(&Area(), {600, 300});
    EXPECT_NE(SeenOfArea(), map) << "the line lies over the map";
    EXPECT_EQ(Picture(), map) << "and is no part of it";
    Click({600, 300});
    EXPECT_THAT(Window().Status().Text().toStdString(), HasSubstr(" km   "));
    QTest::mouseMove(&Area(), {500, 250});
    EXPECT_THAT(Window().Status().Text().toStdString(), HasSubstr(" nmi   course "));
    QTest::keyClick(&Window(), Qt::Key_Escape);
    EXPECT_EQ(SeenOfArea(), map);
    EXPECT_THAT(Window().Status().Text().toStdString(), StartsWith(PositionTextAt({500, 250})));
}

TEST_F(MapMouse, DrawTakesTheMeasuredLineOff) {
    DrawByKeys();
    Activate();
    const QImage map = Picture();
    Click({400, 200}, Qt::ShiftModifier);
    Click({600, 300}, Qt::ShiftModifier);
    EXPECT_TRUE(IsMeasuring());
    QTest::keyClick(&Window(), Qt::Key_F5);
    EXPECT_FALSE(IsMeasuring());
    EXPECT_EQ(SeenOfArea(), map);
}

TEST_F(MapMouse, MenuOfTheMapCopiesThePosition) {
    DrawByKeys();
    Activate();
    QGuiApplication::clipboard()->clear();
    const QPoint place(430, 210);
    InMenu([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_C); });
    QContextMenuEvent wanted(QContextMenuEvent::Mouse, place, Area().mapToGlobal(place));
    QApplication::sendEvent(&Area(), &wanted);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), PositionTextAt(place));
    EXPECT_THAT(PositionTextAt(place), HasSubstr("\u2032 N"));
}

TEST_F(MapMouse, MenuKeyOpensTheMenuOfTheMap) {
    DrawByKeys();
    Activate();
    QGuiApplication::clipboard()->clear();
    InMenu([](QMenu& menu) {
        EXPECT_EQ(menu.accessibleName(), QStringLiteral("Map"));
        QTest::keyClick(&menu, Qt::Key_C);
    });
    QContextMenuEvent wanted(QContextMenuEvent::Keyboard, QPoint(0, 0), Area().mapToGlobal(QPoint(0, 0)));
    QApplication::sendEvent(&Area(), &wanted);
    EXPECT_THAT(QGuiApplication::clipboard()->text().toStdString(), HasSubstr("\u00B0 "));
}

TEST_F(MapMouse, MenuOfTheMapCopiesTheMap) {
    DrawByKeys();
    Activate();
    QGuiApplication::clipboard()->clear();
    const QPoint place(430, 210);
    InMenu([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_M); });
    QContextMenuEvent wanted(QContextMenuEvent::Mouse, place, Area().mapToGlobal(place));
    QApplication::sendEvent(&Area(), &wanted);
    const QByteArray png = QGuiApplication::clipboard()->mimeData()->data(QStringLiteral("image/png"));
    EXPECT_EQ(QImage::fromData(png, "PNG").size(), Picture().size());
}

TEST_F(MapMouse, PositionBesideTheMapCannotBeCopied) {
    bool enabled = true;
    InMenu([&](QMenu& menu) { enabled = menu.actions().front()->isEnabled(); });
    const QPoint place(430, 210);
    QContextMenuEvent wanted(QContextMenuEvent::Mouse, place, Area().mapToGlobal(place));
    QApplication::sendEvent(&Area(), &wanted);
    EXPECT_FALSE(enabled) << "nothing was drawn yet";
}

} // namespace
} // namespace quelmont
