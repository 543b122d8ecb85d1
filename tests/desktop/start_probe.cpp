#include "desktop/desktop.h"
#include "platform/machine.h"

#include <QApplication>
#include <QWindow>

#include <filesystem>
#include <iostream>
#include <string>

/// Brings the program up as it comes up for a user, waits until it is idle, closes its window and
/// tells what happened, one word and its value a line. It is copied to wherever a test wants a
/// start, since the program looks about itself from where its executable lies.
///
/// With the argument "upgraded" its executable is removed as soon as it runs.

namespace {

class ToldBoxes : public quelmont::Boxes {
public:
    quelmont::BoxAnswer Ask(std::string_view title, std::string_view text, quelmont::BoxButtons buttons,
                            quelmont::BoxIcon /*icon*/) override {
        std::cout << "box " << title << ": " << text << '\n';
        return buttons == quelmont::BoxButtons::RetryCancel ? quelmont::BoxAnswer::Cancel
               : buttons == quelmont::BoxButtons::YesNo     ? quelmont::BoxAnswer::No
                                                            : quelmont::BoxAnswer::Ok;
    }
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    quelmont::Desktop desktop;
    if (argc > 1 && std::string(argv[1]) == "upgraded") {
        std::filesystem::remove(std::filesystem::read_symlink("/proc/self/exe"));
    }
    ToldBoxes boxes;
    quelmont::Machine().boxes = &boxes;
    desktop.Start();
    while (!desktop.Window().windowHandle()->isExposed()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QCoreApplication::processEvents();
    quelmont::DesktopWindow& window = desktop.Window();
    std::cout << "caption " << window.Caption() << '\n'
              << "visible " << window.isVisible() << '\n'
              << "size " << window.width() << ' ' << window.height() - window.Status().height() << '\n'
              << "place " << window.x() << ' ' << window.y() << '\n'
              << "program " << quelmont::Machine().places->ProgramFolder() << '\n'
              << "settings " << quelmont::Machine().places->SettingsFolder() << '\n'
              << "idle 1\n";
    window.close();
    std::cout << "closed " << !window.isVisible() << '\n';
    return 0;
}
