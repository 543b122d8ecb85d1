#include "desktop/desktop_window.h"

#include "core/file_names.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "core/standard_colors.h"
#include "desktop/file_drop.h"
#include "desktop/map_menu.h"
#include "desktop/qt_text.h"
#include "desktop/session_end.h"
#include "desktop/window_place.h"
#include "mainwindow/commands.h"
#include "mainwindow/design_commands.h"
#include "mainwindow/kept_design.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/map_words.h"
#include "mainwindow/settings.h"
#include "mainwindow/text_placing.h"
#include "platform/help_pages.h"
#include "platform/machine.h"
#include "view/map_clicks.h"
#include "view/place_picking.h"
#include "view/redraw.h"
#include "view/view_status.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QIcon>
#include <QKeyEvent>
#include <QLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QThread>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quelmont {

namespace {

constexpr qint64 RepaintMilliseconds = 33;
/// How long a window keeps its size when a person has let go of its frame.
constexpr int RestMilliseconds = 300;
constexpr Qt::WindowStates SpecialStates = Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen;

QIcon ProgramIcon() {
    QIcon icon;
    for (const char* name : {":/quelmont-32.png", ":/quelmont-64.png", ":/quelmont-256.png"}) {
        icon.addFile(QString::fromLatin1(name));
    }
    return icon;
}

/// The map design among the files that are held over the window; empty when there is none.
std::string DroppedDesign(const QDropEvent& event) {
    for (const QUrl& url : event.mimeData()->urls()) {
        if (std::string name = LocalFileOf(url); Capitals(name).ends_with(".CNF")) {
            return name;
        }
    }
    return {};
}

} // namespace

DesktopWindow::DesktopWindow()
    : area(new DrawingArea), statusLine(new StatusLine(this)), input(*this),
      menus(*menuBar(), [this](Menu menu, int index) { Clicked(menu, index); }) {
    QApplication::setWindowIcon(ProgramIcon());
    setWindowIcon(ProgramIcon());
    const QSize line(0, statusLine->height());
    setStatusBar(statusLine);
    setMinimumSize(SmallestWindow + line);
    normalSize = DesignedSize(screen()->availableSize() - line);
    resize(normalSize + line);
    menuBar()->setNativeMenuBar(false);
    // Escape also reaches a draw when the keyboard is with the menu bar.
    menuBar()->installEventFilter(this);
    setCentralWidget(area);
    area->OnMouse([this](const AreaMouse& mouse) { input.Take(mouse); });
    area->OnMenuWanted([this](SurfacePoint pixel, QPoint place) {
        // A menu would take the release of a button that holds the map.
        if (!busy && !Design.TextPending && !input.IsHolding()) {
            ShowMapMenu(*this, pixel, place);
        }
    });
    area->OnResized([this] {
        if (Machine().window == this) {
            ToggleCaption();
            rest.start(RestMilliseconds);
        }
    });
    area->OnPointed([](std::optional<SurfacePoint> pixel) { PointAtMap(pixel); });
    rest.setSingleShot(true);
    connect(&rest, &QTimer::timeout, this, [this] { RedrawAtRest(); });
    area->setFocus();
    setAcceptDrops(true);
    // The drawing area has its size before it is seen: the first fit of the map needs it.
    layout()->activate();
}

DesktopWindow::~DesktopWindow() = default;

std::string DesktopWindow::Caption() const { return windowTitle().toStdString(); }

void DesktopWindow::SetCaption(std::string_view caption) { setWindowTitle(Text(caption)); }

double DesktopWindow::ScaleWidth() const {
    return area->DeviceSize().width() * static_cast<double>(Machine().screen->TwipsPerPixelX());
}

double DesktopWindow::ScaleHeight() const {
    return area->DeviceSize().height() * static_cast<double>(Machine().screen->TwipsPerPixelY());
}

WindowPlace DesktopWindow::Place() const {
    const bool normal = !(windowState() & SpecialStates);
    const QSize size = normal ? this->size() - QSize(0, StatusHeight()) : normalSize;
    const QPoint corner = normal && TellsPlaces() ? pos() : normalCorner;
    const double twips = TwipsPerUnit(*screen());
    return {corner.x() * twips, corner.y() * twips, size.width() * twips, size.height() * twips};
}

void DesktopWindow::SetPlace(const WindowPlace& place) {
    const double twips = TwipsPerUnit(*screen());
    const QPoint corner(RoundToInt32(place.left / twips), RoundToInt32(place.top / twips));
    const QSize size(RoundToInt32(place.width / twips), RoundToInt32(place.height / twips));
    const QSize line(0, StatusHeight());
    const QRect fitted = BroughtBack(QRect(corner, size.expandedTo(SmallestWindow) + line));
    normalCorner = fitted.topLeft();
    normalSize = fitted.size() - line;
    normalStatus = !line.isNull();
    resize(fitted.size());
    if (TellsPlaces()) {
        move(normalCorner);
    }
    layout()->activate();
}

void DesktopWindow::Maximise() { setWindowState(windowState() | Qt::WindowMaximized); }

void DesktopWindow::SetAreaSize(std::int32_t width, std::int32_t height) {
    constexpr qreal tolerance = 1e-6;
    if (windowState() & SpecialStates) {
        setWindowState(windowState() & ~SpecialStates);
        Settle();
    }
    if (TellsPlaces()) {
        move(screen()->availableGeometry().topLeft());
    }
    const qreal ratio = devicePixelRatioF();
    const QSize wanted(width, height);
    QSize units(static_cast<int>(std::ceil(width / ratio - tolerance)),
                static_cast<int>(std::ceil(height / ratio - tolerance)));
    normalStatus = !statusLine->isHidden();
    const QSize around = size() - area->size();
    resize(units + around);
    layout()->activate();
    // The area may begin inside a device pixel, which then is not its own.
    const QSize has = area->DeviceSize();
    units += QSize(has.width() < wanted.width() ? 1 : 0, has.height() < wanted.height() ? 1 : 0);
    resize(units + around);
    layout()->activate();
    normalSize = size() - QSize(0, StatusHeight());
}

int DesktopWindow::StatusHeight() const { return statusLine->isHidden() ? 0 : statusLine->height(); }

void DesktopWindow::ShowStatusLine(bool shown) {
    if (shown != statusLine->isHidden()) {
        return;
    }
    const bool normal = !(windowState() & SpecialStates);
    const QSize without = size() - QSize(0, StatusHeight());
    statusLine->setVisible(shown);
    const QSize line(0, StatusHeight());
    setMinimumSize(SmallestWindow + line);
    if (normal) {
        normalStatus = shown;
        resize(without + line);
        FitToScreen();
    }
    layout()->activate();
}

void DesktopWindow::FitToScreen() {
    const QRect available = screen()->availableGeometry();
    const int below = frameGeometry().bottom() - available.bottom();
    if (below <= 0 || !isVisible()) {
        return;
    }
    const int room = TellsPlaces() ? frameGeometry().top() - available.top() : 0;
    if (const int up = std::clamp(room, 0, below); up > 0) {
        move(pos() - QPoint(0, up));
    }
    const int frame = frameGeometry().height() - height();
    resize(width(), std::min(height(), available.height() - frame));
}

void DesktopWindow::RestoreSize() {
    if ((windowState() & SpecialStates) || normalStatus == !statusLine->isHidden()) {
        return;
    }
    normalStatus = !statusLine->isHidden();
    resize(normalSize + QSize(0, StatusHeight()));
    FitToScreen();
    layout()->activate();
}

void DesktopWindow::Settle() {
    constexpr qint64 quietMilliseconds = 80;
    constexpr qint64 longest = 1000;
    constexpr unsigned long turn = 5;
    layout()->activate();
    if (!isVisible()) {
        return;
    }
    QElapsedTimer whole;
    QElapsedTimer quiet;
    whole.start();
    quiet.start();
    QSize before = area->DeviceSize();
    while (quiet.elapsed() < quietMilliseconds && whole.elapsed() < longest) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(turn);
        if (area->DeviceSize() != before) {
            before = area->DeviceSize();
            quiet.start();
        }
    }
}

void DesktopWindow::SetMousePointer(MousePointer shape) {
    switch (shape) {
    case MousePointer::Hourglass:
        area->setCursor(Qt::WaitCursor);
        break;
    case MousePointer::Cross:
        area->setCursor(Qt::CrossCursor);
        break;
    case MousePointer::Hand:
        area->setCursor(Qt::OpenHandCursor);
        break;
    case MousePointer::Normal:
        area->unsetCursor();
    }
}

void DesktopWindow::Repaint() {
    repaintDue = false;
    area->repaint();
    sinceRepaint.start();
}

void DesktopWindow::Refresh() {
    if (autoRedraw && sinceRepaint.isValid() && sinceRepaint.elapsed() < RepaintMilliseconds) {
        repaintDue = true;
    } else {
        Repaint();
    }
}

void DesktopWindow::SetAutoRedraw(bool on) {
    autoRedraw = on;
    if (on) {
        area->ForgetPicture();
    }
    if (on && !(area->HasPicture() && area->Fits())) {
        Cls();
    }
    if (on) {
        area->TakeHintOff();
    } else {
        area->Describe(Text(MapInWords()));
    }
    if (!on && repaintDue) {
        Repaint();
    }
}

void DesktopWindow::Cls() {
    area->ForgetPicture();
    area->Clear(ColorBits(Design.BackColor));
}

void DesktopWindow::PutBackPicture() { area->PutBackPicture(ColorBits(Design.BackColor)); }

void DesktopWindow::ShowPreview(const PixelBox& box, const std::function<void(DrawSurface&)>& paint) {
    area->ShowPreview(box, paint, ColorBits(Design.BackColor));
}

void DesktopWindow::Clicked(Menu menu, int index) {
    if (menu == Menu::mnuBar && index == StopTitle) {
        mnuBar_Click(index);
        return;
    }
    if (GiveUpPicking()) {
        return; // the dialog comes back; it has the window to itself
    }
    Run([&] {
        helpOfCommand = HelpContextOf(menu, index);
        ClickMenuItem(menu, index);
    });
}

void DesktopWindow::Run(const std::function<void()>& command) {
    if (busy) {
        return;
    }
    busy = true;
    input.End();
    EndClicks();
    command();
    busy = false;
    helpOfCommand = 0;
    area->SetReadyToDraw(Design.ProjGridSet.at(static_cast<std::size_t>(Design.ProjNum)));
    if (Design.TextPending) {
        // The arrow keys are for the text now, though a key may have opened the menu.
        menuBar()->setActiveAction(nullptr);
        area->setFocus();
    }
    if (!CloseIfWanted()) {
        FollowUp();
    }
}

void DesktopWindow::RunInDrag(const std::function<void()>& command) {
    if (!busy) {
        busy = true;
        command();
        busy = false;
        CloseIfWanted();
    }
}

bool DesktopWindow::CloseIfWanted() {
    const bool wanted = std::exchange(closeWanted, false);
    if (wanted) {
        close();
    }
    return wanted;
}

void DesktopWindow::FollowUp() {
    ShowViewStatus();
    if (IsRedrawDue(false)) {
        rest.start(0); // behind what the command has left to be shown
    } else if (IsRedrawDue(true) && !rest.isActive()) {
        rest.start(RestMilliseconds);
    }
}

void DesktopWindow::RedrawAtRest() {
    if (busy || unloaded || !isVisible()) {
        return; // the command's end asks again
    }
    if (QApplication::activePopupWidget() != nullptr || input.IsHolding()) {
        rest.start(RestMilliseconds);
    } else if (IsRedrawDue(true)) {
        Run([] { RedrawByItself(); });
        if (IsRedrawDue(false)) {
            rest.stop(); // once for each change is enough, whatever came of it
        }
    }
}

void DesktopWindow::PressShortcut(const MenuEntry& entry, Menu menu, bool first) {
    if (Design.TextPending && MainWindowNow.placing.follows) {
        return;
    }
    Run([&] {
        ClickMenuItem(Menu::mnuBar, TitleOf(menu));
        if (!Action(menu, entry.index)->isEnabled()) {
            return;
        }
        if (first && entry.keyCommand != nullptr) {
            entry.keyCommand(entry.index);
        } else {
            ClickMenuItem(menu, entry.index);
        }
    });
}

bool DesktopWindow::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        EntryOfKeys(static_cast<QKeyEvent*>(event)->keyCombination()).entry != nullptr) {
        // It comes back as a key, also where the menu's item is disabled for want of a printer.
        event->accept();
        return true;
    }
    return QMainWindow::event(event);
}

void DesktopWindow::keyPressEvent(QKeyEvent* event) {
    const KeyedEntry keyed = EntryOfKeys(event->keyCombination());
    if (event->key() == Qt::Key_Escape) {
        if (!EscapeClicks() && !input.GiveUp()) {
            EscapeKey();
        }
        if (!busy) {
            FollowUp();
        }
    } else if (keyed.entry != nullptr) {
        if (!event->isAutoRepeat()) {
            PressShortcut(*keyed.entry, keyed.menu, keyed.first);
        }
    } else if (!input.Take(*event)) {
        QMainWindow::keyPressEvent(event);
    }
}

void DesktopWindow::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1 && !event->isAutoRepeat()) {
        Machine().help->Show(HelpContents, 0);
    } else {
        QMainWindow::keyReleaseEvent(event);
    }
}

bool DesktopWindow::eventFilter(QObject* watched, QEvent* event) {
    if (busy && watched == menuBar() && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        EscapeKey();
    }
    return QMainWindow::eventFilter(watched, event);
}

void DesktopWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange && isVisible() &&
        !(static_cast<QWindowStateChangeEvent*>(event)->oldState() & SpecialStates)) {
        // From here on the frame is that of another state.
        normalCorner = normalGeometry().topLeft() - (geometry().topLeft() - frameGeometry().topLeft());
        normalSize = normalGeometry().size() - QSize(0, normalStatus ? statusLine->height() : 0);
    } else if (event->type() == QEvent::WindowStateChange && !(windowState() & SpecialStates)) {
        // Behind the change of the size that belongs to the change of the state.
        QMetaObject::invokeMethod(
            this, [this] { RestoreSize(); }, Qt::QueuedConnection);
    }
    QMainWindow::changeEvent(event);
}

void DesktopWindow::closeEvent(QCloseEvent* event) {
    if (busy) {
        closeWanted = true;
        if (!GiveUpPicking()) {
            EscapeKey();
        }
        event->ignore();
        return;
    }
    TextDone();
    input.End();
    if (!unloaded) {
        if (!SessionEnd::IsEnding()) {
            bool leaves = false;
            Run([&] { leaves = MayLeaveDesign(); });
            if (!leaves) {
                event->ignore();
                return;
            }
            ForgetKeptDesign();
        }
        unloaded = true;
        WriteSettings();
    }
    event->accept();
}

void DesktopWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!DroppedDesign(*event).empty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

void DesktopWindow::dropEvent(QDropEvent* event) {
    const std::string name = DroppedDesign(*event);
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // From the event queue, so that whoever held the file is not kept waiting.
    QMetaObject::invokeMethod(
        this,
        [this, name] {
            Run([&] {
                TextDone(); // a text in hand belongs to the design before
                OpenDesign(name);
            });
        },
        Qt::QueuedConnection);
}

} // namespace quelmont
