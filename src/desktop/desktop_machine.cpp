#include "desktop/desktop_machine.h"

#include "core/rounding.h"
#include "core/stop_signals.h"
#include "desktop/dialogs.h"
#include "desktop/form_view.h"
#include "desktop/help_key.h"
#include "desktop/keyboard_return.h"
#include "desktop/message_box.h"
#include "desktop/session_end.h"
#include "desktop/window_place.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/map_draw.h"
#include "platform/help_pages.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>
#include <QStyle>
#include <QTime>

namespace quelmont {

namespace {

constexpr qint64 TurnNanoseconds = 5'000'000;

/// The page of the help about a box: questions about designs may come without a command.
int ContextOf(BoxButtons buttons, const QWidget& below, std::string_view control) {
    switch (buttons) {
    case BoxButtons::RecallDiscard:
        return HelpContextOf(Menu::mnuInput, RecallDesignItem);
    case BoxButtons::SaveDiscardCancel:
        return HelpContextOf(Menu::mnuInput, SaveDesignItem);
    default:
        return HelpContextOver(below, control);
    }
}

} // namespace

BoxAnswer DesktopBoxes::Ask(std::string_view title, std::string_view text, BoxButtons buttons, BoxIcon icon) {
    return AskAbout({}, title, text, buttons, icon);
}

BoxAnswer DesktopBoxes::AskAbout(std::string_view control, std::string_view title, std::string_view text,
                                 BoxButtons buttons, BoxIcon icon) {
    if (SessionEnd::IsEnding()) {
        return AnswerOfClosed(buttons);
    }
    QWidget& below = *WindowInUse(parent);
    MessageBox box(title, text, buttons, icon, &below);
    OpenHelpOnF1(box, ContextOf(buttons, below, control));
    const KeyboardReturn keyboard(box, below);
    if (const auto* view = dynamic_cast<const FormView*>(&below)) {
        box.StandBeside(view->PlaceOf(control));
    }
    return box.Ask();
}

void DesktopPump::DoEvents() {
    if (!sinceTurn.isValid() || sinceTurn.nsecsElapsed() >= TurnNanoseconds) {
        QCoreApplication::processEvents();
        sinceTurn.start();
    }
    if (StopSignals::Came()) {
        EscapeKey();
    }
}

DesktopScreen::DesktopScreen(const QMainWindow& window) {
    const QScreen& screen = *window.screen();
    const double ratio = screen.devicePixelRatio();
    pixelRatio = ratio;
    const QSize full = screen.size();
    const QSize available = screen.availableSize();
    // A maximised window has a title bar, but no frame at its other edges.
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const int menus = window.menuBar()->sizeHint().height();
    twipsPerPixelX = twipsPerPixelY = static_cast<float>(TwipsPerUnit(screen) / ratio);
    pixelsX = RoundToInt32(full.width() * ratio);
    pixelsY = RoundToInt32(full.height() * ratio);
    fullScreenX = RoundToInt32(available.width() * ratio);
    fullScreenY = RoundToInt32((available.height() - title - menus) * ratio);
}

double DesktopClock::SecondsSinceMidnight() const {
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

void DesktopClock::Beep() { QApplication::beep(); }

} // namespace quelmont
