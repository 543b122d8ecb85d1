// The list of map files in its real window: keys, mouse, files that are chosen and dropped. Runs once per
// ratio.

#include "desktop/desktop_fixture.h"
#include "desktop/map_file_dialogs.h"

#include "core/map_design.h"
#include "desktop/grid_table.h"
#include "dialogs/files/input_file_params.h"
#include "mapfiles/feature_rows.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(MapFileDialogs, ListStandsBehindTheFileMenu) {
    EXPECT_TRUE(Window().Action(Menu::mnuInput, 0)->isEnabled());
    OpenList([&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Add or Edit Digital Map File"));
        EXPECT_THAT(Texts(List(dialog)), ElementsAre("01   " + worldMap, ""));
        EXPECT_TRUE(List(dialog).hasFocus());
        EXPECT_EQ(List(dialog).currentRow(), 1);
        EXPECT_FALSE(Button(dialog, "InputFileEdit").isEnabled());
        EXPECT_TRUE(Button(dialog, "OK").isDefault());
    });
    EXPECT_THAT(Names(), ElementsAre(worldMap));
}

TEST_F(MapFileDialogs, KeysAloneEditAFile) {
    OpenList([&](QDialog& dialog) {
        QTest::keyClick(&List(dialog), Qt::Key_Up);
        EXPECT_TRUE(Button(dialog, "InputFileEdit").isEnabled());
        bool edited = false;
        InDialog("InputFileParams", [&](QDialog& parameters) {
            EXPECT_TRUE(Types(parameters).hasFocus());
            QTest::keyClick(&Types(parameters), Qt::Key_Down); // dots
            QTest::keyClick(&parameters, Qt::Key_G, Qt::AltModifier);
            EXPECT_TRUE(Features(parameters).hasFocus());
            QTest::keyClick(&Features(parameters), Qt::Key_Down);
            QTest::keyClick(&Features(parameters), Qt::Key_Space); // the name of row 2
            QTest::keyClick(&Features(parameters), Qt::Key_Left);  // the border, which is empty
            QTest::keyClick(&Features(parameters), Qt::Key_Space);
            QTest::keyClick(&Features(parameters), Qt::Key_Left); // the colour
            InDialog("Colors256", [](QDialog& picker) {
                QTest::keyClick(picker.focusWidget(), Qt::Key_Home);
                QTest::keyClick(picker.focusWidget(), Qt::Key_Home);
                QTest::keyClick(picker.focusWidget(), Qt::Key_Return);
            });
            QTest::keyClick(&Features(parameters), Qt::Key_Space);
            Return(parameters);
            QTest::keyClick(&Features(parameters), Qt::Key_Left); // the radius
            InDialog("SymbolSizeSpin", [](QDialog& spin) {
                EXPECT_EQ(spin.windowTitle(), QStringLiteral("Symbol Radius"));
                QTest::keyClicks(spin.focusWidget(), "12");
                QTest::keyClick(spin.focusWidget(), Qt::Key_Return);
            });
            QTest::keyClick(&Features(parameters), Qt::Key_Space);
            EXPECT_EQ(Features(parameters).item(1, 0)->text(), QStringLiteral("0012"));
            CloseBy(parameters, Qt::Key_Return);
            edited = true;
        });
        QTest::keyClick(&dialog, Qt::Key_E, Qt::AltModifier); // the button is seen to go down first
        EXPECT_TRUE(QTest::qWaitFor([&] { return edited && QApplication::activeModalWidget() == &dialog; }));
        Return(dialog);
        EXPECT_TRUE(List(dialog).hasFocus());
        CloseBy(dialog, Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible());
    });
    const InputFileEntry& file = Design.InputFiles[0];
    EXPECT_EQ(file.MapFileType, SymbolDot);
    EXPECT_TRUE(file.Features[1].Shown);
    EXPECT_FALSE(file.Features[2].Shown);
    EXPECT_EQ(file.Features[2].Color, SolidColor(Rgb(0, 0, 0))) << "the first cell of the picker";
    EXPECT_EQ(file.Features[2].SymbolSize, static_cast<std::int16_t>(12 * Design.TwipsPerPixelY));
}

TEST_F(MapFileDialogs, DoubleClickOnAFileEditsIt) {
    OpenList([&](QDialog& dialog) {
        const QPoint place = List(dialog).visualItemRect(List(dialog).item(0)).center();
        QTest::mouseClick(List(dialog).viewport(), Qt::LeftButton, {}, place);
        bool edited = false;
        InDialog("InputFileParams", [&](QDialog& parameters) {
            edited = true;
            CloseBy(parameters, Qt::Key_Escape);
        });
        QTest::mouseDClick(List(dialog).viewport(), Qt::LeftButton, {}, place);
        EXPECT_TRUE(edited);
        EXPECT_TRUE(dialog.isVisible());
    });
}

TEST_F(MapFileDialogs, LastFileCanBeDeleted) {
    boxes.Answer(BoxAnswer::Yes);
    OpenList([&](QDialog& dialog) {
        List(dialog).setCurrentRow(0);
        Click(dialog, "InputFileDelete");
        EXPECT_THAT(Texts(List(dialog)), ElementsAre(""));
        EXPECT_FALSE(Button(dialog, "InputFileDelete").isEnabled());
        EXPECT_TRUE(List(dialog).hasFocus()) << "not on a button that can do nothing";
        Click(dialog, "OK");
    });
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(MapFileDialogs, EscapePutsTheListBack) {
    boxes.Answer(BoxAnswer::Yes);
    OpenList([&](QDialog& dialog) {
        List(dialog).setCurrentRow(0);
        Click(dialog, "InputFileDelete");
    });
    EXPECT_THAT(Names(), ElementsAre(worldMap));
}

/// The list with the world map and two files more.
class OrderOfFiles : public MapFileDialogs {
protected:
    OrderOfFiles() {
        Design.InputFiles.push_back(NewMapFileEntry("/b.map"));
        Design.InputFiles.push_back(NewMapFileEntry("/c.map"));
        Design.MapFileCount = 3;
    }
    static QPoint UpperHalf(QListWidget& list, int line) {
        return list.visualItemRect(list.item(line)).topLeft() + QPoint(20, 2);
    }
    /// Drags a line with the left button, lets it go and waits for what comes of it.
    static void Drag(QListWidget& list, int line, QPoint to) {
        QTest::mousePress(list.viewport(), Qt::LeftButton, {}, UpperHalf(list, line));
        Hold(list, UpperHalf(list, line) + QPoint(3 * QApplication::startDragDistance(), 0));
        Hold(list, to);
        EXPECT_TRUE(list.findChild<QWidget*>("DragBar")->isVisible());
        QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, to);
        EXPECT_FALSE(list.findChild<QWidget*>("DragBar")->isVisible());
        QApplication::processEvents();
    }
    /// The mouse moves with its left button down.
    static void Hold(QListWidget& list, QPoint to) {
        QMouseEvent move(QEvent::MouseMove, to, list.viewport()->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(list.viewport(), &move);
    }
};

TEST_F(OrderOfFiles, KeysMoveAFile) {
    OpenList([&](QDialog& dialog) {
        QTest::keyClick(&List(dialog), Qt::Key_Up); // c.map
        EXPECT_TRUE(Button(dialog, "MoveUp").isEnabled());
        EXPECT_FALSE(Button(dialog, "MoveDown").isEnabled());
        QTest::keyClick(&dialog, Qt::Key_U, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Names()[1] == "/c.map"; }));
        EXPECT_TRUE(QTest::qWaitFor([&] { return List(dialog).hasFocus(); }));
        EXPECT_EQ(List(dialog).currentRow(), 1);
        QTest::keyClick(&dialog, Qt::Key_U, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Names()[0] == "/c.map"; }));
        EXPECT_TRUE(QTest::qWaitFor([&] { return List(dialog).hasFocus(); }))
            << "its button can do nothing more";
        QTest::keyClick(&dialog, Qt::Key_W, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Names()[1] == "/c.map"; }));
        CloseBy(dialog, Qt::Key_Return);
    });
    EXPECT_THAT(Names(), ElementsAre(worldMap, "/c.map", "/b.map"));
}

TEST_F(OrderOfFiles, MouseDragsALine) {
    OpenList([&](QDialog& dialog) {
        QListWidget& list = List(dialog);
        Drag(list, 2, UpperHalf(list, 0));
        EXPECT_THAT(Texts(list), ElementsAre("01   /c.map", "02   " + worldMap, "03   /b.map", ""));
        EXPECT_EQ(list.currentRow(), 0);
        Drag(list, 0, QPoint(20, list.viewport()->height() - 2)); // below the lines
        EXPECT_THAT(Names(), ElementsAre(worldMap, "/b.map", "/c.map"));
        EXPECT_EQ(list.currentRow(), 2);
        Drag(list, 3, UpperHalf(list, 0)); // the blank line
        EXPECT_THAT(Names(), ElementsAre(worldMap, "/b.map", "/c.map"));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, UpperHalf(list, 1));
        EXPECT_EQ(list.currentRow(), 1) << "a press alone selects";
        Click(dialog, "MoveUp");
        Click(dialog, "OK");
    });
    EXPECT_THAT(Names(), ElementsAre("/b.map", worldMap, "/c.map"));
}

TEST_F(OrderOfFiles, EscapeLetsADraggedLineGoWhereItWas) {
    OpenList([&](QDialog& dialog) {
        QListWidget& list = List(dialog);
        QTest::mousePress(list.viewport(), Qt::LeftButton, {}, UpperHalf(list, 0));
        Hold(list, UpperHalf(list, 2));
        QTest::keyClick(&list, Qt::Key_Escape);
        EXPECT_TRUE(dialog.isVisible());
        QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, UpperHalf(list, 2));
        QApplication::processEvents();
        EXPECT_THAT(Names(), ElementsAre(worldMap, "/b.map", "/c.map"));
    });
}

TEST_F(OrderOfFiles, DeleteKeyDeletesAFile) {
    boxes.Answer(BoxAnswer::Yes);
    OpenList([&](QDialog& dialog) {
        QTest::keyClick(&List(dialog), Qt::Key_Delete);
        EXPECT_THAT(boxes.asked, IsEmpty()) << "on the blank line";
        List(dialog).setCurrentRow(1);
        QTest::keyClick(&List(dialog), Qt::Key_Delete);
        EXPECT_THAT(Texts(List(dialog)), ElementsAre("01   " + worldMap, "02   /c.map", ""));
        EXPECT_EQ(List(dialog).currentRow(), 1);
        Click(dialog, "OK");
    });
    EXPECT_THAT(Names(), ElementsAre(worldMap, "/c.map"));
}

TEST_F(MapFileDialogs, LongNamesKeepTheirEndAndAreWholeInATooltip) {
    const std::string name = "/" + std::string(200, 'w') + "/coast.map";
    Design.InputFiles[0].MapFileName = name;
    OpenList([&](QDialog& dialog) {
        const QListWidget& list = List(dialog);
        EXPECT_EQ(list.textElideMode(), Qt::ElideMiddle);
        EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0);
        EXPECT_LE(list.visualItemRect(list.item(0)).width(), list.viewport()->width())
            << "or nothing is elided";
        EXPECT_EQ(list.item(0)->text().toStdString(), "01   " + name);
        EXPECT_EQ(list.item(0)->toolTip().toStdString(), "01   " + name);
        EXPECT_LT(dialog.width(), 900);
    });
}

// ---- Files that are chosen

TEST_F(MapFileDialogs, SeveralFilesAreChosenAtOnceAndAddedInTheirOrder) {
    const std::string first = Make("b.map");
    const std::string second = Make("a.MAP");
    OpenList([&](QDialog& dialog) {
        InDialog("QFileDialog", [&](QDialog& files) {
            auto& chooser = dynamic_cast<QFileDialog&>(files);
            EXPECT_EQ(chooser.windowTitle(), QStringLiteral("Open Digital Map File"));
            EXPECT_EQ(chooser.parentWidget(), &dialog);
            EXPECT_EQ(chooser.directory().absolutePath().toStdString(), folder.Path());
            auto* name = chooser.findChild<QLineEdit*>("fileNameEdit");
            EXPECT_EQ(name->text(), QStringLiteral("Qmnt4.map"));
            name->setText(QStringLiteral("\"b.map\" \"a.MAP\""));
            InDialog("InputFileParams", [&](QDialog& parameters) {
                EXPECT_EQ(parameters.findChild<QLabel*>("MapFile")->toolTip().toStdString(), first);
                AnswerNext("InputFileParams", Qt::Key_Return);
                CloseBy(parameters, Qt::Key_Return);
            });
            QTest::keyClick(name, Qt::Key_Return);
        });
        Click(dialog, "InputFileAdd");
        EXPECT_THAT(Texts(List(dialog)),
                    ElementsAre("01   " + worldMap, "02   " + first, "03   " + second, ""));
        EXPECT_EQ(List(dialog).currentRow(), 3);
        Click(dialog, "OK");
    });
    EXPECT_THAT(Names(), ElementsAre(worldMap, first, second));
}

TEST_F(MapFileDialogs, CancelledChoiceAddsNothing) {
    OpenList([&](QDialog& dialog) {
        InDialog("QFileDialog", [](QDialog& files) { files.reject(); });
        Click(dialog, "InputFileAdd");
        EXPECT_EQ(List(dialog).count(), 2);
    });
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(MapFileDialogs, DroppedFilesAreAddedWhereTheyFall) {
    const std::string first = Make("b.map");
    const std::string second = Make("a \xC3\xB6.dat");
    OpenList([&](QDialog& dialog) {
        const QPoint firstLine = List(dialog).visualItemRect(List(dialog).item(0)).center();
        InDialog("InputFileParams", [&](QDialog& parameters) {
            EXPECT_EQ(parameters.findChild<QLabel*>("MapFile")->toolTip().toStdString(), first);
            AnswerNext("InputFileParams", Qt::Key_Return);
            CloseBy(parameters, Qt::Key_Return);
        });
        EXPECT_TRUE(Drop(List(dialog), firstLine, Files({first, second})));
        EXPECT_EQ(List(dialog).currentRow(), 0) << "the line under the mouse";
        EXPECT_TRUE(QTest::qWaitFor([&] { return List(dialog).count() == 4; }));
        EXPECT_THAT(Texts(List(dialog)),
                    ElementsAre("01   " + first, "02   " + second, "03   " + worldMap, ""));
        Click(dialog, "OK");
    });
    EXPECT_THAT(Names(), ElementsAre(first, second, worldMap));
}

TEST_F(MapFileDialogs, FileDroppedBelowTheLinesGoesToTheEnd) {
    const std::string name = Make("b.map");
    OpenList([&](QDialog& dialog) {
        List(dialog).setCurrentRow(0);
        AnswerNext("InputFileParams", Qt::Key_Return);
        const QPoint below = List(dialog).viewport()->rect().bottomLeft() + QPoint(5, -5);
        EXPECT_TRUE(Drop(List(dialog), below, Files({name})));
        EXPECT_TRUE(QTest::qWaitFor([&] { return List(dialog).count() == 3; }));
        Click(dialog, "OK");
    });
    EXPECT_THAT(Names(), ElementsAre(worldMap, name));
}

TEST_F(MapFileDialogs, DroppedFileWhoseNameIsNoUtf8IsAddedAndDrawn) {
    std::filesystem::create_directory(folder / "K\xF6ln");
    const std::string name = folder / "K\xF6ln/caf\xE9.map";
    std::filesystem::create_symlink(worldMap, name);
    boxes.Answer(BoxAnswer::Yes);
    OpenList([&](QDialog& dialog) {
        List(dialog).setCurrentRow(0);
        QTest::keyClick(&List(dialog), Qt::Key_Delete);
        AnswerNext("InputFileParams", Qt::Key_Return);
        auto* data = new QMimeData;
        data->setData("text/uri-list",
                      QByteArray::fromStdString("file://" + folder / "K%F6ln/caf%E9.map\r\n"));
        EXPECT_TRUE(Drop(List(dialog), QPoint(5, 5), data));
        EXPECT_TRUE(QTest::qWaitFor([&] { return Names().size() == 1; }));
        EXPECT_THAT(Texts(List(dialog)), ElementsAre("01   " + (folder / "K\u00F6ln/caf\u00E9.map"), ""));
        CloseBy(dialog, Qt::Key_Return);
    });
    EXPECT_THAT(Names(), ElementsAre(name));
    boxes.Taken();
    Activate();
    DrawByKeys();
    EXPECT_THAT(boxes.asked, IsEmpty());
    const QImage drawn = Picture();
    Design.InputFiles[0].MapFileName = worldMap;
    Activate();
    DrawByKeys();
    EXPECT_EQ(drawn, Picture());
}

TEST_F(MapFileDialogs, OnlyFilesOfThisMachineCanBeDropped) {
    OpenList([&](QDialog& dialog) {
        auto* text = new QMimeData;
        text->setText(QStringLiteral("no file"));
        EXPECT_FALSE(Drop(List(dialog), QPoint(5, 5), text));
        auto* remote = new QMimeData;
        remote->setUrls({QUrl(QStringLiteral("https://example.org/a.map"))});
        EXPECT_FALSE(Drop(List(dialog), QPoint(5, 5), remote));
        EXPECT_FALSE(Drop(List(dialog), QPoint(5, 5), Files({folder.Path()})));
        QCoreApplication::processEvents();
        EXPECT_EQ(List(dialog).count(), 2);
        EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
    });
}

} // namespace
} // namespace quelmont
