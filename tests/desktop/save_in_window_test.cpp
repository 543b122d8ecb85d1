// Saving the map from the File menu of the real window, through its file dialogs.

#include "desktop/desktop_fixture.h"

#include "core/map_design.h"
#include "mainwindow/main_menu.h"

#include <QAction>
#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace quelmont {
namespace {

using testing::IsEmpty;
using testing::StartsWith;

class SaveInWindow : public DesktopTest {
protected:
    SaveInWindow() { Start(); }

    /// Types a name into the file dialog that comes, and accepts it.
    void TypeName(const std::string& name) {
        InDialog([name](QDialog& dialog) {
            ASSERT_NE(qobject_cast<QFileDialog*>(&dialog), nullptr);
            auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
            edit->setText(QString::fromStdString(name));
            QTest::keyClick(edit, Qt::Key_Return);
        });
    }
    void Choose(int item) { Window().Action(Menu::mnuInput, item)->trigger(); }
};

TEST_F(SaveInWindow, EachFormatGetsItsExtensionAndLeavesThePicture) {
    DrawByKeys();
    const QImage drawn = Picture();
    struct Format {
        int item;
        const char* extension;
        const char* begins;
    };
    for (const Format& format : {Format{5, "bmp", "BM"}, Format{6, "cgm", ""}, Format{7, "dxf", "  0\r\n"},
                                 Format{8, "wmf", "\xD7\xCD\xC6\x9A"}, Format{19, "png", "\x89PNG\r\n"},
                                 Format{20, "svg", "<?xml"}}) {
        TypeName(folder / "map");
        Choose(format.item);
        const std::string name = folder / ("map." + std::string(format.extension));
        ASSERT_TRUE(std::filesystem::exists(name)) << name;
        EXPECT_THAT(ReadWholeFile(name), StartsWith(format.begins));
        EXPECT_EQ(Picture(), drawn) << "the export draws the same map once more";
    }
    EXPECT_THAT(boxes.asked, IsEmpty());
    ExpectIdle();
}

TEST_F(SaveInWindow, BitmapHasThePixelsOfTheWindow) {
    DrawByKeys();
    TypeName(folder / "map.bmp");
    Choose(5);
    const QImage saved =
        QImage(QString::fromStdString(folder / "map.bmp")).convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(saved, Picture().convertToFormat(QImage::Format_RGB32));
}

TEST_F(SaveInWindow, PngHasThePixelsOfTheWindowItsResolutionItsTitleAndTheProgram) {
    DrawByKeys();
    TypeName(folder / "map.png");
    Choose(19);
    const QImage saved(QString::fromStdString(folder / "map.png"));
    EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32), Picture().convertToFormat(QImage::Format_RGB32));
    EXPECT_EQ(saved.dotsPerMeterX(), 3780); // 96 pixels in 0.0254 m
    EXPECT_EQ(saved.dotsPerMeterY(), 3780);
    EXPECT_EQ(saved.text(QStringLiteral("Title")), QStringLiteral("Outline map"));
    EXPECT_EQ(saved.text(QStringLiteral("Software")), QStringLiteral("Quelmont 3.00"));
}

TEST_F(SaveInWindow, CopiedMapIsOnTheClipboardAsPngAndSvgAndStaysInTheWindow) {
    DrawByKeys();
    const QImage drawn = Picture();
    Window().Action(Menu::mnuEdit, CopyMapItem)->trigger();
    const QMimeData* const copied = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(QImage::fromData(copied->data(QStringLiteral("image/png")), "PNG")
                  .convertToFormat(QImage::Format_RGB32),
              drawn.convertToFormat(QImage::Format_RGB32));
    const QByteArray svg = copied->data(QStringLiteral("image/svg+xml"));
    EXPECT_TRUE(svg.startsWith("<?xml"));
    EXPECT_TRUE(svg.endsWith("</svg>\n"));
    EXPECT_TRUE(svg.contains("<title>Coastlines</title>"));
    EXPECT_EQ(Picture(), drawn);
    EXPECT_THAT(boxes.asked, IsEmpty());
    ExpectIdle();
}

TEST_F(SaveInWindow, ExistingFileIsReplacedOnlyAfterAQuestion) {
    WriteWholeFile(folder / "map.dxf", "earlier");
    InDialog([this](QDialog& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
        edit->setText(QString::fromStdString(folder / "map"));
        InDialog([&dialog](QDialog& question) {
            auto* box = qobject_cast<QMessageBox*>(&question);
            ASSERT_NE(box, nullptr) << "it asks about the name with its extension";
            box->button(QMessageBox::No)->click();
            QTimer::singleShot(0, &dialog, &QDialog::reject);
        });
        QTest::keyClick(edit, Qt::Key_Return);
    });
    Choose(7);
    EXPECT_EQ(ReadWholeFile(folder / "map.dxf"), "earlier");
    EXPECT_EQ(clock.beeps, 0);
}

TEST_F(SaveInWindow, QuestionIsAboutTheNameThatWillBeWritten) {
    for (const auto& [item, extension] : {std::pair{5, "bmp"}, std::pair{6, "cgm"}, std::pair{7, "dxf"},
                                          std::pair{8, "wmf"}, std::pair{19, "png"}, std::pair{20, "svg"}}) {
        const std::string name = folder / ("coast.v2." + std::string(extension));
        WriteWholeFile(name, "earlier");
        QString text;
        InDialog([&](QDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
            edit->setText(QString::fromStdString(folder / "coast.v2"));
            InDialog([&](QDialog& question) {
                auto* box = qobject_cast<QMessageBox*>(&question);
                ASSERT_NE(box, nullptr) << name;
                text = box->text();
                box->button(QMessageBox::No)->click();
                EXPECT_TRUE(dialog.isVisible()) << "for another name";
                QTimer::singleShot(0, &dialog, &QDialog::reject);
            });
            QTest::keyClick(edit, Qt::Key_Return);
        });
        Choose(item);
        EXPECT_TRUE(text.startsWith(QStringLiteral("coast.v2.") + QLatin1String(extension))) << name;
        EXPECT_EQ(ReadWholeFile(name), "earlier");
    }
    EXPECT_EQ(clock.beeps, 0);
}

TEST_F(SaveInWindow, FileOfTheNameWithoutItsExtensionIsNotAskedAbout) {
    WriteWholeFile(folder / "coast.v2", "another file");
    TypeName(folder / "coast.v2");
    Choose(7);
    EXPECT_EQ(ReadWholeFile(folder / "coast.v2"), "another file");
    EXPECT_TRUE(std::filesystem::exists(folder / "coast.v2.dxf"));
}

TEST_F(SaveInWindow, BitmapBeforeTheFirstDrawIsABlankArea) {
    TypeName(folder / "map.bmp");
    Choose(5);
    const QImage saved(QString::fromStdString(folder / "map.bmp"));
    EXPECT_EQ(saved.size(), Window().Area().DeviceSize());
    QImage blank = saved;
    blank.fill(Qt::white);
    EXPECT_EQ(saved, blank);
    EXPECT_FALSE(Window().Area().HasPicture()) << "the hint stays";
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(SaveInWindow, EscapeInTheFileDialogDoesNothing) {
    InDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    Choose(6);
    EXPECT_EQ(clock.beeps, 0);
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(SaveInWindow, AsciiNamesAreGivenByKeysAlone) {
    InDialog([this](QDialog& dialog) {
        ASSERT_EQ(dialog.objectName(), QStringLiteral("AscOutput"));
        auto* files = dialog.findChild<QTableWidget*>("AscGrid");
        EXPECT_TRUE(files->hasFocus());
        TypeName(folder / "grid");
        QTest::keyClick(files, Qt::Key_Space);
        QTest::keyClick(files, Qt::Key_Down);
        TypeName(folder / "world");
        QTest::keyClick(files, Qt::Key_Space);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    Window().Action(Menu::mnuInput, 9)->trigger();
    EXPECT_TRUE(std::filesystem::exists(folder / "grid.txt"));
    EXPECT_TRUE(std::filesystem::exists(folder / "world.txt"));
    EXPECT_EQ(clock.beeps, 1);
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(SaveInWindow, EscapeInTheDrawKeepsTheEarlierFile) {
    WriteWholeFile(folder / "map.cgm", "earlier");
    pump->At(20, [this] { QTest::keyClick(&Window(), Qt::Key_Escape); });
    InDialog([this](QDialog& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
        edit->setText(QString::fromStdString(folder / "map.cgm"));
        InDialog([](QDialog& question) {
            dynamic_cast<QMessageBox&>(question).button(QMessageBox::Yes)->click();
        });
        QTest::keyClick(edit, Qt::Key_Return);
    });
    Choose(6);
    EXPECT_EQ(ReadWholeFile(folder / "map.cgm"), "earlier");
    EXPECT_EQ(clock.beeps, 0);
    ExpectIdle();
}

} // namespace
} // namespace quelmont
