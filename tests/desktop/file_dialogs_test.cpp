// The dialog that asks for files of the disk. Runs once per ratio.

#include "desktop/desktop_fixture.h"
#include "desktop/map_file_dialogs.h"

#include "desktop/grid_table.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

TEST_F(FileChooser, NameThatIsNoUtf8IsNotListedAndALineSaysSo) {
    Make("caf\xE9.one");
    Make("plain.one");
    std::filesystem::create_directory(folder / "K\xC3\xB6ln");
    const auto told = [](QFileDialog& dialog) {
        return dialog.findChild<QLabel*>("NamesLeftOut")->isVisible();
    };
    const FileDialogAnswer answer = Ask([&](QFileDialog& dialog) {
        EXPECT_TRUE(told(dialog));
        EXPECT_THAT(Offered(dialog), ElementsAre("K\xC3\xB6ln", "plain.one"));
        auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
        edit->setText(QString::fromUtf8("K\xC3\xB6ln"));
        QTest::keyClick(edit, Qt::Key_Return);
        EXPECT_FALSE(told(dialog)) << "in another folder";
        edit->setText(QStringLiteral(".."));
        QTest::keyClick(edit, Qt::Key_Return);
        EXPECT_TRUE(told(dialog));
        // The same letters as UTF-8 are the name of another file, which is not there.
        edit->setText(QString::fromUtf8("caf\xC3\xA9.one"));
        InDialog("", [](QDialog& box) {
            EXPECT_NE(dynamic_cast<QMessageBox&>(box).text().indexOf("File not found"), -1);
            box.reject();
        });
        QTest::keyClick(edit, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
    });
    EXPECT_EQ(answer.error, FileDialogCancelled);
}

TEST_F(FileChooser, StartsAboveAFolderWhoseNameIsNoUtf8) {
    std::filesystem::create_directories(folder / "caf\xE9/maps");
    const auto start = [&] {
        QString shown;
        Ask([&](QFileDialog& dialog) {
            shown = dialog.directory().absolutePath();
            EXPECT_TRUE(dialog.findChild<QLabel*>("NamesLeftOut")->isVisible());
        });
        return shown.toStdString();
    };
    request.folder = folder / "caf\xE9/maps";
    EXPECT_EQ(start(), folder.Path());
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(request.folder);
    request.folder.clear();
    EXPECT_EQ(start(), folder.Path()) << "the program works in that folder";
    std::filesystem::current_path(before);
}

TEST_F(FileChooser, ProposedNameThatIsNoUtf8IsProposedInLetters) {
    request.name = "caf\xE9.one";
    InDialog("QFileDialog", [](QDialog& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
        EXPECT_EQ(edit->text(), QString::fromUtf8("caf\xC3\xA9.one"));
        QTest::keyClick(edit, Qt::Key_Return);
    });
    EXPECT_THAT(Machine().fileDialogs->Save(request).names, ElementsAre(folder / "caf\xC3\xA9.one"));
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

} // namespace
} // namespace quelmont
