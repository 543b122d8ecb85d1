#include "desktop/window_menus.h"

#include "mainwindow/main_menu.h"

#include <QMenu>
#include <QMenuBar>

#include <optional>

namespace quelmont {

namespace {

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The menu below a title of the bar; the other titles act at once.
std::optional<Menu> MenuBelow(int title) {
    switch (title) {
    case 0:
        return Menu::mnuInput;
    case 1:
        return Menu::mnuProj;
    case 2:
        return Menu::mnuDesign;
    case 4:
        return Menu::mnuAbout;
    default:
        return std::nullopt;
    }
}

constexpr int MollweideItem = 5;

/// Only one item is a switch; the marks of the others show what was used last, and stand there
/// without a box.
bool IsSwitch(Menu menu, int index) { return menu == Menu::mnuDesign && index == PixelSizeItem; }

} // namespace

WindowMenus::WindowMenus(QMenuBar& bar, Clicked clicked_) : clicked(std::move(clicked_)) {
    for (const MenuEntry& entry : MenuEntries(Menu::mnuBar)) {
        const int index = entry.index;
        const auto below = MenuBelow(index);
        if (below) {
            QMenu* menu = bar.addMenu(Text(entry.text));
            items[{Menu::mnuBar, index}] = Item{menu->menuAction(), entry.ready};
            QObject::connect(menu, &QMenu::aboutToShow, menu,
                             [this, index] { clicked(Menu::mnuBar, index); });
            Fill(*menu, *below);
        } else {
            QAction* action = bar.addAction(Text(entry.text));
            items[{Menu::mnuBar, index}] = Item{action, entry.ready};
            QObject::connect(action, &QAction::triggered, action, [this, &bar, index] {
                // The title would stay lit as long as the command runs.
                bar.setActiveAction(nullptr);
                Triggered(Menu::mnuBar, index);
            });
        }
    }
}

void WindowMenus::Fill(QMenu& target, Menu menu) {
    for (const MenuEntry& entry : MenuEntries(menu)) {
        if (entry.text.empty()) {
            target.addSeparator();
            continue;
        }
        if (menu == Menu::mnuProj && entry.index == MollweideItem) {
            QMenu* lower = target.addMenu(Text(entry.text));
            items[{menu, entry.index}] = Item{lower->menuAction(), entry.ready};
            Fill(*lower, Menu::mnuProjMollweide);
        } else {
            AddItem(target, menu, entry.index);
            items[{menu, entry.index}].action->setText(Text(entry.text));
            items[{menu, entry.index}].ready = entry.ready;
        }
        SetEnabled(menu, entry.index, true);
    }
}

void WindowMenus::AddItem(QMenu& target, Menu menu, int index) {
    QAction* action = target.addAction(QString());
    // The application's own items must not wander into a menu of the desktop.
    action->setMenuRole(QAction::NoRole);
    action->setCheckable(IsSwitch(menu, index));
    items[{menu, index}] = Item{action};
    QObject::connect(action, &QAction::triggered, action, [this, menu, index] { Triggered(menu, index); });
}

void WindowMenus::Triggered(Menu menu, int index) {
    // A checkable action has turned its mark already; the handler decides about it.
    Show(items[{menu, index}], menu, index);
    clicked(menu, index);
}

void WindowMenus::Show(const Item& item, Menu menu, int index) {
    item.action->setCheckable(item.checked || IsSwitch(menu, index));
    item.action->setChecked(item.checked);
}

void WindowMenus::SetEnabled(Menu menu, int index, bool enabled) {
    const auto found = items.find({menu, index});
    if (found != items.end()) {
        found->second.action->setEnabled(enabled && found->second.ready);
    }
}

void WindowMenus::SetChecked(Menu menu, int index, bool checked) {
    const auto found = items.find({menu, index});
    if (found != items.end()) {
        found->second.checked = checked;
        Show(found->second, menu, index);
    }
}

bool WindowMenus::Checked(Menu menu, int index) const {
    const auto found = items.find({menu, index});
    return found != items.end() && found->second.checked;
}

QAction* WindowMenus::Action(Menu menu, int index) const {
    const auto found = items.find({menu, index});
    return found == items.end() ? nullptr : found->second.action;
}

} // namespace quelmont
