// The map on pages, from the File menu of the real window through its dialogs.

#include "desktop/desktop_fixture.h"

#include "core/map_design.h"
#include "mainwindow/map_draw.h"
#include "support/scripted_printer.h"

#include <QAction>
#include <QCheckBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace quelmont {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

class PrintInWindow : public DesktopTest {
protected:
    PrintInWindow() {
        Start();
        realPrinters = std::exchange(Machine().printers, &printers);
    }

    void Choose(int item) { Window().Action(Menu::mnuInput, item)->trigger(); }
    static QLineEdit* Field(const QDialog& dialog, const char* name) {
        return dialog.findChild<QLineEdit*>(QLatin1String(name));
    }
    static std::string TextOf(const QDialog& dialog, const char* name) {
        return Field(dialog, name)->text().toStdString();
    }
    /// Types into a field and leaves it.
    static void Type(const QDialog& dialog, const char* name, const char* keys) {
        QLineEdit* const field = Field(dialog, name);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, keys);
        QTest::keyClick(field, Qt::Key_Tab);
        QCoreApplication::processEvents();
    }
    static void PressOk(const QDialog& dialog) {
        QTest::mouseClick(dialog.findChild<QPushButton*>("OK"), Qt::LeftButton);
    }
    /// Types a name into the file dialog that comes, and accepts it.
    void TypeName(const std::string& name) {
        InDialog([name](QDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
            ASSERT_NE(edit, nullptr);
            edit->setText(QString::fromStdString(name));
            QTest::keyClick(edit, Qt::Key_Return);
        });
    }

    ScriptedPrinters printers;
    Printers* realPrinters = nullptr;
};

TEST_F(PrintInWindow, ItemsThatPrintAreGrayWithoutAPrinter) {
    for (const bool any : {true, false}) {
        printers.any = any;
        QMenu* const file = Window().Action(Menu::mnuBar, 0)->menu();
        emit file->aboutToShow();
        EXPECT_EQ(Window().Action(Menu::mnuInput, 2)->isEnabled(), any);
        EXPECT_EQ(Window().Action(Menu::mnuInput, 3)->isEnabled(), any);
        EXPECT_TRUE(Window().Action(Menu::mnuInput, 18)->isEnabled());
    }
}

TEST_F(PrintInWindow, WhatIsTypedIsPrinted) {
    printers.any = true;
    InDialog([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Print Map on Scripted printer");
        dialog.findChild<QCheckBox*>("HorizontalMap")->click();
        dialog.findChild<QCheckBox*>("VerticalMap")->click();
        EXPECT_TRUE(Field(dialog, "LeftMap")->isEnabled());
        Type(dialog, "WidthMap", "4");
        EXPECT_EQ(TextOf(dialog, "WidthMap"), "004.00");
        Type(dialog, "LeftMap", "1.5");
        Type(dialog, "TopMap", "0.75");
        EXPECT_EQ(TextOf(dialog, "LeftMap"), "001.50");
        EXPECT_EQ(TextOf(dialog, "TopMap"), "000.75");
        EXPECT_EQ(TextOf(dialog, "WidthMap"), "004.00");
        PressOk(dialog);
    });
    Choose(2);
    EXPECT_THAT(boxes.asked, IsEmpty());
    ASSERT_FALSE(printers.printer.log.empty());
    // 450 and 225 dots from the paper's corner, 1200 wide.
    EXPECT_THAT(printers.printer.log[1], StartsWith("SelectClip 450 225 1652 "));
    EXPECT_EQ(printers.printer.log.back(), "Close");
    EXPECT_THAT(printers.printer.log, Contains("EndDoc"));
    ExpectIdle();
}

TEST_F(PrintInWindow, MarginsOfACentredMapFollowWhatIsTyped) {
    printers.any = true;
    InDialog([](QDialog& dialog) {
        Type(dialog, "WidthMap", "4");
        // 2480 dots are 8.2667 inches.
        EXPECT_EQ(TextOf(dialog, "LeftMap"), "002.13");
        EXPECT_FALSE(Field(dialog, "LeftMap")->isEnabled());
        dialog.findChild<QRadioButton*>("Centimeters")->click();
        EXPECT_EQ(dialog.findChild<QGroupBox*>("MapMargins")->title(), "Map Margins (cm)");
        EXPECT_EQ(TextOf(dialog, "WidthMap"), "010.16");
        EXPECT_EQ(TextOf(dialog, "LeftMap"), "005.42");
        dialog.reject();
    });
    Choose(2);
    EXPECT_EQ(Design.PrintUnitTwips, 1440);
    EXPECT_THAT(printers.printer.log, IsEmpty());
}

TEST_F(PrintInWindow, RefusalLeavesTheDialogOpen) {
    printers.any = true;
    InDialog([this](QDialog& dialog) {
        Type(dialog, "WidthMap", "20");
        PressOk(dialog);
        EXPECT_EQ(boxes.Taken().at(0).title, "Error: Map width too large");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(Field(dialog, "WidthMap")->hasFocus());
        dialog.reject();
    });
    Choose(2);
}

TEST_F(PrintInWindow, PdfIsWrittenAndThePictureStays) {
    Machine().printers = realPrinters;
    DrawByKeys();
    const QImage drawn = Picture();
    InDialog([this](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Print Map on PDF");
        dialog.findChild<QListWidget*>("PaperList")->setCurrentRow(2);
        EXPECT_EQ(TextOf(dialog, "LeftMap"), "002.60") << "in the middle of 297 mm";
        TypeName(folder / "map");
        PressOk(dialog);
    });
    Choose(18);
    EXPECT_THAT(boxes.asked, IsEmpty());
    const std::string bytes = ReadWholeFile(folder / "map.pdf");
    EXPECT_THAT(bytes, StartsWith("%PDF-"));
    EXPECT_THAT(bytes, EndsWith("%%EOF\n"));
    EXPECT_EQ(Picture(), drawn);
    ExpectIdle();
}

TEST_F(PrintInWindow, StoppedPdfLeavesTheFileThatWasThere) {
    Machine().printers = realPrinters;
    std::filesystem::create_directory(folder / "pdf");
    for (const int turn : {1, 5, 20}) {
        InDialog([this](QDialog& dialog) {
            TypeName(folder / "pdf/map");
            PressOk(dialog);
        });
        pump->At(turn, EscapeKey);
        Choose(18);
        EXPECT_TRUE(std::filesystem::is_empty(folder / "pdf")) << turn;
        EXPECT_THAT(boxes.asked, IsEmpty());
        ExpectIdle();
    }
}

} // namespace
} // namespace quelmont
