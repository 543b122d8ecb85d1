#include "dialogs/look/map_frame.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::HasSubstr;

class MapFrames : public FreshProgramTest {
protected:
    MapFrames() {
        ConstantDefs();
        Design.ProjNum = ProjMercator;
        ProposeBounds();
        AcceptProjection();
    }
};

TEST_F(MapFrames, OpensWithTheChoiceAndStoresAnother) {
    Design.Frame = {.frame = true, .unit = ScaleBarUnit::StatuteMiles, .latitude = -30.5};
    MapFrame dialog;
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(dialog.At("Frame").value, 1);
    EXPECT_EQ(dialog.At("StatuteMiles").value, 1);
    EXPECT_EQ(dialog.At("OwnLatitude").value, 1);
    EXPECT_EQ(dialog.At("Latitude").text, "30    30    00    S");
    dialog.Choose("Frame", 0);
    dialog.Choose("NauticalMiles");
    dialog.Type("Latitude", "45    00    00    N");
    dialog.PressDefault();
    EXPECT_TRUE(dialog.Closed());
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_EQ(Design.Frame, (FrameChoice{false, ScaleBarUnit::NauticalMiles, 45.0}));
}

TEST_F(MapFrames, CancelChangesNothing) {
    MapFrame dialog;
    dialog.Choose("Frame", 1);
    dialog.Choose("Kilometers");
    dialog.PressCancel();
    EXPECT_EQ(Design.Frame, FrameChoice{});
    EXPECT_TRUE(Design.DialogCancelled);
}

TEST_F(MapFrames, TheLatitudeIsOpenWhenABarIsToHaveOne) {
    MapFrame dialog;
    EXPECT_FALSE(dialog.At("OwnLatitude").enabled);
    EXPECT_FALSE(dialog.At("Latitude").enabled);
    dialog.Choose("Kilometers");
    EXPECT_TRUE(dialog.At("OwnLatitude").enabled);
    EXPECT_FALSE(dialog.At("Latitude").enabled);
    dialog.Choose("OwnLatitude", 1);
    EXPECT_TRUE(dialog.At("Latitude").enabled);
    dialog.PressDefault();
    EXPECT_EQ(Design.Frame.latitude, 0.0);
}

TEST_F(MapFrames, TheNoteTellsWhereTheBarIsTrueOrWhyThereIsNone) {
    MapFrame dialog;
    EXPECT_EQ(dialog.At("Note").text, "");
    dialog.Choose("Kilometers");
    EXPECT_EQ(dialog.At("Note").text, "The bar of this map says: Scale along the equator.");
    dialog.Choose("OwnLatitude", 1);
    dialog.Type("Latitude", "45    00    00    N");
    EXPECT_EQ(dialog.At("Note").text, "The bar of this map says: Scale at 45\u00B0N.");
    dialog.Type("Latitude", "85    00    00    N");
    EXPECT_THAT(dialog.At("Note").text, HasSubstr("does not reach the latitude"));
    dialog.Choose("NoBar");
    EXPECT_EQ(dialog.At("Note").text, "");
}

TEST_F(MapFrames, ALatitudeBeyondThePoleIsRefused) {
    Design.Frame = {.frame = false, .unit = ScaleBarUnit::Kilometres, .latitude = 40.0};
    MapFrame dialog;
    dialog.MoveFocus("Latitude");
    dialog.Type("Latitude", "91    00    00    N");
    machine.boxes.Answer(BoxAnswer::Cancel);
    dialog.MoveFocus("Frame");
    const auto boxes = machine.boxes.Taken();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Error: Latitude of scale bar");
    EXPECT_EQ(dialog.At("Latitude").text, "40    00    00    N");
}

} // namespace
} // namespace quelmont
