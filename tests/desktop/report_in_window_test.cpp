#include "desktop/desktop_fixture.h"
#include "support/temporary_folder.h"

#include "core/map_design.h"
#include "mainwindow/main_menu.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::IsEmpty;
using testing::StartsWith;

class ReportInWindow : public DesktopTest {
protected:
    ReportInWindow() { Start(); }

    /// Opens the parameter report, does something with it, closes it.
    void Report(const std::function<void(QDialog&, QTextEdit&)>& action) {
        InDialog([&](QDialog& dialog) {
            auto* box = dialog.findChild<QTextEdit*>("ReportRtb");
            ASSERT_NE(box, nullptr);
            action(dialog, *box);
            dialog.reject();
        });
        Window().Action(Menu::mnuDesign, ParameterReportItem)->trigger();
    }
    /// Chooses "Save" with a name and a line of the list of filters.
    void SaveAs(QDialog& dialog, const std::string& name, int filter) {
        InDialog([&](QDialog& files) {
            auto* types = files.findChild<QComboBox*>("fileTypeCombo");
            types->setCurrentIndex(filter);
            emit types->activated(filter);
            auto* edit = files.findChild<QLineEdit*>("fileNameEdit");
            edit->setText(QString::fromStdString(name));
            QTest::keyClick(edit, Qt::Key_Return);
        });
        dialog.findChild<QMenu*>("mnuOptions")->actions().at(2)->trigger();
    }
};

TEST_F(ReportInWindow, CellsBeginWhereTheirColumnsAre) {
    Report([](QDialog& /*dialog*/, QTextEdit& box) {
        int cells = 0;
        for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
            const QList<QTextOption::Tab> stops = block.blockFormat().tabPositions();
            const QStringList parts = block.text().split(QLatin1Char('\t'));
            ASSERT_EQ(parts.size(), stops.size() + 1) << block.text().toStdString();
            qsizetype begin = 0;
            for (qsizetype i = 0; i < stops.size(); ++i) {
                begin += parts[i].size() + 1;
                const QTextLine line = block.layout()->lineAt(0);
                EXPECT_NEAR(line.cursorToX(static_cast<int>(begin)) - line.cursorToX(0), stops[i].position,
                            1.0)
                    << block.text().toStdString();
                ++cells;
            }
        }
        EXPECT_GT(cells, 50);
        EXPECT_TRUE(box.toPlainText().contains(QStringLiteral("\nProjection Type: Equirectangular\n")));
        EXPECT_TRUE(box.isReadOnly());
    });
}

TEST_F(ReportInWindow, ColumnsStandInLettersOfEverySize) {
    for (const int size : {4, 9, 36, 200}) {
        Design.Fonts[ReportFontSlot] = {.FontName = "Liberation Serif", .FontSize = size, .FontItalic = true};
        Report([&](QDialog& dialog, QTextEdit& box) {
            const QTextBlock block = box.document()->find(QStringLiteral("Southernmost")).block();
            const QTextLine line = block.layout()->lineAt(0);
            const auto begin = static_cast<int>(block.text().indexOf(QLatin1Char('\t'))) + 1;
            EXPECT_NEAR(line.cursorToX(begin) - line.cursorToX(0),
                        block.blockFormat().tabPositions().at(0).position, 1.0)
                << size;
            EXPECT_LE(dialog.width(), dialog.screen()->availableGeometry().width());
            EXPECT_LE(dialog.height(), dialog.screen()->availableGeometry().height());
        });
    }
}

TEST_F(ReportInWindow, KeysMoveIt) {
    Report([](QDialog& dialog, QTextEdit& box) {
        const QScrollBar& bar = *box.verticalScrollBar();
        ASSERT_GT(bar.maximum(), 0);
        EXPECT_EQ(bar.value(), 0);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_PageDown);
        EXPECT_GT(bar.value(), 0);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_End);
        EXPECT_EQ(bar.value(), bar.maximum());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Home);
        EXPECT_EQ(bar.value(), 0);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
        EXPECT_GT(bar.value(), 0);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(bar.value(), bar.maximum());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Home, Qt::ControlModifier);
        EXPECT_EQ(bar.value(), 0);
        EXPECT_EQ(dialog.focusWidget()->objectName(), QStringLiteral("Close"));
    });
}

TEST_F(ReportInWindow, DialogFollowsTheSizeOfItsLetters) {
    Design.Fonts[ReportFontSlot] = {.FontName = "Liberation Serif", .FontSize = 6};
    Report([&](QDialog& dialog, QTextEdit& box) {
        const QRect screen = dialog.screen()->availableGeometry();
        const int small = box.width();
        dialog.move(screen.topRight() - QPoint(dialog.frameGeometry().width(), 0));
        InDialog([](QDialog& fonts) {
            fonts.findChild<QComboBox*>("comFontSize")->setEditText("9");
            QTest::keyClick(fonts.focusWidget(), Qt::Key_Return);
        });
        dialog.findChild<QMenu*>("mnuOptions")->actions().at(1)->trigger();
        QTest::qWait(50);
        EXPECT_EQ(Design.Fonts[ReportFontSlot].FontSize, 9);
        EXPECT_NEAR(box.width(), small * 9.0 / 6.0, small * 0.2);
        EXPECT_EQ(box.horizontalScrollBar()->maximum(), 0);
        EXPECT_TRUE(screen.contains(dialog.frameGeometry()));
    });
}

TEST_F(ReportInWindow, ExtensionFollowsTheFilter) {
    Report([&](QDialog& dialog, QTextEdit& /*box*/) {
        SaveAs(dialog, folder / "plain", 1);
        SaveAs(dialog, folder / "rich", 0);
    });
    EXPECT_THAT(boxes.asked, IsEmpty());
    ASSERT_THAT(folder.Names(), testing::UnorderedElementsAre("Qmnt4.map", "plain.txt", "rich.rtf"));
    EXPECT_THAT(ReadWholeFile(folder / "plain.txt"), StartsWith("Quelmont Version "));
    EXPECT_THAT(ReadWholeFile(folder / "rich.rtf"), StartsWith("{\\rtf1"));
}

TEST_F(ReportInWindow, ExistingFileIsReplacedOnlyAfterAQuestion) {
    WriteWholeFile(folder / "a.txt", "earlier");
    Report([&](QDialog& dialog, QTextEdit& /*box*/) {
        InDialog([&](QDialog& files) {
            auto* types = files.findChild<QComboBox*>("fileTypeCombo");
            types->setCurrentIndex(1);
            emit types->activated(1);
            auto* edit = files.findChild<QLineEdit*>("fileNameEdit");
            edit->setText(QString::fromStdString(folder / "a"));
            InDialog([&files](QDialog& question) {
                auto* box = qobject_cast<QMessageBox*>(&question);
                ASSERT_NE(box, nullptr) << "it asks about the name with its extension";
                box->button(QMessageBox::No)->click();
                QTimer::singleShot(0, &files, &QDialog::reject);
            });
            QTest::keyClick(edit, Qt::Key_Return);
        });
        dialog.findChild<QMenu*>("mnuOptions")->actions().at(2)->trigger();
    });
    EXPECT_EQ(ReadWholeFile(folder / "a.txt"), "earlier");
}

} // namespace
} // namespace quelmont
