#include "desktop/window_menus.h"

#include "desktop/qt_text.h"
#include "mainwindow/main_menu.h"
#include "platform/help_pages.h"
#include "platform/machine.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

namespace quelmont {

namespace {

/// F1 on an item of an open menu closes the menu and opens the item's page of the help.
class HelpKey final : public QObject {
public:
    HelpKey(QMenu& target_, Menu menu_, std::map<const QAction*, int> indices_)
        : QObject(&target_), target(target_), menu(menu_), indices(std::move(indices_)) {
        target.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto index = indices.find(target.activeAction());
        if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1 ||
            index == indices.end()) {
            return QObject::eventFilter(watched, event);
        }
        const int context = HelpContextOf(menu, index->second);
        while (QWidget* const open = QApplication::activePopupWidget()) {
            open->close();
        }
        Machine().help->Show(HelpContext, context);
        return true;
    }

private:
    QMenu& target;
    Menu menu;
    std::map<const QAction*, int> indices;
};

} // namespace

namespace {

QList<QKeySequence> KeysOf(const MenuEntry& entry) {
    return QKeySequence::listFromString(Text(entry.keys).replace(QStringLiteral(", "), QStringLiteral("; ")));
}

} // namespace

KeyedEntry EntryOfKeys(QKeyCombination keys) {
    const QKeyCombination plain(keys.keyboardModifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier),
                                keys.key());
    for (const MenuEntry& title : MenuEntries(Menu::mnuBar)) {
        if (!title.below) {
            continue;
        }
        for (const MenuEntry& entry : MenuEntries(*title.below)) {
            const QList<QKeySequence> list = entry.keys.empty() ? QList<QKeySequence>() : KeysOf(entry);
            if (const qsizetype place = list.indexOf(QKeySequence(plain)); place >= 0) {
                return {&entry, *title.below, place == 0};
            }
        }
    }
    return {};
}

WindowMenus::WindowMenus(QMenuBar& bar, Clicked clicked_) : clicked(std::move(clicked_)) {
    bar.setAccessibleName(QStringLiteral("Menus"));
    for (const MenuEntry& entry : MenuEntries(Menu::mnuBar)) {
        const int index = entry.index;
        if (entry.below) {
            QMenu* menu = bar.addMenu(Text(entry.text));
            Keep(Menu::mnuBar, entry, menu->menuAction());
            QObject::connect(menu, &QMenu::aboutToShow, menu,
                             [this, index] { clicked(Menu::mnuBar, index); });
            Fill(*menu, *entry.below);
        } else {
            QAction* action = bar.addAction(Text(entry.text));
            Keep(Menu::mnuBar, entry, action);
            QObject::connect(action, &QAction::triggered, action, [this, &bar, index] {
                // The title would stay lit as long as the command runs.
                bar.setActiveAction(nullptr);
                Triggered(Menu::mnuBar, index);
            });
        }
    }
}

void WindowMenus::Keep(Menu menu, const MenuEntry& entry, QAction* action) {
    items[{menu, entry.index}] = {action, entry.Ready(), entry.isSwitch};
}

void WindowMenus::Fill(QMenu& target, Menu menu) {
    target.setAccessibleName(Spoken(target.title()));
    std::map<const QAction*, int> indices;
    for (const MenuEntry& entry : MenuEntries(menu)) {
        if (entry.IsSeparator()) {
            target.addSeparator();
            continue;
        }
        if (entry.below) {
            QMenu* lower = target.addMenu(Text(entry.text));
            Keep(menu, entry, lower->menuAction());
            Fill(*lower, *entry.below);
        } else {
            AddItem(target, menu, entry);
        }
        SetEnabled(menu, entry.index, true);
        indices[Action(menu, entry.index)] = entry.index;
    }
    new HelpKey(target, menu, std::move(indices));
}

void WindowMenus::AddItem(QMenu& target, Menu menu, const MenuEntry& entry) {
    QAction* action = target.addAction(Text(entry.text));
    // The application's own items must not wander into a menu of the desktop.
    action->setMenuRole(QAction::NoRole);
    action->setCheckable(entry.isSwitch);
    if (!entry.keys.empty()) {
        action->setShortcuts(KeysOf(entry));
    }
    Keep(menu, entry, action);
    QObject::connect(action, &QAction::triggered, action,
                     [this, menu, index = entry.index] { Triggered(menu, index); });
}

void WindowMenus::Triggered(Menu menu, int index) {
    // A checkable action has turned its mark already; the handler decides about it.
    Show(items[{menu, index}]);
    clicked(menu, index);
}

void WindowMenus::Show(const Item& item) {
    // Marks of what was used last stand there without a box.
    item.action->setCheckable(item.checked || item.isSwitch);
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
        Show(found->second);
    }
}

bool WindowMenus::Checked(Menu menu, int index) const {
    const auto found = items.find({menu, index});
    return found != items.end() && found->second.checked;
}

void WindowMenus::SetText(Menu menu, int index, std::string_view text) {
    const auto found = items.find({menu, index});
    if (found != items.end()) {
        found->second.action->setText(Text(text));
        found->second.action->setVisible(!text.empty());
    }
}

QAction* WindowMenus::Action(Menu menu, int index) const {
    const auto found = items.find({menu, index});
    return found == items.end() ? nullptr : found->second.action;
}

} // namespace quelmont
