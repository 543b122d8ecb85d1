#include "desktop/desktop_fixture.h"

#include "core/map_design.h"
#include "mainwindow/design_commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/start_up.h"
#include "support/scripted_printer.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

namespace quelmont {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

/// Keys in the real window.
class Shortcuts : public DesktopTest {
protected:
    Shortcuts() { Start(); }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        QTest::keyClick(Window().focusWidget() != nullptr ? Window().focusWidget() : &Window(), key,
                        modifiers);
    }
    /// The class of the dialog that a key opens; it is cancelled.
    std::string DialogOf(Qt::Key key) {
        Activate();
        std::string title;
        InDialog([&](QDialog& dialog) {
            title = dialog.windowTitle().toStdString();
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
        });
        Press(key);
        return title;
    }
    ScriptedFileDialogs& FileDialogs() {
        Machine().fileDialogs = &program.machine.fileDialogs;
        return program.machine.fileDialogs;
    }
    void BeginText() {
        Design.CurrentText = "Atlantic";
        Design.CurrentTextAngle = "0";
        Design.CurrentLook = Design.Fonts[TextFontSlot];
        Design.TextPending = true;
        MainWindowNow.placing.follows = true;
    }
};

TEST_F(Shortcuts, StandInTheMenus) {
    const std::map<std::pair<Menu, int>, QString> keys = {
        {{Menu::mnuInput, OpenMapFileItem}, "Ctrl+O"}, {{Menu::mnuInput, SaveDesignItem}, "Ctrl+S"},
        {{Menu::mnuInput, PrintMapItem}, "Ctrl+P"},    {{Menu::mnuInput, ExitItem}, "Ctrl+Q"},
        {{Menu::mnuView, DrawAgainItem}, "F5"},
    };
    for (const auto& [item, text] : keys) {
        EXPECT_EQ(Window().Action(item.first, item.second)->shortcut().toString(), text);
    }
}

TEST_F(Shortcuts, CtrlOOpensTheMapFiles) { EXPECT_EQ(DialogOf(Qt::Key_O), "Add or Edit Digital Map File"); }

TEST_F(Shortcuts, CtrlSAsksForANameOnce) {
    auto& dialogs = FileDialogs();
    dialogs.Choose({folder / "world.cnf"});
    Press(Qt::Key_S);
    ASSERT_THAT(dialogs.asked, SizeIs(1));
    EXPECT_EQ(dialogs.asked[0].title, "Save Map Design");
    ASSERT_TRUE(std::filesystem::exists(folder / "world.cnf"));
    std::filesystem::remove(folder / "world.cnf");
    Press(Qt::Key_S);
    EXPECT_THAT(dialogs.asked, SizeIs(1)) << "the design has its file";
    EXPECT_TRUE(std::filesystem::exists(folder / "world.cnf"));
    EXPECT_TRUE(Window().Action(Menu::mnuInput, SaveDesignItem)->isChecked());
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(Shortcuts, CtrlShiftSAsksForAnotherName) {
    auto& dialogs = FileDialogs();
    dialogs.Choose({folder / "one.cnf"});
    Press(Qt::Key_S);
    dialogs.Choose({folder / "two.cnf"});
    Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_THAT(dialogs.asked, SizeIs(2));
    EXPECT_TRUE(std::filesystem::exists(folder / "two.cnf"));
    EXPECT_EQ(Design.CnfFileName, folder / "two.cnf");
}

TEST_F(Shortcuts, CtrlPLooksForPrintersFirst) {
    Machine().printers = &program.machine.printers;
    program.machine.printers.any = false;
    Press(Qt::Key_P);
    EXPECT_FALSE(Window().Action(Menu::mnuInput, PrintMapItem)->isEnabled());
    program.machine.printers.any = true; // it was plugged in meanwhile
    EXPECT_NE(DialogOf(Qt::Key_P), "");
    EXPECT_TRUE(Window().Action(Menu::mnuInput, PrintMapItem)->isEnabled());
}

TEST_F(Shortcuts, CtrlQCloses) {
    Press(Qt::Key_Q);
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(Shortcuts, F5DrawsAtTheLastSizeWithoutADialog) {
    Design.MapReduce = 0.5;
    Press(Qt::Key_F5, Qt::NoModifier);
    EXPECT_EQ(clock.beeps, 1);
    EXPECT_EQ(Design.MapReduce, 0.5);
    EXPECT_FALSE(FillsTheWindow(Picture()));
    ExpectIdle();
    DrawByKeys();
    EXPECT_EQ(Design.MapReduce, 0.5) << "the dialog proposes it too";
}

TEST_F(Shortcuts, HeldKeyActsOnce) {
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&Window(), &repeat);
    EXPECT_EQ(clock.beeps, 0);
}

TEST_F(Shortcuts, NoneActsInADraw) {
    auto& dialogs = FileDialogs();
    pump->At(3, [&] {
        for (const Qt::Key key : {Qt::Key_O, Qt::Key_S, Qt::Key_P, Qt::Key_Q}) {
            Press(key);
        }
        Press(Qt::Key_F5, Qt::NoModifier);
    });
    Press(Qt::Key_F5, Qt::NoModifier);
    EXPECT_EQ(clock.beeps, 1);
    EXPECT_TRUE(Window().isVisible());
    EXPECT_THAT(dialogs.asked, IsEmpty());
    ExpectIdle();
}

TEST_F(Shortcuts, NoneActsInADialog) {
    Activate();
    InDialog([&](QDialog& dialog) {
        for (const Qt::Key key : {Qt::Key_S, Qt::Key_Q}) {
            QTest::keyClick(dialog.focusWidget(), key, Qt::ControlModifier);
            Press(key);
        }
        QTest::keyClick(dialog.focusWidget(), Qt::Key_F5);
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
    });
    Press(Qt::Key_O);
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(clock.beeps, 0);
}

TEST_F(Shortcuts, NoneActsWhileATextFollowsTheMouse) {
    BeginText();
    for (const Qt::Key key : {Qt::Key_O, Qt::Key_S, Qt::Key_P, Qt::Key_Q}) {
        Press(key);
    }
    Press(Qt::Key_F5, Qt::NoModifier);
    EXPECT_TRUE(Window().isVisible());
    EXPECT_TRUE(Design.TextPending);
    EXPECT_EQ(clock.beeps, 0);
}

TEST_F(Shortcuts, EndThePlacingOfATextThatWasDropped) {
    BeginText();
    MainWindowNow.placing.follows = false;
    MainWindowNow.placing.dropped = {{3000, 3000}};
    Press(Qt::Key_F5, Qt::NoModifier);
    EXPECT_FALSE(Design.TextPending);
    ASSERT_THAT(Design.TextItems, SizeIs(1));
    EXPECT_EQ(Design.TextItems[0].TextX, 3000);
    EXPECT_EQ(clock.beeps, 1);
}

} // namespace
} // namespace quelmont
