#include "mainwindow/main_menu.h"

#include "platform/machine.h"

#include <array>

namespace quelmont {

namespace {

// clang-format off
constexpr std::array BarMenu = {
    MenuEntry{ 0, "&File",                       true },
    MenuEntry{ 1, "&Projection",                 true },
    MenuEntry{ 2, "Design &Map",                 true },
    MenuEntry{ 3, "&Draw Map",                   true },
    MenuEntry{ 4, "&Help",                       true },
    MenuEntry{ 5, "&Stop",                       true },
};

constexpr std::array InputMenu = {
    MenuEntry{ 0, "&Open Digital Map File",      false},
    MenuEntry{ 1, "",                            true },
    MenuEntry{ 2, "&Print Map",                  false},
    MenuEntry{ 3, "Print Set&up",                false},
    MenuEntry{ 4, "",                            true },
    MenuEntry{ 5, "Save as &BMP",                false},
    MenuEntry{ 6, "Save as &CGM",                false},
    MenuEntry{ 7, "Save as &DXF",                false},
    MenuEntry{ 8, "Save as &WMF",                false},
    MenuEntry{ 9, "Save as &ASCII",              false},
    MenuEntry{10, "",                            true },
    MenuEntry{11, "Save &Great Circle",          false},
    MenuEntry{12, "Save &Small Circle",          false},
    MenuEntry{13, "",                            true },
    MenuEntry{14, "Save &Map Design",            false},
    MenuEntry{15, "&Recall Map Design",          false},
    MenuEntry{16, "",                            true },
    MenuEntry{17, "E&xit",                       true },
};

constexpr std::array ProjMenu = {
    MenuEntry{ 0, "&Mercator",                   true },
    MenuEntry{ 1, "&Equirectangular",            true },
    MenuEntry{ 2, "C&ylindrical equal-area",     true },
    MenuEntry{ 3, "",                            true },
    MenuEntry{ 4, "&Hammer equal-area",          true },
    MenuEntry{ 5, "Moll&weide equal-area",       true },
    MenuEntry{ 6, "&Robinson",                   true },
    MenuEntry{ 7, "",                            true },
    MenuEntry{ 8, "Equi&distant conic",          true },
    MenuEntry{ 9, "&Conformal conic",            true },
    MenuEntry{10, "&Albers equal-area",          true },
    MenuEntry{11, "",                            true },
    MenuEntry{12, "&Gnomonic",                   true },
    MenuEntry{13, "&Stereographic",              true },
    MenuEntry{14, "&Orthographic",               true },
    MenuEntry{15, "&Vertical Perspective",       true },
    MenuEntry{16, "Azimu&thal equidistant",      true },
    MenuEntry{17, "A&zimuthal equal-area",       true },
    MenuEntry{18, "",                            true },
    MenuEntry{19, "&UTM",                        true },
};

constexpr std::array MollweideMenu = {
    MenuEntry{ 0, "Normal",                      true },
    MenuEntry{ 1, "Interrupted",                 true },
};

constexpr std::array DesignMenu = {
    MenuEntry{ 0, "Map &Boundaries",             true },
    MenuEntry{ 1, "Great &Circle",               false},
    MenuEntry{ 2, "&Small Circle",               false},
    MenuEntry{ 3, "",                            true },
    MenuEntry{ 4, "Add &Text to Map",            false},
    MenuEntry{ 5, "&Labels",                     false},
    MenuEntry{ 6, "",                            true },
    MenuEntry{ 7, "B&ackground Color",           true },
    MenuEntry{ 8, "&Grid Color, Width, Type",    true },
    MenuEntry{ 9, "Line &Width Scaling",         true },
    MenuEntry{10, "Show Window &Pixel Size",     true },
    MenuEntry{11, "",                            true },
    MenuEntry{12, "&Map Parameter Report",       false},
    MenuEntry{13, "G&reat Circle Report",        false},
};

constexpr std::array AboutMenu = {
    MenuEntry{ 0, "&Contents",                   false},
    MenuEntry{ 1, "&Search for Help on ...",     false},
    MenuEntry{ 2, "",                            true },
    MenuEntry{ 3, "&About Quelmont",             true },
    MenuEntry{ 4, "Plot &Time",                  true },
};
// clang-format on

} // namespace

std::span<const MenuEntry> MenuEntries(Menu menu) {
    switch (menu) {
    case Menu::mnuBar:
        return BarMenu;
    case Menu::mnuInput:
        return InputMenu;
    case Menu::mnuProj:
        return ProjMenu;
    case Menu::mnuProjMollweide:
        return MollweideMenu;
    case Menu::mnuDesign:
        return DesignMenu;
    case Menu::mnuAbout:
        return AboutMenu;
    }
    return {};
}

void MarkMenuItem(Menu menu, int index) {
    for (const MenuEntry& entry : MenuEntries(menu)) {
        if (menu != Menu::mnuDesign || entry.index != PixelSizeItem) {
            Machine().window->SetMenuChecked(menu, entry.index, entry.index == index);
        }
    }
}

} // namespace quelmont
