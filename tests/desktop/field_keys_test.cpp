// Fields of fixed columns and the cells of colours under a person's keys and mouse, and what becomes
// of the focus when a field is refused.

#include "desktop/desktop_fixture.h"
#include "desktop/palette_grid.h"

#include "core/map_design.h"
#include "dialogs/bounds/lat_lon_bounds.h"
#include "dialogs/bounds/lat_lon_interrupt.h"
#include "dialogs/bounds/utm_dialogs.h"
#include "dialogs/exports/line_width_scale.h"
#include "dialogs/look/colors256.h"
#include "dialogs/look/select_grid_type.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QWindow>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FieldKeys : public DesktopTest {
protected:
    FieldKeys() {
        Start();
        Design.ProjNum = ProjRobinson;
    }

    template <typename Dialog>
    void Open(std::function<void(QDialog&)> action) {
        Dialog form;
        InDialog([action = std::move(action)](QDialog& dialog) {
            action(dialog);
            if (dialog.isVisible()) {
                dialog.reject();
            }
        });
        Machine().forms->Show(form);
    }
    static QLineEdit& Field(QDialog& dialog, const char* name) {
        return *dialog.findChild<QLineEdit*>(QString::fromLatin1(name));
    }
    static void Settle() { QCoreApplication::processEvents(); }
};

TEST_F(FieldKeys, TypeOverTheColumnsAndSkipTheBlanks) {
    Open<LatLonBounds>([](QDialog& dialog) {
        QLineEdit& field = Field(dialog, "LatN");
        EXPECT_TRUE(field.hasFocus());
        EXPECT_EQ(field.cursorPosition(), 0);
        QTest::keyClicks(&field, "374705s");
        EXPECT_EQ(field.text(), QStringLiteral("37    47    05    S"));
        EXPECT_EQ(field.cursorPosition(), 19);
    });
}

TEST_F(FieldKeys, ArrowsStopAtThePlacesAlone) {
    Open<LatLonBounds>([](QDialog& dialog) {
        QLineEdit& field = Field(dialog, "LatN");
        std::vector<int> stops;
        for (int i = 0; i < 7; ++i) {
            QTest::keyClick(&field, Qt::Key_Right);
            stops.push_back(field.cursorPosition());
        }
        EXPECT_THAT(stops, ElementsAre(1, 6, 7, 12, 13, 18, 19));
        stops.clear();
        for (int i = 0; i < 8; ++i) {
            QTest::keyClick(&field, Qt::Key_Left);
            stops.push_back(field.cursorPosition());
        }
        EXPECT_THAT(stops, ElementsAre(18, 13, 12, 7, 6, 1, 0, 0));
    });
}

TEST_F(FieldKeys, ErasingLeavesZeros) {
    Open<LatLonBounds>([](QDialog& dialog) {
        QLineEdit& field = Field(dialog, "LonW");
        field.setFocus();
        field.setCursorPosition(3);
        QTest::keyClick(&field, Qt::Key_Backspace);
        QTest::keyClick(&field, Qt::Key_Backspace);
        EXPECT_EQ(field.text(), QStringLiteral("100    00    00    W"));
        EXPECT_EQ(field.cursorPosition(), 1);
        QTest::keyClicks(&field, "23");
        QTest::keyClick(&field, Qt::Key_Home);
        QTest::keyClick(&field, Qt::Key_Delete);
        EXPECT_EQ(field.text(), QStringLiteral("023    00    00    W"));
        EXPECT_EQ(field.cursorPosition(), 1);
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        EXPECT_EQ(field.text(), QStringLiteral("000    00    00    W"));
    });
}

TEST_F(FieldKeys, SelectedTextIsTypedOverFromItsBeginning) {
    Open<LatLonBounds>([](QDialog& dialog) {
        QLineEdit& field = Field(dialog, "LatN");
        field.setSelection(6, 8);
        QTest::keyClicks(&field, "123");
        EXPECT_EQ(field.text(), QStringLiteral("90    12    30    N"));
    });
}

TEST_F(FieldKeys, PastedAnglesAreTaken) {
    Open<LatLonBounds>([](QDialog& dialog) {
        QLineEdit& field = Field(dialog, "LonW");
        field.setFocus();
        for (const char* const angle : {"122    26    00    W", "122 26 0 W", " 122 26 00 w\n"}) {
            Field(dialog, "LonW").selectAll();
            QTest::keyClicks(&field, "0010203E");
            QApplication::clipboard()->setText(QString::fromLatin1(angle));
            QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
            EXPECT_EQ(field.text(), QStringLiteral("122    26    00    W")) << angle;
        }
        QApplication::clipboard()->setText(QStringLiteral("somewhere else"));
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(field.text(), QStringLiteral("122    26    00    W"));
    });
}

TEST_F(FieldKeys, NothingTakesColumnsAway) {
    Open<LatLonBounds>([](QDialog& dialog) {
        QLineEdit& field = Field(dialog, "LatN");
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_X, Qt::ControlModifier);
        QTest::keyClick(&field, Qt::Key_K, Qt::ControlModifier);
        QTest::keyClick(&field, Qt::Key_U, Qt::ControlModifier);
        QTest::keyClick(&field, Qt::Key_Backspace, Qt::ControlModifier);
        QTest::keyClick(&field, Qt::Key_Delete, Qt::ControlModifier);
        field.insert("xyz");
        field.setText("no angle");
        EXPECT_EQ(field.text().size(), 19);
        EXPECT_FALSE(field.acceptDrops());
    });
}

TEST_F(FieldKeys, MnemonicLeadsToTheField) {
    Open<LatLonBounds>([](QDialog& dialog) {
        QTest::keyClick(&dialog, Qt::Key_G, Qt::AltModifier);
        EXPECT_TRUE(Field(dialog, "LonGr").hasFocus());
    });
}

TEST_F(FieldKeys, TabOutOfABadFieldAsksOnceAndRetryGoesBack) {
    boxes.Answer(BoxAnswer::Retry);
    Open<LatLonBounds>([&](QDialog& dialog) {
        QTest::keyClicks(&Field(dialog, "LatN"), "950000N");
        QTest::keyClick(&Field(dialog, "LatN"), Qt::Key_Tab);
        Settle();
        EXPECT_TRUE(Field(dialog, "LatN").hasFocus());
        EXPECT_EQ(Field(dialog, "LatN").text(), QStringLiteral("95    00    00    N"));
        EXPECT_EQ(boxes.asked.size(), 1U);
    });
}

TEST_F(FieldKeys, CancelPutsTheOldTextBackAndGoesOn) {
    Open<LatLonBounds>([&](QDialog& dialog) {
        QTest::keyClicks(&Field(dialog, "LatN"), "950000N");
        QTest::keyClick(&Field(dialog, "LatN"), Qt::Key_Tab);
        Settle();
        EXPECT_TRUE(Field(dialog, "LatS").hasFocus());
        EXPECT_EQ(Field(dialog, "LatN").text(), QStringLiteral("90    00    00    N"));
        EXPECT_EQ(boxes.asked.size(), 1U);
    });
}

TEST_F(FieldKeys, ClickOnAnotherFieldAsksToo) {
    boxes.Answer(BoxAnswer::Retry);
    Open<LatLonBounds>([&](QDialog& dialog) {
        QTest::keyClicks(&Field(dialog, "LatN"), "950000N");
        QTest::mouseClick(&Field(dialog, "LonE"), Qt::LeftButton);
        Settle();
        EXPECT_TRUE(Field(dialog, "LatN").hasFocus());
        EXPECT_EQ(boxes.asked.size(), 1U);
    });
}

TEST_F(FieldKeys, EnterAndAClickOnOkLookAtTheFieldLeftLast) {
    boxes.Answer(BoxAnswer::Retry);
    boxes.Answer(BoxAnswer::Retry);
    Open<LatLonBounds>([&](QDialog& dialog) {
        QTest::keyClicks(&Field(dialog, "LatN"), "950000N");
        QTest::keyClick(&Field(dialog, "LatN"), Qt::Key_Return);
        Settle();
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(Field(dialog, "LatN").hasFocus());
        QTest::mouseClick(dialog.findChild<QPushButton*>("OK"), Qt::LeftButton);
        Settle();
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(Field(dialog, "LatN").hasFocus());
        EXPECT_EQ(boxes.asked.size(), 2U);
    });
}

TEST_F(FieldKeys, EscapeAndCancelLookAtNoField) {
    for (const bool byKey : {true, false}) {
        Open<LatLonBounds>([&](QDialog& dialog) {
            QTest::keyClicks(&Field(dialog, "LatN"), "950000N");
            if (byKey) {
                QTest::keyClick(&Field(dialog, "LatN"), Qt::Key_Escape);
            } else {
                QTest::mouseClick(dialog.findChild<QPushButton*>("Cancel"), Qt::LeftButton);
            }
            Settle();
            EXPECT_FALSE(dialog.isVisible());
        });
    }
    EXPECT_THAT(boxes.asked, IsEmpty());
    EXPECT_TRUE(Design.DialogCancelled);
}

TEST_F(FieldKeys, NumbersKeepTheirSeparators) {
    Open<UtmCoords>([](QDialog& dialog) {
        QTest::keyClicks(&Field(dialog, "UtmLatN"), "06123456");
        EXPECT_EQ(Field(dialog, "UtmLatN").text(), QStringLiteral("06,123,456"));
    });
}

TEST_F(FieldKeys, CountOfInterruptionsOpensTheirFields) {
    Design.ProjNum = ProjInterruptedMollweide;
    Open<LatLonInterrupt>([](QDialog& dialog) {
        EXPECT_FALSE(Field(dialog, "LonInt(2)").isEnabled());
        QTest::keyClick(dialog.findChild<QSpinBox*>("NumInterrupt(0)"), Qt::Key_Up);
        EXPECT_TRUE(Field(dialog, "LonInt(2)").isEnabled());
    });
}

TEST_F(FieldKeys, ListFollowsTheArrowsAndADoubleClickAccepts) {
    Open<SelectGridType>([](QDialog& dialog) {
        auto* list = dialog.findChild<QListWidget*>("GridTypeList");
        QTest::keyClick(list, Qt::Key_Down);
        EXPECT_EQ(list->currentRow(), 3);
        const QPoint second = list->visualItemRect(list->item(1)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, second);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(Design.GridTypeCode, 2);
}

TEST_F(FieldKeys, OptionsAreChosenByTheirMnemonics) {
    Open<LineWidthScale>([](QDialog& dialog) {
        QTest::keyClick(&dialog, Qt::Key_N, Qt::AltModifier);
        const auto* pixels = dialog.findChild<QRadioButton*>("LineWidthPixels");
        EXPECT_TRUE(QTest::qWaitFor([&] { return pixels->isChecked(); })) << "the press is animated";
        EXPECT_FALSE(dialog.findChild<QRadioButton*>("LineWidthRelative")->isChecked());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    });
    EXPECT_FALSE(Design.LineWidthsScaled);
}

class ColorKeys : public FieldKeys {
protected:
    ColorKeys() { Design.ColorPurpose = PurposeBackground; }
    static PaletteGrid& Cells(QDialog& dialog) {
        return *static_cast<PaletteGrid*>(dialog.findChild<QWidget*>("ColorSquare"));
    }
    /// The middle of a cell.
    static QPoint Middle(const PaletteGrid& cells, int column, int row) {
        const int size = cells.CellSize();
        return {1 + column * size + size / 2, 1 + row * size + size / 2};
    }
};

TEST_F(ColorKeys, ReleaseOfTheMouseTakesTheCell) {
    Open<Colors256>([](QDialog& dialog) {
        PaletteGrid& cells = Cells(dialog);
        QTest::mousePress(&cells, Qt::LeftButton, {}, Middle(cells, 0, 0));
        EXPECT_TRUE(dialog.isVisible());
        QTest::mouseRelease(&cells, Qt::LeftButton, {}, Middle(cells, 7, 2));
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(255, 0, 0)));
    EXPECT_EQ(Design.BackColorIndex, 39);
}

TEST_F(ColorKeys, BorderBelongsToTheCellRightOfItAndBelow) {
    Open<Colors256>([](QDialog& dialog) {
        PaletteGrid& cells = Cells(dialog);
        const int size = cells.CellSize();
        QTest::mouseClick(&cells, Qt::LeftButton, {}, QPoint(1 + 3 * size, 1 + 5 * size));
    });
    EXPECT_EQ(Design.BackColorIndex, 5 * 16 + 3);
}

TEST_F(ColorKeys, FrameAroundTheCellsTakesNone) {
    Open<Colors256>([](QDialog& dialog) {
        PaletteGrid& cells = Cells(dialog);
        QTest::mouseClick(&cells, Qt::LeftButton, {}, QPoint(0, 5));
        QTest::mouseClick(&cells, Qt::LeftButton, {}, QPoint(cells.width() - 1, 5));
        EXPECT_TRUE(dialog.isVisible());
    });
    EXPECT_EQ(Design.BackColorIndex, 15);
}

TEST_F(ColorKeys, ArrowsMoveFromTheColourInUseAndEnterTakes) {
    Open<Colors256>([](QDialog& dialog) {
        PaletteGrid& cells = Cells(dialog);
        EXPECT_TRUE(cells.hasFocus());
        QTest::keyClick(&cells, Qt::Key_Left); // shows where it is: cell 15
        QTest::keyClick(&cells, Qt::Key_Left);
        QTest::keyClick(&cells, Qt::Key_Down);
        QTest::keyClick(&cells, Qt::Key_Down);
        QTest::keyClick(&cells, Qt::Key_Up);
        QTest::keyClick(&cells, Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(Design.BackColorIndex, 14 + 16);
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(0xEE, 0xEE, 0xEE)));
}

TEST_F(ColorKeys, ArrowsStayInsideTheTable) {
    Open<Colors256>([](QDialog& dialog) {
        PaletteGrid& cells = Cells(dialog);
        for (int i = 0; i < 40; ++i) {
            QTest::keyClick(&cells, Qt::Key_Down);
        }
        for (int i = 0; i < 40; ++i) {
            QTest::keyClick(&cells, Qt::Key_Right);
        }
        QTest::keyClick(&cells, Qt::Key_Home);
        QTest::keyClick(&cells, Qt::Key_Space);
    });
    EXPECT_EQ(Design.BackColorIndex, 240);
}

TEST_F(ColorKeys, EscapeTakesNone) {
    Open<Colors256>([](QDialog& dialog) {
        QTest::keyClick(&Cells(dialog), Qt::Key_Down);
        QTest::keyClick(&Cells(dialog), Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(Design.BackColorIndex, 15);
}

TEST_F(ColorKeys, ColourUnderTheMouseIsReportedInWords) {
    Open<Colors256>([](QDialog& dialog) {
        PaletteGrid& cells = Cells(dialog);
        QTest::mouseMove(dialog.windowHandle(), cells.mapTo(&dialog, Middle(cells, 12, 0)));
        const auto words = [&] {
            return QAccessible::queryAccessibleInterface(&cells)
                ->text(QAccessible::Description)
                .toStdString();
        };
        EXPECT_EQ(words(), "red: red 255, green 0, blue 0");
        QTest::keyClick(&cells, Qt::Key_Right);
        EXPECT_EQ(words(), "magenta: red 255, green 0, blue 255");
    });
}

} // namespace
} // namespace quelmont
