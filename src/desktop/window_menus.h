#pragma once

#include "platform/main_window.h"

#include <QKeyCombination>

#include <functional>
#include <map>
#include <string_view>
#include <utility>

class QAction;
class QMenu;
class QMenuBar;

namespace quelmont {

struct MenuEntry;

/// An item of a menu that a key belongs to.
struct KeyedEntry {
    const MenuEntry* entry = nullptr; ///< null: the key belongs to none
    Menu menu = Menu::mnuBar;
    bool first = false; ///< it is the first of the item's keys, which the menu shows
};
KeyedEntry EntryOfKeys(QKeyCombination keys);

/// The menus of the main window on the screen.
class WindowMenus {
public:
    using Clicked = std::function<void(Menu, int)>;

    /// Fills the bar. A menu that is opened is a click on its title.
    WindowMenus(QMenuBar& bar, Clicked clicked);

    /// Enables an item; one with nothing behind it stays disabled.
    void SetEnabled(Menu menu, int index, bool enabled);
    void SetChecked(Menu menu, int index, bool checked);
    bool Checked(Menu menu, int index) const;
    /// Gives an item another text; one without a text is not seen.
    void SetText(Menu menu, int index, std::string_view text);

    /// The action of an item; null for a separator.
    QAction* Action(Menu menu, int index) const;

private:
    struct Item {
        QAction* action = nullptr;
        bool ready = false;
        bool isSwitch = false;
        bool checked = false;
    };

    void Fill(QMenu& target, Menu menu);
    void AddItem(QMenu& target, Menu menu, const MenuEntry& entry);
    void Keep(Menu menu, const MenuEntry& entry, QAction* action);
    void Triggered(Menu menu, int index);
    static void Show(const Item& item);

    Clicked clicked;
    std::map<std::pair<Menu, int>, Item> items;
};

} // namespace quelmont
