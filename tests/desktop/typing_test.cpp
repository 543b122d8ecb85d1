// What people type, click and paste into the fields of every dialog, in the real windows.

#include "desktop/desktop_fixture.h"
#include "desktop/dialog_catalogue.h"

#include "core/map_design.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QLineEdit& Field(QDialog& dialog, const std::string& name) {
    auto* field = dialog.findChild<QLineEdit*>(QString::fromStdString(name));
    if (field == nullptr) {
        throw std::out_of_range(name);
    }
    return *field;
}

class Typing : public DesktopTest {
protected:
    Typing() { Start(); }

    /// Acts in a dialog of the catalogue, which is cancelled afterwards.
    void In(const std::string& name, std::function<void(QDialog&)> action) {
        const auto& all = DialogCatalogue();
        const auto found = std::find_if(all.begin(), all.end(),
                                        [&](const CataloguedDialog& dialog) { return dialog.name == name; });
        ASSERT_NE(found, all.end());
        const std::unique_ptr<Form> form = found->make();
        InDialog([action = std::move(action)](QDialog& dialog) {
            action(dialog);
            if (dialog.isVisible()) {
                dialog.reject();
            }
        });
        Machine().forms->Show(*form);
    }
    /// Acts in each field of columns of each dialog, entered as by Tab.
    void InEachField(std::function<void(QLineEdit&, const Control&)> action) {
        int fields = 0;
        for (const CataloguedDialog& entry : DialogCatalogue()) {
            const std::unique_ptr<Form> made = entry.make();
            for (const Control& control : made->Controls()) {
                if (control.kind != ControlKind::Edit || !control.enabled) {
                    continue;
                }
                SCOPED_TRACE(entry.name + " " + control.name);
                ++fields;
                In(entry.name, [&](QDialog& dialog) {
                    QLineEdit& field = Field(dialog, control.name);
                    dialog.findChild<QPushButton*>("OK")->setFocus();
                    field.setFocus(Qt::TabFocusReason);
                    action(field, control);
                });
            }
        }
        EXPECT_GE(fields, 30);
    }
    static void Settle() { QCoreApplication::processEvents(); }
    static void Click(QLineEdit& field, int column) {
        // The rectangle of the cursor before that column, as the line tells it to an input method.
        field.setCursorPosition(column);
        const QPoint place = field.inputMethodQuery(Qt::ImCursorRectangle).toRectF().center().toPoint();
        field.setCursorPosition(0);
        QTest::mouseClick(&field, Qt::LeftButton, {}, place);
        ASSERT_EQ(field.cursorPosition(), column);
    }
    static void DoubleClick(QLineEdit& field) {
        QTest::mouseDClick(&field, Qt::LeftButton, {}, QPoint(8, field.height() / 2));
    }
    static void PasteByKeys(QLineEdit& field, const char* text) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    }

    static bool IsAngle(const Control& control) { return control.mask.find(' ') != std::string::npos; }
    static bool HasLetter(const Control& control) { return control.mask.find('?') != std::string::npos; }
    static bool IsLatitude(const Control& control) { return control.mask.find(' ') == 2; }
    /// Seven degrees, with a letter where there is one.
    static std::string Seven(const Control& control) {
        return (IsLatitude(control) ? "07" : "007") + std::string("    00    00") +
               (HasLetter(control) ? IsLatitude(control) ? "    S" : "    E" : "");
    }
};

TEST_F(Typing, AnyAngleFieldUnderstandsAnAngle) {
    InEachField([](QLineEdit& field, const Control& control) {
        if (!IsAngle(control)) {
            return;
        }
        EXPECT_EQ(field.cursorPosition(), 0);
        const char* const letter = !HasLetter(control) ? "" : IsLatitude(control) ? "s" : "e";
        // An arc has no letter that empties its minutes.
        QTest::keyClicks(&field, HasLetter(control) ? "7 " : "7 0 0 ");
        QTest::keyClicks(&field, letter);
        EXPECT_EQ(field.text().toStdString(), Seven(control));
        QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(field.text().toStdString(), control.text) << "undone";
        DoubleClick(field);
        QTest::keyClicks(&field, "7.0");
        QTest::keyClicks(&field, letter);
        EXPECT_EQ(field.text().toStdString(), Seven(control)) << "typed over the whole";
        PasteByKeys(field,
                    HasLetter(control) ? (IsLatitude(control) ? "-12.5" : "12:30 E") : "12\u00B0 30\u2032");
        std::string half = Seven(control);
        half.replace(half.find('7') - 1, 2, "12").replace(half.find(' ') + 4, 2, "30");
        EXPECT_EQ(field.text().toStdString(), half) << "pasted";
        PasteByKeys(field, "40 N 70 W");
        EXPECT_EQ(field.text().toStdString(), half) << "not pasted";
    });
}

TEST_F(Typing, AnyNumberFieldUnderstandsANumber) {
    InEachField([](QLineEdit& field, const Control& control) {
        if (IsAngle(control)) {
            return;
        }
        const bool decimal = control.mask.find('.') != std::string::npos;
        const std::string typed = decimal ? "1" : control.mask.size() < 5 ? "75" : "7,500";
        QTest::keyClicks(&field, QString::fromStdString(typed));
        QTest::keyClick(field.window(), Qt::Key_Tab);
        std::string wanted = control.mask;
        std::replace(wanted.begin(), wanted.end(), '%', '0');
        const std::size_t behind = decimal ? control.mask.find('.') : wanted.size();
        wanted.replace(behind - typed.size(), typed.size(), typed);
        EXPECT_EQ(field.text().toStdString(), wanted);
    });
}

TEST_F(Typing, TextThatIsTypedReachesTheDialog) {
    In("lat-lon-bounds", [&](QDialog& dialog) {
        QTest::keyClicks(&Field(dialog, "LatN"), "70 n");
        QTest::keyClick(&Field(dialog, "LatN"), Qt::Key_Tab);
        QTest::keyClicks(&Field(dialog, "LatS"), "5");
        QTest::keyClick(&Field(dialog, "LatS"), Qt::Key_Tab);
        QTest::keyClicks(&Field(dialog, "LatGr"), "5");
        QTest::keyClick(&Field(dialog, "LatGr"), Qt::Key_Tab);
        QTest::keyClicks(&Field(dialog, "LonW"), "30w");
        QTest::keyClick(&dialog, Qt::Key_G, Qt::AltModifier);
        QTest::keyClicks(&Field(dialog, "LonGr"), "15");
        QTest::keyClick(&Field(dialog, "LonGr"), Qt::Key_Return);
        Settle();
        EXPECT_FALSE(dialog.isVisible()) << "and is accepted, also the group left last by Enter";
    });
    EXPECT_THAT(boxes.asked, IsEmpty());
    EXPECT_EQ(Design.GridText[GridTextNorth], "70    00    00    N");
    EXPECT_EQ(Design.GridText[GridTextSouth], "05    00    00    S");
    EXPECT_EQ(Design.GridText[GridTextLatSpacing], "005    00    00");
    EXPECT_EQ(Design.GridText[GridTextWest], "030    00    00    W");
    EXPECT_EQ(Design.GridText[GridTextLonSpacing], "015    00    00");
}

TEST_F(Typing, DigitsReplaceColumnsAfterAClick) {
    In("lat-lon-bounds", [](QDialog& dialog) {
        QLineEdit& field = Field(dialog, "LonW");
        Click(field, 7);
        QTest::keyClicks(&field, "2");
        EXPECT_EQ(field.text(), QStringLiteral("180    20    00    W"));
        Click(field, 0);
        QTest::keyClicks(&field, "0");
        EXPECT_EQ(field.text(), QStringLiteral("080    20    00    W"));
        QTest::keyClicks(&field, "7 ");
        EXPECT_EQ(field.text(), QStringLiteral("070    20    00    W"));
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_Tab);
        EXPECT_EQ(field.text(), QStringLiteral("070    20    00    W")) << "nothing is moved";
    });
}

TEST_F(Typing, LeavingByAClickFinishesTheGroup) {
    In("lat-lon-bounds", [](QDialog& dialog) {
        QTest::keyClicks(&Field(dialog, "LatN"), "5");
        QTest::mouseClick(&Field(dialog, "LonE"), Qt::LeftButton);
        EXPECT_EQ(Field(dialog, "LatN").text(), QStringLiteral("05    00    00    N"));
    });
}

TEST_F(Typing, SelectedByAKeyTheWholeIsReplaced) {
    In("lat-lon-bounds", [](QDialog& dialog) {
        QLineEdit& field = Field(dialog, "LonW");
        field.setFocus();
        QTest::keyClicks(&field, "1223044");
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&field, "7");
        QTest::keyClick(&field, Qt::Key_Tab);
        EXPECT_EQ(field.text(), QStringLiteral("007    00    00    W"));
    });
}

TEST_F(Typing, BeepsAtWhatIsNotTaken) {
    In("lat-lon-bounds", [](QDialog& dialog) {
        QLineEdit& field = Field(dialog, "LatGr");
        field.setFocus();
        PasteByKeys(field, "15 N");
        QApplication::clipboard()->setText(QString(10000, '1'));
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(field.text(), QStringLiteral("030    00    00"));
        EXPECT_EQ(field.cursorPosition(), 0);
    });
}

TEST_F(Typing, UndoAndRedoByTheirKeys) {
    In("lat-lon-bounds", [](QDialog& dialog) {
        QLineEdit& field = Field(dialog, "LatN");
        QTest::keyClicks(&field, "5 s");
        QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(field.text(), QStringLiteral("90    00    00    N"));
        EXPECT_EQ(field.cursorPosition(), 0);
        QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(field.text(), QStringLiteral("05    00    00    S"));
    });
}

TEST_F(Typing, AccessibleTextIsTakenLikeAPaste) {
    In("lat-lon-bounds", [](QDialog& dialog) {
        QLineEdit& field = Field(dialog, "LonW");
        field.setText("70 e");
        EXPECT_EQ(field.text(), QStringLiteral("070    00    00    E"));
    });
}

/// The ways of leaving a refused field.
class TypingAfterRetry : public Typing, public testing::WithParamInterface<const char*> {
protected:
    static void Leave(QDialog& dialog, const std::string& way) {
        if (way == "Tab") {
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        } else if (way == "Enter") {
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        } else if (way == "Field") {
            QTest::mouseClick(&Field(dialog, "LonE"), Qt::LeftButton);
        } else {
            QTest::mouseClick(dialog.findChild<QPushButton*>("OK"), Qt::LeftButton);
        }
        Settle();
    }
};

TEST_P(TypingAfterRetry, BeginsAtTheFirstColumnAndTakesTheFirstDigit) {
    boxes.Answer(BoxAnswer::Retry);
    boxes.Answer(BoxAnswer::Retry);
    In("lat-lon-bounds", [](QDialog& dialog) {
        QLineEdit& field = Field(dialog, "LatN");
        for (int time = 0; time < 2; ++time) {
            QTest::keyClicks(&field, "950000N");
            Leave(dialog, GetParam());
            EXPECT_TRUE(field.hasFocus());
            EXPECT_EQ(field.cursorPosition(), 0);
        }
        QTest::keyClicks(&field, "8");
        EXPECT_EQ(field.text(), QStringLiteral("85    00    00    N"));
        QTest::keyClicks(&field, " n");
        EXPECT_EQ(field.text(), QStringLiteral("08    00    00    N"));
    });
    EXPECT_EQ(boxes.asked.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(Ways, TypingAfterRetry, testing::Values("Tab", "Enter", "Field", "Ok"),
                         [](const auto& way) { return std::string(way.param); });

} // namespace
} // namespace quelmont
