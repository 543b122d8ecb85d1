#pragma once

#include "desktop/desktop_fixture.h"

#include "core/map_design.h"
#include "desktop/grid_table.h"
#include "dialogs/files/input_file_params.h"
#include "mapfiles/feature_rows.h"

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QListWidget>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <memory>

namespace quelmont {

/// A dialog that has not come by then, at one poll in two milliseconds, never comes.
constexpr int MostPolls = 2500;

/// A window about to show the dialogs of the list of map files.
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

} // namespace quelmont
