// The parameters of a map file in their real window. Runs once per ratio.

#include "desktop/desktop_fixture.h"
#include "desktop/map_file_dialogs.h"

#include "core/map_design.h"
#include "desktop/grid_table.h"
#include "dialogs/files/input_file_params.h"
#include "mapfiles/feature_rows.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

TEST_F(MapFileDialogs, TypeIsChosenByAPressAndNotByHovering) {
    InputFileEntry entry = NewMapFileEntry("/a.map");
    OpenParameters(entry, [&](QDialog& dialog) {
        GridTable& types = Types(dialog);
        QTest::mouseMove(types.viewport(), Middle(types, 4, 0));
        QCoreApplication::processEvents();
        EXPECT_EQ(types.currentRow(), 0);
        QTest::mousePress(types.viewport(), Qt::LeftButton, {}, Middle(types, 2, 0));
        EXPECT_EQ(Features(dialog).horizontalHeaderItem(0)->text(), QStringLiteral("Symbol Radius"));
        EXPECT_EQ(Features(dialog).item(0, 0)->text(), QStringLiteral("0003"));
        EXPECT_EQ(Features(dialog).item(0, 2)->text(), QStringLiteral("0001"));
        QTest::mouseMove(types.viewport(), Middle(types, 6, 0));
        QTest::mouseRelease(types.viewport(), Qt::LeftButton, {}, Middle(types, 6, 0));
        EXPECT_EQ(types.currentRow(), 2) << "where the mouse was pressed";
        Click(dialog, "OK");
    });
    EXPECT_EQ(entry.MapFileType, SymbolPlus);
}

TEST_F(MapFileDialogs, ArrowKeysStopAtTheEndsOfTheTypes) {
    InputFileEntry entry = NewMapFileEntry("/a.map");
    OpenParameters(entry, [&](QDialog& dialog) {
        QTest::keyClick(&Types(dialog), Qt::Key_Up);
        EXPECT_EQ(Types(dialog).currentRow(), 0);
        for (int i = 0; i < 15; ++i) {
            QTest::keyClick(&Types(dialog), Qt::Key_Down);
        }
        EXPECT_EQ(Types(dialog).currentRow(), 11);
        CloseBy(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(entry.MapFileType, SymbolFilledCircle);
}

TEST_F(MapFileDialogs, ClickOnANameShowsOrHidesItsRow) {
    InputFileEntry entry = NewMapFileEntry("/a.map");
    OpenParameters(entry, [&](QDialog& dialog) {
        GridTable& grid = Features(dialog);
        const auto words = [&] { return grid.item(2, 3)->data(Qt::AccessibleTextRole).toString(); };
        ClickCell(grid, 2, 3);
        EXPECT_EQ(grid.item(2, 3)->foreground().color(), QColor(192, 192, 192));
        EXPECT_EQ(words(), QStringLiteral("Lakes, not shown"));
        ClickCell(grid, 2, 3);
        EXPECT_EQ(words(), QStringLiteral("Lakes, shown"));
        EXPECT_EQ(grid.item(2, 3)->foreground().style(), Qt::NoBrush) << "the colour of all texts";
        ClickCell(grid, 4, 3);
        Click(dialog, "OK");
    });
    EXPECT_TRUE(entry.Features[3].Shown);
    EXPECT_FALSE(entry.Features[5].Shown);
}

TEST_F(MapFileDialogs, CheckBoxesShowWhatIsDrawn) {
    InputFileEntry entry = NewMapFileEntry("a.map");
    entry.Features[2].Shown = false;
    OpenParameters(entry, [&](QDialog& dialog) {
        GridTable& features = Features(dialog);
        const auto checks = [&] {
            std::vector<bool> checked;
            for (int row = 0; row < features.rowCount(); ++row) {
                checked.push_back(features.item(row, 3)->checkState() == Qt::Checked);
                EXPECT_FALSE(features.item(row, 1)->data(Qt::CheckStateRole).isValid());
            }
            return checked;
        };
        std::vector<bool> expected(10, true);
        expected[1] = false;
        EXPECT_EQ(checks(), expected);
        // A click on the box itself turns it once.
        const QPoint box = features.visualItemRect(features.item(0, 3)).topLeft() + QPoint(8, 8);
        QTest::mouseClick(features.viewport(), Qt::LeftButton, {}, box);
        expected[0] = false;
        EXPECT_EQ(checks(), expected);
        Click(dialog, "HideAll");
        EXPECT_EQ(checks(), std::vector<bool>(10, false));
        EXPECT_TRUE(features.hasFocus());
        QTest::keyClick(&features, Qt::Key_Space); // the name of row 1
        EXPECT_TRUE(checks()[0]);
        QTest::keyClick(&dialog, Qt::Key_S, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return checks() == std::vector<bool>(10, true); }));
        QTest::keyClick(&dialog, Qt::Key_H, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return checks() == std::vector<bool>(10, false); }));
        Click(dialog, "OK");
    });
    EXPECT_FALSE(entry.Features[1].Shown || entry.Features[10].Shown);
}

TEST_F(MapFileDialogs, CellsOfColorsShowThem) {
    InputFileEntry entry = NewMapFileEntry("/a.map");
    OpenParameters(entry, [&](QDialog& dialog) {
        const GridTable& grid = Features(dialog);
        const QImage seen = grid.viewport()->grab().toImage();
        const double ratio = seen.devicePixelRatio();
        const auto colorAt = [&](int row) {
            const QPoint place = Middle(grid, row, 1) * ratio;
            return seen.pixelColor(place).name().toStdString();
        };
        EXPECT_EQ(colorAt(0), "#008000");
        EXPECT_EQ(colorAt(2), "#0000ff");
        EXPECT_EQ(colorAt(4), "#ff0000");
        EXPECT_EQ(colorAt(9), "#800000");
    });
}

TEST_F(MapFileDialogs, ClickOnAColorOpensThePicker) {
    InputFileEntry entry = NewMapFileEntry("/a.map");
    OpenParameters(entry, [&](QDialog& dialog) {
        InDialog("Colors256", [](QDialog& picker) {
            QWidget* cells = picker.focusWidget();
            const int cell = cells->height() / 16;
            QTest::mouseClick(cells, Qt::LeftButton, {}, QPoint(cell / 2, cell + cell / 2));
        });
        ClickCell(Features(dialog), 6, 1);
        Return(dialog);
        EXPECT_TRUE(Features(dialog).hasFocus());
        CloseBy(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(entry.Features[7].Color, SolidColor(Rgb(0, 0, 0))) << "the first cell of the second row";
    EXPECT_EQ(entry.Features[6].Color, SolidColor(Rgb(255, 0, 255)));
}

TEST_F(MapFileDialogs, ClickOnASizeAsksForIt) {
    InputFileEntry entry = NewMapFileEntry("/a.map");
    OpenParameters(entry, [&](QDialog& dialog) {
        InDialog("SymbolSizeSpin", [](QDialog& spin) {
            EXPECT_EQ(spin.windowTitle(), QStringLiteral("Line Width"));
            auto* field = spin.findChild<QSpinBox*>("SymbolSize");
            EXPECT_EQ(field->maximum(), 600);
            EXPECT_EQ(spin.findChild<QLabel*>("SymbolSizeCaption")->text(), QStringLiteral("Line &Width:"));
            EXPECT_EQ(spin.findChild<QLabel*>("SizeUnit")->text(), QStringLiteral("Size in pixels"));
            field->setValue(7);
            Click(spin, "ButtonOK");
        });
        ClickCell(Features(dialog), 1, 0);
        EXPECT_EQ(Features(dialog).item(1, 0)->text(), QStringLiteral("0007"));
        AnswerNext("SymbolSizeSpin", Qt::Key_Escape);
        ClickCell(Features(dialog), 1, 0);
        EXPECT_EQ(Features(dialog).item(1, 0)->text(), QStringLiteral("0007"));
        ClickCell(Features(dialog), 1, 2); // an empty border
        EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
    });
}

TEST_F(MapFileDialogs, FourteenFeaturesAreSeenAtOnceAndTheOthersByScrolling) {
    InputFileEntry entry = NewMapFileEntry("/a.grf");
    OpenParameters(entry, [&](QDialog& dialog) {
        GridTable& grid = Features(dialog);
        EXPECT_EQ(grid.rowAt(grid.viewport()->height() - 2), 13);
        for (int i = 0; i < 71; ++i) {
            QTest::keyClick(&grid, Qt::Key_Down);
        }
        EXPECT_EQ(grid.currentRow(), 71);
        EXPECT_TRUE(grid.viewport()->rect().contains(Middle(grid, 71, 3)));
        QTest::keyClick(&grid, Qt::Key_Space);
        EXPECT_EQ(Types(dialog).verticalScrollBar()->maximum(), 0) << "all types are seen";
        Click(dialog, "OK");
    });
    EXPECT_FALSE(entry.Features[72].Shown);
    EXPECT_TRUE(entry.Features[71].Shown);
}

TEST_F(MapFileDialogs, TableThatIsTooWideScrolls) {
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPointSizeF(before.pointSizeF() * 3.0);
    QApplication::setFont(font);
    InputFileEntry entry = NewMapFileEntry("/a.grf");
    OpenParameters(entry, [&](QDialog& dialog) {
        const GridTable& grid = Features(dialog);
        EXPECT_GT(grid.horizontalScrollBar()->maximum(), 0);
        EXPECT_LE(grid.width(), dialog.screen()->availableGeometry().width() * 3 / 5);
        EXPECT_EQ(grid.rowAt(grid.viewport()->height() - 2), 13) << "the bar takes no row's place";
    });
    QApplication::setFont(before);
}

TEST_F(MapFileDialogs, LongNameOfAFileKeepsItsEnd) {
    const std::string name = "/" + std::string(300, 'm') + "/end of it.map";
    InputFileEntry entry = NewMapFileEntry(name);
    OpenParameters(entry, [&](QDialog& dialog) {
        const auto* label = dialog.findChild<QLabel*>("MapFile");
        EXPECT_TRUE(label->text().startsWith(QStringLiteral("Map File: ...m")))
            << label->text().toStdString();
        EXPECT_TRUE(label->text().endsWith(QStringLiteral("mm/end of it.map")));
        EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->contentsRect().width());
        EXPECT_EQ(label->toolTip().toStdString(), name);
        EXPECT_LT(dialog.width(), 800) << "the name does not widen the window";
    });
    entry = NewMapFileEntry("/short.map");
    OpenParameters(entry, [&](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLabel*>("MapFile")->text(), QStringLiteral("Map File: /short.map"));
    });
}

TEST_F(MapFileDialogs, SymbolsLookAsTheyArePlotted) {
    InputFileEntry entry = NewMapFileEntry("/a.map");
    OpenParameters(entry, [&](QDialog& dialog) {
        const GridTable& types = Types(dialog);
        const QImage seen = types.viewport()->grab().toImage();
        const double ratio = seen.devicePixelRatio();
        const auto dark = [&](int row) {
            const QRect cell = types.visualItemRect(types.item(row, 0));
            int count = 0;
            for (int y = qRound(cell.top() * ratio); y < qRound(cell.bottom() * ratio); ++y) {
                for (int x = 0; x < qRound(2.0 * cell.height() * ratio); ++x) {
                    count += seen.pixelColor(x, y).lightness() < 64 ? 1 : 0;
                }
            }
            return count;
        };
        EXPECT_GT(dark(SymbolDot - 1), 10);
        for (int filled = SymbolFilledSquare; filled <= SymbolFilledCircle; filled += 2) {
            EXPECT_GT(dark(filled - 1), 2 * dark(filled - 2)) << filled;
        }
        // A square of 0.72 heights of its side, to a pixel at each edge.
        const double side = 0.72 * (types.visualItemRect(types.item(5, 0)).height() - 2) * ratio;
        EXPECT_NEAR(dark(SymbolFilledSquare - 1), side * side, 4.0 * side);
    });
}

TEST_F(MapFileDialogs, GridsAreReadOut) {
    InputFileEntry entry = NewMapFileEntry("/a.map");
    OpenParameters(entry, [&](QDialog& dialog) {
        QAccessibleInterface* grid = QAccessible::queryAccessibleInterface(&Features(dialog));
        EXPECT_EQ(grid->text(QAccessible::Name), QStringLiteral("Geographic Features"));
        ASSERT_NE(grid->tableInterface(), nullptr);
        EXPECT_EQ(grid->tableInterface()->cellAt(2, 3)->text(QAccessible::Name),
                  QStringLiteral("Lakes, shown"));
        EXPECT_EQ(grid->tableInterface()->cellAt(2, 1)->text(QAccessible::Name),
                  QStringLiteral("blue: red 0, green 0, blue 255"));
        QAccessibleInterface* types = QAccessible::queryAccessibleInterface(&Types(dialog));
        EXPECT_EQ(types->text(QAccessible::Name), QStringLiteral("Symbol Type"));
        EXPECT_EQ(types->tableInterface()->cellAt(2, 0)->text(QAccessible::Name), QStringLiteral("Plus"));
    });
}

TEST_F(MapFileDialogs, DrawnMapFollowsTheParameters) {
    OpenList([&](QDialog& dialog) {
        List(dialog).setCurrentRow(0);
        InDialog("InputFileParams", [](QDialog& parameters) {
            ClickCell(Features(parameters), 0, 3); // no coastlines
            ClickCell(Features(parameters), 1, 3); // and no islands, the other green
            Click(parameters, "OK");
        });
        Click(dialog, "InputFileEdit");
        Click(dialog, "OK");
    });
    const auto hasGreen = [&] {
        const QImage picture = Picture();
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixel(x, y) == qRgb(0, 128, 0)) {
                    return true;
                }
            }
        }
        return false;
    };
    DrawByKeys();
    EXPECT_FALSE(hasGreen());
    Design.InputFiles[0].Features[1].Shown = true;
    DrawByKeys();
    EXPECT_TRUE(hasGreen());
}

} // namespace
} // namespace quelmont
