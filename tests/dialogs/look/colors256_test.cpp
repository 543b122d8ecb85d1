#include "dialogs/look/colors256.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "dialogs/dialogs_state.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace quelmont {
namespace {

/// A purpose, what the picker says of it, and where its colour goes.
struct Purpose {
    std::int16_t number;
    const char* label;
    ColorValue& color;
    std::int16_t& cell;
};

const std::array Purposes = std::to_array<Purpose>({
    {1, "Great Circle Color", Design.GcColor, Design.GcColorIndex},
    {2, "Small Circle Color", Design.ScColor, Design.ScColorIndex},
    {3, "Background Color", Design.BackColor, Design.BackColorIndex},
    {4, "Grid Color", Design.GridColor, Design.GridColorIndex},
    {5, "Geofeature Color", DialogsNow.FeatureColor, DialogsNow.FeatureColorIndex},
});

std::vector<ColorValue> ColorsOfAll() {
    std::vector<ColorValue> colors;
    for (const Purpose& purpose : Purposes) {
        colors.push_back(purpose.color);
    }
    return colors;
}

class ColorPicker : public FreshProgramTest {
protected:
    ColorPicker() { ConstantDefs(); }
};

TEST_F(ColorPicker, NamesItsPurposeAndMarksTheColourInUse) {
    for (const Purpose& purpose : Purposes) {
        Design.ColorPurpose = purpose.number;
        purpose.color = SolidColor(Rgb(255, 0, 0));
        purpose.cell = 39; // the second red of the table
        const Colors256 form;
        EXPECT_EQ(form.Caption(), "Select Color");
        EXPECT_EQ(form.At("Purpose").text, purpose.label);
        EXPECT_EQ(form.At("ColorSquare").marked, 39);
        EXPECT_EQ(form.At("ColorSquare").colors.size(), 256U);
        EXPECT_EQ(form.At("ColorSquare").columns, 16);
        EXPECT_EQ(form.At("HelpText").text, purpose.number == 5
                                                ? "     Click on a color to select."
                                                : "Click on a color to select.  Redraw\nthe map to display "
                                                  "the new color.");
    }
}

TEST_F(ColorPicker, ColourOutsideTheTableHasNoMark) {
    Design.ColorPurpose = PurposeGrid;
    Design.GridColor = SolidColor(Rgb(1, 2, 3));
    EXPECT_EQ(Colors256().At("ColorSquare").marked, -1);
}

TEST_F(ColorPicker, ChosenCellBecomesTheColourAndCloses) {
    for (const Purpose& purpose : Purposes) {
        Design.ColorPurpose = purpose.number;
        const std::vector<ColorValue> before = ColorsOfAll();
        Colors256 form;
        form.Choose("ColorSquare", 48);
        EXPECT_TRUE(form.Closed());
        EXPECT_FALSE(Design.DialogCancelled);
        EXPECT_EQ(purpose.color, SolidColor(Rgb(0x4D, 0x26, 0)));
        EXPECT_EQ(purpose.cell, 48);
        for (std::size_t other = 0; other < Purposes.size(); ++other) {
            if (Purposes[other].number != purpose.number) {
                EXPECT_EQ(Purposes[other].color, before[other]);
            }
        }
    }
}

TEST_F(ColorPicker, CancelKeepsTheColour) {
    Design.ColorPurpose = PurposeBackground;
    Colors256 form;
    form.Hover("ColorSquare", 48);
    form.PressCancel();
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(255, 255, 255)));
    EXPECT_EQ(Design.BackColorIndex, 15);
}

TEST_F(ColorPicker, TellsTheColourUnderTheMouse) {
    Design.ColorPurpose = PurposeGrid;
    Colors256 form;
    EXPECT_EQ(form.At("ColorSquare").text, "");
    form.Hover("ColorSquare", 12);
    EXPECT_EQ(form.At("ColorSquare").text, "red: red 255, green 0, blue 0");
    form.Hover("ColorSquare", -1);
    EXPECT_EQ(form.At("ColorSquare").text, "");
}

TEST_F(ColorPicker, WithoutAPurposeIsAMistake) {
    Design.ColorPurpose = 0;
    EXPECT_THROW(Colors256(), std::out_of_range);
}

} // namespace
} // namespace quelmont
