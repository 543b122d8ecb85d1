// The dialogs of the list of map files in their real windows: keys, mouse, files that are chosen and
// dropped. Runs once per ratio.

#include "desktop/desktop_fixture.h"

#include "core/map_design.h"
#include "desktop/grid_table.h"
#include "dialogs/files/input_file_params.h"
#include "mapfiles/feature_rows.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSettings>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A dialog that has not come by then, at one poll in two milliseconds, never comes.
constexpr int MostPolls = 2500;

class MapFileDialogs : public DesktopTest {
protected:
    MapFileDialogs() {
        // Where Qt's file dialogs remember how they last stood.
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           QString::fromStdString(folder.Path()));
        Start();
    }

    /// Acts in the next dialog of that name, which is another than the one in use now.
    static void InDialog(const char* name, std::function<void(QDialog&)> action) {
        auto* timer = new QTimer(qApp);
        const auto poll = [timer, name, before = QPointer<QWidget>(QApplication::activeModalWidget()),
                           action = std::move(action), polls = 0]() mutable {
            QWidget* now = QApplication::activeModalWidget();
            const bool there = now != before && now != nullptr && now->objectName() == QLatin1String(name) &&
                               now->isActiveWindow();
            if (there || ++polls > MostPolls) {
                timer->stop();
                timer->deleteLater();
                ASSERT_TRUE(there) << "no " << name << " came";
                action(dynamic_cast<QDialog&>(*now));
            }
        };
        QObject::connect(timer, &QTimer::timeout, timer, poll);
        timer->start(2);
    }
    /// Opens the list from the File menu and closes it by Escape unless the action did.
    void OpenList(std::function<void(QDialog&)> action) {
        InDialog("InputFileChoices", [action = std::move(action)](QDialog& dialog) {
            action(dialog);
            CloseBy(dialog, Qt::Key_Escape);
        });
        Window().Action(Menu::mnuInput, 0)->trigger();
    }
    /// Opens the parameters of a file in Edit mode and closes them by Escape unless the action did.
    void OpenParameters(InputFileEntry& entry, std::function<void(QDialog&)> action) {
        InputFileParams form(entry.MapFileName, entry, MapFileMode::Edit);
        InDialog("InputFileParams", [action = std::move(action)](QDialog& dialog) {
            action(dialog);
            CloseBy(dialog, Qt::Key_Escape);
        });
        Machine().forms->Show(form);
    }
    /// Gives the keyboard to a dialog above which another one has closed.
    static void Return(QDialog& dialog) {
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }
    static void CloseBy(QDialog& dialog, Qt::Key key) {
        if (dialog.isVisible()) {
            Return(dialog);
            QTest::keyClick(dialog.focusWidget() == nullptr ? &dialog : dialog.focusWidget(), key);
        }
    }
    /// What is asked next by a dialog of that name is answered by a key.
    static void AnswerNext(const char* name, Qt::Key key) {
        InDialog(name, [=](QDialog& dialog) { CloseBy(dialog, key); });
    }

    static QListWidget& List(QDialog& dialog) { return *dialog.findChild<QListWidget*>("InputFilesOpen"); }
    static QPushButton& Button(QDialog& dialog, const char* name) {
        return *dialog.findChild<QPushButton*>(QString::fromLatin1(name));
    }
    static void Click(QDialog& dialog, const char* button) {
        QTest::mouseClick(&Button(dialog, button), Qt::LeftButton);
    }
    static GridTable& Grid(QDialog& dialog, const char* name) {
        auto* grid = dynamic_cast<GridTable*>(dialog.findChild<QTableWidget*>(QString::fromLatin1(name)));
        return *grid;
    }
    static GridTable& Types(QDialog& dialog) { return Grid(dialog, "SymbolType1"); }
    static GridTable& Features(QDialog& dialog) { return Grid(dialog, "GeoFeatures"); }
    static QPoint Middle(const GridTable& grid, int row, int column) {
        return grid.visualItemRect(grid.item(row, column)).center();
    }
    static void ClickCell(const GridTable& grid, int row, int column) {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, Middle(grid, row, column));
    }
    static std::vector<std::string> Texts(const QListWidget& list) {
        std::vector<std::string> texts;
        for (int line = 0; line < list.count(); ++line) {
            texts.push_back(list.item(line)->text().toStdString());
        }
        return texts;
    }
    static std::vector<std::string> Names() {
        EXPECT_EQ(static_cast<std::size_t>(Design.MapFileCount), Design.InputFiles.size());
        std::vector<std::string> names;
        for (const InputFileEntry& file : Design.InputFiles) {
            names.push_back(file.MapFileName);
        }
        return names;
    }

    /// Makes an empty file in the test's folder and returns its full name.
    std::string Make(const std::string& title) {
        std::ofstream file(folder / title);
        return folder / title;
    }
    static QMimeData* Files(const std::vector<std::string>& names) {
        QList<QUrl> urls;
        for (const std::string& name : names) {
            urls.push_back(QUrl::fromLocalFile(QString::fromStdString(name)));
        }
        auto* data = new QMimeData;
        data->setUrls(urls);
        return data;
    }
    /// Drags something over a place of the list and drops it there. False when the list refuses it.
    static bool Drop(QListWidget& list, QPoint place, QMimeData* data) {
        const std::unique_ptr<QMimeData> held(data);
        QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(list.viewport(), &enter);
        if (!enter.isAccepted()) {
            return false;
        }
        QDropEvent drop(place, Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(list.viewport(), &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
        return drop.isAccepted();
    }

    std::string worldMap = folder.Path() + "/Qmnt4.map";
};

// ---- The list

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

/// Opens a file dialog by itself.
class FileChooser : public MapFileDialogs {
protected:
    FileDialogAnswer Ask(std::function<void(QFileDialog&)> action) {
        InDialog("QFileDialog", [action = std::move(action)](QDialog& dialog) {
            action(dynamic_cast<QFileDialog&>(dialog));
            if (dialog.isVisible()) {
                dialog.reject();
            }
        });
        return Machine().fileDialogs->Open(request);
    }
    /// The files that the dialog offers.
    static std::vector<std::string> Offered(QFileDialog& dialog) {
        auto* view = dialog.findChild<QAbstractItemView*>("listView");
        std::vector<std::string> names;
        EXPECT_TRUE(QTest::qWaitFor([&] { return view->model()->rowCount(view->rootIndex()) > 0; }));
        QTest::qWait(50);
        for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row) {
            names.push_back(view->model()->index(row, 0, view->rootIndex()).data().toString().toStdString());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    FileDialogRequest request{.title = "Take one",
                              .filter = "Maps (.one, .two)|*.one;*.two|Other (.three)|*.three",
                              .folder = folder.Path()};
};

TEST_F(FileChooser, EndingsMatchInAnyCase) {
    for (const char* const title : {"a.one", "b.ONE", "c.Two", "d.three", "e.ones"}) {
        Make(title);
    }
    Ask([&](QFileDialog& dialog) { EXPECT_THAT(Offered(dialog), ElementsAre("a.one", "b.ONE", "c.Two")); });
    request.filterIndex = 2;
    Ask([&](QFileDialog& dialog) { EXPECT_THAT(Offered(dialog), ElementsAre("d.three")); });
}

TEST_F(FileChooser, FiltersBearTheirNames) {
    request.filterIndex = 2;
    Ask([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Take one"));
        const auto* types = dialog.findChild<QComboBox*>("fileTypeCombo");
        ASSERT_EQ(types->count(), 2);
        EXPECT_EQ(types->itemText(0), QStringLiteral("Maps (.one, .two)"));
        EXPECT_EQ(types->itemText(1), QStringLiteral("Other (.three)"));
        EXPECT_EQ(types->currentIndex(), 1);
    });
}

TEST_F(FileChooser, PatternProposesNoName) {
    request.name = "*.ONE";
    Ask([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), QString());
    });
}

TEST_F(FileChooser, AnswersFullNamesInUtf8) {
    const std::string name = Make("K\xC3\xB6ln caf\xC3\xA9.one");
    const FileDialogAnswer answer = Ask([](QFileDialog& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
        edit->setText(QString::fromUtf8("K\xC3\xB6ln caf\xC3\xA9.one"));
        QTest::keyClick(edit, Qt::Key_Return);
    });
    EXPECT_EQ(answer.error, 0);
    EXPECT_THAT(answer.names, ElementsAre(name));
}

TEST_F(FileChooser, EscapeCancels) {
    const FileDialogAnswer answer =
        Ask([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(answer.error, FileDialogCancelled);
    EXPECT_THAT(answer.names, IsEmpty());
}

TEST_F(FileChooser, FolderThatIsGoneDoesNoHarm) {
    request.folder = "C:\\maps";
    request.name = "world.one";
    Ask([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), QStringLiteral("world.one"));
    });
}

// ---- Files that are dropped

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

// ---- Parameters

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
