#include "desktop/desktop_fixture.h"
#include "desktop/session_end.h"

#include "core/map_design.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/profile_file.h"

#include <QAction>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

namespace quelmont {
namespace {

using testing::IsEmpty;

/// Keeps the application of the tests from ending.
class KeepsRunning final : public QObject {
public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override { return event->type() == QEvent::Quit; }
};

class SessionEnds : public DesktopTest {
protected:
    SessionEnds() {
        Start();
        qApp->installEventFilter(&keepsRunning);
        end.emplace(Window());
    }

    std::optional<std::string> Setting(std::string_view key) const {
        return ReadProfileString(folder / "Qmnt.ini", "Quelmont", key);
    }
    bool Closes() {
        return QTest::qWaitFor([this] { return !Window().isVisible(); });
    }
    static void Choose(QAction* item) {
        QMetaObject::invokeMethod(
            item, [item] { item->trigger(); }, Qt::QueuedConnection);
    }

    KeepsRunning keepsRunning;
    std::optional<SessionEnd> end;
};

TEST_F(SessionEnds, SignalInIdleClosesTheWindowAndLeavesTheSettings) {
    for (const int number : {SIGTERM, SIGHUP, SIGINT}) {
        std::raise(number);
        EXPECT_TRUE(Closes());
        EXPECT_EQ(Setting("WindowMaximized"), "0");
        std::filesystem::remove(folder / "Qmnt.ini");
        end.reset();
        Restart();
        end.emplace(Window());
    }
}

TEST_F(SessionEnds, SignalCancelsDialogsThatStandOnOneAnother) {
    int dialogs = 0;
    InDialog([&](QDialog& bounds) {
        ++dialogs;
        InDialog([&](QDialog& parallels) {
            ++dialogs;
            EXPECT_NE(&parallels, &bounds);
            std::raise(SIGTERM);
        });
        QTest::keyClick(bounds.focusWidget(), Qt::Key_Return);
    });
    Choose(Window().Action(Menu::mnuProj, 10)); // Albers
    EXPECT_TRUE(Closes());
    EXPECT_EQ(dialogs, 2);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(Setting("WindowMaximized"), "0");
}

TEST_F(SessionEnds, NothingIsAskedAnyMore) {
    InDialog([&](QDialog&) { std::raise(SIGTERM); });
    Choose(Window().Action(Menu::mnuDesign, 9));
    EXPECT_TRUE(Closes());
    EXPECT_TRUE(SessionEnd::IsEnding());
    DesktopBoxes real(Window());
    EXPECT_EQ(real.Ask("Title", "Text", BoxButtons::RetryCancel, BoxIcon::Exclamation), BoxAnswer::Cancel);
    EXPECT_EQ(real.Ask("Title", "Text", BoxButtons::YesNo, BoxIcon::Exclamation), BoxAnswer::No);
    EXPECT_EQ(real.Ask("Title", "Text", BoxButtons::Ok, BoxIcon::Exclamation), BoxAnswer::Ok);
}

TEST_F(SessionEnds, SignalInADrawStopsItAndCloses) {
    pump->At(3, [] { std::raise(SIGTERM); });
    DrawByKeys();
    EXPECT_TRUE(Closes());
    EXPECT_FALSE(MainWindowNow.MapDrawing);
    EXPECT_EQ(clock.beeps, 0);
    EXPECT_EQ(Setting("WindowMaximized"), "0");
}

TEST_F(SessionEnds, SignalAfterADrawStillClosesTheWindow) {
    DrawByKeys();
    EXPECT_EQ(clock.beeps, 1);
    std::raise(SIGTERM);
    EXPECT_TRUE(Closes());
}

TEST_F(SessionEnds, SavingForTheSessionManagerLeavesTheWindowAndIsRepeatedAtTheEnd) {
    SessionEnd::Save();
    EXPECT_TRUE(Window().isVisible());
    EXPECT_FALSE(SessionEnd::IsEnding());
    EXPECT_EQ(Setting("WindowMaximized"), "0");
    std::filesystem::remove(folder / "Qmnt.ini");
    EXPECT_TRUE(Window().close());
    EXPECT_EQ(Setting("WindowMaximized"), "0");
}

TEST_F(SessionEnds, ProgramThatIsToQuitClosesItsWindowFirst) {
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
    EXPECT_FALSE(Window().isVisible());
    EXPECT_EQ(Setting("WindowMaximized"), "0");
    EXPECT_THAT(boxes.asked, IsEmpty());
}

} // namespace
} // namespace quelmont
