#include "desktop/desktop_machine.h"

#include "desktop/dialogs.h"

#include "core/rounding.h"
#include "core/stop_signals.h"
#include "desktop/window_place.h"
#include "mainwindow/map_draw.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QStyle>
#include <QTime>

namespace quelmont {

namespace {

constexpr qint64 TurnNanoseconds = 5'000'000;

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QMessageBox::StandardButtons ButtonsOf(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::RetryCancel:
        return QMessageBox::Retry | QMessageBox::Cancel;
    case BoxButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

/// What Escape and the close button press.
QMessageBox::StandardButton EscapeOf(BoxButtons buttons) {
    return buttons == BoxButtons::RetryCancel ? QMessageBox::Cancel
           : buttons == BoxButtons::YesNo     ? QMessageBox::No
                                              : QMessageBox::Ok;
}

BoxAnswer AnswerOf(int pressed) {
    switch (pressed) {
    case QMessageBox::Retry:
        return BoxAnswer::Retry;
    case QMessageBox::Cancel:
        return BoxAnswer::Cancel;
    case QMessageBox::Yes:
        return BoxAnswer::Yes;
    case QMessageBox::No:
        return BoxAnswer::No;
    default:
        return BoxAnswer::Ok;
    }
}

} // namespace

BoxAnswer DesktopBoxes::Ask(std::string_view title, std::string_view text, BoxButtons buttons, BoxIcon icon) {
    QMessageBox box(WindowInUse(parent));
    box.setWindowTitle(Text(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(Text(text));
    box.setIcon(icon == BoxIcon::Exclamation ? QMessageBox::Warning : QMessageBox::Information);
    box.setStandardButtons(ButtonsOf(buttons));
    box.setEscapeButton(EscapeOf(buttons));
    return AnswerOf(box.exec());
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

std::string DesktopPlaces::ProgramFolder() const {
    return QCoreApplication::applicationDirPath().toStdString() + "/";
}

std::string DesktopPlaces::SettingsFolder() const {
    QString folder = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (!folder.startsWith(QLatin1Char('/'))) {
        const QString home = qEnvironmentVariable("HOME");
        if (!home.startsWith(QLatin1Char('/'))) {
            return {};
        }
        folder = home + QStringLiteral("/.config");
    }
    return folder.toStdString() + "/quelmont/";
}

std::string DesktopPlaces::Version() const { return ProgramVersion; }

double DesktopClock::SecondsSinceMidnight() const {
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

void DesktopClock::Beep() { QApplication::beep(); }

} // namespace quelmont
