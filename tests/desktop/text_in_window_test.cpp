// Texts on the map as a person makes them: typed in the dialog, seen over the map, dropped, lifted, nudged,
// edited and deleted, by the mouse and by keys.

#include "desktop/desktop_fixture.h"

#include "core/map_design.h"
#include "core/standard_colors.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace quelmont {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class TextInWindow : public DesktopTest {
protected:
    TextInWindow() { Start(); }

    /// Opens the dialog of texts and acts in it; the action closes it.
    void OpenTexts(std::function<void(QDialog&)> action) {
        Activate();
        InDialog(std::move(action));
        Window().Action(Menu::mnuDesign, AddTextItem)->trigger();
        Activate();
    }
    void TypeText(const char* text) {
        OpenTexts([=](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Select Text and Rotation"));
            EXPECT_EQ(dialog.focusWidget()->objectName(), QStringLiteral("TextStrings"));
            QTest::keyClicks(dialog.focusWidget(), QString::fromUtf8(text));
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        });
    }
    /// Takes an item with the arrow key and another text by typing behind it.
    void EditFirst(const char* behind) {
        OpenTexts([=](QDialog& dialog) {
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
            QTest::keyClick(dialog.focusWidget(), Qt::Key_End);
            QTest::keyClicks(dialog.focusWidget(), QString::fromUtf8(behind));
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        });
    }
    void Move(QPoint place) { QTest::mouseMove(&Area(), place); }
    void Click(QPoint place) { QTest::mouseClick(&Area(), Qt::LeftButton, {}, place); }
    void Key(Qt::Key key) { QTest::keyClick(Window().focusWidget(), key); }
    void OpenMenu(int title) {
        QMenuBar* bar = Window().menuBar();
        QTest::mouseClick(bar, Qt::LeftButton, {},
                          bar->actionGeometry(Window().Action(Menu::mnuBar, title)).center());
        if (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
    }
    /// Where two pictures of one size differ.
    static QRect Difference(const QImage& a, const QImage& b) {
        QRect box;
        for (int y = 0; y < a.height(); ++y) {
            for (int x = 0; x < a.width(); ++x) {
                if (a.pixel(x, y) != b.pixel(x, y)) {
                    box |= QRect(x, y, 1, 1);
                }
            }
        }
        return box;
    }
};

TEST_F(TextInWindow, IsTypedMovedDroppedAndStays) {
    DrawByKeys();
    const QImage map = Picture();
    Activate();
    TypeText("Atlantis");
    EXPECT_EQ(Area().cursor().shape(), Qt::CrossCursor);
    Move({300, 200});
    EXPECT_EQ(Window().Caption(), "Quelmont:  x = 04500   y = 03000");
    const QRect shown = Difference(SeenOfArea(), map);
    // Letters of ten points stand on the place and reach to the right.
    EXPECT_NEAR(shown.left(), 300, 3);
    EXPECT_NEAR(shown.bottom(), 200, 2);
    EXPECT_GT(shown.width(), 30);
    EXPECT_LT(shown.height(), 20);
    Click({300, 200});
    EXPECT_EQ(Area().cursor().shape(), Qt::OpenHandCursor);
    Move({500, 500});
    const QImage previewed = SeenOfArea();
    EXPECT_EQ(Difference(previewed, map), shown) << "it stays";
    EXPECT_EQ(Picture(), map) << "nothing of it is in the picture";
    OpenMenu(HelpTitle);
    EXPECT_EQ(Design.TextItems.size(), 1U);
    EXPECT_EQ(Design.TextItems.at(0).TextX, 4500);
    EXPECT_EQ(Picture(), previewed) << "what was seen is what is there now";
    EXPECT_EQ(SeenOfArea(), previewed);
    EXPECT_EQ(clock.beeps, 1) << "the map was not drawn again";
    ExpectIdle();
}

TEST_F(TextInWindow, TwoHundredMovesLeaveThePictureAlone) {
    DrawByKeys();
    const QImage map = Picture();
    TypeText("Atlantis");
    for (int i = 0; i < 200; ++i) {
        Move({(37 * i) % Area().width(), (91 * i) % Area().height()});
        ASSERT_EQ(Picture(), map) << i;
    }
    const QRect last = Difference(SeenOfArea(), map);
    EXPECT_LT(last.width(), 100) << "it is seen once";
    Key(Qt::Key_Escape);
    EXPECT_EQ(SeenOfArea(), map) << "and nothing is left of it";
    EXPECT_THAT(Design.TextItems, IsEmpty());
    ExpectIdle();
}

TEST_F(TextInWindow, IsPlacedByKeysAlone) {
    DrawByKeys();
    Activate();
    InDialog([](QDialog& dialog) {
        QTest::keyClicks(dialog.focusWidget(), QStringLiteral("Nuuk"));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(dialog.focusWidget()->objectName(), QStringLiteral("TextRotation"));
        QTest::keyClicks(dialog.focusWidget(), QStringLiteral("090"));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    });
    QTest::keyClick(&Window(), Qt::Key_M, Qt::AltModifier);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_T);
    Activate();
    const int x = Design.CurrentX;
    const int y = Design.CurrentY;
    EXPECT_NEAR(x, Window().ScaleWidth() / 2, 15);
    Key(Qt::Key_Space);
    EXPECT_EQ(Area().cursor().shape(), Qt::OpenHandCursor);
    Key(Qt::Key_Left);
    Key(Qt::Key_2);
    Key(Qt::Key_Up);
    Key(Qt::Key_1);
    Key(Qt::Key_Right);
    Key(Qt::Key_3);
    Key(Qt::Key_Down);
    Key(Qt::Key_Escape);
    ASSERT_EQ(Design.TextItems.size(), 1U);
    EXPECT_EQ(Design.TextItems[0].TextX, x - 150 + 15);
    EXPECT_EQ(Design.TextItems[0].TextY, y - 75 + 150);
    EXPECT_EQ(Design.TextItems[0].TextAngle, 90);
    EXPECT_TRUE(Area().hasFocus());
    ExpectIdle();
}

TEST_F(TextInWindow, MenuWhileItFollowsGivesItUp) {
    DrawByKeys();
    const QImage map = Picture();
    TypeText("Atlantis");
    Move({300, 200});
    OpenMenu(FileTitle);
    EXPECT_THAT(Design.TextItems, IsEmpty());
    EXPECT_EQ(SeenOfArea(), map);
    ExpectIdle();
}

TEST_F(TextInWindow, DoubleClickIsOneClick) {
    DrawByKeys();
    TypeText("Atlantis");
    Move({300, 200});
    Click({300, 200});
    QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(300, 200), Area().mapToGlobal(QPointF(300, 200)),
                       Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&Area(), &second);
    EXPECT_EQ(Area().cursor().shape(), Qt::OpenHandCursor);
    QTest::mouseClick(&Area(), Qt::RightButton, {}, QPoint(300, 200));
    EXPECT_EQ(Area().cursor().shape(), Qt::OpenHandCursor) << "nor does another button count";
    Key(Qt::Key_Escape);
}

TEST_F(TextInWindow, IsEditedAndDeletedWithoutADrawOfTheMap) {
    DrawByKeys();
    const QImage map = Picture();
    TypeText("Atlantis");
    Click({300, 200});
    Key(Qt::Key_Escape);
    const QImage first = Picture();
    EXPECT_NE(first, map);
    EditFirst(" II");
    EXPECT_EQ(Picture(), map) << "the old text is gone";
    EXPECT_NE(SeenOfArea(), map) << "and the new one lies over the map";
    Move({100, 100});
    Key(Qt::Key_Escape);
    ASSERT_EQ(Design.TextItems.size(), 1U);
    EXPECT_EQ(Design.TextItems[0].TextString, "Atlantis II");
    EXPECT_EQ(Design.TextItems[0].TextX, 4500) << "it kept its place";
    EXPECT_GT(Difference(Picture(), map).width(), Difference(first, map).width());
    OpenTexts([&](QDialog& dialog) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
        QTest::mouseClick(dialog.findChild<QPushButton*>("DeleteText"), Qt::LeftButton);
        EXPECT_EQ(Picture(), map) << "at once";
        EXPECT_EQ(dialog.focusWidget()->objectName(), QStringLiteral("TextStrings"));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
    });
    EXPECT_THAT(Design.TextItems, IsEmpty());
    EXPECT_EQ(SeenOfArea(), map);
    EXPECT_EQ(clock.beeps, 1);
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(TextInWindow, NextDrawHasTheTextAndItCanStillBeTakenAway) {
    TypeText("Atlantis");
    Click({300, 200});
    DrawByKeys();
    EXPECT_EQ(Design.TextItems.size(), 1U);
    const QImage withText = Picture();
    OpenTexts([](QDialog& dialog) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
        QTest::mouseClick(dialog.findChild<QPushButton*>("DeleteText"), Qt::LeftButton);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
    });
    const QImage without = Picture();
    EXPECT_NE(without, withText);
    DrawByKeys();
    EXPECT_EQ(Picture(), without);
}

TEST_F(TextInWindow, BeforeTheFirstDrawItLiesOnPaper) {
    Design.BackColor = SolidColor(Rgb(200, 220, 240));
    TypeText("Atlantis");
    Move({300, 200});
    EXPECT_FALSE(Area().HasPicture());
    const QImage previewed = SeenOfArea();
    EXPECT_EQ(previewed.pixelColor(5, 5), QColor(200, 220, 240));
    QImage paper = previewed;
    paper.fill(QColor(200, 220, 240));
    EXPECT_NEAR(Difference(previewed, paper).left(), 300, 3) << "and no hint";
    Click({300, 200});
    Key(Qt::Key_Escape);
    EXPECT_EQ(Picture(), previewed);
}

TEST_F(TextInWindow, GivenUpBeforeTheFirstDrawItLeavesTheHint) {
    const QImage hinted = SeenOfArea();
    TypeText("Atlantis");
    Move({300, 200});
    EXPECT_NE(SeenOfArea(), hinted);
    Key(Qt::Key_Escape);
    EXPECT_EQ(SeenOfArea(), hinted);
    EXPECT_FALSE(Area().HasPicture());
}

TEST_F(TextInWindow, LargerWindowHasRoomForATextBesideTheMap) {
    DrawByKeys();
    const QImage map = Picture();
    Window().resize(1300, 900);
    QCoreApplication::processEvents();
    TypeText("Atlantis");
    const QPoint beside(map.width() + 50, 100);
    Move(beside);
    const QImage previewed = SeenOfArea();
    EXPECT_EQ(previewed.size(), Area().DeviceSize());
    Click(beside);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Picture(), previewed) << "the paper is as large as the window now";
    EXPECT_EQ(Picture().copy(map.rect()), map) << "and the map where it was";
}

TEST_F(TextInWindow, ResizingMovesNothing) {
    DrawByKeys();
    TypeText("Atlantis");
    Click({300, 200});
    const QRect before = Difference(SeenOfArea(), Picture());
    Window().resize(900, 600);
    QCoreApplication::processEvents();
    const QImage seen = SeenOfArea();
    EXPECT_EQ(Difference(seen, Picture().copy(seen.rect())), before);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Design.TextItems.at(0).TextX, 4500);
    Window().resize(QSize(1024, 740) + QSize(0, Window().Status().height()));
    QCoreApplication::processEvents();
    EXPECT_EQ(Design.TextItems.at(0).TextY, 3000);
    EXPECT_EQ(SeenOfArea(), Picture());
}

TEST_F(TextInWindow, StoppedDrawIsThePictureUnderTheNextText) {
    pump->At(30, [&] { OpenMenu(StopTitle); });
    DrawByKeys();
    EXPECT_EQ(clock.beeps, 0);
    const QImage stopped = Picture();
    TypeText("Atlantis");
    Click({300, 200});
    Key(Qt::Key_Escape);
    const QRect text = Difference(Picture(), stopped);
    EXPECT_LT(text.width(), 100) << "the rest of the map stayed as it was";
    EXPECT_GT(text.width(), 20);
}

TEST_F(TextInWindow, ClosingTheWindowKeepsWhatWasDropped) {
    DrawByKeys();
    TypeText("Atlantis");
    Click({300, 200});
    EXPECT_TRUE(Window().close());
    EXPECT_EQ(Design.TextItems.size(), 1U);
    EXPECT_FALSE(Design.TextPending);
}

TEST_F(TextInWindow, ExportHoldsIt) {
    TypeText("Atlantis");
    Click({300, 200});
    Key(Qt::Key_Escape);
    Design.DxfFileName = folder / "map.dxf";
    Design.OutputDxf = true;
    MapDraw();
    std::ifstream file(folder / "map.dxf");
    std::stringstream text;
    text << file.rdbuf();
    EXPECT_THAT(text.str(), HasSubstr("Atlantis"));
}

TEST_F(TextInWindow, HostileTextsAreSeenAndPlaced) {
    for (const QString& text :
         {QString(255, 'x'), QString(10'000, 'W'), QStringLiteral("\"'\\&<b>"),
          QString::fromUtf8("שלום\u200F עולם"), QString::fromUtf8("a\u202Eb\u0301日本")}) {
        OpenTexts([&](QDialog& dialog) {
            dialog.findChild<QComboBox*>("TextStrings")->setEditText(text);
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        });
        Move({200, 300});
        Click({200, 300});
        const QImage previewed = SeenOfArea();
        Key(Qt::Key_Escape);
        EXPECT_EQ(Design.TextItems.back().TextString, text.toStdString());
        EXPECT_EQ(Picture(), previewed);
    }
    EXPECT_THAT(boxes.asked, IsEmpty());
}

// ---- The dialogs on the screen.

TEST_F(TextInWindow, FontIsChosenFromTheMenuOfTheDialog) {
    OpenTexts([](QDialog& texts) {
        InDialog([](QDialog& fonts) {
            EXPECT_EQ(fonts.windowTitle(), QStringLiteral("Select Font and Color"));
            auto* size = fonts.findChild<QComboBox*>("comFontSize");
            size->setFocus();
            QCoreApplication::processEvents();
            QTest::keyClick(size, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(size, QStringLiteral("33"));
            QTest::keyClick(&fonts, Qt::Key_B, Qt::AltModifier);
            EXPECT_TRUE(QTest::qWaitFor([&] { return fonts.findChild<QCheckBox*>("chkBold")->isChecked(); }));
            QTest::keyClick(&fonts, Qt::Key_O, Qt::AltModifier);
        });
        QTest::keyClick(&texts, Qt::Key_F, Qt::AltModifier);
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_F);
        EXPECT_EQ(texts.findChild<QLabel*>("FontStyle")->text(), QStringLiteral("Font style is Bold."));
        EXPECT_TRUE(texts.findChild<QLabel*>("CurrentFont")->text().endsWith(QStringLiteral(" 33 point .")));
        texts.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&texts));
        QTest::keyClicks(texts.findChild<QComboBox*>("TextStrings"), QStringLiteral("Large"));
        QTest::keyClick(texts.findChild<QComboBox*>("TextStrings"), Qt::Key_Return);
    });
    EXPECT_EQ(Design.CurrentText, "Large");
    EXPECT_EQ(Design.CurrentLook.FontSize, 33);
    EXPECT_TRUE(Design.CurrentLook.FontBold);
    Key(Qt::Key_Escape);
}

TEST_F(TextInWindow, ScaleIsOpenedFromTheMenuOfTheDialog) {
    OpenTexts([](QDialog& texts) {
        InDialog([](QDialog& scale) {
            EXPECT_EQ(scale.windowTitle(), QStringLiteral("Scale Factor for Text in CGM & DXF Files"));
            scale.reject();
        });
        QTest::keyClick(&texts, Qt::Key_F, Qt::AltModifier);
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_S);
        texts.reject();
    });
}

TEST_F(TextInWindow, FamilyIsCompletedWhileItIsTyped) {
    OpenTexts([](QDialog& texts) {
        InDialog([](QDialog& fonts) {
            auto* names = fonts.findChild<QComboBox*>("comFontName");
            ASSERT_GT(names->count(), 1);
            const QString family = names->itemText(names->count() - 1);
            names->setFocus();
            QCoreApplication::processEvents();
            names->lineEdit()->selectAll();
            QTest::keyClicks(names, family.left(family.size() - 1).toLower());
            EXPECT_EQ(names->currentText().compare(family, Qt::CaseInsensitive), 0)
                << names->currentText().toStdString();
            QTest::mouseClick(fonts.findChild<QPushButton*>("OK"), Qt::LeftButton);
            EXPECT_EQ(Design.Fonts[TextFontSlot].FontName, family.toStdString());
        });
        texts.findChild<QMenu*>("mnuFont")->actions().front()->trigger();
        texts.reject();
    });
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(TextInWindow, SecondTextOfTheSameWordsIsANewOne) {
    TypeText("Nuuk");
    Click({300, 200});
    Key(Qt::Key_Escape);
    TypeText("Nuuk");
    EXPECT_FALSE(Design.TextIsEdit);
    Click({300, 300});
    Key(Qt::Key_Escape);
    ASSERT_EQ(Design.TextItems.size(), 2U);
    EXPECT_EQ(Design.TextItems[0].TextY, 3000);
    EXPECT_EQ(Design.TextItems[1].TextY, 4500);
}

TEST_F(TextInWindow, ItemIsChosenWithTheMouse) {
    TypeText("one");
    Click({300, 200});
    TypeText("two");
    Click({300, 300});
    OpenTexts([](QDialog& dialog) {
        auto* texts = dialog.findChild<QComboBox*>("TextStrings");
        texts->showPopup();
        QAbstractItemView* lines = texts->view();
        const QModelIndex second = lines->model()->index(1, 0);
        QTest::mouseMove(lines->viewport(), lines->visualRect(second).center());
        QTest::mouseClick(lines->viewport(), Qt::LeftButton, {}, lines->visualRect(second).center());
        EXPECT_EQ(texts->currentText(), QStringLiteral("two"));
        EXPECT_TRUE(Design.TextIsEdit);
        EXPECT_EQ(Design.TextEditIndex, 2);
        dialog.reject();
    });
    EXPECT_FALSE(Design.TextIsEdit);
}

TEST_F(TextInWindow, WrongRotationKeepsTheKeyboard) {
    OpenTexts([&](QDialog& dialog) {
        QTest::keyClicks(dialog.focusWidget(), QStringLiteral("x"));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QCoreApplication::processEvents();
        QTest::keyClicks(dialog.focusWidget(), QStringLiteral("360"));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        QCoreApplication::processEvents();
        EXPECT_EQ(dialog.focusWidget()->objectName(), QStringLiteral("TextRotation"));
        ASSERT_EQ(boxes.asked.size(), 1U);
        EXPECT_EQ(boxes.asked[0].text, "Text rotation cannot exceed 359°");
        dialog.reject();
    });
    EXPECT_FALSE(Design.TextPending);
}

} // namespace
} // namespace quelmont
