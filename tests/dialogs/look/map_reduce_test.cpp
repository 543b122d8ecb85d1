#include "dialogs/look/map_reduce.h"

#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

using MapReduceDialog = FreshProgramTest;

TEST_F(MapReduceDialog, SaysWhatItIsFor) {
    const MapReduceForm form;
    EXPECT_EQ(form.Caption(), "Select Map Size");
    EXPECT_EQ(
        form.At("Label2").text,
        "The Percent Full Screen spin button allows you to reduce the size of the map displayed on the "
        "screen.\n\n"
        "Selecting 100 Percent Full Screen plots the largest possible map on the screen.\n\n"
        "Selecting less than 100 Percent Full Screen draws a map with empty margins around all sides of the "
        "map.  The margins allow text to be added to the map without writing over the map itself.");
}

TEST_F(MapReduceDialog, ShowsThePercentageOfTheDesign) {
    Design.MapReduce = 0.29; // times 100 a little less than 29
    const MapReduceForm form;
    EXPECT_EQ(form.At("MapReduction").value, 29);
    EXPECT_EQ(form.At("MapReduction").minimum, 10);
    EXPECT_EQ(form.At("MapReduction").maximum, 100);
    EXPECT_EQ(form.Focus(), "MapReduction");
}

TEST_F(MapReduceDialog, DrawMapStoresThePercentage) {
    Design.DialogCancelled = true;
    MapReduceForm form;
    form.Spin("MapReduction", 75);
    EXPECT_EQ(Design.MapReduce, 1.0) << "not before the button";
    form.Press("DrawMap");
    EXPECT_TRUE(form.Closed());
    EXPECT_EQ(Design.MapReduce, 0.75);
    EXPECT_FALSE(Design.DialogCancelled);
}

TEST_F(MapReduceDialog, EnterIsDrawMap) {
    MapReduceForm form;
    form.Spin("MapReduction", 10);
    form.PressDefault();
    EXPECT_TRUE(form.Closed());
    EXPECT_EQ(Design.MapReduce, 0.1);
}

TEST_F(MapReduceDialog, SpinStaysInItsRange) {
    MapReduceForm form;
    form.Spin("MapReduction", 5);
    EXPECT_EQ(form.At("MapReduction").value, 10);
    form.Spin("MapReduction", 101);
    EXPECT_EQ(form.At("MapReduction").value, 100);
}

TEST_F(MapReduceDialog, SizeOfARecalledDesignIsShownAsTheSmallest) {
    Design.MapReduce = 0.03;
    const MapReduceForm form;
    EXPECT_EQ(form.At("MapReduction").value, 10);
}

TEST_F(MapReduceDialog, CancelAndEscapeLeaveThePercentage) {
    for (const bool button : {true, false}) {
        Design.DialogCancelled = false;
        MapReduceForm form;
        form.Spin("MapReduction", 40);
        if (button) {
            form.Press("Cancel");
        } else {
            form.PressCancel();
        }
        EXPECT_TRUE(form.Closed());
        EXPECT_EQ(Design.MapReduce, 1.0);
        EXPECT_TRUE(Design.DialogCancelled);
    }
}

TEST_F(MapReduceDialog, F1AsksForItsPageOfTheHelp) {
    const MapReduceForm form;
    form.PressF1();
    ASSERT_EQ(machine.help.shown.size(), 1U);
    EXPECT_EQ(machine.help.shown[0].first, HelpContext);
    EXPECT_FALSE(form.Closed());
}

} // namespace
} // namespace quelmont
