#include "desktop/desktop.h"

#include "desktop/desktop_options.h"
#include "desktop/session_end.h"
#include "mainwindow/design_commands.h"
#include "mainwindow/kept_design.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/print_commands.h"
#include "mainwindow/settings.h"
#include "mainwindow/start_up.h"
#include "platform/machine.h"
#include "view/choose_projection.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

// The macro must stand outside every namespace.
static void InitialiseResources() { Q_INIT_RESOURCE(quelmont); }

namespace quelmont {

namespace {

/// Qt ends the process when it finds no display. Until the application stands, its messages are
/// about that alone, and one line of ours tells it better.
void NoDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/) {
    if (type == QtFatalMsg) {
        std::fputs("quelmont: there is no display to open a window on\n", stderr);
        std::_Exit(EXIT_FAILURE);
    }
}

constexpr int ExitWrongUsage = 2;

/// Writes what was asked for; a full disk behind it must not pass for success.
int Print(const std::string& text) {
    const bool written = std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
    if (!written) {
        std::fputs("quelmont: The standard output cannot be written.\n", stderr);
    }
    return written ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

Desktop::Desktop()
    : boxes(window), forms(window), screen(window), printers(window), fileDialogs(window), picker(window) {
    InitialiseResources();
    Machine() = {&boxes, &forms,    &window, &pump,        &screen, &places,
                 &clock, &printers, &help,   &fileDialogs, &fonts};
    Machine().changes = &changes;
    Machine().pictures = &pictures;
}

Desktop::~Desktop() { Machine() = {}; }

void Desktop::Start() {
    StartUp();
    MainWindowNow.HelpInChoosing = HelpMeChoose;
    ReadSettings();
    window.show();
}

void Desktop::BeginWith(const std::string& design) {
    window.Run([&] {
        window.Settle();
        PreparePrinting(); // a print service may take its time, in which the window is seen already
        if (design.empty()) {
            OfferKeptDesigns();
        } else {
            OpenDesign(design);
        }
    });
}

int RunDesktop(int argc, char** argv) {
    if (const auto answer = DesktopAnswer({argv + 1, argv + argc})) {
        return Print(*answer);
    }
    QApplication::setApplicationName(QStringLiteral("quelmont"));
    QGuiApplication::setDesktopFileName(QStringLiteral("quelmont"));
    const QtMessageHandler before = qInstallMessageHandler(NoDisplay);
    const QApplication application(argc, argv);
    qInstallMessageHandler(before);
    // Qt has taken its own. The others as bytes: the name of a file may be no UTF-8.
    const std::vector<std::string> arguments(argv, argv + argc);
    const bool hasDesign = arguments.size() > 1 && !arguments[1].starts_with('-');
    if (const std::size_t known = hasDesign ? 2 : 1; arguments.size() > known) {
        std::fputs(("quelmont: \"" + arguments[known] +
                    "\" means nothing here\nquelmont --help tells the options.\n")
                       .c_str(),
                   stderr);
        return ExitWrongUsage;
    }
    Desktop desktop;
    desktop.Start();
    const SessionEnd sessionEnd(desktop.Window());
    const std::string design = hasDesign ? arguments[1] : std::string();
    QMetaObject::invokeMethod(
        &desktop.Window(), [&] { desktop.BeginWith(design); }, Qt::QueuedConnection);
    return QApplication::exec();
}

} // namespace quelmont
