#include "desktop/desktop_help.h"

#include "core/map_design.h"
#include "desktop/help_collection.h"
#include "desktop/help_window.h"
#include "desktop/qt_text.h"
#include "platform/machine.h"

#include <QApplication>

namespace quelmont {

DesktopHelp::DesktopHelp() = default;
DesktopHelp::~DesktopHelp() = default;

bool DesktopHelp::Open() {
    if (window != nullptr) {
        return true;
    }
    collection = std::make_unique<HelpCollection>(Text(Design.HelpFile));
    if (!collection->IsOpen()) {
        collection.reset();
        Machine().boxes->Ask(
            "Help", "The help cannot be shown. This file is missing or damaged:\n\n" + Design.HelpFile,
            BoxButtons::Ok, BoxIcon::Exclamation);
        return false;
    }
    window = std::make_unique<HelpWindow>(*collection);
    if (const QWidget* const used = QApplication::activeWindow()) {
        window->StandBeside(*used);
    }
    return true;
}

void DesktopHelp::Show(int command, int context) {
    if (!Open()) {
        return;
    }
    if (command == HelpSearch) {
        window->ShowSearch();
    } else {
        window->ShowPlace(command == HelpContext ? PlaceOfHelp(context) : HelpPlace{HelpContentsPage, {}});
    }
}

} // namespace quelmont
