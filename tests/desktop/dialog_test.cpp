#include "desktop/desktop_fixture.h"

#include "core/map_design.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace quelmont {
namespace {

using testing::IsEmpty;

class MapSizeDialog : public DesktopTest {
protected:
    MapSizeDialog() { Start(); }

    /// Opens the dialog, acts in it, and closes it unless the action did.
    void Open(std::function<void(QDialog&)> action) {
        InDialog([action = std::move(action)](QDialog& dialog) {
            action(dialog);
            if (dialog.isVisible()) {
                dialog.reject();
            }
        });
        Window().Action(Menu::mnuBar, 3)->trigger();
    }
    static QSpinBox& Spin(QDialog& dialog) { return *dialog.findChild<QSpinBox*>("MapReduction"); }
    static QPushButton& Button(QDialog& dialog, const char* name) {
        return *dialog.findChild<QPushButton*>(QString::fromLatin1(name));
    }
};

TEST_F(MapSizeDialog, ShowsTheControlsOfTheForm) {
    Open([&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Select Map Size"));
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(Spin(dialog).minimum(), 10);
        EXPECT_EQ(Spin(dialog).maximum(), 100);
        EXPECT_EQ(Spin(dialog).value(), 100);
        EXPECT_TRUE(Spin(dialog).hasFocus());
        EXPECT_TRUE(Button(dialog, "DrawMap").isDefault());
        const auto* text = dialog.findChild<QLabel*>("Label2");
        EXPECT_TRUE(text->wordWrap());
        EXPECT_TRUE(text->text().contains(QStringLiteral("map.  The margins"))) << "both blanks";
        EXPECT_EQ(text->textFormat(), Qt::PlainText);
    });
}

TEST_F(MapSizeDialog, StandsInTheMiddleOfTheScreen) {
    Open([](QDialog& dialog) {
        const QPoint apart = dialog.frameGeometry().center() - dialog.screen()->availableGeometry().center();
        EXPECT_LE(apart.manhattanLength(), 4);
    });
}

TEST_F(MapSizeDialog, TypedNumberCountsWithEnter) {
    Open([](QDialog& dialog) {
        QTest::keyClicks(dialog.focusWidget(), "45");
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(Design.MapReduce, 0.45);
    EXPECT_EQ(clock.beeps, 1);
}

TEST_F(MapSizeDialog, TypedNumberCountsWithAClick) {
    Open([&](QDialog& dialog) {
        QTest::keyClicks(dialog.focusWidget(), "45");
        QTest::mouseClick(&Button(dialog, "DrawMap"), Qt::LeftButton);
    });
    EXPECT_EQ(Design.MapReduce, 0.45);
    EXPECT_EQ(clock.beeps, 1);
}

TEST_F(MapSizeDialog, NumberBelowTheRangeBecomesTheLowest) {
    Open([&](QDialog& dialog) {
        QTest::keyClicks(dialog.focusWidget(), "5");
        QTest::mouseClick(&Button(dialog, "DrawMap"), Qt::LeftButton);
    });
    EXPECT_EQ(Design.MapReduce, 0.1);
}

TEST_F(MapSizeDialog, ArrowKeysStepByOne) {
    Open([](QDialog& dialog) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Up);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(Design.MapReduce, 0.99);
}

TEST_F(MapSizeDialog, EveryWayOutButDrawMapCancels) {
    const std::vector<std::function<void(QDialog&)>> ways = {
        [](QDialog& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape); },
        [](QDialog& dialog) { dialog.close(); },
        [](QDialog& dialog) { QTest::mouseClick(&Button(dialog, "Cancel"), Qt::LeftButton); },
        [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_C, Qt::AltModifier); },
        [](QDialog& dialog) {
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
            EXPECT_EQ(dialog.focusWidget(), &Button(dialog, "Cancel"));
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        },
    };
    for (const auto& way : ways) {
        Open([&](QDialog& dialog) {
            QTest::keyClicks(dialog.focusWidget(), "45");
            way(dialog);
            EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }));
        });
        EXPECT_EQ(Design.MapReduce, 1.0);
        EXPECT_EQ(clock.beeps, 0);
        ExpectIdle();
    }
}

TEST_F(MapSizeDialog, MnemonicsLeadToTheControls) {
    Open([](QDialog& dialog) {
        Button(dialog, "Cancel").setFocus();
        QTest::keyClick(&dialog, Qt::Key_P, Qt::AltModifier);
        EXPECT_TRUE(Spin(dialog).hasFocus());
        QTest::keyClick(&dialog, Qt::Key_D, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }));
    });
    EXPECT_EQ(clock.beeps, 1);
}

TEST_F(MapSizeDialog, ButtonsGetTheFocusByTabOnly) {
    Open([](QDialog& dialog) {
        QTest::mousePress(&Button(dialog, "Cancel"), Qt::LeftButton);
        EXPECT_TRUE(Spin(dialog).hasFocus());
        QTest::mouseRelease(&Button(dialog, "Cancel"), Qt::LeftButton, {}, QPoint(-50, -50));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(Button(dialog, "DrawMap").hasFocus());
    });
}

TEST_F(MapSizeDialog, F1IsHarmless) {
    Open([](QDialog& dialog) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_F1);
        EXPECT_TRUE(dialog.isVisible());
    });
    ASSERT_EQ(boxes.asked.size(), 1U) << "there is no help file in the tests' folder";
    EXPECT_EQ(boxes.asked[0].title, "Help");
}

TEST_F(MapSizeDialog, MnemonicsAreUnique) {
    Open([](QDialog& dialog) {
        std::set<QString> seen;
        const auto take = [&](const QString& text) {
            const qsizetype mark = text.indexOf('&');
            ASSERT_GE(mark, 0) << text.toStdString();
            EXPECT_TRUE(seen.insert(text.mid(mark + 1, 1).toLower()).second) << text.toStdString();
        };
        take(dialog.findChild<QLabel*>("MapReductionCaption")->text());
        take(Button(dialog, "DrawMap").text());
        take(Button(dialog, "Cancel").text());
    });
}

TEST_F(MapSizeDialog, ControlsHaveAccessibleNames) {
    Open([](QDialog& dialog) {
        const auto name = [](QWidget& widget) {
            return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name).toStdString();
        };
        EXPECT_EQ(name(Spin(dialog)), "Percent Full Screen");
        EXPECT_EQ(name(Button(dialog, "DrawMap")), "Draw Map");
        EXPECT_EQ(name(Button(dialog, "Cancel")), "Cancel");
        EXPECT_EQ(name(dialog), "Select Map Size");
    });
}

TEST_F(MapSizeDialog, OpeningItAHundredTimesLeavesNothing) {
    Open([](QDialog&) {});
    const auto widgets = QApplication::allWidgets().size();
    for (int i = 0; i < 100; ++i) {
        Open([](QDialog&) {});
    }
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    EXPECT_EQ(Design.MapReduce, 1.0);
}

class LetterSize : public MapSizeDialog, public testing::WithParamInterface<int> {};

TEST_P(LetterSize, CutsNothingOff) {
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPointSizeF(before.pointSizeF() * GetParam() / 100.0);
    QApplication::setFont(font);
    Open([](QDialog& dialog) {
        const QRect inside = dialog.rect();
        for (const QWidget* widget : dialog.findChildren<QWidget*>()) {
            if (!widget->isVisible()) {
                continue;
            }
            const QSize hint = widget->sizeHint();
            const QString name = widget->objectName();
            if (qobject_cast<const QLineEdit*>(widget) == nullptr) {
                EXPECT_GE(widget->width(), hint.width()) << name.toStdString();
                EXPECT_GE(widget->height(), hint.height()) << name.toStdString();
            }
            const QRect place(widget->mapTo(&dialog, QPoint(0, 0)), widget->size());
            EXPECT_TRUE(inside.contains(place)) << name.toStdString();
        }
        const auto* text = dialog.findChild<QLabel*>("Label2");
        EXPECT_GE(text->height(), text->heightForWidth(text->width())) << "every line of it is seen";
        EXPECT_LT(dialog.width(), 1024);
        EXPECT_LT(dialog.height(), 740);
    });
    QApplication::setFont(before);
}

INSTANTIATE_TEST_SUITE_P(Percent, LetterSize, testing::Values(100, 150, 200));

// ---- Boxes.

class BoxOnScreen : public DesktopTest {
protected:
    BoxOnScreen() : real(Window()) { Start(); }

    BoxAnswer Ask(BoxButtons buttons, std::function<void(QMessageBox&)> action,
                  BoxIcon icon = BoxIcon::Exclamation) {
        InDialog([&](QDialog& dialog) { action(dynamic_cast<QMessageBox&>(dialog)); });
        return real.Ask("Error: Latitude", "Degrees must be <= 90° <b>&\nnext", buttons, icon);
    }
    static void PressEscape(QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }
    static std::function<void(QMessageBox&)> Click(QMessageBox::StandardButton button) {
        return [button](QMessageBox& box) { box.button(button)->click(); };
    }

    DesktopBoxes real;
};

TEST_F(BoxOnScreen, ShowsItsTextAsItStands) {
    Ask(BoxButtons::RetryCancel, [&](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Error: Latitude"));
        EXPECT_EQ(box.text(), QString::fromUtf8("Degrees must be <= 90° <b>&\nnext"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.parentWidget(), &Window());
        PressEscape(box);
    });
}

TEST_F(BoxOnScreen, InformationHasItsIcon) {
    Ask(
        BoxButtons::Ok,
        [](QMessageBox& box) {
            EXPECT_EQ(box.icon(), QMessageBox::Information);
            PressEscape(box);
        },
        BoxIcon::Information);
}

TEST_F(BoxOnScreen, AnswersItsButton) {
    EXPECT_EQ(Ask(BoxButtons::Ok, Click(QMessageBox::Ok)), BoxAnswer::Ok);
    EXPECT_EQ(Ask(BoxButtons::RetryCancel, Click(QMessageBox::Retry)), BoxAnswer::Retry);
    EXPECT_EQ(Ask(BoxButtons::RetryCancel, Click(QMessageBox::Cancel)), BoxAnswer::Cancel);
    EXPECT_EQ(Ask(BoxButtons::YesNo, Click(QMessageBox::Yes)), BoxAnswer::Yes);
    EXPECT_EQ(Ask(BoxButtons::YesNo, Click(QMessageBox::No)), BoxAnswer::No);
    EXPECT_EQ(Ask(BoxButtons::AbortRetryIgnore, Click(QMessageBox::Abort)), BoxAnswer::Abort);
    EXPECT_EQ(Ask(BoxButtons::AbortRetryIgnore, Click(QMessageBox::Retry)), BoxAnswer::Retry);
    EXPECT_EQ(Ask(BoxButtons::AbortRetryIgnore, Click(QMessageBox::Ignore)), BoxAnswer::Ignore);
}

TEST_F(BoxOnScreen, ClosedWithoutAButtonItDeclines) {
    EXPECT_EQ(Ask(BoxButtons::Ok, PressEscape), BoxAnswer::Ok);
    EXPECT_EQ(Ask(BoxButtons::RetryCancel, PressEscape), BoxAnswer::Cancel);
    EXPECT_EQ(Ask(BoxButtons::YesNo, PressEscape), BoxAnswer::No);
    EXPECT_EQ(Ask(BoxButtons::AbortRetryIgnore, PressEscape), BoxAnswer::Abort);
    EXPECT_EQ(Ask(BoxButtons::YesNo, [](QMessageBox& box) { box.close(); }), BoxAnswer::No);
}

} // namespace
} // namespace quelmont
