#include "desktop/map_menu.h"

#include "desktop/desktop_window.h"
#include "desktop/qt_text.h"
#include "mainwindow/main_menu.h"
#include "view/position.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include <optional>

namespace quelmont {

void ShowMapMenu(DesktopWindow& window, SurfacePoint pixel, QPoint place) {
    const std::optional<MapPosition> position = PositionAt(pixel);
    QAction* const copyMapOfEdit = window.Action(Menu::mnuEdit, CopyMapItem);
    QMenu menu(&window);
    menu.setAccessibleName(QStringLiteral("Map"));
    QAction* const copyPosition = menu.addAction(QStringLiteral("&Copy Position"));
    copyPosition->setEnabled(position.has_value());
    QAction* const copyMap = menu.addAction(QStringLiteral("Copy &Map"));
    copyMap->setEnabled(copyMapOfEdit->isEnabled());
    const QAction* const chosen = menu.exec(place);
    if (chosen == copyPosition && position) {
        QGuiApplication::clipboard()->setText(Text(PositionText(*position)));
    } else if (chosen == copyMap) {
        copyMapOfEdit->trigger();
    }
}

} // namespace quelmont
