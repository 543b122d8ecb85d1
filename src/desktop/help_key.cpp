#include "desktop/help_key.h"

#include "desktop/desktop_window.h"
#include "desktop/form_view.h"
#include "mainwindow/main_menu.h"
#include "platform/help_pages.h"
#include "platform/machine.h"

#include <QDialog>
#include <QShortcut>

namespace quelmont {

int HelpContextOver(const QWidget& below, std::string_view control) {
    for (const QWidget* window = &below; window != nullptr; window = window->parentWidget()) {
        if (const auto* dialog = dynamic_cast<const FormView*>(window)) {
            return dialog->HelpContextOf(control);
        }
        if (const auto* main = dynamic_cast<const DesktopWindow*>(window)) {
            const int command = main->HelpOfCommand();
            // In a draw boxes tell of map files, and so does the page of the boxes.
            return command == 0 || command == HelpContextOf(Menu::mnuBar, DrawTitle) ? HelpOfBoxes : command;
        }
    }
    return HelpOfBoxes;
}

void OpenHelpOnF1(QDialog& box, int context) {
    auto* const key = new QShortcut(Qt::Key_F1, &box);
    QObject::connect(key, &QShortcut::activated, &box,
                     [context] { Machine().help->Show(HelpContext, context); });
}

} // namespace quelmont
