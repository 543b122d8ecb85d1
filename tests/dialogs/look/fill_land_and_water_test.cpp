#include "dialogs/look/fill_land_and_water.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace quelmont {
namespace {

using testing::ElementsAre;

class FillDialog : public FreshProgramTest {
protected:
    FillDialog() { ConstantDefs(); }

    void ChooseColor(int cell) {
        machine.forms.Script("Colors256", [cell](Form& picker) {
            EXPECT_EQ(picker.At("Purpose").text, "Fill Color");
            picker.Choose("ColorSquare", cell);
        });
    }
};

TEST_F(FillDialog, NothingIsFilledAtFirst) {
    const FillLandAndWater form;
    for (const char* const check : {"FillLand", "FillLakes", "FillSea"}) {
        EXPECT_EQ(form.At(check).value, 0);
    }
}

TEST_F(FillDialog, ShowsTheColorsInUse) {
    Design.Fill = {Rgb(1, 2, 3), std::nullopt, SolidColor(Rgb(4, 5, 6))};
    const FillLandAndWater form;
    EXPECT_EQ(form.At("FillLand").value, 1);
    EXPECT_EQ(form.At("FillLakes").value, 0);
    EXPECT_EQ(form.At("FillSea").value, 1);
    EXPECT_THAT(form.At("LandColor").colors, ElementsAre(Rgb(1, 2, 3)));
    EXPECT_THAT(form.At("SeaColor").colors, ElementsAre(Rgb(4, 5, 6)));
}

TEST_F(FillDialog, AColorThatIsChosenIsFilled) {
    FillLandAndWater form;
    ChooseColor(12); // red
    form.Press("LakesColor");
    EXPECT_EQ(form.At("FillLakes").value, 1);
    EXPECT_THAT(form.At("LakesColor").colors, ElementsAre(Rgb(255, 0, 0)));
    EXPECT_EQ(Design.Fill, FillChoice{}) << "not before OK";
    form.PressDefault();
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_EQ(Design.Fill, (FillChoice{std::nullopt, SolidColor(Rgb(255, 0, 0)), std::nullopt}));
}

TEST_F(FillDialog, APickerThatIsCancelledChangesNothing) {
    FillLandAndWater form;
    machine.forms.Script("Colors256", [](Form& picker) { picker.PressCancel(); });
    form.Press("LandColor");
    EXPECT_EQ(form.At("FillLand").value, 0);
    form.PressDefault();
    EXPECT_EQ(Design.Fill, FillChoice{});
}

TEST_F(FillDialog, WhatIsCheckedHasTheColorOfItsButton) {
    FillLandAndWater form;
    const ColorValue proposed = form.At("SeaColor").colors.front();
    form.Choose("FillSea", 1);
    form.PressDefault();
    EXPECT_EQ(Design.Fill.sea, std::optional(SolidColor(proposed)));
    FillLandAndWater again;
    again.Choose("FillSea", 0);
    again.PressDefault();
    EXPECT_EQ(Design.Fill, FillChoice{});
}

TEST_F(FillDialog, CancelStoresNothing) {
    FillLandAndWater form;
    ChooseColor(3);
    form.Press("LandColor");
    form.PressCancel();
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(Design.Fill, FillChoice{});
}

} // namespace
} // namespace quelmont
