#include "platform/help_pages.h"

#include <gtest/gtest.h>

#include <set>

namespace quelmont {
namespace {

TEST(HelpContexts, OfAControlAreItsOwn) {
    const HelpPlace place = PlaceOfHelp(HelpContextOf("LatLonBoundsAz", "AzRangeDist"));
    EXPECT_EQ(place.page, "bounds-azimuthal");
    EXPECT_EQ(place.section, "range-of-map-in-degrees");
}

TEST(HelpContexts, OfAControlWithoutOneAreThoseOfItsDialog) {
    EXPECT_EQ(HelpContextOf("LatLonBounds", "OK"), HelpContextOf("LatLonBounds", ""));
    EXPECT_NE(HelpContextOf("LatLonBounds", ""), 0);
}

TEST(HelpContexts, OfAnUnknownDialogAreZeroAndLeadToTheContents) {
    EXPECT_EQ(HelpContextOf("Nowhere", "LatN"), 0);
    EXPECT_EQ(HelpContextOf(Menu::mnuInput, 99), 0);
    for (const int number : {-1, 0, 999, 9999}) {
        EXPECT_EQ(PlaceOfHelp(number).page, HelpContentsPage) << number;
        EXPECT_EQ(PlaceOfHelp(number).section, "") << number;
    }
}

TEST(HelpContexts, OfRecentDesignsAreOneAndTheSame) {
    EXPECT_EQ(HelpContextOf(Menu::mnuRecent, 7), HelpContextOf(Menu::mnuRecent, 0));
    EXPECT_EQ(PlaceOfHelp(HelpContextOf(Menu::mnuRecent, 7)).page, "designs");
}

TEST(HelpContexts, DifferForEveryRow) {
    std::set<int> numbers;
    for (const ControlHelp& row : HelpOfControls()) {
        numbers.insert(HelpContextOf(row.form, row.control));
    }
    for (const MenuHelp& row : HelpOfMenus()) {
        numbers.insert(HelpContextOf(row.menu, row.index));
    }
    EXPECT_EQ(numbers.size(), HelpOfControls().size() + HelpOfMenus().size());
    EXPECT_FALSE(numbers.contains(0));
}

} // namespace
} // namespace quelmont
