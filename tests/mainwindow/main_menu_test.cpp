#include "mainwindow/main_menu.h"

#include "mainwindow/started_program.h"
#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <string>

namespace quelmont {
namespace {

using testing::ElementsAre;

std::vector<std::string_view> Texts(Menu menu) {
    std::vector<std::string_view> texts;
    for (const MenuEntry& entry : MenuEntries(menu)) {
        texts.push_back(entry.text);
    }
    return texts;
}

std::vector<int> Indices(Menu menu) {
    std::vector<int> indices;
    for (const MenuEntry& entry : MenuEntries(menu)) {
        indices.push_back(entry.index);
    }
    return indices;
}

TEST(MainMenu, BarHasItsTitles) {
    EXPECT_THAT(Texts(Menu::mnuBar), ElementsAre("&File", "&Edit", "&Projection", "Design &Map", "&Draw Map",
                                                 "&View", "&Help", "&Stop"));
    EXPECT_THAT(Indices(Menu::mnuBar), ElementsAre(0, 7, 1, 2, 3, 6, 4, 5));
}

TEST(MainMenu, FileMenuHasItsItems) {
    EXPECT_THAT(Texts(Menu::mnuInput),
                ElementsAre("&Open Digital Map File", "", "&Print Map", "Print Set&up", "", "Save as &BMP",
                            "Save as &CGM", "Save as &DXF", "Save as &WMF", "Save as &ASCII", "Save as PD&F",
                            "Save as P&NG", "Save as S&VG", "", "Save &Great Circle", "Save &Small Circle",
                            "", "Save &Map Design", "&Recall Map Design", "R&ecent Map Designs", "",
                            "E&xit"));
    EXPECT_THAT(Indices(Menu::mnuInput),
                ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 18, 19, 20, 10, 11, 12, 13, 14, 15, 21, 16, 17));
}

TEST(MainMenu, EditAndViewMenusHaveTheirItems) {
    EXPECT_THAT(Texts(Menu::mnuEdit), ElementsAre("&Undo", "&Redo", "", "&Copy Map"));
    EXPECT_THAT(Texts(Menu::mnuView), ElementsAre("&Smooth Lines", "Status &Line", "&Redraw by Itself",
                                                  "Mo&ve with the Mouse", "Dra&w Again", "&Distortion..."));
}

TEST(MainMenu, MenusWithoutAddedItemsHaveNoGapsInTheirIndices) {
    for (const Menu menu : {Menu::mnuProj, Menu::mnuProjMollweide, Menu::mnuDesign, Menu::mnuAbout}) {
        int next = 0;
        for (const int index : Indices(menu)) {
            EXPECT_EQ(index, next);
            ++next;
        }
    }
}

TEST(MainMenu, DesignMenuHasItsItems) {
    EXPECT_THAT(Texts(Menu::mnuDesign),
                ElementsAre("Map &Boundaries", "Great &Circle", "&Small Circle", "", "Add &Text to Map",
                            "&Labels", "", "B&ackground Color", "&Grid Color, Width, Type",
                            "Line &Width Scaling", "Show Window &Pixel Size", "", "&Map Parameter Report",
                            "G&reat Circle Report", "", "Gr&id Labels...", "&Frame and Scale...",
                            "Fill La&nd and Water..."));
}

TEST(MainMenu, ProjectionMenuFollowsTheTableOfProjections) {
    for (const ProjectionEntry& entry : Projections) {
        const bool lower = entry.mollweideIndex >= 0;
        const auto texts = Texts(lower ? Menu::mnuProjMollweide : Menu::mnuProj);
        EXPECT_EQ(texts[static_cast<std::size_t>(lower ? entry.mollweideIndex : entry.menuIndex)],
                  entry.menuText);
    }
    EXPECT_EQ(Texts(Menu::mnuProj)[5], "Moll&weide equal-area");
    EXPECT_THAT(Texts(Menu::mnuProjMollweide), ElementsAre("&Normal", "&Interrupted"));
}

TEST(MainMenu, ProjectionMenuHasItsGroups) {
    std::vector<int> separators;
    for (const MenuEntry& entry : MenuEntries(Menu::mnuProj)) {
        if (entry.IsSeparator()) {
            separators.push_back(entry.index);
        }
    }
    EXPECT_EQ(MenuEntries(Menu::mnuProj).size(), 22U);
    EXPECT_THAT(separators, ElementsAre(3, 7, 11, 18, 20));
    EXPECT_EQ(Texts(Menu::mnuProj)[21], "Hel&p Me Choose...");
}

TEST(MainMenu, HelpMenuHasItsItems) {
    EXPECT_THAT(Texts(Menu::mnuAbout),
                ElementsAre("&Contents", "&Search for Help on ...", "", "&About Quelmont", "Plot &Time"));
}

TEST(MainMenu, ItemIsReadyWhenSomethingStandsBehindIt) {
    const auto ready = [](Menu menu, int index) {
        return MenuEntries(menu)[static_cast<std::size_t>(index)].Ready();
    };
    EXPECT_TRUE(ready(Menu::mnuInput, SaveWmfItem));
    EXPECT_FALSE((MenuEntry{5, "Some item"}.Ready()));
    EXPECT_TRUE(ready(Menu::mnuProj, MollweideItem)) << "its menu";
    EXPECT_TRUE(ready(Menu::mnuDesign, LabelsItem));
}

class Mnemonics : public testing::TestWithParam<Menu> {};

TEST_P(Mnemonics, AreThereAndUniqueInTheirMenu) {
    std::map<char, std::string_view> users;
    for (const std::string_view text : Texts(GetParam())) {
        const std::size_t mark = text.find('&');
        EXPECT_TRUE(text.empty() || mark != std::string_view::npos)
            << text << " can be reached by its letter";
        if (mark != std::string_view::npos) {
            const char letter = static_cast<char>(std::tolower(static_cast<unsigned char>(text[mark + 1])));
            const auto [user, fresh] = users.emplace(letter, text);
            EXPECT_TRUE(fresh) << text << " and " << user->second;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Menus, Mnemonics,
                         testing::Values(Menu::mnuBar, Menu::mnuInput, Menu::mnuEdit, Menu::mnuProj,
                                         Menu::mnuProjMollweide, Menu::mnuDesign, Menu::mnuView,
                                         Menu::mnuAbout));

using Marks = StartedProgram;

TEST_F(Marks, OneItemOfAMenuIsMarked) {
    MarkMenuItem(Menu::mnuProj, 6);
    for (const MenuEntry& entry : MenuEntries(Menu::mnuProj)) {
        EXPECT_EQ(window.MenuChecked(Menu::mnuProj, entry.index), entry.index == 6);
    }
    EXPECT_FALSE(window.MenuChecked(Menu::mnuDesign, 6)) << "another menu's";
}

} // namespace
} // namespace quelmont
