#include "desktop/desktop_picker.h"

#include "desktop/desktop_window.h"
#include "view/place_picking.h"
#include "view/view_status.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>

namespace quelmont {

bool DesktopPicker::CanPick() const { return CanPickPlace(); }

std::optional<PickedPlace> DesktopPicker::Pick(std::string_view what) {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || window.IsCloseWanted()) {
        return std::nullopt;
    }
    const QPoint corner = dialog->pos();
    QEventLoop waiting;
    dialog->hide();
    BeginPicking(what, [&waiting] { waiting.quit(); });
    ShowViewStatus();
    window.activateWindow();
    window.Area().setFocus();
    waiting.exec();
    GiveUpPicking(); // the program's event loop has ended, and this one with it
    const std::optional<PickedPlace> picked = TakePicked();
    ShowViewStatus();
    if (window.IsCloseWanted()) {
        dialog->reject();
        return std::nullopt;
    }
    dialog->move(corner); // some window managers place a window anew
    dialog->show();
    dialog->activateWindow();
    return picked;
}

} // namespace quelmont
