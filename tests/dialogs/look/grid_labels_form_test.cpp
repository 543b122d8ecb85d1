#include "dialogs/look/grid_labels_form.h"

#include "core/constant_defs.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

class GridLabelsDialog : public FreshProgramTest {
protected:
    GridLabelsDialog() { ConstantDefs(); }
};

TEST_F(GridLabelsDialog, ShowsTheChoiceInUse) {
    Design.GridLabels = {.place = GridLabelPlace::Lines, .style = GridLabelStyle::Letter};
    Design.Fonts[GridLabelFontSlot].FontSize = 14;
    const GridLabelsForm form;
    EXPECT_EQ(form.At("GridLabelPlace").value, 2);
    EXPECT_THAT(form.At("GridLabelPlace").items,
                ElementsAre("No labels", "At the frame of the map", "On the lines of the grid"));
    EXPECT_EQ(form.At("GridLabelStyle").value, 1);
    EXPECT_EQ(form.At("GridLabelSample").text, "30 S");
    EXPECT_EQ(form.At("GridLabelSample").letters.points, 14);
    EXPECT_EQ(form.At("GridLabelSample").letters.fontName, "Arial");
}

TEST_F(GridLabelsDialog, SampleFollowsTheStyle) {
    GridLabelsForm form;
    EXPECT_EQ(form.At("GridLabelSample").text, "30\u00B0S");
    form.Choose("GridLabelStyle", 2);
    EXPECT_EQ(form.At("GridLabelSample").text, "-30");
}

TEST_F(GridLabelsDialog, OkStoresPlaceAndStyle) {
    for (int place = 0; place < 3; ++place) {
        for (int style = 0; style < 3; ++style) {
            GridLabelsForm form;
            form.Choose("GridLabelPlace", place);
            form.Choose("GridLabelStyle", style);
            form.PressDefault();
            EXPECT_TRUE(form.Closed());
            EXPECT_FALSE(Design.DialogCancelled);
            EXPECT_EQ(static_cast<int>(Design.GridLabels.place), place);
            EXPECT_EQ(static_cast<int>(Design.GridLabels.style), style);
        }
    }
}

TEST_F(GridLabelsDialog, FontIsThatOfItsOwnSlot) {
    const auto before = Design.Fonts;
    GridLabelsForm form;
    machine.forms.Script("FontDialog", [](Form& font) {
        EXPECT_EQ(Design.FontSlot, GridLabelFontSlot);
        font.Type("comFontSize", "18");
        font.Choose("chkBold");
        font.PressDefault();
    });
    form.Press("GridLabelFont");
    EXPECT_EQ(form.At("GridLabelSample").letters.points, 18);
    EXPECT_TRUE(form.At("GridLabelSample").letters.bold);
    EXPECT_EQ(Design.FontSlot, TextFontSlot);
    form.PressDefault();
    EXPECT_EQ(Design.Fonts[GridLabelFontSlot].FontSize, 18);
    for (std::size_t slot = 0; slot < static_cast<std::size_t>(GridLabelFontSlot); ++slot) {
        EXPECT_EQ(Design.Fonts[slot], before[slot]);
    }
}

TEST_F(GridLabelsDialog, CancelLeavesEverything) {
    const TextLook look = Design.Fonts[GridLabelFontSlot];
    GridLabelsForm form;
    form.Choose("GridLabelPlace", 1);
    form.Choose("GridLabelStyle", 2);
    machine.forms.Script("FontDialog", [](Form& font) {
        font.Type("comFontSize", "18");
        font.PressDefault();
    });
    form.Press("GridLabelFont");
    form.PressCancel();
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(Design.GridLabels, GridLabelChoice());
    EXPECT_EQ(Design.Fonts[GridLabelFontSlot], look);
}

} // namespace
} // namespace quelmont
