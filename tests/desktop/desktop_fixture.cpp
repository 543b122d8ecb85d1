#include "desktop/desktop_fixture.h"

#include "core/map_design.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"

#include <QAction>
#include <QApplication>
#include <QPixmap>
#include <QTest>
#include <QTimer>

#include <filesystem>

namespace quelmont {

namespace {

constexpr int PollMilliseconds = 2;
/// A dialog that has not come by then never comes.
constexpr int MostPolls = 5000;

} // namespace

void HookedPump::DoEvents() {
    ++calls;
    const auto found = actions.find(calls);
    if (found != actions.end()) {
        found->second();
    }
    inner.DoEvents();
}

DesktopTest::DesktopTest() {
    std::filesystem::create_symlink(QUELMONT_WORLD_MAP, folder / "Qmnt4.map");
    program.machine.places.programFolder = folder.Path() + "/";
    BringUp();
}

DesktopTest::~DesktopTest() = default;

void DesktopTest::BringUp() {
    desktop.emplace();
    pump.emplace(*Machine().pump);
    Machine().boxes = &boxes;
    Machine().clock = &clock;
    Machine().places = &program.machine.places;
    Machine().pump = &*pump;
}

void DesktopTest::Start() {
    desktop->Start();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
}

void DesktopTest::Restart() {
    pump.reset();
    desktop.reset();
    BringUp();
    Start();
}

void DesktopTest::InDialog(std::function<void(QDialog&)> action) {
    auto* timer = new QTimer(qApp);
    QObject::connect(
        timer, &QTimer::timeout, timer, [timer, action = std::move(action), polls = 0]() mutable {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            const bool there = dialog != nullptr && dialog->isVisible() && dialog->isActiveWindow();
            if (there || ++polls > MostPolls) {
                timer->stop();
                timer->deleteLater();
                if (there) {
                    action(*dialog);
                } else {
                    ADD_FAILURE() << "no dialog came";
                    QApplication::exit();
                }
            }
        });
    timer->start(PollMilliseconds);
}

void DesktopTest::Activate() {
    // Nobody gives the keyboard back to a window of this platform when a dialog has closed.
    Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
}

bool DesktopTest::FillsTheWindow(const QImage& picture) {
    const QRgb black = qRgb(0, 0, 0);
    const int right = picture.width() - 1;
    const int bottom = picture.height() - 1;
    return (picture.pixel(0, bottom / 2) == black && picture.pixel(right, bottom / 2) == black) ||
           (picture.pixel(right / 2, 0) == black && picture.pixel(right / 2, bottom) == black);
}

void DesktopTest::DrawByKeys() {
    Activate();
    InDialog([](QDialog& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Return); });
    QTest::keyClick(&Window(), Qt::Key_D, Qt::AltModifier);
}

QImage DesktopTest::Seen() { return Window().grab().toImage().convertToFormat(QImage::Format_RGB32); }

QImage DesktopTest::SeenOfArea() {
    QImage seen = Seen();
    const qreal ratio = seen.devicePixelRatio();
    seen.setDevicePixelRatio(1.0);
    const QPoint corner = Area().mapTo(&Window(), QPoint(0, 0));
    const QPoint first(qCeil(corner.x() * ratio - 1e-6), qCeil(corner.y() * ratio - 1e-6));
    return seen.copy(QRect(first, Area().DeviceSize()));
}

void DesktopTest::ExpectIdle() {
    for (const MenuEntry& entry : MenuEntries(Menu::mnuBar)) {
        EXPECT_EQ(Window().Action(Menu::mnuBar, entry.index)->isEnabled(), entry.text != "&Stop")
            << entry.text;
    }
    EXPECT_EQ(Window().windowTitle(), QStringLiteral("Quelmont: Equirectangular projection"));
    EXPECT_EQ(Area().cursor().shape(), Qt::ArrowCursor);
    EXPECT_FALSE(Window().Busy());
    EXPECT_FALSE(MainWindowNow.MapDrawing);
}

} // namespace quelmont
