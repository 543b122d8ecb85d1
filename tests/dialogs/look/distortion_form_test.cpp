#include "dialogs/look/distortion_form.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::IsEmpty;

class DistortionDialog : public FreshProgramTest {
protected:
    DistortionDialog() {
        ConstantDefs();
        Design.ProjNum = ProjRobinson;
        ProposeBounds();
        AcceptProjection();
    }
};

TEST_F(DistortionDialog, OpensWithTheChoiceAndStoresAnother) {
    Design.Distortion = {DistortionKind::Ellipses, 2.5, 15.0};
    DistortionForm dialog;
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(dialog.At("Ellipses").value, 1);
    EXPECT_EQ(dialog.At("NoDistortion").value, 0);
    EXPECT_EQ(dialog.At("Radius").text, "002    30    00");
    EXPECT_EQ(dialog.At("Spacing").text, "015    00    00");
    dialog.Type("Radius", "004    00    00");
    dialog.Type("Spacing", "020    30    00");
    dialog.PressDefault();
    EXPECT_TRUE(dialog.Closed());
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_EQ(Design.Distortion, (DistortionChoice{DistortionKind::Ellipses, 4.0, 20.5}));
}

TEST_F(DistortionDialog, CancelChangesNothing) {
    DistortionForm dialog;
    dialog.Choose("AreaScale");
    dialog.PressCancel();
    EXPECT_EQ(Design.Distortion, DistortionChoice{});
    EXPECT_TRUE(Design.DialogCancelled);
}

TEST_F(DistortionDialog, CirclesAloneHaveARadiusAndASpacing) {
    DistortionForm dialog;
    EXPECT_FALSE(dialog.At("Radius").enabled);
    dialog.Choose("Ellipses");
    EXPECT_TRUE(dialog.At("Radius").enabled);
    EXPECT_TRUE(dialog.At("Spacing").enabled);
    dialog.Choose("AngleError");
    EXPECT_FALSE(dialog.At("Spacing").enabled);
    dialog.PressDefault();
    EXPECT_EQ(Design.Distortion.kind, DistortionKind::Angle);
}

TEST_F(DistortionDialog, TheNoteTellsHowManyCirclesTheMapHas) {
    DistortionForm dialog;
    EXPECT_EQ(dialog.At("Note").text, "");
    dialog.Choose("Ellipses");
    // Twelve on five parallels, and the poles.
    EXPECT_EQ(dialog.At("Note").text, "62 circles lie on this map.");
    dialog.Type("Spacing", "090    00    00");
    EXPECT_EQ(dialog.At("Note").text, "6 circles lie on this map.");
    dialog.Type("Spacing", "000    30    00");
    EXPECT_EQ(dialog.At("Note").text, "More circles than a map can show.");
    dialog.Choose("AreaScale");
    EXPECT_EQ(dialog.At("Note").text, "");
}

TEST_F(DistortionDialog, CirclesOfNoSizeOrTooLargeAreRefusedWhenTheFieldIsLeft) {
    struct Case {
        const char* field;
        const char* text;
        const char* title;
        const char* message;
    };
    for (const Case& wrong :
         {Case{"Radius", "000    00    00", "Error: Radius of circles", "Radius cannot be 0"},
          Case{"Radius", "045    00    01", "Error: Radius of circles", "Radius cannot be > 45  00  00"},
          Case{"Spacing", "000    00    00", "Error: Spacing of circles", "Spacing cannot be 0"},
          Case{"Spacing", "090    00    01", "Error: Spacing of circles",
               "Spacing cannot be > 90  00  00"}}) {
        machine.boxes.asked.clear();
        machine.boxes.Answer(BoxAnswer::Cancel);
        DistortionForm dialog;
        dialog.Choose("Ellipses");
        dialog.MoveFocus(wrong.field);
        dialog.Type(wrong.field, wrong.text);
        dialog.MoveFocus("NoDistortion");
        ASSERT_EQ(machine.boxes.asked.size(), 1U) << wrong.text;
        EXPECT_EQ(machine.boxes.asked[0].title, wrong.title);
        EXPECT_EQ(machine.boxes.asked[0].text, wrong.message);
        EXPECT_EQ(machine.boxes.asked[0].buttons, BoxButtons::RetryCancel);
        EXPECT_NE(dialog.At(wrong.field).text, wrong.text) << "the text of before is back";
    }
    EXPECT_EQ(Design.Distortion, DistortionChoice{});
}

TEST_F(DistortionDialog, TooSmallAndTooManyCirclesAreRefusedAtTheEnd) {
    struct Case {
        const char* field;
        const char* text;
        const char* message;
    };
    for (const Case& wrong :
         {Case{"Radius", "000    00    35", "Radius cannot be < 00  00  36"},
          Case{"Spacing", "000    00    35", "Spacing cannot be < 00  00  36"},
          Case{"Spacing", "001    00    00", "A map can show 2000 circles. Choose a larger spacing."}}) {
        machine.boxes.asked.clear();
        DistortionForm dialog;
        dialog.Choose("Ellipses");
        dialog.Type(wrong.field, wrong.text);
        dialog.PressDefault();
        EXPECT_FALSE(dialog.Closed()) << wrong.text;
        ASSERT_EQ(machine.boxes.asked.size(), 1U);
        EXPECT_EQ(machine.boxes.asked[0].text, wrong.message);
    }
    EXPECT_EQ(Design.Distortion, DistortionChoice{});
}

TEST_F(DistortionDialog, ShadesNeedNoCircles) {
    DistortionForm dialog;
    dialog.Choose("Ellipses");
    dialog.Type("Radius", "000    00    10");
    dialog.Choose("AreaScale");
    dialog.PressDefault();
    EXPECT_TRUE(dialog.Closed());
    EXPECT_EQ(Design.Distortion, (DistortionChoice{DistortionKind::Area, 5.0, 30.0}));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

} // namespace
} // namespace quelmont
